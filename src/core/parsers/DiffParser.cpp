#include "core/parsers/DiffParser.h"

#include "core/parsers/DiffNumbers.h"
#include "core/support/Log.h"
#include "core/support/Text.h"

#include <QRandomGenerator>

#include <climits>
#include <cstdint>
#if defined(__SSE2__)
#include <emmintrin.h>
#endif
#include <iterator>
#include <memory>
#include <utility>

namespace orvel::GitOutputParser {

namespace {

// A large diff has millions of lines, each with its own id; asking the system's random source
// for every one of them would cost more than the whole parse. So each parse seeds a fast
// generator (xoshiro256**) from the system source once and mints version-4 UUIDs from it.
class UuidMint {
  public:
    UuidMint() {
        for (auto& word : state_)
            word = QRandomGenerator::system()->generate64();
    }

    QUuid next() {
        const std::uint64_t high = nextWord();
        const std::uint64_t low = nextWord();
        return QUuid(static_cast<uint>(high >> 32), static_cast<ushort>(high >> 16),
                     static_cast<ushort>((high & 0x0fff) | 0x4000),
                     static_cast<uchar>(((low >> 56) & 0x3f) | 0x80), static_cast<uchar>(low >> 48),
                     static_cast<uchar>(low >> 40), static_cast<uchar>(low >> 32),
                     static_cast<uchar>(low >> 24), static_cast<uchar>(low >> 16),
                     static_cast<uchar>(low >> 8), static_cast<uchar>(low));
    }

  private:
    static std::uint64_t rotl(std::uint64_t x, int k) { return (x << k) | (x >> (64 - k)); }

    std::uint64_t nextWord() {
        const std::uint64_t result = rotl(state_[1] * 5, 7) * 9;
        const std::uint64_t t = state_[1] << 17;
        state_[2] ^= state_[0];
        state_[3] ^= state_[1];
        state_[1] ^= state_[2];
        state_[0] ^= state_[3];
        state_[2] ^= t;
        state_[3] = rotl(state_[3], 45);
        return result;
    }

    std::uint64_t state_[4];
};

// "12,5" or "12": the start, or 0 when it doesn't read, and the count, or 1 when it is missing
// or doesn't read.
void readRange(std::string_view range, int& start, int& count) {
    const HunkRange read = readHunkRange(range);
    start = read.start.value_or(0);
    count = read.count.value_or(1);
}

// The next newline at or after `from`, or `end`. Diff lines are short, so an inline scan of
// sixteen bytes at a time beats a call to memchr for every line.
const char* findNewline(const char* from, const char* end) {
#if defined(__SSE2__)
    const __m128i newline = _mm_set1_epi8('\n');
    for (; end - from >= 16; from += 16) {
        const __m128i chunk = _mm_loadu_si128(reinterpret_cast<const __m128i*>(from));
        if (const int mask = _mm_movemask_epi8(_mm_cmpeq_epi8(chunk, newline)))
            return from + __builtin_ctz(static_cast<unsigned>(mask));
    }
#endif
    while (from < end && *from != '\n')
        ++from;
    return from;
}

int raised(int number) {
    return number < INT_MAX ? number + 1 : number;
}

} // namespace

namespace detail {

class DiffReader {
  public:
    // The text that the lines read next lie in.
    void setText(std::shared_ptr<const std::string> text) { text_ = std::move(text); }

    DiffResult finish() {
        closeFile();
        DiffResult result;
        result.id = mint_.next();
        files_.shrink_to_fit();
        result.files = std::move(files_);
        return result;
    }

    void read(std::string_view line) {
        if (line.starts_with("diff --git ")) {
            startFile(line.substr(11));
        } else if (inHunk_) {
            readHunkLine(line);
        } else {
            readHeaderLine(line);
        }
    }

  private:
    void startFile(std::string_view paths) {
        closeFile();
        file_ = FileDiff{};
        seenOldMode_ = seenNewMode_ = false;
        inFile_ = true;
        inHunk_ = false;
        // Searched from the end, so that a blank in the old path doesn't split it.
        if (const auto separator = paths.rfind(" b/"); separator != std::string_view::npos) {
            std::string_view left = paths.substr(0, separator);
            if (left.starts_with("a/"))
                left.remove_prefix(2);
            file_.oldPath = left;
            file_.newPath = paths.substr(separator + 3);
        }
    }

    void readHunkLine(std::string_view line) {
        if (line.empty())
            return;
        switch (line.front()) {
        case '@':
            if (line.starts_with("@@ ")) {
                closeHunk();
                startHunk(line);
            }
            return;
        case '\\':
            addLine(DiffLineType::noNewlineAtEnd, line, std::nullopt, std::nullopt);
            return;
        case ' ':
            addLine(DiffLineType::context, line.substr(1), oldNumber_, newNumber_);
            oldNumber_ = raised(oldNumber_);
            newNumber_ = raised(newNumber_);
            return;
        case '+':
            addLine(DiffLineType::addition, line.substr(1), std::nullopt, newNumber_);
            newNumber_ = raised(newNumber_);
            file_.additions = raised(file_.additions);
            return;
        case '-':
            addLine(DiffLineType::deletion, line.substr(1), oldNumber_, std::nullopt);
            oldNumber_ = raised(oldNumber_);
            file_.deletions = raised(file_.deletions);
            return;
        default:
            return;
        }
    }

