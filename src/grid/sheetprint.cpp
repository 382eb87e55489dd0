#include "sheetprint.h"

#include <xlsxwriter.h>

namespace {

// Margins in inches; A4 is 8.27 inches wide.
constexpr double kSide = 0.4;
constexpr double kTopBottom = 0.6;
constexpr double kA4Width = 8.27;

} // namespace

bool sheetIsWide(const std::vector<double>& widths) {
    // A column of w characters is w * 7 + 5 pixels at 96 per inch (the default font's digit).
    double pixels = 0;
    for (const double w : widths) {
        pixels += w > 0 ? w * 7 + 5 : 0;
    }
    return pixels > (kA4Width - 2 * kSide) * 96;
}

bool setUpSheetPrint(lxw_worksheet* sheet, const SheetPrint& print) {
    worksheet_set_paper(sheet, 9); // A4
    if (sheetIsWide(print.widths)) {
        worksheet_set_landscape(sheet);
    } else {
        worksheet_set_portrait(sheet);
    }
    worksheet_set_margins(sheet, kSide, kSide, kTopBottom, kTopBottom);
    worksheet_fit_to_pages(sheet, 1, 0);
    worksheet_center_horizontally(sheet);
    worksheet_gridlines(sheet, LXW_SHOW_ALL_GRIDLINES);
    worksheet_set_footer(sheet, "&C&P / &N");
    bool ok = worksheet_print_area(sheet, 0, 0, lxw_row_t(print.lastRow),
                                   lxw_col_t(print.lastCol)) == LXW_NO_ERROR;
    if (print.headFirst >= 0 && print.headLast >= print.headFirst) {
        ok &= worksheet_repeat_rows(sheet, lxw_row_t(print.headFirst), lxw_row_t(print.headLast)) ==
              LXW_NO_ERROR;
    }
    return ok;
}
