#include "merge/ConflictResolutionViewModel.h"

#include "core/queue/BackgroundWork.h"
#include "core/service/GitServiceProtocol.h"
#include "core/support/Log.h"
#include "settings/LocalizationManager.h"

#include <QPointer>

#include <algorithm>

namespace orvel {

namespace {

QString errorText(const std::exception& error) {
    return QString::fromUtf8(error.what());
}

long lineCount(const std::string& text) {
    const auto newlines = std::count(text.begin(), text.end(), '\n');
    return static_cast<long>(newlines) + (!text.empty() && text.back() != '\n' ? 1 : 0);
}

// A stage that the conflict lacks (a file added on one side only) reads as empty text.
QCoro::Task<std::string> readStage(std::shared_ptr<GitServiceProtocol> service, RepoEntry repo,
                                   std::optional<std::string> hash) {
    if (!hash)
        co_return std::string();
    auto blob = service->readBlob(std::move(repo), std::move(*hash));
    co_return co_await std::move(blob);
}

} // namespace

ConflictResolutionViewModel::ConflictResolutionViewModel(RepoEntry repo, ConflictEntry conflict,
                                                         std::shared_ptr<GitServiceProtocol> service,
                                                         QObject* parent)
    : QObject(parent), repo_(std::move(repo)), conflict_(std::move(conflict)), service_(std::move(service)) {}

int ConflictResolutionViewModel::conflictCount() const {
    return static_cast<int>(std::count_if(hunks_.begin(), hunks_.end(), [](const ConflictHunk& hunk) {
        return std::holds_alternative<ConflictSides>(hunk.kind);
    }));
}

std::string ConflictResolutionViewModel::composedText() const {
    return composeResolved(hunks_, decisions_);
}

QCoro::Task<void> ConflictResolutionViewModel::load() {
    const int generation = ++loadGeneration_;
    isLoading_ = true;
    loadError_.reset();
    emit loadStateChanged();

    QPointer<ConflictResolutionViewModel> self(this);
    // All four reads are under way before the first answer is awaited.
    auto base = readStage(service_, repo_, conflict_.baseHash);
    auto ours = readStage(service_, repo_, conflict_.oursHash);
    auto theirs = readStage(service_, repo_, conflict_.theirsHash);
    auto workTree = service_->readWorkTreeFile(repo_, conflict_.path);
    auto sideNames = readSideNames(generation);
    try {
        std::string baseText = co_await std::move(base);
        std::string oursText = co_await std::move(ours);
        std::string theirsText = co_await std::move(theirs);
        std::string fileText = co_await std::move(workTree);
        if (self && generation == self->loadGeneration_) {
            self->baseText_ = std::move(baseText);
            self->oursText_ = std::move(oursText);
            self->theirsText_ = std::move(theirsText);
            self->rawWorkingTreeText_ = std::move(fileText);
            self->hunks_ = parseConflictHunks(self->rawWorkingTreeText_);
            self->decisions_ = defaultDecisions(self->hunks_);
            self->hasLoaded_ = true;
            self->isLoading_ = false;
            qCDebug(lcOps, "op=mergeEditor.loaded hunks=%ld", static_cast<long>(self->hunks_.size()));
            emit self->loadStateChanged();
            emit self->decisionsChanged();
        }
    } catch (const std::exception& error) {
        if (self && generation == self->loadGeneration_) {
            self->loadError_ = errorText(error);
            self->isLoading_ = false;
            qCDebug(lcOps, "op=mergeEditor.load reason=%s", redactForLog(error.what()).c_str());
            emit self->loadStateChanged();
        }
    }
    // The sides' names end with the load, so that no read outlives it.
    co_await std::move(sideNames);
}

QCoro::Task<void> ConflictResolutionViewModel::readSideNames(int generation) {
    QPointer<ConflictResolutionViewModel> self(this);
    const RepoEntry repo = repo_;
    auto service = service_;
    try {
        const SideFiles files = co_await runOnPool(
            backgroundPool(), [gitDirectory = gitDirectory(repo)] { return readSideFiles(gitDirectory); });
        std::vector<BranchEntry> branches;
        if (rebaseOnto(files))
            branches = co_await service->branches(repo);
        if (!self || generation != self->loadGeneration_)
            co_return;
        self->sideNames_ = conflictSideNames(files, branches);
        emit self->sideNamesChanged();
    } catch (const std::exception& error) {
        // Without names the sides are called plain ours and theirs.
        qCDebug(lcOps, "op=mergeEditor.sideNames reason=%s", redactForLog(error.what()).c_str());
    }
}

void ConflictResolutionViewModel::toggleLine(int hunkId, std::size_t lineIndex, bool ours) {
    const auto found = decisions_.find(hunkId);
    if (found == decisions_.end())
        return;
    auto& flags = ours ? found->second.oursIncluded : found->second.theirsIncluded;
    if (lineIndex >= flags.size())
        return;
    flags[lineIndex] = !flags[lineIndex];
    emit decisionsChanged();
}

void ConflictResolutionViewModel::toggleOursLine(int hunkId, std::size_t lineIndex) {
    toggleLine(hunkId, lineIndex, true);
}

void ConflictResolutionViewModel::toggleTheirsLine(int hunkId, std::size_t lineIndex) {
    toggleLine(hunkId, lineIndex, false);
}

void ConflictResolutionViewModel::setHunk(int hunkId, bool ours, bool theirs) {
    const auto found = decisions_.find(hunkId);
    if (found == decisions_.end())
        return;
    auto& selection = found->second;
    std::fill(selection.oursIncluded.begin(), selection.oursIncluded.end(), ours);
    std::fill(selection.theirsIncluded.begin(), selection.theirsIncluded.end(), theirs);
    emit decisionsChanged();
}

void ConflictResolutionViewModel::setOursOnly(int hunkId) {
    setHunk(hunkId, true, false);
}
void ConflictResolutionViewModel::setTheirsOnly(int hunkId) {
    setHunk(hunkId, false, true);
}
void ConflictResolutionViewModel::setBoth(int hunkId) {
    setHunk(hunkId, true, true);
}
void ConflictResolutionViewModel::clearHunk(int hunkId) {
    setHunk(hunkId, false, false);
}

void ConflictResolutionViewModel::setEveryHunk(bool ours, bool theirs) {
    for (auto& [id, selection] : decisions_) {
        std::fill(selection.oursIncluded.begin(), selection.oursIncluded.end(), ours);
        std::fill(selection.theirsIncluded.begin(), selection.theirsIncluded.end(), theirs);
    }
    emit decisionsChanged();
}

void ConflictResolutionViewModel::takeAllOurs() {
    setEveryHunk(true, false);
    qCDebug(lcOps, "op=mergeEditor.preset strategy=allOurs hunks=%ld", static_cast<long>(decisions_.size()));
}

void ConflictResolutionViewModel::takeAllTheirs() {
    setEveryHunk(false, true);
    qCDebug(lcOps, "op=mergeEditor.preset strategy=allTheirs hunks=%ld",
            static_cast<long>(decisions_.size()));
}

QCoro::Task<bool> ConflictResolutionViewModel::save() {
    if (!canSave())
        co_return false;
    auto written = write(composedText(), "hunks", "save");
    co_return co_await std::move(written);
}

QCoro::Task<bool> ConflictResolutionViewModel::setRawText(std::string text) {
    qCDebug(lcOps, "op=mergeEditor.rawTextEdit lines=%ld", lineCount(text));
    if (isSaving_)
        co_return false;
    if (containsConflictMarkers(text)) {
        saveError_ = localized("Remove conflict markers before saving.");
        qCDebug(lcOps, "op=mergeEditor.setRawText reason=conflictMarkersPresent");
        emit saveStateChanged();
        co_return false;
    }
    auto written = write(std::move(text), "rawText", "setRawText");
    co_return co_await std::move(written);
}

QCoro::Task<bool> ConflictResolutionViewModel::write(std::string content, const char* strategy,
                                                     const char* failureOperation) {
    isSaving_ = true;
    saveError_.reset();
    emit saveStateChanged();

    QPointer<ConflictResolutionViewModel> self(this);
    const long lines = lineCount(content);
    auto written = service_->writeResolvedFile(repo_, conflict_.path, std::move(content));
    try {
        co_await std::move(written);
        qCDebug(lcOps, "op=mergeEditor.saved strategy=%s lines=%ld", strategy, lines);
        if (self) {
            self->isSaving_ = false;
            emit self->saveStateChanged();
        }
        co_return true;
    } catch (const std::exception& error) {
        qCDebug(lcOps, "op=mergeEditor.%s reason=%s", failureOperation, redactForLog(error.what()).c_str());
        if (self) {
            self->saveError_ = errorText(error);
            self->isSaving_ = false;
            emit self->saveStateChanged();
        }
        co_return false;
    }
}

} // namespace orvel
