#include "gridprinter.h"

#include "numerictext.h"
#include "spread.h"

#include <QDate>
#include <QFontMetricsF>
#include <QPageLayout>
#include <QPainter>
#include <QPrinter>
#include <QSet>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

// Layout units: screen pixels at 96 per inch, so that a grid prints at the size it shows.
constexpr double kUnitsPerInch = 96.0;
constexpr int kFontPixels = 13;
constexpr double kPad = 3.0;

QFont pixelFont(const QFont& base, int pixels, bool bold = false) {
    QFont f(base);
    f.setPixelSize(pixels);
    f.setBold(bold);
    return f;
}

double unitsOf(const QRectF& inches) {
    return inches.width() * kUnitsPerInch;
}

QRectF landscapeOf(const QPrinter* printer) {
    QPageLayout page = printer->pageLayout();
    page.setOrientation(QPageLayout::Landscape);
    return page.paintRect(QPageLayout::Inch);
}

bool negativeNumber(const QString& text) {
    double value = 0;
    return text.startsWith(QLatin1Char('-')) && gfIsNumeric(text, &value) && value < 0;
}

} // namespace

struct GridPrinter::Layout {
    double scale = 1;     // device pixels per layout unit
    double pageWidth = 0; // printable area in layout units
    double pageHeight = 0;
    std::vector<double> x; // left edge of each printed column, and the right edge of the last
    std::vector<double> headHeights;
    double rowHeight = 0;
    double titleHeight = 0;
    double subHeight = 0;
    double footHeight = 0;
    std::vector<std::pair<int, int>> pages; // first and last data model row; first > last: none
    std::vector<SpreadModel::Span> spans;
    QFont font;
    QFont titleFont;
    QFont subFont;
};

GridPrinter::GridPrinter(const Spread* grid, const QString& title, const QString& subTitle,
                         int lastCol)
    : m_grid(grid), m_title(title), m_subTitle(subTitle) {
    const SpreadModel* model = grid->model();
    const int last = lastCol > 0 ? qMin(lastCol, model->maxCols()) : model->maxCols();
    if (model->headingNumbers()) {
        m_columns.push_back(0);
    }
    for (int c = 1; c <= last; ++c) {
        if (!model->columnHidden(c)) {
            m_columns.push_back(c);
        }
    }
}

GridPrinter::Layout GridPrinter::layout(const QPrinter* printer) const {
    const SpreadModel* model = m_grid->model();
    Layout l;
    l.font = pixelFont(model->font(), kFontPixels);
    l.titleFont = pixelFont(model->font(), 20, true);
    l.subFont = pixelFont(model->font(), 12);
    const QFontMetricsF metrics(l.font);
    const double digit = metrics.horizontalAdvance(QLatin1Char('0'));
    const double line = metrics.lineSpacing();

    // Column 0 holds the row numbers: wide enough for the largest. The others take their width on
    // screen, widened to the widest text they print: the print font is wider than the screen's,
    // and a text that shows whole on screen must not come out cut.
    const QRectF paint = printer->pageLayout().paintRect(QPageLayout::Inch);
    const double natural = unitsOf(paint);
    std::vector<double> screen;
    std::vector<double> wanted;
    const std::vector<double> texts = textWidths(metrics);
    for (size_t i = 0; i < m_columns.size(); ++i) {
        const int c = m_columns[i];
        const double width =
            c == 0 ? metrics.horizontalAdvance(QString::number(qMax(99, model->dataRowCnt()))) + 12
                   : model->columnWidth(c) * digit + 6;
        screen.push_back(width);
        wanted.push_back(qMax(width, texts[i] + 2 * kPad + 1));
    }
    // Within the page width where the screen's widths fit it: the room left is shared out in
    // proportion to what each column lacks.
    double screenSum = 0;
    double wantedSum = 0;
    for (size_t i = 0; i < screen.size(); ++i) {
        screenSum += screen[i];
        wantedSum += wanted[i];
    }
    const double page = qMax(natural, unitsOf(landscapeOf(printer)));
    const double share =
        wantedSum <= page || screenSum >= page ? 1.0 : (page - screenSum) / (wantedSum - screenSum);
    l.x.push_back(0);
    for (size_t i = 0; i < screen.size(); ++i) {
        l.x.push_back(l.x.back() + screen[i] + (wanted[i] - screen[i]) * share);
    }
    for (int h = 0; h < model->headRows(); ++h) {
        int lines = 1;
        for (const int c : m_columns) {
            const QString t = model->data(model->index(h, c), Qt::DisplayRole).toString();
            lines = qMax(lines, int(t.count(QLatin1Char('\n'))) + 1);
        }
        l.headHeights.push_back(std::ceil(lines * line + 2 * kPad));
    }
    l.rowHeight = std::ceil(line + 2 * kPad + 2);
    l.titleHeight = std::ceil(QFontMetricsF(l.titleFont).lineSpacing() * 1.8);
    l.subHeight = std::ceil(QFontMetricsF(l.subFont).lineSpacing() * 1.5);
    l.footHeight = l.subHeight;

    // Shrunk to the page width, never enlarged.
    const double resolution = printer->resolution();
    const double fit = qMin(1.0, natural / qMax(1.0, l.x.back()));
    l.scale = resolution / kUnitsPerInch * fit;
    l.pageWidth = natural / fit;
    l.pageHeight = paint.height() * kUnitsPerInch / fit;

    // Rows per page: the first page carries the title and the sub-title line.
    double heads = 0;
    for (const double h : l.headHeights) {
        heads += h;
    }
    const double rest = l.pageHeight - heads - l.footHeight;
    const int firstRows = qMax(1, int((rest - l.titleHeight - l.subHeight) / l.rowHeight));
    const int otherRows = qMax(1, int(rest / l.rowHeight));
    const int head = model->headRows();
    int row = head;
    // Rows kept empty below the list (a list that always shows thirty) are not printed.
    const int end = head + model->dataRowCnt();
    do {
        const int take = l.pages.empty() ? firstRows : otherRows;
        const int last = qMin(end, row + take) - 1;
        l.pages.push_back({row, last});
        row = last + 1;
    } while (row < end);

    l.spans = model->spans();
    return l;
}

