#include "workspace/WorkspaceCommands.h"

#include "content/ToastedAction.h"
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

// An operation's value, or its error text with paths taken out, for the steps whose failure is
// told otherwise than by an error toast.
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
    : QObject(parent), app_(app), host_(host.toStdString()) {}

std::string WorkspaceCommands::logOp(const char* operation) const {
    return "op=" + host_ + "." + operation;
}

QCoro::Task<void> WorkspaceCommands::fetch() {
    const std::optional<Target> target = activeTarget();
    if (!target)
        co_return;
    QPointer<WorkspaceCommands> self(this);
    ToastManager& toasts = app_.toastManager();
    ActivityScope activity(app_, localized("Fetching from %1…", text(target->remote)));
    const bool prune = app_.defaults().value(QStringLiteral("autoPrune"), true).toBool();
    auto fetched = attempt(app_.service()->fetch(target->repo, target->remote, prune), toasts, logOp("fetch"),
                           translatable("Fetch failed: %1"));
    if (!co_await std::move(fetched) || !self)
        co_return;
    toasts.show(localized("Fetched from %1", text(target->remote)), ToastType::notice);
    app_.autoFetch().resume();
    target->refresh();
}

QCoro::Task<void> WorkspaceCommands::pull(PullStrategy strategy) {
    const std::optional<Target> target = activeTarget();
    if (!target)
        co_return;
    QPointer<WorkspaceCommands> self(this);
    ToastManager& toasts = app_.toastManager();
    ActivityScope activity(app_, localized("Pulling from %1…", text(target->remote)));
    auto pulled = attempt(app_.service()->pull(target->repo, target->remote, strategy), toasts, logOp("pull"),
                          translatable("Pull failed: %1"));
    const std::optional<MergeResult> result = co_await std::move(pulled);
    if (!self)
        co_return;
    if (!result) {
        // A failed pull can still have moved things (a rebase that stopped half-way).
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
    ToastManager& toasts = app_.toastManager();
    ActivityScope activity(app_, force ? localized("Force pushing…") : localized("Pushing…"));
    auto service = app_.service();
    auto operation = force ? service->forcePush(target->repo, target->remote)
                           : service->push(target->repo, target->remote);
    auto pushed = attempt(std::move(operation), toasts, logOp(force ? "forcePush" : "push"),
                          translatable("Push failed: %1"));
    if (!co_await std::move(pushed) || !self)
        co_return;
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
    auto stashed = attempt(service->stashSave(target->repo, name.toStdString(), true), toasts,
                           "op=stash.save", translatable("Stash failed: %1"));
    if (!co_await std::move(stashed) || !self)
        co_return;
    qCDebug(lcApp, "op=stash.save status=success");
    toasts.show(localized("Changes stashed"), ToastType::notice);
    target->refresh();
}

QCoro::Task<void> WorkspaceCommands::popStash() {
    const std::optional<Target> target = activeTarget();
    if (!target)
        co_return;
    QPointer<WorkspaceCommands> self(this);
    ToastManager& toasts = app_.toastManager();
    ActivityScope activity(app_, localized("Popping stash…"));
    auto popped = attempt(app_.service()->stashPop(target->repo), toasts, logOp("stashPop"),
                          translatable("Stash pop failed: %1"));
    const std::optional<OperationResult> result = co_await std::move(popped);
    if (!self)
        co_return;
    if (!result) {
        // A pop that failed half-way can have changed the working tree: the tab reads it again.
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
    ToastManager& toasts = app_.toastManager();
    // Without knowing what is there, nothing is stashed or discarded.
    auto read = attempt(app_.service()->status(target->repo), toasts,
                        logOp(discards ? "createBranch.discard" : "createBranch.stash"),
                        discards ? translatable("Discard failed: %1") : translatable("Stash failed: %1"));
    const std::optional<StatusResult> status = co_await std::move(read);
    if (!status || !self)
        co_return;
    // git stashes nothing from a clean tree and says so without failing; the pop after the branch
    // would then apply an older, unrelated stash.
    if (!discards && status->files.empty()) {
        qCDebug(lcOps, "%s reason=No local changes to save", logOp("createBranch.stash").c_str());
        const QString reason = localized("No local changes to save");
        toasts.show(localized("Stash failed: %1", reason), ToastType::error);
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
        auto stashed = attempt(service->stashSave(repo, message, true), toasts, logOp("createBranch.stash"),
                               translatable("Stash failed: %1"));
        if (!co_await std::move(stashed) || !self)
            co_return;
    } else if (request.localChanges == LocalChangesOption::discard) {
        auto discarded = attempt(service->reset(repo, "HEAD", ResetMode::hard), toasts,
                                 logOp("createBranch.discard"), translatable("Discard failed: %1"));
        if (!co_await std::move(discarded) || !self)
            co_return;
    }

    auto created = attempt(service->createBranch(repo, name, std::nullopt), toasts, logOp("createBranch"),
                           translatable("Create branch failed: %1"));
    const bool wasCreated = (co_await std::move(created)).has_value();
    if (!self)
        co_return;
    if (!wasCreated) {
        if (stashes)
            toasts.show(
                localized("Your changes were auto-stashed before the failed operation. Reapply from the "
                          "Stash section to recover them."),
                ToastType::warning);
        target.refresh();
        co_return;
    }
    if (request.checkout) {
        auto checkedOut = attempt(service->checkoutBranch(repo, name), toasts, logOp("createBranch.checkout"),
                                  translatable("Checkout failed: %1"));
        const bool wasCheckedOut = (co_await std::move(checkedOut)).has_value();
        if (!self)
            co_return;
        if (!wasCheckedOut) {
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
        // Changes that do not come back stay on the stack, and a warning says so.
        const Outcome<OperationResult> reapplied = co_await outcomeOf(service->stashPop(repo));
        if (!self)
            co_return;
        if (reapplied.failure) {
            qCDebug(lcOps, "%s reason=%s", logOp("createBranch.stashPop").c_str(),
                    reapplied.failure->c_str());
            toasts.show(
                localized("Branch created, but your changes are still on the stash stack. Reapply from "
                          "the Stash section. (%1)",
                          text(*reapplied.failure)),
                ToastType::warning);
        } else if (const auto* conflict = std::get_if<Conflicted>(&*reapplied.value)) {
            qCDebug(lcApp, "%s result=conflict files=%ld", logOp("createBranch.stashPop").c_str(),
                    static_cast<long>(conflict->files.size()));
            toasts.show(localized("Stash reapplied with conflicts in %1 file(s). Resolve before continuing.",
                                  count(conflict->files.size())),
                        ToastType::warning);
        }
    }
    target.refresh();
}

QCoro::Task<void> WorkspaceCommands::createTag(QString name, std::optional<QString> message,
                                               std::string commit) {
    const std::optional<Target> target = activeTarget();
    if (!target)
        co_return;
    QPointer<WorkspaceCommands> self(this);
    ToastManager& toasts = app_.toastManager();
    ActivityScope activity(app_, localized("Creating tag '%1'…", name));
    auto created =
        attempt(app_.service()->createTag(target->repo, name.toStdString(),
                                          commit.empty() ? std::nullopt : std::optional(commit),
                                          message ? std::optional(message->toStdString()) : std::nullopt),
                toasts, logOp("createTag"), translatable("Tag creation failed: %1"));
    if (!co_await std::move(created) || !self)
        co_return;
    toasts.show(localized("Created tag '%1'", name), ToastType::notice);
    target->refresh();
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
