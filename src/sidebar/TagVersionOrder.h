// The order the sidebar lists tags in: the newest version first, whatever the naming scheme. The
// numbers of a name are its version ("v1.10", "release-1.10", "REL_1_10" all read 1.10), compared
// as numbers, so that 1.10 comes after 1.9 and before 2.0. A pre-release ("-rc1", "beta2") comes
// just before its release, a later build of a release ("v2.40.0.windows.1") just after it, and
// names without a number follow every version, by name.
#pragma once

#include "core/records/TagEntry.h"

#include <string_view>
#include <vector>

namespace orvel {

// Whether tag `a` is listed before tag `b`; a strict weak order over every pair of names.
bool listsBefore(std::string_view a, std::string_view b);

void sortNewestFirst(std::vector<TagEntry>& tags);

} // namespace orvel
