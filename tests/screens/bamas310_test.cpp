// Purchase orders driven as a user does: a school, quantities typed by size, the save, the list
// and its cancellation; on 한빛중 with three items (see stock_orders.sql).
#include "screenfixture.h"
#include "userinput.h"

#include "data/dbroutines.h"
#include "data/dialect.h"
#include "grid/spreadroutines.h"
#include "screens/stock/BAMAS310.h"

#include <QComboBox>
#include <QDateEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QTreeWidget>

namespace {
// SP3: total 7, sizes from 8; SP21: total 7, sizes from 9, tick box 34.
constexpr int kEntryTotal = 7;
constexpr int kEntrySize = 8;
constexpr int kStatusSize = 9;
constexpr int kStatusCheck = 34;
} // namespace

class Bamas310 : public ScreenTest {
protected:
    void SetUp() override {
        ScreenTest::SetUp();
        loadFixture(QStringLiteral("views_small.sql"));
        loadFixture(QStringLiteral("stock_orders.sql"));
        screen = openByNumber<BAMAS310>(310);
        ASSERT_NE(screen, nullptr);
        entry = child<Spread>(screen, QStringLiteral("SP3"));
        schools = child<Spread>(screen, QStringLiteral("SP1"));
        supplier = child<QLineEdit>(screen, QStringLiteral("txtFullName"));
        child<QComboBox>(screen, QStringLiteral("cboStore_0"))->setCurrentIndex(1);
        clickCell(schools, 1, 1); // 한빛중
        presenter->boxes.clear();
    }
    // Opens a cell's editor with a double click, types over what it holds and leaves it with
    // Enter, as a user does.
    void enter(int row, int position, const QString& text) {
        clickCell(entry, row, kEntrySize + position - 1, true);
        QWidget* editor = QApplication::focusWidget();
        QTest::keyClick(editor, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(editor, text);
        QTest::keyClick(editor, Qt::Key_Return);
        QApplication::processEvents();
    }
    void press(const char* name) {
        QTest::mouseClick(child<QPushButton>(screen, QString::fromLatin1(name)), Qt::LeftButton);
        QApplication::processEvents();
        ASSERT_TRUE(waitForReport(screen));
    }
    QString lastBox() const {
        return presenter->boxes.isEmpty() ? QString() : presenter->boxes.last().text;
    }

    BAMAS310* screen = nullptr;
    Spread* entry = nullptr;
    Spread* schools = nullptr;
    QLineEdit* supplier = nullptr;
};

TEST_F(Bamas310, entryGridLabelsTheSizesSumsAsCellsAreLeftAndSavesEachLineWithItsOwnNumber) {
    ASSERT_EQ(entry->maxRows(), 6); // three items, two rows each
    EXPECT_EQ(gfSpreadText(entry, 1, 5), QStringLiteral("동복자켓"));
    EXPECT_EQ(gfSpreadText(entry, 1, 3), QStringLiteral("한빛중[남]"));
    EXPECT_EQ(gfSpreadText(entry, 1, 6), QStringLiteral("4N"));
    // 2024 takes the labels of 2023 for X, the shirt's J labels of 2020.
    EXPECT_EQ(gfSpreadText(entry, 1, kEntrySize), QStringLiteral("95"));
    EXPECT_EQ(gfSpreadText(entry, 1, kEntrySize + 2), QStringLiteral("105"));
    EXPECT_EQ(gfSpreadText(entry, 5, kEntrySize), QStringLiteral("85"));
    EXPECT_EQ(entry->model()->backColor(1, kEntryTotal), 0xC0FFC0u);
    EXPECT_FALSE(entry->isLocked(2, kEntrySize));
    EXPECT_TRUE(entry->isLocked(2, kEntrySize + 3)); // no label there
    EXPECT_TRUE(entry->isLocked(1, kEntrySize));

    enter(2, 1, QStringLiteral("3"));
    enter(2, 2, QStringLiteral("7"));
    EXPECT_EQ(gfSpreadText(entry, 2, kEntryTotal), QStringLiteral("10"));
    EXPECT_EQ(gfSpreadText(entry, 1, kEntryTotal), QString()); // the label row has no sum
    enter(4, 3, QStringLiteral("1"));
    enter(6, 3, QStringLiteral("2"));
    typeText(supplier, QStringLiteral("청운'물류 %_센터"));
    press("cmdSave2");

    EXPECT_TRUE(presenter->boxes.isEmpty()); // a save says nothing
    EXPECT_EQ(count(QStringLiteral("T_ORDER")), 3);
    const QString today = QDate::currentDate().toString(QStringLiteral("yyyyMMdd"));
    EXPECT_EQ(scalar(QStringLiteral("SELECT GROUP_CONCAT(ORDERSEQ || UNIFORMCD, ',') FROM "
                                    "(SELECT * FROM T_ORDER ORDER BY ORDERSEQ)")),
              QStringLiteral("1NB01,2NB02,3NB0301"));
    EXPECT_EQ(scalar(QStringLiteral("SELECT STORECD || ORDERDT || SCHOOLCD || SUDIVIDE || ORDYYYY "
                                    "|| SIZETAB || O01 || O02 || O03 || FINISHGB || ORDERSTORE "
                                    "|| REGUSER FROM T_ORDER WHERE ORDERSEQ = 1")),
              QStringLiteral("01") + today + QStringLiteral("00112024X370A청운'물류 %_센터tester"));
    // The grid was loaded again: quantities empty.
    EXPECT_EQ(gfSpreadText(entry, 2, kEntrySize), QString());
    EXPECT_EQ(gfSpreadText(entry, 2, kEntryTotal), QString());

    // The next save of the day goes on counting.
    enter(2, 1, QStringLiteral("1"));
    press("cmdSave2");
    EXPECT_EQ(scalar(QStringLiteral("SELECT MAX(ORDERSEQ) FROM T_ORDER")), QStringLiteral("4"));
}

TEST_F(Bamas310, refusalsKeepWhatWasTyped) {
    auto* date = child<QDateEdit>(screen, QStringLiteral("dtpStart_0"));
    enter(2, 1, QStringLiteral("5"));
    // No supplier.
    press("cmdSave2");
    EXPECT_EQ(presenter->boxes.size(), 1);
    EXPECT_TRUE(lastBox().startsWith(QStringLiteral("발주처, 출고처 없이")));
    typeText(supplier, QStringLiteral("본사"));
    // Tomorrow: refused, and the date is today again.
    date->setDate(QDate::currentDate().addDays(1));
    press("cmdSave2");
    EXPECT_TRUE(lastBox().startsWith(QStringLiteral("등록일자를 미래일자로")));
    EXPECT_EQ(date->date(), QDate::currentDate());
    EXPECT_EQ(count(QStringLiteral("T_ORDER")), 0);
    EXPECT_EQ(gfSpreadText(entry, 2, kEntrySize), QStringLiteral("5"));

    // Letters and negatives are named, nothing is written, the cell keeps them.
    enter(4, 1, QStringLiteral("a"));
    EXPECT_EQ(gfSpreadText(entry, 4, kEntrySize), QStringLiteral("a"));
    press("cmdSave2");
    EXPECT_TRUE(lastBox().contains(QStringLiteral("동복바지")));
    EXPECT_TRUE(lastBox().contains(QStringLiteral("\"a\"")));
    enter(4, 1, QStringLiteral("-2"));
    press("cmdSave2");
    EXPECT_TRUE(lastBox().contains(QStringLiteral("\"-2\"")));
    EXPECT_EQ(count(QStringLiteral("T_ORDER")), 0);

    // Yesterday is accepted; only the line with a total above 0 is written.
    enter(4, 1, QStringLiteral("0"));
    date->setDate(QDate::currentDate().addDays(-1));
    const qsizetype boxes = presenter->boxes.size();
    press("cmdSave2");
    EXPECT_EQ(presenter->boxes.size(), boxes);
    EXPECT_EQ(count(QStringLiteral("T_ORDER")), 1);
    EXPECT_EQ(scalar(QStringLiteral("SELECT ORDERDT FROM T_ORDER")),
              QDate::currentDate().addDays(-1).toString(QStringLiteral("yyyyMMdd")));

    // Without a model year neither the grid nor a save goes on.
    auto* year = child<QComboBox>(screen, QStringLiteral("cboYY_0"));
    year->setCurrentIndex(0);
    EXPECT_TRUE(lastBox().startsWith(QStringLiteral("연도를 선택하시오.")));
    press("cmdSave2");
    EXPECT_TRUE(lastBox().startsWith(QStringLiteral("발주 연식 없이")));
}

TEST_F(Bamas310, statusListSumsUnderTheHeadingsAndCancelsTheTickedLinesAfterAsking) {
    exec(QStringLiteral(
             "INSERT INTO T_ORDER (COMPANY, STORECD, ORDERDT, ORDERSEQ, SCHOOLCD, SUDIVIDE, "
             "UNIFORMCD, "
             "ORDYYYY, SIZETAB, O01, O02, FINISHGB, ORDERSTORE) VALUES "
             "('01', '01', '%1', 1, '001', '1', 'NB01', '2024', 'X', 4, 1200, 'E', '본사'), "
             "('01', '01', '%1', 2, '001', '1', 'NB0301', '2024', 'J', 0, 2, 'A', '본사'), "
             "('01', '01', '%2', 1, '001', '1', 'NB01', '2024', 'X', 1, 0, 'A', '옛날')")
             .arg(QDate::currentDate().addDays(-3).toString(QStringLiteral("yyyyMMdd")),
                  QDate::currentDate().addDays(-200).toString(QStringLiteral("yyyyMMdd"))));
    child<QTabWidget>(screen, QStringLiteral("SSTab1"))->setCurrentIndex(1);
    child<QComboBox>(screen, QStringLiteral("cboStore_1"))->setCurrentIndex(1);
    Spread* list = child<Spread>(screen, QStringLiteral("SP21"));
    Spread* schoolList = child<Spread>(screen, QStringLiteral("SP20"));
    EXPECT_EQ(gfSpreadText(schoolList, 1, 1), QStringLiteral("전체"));
    clickCell(schoolList, 1, 1);
    ASSERT_TRUE(waitForReport(screen));
    ASSERT_EQ(list->maxRows(), 2); // the 200-day-old order lies outside the period
    EXPECT_EQ(gfSpreadText(list, 1, 3), QStringLiteral("공통셔츠"));
    EXPECT_EQ(gfSpreadText(list, 1, kStatusSize), QString());        // a zero shows empty
    EXPECT_EQ(gfSpreadText(list, 2, 3), QStringLiteral("동복자켓")); // closed with 'E', listed
    EXPECT_EQ(gfSpreadText(list, 2, 7), QStringLiteral("1,204"));
    EXPECT_EQ(gfSpreadText(list, 2, kStatusSize + 1), QStringLiteral("1,200"));
    EXPECT_EQ(gfSpreadText(list, 2, 33), QStringLiteral("본사"));
    EXPECT_EQ(gfSpreadText(list, -1000, 8), QStringLiteral("X")); // the heading of the size table
    EXPECT_EQ(gfSpreadText(list, -1000, kStatusSize), QStringLiteral("95"));

    press("cmdDelete"); // nothing ticked: no question, the list only runs again
    EXPECT_TRUE(presenter->boxes.isEmpty());
    EXPECT_EQ(count(QStringLiteral("T_ORDER")), 3);
    clickCell(list, 1, kStatusCheck);
    clickCell(list, 2, kStatusCheck);
    ASSERT_EQ(gfSpreadCellText(list, 1, kStatusCheck, false), QStringLiteral("1"));

    // "No" deletes nothing and keeps the ticks.
    presenter->answerNo();
    press("cmdDelete");
    ASSERT_EQ(presenter->boxes.size(), 1);
    EXPECT_TRUE(lastBox().startsWith(QStringLiteral("체크한 모든 데이터를 삭제합니다.")));
    EXPECT_EQ(count(QStringLiteral("T_ORDER")), 3);
    EXPECT_EQ(gfSpreadCellText(list, 2, kStatusCheck, false), QStringLiteral("1"));

    // A failure on the second line cancels neither: one box, both places in the log, the ticks
    // kept for the next try.
    exec(QStringLiteral("CREATE TRIGGER no_cancel BEFORE DELETE ON T_ORDER WHEN OLD.ORDERSEQ = 1 "
                        "BEGIN SELECT RAISE(ABORT, 'locked by the till'); END"));
    presenter->boxes.clear();
    press("cmdDelete");
    EXPECT_EQ(presenter->boxes.size(), 2); // the question, then the failure
    EXPECT_EQ(count(QStringLiteral("T_ORDER")), 3);
    EXPECT_EQ(scalar(QStringLiteral("SELECT GROUP_CONCAT(ERRPROG, '|') FROM "
                                    "(SELECT ERRPROG FROM C_ERROR ORDER BY ROWID)")),
              QStringLiteral("basDatabase : gfbSqlExecuteDB|BAMAS310 : cmdDelete_Click"));
    EXPECT_EQ(gfSpreadCellText(list, 1, kStatusCheck, false), QStringLiteral("1"));
    EXPECT_EQ(gfSpreadCellText(list, 2, kStatusCheck, false), QStringLiteral("1"));

    exec(QStringLiteral("DROP TRIGGER no_cancel"));
    clickCell(list, 2, kStatusCheck); // only the shirt goes
    press("cmdDelete");
    EXPECT_EQ(count(QStringLiteral("T_ORDER")), 2);
    EXPECT_EQ(count(QStringLiteral("T_ORDER"), QStringLiteral("UNIFORMCD = 'NB0301'")), 0);
    EXPECT_EQ(list->maxRows(), 1);
}

TEST_F(Bamas310, aFailedSaveBooksNoLineAndKeepsTheGridSoThatTheRetryBooksEachOnce) {
    enter(2, 1, QStringLiteral("3"));
    enter(4, 2, QStringLiteral("4"));
    enter(6, 3, QStringLiteral("5"));
    typeText(supplier, QStringLiteral("본사"));
    // The second line of three fails.
    exec(QStringLiteral("CREATE TRIGGER no_trousers BEFORE INSERT ON T_ORDER "
                        "WHEN NEW.UNIFORMCD = 'NB02' BEGIN SELECT RAISE(ABORT, 'disk full'); END"));
    press("cmdSave2");
    EXPECT_EQ(presenter->boxes.size(), 1);
    EXPECT_EQ(count(QStringLiteral("T_ORDER")), 0);
    EXPECT_EQ(scalar(QStringLiteral("SELECT GROUP_CONCAT(ERRPROG, '|') FROM "
                                    "(SELECT ERRPROG FROM C_ERROR ORDER BY ROWID)")),
              QStringLiteral("basDatabase : gfbSqlExecuteDB|BAMAS310 : sSaveQuery"));
    ASSERT_EQ(entry->maxRows(), 6);
    EXPECT_EQ(gfSpreadText(entry, 2, kEntrySize), QStringLiteral("3"));
    EXPECT_EQ(gfSpreadText(entry, 4, kEntrySize + 1), QStringLiteral("4"));
    EXPECT_EQ(gfSpreadText(entry, 6, kEntrySize + 2), QStringLiteral("5"));
    EXPECT_EQ(supplier->text(), QStringLiteral("본사"));

    exec(QStringLiteral("DROP TRIGGER no_trousers"));
    press("cmdSave2");
    EXPECT_EQ(count(QStringLiteral("T_ORDER")), 3);
    EXPECT_EQ(scalar(QStringLiteral("SELECT SUM(O01 + O02 + O03) FROM T_ORDER")),
              QStringLiteral("12"));
    EXPECT_EQ(gfSpreadText(entry, 2, kEntrySize), QString()); // reloaded after the success
}

TEST_F(Bamas310, theScreenOpensCleared_withThirtyBlankRowsInTheSchoolListAndTheEntryGrid) {
    enter(2, 1, QStringLiteral("3"));
    screen->m_Close();
    QApplication::processEvents();
    screen = openByNumber<BAMAS310>(310);
    ASSERT_NE(screen, nullptr);
    EXPECT_EQ(child<Spread>(screen, QStringLiteral("SP1"))->maxRows(), 30);
    Spread* cleared = child<Spread>(screen, QStringLiteral("SP3"));
    EXPECT_EQ(cleared->maxRows(), 30);
    EXPECT_EQ(gfSpreadText(cleared, 2, kEntrySize), QString());
}

TEST_F(Bamas310, opensFromTheTreeAndSpellsItsStatementsForTheServer) {
    {
        const ScopedDialect server(Dialect(Dialect::Engine::SqlServer));
        for (const QString& sql :
             {screen->entrySql(), screen->orderInsertSql(0), screen->statusSql()}) {
            EXPECT_FALSE(keepServerText(sql).contains(QStringLiteral("||"))) << sql.toStdString();
            EXPECT_TRUE(sql.contains(QStringLiteral("WITH(NOLOCK)"))) << sql.toStdString();
        }
        EXPECT_TRUE(screen->orderInsertSql(0).contains(
            QStringLiteral("(SELECT CASE WHEN COUNT(ORDERSEQ) = 0 THEN  1 ELSE MAX(ORDERSEQ) + 1 "
                           "END FROM T_ORDER  WITH(NOLOCK)")));
        EXPECT_TRUE(screen->entrySql().contains(QStringLiteral("CONVERT(CHAR(2)")));
    }
    main->closeWithoutAsking();
    main.reset();
    loadFixture(QStringLiteral("menu_tree.sql"));
    QTreeWidget* tree = mainWindow()->tree();
    for (QTreeWidgetItemIterator it(tree); *it; ++it) {
        if ((*it)->text(0).contains(QStringLiteral("발주관리"))) {
            tree->scrollToItem(*it);
            QTest::mouseClick(tree->viewport(), Qt::LeftButton, {},
                              tree->visualItemRect(*it).center());
            break;
        }
    }
    QApplication::processEvents();
    EXPECT_NE(main->openScreen(QStringLiteral("BAMAS310")), nullptr);
}
