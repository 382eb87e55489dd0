#include "userinput.h"

#include "grid/spread.h"
#include "shell/mainmdi.h"
#include "shell/screen.h"

#include <QAction>
#include <QApplication>
#include <QDeadlineTimer>
#include <QInputMethodEvent>
#include <QTableView>
#include <QTest>
#include <QToolBar>

void typeText(QWidget* widget, const QString& text) {
    widget->setFocus();
    QInputMethodEvent event;
    event.setCommitString(text);
    QApplication::sendEvent(widget, &event);
    QApplication::processEvents();
}

void clickCell(Spread* grid, int row, int col, bool doubleClick) {
    QTableView* view = grid->view();
    const QModelIndex index = view->model()->index(grid->headRows() + row - 1, col);
    view->scrollTo(index);
    const QPoint at = view->visualRect(index).center();
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, at);
    if (doubleClick) {
        // The view takes a double click only on the cell that the first press went to.
        QTest::mousePress(view->viewport(), Qt::LeftButton, {}, at);
        QTest::mouseDClick(view->viewport(), Qt::LeftButton, {}, at);
    }
    QApplication::processEvents();
}

void typeIntoCell(Spread* grid, int row, int col, const QString& text) {
    clickCell(grid, row, col);
    // The first key opens the cell's editor, which then has the focus for the others.
    for (const QChar c : text) {
        QWidget* target = QApplication::focusWidget() ? QApplication::focusWidget() : grid->view();
        QTest::keyClicks(target, QString(c));
        QApplication::processEvents();
    }
}

void clickToolButton(MAINMDI* window, const QString& key) {
    const auto bars = window->findChildren<QToolBar*>();
    for (QToolBar* bar : bars) {
        const auto actions = bar->actions();
        for (QAction* action : actions) {
            if (action->data().toString() == key) {
                QTest::mouseClick(bar->widgetForAction(action), Qt::LeftButton);
                QApplication::processEvents();
                return;
            }
        }
    }
}

void doubleClickHeading(Spread* grid, int col) {
    // The heading band is the widest of the views lying over the scrolling one at its top.
    QTableView* band = nullptr;
    const auto views = grid->view()->findChildren<QTableView*>();
    for (QTableView* v : views) {
        if (v->isVisible() && v->y() <= 4 && (!band || v->width() > band->width())) {
            band = v;
        }
    }
    if (!band) {
        return;
    }
    const QPoint at = band->visualRect(band->model()->index(0, col)).center();
    QTest::mouseClick(band->viewport(), Qt::LeftButton, {}, at);
    QTest::mousePress(band->viewport(), Qt::LeftButton, {}, at);
    QTest::mouseDClick(band->viewport(), Qt::LeftButton, {}, at);
    QApplication::processEvents();
}

bool waitForReport(Screen* screen, int timeoutMs) {
    const QDeadlineTimer deadline(timeoutMs);
    while (screen->reportRunning() && !deadline.hasExpired()) {
        QApplication::processEvents(QEventLoop::AllEvents, 20);
        QTest::qWait(5);
    }
    return !screen->reportRunning();
}
