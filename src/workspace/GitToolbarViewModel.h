// The state of the toolbar above the tabs: the pull strategy chosen in Pull's menu, the active
// tab's ahead and behind counts, the question before a pull that will merge, and its own set of
// commands, which log as "toolbar".
#pragma once

#include "core/records/MergePrediction.h"
#include "core/service/OperationResults.h"
#include "core/support/LoadGeneration.h"
#include "workspace/RemoteChoice.h"
#include "workspace/WorkspaceCommands.h"

#include <QMetaObject>
#include <QObject>
#include <QString>

#include <optional>
#include <string>

namespace orvel {

class AppViewModel;

class GitToolbarViewModel final : public QObject {
    Q_OBJECT

  public:
    explicit GitToolbarViewModel(AppViewModel& app, QObject* parent = nullptr);

    AppViewModel& app() const { return app_; }
    WorkspaceCommands& commands() { return commands_; }
    // The commands need a tab to act on.
    bool hasActiveTab() const;
    // Pop needs a stash on the active tab.
    bool canPopStash() const;
    PullStrategy selectedPullStrategy() const { return selectedPullStrategy_; }
    void setSelectedPullStrategy(PullStrategy strategy);
    const AheadBehind& counts() const { return counts_; }

    // Pulls with the chosen strategy. A pull by merge on a branch that has diverged from its
    // upstream, as last fetched, makes a merge commit: it asks first (pullConfirmationNeeded) and
    // predicts the merge of the upstream as last fetched into HEAD while the question is open.
    // Every other pull is a fast-forward or no merge at all, and runs at once.
    QCoro::Task<void> pull(PullStrategy strategy);
    bool isPullPending() const { return pendingPull_.has_value(); }
    // The question's title and message; the message tells the prediction once git has answered.
    QString pendingPullTitle() const;
    QString pendingPullMessage() const;
    // Runs the asked pull at once, whether the prediction has come or not.
    QCoro::Task<void> confirmPull();
    void cancelPull();

  signals:
    void countsChanged();
    void selectedPullStrategyChanged();
    void activeTabChanged();
    void stashesChanged();
    void pullConfirmationNeeded();
    // The prediction of the asked pull arrived.
    void pendingPullChanged();

  private:
    void followActiveTab();
    void readCounts();
    void askToPull(RepoEntry repo, std::string branch, std::string upstream);

    struct PendingPull {
        std::string branch;
        std::string upstream;
    };

    AppViewModel& app_;
    WorkspaceCommands commands_;
    PullStrategy selectedPullStrategy_ = PullStrategy::merge;
    AheadBehind counts_;
    std::optional<PendingPull> pendingPull_;
    std::optional<MergePrediction> pendingPullPrediction_;
    LoadGeneration pullPredictions_;
    QMetaObject::Connection branchesConnection_;
    QMetaObject::Connection stashesConnection_;
};

} // namespace orvel
