#include "reportfiles.h"

#include "grid/spread.h"
#include "grid/spreadroutines.h"

#include <QProcess>
#include <QRegularExpression>

QString toolOutput(const QString& program, const QStringList& arguments) {
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForFinished(60000)) {
        return {};
    }
    return QString::fromUtf8(process.readAllStandardOutput());
}

QString pdfPageText(const QString& path, int page) {
    return toolOutput(QStringLiteral("pdftotext"),
                      {QStringLiteral("-f"), QString::number(page), QStringLiteral("-l"),
                       QString::number(page), path, QStringLiteral("-")});
}

namespace {

QString pdfInfo(const QString& path, const QString& key) {
    const QRegularExpression line(QLatin1Char('^') + key + QStringLiteral(":\\s*(.*)$"),
                                  QRegularExpression::MultilineOption);
    return line.match(toolOutput(QStringLiteral("pdfinfo"), {path})).captured(1).trimmed();
}

} // namespace

int pdfPageCount(const QString& path) {
    return pdfInfo(path, QStringLiteral("Pages")).toInt();
}

bool pdfLandscape(const QString& path) {
    const QRegularExpressionMatch size = QRegularExpression(QStringLiteral("([0-9.]+) x ([0-9.]+)"))
                                             .match(pdfInfo(path, QStringLiteral("Page size")));
    return size.hasMatch() && size.captured(1).toDouble() > size.captured(2).toDouble();
}

QString zipMember(const QString& path, const QString& member) {
    return toolOutput(QStringLiteral("unzip"), {QStringLiteral("-p"), path, member});
}

void fillStockLikeGrid(Spread* grid, int rows, int headRows) {
    gsSpreadInit(grid, QStringLiteral("굴림체"), 10, 18, 18, 0, 0xC0C0C0, 3, false, true, headRows);
    gsSpreadColumn(grid, 1, QStringLiteral(" "), SpreadStatic, 0);
    gsSpreadColumn(grid, 2, QStringLiteral("매장"), SpreadStatic, 10);
    gsSpreadColumn(grid, 3, QStringLiteral("학교"), SpreadStatic, 10);
    gsSpreadColumn(grid, 4, QStringLiteral("합계"), SpreadStatic, 6, 0, QStringLiteral("R"));
    gsSpreadColumn(grid, 5, QString(), SpreadStatic, 4, 0, QStringLiteral("M"));
    for (int n = 1; n <= 24; ++n) {
        gsSpreadColumn(grid, 5 + n, QString(), SpreadStatic, 4, 0, QStringLiteral("R"));
    }
    gsSpreadColumn(grid, 30, QStringLiteral("최종등록일"), SpreadStatic, 12, 0,
                   QStringLiteral("M"));
    const QStringList fixed{QStringLiteral(" "), QStringLiteral("매장"), QStringLiteral("학교"),
                            QStringLiteral("합계")};
    const QString tables = QStringLiteral("JXJPT");
    for (int h = 0; h < headRows; ++h) {
        const int row = gfHeadRow(h);
        for (int c = 0; c < fixed.size(); ++c) {
            gsSpreadSetText(grid, row, c + 1, fixed.at(c));
        }
        gsSpreadSetText(grid, row, 5, QString(tables.at(h % tables.size())));
        for (int n = 1; n <= 24; ++n) {
            gsSpreadSetText(grid, row, 5 + n, QString::number(80 + 5 * n + h));
        }
        gsSpreadSetText(grid, row, 30, QStringLiteral("최종등록일"));
    }
    gsSpreadHeaderColMerge(grid, 1, 4);
    gsSpreadHeaderColMerge(grid, 30, 30);
    grid->setMaxRows(rows);
    for (int r = 1; r <= rows; ++r) {
        gsSpreadSetText(grid, r, 2, QStringLiteral("강남점"));
        gsSpreadSetText(grid, r, 3, QStringLiteral("R%1").arg(r, 3, 10, QLatin1Char('0')));
        gsSpreadSetText(grid, r, 4, QString::number(r), 255);
        gsSpreadSetText(grid, r, 6, QString::number(-r), 255);
        gsSpreadSetText(grid, r, 30, QStringLiteral("2024"));
    }
    gsSpreadColMerge(grid, 2, 2);
}
