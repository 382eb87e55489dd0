#include "spreadmodel.h"

#include "numerictext.h"

#include <QDate>

#include <algorithm>
#include <numeric>

namespace {

// Headings and shadowed cells.
const QColor& shadowColor() {
    static const QColor color(166, 202, 240);
    return color;
}

// "20240315", "2024-03-15", "2024/03/15", "2024.03.15" -> "20240315"; anything else "".
QString dateDigits(const QString& text) {
    QString digits;
    digits.reserve(8);
    for (const QChar c : text) {
        if (c.isDigit()) {
            digits += c;
        } else if (c != QLatin1Char('-') && c != QLatin1Char('/') && c != QLatin1Char('.') &&
                   !c.isSpace()) {
            return {};
        }
    }
    if (digits.size() != 8 || !QDate::fromString(digits, QStringLiteral("yyyyMMdd")).isValid()) {
        return {};
    }
    return digits;
}

bool isCheckedText(const QString& text) {
    const QString t = text.trimmed();
    return t == QLatin1String("1") || t == QLatin1String("-1") ||
           t.compare(QLatin1String("true"), Qt::CaseInsensitive) == 0;
}

Qt::Alignment horizontal(const SpreadFormat& format) {
    int align = format.align;
    if (align == SpreadAlignDefault) {
        switch (format.type) {
        case SpreadFloat:
            align = SpreadRight;
            break;
        case SpreadDate:
        case SpreadCheck:
        case SpreadButton:
            align = SpreadCenter;
            break;
        default:
            align = SpreadLeft;
        }
    }
    return align == SpreadRight    ? Qt::AlignRight
           : align == SpreadCenter ? Qt::AlignHCenter
                                   : Qt::AlignLeft;
}

} // namespace

QColor spreadColor(quint32 bgr) {
    return QColor(int(bgr & 0xFF), int((bgr >> 8) & 0xFF), int((bgr >> 16) & 0xFF));
}

SpreadModel::SpreadModel(QObject* parent) : QAbstractTableModel(parent) {
    m_cols.resize(1);
    m_cols[0].width = 0;
    m_head.resize(1);
}

// ---- shape

void SpreadModel::setMaxRows(int rows) {
    rows = qMax(0, rows);
    const int old = maxRows();
    if (rows == old) {
        return;
    }
    const int first = headRows() + qMin(rows, old);
    const int last = headRows() + qMax(rows, old) - 1;
    if (m_redraw) {
        rows > old ? beginInsertRows({}, first, last) : beginRemoveRows({}, first, last);
    }
    if (rows < old) {
        for (auto it = m_cellFormats.begin(); it != m_cellFormats.end();) {
            const int row = int(it.key() >> 20) + kHeadBase;
            it = row > rows ? m_cellFormats.erase(it) : std::next(it);
        }
        for (size_t r = size_t(rows); r < m_rows.size(); ++r) {
            release(m_rows[r]);
        }
    }
    m_rows.resize(size_t(rows));
    if (rows < old) {
        compactIfWorthIt();
    }
    if (m_redraw) {
        rows > old ? endInsertRows() : endRemoveRows();
    }
}

void SpreadModel::setMaxCols(int cols) {
    cols = qMax(0, cols);
    const int old = maxCols();
    if (cols == old) {
        return;
    }
    if (m_redraw) {
        cols > old ? beginInsertColumns({}, old + 1, cols) : beginRemoveColumns({}, cols + 1, old);
    }
    m_cols.resize(size_t(cols) + 1);
    if (cols < old) {
        const auto trim = [this, cols](Row& row) {
            if (row.size() > size_t(cols) + 1) {
                release(row, size_t(cols) + 1);
                row.resize(size_t(cols) + 1);
            }
        };
        std::for_each(m_head.begin(), m_head.end(), trim);
        std::for_each(m_rows.begin(), m_rows.end(), trim);
        m_frozenCols = qMin(m_frozenCols, cols);
        compactIfWorthIt();
    }
    if (m_redraw) {
        cols > old ? endInsertColumns() : endRemoveColumns();
    }
}

