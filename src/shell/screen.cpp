#include "shell/screen.h"

#include "data/database.h"
#include "data/dbroutines.h"
#include "data/messages.h"
#include "data/recordset.h"
#include "data/session.h"
#include "data/waitcursor.h"
#include "grid/gridcolumns.h"
#include "grid/inputhelpers.h"
#include "grid/spread.h"
#include "grid/spreadroutines.h"
#include "shell/mainmdi.h"
#include "shell/proginit.h"
#include "shell/recordform.h"
#include "shell/reportrunner.h"
#include "shell/trap.h"

#include <QAbstractSpinBox>
#include <QApplication>
#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QDateEdit>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QStatusBar>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>
#include <vector>

Screen::Screen(const QString& name, const QString& designCaption, QWidget* parent)
    : QWidget(parent), m_content(new QVBoxLayout), m_statusPanels(new QWidget(this)) {
    setObjectName(name);
    setWindowTitle(designCaption);
    auto* outer = new QVBoxLayout(this);
    outer->setContentsMargins(0, 0, 0, 0);
    outer->setSpacing(0);
    m_content->setContentsMargins(8, 8, 8, 8);
    m_content->setSpacing(6);
    outer->addLayout(m_content, 1);
    // The panels go to the main window's status bar while the screen is active (see
    // MAINMDI::showStatusOf); until then they wait hidden.
    m_statusPanels->setObjectName(QStringLiteral("sbStatusBar"));
    m_statusPanels->hide();
    auto* row = new QHBoxLayout(m_statusPanels);
    row->setContentsMargins(0, 0, 0, 0);
    for (int i = 0; i < 3; ++i) {
        m_panels[i] = new QLabel(m_statusPanels);
        m_panels[i]->setObjectName(QStringLiteral("sbStatusBar_Panel%1").arg(i + 1));
        m_panels[i]->setMinimumWidth(i == 0 ? 300 : 120);
        row->addWidget(m_panels[i], i == 0 ? 1 : 0);
    }
}

Screen::~Screen() {
    // A report still running stops before the widgets its rows were meant for go.
    m_runner.reset();
    // The panels may stand in the main window's status bar: take them out before they go.
    if (QWidget* panels = m_statusPanels.data()) {
        if (auto* bar = qobject_cast<QStatusBar*>(panels->parentWidget())) {
            bar->removeWidget(panels);
        }
        delete panels;
    }
}

QLabel* Screen::statusPanel(int index) const {
    return m_panels[qBound(1, index, 3) - 1];
}

void Screen::setStatusNote(const QString& text) {
    m_panels[0]->setText(text);
}

void Screen::showFound(qint64 count, bool withCount) {
    if (count <= 0) {
        setStatusNote(QStringLiteral("조회된 데이터가 없습니다."));
    } else {
        setStatusNote(withCount
                          ? QString::number(count) + QStringLiteral("건의 데이터가 조회되었습니다.")
                          : QString());
    }
}

QLineEdit* Screen::textBox(const QString& name, int bytes) {
    QLineEdit* box = textBox(name);
    gsByteLimit(box, bytes);
    return box;
}

QLineEdit* Screen::textBox(const QString& name) {
    auto* box = new QLineEdit(this);
    box->setObjectName(name);
    return box;
}

QComboBox* Screen::comboBox(const QString& name) {
    auto* box = new QComboBox(this);
    box->setObjectName(name);
    return box;
}

QDateEdit* Screen::dateBox(const QString& name, const QDate& value) {
    auto* box = new QDateEdit(value, this);
    box->setObjectName(name);
    box->setDisplayFormat(QStringLiteral("yyyy-MM-dd"));
    box->setCalendarPopup(true);
    return box;
}

Spread* Screen::grid(const QString& name, const GridColumns& columns, int scrollBars,
                     bool headingNumbers, bool readOnly) {
    auto* spread = new Spread(this);
    spread->setObjectName(name);
    gsSpreadInit(spread, QStringLiteral("굴림체"), 10, 18, 18, 0, 0xC0C0C0, scrollBars,
                 headingNumbers, readOnly);
    columns.setUp(spread);
    return spread;
}

