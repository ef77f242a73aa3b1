// The first stage of the commit search: an immediate match over the commits already loaded, before
// git has answered. Texts compare in lower case by containment, hashes by prefix.
#pragma once

#include "core/records/CommitSearchType.h"
#include "graph/CommitStore.h"

#include <cstddef>

#include <string>
#include <string_view>

namespace orvel {

// `text` in lower case; letters beyond ASCII fold as Unicode says.
std::string lowercased(std::string_view text);

// Whether the commit at `index` matches `loweredQuery` (already lower case) in `scope`. The message
// scope reads the subject only; the code-change and file-path scopes never match here, only git can
// tell.
bool matchesLocally(const CommitStore& store, std::size_t index, CommitSearchType scope,
                    std::string_view loweredQuery);

} // namespace orvel
