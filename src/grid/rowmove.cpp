#include "grid/rowmove.h"

#include "grid/spread.h"

#include <QStringList>

#include <vector>

namespace {

// A row's cells 1 to MaxCols by stored value: the copy needs no formatting round trip.
QStringList rowValues(const SpreadModel* m, int row) {
    QStringList cells;
    for (int col = 1; col <= m->maxCols(); ++col) {
        cells << m->raw(row, col);
    }
    return cells;
}

void writeRow(SpreadModel* m, int row, const QStringList& cells) {
    for (int col = 1; col <= m->maxCols() && col <= cells.size(); ++col) {
        m->setValue(row, col, cells.at(col - 1));
    }
}

} // namespace

int gfSpreadFilledRows(Spread* grid, int keyCol) {
    const SpreadModel* m = grid->model();
    for (int row = m->maxRows(); row >= 1; --row) {
        if (!m->raw(row, keyCol).trimmed().isEmpty()) {
            return row;
        }
    }
    return 0;
}

int gsSpreadMoveMarked(Spread* from, Spread* to, int markCol, int keyCol, const QString& mark,
                       int minRows) {
    SpreadModel* source = from->model();
    const int filled = gfSpreadFilledRows(from, keyCol);
    std::vector<QStringList> kept;
    std::vector<QStringList> moved;
    for (int row = 1; row <= filled; ++row) {
        const bool take = !source->raw(row, keyCol).trimmed().isEmpty() &&
                          source->value(row, markCol).trimmed() == mark;
        (take ? moved : kept).push_back(rowValues(source, row));
    }
    if (moved.empty()) {
        return 0;
    }
    from->setRedraw(false);
    to->setRedraw(false);
    // The source is written anew without the moved rows: the same as removing them bottom up.
    from->setMaxRows(0);
    from->setMaxRows(qMax(int(kept.size()), minRows));
    for (size_t i = 0; i < kept.size(); ++i) {
        writeRow(source, int(i) + 1, kept[i]);
    }
    SpreadModel* target = to->model();
    int at = gfSpreadFilledRows(to, keyCol);
    to->setMaxRows(qMax(at + int(moved.size()), qMax(minRows, to->maxRows())));
    for (const QStringList& cells : moved) {
        ++at;
        for (int col = 1; col <= target->maxCols(); ++col) {
            target->setValue(at, col, QString()); // a row below the filled ones may hold a mark
        }
        writeRow(target, at, cells);
    }
    from->setRedraw(true);
    to->setRedraw(true);
    return int(moved.size());
}

void gsSpreadCheckAll(Spread* grid, int checkCol, int keyCol) {
    SpreadModel* m = grid->model();
    const int filled = gfSpreadFilledRows(grid, keyCol);
    if (filled < 1) {
        return;
    }
    const QString next =
        m->value(1, checkCol) == QLatin1String("1") ? QStringLiteral("0") : QStringLiteral("1");
    for (int row = 1; row <= filled; ++row) {
        m->setValue(row, checkCol, next);
    }
}

void gsSpreadCheckAllOnHeading(Spread* grid, int checkCol, int keyCol) {
    QObject::connect(grid, &Spread::doubleClicked, grid, [=](int row, int col) {
        if (row < 1 && col == checkCol) {
            gsSpreadCheckAll(grid, checkCol, keyCol);
        }
    });
}
