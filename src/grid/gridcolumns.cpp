#include "grid/gridcolumns.h"

#include "data/recordset.h"
#include "data/schema/schema.h"
#include "grid/numerictext.h"
#include "grid/spread.h"
#include "grid/spreadroutines.h"

namespace {

QString alignLetter(Align align) {
    switch (align) {
    case Align::Centre:
        return QStringLiteral("M");
    case Align::Right:
        return QStringLiteral("R");
    case Align::Left:
        break;
    }
    return QStringLiteral("L");
}

} // namespace

GridColumns::GridColumns(std::initializer_list<GridColumn> columns) : m_columns(columns) {}

GridColumns::GridColumns(std::vector<GridColumn> columns) : m_columns(std::move(columns)) {}

GridColumns::GridColumns(std::vector<GridColumn> columns, const QString& table)
    : m_columns(std::move(columns)) {
    for (GridColumn& c : m_columns) {
        if (c.type == CellType::Edit && c.bytes == 0 && !c.field.isEmpty()) {
            c.bytes = textColumnBytes(table, c.field);
        }
    }
}

int GridColumns::column(const QString& field) const {
    for (size_t i = 0; i < m_columns.size(); ++i) {
        if (!field.isEmpty() && m_columns[i].field.compare(field, Qt::CaseInsensitive) == 0) {
            return int(i) + 1;
        }
    }
    return 0;
}

void GridColumns::setUp(Spread* grid) const {
    for (int col = 1; col <= count(); ++col) {
        const GridColumn& c = at(col);
        gsSpreadColumn(grid, col, c.heading, int(c.type), c.width, 0, alignLetter(c.align), 0, 0,
                       false, 99999999999.0, -99999999999.0, c.decimals);
        if (!c.codes.names.isEmpty() || c.bytes > 0) {
            SpreadModel* m = grid->model();
            SpreadFormat f = m->columnFormat(col);
            f.codeNames = c.codes.names;
            f.otherName = c.codes.other;
            f.maxBytes = c.bytes;
            m->setColumnFormat(col, f);
        }
    }
}

std::vector<int> GridColumns::sourceFields(const RecordSet& rs) const {
    std::vector<int> from;
    from.reserve(m_columns.size());
    for (const GridColumn& c : m_columns) {
        from.push_back(c.field.isEmpty() ? -1 : rs.fieldIndex(c.field));
    }
    return from;
}

void GridColumns::writeRow(Spread* grid, int row, const RecordSet& rs, qsizetype at,
                           const std::vector<int>& from) const {
    SpreadModel* m = grid->model();
    for (int col = 1; col <= count(); ++col) {
        const int field = from[size_t(col - 1)];
        if (field < 0) {
            continue;
        }
        const GridColumn& c = m_columns[size_t(col - 1)];
        const QString& value = rs.at(at, field);
        if (c.redNegative) {
            double v = 0;
            m->setForeColor(row, col, gfIsNumeric(value, &v) && v < 0 ? kSpreadRed : 0);
        }
        if (c.zeroBlank && value == QLatin1String("0")) {
            m->setText(row, col, QString());
        } else if (c.type == CellType::Float || c.type == CellType::Date ||
                   c.type == CellType::Check || c.type == CellType::Combo) {
            m->setValue(row, col, value);
        } else {
            m->setText(row, col, value);
        }
    }
}

int GridColumns::fill(Spread* grid, const RecordSet& rs) const {
    const std::vector<int> from = sourceFields(rs);
    const bool redraw = grid->redraw();
    grid->setRedraw(false);
    grid->setMaxRows(0);
    grid->setMaxRows(int(rs.recordCount()));
    const int rows = int(rs.recordCount());
    for (int row = 1; row <= rows; ++row) {
        writeRow(grid, row, rs, row - 1, from);
    }
    grid->setRedraw(redraw);
    return rows;
}

void GridColumns::appendRow(Spread* grid, const RecordSet& rs) const {
    const int row = grid->maxRows() + 1;
    grid->setMaxRows(row);
    writeRow(grid, row, rs, rs.position(), sourceFields(rs));
}

QString GridColumns::value(const Spread* grid, int row, const QString& field) const {
    const int col = column(field);
    return col > 0 ? grid->model()->value(row, col) : QString();
}

void GridColumns::setValue(Spread* grid, int row, const QString& field,
                           const QString& value) const {
    if (const int col = column(field); col > 0) {
        grid->model()->setValue(row, col, value);
    }
}
