#include "core/commands/BlobCommands.h"

#include "core/commands/ArgumentGuard.h"
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

} // namespace

std::string checkedBlobHash(std::string_view hash) {
    std::string candidate = trimmedBlanks(hash);
    if (candidate.empty())
        throw GitServiceError::commandFailed("cat-file blob", "empty hash");
    refuseOptionLike(candidate, "blob hash");
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

} // namespace orvel::BlobCommands
