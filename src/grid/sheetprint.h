#pragma once

#include <vector>

typedef struct lxw_worksheet lxw_worksheet;

// How a written sheet goes on paper: A4, landscape when its columns are wider than a portrait
// page, shrunk to one page wide (as many tall as it needs), the print area from A1 to the last
// row and column, the heading rows repeated on every page, grid lines and page numbers printed.
struct SheetPrint {
    int lastRow = 0;    // zero-based
    int lastCol = 0;    // zero-based
    int headFirst = -1; // zero-based heading rows repeated on every page; -1: none
    int headLast = -1;
    std::vector<double> widths; // every column's width in characters, 0 for a hidden one
};

// True when columns of these widths are wider than a portrait A4 page inside its margins.
bool sheetIsWide(const std::vector<double>& widths);
// False when the sheet refused a setting (a row or column outside the sheet).
bool setUpSheetPrint(lxw_worksheet* sheet, const SheetPrint& print);
