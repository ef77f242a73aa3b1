#include "core/support/PrivateFiles.h"

#include <QDir>
#include <QFile>
#include <QUuid>

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <system_error>
#include <unistd.h>

namespace orvel {

namespace {

[[noreturn]] void throwFileError(const char* what, const std::string& path, int error) {
    throw std::filesystem::filesystem_error(what, path, std::error_code(error, std::system_category()));
}

} // namespace

std::string temporaryDirectory() {
    return QFile::encodeName(QDir::tempPath()).toStdString();
}

std::string uniqueTemporaryPath(std::string_view prefix, std::string_view suffix) {
    std::string path = temporaryDirectory();
    path += '/';
    path += prefix;
    path += QUuid::createUuid().toString(QUuid::WithoutBraces).toStdString();
    path += suffix;
    return path;
}

void writePrivateFileAtomically(const std::string& path, std::string_view bytes) {
    std::string staging = path + ".XXXXXX";
    const int fd = ::mkostemp(staging.data(), O_CLOEXEC); // created 0600
    if (fd < 0)
        throwFileError("cannot create temporary file", staging, errno);
    auto fail = [&](const char* what) {
        const int error = errno;
        ::close(fd);
        ::unlink(staging.c_str());
        throwFileError(what, staging, error);
    };
    for (std::size_t written = 0; written < bytes.size();) {
        const ssize_t n = ::write(fd, bytes.data() + written, bytes.size() - written);
        if (n < 0) {
            if (errno == EINTR)
                continue;
            fail("cannot write temporary file");
        }
        written += static_cast<std::size_t>(n);
    }
    if (::close(fd) != 0) {
        const int error = errno;
        ::unlink(staging.c_str());
        throwFileError("cannot write temporary file", staging, error);
    }
    if (::rename(staging.c_str(), path.c_str()) != 0) {
        const int error = errno;
        ::unlink(staging.c_str());
        throwFileError("cannot move temporary file into place", path, error);
    }
}

TemporaryFiles::~TemporaryFiles() {
    for (const std::string& path : paths_)
        ::unlink(path.c_str());
}

std::string TemporaryFiles::add(std::string path) {
    paths_.push_back(path);
    return path;
}

} // namespace orvel
