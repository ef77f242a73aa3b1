#include "core/commands/HunkCommands.h"

#include "core/service/GitServiceError.h"

#include <QDir>
#include <QFile>
#include <QUuid>

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <string_view>
#include <system_error>
#include <unistd.h>

namespace orvel::HunkCommands {

namespace {

using Arguments = GitExecutorProtocol::Arguments;

[[noreturn]] void throwFileError(const char* what, const std::string& path) {
    throw std::filesystem::filesystem_error(what, path, std::error_code(errno, std::system_category()));
}

// Writes `bytes` to a private (0600) sibling file and renames it into place, so that `path`
// never exists half written. The sibling goes away on every failure.
void writePrivateFileAtomically(const std::string& path, std::string_view bytes) {
    std::string staging = path + ".XXXXXX";
    const int fd = ::mkostemp(staging.data(), O_CLOEXEC);
    if (fd < 0)
        throwFileError("cannot create patch file", staging);
    auto fail = [&](const char* what) {
        const int error = errno;
        ::close(fd);
        ::unlink(staging.c_str());
        errno = error;
        throwFileError(what, staging);
    };
    for (std::size_t written = 0; written < bytes.size();) {
        const ssize_t n = ::write(fd, bytes.data() + written, bytes.size() - written);
        if (n < 0) {
            if (errno == EINTR)
                continue;
            fail("cannot write patch file");
        }
        written += static_cast<std::size_t>(n);
    }
    if (::close(fd) != 0) {
        const int error = errno;
        ::unlink(staging.c_str());
        errno = error;
        throwFileError("cannot write patch file", staging);
    }
    if (::rename(staging.c_str(), path.c_str()) != 0) {
        const int error = errno;
        ::unlink(staging.c_str());
        errno = error;
        throwFileError("cannot move patch file into place", path);
    }
}

// Removes the patch file when the operation ends, however it ends; a failed removal is ignored.
class PatchFile {
  public:
    explicit PatchFile(std::string_view patch)
        : path_(QFile::encodeName(QDir::tempPath()).toStdString() + "/orvel_hunk_" +
                QUuid::createUuid().toString(QUuid::WithoutBraces).toStdString() + ".patch") {
        writePrivateFileAtomically(path_, patch);
    }
    ~PatchFile() { ::unlink(path_.c_str()); }
    PatchFile(const PatchFile&) = delete;
    PatchFile& operator=(const PatchFile&) = delete;

    const std::string& path() const { return path_; }

  private:
    std::string path_;
};

// Re-reads the file's diff with `reread`, cuts the hunk out and runs `apply` with the patch
// file appended. The whole of it runs inside one block of the repository's queue.
void applyHunk(GitExecutorProtocol& git, const std::string& repoPath, const Arguments& reread,
               Arguments apply, const DiffHunk& hunk) {
    const std::string rawDiff = git.execute(reread, repoPath);
    const std::string patch = extractHunkPatch(rawDiff, hunk);
    if (patch.empty())
        throw GitServiceError::parseFailed(
            "apply", "target hunk not found \u2014 file may have changed since you viewed the diff");
    const PatchFile file(patch);
    apply.push_back(file.path());
    git.execute(apply, repoPath);
}

} // namespace

void stageHunk(GitExecutorProtocol& git, const std::string& repoPath, const std::string& file,
               const DiffHunk& hunk) {
    applyHunk(git, repoPath, {"diff", "--", file}, {"apply", "--cached", "--whitespace=nowarn"}, hunk);
}

void unstageHunk(GitExecutorProtocol& git, const std::string& repoPath, const std::string& file,
                 const DiffHunk& hunk) {
    applyHunk(git, repoPath, {"diff", "--cached", "--", file},
              {"apply", "--cached", "--reverse", "--whitespace=nowarn"}, hunk);
}

void discardHunk(GitExecutorProtocol& git, const std::string& repoPath, const std::string& file,
                 const DiffHunk& hunk) {
    applyHunk(git, repoPath, {"diff", "--", file}, {"apply", "--reverse", "--whitespace=nowarn"}, hunk);
}

} // namespace orvel::HunkCommands
