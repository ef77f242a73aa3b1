// One unmerged path with the modes and blobs of its three stages.
#pragma once

#include "core/records/FileChange.h"

#include <QUuid>

#include <optional>
#include <string>

namespace orvel {

struct ConflictEntry {
    QUuid id; // new at every parse
    std::string path;
    ConflictType conflictType = ConflictType::bothModified;
    std::optional<std::string> baseMode;
    std::optional<std::string> oursMode;
    std::optional<std::string> theirsMode;
    std::optional<std::string> baseHash;
    std::optional<std::string> oursHash;
    std::optional<std::string> theirsHash;
};

} // namespace orvel
