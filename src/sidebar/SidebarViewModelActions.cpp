// The sidebar's actions on branches, tags and stashes: each runs one service operation, tells its
// outcome in a toast and reloads what it changed. An action awaits git and may outlive the model;
// after every wait it touches the model only while the model exists.
#include "sidebar/SidebarViewModel.h"

#include "content/BranchNameValidator.h"
#include "content/ToastedAction.h"
#include "core/service/GitServiceProtocol.h"
#include "core/support/Log.h"
#include "notices/ToastManager.h"
#include "settings/LocalizationManager.h"
#include "sidebar/MergeForecast.h"
#include "sidebar/TagVersionOrder.h"

#include <QPointer>

#include <algorithm>

namespace orvel {

namespace {

template <typename... Visitors>
struct overloaded : Visitors... {
    using Visitors::operator()...;
};
template <typename... Visitors>
overloaded(Visitors...) -> overloaded<Visitors...>;

QString errorText(const std::exception& error) {
    return QString::fromUtf8(error.what());
}

// A checkout goes ahead only over a working tree whose changes are all untracked or ignored; a
// failed status read stops it too. Both refusals are told here.
QCoro::Task<bool> workingTreeAllowsCheckout(std::shared_ptr<GitServiceProtocol> service, RepoEntry repo,
                                            ToastManager& toasts, const char* logOp) {
    auto read =
        attempt(service->status(std::move(repo)), toasts, logOp, translatable("Failed to check status: %1"));
    const std::optional<StatusResult> status = co_await std::move(read);
    if (!status)
        co_return false;
    const bool dirty = std::ranges::any_of(status->files, [](const FileChange& file) {
        return file.status.kind != FileStatusKind::Case::untracked &&
               file.status.kind != FileStatusKind::Case::ignored;
    });
    if (!dirty)
        co_return true;
    qCDebug(lcRefs, "%s blocked=true reason=uncommittedChanges", logOp);
    toasts.show(localized("Cannot checkout: you have uncommitted changes. Commit or stash them first."),
                ToastType::error);
    co_return false;
}

// The words of the actions whose outcome is a MergeResult.
struct MergeTexts {
    const char* logOp;
    const char* upToDate;
    const char* conflict;
    const char* merged;
    const char* fastForward;
    bool reloadWhenUpToDate;
};

constexpr MergeTexts fastForwardTexts{
    "op=branch.fastforward",     translatable("Already up to date with '%1'"), nullptr,
    translatable("Merged '%1'"), translatable("Fast-forwarded to '%1'"),       false};
constexpr MergeTexts mergeTexts{"op=merge",
                                translatable("Already up to date"),
                                translatable("Merge conflict in %1 file(s)"),
                                translatable("Merged '%1'"),
                                translatable("Fast-forward merged '%1'"),
                                false};
constexpr MergeTexts pullTexts{"op=branch.pull",
                               translatable("Already up to date"),
                               translatable("Pull conflict in %1 file(s)"),
                               translatable("Pulled '%1'"),
                               translatable("Pulled '%1' (fast-forward)"),
                               true};

// Tells the outcome and answers whether the repository changed so that the tab must reload.
bool tellMergeResult(const MergeResult& result, const MergeTexts& texts, const std::string& name,
                     ToastManager& toasts) {
    return std::visit(overloaded{
                          [&](const merge::AlreadyUpToDate&) {
                              qCDebug(lcRefs, "%s result=alreadyUpToDate", texts.logOp);
                              toasts.show(localized(texts.upToDate, name), ToastType::notice);
                              return texts.reloadWhenUpToDate;
                          },
                          [&](const merge::Merged&) {
                              qCDebug(lcRefs, "%s result=merged", texts.logOp);
                              toasts.show(localized(texts.merged, name), ToastType::notice);
                              return true;
                          },
                          [&](const merge::FastForward&) {
                              qCDebug(lcRefs, "%s result=fastForward", texts.logOp);
                              toasts.show(localized(texts.fastForward, name), ToastType::notice);
                              return true;
                          },
                          [&](const Conflicted& conflict) {
                              const auto count = static_cast<long>(conflict.files.size());
                              qCDebug(lcRefs, "%s result=conflict conflictCount=%ld", texts.logOp, count);
                              toasts.show(
                                  localized(texts.conflict ? texts.conflict : mergeTexts.conflict, count),
                                  ToastType::error);
                              return true;
                          },
                      },
                      result);
}

// "origin/feature/x" as remote "origin" and branch "feature/x"; without a slash the remote is
// "origin" and the whole text the branch.
std::pair<std::string, std::string> splitRemoteName(std::string_view name) {
    const auto slash = name.find('/');
    if (slash == std::string_view::npos)
        return {"origin", std::string(name)};
    return {std::string(name.substr(0, slash)), std::string(name.substr(slash + 1))};
}

constexpr std::string_view remoteRefPrefix = "refs/remotes/";

} // namespace

QCoro::Task<void> SidebarViewModel::checkoutBranch(std::string name) {
    if (!checkRepository())
        co_return;
    qCDebug(lcRefs, "op=branch.checkout");
    QPointer<SidebarViewModel> self(this);
    auto service = service_;
    const RepoEntry repo = *repo_;
    ToastManager& toasts = toasts_;

    std::optional<std::string> current;
    try {
        current = co_await service->currentBranch(repo);
    } catch (const std::exception&) {
        // An unknown current branch does not stop the checkout.
    }
    if (!self)
        co_return;
    if (current == name) {
        qCDebug(lcRefs, "op=branch.checkout result=alreadyOn verified=head");
        toasts.show(localized("Already on branch '%1'", name), ToastType::notice);
        self->reload();
        co_return;
    }
    if (!co_await workingTreeAllowsCheckout(service, repo, toasts, "op=branch.checkout"))
        co_return;
    if (!co_await attempt(service->checkoutBranch(repo, name), toasts, "op=branch.checkout",
                          translatable("Checkout failed: %1")))
        co_return;

    // Another program may move HEAD between the checkout and now: what counts is where HEAD is.
    std::optional<std::string> landed;
    try {
        landed = co_await service->currentBranch(repo);
    } catch (const std::exception&) {
        landed.reset();
    }
    if (landed == name) {
        qCDebug(lcRefs, "op=branch.checkout");
        toasts.show(localized("Switched to branch '%1'", name), ToastType::notice);
    } else {
        toasts.show(localized("Checkout did not land on '%1' (HEAD is '%2'). Resolve in terminal.", name,
                              landed.value_or("detached")),
                    ToastType::warning);
    }
    if (self)
        self->reloadAfterCheckout();
}

QCoro::Task<void> SidebarViewModel::checkoutRemoteBranch(BranchEntry branch) {
    if (!checkRepository())
        co_return;
    qCDebug(lcRefs, "op=branch.checkout scope=remote");
    QPointer<SidebarViewModel> self(this);
    auto service = service_;
    const RepoEntry repo = *repo_;
    ToastManager& toasts = toasts_;
    if (!co_await workingTreeAllowsCheckout(service, repo, toasts, "op=branch.checkout scope=remote"))
        co_return;
    if (!self)
        co_return;
    if (!branch.fullRefName.starts_with(remoteRefPrefix)) {
        toasts.show(localized("Not a remote branch: %1", branch.name), ToastType::error);
        co_return;
    }
    const std::string remoteRef = branch.fullRefName.substr(remoteRefPrefix.size());
    const auto slash = remoteRef.find('/');
    if (slash == std::string::npos || slash == 0 || slash + 1 == remoteRef.size()) {
        toasts.show(localized("Invalid remote branch ref: %1", branch.name), ToastType::error);
        co_return;
    }
    const std::string shortName = remoteRef.substr(slash + 1);
    const bool localExists =
        std::ranges::find(localBranches_, shortName, &BranchEntry::name) != localBranches_.end();
    if (localExists) {
        if (!co_await attempt(service->checkoutBranch(repo, shortName), toasts,
                              "op=branch.checkout scope=remote", translatable("Checkout failed: %1")))
            co_return;
        qCDebug(lcRefs, "op=branch.checkout scope=remote localExists=true");
        toasts.show(localized("Switched to local branch '%1'", shortName), ToastType::notice);
    } else {
        if (!co_await attempt(service->checkoutNewBranch(repo, shortName, remoteRef), toasts,
                              "op=branch.checkout scope=remote", translatable("Checkout failed: %1")))
            co_return;
        qCDebug(lcRefs, "op=branch.checkout scope=remote localExists=false");
        toasts.show(localized("Created and switched to '%1' tracking '%2'", shortName, remoteRef),
                    ToastType::notice);
    }
    if (self)
        self->reloadAfterCheckout();
}

QCoro::Task<void> SidebarViewModel::checkoutTag(TagEntry tag) {
    if (!checkRepository())
        co_return;
    QPointer<SidebarViewModel> self(this);
    auto service = service_;
    const RepoEntry repo = *repo_;
    ToastManager& toasts = toasts_;
    if (!co_await workingTreeAllowsCheckout(service, repo, toasts, "op=tag.checkout"))
        co_return;
    if (!co_await attempt(service->checkoutTag(repo, tag.name), toasts, "op=tag.checkout",
                          translatable("Checkout failed: %1")))
        co_return;
    qCDebug(lcRefs, "op=tag.checkout");
    toasts.show(localized("Checked out tag '%1' (detached HEAD)", tag.name), ToastType::notice);
    if (self)
        self->reloadAfterCheckout();
}

QCoro::Task<void> SidebarViewModel::pushTag(TagEntry tag, std::string remote) {
    if (!checkRepository())
        co_return;
    QPointer<SidebarViewModel> self(this);
    ToastManager& toasts = toasts_;
    if (!co_await attempt(service_->pushTag(*repo_, tag.name, remote), toasts, "op=tag.push",
                          translatable("Push tag failed: %1")))
        co_return;
    qCDebug(lcRefs, "op=tag.push");
    toasts.show(localized("Pushed tag '%1' to %2", tag.name, remote), ToastType::notice);
    if (!self)
        co_return;
    self->remoteTagNames_.insert(tag.name);
    emit self->detailsChanged();
}

QCoro::Task<void> SidebarViewModel::fastForward(BranchEntry branch) {
    if (!checkRepository())
        co_return;
    QPointer<SidebarViewModel> self(this);
    ToastManager& toasts = toasts_;
    // Whatever git's reason, a refused fast-forward means the two lines have parted.
    std::optional<MergeResult> result;
    try {
        result = co_await service_->fastForwardMerge(*repo_, branch.name);
    } catch (const std::exception& error) {
        qCDebug(lcRefs, "op=branch.fastforward reason=%s", redactForLog(error.what()).c_str());
        toasts.show(localized("Cannot fast-forward; branches have diverged"), ToastType::error);
        co_return;
    }
    if (tellMergeResult(*result, fastForwardTexts, branch.name, toasts) && self)
        self->reloadAfterCheckout();
}

QCoro::Task<void> SidebarViewModel::pushBranch(BranchEntry branch) {
    if (!checkRepository())
        co_return;
    QPointer<SidebarViewModel> self(this);
    ToastManager& toasts = toasts_;
    const std::string remote = branch.upstream && !branch.upstream->remoteName.empty()
                                   ? branch.upstream->remoteName
                                   : std::string("origin");
    if (!co_await attempt(service_->pushBranch(*repo_, branch.name, remote), toasts, "op=branch.push",
                          translatable("Push failed: %1")))
        co_return;
    qCDebug(lcRefs, "op=branch.push");
    toasts.show(localized("Pushed '%1' to %2", branch.name, remote), ToastType::notice);
    if (self)
        self->reloadAfterCheckout();
}

QCoro::Task<void> SidebarViewModel::mergeBranch(BranchEntry branch) {
    if (!checkRepository())
        co_return;
    QPointer<SidebarViewModel> self(this);
    ToastManager& toasts = toasts_;
    auto merged =
        attempt(service_->merge(*repo_, branch.name), toasts, "op=merge", translatable("Merge failed: %1"));
    const std::optional<MergeResult> result = co_await std::move(merged);
    if (result && tellMergeResult(*result, mergeTexts, branch.name, toasts) && self)
        self->reloadAfterCheckout();
}

void SidebarViewModel::requestMerge(const BranchEntry& branch) {
    if (!checkRepository())
        return;
    pendingMerge_ = branch;
    pendingMergePrediction_.reset();
    emit pendingChanged();
    [](QPointer<SidebarViewModel> self, std::shared_ptr<GitServiceProtocol> service, RepoEntry repo,
       std::string name, LoadTicket ticket) -> QCoro::Task<void> {
        MergePrediction prediction =
            co_await predictMergeOf(std::move(service), std::move(repo), std::move(name), ticket.stopToken());
        if (!ticket.isCurrent() || !self)
            co_return;
        self->pendingMergePrediction_ = std::move(prediction);
        emit self->pendingMergeForecastChanged();
    }(this, service_, *repo_, branch.name, mergePredictions_.begin(this));
}

QString SidebarViewModel::pendingMergeForecast() const {
    if (!pendingMerge_)
        return {};
    const BranchEntry* head = currentBranch();
    const std::string into = head ? head->name : "HEAD";
    return mergeForecast(pendingMergePrediction_, pendingMerge_->name, into);
}

QCoro::Task<void> SidebarViewModel::confirmMerge() {
    if (!pendingMerge_)
        co_return;
    const BranchEntry branch = *std::exchange(pendingMerge_, std::nullopt);
    mergePredictions_.cancel();
    emit pendingChanged();
    co_await mergeBranch(branch);
}

QCoro::Task<void> SidebarViewModel::pullBranch(BranchEntry branch) {
    if (!checkRepository())
        co_return;
    QPointer<SidebarViewModel> self(this);
    ToastManager& toasts = toasts_;
    const std::string remote = branch.upstream ? splitRemoteName(branch.upstream->name).first : "origin";
    auto pulled = attempt(service_->pull(*repo_, remote, PullStrategy::merge), toasts, "op=branch.pull",
                          translatable("Pull failed: %1"));
    const std::optional<MergeResult> result = co_await std::move(pulled);
    if (result && tellMergeResult(*result, pullTexts, branch.name, toasts) && self)
        self->reloadAfterCheckout();
}

QCoro::Task<void> SidebarViewModel::rebaseOnto(BranchEntry branch) {
    if (!checkRepository())
        co_return;
    QPointer<SidebarViewModel> self(this);
    ToastManager& toasts = toasts_;
    auto rebased = attempt(service_->rebase(*repo_, branch.name), toasts, "op=rebase",
                           translatable("Rebase failed: %1"));
    const std::optional<RebaseResult> result = co_await std::move(rebased);
    if (!result)
        co_return;
    const bool changed = std::visit(
        overloaded{
            [&](const rebase::AlreadyUpToDate&) {
                qCDebug(lcRefs, "op=rebase result=alreadyUpToDate");
                toasts.show(localized("Already up to date"), ToastType::notice);
                return false;
            },
            [&](const rebase::Success&) {
                qCDebug(lcRefs, "op=rebase result=success");
                toasts.show(localized("Rebased onto '%1'", branch.name), ToastType::notice);
                return true;
            },
            [&](const RebaseStop& stop) {
                const auto count = static_cast<long>(stop.files.size());
                qCDebug(lcRefs, "op=rebase result=conflict conflictCount=%ld", count);
                toasts.show(localized("Rebase conflict in %1 file(s) — resolve and continue", count),
                            ToastType::error);
                return true;
            },
        },
        *result);
    if (changed && self)
        self->reloadAfterCheckout();
}

QCoro::Task<void> SidebarViewModel::loadRebaseTodo(BranchEntry branch) {
    if (!checkRepository())
        co_return;
    QPointer<SidebarViewModel> self(this);
    auto read = attempt(service_->rebaseTodoList(*repo_, branch.name), toasts_, "op=rebase.loadTodo",
                        translatable("Load rebase todo failed: %1"));
    std::optional<std::vector<RebaseTodoEntry>> entries = co_await std::move(read);
    if (!entries || !self)
        co_return;
    self->interactiveRebaseContext_ =
        InteractiveRebaseContext{QUuid::createUuid(), branch.name, std::move(*entries)};
    emit self->interactiveRebaseRequested(branch.name);
}

QCoro::Task<void> SidebarViewModel::createBranch(std::string name, std::string startPoint, bool checkout) {
    if (!checkRepository())
        co_return;
    QPointer<SidebarViewModel> self(this);
    ToastManager& toasts = toasts_;
    auto created = attempt(checkout ? service_->checkoutNewBranch(*repo_, name, startPoint)
                                    : service_->createBranch(*repo_, name, startPoint),
                           toasts, "op=branch.create", translatable("Create branch failed: %1"));
    if (!co_await std::move(created))
        co_return;
    qCDebug(lcRefs, "op=branch.created checkout=%d", checkout ? 1 : 0);
    toasts.show(checkout ? localized("Created and checked out '%1'", name)
                         : localized("Created branch '%1'", name),
                ToastType::notice);
    if (!self)
        co_return;
    if (checkout)
        self->reloadAfterCheckout();
    else
        self->reload();
}

QCoro::Task<void> SidebarViewModel::createTag(std::string name, std::optional<std::string> message,
                                              std::string hash) {
    if (!checkRepository())
        co_return;
    QPointer<SidebarViewModel> self(this);
    ToastManager& toasts = toasts_;
    const bool annotated = message.has_value();
    auto created =
        attempt(service_->createTag(*repo_, name, hash.empty() ? std::nullopt : std::optional(hash),
                                    std::move(message)),
                toasts, "op=tag.create", translatable("Create tag failed: %1"));
    if (!co_await std::move(created))
        co_return;
    qCDebug(lcRefs, "op=tag.created annotated=%d", annotated ? 1 : 0);
    toasts.show(localized("Created tag '%1'", name), ToastType::notice);
    if (self)
        co_await self->reloadTags();
}

QCoro::Task<void> SidebarViewModel::reloadTags() {
    if (!repo_)
        co_return;
    auto ticket = tagLoads_.begin(this);
    try {
        auto read = service_->listTags(*repo_, ticket.stopToken());
        std::vector<TagEntry> tags = co_await std::move(read);
        if (!ticket.isCurrent())
            co_return;
        sortNewestFirst(tags);
        localTags_ = std::move(tags);
        emit detailsChanged();
        updateFilterSources();
    } catch (const std::exception& error) {
        if (ticket.isCurrent())
            qCDebug(lcRefs, "op=tag.list reason=%s", redactForLog(error.what()).c_str());
    }
}

QCoro::Task<void> SidebarViewModel::renameBranch(BranchEntry branch, QString newName) {
    if (!checkRepository())
        co_return;
    if (const auto errors = BranchNameValidator::validate(newName); !errors.empty()) {
        toasts_.show(localized("Rename failed: %1", BranchNameValidator::reason(errors.front())),
                     ToastType::error);
        co_return;
    }
    QPointer<SidebarViewModel> self(this);
    ToastManager& toasts = toasts_;
    const std::string target = newName.toStdString();
    if (!co_await attempt(service_->renameBranch(*repo_, branch.name, target), toasts, "op=branch.rename",
                          translatable("Rename failed: %1")))
        co_return;
    qCDebug(lcRefs, "op=branch.renamed");
    toasts.show(localized("Renamed '%1' to '%2'", branch.name, target), ToastType::notice);
    if (self)
        self->reload();
}

QCoro::Task<void> SidebarViewModel::deleteBranch(BranchEntry branch) {
    if (!checkRepository())
        co_return;
    QPointer<SidebarViewModel> self(this);
    ToastManager& toasts = toasts_;
    try {
        co_await service_->deleteBranch(*repo_, branch.name, false);
    } catch (const std::exception& error) {
        qCDebug(lcRefs, "op=branch.delete reason=%s", redactForLog(error.what()).c_str());
        // git refuses to lose commits: the user is asked whether to force it, and nothing else is said.
        if (std::string_view(error.what()).find("not fully merged") != std::string_view::npos) {
            if (self) {
                self->pendingForceDeleteBranch_ = branch;
                emit self->pendingChanged();
            }
        } else {
            toasts.show(localized("Delete failed: %1", errorText(error)), ToastType::error);
        }
        co_return;
    }
    qCDebug(lcRefs, "op=branch.deleted scope=local force=false");
    toasts.show(localized("Deleted branch '%1'", branch.name), ToastType::notice);
    if (self)
        self->reload();
}

QCoro::Task<void> SidebarViewModel::forceDeleteBranch() {
    if (!pendingForceDeleteBranch_ || !checkRepository())
        co_return;
    const BranchEntry branch = *std::exchange(pendingForceDeleteBranch_, std::nullopt);
    emit pendingChanged();
    QPointer<SidebarViewModel> self(this);
    ToastManager& toasts = toasts_;
    if (!co_await attempt(service_->deleteBranch(*repo_, branch.name, true), toasts, "op=branch.delete",
                          translatable("Force delete failed: %1")))
        co_return;
    qCDebug(lcRefs, "op=branch.deleted scope=local force=true confirmed=true");
    toasts.show(localized("Force deleted branch '%1'", branch.name), ToastType::notice);
    if (self)
        self->reload();
}

QCoro::Task<void> SidebarViewModel::deleteRemoteBranch() {
    if (!pendingRemoteDeleteBranch_ || !checkRepository())
        co_return;
    const BranchEntry branch = *std::exchange(pendingRemoteDeleteBranch_, std::nullopt);
    emit pendingChanged();
    QPointer<SidebarViewModel> self(this);
    ToastManager& toasts = toasts_;
    std::string_view rest = branch.fullRefName;
    if (rest.starts_with(remoteRefPrefix))
        rest.remove_prefix(remoteRefPrefix.size());
    const auto [remote, name] = splitRemoteName(rest);
    if (!co_await attempt(service_->deleteRemoteBranch(*repo_, remote, name), toasts,
                          "op=branch.deleted scope=remote", translatable("Delete remote branch failed: %1")))
        co_return;
    qCDebug(lcRefs, "op=branch.deleted scope=remote confirmed=true");
    toasts.show(localized("Deleted remote branch '%1'", name), ToastType::notice);
    if (self)
        self->reload();
}

QCoro::Task<void> SidebarViewModel::deleteTag() {
    if (!pendingDeleteTag_ || !checkRepository())
        co_return;
    const TagEntry tag = *std::exchange(pendingDeleteTag_, std::nullopt);
    emit pendingChanged();
    QPointer<SidebarViewModel> self(this);
    ToastManager& toasts = toasts_;
    if (!co_await attempt(service_->deleteTag(*repo_, tag.name), toasts, "op=tag.delete",
                          translatable("Delete tag failed: %1")))
        co_return;
    qCDebug(lcRefs, "op=tag.deleted");
    toasts.show(localized("Deleted tag '%1'", tag.name), ToastType::notice);
    if (!self)
        co_return;
    std::erase(self->localTags_, tag);
    emit self->detailsChanged();
    self->updateFilterSources();
}

QCoro::Task<QString> SidebarViewModel::tagDetail(TagEntry tag) {
    if (!checkRepository())
        co_return QString();
    auto read = attempt(service_->tagDetail(*repo_, tag.name), toasts_, "op=tag.detail",
                        translatable("Failed to get tag detail: %1"));
    const std::optional<std::string> detail = co_await std::move(read);
    co_return detail ? QString::fromUtf8(detail->data(), static_cast<qsizetype>(detail->size())) : QString();
}

// git names a stash by its place, which the next stash moves down one: an action goes ahead only
// while that place still holds the row's commit. Otherwise the list read here replaces the rows,
// the user is told, and nothing is touched.
QCoro::Task<bool> SidebarViewModel::stashStillListed(StashEntry stash, const char* logOp,
                                                     const char* failureFormat) {
    QPointer<SidebarViewModel> self(this);
    auto read = attempt(service_->stashList(*repo_), toasts_, logOp, failureFormat);
    std::optional<std::vector<StashEntry>> stashes = co_await std::move(read);
    if (!stashes || !self)
        co_return false;
    const bool listed = std::ranges::any_of(*stashes, [&stash](const StashEntry& entry) {
        return entry.index == stash.index && entry.hash == stash.hash;
    });
    if (listed)
        co_return true;
    qCDebug(lcRefs, "%s result=stashMoved", logOp);
    stashEntries_ = std::move(*stashes);
    emit detailsChanged();
    updateFilterSources();
    toasts_.show(localized("The stashes changed since they were listed; nothing was done. Choose the stash "
                           "again from the updated list."),
                 ToastType::warning);
    co_return false;
}

QCoro::Task<void> SidebarViewModel::applyStash(StashEntry stash) {
    if (!checkRepository())
        co_return;
    QPointer<SidebarViewModel> self(this);
    ToastManager& toasts = toasts_;
    if (!co_await stashStillListed(stash, "op=stash.apply", translatable("Apply stash failed: %1")) || !self)
        co_return;
    auto applied = attempt(service_->stashApply(*repo_, stash.index), toasts, "op=stash.apply",
                           translatable("Apply stash failed: %1"));
    const std::optional<OperationResult> result = co_await std::move(applied);
    if (!result)
        co_return;
    if (const auto* conflict = std::get_if<Conflicted>(&*result)) {
        const auto count = static_cast<long>(conflict->files.size());
        qCDebug(lcRefs, "op=stash.apply result=conflict conflictCount=%ld", count);
        toasts.show(localized("Stash apply conflict in %1 file(s)", count), ToastType::error);
    } else {
        qCDebug(lcRefs, "op=stash.apply result=success");
        toasts.show(localized("Applied stash: %1", stash.message), ToastType::notice);
    }
    if (self)
        emit self->checkoutComplete();
}

QCoro::Task<void> SidebarViewModel::applyAndDropStash(StashEntry stash) {
    if (!checkRepository())
        co_return;
    QPointer<SidebarViewModel> self(this);
    auto service = service_;
    const RepoEntry repo = *repo_;
    ToastManager& toasts = toasts_;
    if (!co_await stashStillListed(stash, "op=stash.applyAndDrop", translatable("Apply stash failed: %1")) ||
        !self)
        co_return;
    auto applied = attempt(service->stashApply(repo, stash.index), toasts, "op=stash.applyAndDrop",
                           translatable("Apply stash failed: %1"));
    const std::optional<OperationResult> result = co_await std::move(applied);
    if (!result)
        co_return;
    if (const auto* conflict = std::get_if<Conflicted>(&*result)) {
        // git keeps a stash that applied with conflicts, and so does this: the user may need it.
        const auto count = static_cast<long>(conflict->files.size());
        qCDebug(lcRefs, "op=stash.applyAndDrop applyResult=conflict conflictCount=%ld", count);
        toasts.show(localized("Stash apply conflict in %1 file(s) — stash kept", count), ToastType::error);
        if (self)
            emit self->checkoutComplete();
        co_return;
    }
    qCDebug(lcRefs, "op=stash.applyAndDrop applyResult=success");
    toasts.show(localized("Applied stash: %1", stash.message), ToastType::notice);
    if (!self)
        co_return;
    emit self->checkoutComplete();
    // A stash taken while this one applied has moved it down the list.
    if (!co_await self->stashStillListed(stash, "op=stash.applyAndDrop",
                                         translatable("Applied OK but drop failed: %1")))
        co_return;
    try {
        co_await service->stashDrop(repo, stash.index);
    } catch (const std::exception& error) {
        qCDebug(lcRefs, "op=stash.applyAndDrop dropResult=failed reason=%s",
                redactForLog(error.what()).c_str());
        toasts.show(localized("Applied OK but drop failed: %1", errorText(error)), ToastType::error);
        co_return;
    }
    qCDebug(lcRefs, "op=stash.applyAndDrop dropResult=success");
    toasts.show(localized("Dropped stash: %1", stash.message), ToastType::notice);
    if (self)
        self->loadStashes(repo);
}

QCoro::Task<void> SidebarViewModel::dropStash() {
    if (!pendingDropStash_ || !checkRepository())
        co_return;
    const StashEntry stash = *std::exchange(pendingDropStash_, std::nullopt);
    emit pendingChanged();
    QPointer<SidebarViewModel> self(this);
    const RepoEntry repo = *repo_;
    ToastManager& toasts = toasts_;
    if (!co_await stashStillListed(stash, "op=stash.drop", translatable("Drop stash failed: %1")) || !self)
        co_return;
    if (!co_await attempt(service_->stashDrop(repo, stash.index), toasts, "op=stash.drop",
                          translatable("Drop stash failed: %1")))
        co_return;
    qCDebug(lcRefs, "op=stash.drop");
    toasts.show(localized("Dropped stash: %1", stash.message), ToastType::notice);
    if (self)
        self->loadStashes(repo);
}

} // namespace orvel
