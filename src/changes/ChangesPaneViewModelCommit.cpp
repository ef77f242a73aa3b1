// The commit form's flow: commit or amend, then, when asked, push; an amended commit whose
// earlier version was already pushed asks first, since pushing it needs a force push. A commit
// that git refuses for want of an identity asks for one and commits again.
#include "changes/ChangesPaneViewModel.h"

#include "changes/AnswerChannel.h"
#include "changes/CommitMessage.h"
#include "core/service/GitConfigProtocol.h"
#include "core/service/GitServiceError.h"
#include "core/service/GitServiceProtocol.h"
#include "core/support/Log.h"
#include "core/support/UserDefaults.h"
#include "notices/ToastManager.h"
#include "settings/LocalizationManager.h"

#include <QPointer>

#include <algorithm>

namespace orvel {

namespace {

QString errorText(const std::exception& error) {
    return QString::fromUtf8(error.what());
}

// git's words when neither its configuration nor the environment gives a name and e-mail it accepts.
bool refusedForIdentity(const std::exception& error) {
    const auto* gitError = dynamic_cast<const GitServiceError*>(&error);
    if (!gitError || gitError->kind() != GitServiceError::Kind::commandFailed)
        return false;
    const std::string& text = gitError->stderrText();
    return text.find("Author identity unknown") != std::string::npos ||
           text.find("Committer identity unknown") != std::string::npos;
}

const BranchEntry* currentLocalBranch(const std::vector<BranchEntry>& branches) {
    const auto found = std::find_if(branches.begin(), branches.end(), [](const BranchEntry& branch) {
        return branch.isCurrent && !branch.isRemote;
    });
    return found == branches.end() ? nullptr : &*found;
}

// The fetch after a push, so that the remote-tracking refs show what was pushed; nobody awaits it.
QCoro::Task<void> fetchAfterPush(std::shared_ptr<GitServiceProtocol> service, RepoEntry repo,
                                 std::string remote, bool prune) {
    try {
        co_await service->fetch(std::move(repo), std::move(remote), prune);
    } catch (const std::exception&) {
        qCDebug(lcStaging, "op=commit.push.fetch result=error");
    }
}

} // namespace

QCoro::Task<void> ChangesPaneViewModel::commit() {
    if (isCommitting_)
        co_return;
    const std::optional<std::string> message = composeCommitMessage(commitSubject_, commitDescription_);
    if (!message)
        co_return;
    if (stagedFiles_.empty() && !isAmend_) {
        toasts_.show(localized("No staged files to commit"), ToastType::warning);
        co_return;
    }
    const bool wasAmend = isAmend_;
    const bool wantsPush = isCommitAndPush_;
    qCDebug(lcStaging, "op=%s count=%ld push=%d", wasAmend ? "commit.amend" : "commit.create",
            static_cast<long>(stagedFiles_.size()), wantsPush);
    // A new commit task replaces the stop of an earlier one.
    commitStop_ = std::stop_source();
    const std::stop_token cancellation = commitStop_.get_token();
    QPointer<ChangesPaneViewModel> self(this);
    const ActivityCallback activity = activity_;
    isCommitting_ = true;
    emit commitFormChanged();
    auto end = [&activity, &self] {
        if (self) {
            self->isCommitting_ = false;
            emit self->commitFormChanged();
        }
        if (activity)
            activity(std::nullopt);
    };
    if (activity)
        activity(wasAmend ? localized("Amending commit…") : localized("Committing…"));
    auto service = service_;
    // Whether the amend rewrites a commit the upstream already has: nothing of the branch was
    // unpushed before it. Read first, since afterwards git counts the new commit as ahead.
    bool rewritesPushedCommit = false;
    if (wasAmend && wantsPush) {
        try {
            const std::vector<BranchEntry> branches = co_await service->branches(repo_);
            const BranchEntry* current = currentLocalBranch(branches);
            rewritesPushedCommit =
                current && current->upstream && !current->upstream->isGone && current->upstream->ahead == 0;
        } catch (const std::exception&) {
            rewritesPushedCommit = false;
        }
        if (!self) {
            end();
            co_return;
        }
    }
    auto operation = wasAmend ? service->amendCommit(repo_, *message) : service->commit(repo_, *message);
    try {
        co_await std::move(operation);
    } catch (const std::exception& error) {
        if (self && config_ && refusedForIdentity(error)) {
            qCDebug(lcStaging, "op=commit.create reason=identity-unknown");
            identityRequested_ = true;
        } else {
            qCDebug(lcStaging, "op=commit.create reason=%s", redactForLog(error.what()).c_str());
            if (self)
                toasts_.show(localized("Commit failed: %1", errorText(error)), ToastType::warning);
        }
        end();
        co_return;
    }
    if (!self) {
        end();
        co_return;
    }
    commitSubject_.clear();
    commitDescription_.clear();
    isAmend_ = false;
    identityRequested_ = false;
    emit commitFormChanged();
    emit commitSucceeded();
    co_await refreshStatus();
    if (!self) {
        end();
        co_return;
    }
    if (!wantsPush) {
        toasts_.show(localized("Committed successfully"), ToastType::notice);
        end();
        co_return;
    }
    co_await push(wasAmend, rewritesPushedCommit, cancellation);
    end();
}

QCoro::Task<void> ChangesPaneViewModel::setIdentityAndCommit(QString name, QString email,
                                                             bool allRepositories) {
    name = name.trimmed();
    email = email.trimmed();
    if (!identityRequested_ || isCommitting_ || !config_ || name.isEmpty() || email.isEmpty())
        co_return;
    const GitConfigScope scope = allRepositories ? GitConfigScope::global : GitConfigScope::local;
    qCDebug(lcStaging, "op=commit.identity.set scope=%s", allRepositories ? "global" : "local");
    QPointer<ChangesPaneViewModel> self(this);
    auto config = config_;
    const std::optional<std::string> where =
        allRepositories ? std::nullopt : std::optional<std::string>(repo_.path);
    // The form holds still while the identity is written, as it does while git commits.
    isCommitting_ = true;
    emit commitFormChanged();
    try {
        co_await config->set("user.name", name.toStdString(), scope, where);
        co_await config->set("user.email", email.toStdString(), scope, where);
    } catch (const std::exception& error) {
        qCDebug(lcStaging, "op=commit.identity.set reason=%s", redactForLog(error.what()).c_str());
        if (self) {
            isCommitting_ = false;
            emit commitFormChanged();
            toasts_.show(localized("Could not save your name and e-mail: %1", errorText(error)),
                         ToastType::warning);
        }
        co_return;
    }
    if (!self)
        co_return;
    isCommitting_ = false;
    identityRequested_ = false;
    emit commitFormChanged();
    co_await commit();
}

void ChangesPaneViewModel::dismissIdentityRequest() {
    if (!identityRequested_)
        return;
    identityRequested_ = false;
    emit commitFormChanged();
}

QCoro::Task<void> ChangesPaneViewModel::push(bool wasAmend, bool rewritesPushedCommit,
                                             std::stop_token cancellation) {
    QPointer<ChangesPaneViewModel> self(this);
    auto service = service_;
    const RepoEntry repo = repo_;
    const bool prune = !defaults_ || defaults_->value(QStringLiteral("autoPrune"), true).toBool();
    if (cancellation.stop_requested())
        co_return;
    if (rewritesPushedCommit) {
        const bool proceed = co_await askAmendPush(cancellation);
        if (!self || !proceed)
            co_return;
    }
    showActivity(localized("Pushing…"));
    std::vector<BranchEntry> branches;
    try {
        branches = co_await service->branches(repo);
    } catch (const std::exception&) {
        branches.clear();
    }
    if (!self)
        co_return;
    const BranchEntry* current = currentLocalBranch(branches);
    const std::string remote = current && current->upstream ? current->upstream->remoteName : "origin";
    try {
        // The force is left to git's own answer: no force flag is added here.
        co_await service->push(repo, remote);
    } catch (const std::exception& error) {
        qCDebug(lcStaging, "op=commit.push reason=%s", redactForLog(error.what()).c_str());
        if (self)
            toasts_.show(localized("Push failed; your commit was saved locally: %1", errorText(error)),
                         ToastType::warning);
        co_return;
    }
    fetchAfterPush(service, repo, remote, prune);
    qCDebug(lcStaging, "op=commit.created amend=%d pushed=true", wasAmend);
    if (!self)
        co_return;
    toasts_.show(localized("Committed and pushed"), ToastType::notice);
    emit commitSucceeded();
}

QCoro::Task<bool> ChangesPaneViewModel::askAmendPush(std::stop_token cancellation) {
    if (cancellation.stop_requested())
        co_return false;
    if (pendingAmendPushContinuation_)
        pendingAmendPushContinuation_->answer(false);
    auto channel = std::make_shared<AnswerChannel>();
    pendingAmendPushContinuation_ = channel;
    pendingAmendPushConfirmation_ = true;
    emit commitFormChanged();
    co_return co_await *channel;
}

void ChangesPaneViewModel::confirmAmendPush() {
    if (!pendingAmendPushContinuation_)
        return;
    pendingAmendPushConfirmation_ = false;
    std::exchange(pendingAmendPushContinuation_, nullptr)->answer(true);
    emit commitFormChanged();
}

void ChangesPaneViewModel::cancelAmendPush() {
    if (!pendingAmendPushContinuation_)
        return;
    pendingAmendPushConfirmation_ = false;
    std::exchange(pendingAmendPushContinuation_, nullptr)->answer(false);
    emit commitFormChanged();
    toasts_.show(
        localized("Amend-push cancelled; your amended commit is saved locally and requires a force push to "
                  "publish"),
        ToastType::notice);
}

void ChangesPaneViewModel::dismissAmendPush() {
    commitStop_.request_stop();
    if (!pendingAmendPushContinuation_)
        return;
    pendingAmendPushConfirmation_ = false;
    std::exchange(pendingAmendPushContinuation_, nullptr)->answer(false);
    emit commitFormChanged();
}

} // namespace orvel
