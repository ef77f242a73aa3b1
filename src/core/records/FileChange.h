// The working-tree state of one path, as read from `git status --porcelain=v2`.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvel {

enum class TrackedStatus : char { unmodified, modified, typeChanged, added, deleted, renamed, copied };

enum class ConflictType : char { bothDeleted, addedByUs, deletedByThem, addedByThem, deletedByUs, bothAdded, bothModified };

// A character of an XY code; anything unknown, git's "." among it, is `unmodified`.
TrackedStatus trackedStatusFromCode(char code);
char codeOf(TrackedStatus status);
// The two-letter code of an unmerged record ("UU", "AA", ...), or nothing for an unknown code.
std::optional<ConflictType> conflictTypeFromCode(std::string_view code);
std::string_view codeOf(ConflictType type);

// What happened to a file: tracked with its index and worktree sides, unmerged, untracked or ignored.
struct FileStatusKind {
    enum class Case : char { tracked, unmerged, untracked, ignored };

    Case kind = Case::untracked;
    TrackedStatus index = TrackedStatus::unmodified;    // tracked only
    TrackedStatus worktree = TrackedStatus::unmodified; // tracked only
    ConflictType conflict = ConflictType::bothModified; // unmerged only

    static FileStatusKind tracked(TrackedStatus index, TrackedStatus worktree) {
        return {Case::tracked, index, worktree, ConflictType::bothModified};
    }
    static FileStatusKind unmerged(ConflictType type) {
        return {Case::unmerged, TrackedStatus::unmodified, TrackedStatus::unmodified, type};
    }
    static FileStatusKind untracked() { return {Case::untracked}; }
    static FileStatusKind ignored() { return {Case::ignored}; }

    bool operator==(const FileStatusKind&) const = default;
};

struct FileChange {
    std::string path; // relative to the repository root, raw bytes as git printed them
    std::optional<std::string> originalPath;
    FileStatusKind status;
    std::optional<TrackedStatus> displayStatus;
    std::optional<std::string> baseHash;
    std::optional<std::string> oursHash;
    std::optional<std::string> theirsHash;
    bool isSubmodule = false;
    bool isSymlink = false;

    // The identity in lists is the path itself.
    const std::string& id() const { return path; }

    bool operator==(const FileChange&) const = default;
};

struct StatusResult {
    std::vector<FileChange> files;

    bool operator==(const StatusResult&) const = default;
};

} // namespace orvel
