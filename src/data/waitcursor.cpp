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
