// Files replaced whole or not at all: the bytes go to a private sibling that is renamed over the
// target, so that no reader ever sees a file half written.
#pragma once

#include <string>
#include <string_view>

namespace orvel {

// Replaces `path` with `bytes`. A new file gets 0644, as git gives a checked-out file; an
// existing one keeps its permission bits, executable ones too.
void replaceFileAtomically(const std::string& path, std::string_view bytes);

// Writes `bytes` to `path` readable only by this user (0600).
void writePrivateFileAtomically(const std::string& path, std::string_view bytes);

// As writePrivateFileAtomically, and on the disk when it returns: a crash at any point leaves
// either the old file or the whole new one.
void writePrivateFileDurably(const std::string& path, std::string_view bytes);

// Both remove the sibling on every failure and raise std::filesystem::filesystem_error.

} // namespace orvel
