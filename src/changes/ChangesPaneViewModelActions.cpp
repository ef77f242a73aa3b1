// The actions on rows and lists of the changes page: each moves rows at once, then runs git (or
// changes the disk), tells a failure in a warning toast, and lets a status read set the lists right.
#include "changes/ChangesPaneViewModel.h"

#include "changes/StatusRows.h"
#include "core/queue/BackgroundWork.h"
#include "core/service/GitServiceProtocol.h"
#include "core/support/AtomicFile.h"
#include "core/support/Log.h"
#include "notices/ToastManager.h"
#include "settings/LocalizationManager.h"

#include <QClipboard>
#include <QDesktopServices>
#include <QGuiApplication>
#include <QPointer>
#include <QUrl>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <sstream>
#include <stdexcept>

namespace orvel {

namespace {

QString errorText(const std::exception& error) {
    return QString::fromUtf8(error.what());
}

std::string fullPath(const RepoEntry& repo, const std::string& path) {
    return (std::filesystem::path(repo.path) / path).string();
}

// Appends `entry` as a line of its own to the ignore file at `path`, made when missing.
void appendIgnoreEntry(const std::string& path, const std::string& entry) {
    std::string text;
    if (std::filesystem::exists(path)) {
        std::ifstream in(path, std::ios::binary);
        if (!in)
            throw std::filesystem::filesystem_error("Cannot read", path,
                                                    std::make_error_code(std::errc::io_error));
        std::ostringstream content;
        content << in.rdbuf();
        text = content.str();
    }
    if (!text.empty() && text.back() != '\n')
        text += '\n';
    text += entry;
    text += '\n';
    replaceFileAtomically(path, text);
}

bool isUntracked(const FileChange& file) {
    return file.status.kind == FileStatusKind::Case::untracked;
}

// Removes an untracked file or folder, or with `unstage` a file only the index tracks, as one
// journalled discard, so that Edit > Undo brings it back, staged as it was. A path already gone is
// an error, as the file manager would say; a folder holding a repository of its own is refused by name.
QCoro::Task<void> removeFile(std::shared_ptr<GitServiceProtocol> service, RepoEntry repo, std::string path,
                             bool unstage = false) {
    std::vector<std::string> unstaged;
    if (unstage)
        unstaged.push_back(path);
    const auto failed = co_await service->discardPaths(repo, {}, {path}, std::move(unstaged));
    if (failed.empty())
        co_return;
    if (failed.front().nestedRepository)
        throw std::runtime_error(
            localized("%1 is a nested repository; Orvel does not delete it", QString::fromUtf8(path)).toStdString());
    throw std::runtime_error(failed.front().reason);
}

// A path that the index added, alone or by a rename or a copy: HEAD doesn't have it.
bool isNewInIndex(const FileChange& row) {
    const auto status = row.displayStatus;
    return status == TrackedStatus::added || status == TrackedStatus::renamed ||
           status == TrackedStatus::copied;
}

// The rows Discard All works through: the unstaged, then the staged. A path new in the index is
// untracked once everything is unstaged, so its staged row removes it and its unstaged row (a
// change made after staging) is left out: git would find nothing to restore.
std::vector<FileChange> rowsToDiscard(const std::vector<FileChange>& unstaged,
                                      const std::vector<FileChange>& staged) {
    std::set<std::string> newPaths;
    for (const FileChange& row : staged)
        if (isNewInIndex(row))
            newPaths.insert(row.path);
    std::vector<FileChange> rows;
    std::copy_if(unstaged.begin(), unstaged.end(), std::back_inserter(rows),
                 [&newPaths](const FileChange& row) { return !newPaths.contains(row.path); });
    rows.insert(rows.end(), staged.begin(), staged.end());
    return rows;
}

// What Discard All does with each row, after unstaging every staged path, in one journalled step
// so that one undo brings all of them back, staged as they were. git can't restore what it doesn't
// track: an untracked or added file or folder is removed (the service refuses a folder holding a
// repository of its own). A rename is undone on both paths: the new one goes, the old one comes back
// as HEAD has it; a copy only loses its new path.
struct DiscardPlan {
    std::vector<std::string> restore;
    std::vector<std::string> remove;
    std::vector<std::string> unstage;
};

DiscardPlan planDiscard(const std::vector<FileChange>& rows, const std::vector<FileChange>& staged) {
    DiscardPlan plan;
    for (const FileChange& file : staged) {
        plan.unstage.push_back(file.path);
        if (file.originalPath)
            plan.unstage.push_back(*file.originalPath);
    }
    for (const FileChange& file : rows) {
        const auto status = file.displayStatus;
        if (file.path.ends_with('/') || isUntracked(file) || status == TrackedStatus::added ||
            status == TrackedStatus::copied) {
            plan.remove.push_back(file.path);
        } else if (status == TrackedStatus::renamed && file.originalPath) {
            plan.remove.push_back(file.path);
            plan.restore.push_back(*file.originalPath);
        } else {
            plan.restore.push_back(file.path);
        }
    }
    return plan;
}

// The discard of one row: git can't restore what it never tracked, so an untracked file is
// removed from the disk; the failure becomes the error of the returned task.
QCoro::Task<void> discardOne(std::shared_ptr<GitServiceProtocol> service, RepoEntry repo, FileChange file) {
    // A file added (also with intent, git add -N, as an empty blob) has nothing in HEAD to go back
    // to: restoring it from the index would leave it added, so its mark goes first and the file with it.
    const bool added = !isUntracked(file) && file.displayStatus == TrackedStatus::added;
    if (isUntracked(file) || added || file.path.ends_with('/')) {
        co_await removeFile(service, repo, file.path, added);
        co_return;
    }
    const auto failed = co_await service->discardPaths(repo, {file.path}, {});
    if (!failed.empty())
        throw std::runtime_error(failed.front().reason);
}

} // namespace

void ChangesPaneViewModel::requestBlame(const FileChange& file) {
    if (hasHistory(file))
        emit blameRequested(file.path);
}

void ChangesPaneViewModel::requestFileHistory(const FileChange& file) {
    if (hasHistory(file))
        emit fileHistoryRequested(file.path);
}

void ChangesPaneViewModel::copyPath(const FileChange& file) {
    const QString path = QString::fromStdString(fullPath(repo_, file.path));
    QClipboard* clipboard = QGuiApplication::clipboard();
    if (clipboard)
        clipboard->setText(path);
    // A clipboard that no one serves keeps its old content.
    if (!clipboard || clipboard->text() != path)
        toasts_.show(localized("Could not copy to clipboard"), ToastType::warning);
}

void ChangesPaneViewModel::showInFileManager(const FileChange& file) {
    const auto folder = std::filesystem::path(fullPath(repo_, file.path)).parent_path();
    if (!QDesktopServices::openUrl(QUrl::fromLocalFile(QString::fromStdString(folder.string()))))
        toasts_.show(localized("Could not reveal file in File Manager"), ToastType::warning);
}

QCoro::Task<bool> ChangesPaneViewModel::runAndRefresh(QCoro::Task<void> operation, const char* logName,
                                                      const char* failureFormat) {
    QPointer<ChangesPaneViewModel> self(this);
    bool succeeded = true;
    try {
        co_await std::move(operation);
    } catch (const std::exception& error) {
        succeeded = false;
        qCDebug(lcStaging, "op=%s reason=%s", logName, redactForLog(error.what()).c_str());
        if (self)
            toasts_.show(localized(failureFormat, errorText(error)), ToastType::warning);
    }
    if (self)
        co_await refreshStatus();
    co_return succeeded;
}

QCoro::Task<void> ChangesPaneViewModel::stageFile(FileChange file) {
    qCDebug(lcStaging, "op=stage.file scope=file");
    moveRows(false, [&file](const FileChange& row) { return row.path == file.path; });
    co_await runAndRefresh(service_->stage(repo_, file.path), "stage.file", translatable("Stage failed: %1"));
}

QCoro::Task<void> ChangesPaneViewModel::unstageFile(FileChange file) {
    qCDebug(lcStaging, "op=unstage.file scope=file");
    moveRows(true, [&file](const FileChange& row) { return row.path == file.path; });
    co_await runAndRefresh(service_->unstage(repo_, file.path), "unstage.file",
                           translatable("Unstage failed: %1"));
}

QCoro::Task<void> ChangesPaneViewModel::stageSelected() {
    std::vector<std::string> paths = moveSelected(false);
    qCDebug(lcStaging, "op=stage.selected count=%ld", static_cast<long>(paths.size()));
    co_await runAndRefresh(service_->stageFiles(repo_, std::move(paths)), "stage.selected",
                           translatable("Stage failed: %1"));
}

QCoro::Task<void> ChangesPaneViewModel::unstageSelected() {
    std::vector<std::string> paths = moveSelected(true);
    qCDebug(lcStaging, "op=unstage.selected count=%ld", static_cast<long>(paths.size()));
    co_await runAndRefresh(service_->unstageFiles(repo_, std::move(paths)), "unstage.selected",
                           translatable("Unstage failed: %1"));
}

std::vector<std::string> ChangesPaneViewModel::moveSelected(bool fromStaged) {
    std::vector<std::string> paths;
    for (const FileChange& file : selectedFiles(fromStaged))
        paths.push_back(file.path);
    const std::set<std::string> moving(paths.begin(), paths.end());
    moveRows(fromStaged, [&moving](const FileChange& row) { return moving.contains(row.path); });
    return paths;
}

QCoro::Task<void> ChangesPaneViewModel::stageAll() {
    qCDebug(lcStaging, "op=stage.all count=%ld", static_cast<long>(unstagedFiles_.size()));
    moveRows(false, [](const FileChange&) { return true; });
    co_await runAndRefresh(service_->stageAll(repo_), "stage.all", translatable("Stage all failed: %1"));
}

QCoro::Task<void> ChangesPaneViewModel::unstageAll() {
    qCDebug(lcStaging, "op=unstage.all count=%ld", static_cast<long>(stagedFiles_.size()));
    moveRows(true, [](const FileChange&) { return true; });
    co_await runAndRefresh(service_->unstageAll(repo_), "unstage.all",
                           translatable("Unstage all failed: %1"));
}

QCoro::Task<void> ChangesPaneViewModel::discardFile(FileChange file) {
    qCDebug(lcStaging, "op=discard.file scope=file");
    removeRows(false, [&file](const FileChange& row) { return row.path == file.path; });
    co_await runAndRefresh(discardOne(service_, repo_, file), "discard.file", translatable("Discard failed: %1"));
}

QCoro::Task<void> ChangesPaneViewModel::deleteFile(FileChange file) {
    QPointer<ChangesPaneViewModel> self(this);
    try {
        co_await removeFile(service_, repo_, file.path);
    } catch (const std::exception& error) {
        qCDebug(lcStaging, "op=delete.file reason=%s", redactForLog(error.what()).c_str());
        if (self)
            toasts_.show(localized("Failed to delete file: %1", errorText(error)), ToastType::warning);
        co_return;
    }
    if (!self)
        co_return;
    removeRows(true, [&file](const FileChange& row) { return row.path == file.path; });
    removeRows(false, [&file](const FileChange& row) { return row.path == file.path; });
    co_await refreshStatus();
}

QCoro::Task<void> ChangesPaneViewModel::ignoreFile(FileChange file) {
    QPointer<ChangesPaneViewModel> self(this);
    try {
        co_await runOnPool(backgroundPool(), [ignorePath = fullPath(repo_, ".gitignore"), entry = file.path] {
            appendIgnoreEntry(ignorePath, entry);
        });
    } catch (const std::exception& error) {
        qCDebug(lcStaging, "op=ignore.file reason=%s", redactForLog(error.what()).c_str());
        if (self)
            toasts_.show(localized("Failed to update .gitignore"), ToastType::warning);
        co_return;
    }
    if (!self)
        co_return;
    removeRows(false, [&file](const FileChange& row) { return row.path == file.path; });
    co_await refreshStatus();
}

QCoro::Task<void> ChangesPaneViewModel::stashFile(FileChange file) {
    qCDebug(lcStaging, "op=stash.file scope=file");
    QPointer<ChangesPaneViewModel> self(this);
    removeRows(false, [&file](const FileChange& row) { return row.path == file.path; });
    const bool stashed = co_await runAndRefresh(service_->stashFile(repo_, file.path), "stash.file",
                                                translatable("Stash failed: %1"));
    if (stashed && self)
        emit stashCompleted();
}

QCoro::Task<void> ChangesPaneViewModel::resolveConflictOurs(FileChange file) {
    qCDebug(lcStaging, "op=conflict.resolveOurs");
    removeRows(false, [&file](const FileChange& row) { return row.path == file.path; });
    co_await runAndRefresh(service_->resolveConflictUsingOurs(repo_, file.path), "conflict.resolveOurs",
                           translatable("Resolve conflict failed: %1"));
}

QCoro::Task<void> ChangesPaneViewModel::resolveConflictTheirs(FileChange file) {
    qCDebug(lcStaging, "op=conflict.resolveTheirs");
    removeRows(false, [&file](const FileChange& row) { return row.path == file.path; });
    co_await runAndRefresh(service_->resolveConflictUsingTheirs(repo_, file.path), "conflict.resolveTheirs",
                           translatable("Resolve conflict failed: %1"));
}

QCoro::Task<void> ChangesPaneViewModel::discardAll() {
    if (isDiscardingAll_)
        co_return;
    isDiscardingAll_ = true;
    emit discardingAllChanged();
    QPointer<ChangesPaneViewModel> self(this);
    auto service = service_;
    const RepoEntry repo = repo_;
    const std::vector<FileChange> rows = rowsToDiscard(unstagedFiles_, stagedFiles_);
    std::vector<std::string> failed;
    DiscardPlan plan = planDiscard(rows, stagedFiles_);
    std::vector<std::string> all = plan.remove;
    all.insert(all.end(), plan.restore.begin(), plan.restore.end());
    try {
        for (const DiscardFailure& failure :
             co_await service->discardPaths(repo, std::move(plan.restore), std::move(plan.remove),
                                            std::move(plan.unstage))) {
            qCDebug(lcStaging, "op=discard.all scope=file reason=%s", redactForLog(failure.reason).c_str());
            if (std::find(failed.begin(), failed.end(), failure.path) == failed.end())
                failed.push_back(failure.path);
        }
    } catch (const std::exception& error) {
        qCDebug(lcStaging, "op=discard.all scope=all reason=%s", redactForLog(error.what()).c_str());
        failed.insert(failed.end(), all.begin(), all.end());
    }
    if (!self)
        co_return;
    co_await refreshStatus();
    if (!self)
        co_return;
    if (!failed.empty())
        toasts_.show(localized("Failed to discard %1 file(s)", static_cast<int>(failed.size())),
                     ToastType::warning);
    isDiscardingAll_ = false;
    emit discardingAllChanged();
}

} // namespace orvel
