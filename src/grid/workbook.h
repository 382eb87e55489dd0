#pragma once

#include <QString>

#include <map>
#include <memory>
#include <utility>
#include <vector>

struct SheetPrint;

// A workbook built in memory and written as .xlsx on saveAs, for reports laid out in code (the
// joint-purchase statement). Cells and ranges are named as in the spreadsheet: "B3", "A1:F1",
// columns "C" or "C:F". Settings on a range apply to every cell of it, empty ones included.
class Workbook {
public:
    Workbook();
    ~Workbook();
    Workbook(const Workbook&) = delete;
    Workbook& operator=(const Workbook&) = delete;

    // Adds a sheet and makes it the one the calls below work on; the first call is implicit.
    void addSheet(const QString& name = QString());

    void setColumnWidth(const QString& columns, double width); // 0 hides
    void merge(const QString& range);
    // Horizontal "L", "M" (centre) or "R"; vertical always centred.
    void setAlignment(const QString& range, const QString& horizontal);
    void setFont(const QString& range, const QString& name, double size, bool bold = false);
    void setWrap(const QString& range);
    void setText(const QString& cell, const QString& text);
    void setNumber(const QString& cell, double number);
    // A number format for a whole column ("#,##0", "yyyy-mm-dd"), used by its cells.
    void setNumberFormat(const QString& columns, const QString& format);
    // Widths fitted to what the columns hold (Korean letters count double).
    void autoFit(const QString& columns);
    // Rows printed at the top of every page, as "3:4" (or "3"). Every sheet is saved set up to
    // print (sheetprint.h): from A1 to its last cell, one page wide.
    void setPrintTitles(const QString& rows);
    // False when the file cannot be written.
    bool saveAs(const QString& path) const;

    QString text(const QString& cell) const;

    struct Style {
        QString font;
        double size = 0;
        bool bold = false;
        bool wrap = false;
        int align = 0; // 0 general, 1 left, 2 centre, 3 right
        QString numberFormat;
        bool operator<(const Style& o) const;
    };

private:
    struct Cell {
        QString text;
        double number = 0;
        bool isNumber = false;
        bool hasValue = false;
        Style style;
    };
    struct Sheet {
        QString name;
        std::map<std::pair<int, int>, Cell> cells;
        std::map<int, double> widths;
        std::map<int, QString> columnFormats;
        std::vector<std::pair<std::pair<int, int>, std::pair<int, int>>> merges;
        int titleFirst = -1;
        int titleLast = -1;
    };
    Sheet& current();
    static SheetPrint printOf(const Sheet& sheet);
    template <typename Apply> void eachCell(const QString& range, Apply apply);

    std::vector<Sheet> m_sheets;
};

// "B3" -> row 2, column 1 (zero-based); false for a malformed name.
bool parseCellName(const QString& name, int* row, int* col);
