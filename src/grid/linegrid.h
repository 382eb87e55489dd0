#pragma once

#include "grid/spreadmodel.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

class Spread;

// What a grid row is within a document line of the stock entry grids. Every stock document is
// entered as several grid rows per line: the size labels, what there is, what is entered, and
// what follows from the two.
enum class LineRow {
    Labels,     // the size labels of the line's size table
    Quantity,   // an order's quantities
    Ordered,    // "발주량": what is still open of the order
    Received,   // "입고량"
    Balance,    // "발란스": received less ordered
    Stock,      // "재고"
    Outgoing,   // "출고"
    Remaining,  // "잔량": stock less outgoing
    Correction, // "보정": the counted stock
};

// The caption a row carries in the grid's caption column ("" for labels and order quantities).
QString lineRowCaption(LineRow role);

struct LineRowSpec {
    LineRow role;
    bool open = false;             // size cells take input (where the line has a size label)
    quint32 back = kSpreadNoColor; // back colour of the row's coloured columns
    bool keepsZero = false;        // a typed 0 stays a 0 rather than an empty cell
};

// One derived row: target = plus - minus, position by position.
struct LineDifference {
    LineRow target;
    LineRow plus;
    LineRow minus;
};

// Where a layout's parts stand in the grid and which rows a line has.
struct LineGridLayout {
    std::vector<LineRowSpec> rows;
    int firstSize = 0;  // the column of size position 1; 24 positions follow
    int totalCol = 0;   // each row's sum (the label row has none)
    int captionCol = 0; // the row's caption; 0: none
    int backFrom = 0;   // the first column a row's back colour covers (0: firstSize)
    int backTo = 0;     // the last (0: the grid's last)
    std::optional<LineDifference> difference;
};

// A cell whose text is not a quantity the document can take.
struct BadQuantity {
    int line;
    int row;
    int position; // 1 to 24
    QString text;
};

// The row arithmetic of the stock entry grids on a Spread: lines of several grid rows, each
// row with its role, open or locked cells, its colour, the size labels of the line, and the
// sums recomputed whenever the screen asks (a cell left, Enter, before a save). The screens of
// the stock cycle say only which rows their lines have.
class LineGrid {
public:
    LineGrid(Spread* grid, LineGridLayout layout);

    Spread* grid() const { return m_grid; }
    int rowsPerLine() const { return int(m_layout.rows.size()); }
    int lineCount() const;
    bool hasRole(LineRow role) const { return roleIndex(role) >= 0; }
    // The grid row of a line's row of that role (lines from 0); 0 when the layout has none.
    int row(int line, LineRow role) const;
    int lineOf(int gridRow) const { return (gridRow - 1) / rowsPerLine(); }
    LineRow roleOf(int gridRow) const;
    int sizeCol(int position) const { return m_layout.firstSize + position - 1; }

    // Empties the grid (and keeps its columns).
    void clear();
    // Appends a line: its rows with captions, colours, locks. Returns its number.
    int addLine();
    // The same text in a column of every row of the line (names, hidden codes).
    void setCommon(int line, int col, const QString& text);
    QString common(int line, int col) const;
    // The line's size labels: shown on its label row when it has one, and positions without a
    // label take no input.
    void setLabels(int line, const QStringList& labels);
    QStringList labels(int line) const { return m_labels.value(line); }

    // A size cell as it stands, trimmed.
    QString cellText(int line, LineRow role, int position) const;
    // Its quantity: 0 for an empty cell or text that is no number.
    qint64 quantity(int line, LineRow role, int position) const;
    void setQuantity(int line, LineRow role, int position, qint64 value);
    // True when none of the row's 24 size cells holds any text.
    bool isBlank(int line, LineRow role) const;
    // The row's sum as the last recompute left it.
    qint64 total(int line, LineRow role) const;
    QString totalText(int line, LineRow role) const;

    // The first open cell, in grid order, whose text is not a whole number (or is negative,
    // unless allowed).
    std::optional<BadQuantity> findBadQuantity(bool allowNegative) const;

    // The derived row and every row's sum; size cells rewritten grouped, a zero shown empty
    // (unless the row keeps zeros), negatives red. Cells holding text that is no number keep it.
    void recompute();
    // The same for one line, cell by cell, while the user types in the grid.
    void recomputeLine(int line);

private:
    int roleIndex(LineRow role) const;
    void writeQuantity(int gridRow, int col, qint64 value, bool keepZero);

    Spread* m_grid;
    LineGridLayout m_layout;
    QList<QStringList> m_labels;
};
