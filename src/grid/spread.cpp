#include "spread.h"

#include "inputhelpers.h"
#include "spreaddelegate.h"

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QToolTip>

// One view of the grid's model. The main view scrolls; three more lie over it for the frozen
// band: the heading rows and frozen rows on top, the row heading and frozen columns on the
// left, and their corner. They share model, selection and delegate.
class SpreadView : public QTableView {
public:
    enum Band { Main, Top, Left, Corner };
    SpreadView(Spread* owner, Band band, QWidget* parent)
        : QTableView(parent), m_owner(owner), m_band(band) {
        horizontalHeader()->hide();
        verticalHeader()->hide();
        setHorizontalScrollMode(ScrollPerPixel);
        setVerticalScrollMode(ScrollPerPixel);
        setEditTriggers(DoubleClicked | EditKeyPressed | AnyKeyPressed | SelectedClicked);
        setTabKeyNavigation(true);
        setWordWrap(true);
        if (band != Main) {
            setFocusPolicy(Qt::NoFocus);
            setFrameShape(QFrame::NoFrame);
            setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
            setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        }
    }

    Band band() const { return m_band; }

    // The next cell to the right, wrapping to the first column of the next data row.
    void moveNext() {
        const QModelIndex current = currentIndex();
        SpreadModel* m = m_owner->model();
        if (!current.isValid()) {
            return;
        }
        int row = current.row();
        int col = current.column();
        do {
            if (++col > m->maxCols()) {
                col = 1;
                if (++row >= m->rowCount()) {
                    return;
                }
            }
        } while (m->columnHidden(col));
        m_owner->m_main->setCurrentIndex(m->index(row, col));
    }

    void scrollTo(const QModelIndex& index, ScrollHint hint) override {
        if (m_band != Main) {
            return;
        }
        if (!index.isValid()) {
            return QTableView::scrollTo(index, hint);
        }
        // Keep the cell clear of the frozen band that lies over the viewport.
        SpreadModel* m = m_owner->model();
        const int bandRows = m->headRows() + m->frozenRows();
        if (index.row() >= bandRows) {
            const int top = m_owner->bandHeight();
            const int y = rowViewportPosition(index.row());
            const int bottom = y + rowHeight(index.row());
            QScrollBar* bar = verticalScrollBar();
            if (y < top) {
                bar->setValue(bar->value() - (top - y));
            } else if (bottom > viewport()->height()) {
                bar->setValue(bar->value() + qMin(bottom - viewport()->height(), y - top));
            }
        }
        if (index.column() > m->frozenCols()) {
            const int left = m_owner->bandWidth();
            const int x = columnViewportPosition(index.column());
            const int right = x + columnWidth(index.column());
            QScrollBar* bar = horizontalScrollBar();
            if (x < left) {
                bar->setValue(bar->value() - (left - x));
            } else if (right > viewport()->width()) {
                bar->setValue(bar->value() + qMin(right - viewport()->width(), x - left));
            }
        }
    }

    // The editor open on the grid, if any.
    QWidget* openEditor() const {
        if (state() != EditingState) {
            return nullptr;
        }
        const auto children = viewport()->findChildren<QWidget*>(Qt::FindDirectChildrenOnly);
        for (QWidget* child : children) {
            if (child->isVisible()) {
                return child;
            }
        }
        return nullptr;
    }

