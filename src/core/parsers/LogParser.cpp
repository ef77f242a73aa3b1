#include "core/parsers/LogParser.h"

#include "core/support/Log.h"

#include <QRandomGenerator>
#include <QUuid>

#include <algorithm>
#include <array>
#include <random>

namespace orvel::GitOutputParser {

namespace {

constexpr char graphFieldSeparator = '\x1f';
constexpr char historyRecordStart = '\x01';
constexpr char historyFieldSeparator = '\0';
constexpr std::size_t graphFieldCount = 7;
constexpr std::size_t historyFieldCount = 14;

std::string_view trimmedView(std::string_view text, std::string_view characters) {
    const auto first = text.find_first_not_of(characters);
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(characters) - first + 1);
}

// Calls `visit` with every piece of `text` between `separator`s, empty ones included, until
// `visit` answers false.
template <typename Visit>
void forEachPiece(std::string_view text, char separator, Visit&& visit) {
    std::size_t start = 0;
    while (true) {
        const std::size_t end = text.find(separator, start);
        if (!visit(text.substr(start, end == std::string_view::npos ? std::string_view::npos : end - start)))
            return;
        if (end == std::string_view::npos)
            return;
        start = end + 1;
    }
}

// Splits `text` on `separator` into at most N fields; answers how many there were in all, which
// may exceed N (the surplus is not kept).
template <std::size_t N>
std::size_t splitFields(std::string_view text, char separator, std::array<std::string_view, N>& fields) {
    std::size_t count = 0;
    forEachPiece(text, separator, [&](std::string_view piece) {
        if (count < N)
            fields[count] = piece;
        ++count;
        return count <= N; // one more than N is enough to know the record is complete
    });
    return count;
}

// The pieces of `text` between `separator` runs, empty ones dropped.
std::vector<std::string> nonEmptyPieces(std::string_view text, std::string_view separator) {
    std::vector<std::string> pieces;
    std::size_t start = 0;
    const std::size_t width = separator.size();
    while (start <= text.size()) {
        std::size_t end = text.find(separator, start);
        if (end == std::string_view::npos)
            end = text.size();
        if (end > start)
            pieces.emplace_back(text.substr(start, end - start));
        start = end + width;
    }
    return pieces;
}

// "a/b" with a non-empty "a" before the first slash that has text in front of it and a
// non-empty rest: the first part names a remote when it is one.
bool namesRemoteBranch(std::string_view item, const RemoteNameSet& remoteNames) {
    const std::size_t start = item.find_first_not_of('/');
    if (start == std::string_view::npos)
        return false;
    const std::size_t slash = item.find('/', start);
    if (slash == std::string_view::npos || slash + 1 >= item.size())
        return false;
    return remoteNames.contains(item.substr(start, slash - start));
}

void readDecorations(std::string_view decorations, const RemoteNameSet& remoteNames, GraphCommit& commit) {
    constexpr std::string_view headPointer = "HEAD -> ";
    constexpr std::string_view tagPrefix = "tag: ";
    std::size_t start = 0;
    while (start <= decorations.size()) {
        std::size_t end = decorations.find(", ", start);
        if (end == std::string_view::npos)
            end = decorations.size();
        const std::string_view item = trimmedView(decorations.substr(start, end - start), " \t");
        start = end + 2;
        if (item.empty())
            continue;
        if (item.starts_with(headPointer)) {
            commit.refs.push_back(
                {std::string(item.substr(headPointer.size())), GraphRefType::localBranch, true});
            commit.isHead = true;
        } else if (item == "HEAD") {
            commit.isHead = true; // a detached HEAD gets no ref of its own
        } else if (item.starts_with(tagPrefix)) {
            commit.refs.push_back({std::string(item.substr(tagPrefix.size())), GraphRefType::tag, false});
        } else {
            const GraphRefType type =
                namesRemoteBranch(item, remoteNames) ? GraphRefType::remoteBranch : GraphRefType::localBranch;
            commit.refs.push_back({std::string(item), type, false});
        }
    }
}

// A random (version 4) UUID. Asking the system for randomness per commit would cost a system call
// each, which dominates a long log; a generator seeded once per thread from it does as well.
QUuid freshAuthorId() {
    thread_local std::mt19937_64 generator(QRandomGenerator::system()->generate64());
    const std::uint64_t high = generator();
    const std::uint64_t low = generator();
    return QUuid(static_cast<uint>(high >> 32), static_cast<ushort>(high >> 16),
                 static_cast<ushort>((high & 0x0fff) | 0x4000),
                 static_cast<uchar>(((low >> 56) & 0x3f) | 0x80), static_cast<uchar>(low >> 48),
                 static_cast<uchar>(low >> 40), static_cast<uchar>(low >> 32), static_cast<uchar>(low >> 24),
                 static_cast<uchar>(low >> 16), static_cast<uchar>(low >> 8), static_cast<uchar>(low));
}

bool isHistoryHash(std::string_view hash) {
    return hash.size() >= 7 && hash.size() <= 64 && std::all_of(hash.begin(), hash.end(), [](char c) {
               return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
           });
}

} // namespace

