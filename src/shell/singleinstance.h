#pragma once

#include <QObject>
#include <QString>

class QLocalServer;

// One program per desktop user. The first instance listens; a later one knocks, which brings
// the first one's main window to the front, and learns that it must end.
class SingleInstance : public QObject {
    Q_OBJECT
public:
    explicit SingleInstance(const QString& key, QObject* parent = nullptr);
    // True when another instance answered (it has been asked to raise its window).
    bool anotherIsRunning();
    // Starts listening; the first instance calls it.
    void listen();

signals:
    void raiseRequested();

private:
    QString m_key;
    QLocalServer* m_server = nullptr;
};