    // Built in place in the buffer: this runs once for every line of the text.
    void addLine(DiffLineType type, std::string_view content, std::optional<int> oldNumber,
                 std::optional<int> newNumber) {
        DiffLine& line = lines_.emplace_back();
        line.id = mint_.next();
        line.type = type;
        line.content = slice(content);
        line.oldLineNumber = oldNumber;
        line.newLineNumber = newNumber;
    }

    // Between "diff --git" and the first hunk; text before the first file falls in here too.
    void readHeaderLine(std::string_view line) {
        std::string_view rest;
        auto take = [&](std::string_view prefix) {
            if (!line.starts_with(prefix))
                return false;
            rest = line.substr(prefix.size());
            return true;
        };
        if (take("@@ ")) {
            startHunk(line);
        } else if (take("--- ")) {
            if (rest == "/dev/null") {
                file_.oldPath.clear();
                if (file_.status == DiffStatus::modified)
                    file_.status = DiffStatus::added;
            } else {
                file_.oldPath = rest.starts_with("a/") ? rest.substr(2) : rest;
            }
        } else if (take("+++ ")) {
            if (rest == "/dev/null") {
                file_.newPath.clear();
                if (file_.status == DiffStatus::modified)
                    file_.status = DiffStatus::deleted;
            } else {
                file_.newPath = rest.starts_with("b/") ? rest.substr(2) : rest;
            }
        } else if (take("old mode ") || take("new mode ")) {
            (line[0] == 'o' ? seenOldMode_ : seenNewMode_) = true;
            // A pure permission change is reported as a type change, on purpose.
            if (seenOldMode_ && seenNewMode_)
                file_.status = DiffStatus::typeChanged;
        } else if (take("deleted file mode ")) {
            seenOldMode_ = true;
            file_.status = DiffStatus::deleted;
        } else if (take("new file mode ")) {
            seenNewMode_ = true;
            file_.status = DiffStatus::added;
        } else if (take("rename from ")) {
            file_.oldPath = rest;
            file_.status = DiffStatus::renamed;
        } else if (take("rename to ")) {
            file_.newPath = rest;
            file_.status = DiffStatus::renamed;
        } else if (take("copy from ")) {
            file_.oldPath = rest;
            file_.status = DiffStatus::copied;
        } else if (take("copy to ")) {
            file_.newPath = rest;
            file_.status = DiffStatus::copied;
        } else if (line.starts_with("Binary files ")) {
            file_.isBinary = true;
        }
        // Anything else ("index ", "similarity index ", a commit header...) is skipped.
    }

    TextSlice slice(std::string_view part) const {
        const auto offset = static_cast<std::size_t>(part.data() - text_->data());
        // Offsets are 32-bit; a line beyond 4 GiB of text gets bytes of its own.
        if (offset + part.size() > UINT32_MAX)
            return TextSlice(part);
        return TextSlice(text_, offset, part.size());
    }

    // `header` is the whole "@@ " line.
    void startHunk(std::string_view header) {
        hunk_ = DiffHunk{};
        lines_.clear();
        inHunk_ = true;
        std::string_view text = header.substr(3);
        std::string_view ranges = text;
        if (const auto end = text.find(" @@"); end != std::string_view::npos) {
            ranges = text.substr(0, end);
            if (std::string section = trimmedBlanks(text.substr(end + 3)); !section.empty())
                hunk_.sectionHeader = std::move(section);
        }
        while (!ranges.empty()) {
            const auto blank = ranges.find(' ');
            const std::string_view piece = ranges.substr(0, blank);
            ranges = blank == std::string_view::npos ? std::string_view() : ranges.substr(blank + 1);
            if (piece.starts_with('-')) {
                readRange(piece.substr(1), hunk_.oldStart, hunk_.oldCount);
                oldNumber_ = hunk_.oldStart;
            } else if (piece.starts_with('+')) {
                readRange(piece.substr(1), hunk_.newStart, hunk_.newCount);
                newNumber_ = hunk_.newStart;
            }
        }
    }

    void closeHunk() {
        if (!inHunk_)
            return;
        inHunk_ = false;
        hunk_.id = mint_.next();
        // The lines gather in a buffer that keeps its capacity; each hunk gets an exact copy, so
        // that a large diff carries no growth slack.
        hunk_.lines.assign(std::make_move_iterator(lines_.begin()), std::make_move_iterator(lines_.end()));
        lines_.clear();
        hunks_.push_back(std::move(hunk_));
    }

