// The ways out of a merge, rebase, cherry-pick or revert that stopped on a conflict: aborting, and
// carrying a rebase on by continuing or skipping a step. Each ends with a status read, and the tab
// reloads the history when the branch moved.
#include "changes/ChangesPaneViewModel.h"

#include "core/service/GitServiceProtocol.h"
#include "core/support/Log.h"
#include "settings/LocalizationManager.h"
#include "workspace/ToastManager.h"

#include <QPointer>

namespace orvel {

QCoro::Task<void> ChangesPaneViewModel::abortOperation(QCoro::Task<void> operation, const char* successText,
                                                       const char* logName, const char* failureFormat) {
    QPointer<ChangesPaneViewModel> self(this);
    try {
        co_await std::move(operation);
    } catch (const std::exception& error) {
        qCDebug(lcOps, "op=%s reason=%s", logName, redactForLog(error.what()).c_str());
        if (self)
            toasts_.show(localized(failureFormat, QString::fromUtf8(error.what())), ToastType::error);
        co_return;
    }
    if (!self)
        co_return;
    toasts_.show(localized(successText), ToastType::notice);
    co_await refreshStatus();
    if (self)
        emit commitSucceeded();
}

QCoro::Task<void> ChangesPaneViewModel::abortMerge() {
    co_await abortOperation(service_->abortMerge(repo_), "Merge aborted", "merge.abort",
                            "Abort merge failed: %1");
}

QCoro::Task<void> ChangesPaneViewModel::abortRebase() {
    co_await abortOperation(service_->abortRebase(repo_), "Rebase aborted", "rebase.abort",
                            "Abort rebase failed: %1");
}

QCoro::Task<void> ChangesPaneViewModel::abortCherryPick() {
    co_await abortOperation(service_->abortCherryPick(repo_), "Cherry-pick aborted", "cherryPick.abort",
                            "Abort cherry-pick failed: %1");
}

QCoro::Task<void> ChangesPaneViewModel::abortRevert() {
    co_await abortOperation(service_->abortRevert(repo_), "Revert aborted", "revert.abort",
                            "Abort revert failed: %1");
}

QCoro::Task<void> ChangesPaneViewModel::continueRebase() {
    co_await rebaseStep(service_->rebaseContinue(repo_), true);
}

QCoro::Task<void> ChangesPaneViewModel::skipRebase() {
    co_await rebaseStep(service_->rebaseSkip(repo_), false);
}

QCoro::Task<void> ChangesPaneViewModel::rebaseStep(QCoro::Task<InteractiveRebaseResult> step,
                                                   bool isContinue) {
    QPointer<ChangesPaneViewModel> self(this);
    InteractiveRebaseResult result;
    try {
        result = co_await std::move(step);
    } catch (const std::exception& error) {
        qCDebug(lcOps, "op=%s reason=%s", isContinue ? "rebase.continue" : "rebase.skip",
                redactForLog(error.what()).c_str());
        if (self)
            toasts_.show(localized(isContinue ? "Continue failed: %1" : "Skip failed: %1",
                                   QString::fromUtf8(error.what())),
                         ToastType::error);
        co_return;
    }
    if (!self)
        co_return;
    bool moved = true;
    if (const auto* stop = std::get_if<RebaseStop>(&result)) {
        moved = false;
        toasts_.show(localized("Conflict at step %1/%2 in %3 file(s)", stop->currentStep, stop->totalSteps,
                               static_cast<int>(stop->files.size())),
                     ToastType::error);
    } else if (const auto* edit = std::get_if<rebase::EditStop>(&result)) {
        toasts_.show(isContinue ? localized("Paused at step %1/%2; amend and continue", edit->currentStep,
                                            edit->totalSteps)
                                : localized("Rebase paused; amend and continue"),
                     ToastType::notice);
    } else {
        toasts_.show(localized("Rebase completed"), ToastType::notice);
    }
    co_await refreshStatus();
    if (self && moved)
        emit commitSucceeded();
}

} // namespace orvel
