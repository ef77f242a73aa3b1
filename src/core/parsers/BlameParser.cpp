#include "core/parsers/BlameParser.h"

#include "core/parsers/LineFields.h"
#include "core/support/Log.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>

namespace orvel::GitOutputParser {

namespace {

// What git tells about a commit (and the path it blames) in the key lines after a header.
struct CommitMeta {
    std::string authorName;
    std::string authorEmail;
    std::int64_t authorTime = 0;
    std::string authorTz = "+0000";
    std::string committerName;
    std::string committerEmail;
    std::int64_t committerTime = 0;
    std::string committerTz = "+0000";
    std::string summary;
    std::optional<std::string> previousHash;
    std::optional<std::string> previousFilename;
    std::string filename;
    bool isBoundary = false;
};

// One line of the file with its commit. `meta` indexes the parser's list of meta data versions,
// so that a line keeps the details that held when it was read.
struct RawLine {
    std::string_view hash;
    int origLine = 0;
    int finalLine = 0;
    std::string_view content;
    std::size_t meta = 0;
};

constexpr std::size_t hashLength = 40;

// Header hashes are hexadecimal object names, as good as random: their first sixteen characters
// make a hash for the dictionary that is far cheaper than hashing all forty. Equality still
// compares them whole.
struct ObjectNameHash {
    std::size_t operator()(std::string_view name) const noexcept {
        std::uint64_t value = 0;
        const std::size_t count = std::min<std::size_t>(name.size(), 16);
        for (std::size_t i = 0; i < count; ++i)
            value = (value << 4) ^ static_cast<unsigned char>(name[i]);
        return static_cast<std::size_t>(value ^ (value >> 29) ^ name.size());
    }
};

bool isHeader(std::string_view line) {
    if (line.size() <= hashLength || line[hashLength] != ' ')
        return false;
    return std::all_of(line.begin(), line.begin() + hashLength, [](char c) {
        return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
    });
}

// The blank-separated words of a header: hash, source line, final line and, on a group's first
// line, the group's size.
std::array<std::string_view, 3> headerFields(std::string_view line, std::size_t& count) {
    std::array<std::string_view, 3> fields;
    count = 0;
    std::size_t start = 0;
    while (start < line.size()) {
        std::size_t end = line.find(' ', start);
        if (end == std::string_view::npos)
            end = line.size();
        if (end > start) {
            if (count < fields.size())
                fields[count] = line.substr(start, end - start);
            ++count;
        }
        start = end + 1;
    }
    return fields;
}

std::string_view withoutAngleBrackets(std::string_view mail) {
    if (mail.starts_with('<'))
        mail.remove_prefix(1);
    if (mail.ends_with('>'))
        mail.remove_suffix(1);
    return mail;
}

void readKeyLine(std::string_view line, CommitMeta& meta) {
    const auto value = [&](std::string_view key) -> std::optional<std::string_view> {
        if (!line.starts_with(key))
            return std::nullopt;
        return line.substr(key.size());
    };
    const auto time = [](std::string_view text) { return readDecimal<std::int64_t>(text).value_or(0); };
    if (line == "boundary")
        meta.isBoundary = true;
    else if (const auto v = value("author "))
        meta.authorName = *v;
    else if (const auto v = value("author-mail "))
        meta.authorEmail = withoutAngleBrackets(*v);
    else if (const auto v = value("author-time "))
        meta.authorTime = time(*v);
    else if (const auto v = value("author-tz "))
        meta.authorTz = *v;
    else if (const auto v = value("committer "))
        meta.committerName = *v;
    else if (const auto v = value("committer-mail "))
        meta.committerEmail = withoutAngleBrackets(*v);
    else if (const auto v = value("committer-time "))
        meta.committerTime = time(*v);
    else if (const auto v = value("committer-tz "))
        meta.committerTz = *v;
    else if (const auto v = value("summary "))
        meta.summary = *v;
    else if (const auto v = value("filename "))
        meta.filename = *v;
    else if (const auto v = value("previous ")) {
        // "previous <hash> <path>": the path may hold blanks of its own.
        const auto blank = v->find(' ');
        meta.previousHash = std::string(v->substr(0, blank));
        meta.previousFilename = blank == std::string_view::npos ? std::optional<std::string>()
                                                                : std::string(v->substr(blank + 1));
    }
}

// Pass 1: every content line with its commit, its numbers and the commit's meta data as it stood.
class RawLineReader {
  public:
    explicit RawLineReader(std::string_view text) {
        lines_.reserve(static_cast<std::size_t>(text.size() / 64));
    }

