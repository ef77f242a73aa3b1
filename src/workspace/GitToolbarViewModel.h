// The state of the toolbar above the tabs: the pull strategy chosen in Pull's menu, the active
// tab's ahead and behind counts, and its own set of commands, which log as "toolbar".
#pragma once

#include "core/service/OperationResults.h"
#include "workspace/RemoteChoice.h"
#include "workspace/WorkspaceCommands.h"

#include <QMetaObject>
#include <QObject>

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

    QCoro::Task<void> pull() { return commands_.pull(selectedPullStrategy_); }

  signals:
    void countsChanged();
    void selectedPullStrategyChanged();
    void activeTabChanged();
    void stashesChanged();

  private:
    void followActiveTab();
    void readCounts();

    AppViewModel& app_;
    WorkspaceCommands commands_;
    PullStrategy selectedPullStrategy_ = PullStrategy::merge;
    AheadBehind counts_;
    QMetaObject::Connection branchesConnection_;
    QMetaObject::Connection stashesConnection_;
};

} // namespace orvel
