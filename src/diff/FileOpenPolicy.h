// What a working-tree file is before it is shown: its size, whether it is text and in which
// encoding, how many lines it has, and from that how it may be opened. Reading is bounded: 8,000
// bytes for the binary test, and the whole file for its line count only below 10,000,000 bytes, so
// a click on a 2 GB file never loads it.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace orvel {

class UserDefaults;

enum class TextEncoding : char { utf8, utf16, latin1 };

enum class FileOpenPolicy : char { text, largeText, image, unsupported, directory };

struct FileMetadata {
    std::uint64_t size = 0;
    std::optional<std::string> mimeType;
    std::optional<TextEncoding> encoding;
    std::optional<long> lineCount;
    bool isBinary = false;
    std::optional<std::vector<std::string>> directoryEntries; // directories only, sorted
};

struct FileInspection {
    FileMetadata metadata;
    FileOpenPolicy policy = FileOpenPolicy::text;
};

// The thresholds of a large text file, from the settings "largeFileSizeMB" (1 to 100, default 10)
// and "largeFileLineCountK" (10 to 30, default 15).
struct InspectionLimits {
    std::uint64_t sizeBytes = 10'000'000;
    long lineCount = 15'000;

    static InspectionLimits read(const UserDefaults& defaults);
};

// The MIME type of the path's extension from a small table, none for an unknown one; only the
// "image/" prefix decides anything.
std::optional<std::string> mimeTypeOf(const std::string& path);

// Blocking: run it on a worker. Throws std::filesystem::filesystem_error only for a directory that
// can't be listed; a file that can't be read counts as empty text.
FileInspection inspectFile(const std::string& fullPath, const InspectionLimits& limits);

} // namespace orvel
