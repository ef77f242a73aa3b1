#include "content/Readme.h"

#include <QFile>
#include <QStringDecoder>

#include <algorithm>
#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace orvel {

namespace {

constexpr const char* candidateNames[] = {"README.md",       "readme.md",  "Readme.md",
                                          "README.markdown", "README.txt", "README"};

struct FileBytes {
    QByteArray bytes;
    bool isTruncated = false;
};

// The first `Readme::maxBytes` of a regular file. The file is opened without waiting (a named pipe
// would block the open) and its type is checked on the open descriptor, so nothing can swap it
// between the check and the read.
std::optional<FileBytes> readRegularFile(const QString& path) {
    const int descriptor = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (descriptor < 0)
        return std::nullopt;
    FileBytes file;
    struct stat info {};
    bool readable = ::fstat(descriptor, &info) == 0 && S_ISREG(info.st_mode);
    if (readable) {
        // One byte more than is kept tells whether anything was left out.
        file.bytes.resize(Readme::maxBytes + 1);
        qint64 filled = 0;
        while (filled < file.bytes.size()) {
            const ssize_t got =
                ::read(descriptor, file.bytes.data() + filled, std::size_t(file.bytes.size() - filled));
            if (got < 0 && errno == EINTR)
                continue;
            if (got <= 0) {
                readable = got == 0;
                break;
            }
            filled += got;
        }
        file.isTruncated = filled > Readme::maxBytes;
        file.bytes.resize(std::min(filled, Readme::maxBytes));
    }
    ::close(descriptor);
    if (!readable)
        return std::nullopt;
    return file;
}

// A cut can fall inside a character: its first bytes are dropped, so the rest still decodes.
void dropCutCharacter(QByteArray& bytes) {
    qsizetype start = bytes.size();
    while (start > 0 && bytes.size() - start < 3 && (uchar(bytes[start - 1]) & 0xC0) == 0x80)
        --start;
    if (start == 0 || uchar(bytes[start - 1]) < 0xC0)
        return;
    const uchar lead = uchar(bytes[start - 1]);
    const qsizetype length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (bytes.size() - (start - 1) < length)
        bytes.truncate(start - 1);
}

// Valid UTF-8 without NUL bytes; anything else is no text to show.
std::optional<QString> decodedText(const QByteArray& bytes) {
    if (bytes.contains('\0'))
        return std::nullopt;
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    QString text = decoder.decode(bytes);
    if (decoder.hasError())
        return std::nullopt;
    return text;
}

} // namespace

bool Readme::isMarkdown() const {
    return fileName.endsWith(QLatin1String(".md"), Qt::CaseInsensitive) ||
           fileName.endsWith(QLatin1String(".markdown"), Qt::CaseInsensitive);
}

std::optional<Readme> findReadme(const std::string& folder) {
    const QString root = QFile::decodeName(QByteArray::fromStdString(folder));
    for (const char* name : candidateNames) {
        std::optional<FileBytes> file = readRegularFile(root + QLatin1Char('/') + QLatin1String(name));
        if (!file)
            continue;
        if (file->isTruncated)
            dropCutCharacter(file->bytes);
        const std::optional<QString> text = decodedText(file->bytes);
        if (!text)
            continue;
        auto [kept, isCut] = cutToLines(*text, Readme::maxLines);
        return Readme{QLatin1String(name), std::move(kept), isCut, file->isTruncated};
    }
    return std::nullopt;
}

std::pair<QString, bool> cutToLines(const QString& text, int maxLines) {
    qsizetype position = -1;
    for (int line = 0; line < maxLines; ++line) {
        position = text.indexOf(QLatin1Char('\n'), position + 1);
        if (position < 0)
            return {text, false};
    }
    // A line feed that ends the last kept line leaves nothing out.
    if (position + 1 >= text.size())
        return {text, false};
    return {text.left(position), true};
}

} // namespace orvel
