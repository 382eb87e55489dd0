#include "grid/linegrid.h"

#include "grid/numerictext.h"
#include "grid/spread.h"
#include "grid/spreadroutines.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

constexpr int kPositions = 24;
// A quantity cell holds at most this many characters ("-99,999").
constexpr int kQuantityLength = 7;

// A whole number as a user types one: sign, digits, optional "," between thousands.
bool wholeNumber(const QString& text, qint64* value) {
    static const QRegularExpression shape(u"^[+-]?[0-9][0-9,]*$"_s);
    if (!shape.match(text).hasMatch()) {
        return false;
    }
    bool ok = false;
    const qint64 v = QString(text).remove(u',').toLongLong(&ok);
    if (ok && value) {
        *value = v;
    }
    return ok;
}

} // namespace

QString lineRowCaption(LineRow role) {
    switch (role) {
    case LineRow::Ordered:
        return u"발주량"_s;
    case LineRow::Received:
        return u"입고량"_s;
    case LineRow::Balance:
        return u"발란스"_s;
    case LineRow::Stock:
        return u"재고"_s;
    case LineRow::Outgoing:
        return u"출고"_s;
    case LineRow::Remaining:
        return u"잔량"_s;
    case LineRow::Correction:
        return u"보정"_s;
    case LineRow::Labels:
    case LineRow::Quantity:
        break;
    }
    return {};
}

LineGrid::LineGrid(Spread* grid, LineGridLayout layout)
    : m_grid(grid), m_layout(std::move(layout)) {
    if (m_layout.backFrom == 0) {
        m_layout.backFrom = m_layout.firstSize;
    }
}

int LineGrid::lineCount() const {
    return m_grid->maxRows() / rowsPerLine();
}

int LineGrid::roleIndex(LineRow role) const {
    for (int i = 0; i < rowsPerLine(); ++i) {
        if (m_layout.rows[size_t(i)].role == role) {
            return i;
        }
    }
    return -1;
}

int LineGrid::row(int line, LineRow role) const {
    const int index = roleIndex(role);
    return index < 0 ? 0 : line * rowsPerLine() + index + 1;
}

LineRow LineGrid::roleOf(int gridRow) const {
    return m_layout.rows[size_t((gridRow - 1) % rowsPerLine())].role;
}

void LineGrid::clear() {
    m_grid->setMaxRows(0);
    m_labels.clear();
}

int LineGrid::addLine() {
    const int line = lineCount();
    const int first = m_grid->maxRows() + 1;
    m_grid->setMaxRows(m_grid->maxRows() + rowsPerLine());
    const int backTo = m_layout.backTo > 0 ? m_layout.backTo : m_grid->maxCols();
    for (int i = 0; i < rowsPerLine(); ++i) {
        const LineRowSpec& spec = m_layout.rows[size_t(i)];
        const int gridRow = first + i;
        if (m_layout.captionCol > 0) {
            gsSpreadSetText(m_grid, gridRow, m_layout.captionCol, lineRowCaption(spec.role));
        }
        for (int p = 1; p <= kPositions; ++p) {
            const int col = sizeCol(p);
            if (spec.open) {
                gsSpreadCell(m_grid, gridRow, col, SpreadEdit, kQuantityLength, SpreadRight);
            }
            m_grid->setLocked(gridRow, col, !spec.open);
        }
        if (m_layout.totalCol > 0) {
            m_grid->setLocked(gridRow, m_layout.totalCol, true);
        }
        if (spec.back != kSpreadNoColor) {
            gsSpreadRangeBackColor(m_grid, gridRow, m_layout.backFrom, backTo, spec.back);
        }
    }
    m_labels.append(QStringList());
    return line;
}

void LineGrid::setCommon(int line, int col, const QString& text) {
    for (int i = 1; i <= rowsPerLine(); ++i) {
        gsSpreadSetText(m_grid, line * rowsPerLine() + i, col, text);
    }
}

QString LineGrid::common(int line, int col) const {
    return gfSpreadCellText(m_grid, line * rowsPerLine() + 1, col);
}

void LineGrid::setLabels(int line, const QStringList& labels) {
    if (line < 0 || line >= m_labels.size()) {
        return;
    }
    m_labels[line] = labels;
    const int labelRow = row(line, LineRow::Labels);
    for (int p = 1; p <= kPositions; ++p) {
        const bool labelled = !labels.value(p - 1).trimmed().isEmpty();
        if (labelRow > 0) {
            gsSpreadSetText(m_grid, labelRow, sizeCol(p), labels.value(p - 1).trimmed());
        }
        for (int i = 0; i < rowsPerLine(); ++i) {
            if (m_layout.rows[size_t(i)].open) {
                m_grid->setLocked(line * rowsPerLine() + i + 1, sizeCol(p), !labelled);
            }
        }
    }
}

