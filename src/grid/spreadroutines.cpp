#include "spreadroutines.h"

#include "numerictext.h"

#include <cmath>

namespace {

// Most cells have no blank at either end: they need no trimming.
QStringView trimmedView(const QString& text) {
    if (text.isEmpty() || (!text.front().isSpace() && !text.back().isSpace())) {
        return text;
    }
    return QStringView(text).trimmed();
}

quint32 markedColor(const QString& text, const QString& markText, quint32 markColor,
                    bool wholeNumber) {
    const QStringView trimmed = trimmedView(text);
    if (trimmed == trimmedView(markText)) {
        return markColor;
    }
    // Only a number below zero is marked, and one begins with its sign: a list of thousands of
    // cells reads no other number.
    if (!trimmed.startsWith(u'-')) {
        return 0;
    }
    double v = 0;
    if (gfIsNumeric(text, &v)) {
        if (wholeNumber) {
            v = std::round(v);
        }
        if (v < 0) {
            return markColor;
        }
    }
    return 0;
}

const QString& emptyText() {
    static const QString empty;
    return empty;
}

bool isLoneZero(const QString& text) {
    return text.size() == 1 && text.at(0) == QLatin1Char('0');
}

void refreshMerges(Spread* grid) {
    if (grid->redraw()) {
        grid->updateMerges();
    }
}

} // namespace

void gsSpreadInit(Spread* grid, const QString& fontName, int fontSize, int headHeight,
                  int rowHeight, int frozenCols, quint32 gridColor, int scrollBars,
                  bool headingFlag, bool readOnly, int headRows) {
    QFont font;
    // The shops' font first; a Korean font of the system where it is missing.
    font.setFamilies(
        {fontName, QStringLiteral("NanumGothicCoding"), QStringLiteral("NanumGothic")});
    font.setPointSize(fontSize > 0 ? fontSize : 10);
    font.setBold(false);
    grid->setGridFont(font);
    grid->setHeadRows(qMax(1, headRows));
    grid->model()->setHeadingNumbers(headingFlag);
    grid->setRowHeights(headHeight, rowHeight);
    grid->setFrozenCols(frozenCols);
    grid->setGridColor(gridColor);
    grid->setScrollBars(scrollBars);
    grid->setReadOnly(readOnly);
    grid->setRowMode(!readOnly);
}

void gsSpreadColumn(Spread* grid, int col, const QString& heading, int type, double width,
                    int maxLength, const QString& align, int headRow, int charCase, bool shadow,
                    double floatMax, double floatMin, int decimals, const QString& dateMax,
                    const QString& dateMin, const QString& spare, const QString& comboList,
                    int comboIndex, const QString& checkText) {
    Q_UNUSED(spare);
    if (col < 1) {
        return;
    }
    if (col > grid->maxCols()) {
        grid->setMaxCols(col);
    }
    if (headRow >= grid->headRows()) {
        grid->setHeadRows(headRow + 1);
    }
    SpreadModel* m = grid->model();
    m->setText(SpreadModel::kHeadBase + qMax(0, headRow), col, heading);

    SpreadFormat f = m->columnFormat(col);
    f.type = type;
    const QString letter = align.trimmed().toUpper();
    if (letter == QLatin1String("L")) {
        f.align = SpreadLeft;
    } else if (letter == QLatin1String("M")) {
        f.align = SpreadCenter;
    } else if (letter == QLatin1String("R")) {
        f.align = SpreadRight;
    }
    f.maxLength = maxLength;
    f.charCase = charCase;
    f.shadow = shadow;
    f.floatMax = floatMax;
    f.floatMin = floatMin;
    f.decimals = decimals;
    f.dateMax = dateMax.isEmpty() ? QStringLiteral("21001231") : dateMax;
    f.dateMin = dateMin.isEmpty() ? QStringLiteral("19000101") : dateMin;
    if (type == SpreadCombo) {
        f.comboItems = comboList.split(QLatin1Char('\t'));
        f.comboIndex = comboIndex;
    }
    f.checkText = checkText;
    m->setColumnFormat(col, f);
    grid->setColumnWidth(col, width);
}

void gsSpreadCell(Spread* grid, int row, int col, int type, int maxLength, int hAlign, int charCase,
                  bool shadow, double floatMax, double floatMin, int decimals, const QString& spare,
                  const QString& comboList, int comboIndex, const QString& checkText) {
    Q_UNUSED(spare);
    SpreadModel* m = grid->model();
    if (!m->validCell(row, col)) {
        return;
    }
    SpreadFormat f = m->format(row, col);
    f.type = type;
    f.maxLength = maxLength;
    f.align = qBound(int(SpreadLeft), hAlign, int(SpreadCenter));
    f.charCase = charCase;
    f.shadow = shadow;
    f.floatMax = floatMax;
    f.floatMin = floatMin;
    f.decimals = decimals;
    if (!comboList.trimmed().isEmpty()) {
        f.comboItems = comboList.split(QLatin1Char('\t'));
    }
    f.checkText = checkText;
    m->setCellFormat(row, col, f);
    if (type == SpreadCombo && comboIndex >= 0) {
        m->setValue(row, col, QString::number(comboIndex));
    }
}

namespace {

// gsSpreadSetText without touching the caller's text; true when a lone zero went in blank.
bool writeMarkedText(Spread* grid, int row, int col, const QString& text, quint32 markColor,
                     const QString& markText, const QString& flag) {
    SpreadModel* m = grid->model();
    if (!m->validCell(row, col)) {
        return false;
    }
    const quint32 fore = markedColor(text, markText, markColor, false);
    const bool blank = flag.size() == 1 && flag.front() == u'N' && isLoneZero(text);
    m->setText(row, col, blank ? emptyText() : text, fore);
    return blank;
}

} // namespace

