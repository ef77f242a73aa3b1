// git's C-style quoting of a path in diff headers: a path with a control character, a double quote,
// a backslash or a byte above 127 (under the default core.quotePath) is written in double quotes
// with escapes. The diff records keep paths as git printed them, so a file named by its raw bytes
// is found through the quoted form.
#pragma once

#include <string>
#include <string_view>

namespace orvel {

// `prefix` and `path` as git writes them in a diff header when quoting is needed, e.g.
// "b/\303\251t\303\251.txt" with its quotes; or nothing when the path needs no quotes.
std::string gitQuotedPath(std::string_view prefix, std::string_view path);

// Whether `printed`, a path of a diff record, names `path` (with or without git's quoting, its
// "a/" or "b/" prefix and the tab git puts after a path with a blank).
bool diffPathNames(std::string_view printed, std::string_view path);

} // namespace orvel
