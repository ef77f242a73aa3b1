#include "core/commands/BlobCommands.h"

#include "core/service/GitServiceError.h"
#include "core/support/Text.h"

#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace orvel::BlobCommands {

namespace {

[[noreturn]] void throwFileError(const char* what, const std::string& path, int error) {
    throw std::filesystem::filesystem_error(what, path, std::error_code(error, std::system_category()));
}

// Removes the temporary file unless it has been renamed into place.
class StagingFile {
  public:
    explicit StagingFile(const std::string& target) : path_(target + ".orvel-XXXXXX") {
        fd_ = ::mkostemp(path_.data(), O_CLOEXEC); // mkostemp creates it 0600
        if (fd_ < 0)
            throwFileError("cannot create temporary file", path_, errno);
    }
    ~StagingFile() {
        if (fd_ >= 0)
            ::close(fd_);
        if (!placed_)
            ::unlink(path_.c_str());
    }
    StagingFile(const StagingFile&) = delete;
    StagingFile& operator=(const StagingFile&) = delete;

    void write(std::string_view bytes) {
        for (std::size_t written = 0; written < bytes.size();) {
            const ssize_t n = ::write(fd_, bytes.data() + written, bytes.size() - written);
            if (n < 0) {
                if (errno == EINTR)
                    continue;
                throwFileError("cannot write temporary file", path_, errno);
            }
            written += static_cast<std::size_t>(n);
        }
    }
    void setMode(mode_t mode) {
        if (::fchmod(fd_, mode) != 0)
            throwFileError("cannot set permissions of temporary file", path_, errno);
    }
    void close() {
        const int fd = fd_;
        fd_ = -1;
        if (::close(fd) != 0)
            throwFileError("cannot write temporary file", path_, errno);
    }
    void renameTo(const std::string& target) {
        if (::rename(path_.c_str(), target.c_str()) != 0)
            throwFileError("cannot move temporary file into place", target, errno);
        placed_ = true;
    }

  private:
    std::string path_;
    int fd_ = -1;
    bool placed_ = false;
};

} // namespace

std::string checkedBlobHash(std::string_view hash) {
    std::string candidate = trimmedBlanks(hash);
    if (candidate.empty())
        throw GitServiceError::commandFailed("cat-file blob", "empty hash");
    if (candidate.front() == '-')
        throw GitServiceError::invalidInput("blob hash must not begin with '-': " + candidate);
    return candidate;
}

std::string readBlob(GitExecutorProtocol& git, const std::string& repoPath, const std::string& hash) {
    return git.execute({"cat-file", "blob", checkedBlobHash(hash)}, repoPath);
}

std::string repoRelativePath(std::string_view path) {
    while (!path.empty() && path.front() == '/')
        path.remove_prefix(1);
    return std::string(path);
}

std::string workTreeFile(const std::string& repoPath, const std::string& path) {
    std::string joined = repoPath;
    while (joined.size() > 1 && joined.back() == '/')
        joined.pop_back();
    if (joined != "/")
        joined += '/';
    joined += repoRelativePath(path);
    return joined;
}

std::string readFile(const std::string& file) {
    const int fd = ::open(file.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0)
        throwFileError("cannot read file", file, errno);
    std::string bytes;
    struct stat info {};
    if (::fstat(fd, &info) == 0 && info.st_size > 0)
        bytes.reserve(static_cast<std::size_t>(info.st_size));
    char buffer[64 * 1024];
    for (;;) {
        const ssize_t n = ::read(fd, buffer, sizeof buffer);
        if (n == 0)
            break;
        if (n < 0) {
            if (errno == EINTR)
                continue;
            const int error = errno;
            ::close(fd);
            throwFileError("cannot read file", file, error);
        }
        bytes.append(buffer, static_cast<std::size_t>(n));
    }
    ::close(fd);
    return bytes;
}

void writeFileAtomically(const std::string& file, std::string_view content) {
    // A new file gets what git would give it; an existing one keeps its bits, executable ones too.
    mode_t mode = 0644;
    struct stat existing {};
    if (::stat(file.c_str(), &existing) == 0)
        mode = existing.st_mode & 07777;
    StagingFile staging(file);
    staging.write(content);
    staging.setMode(mode);
    staging.close();
    staging.renameTo(file);
}

} // namespace orvel::BlobCommands