    // Commits the cell being typed into and closes its editor, as leaving the cell would.
    void finishEditing() {
        if (state() != EditingState) {
            return;
        }
        QWidget* editor = QApplication::focusWidget();
        while (editor && editor->parentWidget() != viewport()) {
            editor = editor->parentWidget();
        }
        if (editor) {
            commitData(editor);
            closeEditor(editor, QAbstractItemDelegate::NoHint);
        }
    }

protected:
    void keyPressEvent(QKeyEvent* event) override {
        if (event->matches(QKeySequence::Copy)) {
            m_owner->copyToClipboard();
            return;
        }
        if (event->matches(QKeySequence::Paste)) {
            m_owner->pasteFromClipboard();
            return;
        }
        if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) &&
            state() != EditingState) {
            moveNext();
            return;
        }
        QTableView::keyPressEvent(event);
    }

    // A composition (Korean) that starts on a cell whose editor is closed opens the editor and
    // reaches it whole: the input method goes on talking to the view until it commits, so what
    // comes while the editor is open is passed on to it rather than dropped.
    void inputMethodEvent(QInputMethodEvent* event) override {
        if (QWidget* editor = openEditor()) {
            QApplication::sendEvent(editor, event);
            if (!event->commitString().isEmpty() || event->preeditString().isEmpty()) {
                editor->setFocus(); // the composition is over: the editor takes the keys
            }
            return;
        }
        if (event->preeditString().isEmpty() && event->commitString().isEmpty()) {
            event->ignore();
            return;
        }
        // Opens the editor and hands it the event.
        if (!edit(currentIndex(), AnyKeyPressed, event)) {
            event->ignore();
        }
    }

    QVariant inputMethodQuery(Qt::InputMethodQuery query) const override {
        if (QWidget* editor = openEditor()) {
            return editor->inputMethodQuery(query);
        }
        return QTableView::inputMethodQuery(query);
    }

    void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override {
        QTableView::closeEditor(editor, hint == QAbstractItemDelegate::SubmitModelCache
                                            ? QAbstractItemDelegate::NoHint
                                            : hint);
        if (hint == QAbstractItemDelegate::SubmitModelCache) {
            // Enter in an editor: on to the next cell, as the shops are used to.
            moveNext();
            m_owner->m_main->setFocus();
        }
    }

    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override {
        QTableView::currentChanged(current, previous);
        if (m_band == Main && current.isValid()) {
            emit m_owner->activeCellChanged(m_owner->model()->toGridRow(current.row()),
                                            current.column());
        }
    }

private:
    Spread* m_owner;
    Band m_band;
};

Spread::Spread(QWidget* parent) : QWidget(parent), m_model(new SpreadModel(this)) {
    m_main = new SpreadView(this, SpreadView::Main, this);
    m_top = new SpreadView(this, SpreadView::Top, m_main);
    m_left = new SpreadView(this, SpreadView::Left, m_main);
    m_corner = new SpreadView(this, SpreadView::Corner, m_main);
    for (SpreadView* v : {m_main, m_top, m_left, m_corner}) {
        v->setModel(m_model);
        // One delegate per view: a delegate talks to every view it serves about its editors.
        v->setItemDelegate(new SpreadDelegate(m_model, v));
        connect(v, &QTableView::clicked, this,
                [this](const QModelIndex& i) { onClicked(i, false); });
        connect(v, &QTableView::doubleClicked, this,
                [this](const QModelIndex& i) { onClicked(i, true); });
    }
    for (SpreadView* v : {m_top, m_left, m_corner}) {
        v->setSelectionModel(m_main->selectionModel());
        v->viewport()->installEventFilter(this);
        v->viewport()->setMouseTracking(true);
    }
    m_top->raise();
    m_left->raise();
    m_corner->raise();
    connect(m_main->horizontalScrollBar(), &QScrollBar::valueChanged, m_top->horizontalScrollBar(),
            &QScrollBar::setValue);
    connect(m_main->verticalScrollBar(), &QScrollBar::valueChanged, m_left->verticalScrollBar(),
            &QScrollBar::setValue);
    connect(m_main->horizontalScrollBar(), &QScrollBar::rangeChanged, this,
            [this] { placeBands(); });
    connect(m_main->verticalScrollBar(), &QScrollBar::rangeChanged, this, [this] { placeBands(); });

    connect(m_model, &QAbstractItemModel::modelReset, this, [this] { applyLayout(); });
    connect(m_model, &QAbstractItemModel::columnsInserted, this, [this] { applyLayout(); });
    connect(m_model, &QAbstractItemModel::rowsInserted, this, [this] { scheduleMerges(); });
    connect(m_model, &QAbstractItemModel::rowsRemoved, this, [this] { scheduleMerges(); });
    connect(m_model, &QAbstractItemModel::dataChanged, this, [this] { scheduleMerges(); });
    connect(m_model, &SpreadModel::cellEdited, this, &Spread::changed);

    setRowMode(true);
    setGridColor(0xC0C0C0);
    QPalette p = m_main->palette();
    p.setColor(QPalette::HighlightedText, Qt::white);
    p.setColor(QPalette::Base, p.color(QPalette::Button)); // outside the cells
    for (SpreadView* v : {m_main, m_top, m_left, m_corner}) {
        v->setPalette(p);
    }
    setFocusProxy(m_main);
    applyLayout();
}

Spread::~Spread() = default;

QTableView* Spread::view() const {
    return m_main;
}

void Spread::setMaxRows(int rows) {
    m_model->setMaxRows(rows);
}

