// The brand screen driven as a user does: list, pick, step the year, edit labels, save, delete.
#include "screenfixture.h"
#include "userinput.h"

#include "grid/spreadroutines.h"
#include "screens/organisation/BAMAS170.h"

#include <QClipboard>
#include <QLabel>
#include <QPrintPreviewDialog>
#include <QPrintPreviewWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>

class Bamas170 : public ScreenTest {
protected:
    void SetUp() override {
        ScreenTest::SetUp();
        loadFixture(QStringLiteral("bamas170_sizes.sql"));
        screen = openByNumber<BAMAS170>(170);
        ASSERT_NE(screen, nullptr);
        list = child<Spread>(screen, QStringLiteral("SP1"));
        sizes = child<Spread>(screen, QStringLiteral("SP2"));
        year = child<QLineEdit>(screen, QStringLiteral("txtYYYY"));
        name = child<QLineEdit>(screen, QStringLiteral("txtName"));
        presenter->boxes.clear(); // the empty program tree's message 15
    }
    // The labels of the row for a teen range and size table, "" joined by "|".
    QString labels(const QString& range, const QString& table) {
        for (int row = 1; row <= sizes->maxRows(); ++row) {
            if (gfSpreadText(sizes, row, 2) == range && gfSpreadText(sizes, row, 3) == table) {
                QStringList cells;
                for (int col = 4; col <= 6; ++col) {
                    cells << gfSpreadText(sizes, row, col);
                }
                return cells.join(QLatin1Char('|'));
            }
        }
        return QStringLiteral("<no row>");
    }
    void pickBrand(int row, const QString& yyyy) {
        screen->SP1_Click(row);
        year->setText(yyyy);
        screen->fSizeTab_View();
    }
    BAMAS170* screen = nullptr;
    Spread* list = nullptr;
    Spread* sizes = nullptr;
    QLineEdit* year = nullptr;
    QLineEdit* name = nullptr;
};

TEST_F(Bamas170, listsAtLoadInUseFirstAndCopiesARowBack) {
    ASSERT_EQ(list->maxRows(), 2);
    EXPECT_EQ(gfSpreadText(list, 1, 2), QStringLiteral("청운교복"));
    EXPECT_EQ(gfSpreadText(list, 2, 3), QStringLiteral("보류"));
    EXPECT_EQ(screen->statusPanel(1)->text(), QStringLiteral("2건의 데이터가 조회되었습니다."));
    screen->SP1_Click(2);
    EXPECT_EQ(child<QLabel>(screen, QStringLiteral("lblCode"))->text(), QStringLiteral("02"));
    EXPECT_EQ(name->text(), QStringLiteral("다온스쿨"));
    EXPECT_TRUE(child<QRadioButton>(screen, QStringLiteral("optUSEYN_1"))->isChecked());
    EXPECT_EQ(year->text(), QDate::currentDate().toString(QStringLiteral("yyyy")));
}

TEST_F(Bamas170, laterYearShowsTheEarlierLabelsAndSavesThemAsItsOwn) {
    pickBrand(1, QStringLiteral("2025"));
    EXPECT_EQ(sizes->maxRows(), 4); // every pair of size table and teen range
    EXPECT_EQ(labels(QStringLiteral("H"), QStringLiteral("X")), QStringLiteral("85|90|95"));
    EXPECT_EQ(labels(QStringLiteral("H"), QStringLiteral("J")), QStringLiteral("||"));
    gsSpreadSetText(sizes, 1, 6, QStringLiteral("1'00"));
    screen->sSaveQuery();
    EXPECT_EQ(count(QStringLiteral("C_BRANDSIZE"), QStringLiteral("YYYY = '2025'")), 4);
    EXPECT_EQ(count(QStringLiteral("C_BRANDSIZE"), QStringLiteral("YYYY = '2023'")),
              2); // untouched
    EXPECT_EQ(scalar(QStringLiteral("SELECT C03 FROM C_BRANDSIZE WHERE YYYY = '2025' AND TEENSCOPE "
                                    "= 'H' AND SIZETAB = 'J'")),
              QString());
    EXPECT_EQ(
        count(QStringLiteral("C_BRANDSIZE"), QStringLiteral("YYYY = '2025' AND C03 = '1''00'")), 1);

    pickBrand(1, QStringLiteral("2022")); // before any labels: empty pairs
    EXPECT_EQ(labels(QStringLiteral("H"), QStringLiteral("X")), QStringLiteral("||"));
}

