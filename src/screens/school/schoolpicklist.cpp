#include "screens/school/schoolpicklist.h"

#include "data/recordset.h"
#include "grid/spread.h"

#include <QList>

using namespace Qt::StringLiterals;

namespace {

const QString kCheck = u"CHK"_s;
const QString kCode = u"SCHOOLCD"_s;

bool filled(const Spread* grid, const GridColumns& columns, int row) {
    return !columns.value(grid, row, kCode).trimmed().isEmpty();
}

int lastFilled(const Spread* grid, const GridColumns& columns) {
    int last = 0;
    for (int row = 1; row <= grid->maxRows(); ++row) {
        if (filled(grid, columns, row)) {
            last = row;
        }
    }
    return last;
}

void pad(Spread* grid) {
    if (grid->maxRows() < kSchoolPickRows) {
        grid->setMaxRows(kSchoolPickRows);
    }
}

} // namespace

GridColumns schoolPickColumns(const QString& checkHeading, double divideWidth, double nameWidth) {
    return GridColumns{
        {kCheck, checkHeading, CellType::Check, 4, Align::Centre},
        {kCode, u"코드"_s, CellType::Static, 0, Align::Centre},
        {u"SCHOOLLEVEL"_s, u"등급"_s, CellType::Static, 5, Align::Centre},
        {u"DIVIDE"_s, u"구분"_s, CellType::Static, divideWidth, Align::Centre},
        {u"SCHOOLNAME"_s, u"학교명"_s, CellType::Static, nameWidth, Align::Left},
    };
}

void fillSchoolPick(Spread* grid, const GridColumns& columns, const RecordSet& rs) {
    columns.fill(grid, rs);
    pad(grid);
}

int moveCheckedSchools(Spread* from, Spread* to, const GridColumns& columns) {
    QList<QStringList> moved;
    QList<QStringList> kept;
    for (int row = 1; row <= from->maxRows(); ++row) {
        if (!filled(from, columns, row)) {
            continue;
        }
        QStringList values;
        for (int col = 1; col <= columns.count(); ++col) {
            values.append(from->model()->value(row, col));
        }
        (columns.value(from, row, kCheck) == u"1"_s ? moved : kept).append(values);
    }
    if (moved.isEmpty()) {
        return 0;
    }
    const auto write = [&columns](Spread* grid, int row, const QStringList& values) {
        for (int col = 1; col <= columns.count(); ++col) {
            grid->model()->setValue(row, col, values.at(col - 1));
        }
        columns.setValue(grid, row, kCheck, u"0"_s);
    };
    from->setMaxRows(0);
    from->setMaxRows(int(kept.size()));
    for (int i = 0; i < kept.size(); ++i) {
        write(from, i + 1, kept.at(i));
    }
    pad(from);
    int row = lastFilled(to, columns);
    to->setMaxRows(qMax(to->maxRows(), row + int(moved.size())));
    for (const QStringList& values : moved) {
        write(to, ++row, values);
    }
    pad(to);
    return int(moved.size());
}

QStringList pickedSchoolCodes(const Spread* grid, const GridColumns& columns) {
    QStringList codes;
    for (int row = 1; row <= grid->maxRows(); ++row) {
        if (filled(grid, columns, row)) {
            codes.append(columns.value(grid, row, kCode).trimmed());
        }
    }
    return codes;
}

void checkAllOnHeadingDoubleClick(Spread* grid, const GridColumns& columns) {
    QObject::connect(grid, &Spread::doubleClicked, grid, [grid, &columns](int row, int col) {
        if (row >= 0 || col != columns.column(kCheck)) {
            return;
        }
        bool all = true;
        for (int r = 1; r <= grid->maxRows(); ++r) {
            if (filled(grid, columns, r) && columns.value(grid, r, kCheck) != u"1"_s) {
                all = false;
            }
        }
        for (int r = 1; r <= grid->maxRows(); ++r) {
            if (filled(grid, columns, r)) {
                columns.setValue(grid, r, kCheck, all ? u"0"_s : u"1"_s);
            }
        }
    });
}
