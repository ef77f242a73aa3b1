// A commit as a flat record: history lists, search results and the commit that was just made.
#pragma once

#include "core/support/IsoDate.h"

#include <QJsonObject>

#include <optional>
#include <string>
#include <vector>

namespace orvel {

struct CommitEntry {
    std::string hash;
    std::string abbreviatedHash;
    std::string authorName;
    std::string authorEmail;
    Instant authorDate = distantPast;
    std::string subject;
    std::string body;
    std::vector<std::string> parentHashes;
    // The raw decorations, unclassified: "HEAD -> main" stays one item.
    std::vector<std::string> refs;

    bool operator==(const CommitEntry&) const = default;
};

// The keyed form of a commit entry: one key a field, named as the field. Texts go as UTF-8 (bytes
// that aren't are replaced), the date as "YYYY-MM-DDTHH:MM:SSZ", the lists as arrays of text.
QJsonObject toJson(const CommitEntry& entry);
// Nothing when a key is missing, has the wrong type or the date doesn't read.
std::optional<CommitEntry> commitEntryFromJson(const QJsonObject& object);

} // namespace orvel