void SpreadModel::setHeadRows(int rows) {
    rows = qMax(1, rows);
    if (rows == headRows()) {
        return;
    }
    const bool reset = m_redraw;
    if (reset) {
        beginResetModel();
    }
    for (size_t r = size_t(rows); r < m_head.size(); ++r) {
        release(m_head[r]);
    }
    m_head.resize(size_t(rows));
    m_cellFormats.clear();
    compactIfWorthIt();
    if (reset) {
        endResetModel();
    }
}

int SpreadModel::dataRowCnt() const {
    for (int r = maxRows(); r >= 1; --r) {
        const Row& row = m_rows[size_t(r - 1)];
        for (size_t c = 1; c < row.size(); ++c) {
            if (!row[c].isEmpty()) {
                return r;
            }
        }
    }
    return 0;
}

// ---- cells

const SpreadModel::Cell* SpreadModel::cell(int row, int col) const {
    if (!validCell(row, col)) {
        return nullptr;
    }
    const Row& r = row >= 1 ? m_rows[size_t(row - 1)] : m_head[size_t(row - kHeadBase)];
    return size_t(col) < r.size() ? &r[size_t(col)] : nullptr;
}

SpreadModel::Cell* SpreadModel::cellForWrite(int row, int col) {
    if (!validCell(row, col)) {
        return nullptr;
    }
    Row& r = row >= 1 ? m_rows[size_t(row - 1)] : m_head[size_t(row - kHeadBase)];
    if (r.size() < m_cols.size()) {
        r.resize(m_cols.size());
    }
    return &r[size_t(col)];
}

void SpreadModel::store(Cell& cell, const QString& text) {
    m_texts.assign(cell, text);
    if (m_texts.wantsCompaction()) {
        compactIfWorthIt();
    }
}

void SpreadModel::release(Row& row, size_t from) {
    for (size_t c = from; c < row.size(); ++c) {
        m_texts.release(row[c]);
    }
}

template <typename Visit> void SpreadModel::forEachCell(Visit visit) {
    for (std::vector<Row>* rows : {&m_head, &m_rows}) {
        for (Row& row : *rows) {
            for (Cell& c : row) {
                visit(c);
            }
        }
    }
}

void SpreadModel::compactIfWorthIt() {
    if (m_texts.wantsCompaction()) {
        m_texts.compact([this](auto&& visit) { forEachCell(visit); });
    }
}

quint16 SpreadModel::colorIndex(quint32 bgr) {
    // A grid mostly shows the first few colours it was given (the red of negative amounts).
    for (size_t i = 1; i < std::min<size_t>(m_palette.size(), 4); ++i) {
        if (m_palette[i] == bgr) {
            return quint16(i);
        }
    }
    if (const auto it = m_paletteIndex.constFind(bgr); it != m_paletteIndex.constEnd()) {
        return *it;
    }
    if (m_palette.size() > 0xFFFF) {
        rebuildPalette();
        if (m_palette.size() > 0xFFFF) {
            // 65535 colours in use at once: the grid of a screen never comes near. The cell keeps
            // the default colour rather than take another cell's.
            return 0;
        }
    }
    m_palette.push_back(bgr);
    const auto index = quint16(m_palette.size() - 1);
    m_paletteIndex.insert(bgr, index);
    return index;
}

void SpreadModel::rebuildPalette() {
    std::vector<quint32> palette{0};
    QHash<quint32, quint16> indices;
    const auto remap = [&](quint16& index) {
        if (index == 0) {
            return;
        }
        const quint32 bgr = m_palette[index];
        auto it = indices.constFind(bgr);
        if (it == indices.constEnd()) {
            palette.push_back(bgr);
            it = indices.insert(bgr, quint16(palette.size() - 1));
        }
        index = *it;
    };
    forEachCell([&](Cell& c) {
        remap(c.fore);
        remap(c.back);
    });
    m_palette = std::move(palette);
    m_paletteIndex = std::move(indices);
}

const SpreadFormat& SpreadModel::formatRef(int row, int col) const {
    return formatOf(cell(row, col), row, col);
}