void Screen::markRequired(QWidget* field) {
    RecordForm::markRequired(field);
}

void Screen::finishEditing() {
    const auto grids = findChildren<Spread*>();
    for (Spread* grid : grids) {
        grid->finishEditing();
    }
    auto* spin = qobject_cast<QAbstractSpinBox*>(QApplication::focusWidget());
    if (spin && isAncestorOf(spin)) {
        spin->interpretText();
    }
}

QString Screen::placeText(const QString& routine) const {
    return objectName() + QStringLiteral(" : ") + routine;
}

void Screen::load() {
    mdStart = QDateTime::currentDateTime();
    gsProgInit(session().gsUserId, this);
    m_panels[1]->setText(session().gsUserId + QStringLiteral(" / ") + session().gsUserName);
    m_panels[2]->setText(mdStart.toString(QStringLiteral("hh:mm:ss")));
    mbLoaded = false;
    guarded(QStringLiteral("Form_Load"), [this] { setupScreen(); });
    mbLoaded = true;
    wireInputFields();
    if (searchesAtLoad()) {
        m_Search();
    }
}

void Screen::activateScreen() {
    session().gActiveForm = this;
    if (MAINMDI* main = mainWindow()) {
        main->setToolBarsFor(objectName());
        if (reportGrid().grid) {
            // Every report grid prints, where the bar's ranges had preview and print off.
            main->gsToolBarSet(MAINMDI::TobToolBar2, 3, 2, 3);
        }
        main->showStatusOf(this);
        if (m_runner) {
            m_runner->holdToolBars();
        }
    }
}

void Screen::m_Close() {
    if (auto* frame = qobject_cast<QMdiSubWindow*>(parentWidget())) {
        frame->close();
    } else {
        close();
    }
}

bool Screen::guarded(const QString& routine, const std::function<void()>& body, bool rollback) {
    return gfTrap(placeText(routine), body, rollback);
}

bool Screen::command(const QString& routine, const std::function<void()>& body, bool rollback) {
    // The trap writes the command's own row for a statement that failed inside; the command
    // answers false after any failure, thrown or shown by a statement routine.
    const quint64 mark = gsErrorMark();
    return guarded(routine, body, rollback) && gsErrorMark() == mark;
}

bool Screen::runReport(const QString& routine, const QString& sql,
                       std::function<void(const RecordSet&)> fill) {
    if (!m_runner) {
        m_runner = std::make_unique<ReportRunner>(this);
    }
    return m_runner->run(placeText(routine), sql, std::move(fill));
}

bool Screen::reportRunning() const {
    return m_runner && m_runner->isRunning();
}

void Screen::cancelReport() {
    if (m_runner) {
        m_runner->cancel();
    }
}

void Screen::deleteRow(const QString& key, int question, const QString& sql) {
    if (key.isEmpty() || gfsMessage(question) != QStringLiteral("OK")) {
        return;
    }
    guarded(
        QStringLiteral("cmdDelete_Click"),
        [this, &sql] {
            {
                WaitCursor wait;
                Transaction tx;
                if (!tx.ok() || !gfbSqlExecuteDB(sql) || !tx.commit()) {
                    return;
                }
            }
            clearScreen(false);
            sSelectQuery();
        },
        true);
}

void Screen::showList(Spread* grid, const GridColumns& columns, const RecordSet& rs,
                      bool withCount) {
    const qint64 count = rs.recordCount();
    if (count > 0) {
        WaitCursor wait;
        clearScreen(true);
        columns.fill(grid, rs);
    } else {
        grid->setMaxRows(0);
    }
    showFound(count, withCount);
}

void Screen::closeEvent(QCloseEvent* event) {
    // A report still running is cancelled and its worker waited for: the screen closes at once.
    if (m_runner) {
        m_runner->stop();
    }
    if (!m_logged) {
        m_logged = true;
        gsUserLog(session().gsUserId, this, mdStart);
    }
    if (session().gActiveForm == this) {
        session().gActiveForm = nullptr;
    }
    if (MAINMDI* main = mainWindow()) {
        main->releaseStatusOf(this);
    }
    event->accept();
}

