#pragma once

#include "grid/spreadcells.h"

#include <QAbstractTableModel>
#include <QColor>
#include <QFont>
#include <QHash>
#include <QString>
#include <QStringList>

#include <utility>
#include <vector>

// Cell types, by the numbers that screens pass.
enum SpreadCellType : int {
    SpreadDate = 0,
    SpreadEdit = 1,
    SpreadFloat = 2,
    SpreadButton = 4,
    SpreadStatic = 5,
    SpreadCombo = 8,
    SpreadCheck = 10,
};

// Horizontal alignment numbers of a cell: 0 left, 1 right, 2 centre; -1 the type's default.
enum SpreadAlign : int {
    SpreadAlignDefault = -1,
    SpreadLeft = 0,
    SpreadRight = 1,
    SpreadCenter = 2
};

// Colours travel as the old 0xBBGGRR numbers (255 is red, 0xF7F7F7 light grey).
constexpr quint32 kSpreadNoColor = 0xFFFFFFFFu;
constexpr quint32 kSpreadRed = 255;
constexpr quint32 kSpreadFrozenBack = 0xF7F7F7;
constexpr quint32 gfRGB(int r, int g, int b) {
    return quint32(r & 0xFF) | (quint32(g & 0xFF) << 8) | (quint32(b & 0xFF) << 16);
}
QColor spreadColor(quint32 bgr);

// What a type needs beyond its number.
struct SpreadFormat {
    int type = SpreadEdit;
    int align = SpreadAlignDefault;
    int maxLength = 0;   // edit: characters, 0 unlimited
    int maxBytes = 0;    // edit: bytes of code page 949 (the column's width), 0 unlimited
    int charCase = 0;    // edit: 0 as typed, 1 upper, 2 lower
    bool shadow = false; // static, button: drawn in the heading colour
    double floatMax = 99999999999.0;
    double floatMin = -99999999999.0;
    int decimals = 0;
    QString dateMax = QStringLiteral("21001231");
    QString dateMin = QStringLiteral("19000101");
    QStringList comboItems;
    int comboIndex = -1; // selection of a combo cell nobody has written
    QString checkText;
    // Static cells that hold a code and show its name ("Y" shown as "개점"): the value stays the
    // code, the text is the name; a code not listed shows otherName.
    QList<std::pair<QString, QString>> codeNames;
    QString otherName;
};

// Storage and item model of a Spread. Screens do not use it directly: the Spread and the
// routines in spreadroutines.h address it by grid numbers (data rows from 1, heading rows from
// -1000). Model rows are the heading rows followed by the data rows; model column 0 is the
// row-heading column.
class SpreadModel : public QAbstractTableModel {
    Q_OBJECT
public:
    explicit SpreadModel(QObject* parent = nullptr);

    static constexpr int kHeadBase = -1000;

    // ---- grid addressing
    int maxRows() const { return int(m_rows.size()); }
    int maxCols() const { return int(m_cols.size()) - 1; }
    int headRows() const { return int(m_head.size()); }
    void setMaxRows(int rows);
    void setMaxCols(int cols);
    void setHeadRows(int rows);
    int dataRowCnt() const;
    bool validCell(int row, int col) const {
        if (col < 0 || col > maxCols()) {
            return false;
        }
        return row >= 1 ? row <= maxRows() : row >= kHeadBase && row < kHeadBase + headRows();
    }
    int toModelRow(int row) const { return row >= 1 ? headRows() + row - 1 : row - kHeadBase; }
    int toGridRow(int modelRow) const {
        return modelRow < headRows() ? kHeadBase + modelRow : modelRow - headRows() + 1;
    }

    // ---- content (row, col in grid numbers; writes outside the grid are ignored)
    QString text(int row, int col) const;  // as shown: formatted float, "YYYY/MM/DD" date
    QString value(int row, int col) const; // float number, "YYYYMMDD", combo index, check 0/1
    void setText(int row, int col, const QString& text);
    // The text and the fore colour at once: the fill of a long list writes both into every cell.
    void setText(int row, int col, const QString& text, quint32 foreColor);
    void setValue(int row, int col, const QString& value);
    // The stored form without conversion (tests, export).
    QString raw(int row, int col) const;

