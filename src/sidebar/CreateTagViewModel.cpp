#include "sidebar/CreateTagViewModel.h"

#include "content/BranchNameValidator.h"
#include "content/OperationFailure.h"
#include "core/service/GitServiceProtocol.h"
#include "core/support/Log.h"
#include "settings/LocalizationManager.h"

namespace orvel {

CreateTagViewModel::CreateTagViewModel(RepoEntry repo, std::string targetHash,
                                       std::shared_ptr<GitServiceProtocol> service, QObject* parent)
    : QObject(parent), repo_(std::move(repo)), targetHash_(std::move(targetHash)),
      service_(std::move(service)), selectedCommit_(targetHash_) {}

bool CreateTagViewModel::canCreate() const {
    return !tagName_.isEmpty() && !validationErrorMessage_ && !isCreating_;
}

void CreateTagViewModel::setTagName(const QString& name) {
    tagName_ = name;
    const auto errors = BranchNameValidator::validate(name);
    validationErrorMessage_.reset();
    if (!name.isEmpty() && !errors.empty())
        validationErrorMessage_ =
            localized("Invalid tag name: %1", BranchNameValidator::reason(errors.front()));
    emit stateChanged();
}

void CreateTagViewModel::setMessage(const QString& message) {
    message_ = message;
    emit stateChanged();
}

void CreateTagViewModel::selectCommit(std::string hash) {
    selectedCommit_ = std::move(hash);
    emit stateChanged();
}

QCoro::Task<void> CreateTagViewModel::loadCommits() {
    auto ticket = commitLoads_.begin(this);
    isLoadingCommits_ = true;
    emit commitsChanged();
    std::vector<CommitEntry> commits;
    try {
        auto history = service_->commitHistory(repo_, recentCommitLimit, ticket.stopToken());
        commits = co_await std::move(history);
    } catch (const std::exception& error) {
        if (!ticket.isCurrent())
            co_return;
        qCDebug(lcUi, "op=ui.tagCommits.load reason=%s", redactForLog(error.what()).c_str());
    }
    if (!ticket.isCurrent())
        co_return;
    commits_ = std::move(commits);
    isLoadingCommits_ = false;
    emit commitsChanged();
}

QCoro::Task<bool> CreateTagViewModel::create() {
    if (!canCreate())
        co_return false;
    auto ticket = creations_.begin(this);
    const QString name = tagName_;
    const bool annotated = !message_.isEmpty();
    isCreating_ = true;
    createError_.reset();
    emit stateChanged();
    auto creation = service_->createTag(
        repo_, name.toStdString(), selectedCommit_.empty() ? std::nullopt : std::optional(selectedCommit_),
        annotated ? std::optional(message_.toStdString()) : std::nullopt, ticket.stopToken());
    auto outcome = failureOf(std::move(creation));
    const std::optional<std::string> failure = co_await std::move(outcome);
    if (!ticket.isCurrent())
        co_return false;
    isCreating_ = false;
    if (failure) {
        qCDebug(lcRefs, "op=tag.create reason=%s", failure->c_str());
        createError_ = localized("Create tag failed: %1", QString::fromUtf8(*failure));
    } else {
        qCDebug(lcRefs, "op=tag.create annotated=%d", annotated ? 1 : 0);
    }
    emit stateChanged();
    if (failure)
        co_return false;
    emit created(name);
    co_return true;
}

} // namespace orvel
