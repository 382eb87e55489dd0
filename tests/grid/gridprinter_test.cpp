// Reports on paper: read back from the PDF as a user's viewer would.
#include "reportfiles.h"

#include "grid/gridprinter.h"
#include "grid/spread.h"
#include "grid/spreadroutines.h"

#include <QPrinter>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <gtest/gtest.h>

TEST(GridPrinterTest, aLongReportRepeatsItsMergedHeadingsOnEveryPageAndLosesNoRow) {
    QTemporaryDir dir;
    Spread grid;
    fillStockLikeGrid(&grid, 150, 5);
    const GridPrinter report(&grid, QStringLiteral("재고현황"), QStringLiteral("브랜드 : 해오름"),
                             30);
    const QString path = dir.filePath(QStringLiteral("report.pdf"));
    ASSERT_TRUE(printToPdf(report, path));

    QPrinter printer(QPrinter::HighResolution);
    report.setUpPage(&printer);
    EXPECT_EQ(printer.pageLayout().orientation(), QPageLayout::Landscape);
    const int pages = pdfPageCount(path);
    EXPECT_EQ(pages, report.pageCount(&printer));
    // Landscape A4 with five heading rows holds some twenty rows a page, not all 150.
    EXPECT_GE(pages, 4);
    EXPECT_LE(pages, 10);
    EXPECT_TRUE(pdfLandscape(path));

    const QRegularExpression school(QStringLiteral("R(\\d{3})"));
    int next = 1;
    for (int page = 1; page <= pages; ++page) {
        // Phrases are compared without blanks: the blank glyph of the grid's font reads back as
        // U+0001 as often as a space.
        const QString raw = pdfPageText(path, page);
        const QString text = QString(raw).remove(QRegularExpression(QStringLiteral("[\\s\\x01]")));
        SCOPED_TRACE(page);
        // The title and sub-title lead the first page only.
        EXPECT_EQ(text.contains(QStringLiteral("재고현황")), page == 1);
        EXPECT_EQ(text.contains(QStringLiteral("브랜드:해오름")), page == 1);
        // The fixed headings stand once over their five merged heading rows, on every page; the
        // labels of every heading row are there.
        EXPECT_EQ(text.count(QStringLiteral("매장")), 1);
        EXPECT_EQ(text.count(QStringLiteral("합계")), 1);
        EXPECT_EQ(text.count(QStringLiteral("최종등록일")), 1);
        EXPECT_TRUE(raw.split(QLatin1Char('\n')).contains(QStringLiteral("204"))); // row 5's last
        // The store, merged down every data row, shows once on each page it continues on.
        EXPECT_EQ(text.count(QStringLiteral("강남점")), 1);
        EXPECT_TRUE(text.contains(QStringLiteral("-%1/%2-").arg(page).arg(pages)));
        // The rows follow on without a gap or a repeat.
        for (auto it = school.globalMatch(text); it.hasNext();) {
            EXPECT_EQ(it.next().captured(1).toInt(), next);
            ++next;
        }
    }
    EXPECT_EQ(next, 151);
}

TEST(GridPrinterTest, aNarrowListPrintsPortraitOnOnePageWithoutItsHiddenColumns) {
    QTemporaryDir dir;
    Spread grid;
    gsSpreadInit(&grid, QStringLiteral("굴림체"), 10, 18, 18, 0, 0xC0C0C0, 3, true, true);
    gsSpreadColumn(&grid, 1, QStringLiteral("코드"), SpreadStatic, 4);
    gsSpreadColumn(&grid, 2, QStringLiteral("브랜드"), SpreadStatic, 12);
    gsSpreadColumn(&grid, 3, QStringLiteral("숨김"), SpreadStatic, 0);
    grid.setMaxRows(3);
    for (int r = 1; r <= 3; ++r) {
        gsSpreadSetText(&grid, r, 1, QStringLiteral("0%1").arg(r));
        gsSpreadSetText(&grid, r, 2, QStringLiteral("브랜드%1").arg(r));
        gsSpreadSetText(&grid, r, 3, QStringLiteral("SECRET"));
    }
    const QString path = dir.filePath(QStringLiteral("list.pdf"));
    ASSERT_TRUE(printToPdf(GridPrinter(&grid, QStringLiteral("브랜드 관리")), path));
    EXPECT_EQ(pdfPageCount(path), 1);
    EXPECT_FALSE(pdfLandscape(path));
    const QString text =
        pdfPageText(path, 1).remove(QRegularExpression(QStringLiteral("[\\s\\x01]")));
    EXPECT_TRUE(text.contains(QStringLiteral("브랜드관리")));
    EXPECT_TRUE(text.contains(QStringLiteral("NO"))); // the row numbers print as they show
    EXPECT_TRUE(text.contains(QStringLiteral("브랜드3")));
    EXPECT_FALSE(text.contains(QStringLiteral("SECRET")));
    EXPECT_FALSE(text.contains(QStringLiteral("숨김")));
    EXPECT_TRUE(text.contains(QStringLiteral("-1/1-")));
}

TEST(GridPrinterTest, columnsTakeTheWidthOfTheirPrintedTextSoThatNothingIsCut) {
    QTemporaryDir dir;
    Spread grid;
    gsSpreadInit(&grid, QStringLiteral("굴림체"), 10, 18, 18, 0, 0xC0C0C0, 3, false, true);
    gsSpreadColumn(&grid, 1, QStringLiteral("학교"), SpreadStatic, 8);
    gsSpreadColumn(&grid, 2, QStringLiteral("합계"), SpreadStatic, 4);
    gsSpreadColumn(&grid, 3, QStringLiteral("출고처"), SpreadStatic, 10);
    grid.setMaxRows(2);
    gsSpreadSetText(&grid, 1, 1, QStringLiteral("한빛중학교부설"));
    gsSpreadSetText(&grid, 1, 2, QStringLiteral("12,345"));
    gsSpreadSetText(&grid, 2, 3, QStringLiteral("청운물류강남센터"));
    const QString path = dir.filePath(QStringLiteral("cut.pdf"));
    ASSERT_TRUE(printToPdf(GridPrinter(&grid, QStringLiteral("입고현황")), path));
    const QString text =
        pdfPageText(path, 1).remove(QRegularExpression(QStringLiteral("[\\s\\x01]")));
    EXPECT_TRUE(text.contains(QStringLiteral("한빛중학교부설"))) << text.toStdString();
    EXPECT_TRUE(text.contains(QStringLiteral("12,345"))) << text.toStdString();
    EXPECT_TRUE(text.contains(QStringLiteral("청운물류강남센터"))) << text.toStdString();
    EXPECT_FALSE(text.contains(QChar(0x2026))) << text.toStdString();
    EXPECT_FALSE(pdfLandscape(path)); // three columns still fit a portrait page
}
