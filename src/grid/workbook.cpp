#include "workbook.h"

#include "excelexport.h"
#include "sheetprint.h"

#include <QFile>

#include <xlsxwriter.h>

#include <tuple>

namespace {

int wideWidth(const QString& text) {
    int widest = 0;
    int width = 0;
    for (const QChar c : text) {
        if (c == QLatin1Char('\n')) {
            widest = qMax(widest, width);
            width = 0;
        } else {
            width += c.unicode() >= 0x1100 ? 2 : 1;
        }
    }
    return qMax(widest, width);
}

// "C:F" or "C" -> first and last zero-based column.
std::pair<int, int> columnRange(const QString& columns) {
    const QStringList parts = columns.split(QLatin1Char(':'));
    const int first = excelColumnIndex(parts.value(0));
    return {first, parts.size() > 1 ? excelColumnIndex(parts.value(1)) : first};
}

} // namespace

SheetPrint Workbook::printOf(const Sheet& sheet) {
    SheetPrint print;
    const auto reach = [&print](int row, int col) {
        print.lastRow = qMax(print.lastRow, row);
        print.lastCol = qMax(print.lastCol, col);
    };
    for (const auto& [at, cell] : sheet.cells) {
        reach(at.first, at.second);
    }
    for (const auto& [from, to] : sheet.merges) {
        reach(to.first, to.second);
    }
    print.widths.assign(size_t(print.lastCol) + 1, 8.43); // the sheet's default width
    for (const auto& [col, width] : sheet.widths) {
        if (col <= print.lastCol) {
            print.widths[size_t(col)] = width;
        }
    }
    print.headFirst = sheet.titleFirst;
    print.headLast = sheet.titleLast;
    return print;
}

bool parseCellName(const QString& name, int* row, int* col) {
    qsizetype i = 0;
    while (i < name.size() && name.at(i).isLetter()) {
        ++i;
    }
    bool ok = false;
    const int r = name.mid(i).toInt(&ok);
    if (i == 0 || !ok || r < 1) {
        return false;
    }
    *col = excelColumnIndex(name.left(i));
    *row = r - 1;
    return true;
}

bool Workbook::Style::operator<(const Style& o) const {
    return std::tie(font, size, bold, wrap, align, numberFormat) <
           std::tie(o.font, o.size, o.bold, o.wrap, o.align, o.numberFormat);
}

Workbook::Workbook() = default;
Workbook::~Workbook() = default;

void Workbook::addSheet(const QString& name) {
    m_sheets.push_back(
        Sheet{name.isEmpty() ? QStringLiteral("Sheet%1").arg(m_sheets.size() + 1) : name});
}

Workbook::Sheet& Workbook::current() {
    if (m_sheets.empty()) {
        addSheet();
    }
    return m_sheets.back();
}

template <typename Apply> void Workbook::eachCell(const QString& range, Apply apply) {
    const QStringList corners = range.split(QLatin1Char(':'));
    int r1 = 0, c1 = 0, r2 = 0, c2 = 0;
    if (!parseCellName(corners.value(0), &r1, &c1)) {
        return;
    }
    if (corners.size() < 2 || !parseCellName(corners.value(1), &r2, &c2)) {
        r2 = r1;
        c2 = c1;
    }
    Sheet& sheet = current();
    for (int r = qMin(r1, r2); r <= qMax(r1, r2); ++r) {
        for (int c = qMin(c1, c2); c <= qMax(c1, c2); ++c) {
            apply(sheet.cells[{r, c}]);
        }
    }
}

void Workbook::setColumnWidth(const QString& columns, double width) {
    const auto [first, last] = columnRange(columns);
    for (int c = first; c <= last && c >= 0; ++c) {
        current().widths[c] = width;
    }
}

void Workbook::merge(const QString& range) {
    const QStringList corners = range.split(QLatin1Char(':'));
    int r1 = 0, c1 = 0, r2 = 0, c2 = 0;
    if (corners.size() == 2 && parseCellName(corners[0], &r1, &c1) &&
        parseCellName(corners[1], &r2, &c2)) {
        current().merges.push_back({{r1, c1}, {r2, c2}});
    }
}

void Workbook::setAlignment(const QString& range, const QString& horizontal) {
    const QString h = horizontal.trimmed().toUpper();
    const int align = h == QLatin1String("L")   ? 1
                      : h == QLatin1String("M") ? 2
                      : h == QLatin1String("R") ? 3
                                                : 0;
    eachCell(range, [align](Cell& cell) { cell.style.align = align; });
}

void Workbook::setFont(const QString& range, const QString& name, double size, bool bold) {
    eachCell(range, [&](Cell& cell) {
        cell.style.font = name;
        cell.style.size = size;
        cell.style.bold = bold;
    });
}

void Workbook::setWrap(const QString& range) {
    eachCell(range, [](Cell& cell) { cell.style.wrap = true; });
}

void Workbook::setText(const QString& cell, const QString& text) {
    eachCell(cell, [&](Cell& c) {
        c.text = text;
        c.isNumber = false;
        c.hasValue = true;
    });
}

void Workbook::setNumber(const QString& cell, double number) {
    eachCell(cell, [&](Cell& c) {
        c.number = number;
        c.text = QString::number(number);
        c.isNumber = true;
        c.hasValue = true;
    });
}