const SpreadFormat& SpreadModel::formatOf(const Cell* c, int row, int col) const {
    if (c && (c->flags & kOwnFormat)) {
        const auto it = m_cellFormats.constFind(key(row, col));
        if (it != m_cellFormats.constEnd()) {
            return *it;
        }
    }
    if (row < 1) {
        // Heading cells are plain text whatever the column's type.
        static const SpreadFormat heading{SpreadStatic, SpreadCenter};
        return heading;
    }
    return m_cols[size_t(col)].format;
}

SpreadFormat SpreadModel::format(int row, int col) const {
    return validCell(row, col) ? formatRef(row, col) : SpreadFormat{};
}

QString SpreadModel::normalised(const SpreadFormat& format, const QString& text) const {
    switch (format.type) {
    case SpreadFloat: {
        double v = 0;
        if (!gfIsNumeric(text, &v)) {
            return {};
        }
        return QString::number(v, 'f', qBound(0, format.decimals, 15));
    }
    case SpreadDate:
        return dateDigits(text);
    case SpreadCombo: {
        const qsizetype index = format.comboItems.indexOf(text);
        return index < 0 ? QString() : QString::number(index);
    }
    case SpreadCheck:
        return text.isEmpty()        ? QString()
               : isCheckedText(text) ? QStringLiteral("1")
                                     : QStringLiteral("0");
    default:
        if (format.charCase == 1) {
            return text.toUpper();
        }
        if (format.charCase == 2) {
            return text.toLower();
        }
        return text;
    }
}

QString SpreadModel::shown(const SpreadFormat& format, const QString& raw) const {
    switch (format.type) {
    case SpreadFloat: {
        double v = 0;
        return gfIsNumeric(raw, &v) ? formatGrouped(v, format.decimals) : raw;
    }
    case SpreadDate:
        return raw.size() == 8 ? raw.left(4) + QLatin1Char('/') + raw.mid(4, 2) + QLatin1Char('/') +
                                     raw.mid(6, 2)
                               : raw;
    case SpreadCombo: {
        const int index = raw.isEmpty() ? format.comboIndex : raw.toInt();
        return format.comboItems.value(index);
    }
    default:
        return raw;
    }
}

QString SpreadModel::raw(int row, int col) const {
    const Cell* c = cell(row, col);
    return c ? m_texts.text(*c) : QString();
}

QString SpreadModel::text(int row, int col) const {
    if (!validCell(row, col)) {
        return {};
    }
    const SpreadFormat& f = formatRef(row, col);
    const QString r = raw(row, col);
    if (row >= 1 && !f.codeNames.isEmpty()) {
        for (const auto& [code, name] : f.codeNames) {
            if (code == r) {
                return name;
            }
        }
        return f.otherName;
    }
    if (f.type == SpreadEdit || f.type == SpreadStatic || row < 1) {
        return r;
    }
    return shown(f, r);
}

QString SpreadModel::value(int row, int col) const {
    if (!validCell(row, col)) {
        return {};
    }
    const SpreadFormat& f = formatRef(row, col);
    const QString r = raw(row, col);
    if (f.type == SpreadCombo && r.isEmpty()) {
        return QString::number(f.comboIndex); // -1: nothing selected
    }
    if (f.type == SpreadCheck && r.isEmpty()) {
        return QStringLiteral("0");
    }
    return r;
}

void SpreadModel::setText(int row, int col, const QString& text) {
    if (Cell* c = cellForWrite(row, col)) {
        writeText(*c, row, col, text);
        changed(row, col);
    }
}

void SpreadModel::setText(int row, int col, const QString& text, quint32 foreColor) {
    if (Cell* c = cellForWrite(row, col)) {
        foreColor &= 0xFFFFFF;
        c->fore = foreColor ? colorIndex(foreColor) : 0;
        writeText(*c, row, col, text);
        changed(row, col);
    }
}

void SpreadModel::writeText(Cell& cell, int row, int col, const QString& text) {
    const SpreadFormat& f = formatOf(&cell, row, col);
    if (row < 1 || ((f.type == SpreadEdit || f.type == SpreadStatic) && f.charCase == 0)) {
        store(cell, text);
    } else {
        store(cell, normalised(f, text));
    }
}

