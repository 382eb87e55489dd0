// Store transfers from 강남점, which holds 5 jackets at size 95 and 2 at size 100 (한빛중, model
// year 2024), to 서초점 of the same brand or 역삼점 of another, driven as a user does; stock
// counted by hand and read back through the stock report's statement.
#include "screenfixture.h"
#include "userinput.h"

#include "data/dbroutines.h"
#include "data/demo/demochain.h"
#include "data/dialect.h"
#include "data/session.h"
#include "grid/spreadroutines.h"
#include "screens/stock/BAMAS315.h"
#include "screens/stock/BAMAS320.h"
#include "screens/stock/stockstatement.h"

#include <QComboBox>
#include <QDateEdit>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>

namespace {
// SP3: caption 8, total 9, sizes from 10; four rows a line.
constexpr int kCaption = 8;
constexpr int kTotal = 9;
constexpr int kSize = 10;
// Lines in school order: 공통셔츠, 한빛중[남] 동복바지, 한빛중[남] 동복자켓.
constexpr int kJacketLabels = 9;
constexpr int kJacketStock = 10;
constexpr int kJacketOut = 11;
constexpr int kJacketLeft = 12;
constexpr int kTrousersOut = 7;
} // namespace

class Bamas320 : public ScreenTest {
protected:
    void SetUp() override {
        ScreenTest::SetUp();
        loadFixture(QStringLiteral("views_small.sql"));
        loadFixture(QStringLiteral("stock_orders.sql"));
        loadFixture(QStringLiteral("transfer.sql"));
        screen = openByNumber<BAMAS320>(320);
        ASSERT_NE(screen, nullptr);
        grid = child<Spread>(screen, QStringLiteral("SP3"));
        pick(QStringLiteral("cboOutStore_0"), QStringLiteral("강남점"));
        pick(QStringLiteral("cboInStore_0"), QStringLiteral("서초점"));
        pick(QStringLiteral("cboGT29"), QStringLiteral("[A]전체"));
        presenter->boxes.clear();
    }
    // Chooses a list row by its text, as a pick from the open list does.
    void pick(const QString& combo, const QString& text) {
        auto* box = child<QComboBox>(screen, combo);
        // The blank row shows no name of its own.
        const int index = text.isEmpty() ? 0 : box->findText(text);
        ASSERT_GE(index, 0) << text.toStdString() << " not in " << combo.toStdString();
        box->setCurrentIndex(index);
        QApplication::processEvents();
    }
    void click(const QString& button) {
        QTest::mouseClick(child<QPushButton>(screen, button), Qt::LeftButton);
        QApplication::processEvents();
    }
    // 한빛중 from the school list, then the grid by school.
    void loadJackets() {
        Spread* schools = child<Spread>(screen, QStringLiteral("SP1"));
        ASSERT_EQ(gfSpreadText(schools, 2, 1), QStringLiteral("한빛중"));
        clickCell(schools, 2, 1);
        click(QStringLiteral("cmdViewSch"));
    }
    void enter(int row, int position, const QString& text) {
        clickCell(grid, row, kSize + position - 1, true);
        QWidget* editor = QApplication::focusWidget();
        QTest::keyClick(editor, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(editor, Qt::Key_Delete);
        QTest::keyClicks(editor, text);
        QTest::keyClick(editor, Qt::Key_Return);
        QApplication::processEvents();
    }
    // Stock of the store's jacket line (2024) by the stock report's statement: sizes 95, 100.
    QString jacketStock(const QString& store) {
        StockFilter filter;
        filter.company = QStringLiteral("01");
        filter.store = store;
        filter.brand = store == QStringLiteral("02") ? QStringLiteral("02") : QStringLiteral("01");
        filter.yearFrom = filter.yearTo = filter.currentYear = QStringLiteral("2024");
        RecordSet rs;
        EXPECT_TRUE(gfbSqlSelectDB(stockStatement(filter, StockReport::Split, dialect()), rs));
        for (rs.moveFirst(); !rs.eof(); rs.moveNext()) {
            if (rs.value(4).trimmed() == QStringLiteral("동복자켓")) {
                return rs.value(8).trimmed() + u'/' + rs.value(9).trimmed();
            }
        }
        return QStringLiteral("none");
    }

    BAMAS320* screen = nullptr;
    Spread* grid = nullptr;
};

TEST_F(Bamas320, theGridShowsTheSendersStockAndWhatRemainsOfItemsWithTwoSizesOrMore) {
    Spread* schools = child<Spread>(screen, QStringLiteral("SP1"));
    EXPECT_EQ(gfSpreadText(schools, 1, 1), QStringLiteral("전체학교"));
    EXPECT_EQ(gfSpreadText(schools, 1, 2), QStringLiteral("**"));
    EXPECT_EQ(schools->maxRows(), 30);
    loadJackets();
    ASSERT_EQ(grid->maxRows(), 12); // the one-label tie is not offered
    EXPECT_EQ(gfSpreadText(grid, 1, 1), QStringLiteral("공통"));
    EXPECT_EQ(gfSpreadText(grid, 5, 1), QStringLiteral("한빛중[남]"));
    EXPECT_EQ(gfSpreadText(grid, kJacketLabels, 2), QStringLiteral("동복자켓"));
    EXPECT_EQ(gfSpreadText(grid, kJacketLabels, kSize), QStringLiteral("95"));
    EXPECT_EQ(gfSpreadText(grid, kJacketLabels, kSize + 2), QStringLiteral("105"));
    EXPECT_EQ(gfSpreadText(grid, kJacketStock, kCaption), QStringLiteral("재고"));
    EXPECT_EQ(gfSpreadText(grid, kJacketOut, kCaption), QStringLiteral("출고"));
    EXPECT_EQ(gfSpreadText(grid, kJacketLeft, kCaption), QStringLiteral("잔량"));
    EXPECT_EQ(gfSpreadText(grid, kJacketStock, kSize), QStringLiteral("5"));
    EXPECT_EQ(gfSpreadText(grid, kJacketStock, kTotal), QStringLiteral("7"));
    EXPECT_TRUE(grid->isLocked(kJacketStock, kSize));
    EXPECT_FALSE(grid->isLocked(kJacketOut, kSize));
    EXPECT_TRUE(grid->isLocked(kJacketOut, kSize + 3)); // no label, no input

    // More than there is: taken, the remainder red.
    enter(kJacketOut, 1, QStringLiteral("7"));
    EXPECT_EQ(gfSpreadText(grid, kJacketLeft, kSize), QStringLiteral("-2"));
    EXPECT_EQ(grid->model()->foreColor(kJacketLeft, kSize), 255u);
    EXPECT_EQ(gfSpreadText(grid, kJacketLeft, kTotal), QStringLiteral("0"));

    // By item, the item's name leads; a change of a list empties the grid.
    click(QStringLiteral("cmdViewUnifom"));
    ASSERT_EQ(grid->maxRows(), 12);
    EXPECT_EQ(gfSpreadText(grid, -1000, 1), QStringLiteral("복종"));
    EXPECT_EQ(gfSpreadText(grid, 1, 1), QStringLiteral("공통셔츠"));
    pick(QStringLiteral("cboGT22_0"), QStringLiteral("[S]하복"));
    EXPECT_EQ(grid->maxRows(), 0);
}

TEST_F(Bamas320, aTransferLowersTheSenderAndTheReceiverOnlyWhenItBooksTheGoodsIn) {
    loadJackets();
    enter(kJacketOut, 1, QStringLiteral("3"));
    click(QStringLiteral("cmdSave2"));
    EXPECT_TRUE(presenter->boxes.isEmpty()) << presenter->boxes.value(0).text.toStdString();
    ASSERT_EQ(count(QStringLiteral("T_OUTBOUND")), 1);
    EXPECT_EQ(scalar(QStringLiteral(
                  "SELECT STORECD || '|' || INBOUNDSTORE || '|' || OUTBOUNDGB || '|' || "
                  "SCHOOLCD || SUDIVIDE || UNIFORMCD || OUTYYYY || '|' || O01 || O02 || "
                  "OUTBOUNDSEQ || '|' || INSTOREFULLNAME || '|' || INSTOREADDRES || '|' || "
                  "INSTORETEL FROM T_OUTBOUND")),
              QStringLiteral("01|03|M|0011NB012024|301|청운교복 서초점|서울특별시 서초구 반포대로 "
                             "3|02-533-0003"));
    EXPECT_EQ(count(QStringLiteral("T_INBOUND")), 0);
    // The screen reads the new stock; the report agrees; 서초점 has nothing yet.
    ASSERT_EQ(grid->maxRows(), 12);
    EXPECT_EQ(gfSpreadText(grid, kJacketStock, kSize), QStringLiteral("2"));
    EXPECT_EQ(gfSpreadText(grid, kJacketOut, kSize), QString());
    EXPECT_EQ(jacketStock(QStringLiteral("01")), QStringLiteral("2/2"));
    EXPECT_EQ(jacketStock(QStringLiteral("03")), QStringLiteral("none"));

    // A second transfer of the line lowers again.
    enter(kJacketOut, 2, QStringLiteral("1"));
    click(QStringLiteral("cmdSave2"));
    EXPECT_EQ(count(QStringLiteral("T_OUTBOUND")), 2);
    EXPECT_EQ(gfSpreadText(grid, kJacketStock, kSize + 1), QStringLiteral("1"));
    EXPECT_EQ(jacketStock(QStringLiteral("01")), QStringLiteral("2/1"));

    // 서초점 books the 3 in through goods receipt, without an order.
    auto* receipt = openByNumber<BAMAS315>(315);
    ASSERT_NE(receipt, nullptr);
    auto* store = child<QComboBox>(receipt, QStringLiteral("cboStore_0"));
    store->setCurrentIndex(store->findText(QStringLiteral("서초점")));
    QApplication::processEvents();
    clickCell(child<Spread>(receipt, QStringLiteral("SP1")), 1, 1);
    QTest::mouseClick(child<QRadioButton>(receipt, QStringLiteral("optOrderGB_1")), Qt::LeftButton);
    QApplication::processEvents();
    typeText(child<QLineEdit>(receipt, QStringLiteral("txtFullName_0")), QStringLiteral("강남점"));
    Spread* lines = child<Spread>(receipt, QStringLiteral("SP3"));
    int jacket = 0;
    for (int r = 1; r <= lines->maxRows(); ++r) {
        if (gfSpreadText(lines, r, 2) == QStringLiteral("동복자켓")) {
            jacket = r;
        }
    }
    ASSERT_GT(jacket, 0);
    clickCell(lines, jacket, 6, true);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("3"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QApplication::processEvents();
    QTest::mouseClick(child<QPushButton>(receipt, QStringLiteral("cmdSave2")), Qt::LeftButton);
    QApplication::processEvents();
    EXPECT_EQ(jacketStock(QStringLiteral("03")), QStringLiteral("3/0"));
    EXPECT_EQ(jacketStock(QStringLiteral("01")), QStringLiteral("2/1"));
}

TEST_F(Bamas320, theKindFollowsTheBrandsAndLinesOfNoTotalAreSkipped) {
    pick(QStringLiteral("cboInStore_0"), QStringLiteral("역삼점"));
    loadJackets();
    enter(kJacketOut, 1, QStringLiteral("1"));
    enter(kJacketOut, 2, QStringLiteral("-1"));   // sums to 0: skipped
    enter(kTrousersOut, 1, QStringLiteral("-2")); // a negative total is written
    click(QStringLiteral("cmdSave2"));
    EXPECT_TRUE(presenter->boxes.isEmpty());
    ASSERT_EQ(count(QStringLiteral("T_OUTBOUND")), 1);
    EXPECT_EQ(scalar(QStringLiteral("SELECT UNIFORMCD || OUTBOUNDGB || INBOUNDSTORE || O01 "
                                    "FROM T_OUTBOUND")),
              QStringLiteral("NB02T02-2"));
}

TEST_F(Bamas320, datesYearsAndStoresAreCheckedBeforeAnythingIsWritten) {
    loadJackets();
    enter(kJacketOut, 1, QStringLiteral("1"));
    auto* date = child<QDateEdit>(screen, QStringLiteral("dtpStart_0"));
    date->setDate(QDate::currentDate().addDays(-1));
    click(QStringLiteral("cmdSave2"));
    ASSERT_EQ(presenter->boxes.size(), 1);
    EXPECT_TRUE(
        presenter->boxes[0].text.startsWith(QStringLiteral("발주일자, 입고일자, 출고일자는")));
    EXPECT_EQ(date->date(), QDate::currentDate());
    EXPECT_EQ(count(QStringLiteral("T_OUTBOUND")), 0);

    // A bad quantity is named and nothing goes.
    enter(kJacketOut, 2, QStringLiteral("x'"));
    click(QStringLiteral("cmdSave2"));
    EXPECT_TRUE(presenter->boxes.last().text.contains(QStringLiteral("\"x'\"")));
    EXPECT_EQ(count(QStringLiteral("T_OUTBOUND")), 0);
    enter(kJacketOut, 2, QString());

    // Dated ahead is taken.
    date->setDate(QDate::currentDate().addDays(1));
    click(QStringLiteral("cmdSave2"));
    EXPECT_EQ(count(QStringLiteral("T_OUTBOUND"),
                    QStringLiteral("OUTBOUNDDT = '") +
                        QDate::currentDate().addDays(1).toString(QStringLiteral("yyyyMMdd")) +
                        u'\''),
              1);

    // Without a receiver or a year the commands say so.
    presenter->boxes.clear();
    pick(QStringLiteral("cboInStore_0"), QString());
    click(QStringLiteral("cmdViewSch"));
    ASSERT_EQ(presenter->boxes.size(), 1);
    EXPECT_TRUE(presenter->boxes[0].text.startsWith(QStringLiteral("연도, 출고처, 입고처를")));
    click(QStringLiteral("cmdSave2"));
    EXPECT_TRUE(presenter->boxes.last().text.startsWith(QStringLiteral("입고매장 없이")));
    pick(QStringLiteral("cboYY_0"), QString());
    click(QStringLiteral("cmdSave2"));
    EXPECT_TRUE(presenter->boxes.last().text.startsWith(QStringLiteral("발주 연식 없이")));
    EXPECT_EQ(count(QStringLiteral("T_OUTBOUND")), 1);
}

TEST_F(Bamas320, aFailedLineWritesNoLineAndTheTypedQuantitiesStayForTheNextTry) {
    loadJackets();
    enter(kJacketOut, 1, QStringLiteral("2"));
    enter(kTrousersOut, 2, QStringLiteral("1"));
    exec(QStringLiteral("CREATE TRIGGER jam BEFORE INSERT ON T_OUTBOUND WHEN NEW.UNIFORMCD = "
                        "'NB01' BEGIN SELECT RAISE(ABORT, 'disk I/O jam'); END"));
    click(QStringLiteral("cmdSave2"));
    EXPECT_EQ(presenter->boxes.size(), 1);
    EXPECT_EQ(count(QStringLiteral("T_OUTBOUND")), 0);
    EXPECT_EQ(count(QStringLiteral("C_ERROR")), 2);
    EXPECT_EQ(count(QStringLiteral("C_ERROR"), QStringLiteral("ERRPROG = 'BAMAS320 : sSaveQuery'")),
              1);
    EXPECT_EQ(gfSpreadText(grid, kJacketOut, kSize), QStringLiteral("2"));
    EXPECT_EQ(gfSpreadText(grid, kTrousersOut, kSize + 1), QStringLiteral("1"));

    exec(QStringLiteral("DROP TRIGGER jam"));
    click(QStringLiteral("cmdSave2"));
    EXPECT_EQ(count(QStringLiteral("T_OUTBOUND")), 2);
    EXPECT_EQ(scalar(QStringLiteral("SELECT GROUP_CONCAT(OUTBOUNDSEQ || UNIFORMCD, ',') FROM "
                                    "(SELECT * FROM T_OUTBOUND ORDER BY OUTBOUNDSEQ)")),
              QStringLiteral("1NB02,2NB01"));
}

TEST_F(Bamas320, theStatusListsTheTransfersUnderTheirLabelsAndSpellsEveryStatementForTheServer) {
    loadJackets();
    enter(kJacketOut, 1, QStringLiteral("3"));
    click(QStringLiteral("cmdSave2"));
    child<QTabWidget>(screen, QStringLiteral("SSTab1"))->setCurrentIndex(1);
    pick(QStringLiteral("cboOutStore_1"), QStringLiteral("강남점"));
    pick(QStringLiteral("cboInStore_1"), QStringLiteral("서초점"));
    click(QStringLiteral("cmdViewSch1"));
    Spread* list = child<Spread>(screen, QStringLiteral("SP31"));
    ASSERT_EQ(list->maxRows(), 2);
    EXPECT_EQ(gfSpreadText(list, 1, 8), QStringLiteral("95"));
    EXPECT_EQ(gfSpreadText(list, 2, 1),
              QDate::currentDate().toString(QStringLiteral("yyyy-MM-dd")));
    EXPECT_EQ(gfSpreadText(list, 2, 2), QStringLiteral("강남점"));
    EXPECT_EQ(gfSpreadText(list, 2, 3), QStringLiteral("서초점"));
    EXPECT_EQ(gfSpreadText(list, 2, 4), QStringLiteral("한빛중[남]"));
    EXPECT_EQ(gfSpreadText(list, 2, 5), QStringLiteral("동복자켓"));
    EXPECT_EQ(gfSpreadText(list, 2, 6), QStringLiteral("4N"));
    EXPECT_EQ(gfSpreadText(list, 2, 7), QStringLiteral("3"));
    EXPECT_EQ(gfSpreadText(list, 2, 8), QStringLiteral("3"));
    click(QStringLiteral("cmdViewUnifom1"));
    EXPECT_EQ(gfSpreadText(list, 2, 4), QStringLiteral("동복자켓"));
    // Another receiver has none.
    pick(QStringLiteral("cboInStore_1"), QStringLiteral("역삼점"));
    click(QStringLiteral("cmdViewSch1"));
    EXPECT_EQ(list->maxRows(), 0);

    const ScopedDialect server(Dialect(Dialect::Engine::SqlServer));
    for (const QString& sql : {screen->titleSql(false), screen->stockSql(),
                               screen->transferInsertSql(2), screen->statusSql(true)}) {
        EXPECT_FALSE(sql.contains(QStringLiteral("||"))) << sql.toStdString();
        EXPECT_FALSE(sql.contains(QStringLiteral("IFNULL"))) << sql.toStdString();
    }
    EXPECT_TRUE(
        screen->transferInsertSql(2).contains(QStringLiteral("DBO.FN_STORETEL('01', '03')")));
}

// Run by hand (--gtest_also_run_disabled_tests): the screen at 1280x800 on the demo chain with a
// transfer being typed, written to the folder TORVIX_SHOTS names.
class Bamas320Shots : public ScreenTest {};

TEST_F(Bamas320Shots, DISABLED_grabsAnEntryInProgress) {
    generateDemoChain(*session().gDb, 1, 1);
    mainWindow()->resize(1280, 800);
    auto* screen = openByNumber<BAMAS320>(320);
    ASSERT_NE(screen, nullptr);
    screen->findChild<QComboBox*>(QStringLiteral("cboOutStore_0"))->setCurrentIndex(1);
    screen->findChild<QComboBox*>(QStringLiteral("cboInStore_0"))->setCurrentIndex(2);
    screen->findChild<QComboBox*>(QStringLiteral("cboGT29"))->setCurrentIndex(1);
    QApplication::processEvents();
    clickCell(screen->findChild<Spread*>(QStringLiteral("SP1")), 2, 1);
    QTest::mouseClick(screen->findChild<QPushButton*>(QStringLiteral("cmdViewSch")),
                      Qt::LeftButton);
    QApplication::processEvents();
    Spread* grid = screen->findChild<Spread*>(QStringLiteral("SP3"));
    ASSERT_GT(grid->maxRows(), 8);
    QApplication::setActiveWindow(mainWindow());
    // The second line's 출고 row: two sizes sent, one of them more than there is.
    for (int position : {1, 2}) {
        clickCell(grid, 7, 9 + position, true);
        QWidget* editor = QApplication::focusWidget();
        ASSERT_NE(editor, nullptr);
        QTest::keyClicks(editor, QString::number(position * 4));
        QTest::keyClick(editor, Qt::Key_Return);
        QApplication::processEvents();
    }
    mainWindow()->grab().save(qEnvironmentVariable("TORVIX_SHOTS", QStringLiteral(".")) +
                              QStringLiteral("/s320_entry.png"));
}
