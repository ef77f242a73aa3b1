#include "core/support/AtomicFile.h"

#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace orvel {

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
    void sync() {
        if (::fsync(fd_) != 0)
            throwFileError("cannot write temporary file", path_, errno);
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

enum class Durability { renamed, synced };

// With `synced`, the bytes reach the disk before the rename, and the rename before the return, so
// that a crash leaves the old file or the new one, never an empty one.
void writeAtomically(const std::string& path, std::string_view bytes, mode_t mode,
                     Durability durability = Durability::renamed) {
    StagingFile staging(path);
    staging.write(bytes);
    staging.setMode(mode);
    if (durability == Durability::synced)
        staging.sync();
    staging.close();
    staging.renameTo(path);
    if (durability == Durability::synced) {
        const std::string folder = std::filesystem::path(path).parent_path().string();
        const int fd = ::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
        if (fd < 0)
            throwFileError("cannot open folder", folder, errno);
        const int synced = ::fsync(fd);
        const int error = errno;
        ::close(fd);
        if (synced != 0)
            throwFileError("cannot write folder", folder, error);
    }
}

} // namespace

void replaceFileAtomically(const std::string& path, std::string_view bytes) {
    mode_t mode = 0644;
    struct stat existing {};
    if (::stat(path.c_str(), &existing) == 0)
        mode = existing.st_mode & 07777;
    writeAtomically(path, bytes, mode);
}

void writePrivateFileAtomically(const std::string& path, std::string_view bytes) {
    writeAtomically(path, bytes, 0600);
}

void writePrivateFileDurably(const std::string& path, std::string_view bytes) {
    writeAtomically(path, bytes, 0600, Durability::synced);
}

} // namespace orvel