    void read(std::string_view line) {
        if (isHeader(line))
            startLine(line);
        else if (line.starts_with('\t'))
            finishLine(line.substr(1));
        else if (current_)
            readKeyLine(line, editableMeta());
    }

    const std::vector<RawLine>& lines() const { return lines_; }
    const CommitMeta& meta(std::size_t index) const { return metas_[index]; }

  private:
    void startLine(std::string_view line) {
        std::size_t count = 0;
        const auto fields = headerFields(line, count);
        current_.emplace();
        current_->hash = line.substr(0, hashLength);
        if (count >= 3) {
            current_->origLine = readDecimal<int>(fields[1]).value_or(0);
            current_->finalLine = readDecimal<int>(fields[2]).value_or(0);
        }
        // git prints a commit's details only where it first appears: later headers load them.
        if (const auto known = knownMeta_.find(current_->hash); known != knownMeta_.end()) {
            current_->meta = known->second;
            pending_.reset();
        } else {
            pending_.emplace();
        }
    }

    // Key lines after a known commit's header change a copy, so lines read earlier keep theirs.
    CommitMeta& editableMeta() {
        if (!pending_)
            pending_ = metas_[current_->meta];
        return *pending_;
    }

    void finishLine(std::string_view content) {
        if (!current_)
            return; // a content line without its header has no commit
        if (pending_) {
            metas_.push_back(std::move(*pending_));
            pending_.reset();
            current_->meta = metas_.size() - 1;
            knownMeta_[current_->hash] = current_->meta;
        }
        current_->content = content;
        lines_.push_back(*current_);
        current_.reset();
    }

    std::vector<RawLine> lines_;
    std::vector<CommitMeta> metas_;
    std::unordered_map<std::string_view, std::size_t, ObjectNameHash> knownMeta_;
    std::optional<RawLine> current_;
    std::optional<CommitMeta> pending_; // meta data being read for the current line, not yet stored
};

} // namespace

std::vector<BlameEntry> parseBlame(std::string_view text) {
    qCDebug(lcParser, "parseBlame: %ld chars", static_cast<long>(text.size()));
    RawLineReader reader(text);
    forEachNonEmptyLine(text, [&](std::string_view line) { reader.read(line); });

    // Pass 2: runs of lines of one commit with consecutive final numbers. The runs are found
    // first, so that every list gets its size once instead of growing line by line.
    const std::vector<RawLine>& lines = reader.lines();
    const auto continuesRun = [&](std::size_t i) {
        return lines[i].hash == lines[i - 1].hash &&
               std::int64_t{lines[i].finalLine} == std::int64_t{lines[i - 1].finalLine} + 1;
    };
    std::size_t runCount = lines.empty() ? 0 : 1;
    for (std::size_t i = 1; i < lines.size(); ++i)
        runCount += !continuesRun(i);
    std::vector<BlameEntry> entries;
    entries.reserve(runCount);
    for (std::size_t first = 0; first < lines.size();) {
        std::size_t end = first + 1;
        while (end < lines.size() && continuesRun(end))
            ++end;
        const RawLine& line = lines[first];
        const CommitMeta& meta = reader.meta(line.meta);
        BlameEntry& entry = entries.emplace_back();
        entry.hash = line.hash;
        entry.finalLineNumber = line.finalLine;
        entry.authorName = meta.authorName;
        entry.authorDate = Instant{std::chrono::seconds{meta.authorTime}};
        entry.summary = meta.summary;
        entry.filename = meta.filename;
        entry.lines.reserve(end - first);
        for (std::size_t i = first; i < end; ++i)
            entry.lines.emplace_back(lines[i].content);
        first = end;
    }
    qCDebug(lcParser, "parseBlame: %ld entries", static_cast<long>(entries.size()));
    return entries;
}

} // namespace orvel::GitOutputParser
