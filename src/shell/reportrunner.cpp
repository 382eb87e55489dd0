#include "shell/reportrunner.h"

#include "data/messages.h"
#include "data/recordset.h"
#include "data/reportquery.h"
#include "data/session.h"
#include "data/waitcursor.h"
#include "grid/spread.h"
#include "shell/mainmdi.h"
#include "shell/screen.h"
#include "shell/trap.h"

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QScrollBar>
#include <QShortcut>
#include <QTabBar>
#include <QTimer>
#include <QToolButton>

namespace {

// The cancel control shows once a report has run this long: a quick one never flashes it.
constexpr int kCancelAfterMs = 500;
constexpr int kTickMs = 100;

// A control that changes the screen's filters or starts one of its commands. The box inside a
// list or a date is held with it.
bool isControl(const QWidget* w) {
    if (qobject_cast<const QTabBar*>(w->parentWidget())) {
        return false; // the tab bar's own scroll buttons; the tabs still switch
    }
    if (qobject_cast<const QLineEdit*>(w)) {
        return !qobject_cast<const QComboBox*>(w->parentWidget()) &&
               !qobject_cast<const QAbstractSpinBox*>(w->parentWidget());
    }
    return qobject_cast<const QAbstractButton*>(w) || qobject_cast<const QComboBox*>(w) ||
           qobject_cast<const QAbstractSpinBox*>(w);
}

bool insideGrid(const QWidget* w, const QWidget* screen) {
    for (const QWidget* p = w->parentWidget(); p && p != screen; p = p->parentWidget()) {
        if (qobject_cast<const Spread*>(p)) {
            return true;
        }
    }
    return false;
}

} // namespace

ReportRunner::ReportRunner(Screen* screen)
    : QObject(screen), m_screen(screen), m_query(new ReportQuery(this)),
      m_note(screen->statusPanel(1)), m_cancel(new QToolButton(screen->statusPanels())),
      m_escape(new QShortcut(QKeySequence(Qt::Key_Escape), screen)), m_tick(new QTimer(this)) {
    m_cancel->setObjectName(QStringLiteral("cmdReportCancel"));
    m_cancel->setText(QStringLiteral("조회 취소"));
    m_cancel->setToolTip(QStringLiteral("조회를 취소합니다 (Esc)"));
    m_cancel->setAutoRaise(false);
    m_cancel->setFocusPolicy(Qt::NoFocus);
    m_cancel->hide();
    // Beside panel 1, where the progress shows.
    if (auto* row = qobject_cast<QHBoxLayout*>(screen->statusPanels()->layout())) {
        row->insertWidget(1, m_cancel);
    }
    connect(m_cancel, &QToolButton::clicked, this, &ReportRunner::cancel);
    m_escape->setContext(Qt::WidgetWithChildrenShortcut);
    m_escape->setEnabled(false);
    connect(m_escape, &QShortcut::activated, this, &ReportRunner::cancel);
    m_tick->setInterval(kTickMs);
    connect(m_tick, &QTimer::timeout, this, &ReportRunner::showProgress);
    connect(m_query, &ReportQuery::rowsArrived, this, &ReportRunner::showProgress);
    connect(m_query, &ReportQuery::finished, this, &ReportRunner::onFinished);
}

ReportRunner::~ReportRunner() {
    stop();
}

bool ReportRunner::isRunning() const {
    return m_query->isRunning();
}

bool ReportRunner::run(const QString& place, const QString& sql, Fill fill) {
    if (isRunning()) {
        return false;
    }
    if (sql.trimmed().isEmpty()) {
        gfsMessage(16);
        return false;
    }
    m_place = place;
    m_fill = std::move(fill);
    if (!m_query->start(sql, session().config)) {
        return false;
    }
    m_noteBefore = m_note->text();
    hold(true);
    m_escape->setEnabled(true);
    m_tick->start();
    showProgress();
    return true;
}

void ReportRunner::cancel() {
    m_query->cancel();
}

void ReportRunner::stop() {
    if (!isRunning()) {
        return;
    }
    m_query->cancelAndWait();
    m_tick->stop();
    m_fill = nullptr;
    hold(false);
}