void Spread::setMaxCols(int cols) {
    m_model->setMaxCols(cols);
    applyLayout();
}

void Spread::setHeadRows(int rows) {
    m_model->setHeadRows(rows);
    applyLayout();
}

void Spread::setRedraw(bool on) {
    if (on == m_model->redraw()) {
        return;
    }
    if (!on) {
        for (SpreadView* v : {m_main, m_top, m_left, m_corner}) {
            v->setUpdatesEnabled(false);
        }
        m_model->setRedraw(false);
        return;
    }
    const int row = activeRow();
    const int col = activeCol();
    m_model->setRedraw(true); // one reset: the views pick everything up at once
    for (SpreadView* v : {m_main, m_top, m_left, m_corner}) {
        v->setUpdatesEnabled(true);
    }
    if (row != 0 && m_model->validCell(row, col)) {
        m_main->selectionModel()->setCurrentIndex(m_model->index(m_model->toModelRow(row), col),
                                                  QItemSelectionModel::NoUpdate);
    }
}

int Spread::pixelsForWidth(double width) const {
    if (width <= 0) {
        return 0;
    }
    const QFontMetrics metrics(m_main->font());
    return qMax(4, qRound(width * metrics.horizontalAdvance(QLatin1Char('0')) + 6));
}

void Spread::setColumnWidth(int col, double width) {
    if (col < 0 || col > maxCols()) {
        return;
    }
    m_model->setColumnWidth(col, width);
    const int px = pixelsForWidth(width);
    for (SpreadView* v : {m_main, m_top, m_left, m_corner}) {
        v->setColumnHidden(col, px == 0);
        if (px > 0) {
            v->setColumnWidth(col, px);
        }
    }
    placeBands();
}

void Spread::setRowHeights(int headHeight, int rowHeight) {
    m_headPixels = qMax(8, qRound(headHeight * 4.0 / 3.0));
    m_rowPixels = qMax(8, qRound(rowHeight * 4.0 / 3.0));
    applyLayout();
}

void Spread::setLocked(int row, int col, bool locked) {
    if (row == -1 && col == -1) {
        for (int c = 1; c <= maxCols(); ++c) {
            m_model->setColumnLocked(c, locked);
        }
    } else if (row == -1) {
        m_model->setColumnLocked(col, locked);
    } else if (col == -1) {
        for (int c = 1; c <= maxCols(); ++c) {
            m_model->setLocked(row, c, locked);
        }
    } else {
        m_model->setLocked(row, col, locked);
    }
}

void Spread::setRowMode(bool rowMode) {
    for (SpreadView* v : {m_main, m_top, m_left, m_corner}) {
        v->setSelectionBehavior(rowMode ? QAbstractItemView::SelectRows
                                        : QAbstractItemView::SelectItems);
        v->setSelectionMode(rowMode ? QAbstractItemView::SingleSelection
                                    : QAbstractItemView::ContiguousSelection);
    }
}

void Spread::setReadOnly(bool readOnly) {
    m_model->setReadOnly(readOnly);
}

void Spread::setFrozenCols(int n) {
    m_model->setFrozenCols(n);
    placeBands();
}

void Spread::setFrozenRows(int n) {
    m_model->setFrozenRows(n);
    placeBands();
}

void Spread::setScrollBars(int which) {
    m_main->setHorizontalScrollBarPolicy((which & 1) ? Qt::ScrollBarAsNeeded
                                                     : Qt::ScrollBarAlwaysOff);
    m_main->setVerticalScrollBarPolicy((which & 2) ? Qt::ScrollBarAsNeeded
                                                   : Qt::ScrollBarAlwaysOff);
}

void Spread::setGridColor(quint32 bgr) {
    const QString sheet =
        QStringLiteral("QTableView { gridline-color: %1; }").arg(spreadColor(bgr).name());
    for (SpreadView* v : {m_main, m_top, m_left, m_corner}) {
        v->setStyleSheet(sheet);
    }
}

void Spread::setGridFont(const QFont& font) {
    for (SpreadView* v : {m_main, m_top, m_left, m_corner}) {
        v->setFont(font);
    }
    m_model->setFont(font);
    applyLayout();
}

int Spread::activeRow() const {
    const QModelIndex i = m_main->currentIndex();
    return i.isValid() ? m_model->toGridRow(i.row()) : 0;
}

int Spread::activeCol() const {
    const QModelIndex i = m_main->currentIndex();
    return i.isValid() ? i.column() : 0;
}

