// The stock report on a line counted by hand, through the screen's own buttons.
#include "reportfiles.h"
#include "screenfixture.h"
#include "userinput.h"

#include "data/dbroutines.h"
#include "data/dialect.h"
#include "data/reportquery.h"
#include "data/sqlitedatabase.h"
#include "grid/gridprinter.h"
#include "grid/spreadroutines.h"
#include "screens/stock/BAMAS330.h"
#include "screens/stock/sizeheadings.h"
#include "shell/reportrunner.h"

#include <QComboBox>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrintPreviewWidget>
#include <QPushButton>
#include <QRegularExpression>
#include <QTimer>

#include <sqlite3.h>

class Bamas330 : public ScreenTest {
protected:
    void SetUp() override {
        ScreenTest::SetUp();
        loadFixture(QStringLiteral("views_small.sql"));
        loadFixture(QStringLiteral("stock_moves.sql"));
        screen = openByNumber<BAMAS330>(330);
        ASSERT_NE(screen, nullptr);
        grid = child<Spread>(screen, QStringLiteral("SP31"));
        choose(QStringLiteral("cboBrand"), 1);
        choose(QStringLiteral("cboStore"), 1);
        setYears(QStringLiteral("24"), QStringLiteral("22")); // reversed on purpose: 2022 to 2024
    }
    void choose(const QString& combo, int index) {
        child<QComboBox>(screen, combo)->setCurrentIndex(index);
    }
    void setYears(const QString& first, const QString& second) {
        auto* low = child<QComboBox>(screen, QStringLiteral("cboYY1_0"));
        auto* high = child<QComboBox>(screen, QStringLiteral("cboYY1_1"));
        low->setCurrentIndex(low->findText(first));
        high->setCurrentIndex(high->findText(second));
    }
    void press(const char* button) {
        child<QPushButton>(screen, QString::fromLatin1(button))->click();
        ASSERT_TRUE(waitForReport(screen));
    }
    QStringList row(int r, int from, int to) {
        QStringList cells;
        for (int c = from; c <= to; ++c) {
            cells << gfSpreadText(grid, r, c);
        }
        return cells;
    }
    BAMAS330* screen = nullptr;
    Spread* grid = nullptr;
};

TEST_F(Bamas330, yearSplitShowsTheLineCountedByHand) {
    EXPECT_EQ(screen->currentFilter().yearFrom, QStringLiteral("2022"));
    EXPECT_EQ(screen->currentFilter().yearTo, QStringLiteral("2024"));
    press("cmdViewSale1");
    // Size 95: opening 5 twice (two receipt rows) + 2 received + 2 from the two corrections
    // - (3 sold less 1 unsecured reservation) = 12; the sale of size "999" lands nowhere. Size
    // 90: opening 2 twice - 1 (two equal transfers count once) - 4 corrected = -1. Every other
    // line is zero and hidden, 한빛초's received-and-sent jacket included.
    ASSERT_EQ(grid->maxRows(), 1);
    EXPECT_EQ(row(1, 2, 6),
              (QStringList{QStringLiteral("강남점"), QStringLiteral("한빛중"), QStringLiteral("남"),
                           QStringLiteral("동복자켓"), QStringLiteral("2N")}));
    EXPECT_EQ(row(1, 8, 11), (QStringList{QStringLiteral("X"), QStringLiteral("-1"),
                                          QStringLiteral("12"), QString()}));
    EXPECT_EQ(gfSpreadText(grid, 1, 7), QStringLiteral("11"));
    EXPECT_EQ(gfSpreadText(grid, 1, 33),
              QStringLiteral("2022")); // the model year under the last heading
    EXPECT_EQ(grid->model()->foreColor(1, 9), 255u);
    EXPECT_EQ(grid->model()->foreColor(1, 10), 0u);
    EXPECT_EQ(grid->frozenCols(), 7);
    // Heading rows: the brand's year in force is 2023, which has labels for X only; the shirt
    // labels of 2020 lie outside the last four years of the store's 2024.
    EXPECT_EQ(grid->headRows(), 1);
    EXPECT_EQ(row(-1000, 8, 10),
              (QStringList{QStringLiteral("X"), QStringLiteral("95"), QStringLiteral("100")}));
}

