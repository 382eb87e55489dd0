// The store screen driven as a user does: list, pick, edit, save, refuse, delete.
#include "screenfixture.h"
#include "userinput.h"

#include "data/session.h"
#include "grid/spreadroutines.h"
#include "screens/organisation/BAMAS105.h"
#include "screens/organisation/BAMAS105_NOTICE.h"

#include <QClipboard>
#include <QComboBox>
#include <QDateEdit>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QTableView>
#include <QTimer>

class Bamas105 : public ScreenTest {
protected:
    void SetUp() override {
        ScreenTest::SetUp();
        loadFixture(QStringLiteral("bamas105_stores.sql"));
        screen = openByNumber<BAMAS105>(105);
        ASSERT_NE(screen, nullptr);
        list = child<Spread>(screen, QStringLiteral("SP1"));
        presenter->boxes.clear(); // the empty program tree's message 15
    }
    QLineEdit* box(const char* name) { return child<QLineEdit>(screen, QString::fromLatin1(name)); }
    QComboBox* combo(const char* name) {
        return child<QComboBox>(screen, QString::fromLatin1(name));
    }
    // The list's cell under a heading.
    QString cell(int row, const QString& heading) {
        for (int col = 1; col <= list->maxCols(); ++col) {
            if (gfSpreadText(list, -1000, col) == heading) {
                return gfSpreadText(list, row, col);
            }
        }
        return QStringLiteral("<no column>");
    }
    void clickRow(int row) {
        QTableView* view = list->view();
        const QModelIndex index = view->model()->index(list->headRows() + row - 1, 1);
        QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, view->visualRect(index).center());
    }
    // Fills what a new store requires; the brand as the brand pop-up hands it back.
    void fillNewStore(const QString& name) {
        screen->m_clear();
        combo("cboGT03")->setCurrentIndex(1);
        screen->setBrand(QStringLiteral("01"), QStringLiteral("청운교복"));
        box("txtName")->setText(name);
        box("txtFullName")->setText(QStringLiteral("청운교복 ") + name);
        box("txtAddres")->setText(QStringLiteral("서울"));
        box("txtCEOName")->setText(QStringLiteral("이대표"));
        box("txtTEL")->setText(QStringLiteral("02-000-0000"));
    }
    // Opens the screen anew, after a test changed what it reads at load.
    void reopen() {
        main->closeWithoutAsking();
        main.reset();
        screen = openByNumber<BAMAS105>(105);
        list = child<Spread>(screen, QStringLiteral("SP1"));
        presenter->boxes.clear();
    }
    BAMAS105* screen = nullptr;
    Spread* list = nullptr;
};

TEST_F(Bamas105, listsTheCompanysStoresOpenFirstAndCopiesAClickedRowBack) {
    ASSERT_EQ(list->maxRows(), 2);
    EXPECT_EQ(cell(1, QStringLiteral("매장")), QStringLiteral("강남점"));
    EXPECT_EQ(cell(1, QStringLiteral("구분")), QStringLiteral("직영점"));
    EXPECT_EQ(cell(2, QStringLiteral("운영")), QStringLiteral("휴점"));

    clickRow(1);
    EXPECT_EQ(child<QLabel>(screen, QStringLiteral("lblCode"))->text(), QStringLiteral("01"));
    EXPECT_EQ(child<QLabel>(screen, QStringLiteral("lblBrand"))->text(),
              QStringLiteral("청운교복"));
    EXPECT_EQ(combo("cboGT03")->currentText(), QStringLiteral("[01]직영점"));
    EXPECT_EQ(combo("cboSet01")->currentIndex(), 1);
    EXPECT_EQ(combo("cboSet05")->currentText(), QStringLiteral("2매"));
    EXPECT_EQ(combo("cboPort")->currentText(), QStringLiteral("T"));
    EXPECT_EQ(combo("cboYYYY")->currentText(), QStringLiteral("2019")); // outside the span
    EXPECT_TRUE(child<QRadioButton>(screen, QStringLiteral("optCBUSEYN_0"))->isChecked());
    EXPECT_EQ(box("txtSpeed")->text(), QStringLiteral("19200"));

    screen->m_clear();
    EXPECT_EQ(box("txtPortNo")->text(), QStringLiteral("1"));
    EXPECT_EQ(box("txtSpeed")->text(), QStringLiteral("9600"));
    EXPECT_TRUE(child<QLabel>(screen, QStringLiteral("lblCode"))->text().isEmpty());
    EXPECT_TRUE(child<QRadioButton>(screen, QStringLiteral("optUSEYN_0"))->isChecked());
    EXPECT_TRUE(child<QRadioButton>(screen, QStringLiteral("optCBUSEYN_1"))->isChecked());
}

