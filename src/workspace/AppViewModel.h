// The application-wide state: the window's mode, the open repository tabs and the active one, the
// recent repositories, the stack of long-running activities and the one ToastManager. All work
// on a repository goes through the git service it was given.
#pragma once

#include "core/records/GraphCommit.h"
#include "core/records/RepoEntry.h"
#include "core/support/LoadGeneration.h"
#include "notices/ToastManager.h"
#include "workspace/WorkspaceTabState.h"

#include <QObject>
#include <QString>
#include <QUuid>

#include <QCoro/QCoroTask>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace orvel {

class AutoFetchScheduler;
class GitConfigProtocol;
class GitServiceProtocol;
class UserDefaults;

enum class AppMode { welcome = 0, working = 1 };

const char* toString(AppMode mode);

class AppViewModel final : public QObject {
    Q_OBJECT

  public:
    static constexpr int maxRecentRepositories = 30;

    // Reads the recents; `start()` then makes the automatic open or validates the recents.
    AppViewModel(std::shared_ptr<GitServiceProtocol> service, UserDefaults& defaults,
                 QObject* parent = nullptr);
    ~AppViewModel() override;

    // The end of creation: opens ORVEL_AUTOTEST_OPEN_REPO (`autotestValue`, absent when unset)
    // when it names a repository, and otherwise prunes the recents that are no repository.
    void start(std::optional<QByteArray> autotestValue);
    // Where the tabs' commit forms write an identity that git asked for.
    void setGitConfig(std::shared_ptr<GitConfigProtocol> config) { gitConfig_ = std::move(config); }

    AppMode mode() const { return mode_; }
    const std::optional<RepoEntry>& activeRepository() const { return activeRepository_; }
    const std::vector<RepoEntry>& recentRepositories() const { return recentRepositories_; }
    const std::optional<std::string>& selectedRecentRepoPath() const { return selectedRecentRepoPath_; }
    ToastManager& toastManager() { return toastManager_; }
    const std::optional<QString>& activityMessage() const { return activityMessage_; }
    const std::vector<std::unique_ptr<WorkspaceTabState>>& openTabs() const { return openTabs_; }
    const std::optional<QUuid>& activeTabID() const { return activeTabID_; }
    WorkspaceTabState* activeTab() const;
    const std::shared_ptr<GitServiceProtocol>& service() const { return service_; }
    UserDefaults& defaults() const { return defaults_; }
    // Started by every new tab, stopped when the last one closes.
    AutoFetchScheduler& autoFetch() const { return *autoFetch_; }

    // Opens `path` as a tab, or switches to its tab when it is open already. A newer open
    // supersedes this one; a failure leaves everything but the recents as it was.
    QCoro::Task<void> openRepository(std::string path);
    // The automatic open of start-up, with the log lines that tell a tester what happened.
    QCoro::Task<void> openFromEnvironment(std::optional<QByteArray> value);
    void switchToRepository(const RepoEntry& entry);
    void switchToTab(const QUuid& id);
    void closeTab(const QUuid& id);

    void addToRecents(const RepoEntry& entry);
    void removeFromRecents(const std::string& path);
    void setSelectedRecentRepoPath(std::optional<std::string> path);
    void saveRecents();
    // Drops the recents that no longer are repositories and says which in a warning toast.
    QCoro::Task<void> pruneInvalidRecents();

    QUuid pushActivity(const QString& message);
    void popActivity(const QUuid& id);

  signals:
    void modeChanged();
    void activeRepositoryChanged();
    void recentRepositoriesChanged();
    void activityChanged();
    void tabOpened(WorkspaceTabState* tab);
    // Sent before the tab goes, while its models still live, so that views let go of them.
    void tabClosing(WorkspaceTabState* tab);
    void activeTabChanged();

  private:
    void openTab(const RepoEntry& entry, std::optional<QCoro::Task<std::vector<GraphCommit>>> newestPage = std::nullopt);
    WorkspaceTabState* tabFor(const std::string& path) const;
    void setMode(AppMode mode);
    void setActiveRepository(std::optional<RepoEntry> entry);

    std::shared_ptr<GitServiceProtocol> service_;
    std::shared_ptr<GitConfigProtocol> gitConfig_;
    UserDefaults& defaults_;
    AppMode mode_ = AppMode::welcome;
    std::optional<RepoEntry> activeRepository_;
    std::vector<RepoEntry> recentRepositories_;
    std::optional<std::string> selectedRecentRepoPath_;
    ToastManager toastManager_;
    std::optional<QString> activityMessage_;
    std::vector<std::pair<QUuid, QString>> activityStack_;
    LoadGeneration opens_;
    std::vector<std::unique_ptr<WorkspaceTabState>> openTabs_;
    std::optional<QUuid> activeTabID_;
    std::unique_ptr<AutoFetchScheduler> autoFetch_;
};

} // namespace orvel