void Workbook::setNumberFormat(const QString& columns, const QString& format) {
    const auto [first, last] = columnRange(columns);
    for (int c = first; c <= last && c >= 0; ++c) {
        current().columnFormats[c] = format;
    }
}

void Workbook::autoFit(const QString& columns) {
    const auto [first, last] = columnRange(columns);
    Sheet& sheet = current();
    for (int c = first; c <= last && c >= 0; ++c) {
        int width = 0;
        for (const auto& [at, cell] : sheet.cells) {
            if (at.second == c && cell.hasValue) {
                width = qMax(width, wideWidth(cell.text));
            }
        }
        if (width > 0) {
            sheet.widths[c] = width + 2.0;
        }
    }
}

void Workbook::setPrintTitles(const QString& rows) {
    const QStringList parts = rows.split(QLatin1Char(':'));
    bool firstOk = false;
    bool lastOk = false;
    const int first = parts.value(0).toInt(&firstOk);
    const int last = parts.size() > 1 ? parts.value(1).toInt(&lastOk) : first;
    if (firstOk && (parts.size() == 1 || lastOk) && first >= 1 && last >= first) {
        current().titleFirst = first - 1;
        current().titleLast = last - 1;
    }
}

QString Workbook::text(const QString& cell) const {
    int r = 0, c = 0;
    if (m_sheets.empty() || !parseCellName(cell, &r, &c)) {
        return {};
    }
    const auto it = m_sheets.back().cells.find({r, c});
    return it == m_sheets.back().cells.end() ? QString() : it->second.text;
}

bool Workbook::saveAs(const QString& path) const {
    lxw_workbook* book = workbook_new(QFile::encodeName(path).constData());
    if (!book) {
        return false;
    }
    std::map<Style, lxw_format*> formats;
    const auto formatFor = [&](Style style, int col, const Sheet& sheet) -> lxw_format* {
        if (style.numberFormat.isEmpty()) {
            const auto it = sheet.columnFormats.find(col);
            if (it != sheet.columnFormats.end()) {
                style.numberFormat = it->second;
            }
        }
        if (!(Style{} < style) && !(style < Style{})) {
            return nullptr;
        }
        auto& f = formats[style];
        if (!f) {
            f = workbook_add_format(book);
            if (!style.font.isEmpty()) {
                format_set_font_name(f, style.font.toUtf8().constData());
            }
            if (style.size > 0) {
                format_set_font_size(f, style.size);
            }
            if (style.bold) {
                format_set_bold(f);
            }
            if (style.wrap) {
                format_set_text_wrap(f);
            }
            const uint8_t aligns[] = {LXW_ALIGN_NONE, LXW_ALIGN_LEFT, LXW_ALIGN_CENTER,
                                      LXW_ALIGN_RIGHT};
            format_set_align(f, aligns[qBound(0, style.align, 3)]);
            format_set_align(f, LXW_ALIGN_VERTICAL_CENTER);
            if (!style.numberFormat.isEmpty()) {
                format_set_num_format(f, style.numberFormat.toUtf8().constData());
            }
        }
        return f;
    };

    bool ok = true;
    for (const Sheet& sheet : m_sheets) {
        lxw_worksheet* ws = workbook_add_worksheet(book, sheet.name.toUtf8().constData());
        if (!ws) {
            ok = false;
            break;
        }
        for (const auto& [col, width] : sheet.widths) {
            lxw_row_col_options hidden = {};
            hidden.hidden = LXW_TRUE;
            const auto f = sheet.columnFormats.find(col);
            lxw_format* format =
                f == sheet.columnFormats.end() ? nullptr : formatFor(Style{}, col, sheet);
            worksheet_set_column_opt(ws, lxw_col_t(col), lxw_col_t(col), width, format,
                                     width <= 0 ? &hidden : nullptr);
        }
        for (const auto& [from, to] : sheet.merges) {
            const auto it = sheet.cells.find(from);
            const Style style = it == sheet.cells.end() ? Style{} : it->second.style;
            ok &= worksheet_merge_range(ws, lxw_row_t(from.first), lxw_col_t(from.second),
                                        lxw_row_t(to.first), lxw_col_t(to.second), "",
                                        formatFor(style, from.second, sheet)) == LXW_NO_ERROR;
        }
        for (const auto& [at, cell] : sheet.cells) {
            lxw_format* f = formatFor(cell.style, at.second, sheet);
            const auto row = lxw_row_t(at.first);
            const auto col = lxw_col_t(at.second);
            if (!cell.hasValue) {
                // Cells inside a merge were written by it; others keep their format.
                bool merged = false;
                for (const auto& [from, to] : sheet.merges) {
                    merged |= at.first >= from.first && at.first <= to.first &&
                              at.second >= from.second && at.second <= to.second;
                }
                if (!merged && f) {
                    worksheet_write_blank(ws, row, col, f);
                }
            } else if (cell.isNumber) {
                ok &= worksheet_write_number(ws, row, col, cell.number, f) == LXW_NO_ERROR;
            } else {
                ok &= worksheet_write_string(ws, row, col, cell.text.toUtf8().constData(), f) ==
                      LXW_NO_ERROR;
            }
        }
        ok &= setUpSheetPrint(ws, printOf(sheet));
    }
    ok &= workbook_close(book) == LXW_NO_ERROR;
    return ok;
}