TEST_F(Bamas170, yearArrowsStepAndTheYearBoxTakesDigitsOnly) {
    pickBrand(1, QStringLiteral("2024"));
    child<QPushButton>(screen, QStringLiteral("cmdLeft"))->click();
    EXPECT_EQ(year->text(), QStringLiteral("2023"));
    child<QPushButton>(screen, QStringLiteral("cmdRight"))->click();
    child<QPushButton>(screen, QStringLiteral("cmdRight"))->click();
    EXPECT_EQ(year->text(), QStringLiteral("2025"));
    year->clear();
    QTest::keyClicks(year, QStringLiteral("20x2'6"));
    EXPECT_EQ(year->text(), QStringLiteral("2026"));
}

TEST_F(Bamas170, aBrandWithoutLabelsShowsEveryPairEmptyAndStoresThemAll) {
    pickBrand(2, QStringLiteral("2024"));
    ASSERT_EQ(sizes->maxRows(), 4);
    EXPECT_EQ(labels(QStringLiteral("L"), QStringLiteral("X")), QStringLiteral("||"));
    EXPECT_EQ(labels(QStringLiteral("H"), QStringLiteral("J")), QStringLiteral("||"));
    screen->m_Save();
    EXPECT_EQ(count(QStringLiteral("C_BRANDSIZE"),
                    QStringLiteral("BRANDCD = '02' AND YYYY = '2024' AND C01 = ''")),
              4);
}

TEST_F(Bamas170, newBrandsAreNumberedByCountSoADeleteMakesTheNextCollide) {
    exec(QStringLiteral("DELETE FROM C_BRAND"));
    screen->m_Search();
    const auto saveNew = [this](const QString& brand) {
        screen->m_clear();
        name->setText(brand);
        screen->m_Save();
    };
    name->setText(QStringLiteral("O'N'); DROP--")); // typed after the search cleared the box
    QApplication::clipboard()->setText(QString(110, QChar(0xAC00))); // 220 bytes pasted
    child<QLineEdit>(screen, QStringLiteral("txtRemark"))->paste();
    screen->m_Save();
    EXPECT_EQ(scalar(QStringLiteral("SELECT BRANDNAME || '|' || LENGTH(REMARK) || '|' || USEYN "
                                    "FROM C_BRAND WHERE BRANDCD = '01'")),
              QStringLiteral("O'N'); DROP--|100|Y"));
    EXPECT_EQ(count(QStringLiteral("C_BRANDSIZE"), QStringLiteral("BRANDCD = ''")), 0);

    for (int i = 2; i <= 9; ++i) {
        saveNew(QStringLiteral("브랜드%1").arg(i));
    }
    saveNew(QStringLiteral("열번째"));
    EXPECT_EQ(scalar(QStringLiteral("SELECT BRANDNAME FROM C_BRAND WHERE BRANDCD = '10'")),
              QStringLiteral("열번째"));

    // Brand 05 goes: ten rows become nine, and the next key is "10" again.
    screen->SP1_Click(gfSpreadFindRow(list, 1, QStringLiteral("05")));
    presenter->answerYes();
    screen->m_Delete();
    presenter->boxes.clear();
    saveNew(QStringLiteral("충돌"));
    EXPECT_EQ(count(QStringLiteral("C_BRAND"), QStringLiteral("BRANDNAME = '충돌'")), 0);
    EXPECT_EQ(count(QStringLiteral("C_ERROR")), 2); // the statement's row and the save's
    EXPECT_FALSE(presenter->boxes.isEmpty());
}

