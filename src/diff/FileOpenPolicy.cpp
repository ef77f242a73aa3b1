#include "diff/FileOpenPolicy.h"

#include "core/support/UserDefaults.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <utility>

namespace orvel {

namespace {

constexpr std::size_t sampleBytes = 8'000;
// The line count is skipped from this size on, whatever the user's limits are.
constexpr std::uint64_t lineCountBound = 10'000'000;

int clampedSetting(const UserDefaults& defaults, const char* key, int low, int high, int fallback) {
    bool isInteger = false;
    const int value = defaults.value(QString::fromLatin1(key)).toInt(&isInteger);
    return isInteger ? std::clamp(value, low, high) : fallback;
}

// Well-formed UTF-8: every lead byte has its continuation bytes; a sequence cut at the end fails.
bool isUtf8(std::string_view bytes) {
    for (std::size_t at = 0; at < bytes.size();) {
        const auto lead = static_cast<unsigned char>(bytes[at]);
        const std::size_t length = lead < 0x80           ? 1
                                   : (lead >> 5) == 0x6  ? 2
                                   : (lead >> 4) == 0xE  ? 3
                                   : (lead >> 3) == 0x1E ? 4
                                                         : 0;
        if (length == 0 || at + length > bytes.size())
            return false;
        for (std::size_t k = 1; k < length; ++k)
            if ((static_cast<unsigned char>(bytes[at + k]) >> 6) != 0x2)
                return false;
        at += length;
    }
    return true;
}

// Whole UTF-16 code units, little-endian unless a big-endian byte-order mark leads, with every
// surrogate paired.
bool isUtf16(std::string_view bytes) {
    if (bytes.size() % 2 != 0)
        return false;
    const bool bigEndian = bytes.size() >= 2 && static_cast<unsigned char>(bytes[0]) == 0xFE &&
                           static_cast<unsigned char>(bytes[1]) == 0xFF;
    auto unit = [&](std::size_t at) {
        const auto first = static_cast<unsigned char>(bytes[at]),
                   second = static_cast<unsigned char>(bytes[at + 1]);
        return bigEndian ? (first << 8 | second) : (second << 8 | first);
    };
    for (std::size_t at = 0; at < bytes.size(); at += 2) {
        const int code = unit(at);
        if (code >= 0xD800 && code < 0xDC00) {
            if (at + 2 >= bytes.size() || unit(at + 2) < 0xDC00 || unit(at + 2) >= 0xE000)
                return false;
            at += 2;
        } else if (code >= 0xDC00 && code < 0xE000) {
            return false;
        }
    }
    return true;
}

std::optional<TextEncoding> encodingOf(const std::string& sample) {
    if (isUtf8(sample))
        return TextEncoding::utf8;
    if (isUtf16(sample))
        return TextEncoding::utf16;
    return TextEncoding::latin1; // ISO Latin 1 reads every byte
}

long countLines(const std::string& fullPath) {
    std::ifstream file(fullPath, std::ios::binary);
    std::array<char, 1 << 16> buffer{};
    long lines = 1;
    while (file) {
        file.read(buffer.data(), buffer.size());
        lines += std::count(buffer.begin(), buffer.begin() + file.gcount(), '\n');
    }
    return lines;
}

} // namespace

InspectionLimits InspectionLimits::read(const UserDefaults& defaults) {
    InspectionLimits limits;
    limits.sizeBytes = std::uint64_t(clampedSetting(defaults, "largeFileSizeMB", 1, 100, 10)) * 1'000'000;
    limits.lineCount = long(clampedSetting(defaults, "largeFileLineCountK", 10, 30, 15)) * 1'000;
    return limits;
}

std::optional<std::string> mimeTypeOf(const std::string& path) {
    static const std::array<std::pair<std::string_view, std::string_view>, 16> types{{
        {"png", "image/png"},
        {"jpg", "image/jpeg"},
        {"jpeg", "image/jpeg"},
        {"gif", "image/gif"},
        {"bmp", "image/bmp"},
        {"webp", "image/webp"},
        {"ico", "image/vnd.microsoft.icon"},
        {"tif", "image/tiff"},
        {"tiff", "image/tiff"},
        {"svg", "image/svg+xml"},
        {"pdf", "application/pdf"},
        {"zip", "application/zip"},
        {"gz", "application/gzip"},
        {"json", "application/json"},
        {"txt", "text/plain"},
        {"md", "text/markdown"},
    }};
    std::string extension = std::filesystem::path(path).extension().string();
    if (extension.size() < 2)
        return std::nullopt;
    extension.erase(0, 1);
    std::transform(extension.begin(), extension.end(), extension.begin(),
                   [](unsigned char c) { return char(std::tolower(c)); });
    for (const auto& [known, type] : types)
        if (known == extension)
            return std::string(type);
    return std::nullopt;
}

FileInspection inspectFile(const std::string& fullPath, const InspectionLimits& limits) {
    namespace fs = std::filesystem;
    FileInspection inspection;
    FileMetadata& metadata = inspection.metadata;
    metadata.mimeType = mimeTypeOf(fullPath);
    std::error_code error;
    if (fs::is_directory(fullPath, error)) {
        std::vector<std::string> entries;
        for (const auto& entry : fs::directory_iterator(fullPath)) // a failed listing throws
            entries.push_back(entry.path().filename().string());
        std::sort(entries.begin(), entries.end());
        metadata.directoryEntries = std::move(entries);
        inspection.policy = FileOpenPolicy::directory;
        return inspection;
    }

    const auto size = fs::file_size(fullPath, error);
    metadata.size = error ? 0 : size;
    std::string sample(sampleBytes, '\0');
    std::ifstream file(fullPath, std::ios::binary);
    file.read(sample.data(), std::streamsize(sample.size()));
    sample.resize(file ? sample.size() : std::size_t(std::max<std::streamsize>(file.gcount(), 0)));
    const bool opened = file.is_open();
    file.close();

    metadata.isBinary = sample.find('\0') != std::string::npos;
    if (!metadata.isBinary)
        metadata.encoding = encodingOf(sample);
    if (!metadata.isBinary && metadata.size < lineCountBound && opened)
        metadata.lineCount = countLines(fullPath);
    else if (!metadata.isBinary && metadata.size < lineCountBound)
        metadata.lineCount = 1; // an unreadable file counts as empty text

    if (metadata.isBinary)
        inspection.policy = metadata.mimeType && metadata.mimeType->starts_with("image/")
                                ? FileOpenPolicy::image
                                : FileOpenPolicy::unsupported;
    else if (metadata.size > limits.sizeBytes ||
             (metadata.lineCount && *metadata.lineCount > limits.lineCount))
        inspection.policy = FileOpenPolicy::largeText;
    return inspection;
}

} // namespace orvel