TEST_F(Bamas330, mergedAndCarriedOverViews) {
    press("cmdViewSale2");
    ASSERT_EQ(grid->maxRows(), 1);
    EXPECT_EQ(gfSpreadText(grid, 1, 6), QStringLiteral("통합"));
    setYears(QStringLiteral("25"), QStringLiteral("21"));
    press("cmdViewSale3");
    ASSERT_EQ(grid->maxRows(), 1);
    EXPECT_EQ(gfSpreadText(grid, 1, 6), QStringLiteral("이월"));
    EXPECT_EQ(gfSpreadText(grid, 1, 33), QString::number(QDate::currentDate().year() - 3));
    EXPECT_EQ(gfSpreadText(grid, 1, 10), QStringLiteral("12"));
}

TEST_F(Bamas330, filtersThatEmptyTheReport) {
    choose(QStringLiteral("cboStore"), 0); // row 0's code goes into the statement
    press("cmdViewSale1");
    EXPECT_EQ(grid->maxRows(), 0);
    choose(QStringLiteral("cboStore"), 1);
    setYears(QStringLiteral("23"), QStringLiteral("24"));
    press("cmdViewSale1");
    EXPECT_EQ(grid->maxRows(), 0);
    choose(QStringLiteral("cboBrand"), 0); // no brand: nothing runs, nothing is said
    press("cmdViewSale1");
    EXPECT_TRUE(presenter->boxes.size() <= 1); // at most the empty program tree's message
}

TEST_F(Bamas330, aSchoolFilterKeepsCommonItemsAndTheSeasonKeepsAllSeasonItems) {
    // A common shirt received at the other school: it gathers as "공통" whatever school is chosen.
    exec(QStringLiteral(
        "INSERT INTO T_INBOUND (COMPANY, STORECD, INBOUNDDT, INBOUNDSEQ, SCHOOLCD, SUDIVIDE, "
        "UNIFORMCD, INYYYY, I01, INBOUNDGB) VALUES ('01', '01', '20240212', 1, '002', '1', "
        "'NB0301', '2023', 7, 'B')"));
    auto* school = child<QComboBox>(screen, QStringLiteral("cboSchool"));
    school->setCurrentIndex(school->findText(QStringLiteral("한빛초")));
    ASSERT_GT(school->currentIndex(), 0);
    press("cmdViewSale1");
    ASSERT_EQ(grid->maxRows(), 1);
    EXPECT_EQ(row(1, 3, 5), (QStringList{QStringLiteral("공통"), QStringLiteral("남"),
                                         QStringLiteral("공통셔츠")}));
    EXPECT_EQ(gfSpreadText(grid, 1, 7), QStringLiteral("7"));

    school->setCurrentIndex(0);
    press("cmdViewSale1");
    EXPECT_EQ(grid->maxRows(), 2); // common items come first
    EXPECT_EQ(gfSpreadText(grid, 1, 3), QStringLiteral("공통"));
    EXPECT_EQ(gfSpreadText(grid, 2, 3), QStringLiteral("한빛중"));
}

TEST_F(Bamas330, theServerTextCarriesNoSqliteSpelling) {
    const Dialect server(Dialect::Engine::SqlServer);
    for (StockReport report : {StockReport::Split, StockReport::Merged}) {
        keepServerText(stockStatement(screen->currentFilter(), report, server));
    }
    const QString sql =
        keepServerText(stockStatement(screen->currentFilter(), StockReport::CarryOver, server));
    EXPECT_FALSE(sql.contains(QStringLiteral("||")));
    EXPECT_TRUE(sql.contains(QStringLiteral("S_ORDERHEAD OH  WITH(NOLOCK)")));
    EXPECT_TRUE(sql.contains(QStringLiteral("CONVERT(CHAR(2), RTRIM(UF.UNIFORMSEQ))")));
    EXPECT_TRUE(sql.contains(QStringLiteral("CONVERT(CHAR(8), GETDATE(), 112)")));
}

