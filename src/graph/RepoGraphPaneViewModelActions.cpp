// The graph pane's commit actions: copying, the questions before a reset or a pick onto a dirty
// working tree, and the git operations with their activity, toasts and log lines.
#include "graph/RepoGraphPaneViewModel.h"

#include "core/commands/HistoryEditCommands.h"
#include "core/service/GitServiceProtocol.h"
#include "core/support/Log.h"
#include "notices/ToastManager.h"
#include "settings/LocalizationManager.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QPointer>

namespace orvel {

namespace {

QString shortHash(const std::string& hash) {
    return QString::fromStdString(hash.substr(0, 7));
}

QString errorText(const std::exception& error) {
    return QString::fromUtf8(error.what());
}

// An operation without a result, as one whose result is a plain success.
QCoro::Task<OperationResult> succeeded(QCoro::Task<void> operation) {
    co_await std::move(operation);
    co_return operation::Success{};
}

// Runs one action of the menu: shows `activityText` while `operation` runs and ends it; a failure
// is logged as "op=<logName> reason=..." and told with `failureFormat` and git's text. Answers the
// operation's result, or nothing after a failure. The callback and the toast manager are taken
// by value and reference: they outlive the model.
QCoro::Task<std::optional<OperationResult>>
runAction(ToastManager& toasts, RepoGraphPaneViewModel::ActivityCallback activity, QString activityText,
          QCoro::Task<OperationResult> operation, const char* logName, const char* failureFormat) {
    if (activity)
        activity(activityText);
    try {
        OperationResult result = co_await std::move(operation);
        if (activity)
            activity(std::nullopt);
        co_return result;
    } catch (const std::exception& error) {
        qCDebug(lcOps, "op=%s reason=%s", logName, redactForLog(error.what()).c_str());
        if (activity)
            activity(std::nullopt);
        toasts.show(localized(failureFormat, errorText(error)), ToastType::error);
        co_return std::nullopt;
    }
}

// Puts `text` on the clipboard and reads it back: a clipboard that no one serves (no display
// connection, a broken manager) keeps its old content.
bool copyToClipboard(const QString& text) {
    QClipboard* clipboard = QGuiApplication::clipboard();
    if (!clipboard)
        return false;
    clipboard->setText(text);
    return clipboard->text() == text;
}

} // namespace

bool RepoGraphPaneViewModel::checkRepository() {
    if (!repo_.path.empty())
        return true;
    toasts_.show(localized("No repository loaded"), ToastType::error);
    return false;
}

void RepoGraphPaneViewModel::copyHash(const std::string& hash) {
    if (!copyToClipboard(QString::fromStdString(hash)))
        toasts_.show(localized("Could not copy to clipboard"), ToastType::error);
}

// The rows keep subjects only: the whole message is read from git.
QCoro::Task<void> RepoGraphPaneViewModel::copyMessage(std::string hash) {
    auto ticket = messageCopies_.begin(this);
    auto details = service_->commitDetails(repo_, hash, ticket.stopToken());
    CommitEntry entry;
    try {
        entry = co_await std::move(details);
    } catch (const std::exception& error) {
        if (!ticket.isCurrent())
            co_return;
        qCDebug(lcGraph, "op=commit.copyMessage reason=%s", redactForLog(error.what()).c_str());
        toasts_.show(localized("Could not copy to clipboard"), ToastType::error);
        co_return;
    }
    if (!ticket.isCurrent())
        co_return;
    std::string message = entry.subject;
    if (!entry.body.empty())
        message += "\n\n" + entry.body;
    if (!copyToClipboard(QString::fromUtf8(message.data(), static_cast<qsizetype>(message.size()))))
        toasts_.show(localized("Could not copy to clipboard"), ToastType::error);
}

void RepoGraphPaneViewModel::requestReset(const std::string& hash, ResetMode mode) {
    switch (mode) {
    case ResetMode::hard:
        emit confirmationRequested({GraphConfirmation::Kind::hardReset, hash});
        return;
    case ResetMode::soft:
        emit confirmationRequested({GraphConfirmation::Kind::softReset, hash});
        return;
    case ResetMode::mixed:
        emit confirmationRequested({GraphConfirmation::Kind::mixedReset, hash});
        return;
    case ResetMode::merge:
    case ResetMode::keep:
        reset(hash, mode);
        return;
    }
}

void RepoGraphPaneViewModel::requestCherryPick(const std::string& hash) {
    askToPick({GraphConfirmation::Kind::cherryPick, hash, isWorkingTreeDirty()});
}

void RepoGraphPaneViewModel::requestRevert(const std::string& hash) {
    askToPick({GraphConfirmation::Kind::revert, hash, isWorkingTreeDirty()});
}

QCoro::Task<void> RepoGraphPaneViewModel::askToPick(GraphConfirmation confirmation) {
    auto ticket = predictions_.begin(this);
    confirmationPrediction_.reset();
    emit confirmationRequested(confirmation);
    auto service = service_;
    auto run = service->predictPick(repo_, confirmation.hash, confirmation.kind == GraphConfirmation::Kind::revert,
                                    ticket.stopToken());
    MergePrediction prediction;
    try {
        prediction = co_await std::move(run);
    } catch (const std::exception& error) {
        prediction = MergePrediction::unknown(error.what());
    }
    if (!ticket.isCurrent())
        co_return;
    confirmationPrediction_ = std::move(prediction);
    emit confirmationPredictionChanged();
}

QCoro::Task<void> RepoGraphPaneViewModel::confirm(GraphConfirmation confirmation) {
    switch (confirmation.kind) {
    case GraphConfirmation::Kind::hardReset:
        co_await reset(std::move(confirmation.hash), ResetMode::hard);
        break;
    case GraphConfirmation::Kind::softReset:
        co_await reset(std::move(confirmation.hash), ResetMode::soft);
        break;
    case GraphConfirmation::Kind::mixedReset:
        co_await reset(std::move(confirmation.hash), ResetMode::mixed);
        break;
    case GraphConfirmation::Kind::cherryPick:
        co_await cherryPick(std::move(confirmation.hash));
        break;
    case GraphConfirmation::Kind::revert:
        co_await revert(std::move(confirmation.hash));
        break;
    }
}

// After a change the model may be gone (its tab closed): the outcome is still told, through the
// toast manager, which outlives every tab, and the activity callback, which holds its tab weakly.
void RepoGraphPaneViewModel::afterChange() {
    emit repositoryChanged();
    load();
}

QCoro::Task<void> RepoGraphPaneViewModel::reset(std::string hash, ResetMode mode) {
    if (!checkRepository())
        co_return;
    QPointer<RepoGraphPaneViewModel> self(this);
    ToastManager& toasts = toasts_;
    auto outcome = runAction(toasts, activity_, localized("Resetting to %1…", shortHash(hash)),
                             succeeded(service_->reset(repo_, hash, mode)), "commit.reset",
                             translatable("Reset failed: %1"));
    if (!co_await std::move(outcome))
        co_return;
    qCDebug(lcOps, "op=commit.reset mode=%s", HistoryEditCommands::resetModeName(mode));
    toasts.show(localized("Reset %1 to %2", QString::fromLatin1(HistoryEditCommands::resetModeName(mode)),
                          shortHash(hash)),
                ToastType::notice);
    if (self)
        self->afterChange();
}

QCoro::Task<void> RepoGraphPaneViewModel::cherryPick(std::string hash) {
    return pickOrRevert(std::move(hash), false);
}

QCoro::Task<void> RepoGraphPaneViewModel::revert(std::string hash) {
    return pickOrRevert(std::move(hash), true);
}

// A cherry-pick and a revert differ in their git command and their words only.
QCoro::Task<void> RepoGraphPaneViewModel::pickOrRevert(std::string hash, bool isRevert) {
    if (!checkRepository())
        co_return;
    QPointer<RepoGraphPaneViewModel> self(this);
    ToastManager& toasts = toasts_;
    const QString shortName = shortHash(hash);
    const char* logName = isRevert ? "commit.revert" : "commit.cherryPick";
    auto outcome =
        isRevert
            ? runAction(toasts, activity_, localized("Reverting %1…", shortName),
                        service_->revert(repo_, hash), logName, translatable("Revert failed: %1"))
            : runAction(toasts, activity_, localized("Cherry-picking %1…", shortName),
                        service_->cherryPick(repo_, hash), logName, translatable("Cherry-pick failed: %1"));
    const std::optional<OperationResult> result = co_await std::move(outcome);
    if (!result)
        co_return;
    if (const auto* conflict = std::get_if<Conflicted>(&*result)) {
        const auto count = static_cast<long>(conflict->files.size());
        qCDebug(lcOps, "op=%s result=conflict conflictCount=%ld", logName, count);
        toasts.show(
            isRevert ? localized("Revert conflict in %1 file(s). Resolve conflicts and commit.", count)
                     : localized("Cherry-pick conflict in %1 file(s). Resolve conflicts and commit.", count),
            ToastType::warning);
    } else {
        qCDebug(lcOps, "op=commit.%s", isRevert ? "reverted" : "cherryPicked");
        toasts.show(isRevert ? localized("Reverted %1", shortName) : localized("Cherry-picked %1", shortName),
                    ToastType::notice);
    }
    if (self)
        self->afterChange();
}

QCoro::Task<void> RepoGraphPaneViewModel::createBranch(std::string name, std::string hash, bool checkout) {
    if (!checkRepository())
        co_return;
    QPointer<RepoGraphPaneViewModel> self(this);
    ToastManager& toasts = toasts_;
    const QString displayName = QString::fromStdString(name);
    auto creation =
        checkout ? service_->checkoutNewBranch(repo_, name, hash) : service_->createBranch(repo_, name, hash);
    auto outcome = runAction(toasts, activity_, localized("Creating branch '%1'…", displayName),
                             succeeded(std::move(creation)), "branch.createAtCommit",
                             translatable("Create branch failed: %1"));
    if (!co_await std::move(outcome))
        co_return;
    qCDebug(lcOps, "op=branch.createAtCommit");
    toasts.show(localized("Created branch '%1' at %2", displayName, shortHash(hash)), ToastType::notice);
    if (self)
        self->afterChange();
}

QCoro::Task<void> RepoGraphPaneViewModel::createTag(std::string name, std::optional<std::string> message,
                                                    std::string hash) {
    if (!checkRepository())
        co_return;
    QPointer<RepoGraphPaneViewModel> self(this);
    ToastManager& toasts = toasts_;
    const QString displayName = QString::fromStdString(name);
    const bool annotated = message.has_value();
    auto outcome = runAction(toasts, activity_, localized("Creating tag '%1'…", displayName),
                             succeeded(service_->createTag(repo_, name, hash, std::move(message))),
                             "tag.createAtCommit", translatable("Create tag failed: %1"));
    if (!co_await std::move(outcome))
        co_return;
    qCDebug(lcOps, "op=tag.createAtCommit annotated=%d", annotated ? 1 : 0);
    toasts.show(annotated ? localized("Created annotated tag '%1' at %2", displayName, shortHash(hash))
                          : localized("Created tag '%1' at %2", displayName, shortHash(hash)),
                ToastType::notice);
    if (self)
        self->afterChange();
}

} // namespace orvel
