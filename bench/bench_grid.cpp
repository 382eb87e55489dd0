// Grid fill through gsSpreadSetText, the filled grid's memory, and the workbook export against a
// bare libxlsxwriter loop over the same cells.
#include "benchsupport.h"

#include "grid/excelexport.h"
#include "grid/spreadroutines.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>

#include <xlsxwriter.h>

#include <vector>

namespace {

constexpr int kRows = 100000;
constexpr int kCols = 33;

double residentMb() {
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly)) {
        return 0;
    }
    for (const QByteArray& line : status.readAll().split('\n')) {
        if (line.startsWith("VmRSS:")) {
            return line.mid(6).trimmed().split(' ').value(0).toDouble() / 1024.0;
        }
    }
    return 0;
}

// A list as a select would hand it over: codes, Korean names, amounts, dates.
std::vector<QString> makeRows() {
    std::vector<QString> cells;
    cells.reserve(size_t(kRows) * kCols);
    const QString names[] = {QStringLiteral("동복 자켓"), QStringLiteral("하복 블라우스"),
                             QStringLiteral("체육복 바지"), QStringLiteral("넥타이")};
    for (int r = 0; r < kRows; ++r) {
        for (int c = 0; c < kCols; ++c) {
            switch (c % 4) {
            case 0:
                cells.push_back(QString::number(100000 + r));
                break;
            case 1:
                cells.push_back(names[(r + c) % 4] + QString::number(c));
                break;
            case 2:
                cells.push_back(QString::number((r * 37 + c) % 20000 - 500));
                break;
            default:
                cells.push_back(QString::number((r + c) % 3));
            }
        }
    }
    return cells;
}

double bareLoopSeconds(Spread* grid, const QString& path) {
    QElapsedTimer clock;
    clock.start();
    lxw_workbook_options options = {};
    options.constant_memory = LXW_TRUE;
    lxw_workbook* book = workbook_new_opt(QFile::encodeName(path).constData(), &options);
    lxw_worksheet* sheet = workbook_add_worksheet(book, nullptr);
    SpreadModel* m = grid->model();
    for (int r = 1; r <= grid->maxRows(); ++r) {
        for (int c = 1; c <= grid->maxCols(); ++c) {
            const QByteArray text = m->text(r, c).toUtf8();
            worksheet_write_string(sheet, lxw_row_t(r + 2), lxw_col_t(c), text.constData(),
                                   nullptr);
        }
    }
    workbook_close(book);
    return clock.nsecsElapsed() / 1e9;
}

} // namespace

int main(int argc, char** argv) {
    qputenv("TORVIX_NO_OPEN", "1");
    QApplication app(argc, argv);
    openBenchSession(QStringLiteral("grid"));

    Spread grid;
    gsSpreadInit(&grid, QStringLiteral("굴림체"), 10, 18, 18, 3, 0xC0C0C0, 3, true, false, 1);
    for (int c = 1; c <= kCols; ++c) {
        gsSpreadColumn(&grid, c, QStringLiteral("열%1").arg(c), SpreadEdit, 8);
    }

    const double before = residentMb();
    std::vector<QString> source = makeRows();
    QElapsedTimer clock;
    clock.start();
    grid.setRedraw(false);
    grid.setMaxRows(0);
    for (int r = 1; r <= kRows; ++r) {
        grid.setMaxRows(r);
        const QString* row = &source[size_t(r - 1) * kCols];
        for (int c = 1; c <= kCols; ++c) {
            gsSpreadSetText(&grid, r, c, row[c - 1], kSpreadRed, QString(), QStringLiteral("N"));
        }
    }
    grid.setRedraw(true);
    const double fillSeconds = clock.nsecsElapsed() / 1e9;
    report("grid_fill_cells_per_s", double(kRows) * kCols / fillSeconds, "cells/s");
    source.clear();
    source.shrink_to_fit();
    report("grid_memory_mb", residentMb() - before, "MB");

    const QString bare = QDir::temp().filePath(QStringLiteral("torvix_bare_export.xlsx"));
    const double bareSeconds = bareLoopSeconds(&grid, bare);
    clock.restart();
    const QString written = gsExcelExport(QStringLiteral("벤치"), grid.maxCols(), &grid);
    const double exportSeconds = clock.nsecsElapsed() / 1e9;
    report("export_ratio", exportSeconds / bareSeconds, "x");
    QFile::remove(bare);
    QFile::remove(written);
    return written.isEmpty() ? 1 : 0;
}