TEST_F(Bamas170, theHundredthBrandsKeyIsNull) {
    for (int i = 3; i <= 99; ++i) {
        exec(QStringLiteral("INSERT INTO C_BRAND (COMPANY, BRANDCD, BRANDNAME, USEYN) VALUES "
                            "('01', '%1', 'b', 'Y')")
                 .arg(i, 2, 10, QLatin1Char('0')));
    }
    screen->m_clear();
    name->setText(QStringLiteral("백번째"));
    screen->m_Save();
    EXPECT_EQ(count(QStringLiteral("C_BRAND"), QStringLiteral("BRANDNAME = '백번째'")), 0);
    EXPECT_EQ(count(QStringLiteral("C_ERROR")), 2); // the statement's row and the save's
}

TEST_F(Bamas170, nameIsRequiredAndDeleteLeavesTheSizeRows) {
    screen->m_clear();
    screen->sSaveQuery();
    ASSERT_EQ(presenter->boxes.size(), 1);
    EXPECT_EQ(presenter->boxes[0].text,
              QStringLiteral("초록색깔은 필수입력입니다. 입력해 주십시오."));

    screen->SP1_Click(1);
    presenter->answerNo();
    screen->cmdDelete_Click();
    EXPECT_EQ(count(QStringLiteral("C_BRAND"), QStringLiteral("BRANDCD = '01'")), 1);
    presenter->answerYes();
    screen->cmdDelete_Click();
    EXPECT_EQ(count(QStringLiteral("C_BRAND"), QStringLiteral("BRANDCD = '01'")), 0);
    EXPECT_EQ(count(QStringLiteral("C_BRANDSIZE"), QStringLiteral("BRANDCD = '01'")), 2);
    EXPECT_EQ(list->maxRows(), 1);
}

TEST_F(Bamas170, aLabelTypedIntoACellIsSavedByTheToolBarAndAYearIsWrittenAnew) {
    clickCell(list, 1, 2);
    year->setText(QStringLiteral("2023"));
    QTest::keyClick(year, Qt::Key_Return);
    ASSERT_EQ(labels(QStringLiteral("H"), QStringLiteral("X")), QStringLiteral("85|90|95"));
    int row = 1;
    while (gfSpreadText(sizes, row, 2) != QStringLiteral("H") ||
           gfSpreadText(sizes, row, 3) != QStringLiteral("X")) {
        ++row;
    }
    // Typed, not committed with Enter: the tool bar's click takes no focus.
    typeIntoCell(sizes, row, 6, QStringLiteral("160"));
    clickToolButton(mainWindow(), QStringLiteral("Save"));
    EXPECT_TRUE(presenter->boxes.isEmpty());
    EXPECT_EQ(scalar(QStringLiteral("SELECT C03 FROM C_BRANDSIZE WHERE BRANDCD = '01' AND "
                                    "YYYY = '2023' AND TEENSCOPE = 'H' AND SIZETAB = 'X'")),
              QStringLiteral("160"));
    // The year had rows already: they are replaced, not added to.
    EXPECT_EQ(count(QStringLiteral("C_BRANDSIZE"), QStringLiteral("YYYY = '2023'")), 4);

    // A lone "0" is a label like any other, kept as typed.
    screen->SP1_Click(1);
    year->setText(QStringLiteral("2023"));
    screen->fSizeTab_View();
    typeIntoCell(sizes, row, 4, QStringLiteral("0"));
    clickToolButton(mainWindow(), QStringLiteral("Save"));
    EXPECT_EQ(scalar(QStringLiteral("SELECT C01 || '|' || C03 FROM C_BRANDSIZE WHERE YYYY = "
                                    "'2023' AND TEENSCOPE = 'H' AND SIZETAB = 'X'")),
              QStringLiteral("0|160"));
    EXPECT_EQ(count(QStringLiteral("C_BRANDSIZE"), QStringLiteral("YYYY = '2023'")), 4);
    pickBrand(1, QStringLiteral("2023"));
    EXPECT_EQ(labels(QStringLiteral("H"), QStringLiteral("X")), QStringLiteral("0|90|160"));
}

