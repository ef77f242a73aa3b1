#include "changes/StatusRows.h"

namespace orvel {

namespace {

// One side of a tracked file as a row of its own: the side's status stands first, since the list
// shows one status column.
FileChange sideRow(const FileChange& file, TrackedStatus side) {
    FileChange row;
    row.path = file.path;
    row.originalPath = file.originalPath;
    row.status = FileStatusKind::tracked(side, TrackedStatus::unmodified);
    row.displayStatus = side;
    row.isSubmodule = file.isSubmodule;
    return row;
}

} // namespace

StatusRows splitStatusRows(const std::vector<FileChange>& files) {
    StatusRows rows;
    for (const FileChange& file : files) {
        switch (file.status.kind) {
        case FileStatusKind::Case::tracked:
            if (file.status.index != TrackedStatus::unmodified)
                rows.staged.push_back(sideRow(file, file.status.index));
            if (file.status.worktree != TrackedStatus::unmodified)
                rows.unstaged.push_back(sideRow(file, file.status.worktree));
            break;
        case FileStatusKind::Case::unmerged:
        case FileStatusKind::Case::untracked:
            rows.unstaged.push_back(file);
            break;
        case FileStatusKind::Case::ignored:
            break;
        }
    }
    return rows;
}

std::string rowID(const FileChange& file, bool staged) {
    return staged ? "staged:" + file.path : file.path;
}

bool isNestedRepository(const FileChange& file) {
    return file.status.kind == FileStatusKind::Case::untracked && file.path.ends_with('/');
}

bool hasHistory(const FileChange& file) {
    return file.status.kind != FileStatusKind::Case::untracked;
}

} // namespace orvel
