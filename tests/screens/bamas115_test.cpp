// The item master driven as a user does: filters, the code boxes, save, hold, delete.
#include "screenfixture.h"
#include "userinput.h"

#include "data/dbroutines.h"
#include "data/dialect.h"
#include "grid/spreadroutines.h"
#include "screens/school/BAMAS115.h"
#include "shell/buttonarray.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPrintPreviewDialog>
#include <QPrintPreviewWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>

class Bamas115 : public ScreenTest {
protected:
    void SetUp() override {
        ScreenTest::SetUp();
        loadFixture(QStringLiteral("bamas115_items.sql"));
        screen = openByNumber<BAMAS115>(115);
        ASSERT_NE(screen, nullptr);
        list = child<Spread>(screen, QStringLiteral("SP1"));
        presenter->boxes.clear();
    }
    QLineEdit* box(const char* name) { return child<QLineEdit>(screen, QString::fromLatin1(name)); }
    QString lblCode() { return child<QLabel>(screen, QStringLiteral("lblCode"))->text(); }
    QString cell(int row, const QString& heading) {
        for (int col = 1; col <= list->maxCols(); ++col) {
            if (gfSpreadText(list, -1000, col) == heading) {
                return list->model()->value(row, col);
            }
        }
        return QStringLiteral("<no column>");
    }
    // The codes of the filled rows, top to bottom.
    QString codes() {
        QStringList shown;
        for (int row = 1; row <= list->dataRowCnt(); ++row) {
            shown << cell(row, QStringLiteral("코드"));
        }
        return shown.join(u',');
    }
    int rowOf(const QString& code) {
        for (int row = 1; row <= list->dataRowCnt(); ++row) {
            if (cell(row, QStringLiteral("코드")) == code) {
                return row;
            }
        }
        return 0;
    }
    void clickElement(const char* array, int index) {
        auto* arr = child<ButtonArray>(screen, QString::fromLatin1(array));
        clickOption(arr->element(index));
        QApplication::processEvents();
    }
    // A click on an option's indicator, where a wide button still takes it.
    static void clickOption(QAbstractButton* option) {
        QTest::mouseClick(option, Qt::LeftButton, {}, QPoint(6, option->height() / 2));
        QApplication::processEvents();
    }
    void typeCode(const char* name, const QString& text) {
        QLineEdit* b = box(name);
        b->setFocus();
        b->selectAll();
        QTest::keyClicks(b, text);
    }
    BAMAS115* screen = nullptr;
    Spread* list = nullptr;
};

TEST_F(Bamas115, listsBaseItemsWithTheirCountsAndHoldInRed) {
    EXPECT_EQ(codes(), QStringLiteral("NB01,NG01,NB03,SU01,AB02"));
    EXPECT_EQ(list->maxRows(), 30);
    EXPECT_EQ(child<Spread>(screen, QStringLiteral("SP2"))->maxRows(), 25);
    const int jacket = rowOf(QStringLiteral("NB01"));
    EXPECT_EQ(gfSpreadText(list, jacket, 1), QStringLiteral("동복"));
    EXPECT_EQ(gfSpreadText(list, jacket, 3), QStringLiteral("자켓"));
    EXPECT_EQ(cell(jacket, QStringLiteral("버튼표출")),
              QStringLiteral("동복") + QChar(28) + QStringLiteral("자켓"));
    EXPECT_EQ(cell(jacket, QStringLiteral("공통")), QStringLiteral("1"));
    EXPECT_EQ(cell(jacket, QStringLiteral("전용")), QStringLiteral("1"));
    // An exclusive item on hold is not counted; neither grid column counts from nothing.
    const int vest = rowOf(QStringLiteral("NB03"));
    EXPECT_EQ(cell(vest, QStringLiteral("전용")), QStringLiteral("0"));
    EXPECT_EQ(cell(vest, QStringLiteral("공통")), QStringLiteral("0"));
    EXPECT_EQ(gfSpreadText(list, vest, 11), QStringLiteral("보류"));
    EXPECT_EQ(list->model()->foreColor(vest, 6), gfRGB(192, 0, 0));
    EXPECT_EQ(list->model()->foreColor(jacket, 6), 0u);
    EXPECT_EQ(gfSpreadText(list, rowOf(QStringLiteral("AB02")), 10), QStringLiteral("혼용"));
}