void SpreadModel::setValue(int row, int col, const QString& value) {
    Cell* c = cellForWrite(row, col);
    if (!c) {
        return;
    }
    const SpreadFormat& f = formatRef(row, col);
    switch (f.type) {
    case SpreadCombo: {
        bool ok = false;
        const int index = value.trimmed().toInt(&ok);
        store(*c,
              ok && index >= 0 && index < f.comboItems.size() ? QString::number(index) : QString());
        break;
    }
    case SpreadCheck:
        store(*c, isCheckedText(value) ? QStringLiteral("1") : QStringLiteral("0"));
        break;
    default:
        store(*c, row < 1 ? value : normalised(f, value));
    }
    changed(row, col);
}

void SpreadModel::changed(int row, int col) {
    if (m_redraw) {
        const QModelIndex i = index(toModelRow(row), col);
        emit dataChanged(i, i);
    }
}

// ---- look

void SpreadModel::setColumnFormat(int col, const SpreadFormat& format) {
    if (col < 0 || col > maxCols()) {
        return;
    }
    const bool typeChanged = m_cols[size_t(col)].format.type != format.type;
    // Keep what the cells show when their type changes under them.
    std::vector<QString> shownTexts;
    if (typeChanged) {
        shownTexts.resize(m_rows.size());
        for (int r = 1; r <= maxRows(); ++r) {
            shownTexts[size_t(r - 1)] = text(r, col);
        }
    }
    for (int r = 1; r <= maxRows(); ++r) {
        if (const Cell* c = cell(r, col); c && (c->flags & kOwnFormat)) {
            cellForWrite(r, col)->flags &= quint8(~kOwnFormat);
            m_cellFormats.remove(key(r, col));
        }
    }
    m_cols[size_t(col)].format = format;
    if (typeChanged) {
        for (int r = 1; r <= maxRows(); ++r) {
            if (!shownTexts[size_t(r - 1)].isEmpty()) {
                store(*cellForWrite(r, col), normalised(format, shownTexts[size_t(r - 1)]));
            }
        }
    }
    if (m_redraw && maxRows() > 0) {
        emit dataChanged(index(headRows(), col), index(rowCount() - 1, col));
    }
}

void SpreadModel::setCellFormat(int row, int col, const SpreadFormat& format) {
    Cell* c = cellForWrite(row, col);
    if (!c) {
        return;
    }
    const QString before = text(row, col);
    c->flags |= kOwnFormat;
    m_cellFormats.insert(key(row, col), format);
    if (!before.isEmpty()) {
        store(*c, normalised(format, before));
    }
    changed(row, col);
}

quint32 SpreadModel::foreColor(int row, int col) const {
    const Cell* c = cell(row, col);
    return c && c->fore ? m_palette[c->fore] : 0;
}

void SpreadModel::setForeColor(int row, int col, quint32 bgr) {
    if (Cell* c = cellForWrite(row, col)) {
        bgr &= 0xFFFFFF;
        c->fore = bgr ? colorIndex(bgr) : 0;
        changed(row, col);
    }
}

quint32 SpreadModel::backColor(int row, int col) const {
    if (!validCell(row, col)) {
        return kSpreadNoColor;
    }
    const Cell* c = cell(row, col);
    if (c && c->back) {
        return m_palette[c->back];
    }
    if (row >= 1 && row <= m_frozenRows && m_frozenRowBack != kSpreadNoColor) {
        return m_frozenRowBack;
    }
    return row >= 1 ? m_cols[size_t(col)].back : kSpreadNoColor;
}

void SpreadModel::setFrozenRowBack(quint32 bgr) {
    m_frozenRowBack = bgr;
    if (m_redraw && maxRows() > 0 && maxCols() > 0) {
        emit dataChanged(index(headRows(), 0), index(rowCount() - 1, maxCols()));
    }
}

void SpreadModel::setBackColor(int row, int col, quint32 bgr) {
    if (Cell* c = cellForWrite(row, col)) {
        c->back = bgr == kSpreadNoColor ? 0 : colorIndex(bgr);
        changed(row, col);
    }
}