QString LineGrid::cellText(int line, LineRow role, int position) const {
    const int r = row(line, role);
    return r > 0 ? gfSpreadCellText(m_grid, r, sizeCol(position)) : QString();
}

qint64 LineGrid::quantity(int line, LineRow role, int position) const {
    qint64 value = 0;
    return wholeNumber(cellText(line, role, position), &value) ? value : 0;
}

void LineGrid::setQuantity(int line, LineRow role, int position, qint64 value) {
    const int r = row(line, role);
    if (r > 0) {
        writeQuantity(r, sizeCol(position), value,
                      m_layout.rows[size_t(roleIndex(role))].keepsZero);
    }
}

bool LineGrid::isBlank(int line, LineRow role) const {
    for (int p = 1; p <= kPositions; ++p) {
        if (!cellText(line, role, p).isEmpty()) {
            return false;
        }
    }
    return true;
}

QString LineGrid::totalText(int line, LineRow role) const {
    const int r = row(line, role);
    return r > 0 && m_layout.totalCol > 0 ? gfSpreadCellText(m_grid, r, m_layout.totalCol)
                                          : QString();
}

qint64 LineGrid::total(int line, LineRow role) const {
    qint64 value = 0;
    return wholeNumber(totalText(line, role), &value) ? value : 0;
}

std::optional<BadQuantity> LineGrid::findBadQuantity(bool allowNegative) const {
    for (int line = 0; line < lineCount(); ++line) {
        for (const LineRowSpec& spec : m_layout.rows) {
            if (!spec.open) {
                continue;
            }
            for (int p = 1; p <= kPositions; ++p) {
                const QString text = cellText(line, spec.role, p);
                qint64 value = 0;
                if (text.isEmpty()) {
                    continue;
                }
                if (!wholeNumber(text, &value) || (value < 0 && !allowNegative)) {
                    return BadQuantity{line, row(line, spec.role), p, text};
                }
            }
        }
    }
    return std::nullopt;
}

void LineGrid::writeQuantity(int gridRow, int col, qint64 value, bool keepZero) {
    const QString text = value == 0 && !keepZero ? QString() : formatGrouped(double(value), 0);
    gsSpreadSetText(m_grid, gridRow, col, text, kSpreadRed);
}

void LineGrid::recompute() {
    const bool redraw = m_grid->redraw();
    m_grid->setRedraw(false);
    for (int line = 0; line < lineCount(); ++line) {
        recomputeLine(line);
    }
    m_grid->setRedraw(redraw);
}

void LineGrid::recomputeLine(int line) {
    {
        const QStringList labels = m_labels.value(line);
        const auto labelled = [&labels](int p) {
            // A line given no labels takes every position.
            return labels.isEmpty() || !labels.value(p - 1).trimmed().isEmpty();
        };
        // Entered and read cells first, so that the derived row reads what is shown.
        for (const LineRowSpec& spec : m_layout.rows) {
            if (spec.role == LineRow::Labels ||
                (m_layout.difference && spec.role == m_layout.difference->target)) {
                continue;
            }
            const int r = row(line, spec.role);
            for (int p = 1; p <= kPositions; ++p) {
                const QString text = cellText(line, spec.role, p);
                qint64 value = 0;
                if (!text.isEmpty() && labelled(p) && wholeNumber(text, &value)) {
                    writeQuantity(r, sizeCol(p), value, spec.keepsZero);
                }
            }
        }
        if (m_layout.difference) {
            const LineDifference& d = *m_layout.difference;
            for (int p = 1; p <= kPositions; ++p) {
                if (labelled(p)) {
                    writeQuantity(row(line, d.target), sizeCol(p),
                                  quantity(line, d.plus, p) - quantity(line, d.minus, p), false);
                }
            }
        }
        if (m_layout.totalCol <= 0) {
            return;
        }
        for (const LineRowSpec& spec : m_layout.rows) {
            if (spec.role == LineRow::Labels) {
                continue;
            }
            qint64 sum = 0;
            for (int p = 1; p <= kPositions; ++p) {
                if (labelled(p)) {
                    sum += quantity(line, spec.role, p);
                }
            }
            gsSpreadSetText(m_grid, row(line, spec.role), m_layout.totalCol,
                            formatGrouped(double(sum), 0), kSpreadRed);
        }
    }
}
