// The sidebar's loads, the selection of a branch and the pending confirmations.
#include "sidebar/SidebarViewModel.h"

#include "core/service/GitServiceProtocol.h"
#include "core/support/Log.h"
#include "notices/ToastManager.h"
#include "settings/LocalizationManager.h"
#include "sidebar/TagVersionOrder.h"

#include <QPointer>

#include <algorithm>

namespace orvel {

namespace {

// Each detail read fails alone: its failure gives the empty answer and the others still count.
template <typename T>
QCoro::Task<T> orEmpty(QCoro::Task<T> read) {
    try {
        co_return co_await std::move(read);
    } catch (const std::exception& error) {
        qCDebug(lcRefs, "op=branches.loadDetails reason=%s", redactForLog(error.what()).c_str());
        co_return T{};
    }
}

std::set<std::string> fingerprintOf(const std::vector<BranchEntry>& branches) {
    std::set<std::string> fingerprint;
    for (const BranchEntry& branch : branches)
        fingerprint.insert(branch.name + ":" + branch.hash);
    return fingerprint;
}

} // namespace

SidebarViewModel::SidebarViewModel(std::shared_ptr<GitServiceProtocol> service, ToastManager& toasts,
                                   QObject* parent)
    : QObject(parent), service_(std::move(service)), toasts_(toasts), filter_(toasts) {
    navigationAck_.setSingleShot(true);
    navigationAck_.setInterval(navigationFallback);
    connect(&navigationAck_, &QTimer::timeout, this, [this] {
        isNavigatingToCommit_ = false;
        emit selectionChanged();
    });
}

bool SidebarViewModel::checkRepository() {
    if (repo_)
        return true;
    toasts_.show(localized("No repository loaded"), ToastType::error);
    return false;
}

const BranchEntry* SidebarViewModel::currentBranch() const {
    const auto current = std::ranges::find_if(localBranches_, &BranchEntry::isCurrent);
    return current == localBranches_.end() ? nullptr : &*current;
}

void SidebarViewModel::reload() {
    if (repo_)
        loadBranches(*repo_);
}

void SidebarViewModel::retry() {
    reload();
}

void SidebarViewModel::reloadAfterCheckout() {
    reload();
    emit checkoutComplete();
}

void SidebarViewModel::updateFilterSources() {
    filter_.setSources({localBranches_, remoteBranches_, localTags_, stashEntries_});
}

QCoro::Task<void> SidebarViewModel::loadBranches(RepoEntry repo) {
    auto ticket = branchLoads_.begin(this);
    if (repo_ && repo_->path != repo.path)
        cachedRefFingerprint_.clear();
    repo_ = repo;
    isLoading_ = true;
    loadError_.reset();
    emit branchesChanged();
    qCDebug(lcRefs, "op=branches.load");

    std::vector<BranchEntry> branches;
    try {
        auto read = service_->branches(repo, ticket.stopToken());
        branches = co_await std::move(read);
    } catch (const std::exception& error) {
        if (!ticket.isCurrent())
            co_return;
        qCDebug(lcRefs, "op=branches.load reason=%s", redactForLog(error.what()).c_str());
        loadError_ = QString::fromUtf8(error.what());
        isLoading_ = false;
        emit branchesChanged();
        co_return;
    }
    if (!ticket.isCurrent())
        co_return;

    std::vector<BranchEntry> local, remote;
    for (const BranchEntry& branch : branches)
        (branch.isRemote ? remote : local).push_back(branch);
    std::set<std::string> fingerprint = fingerprintOf(branches);
    const bool refsChanged = fingerprint != cachedRefFingerprint_;
    localBranches_ = std::move(local);
    remoteBranches_ = std::move(remote);
    isLoading_ = false;
    if (refsChanged) {
        localTree_ = buildBranchTree(localBranches_, "local");
        remoteGroupedTree_ = groupByRemote(remoteBranches_);
        remoteGroupedTreeNodes_ = buildRemoteTrees(remoteGroupedTree_);
    }
    emit branchesChanged();
    emit branchesLoaded(branches);
    qCDebug(lcRefs, "op=branches.load localCount=%ld remoteCount=%ld",
            static_cast<long>(localBranches_.size()), static_cast<long>(remoteBranches_.size()));
    // The same refs as when the details were last read: those still hold, but for the stashes, which
    // a stash or pop changes without moving any branch.
    if (!localBranches_.empty() && !refsChanged) {
        updateFilterSources();
        co_await loadStashes(std::move(repo));
        co_return;
    }
    co_await loadDetails(std::move(ticket), std::move(repo), std::move(fingerprint));
}

// The refs are taken as read only once the details are: a load that a newer one replaces before
// then leaves the details to that one.
QCoro::Task<void> SidebarViewModel::loadDetails(LoadTicket ticket, RepoEntry repo,
                                                std::set<std::string> refs) {
    isLoadingDetails_ = true;
    emit detailsChanged();
    auto service = service_;
    // All three reads are queued before the first answer is awaited.
    auto defaultBranch = orEmpty(service->defaultBranch(repo, ticket.stopToken()));
    auto tags = orEmpty(service->listTags(repo, ticket.stopToken()));
    auto stashes = orEmpty(service->stashList(repo, ticket.stopToken()));
    std::optional<std::string> mainBranch = co_await std::move(defaultBranch);
    std::vector<TagEntry> tagList = co_await std::move(tags);
    std::vector<StashEntry> stashList = co_await std::move(stashes);
    if (!ticket.isCurrent())
        co_return;
    std::vector<std::string> merged;
    if (mainBranch && localBranches_.size() <= mergedQueryLimit) {
        auto read = orEmpty(service->mergedBranches(repo, *mainBranch, ticket.stopToken()));
        merged = co_await std::move(read);
        if (!ticket.isCurrent())
            co_return;
    }
    mainBranchName_ = std::move(mainBranch);
    sortNewestFirst(tagList);
    localTags_ = std::move(tagList);
    stashEntries_ = std::move(stashList);
    mergedBranchNames_ = std::set<std::string>(merged.begin(), merged.end());
    cachedRefFingerprint_ = std::move(refs);
    isLoadingDetails_ = false;
    qCDebug(lcRefs, "op=branches.loadDetails tagCount=%ld", static_cast<long>(localTags_.size()));
    emit detailsChanged();
    updateFilterSources();
}

QCoro::Task<void> SidebarViewModel::loadStashes(RepoEntry repo) {
    auto ticket = stashLoads_.begin(this);
    try {
        auto read = service_->stashList(repo, ticket.stopToken());
        std::vector<StashEntry> stashes = co_await std::move(read);
        if (!ticket.isCurrent())
            co_return;
        stashEntries_ = std::move(stashes);
        emit detailsChanged();
        updateFilterSources();
    } catch (const std::exception& error) {
        if (ticket.isCurrent())
            qCDebug(lcRefs, "op=stash.list reason=%s", redactForLog(error.what()).c_str());
    }
}

void SidebarViewModel::selectBranch(const BranchEntry& branch) {
    qCDebug(lcUi, "op=branch.selected");
    selectedBranchHash_ = branch.hash;
    selectedBranchName_ = branch.name;
    isNavigatingToCommit_ = true;
    navigationAck_.start();
    emit selectionChanged();
    emit branchSelected(branch);
}

void SidebarViewModel::acknowledgeNavigation() {
    navigationAck_.stop();
    if (!std::exchange(isNavigatingToCommit_, false))
        return;
    emit selectionChanged();
}

void SidebarViewModel::requestRemoteDelete(const BranchEntry& branch) {
    pendingRemoteDeleteBranch_ = branch;
    emit pendingChanged();
}

void SidebarViewModel::requestDeleteTag(const TagEntry& tag) {
    pendingDeleteTag_ = tag;
    emit pendingChanged();
}

void SidebarViewModel::requestDropStash(const StashEntry& stash) {
    pendingDropStash_ = stash;
    emit pendingChanged();
}

void SidebarViewModel::cancelPending() {
    pendingForceDeleteBranch_.reset();
    pendingRemoteDeleteBranch_.reset();
    pendingDeleteTag_.reset();
    pendingDropStash_.reset();
    pendingMerge_.reset();
    mergePredictions_.cancel();
    emit pendingChanged();
}

void SidebarViewModel::clearInteractiveRebaseContext() {
    interactiveRebaseContext_.reset();
}

} // namespace orvel
