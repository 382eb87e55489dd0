#include "shell/singleinstance.h"

#include <QLocalServer>
#include <QLocalSocket>

SingleInstance::SingleInstance(const QString& key, QObject* parent) : QObject(parent), m_key(key) {}

bool SingleInstance::anotherIsRunning() {
    QLocalSocket socket;
    socket.connectToServer(m_key);
    if (!socket.waitForConnected(500)) {
        return false;
    }
    socket.write("raise\n");
    socket.waitForBytesWritten(500);
    socket.disconnectFromServer();
    return true;
}

void SingleInstance::listen() {
    m_server = new QLocalServer(this);
    // A name left behind by a crashed instance would refuse the listen.
    QLocalServer::removeServer(m_key);
    m_server->listen(m_key);
    connect(m_server, &QLocalServer::newConnection, this, [this] {
        while (QLocalSocket* socket = m_server->nextPendingConnection()) {
            connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
            emit raiseRequested();
        }
    });
}