    // ---- look and behaviour
    SpreadFormat format(int row, int col) const;
    const SpreadFormat& columnFormat(int col) const { return m_cols.at(col).format; }
    void setColumnFormat(int col, const SpreadFormat& format);
    void setCellFormat(int row, int col, const SpreadFormat& format);
    quint32 foreColor(int row, int col) const;
    void setForeColor(int row, int col, quint32 bgr);
    quint32 backColor(int row, int col) const; // kSpreadNoColor: default white
    void setBackColor(int row, int col, quint32 bgr);
    void setColumnBackColor(int col, quint32 bgr);
    bool locked(int row, int col) const;
    void setLocked(int row, int col, bool locked);
    void setColumnLocked(int col, bool locked);
    double columnWidth(int col) const { return m_cols.at(col).width; } // characters
    void setColumnWidth(int col, double width);
    bool columnHidden(int col) const { return m_cols.at(col).width <= 0.0; }
    void setHeadingNumbers(bool on);
    bool headingNumbers() const { return m_headingNumbers; }
    void setReadOnly(bool on) { m_readOnly = on; }
    bool readOnly() const { return m_readOnly; }
    void setFrozenCols(int n) { m_frozenCols = qBound(0, n, maxCols()); }
    void setFrozenRows(int n) { m_frozenRows = qMax(0, n); }
    int frozenCols() const { return m_frozenCols; }
    int frozenRows() const { return m_frozenRows; }
    // The back colour of the frozen rows 1 to n, for every row that ever stands there: rows added
    // or filled later take it too. kSpreadNoColor for none.
    void setFrozenRowBack(quint32 bgr);

    // ---- merges: 0 none, 1 always, 2 restricted (only inside the groups of the column before)
    void setColumnMerge(int col, int mode) { m_cols[col].dataMerge = mode; }
    void setHeadColumnMerge(int col, int mode) { m_cols[col].headMerge = mode; }
    void setHeadRowMerge(int rows) { m_headRowMerge = rows; }
    bool hasMerges() const;
    struct Span {
        int modelRow, modelCol, rows, cols;
    };
    std::vector<Span> spans() const;

    void sortRows(int col, bool ascending);

    // Redraw off: changes are collected silently and announced as one reset when it goes back on.
    void setRedraw(bool on);
    bool redraw() const { return m_redraw; }

    // ---- QAbstractItemModel
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

    QFont font() const { return m_font; }
    void setFont(const QFont& font) { m_font = font; }

signals:
    // A user's edit, check or paste of a cell, in grid numbers.
    void cellEdited(int row, int col);

private:
    // Texts, colours and the per-cell bits below; formats live per column, with the cells of a
    // format of their own in m_cellFormats.
    using Cell = SpreadCell;
    static constexpr quint8 kLockSet = 1;
    static constexpr quint8 kLocked = 2;
    static constexpr quint8 kOwnFormat = 4;
    struct Column {
        SpreadFormat format;
        double width = 8.0;
        quint32 back = kSpreadNoColor;
        bool locked = false;
        int dataMerge = 0;
        int headMerge = 0;
    };
    using Row = std::vector<Cell>;

    const Cell* cell(int row, int col) const;
    Cell* cellForWrite(int row, int col);
    void store(Cell& cell, const QString& text);
    void writeText(Cell& cell, int row, int col, const QString& text);
    // Lets go of the texts of a row's cells from column `from` on (the row is cut or dropped).
    void release(Row& row, size_t from = 0);
    void compactIfWorthIt();
    template <typename Visit> void forEachCell(Visit visit);
    // Palette index of a colour (never 0); a full palette is rebuilt from the cells first.
    quint16 colorIndex(quint32 bgr);
    void rebuildPalette();
    const SpreadFormat& formatRef(int row, int col) const;
    const SpreadFormat& formatOf(const Cell* cell, int row, int col) const;
    static quint64 key(int row, int col) {
        return (quint64(quint32(row - kHeadBase)) << 20) | quint32(col);
    }
    QString normalised(const SpreadFormat& format, const QString& text) const;
    QString shown(const SpreadFormat& format, const QString& raw) const;
    void changed(int row, int col);
    bool mergeEqual(int modelRowA, int modelRowB, int col) const;

    std::vector<Row> m_head;
    std::vector<Row> m_rows;
    std::vector<Column> m_cols;
    QHash<quint64, SpreadFormat> m_cellFormats;
    SpreadTextPool m_texts;
    std::vector<quint32> m_palette{0}; // index 0 stands for black (fore) or none (back)
    QHash<quint32, quint16> m_paletteIndex;
    QFont m_font;
    int m_frozenCols = 0;
    int m_frozenRows = 0;
    quint32 m_frozenRowBack = kSpreadNoColor;
    int m_headRowMerge = 0;
    bool m_headingNumbers = false;
    bool m_readOnly = false;
    bool m_redraw = true;
};
