// One entry of the undo journal: what a destructive action overwrote, deleted or moved, kept so
// that it can be brought back, and what the action left, so that an undo can tell newer work.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace orvel {

enum class UndoAction { discard, hardReset, deleteBranch, deleteRemoteBranch, dropStash, rebase, merge, amend, forcePush, pull };

// What a kept path was: a file, an executable file, or a symbolic link, whose blob is its target.
enum class UndoFileMode { regular, executable, link };

// A working-tree file or link. `before` is the blob holding its bytes, empty when there was
// nothing; `after` is the blob of what the action left, empty when it left nothing, unset while
// unknown.
struct UndoFile {
    std::string path;
    std::string before;
    UndoFileMode mode = UndoFileMode::regular;
    std::optional<std::string> after;

    bool operator==(const UndoFile&) const = default;
};

// A ref by its full name, with its value before and after the action as full hashes; empty when
// the ref did not exist, `after` unset while unknown.
struct UndoRef {
    std::string name;
    std::string before;
    std::optional<std::string> after;

    bool operator==(const UndoRef&) const = default;
};

// A path's entry in the index: git's mode ("100644", "100755" or "120000") and its blob; both
// empty when the path is not in the index.
struct UndoStaged {
    std::string mode;
    std::string blob;

    bool operator==(const UndoStaged&) const = default;
};

// What the index held for a kept path before the action, and what the action left, unset while
// unknown.
struct UndoIndexEntry {
    std::string path;
    UndoStaged before;
    std::optional<UndoStaged> after;

    bool operator==(const UndoIndexEntry&) const = default;
};

struct UndoEntry {
    std::string id; // sorts in the order the entries were made
    UndoAction action = UndoAction::discard;
    // The branch, the remote or the stash message the action was about; empty for a discard.
    std::string subject;
    std::int64_t time = 0; // seconds since the epoch
    std::uint64_t bytes = 0; // the size of the files and staged blobs kept
    std::vector<UndoFile> files;
    // The staged state of the kept files, but for those in conflict or holding a submodule,
    // which an undo leaves as the action left them.
    std::vector<UndoIndexEntry> index;
    std::vector<UndoRef> refs;

    bool operator==(const UndoEntry&) const = default;
};

} // namespace orvel