std::vector<GraphCommit> parseCommitGraph(std::string_view output, const RemoteNameSet& remoteNames) {
    qCDebug(lcParser, "parseCommitGraph: %ld chars", static_cast<long>(output.size()));
    std::vector<GraphCommit> commits;
    if (output.empty())
        return commits;
    commits.reserve(static_cast<std::size_t>(std::count(output.begin(), output.end(), graphRecordEnd)) + 1);
    forEachPiece(output, graphRecordEnd, [&](std::string_view piece) {
        const std::string_view record = trimmedView(piece, " \t\n\r\v\f");
        std::array<std::string_view, graphFieldCount> fields;
        if (record.empty() || splitFields(record, graphFieldSeparator, fields) < graphFieldCount ||
            fields[0].empty())
            return true;
        GraphCommit commit;
        commit.hash = fields[0];
        commit.parentHashes = nonEmptyPieces(fields[1], " ");
        commit.date = readIsoDateOrDistantPast(fields[4]);
        commit.authors.push_back(
            {freshAuthorId(), std::string(fields[2]), std::string(fields[3]), std::nullopt, commit.date});
        commit.subject = fields[5];
        if (!fields[6].empty())
            readDecorations(fields[6], remoteNames, commit);
        commits.push_back(std::move(commit));
        return true;
    });
    qCDebug(lcParser, "parseCommitGraph: %ld commits", static_cast<long>(commits.size()));
    return commits;
}

std::vector<CommitEntry> parseCommitHistory(std::string_view output) {
    qCDebug(lcParser, "parseCommitHistory: %ld chars", static_cast<long>(output.size()));
    std::vector<CommitEntry> entries;
    if (output.empty())
        return entries;
    forEachPiece(output, historyRecordStart, [&](std::string_view piece) {
        const std::string_view record = trimmedView(piece, "\n\r\v\f");
        std::array<std::string_view, historyFieldCount> fields;
        if (record.empty() || splitFields(record, historyFieldSeparator, fields) < historyFieldCount ||
            !isHistoryHash(fields[0]))
            return true;
        CommitEntry entry;
        entry.hash = fields[0];
        entry.abbreviatedHash = fields[1];
        entry.parentHashes = nonEmptyPieces(fields[2], " ");
        entry.authorName = fields[3];
        entry.authorEmail = fields[4];
        entry.authorDate = readIsoDateOrDistantPast(fields[5]);
        entry.subject = fields[9];
        entry.body = fields[10];
        entry.refs = nonEmptyPieces(fields[11], ", ");
        entries.push_back(std::move(entry));
        return true;
    });
    qCDebug(lcParser, "parseCommitHistory: %ld commits", static_cast<long>(entries.size()));
    return entries;
}

} // namespace orvel::GitOutputParser
