// The daily remote and branch commands of the "Workspace" menu and the toolbar: fetch, pull, push,
// force push, stash, pop, creating a branch with a choice of what happens to local changes, and
// creating a tag.
// Each works on the active tab, shows an activity while git runs and tells its outcome in a toast.
// The menu and the toolbar each hold their own instance; they differ only in their log names.
#pragma once

#include "content/LocalChangesOption.h"
#include "core/records/RepoEntry.h"
#include "core/service/OperationResults.h"

#include <QDateTime>
#include <QObject>
#include <QPointer>
#include <QString>

#include <QCoro/QCoroTask>

#include <optional>
#include <string>

namespace orvel {

class AppViewModel;
class WorkspaceTabState;

struct BranchRequest {
    QString name;
    bool checkout = true;
    LocalChangesOption localChanges = LocalChangesOption::dontChange;
};

class WorkspaceCommands final : public QObject {
    Q_OBJECT

  public:
    // The tab a command began on and what it needs of it. A command that awaits holds this, so it
    // ends on its own repository whatever tab the user has moved to; the tab may close meanwhile.
    struct Target {
        QPointer<WorkspaceTabState> tab;
        RepoEntry repo;
        std::string remote;

        void refresh() const;
    };

    struct PendingDiscard {
        BranchRequest request;
        int fileCount = 0;
        Target target; // the confirmation holds for this repository only
    };

    // `host` begins the log names: "menu" or "toolbar".
    WorkspaceCommands(AppViewModel& app, QString host, QObject* parent = nullptr);

    QCoro::Task<void> fetch();
    QCoro::Task<void> pull(PullStrategy strategy);
    QCoro::Task<void> push();
    QCoro::Task<void> forcePush();
    // Stashes everything, untracked files too, under `name`; a clean tree only gets a notice.
    QCoro::Task<void> stash(QString name);
    QCoro::Task<void> popStash();

    // Creates the branch at HEAD as the sheet asked. A discard over uncommitted changes runs only
    // after confirmDiscard(): until then the request waits and discardConfirmationNeeded tells
    // how many changes would go. Local changes are never lost silently: a stash taken here stays
    // on the stack when a later step fails, and the warning says so.
    QCoro::Task<void> createBranch(BranchRequest request);
    const std::optional<PendingDiscard>& discardConfirmPending() const { return discardConfirmPending_; }
    QCoro::Task<void> confirmDiscard();
    void cancelDiscard();

    // Tags `commit` (HEAD when empty); a message makes the tag annotated.
    QCoro::Task<void> createTag(QString name, std::optional<QString> message, std::string commit);

    // The force-push question's text, naming the remote commits that would be lost.
    static QString forcePushWarning(int behind);
    // "WIP_<branch>_<dd.MM.yy.HH.mm.ss>_<5 random letters or digits>".
    static QString stashPlaceholder(const QString& branch, const QDateTime& now);

  signals:
    void discardConfirmationNeeded(int fileCount);

  private:
    QCoro::Task<void> pushTo(bool force);
    std::optional<Target> activeTarget() const;
    QCoro::Task<void> runBranchCreation(Target target, BranchRequest request);
    // "op=<host>.<operation>", the start of the command's log lines.
    std::string logOp(const char* operation) const;

    AppViewModel& app_;
    std::string host_;
    std::optional<PendingDiscard> discardConfirmPending_;
};

} // namespace orvel