TEST_F(Bamas330, contractClassAndSeasonNarrowOnlyTheSchoolLines) {
    // A joint-purchase contract for 한빛중 in the screen's year, and a summer item nobody stocks.
    exec(QStringLiteral(
             "INSERT INTO C_G2B (COMPANY, YYYY, SEASON, BRANDCD, SCHOOLCD, STARTDT, ENDDT) VALUES "
             "('01', '") +
         screen->currentYear() +
         QStringLiteral("', 'N', '01', '001', '2000-01-01', '2100-12-31')"));
    StockFilter filter = screen->currentFilter();
    filter.contractRow = 2; // schools without a contract: 한빛중 drops out
    RecordSet rs;
    ASSERT_TRUE(gfbSqlSelectDB(stockStatement(filter, StockReport::Split, dialect()), rs));
    EXPECT_EQ(rs.recordCount(), 0);
    filter.contractRow = 3; // schools with one: 한빛중 stays
    ASSERT_TRUE(gfbSqlSelectDB(stockStatement(filter, StockReport::Split, dialect()), rs));
    EXPECT_EQ(rs.recordCount(), 1);
    filter.contractRow = 0;
    filter.season = QStringLiteral("S"); // a winter jacket is neither summer nor all-season
    ASSERT_TRUE(gfbSqlSelectDB(stockStatement(filter, StockReport::Split, dialect()), rs));
    EXPECT_EQ(rs.recordCount(), 0);
    exec(QStringLiteral("UPDATE C_UNIFORM SET SEASON = 'A' WHERE UNIFORMSEQ = '01'; "
                        "UPDATE C_SCHOOLUNIFORM SET SEASON = 'A' WHERE UNIFORMSEQ = '01'"));
    exec(QStringLiteral("UPDATE T_BASSTOCKQTY SET UNIFORMCD = 'AB01'; "
                        "UPDATE T_INBOUND SET UNIFORMCD = 'AB01' WHERE SCHOOLCD = '001'"));
    ASSERT_TRUE(gfbSqlSelectDB(stockStatement(filter, StockReport::Split, dialect()), rs));
    EXPECT_EQ(rs.recordCount(), 1); // all-season items stay in under any season
}

TEST_F(Bamas330, theOldestShirtLabelsOfTheLastFourYearsHeadTheGrid) {
    exec(QStringLiteral(
        "INSERT INTO C_BRANDSIZE (COMPANY, BRANDCD, YYYY, TEENSCOPE, SIZETAB, C01) VALUES "
        "('01', '01', '2021', 'H', 'J', 'S'), ('01', '01', '2023', 'H', 'J', 'M')"));
    QList<SizeHeadingRow> rows;
    ASSERT_TRUE(
        readSizeHeadings(QStringLiteral("01"), QStringLiteral("01"), QStringLiteral("H"), rows));
    ASSERT_EQ(rows.size(), 3);
    EXPECT_EQ(rows[0].sizeTab + rows[0].labels.value(0),
              QStringLiteral("JS")); // 2021: oldest after 2020
    EXPECT_EQ(rows[1].sizeTab + rows[1].labels.value(0), QStringLiteral("X95"));
    EXPECT_EQ(rows[2].sizeTab + rows[2].labels.value(0), QStringLiteral("JM"));
    ASSERT_TRUE(
        readSizeHeadings(QStringLiteral("01"), QStringLiteral("01"), QStringLiteral("L"), rows));
    EXPECT_EQ(rows.size(), 0); // the Kids range has no labels in the year in force
}

namespace {
void midsummer2025(sqlite3_context* ctx, int, sqlite3_value**) {
    sqlite3_result_text(ctx, "2025-06-15 10:00:00.000", -1, SQLITE_STATIC);
}
} // namespace

TEST_F(Bamas330, carryOverSplitsAtTheServersCalendarYearNotTheStores) {
    // The server's clock says 2025 while the store still works in 2024, on the main connection
    // and on the one the reports run on, which the first report opens.
    press("cmdViewSale1");
    auto* db = dynamic_cast<SqliteDatabase*>(&gDb());
    auto* reports =
        dynamic_cast<SqliteDatabase*>(screen->reportRunner()->query()->connection());
    ASSERT_NE(db, nullptr);
    ASSERT_NE(reports, nullptr);
    for (SqliteDatabase* each : {db, reports}) {
        sqlite3_create_function(each->handle(), "GETDATE", 0, SQLITE_UTF8, nullptr,
                                midsummer2025, nullptr, nullptr);
    }
    exec(QStringLiteral(
        "INSERT INTO T_INBOUND (COMPANY, STORECD, INBOUNDDT, INBOUNDSEQ, SCHOOLCD, SUDIVIDE, "
        "UNIFORMCD, INYYYY, I01, I02, INBOUNDGB) VALUES "
        "('01', '01', '20240401', 1, '001', '1', 'NB01', '2023', 0, 3, 'B'), "
        "('01', '01', '20240401', 2, '001', '1', 'NB01', '2025', 4, 0, 'B')"));
    setYears(QStringLiteral("21"), QStringLiteral("25"));
    press("cmdViewSale3");
    ASSERT_EQ(grid->maxRows(), 2);
    // 2025 stands by itself; 2022 and 2023 are summed by position under 2025 - 3.
    EXPECT_EQ(row(1, 6, 10), (QStringList{QStringLiteral("5N"), QStringLiteral("4"),
                                          QStringLiteral("X"), QStringLiteral("4"), QString()}));
    EXPECT_EQ(gfSpreadText(grid, 1, 33), QStringLiteral("2025"));
    EXPECT_EQ(row(2, 6, 10),
              (QStringList{QStringLiteral("이월"), QStringLiteral("14"), QStringLiteral("X"),
                           QStringLiteral("-1"), QStringLiteral("15")}));
    EXPECT_EQ(gfSpreadText(grid, 2, 33), QStringLiteral("2022"));

    press("cmdViewSale1"); // by year, newest first
    ASSERT_EQ(grid->maxRows(), 3);
    EXPECT_EQ(row(1, 6, 6) + row(2, 6, 6) + row(3, 6, 6),
              (QStringList{QStringLiteral("5N"), QStringLiteral("3N"), QStringLiteral("2N")}));
    // One school's lines read as one block: names merge down, the year column does not.
    bool schoolMerged = false;
    for (const auto& span : grid->model()->spans()) {
        schoolMerged |= span.modelCol == 3 && span.rows == 3;
    }
    EXPECT_TRUE(schoolMerged);
}