TEST_F(Bamas115, sexFilterWidensByMixAndBothSexesIsNoFilter) {
    clickElement("chkGT23", 1); // 남
    EXPECT_EQ(box("txtChGT23")->text(), QStringLiteral("B"));
    EXPECT_EQ(codes(), QStringLiteral("NB01,NB03,SU01,AB02"));
    clickElement("chkGT23", 2); // and 여
    EXPECT_EQ(box("txtChGT23")->text(), QStringLiteral("B','G"));
    EXPECT_EQ(codes(), QStringLiteral("NB01,NG01,NB03,SU01,AB02"));
    clickElement("chkGT23", 1); // 여 alone: the mixed boys' item is listed for girls too
    EXPECT_EQ(codes(), QStringLiteral("NG01,SU01,AB02"));
    clickElement("chkGT23", 2);
    clickElement("chkGT23", 3); // 공용 alone
    EXPECT_EQ(codes(), QStringLiteral("NB01,NG01,NB03,SU01,AB02"));
    clickElement("chkGT23", 3);

    clickElement("chkGT22", 2); // 하복: all-season items stay
    EXPECT_EQ(codes(), QStringLiteral("SU01,AB02"));
    clickElement("chkCGT01", 7);
    clickElement("chkGT28", 2);
    EXPECT_EQ(codes(), QStringLiteral("SU01,AB02"));
    clickElement("chkCGT01", 1);
    clickElement("chkCGT01", 7);
    EXPECT_EQ(codes(), QString());
    EXPECT_EQ(list->maxRows(), 30);
}

TEST_F(Bamas115, codeBoxesUpperCaseLookUpAndKeepTheKeyLabel) {
    EXPECT_EQ(lblCode(), QStringLiteral("NB"));
    typeCode("txtGT22", QStringLiteral("s"));
    EXPECT_EQ(box("txtGT22")->text(), QStringLiteral("S"));
    EXPECT_TRUE(child<ButtonArray>(screen, QStringLiteral("optGT22"))->element(2)->isChecked());
    EXPECT_EQ(lblCode(), QStringLiteral("SB"));
    auto* kinds = child<ButtonArray>(screen, QStringLiteral("optCGT01"));
    for (int i = 1; i <= 8; ++i) {
        EXPECT_EQ(kinds->element(i)->isEnabled(), i != 3 && i != 4 && i != 8) << i;
    }
    typeCode("txtGT23", QStringLiteral("q")); // no such sex: the box empties
    EXPECT_EQ(box("txtGT23")->text(), QString());
    EXPECT_EQ(lblCode(), QStringLiteral("S"));
    clickElement("optGT22", 1);
    EXPECT_EQ(box("txtGT22")->text(), QStringLiteral("N"));
    EXPECT_TRUE(kinds->element(8)->isEnabled());
    typeCode("txtCode", QStringLiteral("a1"));
    EXPECT_EQ(box("txtCode")->text(), QStringLiteral("A1"));
}

