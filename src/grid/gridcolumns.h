#pragma once

#include "grid/spreadmodel.h"

#include <QList>
#include <QString>

#include <initializer_list>
#include <utility>
#include <vector>

class RecordSet;
class Spread;

// What a cell of a column is. The numbers are the grid's own cell types.
enum class CellType : int {
    Date = SpreadDate,
    Edit = SpreadEdit,
    Float = SpreadFloat,
    Button = SpreadButton,
    Static = SpreadStatic,
    Combo = SpreadCombo,
    Check = SpreadCheck,
};

enum class Align { Left, Centre, Right };

// How a stored code is shown: {"Y", "개점"}, and what any other code shows.
struct CodeDisplay {
    QList<std::pair<QString, QString>> names;
    QString other;
};

// One column of a grid. `field` is the result field that fills it (empty: not filled from a
// record set); a width of 0 hides the column, which is how a row carries its codes.
struct GridColumn {
    QString field;
    QString heading;
    CellType type = CellType::Static;
    double width = 8;
    Align align = Align::Left;
    CodeDisplay codes = {};
    int decimals = 0;         // float cells
    bool zeroBlank = false;   // a lone "0" shows as an empty cell (quantities)
    bool redNegative = false; // a value below 0 shows red
    int bytes = 0;            // edit cells: typing and paste stop at this many bytes (0: none)
};

// The column table of one grid: sets the grid up, fills it from a record set by field name, and
// reads a row back by field name. Column n of the grid is entry n of the table, so a screen
// never names a column by its number.
class GridColumns {
public:
    GridColumns(std::initializer_list<GridColumn> columns);
    explicit GridColumns(std::vector<GridColumn> columns);
    // Columns whose edit cells save into a table: each takes its byte limit from the schema's
    // width of its field, unless it names one.
    GridColumns(std::vector<GridColumn> columns, const QString& table);

    int count() const { return int(m_columns.size()); }
    const GridColumn& at(int col) const { return m_columns.at(size_t(col - 1)); }
    // The grid column of a field (1 upwards); 0 when the table has none.
    int column(const QString& field) const;

    // Declares every column on a grid already given its sheet settings (gsSpreadInit).
    void setUp(Spread* grid) const;
    // Replaces the grid's rows with the record set's, field by field; values are stored as the
    // database holds them, codes included. Returns the number of rows.
    int fill(Spread* grid, const RecordSet& rs) const;
    // Appends the current row of the record set.
    void appendRow(Spread* grid, const RecordSet& rs) const;
    // The stored value of a field in a row: the code, not the name shown for it.
    QString value(const Spread* grid, int row, const QString& field) const;
    void setValue(Spread* grid, int row, const QString& field, const QString& value) const;

private:
    void writeRow(Spread* grid, int row, const RecordSet& rs, qsizetype at,
                  const std::vector<int>& from) const;
    std::vector<int> sourceFields(const RecordSet& rs) const;

    std::vector<GridColumn> m_columns;
};