    void closeFile() {
        closeHunk();
        if (!inFile_) {
            hunks_.clear();
            return;
        }
        inFile_ = false;
        file_.id = mint_.next();
        file_.hunks.assign(std::make_move_iterator(hunks_.begin()), std::make_move_iterator(hunks_.end()));
        hunks_.clear();
        files_.push_back(std::move(file_));
    }

    std::shared_ptr<const std::string> text_;
    UuidMint mint_;
    bool inFile_ = false;
    bool inHunk_ = false;
    FileDiff file_;
    bool seenOldMode_ = false;
    bool seenNewMode_ = false;
    DiffHunk hunk_;
    int oldNumber_ = 0;
    int newNumber_ = 0;
    std::vector<DiffLine> lines_;
    std::vector<DiffHunk> hunks_;
    std::vector<FileDiff> files_;
};

} // namespace detail

DiffResult parseDiff(std::string output) {
    qCDebug(lcParser, "parseDiff: %ld chars", static_cast<long>(output.size()));
    const auto text = std::make_shared<const std::string>(std::move(output));
    detail::DiffReader reader;
    reader.setText(text);
    const char* cursor = text->data();
    const char* const end = cursor + text->size();
    while (cursor < end) {
        const char* lineEnd = findNewline(cursor, end);
        reader.read(std::string_view(cursor, static_cast<std::size_t>(lineEnd - cursor)));
        cursor = lineEnd + 1;
    }
    DiffResult result = reader.finish();
    qCDebug(lcParser, "parseDiff: %ld files", static_cast<long>(result.files.size()));
    return result;
}

namespace {

// Blocks start small, since most diffs are, and double up to this size.
constexpr std::size_t firstBlock = 64 * 1024;
constexpr std::size_t largestBlock = 8 * 1024 * 1024;

} // namespace

DiffStreamParser::DiffStreamParser()
    : reader_(std::make_unique<detail::DiffReader>()), nextCapacity_(firstBlock) {}

DiffStreamParser::~DiffStreamParser() = default;

void DiffStreamParser::append(std::string_view bytes) {
    if (!block_ || block_->capacity() - block_->size() < bytes.size())
        startBlock(bytes.size());
    block_->append(bytes); // within the capacity: earlier lines keep their place
    readLines(false);
}

void DiffStreamParser::startBlock(std::size_t incoming) {
    const std::string_view unread = block_ ? std::string_view(*block_).substr(read_) : std::string_view();
    auto block = std::make_shared<std::string>();
    block->reserve(std::max(nextCapacity_, 2 * (unread.size() + incoming)));
    block->append(unread);
    nextCapacity_ = std::min(nextCapacity_ * 2, largestBlock);
    scanned_ -= read_;
    read_ = 0;
    block_ = std::move(block);
    reader_->setText(block_);
}

void DiffStreamParser::readLines(bool atEnd) {
    const char* const data = block_->data();
    const char* const end = data + block_->size();
    const char* cursor = data + read_;
    const char* from = data + std::max(read_, scanned_);
    while (cursor < end) {
        const char* lineEnd = findNewline(from, end);
        if (lineEnd == end && !atEnd) {
            scanned_ = block_->size();
            break;
        }
        reader_->read(std::string_view(cursor, static_cast<std::size_t>(lineEnd - cursor)));
        cursor = from = lineEnd + 1;
    }
    read_ = std::min(static_cast<std::size_t>(cursor - data), block_->size());
    scanned_ = std::max(scanned_, read_);
}

DiffResult DiffStreamParser::finish() {
    if (block_)
        readLines(true);
    DiffResult result = reader_->finish();
    qCDebug(lcParser, "parseDiff: %ld files", static_cast<long>(result.files.size()));
    return result;
}

std::vector<FileChange> parseNameStatus(std::string_view output) {
    std::vector<FileChange> changes;
    for (const std::string_view line : splitLines(output)) {
        std::string_view fields[3];
        std::size_t count = 0;
        for (std::size_t start = 0; start < line.size() && count < 3;) {
            auto tab = line.find('\t', start);
            if (tab == std::string_view::npos)
                tab = line.size();
            if (tab > start)
                fields[count++] = line.substr(start, tab - start);
            start = tab + 1;
        }
        if (count < 2)
            continue;
        FileChange change;
        const char letter = fields[0].front();
        if ((letter == 'R' || letter == 'C') && count > 2) {
            change.originalPath = std::string(fields[1]);
            change.path = fields[2];
        } else {
            change.path = fields[1];
        }
        TrackedStatus index = trackedStatusFromCode(letter);
        if (index == TrackedStatus::unmodified)
            index = TrackedStatus::modified;
        change.status = FileStatusKind::tracked(index, TrackedStatus::unmodified);
        changes.push_back(std::move(change));
    }
    return changes;
}

} // namespace orvel::GitOutputParser