void SpreadModel::setColumnBackColor(int col, quint32 bgr) {
    if (col < 0 || col > maxCols()) {
        return;
    }
    m_cols[size_t(col)].back = bgr;
    for (Row& row : m_rows) {
        if (size_t(col) < row.size()) {
            row[size_t(col)].back = 0;
        }
    }
    if (m_redraw && maxRows() > 0) {
        emit dataChanged(index(headRows(), col), index(rowCount() - 1, col));
    }
}

bool SpreadModel::locked(int row, int col) const {
    if (!validCell(row, col)) {
        return true;
    }
    const Cell* c = cell(row, col);
    if (c && (c->flags & kLockSet)) {
        return c->flags & kLocked;
    }
    return m_cols[size_t(col)].locked;
}

void SpreadModel::setLocked(int row, int col, bool locked) {
    if (Cell* c = cellForWrite(row, col)) {
        c->flags = quint8((c->flags & ~kLocked) | kLockSet | (locked ? kLocked : 0));
        changed(row, col);
    }
}

void SpreadModel::setColumnLocked(int col, bool locked) {
    if (col < 0 || col > maxCols()) {
        return;
    }
    m_cols[size_t(col)].locked = locked;
    for (Row& row : m_rows) {
        if (size_t(col) < row.size()) {
            row[size_t(col)].flags &= quint8(~(kLockSet | kLocked));
        }
    }
}

void SpreadModel::setColumnWidth(int col, double width) {
    if (col >= 0 && col <= maxCols()) {
        m_cols[size_t(col)].width = qMax(0.0, width);
    }
}

void SpreadModel::setHeadingNumbers(bool on) {
    m_headingNumbers = on;
    m_cols[0].width = on ? 4.0 : 0.0;
}

// ---- merges

bool SpreadModel::hasMerges() const {
    if (m_headRowMerge > 0) {
        return true;
    }
    return std::any_of(m_cols.begin(), m_cols.end(),
                       [](const Column& c) { return c.dataMerge || c.headMerge; });
}

bool SpreadModel::mergeEqual(int modelRowA, int modelRowB, int col) const {
    const Cell* a = cell(toGridRow(modelRowA), col);
    const Cell* b = cell(toGridRow(modelRowB), col);
    if (!a || !b || a->isEmpty() || b->isEmpty()) {
        return false;
    }
    if (!a->isPooled() && !b->isPooled()) {
        return a->kind == b->kind && a->size == b->size && a->payload == b->payload;
    }
    return m_texts.text(*a) == m_texts.text(*b);
}