TEST_F(Bamas105, remarkAndBaseYearAreCompanyWide) {
    clickRow(2);
    box("txtRemark")->setText(QStringLiteral("환불은 영수증 지참 ('필수')"));
    combo("cboYYYY")->setCurrentIndex(0);
    const QString year = combo("cboYYYY")->currentText();
    screen->m_Save();
    EXPECT_EQ(count(QStringLiteral("C_STORE"),
                    QStringLiteral("COMPANY = '01' AND REMARK = '환불은 영수증 지참 (''필수'')'")),
              2);
    EXPECT_EQ(count(QStringLiteral("C_STORE"),
                    QStringLiteral("COMPANY = '01' AND CURRYYYY = '") + year + QLatin1Char('\'')),
              2);
    EXPECT_EQ(scalar(QStringLiteral("SELECT REMARK || CURRYYYY FROM C_STORE WHERE COMPANY = '02'")),
              QStringLiteral("그대로2020"));
    EXPECT_EQ(count(QStringLiteral("C_STORE"), QStringLiteral("STORENAME = '송파점'")), 1);
}

TEST_F(Bamas105, newStoreTakesTheNextCodeAndADuplicateNameIsRefused) {
    fillNewStore(QStringLiteral("강남점"));
    screen->m_Save();
    ASSERT_EQ(presenter->boxes.size(), 1);
    EXPECT_EQ(presenter->boxes[0].text,
              QStringLiteral("동일한 명칭이 입력되어 있습니다. 명칭을 바꿔서 등록하시오."));
    EXPECT_EQ(count(QStringLiteral("C_STORE"), QStringLiteral("COMPANY = '01'")), 2);

    fillNewStore(QStringLiteral("노원점"));
    screen->m_Save();
    EXPECT_EQ(scalar(QStringLiteral("SELECT STORENAME || '|' || POSID || '|' || PRTPORT || '|' || "
                                    "SET01 || CASHBOX || REGUSER FROM C_STORE "
                                    "WHERE COMPANY = '01' AND STORECD = '03'")),
              QStringLiteral("노원점| |1|0Ntester"));
    EXPECT_EQ(list->maxRows(), 3);

    clickRow(2); // an existing store may take a name in use
    box("txtName")->setText(QStringLiteral("강남점"));
    screen->m_Save();
    EXPECT_EQ(
        count(QStringLiteral("C_STORE"), QStringLiteral("COMPANY = '01' AND STORENAME = '강남점'")),
        2);
}

TEST_F(Bamas105, badInputIsStoredAsTypedAndCutToTheColumn) {
    fillNewStore(QStringLiteral("O'Neil's"));
    const QString sqlLike = QStringLiteral("x'); DELETE FROM C_STORE; --");
    box("txtFullName")->setText(sqlLike);
    box("txtAddres")->clear();
    QApplication::clipboard()->setText(QString(80, QChar(0xD55C))); // 160 bytes into 100
    box("txtAddres")->paste();
    box("txtCEOName")->setText(QStringLiteral("' OR '1'='1"));
    box("txtBankName")->setText(QStringLiteral("%_'\""));
    box("txtRemark")->setText(sqlLike);
    screen->m_Save();
    EXPECT_TRUE(presenter->boxes.isEmpty());
    EXPECT_EQ(count(QStringLiteral("C_STORE")), 4);
    EXPECT_EQ(scalar(QStringLiteral("SELECT STORENAME || '|' || STOREFULLNAME || '|' || STORECEO "
                                    "|| '|' || BANKNAME FROM C_STORE WHERE STORECD = '03'")),
              QStringLiteral("O'Neil's|") + sqlLike + QStringLiteral("|' OR '1'='1|%_'\""));
    EXPECT_EQ(scalar(QStringLiteral("SELECT STOREADDRES FROM C_STORE WHERE STORECD = '03'")),
              QString(50, QChar(0xD55C)));
    EXPECT_EQ(count(QStringLiteral("C_STORE"), QStringLiteral("REMARK = 'x''); DELETE FROM "
                                                              "C_STORE; --'")),
              1); // a new store's remark is its own until the next update

    box("txtName")->setText(QStringLiteral("Neil'"));
    screen->m_Search(); // the apostrophe is searched for, not taken as the statement's
    ASSERT_EQ(list->maxRows(), 1);
    EXPECT_EQ(cell(1, QStringLiteral("매장")), QStringLiteral("O'Neil's"));
    box("txtName")->setText(QStringLiteral("' OR ''='"));
    screen->m_Search();
    EXPECT_EQ(list->maxRows(), 0);
    EXPECT_EQ(screen->statusPanel(1)->text(), QStringLiteral("조회된 데이터가 없습니다."));
}

