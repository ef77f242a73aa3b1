#include "workspace/AppViewModel.h"

#include "core/service/GitServiceProtocol.h"
#include "core/support/Log.h"
#include "core/support/Text.h"

#include <QPointer>

#include <filesystem>

namespace orvel {

const char* toString(AppMode mode) { return mode == AppMode::working ? "working" : "welcome"; }

AppViewModel::AppViewModel(std::shared_ptr<GitServiceProtocol> service, QObject* parent)
    : QObject(parent), service_(std::move(service)) {}

QCoro::Task<void> AppViewModel::openRepository(std::string path) {
    // A newer open supersedes this one: its late answer must change nothing.
    const int generation = ++openGeneration_;
    QPointer<AppViewModel> self(this);
    auto service = service_;
    try {
        RepoEntry entry = co_await service->open(path);
        if (!self || generation != self->openGeneration_)
            co_return;
        self->activeRepository_ = std::move(entry);
        self->mode_ = AppMode::working;
        self->lastError_.clear();
        qCDebug(lcApp, "op=repo.open status=success");
        emit self->activeRepositoryChanged();
        emit self->modeChanged();
    } catch (const std::exception& error) {
        if (!self || generation != self->openGeneration_)
            co_return;
        self->lastError_ = QString::fromUtf8(error.what());
        qCDebug(lcApp, "op=repo.open reason=%s", redactForLog(error.what()).c_str());
        emit self->openFailed(self->lastError_);
    }
}

QCoro::Task<void> AppViewModel::openFromEnvironment(std::optional<QByteArray> value) {
    if (!value)
        co_return;
    const std::string path = trimmed(value->toStdString());
    std::error_code error;
    const std::filesystem::path gitDir = std::filesystem::path(path) / ".git";
    if (path.empty() || !std::filesystem::exists(gitDir, error)) {
        qCWarning(lcApp, "ORVEL_AUTOTEST_OPEN_REPO is set but path is invalid or not a git repo");
        co_return;
    }
    qCDebug(lcApp, "env var present: %s", path.c_str());
    qCDebug(lcApp, "gitDir=%s exists=true", gitDir.c_str());
    QPointer<AppViewModel> self(this);
    co_await openRepository(path);
    if (!self)
        co_return;
    qCDebug(lcApp, "openRepository returned; mode=%s activeRepo=%s", toString(self->mode_),
            self->activeRepository_ ? self->activeRepository_->path.c_str() : "nil");
}

} // namespace orvel