std::vector<SpreadModel::Span> SpreadModel::spans() const {
    std::vector<Span> out;
    const int heads = headRows();
    const int cols = maxCols();
    if (heads > 1 && m_headingNumbers) {
        out.push_back({0, 0, heads, 1});
    }

    // Vertical groups: top[r] is the first model row of the group holding row r. A restricted
    // column only joins rows that the merged column on its left also joined.
    const auto groups = [&](int first, int count, int col, int mode, const std::vector<int>* left) {
        std::vector<int> top(static_cast<size_t>(count));
        for (int i = 0; i < count; ++i) {
            const bool join = i > 0 && mode != 0 && mergeEqual(first + i - 1, first + i, col) &&
                              (mode == 1 || !left || (*left)[size_t(i)] == (*left)[size_t(i - 1)]);
            top[size_t(i)] = join ? top[size_t(i - 1)] : first + i;
        }
        return top;
    };

    // Heading rows: vertical merges of the marked columns, then horizontal runs in the merged
    // heading rows over the cells that no vertical merge took.
    std::vector<std::vector<int>> headTops(static_cast<size_t>(cols) + 1);
    std::vector<char> covered(static_cast<size_t>(heads) * static_cast<size_t>(cols + 1), 0);
    for (int c = 1; c <= cols; ++c) {
        const int mode = m_cols[size_t(c)].headMerge;
        const std::vector<int>* left =
            c > 1 && m_cols[size_t(c - 1)].headMerge ? &headTops[size_t(c - 1)] : nullptr;
        // Headings join down over at most their first nine rows.
        headTops[size_t(c)] = groups(0, heads, c, mode, left);
        for (int r = 9; r < heads; ++r) {
            headTops[size_t(c)][size_t(r)] = r;
        }
        for (int r = 0; r < heads;) {
            int n = 1;
            while (r + n < heads && headTops[size_t(c)][size_t(r + n)] == r) {
                ++n;
            }
            if (n > 1) {
                out.push_back({r, c, n, 1});
                for (int i = 0; i < n; ++i) {
                    covered[size_t(r + i) * size_t(cols + 1) + size_t(c)] = 1;
                }
            }
            r += n;
        }
    }
    for (int r = 0; r < qMin(heads, m_headRowMerge); ++r) {
        const int gridRow = toGridRow(r);
        for (int c = 1; c <= cols;) {
            int n = 1;
            const QString t = raw(gridRow, c);
            if (!covered[size_t(r) * size_t(cols + 1) + size_t(c)] && !t.isEmpty()) {
                while (c + n <= cols && !covered[size_t(r) * size_t(cols + 1) + size_t(c + n)] &&
                       raw(gridRow, c + n) == t) {
                    ++n;
                }
            }
            if (n > 1) {
                out.push_back({r, c, 1, n});
            }
            c += n;
        }
    }

    // Data rows, down the merged columns.
    const int rows = dataRowCnt();
    std::vector<int> previous;
    bool havePrevious = false;
    for (int c = 1; c <= cols; ++c) {
        const int mode = m_cols[size_t(c)].dataMerge;
        if (!mode || rows == 0) {
            havePrevious = false;
            continue;
        }
        std::vector<int> top = groups(heads, rows, c, mode, havePrevious ? &previous : nullptr);
        for (int i = 0; i < rows;) {
            int n = 1;
            while (i + n < rows && top[size_t(i + n)] == heads + i) {
                ++n;
            }
            if (n > 1) {
                out.push_back({heads + i, c, n, 1});
            }
            i += n;
        }
        previous = std::move(top);
        havePrevious = true;
    }
    return out;
}

// ---- sort

void SpreadModel::sortRows(int col, bool ascending) {
    const int rows = dataRowCnt();
    if (col < 1 || col > maxCols() || rows < 2) {
        return;
    }
    std::vector<int> order(static_cast<size_t>(rows));
    std::iota(order.begin(), order.end(), 0);
    std::vector<double> numbers(static_cast<size_t>(rows));
    std::vector<char> numeric(static_cast<size_t>(rows));
    std::vector<QString> texts(static_cast<size_t>(rows));
    for (int i = 0; i < rows; ++i) {
        texts[size_t(i)] = raw(i + 1, col);
        numeric[size_t(i)] = gfIsNumeric(texts[size_t(i)], &numbers[size_t(i)]);
    }
    const auto less = [&](int a, int b) {
        if (numeric[size_t(a)] && numeric[size_t(b)]) {
            return numbers[size_t(a)] < numbers[size_t(b)];
        }
        if (numeric[size_t(a)] != numeric[size_t(b)]) {
            return bool(numeric[size_t(a)]); // numbers before texts
        }
        return texts[size_t(a)] < texts[size_t(b)];
    };
    std::stable_sort(order.begin(), order.end(),
                     [&](int a, int b) { return ascending ? less(a, b) : less(b, a); });

    if (m_redraw) {
        beginResetModel();
    }
    std::vector<Row> sorted(static_cast<size_t>(rows));
    std::vector<int> newPosition(static_cast<size_t>(rows));
    for (int i = 0; i < rows; ++i) {
        sorted[size_t(i)] = std::move(m_rows[size_t(order[size_t(i)])]);
        newPosition[size_t(order[size_t(i)])] = i;
    }
    std::move(sorted.begin(), sorted.end(), m_rows.begin());
    QHash<quint64, SpreadFormat> formats;
    for (auto it = m_cellFormats.cbegin(); it != m_cellFormats.cend(); ++it) {
        const int row = int(it.key() >> 20) + kHeadBase;
        const int c = int(it.key() & 0xFFFFF);
        const int moved = row >= 1 && row <= rows ? newPosition[size_t(row - 1)] + 1 : row;
        formats.insert(key(moved, c), it.value());
    }
    m_cellFormats = std::move(formats);
    if (m_redraw) {
        endResetModel();
    }
}

