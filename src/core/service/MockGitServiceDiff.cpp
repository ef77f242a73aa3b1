// The diff operations of the in-memory service: canned diffs made by the real parser from sample
// text, and hunk actions that move hunks between the canned unstaged and staged diffs.
#include "core/service/MockGitService.h"

#include "core/parsers/DiffParser.h"
#include "core/service/GitServiceError.h"

#include <algorithm>

namespace orvel {

namespace {

FileDiff* findFile(DiffResult& diff, const std::string& path) {
    for (auto& file : diff.files) {
        if (file.newPath == path || (file.newPath.empty() && file.oldPath == path))
            return &file;
    }
    return nullptr;
}

void recount(FileDiff& file) {
    file.additions = file.deletions = 0;
    for (const auto& hunk : file.hunks) {
        for (const auto& line : hunk.lines) {
            file.additions += line.type == DiffLineType::addition;
            file.deletions += line.type == DiffLineType::deletion;
        }
    }
}

// Takes the hunk with `hunk`'s four numbers out of `path` in `from`; fails as the real service
// does when it isn't there. A file left without hunks leaves the diff.
DiffHunk takeHunk(DiffResult& from, const std::string& path, const DiffHunk& hunk) {
    FileDiff* file = findFile(from, path);
    auto sameNumbers = [&](const DiffHunk& candidate) {
        return candidate.oldStart == hunk.oldStart && candidate.oldCount == hunk.oldCount &&
               candidate.newStart == hunk.newStart && candidate.newCount == hunk.newCount;
    };
    const auto found = file ? std::find_if(file->hunks.begin(), file->hunks.end(), sameNumbers)
                            : std::vector<DiffHunk>::iterator();
    if (!file || found == file->hunks.end())
        throw GitServiceError::parseFailed(
            "apply", "target hunk not found \u2014 file may have changed since you viewed the diff");
    DiffHunk taken = std::move(*found);
    file->hunks.erase(found);
    recount(*file);
    if (file->hunks.empty())
        from.files.erase(from.files.begin() + (file - from.files.data()));
    return taken;
}

void putHunk(DiffResult& into, const std::string& path, DiffHunk hunk) {
    FileDiff* file = findFile(into, path);
    if (!file) {
        FileDiff added;
        added.id = QUuid::createUuid();
        added.oldPath = added.newPath = path;
        into.files.push_back(std::move(added));
        file = &into.files.back();
    }
    const auto position = std::find_if(file->hunks.begin(), file->hunks.end(),
                                       [&](const DiffHunk& other) { return other.oldStart > hunk.oldStart; });
    file->hunks.insert(position, std::move(hunk));
    recount(*file);
}

} // namespace

// The canned records are returned as explicit copies: QCoro's return_value moves from an lvalue
// it is given, which would empty the fields at the first call.
DiffResult MockGitService::sampleUnstagedDiff() {
    return GitOutputParser::parseDiff("diff --git a/src/main.cpp b/src/main.cpp\n"
                                      "index 3b18e51..a0b1c2d 100644\n"
                                      "--- a/src/main.cpp\n"
                                      "+++ b/src/main.cpp\n"
                                      "@@ -1,4 +1,5 @@\n"
                                      " #include <cstdio>\n"
                                      "+#include <cstdlib>\n"
                                      " \n"
                                      " int main() {\n"
                                      "     std::puts(\"hello\");\n"
                                      "@@ -9,3 +10,3 @@ int main() {\n"
                                      "     }\n"
                                      "-    return 0;\n"
                                      "+    return EXIT_SUCCESS;\n"
                                      " }\n");
}

DiffResult MockGitService::sampleStagedDiff() {
    return GitOutputParser::parseDiff("diff --git a/README.md b/README.md\n"
                                      "index 8c1d2e3..4f5a6b7 100644\n"
                                      "--- a/README.md\n"
                                      "+++ b/README.md\n"
                                      "@@ -1,2 +1,3 @@\n"
                                      " # Sample\n"
                                      "+\n"
                                      "+A small sample project.\n");
}

DiffResult MockGitService::sampleHistoryDiff() {
    return GitOutputParser::parseDiff("diff --git a/docs/guide.md b/docs/guide.md\n"
                                      "new file mode 100644\n"
                                      "index 0000000..e69de29\n"
                                      "--- /dev/null\n"
                                      "+++ b/docs/guide.md\n"
                                      "@@ -0,0 +1,2 @@\n"
                                      "+# Guide\n"
                                      "+Start with the README.\n"
                                      "diff --git a/notes.txt b/docs/notes.txt\n"
                                      "similarity index 100%\n"
                                      "rename from notes.txt\n"
                                      "rename to docs/notes.txt\n");
}

std::vector<FileChange> MockGitService::sampleCommitFiles() {
    return GitOutputParser::parseNameStatus("A\tdocs/guide.md\nR100\tnotes.txt\tdocs/notes.txt\n");
}

QCoro::Task<void> MockGitService::stageHunk(RepoEntry, std::string path, DiffHunk hunk, std::stop_token) {
    putHunk(stagedDiff, path, takeHunk(unstagedDiff, path, hunk));
    co_return;
}

QCoro::Task<void> MockGitService::unstageHunk(RepoEntry, std::string path, DiffHunk hunk, std::stop_token) {
    putHunk(unstagedDiff, path, takeHunk(stagedDiff, path, hunk));
    co_return;
}

QCoro::Task<void> MockGitService::discardHunk(RepoEntry, std::string path, DiffHunk hunk, std::stop_token) {
    takeHunk(unstagedDiff, path, hunk);
    co_return;
}

// The canned diffs hold no file contents to cut lines from: a line action moves or drops the
// whole hunks that hold the chosen lines, and fails as the real service does when one isn't there.
QCoro::Task<void> MockGitService::stageLines(RepoEntry, FileChange file, std::vector<HunkLines> lines,
                                             std::stop_token) {
    for (const HunkLines& chosen : lines)
        putHunk(stagedDiff, file.path, takeHunk(unstagedDiff, file.path, chosen.hunk));
    co_return;
}

QCoro::Task<void> MockGitService::unstageLines(RepoEntry, FileChange file, std::vector<HunkLines> lines,
                                               std::stop_token) {
    for (const HunkLines& chosen : lines)
        putHunk(unstagedDiff, file.path, takeHunk(stagedDiff, file.path, chosen.hunk));
    co_return;
}

QCoro::Task<void> MockGitService::discardLines(RepoEntry, FileChange file, std::vector<HunkLines> lines,
                                               std::stop_token) {
    for (const HunkLines& chosen : lines)
        takeHunk(unstagedDiff, file.path, chosen.hunk);
    co_return;
}

QCoro::Task<DiffResult> MockGitService::diff(RepoEntry, DiffContext context, std::optional<int>,
                                             std::stop_token) {
    switch (context.kind) {
    case DiffContext::Case::unstaged:
        co_return DiffResult(unstagedDiff);
    case DiffContext::Case::staged:
        co_return DiffResult(stagedDiff);
    case DiffContext::Case::commit:
    case DiffContext::Case::stash:
    case DiffContext::Case::commitRange:
        break;
    }
    co_return DiffResult(historyDiff);
}

QCoro::Task<DiffResult> MockGitService::commitDiff(RepoEntry, std::string, std::optional<int>,
                                                   std::stop_token) {
    co_return DiffResult(historyDiff);
}

QCoro::Task<std::vector<FileChange>> MockGitService::commitFileChanges(RepoEntry, std::string,
                                                                       std::stop_token) {
    co_return std::vector<FileChange>(commitFiles);
}

} // namespace orvel