TEST_F(Bamas115, newItemIsStoredAsTypedAndNamesAndKeysAreRefused) {
    clickToolButton(main.get(), QStringLiteral("Clear"));
    clickToolButton(main.get(), QStringLiteral("Save")); // no code, no name
    ASSERT_EQ(presenter->boxes.size(), 1);
    EXPECT_EQ(presenter->boxes[0].text,
              QStringLiteral("초록색깔은 필수입력입니다. 입력해 주십시오."));

    typeCode("txtCode", QStringLiteral("04"));
    typeText(box("txtName"), QStringLiteral("신형 '자켓'; DROP--"));
    auto* button = child<QPlainTextEdit>(screen, QStringLiteral("txtButName"));
    button->setFocus();
    QTest::keyClicks(button, QStringLiteral("AB"));
    QTest::keyClick(button, Qt::Key_Return);
    QTest::keyClicks(button, QStringLiteral("CD"));
    QTest::keyClick(button, Qt::Key_Return); // a third line is not taken
    QTest::keyClicks(button, QStringLiteral("E%_"));
    EXPECT_EQ(child<QPushButton>(screen, QStringLiteral("cmdButton"))->text(),
              QStringLiteral("AB\nCDE%_"));
    clickElement("optGT26", 2);
    clickToolButton(main.get(), QStringLiteral("Save"));
    EXPECT_EQ(scalar(QStringLiteral("SELECT UNIFORMNAME || '|' || UNIFORMBTNVIEW || '|' || SIZETAB "
                                    "|| '|' || USEYN || '|' || UNIFORMCOMSEQ || '|' || REGUSER "
                                    "FROM C_UNIFORM WHERE SEASON = 'N' AND DIVIDE = 'B' AND "
                                    "UNIFORMSEQ = '04'")),
              QStringLiteral("신형 '자켓'; DROP--|AB\r\nCDE%_|J|Y||tester"));
    EXPECT_NE(rowOf(QStringLiteral("NB04")), 0);
    EXPECT_EQ(box("txtCode")->text(), QString()); // cleared for the next

    presenter->boxes.clear();
    typeCode("txtCode", QStringLiteral("05"));
    typeText(box("txtName"), QStringLiteral("동복자켓"));
    clickToolButton(main.get(), QStringLiteral("Save")); // the name is taken in 동복/남
    ASSERT_EQ(presenter->boxes.size(), 1);
    EXPECT_TRUE(presenter->boxes[0].text.startsWith(QStringLiteral("동일한 명칭")));
    clickElement("optGT23", 3); // 공용: the same name is free there
    clickToolButton(main.get(), QStringLiteral("Save"));
    EXPECT_EQ(count(QStringLiteral("C_UNIFORM"), QStringLiteral("UNIFORMNAME = '동복자켓'")), 2);

    // A sequence that only a common row still holds is taken.
    presenter->boxes.clear();
    clickElement("optGT22", 3);
    clickElement("optGT23", 2);
    typeCode("txtCode", QStringLiteral("09"));
    typeText(box("txtName"), QStringLiteral("새이름"));
    clickToolButton(main.get(), QStringLiteral("Save"));
    ASSERT_EQ(presenter->boxes.size(), 1);
    EXPECT_TRUE(presenter->boxes[0].text.startsWith(QStringLiteral("기등록된 코드")));
    EXPECT_EQ(count(QStringLiteral("C_UNIFORM"), QStringLiteral("UNIFORMNAME = '새이름'")), 0);
}

