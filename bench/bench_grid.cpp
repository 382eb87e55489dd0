// Grid fill through gsSpreadSetText, alone and against a bare table model on the same texts, the
// filled grid's memory, and the workbook export against a bare libxlsxwriter loop over the same
// cells.
#include "benchsupport.h"

#include "grid/excelexport.h"
#include "grid/spreadroutines.h"

#include <QAbstractTableModel>
#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTableView>

#include <xlsxwriter.h>

#include <malloc.h>
#include <time.h>
#include <vector>

namespace {

constexpr int kRows = 100000;
constexpr int kCols = 33;
// Both grids are shown at this size while they fill, as a screen's list is.
constexpr int kViewWidth = 1200;
constexpr int kViewHeight = 700;

// Freed blocks go back to the system first, so that only what is still held counts.
double residentMb() {
    malloc_trim(0);
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

// The floor a grid is measured against: texts in a list, shown as they are.
class BareModel : public QAbstractTableModel {
public:
    int rowCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() ? 0 : int(m_cells.size() / kCols);
    }
    int columnCount(const QModelIndex& parent = {}) const override {
        return parent.isValid() ? 0 : kCols;
    }
    QVariant data(const QModelIndex& index, int role) const override {
        if (role != Qt::DisplayRole || !index.isValid()) {
            return {};
        }
        return m_cells.at(qsizetype(index.row()) * kCols + index.column());
    }
    void fill(const std::vector<QString>& source) {
        beginResetModel();
        m_cells.clear();
        m_cells.reserve(qsizetype(source.size()));
        for (const QString& text : source) {
            m_cells.append(text);
        }
        endResetModel();
    }

private:
    QList<QString> m_cells;
};

// The ratio compares the work of the two grids, so it is taken in CPU time of the window thread
// (where both fill and paint): on a machine shared with other jobs the wall clock also counts
// the time the neighbours ran.
double threadSeconds() {
    timespec t{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &t);
    return double(t.tv_sec) + double(t.tv_nsec) / 1e9;
}

void paintNow(QAbstractItemView* view) {
    QApplication::processEvents();
    view->viewport()->repaint();
}

double bareFillSeconds(const std::vector<QString>& source) {
    BareModel model;
    QTableView view;
    view.resize(kViewWidth, kViewHeight);
    view.setModel(&model);
    view.show();
    paintNow(&view);
    const double start = threadSeconds();
    model.fill(source);
    paintNow(&view);
    return threadSeconds() - start;
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

    // The texts are made before and freed after the grid's fill, so that the difference is what
    // the grid holds of them; the bare model is gone before it is taken.
    const double before = residentMb();
    std::vector<QString> source = makeRows();
    const double bareSeconds = bareFillSeconds(source);

    Spread grid;
    grid.resize(kViewWidth, kViewHeight);
    gsSpreadInit(&grid, QStringLiteral("굴림체"), 10, 18, 18, 3, 0xC0C0C0, 3, true, false, 1);
    for (int c = 1; c <= kCols; ++c) {
        gsSpreadColumn(&grid, c, QStringLiteral("열%1").arg(c), SpreadEdit, 8);
    }

    grid.show();
    paintNow(grid.view());
    QElapsedTimer clock;
    clock.start();
    const double start = threadSeconds();
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
    paintNow(grid.view());
    const double shownSeconds = threadSeconds() - start;
    report("grid_fill_cells_per_s", double(kRows) * kCols / fillSeconds, "cells/s");
    // Cells a second of the grid over those of the bare model, both filled and shown.
    report("grid_fill_ratio", bareSeconds / shownSeconds, "x");
    source.clear();
    source.shrink_to_fit();
    report("grid_memory_mb", residentMb() - before, "MB");

    const QString bare = QDir::temp().filePath(QStringLiteral("torvix_bare_export.xlsx"));
    const double bareExportSeconds = bareLoopSeconds(&grid, bare);
    clock.restart();
    const QString written = gsExcelExport(QStringLiteral("벤치"), grid.maxCols(), &grid);
    const double exportSeconds = clock.nsecsElapsed() / 1e9;
    report("export_ratio", exportSeconds / bareExportSeconds, "x");
    QFile::remove(bare);
    QFile::remove(written);
    return written.isEmpty() ? 1 : 0;
}
