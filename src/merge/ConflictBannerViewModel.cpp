#include "merge/ConflictBannerViewModel.h"

#include "core/service/GitServiceProtocol.h"
#include "core/support/Log.h"
#include "notices/ToastManager.h"
#include "settings/LocalizationManager.h"

#include <algorithm>

namespace orvel {

namespace {

QString errorText(const std::exception& error) {
    return QString::fromUtf8(error.what());
}

struct AbortOperation {
    QCoro::Task<void> (GitServiceProtocol::*run)(RepoEntry, std::stop_token);
    const char* logName;
    QString doneText;
    QString failedFormat; // "%1" is git's error
};

std::optional<AbortOperation> abortOperation(RepositoryState state) {
    switch (state) {
    case RepositoryState::merging:
        return AbortOperation{&GitServiceProtocol::abortMerge, "merge", localized("Merge aborted"),
                              localized("Abort merge failed: %1")};
    case RepositoryState::rebasing:
        return AbortOperation{&GitServiceProtocol::abortRebase, "rebase", localized("Rebase aborted"),
                              localized("Abort rebase failed: %1")};
    case RepositoryState::cherryPicking:
        return AbortOperation{&GitServiceProtocol::abortCherryPick, "cherryPick",
                              localized("Cherry-pick aborted"), localized("Abort cherry-pick failed: %1")};
    case RepositoryState::reverting:
        return AbortOperation{&GitServiceProtocol::abortRevert, "revert", localized("Revert aborted"),
                              localized("Abort revert failed: %1")};
    default:
        return std::nullopt;
    }
}

} // namespace

ConflictBannerViewModel::ConflictBannerViewModel(RepoEntry repo, std::shared_ptr<GitServiceProtocol> service,
                                                 ToastManager& toasts, QObject* parent)
    : QObject(parent), repo_(std::move(repo)), service_(std::move(service)), toasts_(&toasts) {}

std::optional<ConflictEntry> ConflictBannerViewModel::firstConflict() const {
    if (conflicts_.empty())
        return std::nullopt;
    return conflicts_.front();
}

std::optional<ConflictEntry> ConflictBannerViewModel::conflictToOpen() const {
    for (const ConflictEntry& conflict : conflicts_)
        if (std::ranges::find(selectedPaths_, conflict.path) != selectedPaths_.end())
            return conflict;
    return firstConflict();
}

void ConflictBannerViewModel::setSelectedPaths(std::vector<std::string> paths) {
    selectedPaths_ = std::move(paths);
}

void ConflictBannerViewModel::openMergeEditor(const std::optional<std::string>& path) {
    std::optional<ConflictEntry> conflict = path ? std::nullopt : conflictToOpen();
    if (path)
        if (const auto found = std::ranges::find(conflicts_, *path, &ConflictEntry::path);
            found != conflicts_.end())
            conflict = *found;
    qCDebug(lcOps, "op=conflictBanner.openMergeEditor found=%d", conflict ? 1 : 0);
    if (conflict)
        emit mergeEditorRequested(*conflict);
}

void ConflictBannerViewModel::update(RepositoryState state, const std::vector<FileChange>& files) {
    std::vector<ConflictEntry> conflicts;
    std::map<std::string, QUuid> ids;
    for (const FileChange& file : files) {
        if (file.status.kind != FileStatusKind::Case::unmerged)
            continue;
        const auto known = conflictIDs_.find(file.path);
        const QUuid id = known != conflictIDs_.end() ? known->second : QUuid::createUuid();
        ids.emplace(file.path, id);
        conflicts.push_back({id, file.path, file.status.conflict, std::nullopt, std::nullopt, std::nullopt,
                             file.baseHash, file.oursHash, file.theirsHash});
    }
    repo_.state = state;
    conflicts_ = std::move(conflicts);
    conflictIDs_ = std::move(ids);
    emit stateChanged();
}

void ConflictBannerViewModel::setBusy(bool busy) {
    isBusy_ = busy;
    emit busyChanged();
}

QCoro::Task<void> ConflictBannerViewModel::abort() {
    const auto operation = abortOperation(repo_.state);
    if (!operation || isBusy_)
        co_return;
    setBusy(true);
    QPointer<ConflictBannerViewModel> self(this);
    auto service = service_;
    auto toasts = toasts_;
    auto aborted = ((*service).*(operation->run))(repo_, {});
    try {
        co_await std::move(aborted);
        if (toasts)
            toasts->show(operation->doneText, ToastType::notice);
        if (self)
            emit self->repositoryChanged();
    } catch (const std::exception& error) {
        qCDebug(lcOps, "op=%s.abort reason=%s", operation->logName, redactForLog(error.what()).c_str());
        if (toasts)
            toasts->show(operation->failedFormat.arg(errorText(error)), ToastType::error);
    }
    if (self)
        self->setBusy(false);
}

QCoro::Task<void> ConflictBannerViewModel::continueRebase() {
    return carryOnRebase(false);
}

QCoro::Task<void> ConflictBannerViewModel::skipRebase() {
    return carryOnRebase(true);
}

QCoro::Task<void> ConflictBannerViewModel::carryOnRebase(bool skip) {
    if (isBusy_)
        co_return;
    setBusy(true);
    QPointer<ConflictBannerViewModel> self(this);
    auto service = service_;
    auto toasts = toasts_;
    auto carried = skip ? service->rebaseSkip(repo_) : service->rebaseContinue(repo_);
    try {
        const InteractiveRebaseResult result = co_await std::move(carried);
        if (toasts) {
            if (const auto* stop = std::get_if<RebaseStop>(&result))
                toasts->show(localized("Conflict at step %1/%2 in %3 file(s)", stop->currentStep,
                                       stop->totalSteps, static_cast<int>(stop->files.size())),
                             ToastType::error);
            else if (const auto* edit = std::get_if<rebase::EditStop>(&result))
                toasts->show(skip ? localized("Rebase paused; amend and continue")
                                  : localized("Paused at step %1/%2; amend and continue", edit->currentStep,
                                              edit->totalSteps),
                             ToastType::notice);
            else
                toasts->show(localized("Rebase completed"), ToastType::notice);
        }
        if (self)
            emit self->repositoryChanged();
    } catch (const std::exception& error) {
        qCDebug(lcOps, "op=rebase.%s reason=%s", skip ? "skip" : "continue",
                redactForLog(error.what()).c_str());
        if (toasts)
            toasts->show(skip ? localized("Skip failed: %1", errorText(error))
                              : localized("Continue failed: %1", errorText(error)),
                         ToastType::error);
    }
    if (self)
        self->setBusy(false);
}

} // namespace orvel