TEST_F(Bamas170, anEmptyYearIsRefusedAndWritesNothing) {
    pickBrand(1, QStringLiteral("2023"));
    year->clear();
    screen->m_Save();
    ASSERT_EQ(presenter->boxes.size(), 1);
    EXPECT_TRUE(presenter->boxes[0].text.contains(QStringLiteral("년도")));
    EXPECT_EQ(count(QStringLiteral("C_BRANDSIZE"), QStringLiteral("YYYY = ''")), 0);
    EXPECT_EQ(child<QLabel>(screen, QStringLiteral("lblCode"))->text(), QStringLiteral("01"));
}

TEST_F(Bamas170, aLabelPastedOrTypedStaysInItsTenBytesAndInsideTheGrid) {
    pickBrand(1, QStringLiteral("2023"));
    const int last = sizes->maxRows();
    ASSERT_EQ(last, 4);
    const QString range = gfSpreadText(sizes, last, 2);
    const QString table = gfSpreadText(sizes, last, 3);
    // Three lines pasted on the last pair: the first lands, cut to ten bytes; no row is added.
    clickCell(sizes, last, 4);
    QApplication::clipboard()->setText(QStringLiteral("가나다라마바사아자차\t150\n1\t2\n3\t4\n"));
    QTest::keyClick(sizes->view(), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(sizes->maxRows(), last);
    // Typed Korean stops at ten bytes too.
    typeIntoCell(sizes, 1, 6, QStringLiteral("X"));
    typeText(QApplication::focusWidget(), QStringLiteral("가나다라마바"));
    clickToolButton(mainWindow(), QStringLiteral("Save"));
    EXPECT_TRUE(presenter->boxes.isEmpty());
    const QString where =
        QStringLiteral(" FROM C_BRANDSIZE WHERE BRANDCD = '01' AND YYYY = '2023'");
    EXPECT_EQ(scalar(QStringLiteral("SELECT C01 || '|' || C02") + where +
                     QStringLiteral(" AND TEENSCOPE = '") + range +
                     QStringLiteral("' AND SIZETAB = '") + table + QStringLiteral("'")),
              QStringLiteral("가나다라마|150"));
    EXPECT_EQ(scalar(QStringLiteral("SELECT MAX(LENGTH(C03))") + where), QStringLiteral("5"));
    EXPECT_EQ(count(QStringLiteral("C_BRANDSIZE"), QStringLiteral("YYYY = '2023'")), 4);
}

TEST_F(Bamas170, theListPrintsFromTheToolBarAndAnEmptyListPrintsNothing) {
    MAINMDI* window = mainWindow();
    EXPECT_TRUE(window->toolButton(MAINMDI::TobToolBar2, 2)->isEnabled());
    EXPECT_TRUE(window->toolButton(MAINMDI::TobToolBar2, 3)->isEnabled());
    int previewPages = -1;
    QTimer::singleShot(0, [&previewPages] {
        auto* preview = qobject_cast<QPrintPreviewDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(preview, nullptr);
        previewPages = preview->findChild<QPrintPreviewWidget*>()->pageCount();
        preview->reject();
    });
    clickToolButton(window, QStringLiteral("Preview"));
    EXPECT_EQ(previewPages, 1);

    list->setMaxRows(0);
    clickToolButton(window, QStringLiteral("Preview"));
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    EXPECT_EQ(screen->statusPanel(1)->text(), QStringLiteral("조회된 데이터가 없습니다."));
}
