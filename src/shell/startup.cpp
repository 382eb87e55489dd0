#include "shell/startup.h"

#include "data/connectionconfig.h"
#include "data/datafolder.h"
#include "data/embedded.h"
#include "data/messages.h"
#include "data/session.h"
#include "shell/commandline.h"
#include "shell/mainmdi.h"
#include "shell/qtmessagepresenter.h"
#include "shell/singleinstance.h"

#include <QApplication>
#include <QFileInfo>
#include <QFontDatabase>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QTimer>

#include <stdexcept>

namespace {

void useKoreanFont(QApplication& app) {
    for (const char* family : {"NanumGothic", "Nanum Gothic", "Malgun Gothic", "Gulim"}) {
        if (QFontDatabase::hasFamily(QString::fromLatin1(family))) {
            QFont font(QString::fromLatin1(family));
            font.setPointSize(9);
            app.setFont(font);
            return;
        }
    }
}

// TORVIX_SCREENSHOT=PATH: show the window, write a picture of it to PATH, end.
void scheduleScreenshot(MAINMDI* window) {
    const QString path = qEnvironmentVariable("TORVIX_SCREENSHOT");
    if (path.isEmpty()) {
        return;
    }
    QTimer::singleShot(1500, window, [window, path] {
        // A virtual display has no window manager to draw the frame: draw the caption bar here.
        const QPixmap body = window->grab();
        const int bar = 28;
        QImage shot(body.width(), body.height() + bar, QImage::Format_RGB32);
        shot.fill(QColor(0x2b, 0x57, 0x9a));
        QPainter painter(&shot);
        painter.setPen(Qt::white);
        QFont font = QApplication::font();
        font.setBold(true);
        painter.setFont(font);
        painter.drawText(QRect(10, 0, body.width() - 20, bar), Qt::AlignVCenter | Qt::AlignLeft,
                         window->windowTitle());
        painter.drawPixmap(0, bar, body);
        painter.end();
        shot.save(path);
        window->closeWithoutAsking();
        QCoreApplication::quit();
    });
}

} // namespace

bool openSessionDatabases(const QString& folder, QString& notice, QString& detail) {
    Session& s = session();
    s.config = ConnectionConfig::load(folder);
    const PreparedDatabases prepared = prepareDatabases(s.config, folder, DemoData::Fill);
    if (!prepared.failure.isEmpty()) {
        gfsMsgBox(prepared.failure);
        return false;
    }
    notice.clear();
    detail = prepared.traceFailure;
    if (!detail.isEmpty()) {
        s.traceOff = true;
        notice = QStringLiteral("SQL 기록 없이 실행합니다: %1을(를) 사용할 수 없습니다.")
                     .arg(QFileInfo(ConnectionConfig::sqlitePath(s.config.update)).fileName());
    }
    return true;
}

int torvixMain(int argc, char** argv) {
    QApplication app(argc, argv);
    app.setApplicationName(QStringLiteral("TORVIX_OPERATE"));
    app.setOrganizationName(QStringLiteral("ZULEN"));
    useKoreanFont(app);

    Session& s = session();
    if (qEnvironmentVariableIsSet("TORVIX_SCREENSHOT")) {
        // Nobody is there to answer a box during a screenshot run: print it and take OK.
        s.presenter.reset();
    } else {
        s.presenter = std::make_shared<QtMessagePresenter>();
    }
    s.endProcess = [](int code) { std::exit(code); };

    SingleInstance instance(QStringLiteral("TORVIX_OPERATE-") + qEnvironmentVariable("USER"));
    if (instance.anotherIsRunning()) {
        gfsMessage(3);
        return 1;
    }
    instance.listen();

    QString notice;
    QString noticeDetail;
    if (!openSessionDatabases(dataFolder(), notice, noticeDetail)) {
        return 1;
    }

    QStringList arguments = app.arguments();
    arguments.removeFirst();
    try {
        if (!applyCommandLine(commandLineItems(arguments))) {
            gfsMessage(4);
            return 1;
        }
    } catch (const std::out_of_range& error) {
        gsErrorLog(9, QString::fromLatin1(error.what()), QStringLiteral("basCommon : Main"),
                   QString());
        return 1;
    }

    MAINMDI window;
    QObject::connect(&instance, &SingleInstance::raiseRequested, &window, [&window] {
        window.setWindowState((window.windowState() & ~Qt::WindowMinimized) | Qt::WindowActive);
        window.raise();
        window.activateWindow();
    });
    window.show();
    if (!notice.isEmpty()) {
        window.statusPanel(1)->setText(notice);
        window.statusPanel(1)->setToolTip(noticeDetail);
    }
    // TORVIX_OPEN=NNN opens a program by its number, as if typed into the menu box.
    if (const QString number = qEnvironmentVariable("TORVIX_OPEN"); !number.isEmpty()) {
        window.programBox()->setText(number);
        window.cmdRun_Click();
    }
    scheduleScreenshot(&window);
    return app.exec();
}