TEST_F(Bamas330, theReportButtonShowsWhichViewStandsAndTheListsFollowBrandAndStore) {
    press("cmdViewSale2");
    auto* split = child<QPushButton>(screen, QStringLiteral("cmdViewSale1"));
    auto* merged = child<QPushButton>(screen, QStringLiteral("cmdViewSale2"));
    EXPECT_TRUE(merged->styleSheet().contains(QStringLiteral("#c0ffc0")));
    EXPECT_TRUE(split->styleSheet().isEmpty());
    press("cmdViewSale1");
    EXPECT_TRUE(merged->styleSheet().isEmpty());

    // The item list follows the store's schools: 강남점's schools offer only the jacket (the
    // shirt's one offer is stopped); the other brand's store has no schools at all.
    auto* items = child<QComboBox>(screen, QStringLiteral("cboUniform"));
    EXPECT_EQ(items->count(), 2);
    auto* brand = child<QComboBox>(screen, QStringLiteral("cboBrand"));
    auto* store = child<QComboBox>(screen, QStringLiteral("cboStore"));
    brand->setCurrentIndex(brand->findText(QStringLiteral("한결교복")));
    ASSERT_EQ(store->count(), 2);
    EXPECT_EQ(store->itemText(1), QStringLiteral("한결 역삼점"));
    EXPECT_EQ(items->count(), 1);
    EXPECT_EQ(child<QComboBox>(screen, QStringLiteral("cboSchool"))->count(), 1);
    store->setCurrentIndex(1);
    press("cmdViewSale1"); // a store without stock: headings, no rows
    EXPECT_EQ(grid->maxRows(), 0);
    EXPECT_EQ(gfSpreadText(grid, -1000, 2), QStringLiteral("매장"));
}

