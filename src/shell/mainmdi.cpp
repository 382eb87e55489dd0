#include "shell/mainmdi.h"

#include "data/datafolder.h"
#include "data/messages.h"
#include "data/session.h"
#include "shell/proginit.h"

#include <QApplication>
#include <QCloseEvent>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPointer>
#include <QScreen>
#include <QStatusBar>

namespace {
QPointer<MAINMDI> theMainWindow;
} // namespace

MAINMDI* mainWindow() { return theMainWindow.data(); }

MAINMDI::MAINMDI(QWidget* parent) : QMainWindow(parent), m_mdi(new QMdiArea(this)) {
    theMainWindow = this;
    setObjectName(QStringLiteral("MAINMDI"));
    setAttribute(Qt::WA_DeleteOnClose, false);
    setCentralWidget(m_mdi);
    m_mdi->setObjectName(QStringLiteral("mdiArea"));
    m_mdi->setBackground(QColor(0x80, 0x80, 0x80));
    for (int i = 0; i < 3; ++i) {
        m_panels[i] = new QLabel(this);
        m_panels[i]->setObjectName(QStringLiteral("StatusBar1_Panel%1").arg(i + 1));
        m_panels[i]->setMinimumWidth(i == 0 ? 300 : 200);
        statusBar()->addWidget(m_panels[i], i == 0 ? 1 : 0);
    }

    // A small screen gets a normal window at the top left; others a maximised one.
    const QRect screen = QGuiApplication::primaryScreen() ? QGuiApplication::primaryScreen()->geometry()
                                                          : QRect(0, 0, 1280, 800);
    if (screen.width() < 1024 || screen.height() < 768) {
        setGeometry(0, 0, 1027, 748); // 15400 x 11220 twips
    } else {
        setWindowState(Qt::WindowMaximized);
        resize(screen.size());
    }

    m_startTime = QDateTime::currentDateTime();
    gsProgInit(session().gsUserId, this);
    setWindowTitle(windowTitle() + QStringLiteral(" [") + iniVersionValue(QStringLiteral("VNDRNM")) +
                   QStringLiteral("] "));
    m_panels[1]->setText(session().gsUserId + QStringLiteral(" / ") + session().gsUserName);
    m_panels[2]->setText(QStringLiteral("로그인시각 ") +
                         m_startTime.toString(QStringLiteral("yyyy-MM-dd hh:mm:ss")));
}

QLabel* MAINMDI::statusPanel(int index) const { return m_panels[qBound(1, index, 3) - 1]; }

void MAINMDI::closeWithoutAsking() {
    m_ask = false;
    close();
}

void MAINMDI::closeEvent(QCloseEvent* event) {
    if (m_ask && gfsMessage(99) != QStringLiteral("OK")) {
        event->ignore();
        return;
    }
    gsUnloadForms();
    gsUserLog(session().gsUserId, this, m_startTime);
    session().gActiveForm = nullptr;
    event->accept();
}

void gsUnloadForms() {
    MAINMDI* main = mainWindow();
    if (!main) {
        return;
    }
    const QList<QMdiSubWindow*> windows = main->mdiArea()->subWindowList(QMdiArea::CreationOrder);
    for (auto it = windows.crbegin(); it != windows.crend(); ++it) {
        (*it)->close();
    }
}
