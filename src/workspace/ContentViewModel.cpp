#include "workspace/ContentViewModel.h"

#include "core/service/GitServiceProtocol.h"
#include "core/support/Log.h"

namespace orvel {

ContentViewModel::ContentViewModel(std::shared_ptr<GitServiceProtocol> service, QObject* parent)
    : QObject(parent), service_(std::move(service)) {}

QCoro::Task<void> ContentViewModel::loadData(RepoEntry repo) {
    qCDebug(lcApp, "Loading content data for %s", repo.path.c_str());
    auto loaded = read(std::move(repo), "content.loadData");
    if (co_await std::move(loaded))
        qCDebug(lcApp, "Content loaded: %ld files", static_cast<long>(fileChanges_.size()));
}

QCoro::Task<void> ContentViewModel::refreshStatus(RepoEntry repo) {
    co_await read(std::move(repo), "content.refreshStatus");
}

QCoro::Task<bool> ContentViewModel::read(RepoEntry repo, const char* failureOperation) {
    auto ticket = loads_.begin(this);
    auto service = service_;
    auto status = service->status(std::move(repo), ticket.stopToken());
    try {
        StatusResult result = co_await std::move(status);
        if (!ticket.isCurrent())
            co_return false;
        if (result.files != fileChanges_) {
            fileChanges_ = std::move(result.files);
            emit fileChangesChanged();
        }
        co_return true;
    } catch (const std::exception& error) {
        if (ticket.isCurrent())
            qCDebug(lcApp, "op=%s reason=%s", failureOperation, redactForLog(error.what()).c_str());
        co_return false;
    }
}

} // namespace orvel