TEST_F(Bamas330, sexItemClassItemAndSchoolLevelNarrowTheReport) {
    exec(QStringLiteral(
        "INSERT INTO C_GONGTONG (L_GRP_COD, S_GRP_COD, GRP_NAM, USEYN, DISP_SEQ) VALUES "
        "('23', 'B', '남', 'Y', 1), ('23', 'G', '여', 'Y', 2), ('28', '1', '주품목', 'Y', 1), "
        "('28', '2', '부품목', 'Y', 2), ('25', '1', '중학교', 'Y', 1), ('25', '2', '고등학교', "
        "'Y', 2)"));
    // 한빛중 offers the shirt too, and a common shirt has stock, received at the other school.
    exec(QStringLiteral(
        "INSERT INTO C_SCHOOLUNIFORM (COMPANY, SCHOOLCD, SEASON, SUDIVIDE, DIVIDE, UNIFORMSEQ, "
        "UNIFORMCOMSEQ, USEYN) VALUES ('01', '001', 'N', '1', 'B', '03', '', 'Y')"));
    exec(QStringLiteral(
        "INSERT INTO T_INBOUND (COMPANY, STORECD, INBOUNDDT, INBOUNDSEQ, SCHOOLCD, SUDIVIDE, "
        "UNIFORMCD, INYYYY, I01, INBOUNDGB) VALUES ('01', '01', '20240212', 1, '002', '1', "
        "'NB0301', '2023', 7, 'B')"));
    // The lists are filled at load: open the screen again.
    main->closeWithoutAsking();
    main.reset();
    screen = openByNumber<BAMAS330>(330);
    ASSERT_NE(screen, nullptr);
    grid = child<Spread>(screen, QStringLiteral("SP31"));
    choose(QStringLiteral("cboBrand"), 1);
    choose(QStringLiteral("cboStore"), 1);
    setYears(QStringLiteral("22"), QStringLiteral("24"));
    const auto lines = [this] {
        press("cmdViewSale1");
        QStringList found;
        for (int r = 1; r <= grid->maxRows(); ++r) {
            found << gfSpreadText(grid, r, 3) + QLatin1Char(' ') + gfSpreadText(grid, r, 5);
        }
        return found;
    };
    const QStringList both{QStringLiteral("공통 공통셔츠"), QStringLiteral("한빛중 동복자켓")};
    ASSERT_EQ(lines(), both);

    choose(QStringLiteral("cboGT23"), 2); // girls: neither
    EXPECT_TRUE(lines().isEmpty());
    choose(QStringLiteral("cboGT23"), 1);
    EXPECT_EQ(lines(), both);

    choose(QStringLiteral("cboGT28"), 2); // sub items: neither
    EXPECT_TRUE(lines().isEmpty());
    choose(QStringLiteral("cboGT28"), 1);
    EXPECT_EQ(lines(), both);

    // An item by its code without the common part: the shirt brings the common shirt.
    auto* item = child<QComboBox>(screen, QStringLiteral("cboUniform"));
    QStringList items;
    for (int i = 0; i < item->count(); ++i) {
        items << item->itemText(i);
    }
    item->setCurrentIndex(item->findText(QStringLiteral("동복셔츠"), Qt::MatchEndsWith));
    ASSERT_GT(item->currentIndex(), 0) << items.join(QLatin1Char('|')).toStdString();
    EXPECT_EQ(lines(), QStringList{QStringLiteral("공통 공통셔츠")});
    item->setCurrentIndex(item->findText(QStringLiteral("동복자켓"), Qt::MatchEndsWith));
    ASSERT_GT(item->currentIndex(), 0);
    EXPECT_EQ(lines(), QStringList{QStringLiteral("한빛중 동복자켓")});
    item->setCurrentIndex(0);

    // A school level other than 한빛중's hides its line; the common item stays.
    choose(QStringLiteral("cboGT25"), 2);
    EXPECT_EQ(lines(), QStringList{QStringLiteral("공통 공통셔츠")});
    choose(QStringLiteral("cboGT25"), 1);
    EXPECT_EQ(lines(), both);
}

TEST_F(Bamas330, theReportPrintsFromTheToolBarWithItsTitleAndHeadings) {
    press("cmdViewSale1");
    ASSERT_EQ(grid->maxRows(), 1);
    // The screen exports through its own button; the bar offers preview and print.
    MAINMDI* window = mainWindow();
    EXPECT_FALSE(window->toolButton(MAINMDI::TobToolBar2, 1)->isEnabled());
    EXPECT_TRUE(window->toolButton(MAINMDI::TobToolBar2, 2)->isEnabled());
    EXPECT_TRUE(window->toolButton(MAINMDI::TobToolBar2, 3)->isEnabled());
    EXPECT_TRUE(window->menuAction(QStringLiteral("mnuPrint"))->isEnabled());

    int previewPages = -1;
    QTimer::singleShot(0, [&previewPages] {
        auto* preview = qobject_cast<QPrintPreviewDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(preview, nullptr);
        previewPages = preview->findChild<QPrintPreviewWidget*>()->pageCount();
        preview->reject();
    });
    clickToolButton(window, QStringLiteral("Preview"));
    EXPECT_EQ(previewPages, 1);

    bool printerAsked = false;
    QTimer::singleShot(0, [&printerAsked] {
        auto* dialog = qobject_cast<QPrintDialog*>(QApplication::activeModalWidget());
        printerAsked = dialog != nullptr;
        if (dialog) {
            dialog->reject();
        }
    });
    clickToolButton(window, QStringLiteral("Print"));
    EXPECT_TRUE(printerAsked);

    // What the dialogs print, as a PDF: the title, the filters, the headings and the line.
    const Screen::ReportGrid report = screen->reportGrid();
    const QString path = dir.filePath(QStringLiteral("stock.pdf"));
    ASSERT_TRUE(
        printToPdf(GridPrinter(report.grid, report.title, report.subTitle, report.lastCol), path));
    EXPECT_EQ(pdfPageCount(path), 1);
    EXPECT_TRUE(pdfLandscape(path));
    const QString text = pdfPageText(path, 1).remove(QRegularExpression(QStringLiteral("[\\s\\x01]")));
    for (const char* expected : {"재고현황", "청운교복", "강남점", "조회일", "합계", "최종등록일",
                                 "한빛중", "동복자켓", "95", "-1"}) {
        EXPECT_TRUE(text.contains(QString::fromUtf8(expected))) << expected;
    }
}