void SpreadModel::setRedraw(bool on) {
    if (on == m_redraw) {
        return;
    }
    if (!on) {
        beginResetModel();
        m_redraw = false;
    } else {
        m_redraw = true;
        endResetModel();
    }
}

// ---- item model

int SpreadModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : headRows() + maxRows();
}

int SpreadModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : maxCols() + 1;
}

QVariant SpreadModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || index.row() >= rowCount() || index.column() >= columnCount()) {
        return {};
    }
    const int row = toGridRow(index.row());
    const int col = index.column();
    const bool heading = row < 1 || col == 0;
    const SpreadFormat& f = formatRef(row, col);
    switch (role) {
    case Qt::DisplayRole:
        if (col == 0 && m_headingNumbers) {
            if (row >= 1) {
                return raw(row, 0).isEmpty() ? QString::number(row) : raw(row, 0);
            }
            if (row == kHeadBase && raw(row, 0).isEmpty()) {
                return QStringLiteral("NO");
            }
        }
        if (heading) {
            QString t = raw(row, col);
            return t.replace(QLatin1String("\r\n"), QLatin1String("\n"));
        }
        return f.type == SpreadCheck ? f.checkText : text(row, col);
    case Qt::EditRole:
        if (f.type == SpreadCombo) {
            return value(row, col).isEmpty() ? -1 : value(row, col).toInt();
        }
        return f.type == SpreadFloat || f.type == SpreadDate ? raw(row, col) : text(row, col);
    case Qt::CheckStateRole:
        if (!heading && f.type == SpreadCheck) {
            return value(row, col) == QLatin1String("1") ? Qt::Checked : Qt::Unchecked;
        }
        return {};
    case Qt::ForegroundRole: {
        const quint32 fore = foreColor(row, col);
        return fore ? QVariant(spreadColor(fore)) : QVariant();
    }
    case Qt::BackgroundRole: {
        const quint32 back = backColor(row, col);
        if (back != kSpreadNoColor) {
            return spreadColor(back);
        }
        if (heading || (f.shadow && (f.type == SpreadStatic || f.type == SpreadButton))) {
            return shadowColor();
        }
        // Cells are white; the area outside them shows the view's button face.
        return QColor(Qt::white);
    }
    case Qt::TextAlignmentRole:
        return QVariant::fromValue((heading ? Qt::AlignHCenter : horizontal(f)) | Qt::AlignVCenter);
    case Qt::FontRole:
        return m_font;
    default:
        return {};
    }
}

bool SpreadModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (!index.isValid() || !(flags(index) & (Qt::ItemIsEditable | Qt::ItemIsUserCheckable))) {
        return false;
    }
    const int row = toGridRow(index.row());
    const int col = index.column();
    const SpreadFormat& f = formatRef(row, col);
    if (role == Qt::CheckStateRole && f.type == SpreadCheck) {
        setValue(row, col,
                 value.toInt() == Qt::Checked ? QStringLiteral("1") : QStringLiteral("0"));
    } else if (role == Qt::EditRole && f.type == SpreadCombo) {
        setValue(row, col, QString::number(value.toInt()));
    } else if (role == Qt::EditRole) {
        setText(row, col, value.toString());
    } else {
        return false;
    }
    emit cellEdited(row, col);
    return true;
}

Qt::ItemFlags SpreadModel::flags(const QModelIndex& index) const {
    if (!index.isValid()) {
        return Qt::NoItemFlags;
    }
    Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    const int row = toGridRow(index.row());
    const int col = index.column();
    if (row < 1 || col == 0 || m_readOnly || locked(row, col)) {
        return flags;
    }
    switch (formatRef(row, col).type) {
    case SpreadDate:
    case SpreadEdit:
    case SpreadFloat:
    case SpreadCombo:
        return flags | Qt::ItemIsEditable;
    case SpreadCheck:
        return flags | Qt::ItemIsUserCheckable;
    default:
        return flags;
    }
}
