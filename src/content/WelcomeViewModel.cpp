#include "content/WelcomeViewModel.h"

#include "core/queue/BackgroundWork.h"
#include "core/service/GitServiceError.h"
#include "core/service/GitServiceProtocol.h"
#include "core/support/Log.h"
#include "core/support/UserDefaults.h"
#include "settings/LocalizationManager.h"

#include <QFile>
#include <QFileInfo>

#include <exception>
#include <filesystem>

namespace orvel {

WelcomeViewModel::WelcomeViewModel(std::shared_ptr<GitServiceProtocol> service, QObject* parent,
                                   std::shared_ptr<UserDefaults> defaults)
    : QObject(parent), service_(std::move(service)),
      defaults_(defaults ? std::move(defaults) : std::make_shared<SettingsUserDefaults>()) {}

WelcomeViewModel::~WelcomeViewModel() = default;

void WelcomeViewModel::setRecents(QStringList paths) {
    recents_ = std::move(paths);
    emit recentsChanged();
    if (selectedPath_ && !recents_.contains(*selectedPath_))
        clearSelection();
}

void WelcomeViewModel::resetPreview() {
    repo_.reset();
    recentCommits_.clear();
    branches_.clear();
    readme_.reset();
    errorMessage_.reset();
    isLoading_ = false;
}

void WelcomeViewModel::clearSelection() {
    loads_.cancel();
    selectedPath_.reset();
    resetPreview();
    emit previewChanged();
}

void WelcomeViewModel::removeRecent(const QString& path) {
    emit removeRecentRequested(path);
}

void WelcomeViewModel::dropStale(const QString& path) {
    notice_ = localized("Removed invalid repos: %1", QFileInfo(path).fileName());
    emit noticeChanged();
    selectedPath_.reset();
    resetPreview();
    emit previewChanged();
    emit removeRecentRequested(path);
}

QCoro::Task<void> WelcomeViewModel::select(QString path) {
    qCDebug(lcUi, "op=welcome.recent.selected count=%ld", static_cast<long>(recents_.size()));
    auto ticket = loads_.begin(this);
    if (notice_) {
        notice_.reset();
        emit noticeChanged();
    }
    selectedPath_ = path;
    resetPreview();
    isLoading_ = true;
    emit previewChanged();

    const std::string folder = QFile::encodeName(path).toStdString();
    std::optional<RepoEntry> opened;
    bool serviceRefused = false;
    QString openError;
    try {
        auto open = service_->open(folder, ticket.stopToken());
        opened = co_await std::move(open);
    } catch (const GitServiceError& error) {
        serviceRefused = true;
        openError = QString::fromUtf8(error.what());
    } catch (const std::exception& error) {
        openError = QString::fromUtf8(error.what());
    }
    if (!ticket.isCurrent())
        co_return;
    if (!opened) {
        qCDebug(lcUi, "op=welcome.preview reason=%s", redactForLog(openError.toStdString()).c_str());
        // A recent whose folder is gone, or that is no repository any more, leaves the list as
        // the start-up check would have removed it; any other failure (git missing) is shown.
        auto exists = runOnPool(backgroundPool(), [folder] { return std::filesystem::exists(folder); });
        const bool folderExists = co_await std::move(exists);
        if (!ticket.isCurrent())
            co_return;
        if (serviceRefused || !folderExists) {
            dropStale(path);
        } else {
            isLoading_ = false;
            errorMessage_ = openError;
            emit previewChanged();
        }
        co_return;
    }
    repo_ = *opened;

    // The three reads run side by side; an unborn HEAD has no history to ask for.
    auto readme = runOnPool(backgroundPool(), [folder] { return findReadme(folder); });
    std::optional<QCoro::Task<std::vector<CommitEntry>>> history;
    if (opened->headHash)
        history.emplace(service_->commitHistory(*opened, previewCommitLimit, ticket.stopToken()));
    auto branchList = service_->branches(*opened, ticket.stopToken());

    std::vector<CommitEntry> commits;
    std::vector<BranchEntry> branches;
    std::optional<QString> failure;
    try {
        if (history)
            commits = co_await std::move(*history);
    } catch (const std::exception& error) {
        failure = QString::fromUtf8(error.what());
    }
    try {
        branches = co_await std::move(branchList);
    } catch (const std::exception& error) {
        failure = QString::fromUtf8(error.what());
    }
    std::optional<Readme> found;
    try {
        found = co_await std::move(readme);
    } catch (const std::exception& error) {
        qCDebug(lcUi, "op=welcome.readme reason=%s", redactForLog(error.what()).c_str());
    }
    if (!ticket.isCurrent())
        co_return;
    if (failure)
        qCDebug(lcUi, "op=welcome.preview reason=%s", redactForLog(failure->toStdString()).c_str());
    recentCommits_ = std::move(commits);
    branches_ = std::move(branches);
    readme_ = std::move(found);
    errorMessage_ = failure;
    isLoading_ = false;
    emit previewChanged();
}

} // namespace orvel
