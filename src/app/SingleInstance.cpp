#include "app/SingleInstance.h"

#include "core/support/Log.h"

#include <QCryptographicHash>
#include <QDataStream>
#include <QLocalServer>
#include <QLocalSocket>
#include <QLockFile>
#include <QStandardPaths>

namespace orvel {

namespace {

constexpr int connectTimeoutMs = 2000;
// The running program answers from its event loop, which a long load on it may hold up a while.
constexpr int answerTimeoutMs = 10000;
constexpr char taken = '\x06';
constexpr QDataStream::Version wireVersion = QDataStream::Qt_6_0;

} // namespace

SingleInstance::SingleInstance(QString socketPath, QObject* parent)
    : QObject(parent), socketPath_(std::move(socketPath)) {}

SingleInstance::~SingleInstance() = default;

QString SingleInstance::defaultSocketPath() {
    const QByteArray settingsFolder =
        QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation).toUtf8();
    const QByteArray key =
        QCryptographicHash::hash(settingsFolder, QCryptographicHash::Sha256).toHex().left(16);
    return QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation) + QStringLiteral("/orvel-") +
           QString::fromLatin1(key);
}

bool SingleInstance::handOffOrListen(const QStringList& folders) {
    // Without the lock two starts could both find no program and the second would take the
    // first's socket away. A lock whose holder died is taken over.
    QLockFile lock(socketPath_ + QStringLiteral(".lock"));
    if (!lock.tryLock(connectTimeoutMs + answerTimeoutMs))
        qCWarning(lcApp, "op=app.singleInstance reason=lock error=%d", static_cast<int>(lock.error()));
    switch (handOff(folders)) {
    case HandOff::taken:
        return true;
    case HandOff::nobodyListens:
        listen();
        return false;
    case HandOff::unanswered:
        qCWarning(lcApp, "op=app.singleInstance reason=unanswered");
        return false;
    }
    return false;
}

SingleInstance::HandOff SingleInstance::handOff(const QStringList& folders) const {
    QLocalSocket socket;
    socket.connectToServer(socketPath_);
    if (!socket.waitForConnected(connectTimeoutMs))
        return HandOff::nobodyListens;
    QByteArray message;
    QDataStream out(&message, QIODevice::WriteOnly);
    out.setVersion(wireVersion);
    out << folders;
    socket.write(message);
    socket.flush();
    while (socket.bytesAvailable() < 1 && socket.waitForReadyRead(answerTimeoutMs)) {
    }
    return socket.read(1) == QByteArray(1, taken) ? HandOff::taken : HandOff::unanswered;
}

void SingleInstance::listen() {
    server_ = new QLocalServer(this);
    server_->setSocketOptions(QLocalServer::UserAccessOption);
    // Reached only when no program answered on the socket: a file there is a crashed program's.
    QLocalServer::removeServer(socketPath_);
    if (!server_->listen(socketPath_)) {
        qCWarning(lcApp, "op=app.singleInstance reason=%s", qPrintable(server_->errorString()));
        return;
    }
    connect(server_, &QLocalServer::newConnection, this, [this] {
        while (QLocalSocket* connection = server_->nextPendingConnection()) {
            connect(connection, &QLocalSocket::readyRead, this, [this, connection] { receive(connection); });
            connect(connection, &QLocalSocket::disconnected, connection, &QObject::deleteLater);
        }
    });
}

void SingleInstance::receive(QLocalSocket* connection) {
    QDataStream in(connection);
    in.setVersion(wireVersion);
    in.startTransaction();
    QStringList folders;
    in >> folders;
    // Part of the message is still on its way; the next readyRead reads it again from the start.
    if (!in.commitTransaction())
        return;
    connection->write(&taken, 1);
    connection->disconnectFromServer();
    emit foldersHandedOver(folders);
}

} // namespace orvel
