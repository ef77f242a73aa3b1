#include "workspace/WorkspaceCommands.h"

#include "content/OperationFailure.h"
#include "core/service/GitServiceProtocol.h"
#include "core/support/Log.h"
#include "core/support/UserDefaults.h"
#include "settings/LocalizationManager.h"
#include "workspace/AppViewModel.h"
#include "workspace/AutoFetchScheduler.h"
#include "workspace/RemoteChoice.h"

#include <QPointer>
#include <QRandomGenerator>

namespace orvel {

namespace {

// The activity a command shows while it runs; it leaves the stack on every way out.
class ActivityScope {
  public:
    ActivityScope(AppViewModel& app, const QString& message) : app_(&app), id_(app.pushActivity(message)) {}
    ~ActivityScope() {
        if (app_)
            app_->popActivity(id_);
    }
    ActivityScope(const ActivityScope&) = delete;
    ActivityScope& operator=(const ActivityScope&) = delete;

  private:
    QPointer<AppViewModel> app_;
    QUuid id_;
};

QString text(const std::string& value) {
    return QString::fromStdString(value);
}

QString count(std::size_t value) {
    return QString::number(value);
}

// An operation's value, or its error text with paths taken out.
template <typename T>
struct Outcome {
    std::optional<T> value;
    std::optional<std::string> failure;
};

template <typename T>
QCoro::Task<Outcome<T>> outcomeOf(QCoro::Task<T> operation) {
    Outcome<T> outcome;
    try {
        outcome.value = co_await std::move(operation);
    } catch (const std::exception& error) {
        outcome.failure = redactForLog(error.what());
    }
    co_return outcome;
}

} // namespace

void WorkspaceCommands::Target::refresh() const {
    if (tab)
        tab->refresh();
}

std::optional<WorkspaceCommands::Target> WorkspaceCommands::activeTarget() const {
    WorkspaceTabState* tab = app_.activeTab();
    if (!tab)
        return std::nullopt;
    return Target{tab, tab->repo(), chosenRemote(tab->branches())};
}

WorkspaceCommands::WorkspaceCommands(AppViewModel& app, QString host, QObject* parent)
    : QObject(parent), app_(app), host_(host.toUtf8()) {}

void WorkspaceCommands::logFailure(const char* operation, const std::string& reason) const {
    qCDebug(lcApp, "op=%s.%s reason=%s", host_.constData(), operation, reason.c_str());
}

QCoro::Task<void> WorkspaceCommands::fetch() {
    const std::optional<Target> target = activeTarget();
    if (!target)
        co_return;
    QPointer<WorkspaceCommands> self(this);
    ActivityScope activity(app_, localized("Fetching from %1…", text(target->remote)));
    const bool prune = app_.defaults().value(QStringLiteral("autoPrune"), true).toBool();
    const std::optional<std::string> failure =
        co_await failureOf(app_.service()->fetch(target->repo, target->remote, prune));
    if (!self)
        co_return;
    ToastManager& toasts = app_.toastManager();
    if (failure) {
        logFailure("fetch", *failure);
        toasts.show(localized("Fetch failed: %1", text(*failure)), ToastType::error);
        co_return;
    }
    toasts.show(localized("Fetched from %1", text(target->remote)), ToastType::notice);
    app_.autoFetch().resume();
    target->refresh();
}

QCoro::Task<void> WorkspaceCommands::pull(PullStrategy strategy) {
    const std::optional<Target> target = activeTarget();
    if (!target)
        co_return;
    QPointer<WorkspaceCommands> self(this);
    ActivityScope activity(app_, localized("Pulling from %1…", text(target->remote)));
    const Outcome<MergeResult> pulled =
        co_await outcomeOf(app_.service()->pull(target->repo, target->remote, strategy));
    const auto& [result, failure] = pulled;
    if (!self)
        co_return;
    ToastManager& toasts = app_.toastManager();
    if (failure) {
        logFailure("pull", *failure);
        toasts.show(localized("Pull failed: %1", text(*failure)), ToastType::error);
    } else if (const auto* conflict = std::get_if<Conflicted>(&*result)) {
        toasts.show(localized("Pull conflict in %1 file(s)", count(conflict->files.size())),
                    ToastType::error);
    } else if (std::holds_alternative<merge::Merged>(*result)) {
        toasts.show(localized("Pulled (merge)"), ToastType::notice);
    } else if (std::holds_alternative<merge::FastForward>(*result)) {
        toasts.show(localized("Pulled (fast-forward)"), ToastType::notice);
    } else {
        toasts.show(localized("Already up to date"), ToastType::notice);
    }
    // A failed pull can still have moved things (a rebase that stopped half-way).
    target->refresh();
}

QCoro::Task<void> WorkspaceCommands::push() {
    return pushTo(false);
}

QCoro::Task<void> WorkspaceCommands::forcePush() {
    return pushTo(true);
}

QCoro::Task<void> WorkspaceCommands::pushTo(bool force) {
    const std::optional<Target> target = activeTarget();
    if (!target)
        co_return;
    QPointer<WorkspaceCommands> self(this);
    ActivityScope activity(app_, force ? localized("Force pushing…") : localized("Pushing…"));
    auto service = app_.service();
    auto operation = force ? service->forcePush(target->repo, target->remote)
                           : service->push(target->repo, target->remote);
    const std::optional<std::string> failure = co_await failureOf(std::move(operation));
    if (!self)
        co_return;
    ToastManager& toasts = app_.toastManager();
    if (failure) {
        logFailure(force ? "forcePush" : "push", *failure);
        toasts.show(localized("Push failed: %1", text(*failure)), ToastType::error);
        co_return;
    }
    toasts.show(force ? localized("Force pushed to %1", text(target->remote))
                      : localized("Pushed to %1", text(target->remote)),
                ToastType::notice);
    target->refresh();
}

QCoro::Task<void> WorkspaceCommands::stash(QString name) {
    const std::optional<Target> target = activeTarget();
    if (!target)
        co_return;
    QPointer<WorkspaceCommands> self(this);
    auto service = app_.service();
    ToastManager& toasts = app_.toastManager();
    const Outcome<StatusResult> status = co_await outcomeOf(service->status(target->repo));
    if (!self)
        co_return;
    // When the status can't be read, the stash itself will say what is wrong.
    if (status.failure) {
        qCDebug(lcApp, "op=stash.status reason=%s", status.failure->c_str());
    } else if (status.value->files.empty()) {
        toasts.show(localized("Nothing to stash; working tree is clean"), ToastType::notice);
        co_return;
    }
    ActivityScope activity(app_, localized("Stashing changes…"));
    const std::optional<std::string> failure =
        co_await failureOf(service->stashSave(target->repo, name.toStdString(), true));
    if (!self)
        co_return;
    if (failure) {
        qCDebug(lcApp, "op=stash.save reason=%s", failure->c_str());
        toasts.show(localized("Stash failed: %1", text(*failure)), ToastType::error);
        co_return;
    }
    qCDebug(lcApp, "op=stash.save status=success");
    toasts.show(localized("Changes stashed"), ToastType::notice);
    target->refresh();
}

QCoro::Task<void> WorkspaceCommands::popStash() {
    const std::optional<Target> target = activeTarget();
    if (!target)
        co_return;
    QPointer<WorkspaceCommands> self(this);
    ActivityScope activity(app_, localized("Popping stash…"));
    const Outcome<OperationResult> popped = co_await outcomeOf(app_.service()->stashPop(target->repo));
    const auto& [result, failure] = popped;
    if (!self)
        co_return;
    ToastManager& toasts = app_.toastManager();
    if (failure) {
        logFailure("stashPop", *failure);
        toasts.show(localized("Stash pop failed: %1", text(*failure)), ToastType::error);
    } else if (const auto* conflict = std::get_if<Conflicted>(&*result)) {
        toasts.show(localized("Stash pop conflict in %1 file(s)", count(conflict->files.size())),
                    ToastType::warning);
    } else {
        toasts.show(localized("Stash popped"), ToastType::notice);
    }
    target->refresh();
}

QCoro::Task<void> WorkspaceCommands::createBranch(BranchRequest request) {
    const std::optional<Target> target = activeTarget();
    if (!target)
        co_return;
    if (request.localChanges == LocalChangesOption::dontChange) {
        co_await runBranchCreation(*target, std::move(request));
        co_return;
    }
    const bool discards = request.localChanges == LocalChangesOption::discard;
    QPointer<WorkspaceCommands> self(this);
    Outcome<StatusResult> read = co_await outcomeOf(app_.service()->status(target->repo));
    auto& [status, failure] = read;
    if (!self)
        co_return;
    // git stashes nothing from a clean tree and says so without failing; the pop after the branch
    // would then apply an older, unrelated stash.
    if (!failure && !discards && status->files.empty())
        failure = "No local changes to save";
    if (failure) {
        // Without knowing what is there, nothing is stashed or discarded.
        logFailure(discards ? "createBranch.discard" : "createBranch.stash", *failure);
        app_.toastManager().show(discards ? localized("Discard failed: %1", text(*failure))
                                          : localized("Stash failed: %1", text(*failure)),
                                 ToastType::error);
        co_return;
    }
    if (discards && !status->files.empty()) {
        const int files = static_cast<int>(status->files.size());
        discardConfirmPending_ = PendingDiscard{std::move(request), files, *target};
        emit discardConfirmationNeeded(files);
        co_return;
    }
    co_await runBranchCreation(*target, std::move(request));
}

QCoro::Task<void> WorkspaceCommands::confirmDiscard() {
    if (!discardConfirmPending_)
        co_return;
    PendingDiscard pending = *std::exchange(discardConfirmPending_, std::nullopt);
    // The confirmation holds for the repository it was asked about, and only while its tab is open.
    if (!pending.target.tab)
        co_return;
    co_await runBranchCreation(std::move(pending.target), std::move(pending.request));
}

void WorkspaceCommands::cancelDiscard() {
    discardConfirmPending_.reset();
}

QCoro::Task<void> WorkspaceCommands::runBranchCreation(Target target, BranchRequest request) {
    QPointer<WorkspaceCommands> self(this);
    ActivityScope activity(app_, localized("Creating branch '%1'…", request.name));
    auto service = app_.service();
    ToastManager& toasts = app_.toastManager();
    const RepoEntry& repo = target.repo;
    const std::string name = request.name.toStdString();
    const bool stashes = request.localChanges == LocalChangesOption::stashAndReapply;

    if (stashes) {
        const std::string message = "Auto-stash before creating branch '" + name + "'";
        const std::optional<std::string> failure =
            co_await failureOf(service->stashSave(repo, message, true));
        if (!self)
            co_return;
        if (failure) {
            logFailure("createBranch.stash", *failure);
            toasts.show(localized("Stash failed: %1", text(*failure)), ToastType::error);
            co_return;
        }
    } else if (request.localChanges == LocalChangesOption::discard) {
        const std::optional<std::string> failure =
            co_await failureOf(service->reset(repo, "HEAD", ResetMode::hard));
        if (!self)
            co_return;
        if (failure) {
            logFailure("createBranch.discard", *failure);
            toasts.show(localized("Discard failed: %1", text(*failure)), ToastType::error);
            co_return;
        }
    }

    std::optional<std::string> failure = co_await failureOf(service->createBranch(repo, name, std::nullopt));
    if (!self)
        co_return;
    if (failure) {
        logFailure("createBranch", *failure);
        toasts.show(localized("Create branch failed: %1", text(*failure)), ToastType::error);
        if (stashes)
            toasts.show(
                localized("Your changes were auto-stashed before the failed operation. Reapply from the "
                          "Stash section to recover them."),
                ToastType::warning);
        target.refresh();
        co_return;
    }
    if (request.checkout) {
        failure = co_await failureOf(service->checkoutBranch(repo, name));
        if (!self)
            co_return;
        if (failure) {
            logFailure("createBranch.checkout", *failure);
            toasts.show(localized("Checkout failed: %1", text(*failure)), ToastType::error);
            if (stashes)
                toasts.show(localized("Branch '%1' was created, but checkout failed. Your changes are on the "
                                      "stash stack; reapply from the Stash section.",
                                      request.name),
                            ToastType::warning);
            target.refresh();
            co_return;
        }
        toasts.show(localized("Created and checked out '%1'", request.name), ToastType::notice);
    } else {
        toasts.show(localized("Created branch '%1'", request.name), ToastType::notice);
    }

    if (stashes) {
        const Outcome<OperationResult> reapplied = co_await outcomeOf(service->stashPop(repo));
        if (!self)
            co_return;
        if (reapplied.failure) {
            logFailure("createBranch.stashPop", *reapplied.failure);
            toasts.show(
                localized("Branch created, but your changes are still on the stash stack. Reapply from "
                          "the Stash section. (%1)",
                          text(*reapplied.failure)),
                ToastType::warning);
        } else if (const auto* conflict = std::get_if<Conflicted>(&*reapplied.value)) {
            qCDebug(lcApp, "op=%s.createBranch.stashPop result=conflict files=%ld", host_.constData(),
                    static_cast<long>(conflict->files.size()));
            toasts.show(localized("Stash reapplied with conflicts in %1 file(s). Resolve before continuing.",
                                  count(conflict->files.size())),
                        ToastType::warning);
        }
    }
    target.refresh();
}

QString WorkspaceCommands::forcePushWarning(int behind) {
    if (behind > 0)
        return localized("The remote branch has %1 commit(s) that are not in yours. Force pushing replaces "
                         "the remote branch with yours, and those commits are lost for everyone.",
                         QString::number(behind));
    return localized(
        "Force pushing replaces the remote branch with yours. Commits on the remote that are not in "
        "yours are lost for everyone.");
}

QString WorkspaceCommands::stashPlaceholder(const QString& branch, const QDateTime& now) {
    static const QString alphabet =
        QStringLiteral("abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789");
    QString suffix;
    for (int index = 0; index < 5; ++index)
        suffix.append(alphabet.at(QRandomGenerator::global()->bounded(alphabet.size())));
    return QStringLiteral("WIP_%1_%2_%3")
        .arg(branch, now.toString(QStringLiteral("dd.MM.yy.HH.mm.ss")), suffix);
}

} // namespace orvel
