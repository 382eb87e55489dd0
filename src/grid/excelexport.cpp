#include "excelexport.h"

#include "numerictext.h"
#include "sheetprint.h"
#include "spreadroutines.h"

#include "data/datafolder.h"
#include "data/dbroutines.h"
#include "data/messages.h"

#include <QDate>
#include <QDateTime>
#include <QDesktopServices>
#include <QDir>
#include <QGuiApplication>
#include <QStringEncoder>
#include <QUrl>

#include <xlsxwriter.h>

#include <functional>
#include <vector>

QString gsExcelColName(int n) {
    if (n < 1 || n > 259) {
        return {};
    }
    if (n < 26) {
        return QString(QChar(u'A' + n - 1));
    }
    return QString(QChar(u'A' + n / 26 - 1)) + QChar(u'A' + n % 26);
}

void gsExcelColName(int n, QString& s) {
    s = gsExcelColName(n);
}

int excelColumnIndex(const QString& name) {
    int index = 0;
    for (const QChar c : name) {
        if (!c.isLetter()) {
            break;
        }
        index = index * 26 + (c.toUpper().unicode() - u'A' + 1);
    }
    return index - 1;
}

namespace {

// Width of a text in spreadsheet characters: Korean and other wide letters take two.
int displayWidth(QStringView text) {
    int widest = 0;
    int width = 0;
    for (const QChar c : text) {
        if (c == QLatin1Char('\n')) {
            widest = qMax(widest, width);
            width = 0;
            continue;
        }
        const char16_t u = c.unicode();
        width += (u >= 0x1100 && u <= 0x115F) || (u >= 0x2E80 && u <= 0xA4CF) ||
                         (u >= 0xAC00 && u <= 0xD7A3) || (u >= 0xF900 && u <= 0xFAFF) ||
                         (u >= 0xFF00 && u <= 0xFF60)
                     ? 2
                     : 1;
    }
    return qMax(widest, width);
}

// A cell the spreadsheet program would read as a number: digits with optional separators,
// sign and decimals. Codes with leading zeros ("001") stay texts.
bool plainNumber(const QString& text, double* value, bool* grouped) {
    if (text.isEmpty() || text.size() > 20) {
        return false;
    }
    qsizetype i = text.at(0) == QLatin1Char('-') ? 1 : 0;
    if (i >= text.size() || !text.at(i).isDigit()) {
        return false;
    }
    if (text.at(i) == QLatin1Char('0') && i + 1 < text.size() &&
        text.at(i + 1) != QLatin1Char('.')) {
        return false;
    }
    *grouped = false;
    for (qsizetype j = i; j < text.size(); ++j) {
        const QChar c = text.at(j);
        if (c == QLatin1Char(',')) {
            *grouped = true;
        } else if (!c.isDigit() && c != QLatin1Char('.')) {
            return false;
        }
    }
    return gfIsNumeric(text, value);
}

std::function<bool(const QString&)>& desktopOpener() {
    static std::function<bool(const QString&)> open;
    return open;
}

// Opens a file or folder with the desktop's program for it; true where there is nothing to open
// on (no screen, or TORVIX_NO_OPEN set).
bool openOnDesktop(const QString& path) {
    if (desktopOpener()) {
        return desktopOpener()(path);
    }
    const QString platform = QGuiApplication::platformName();
    if (qEnvironmentVariableIsSet("TORVIX_NO_OPEN") || platform == QLatin1String("offscreen") ||
        platform == QLatin1String("minimal")) {
        return true;
    }
    return QDesktopServices::openUrl(QUrl::fromLocalFile(path));
}

class Writer {
public:
    explicit Writer(lxw_worksheet* sheet) : m_sheet(sheet) {}
    bool text(int row, int col, QStringView text, lxw_format* format) {
        const qsizetype need = m_encoder.requiredSpace(text.size()) + 1;
        if (qsizetype(m_buffer.size()) < need) {
            m_buffer.resize(size_t(need));
        }
        char* end = m_encoder.appendToBuffer(m_buffer.data(), text);
        *end = '\0';
        return worksheet_write_string(m_sheet, lxw_row_t(row), lxw_col_t(col), m_buffer.data(),
                                      format) == LXW_NO_ERROR;
    }

private:
    lxw_worksheet* m_sheet;
    QStringEncoder m_encoder{QStringEncoder::Utf8};
    std::vector<char> m_buffer = std::vector<char>(256);
};

struct Column {
    int grid = 0;  // grid column
    int sheet = 0; // zero-based sheet column
    bool hidden = false;
    bool date = false;
    lxw_format* format = nullptr;
    int width = 0;
};

// A merge of heading cells, in zero-based heading rows and sheet columns, with its text.
struct HeadMerge {
    int firstRow, lastRow, firstCol, lastCol;
    QByteArray text;
    bool wrap;
};

// The grid's heading merges over the sheet's columns: hidden columns drop out of a merge, and a
// merge left with one cell is none.
std::vector<HeadMerge> headMerges(const SpreadModel* model, const std::vector<Column>& columns) {
    std::vector<HeadMerge> out;
    const int heads = model->headRows();
    for (const SpreadModel::Span& s : model->spans()) {
        if (s.modelRow >= heads || s.modelCol < 1) {
            continue;
        }
        int first = -1;
        int last = -1;
        for (const Column& col : columns) {
            if (!col.hidden && col.grid >= s.modelCol && col.grid < s.modelCol + s.cols) {
                first = first < 0 ? col.sheet : first;
                last = col.sheet;
            }
        }
        if (first < 0 || (first == last && s.rows == 1)) {
            continue;
        }
        QString text = model->raw(SpreadModel::kHeadBase + s.modelRow, s.modelCol);
        text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
        out.push_back({s.modelRow, s.modelRow + s.rows - 1, first, last, text.toUtf8(),
                       text.contains(QLatin1Char('\n'))});
    }
    return out;
}

const HeadMerge* mergeAt(const std::vector<HeadMerge>& merges, int row, int sheetCol) {
    for (const HeadMerge& m : merges) {
        if (row >= m.firstRow && row <= m.lastRow && sheetCol >= m.firstCol &&
            sheetCol <= m.lastCol) {
            return &m;
        }
    }
    return nullptr;
}

} // namespace