TEST_F(Bamas115, holdGoesDownToCommonItemsAndClassificationFollowsBackInUse) {
    clickCell(list, rowOf(QStringLiteral("NB01")), 6);
    EXPECT_EQ(lblCode(), QStringLiteral("NB"));
    EXPECT_EQ(box("txtCode")->text(), QStringLiteral("01"));
    EXPECT_FALSE(box("txtCode")->isEnabled());
    EXPECT_FALSE(box("txtGT22")->isEnabled());
    EXPECT_EQ(child<QPlainTextEdit>(screen, QStringLiteral("txtButName"))->toPlainText(),
              QStringLiteral("동복\n자켓"));

    box("txtName")->clear();
    typeText(box("txtName"), QStringLiteral("새자켓"));
    clickElement("optGT26", 2);
    clickOption(child<QRadioButton>(screen, QStringLiteral("optUSEYN_1")));
    presenter->answerNo();
    clickToolButton(main.get(), QStringLiteral("Save"));
    EXPECT_EQ(count(QStringLiteral("C_UNIFORM"), QStringLiteral("USEYN = 'N'")), 1); // unchanged
    clickToolButton(main.get(), QStringLiteral("Save"));                             // answered yes
    const QString row = QStringLiteral(
        "SELECT UNIFORMNAME || '|' || SIZETAB || '|' || USEYN FROM C_UNIFORM WHERE SEASON = 'N' "
        "AND DIVIDE = 'B' AND UNIFORMSEQ = '01' AND UNIFORMCOMSEQ = '%1'");
    EXPECT_EQ(scalar(row.arg(QString())), QStringLiteral("새자켓|J|N"));
    EXPECT_EQ(scalar(row.arg(QStringLiteral("01"))), QStringLiteral("동복자켓(특)|X|N"));
    EXPECT_EQ(gfSpreadText(list, rowOf(QStringLiteral("NB01")), 11), QStringLiteral("보류"));

    clickCell(list, rowOf(QStringLiteral("NB01")), 6);
    clickOption(child<QRadioButton>(screen, QStringLiteral("optUSEYN_0")));
    clickElement("optGT28", 2);
    child<QCheckBox>(screen, QStringLiteral("chkMix"))->click();
    clickToolButton(main.get(), QStringLiteral("Save"));
    EXPECT_EQ(scalar(row.arg(QString())), QStringLiteral("새자켓|J|Y"));
    // Back in use: the common item keeps its hold, but takes the class, size table and mix.
    EXPECT_EQ(scalar(row.arg(QStringLiteral("01"))), QStringLiteral("동복자켓(특)|J|N"));
    EXPECT_EQ(scalar(QStringLiteral("SELECT SUBMAIN || MIXUNIFORM FROM C_UNIFORM WHERE "
                                    "UNIFORMCOMSEQ = '01' AND SEASON = 'N'")),
              QStringLiteral("21"));
}

TEST_F(Bamas115, aSaleKeepsTheItemAndADeleteAsksFirstAndTakesItsCommonRowsOnly) {
    // The sale guard comes before the question: a kept item asks nothing.
    clickCell(list, rowOf(QStringLiteral("NG01")), 6);
    QTest::mouseClick(child<QPushButton>(screen, QStringLiteral("cmdDelUnif")), Qt::LeftButton);
    ASSERT_EQ(presenter->boxes.size(), 1);
    EXPECT_EQ(presenter->boxes[0].text,
              QStringLiteral("기 처리된 이력이 있습니다.\r\n학교이체금액을 0원으로 합니다."));
    EXPECT_EQ(
        count(QStringLiteral("C_UNIFORM"), QStringLiteral("DIVIDE = 'G' AND UNIFORMSEQ = '01'")),
        1);

    // Message 14; "No" deletes nothing and leaves the row loaded.
    presenter->boxes.clear();
    clickCell(list, rowOf(QStringLiteral("NB01")), 6);
    presenter->answerNo();
    QTest::mouseClick(child<QPushButton>(screen, QStringLiteral("cmdDelUnif")), Qt::LeftButton);
    ASSERT_EQ(presenter->boxes.size(), 1);
    EXPECT_EQ(presenter->boxes[0].text, QStringLiteral("삭제 하시겠습니까?"));
    EXPECT_EQ(
        count(QStringLiteral("C_UNIFORM"), QStringLiteral("COMPANY = '01' AND SEASON = 'N' AND "
                                                          "DIVIDE = 'B' AND UNIFORMSEQ = '01'")),
        2);
    EXPECT_EQ(box("txtCode")->text(), QStringLiteral("01"));

    presenter->answerYes();
    QTest::mouseClick(child<QPushButton>(screen, QStringLiteral("cmdDelUnif")), Qt::LeftButton);
    EXPECT_EQ(presenter->boxes.size(), 2);
    EXPECT_EQ(count(QStringLiteral("C_UNIFORM"),
                    QStringLiteral("COMPANY = '01' AND SEASON = 'N' AND DIVIDE = 'B' AND "
                                   "UNIFORMSEQ = '01'")),
              0);
    EXPECT_EQ(count(QStringLiteral("C_UNIFORM"), QStringLiteral("COMPANY = '02'")), 1);
    EXPECT_EQ(count(QStringLiteral("C_TRANSUNIFORM")), 3);
    EXPECT_EQ(count(QStringLiteral("C_SCHOOLUNIFORM")), 3);
    EXPECT_EQ(rowOf(QStringLiteral("NB01")), 0);

    // Nothing loaded: no sequence, no question, nothing deleted.
    QTest::mouseClick(child<QPushButton>(screen, QStringLiteral("cmdDelUnif")), Qt::LeftButton);
    EXPECT_EQ(count(QStringLiteral("C_UNIFORM")), 6);
    EXPECT_EQ(presenter->boxes.size(), 2);
}