void gsSpreadSetText(Spread* grid, int row, int col, QString& text, quint32 markColor,
                     const QString& markText, const QString& flag) {
    if (writeMarkedText(grid, row, col, text, markColor, markText, flag)) {
        text.clear();
    }
}

void gsSpreadSetText(Spread* grid, int row, int col, const QString& text, quint32 markColor,
                     const QString& markText, const QString& flag) {
    writeMarkedText(grid, row, col, text, markColor, markText, flag);
}

void gsSpreadSetValue(Spread* grid, int row, int col, QString& text, quint32 markColor,
                      const QString& markText) {
    SpreadModel* m = grid->model();
    if (!m->validCell(row, col)) {
        return;
    }
    if (!gfIsNumeric(text)) {
        text = QStringLiteral("0");
    }
    m->setForeColor(row, col, markedColor(text, markText, markColor, true));
    m->setValue(row, col, text);
}

void gsSpreadSetValue(Spread* grid, int row, int col, const QString& text, quint32 markColor,
                      const QString& markText) {
    QString copy = text;
    gsSpreadSetValue(grid, row, col, copy, markColor, markText);
}

QString gfSpreadText(Spread* grid, int row, int col) {
    return grid->model()->text(row, col);
}

QString gfSpreadValue(Spread* grid, int row, int col) {
    SpreadModel* m = grid->model();
    if (!m->validCell(row, col)) {
        return QStringLiteral("0");
    }
    QString value = m->value(row, col);
    if (!gfIsNumeric(value)) {
        m->setValue(row, col, QStringLiteral("0"));
        value = m->value(row, col);
    }
    return value.isEmpty() ? QStringLiteral("0") : value;
}

QString gfSpreadCellText(Spread* grid, int row, int col, bool byText) {
    SpreadModel* m = grid->model();
    return (byText ? m->text(row, col) : m->value(row, col)).trimmed();
}

int gfSpreadFindRow(Spread* grid, int col, const QString& text) {
    SpreadModel* m = grid->model();
    const int rows = m->dataRowCnt();
    for (int row = 1; row <= rows; ++row) {
        if (m->text(row, col) == text) {
            grid->setActiveCell(row, col);
            return row;
        }
    }
    return 0;
}

void gsSpreadSelectRow(Spread* grid, int row) {
    grid->selectRow(row);
}

namespace {

template <typename Paint>
void eachRowCell(Spread* grid, int row, int firstCol, int lastCol, Paint paint) {
    const int first = row == -1 ? 1 : row;
    const int last = row == -1 ? grid->maxRows() : row;
    for (int r = first; r <= last; ++r) {
        for (int c = qMax(1, firstCol); c <= qMin(lastCol, grid->maxCols()); ++c) {
            paint(r, c);
        }
    }
}

} // namespace

void gsSpreadRowForeColor(Spread* grid, int row, quint32 color) {
    SpreadModel* m = grid->model();
    eachRowCell(grid, row, 1, grid->maxCols(), [&](int r, int c) { m->setForeColor(r, c, color); });
}

void gsSpreadRowBackColor(Spread* grid, int row, quint32 color) {
    gsSpreadRangeBackColor(grid, row, 1, grid->maxCols(), color);
}

void gsSpreadColBackColor(Spread* grid, int col, quint32 color) {
    SpreadModel* m = grid->model();
    if (col == -1) {
        for (int c = 1; c <= grid->maxCols(); ++c) {
            m->setColumnBackColor(c, color);
        }
    } else {
        m->setColumnBackColor(col, color);
    }
}

void gsSpreadRangeBackColor(Spread* grid, int row, int firstCol, int lastCol, quint32 color) {
    SpreadModel* m = grid->model();
    eachRowCell(grid, row, firstCol, lastCol, [&](int r, int c) { m->setBackColor(r, c, color); });
}

void gsSpreadFreezeCols(Spread* grid, int n) {
    if (n <= 0) {
        grid->setFrozenCols(0);
        return;
    }
    for (int c = 1; c <= qMin(n, grid->maxCols()); ++c) {
        gsSpreadColBackColor(grid, c, kSpreadFrozenBack);
    }
    grid->setFrozenCols(n);
}

void gsSpreadFreezeRows(Spread* grid, int n) {
    if (n <= 0) {
        grid->setFrozenRows(0);
        return;
    }
    grid->setFrozenRows(n);
    grid->model()->setFrozenRowBack(kSpreadFrozenBack);
}

void gsSpreadColMerge(Spread* grid, int firstCol, int lastCol) {
    for (int c = qMax(1, firstCol); c <= qMin(lastCol, grid->maxCols()); ++c) {
        grid->model()->setColumnMerge(c, 2);
    }
    refreshMerges(grid);
}

void gsSpreadRowMerge(Spread* grid, int headRows) {
    grid->model()->setHeadRowMerge(qMax(0, headRows));
    refreshMerges(grid);
}

void gsSpreadHeaderColMerge(Spread* grid, int firstCol, int lastCol) {
    for (int c = qMax(1, firstCol); c <= qMin(lastCol, grid->maxCols()); ++c) {
        grid->model()->setHeadColumnMerge(c, 2);
    }
    refreshMerges(grid);
}
