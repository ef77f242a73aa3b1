// One row of the commit graph as read from `git log --all --topo-order`, with its refs classified.
#pragma once

#include "core/records/CommitAuthor.h"
#include "core/records/FileChange.h"
#include "core/records/GraphRef.h"
#include "core/support/IsoDate.h"

#include <optional>
#include <string>
#include <vector>

namespace orvel {

struct GraphCommit {
    // The full hash; "wip" marks the synthetic working-tree row of the graph pane.
    std::string hash;
    // Both empty as the graph reads its commits; the detail pane reads them for the selected one.
    std::string abbreviatedHash;
    std::vector<std::string> parentHashes; // first parent first
    std::string subject;
    std::string body;
    std::vector<CommitAuthor> authors; // the parser gives exactly one
    Instant date = distantPast;        // the author date
    std::vector<GraphRef> refs;        // in the order git printed them
    // HEAD decorates this commit, attached to a branch or detached.
    bool isHead = false;
    // Absent from a parse; the graph pane keeps file lists in a cache of its own.
    std::optional<std::vector<FileChange>> fileChanges;

    bool operator==(const GraphCommit&) const = default;
};

} // namespace orvel
