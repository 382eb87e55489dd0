#pragma once

#include "data/connectionconfig.h"

#include <QDateTime>
#include <QDeadlineTimer>
#include <QPointer>
#include <QString>
#include <QObject>

#include <functional>
#include <memory>

class Database;
class MessagePresenter;

// The process-wide session record: written at start-up, read everywhere, one thread.
struct Session {
    QString gsCompany;
    QString gsUserId;
    QString gsUserName;
    QString gsUserClass;
    QString gsMsgResult = QStringLiteral("NO");

    std::unique_ptr<Database> gDb;       // TORVIX
    std::unique_ptr<Database> gDbUpdate; // UPDATE: the SQLTEXT trace only

    QPointer<QObject> gActiveForm; // the screen the tool bars drive


    ConnectionConfig config;
    // The trace database could not be used at start: statements run untraced.
    bool traceOff = false;
    // After the trace met another user's lock it is skipped until this runs out.
    QDeadlineTimer traceRest;

    // Where message boxes go; the program installs the Qt presenter, tests a scripted one.
    std::shared_ptr<MessagePresenter> presenter;
    // Ends the process (message 3, 4, a lost connection). Tests replace it to observe the end.
    std::function<void(int)> endProcess;
};

Session& session();
// Drops connections and state; tests start each case from here.
void resetSession();