TEST_F(Bamas105, brandIsPickedThroughTheSearchPopupFromTheKeyboard) {
    fillNewStore(QStringLiteral("분당점"));
    screen->setBrand(QString(), QString());
    bool searched = false;
    QTimer::singleShot(0, [&searched] {
        QWidget* popup = QApplication::activeModalWidget();
        ASSERT_NE(popup, nullptr);
        auto* name = popup->findChild<QLineEdit*>(QStringLiteral("txtcodenm"));
        typeText(name, QStringLiteral("루미엘"));
        QTest::keyClick(name, Qt::Key_Return); // searches, and nothing else
        auto* grid = popup->findChild<Spread*>(QStringLiteral("GRPSP1"));
        searched = popup->isVisible() && grid->maxRows() == 1;
        if (grid->maxRows() == 1) {
            clickCell(grid, 1, 3, true);
        }
        if (popup->isVisible()) {
            popup->close();
        }
    });
    QTest::mouseClick(child<QPushButton>(screen, QStringLiteral("cmdSerch")), Qt::LeftButton);
    EXPECT_TRUE(searched);
    EXPECT_EQ(child<QLabel>(screen, QStringLiteral("lblBrand"))->text(), QStringLiteral("루미엘"));
    clickToolButton(mainWindow(), QStringLiteral("Save"));
    EXPECT_TRUE(presenter->boxes.isEmpty());
    EXPECT_EQ(scalar(QStringLiteral("SELECT BRANDCD FROM C_STORE WHERE STORENAME = '분당점'")),
              QStringLiteral("02"));
}

TEST_F(Bamas105, aStoreClickedAndSavedUnchangedKeepsEveryColumn) {
    // Two kinds share a name; values with blanks around them; a VAN store code.
    exec(QStringLiteral("INSERT INTO C_GONGTONG (L_GRP_COD, S_GRP_COD, GRP_NAM, USEYN, DISP_SEQ) "
                        "VALUES ('03', '09', '대리점', 'Y', 9)"));
    exec(QStringLiteral("UPDATE C_STORE SET STOREGB = '09', STORENAME = '  송파점 ', "
                        "STOREADDRES = ' 서울 송파구  ', VANSTRCD = 'V-77', STORENO = ' 1 ', "
                        "SET03 = '1', SET10 = '1' WHERE COMPANY = '01' AND STORECD = '02'"));
    reopen();
    const QString columns = QStringLiteral(
        "STOREGB || '|' || BRANDCD || '|' || STORENAME || '|' || STOREFULLNAME || '|' || "
        "STORECEO || '|' || STORETEL || '|' || STORENO || '|' || STOREADDRES || '|' || USEYN || "
        "'|' || BANKNAME || '|' || DEPOSITOR || '|' || ACCNO || '|' || REMARK || '|' || VANCD || "
        "'|' || VANSTRCD || '|' || CASHBOX || '|' || PRTPORT || '|' || PRTTYPE || '|' || "
        "PRTSPEED || '|' || SET01 || SET02 || SET03 || SET04 || SET05 || SET06 || SET07 || "
        "SET08 || SET09 || SET10 || '|' || CURRYYYY");
    const QString row = QStringLiteral("SELECT ") + columns +
                        QStringLiteral(" FROM C_STORE WHERE COMPANY = '01' AND STORECD = '02'");
    exec(QStringLiteral("UPDATE C_STORE SET BANKNAME = '', DEPOSITOR = '', ACCNO = '' "
                        "WHERE BANKNAME IS NULL"));
    const QString before = scalar(row);
    clickCell(list, 2, 4);
    EXPECT_EQ(combo("cboGT03")->currentIndex(), 3); // the kind by its code, not its name
    EXPECT_EQ(box("txtVanSTRCD")->text(), QStringLiteral("V-77"));
    clickToolButton(mainWindow(), QStringLiteral("Save"));
    EXPECT_TRUE(presenter->boxes.isEmpty());
    EXPECT_EQ(scalar(row), before);
}

