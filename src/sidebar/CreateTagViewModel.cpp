#include "sidebar/CreateTagViewModel.h"

#include "content/BranchNameValidator.h"
#include "core/service/GitServiceProtocol.h"
#include "core/support/Log.h"
#include "settings/LocalizationManager.h"

namespace orvel {

CreateTagViewModel::CreateTagViewModel(RepoEntry repo, std::string targetHash,
                                       std::shared_ptr<GitServiceProtocol> service, QObject* parent)
    : QObject(parent), repo_(std::move(repo)), targetHash_(std::move(targetHash)),
      service_(std::move(service)), selectedCommit_(targetHash_) {}

bool CreateTagViewModel::canCreate() const {
    return !tagName_.isEmpty() && !validationErrorMessage_;
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

} // namespace orvel