bool writeGridWorkbook(const QString& path, const QString& title, int lastCol, Spread* grid,
                       const QString& subTitle, const QString& date) {
    SpreadModel* model = grid->model();
    lastCol = qMin(lastCol, grid->maxCols());
    if (lastCol < 1) {
        return false;
    }
    lxw_workbook_options options = {};
    options.constant_memory = LXW_TRUE; // rows go to disk as they are written
    const QByteArray file = QFile::encodeName(path);
    lxw_workbook* book = workbook_new_opt(file.constData(), &options);
    if (!book) {
        return false;
    }
    lxw_worksheet* sheet = workbook_add_worksheet(book, nullptr);

    lxw_format* titleFormat = workbook_add_format(book);
    format_set_font_name(titleFormat, "돋움");
    format_set_font_size(titleFormat, 16);
    format_set_align(titleFormat, LXW_ALIGN_CENTER);
    format_set_align(titleFormat, LXW_ALIGN_VERTICAL_CENTER);
    lxw_format* dateLine = workbook_add_format(book);
    format_set_align(dateLine, LXW_ALIGN_LEFT);
    format_set_align(dateLine, LXW_ALIGN_VERTICAL_CENTER);
    lxw_format* headFirst = workbook_add_format(book);
    format_set_align(headFirst, LXW_ALIGN_CENTER);
    format_set_align(headFirst, LXW_ALIGN_VERTICAL_CENTER);
    lxw_format* headFirstWrap = workbook_add_format(book);
    format_set_align(headFirstWrap, LXW_ALIGN_CENTER);
    format_set_align(headFirstWrap, LXW_ALIGN_VERTICAL_CENTER);
    format_set_text_wrap(headFirstWrap);
    lxw_format* headWrap = workbook_add_format(book);
    format_set_align(headWrap, LXW_ALIGN_CENTER);
    format_set_align(headWrap, LXW_ALIGN_VERTICAL_CENTER);
    format_set_text_wrap(headWrap);
    lxw_format* dateColumn = workbook_add_format(book);
    format_set_num_format(dateColumn, "yyyy\"-\"mm\"-\"dd\"\";@");
    format_set_align(dateColumn, LXW_ALIGN_CENTER);
    format_set_align(dateColumn, LXW_ALIGN_VERTICAL_CENTER);
    // Negative amounts red, as on screen.
    lxw_format* decimals = workbook_add_format(book);
    format_set_num_format(decimals, "#,##0.00_ ;[Red]\\-#,##0.00\\ ");
    lxw_format* whole = workbook_add_format(book);
    format_set_num_format(whole, "#,##0_ ;[Red]\\-#,##0\\ ");
    lxw_format* grouped = workbook_add_format(book);
    format_set_num_format(grouped, "#,##0;[Red]\\-#,##0");
    lxw_format* plainNegative = workbook_add_format(book);
    format_set_num_format(plainNegative, "General;[Red]\\-General");

    // Column formats, decided from the first data row.
    std::vector<Column> columns;
    for (int c = 1; c <= lastCol; ++c) {
        Column col;
        col.grid = c;
        col.sheet = excelColumnIndex(gsExcelColName(c));
        col.hidden = model->columnHidden(c);
        const QString first = gfSpreadCellText(grid, 1, c, true);
        double value = 0;
        if (first.contains(QLatin1Char('/'))) {
            col.date = true;
            col.format = dateColumn;
        } else if (gfIsNumeric(gfSpreadCellText(grid, 1, c, false), &value) && value > 0 &&
                   model->format(1, c).type == SpreadFloat) {
            col.format = first.contains(QLatin1Char('.')) ? decimals : whole;
        }
        columns.push_back(col);
    }

    Writer writer(sheet);
    bool ok = true;
    const int lastSheetCol = columns.back().sheet;
    // A sheet of one column has nothing to merge (and a single cell cannot be merged).
    const auto mergeRow = [&](int row, lxw_format* format) {
        return lastSheetCol == 0 ||
               worksheet_merge_range(sheet, lxw_row_t(row), 0, lxw_row_t(row),
                                     lxw_col_t(lastSheetCol), "", format) == LXW_NO_ERROR;
    };
    ok &= mergeRow(0, titleFormat);
    ok &= writer.text(0, 0, title, titleFormat);
    const QString dateText = date.size() >= 8 ? date.left(4) + QLatin1Char('-') + date.mid(4, 2) +
                                                    QLatin1Char('-') + date.mid(6, 2)
                                              : date;
    ok &= mergeRow(1, dateLine);
    const QString dateRow =
        dateText + QLatin1String("  ") + QString(17, QLatin1Char(' ')) + subTitle;
    ok &= writer.text(1, 0, dateRow, dateLine);
    worksheet_set_row(sheet, 0, 24, nullptr);

    const auto cellText = [&](int row, int col) {
        QString t = gfSpreadCellText(grid, row, col, true);
        if (t.contains(QLatin1Char('\r'))) {
            t.replace(QLatin1String("\r\n"), QLatin1String("\n"));
        }
        return t;
    };

    const int heads = grid->headRows();
    const std::vector<HeadMerge> merges = headMerges(model, columns);
    // Rows are written in order (constant memory): a merge is announced on its last row, when its
    // first cell has been written already.
    for (int h = 0; h < heads && ok; ++h) {
        for (Column& col : columns) {
            if (col.hidden) {
                continue;
            }
            const HeadMerge* merge = mergeAt(merges, h, col.sheet);
            const bool origin = !merge || (merge->firstRow == h && merge->firstCol == col.sheet);
            const QString t = origin ? cellText(SpreadModel::kHeadBase + h, col.grid) : QString();
            if (!merge || merge->firstCol == merge->lastCol) {
                col.width = qMax(col.width, displayWidth(t));
            }
            lxw_format* f = t.contains(QLatin1Char('\n')) ? headWrap : headFirst;
            if (!t.isEmpty() || h == 0 || merge) {
                ok &= writer.text(2 + h, col.sheet, t, f);
            }
        }
        for (const HeadMerge& m : merges) {
            if (m.lastRow == h) {
                ok &= worksheet_merge_range(sheet, lxw_row_t(2 + m.firstRow), lxw_col_t(m.firstCol),
                                            lxw_row_t(2 + m.lastRow), lxw_col_t(m.lastCol),
                                            m.firstRow == h ? m.text.constData() : "",
                                            m.wrap ? headWrap : headFirst) == LXW_NO_ERROR;
            }
        }
    }

    const int rows = grid->maxRows();
    for (int r = 1; r <= rows && ok; ++r) {
        const int sheetRow = 2 + heads + r - 1;
        for (Column& col : columns) {
            if (col.hidden) {
                continue;
            }
            const QString t = cellText(r, col.grid);
            if (t.isEmpty()) {
                continue;
            }
            double number = 0;
            bool withSeparators = false;
            if (col.date) {
                const QDate d =
                    QDate::fromString(t.left(10).replace(QLatin1Char('-'), QLatin1Char('/')),
                                      QStringLiteral("yyyy/MM/dd"));
                if (d.isValid()) {
                    lxw_datetime when = {d.year(), d.month(), d.day(), 0, 0, 0};
                    ok &= worksheet_write_datetime(sheet, lxw_row_t(sheetRow), lxw_col_t(col.sheet),
                                                   &when, col.format) == LXW_NO_ERROR;
                    col.width = qMax(col.width, 10);
                    continue;
                }
            } else if (plainNumber(t, &number, &withSeparators)) {
                lxw_format* f = col.format       ? col.format
                                : withSeparators ? grouped
                                : number < 0     ? plainNegative
                                                 : nullptr;
                ok &= worksheet_write_number(sheet, lxw_row_t(sheetRow), lxw_col_t(col.sheet),
                                             number, f) == LXW_NO_ERROR;
                col.width = qMax(col.width,
                                 int(t.size()) +
                                     (col.format && !withSeparators ? int(t.size()) / 3 + 1 : 0));
                continue;
            }
            col.width = qMax(col.width, displayWidth(t));
            ok &= writer.text(sheetRow, col.sheet, t, col.format);
        }
    }

    // Widths fitted to the content; a column with nothing written keeps the grid's width.
    for (const Column& col : columns) {
        const double width = col.hidden      ? 0.0
                             : col.width > 0 ? col.width + 2.0
                                             : model->columnWidth(col.grid);
        lxw_row_col_options hidden = {};
        hidden.hidden = LXW_TRUE;
        ok &= worksheet_set_column_opt(sheet, lxw_col_t(col.sheet), lxw_col_t(col.sheet), width,
                                       col.hidden ? nullptr : col.format,
                                       col.hidden ? &hidden : nullptr) == LXW_NO_ERROR;
    }
    worksheet_set_selection(sheet, 0, 0, 0, 0);

    SheetPrint print;
    print.lastRow = 2 + heads + qMax(rows, 1) - 1;
    print.lastCol = lastSheetCol;
    if (heads > 0) {
        print.headFirst = 2;
        print.headLast = 2 + heads - 1;
    }
    print.widths.assign(size_t(lastSheetCol) + 1, 8.43); // the sheet's default width
    for (const Column& col : columns) {
        print.widths[size_t(col.sheet)] = col.hidden      ? 0.0
                                          : col.width > 0 ? col.width + 2.0
                                                          : model->columnWidth(col.grid);
    }
    ok &= setUpSheetPrint(sheet, print);
    ok &= workbook_close(book) == LXW_NO_ERROR;
    return ok;
}

