// The application-wide state: which mode the window is in and which repository is active.
// Opening goes through the git service; start-up may open a repository named by the environment.
#pragma once

#include "core/records/RepoEntry.h"

#include <QObject>
#include <QString>

#include <QCoro/QCoroTask>

#include <memory>
#include <optional>
#include <string>

namespace orvel {

class GitServiceProtocol;

enum class AppMode { welcome = 0, working = 1 };

const char* toString(AppMode mode);

class AppViewModel final : public QObject {
    Q_OBJECT

public:
    explicit AppViewModel(std::shared_ptr<GitServiceProtocol> service, QObject* parent = nullptr);

    AppMode mode() const { return mode_; }
    const std::optional<RepoEntry>& activeRepository() const { return activeRepository_; }
    const QString& lastError() const { return lastError_; }

    // Opens `path` through the service; a failure leaves mode and repository as they were.
    QCoro::Task<void> openRepository(std::string path);

    // The automatic open of start-up: `value` is ORVEL_AUTOTEST_OPEN_REPO, absent when unset.
    QCoro::Task<void> openFromEnvironment(std::optional<QByteArray> value);

signals:
    void modeChanged();
    void activeRepositoryChanged();
    void openFailed(const QString& message);

private:
    std::shared_ptr<GitServiceProtocol> service_;
    AppMode mode_ = AppMode::welcome;
    std::optional<RepoEntry> activeRepository_;
    QString lastError_;
    int openGeneration_ = 0;
};

} // namespace orvel