std::vector<double> GridPrinter::textWidths(const QFontMetricsF& metrics) const {
    const SpreadModel* model = m_grid->model();
    // A text merged over several columns is not one column's to hold.
    QSet<std::pair<int, int>> shared;
    for (const SpreadModel::Span& s : model->spans()) {
        if (s.cols > 1) {
            for (int r = s.modelRow; r < s.modelRow + s.rows; ++r) {
                for (int c = s.modelCol; c < s.modelCol + s.cols; ++c) {
                    shared.insert({r, c});
                }
            }
        }
    }
    const double widest = metrics.maxWidth();
    const int rows = model->headRows() + model->dataRowCnt();
    std::vector<double> widths;
    for (const int c : m_columns) {
        double width = 0;
        for (int r = 0; c > 0 && r < rows; ++r) {
            const QString text = model->data(model->index(r, c), Qt::DisplayRole).toString();
            // Measuring is dear over a long report: only a text that could be wider is measured.
            if (text.isEmpty() || text.size() * widest <= width || shared.contains({r, c})) {
                continue;
            }
            for (const QString& line : text.split(QLatin1Char('\n'))) {
                width = qMax(width, metrics.horizontalAdvance(line));
            }
        }
        widths.push_back(width);
    }
    return widths;
}

bool GridPrinter::wide(const QPrinter* printer) const {
    QPageLayout portrait = printer->pageLayout();
    portrait.setOrientation(QPageLayout::Portrait);
    const Layout l = layout(printer);
    return l.x.back() > unitsOf(portrait.paintRect(QPageLayout::Inch));
}

void GridPrinter::setUpPage(QPrinter* printer) const {
    printer->setDocName(m_title);
    printer->setPageSize(QPageSize(QPageSize::A4));
    printer->setPageMargins(QMarginsF(10, 10, 10, 10), QPageLayout::Millimeter);
    printer->setPageOrientation(wide(printer) ? QPageLayout::Landscape : QPageLayout::Portrait);
}

int GridPrinter::pageCount(const QPrinter* printer) const {
    return int(layout(printer).pages.size());
}

bool GridPrinter::print(QPrinter* printer) const {
    const Layout l = layout(printer);
    const int count = int(l.pages.size());
    int first = 1;
    int last = count;
    if (printer->printRange() == QPrinter::PageRange && printer->fromPage() > 0) {
        first = qMax(1, printer->fromPage());
        last = qMin(count, printer->toPage() > 0 ? printer->toPage() : count);
    }
    QPainter painter;
    if (!painter.begin(printer)) {
        return false;
    }
    for (int page = first; page <= last; ++page) {
        if (page > first) {
            printer->newPage();
        }
        paintPage(painter, l, page - 1);
    }
    return painter.end();
}

