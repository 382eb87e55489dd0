#include "testdb.h"

#include "grid/excelexport.h"
#include "grid/spreadroutines.h"

#include <QDir>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <gtest/gtest.h>

TEST(ExcelColNameTest, keepsTheShiftFromColumn26On) {
    EXPECT_EQ(gsExcelColName(1), QStringLiteral("A"));
    EXPECT_EQ(gsExcelColName(25), QStringLiteral("Y"));
    EXPECT_EQ(gsExcelColName(26), QStringLiteral("AA"));
    EXPECT_EQ(gsExcelColName(27), QStringLiteral("AB"));
    EXPECT_EQ(gsExcelColName(51), QStringLiteral("AZ"));
    EXPECT_EQ(gsExcelColName(52), QStringLiteral("BA"));
    EXPECT_EQ(excelColumnIndex(QStringLiteral("AA")), 26);
}

namespace {

QString sheetXml(const QString& path) {
    QProcess unzip;
    unzip.start(QStringLiteral("unzip"),
                {QStringLiteral("-p"), path, QStringLiteral("xl/worksheets/sheet1.xml")});
    unzip.waitForFinished();
    return QString::fromUtf8(unzip.readAllStandardOutput());
}

void fillGrid(Spread* sp) {
    gsSpreadInit(sp, QStringLiteral("굴림체"), 10, 18, 18, 0, 0xC0C0C0, 3, false, false, 2);
    gsSpreadColumn(sp, 1, QStringLiteral("학교"), SpreadEdit, 12);
    gsSpreadColumn(sp, 1, QStringLiteral("이름"), SpreadEdit, 12, 0, QStringLiteral("L"), 1);
    gsSpreadColumn(sp, 2, QStringLiteral("코드"), SpreadEdit, 0); // hidden
    gsSpreadColumn(sp, 3, QStringLiteral("금액\r\n(원)"), SpreadFloat, 10);
    gsSpreadColumn(sp, 4, QStringLiteral("일자"), SpreadDate, 10);
    gsSpreadColumn(sp, 5, QStringLiteral("잔액"), SpreadFloat, 10);
    gsSpreadColumn(sp, 26, QStringLiteral("끝"), SpreadEdit, 5);
    sp->setMaxRows(2);
    gsSpreadSetText(sp, 1, 1, QStringLiteral("한국고"));
    gsSpreadSetText(sp, 1, 2, QStringLiteral("S001"));
    gsSpreadSetValue(sp, 1, 3, QStringLiteral("15000"));
    gsSpreadSetText(sp, 1, 4, QStringLiteral("20240315"));
    gsSpreadSetValue(sp, 1, 5, QStringLiteral("0"));
    gsSpreadSetValue(sp, 2, 5, QStringLiteral("5000"));
    gsSpreadSetText(sp, 2, 1, QStringLiteral("001"));
    gsSpreadSetText(sp, 2, 26, QStringLiteral("z"));
}

} // namespace

TEST(ExcelExportTest, writesTheSheetLayoutColumnFormatsAndHiddenColumns) {
    QTemporaryDir dir;
    Spread grid;
    fillGrid(&grid);
    const QString path = dir.filePath(QStringLiteral("out.xlsx"));
    ASSERT_TRUE(writeGridWorkbook(path, QStringLiteral("매장 현황"), 26, &grid,
                                  QStringLiteral("부제"), QStringLiteral("20240315")));
    const QString xml = sheetXml(path);
    ASSERT_FALSE(xml.isEmpty());
    // Title and date rows merged over A to the letter of column 26, which is AA.
    EXPECT_TRUE(xml.contains(QStringLiteral("<mergeCell ref=\"A1:AA1\"/>"))) << xml.toStdString();
    EXPECT_TRUE(xml.contains(QStringLiteral("<mergeCell ref=\"A2:AA2\"/>")));
    EXPECT_TRUE(xml.contains(QStringLiteral("매장 현황")));
    EXPECT_TRUE(xml.contains(QStringLiteral("2024-03-15") + QString(19, QLatin1Char(' ')) +
                             QStringLiteral("부제")));
    // Headings in rows 3 and 4, the line break kept; data from row 5.
    EXPECT_TRUE(xml.contains(QStringLiteral("금액\n(원)")));
    EXPECT_TRUE(xml.contains(QStringLiteral("<c r=\"A4\"")));
    EXPECT_TRUE(xml.contains(QStringLiteral("<c r=\"C5\"")));
    EXPECT_TRUE(xml.contains(QStringLiteral("<c r=\"AA6\"")));
    // The hidden column B holds nothing and has width 0; the code 001 stays text.
    EXPECT_FALSE(xml.contains(QRegularExpression(QStringLiteral("<c r=\"B([3-9]|1[0-9])"))));
    EXPECT_FALSE(xml.contains(QStringLiteral("S001")));
    EXPECT_TRUE(xml.contains(QStringLiteral("<col min=\"2\" max=\"2\" width=\"0\"")));
    EXPECT_TRUE(xml.contains(QStringLiteral(">001<")));
    EXPECT_FALSE(xml.contains(QRegularExpression(QStringLiteral("<c r=\"Z([3-9]|1[0-9])"))));

    QProcess unzip;
    unzip.start(QStringLiteral("unzip"),
                {QStringLiteral("-p"), path, QStringLiteral("xl/styles.xml")});
    unzip.waitForFinished();
    const QString styles = QString::fromUtf8(unzip.readAllStandardOutput());
    EXPECT_TRUE(styles.contains(QStringLiteral("#,##0_ ")));
    EXPECT_TRUE(
        styles.contains(QStringLiteral("yyyy&quot;-&quot;mm&quot;-&quot;dd&quot;&quot;;@")));
    EXPECT_TRUE(styles.contains(QStringLiteral("돋움")));
}