void Spread::setActiveCell(int row, int col) {
    if (!m_model->validCell(row, col)) {
        return;
    }
    const QModelIndex i = m_model->index(m_model->toModelRow(row), col);
    if (m_model->redraw()) {
        m_main->setCurrentIndex(i);
        m_main->scrollTo(i, QAbstractItemView::EnsureVisible);
    } else {
        // No view notices while redraw is off; remember it for the reset that follows.
        m_main->selectionModel()->setCurrentIndex(i, QItemSelectionModel::NoUpdate);
    }
}

void Spread::selectRow(int row) {
    if (!m_model->validCell(row, 1)) {
        return;
    }
    setActiveCell(row, qMax(1, activeCol()));
    m_main->selectRow(m_model->toModelRow(row));
}

QRect Spread::selection() const {
    const QModelIndexList indexes = m_main->selectionModel()->selectedIndexes();
    if (indexes.isEmpty()) {
        return {};
    }
    int top = INT_MAX, left = INT_MAX, bottom = INT_MIN, right = INT_MIN;
    for (const QModelIndex& i : indexes) {
        top = qMin(top, i.row());
        bottom = qMax(bottom, i.row());
        left = qMin(left, i.column());
        right = qMax(right, i.column());
    }
    return QRect(QPoint(left, m_model->toGridRow(top)), QPoint(right, m_model->toGridRow(bottom)));
}

void Spread::sort(int col, bool ascending) {
    const int row = activeRow();
    m_model->sortRows(col, ascending);
    applyLayout();
    Q_UNUSED(row);
}

QString Spread::copyText() const {
    const QRect s = selection();
    if (s.isNull()) {
        return {};
    }
    QString out;
    for (int row = s.top(); row <= s.bottom(); ++row) {
        if (row == 0) {
            continue;
        }
        QStringList cells;
        for (int col = qMax(1, s.left()); col <= s.right(); ++col) {
            if (!m_model->columnHidden(col)) {
                cells << m_model->text(row, col);
            }
        }
        out += cells.join(QLatin1Char('\t')) + QLatin1Char('\n');
    }
    return out;
}

namespace {

// The quote that closes a cell opened by the quote at `open`: the first quote after it that is
// not doubled, if a tab, a line break or the end of the text follows it; -1 otherwise.
qsizetype closingQuote(const QString& text, qsizetype open) {
    for (qsizetype i = open + 1; i < text.size(); ++i) {
        if (text.at(i) != QLatin1Char('"')) {
            continue;
        }
        if (i + 1 < text.size() && text.at(i + 1) == QLatin1Char('"')) {
            ++i;
            continue;
        }
        const bool last = i + 1 == text.size();
        const QChar next = last ? QChar() : text.at(i + 1);
        return last || next == QLatin1Char('\t') || next == QLatin1Char('\n') ||
                       next == QLatin1Char('\r')
                   ? i
                   : -1;
    }
    return -1;
}

// Rows of tab-separated cells as spreadsheets put them on the clipboard: lines end in "\n" or
// "\r\n", a cell in double quotes may hold tabs, line breaks and doubled quotes. A quote that
// opens a cell without a closing one is a character of the cell, so that one stray quote
// cannot swallow the rows after it.
QList<QStringList> splitTabbed(const QString& text) {
    QList<QStringList> rows;
    QStringList row;
    QString cell;
    bool quoted = false;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text.at(i);
        if (quoted) {
            if (c == QLatin1Char('"') && i + 1 < text.size() &&
                text.at(i + 1) == QLatin1Char('"')) {
                cell += c;
                ++i;
            } else if (c == QLatin1Char('"')) {
                quoted = false;
            } else {
                cell += c;
            }
        } else if (c == QLatin1Char('"') && cell.isEmpty() && closingQuote(text, i) > i) {
            quoted = true;
        } else if (c == QLatin1Char('\t')) {
            row << cell;
            cell.clear();
        } else if (c == QLatin1Char('\n') || c == QLatin1Char('\r')) {
            if (c == QLatin1Char('\r') && i + 1 < text.size() &&
                text.at(i + 1) == QLatin1Char('\n')) {
                ++i;
            }
            row << cell;
            rows << row;
            row.clear();
            cell.clear();
        } else {
            cell += c;
        }
    }
    if (!cell.isEmpty() || !row.isEmpty()) {
        row << cell;
        rows << row;
    }
    return rows;
}

} // namespace

