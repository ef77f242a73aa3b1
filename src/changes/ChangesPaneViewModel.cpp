// The lists, the filter, the selection and the form's fields of the changes page; the actions on
// files and the commit stand in files of their own.
#include "changes/ChangesPaneViewModel.h"

#include "changes/AnswerChannel.h"
#include "changes/CommitMessage.h"
#include "changes/StatusRows.h"
#include "core/service/GitServiceProtocol.h"
#include "core/support/Log.h"

#include <QPointer>

#include <algorithm>
#include <unordered_map>

namespace orvel {

ChangesPaneViewModel::ChangesPaneViewModel(RepoEntry repo, std::shared_ptr<GitServiceProtocol> service,
                                           ToastManager& toasts, QObject* parent)
    : QObject(parent), repo_(std::move(repo)), service_(std::move(service)), toasts_(toasts),
      repoState_(repo_.state) {}

ChangesPaneViewModel::~ChangesPaneViewModel() {
    // A question still open is refused, so that its coroutine ends (and finds the model gone).
    commitStop_.request_stop();
    if (pendingAmendPushContinuation_)
        pendingAmendPushContinuation_->answer(false);
}

void ChangesPaneViewModel::setLists(std::vector<FileChange> staged, std::vector<FileChange> unstaged) {
    bool changed = false;
    // Equal lists stay untouched, so a repeated status read redraws nothing.
    if (staged != stagedFiles_) {
        stagedFiles_ = std::move(staged);
        changed = true;
    }
    if (unstaged != unstagedFiles_) {
        unstagedFiles_ = std::move(unstaged);
        changed = true;
    }
    if (!changed)
        return;
    updateFilteredLists();
}

void ChangesPaneViewModel::updateFilteredLists() {
    const QString text = isSearchActive_ ? searchText_ : QString();
    filteredStagedFiles_ = filterFileChanges(stagedFiles_, text);
    filteredUnstagedFiles_ = filterFileChanges(unstagedFiles_, text);
    emit listsChanged();
}

void ChangesPaneViewModel::moveRows(bool fromStaged, const std::function<bool(const FileChange&)>& take) {
    auto& from = fromStaged ? stagedFiles_ : unstagedFiles_;
    auto& to = fromStaged ? unstagedFiles_ : stagedFiles_;
    const auto moved =
        std::stable_partition(from.begin(), from.end(), [&](const FileChange& file) { return !take(file); });
    to.insert(to.end(), std::make_move_iterator(moved), std::make_move_iterator(from.end()));
    from.erase(moved, from.end());
    updateFilteredLists();
}

void ChangesPaneViewModel::removeRows(bool fromStaged, const std::function<bool(const FileChange&)>& take) {
    auto& from = fromStaged ? stagedFiles_ : unstagedFiles_;
    if (std::erase_if(from, take) > 0)
        updateFilteredLists();
}

void ChangesPaneViewModel::toggleSearch() {
    isSearchActive_ = !isSearchActive_;
    if (!isSearchActive_)
        searchText_.clear();
    qCDebug(lcUi, "op=search.toggle active=%d", isSearchActive_);
    emit filterChanged();
    updateFilteredLists();
}

void ChangesPaneViewModel::setSearchText(const QString& text) {
    if (text == searchText_)
        return;
    searchText_ = text;
    emit filterChanged();
    updateFilteredLists();
}

void ChangesPaneViewModel::setDisplayMode(ChangesDisplayMode mode) {
    if (mode == displayMode_)
        return;
    displayMode_ = mode;
    emit displayModeChanged();
}

void ChangesPaneViewModel::setSelectedIDs(std::set<std::string> ids) {
    if (ids == selectedIDs_)
        return;
    selectedIDs_ = std::move(ids);
    emit selectionChanged();
}

void ChangesPaneViewModel::setSelectedFiles(bool staged, const std::vector<FileChange>& files) {
    std::set<std::string> ids;
    for (const FileChange& file : files)
        ids.insert(rowID(file, staged));
    setSelectedIDs(std::move(ids));
}

std::vector<FileChange> ChangesPaneViewModel::selectedFiles(bool staged) const {
    // Only rows in sight count: an action on the selection never reaches a row the filter hides.
    std::vector<FileChange> selected;
    for (const FileChange& file : staged ? filteredStagedFiles_ : filteredUnstagedFiles_)
        if (selectedIDs_.contains(rowID(file, staged)))
            selected.push_back(file);
    return selected;
}

std::optional<ConflictEntry> ChangesPaneViewModel::conflictEntry(const FileChange& file) {
    if (file.status.kind != FileStatusKind::Case::unmerged)
        return std::nullopt;
    auto [cached, inserted] = conflictIDCache_.try_emplace(file.path);
    if (inserted)
        cached->second = QUuid::createUuid();
    ConflictEntry entry;
    entry.id = cached->second;
    entry.path = file.path;
    entry.conflictType = file.status.conflict;
    entry.baseHash = file.baseHash;
    entry.oursHash = file.oursHash;
    entry.theirsHash = file.theirsHash;
    return entry;
}

std::optional<ConflictEntry> ChangesPaneViewModel::firstConflict() {
    const auto found = std::find_if(unstagedFiles_.begin(), unstagedFiles_.end(), [](const FileChange& file) {
        return file.status.kind == FileStatusKind::Case::unmerged;
    });
    return found == unstagedFiles_.end() ? std::nullopt : conflictEntry(*found);
}

void ChangesPaneViewModel::setCommitSubject(const QString& subject) {
    if (subject == commitSubject_)
        return;
    commitSubject_ = subject;
    emit commitFormChanged();
}

void ChangesPaneViewModel::setCommitDescription(const QString& description) {
    if (description == commitDescription_)
        return;
    commitDescription_ = description;
    emit commitFormChanged();
}

void ChangesPaneViewModel::setAmend(bool amend) {
    if (amend == isAmend_)
        return;
    isAmend_ = amend;
    emit commitFormChanged();
}

void ChangesPaneViewModel::setCommitAndPush(bool push) {
    if (push == isCommitAndPush_ || (push && !canPush()))
        return;
    isCommitAndPush_ = push;
    emit commitFormChanged();
}

bool ChangesPaneViewModel::subjectIsEmpty() const {
    return commitSubject_.trimmed().isEmpty();
}

QString ChangesPaneViewModel::commitButtonTitle() const {
    return orvel::commitButtonTitle(isAmend_, isCommitAndPush_);
}

bool ChangesPaneViewModel::canCommit() const {
    return !isCommitting_ && !subjectIsEmpty() && (isAmend_ || !stagedFiles_.empty());
}

void ChangesPaneViewModel::showActivity(std::optional<QString> message) const {
    if (activity_)
        activity_(std::move(message));
}

QCoro::Task<void> ChangesPaneViewModel::refreshStatus() {
    qCDebug(lcStaging, "op=status.refresh");
    auto ticket = statusLoads_.begin(this);
    auto service = service_;
    auto status = service->status(repo_, ticket.stopToken());
    StatusResult result;
    try {
        result = co_await std::move(status);
    } catch (const std::exception& error) {
        // The lists stay: a short failure doesn't empty the page.
        if (ticket.isCurrent())
            qCDebug(lcStaging, "op=status.refresh reason=%s", redactForLog(error.what()).c_str());
        co_return;
    }
    if (!ticket.isCurrent())
        co_return;
    StatusRows rows = splitStatusRows(result.files);
    setLists(std::move(rows.staged), std::move(rows.unstaged));

    std::erase_if(conflictIDCache_, [this](const auto& entry) {
        return std::none_of(unstagedFiles_.begin(), unstagedFiles_.end(), [&entry](const FileChange& file) {
            return file.status.kind == FileStatusKind::Case::unmerged && file.path == entry.first;
        });
    });
    // A row gone from the lists leaves the selection.
    if (!selectedIDs_.empty()) {
        std::set<std::string> kept;
        for (const FileChange& file : stagedFiles_)
            if (selectedIDs_.contains(rowID(file, true)))
                kept.insert(rowID(file, true));
        for (const FileChange& file : unstagedFiles_)
            if (selectedIDs_.contains(rowID(file, false)))
                kept.insert(rowID(file, false));
        setSelectedIDs(std::move(kept));
    }
    qCDebug(lcStaging, "op=status.refreshed staged=%ld unstaged=%ld", static_cast<long>(stagedFiles_.size()),
            static_cast<long>(unstagedFiles_.size()));
    co_await refreshStagedDiffStat(ticket);
    if (!ticket.isCurrent())
        co_return;
    co_await refreshRepoState(ticket);
}

QCoro::Task<void> ChangesPaneViewModel::refreshStagedDiffStat(LoadTicket ticket) {
    int additions = 0, deletions = 0;
    if (!stagedFiles_.empty()) {
        auto service = service_;
        auto diff = service->diff(repo_, DiffContext::staged(), std::nullopt, ticket.stopToken());
        try {
            const DiffResult result = co_await std::move(diff);
            if (!ticket.isCurrent())
                co_return;
            for (const FileDiff& file : result.files) {
                additions += file.additions;
                deletions += file.deletions;
            }
        } catch (const std::exception&) {
            if (!ticket.isCurrent())
                co_return;
        }
    }
    if (additions == stagedAdditions_ && deletions == stagedDeletions_)
        co_return;
    stagedAdditions_ = additions;
    stagedDeletions_ = deletions;
    emit stagedDiffStatChanged();
}

QCoro::Task<void> ChangesPaneViewModel::refreshRepoState(LoadTicket ticket) {
    auto service = service_;
    auto read = service->repositoryState(repo_, ticket.stopToken());
    try {
        const RepositoryState state = co_await std::move(read);
        if (!ticket.isCurrent())
            co_return;
        if (state != repoState_) {
            repoState_ = state;
            // A push chosen before the merge or pick began is not made at its end.
            if (isCommitAndPush_ && !canPush()) {
                isCommitAndPush_ = false;
                emit commitFormChanged();
            }
            emit repoStateChanged();
        }
    } catch (const std::exception& error) {
        if (ticket.isCurrent())
            qCDebug(lcStaging, "op=repoState.refresh reason=%s", redactForLog(error.what()).c_str());
        co_return;
    }
    co_await offerPreparedMessage(ticket);
}

QCoro::Task<void> ChangesPaneViewModel::offerPreparedMessage(LoadTicket ticket) {
    const bool stopWithMessage = repoState_ == RepositoryState::merging ||
                                 repoState_ == RepositoryState::cherryPicking ||
                                 repoState_ == RepositoryState::reverting;
    if (!stopWithMessage) {
        preparedMessageOffered_ = false;
        co_return;
    }
    if (preparedMessageOffered_)
        co_return;
    auto service = service_;
    auto read = service->preparedCommitMessage(repo_, ticket.stopToken());
    std::optional<std::string> message;
    try {
        message = co_await std::move(read);
    } catch (const std::exception& error) {
        if (ticket.isCurrent())
            qCDebug(lcStaging, "op=preparedMessage.read reason=%s", redactForLog(error.what()).c_str());
        co_return;
    }
    if (!ticket.isCurrent())
        co_return;
    preparedMessageOffered_ = true;
    // What the user typed stays.
    if (!message || !subjectIsEmpty() || !commitDescription_.trimmed().isEmpty())
        co_return;
    const CommitMessageFields fields = splitCommitMessage(*message);
    commitSubject_ = fields.subject;
    commitDescription_ = fields.description;
    emit commitFormChanged();
}

} // namespace orvel
