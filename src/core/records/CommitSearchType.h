// What a commit search looks at: the local match over loaded commits and the `git log` search both
// take it.
#pragma once

namespace orvel {

enum class CommitSearchType { all, message, author, ref, hash, diff, filePath };

} // namespace orvel
