// One running program a user and settings folder. The first start listens on a local socket in the
// user's runtime folder, reachable by the user alone; a later start hands the folders it was given
// to that program and ends, and the running program opens them. A socket that a crashed program
// left behind answers no connection and is replaced by the next start.
#pragma once

#include <QObject>
#include <QString>
#include <QStringList>

class QLocalServer;
class QLocalSocket;

namespace orvel {

class SingleInstance final : public QObject {
    Q_OBJECT

  public:
    // `socketPath` is where the running program listens; a lock file beside it makes two starts at
    // the same moment decide one after the other.
    explicit SingleInstance(QString socketPath, QObject* parent = nullptr);
    ~SingleInstance() override;

    // The socket of this user's program with this settings folder: a start with a settings folder
    // of its own (a test's, a benchmark's) is a program of its own.
    static QString defaultSocketPath();

    // True when a running program took `folders`, and this start ends. Otherwise this program is
    // the one that runs: it listens for later starts, unless a running program accepted the
    // connection but never answered, which it leaves alone.
    bool handOffOrListen(const QStringList& folders);

  signals:
    // A later start handed these folders over; none when it was started without any.
    void foldersHandedOver(const QStringList& folders);

  private:
    enum class HandOff { taken, nobodyListens, unanswered };
    HandOff handOff(const QStringList& folders) const;
    void listen();
    void receive(QLocalSocket* connection);

    QString socketPath_;
    QLocalServer* server_ = nullptr;
};

} // namespace orvel
