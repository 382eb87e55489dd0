#include "data/waitcursor.h"

#include <QCursor>
#include <QGuiApplication>

void gsWaitCursor(bool on) {
    if (!qobject_cast<QGuiApplication*>(QCoreApplication::instance())) {
        return;
    }
    if (on) {
        QGuiApplication::setOverrideCursor(QCursor(Qt::WaitCursor));
        return;
    }
    while (QGuiApplication::overrideCursor()) {
        QGuiApplication::restoreOverrideCursor();
    }
}

StatementWait::StatementWait() {
    if (qobject_cast<QGuiApplication*>(QCoreApplication::instance()) &&
        !QGuiApplication::overrideCursor()) {
        QGuiApplication::setOverrideCursor(QCursor(Qt::WaitCursor));
        m_mine = true;
    }
}

StatementWait::~StatementWait() {
    // A box in between (gsErrorLog) may have cleared it already.
    if (m_mine && QGuiApplication::overrideCursor()) {
        QGuiApplication::restoreOverrideCursor();
    }
}