void Spread::pasteText(const QString& text) {
    if (m_model->readOnly()) {
        return;
    }
    const QList<QStringList> rows = splitTabbed(text);
    if (rows.isEmpty()) {
        return;
    }
    const int startRow = qMax(1, activeRow());
    const int startCol = qMax(1, activeCol());
    const bool wasOn = redraw();
    setRedraw(false);
    QList<QPoint> written;
    for (int r = 0; r < rows.size(); ++r) {
        const int row = startRow + r;
        if (row > maxRows()) {
            if (!m_pasteAddsRows) {
                break;
            }
            m_model->setMaxRows(row);
        }
        for (int c = 0; c < rows.at(r).size(); ++c) {
            const int col = startCol + c;
            if (col > maxCols()) {
                break;
            }
            const int type = m_model->format(row, col).type;
            if (m_model->locked(row, col) || type == SpreadStatic || type == SpreadButton) {
                continue;
            }
            if (type == SpreadCheck) {
                m_model->setValue(row, col, rows.at(r).at(c));
            } else {
                m_model->setText(row, col,
                                 gfByteCut(rows.at(r).at(c), m_model->format(row, col).maxBytes));
            }
            written << QPoint(col, row);
        }
    }
    setRedraw(wasOn);
    for (const QPoint& p : written) {
        emit changed(p.y(), p.x());
    }
}

void Spread::copyToClipboard() const {
    QApplication::clipboard()->setText(copyText());
}

void Spread::pasteFromClipboard() {
    pasteText(QApplication::clipboard()->text());
}

// ---- layout of the views

void Spread::applyLayout() {
    const int cols = maxCols();
    for (SpreadView* v : {m_main, m_top, m_left, m_corner}) {
        v->verticalHeader()->setDefaultSectionSize(m_rowPixels);
        v->verticalHeader()->setMinimumSectionSize(4);
        v->horizontalHeader()->setMinimumSectionSize(0);
        for (int c = 0; c <= cols; ++c) {
            const int px = pixelsForWidth(m_model->columnWidth(c));
            v->setColumnHidden(c, px == 0);
            if (px > 0) {
                v->setColumnWidth(c, px);
            }
        }
        // One heading row takes the heading height; of two or more, only the second does.
        for (int r = 0; r < headRows(); ++r) {
            v->setRowHeight(r, headRows() == 1 || r == 1 ? m_headPixels : m_rowPixels);
        }
    }
    placeBands();
    scheduleMerges();
}

int Spread::bandHeight() const {
    int h = 0;
    const int rows = qMin(m_model->rowCount(), headRows() + frozenRows());
    for (int r = 0; r < rows; ++r) {
        h += m_main->rowHeight(r);
    }
    return h;
}

int Spread::fullWidth() const {
    int w = 2 * m_main->frameWidth();
    for (int c = 0; c <= maxCols(); ++c) {
        if (!m_main->isColumnHidden(c)) {
            w += m_main->columnWidth(c);
        }
    }
    if (m_main->verticalScrollBarPolicy() != Qt::ScrollBarAlwaysOff) {
        w += m_main->verticalScrollBar()->sizeHint().width();
    }
    return w;
}

int Spread::bandWidth() const {
    int w = 0;
    for (int c = 0; c <= qMin(frozenCols(), maxCols()); ++c) {
        if (!m_main->isColumnHidden(c)) {
            w += m_main->columnWidth(c);
        }
    }
    return w;
}

void Spread::placeBands() {
    const QRect area = m_main->viewport()->geometry();
    const int h = qMin(bandHeight(), area.height());
    const int w = qMin(bandWidth(), area.width());
    m_top->setGeometry(area.x(), area.y(), area.width(), h);
    m_left->setGeometry(area.x(), area.y(), w, area.height());
    m_corner->setGeometry(area.x(), area.y(), w, h);
    m_left->setVisible(w > 0);
    m_corner->setVisible(w > 0 && h > 0);
    m_top->setVisible(h > 0);
    m_top->horizontalScrollBar()->setValue(m_main->horizontalScrollBar()->value());
    m_left->verticalScrollBar()->setValue(m_main->verticalScrollBar()->value());
}

void Spread::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    m_main->setGeometry(rect());
    placeBands();
}

void Spread::scheduleMerges() {
    if (m_mergesPending || !m_model->redraw()) {
        return;
    }
    if (!m_model->hasMerges()) {
        return;
    }
    m_mergesPending = true;
    QMetaObject::invokeMethod(
        this, [this] { updateMerges(); }, Qt::QueuedConnection);
}

