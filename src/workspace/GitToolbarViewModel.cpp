#include "workspace/GitToolbarViewModel.h"

#include "workspace/AppViewModel.h"

namespace orvel {

GitToolbarViewModel::GitToolbarViewModel(AppViewModel& app, QObject* parent)
    : QObject(parent), app_(app), commands_(app, QStringLiteral("toolbar")) {
    connect(&app_, &AppViewModel::activeTabChanged, this, &GitToolbarViewModel::followActiveTab);
    followActiveTab();
}

bool GitToolbarViewModel::hasActiveTab() const {
    return app_.activeTab() != nullptr;
}

bool GitToolbarViewModel::canPopStash() const {
    const WorkspaceTabState* tab = app_.activeTab();
    return tab && tab->hasStashes();
}

void GitToolbarViewModel::setSelectedPullStrategy(PullStrategy strategy) {
    if (strategy == selectedPullStrategy_)
        return;
    selectedPullStrategy_ = strategy;
    emit selectedPullStrategyChanged();
}

void GitToolbarViewModel::followActiveTab() {
    disconnect(branchesConnection_);
    disconnect(stashesConnection_);
    if (WorkspaceTabState* tab = app_.activeTab()) {
        branchesConnection_ =
            connect(tab, &WorkspaceTabState::branchesChanged, this, &GitToolbarViewModel::readCounts);
        stashesConnection_ =
            connect(tab, &WorkspaceTabState::stashesChanged, this, &GitToolbarViewModel::stashesChanged);
    }
    readCounts();
    emit activeTabChanged();
}

void GitToolbarViewModel::readCounts() {
    WorkspaceTabState* tab = app_.activeTab();
    const AheadBehind counts = tab ? upstreamDistance(tab->branches()) : AheadBehind{};
    if (counts.ahead == counts_.ahead && counts.behind == counts_.behind)
        return;
    counts_ = counts;
    emit countsChanged();
}

} // namespace orvel