TEST_F(Bamas105, theBaseYearIsTheCompanysAndClearLeavesItAndTheSettings) {
    exec(QStringLiteral("UPDATE C_STORE SET CURRYYYY = '2024' WHERE COMPANY = '01'"));
    exec(
        QStringLiteral("UPDATE C_STORE SET CURRYYYY = '' WHERE COMPANY = '01' AND STORECD = '02'"));
    reopen();
    EXPECT_EQ(combo("cboYYYY")->currentText(), QStringLiteral("2024")); // a new store's year

    clickCell(list, 1, 1);
    combo("cboYYYY")->setCurrentText(QString::number(QDate::currentDate().year() + 1));
    clickToolButton(mainWindow(), QStringLiteral("Clear"));
    EXPECT_EQ(combo("cboYYYY")->currentText(), QString::number(QDate::currentDate().year() + 1));
    EXPECT_EQ(combo("cboSet01")->currentIndex(), 1); // the clicked store's setting stays
    EXPECT_TRUE(box("txtName")->text().isEmpty());

    clickCell(list, 2, 1); // no year of its own: the company's, not what was on screen
    EXPECT_EQ(combo("cboYYYY")->currentText(), QStringLiteral("2024"));
    clickToolButton(mainWindow(), QStringLiteral("Save"));
    EXPECT_EQ(
        count(QStringLiteral("C_STORE"), QStringLiteral("COMPANY = '01' AND CURRYYYY = '2024'")),
        2);
}

TEST_F(Bamas105, requiredFieldsAndTheHundredthStore) {
    screen->m_clear();
    box("txtName")->setText(QStringLiteral("빈칸"));
    screen->m_Save();
    ASSERT_EQ(presenter->boxes.size(), 1);
    EXPECT_EQ(presenter->boxes[0].text,
              QStringLiteral("초록색깔은 필수입력입니다. 입력해 주십시오."));

    // The key is padded to two digits: after "99" the pad goes negative and the key is null.
    exec(QStringLiteral(
        "UPDATE C_STORE SET STORECD = '99' WHERE COMPANY = '01' AND STORECD = '02'"));
    fillNewStore(QStringLiteral("백번째점"));
    screen->m_Save();
    EXPECT_EQ(count(QStringLiteral("C_STORE"), QStringLiteral("STORENAME = '백번째점'")), 0);
    EXPECT_EQ(scalar(QStringLiteral("SELECT GROUP_CONCAT(ERRPROG, '|') FROM (SELECT ERRPROG FROM "
                                    "C_ERROR ORDER BY ROWID)")),
              QStringLiteral("basDatabase : gfbSqlExecuteDB|BAMAS105 : sSaveQuery"));
    EXPECT_EQ(box("txtName")->text(), QStringLiteral("백번째점")); // kept for another try
}

TEST_F(Bamas105, deleteAsksMessage95) {
    clickRow(2);
    presenter->answerNo();
    screen->m_Delete();
    EXPECT_EQ(count(QStringLiteral("C_STORE"), QStringLiteral("COMPANY = '01'")), 2);
    EXPECT_TRUE(presenter->boxes.last().text.startsWith(QStringLiteral("공통코드 삭제시")));
    presenter->answerYes();
    screen->m_Delete();
    EXPECT_EQ(count(QStringLiteral("C_STORE"), QStringLiteral("COMPANY = '01'")), 1);
    EXPECT_EQ(list->maxRows(), 1);
}