namespace {

QString zipEntry(const QString& path, const char* entry) {
    QProcess unzip;
    unzip.start(QStringLiteral("unzip"), {QStringLiteral("-p"), path, QString::fromLatin1(entry)});
    unzip.waitForFinished();
    return QString::fromUtf8(unzip.readAllStandardOutput());
}

// The number format of a cell's style: "" for none.
QString cellFormat(const QString& path, const QString& cell) {
    const QString sheet = zipEntry(path, "xl/worksheets/sheet1.xml");
    const QString styles = zipEntry(path, "xl/styles.xml");
    const auto found =
        QRegularExpression(QStringLiteral("<c r=\"") + cell + QStringLiteral("\"( s=\"(\\d+)\")?"))
            .match(sheet);
    if (!found.hasMatch() || found.captured(2).isEmpty()) {
        return {};
    }
    // The cell's entry among cellXfs, then its numFmt.
    const QString xfs =
        styles.section(QStringLiteral("<cellXfs"), 1).section(QStringLiteral("</cellXfs>"), 0, 0);
    const QStringList entries = xfs.split(QStringLiteral("<xf "));
    const QString xf = entries.value(found.captured(2).toInt() + 1);
    const QString id =
        QRegularExpression(QStringLiteral("numFmtId=\"(\\d+)\"")).match(xf).captured(1);
    if (id.isEmpty() || id == QLatin1String("0")) {
        return {};
    }
    const auto code = QRegularExpression(QStringLiteral("<numFmt numFmtId=\"") + id +
                                         QStringLiteral("\" formatCode=\"([^\"]*)\""))
                          .match(styles);
    return code.captured(1).replace(QStringLiteral("&quot;"), QStringLiteral("\""));
}

} // namespace

TEST(ExcelExportTest, numberFormatsComeFromTheFirstRowAndOneColumnExports) {
    QTemporaryDir dir;
    Spread grid;
    gsSpreadInit(&grid, QStringLiteral("굴림체"), 10, 18, 18, 0, 0xC0C0C0, 3, false, false);
    gsSpreadColumn(&grid, 1, QStringLiteral("단가"), SpreadFloat, 10, 0, QStringLiteral("R"), 0, 0,
                   false, 99999999, -99999999, 2);
    gsSpreadColumn(&grid, 2, QStringLiteral("수량"), SpreadFloat, 10);
    gsSpreadColumn(&grid, 3, QStringLiteral("잔액"), SpreadFloat, 10);
    grid.setMaxRows(2);
    gsSpreadSetValue(&grid, 1, 1, QStringLiteral("1250.5"));
    gsSpreadSetValue(&grid, 1, 2, QStringLiteral("3"));
    gsSpreadSetValue(&grid, 1, 3, QStringLiteral("0")); // the first row decides: no format
    gsSpreadSetValue(&grid, 2, 3, QStringLiteral("5000"));
    const QString path = dir.filePath(QStringLiteral("formats.xlsx"));
    ASSERT_TRUE(
        writeGridWorkbook(path, QStringLiteral("단가"), 3, &grid, {}, QStringLiteral("20240315")));
    // The positive section is the column's format; negatives get a red section of their own.
    EXPECT_EQ(cellFormat(path, QStringLiteral("A4")),
              QStringLiteral("#,##0.00_ ;[Red]\\-#,##0.00\\ "));
    EXPECT_EQ(cellFormat(path, QStringLiteral("B4")), QStringLiteral("#,##0_ ;[Red]\\-#,##0\\ "));
    EXPECT_EQ(cellFormat(path, QStringLiteral("C4")), QString());
    EXPECT_FALSE(cellFormat(path, QStringLiteral("C5")).startsWith(QStringLiteral("#,##0_ ")));

    // A grid of one column: nothing to merge, the file is whole.
    const QString single = dir.filePath(QStringLiteral("single.xlsx"));
    ASSERT_TRUE(writeGridWorkbook(single, QStringLiteral("단가"), 1, &grid, {},
                                  QStringLiteral("20240315")));
    const QString xml = zipEntry(single, "xl/worksheets/sheet1.xml");
    EXPECT_FALSE(xml.contains(QStringLiteral("mergeCell")));
    EXPECT_TRUE(xml.contains(QStringLiteral("<c r=\"A4\"")));
}

