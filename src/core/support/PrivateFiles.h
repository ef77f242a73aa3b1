// Temporary files that git reads while one operation runs (patches, the rebase todo list and its
// editor scripts): uniquely named in the temporary directory and removed when the operation ends,
// however it ends. They are written with writePrivateFileAtomically (AtomicFile.h).
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace orvel {

// The platform's temporary directory as bytes for file-system calls; honours TMPDIR.
std::string temporaryDirectory();

// A path "<temporary directory>/<prefix><fresh UUID><suffix>", unique for this run.
std::string uniqueTemporaryPath(std::string_view prefix, std::string_view suffix = {});

// Removes every registered path when it goes out of scope; a failed removal is ignored. A path is
// registered before its file is made, so that a failure halfway leaves nothing behind either.
class TemporaryFiles {
  public:
    TemporaryFiles() = default;
    ~TemporaryFiles();
    TemporaryFiles(const TemporaryFiles&) = delete;
    TemporaryFiles& operator=(const TemporaryFiles&) = delete;

    // Registers `path` and hands it back.
    std::string add(std::string path);

  private:
    std::vector<std::string> paths_;
};

} // namespace orvel
