#pragma once

#include "grid/spread.h"

#include <QString>

// The grid services every screen uses. Each routine takes the grid first (never null) and
// addresses cells as the Spread does: data rows from 1, heading rows from -1000, columns from 1,
// column 0 the row heading, -1 for "every row" or "every column" where a routine says so.
// Colours are 0xBBGGRR numbers (255 red, 0xF7F7F7 frozen grey; gfRGB(r, g, b) builds one).
//
// Cell types (SpreadCellType): 0 date ("YYYY/MM/DD" shown, "YYYYMMDD" value), 1 edit, 2 float
// (grouped, with decimals), 4 button, 5 static text, 8 combo (value = selected index, -1 none),
// 10 check (value 1 or 0). Other numbers behave as static text.
//
// A screen's fill loop:
//     SP1->setRedraw(false);
//     SP1->setMaxRows(0);
//     for (rs.moveFirst(); !rs.eof(); rs.moveNext()) {
//         SP1->setMaxRows(SP1->maxRows() + 1);
//         gsSpreadSetText(SP1, SP1->maxRows(), 1, rs.field("STORECD").trimmed());
//         gsSpreadSetText(SP1, SP1->maxRows(), 5, rs.field("AMT"), kSpreadRed, {}, "N");
//     }
//     SP1->setRedraw(true);

// Heading row `index` (0 the first) in the grid's row numbers.
constexpr int gfHeadRow(int index) {
    return SpreadModel::kHeadBase + index;
}

// Sheet-wide setup. headRows of 2 or more sets the number of heading rows; headingFlag shows
// "NO" and row numbers in column 0; readOnly gives a grid of cells that take no input, otherwise
// the grid selects whole rows and its unlocked cells are editable. scrollBars: 0 none,
// 1 horizontal, 2 vertical, 3 both.
void gsSpreadInit(Spread* grid, const QString& fontName = QStringLiteral("굴림체"),
                  int fontSize = 10, int headHeight = 18, int rowHeight = 18, int frozenCols = 0,
                  quint32 gridColor = 0xC0C0C0, int scrollBars = 3, bool headingFlag = false,
                  bool readOnly = false, int headRows = 1);

// One column: its heading text in heading row headRow (0 first, 1 second ...), its type,
// width in characters (0 hides it), and the type's own settings. Alignment: "L" left, "M"
// centre, "R" right; any other text keeps the alignment. The grid grows to the column.
// comboList is tab-separated; comboIndex the selection of unwritten combo cells.
void gsSpreadColumn(Spread* grid, int col, const QString& heading, int type, double width,
                    int maxLength = 0, const QString& align = QStringLiteral("L"), int headRow = 0,
                    int charCase = 0, bool shadow = false, double floatMax = 99999999999.0,
                    double floatMin = -99999999999.0, int decimals = 0,
                    const QString& dateMax = QStringLiteral("21001231"),
                    const QString& dateMin = QStringLiteral("19000101"),
                    const QString& spare = QString(), const QString& comboList = QString(),
                    int comboIndex = -1, const QString& checkText = QString());

// One cell's type. hAlign: 0 left, 1 right, 2 centre. A blank comboList keeps the list the cell
// has; comboIndex >= 0 selects an item.
void gsSpreadCell(Spread* grid, int row, int col, int type, int maxLength = 0, int hAlign = 0,
                  int charCase = 0, bool shadow = false, double floatMax = 99999999999.0,
                  double floatMin = -99999999999.0, int decimals = 0,
                  const QString& spare = QString(), const QString& comboList = QString(),
                  int comboIndex = -1, const QString& checkText = QString());

// Writes a cell by its text. The fore colour becomes markColor when the trimmed text equals the
// trimmed markText or is a number below 0, black otherwise. With flag "N" a lone "0" is written
// as an empty cell, and the caller's text is emptied too ("0.0" and "00" stay).
void gsSpreadSetText(Spread* grid, int row, int col, QString& text, quint32 markColor = 0,
                     const QString& markText = QString(), const QString& flag = QString());
void gsSpreadSetText(Spread* grid, int row, int col, const QString& text, quint32 markColor = 0,
                     const QString& markText = QString(), const QString& flag = QString());

// Writes a cell by its value, so that float and date cells format it themselves. A text that is
// not a number becomes "0" (and so does the caller's); colours as gsSpreadSetText, testing the
// whole-number value.
void gsSpreadSetValue(Spread* grid, int row, int col, QString& text, quint32 markColor = 0,
                      const QString& markText = QString());
void gsSpreadSetValue(Spread* grid, int row, int col, const QString& text, quint32 markColor = 0,
                      const QString& markText = QString());

// The cell as shown ("1,234", "2024/03/15", a combo's item text).
QString gfSpreadText(Spread* grid, int row, int col);
// The cell's value for arithmetic: a cell whose value is not a number (empty included) is set
// to 0 in the grid first, so no caller meets a blank. Check cells give 1 or 0, combos the index.
QString gfSpreadValue(Spread* grid, int row, int col);
// Trimmed text (byText true) or trimmed value, without changing the cell.
QString gfSpreadCellText(Spread* grid, int row, int col, bool byText = true);
// The first data row whose text in col equals text exactly (case counts); that cell becomes
// active. 0 when none.
int gfSpreadFindRow(Spread* grid, int col, const QString& text);

void gsSpreadSelectRow(Spread* grid, int row);
// Row colours cover columns 1 to MaxCols; row -1 means every data row.
void gsSpreadRowForeColor(Spread* grid, int row, quint32 color);
void gsSpreadRowBackColor(Spread* grid, int row, quint32 color);
// Back colour of a whole column, rows added later included; col -1 every column.
void gsSpreadColBackColor(Spread* grid, int col, quint32 color);
void gsSpreadRangeBackColor(Spread* grid, int row, int firstCol, int lastCol, quint32 color);

// Colours columns (rows) 1 to n light grey and freezes them; 0 or less colours nothing and
// leaves nothing frozen.
void gsSpreadFreezeCols(Spread* grid, int n);
void gsSpreadFreezeRows(Spread* grid, int n);

// Equal neighbouring data cells down these columns join, each column only within the groups of
// the merged column on its left. Empty cells never join.
void gsSpreadColMerge(Spread* grid, int firstCol, int lastCol);
// Equal neighbouring heading cells join across in heading rows 1 to headRows.
void gsSpreadRowMerge(Spread* grid, int headRows);
// Equal heading cells join down these columns (first nine heading rows).
void gsSpreadHeaderColMerge(Spread* grid, int firstCol, int lastCol);