class ExcelExportDbTest : public TestDb {
protected:
    void TearDown() override {
        setDesktopOpener({});
        TestDb::TearDown();
    }
};

TEST_F(ExcelExportDbTest, exportsIntoTheReportFolderAndNothingForAnEmptyGrid) {
    qputenv("TORVIX_NO_OPEN", "1");
    Spread grid;
    fillGrid(&grid);
    const QString path = gsExcelExport(QStringLiteral("매장/현황"), grid.maxCols(), &grid);
    ASSERT_FALSE(path.isEmpty());
    EXPECT_TRUE(path.startsWith(dir.path() + QStringLiteral("/Report/매장 현황_")));
    EXPECT_TRUE(QFile::exists(path));
    EXPECT_TRUE(presenter->boxes.isEmpty());

    grid.setMaxRows(0);
    EXPECT_TRUE(gsExcelExport(QStringLiteral("빈"), grid.maxCols(), &grid).isEmpty());
    EXPECT_TRUE(presenter->boxes.isEmpty());
}

TEST_F(ExcelExportDbTest, aFailureShowsThePlainBoxAndLogsNothing) {
    Spread grid;
    fillGrid(&grid);
    // A file where the folder should be.
    QDir(dir.filePath(QStringLiteral("Report"))).removeRecursively();
    QFile blocker(dir.filePath(QStringLiteral("Report")));
    ASSERT_TRUE(blocker.open(QIODevice::WriteOnly));
    blocker.close();
    EXPECT_TRUE(gsExcelExport(QStringLiteral("x"), grid.maxCols(), &grid).isEmpty());
    ASSERT_EQ(presenter->boxes.size(), 1);
    EXPECT_EQ(presenter->boxes[0].title, QStringLiteral("엑셀생성에러"));
    EXPECT_EQ(presenter->boxes[0].text, QStringLiteral("엑셀화일 생성시 오류"));
    EXPECT_EQ(count(QStringLiteral("C_ERROR")), 0);
}

TEST_F(ExcelExportDbTest, aFailedExportLeavesNoFileAndWithoutAProgramTheFolderIsOffered) {
    Spread grid;
    fillGrid(&grid);
    gsSpreadSetText(&grid, 2, 1, QString(40000, QLatin1Char('x'))); // beyond a cell's limit
    EXPECT_TRUE(gsExcelExport(QStringLiteral("긴칸"), grid.maxCols(), &grid).isEmpty());
    ASSERT_EQ(presenter->boxes.size(), 1);
    EXPECT_EQ(presenter->boxes[0].text, QStringLiteral("엑셀화일 생성시 오류"));
    EXPECT_TRUE(QDir(dir.filePath(QStringLiteral("Report"))).entryList(QDir::Files).isEmpty());

    // No program for workbooks: where the file is, and its folder on Yes.
    presenter->boxes.clear();
    QStringList opened;
    setDesktopOpener([&opened](const QString& path) {
        opened << path;
        return !path.endsWith(QStringLiteral(".xlsx"));
    });
    gsSpreadSetText(&grid, 2, 1, QStringLiteral("001"));
    const QString path = gsExcelExport(QStringLiteral("매장"), grid.maxCols(), &grid);
    ASSERT_FALSE(path.isEmpty());
    ASSERT_EQ(presenter->boxes.size(), 1);
    EXPECT_TRUE(presenter->boxes[0].text.contains(QDir::toNativeSeparators(path)));
    EXPECT_EQ(opened, (QStringList{path, dir.filePath(QStringLiteral("Report"))}));
}
