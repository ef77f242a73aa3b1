// Reading a blob's bytes or a work-tree file.
#pragma once

#include "core/process/GitExecutorProtocol.h"

#include <string>
#include <string_view>

namespace orvel::BlobCommands {

// The hash without surrounding blanks. An empty one fails as "cat-file blob" with "empty hash",
// one that begins with "-" as invalid input; neither runs git.
std::string checkedBlobHash(std::string_view hash);
// The blob's bytes as git prints them.
std::string readBlob(GitExecutorProtocol& git, const std::string& repoPath, const std::string& hash);

// `path` without leading "/": joined by path components, a path stays inside the repository.
std::string repoRelativePath(std::string_view path);
// `path` taken as relative to the repository, joined to `repoPath`.
std::string workTreeFile(const std::string& repoPath, const std::string& path);
// The bytes of `file`; failures are std::filesystem::filesystem_error.
std::string readFile(const std::string& file);

} // namespace orvel::BlobCommands