void Screen::wireInputFields() {
    const auto edits = findChildren<QLineEdit*>();
    for (QLineEdit* edit : edits) {
        edit->installEventFilter(this);
    }
    const auto combos = findChildren<QComboBox*>();
    for (QComboBox* combo : combos) {
        combo->installEventFilter(this);
    }
    const auto spins = findChildren<QAbstractSpinBox*>();
    for (QAbstractSpinBox* spin : spins) {
        spin->installEventFilter(this);
    }
    const auto options = findChildren<QAbstractButton*>();
    for (QAbstractButton* option : options) {
        if (qobject_cast<QRadioButton*>(option) || qobject_cast<QCheckBox*>(option)) {
            option->installEventFilter(this);
        }
    }
}

namespace {

// A widget that Enter walks to: a box (of one line or several), a list, a date, an option or a
// check box. The box inside a list or a date field is part of it; of a group of options only the
// chosen one is a stop. A box of several lines keeps Enter for its own line breaks.
bool isField(const QWidget* w) {
    if (const auto* lines = qobject_cast<const QPlainTextEdit*>(w)) {
        return !lines->isReadOnly();
    }
    const QWidget* parent = w->parentWidget();
    if (qobject_cast<const QLineEdit*>(w)) {
        return !qobject_cast<const QComboBox*>(parent) &&
               !qobject_cast<const QAbstractSpinBox*>(parent);
    }
    if (const auto* option = qobject_cast<const QRadioButton*>(w)) {
        return option->isChecked() || !option->autoExclusive();
    }
    return qobject_cast<const QComboBox*>(w) || qobject_cast<const QAbstractSpinBox*>(w) ||
           qobject_cast<const QCheckBox*>(w);
}

} // namespace

QWidget* Screen::nextField(QWidget* from) const {
    struct Stop {
        QWidget* widget;
        QRect rect;
    };
    std::vector<Stop> stops;
    const auto widgets = findChildren<QWidget*>();
    for (QWidget* w : widgets) {
        if (isField(w) && w->isVisible() && w->isEnabled() && (w->focusPolicy() & Qt::TabFocus)) {
            stops.push_back({w, QRect(w->mapTo(this, QPoint(0, 0)), w->size())});
        }
    }
    std::sort(stops.begin(), stops.end(),
              [](const Stop& a, const Stop& b) { return a.rect.top() < b.rect.top(); });
    // A line is the fields whose middle lies within the height of its first field.
    for (size_t first = 0; first < stops.size();) {
        size_t end = first + 1;
        while (end < stops.size() && stops[end].rect.center().y() <= stops[first].rect.bottom()) {
            ++end;
        }
        std::sort(stops.begin() + qsizetype(first), stops.begin() + qsizetype(end),
                  [](const Stop& a, const Stop& b) { return a.rect.left() < b.rect.left(); });
        first = end;
    }
    for (size_t i = 0; i < stops.size(); ++i) {
        if (stops[i].widget == from || stops[i].widget->isAncestorOf(from)) {
            return stops[(i + 1) % stops.size()].widget;
        }
    }
    return nullptr;
}

bool Screen::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusIn) {
        // Select the whole text on entry, after the click that placed the caret.
        if (auto* edit = qobject_cast<QLineEdit*>(watched); edit && !edit->isReadOnly()) {
            QTimer::singleShot(0, edit, [edit] { edit->selectAll(); });
        }
    } else if (event->type() == QEvent::KeyPress) {
        const auto* key = static_cast<QKeyEvent*>(event);
        // Enter walks the fields in reading order. A box whose Enter runs a command of its own
        // (returnPressed) still gets it: the walk comes after.
        if ((key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) &&
            key->modifiers() == Qt::NoModifier) {
            if (auto* edit = qobject_cast<QLineEdit*>(watched)) {
                emit edit->returnPressed();
            }
            if (QWidget* next = nextField(qobject_cast<QWidget*>(watched))) {
                next->setFocus(Qt::TabFocusReason);
            } else {
                focusNextChild();
            }
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}
