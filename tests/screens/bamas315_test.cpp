// Goods receipt against an order of 10 jackets at size 95 (한빛중, model year 2024), and
// without an order, driven through the screen as a user does; remainders and states counted by
// hand.
#include "screenfixture.h"
#include "userinput.h"

#include "data/dbroutines.h"
#include "data/dialect.h"
#include "grid/spreadroutines.h"
#include "screens/stock/BAMAS315.h"
#include "screens/stock/stockstatement.h"

#include <QComboBox>
#include <QDateEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>

namespace {
// SP3: caption 5, sizes 6 to 29, total 30, the remainder's handling 31.
constexpr int kSize = 6;
constexpr int kTotal = 30;
constexpr int kFinish = 31;
} // namespace

class Bamas315 : public ScreenTest {
protected:
    void SetUp() override {
        ScreenTest::SetUp();
        loadFixture(QStringLiteral("views_small.sql"));
        loadFixture(QStringLiteral("stock_orders.sql"));
        orderDay = QDate::currentDate().addDays(-5).toString(QStringLiteral("yyyyMMdd"));
        exec(QStringLiteral(
                 "INSERT INTO T_ORDER (COMPANY, STORECD, ORDERDT, ORDERSEQ, SCHOOLCD, SUDIVIDE, "
                 "UNIFORMCD, ORDYYYY, SIZETAB, O01, FINISHGB, ORDERSTORE) VALUES "
                 "('01', '01', '%1', 1, '001', '1', 'NB01', '2024', 'X', 10, 'A', '청운물류')")
                 .arg(orderDay));
        screen = openByNumber<BAMAS315>(315);
        ASSERT_NE(screen, nullptr);
        grid = child<Spread>(screen, QStringLiteral("SP3"));
        child<QComboBox>(screen, QStringLiteral("cboStore_0"))->setCurrentIndex(1);
        clickCell(child<Spread>(screen, QStringLiteral("SP1")), 1, 1); // 한빛중
        presenter->boxes.clear();
    }
    // Opens a cell's editor with a double click, types over what it holds and leaves it with
    // Enter, as a user does.
    void enter(int row, int position, const QString& text) {
        clickCell(grid, row, kSize + position - 1, true);
        QWidget* editor = QApplication::focusWidget();
        QTest::keyClick(editor, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(editor, text);
        QTest::keyClick(editor, Qt::Key_Return);
        QApplication::processEvents();
    }
    // Opens the handling list of a 입고량 row and picks its first or last choice by key.
    void choose(int row, Qt::Key key) {
        clickCell(grid, row, kFinish, true);
        QTest::keyClick(QApplication::focusWidget(), key);
        QApplication::processEvents();
    }
    void save() {
        QTest::mouseClick(child<QPushButton>(screen, QStringLiteral("cmdSave2")), Qt::LeftButton);
        QApplication::processEvents();
    }
    QString state() { return scalar(QStringLiteral("SELECT FINISHGB FROM T_ORDER")); }

    BAMAS315* screen = nullptr;
    Spread* grid = nullptr;
    QString orderDay;
};

TEST_F(Bamas315, theOpenLineShowsOrderedReceivedAndBalanceWithTheListOffered) {
    ASSERT_EQ(grid->maxRows(), 3);
    EXPECT_EQ(gfSpreadText(grid, 1, 5), QStringLiteral("발주량"));
    EXPECT_EQ(gfSpreadText(grid, 2, 5), QStringLiteral("입고량"));
    EXPECT_EQ(gfSpreadText(grid, 3, 5), QStringLiteral("발란스"));
    EXPECT_EQ(gfSpreadText(grid, 1, 4),
              orderDay.mid(2, 2) + u'-' + orderDay.mid(4, 2) + u'-' + orderDay.right(2));
    EXPECT_EQ(gfSpreadText(grid, 1, kSize), QStringLiteral("10"));
    EXPECT_EQ(gfSpreadText(grid, 3, kSize), QStringLiteral("-10"));
    EXPECT_EQ(grid->model()->foreColor(3, kSize), 255u);
    // The only line's size table heads the sizes (X of 2024, the labels of 2023).
    EXPECT_EQ(gfSpreadText(grid, -1000, kSize), QStringLiteral("95"));
    auto* item = child<QComboBox>(screen, QStringLiteral("cboUniform"));
    item->setFocus();
    QTest::keyClick(item, Qt::Key_End);
    QApplication::processEvents();
    EXPECT_EQ(item->currentText(), QStringLiteral("동복자켓"));
    EXPECT_EQ(gfSpreadText(grid, -1000, kSize), QStringLiteral("95"));
    ASSERT_EQ(grid->maxRows(), 3);
    EXPECT_EQ(grid->model()->format(2, kFinish).type, int(SpreadCombo));
    EXPECT_TRUE(grid->isLocked(1, kSize));
    EXPECT_FALSE(grid->isLocked(2, kSize));
    enter(2, 1, QStringLiteral("10"));
    EXPECT_EQ(gfSpreadText(grid, 3, kTotal), QStringLiteral("0"));
    EXPECT_NE(grid->model()->format(2, kFinish).type, int(SpreadCombo)); // balanced: no list
}

TEST_F(Bamas315, partReceiptWithTheRestExpectedLeavesTheRemainderOpen) {
    enter(2, 1, QStringLiteral("4"));
    EXPECT_EQ(gfSpreadText(grid, 3, kTotal), QStringLiteral("-6"));
    choose(2, Qt::Key_Home);
    EXPECT_EQ(gfSpreadText(grid, 2, kFinish), QStringLiteral("재입고예정"));
    save();
    EXPECT_TRUE(presenter->boxes.isEmpty());
    EXPECT_EQ(state(), QStringLiteral("I"));
    EXPECT_EQ(scalar(QStringLiteral("SELECT I01 || INBOUNDGB || ORDERSEQ || ORDERDT || "
                                    "OUTBOUNDSTORE || INYYYY || SIZETAB || INBOUNDSEQ "
                                    "FROM T_INBOUND")),
              QStringLiteral("4A1") + orderDay + QStringLiteral("청운물류2024X1"));
    ASSERT_EQ(grid->maxRows(), 3); // loaded again: 6 still open
    EXPECT_EQ(gfSpreadText(grid, 1, kSize), QStringLiteral("6"));
    EXPECT_EQ(gfSpreadText(grid, 2, kFinish), QString());
}

TEST_F(Bamas315, noMoreToComeClosesTheLineAndTheGoodsStayInStockEvenWhenTheOrderGoes) {
    enter(2, 1, QStringLiteral("4"));
    choose(2, Qt::Key_End);
    EXPECT_EQ(gfSpreadText(grid, 2, kFinish), QStringLiteral("재입고불가"));
    save();
    EXPECT_EQ(state(), QStringLiteral("E"));
    EXPECT_EQ(grid->maxRows(), 0); // the closed line leaves the list
    // The order line is cancelled; its receipt still counts in the stock report.
    exec(QStringLiteral("DELETE FROM T_ORDER"));
    StockFilter filter;
    filter.company = QStringLiteral("01");
    filter.store = QStringLiteral("01");
    filter.brand = QStringLiteral("01");
    filter.yearFrom = QStringLiteral("2024");
    filter.yearTo = QStringLiteral("2024");
    filter.currentYear = QStringLiteral("2024");
    RecordSet rs;
    ASSERT_TRUE(gfbSqlSelectDB(stockStatement(filter, StockReport::Split, dialect()), rs));
    ASSERT_EQ(rs.recordCount(), 1);
    EXPECT_EQ(rs.at(0, 4).trimmed(), QStringLiteral("동복자켓"));
    EXPECT_EQ(rs.at(0, 8).trimmed(), QStringLiteral("4"));
}

TEST_F(Bamas315, theSaveBooksOnlyLinesWithAChoiceAndNeverANegativeRemainder) {
    // Received in full, no list, no choice: nothing written, nothing said.
    enter(2, 1, QStringLiteral("10"));
    save();
    EXPECT_TRUE(presenter->boxes.isEmpty());
    EXPECT_EQ(count(QStringLiteral("T_INBOUND")), 0);
    EXPECT_EQ(gfSpreadText(grid, 1, kSize), QStringLiteral("10"));

    // Short with no choice: message 8065, nothing booked.
    enter(2, 1, QStringLiteral("4"));
    save();
    ASSERT_EQ(presenter->boxes.size(), 1);
    EXPECT_TRUE(presenter->boxes[0].text.startsWith(QStringLiteral("미입고 잔량에 대한")));
    EXPECT_EQ(count(QStringLiteral("T_INBOUND")), 0);

    // A choice made while short stays when the quantity then goes over: 12 booked, 0 open.
    choose(2, Qt::Key_Home);
    enter(2, 1, QStringLiteral("12"));
    EXPECT_EQ(gfSpreadText(grid, 3, kTotal), QStringLiteral("2"));
    EXPECT_EQ(gfSpreadText(grid, 2, kFinish), QStringLiteral("재입고예정"));
    save();
    EXPECT_EQ(scalar(QStringLiteral("SELECT I01 FROM T_INBOUND")), QStringLiteral("12"));
    EXPECT_EQ(state(), QStringLiteral("I"));
    ASSERT_EQ(grid->maxRows(), 3);
    EXPECT_EQ(gfSpreadText(grid, 1, kTotal), QStringLiteral("0"));
    EXPECT_EQ(gfSpreadText(grid, 1, kSize), QString());
}

TEST_F(Bamas315, badQuantitiesAndDatesAreRefused) {
    enter(2, 1, QStringLiteral("x"));
    choose(2, Qt::Key_Home);
    save();
    ASSERT_EQ(presenter->boxes.size(), 1);
    EXPECT_TRUE(presenter->boxes[0].text.contains(QStringLiteral("\"x\"")));
    enter(2, 1, QStringLiteral("3"));
    auto* date = child<QDateEdit>(screen, QStringLiteral("dtpStart_0"));
    date->setDate(QDate::currentDate().addDays(1));
    save();
    EXPECT_TRUE(presenter->boxes.last().text.startsWith(QStringLiteral("등록일자를 미래일자로")));
    EXPECT_EQ(date->date(), QDate::currentDate());
    EXPECT_EQ(count(QStringLiteral("T_INBOUND")), 0);
    date->setDate(QDate::currentDate().addDays(-1));
    save();
    EXPECT_EQ(count(QStringLiteral("T_INBOUND"),
                    QStringLiteral("INBOUNDDT = '") +
                        QDate::currentDate().addDays(-1).toString(QStringLiteral("yyyyMMdd")) +
                        u'\''),
              1);
}

TEST_F(Bamas315, withoutAnOrderEveryItemIsWrittenAndTheListLeavesOutTheEmptyOnes) {
    QTest::mouseClick(child<QRadioButton>(screen, QStringLiteral("optOrderGB_1")), Qt::LeftButton);
    QApplication::processEvents();
    ASSERT_EQ(grid->maxRows(), 3); // one row an item, every quantity 0
    EXPECT_EQ(gfSpreadText(grid, 1, 5), QStringLiteral("입고량"));
    EXPECT_EQ(gfSpreadText(grid, 1, kSize), QStringLiteral("0"));
    enter(1, 2, QStringLiteral("3"));
    EXPECT_EQ(gfSpreadText(grid, 1, kTotal), QStringLiteral("3"));
    save();
    EXPECT_TRUE(presenter->boxes.last().text.startsWith(QStringLiteral("발주처, 출고처 없이")));
    typeText(child<QLineEdit>(screen, QStringLiteral("txtFullName_0")),
             QStringLiteral("한결 역삼점'"));
    save();
    EXPECT_EQ(
        count(QStringLiteral("T_INBOUND"), QStringLiteral("INBOUNDGB = 'B' AND ORDERSEQ = 0 "
                                                          "AND OUTBOUNDSTORE = '한결 역삼점'''")),
        3);
    EXPECT_EQ(scalar(QStringLiteral("SELECT GROUP_CONCAT(INBOUNDSEQ, ',') FROM (SELECT * FROM "
                                    "T_INBOUND ORDER BY INBOUNDSEQ)")),
              QStringLiteral("1,2,3"));

    // The receipt list shows the one with goods and cancels it when ticked.
    child<QTabWidget>(screen, QStringLiteral("SSTab1"))->setCurrentIndex(1);
    child<QComboBox>(screen, QStringLiteral("cboStore_1"))->setCurrentIndex(1);
    QTest::mouseClick(child<QPushButton>(screen, QStringLiteral("cmdViewSale")), Qt::LeftButton);
    ASSERT_TRUE(waitForReport(screen));
    Spread* list = child<Spread>(screen, QStringLiteral("SP21"));
    ASSERT_EQ(list->maxRows(), 1);
    EXPECT_EQ(gfSpreadText(list, 1, 3), QStringLiteral("공통셔츠")); // first by name
    EXPECT_EQ(gfSpreadText(list, 1, 5), QStringLiteral("3"));
    EXPECT_EQ(gfSpreadText(list, 1, 31), QStringLiteral("한결 역삼점'"));
    clickCell(list, 1, 33);
    // The question first: "No" cancels nothing.
    presenter->boxes.clear();
    presenter->answerNo();
    QTest::mouseClick(child<QPushButton>(screen, QStringLiteral("cmdDelete")), Qt::LeftButton);
    ASSERT_EQ(presenter->boxes.size(), 1);
    EXPECT_TRUE(presenter->boxes[0].text.startsWith(QStringLiteral("체크한 모든 데이터를")));
    EXPECT_EQ(count(QStringLiteral("T_INBOUND")), 3);
    QTest::mouseClick(child<QPushButton>(screen, QStringLiteral("cmdDelete")), Qt::LeftButton);
    ASSERT_TRUE(waitForReport(screen));
    EXPECT_EQ(list->maxRows(), 0);
    EXPECT_EQ(count(QStringLiteral("T_INBOUND")), 2);
}

TEST_F(Bamas315, linesOfTwoSizeTablesShowThePositionsAndEachCellItsOwnLabel) {
    // Without an order: the common shirt (J: 85, 90, 95), the trousers and the jacket (X: 95,
    // 100, 105), by name.
    QTest::mouseClick(child<QRadioButton>(screen, QStringLiteral("optOrderGB_1")), Qt::LeftButton);
    QApplication::processEvents();
    ASSERT_EQ(grid->maxRows(), 3);
    ASSERT_EQ(gfSpreadText(grid, 3, 2), QStringLiteral("동복자켓"));
    EXPECT_EQ(gfSpreadText(grid, -1000, kSize), QStringLiteral("1"));
    EXPECT_EQ(gfSpreadText(grid, -1000, kSize + 2), QStringLiteral("3"));
    EXPECT_EQ(gfSpreadText(grid, -1000, kSize + 23), QStringLiteral("24"));
    EXPECT_EQ(grid->cellToolTip(1, kSize), QStringLiteral("85"));
    EXPECT_EQ(grid->cellToolTip(3, kSize), QStringLiteral("95"));
    EXPECT_EQ(grid->cellToolTip(3, kSize + 2), QStringLiteral("105"));

    // One item chosen: one table, its labels over the sizes.
    auto* items = child<QComboBox>(screen, QStringLiteral("cboUniform"));
    items->setFocus();
    for (int i = 0; i < items->count() && items->currentText() != QStringLiteral("동복자켓"); ++i) {
        QTest::keyClick(items, Qt::Key_Down);
    }
    QApplication::processEvents();
    ASSERT_EQ(grid->maxRows(), 1);
    EXPECT_EQ(gfSpreadText(grid, -1000, kSize), QStringLiteral("95"));
    EXPECT_EQ(gfSpreadText(grid, -1000, kSize + 2), QStringLiteral("105"));
    EXPECT_EQ(grid->cellToolTip(1, kSize + 1), QStringLiteral("100"));
}

TEST_F(Bamas315, aFailedSaveLogsTheStatementAndTheCommandAndBooksNothing) {
    enter(2, 1, QStringLiteral("4"));
    choose(2, Qt::Key_Home);
    exec(QStringLiteral("CREATE TRIGGER no_receipt BEFORE INSERT ON T_INBOUND "
                        "BEGIN SELECT RAISE(ABORT, 'database is locked'); END"));
    save();
    EXPECT_EQ(presenter->boxes.size(), 1);
    EXPECT_EQ(count(QStringLiteral("T_INBOUND")), 0);
    EXPECT_EQ(state(), QStringLiteral("A")); // the order's state went back with the rest
    EXPECT_EQ(scalar(QStringLiteral("SELECT GROUP_CONCAT(ERRPROG, '|') FROM "
                                    "(SELECT ERRPROG FROM C_ERROR ORDER BY ROWID)")),
              QStringLiteral("basDatabase : gfbSqlExecuteDB|BAMAS315 : sSaveQuery"));
    EXPECT_EQ(gfSpreadText(grid, 2, kSize), QStringLiteral("4"));
    EXPECT_EQ(gfSpreadText(grid, 2, kFinish), QStringLiteral("재입고예정"));
}

TEST_F(Bamas315, cancellingTheReceiptOfAClosedLineDoesNotBringItBack) {
    enter(2, 1, QStringLiteral("4"));
    choose(2, Qt::Key_End);
    save();
    ASSERT_EQ(state(), QStringLiteral("E"));
    child<QTabWidget>(screen, QStringLiteral("SSTab1"))->setCurrentIndex(2);
    child<QComboBox>(screen, QStringLiteral("cboStore_2"))->setCurrentIndex(1);
    QTest::mouseClick(child<QPushButton>(screen, QStringLiteral("cmdViewSal2")), Qt::LeftButton);
    ASSERT_TRUE(waitForReport(screen));
    EXPECT_EQ(child<Spread>(screen, QStringLiteral("SP41"))->maxRows(), 0);
    exec(QStringLiteral("DELETE FROM T_INBOUND"));
    QTest::mouseClick(child<QPushButton>(screen, QStringLiteral("cmdViewSal2")), Qt::LeftButton);
    ASSERT_TRUE(waitForReport(screen));
    EXPECT_EQ(child<Spread>(screen, QStringLiteral("SP41"))->maxRows(), 0);
    screen->m_Search();
    EXPECT_EQ(grid->maxRows(), 0);
}

TEST_F(Bamas315, openRemaindersAndTheServersSpelling) {
    exec(QStringLiteral("INSERT INTO T_INBOUND (COMPANY, STORECD, INBOUNDDT, INBOUNDSEQ, SCHOOLCD, "
                        "SUDIVIDE, UNIFORMCD, INYYYY, I01, ORDERDT, ORDERSEQ, OUTBOUNDSTORE, "
                        "INBOUNDGB) VALUES ('01', '01', '%1', 1, '001', '1', 'NB01', '2024', 13, "
                        "'%1', 1, '다른 곳', 'A')")
             .arg(orderDay));
    child<QComboBox>(screen, QStringLiteral("cboStore_2"))->setCurrentIndex(1);
    QTest::mouseClick(child<QPushButton>(screen, QStringLiteral("cmdViewSal2")), Qt::LeftButton);
    ASSERT_TRUE(waitForReport(screen));
    Spread* open = child<Spread>(screen, QStringLiteral("SP41"));
    ASSERT_EQ(open->maxRows(), 1);
    // Received from another supplier text: not counted against this order.
    EXPECT_EQ(gfSpreadText(open, 1, 2), QStringLiteral("청운물류"));
    EXPECT_EQ(gfSpreadText(open, 1, 6), QStringLiteral("10"));

    const ScopedDialect server(Dialect(Dialect::Engine::SqlServer));
    for (const QString& sql :
         {screen->orderedLinesSql(), screen->unorderedLinesSql(), screen->receiptInsertSql(0, true),
          screen->receiptListSql(), screen->openListSql()}) {
        EXPECT_FALSE(keepServerText(sql).contains(QStringLiteral("||"))) << sql.toStdString();
        EXPECT_TRUE(sql.contains(QStringLiteral("WITH(NOLOCK)"))) << sql.toStdString();
    }
}
