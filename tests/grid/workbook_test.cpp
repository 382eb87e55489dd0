#include "grid/workbook.h"

#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

QString part(const QString& path, const QString& name) {
    QProcess unzip;
    unzip.start(QStringLiteral("unzip"), {QStringLiteral("-p"), path, name});
    unzip.waitForFinished();
    return QString::fromUtf8(unzip.readAllStandardOutput());
}

} // namespace

TEST(WorkbookTest, buildsAStatementLayoutAndSavesIt) {
    QTemporaryDir dir;
    Workbook book;
    book.addSheet(QStringLiteral("명세"));
    book.setText(QStringLiteral("A1"), QStringLiteral("공동구매 명세서"));
    book.merge(QStringLiteral("A1:D1"));
    book.setAlignment(QStringLiteral("A1:D1"), QStringLiteral("M"));
    book.setFont(QStringLiteral("A1:D1"), QStringLiteral("돋움"), 16);
    book.setText(QStringLiteral("A3"), QStringLiteral("학교"));
    book.setText(QStringLiteral("B3"), QStringLiteral("한국중학교 전체 학생"));
    book.setNumber(QStringLiteral("C3"), 1234567);
    book.setNumberFormat(QStringLiteral("C"), QStringLiteral("#,##0"));
    book.setColumnWidth(QStringLiteral("D"), 0);
    book.autoFit(QStringLiteral("A:C"));
    EXPECT_EQ(book.text(QStringLiteral("B3")), QStringLiteral("한국중학교 전체 학생"));
    const QString path = dir.filePath(QStringLiteral("명세출력_(1).xlsx"));
    ASSERT_TRUE(book.saveAs(path));

    const QString sheet = part(path, QStringLiteral("xl/worksheets/sheet1.xml"));
    EXPECT_TRUE(sheet.contains(QStringLiteral("<mergeCell ref=\"A1:D1\"/>")));
    EXPECT_TRUE(sheet.contains(QStringLiteral("<v>1234567</v>")));
    EXPECT_TRUE(sheet.contains(QStringLiteral("<col min=\"2\" max=\"2\" width=\"22")))
        << "Korean letters count double: " << sheet.toStdString();
    EXPECT_TRUE(sheet.contains(QStringLiteral("hidden=\"1\"")));
    const QString styles = part(path, QStringLiteral("xl/styles.xml"));
    EXPECT_TRUE(styles.contains(QStringLiteral("#,##0")));
    EXPECT_TRUE(styles.contains(QStringLiteral("돋움")));
    EXPECT_TRUE(part(path, QStringLiteral("xl/workbook.xml")).contains(QStringLiteral("명세")));

    EXPECT_FALSE(book.saveAs(dir.filePath(QStringLiteral("no/such/folder/x.xlsx"))));
}
