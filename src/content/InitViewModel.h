// The init dialog's state: the folder, the optional initial branch, the running creation and its
// error.
#pragma once

#include "core/support/LoadGeneration.h"

#include <QObject>
#include <QString>

#include <QCoro/QCoroTask>

#include <memory>
#include <optional>

namespace orvel {

class GitServiceProtocol;

class InitViewModel final : public QObject {
    Q_OBJECT

  public:
    explicit InitViewModel(std::shared_ptr<GitServiceProtocol> service, QObject* parent = nullptr);

    const QString& directoryPath() const { return directoryPath_; }
    const QString& initialBranch() const { return initialBranch_; }
    void setDirectoryPath(const QString& path);
    // Empty means git's own default.
    void setInitialBranch(const QString& name);

    bool isCreating() const { return isCreating_; }
    const std::optional<QString>& errorMessage() const { return errorMessage_; }
    bool canCreate() const { return !directoryPath_.trimmed().isEmpty() && !isCreating_; }

    QCoro::Task<void> create();

  signals:
    void formChanged();
    // isCreating or errorMessage changed.
    void stateChanged();
    void finished(const QString& path);

  private:
    void fail(const QString& message);

    std::shared_ptr<GitServiceProtocol> service_;
    QString directoryPath_;
    QString initialBranch_;
    bool isCreating_ = false;
    std::optional<QString> errorMessage_;
    LoadGeneration loads_;
};

} // namespace orvel