TEST_F(Bamas105, schoolNoticeSavesWithThreeDigitNumbersAndUpdatesThePeriodInForce) {
    exec(QStringLiteral("INSERT INTO C_SCHOOL (COMPANY, SCHOOLCD, SCHOOLNAME, USEYN) VALUES ('01', "
                        "'001', '한빛중', 'Y'), ('01', '002', '희망고', 'Y')"));
    BAMAS105_NOTICE notice(screen);
    auto* start = child<QDateEdit>(&notice, QStringLiteral("dtpStart"));
    auto* end = child<QDateEdit>(&notice, QStringLiteral("dtpEnd"));
    auto* text = child<QLineEdit>(&notice, QStringLiteral("txtNotice"));
    const auto click = [&notice, this](const char* name) {
        child<QPushButton>(&notice, QString::fromLatin1(name))->click();
    };
    child<QComboBox>(&notice, QStringLiteral("cboSchool"))->setCurrentIndex(1);
    click("cmdNew");
    start->setDate(QDate(2026, 3, 1));
    end->setDate(QDate(2026, 3, 31));
    text->setText(QStringLiteral("입학식 전 교복 수령 ('필참')"));
    click("cmdSave");
    EXPECT_EQ(scalar(QStringLiteral("SELECT NOTICESEQ || STARTDT || NOTICE FROM C_SCHOOLNOTICE")),
              QStringLiteral("0012026-03-01입학식 전 교복 수령 ('필참')"));

    text->setText(QStringLiteral("고친 공지"));
    click("cmdSave"); // the same period: the notice in force is updated
    EXPECT_EQ(count(QStringLiteral("C_SCHOOLNOTICE")), 1);

    start->setDate(QDate(2026, 4, 1));
    end->setDate(QDate(2026, 4, 30));
    text->setText(QStringLiteral("4월 공지"));
    click("cmdSave");
    EXPECT_EQ(scalar(QStringLiteral("SELECT MAX(NOTICESEQ) FROM C_SCHOOLNOTICE")),
              QStringLiteral("002"));

    start->setDate(QDate(2026, 3, 10)); // the search shows the notice in force for the dates
    end->setDate(QDate(2026, 3, 20));
    click("cmdSerch");
    EXPECT_EQ(text->text(), QStringLiteral("고친 공지"));
    notice.cboSchool_Click(); // choosing the school shows its latest notice
    EXPECT_EQ(text->text(), QStringLiteral("4월 공지"));
    EXPECT_EQ(start->date(), QDate(2026, 4, 1));

    // The next school has no notice: nothing of 한빛중's stays to be saved as its own.
    auto* school = child<QComboBox>(&notice, QStringLiteral("cboSchool"));
    school->setFocus();
    QTest::keyClick(school, Qt::Key_Down);
    ASSERT_EQ(school->currentText(), QStringLiteral("희망고"));
    EXPECT_TRUE(text->text().isEmpty());
    // Nor its period: the dates start from today.
    EXPECT_EQ(start->date(), QDate::currentDate());
    EXPECT_EQ(end->date(), QDate::currentDate());
}

TEST_F(Bamas105, enterWalksTheBandAsItReadsPastTheOptionsAndRoundToTheKind) {
    box("txtName")->setFocus();
    QApplication::processEvents();
    QStringList walked;
    for (int i = 0; i < 40; ++i) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        QApplication::processEvents();
        walked << QApplication::focusWidget()->objectName();
        if (walked.last() == QStringLiteral("cboGT03")) {
            break;
        }
    }
    EXPECT_EQ(walked.mid(0, 6),
              (QStringList{QStringLiteral("txtFullName"), QStringLiteral("txtNO"),
                           QStringLiteral("txtCEOName"), QStringLiteral("txtTEL"),
                           QStringLiteral("cboYYYY"), QStringLiteral("txtAddres")}));
    const qsizetype option = walked.indexOf(QStringLiteral("optUSEYN_0"));
    ASSERT_GT(option, 0) << walked.join(QLatin1Char(' ')).toStdString();
    EXPECT_EQ(walked.value(option + 1), QStringLiteral("cboGT20"));
    EXPECT_LT(walked.indexOf(QStringLiteral("txtPortNo")),
              walked.indexOf(QStringLiteral("txtSpeed")));
    EXPECT_EQ(walked.last(), QStringLiteral("cboGT03")); // the kind is reached, after the settings
    EXPECT_TRUE(walked.contains(QStringLiteral("cboSet10")));
}

TEST_F(Bamas105, fullWidthDigitsTypedIntoThePortAndTheSpeedAreSavedAsDigits) {
    clickRow(1);
    QLineEdit* port = box("txtPortNo");
    port->setFocus();
    port->clear();
    typeText(port, QStringLiteral("１２"));
    EXPECT_EQ(port->text(), QStringLiteral("12"));
    QLineEdit* speed = box("txtSpeed");
    speed->setFocus();
    speed->clear();
    typeText(speed, QStringLiteral("１９２００"));
    EXPECT_EQ(speed->text(), QStringLiteral("19200"));
    clickToolButton(mainWindow(), QStringLiteral("Save"));
    EXPECT_EQ(scalar(QStringLiteral("SELECT PRTPORT || '|' || PRTSPEED FROM C_STORE WHERE "
                                    "COMPANY = '01' AND STORECD = '01'")),
              QStringLiteral("12|19200"));
}

TEST_F(Bamas105, theListIsFilledUnderTheWaitCursor) {
    QObject watcher;
    QList<bool> waiting;
    const auto note = [&waiting] { waiting << (QGuiApplication::overrideCursor() != nullptr); };
    QObject::connect(list->model(), &QAbstractItemModel::modelReset, &watcher, note);
    QObject::connect(list->model(), &QAbstractItemModel::rowsInserted, &watcher, note);
    clickToolButton(mainWindow(), QStringLiteral("Search"));
    ASSERT_FALSE(waiting.isEmpty());
    EXPECT_TRUE(waiting.last());
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    EXPECT_EQ(list->maxRows(), 2);
}
