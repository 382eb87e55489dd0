#pragma once

#include "grid/spreadmodel.h"

#include <QTableView>
#include <QWidget>

#include <functional>

class SpreadView;

// The grid of every list. Screens set it up and fill it through the routines of
// spreadroutines.h (gsSpreadInit, gsSpreadColumn, gsSpreadSetText, ...) and the few properties
// below; they never reach into the views.
//
// Addressing, everywhere in this API:
// - data rows from 1 to MaxRows; heading rows from -1000 (first), -999 (second) ...;
// - columns from 1 to MaxCols; column 0 is the row-heading column ("NO" and row numbers when
//   the heading flag of gsSpreadInit is on, hidden otherwise);
// - -1 as row means every data row, -1 as column every column, where a routine says so.
// Writes outside the grid are ignored; reads outside it give "".
//
// Rows and columns: MaxRows is the number of rows in use (raise it by one to add a row, set it to
// 0 to clear the list), MaxCols the number of columns, DataRowCnt the last row holding data.
// Heading rows, frozen rows and columns stay in place while the rest scrolls.
//
// Signals carry (row, col) in the same numbers; a heading click comes with row -1000 or above.
class Spread : public QWidget {
    Q_OBJECT
public:
    explicit Spread(QWidget* parent = nullptr);
    ~Spread() override;

    int maxRows() const { return m_model->maxRows(); }
    void setMaxRows(int rows);
    int maxCols() const { return m_model->maxCols(); }
    void setMaxCols(int cols);
    int dataRowCnt() const { return m_model->dataRowCnt(); }
    int headRows() const { return m_model->headRows(); }
    void setHeadRows(int rows);

    // Redraw off before a long fill, on afterwards: no painting and no per-cell notifications
    // in between.
    void setRedraw(bool on);
    bool redraw() const { return m_model->redraw(); }

    // Column width in characters of the grid font; 0 hides the column.
    double columnWidth(int col) const { return m_model->columnWidth(col); }
    void setColumnWidth(int col, double width);
    // The width in pixels that shows every column without sideways scrolling: the shown
    // columns (the row headings among them), the frame and room for the vertical scroll bar.
    int fullWidth() const;
    // Data row height and heading row height, in the old units (18 is one normal line).
    void setRowHeights(int headHeight, int rowHeight);

    // Lock a cell (row, col), a column (-1, col), a row (row, -1) or the sheet (-1, -1). Locked
    // cells take no input; the others follow their type.
    void setLocked(int row, int col, bool locked);
    bool isLocked(int row, int col) const { return m_model->locked(row, col); }

    // Row selection (list grids) or single cells (read-only grids).
    void setRowMode(bool rowMode);
    void setReadOnly(bool readOnly);
    bool isReadOnly() const { return m_model->readOnly(); }

    // Frozen band: n columns after the row-heading column, n data rows below the headings.
    void setFrozenCols(int n);
    void setFrozenRows(int n);
    int frozenCols() const { return m_model->frozenCols(); }
    int frozenRows() const { return m_model->frozenRows(); }

    // Scroll bars: 0 none, 1 horizontal, 2 vertical, 3 both.
    void setScrollBars(int which);
    void setGridColor(quint32 bgr);
    void setGridFont(const QFont& font);

    // The active cell (0, 0 when none).
    int activeRow() const;
    int activeCol() const;
    void setActiveCell(int row, int col);
    // Selects the whole row and makes it active.
    void selectRow(int row);
    // Top-left and bottom-right of the selection, in grid numbers; {0,0,0,0} when none.
    QRect selection() const;

    // Heading clicks sort the data rows by that column, ascending then descending.
    void setSortOnHeadingClick(bool on) { m_sortOnClick = on; }
    void sort(int col, bool ascending);

    // Tab-separated text of the selection (rows by line feeds), and paste of such text at the
    // active cell: columns beyond MaxCols and locked cells are skipped, an edit cell takes what
    // fits its byte limit, and rows beyond MaxRows are left out unless the grid adds rows on a
    // paste (a list of rows read from the database has none without a key). Ctrl+C and Ctrl+V
    // do the same through the clipboard.
    QString copyText() const;
    void pasteText(const QString& text);
    void copyToClipboard() const;
    void pasteFromClipboard();
    void setPasteAddsRows(bool on) { m_pasteAddsRows = on; }

    // Commits a cell still being typed into, so that a command run from elsewhere (a tool bar
    // that takes no focus) sees what was typed.
    void finishEditing();

    // Tool tips of cells by what they hold, such as the size a quantity stands for: the text for
    // (row, col), "" for none.
    void setCellToolTips(std::function<QString(int row, int col)> tips) {
        m_tips = std::move(tips);
    }
    // The tool tip of a cell as the mouse on it shows it.
    QString cellToolTip(int row, int col) const { return m_tips ? m_tips(row, col) : QString(); }

    // Joins equal neighbours at once rather than on the next pass of the event loop.
    void updateMerges();

    SpreadModel* model() const { return m_model; }
    // The scrolling view (tests and painting only; screens use the routines).
    QTableView* view() const;

signals:
    void clicked(int row, int col);
    void doubleClicked(int row, int col);
    // A button cell was pressed.
    void buttonClicked(int row, int col);
    // The user changed a cell: typing, check, combo, paste.
    void changed(int row, int col);
    // The active cell moved.
    void activeCellChanged(int row, int col);

protected:
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    friend class SpreadView;
    void applyLayout();
    void placeBands();
    void scheduleMerges();
    int pixelsForWidth(double width) const;
    int headPixels() const { return m_headPixels; }
    int bandHeight() const;
    int bandWidth() const;
    void onClicked(const QModelIndex& index, bool doubleClick);
    bool handleResizeDrag(QWidget* viewport, QEvent* event);
    bool showCellToolTip(QWidget* viewport, QEvent* event);

    SpreadModel* m_model;
    SpreadView* m_main;
    SpreadView* m_top;
    SpreadView* m_left;
    SpreadView* m_corner;
    int m_headPixels = 24;
    int m_rowPixels = 24;
    int m_sortCol = 0;
    bool m_sortAscending = true;
    bool m_sortOnClick = false;
    bool m_mergesPending = false;
    bool m_pasteAddsRows = false;
    int m_dragCol = -1;
    int m_dragStartX = 0;
    int m_dragStartWidth = 0;
    std::function<QString(int row, int col)> m_tips;
};