QString reportFileName(const QString& title) {
    // Characters no file system takes become blanks; runs of blanks become one.
    QString name = title;
    static const QString unsafe = QStringLiteral("\\/:*?\"<>|");
    for (QChar& c : name) {
        if (unsafe.contains(c) || c.category() == QChar::Other_Control) {
            c = QLatin1Char(' ');
        }
    }
    name = name.simplified();
    return name.isEmpty() ? QStringLiteral("Report") : name;
}

QString gsExcelExport(const QString& title, int lastCol, Spread* grid, const QString& subTitle) {
    if (grid->dataRowCnt() == 0) {
        return {};
    }
    const QString folder = dataFolder() + QStringLiteral("/Report");
    const QString path = folder + QLatin1Char('/') + reportFileName(title) + QLatin1Char('_') +
                         QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMdd_hhmmss")) +
                         QStringLiteral(".xlsx");
    const QString date = gfRdoGetDbSysDate();
    if (!QDir().mkpath(folder) || !writeGridWorkbook(path, title, lastCol, grid, subTitle, date)) {
        QFile::remove(path); // nothing half written stays behind
        gfsPlainBox(QStringLiteral("엑셀화일 생성시 오류"), QStringLiteral("엑셀생성에러"));
        return {};
    }
    // Without a program for workbooks the user still learns where the file is.
    if (!openOnDesktop(path) &&
        gfsAsk(QStringLiteral("엑셀 파일을 열 프로그램이 없습니다.\r\n파일 위치: ") +
               QDir::toNativeSeparators(path) + QStringLiteral("\r\n폴더를 여시겠습니까?")) ==
            QStringLiteral("OK")) {
        openOnDesktop(folder);
    }
    return path;
}

void setDesktopOpener(std::function<bool(const QString&)> open) {
    desktopOpener() = std::move(open);
}