void ReportRunner::showProgress() {
    if (!isRunning()) {
        return;
    }
    const qint64 ms = m_query->elapsedMs();
    QString text = QStringLiteral("조회 중... %1초").arg(double(ms) / 1000.0, 0, 'f', 1);
    if (m_query->rowsRead() > 0) {
        text += QStringLiteral(", ") + QLocale(QLocale::English).toString(m_query->rowsRead()) +
                QStringLiteral("건 읽음");
    }
    m_note->setText(text);
    if (ms >= kCancelAfterMs && m_cancel && m_cancel->isHidden()) {
        m_cancel->show();
    }
}

void ReportRunner::onFinished() {
    m_tick->stop();
    hold(false);
    if (session().gActiveForm == m_screen) {
        m_screen->activateScreen(); // the tool bars as the screen has them
    }
    m_note->setText(m_noteBefore);
    Fill fill = std::move(m_fill);
    m_fill = nullptr;
    switch (m_query->outcome()) {
    case ReportQuery::Outcome::Done: {
        const RecordSet rs = m_query->takeRows();
        const WaitCursor wait;
        gfTrap(m_place, [&] { fill(rs); });
        break;
    }
    case ReportQuery::Outcome::Cancelled:
        m_note->setText(QStringLiteral("조회를 취소했습니다."));
        break;
    case ReportQuery::Outcome::Failed:
        gsErrorLog(*m_query->error(), QStringLiteral("basDatabase : gfbSqlSelectDB"), QString());
        break;
    default:
        // No connection: the caller sees nothing, as a select that cannot connect says nothing.
        break;
    }
    emit finished();
}

void ReportRunner::holdToolBars() const {
    MAINMDI* main = mainWindow();
    if (!main || !isRunning() || session().gActiveForm != m_screen) {
        return;
    }
    // Search, clear, save, delete; excel, preview, print. Exit stays: closing cancels.
    main->gsToolBarSet(MAINMDI::TobToolBar1, 2, 1, 4);
    main->gsToolBarSet(MAINMDI::TobToolBar2, 2, 1, 3);
}

void ReportRunner::hold(bool on) {
    if (on) {
        m_screen->setCursor(Qt::BusyCursor);
        // The focus stays on the screen, where Esc reaches the cancel, rather than wander off
        // to another screen when its control goes off.
        QWidget* focus = QApplication::focusWidget();
        if (focus && m_screen->isAncestorOf(focus)) {
            m_focus = focus;
            m_screen->setFocus(Qt::OtherFocusReason);
        }
        const auto widgets = m_screen->findChildren<QWidget*>();
        for (QWidget* w : widgets) {
            if (m_screen->statusPanels()->isAncestorOf(w) || w == m_screen->statusPanels()) {
                continue;
            }
            if (qobject_cast<Spread*>(w)) {
                const auto parts = w->findChildren<QWidget*>();
                for (QWidget* part : parts) {
                    if (!qobject_cast<QScrollBar*>(part)) {
                        part->installEventFilter(this);
                        m_grids << part;
                    }
                }
            } else if (isControl(w) && w->isEnabled() && !insideGrid(w, m_screen)) {
                w->setEnabled(false);
                m_held << w;
            }
        }
        holdToolBars();
        return;
    }
    if (m_cancel) {
        m_cancel->hide();
    }
    m_escape->setEnabled(false);
    m_screen->unsetCursor();
    for (const QPointer<QWidget>& w : std::as_const(m_held)) {
        if (w) {
            w->setEnabled(true);
        }
    }
    m_held.clear();
    for (const QPointer<QWidget>& part : std::as_const(m_grids)) {
        if (part) {
            part->removeEventFilter(this);
        }
    }
    m_grids.clear();
    if (m_focus && QApplication::focusWidget() == m_screen) {
        m_focus->setFocus(Qt::OtherFocusReason);
    }
    m_focus = nullptr;
}

bool ReportRunner::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
        // The grid waits for its new rows; the wheel still scrolls it.
        return true;
    default:
        return QObject::eventFilter(watched, event);
    }
}