TEST_F(Bamas115, aLoadedRowFindsItsClassAndKindByCodeWhenTwoCodesShareAName) {
    // A second class and a second kind named like the first ones, worn by a new item.
    exec(QStringLiteral(
        "INSERT INTO C_GONGTONG (L_GRP_COD, S_GRP_COD, GRP_NAM, USEYN, DISP_SEQ) VALUES "
        "('28', '3', '주품목', 'Y', 3);"
        "INSERT INTO C_COMCODE (COMPANY, L_GRP_COD, S_GRP_COD, GRP_NAM, USEYN, DISP_SEQ) VALUES "
        "('01', '01', '09', '자켓', 'Y', 9);"
        "INSERT INTO C_UNIFORM (COMPANY, SEASON, DIVIDE, UNIFORMSEQ, UNIFORMCOMSEQ, UNIFORMNAME, "
        "UNIFORMBTNVIEW, UNIFORMSPEC, SIZETAB, SUBMAIN, UNITYPE, MIXUNIFORM, USEYN) VALUES "
        "('01', 'N', 'B', '07', '', '새자켓', '새자켓', '', 'X', '3', '09', '0', 'Y')"));
    screen->m_Close();
    QApplication::processEvents();
    screen = openByNumber<BAMAS115>(115);
    ASSERT_NE(screen, nullptr);
    list = child<Spread>(screen, QStringLiteral("SP1"));
    clickCell(list, rowOf(QStringLiteral("NB07")), 6);
    EXPECT_EQ(box("txtGT28")->text(), QStringLiteral("3"));
    EXPECT_EQ(box("txtCGT01")->text(), QStringLiteral("09"));
    typeText(box("txtSpec"), QStringLiteral("울"));
    clickToolButton(main.get(), QStringLiteral("Save"));
    EXPECT_EQ(scalar(QStringLiteral("SELECT SUBMAIN || UNITYPE || UNIFORMSPEC FROM C_UNIFORM WHERE "
                                    "UNIFORMSEQ = '07'")),
              QStringLiteral("309울"));
}

TEST_F(Bamas115, paddingRowsSayNothing) {
    auto* common = child<Spread>(screen, QStringLiteral("SP2"));
    ASSERT_LT(list->dataRowCnt(), list->maxRows());
    for (int row = list->dataRowCnt() + 1; row <= list->maxRows(); ++row) {
        EXPECT_EQ(gfSpreadText(list, row, 11), QString()) << row;
    }
    EXPECT_EQ(gfSpreadText(list, rowOf(QStringLiteral("NB03")), 11), QStringLiteral("보류"));
    ASSERT_EQ(common->maxRows(), 25);
    for (int row = 1; row <= common->maxRows(); ++row) {
        EXPECT_EQ(gfSpreadText(common, row, 5), QString()) << row;
    }
}

