// Reads the remote list that `git remote -v` prints: one line per remote and direction,
// "name<TAB>url (fetch)" and "name<TAB>url (push)".
#pragma once

#include "core/records/RemoteEntry.h"

#include <string_view>
#include <vector>

namespace orvel::GitOutputParser {

// Never fails. Lines without a tab or without a direction are dropped; the last line of a name and
// direction wins. Only names with a fetch URL make an entry, sorted by name; a remote without a
// push line pushes to its fetch URL.
std::vector<RemoteEntry> parseRemotes(std::string_view text);

} // namespace orvel::GitOutputParser
