#include "diff/DiffDetailViewModel.h"

#include "core/commands/BlobCommands.h"
#include "core/queue/BackgroundWork.h"
#include "core/service/GitServiceError.h"
#include "core/service/GitServiceProtocol.h"
#include "core/support/Log.h"
#include "core/support/UserDefaults.h"
#include "diff/GitPathQuoting.h"
#include "settings/LocalizationManager.h"

#include <QPointer>

#include <algorithm>

namespace orvel {

namespace {

// The whole file as one hunk: git's context reaches every line of any file a person reads.
constexpr int fullContextLines = 99999;

bool isUntracked(const DiffDetailViewModel::Selection& selection) {
    return !selection.commitHash && selection.file.status.kind == FileStatusKind::Case::untracked;
}

// Why an action chosen on what the pane showed did nothing.
QString changedSinceChosen(bool lines) {
    return lines ? localized("The diff changed after the lines were chosen, so nothing was done. It has been "
                             "read again: choose the lines once more.")
                 : localized("The diff changed after the hunk was chosen, so nothing was done. It has been "
                             "read again: choose the hunk once more.");
}

bool isConflicted(const DiffDetailViewModel::Selection& selection) {
    return !selection.commitHash && selection.file.status.kind == FileStatusKind::Case::unmerged;
}

// The file of `result` that `path` names: by its new path, or its old one when it was deleted.
std::optional<FileDiff> pickFile(DiffResult& result, const std::string& path) {
    for (auto& file : result.files)
        if (diffPathNames(file.newPath, path) || (file.newPath.empty() && diffPathNames(file.oldPath, path)))
            return std::move(file);
    return std::nullopt;
}

// The revisions of the two sides of the selection's file, for `git cat-file blob`: none for a side
// that doesn't exist, an empty one for the working tree's file.
std::pair<std::optional<std::string>, std::string>
revisionsOf(const DiffDetailViewModel::Selection& selection) {
    const std::string& path = selection.file.path;
    if (selection.commitHash)
        return {*selection.commitHash + "^:" + path, *selection.commitHash + ":" + path};
    if (selection.isStaged)
        return {"HEAD:" + path, ":" + path};
    if (isUntracked(selection))
        return {std::nullopt, {}};
    return {":" + path, {}};
}

} // namespace

DiffDetailViewModel::DiffDetailViewModel(RepoEntry repo, std::shared_ptr<GitServiceProtocol> service,
                                         const UserDefaults* defaults, QObject* parent)
    : QObject(parent), repo_(std::move(repo)), service_(std::move(service)), defaults_(defaults) {}

DiffDetailViewModel::HunkActions DiffDetailViewModel::hunkActions() const {
    // With the whole file as context the shown hunk is not one git would cut, so none is offered.
    if (!selection_ || selection_->commitHash || isUntracked(*selection_) || isConflicted(*selection_) ||
        fullContext_)
        return {};
    if (selection_->isStaged)
        return {false, true, false};
    return {true, false, true};
}

void DiffDetailViewModel::showDiff(FileChange file, std::optional<std::string> commitHash, bool isMerge,
                                   bool isStaged) {
    Selection selection{std::move(file), std::move(commitHash), isMerge, isStaged};
    qCDebug(lcDiff, "Showing diff for %s%s", selection.file.path.c_str(),
            selection.commitHash ? (" at " + selection.commitHash->substr(0, 7)).c_str() : "");
    const bool sameFile = selection_ == selection;
    selection_ = std::move(selection);
    if (!sameFile) {
        forceLargeFile_ = false;
        pendingDiscard_.reset();
        emit selectionChanged();
    }
    reload();
}

void DiffDetailViewModel::closeDiff() {
    qCDebug(lcDiff, "Closing diff pane");
    loads_.cancel();
    selection_.reset();
    fileDiff_.reset();
    inspection_.reset();
    fileText_.reset();
    pendingDiscard_.reset();
    emit selectionChanged();
    setContent(Content::none);
}

void DiffDetailViewModel::setMode(CodeDiffMode mode) {
    if (mode == mode_)
        return;
    const bool needsFile = mode == CodeDiffMode::file && !fileText_;
    mode_ = mode;
    emit modeChanged();
    if (needsFile && selection_) {
        reload();
        return;
    }
    rebuildRows();
    emit contentChanged();
}

void DiffDetailViewModel::setFullContext(bool on) {
    if (on == fullContext_)
        return;
    fullContext_ = on;
    emit modeChanged();
    if (selection_)
        reload();
}

void DiffDetailViewModel::setRenderMarkdown(bool on) {
    if (on == renderMarkdown_)
        return;
    renderMarkdown_ = on;
    emit modeChanged();
}

void DiffDetailViewModel::showLargeFileAnyway() {
    forceLargeFile_ = true;
    reload();
}

void DiffDetailViewModel::retry() {
    ++diffRetryToken_;
    reload();
}

void DiffDetailViewModel::reloadWorkingTree() {
    if (selection_ && !selection_->commitHash)
        reload();
}

std::string DiffDetailViewModel::fullPath() const {
    return BlobCommands::workTreeFile(repo_.path, selection_->file.path);
}

void DiffDetailViewModel::setContent(Content content) {
    content_ = content;
    isReadingImage_ = false;
    rebuildRows();
    emit contentChanged();
}

void DiffDetailViewModel::rebuildRows() {
    rows_.clear();
    if (content_ == Content::conflict && fileText_)
        rows_ = mode_ == CodeDiffMode::file ? fileRows(fileText_) : conflictRows(fileText_);
    if (content_ != Content::diff)
        return;
    if (mode_ == CodeDiffMode::file && fileText_)
        rows_ = fileRows(fileText_);
    else if (mode_ == CodeDiffMode::split && fileDiff_)
        rows_ = sideBySideRows(*fileDiff_);
    else if (fileDiff_)
        rows_ = unifiedRows(*fileDiff_);
}

QCoro::Task<void> DiffDetailViewModel::reload() {
    auto ticket = loads_.begin(this);
    if (!selection_) {
        setContent(Content::none);
        co_return;
    }
    const Selection selection = *selection_;
    const RepoEntry repo = repo_;
    const std::string path = selection.file.path;
    const std::string file = fullPath();
    const InspectionLimits limits = defaults_ ? InspectionLimits::read(*defaults_) : InspectionLimits{};
    const bool wantsFile = mode_ == CodeDiffMode::file;
    const std::optional<int> contextLines =
        fullContext_ ? std::optional<int>(fullContextLines) : std::nullopt;
    language_ = detectLanguage(path);
    diffLoadError_.clear();
    const bool imageInSight = content_ == Content::image && imagesOf_ == selection;
    setContent(Content::loading);
    try {
        // A submodule's folder is another repository: its diff is the commit it moved to.
        if (selection.file.isSubmodule && !selection.commitHash) {
            auto read =
                service_->diff(repo, selection.isStaged ? DiffContext::staged() : DiffContext::unstaged(),
                               std::nullopt, ticket.stopToken());
            DiffResult result = co_await std::move(read);
            if (!ticket.isCurrent())
                co_return;
            inspection_.reset();
            fileDiff_ = pickFile(result, path);
            submoduleChange_ = fileDiff_ ? orvel::submoduleChange(*fileDiff_) : std::nullopt;
            setContent(submoduleChange_ ? Content::submodule : Content::noChanges);
            co_return;
        }
        auto inspection =
            co_await runOnPool(backgroundPool(), [file, limits] { return inspectFile(file, limits); });
        if (!ticket.isCurrent())
            co_return;
        inspection_ = inspection;
        fileDiff_.reset();
        fileText_.reset();
        switch (inspection.policy) {
        case FileOpenPolicy::directory:
            setContent(Content::untrackedFolder);
            co_return;
        case FileOpenPolicy::image:
            // Reading both sides of a large image takes a while: the pane says so, unless the
            // image is already in sight.
            if (!imageInSight) {
                isReadingImage_ = true;
                emit contentChanged();
            }
            co_await loadImages(selection, ticket);
            co_return;
        case FileOpenPolicy::unsupported:
            setContent(Content::unsupported);
            co_return;
        case FileOpenPolicy::largeText:
            if (!forceLargeFile_) {
                setContent(Content::largeFile);
                co_return;
            }
            break;
        case FileOpenPolicy::text:
            break;
        }

        // The whole file, for file mode, for a file git doesn't track yet, and for a conflicted
        // file, whose conflicts are shown with the markers git wrote into it.
        if (wantsFile || isUntracked(selection) || isConflicted(selection)) {
            auto read = selection.commitHash
                            ? service_->readBlob(repo, *selection.commitHash + ":" + path, ticket.stopToken())
                            : service_->readWorkTreeFile(repo, path, ticket.stopToken());
            std::optional<std::string> text;
            try {
                text = co_await std::move(read);
            } catch (const std::exception& error) {
                qCDebug(lcDiff, "op=diff.readFile reason=%s", redactForLog(error.what()).c_str());
            }
            if (!ticket.isCurrent())
                co_return;
            if (!text || text->find('\0') != std::string::npos) {
                setContent(Content::unreadable);
                co_return;
            }
            fileText_ = std::make_shared<const std::string>(std::move(*text));
        }
        if (isConflicted(selection)) {
            setContent(Content::conflict);
            co_return;
        }

        if (isUntracked(selection)) {
            fileDiff_ = untrackedFileDiff(path, fileText_);
        } else {
            auto read =
                selection.commitHash
                    ? service_->commitDiff(repo, *selection.commitHash, contextLines, ticket.stopToken())
                    : service_->diff(repo,
                                     selection.isStaged ? DiffContext::staged() : DiffContext::unstaged(),
                                     contextLines, ticket.stopToken());
            DiffResult result = co_await std::move(read);
            if (!ticket.isCurrent())
                co_return;
            fileDiff_ = pickFile(result, path);
            // The other files of a large diff are many small records: they are let go off this thread.
            backgroundPool().post(
                [rest = std::make_shared<DiffResult>(std::move(result))]() mutable { rest.reset(); });
        }
        if (!fileDiff_ && !(wantsFile && fileText_))
            setContent(Content::noChanges);
        else if (fileDiff_ && fileDiff_->isBinary && !wantsFile)
            setContent(Content::binary);
        else if (fileDiff_ && fileDiff_->hunks.empty() && !wantsFile)
            setContent(Content::noChanges);
        else
            setContent(Content::diff);
    } catch (const std::exception& error) {
        if (!ticket.isCurrent())
            co_return;
        qCWarning(lcDiff, "op=diff.load reason=%s", redactForLog(error.what()).c_str());
        diffLoadError_ = QString::fromUtf8(error.what());
        setContent(Content::failed);
    }
}

QCoro::Task<void> DiffDetailViewModel::loadImages(const Selection& selection, LoadTicket ticket) {
    const auto [oldRevision, newRevision] = revisionsOf(selection);
    const RepoEntry repo = repo_;
    const std::string path = selection.file.path;
    auto service = service_;
    // Either side may be missing (an added or deleted image): that side stays empty.
    auto readSide = [service, repo, path,
                     stop = ticket.stopToken()](std::string revision) -> QCoro::Task<QImage> {
        std::string bytes;
        try {
            bytes = revision.empty() ? co_await service->readWorkTreeFile(repo, path, stop)
                                     : co_await service->readBlob(repo, revision, stop);
        } catch (const std::exception&) {
            co_return QImage();
        }
        co_return co_await runOnPool(backgroundPool(), [bytes = std::move(bytes)] {
            return QImage::fromData(QByteArrayView(bytes.data(), qsizetype(bytes.size())));
        });
    };
    QImage before = oldRevision ? co_await readSide(*oldRevision) : QImage();
    if (!ticket.isCurrent())
        co_return;
    QImage after = co_await readSide(newRevision);
    if (!ticket.isCurrent())
        co_return;
    oldImage_ = std::move(before);
    newImage_ = std::move(after);
    imagesOf_ = selection;
    setContent(Content::image);
}

QCoro::Task<bool> DiffDetailViewModel::stageHunk(int hunk, std::string shown) {
    return runHunkAction(HunkAction::stage, {{{hunk, std::move(shown), {}}}, false});
}

QCoro::Task<bool> DiffDetailViewModel::unstageHunk(int hunk, std::string shown) {
    return runHunkAction(HunkAction::unstage, {{{hunk, std::move(shown), {}}}, false});
}

void DiffDetailViewModel::requestDiscardHunk(int hunk, std::string shown) {
    Target target{{{hunk, std::move(shown), {}}}, false};
    if (!stillShown(target))
        return;
    pendingDiscard_ = std::move(target);
    emit discardConfirmationRequested();
}

QCoro::Task<bool> DiffDetailViewModel::stageLines(std::vector<ChosenLines> lines) {
    return runHunkAction(HunkAction::stage, {std::move(lines), true});
}

QCoro::Task<bool> DiffDetailViewModel::unstageLines(std::vector<ChosenLines> lines) {
    return runHunkAction(HunkAction::unstage, {std::move(lines), true});
}

void DiffDetailViewModel::requestDiscardLines(std::vector<ChosenLines> lines) {
    Target target{std::move(lines), true};
    if (!stillShown(target))
        return;
    pendingDiscard_ = std::move(target);
    emit discardConfirmationRequested();
}

QCoro::Task<bool> DiffDetailViewModel::confirmDiscard() {
    if (!pendingDiscard_)
        co_return false;
    Target target = std::move(*pendingDiscard_);
    pendingDiscard_.reset();
    co_return co_await runHunkAction(HunkAction::discard, std::move(target));
}

void DiffDetailViewModel::cancelDiscard() {
    pendingDiscard_.reset();
}

void DiffDetailViewModel::clearHunkActionError() {
    hunkActionError_.reset();
    emit hunkActionErrorChanged();
}

void DiffDetailViewModel::refuse(const QString& reason) {
    hunkActionError_ = reason;
    emit hunkActionErrorChanged();
    reload();
}

bool DiffDetailViewModel::stillShown(const Target& target) {
    const auto shown = [this](const ChosenLines& hunk) {
        return hunk.hunk >= 0 && std::size_t(hunk.hunk) < fileDiff_->hunks.size() && !hunk.shown.empty() &&
               shownHunk(rows_, hunk.hunk) == hunk.shown;
    };
    if (selection_ && fileDiff_ && !target.hunks.empty() &&
        std::all_of(target.hunks.begin(), target.hunks.end(), shown))
        return true;
    qCDebug(lcDiff, "op=diff.hunkAction reason=hunkNoLongerShown");
    refuse(changedSinceChosen(target.lines));
    return false;
}

QCoro::Task<bool> DiffDetailViewModel::runHunkAction(HunkAction action, Target target) {
    if (!stillShown(target))
        co_return false;
    QPointer<DiffDetailViewModel> self(this);
    const FileChange file = selection_->file;
    static constexpr const char* hunkNames[] = {"stageHunk", "unstageHunk", "discardHunk"};
    static constexpr const char* lineNames[] = {"stageLines", "unstageLines", "discardLines"};
    const char* name = (target.lines ? lineNames : hunkNames)[int(action)];
    try {
        if (target.lines) {
            std::vector<HunkLines> lines;
            for (ChosenLines& chosen : target.hunks)
                lines.push_back({fileDiff_->hunks[std::size_t(chosen.hunk)], std::move(chosen.lines)});
            switch (action) {
            case HunkAction::stage:
                co_await service_->stageLines(repo_, file, std::move(lines));
                break;
            case HunkAction::unstage:
                co_await service_->unstageLines(repo_, file, std::move(lines));
                break;
            case HunkAction::discard:
                co_await service_->discardLines(repo_, file, std::move(lines));
                break;
            }
        } else {
            const DiffHunk hunk = fileDiff_->hunks[std::size_t(target.hunks.front().hunk)];
            switch (action) {
            case HunkAction::stage:
                co_await service_->stageHunk(repo_, file.path, hunk);
                break;
            case HunkAction::unstage:
                co_await service_->unstageHunk(repo_, file.path, hunk);
                break;
            case HunkAction::discard:
                co_await service_->discardHunk(repo_, file.path, hunk);
                break;
            }
        }
    } catch (const std::exception& error) {
        qCWarning(lcDiff, "op=diff.%s err=%s", name, redactForLog(error.what()).c_str());
        if (!self)
            co_return false;
        // Lines are chosen on what the pane shows, so a refusal shows what git holds now; when
        // git's diff no longer holds them as shown, the person is told so in their words.
        if (target.lines) {
            const auto* refusal = dynamic_cast<const GitServiceError*>(&error);
            refuse(refusal && refusal->kind() == GitServiceError::Kind::parseFailed
                       ? changedSinceChosen(true)
                       : QString::fromUtf8(error.what()));
            co_return false;
        }
        hunkActionError_ = QString::fromUtf8(error.what());
        emit hunkActionErrorChanged();
        co_return false;
    }
    if (!self)
        co_return false;
    emit needsStatusRefresh();
    reload();
    co_return true;
}

} // namespace orvel
