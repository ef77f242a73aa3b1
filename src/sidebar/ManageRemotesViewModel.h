// The state of the sheet that manages a repository's remotes: the list as `git remote -v` gives
// it, adding a remote (a name already taken is refused before git runs) and removing one.
#pragma once

#include "core/records/RemoteEntry.h"
#include "core/records/RepoEntry.h"
#include "core/support/LoadGeneration.h"

#include <QObject>
#include <QString>

#include <QCoro/QCoroTask>

#include <memory>
#include <optional>
#include <vector>

namespace orvel {

class GitServiceProtocol;
class ToastManager;

class ManageRemotesViewModel final : public QObject {
    Q_OBJECT

  public:
    ManageRemotesViewModel(RepoEntry repo, std::shared_ptr<GitServiceProtocol> service, ToastManager& toasts,
                           QObject* parent = nullptr);

    const std::vector<RemoteEntry>& remotes() const { return remotes_; }
    bool isLoading() const { return isLoading_; }
    const std::optional<QString>& loadError() const { return loadError_; }
    bool isAddingRemote() const { return isAddingRemote_; }
    const std::optional<QString>& addError() const { return addError_; }

    QCoro::Task<void> load();
    // Answers whether the remote was added; otherwise addError says why.
    QCoro::Task<bool> addRemote(QString name, QString url);
    // A failure is told in a toast.
    QCoro::Task<void> removeRemote(std::string name);
    // Puts a URL on the clipboard; a clipboard that refuses it is told in a toast.
    void copyURL(const std::string& url);

  signals:
    void stateChanged();
    // A remote was added or removed: the sidebar's remote branches changed with it.
    void remotesChanged();

  private:
    RepoEntry repo_;
    std::shared_ptr<GitServiceProtocol> service_;
    ToastManager& toasts_;
    std::vector<RemoteEntry> remotes_;
    bool isLoading_ = false;
    std::optional<QString> loadError_;
    bool isAddingRemote_ = false;
    std::optional<QString> addError_;
    LoadGeneration loads_;
};

} // namespace orvel