TEST_F(Bamas115, aFailedSaveLogsItsCommandAndKeepsWhatWasTyped) {
    exec(QStringLiteral("CREATE TRIGGER refuse BEFORE UPDATE ON C_UNIFORM "
                        "BEGIN SELECT RAISE(ABORT, 'locked'); END"));
    clickCell(list, rowOf(QStringLiteral("NB01")), 6);
    box("txtName")->clear();
    typeText(box("txtName"), QStringLiteral("새자켓"));
    clickToolButton(main.get(), QStringLiteral("Save")); // message 12 answered yes, then refused
    EXPECT_EQ(presenter->boxes.size(), 2);
    EXPECT_EQ(scalar(QStringLiteral("SELECT GROUP_CONCAT(ERRPROG, '|') FROM (SELECT ERRPROG FROM "
                                    "C_ERROR ORDER BY ROWID)")),
              QStringLiteral("basDatabase : gfbSqlExecuteDB|BAMAS115 : sSaveQuery"));
    EXPECT_EQ(box("txtName")->text(), QStringLiteral("새자켓"));
    EXPECT_EQ(box("txtCode")->text(), QStringLiteral("01"));

    exec(QStringLiteral("DROP TRIGGER refuse"));
    clickToolButton(main.get(), QStringLiteral("Save"));
    EXPECT_EQ(count(QStringLiteral("C_UNIFORM"), QStringLiteral("UNIFORMNAME = '새자켓'")), 1);
}

TEST_F(Bamas115, enterReachesTheButtonTextAndThePreviewShowsTheNameAsKept) {
    QLineEdit* spec = box("txtSpec");
    spec->setFocus();
    QTest::keyClick(spec, Qt::Key_Return);
    EXPECT_EQ(QApplication::focusWidget(),
              child<QPlainTextEdit>(screen, QStringLiteral("txtButName")));

    // Twenty bytes: ten Korean letters of the twelve typed.
    QLineEdit* name = box("txtName");
    name->setFocus();
    typeText(name, QStringLiteral("가나다라마바사아자차카타"));
    EXPECT_EQ(name->text(), QStringLiteral("가나다라마바사아자차"));
    EXPECT_EQ(child<QPushButton>(screen, QStringLiteral("cmdButton"))->text(), name->text());
}

TEST_F(Bamas115, theServerTextCarriesNoSqliteSpelling) {
    clickElement("chkGT22", 1);
    clickElement("chkGT23", 2);
    const Dialect serverDialect(Dialect::Engine::SqlServer);
    const ScopedDialect server(serverDialect);
    const QString sql = keepServerText(screen->listStatement());
    EXPECT_FALSE(sql.contains(QStringLiteral("||")));
    EXPECT_TRUE(sql.contains(QStringLiteral("C_UNIFORM UF  WITH(NOLOCK)")));
    EXPECT_TRUE(sql.contains(
        QStringLiteral("RTRIM(UF.SEASON) + RTRIM(UF.DIVIDE) + RTRIM(UF.UNIFORMSEQ) AS CD")));
    EXPECT_TRUE(sql.contains(
        QStringLiteral("TU.UNIFORMCD = UF.SEASON + UF.DIVIDE + UF.UNIFORMSEQ + UF.UNIFORMCOMSEQ")));
    EXPECT_TRUE(sql.contains(QStringLiteral("AND UF.SEASON IN ('A', 'N')")));
    EXPECT_TRUE(
        sql.contains(QStringLiteral("AND (UF.DIVIDE IN ('G', 'U') OR UF.MIXUNIFORM = '1')")));
}

TEST_F(Bamas115, theItemListPrintsFromTheToolBar) {
    clickToolButton(mainWindow(), QStringLiteral("Search"));
    ASSERT_GT(list->dataRowCnt(), 0);
    int pages = -1;
    QTimer::singleShot(0, [&pages] {
        auto* preview = qobject_cast<QPrintPreviewDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(preview, nullptr);
        pages = preview->findChild<QPrintPreviewWidget*>()->pageCount();
        preview->reject();
    });
    clickToolButton(mainWindow(), QStringLiteral("Preview"));
    EXPECT_EQ(pages, 1);
}
