// The landing page's state when no repository is open: the recent repositories the application
// model hands over, the selected one's preview (its latest commits, its branches and its README),
// and the notice when a selected recent turned out to be gone.
#pragma once

#include "content/Readme.h"
#include "core/records/BranchEntry.h"
#include "core/records/CommitEntry.h"
#include "core/records/RepoEntry.h"
#include "core/support/LoadGeneration.h"

#include <QObject>
#include <QString>
#include <QStringList>

#include <QCoro/QCoroTask>

#include <memory>
#include <optional>
#include <vector>

namespace orvel {

class GitServiceProtocol;
class UserDefaults;

class WelcomeViewModel final : public QObject {
    Q_OBJECT

  public:
    static constexpr long previewCommitLimit = 5;

    // `defaults` holds the settings the clone dialog reads; absent, the program's own store.
    explicit WelcomeViewModel(std::shared_ptr<GitServiceProtocol> service, QObject* parent = nullptr,
                              std::shared_ptr<UserDefaults> defaults = nullptr);
    ~WelcomeViewModel() override;

    const std::shared_ptr<GitServiceProtocol>& service() const { return service_; }
    const std::shared_ptr<UserDefaults>& userDefaults() const { return defaults_; }

    const QStringList& recents() const { return recents_; }
    // The recents, newest first; a selection that left the list is cleared.
    void setRecents(QStringList paths);

    const std::optional<QString>& selectedPath() const { return selectedPath_; }
    const std::optional<RepoEntry>& repo() const { return repo_; }
    const std::vector<CommitEntry>& recentCommits() const { return recentCommits_; }
    const std::vector<BranchEntry>& branches() const { return branches_; }
    const std::optional<Readme>& readme() const { return readme_; }
    bool isLoading() const { return isLoading_; }
    const std::optional<QString>& errorMessage() const { return errorMessage_; }
    // Says which recents were dropped because they no longer open.
    const std::optional<QString>& notice() const { return notice_; }

    // Loads the preview of `path`; a later selection drops this one's answers. A recent that no
    // longer opens leaves the list: removeRecentRequested, and the notice names it.
    QCoro::Task<void> select(QString path);
    void clearSelection();
    // The user's own removal of a recent.
    void removeRecent(const QString& path);

  signals:
    void recentsChanged();
    // Selection, repository, commits, branches, README, loading or error changed.
    void previewChanged();
    void noticeChanged();
    void removeRecentRequested(const QString& path);

  private:
    void resetPreview();
    void dropStale(const QString& path);

    std::shared_ptr<GitServiceProtocol> service_;
    std::shared_ptr<UserDefaults> defaults_;
    QStringList recents_;
    std::optional<QString> selectedPath_;
    std::optional<RepoEntry> repo_;
    std::vector<CommitEntry> recentCommits_;
    std::vector<BranchEntry> branches_;
    std::optional<Readme> readme_;
    bool isLoading_ = false;
    std::optional<QString> errorMessage_;
    std::optional<QString> notice_;
    LoadGeneration loads_;
};

} // namespace orvel