namespace {

// One cell or merged block of cells, painted as the grid paints it.
void paintCell(QPainter& p, const QRectF& rect, const QModelIndex& index) {
    const QVariant back = index.data(Qt::BackgroundRole);
    p.fillRect(rect, back.isValid() ? back.value<QColor>() : QColor(Qt::white));
    p.setPen(QPen(QColor(0x90, 0x90, 0x90), 0.6));
    p.drawRect(rect);
    QString text = index.data(Qt::DisplayRole).toString();
    const QVariant check = index.data(Qt::CheckStateRole);
    if (check.isValid()) {
        text = check.toInt() == Qt::Checked ? u"V"_s : QString();
    }
    if (text.isEmpty()) {
        return;
    }
    const QVariant fore = index.data(Qt::ForegroundRole);
    QColor colour = fore.isValid() ? fore.value<QColor>() : QColor(Qt::black);
    if (negativeNumber(text)) {
        colour = Qt::red;
    }
    p.setPen(colour);
    const int align = index.data(Qt::TextAlignmentRole).toInt();
    const QRectF inner = rect.adjusted(kPad, 0, -kPad, 0);
    if (!text.contains(QLatin1Char('\n'))) {
        // Cut as the screen cuts it, with an ellipsis, rather than in the middle of a letter.
        text = QFontMetricsF(p.font()).elidedText(text, Qt::ElideRight, inner.width());
    }
    p.drawText(inner, align, text);
}

} // namespace

void GridPrinter::paintPage(QPainter& painter, const Layout& l, int page) const {
    const SpreadModel* model = m_grid->model();
    painter.save();
    painter.scale(l.scale, l.scale);
    const double tableWidth = l.x.back();
    double y = 0;
    if (page == 0) {
        painter.setPen(Qt::black);
        painter.setFont(l.titleFont);
        painter.drawText(QRectF(0, 0, tableWidth, l.titleHeight), Qt::AlignCenter, m_title);
        y += l.titleHeight;
        painter.setFont(l.subFont);
        const QString date = QDate::currentDate().toString(u"yyyy-MM-dd"_s);
        painter.drawText(QRectF(0, y, tableWidth, l.subHeight), Qt::AlignLeft | Qt::AlignVCenter,
                         m_subTitle);
        painter.drawText(QRectF(0, y, tableWidth, l.subHeight), Qt::AlignRight | Qt::AlignVCenter,
                         u"출력일 "_s + date);
        y += l.subHeight;
    }

    // The block of model rows first..last from the top edge y: merges clipped to the block, the
    // text of a merge in its first part.
    painter.setFont(l.font);
    const auto paintBlock = [&](int first, int last, const std::vector<double>& tops) {
        const int cols = int(m_columns.size());
        std::vector<char> covered(size_t(qMax(0, last - first + 1)) * size_t(cols), 0);
        const auto columnSlot = [this](int modelCol) {
            const auto it = std::lower_bound(m_columns.begin(), m_columns.end(), modelCol);
            return int(it - m_columns.begin());
        };
        for (const SpreadModel::Span& s : l.spans) {
            const int r0 = qMax(first, s.modelRow);
            const int r1 = qMin(last, s.modelRow + s.rows - 1);
            const int c0 = columnSlot(s.modelCol);
            const int c1 = columnSlot(s.modelCol + s.cols) - 1;
            if (r0 > r1 || c0 > c1) {
                continue;
            }
            for (int r = r0; r <= r1; ++r) {
                for (int c = c0; c <= c1; ++c) {
                    covered[size_t(r - first) * size_t(cols) + size_t(c)] = 1;
                }
            }
            const QRectF rect(QPointF(l.x[size_t(c0)], tops[size_t(r0 - first)]),
                              QPointF(l.x[size_t(c1 + 1)], tops[size_t(r1 - first + 1)]));
            paintCell(painter, rect, model->index(s.modelRow, s.modelCol));
        }
        for (int r = first; r <= last; ++r) {
            for (int c = 0; c < cols; ++c) {
                if (covered[size_t(r - first) * size_t(cols) + size_t(c)]) {
                    continue;
                }
                const QRectF rect(QPointF(l.x[size_t(c)], tops[size_t(r - first)]),
                                  QPointF(l.x[size_t(c + 1)], tops[size_t(r - first + 1)]));
                paintCell(painter, rect, model->index(r, m_columns[size_t(c)]));
            }
        }
    };

    std::vector<double> tops{y};
    for (const double h : l.headHeights) {
        tops.push_back(tops.back() + h);
    }
    if (!l.headHeights.empty()) {
        paintBlock(0, int(l.headHeights.size()) - 1, tops);
    }
    const auto [first, last] = l.pages[size_t(page)];
    if (first <= last) {
        std::vector<double> rowTops{tops.back()};
        for (int r = first; r <= last; ++r) {
            rowTops.push_back(rowTops.back() + l.rowHeight);
        }
        paintBlock(first, last, rowTops);
    }

    painter.setPen(Qt::black);
    painter.setFont(l.subFont);
    painter.drawText(QRectF(0, l.pageHeight - l.footHeight, l.pageWidth, l.footHeight),
                     Qt::AlignCenter, u"- %1 / %2 -"_s.arg(page + 1).arg(l.pages.size()));
    painter.restore();
}

bool printToPdf(const PrintablePages& pages, const QString& path) {
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(path);
    pages.setUpPage(&printer);
    return pages.print(&printer);
}