void Spread::updateMerges() {
    m_mergesPending = false;
    const std::vector<SpreadModel::Span> spans = m_model->spans();
    for (SpreadView* v : {m_main, m_top, m_left, m_corner}) {
        v->clearSpans();
        for (const SpreadModel::Span& s : spans) {
            v->setSpan(s.modelRow, s.modelCol, s.rows, s.cols);
        }
    }
}

// ---- mouse

void Spread::onClicked(const QModelIndex& index, bool doubleClick) {
    if (!index.isValid()) {
        return;
    }
    const int row = m_model->toGridRow(index.row());
    const int col = index.column();
    if (doubleClick) {
        emit doubleClicked(row, col);
        return;
    }
    if (row < 1 && col >= 1 && m_sortOnClick) {
        m_sortAscending = m_sortCol == col ? !m_sortAscending : true;
        m_sortCol = col;
        sort(col, m_sortAscending);
    }
    if (row >= 1 && m_model->format(row, col).type == SpreadButton) {
        emit buttonClicked(row, col);
    }
    emit clicked(row, col);
}

bool Spread::eventFilter(QObject* watched, QEvent* event) {
    auto* viewport = qobject_cast<QWidget*>(watched);
    if (viewport && event->type() == QEvent::ToolTip && m_tips &&
        showCellToolTip(viewport, event)) {
        return true;
    }
    if (viewport && (viewport == m_top->viewport() || viewport == m_corner->viewport())) {
        if (handleResizeDrag(viewport, event)) {
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

bool Spread::showCellToolTip(QWidget* viewport, QEvent* event) {
    for (SpreadView* v : {m_corner, m_left, m_top, m_main}) {
        if (v->viewport() != viewport) {
            continue;
        }
        const auto* help = static_cast<QHelpEvent*>(event);
        const QModelIndex index = v->indexAt(help->pos());
        if (!index.isValid()) {
            return false;
        }
        const QString text = m_tips(m_model->toGridRow(index.row()), index.column());
        if (text.isEmpty()) {
            QToolTip::hideText();
        } else {
            QToolTip::showText(help->globalPos(), text, viewport, v->visualRect(index));
        }
        return true;
    }
    return false;
}

// Column widths are changed by dragging a column's right edge in the heading rows.
bool Spread::handleResizeDrag(QWidget* viewport, QEvent* event) {
    const auto type = event->type();
    if (type != QEvent::MouseMove && type != QEvent::MouseButtonPress &&
        type != QEvent::MouseButtonRelease) {
        return false;
    }
    auto* view = viewport == m_top->viewport() ? m_top : m_corner;
    const QPoint pos = static_cast<QMouseEvent*>(event)->position().toPoint();
    if (m_dragCol >= 0) {
        if (type == QEvent::MouseMove) {
            const int px = qMax(4, m_dragStartWidth + pos.x() - m_dragStartX);
            const QFontMetrics metrics(m_main->font());
            const double width = (px - 6) / double(metrics.horizontalAdvance(QLatin1Char('0')));
            setColumnWidth(m_dragCol, qMax(0.5, width));
        } else if (type == QEvent::MouseButtonRelease) {
            m_dragCol = -1;
            viewport->unsetCursor();
        }
        return true;
    }
    int edge = -1;
    int headBottom = 0;
    for (int r = 0; r < headRows(); ++r) {
        headBottom += view->rowHeight(r);
    }
    if (pos.y() < headBottom) {
        for (int c = 0; c <= maxCols(); ++c) {
            if (view->isColumnHidden(c)) {
                continue;
            }
            const int right = view->columnViewportPosition(c) + view->columnWidth(c);
            if (qAbs(pos.x() - right) <= 3) {
                edge = c;
                break;
            }
        }
    }
    if (type == QEvent::MouseMove) {
        if (edge >= 0) {
            viewport->setCursor(Qt::SplitHCursor);
        } else {
            viewport->unsetCursor();
        }
        return false;
    }
    if (type == QEvent::MouseButtonPress && edge >= 0) {
        m_dragCol = edge;
        m_dragStartX = pos.x();
        m_dragStartWidth = view->columnWidth(edge);
        return true;
    }
    return false;
}

void Spread::finishEditing() {
    for (SpreadView* view : {m_main, m_top, m_left, m_corner}) {
        view->finishEditing();
    }
}
