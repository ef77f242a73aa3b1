#include "workspace/GitToolbarViewModel.h"

#include "core/service/GitServiceProtocol.h"
#include "settings/LocalizationManager.h"
#include "sidebar/MergeForecast.h"
#include "workspace/AppViewModel.h"

#include <QPointer>

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

QCoro::Task<void> GitToolbarViewModel::pull(PullStrategy strategy) {
    WorkspaceTabState* tab = app_.activeTab();
    const BranchEntry* branch = tab ? currentLocalBranch(tab->branches()) : nullptr;
    const bool merges = strategy == PullStrategy::merge && branch && branch->upstream &&
                        !branch->upstream->isGone && branch->upstream->ahead > 0 &&
                        branch->upstream->behind > 0;
    if (!merges) {
        co_await commands_.pull(strategy);
        co_return;
    }
    askToPull(tab->repo(), branch->name, branch->upstream->name);
}

void GitToolbarViewModel::askToPull(RepoEntry repo, std::string branch, std::string upstream) {
    pendingPull_ = PendingPull{std::move(branch), upstream};
    pendingPullPrediction_.reset();
    emit pullConfirmationNeeded();
    [](QPointer<GitToolbarViewModel> self, std::shared_ptr<GitServiceProtocol> service, RepoEntry repo,
       std::string upstream, LoadTicket ticket) -> QCoro::Task<void> {
        MergePrediction prediction =
            co_await predictMergeOf(std::move(service), std::move(repo), std::move(upstream), ticket.stopToken());
        if (!ticket.isCurrent() || !self)
            co_return;
        self->pendingPullPrediction_ = std::move(prediction);
        emit self->pendingPullChanged();
    }(this, app_.service(), std::move(repo), std::move(upstream), pullPredictions_.begin(this));
}

QString GitToolbarViewModel::pendingPullTitle() const {
    return pendingPull_ ? localized("Pull '%1' by Merge?", pendingPull_->upstream) : QString();
}

QString GitToolbarViewModel::pendingPullMessage() const {
    if (!pendingPull_)
        return {};
    QString message = localized("'%1' and '%2' have diverged: the pull will merge what it fetches into '%1'.",
                                pendingPull_->branch, pendingPull_->upstream);
    const QString forecast =
        mergeForecast(pendingPullPrediction_, pendingPull_->upstream, pendingPull_->branch);
    if (!forecast.isEmpty())
        message += QStringLiteral("\n\n") + forecast;
    if (!pendingPullPrediction_ || pendingPullPrediction_->outcome != MergePrediction::Outcome::unknown)
        message += QStringLiteral("\n") +
                   localized("The preview uses '%1' as last fetched.", pendingPull_->upstream);
    return message;
}

QCoro::Task<void> GitToolbarViewModel::confirmPull() {
    if (!pendingPull_)
        co_return;
    cancelPull();
    co_await commands_.pull(PullStrategy::merge);
}

void GitToolbarViewModel::cancelPull() {
    pendingPull_.reset();
    pendingPullPrediction_.reset();
    pullPredictions_.cancel();
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
