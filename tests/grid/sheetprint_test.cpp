// Workbooks that print: the page set-up and the heading merges read back from the file.
#include "reportfiles.h"

#include "grid/excelexport.h"
#include "grid/spread.h"
#include "grid/workbook.h"

#include <QRegularExpression>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

QString sheet(const QString& path) {
    return zipMember(path, QStringLiteral("xl/worksheets/sheet1.xml"));
}

QString book(const QString& path) {
    return zipMember(path, QStringLiteral("xl/workbook.xml"));
}

} // namespace

TEST(SheetPrintTest, theStockReportSheetKeepsItsHeadingMergesAndPrintsOnePageWide) {
    QTemporaryDir dir;
    Spread grid;
    fillStockLikeGrid(&grid, 40, 5);
    const QString path = dir.filePath(QStringLiteral("stock.xlsx"));
    ASSERT_TRUE(writeGridWorkbook(path, QStringLiteral("시즌 : 동복   브랜드 : 해오름"), 30, &grid,
                                  QString(), QStringLiteral("20240315")));
    const QString xml = sheet(path);
    ASSERT_FALSE(xml.isEmpty());
    // Grid column 1 is hidden and keeps its letter A: store B, school C, total D; the heading
    // rows are sheet rows 3 to 7, the data rows 8 to 47.
    for (const char* merge : {"B3:B7", "C3:C7", "D3:D7", "AE3:AE7", "A1:AE1", "A2:AE2"}) {
        EXPECT_TRUE(
            xml.contains(QStringLiteral("<mergeCell ref=\"%1\"/>").arg(QString::fromLatin1(merge))))
            << merge;
    }
    // Written once, not once per heading row; the size labels of each row stand unmerged.
    EXPECT_EQ(xml.count(QStringLiteral(">매장<")), 1);
    EXPECT_EQ(xml.count(QStringLiteral(">최종등록일<")), 1);
    EXPECT_TRUE(xml.contains(QRegularExpression(QStringLiteral("<c r=\"AD7\"[^>]*><is><t>204<"))))
        << xml.left(3000).toStdString();
    EXPECT_FALSE(xml.contains(QStringLiteral("<mergeCell ref=\"F3")));

    // Landscape A4, one page wide and as many tall as it takes.
    EXPECT_TRUE(xml.contains(QStringLiteral("<pageSetUpPr fitToPage=\"1\"/>")));
    const QRegularExpressionMatch setup =
        QRegularExpression(QStringLiteral("<pageSetup [^>]*/>")).match(xml);
    ASSERT_TRUE(setup.hasMatch());
    EXPECT_TRUE(setup.captured().contains(QStringLiteral("paperSize=\"9\"")));
    EXPECT_TRUE(setup.captured().contains(QStringLiteral("orientation=\"landscape\"")));
    EXPECT_TRUE(setup.captured().contains(QStringLiteral("fitToHeight=\"0\"")));
    EXPECT_FALSE(setup.captured().contains(QStringLiteral("fitToWidth=\"0\"")));
    EXPECT_TRUE(xml.contains(QStringLiteral("&amp;P / &amp;N")));

    // The heading rows repeat on every page; the print area runs from the title to the last row.
    const QString names = book(path);
    EXPECT_TRUE(names.contains(QStringLiteral(
        "<definedName name=\"_xlnm.Print_Titles\" localSheetId=\"0\">Sheet1!$3:$7<")))
        << names.toStdString();
    EXPECT_TRUE(names.contains(QStringLiteral(
        "<definedName name=\"_xlnm.Print_Area\" localSheetId=\"0\">Sheet1!$A$1:$AE$47<")));

    // Negative quantities red through the number format.
    const QString styles = zipMember(path, QStringLiteral("xl/styles.xml"));
    EXPECT_TRUE(styles.contains(QStringLiteral("[Red]"))) << styles.toStdString();
    const QRegularExpressionMatch negative =
        QRegularExpression(QStringLiteral("<c r=\"F8\" s=\"(\\d+)\"[^>]*><v>-1</v>")).match(xml);
    EXPECT_TRUE(negative.hasMatch());
}

TEST(SheetPrintTest, aNarrowSheetStaysPortraitAndNamesCarryNoColonsOrRunsOfBlanks) {
    QTemporaryDir dir;
    Workbook workbook;
    workbook.setText(QStringLiteral("A1"), QStringLiteral("명세서"));
    workbook.setText(QStringLiteral("A3"), QStringLiteral("품목"));
    workbook.setText(QStringLiteral("C9"), QStringLiteral("합계"));
    workbook.setColumnWidth(QStringLiteral("A:C"), 12);
    workbook.setPrintTitles(QStringLiteral("3:4"));
    const QString path = dir.filePath(QStringLiteral("statement.xlsx"));
    ASSERT_TRUE(workbook.saveAs(path));
    const QString xml = sheet(path);
    EXPECT_TRUE(xml.contains(QStringLiteral("orientation=\"portrait\""))) << xml.toStdString();
    const QString names = book(path);
    EXPECT_TRUE(names.contains(QStringLiteral("Sheet1!$3:$4<")));
    EXPECT_TRUE(names.contains(QStringLiteral("Sheet1!$A$1:$C$9<")));

    EXPECT_EQ(reportFileName(QStringLiteral("시즌 :    브랜드 : 해오름   매장 : 강남점")),
              QStringLiteral("시즌 브랜드 해오름 매장 강남점"));
    EXPECT_EQ(reportFileName(QStringLiteral("a/b*c?\"d\"<e>|f\\g")),
              QStringLiteral("a b c d e f g"));
    EXPECT_EQ(reportFileName(QStringLiteral(" : ")), QStringLiteral("Report"));
}
