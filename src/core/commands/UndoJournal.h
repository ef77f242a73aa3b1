// The undo journal of a repository: before a destructive action runs, the bytes it will overwrite
// or delete, what the index holds for those paths and the refs it will move are kept, so that the
// newest entries can be brought back.
//
// It lives in "<git directory>/orvel/undo", private to this user (0700 folders, 0600 files), one
// file an entry, each written whole and synced before it counts, and the file "stopped" naming the
// action that began a merge or rebase stopped in the middle. The kept blobs and commits stay
// reachable through refs under "refs/orvel/undo/<id>/", so that git's garbage collection keeps them
// until the entry is dropped. All functions block and run inside the repository's queue.
#pragma once

#include "core/process/GitExecutorProtocol.h"
#include "core/records/UndoEntry.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <type_traits>
#include <string>
#include <vector>

namespace orvel {

// The bound of the journal: beyond either, the oldest entries go first. The newest entry stays
// even when it alone is larger. No entries at all turns the journal off.
struct UndoLimits {
    std::size_t entries = 50;
    std::uint64_t bytes = 512ull * 1024 * 1024;
};

// Stands before "--all": leaves out the journal's refs, which keep commits gone from the user's view.
inline constexpr const char* allButUndoRefs = "--exclude=refs/orvel/*";
// Keeps the journal's refs out of the names git prints for a commit ("%D").
inline constexpr const char* undoDecorations = "--decorate-refs-exclude=refs/orvel/*";

namespace UndoJournal {

// The entries, newest first. Files that don't read back as an entry are passed over.
std::vector<UndoEntry> entries(GitExecutorProtocol& git, const std::string& repoPath);

// Runs `operation` inside `journal`, which takes it as a std::function<void()>, and hands back
// the value it gives.
template <typename Operation, typename Journal>
auto passingResult(Operation operation, Journal journal) {
    using Result = decltype(operation());
    if constexpr (std::is_void_v<Result>) {
        journal(std::function<void()>(operation));
    } else {
        std::optional<Result> result;
        journal(std::function<void()>([&] { result.emplace(operation()); }));
        return std::move(*result);
    }
}

// Keeps the working-tree bytes of `paths` (relative to the work tree; a missing one is kept as
// missing, a link as its target, a folder as every file and link under it but a repository of
// its own) and what the index holds for them, runs `discard`, then notes what it left, all as one
// entry. Every discard goes through here, whichever way it changes the files.
void journalDiscard(GitExecutorProtocol& git, const std::string& repoPath, const UndoLimits& limits,
                    const std::vector<std::string>& paths, const std::function<void()>& discard);

// Keeps the bytes of `paths` as journalDiscard does and the values of `refNames` (full names),
// runs `operation`, then notes what it left. An operation that changed none of them leaves no entry.
// A merge, rebase or pull that stops in the middle (on a conflict, at an edit) leaves none either:
// the step that ends it journals the whole of it (see journalResumed).
void journal(GitExecutorProtocol& git, const std::string& repoPath, const UndoLimits& limits, UndoAction action,
             const std::string& subject, const std::vector<std::string>& paths,
             const std::vector<std::string>& refNames, const std::function<void()>& operation);

// As journal, for an operation that gives back a value.
template <typename Operation>
auto journalAround(GitExecutorProtocol& git, const std::string& repoPath, const UndoLimits& limits,
                   UndoAction action, const std::string& subject, const std::vector<std::string>& paths,
                   const std::vector<std::string>& refNames, Operation operation) {
    return passingResult(std::move(operation), [&](const std::function<void()>& run) {
        journal(git, repoPath, limits, action, subject, paths, refNames, run);
    });
}

// Runs `operation`, a step that may end a merge or rebase stopped earlier (a continue, a skip,
// the commit of a merge), and journals the move of the branch from its value before that merge
// or rebase began, under the action that began it. Without one stopped, it just runs `operation`.
void journalResumed(GitExecutorProtocol& git, const std::string& repoPath, const UndoLimits& limits,
                    const std::function<void()>& operation);

// The tracked files whose work-tree or staged bytes differ from HEAD: what a hard reset overwrites.
std::vector<std::string> locallyChangedFiles(GitExecutorProtocol& git, const std::string& repoPath);

// Keeps the stash at `index` with its message, then runs `dropStash`.
void journalStashDrop(GitExecutorProtocol& git, const std::string& repoPath, const UndoLimits& limits,
                      long index, const std::function<void()>& dropStash);

// The full name of the checked-out branch, or "HEAD" when it is detached.
std::string checkedOutRef(GitExecutorProtocol& git, const std::string& repoPath);
// The same as the one ref an operation on the checked-out branch moves.
std::vector<std::string> checkedOutRefs(GitExecutorProtocol& git, const std::string& repoPath);

// Brings back what the entry `id` kept and drops the entry. Throws GitServiceError, having changed
// nothing, when that would overwrite newer work: a file changed, staged or unstaged since, a ref
// moved or a branch name taken since.
void undo(GitExecutorProtocol& git, const std::string& repoPath, const std::string& id);

} // namespace UndoJournal

} // namespace orvel
