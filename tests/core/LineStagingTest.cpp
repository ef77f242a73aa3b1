// Line staging on real repositories: chosen lines staged, unstaged and discarded at the edges of a
// file, without a final newline, in CRLF files, across hunks, in a rename and under a path that is
// not UTF-8, and every line of a new or deleted file, which adds or removes the file as a whole;
// refused when the file changed after it was shown. Generated changes check the patch
// builder against git itself.
#include "RealGitService.h"

#include "core/commands/LinePatch.h"
#include "core/parsers/DiffParser.h"
#include "core/service/GitServiceError.h"
#include "support/Await.h"
#include "support/PrivateTemporaryDirectory.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <optional>
#include <random>
#include <set>

namespace orvel {
namespace {

using HunkCommands::buildLinePatch;
using HunkCommands::PatchDirection;
using test::await;
using test::RealGitService;

enum class Action { stage, unstage, discard };

// The additions and deletions of `file` whose marker and text are among `wanted` ("+new", "-old").
std::vector<HunkLines> choose(const FileDiff& file, const std::set<std::string>& wanted) {
    std::vector<HunkLines> chosen;
    for (const DiffHunk& hunk : file.hunks) {
        HunkLines lines{hunk, {}};
        for (std::size_t i = 0; i < hunk.lines.size(); ++i) {
            const DiffLine& line = hunk.lines[i];
            const char sign = line.type == DiffLineType::addition   ? '+'
                              : line.type == DiffLineType::deletion ? '-'
                                                                    : ' ';
            if (wanted.contains(sign + line.content.str()))
                lines.lines.push_back(int(i));
        }
        if (!lines.lines.empty())
            chosen.push_back(std::move(lines));
    }
    return chosen;
}

class LineStaging : public test::PrivateTemporaryDirectoryTest {
  protected:
    ~LineStaging() override { test::drainQueue(*real.runner); }

    RepoEntry entry() const { return RealGitService::repoAt(repo.path()); }
    FileDiff diffOf(const std::string& path, bool staged) {
        auto result = await(real.service.diff(
            entry(), staged ? DiffContext::staged() : DiffContext::unstaged(), std::nullopt));
        EXPECT_EQ(result.files.size(), 1u) << path;
        return result.files.empty() ? FileDiff() : result.files.front();
    }
    void run(Action action, const FileChange& file, std::vector<HunkLines> lines) {
        switch (action) {
        case Action::stage:
            await(real.service.stageLines(entry(), file, std::move(lines)));
            break;
        case Action::unstage:
            await(real.service.unstageLines(entry(), file, std::move(lines)));
            break;
        case Action::discard:
            await(real.service.discardLines(entry(), file, std::move(lines)));
            break;
        }
    }
    std::string indexOf(const std::string& path) const { return repo.git({"show", ":" + path}); }
    // The file's text in the index or the working tree; none where there is no such file.
    std::optional<std::string> indexed(const std::string& path) const {
        if (repo.git({"ls-files", "--", path}).empty())
            return std::nullopt;
        return indexOf(path);
    }
    std::optional<std::string> onDisk(const std::string& path) const {
        if (!std::filesystem::exists(repo / path))
            return std::nullopt;
        return repo.read(path);
    }

    test::TempRepo repo;
    RealGitService real;
};

std::string rows(int from, int to) {
    std::string text;
    for (int n = from; n <= to; ++n)
        text += "row " + std::to_string(n) + "\n";
    return text;
}

TEST_F(LineStaging, OnlyTheChosenLinesChange) {
    struct Outcome {
        Action action;
        std::set<std::string> chosen;
        // The index after staging or unstaging, the worktree after a discard; none: no such file.
        std::optional<std::string> expected;
        // What `git status --porcelain` then says of the file, when checked: every line of a whole
        // file leaves it as the action on the whole file does.
        const char* status = nullptr;
    };
    struct Case {
        const char* name;
        std::string path;
        // None: no such file. Unstaging stages the worktree first; a new file is otherwise only
        // announced to the index (`add -N`), which is when git's diff shows it.
        std::optional<std::string> committed, worktree;
        std::vector<Outcome> outcomes;
    };
    const std::string four = "one\ntwo\nthree\nfour\n";
    const std::string edgesChanged = "ONE\ntwo\nthree\nfour\nfive\n";
    const std::string twoHunks = rows(1, 1) + "row two\n" + rows(3, 17) + "row eighteen\n" + rows(19, 20);
    const Action stage = Action::stage, unstage = Action::unstage, discard = Action::discard;
    const char* const actionNames[] = {"stage", "unstage", "discard"};
    const Case cases[] = {
        {"edges",
         "f.txt",
         four,
         edgesChanged,
         {{stage, {"-one", "+ONE"}, "ONE\ntwo\nthree\nfour\n"},
          {stage, {"+five"}, four + "five\n"},
          {stage, {"-one"}, "two\nthree\nfour\n"},
          {stage, {"+ONE"}, "one\nONE\ntwo\nthree\nfour\n"},
          {unstage, {"-one", "+ONE"}, four + "five\n"},
          {unstage, {"+five"}, "ONE\ntwo\nthree\nfour\n"},
          {unstage, {"-one"}, "one\nONE\ntwo\nthree\nfour\nfive\n"},
          {discard, {"-one", "+ONE"}, four + "five\n"},
          {discard, {"+five"}, "ONE\ntwo\nthree\nfour\n"}}},
        // The old last line lacks its newline; the new one gains a line after it.
        {"no newline",
         "n.txt",
         "x\ny",
         "x\ny\nz",
         {{stage, {"+z"}, "x\ny\nz"},
          {stage, {"-y", "+y"}, "x\ny\n"},
          {unstage, {"+z"}, "x\ny\n"},
          {discard, {"-y", "+y"}, "x\ny\nz"},
          {discard, {"-y"}, "x\ny\ny\nz"}}},
        {"crlf",
         "w.txt",
         "a\r\nb\r\nc\r\n",
         "a\r\nB\r\nc\r\nd\r\n",
         {{stage, {"-b\r", "+B\r"}, "a\r\nB\r\nc\r\n"},
          {unstage, {"-b\r", "+B\r"}, "a\r\nb\r\nc\r\nd\r\n"},
          {discard, {"+d\r"}, "a\r\nB\r\nc\r\n"}}},
        {"two hunks",
         "r.txt",
         rows(1, 20),
         twoHunks,
         {{stage, {"+row two", "-row 18"}, rows(1, 2) + "row two\n" + rows(3, 17) + rows(19, 20)},
          {unstage, {"+row two", "-row 18"}, rows(1, 1) + rows(3, 18) + "row eighteen\n" + rows(19, 20)},
          {discard,
           {"-row 2", "+row eighteen"},
           rows(1, 1) + "row 2\nrow two\n" + rows(3, 17) + rows(19, 20)}}},
        {"blank in the path", "with blank.txt", four, edgesChanged, {{stage, {"+five"}, four + "five\n"}}},
        {"not UTF-8",
         "caf\xe9 b.txt",
         four,
         edgesChanged,
         {{stage, {"+five"}, four + "five\n"},
          {unstage, {"+five"}, "ONE\ntwo\nthree\nfour\n"},
          {discard, {"-one", "+ONE"}, four + "five\n"}}},
        {"new file",
         "new file.txt",
         {},
         "a\nb",
         {{unstage, {"+a", "+b"}, {}, "?? \"new file.txt\"\n"},
          {stage, {"+a", "+b"}, "a\nb", "A  \"new file.txt\"\n"},
          {discard, {"+a", "+b"}, {}, ""}}},
        {"a line of a new file",
         "new file.txt",
         {},
         "a\nb\n",
         {{discard, {"+a"}, "b\n", " A \"new file.txt\"\n"}}},
        {"deleted file",
         "gone file.txt",
         "a\nb",
         {},
         {{stage, {"-a", "-b"}, {}, "D  \"gone file.txt\"\n"},
          {unstage, {"-a", "-b"}, "a\nb", " D \"gone file.txt\"\n"},
          {discard, {"-a", "-b"}, "a\nb", ""}}},
    };
    for (const Case& c : cases)
        for (const Outcome& o : c.outcomes) {
            SCOPED_TRACE(std::string(c.name) + ", " + actionNames[int(o.action)] + " " + *o.chosen.begin());
            if (c.committed) {
                repo.write(c.path, *c.committed);
                repo.commitAll(c.name);
            }
            if (c.worktree)
                repo.write(c.path, *c.worktree);
            else
                std::filesystem::remove(repo / c.path);
            const bool staged = o.action == unstage;
            if (staged)
                repo.git({"add", "--", c.path});
            else if (!c.committed)
                repo.git({"add", "-N", "--", c.path});
            FileChange file;
            file.path = c.path;
            run(o.action, file, choose(diffOf(c.path, staged), o.chosen));
            if (o.action == discard) {
                EXPECT_EQ(onDisk(c.path), o.expected);
                if (c.committed)
                    EXPECT_EQ(indexed(c.path), c.committed);
            } else {
                EXPECT_EQ(indexed(c.path), o.expected);
                EXPECT_EQ(onDisk(c.path), c.worktree);
            }
            if (o.status)
                EXPECT_EQ(repo.git({"status", "--porcelain", "--", c.path}), o.status);
            repo.git({"reset", "-q", "--hard"});
            repo.git({"clean", "-q", "-f"});
        }
}

TEST_F(LineStaging, LinesOfARenamedFileMoveWithoutUndoingTheRename) {
    repo.write("r.txt", rows(1, 5));
    repo.commitAll("rows");
    repo.git({"mv", "r.txt", "moved.txt"});
    repo.write("moved.txt", "row 1\nrow two\nrow 3\nrow four\nrow 5\n");
    repo.git({"add", "moved.txt"});
    FileChange file;
    file.path = "moved.txt";
    file.originalPath = "r.txt";

    const std::set<std::string> second{"-row 2", "+row two"};
    run(Action::unstage, file, choose(diffOf("moved.txt", true), second));
    EXPECT_EQ(indexOf("moved.txt"), "row 1\nrow 2\nrow 3\nrow four\nrow 5\n");
    EXPECT_EQ(repo.git({"diff", "--cached", "--name-status"}).substr(0, 1), "R");
    run(Action::stage, file, choose(diffOf("moved.txt", false), second));
    EXPECT_EQ(indexOf("moved.txt"), repo.read("moved.txt"));
    run(Action::unstage, file, choose(diffOf("moved.txt", true), second));
    run(Action::discard, file, choose(diffOf("moved.txt", false), second));
    EXPECT_EQ(repo.read("moved.txt"), "row 1\nrow 2\nrow 3\nrow four\nrow 5\n");
    EXPECT_EQ(indexOf("moved.txt"), repo.read("moved.txt"));
}

// Where the side a patch applies to has no file, the chosen lines make one.
TEST_F(LineStaging, LinesOfAFileMissingOnOneSide) {
    // Whatever names git prints in its diffs, the patch names the file as `git apply` reads it.
    repo.git({"config", "diff.noprefix", "true"});
    repo.write("f.txt", "one\ntwo\nthree\n");
    repo.commitAll("f");
    FileChange file;
    file.path = "f.txt";
    std::filesystem::remove(repo / "f.txt");
    run(Action::stage, file, choose(diffOf("f.txt", false), {"-two"}));
    EXPECT_EQ(indexOf("f.txt"), "one\nthree\n");
    repo.git({"reset", "-q"});
    run(Action::discard, file, choose(diffOf("f.txt", false), {"-two"}));
    EXPECT_EQ(repo.read("f.txt"), "two\n");
    EXPECT_EQ(indexOf("f.txt"), "one\ntwo\nthree\n");

    repo.git({"checkout", "-q", "--", "f.txt"});
    file.path = "new.txt";
    repo.write("new.txt", "a\nb\nc\n");
    repo.git({"add", "-N", "new.txt"});
    run(Action::stage, file, choose(diffOf("new.txt", false), {"+b"}));
    EXPECT_EQ(indexOf("new.txt"), "b\n");
    repo.git({"add", "new.txt"});
    run(Action::unstage, file, choose(diffOf("new.txt", true), {"+a", "+c"}));
    EXPECT_EQ(indexOf("new.txt"), "b\n");
    EXPECT_EQ(repo.read("new.txt"), "a\nb\nc\n");
}

TEST_F(LineStaging, AFileEditedAfterItWasShownIsRefusedAndLeftAlone) {
    const std::string changed = rows(1, 1) + "row two\n" + rows(3, 10);
    for (const Action action : {Action::stage, Action::unstage, Action::discard}) {
        repo.write("f.txt", rows(1, 10));
        repo.commitAll("rows");
        repo.write("f.txt", changed);
        const bool staged = action == Action::unstage;
        if (staged)
            repo.git({"add", "f.txt"});
        const auto chosen = choose(diffOf("f.txt", staged), {"+row two"});
        // The same hunk numbers, another text.
        repo.write("f.txt", rows(1, 1) + "row 2, edited\n" + rows(3, 10));
        if (staged)
            repo.git({"add", "f.txt"});
        const std::string index = indexOf("f.txt");
        FileChange file;
        file.path = "f.txt";
        try {
            run(action, file, chosen);
            ADD_FAILURE() << "applied to a changed file";
        } catch (const GitServiceError& error) {
            EXPECT_EQ(error.kind(), GitServiceError::Kind::parseFailed);
        }
        EXPECT_EQ(indexOf("f.txt"), index);
        EXPECT_EQ(repo.read("f.txt"), rows(1, 1) + "row 2, edited\n" + rows(3, 10));
        repo.git({"reset", "-q", "--hard"});
    }
}

// A generated file: lines from a small alphabet, so that diffs pair and repeat lines, some with a
// carriage return, the last one sometimes without a newline.
std::string generatedFile(std::mt19937& random, std::vector<std::string> lines) {
    std::string text;
    for (const std::string& line : lines)
        text += line + "\n";
    if (!text.empty() && random() % 3 == 0)
        text.pop_back();
    return text;
}

std::vector<std::string> generatedLines(std::mt19937& random) {
    static const char* alphabet[] = {"a", "b", "c", "d", "e\r", "f", "g"};
    std::vector<std::string> lines(random() % 14);
    for (auto& line : lines)
        line = alphabet[random() % 7];
    return lines;
}

std::vector<std::string> changedLines(std::mt19937& random, std::vector<std::string> lines) {
    for (int edits = int(random() % 5) + 1; edits > 0; --edits) {
        const std::size_t at = lines.empty() ? 0 : random() % (lines.size() + 1);
        switch (random() % 3) {
        case 0:
            lines.insert(lines.begin() + std::ptrdiff_t(at), "new " + std::to_string(random() % 9));
            break;
        case 1:
            if (at < lines.size())
                lines.erase(lines.begin() + std::ptrdiff_t(at));
            break;
        default:
            if (at < lines.size())
                lines[at] = "changed " + std::to_string(random() % 9);
        }
    }
    return lines;
}

struct Line {
    std::string text;
    bool newline = true;
};

std::vector<Line> linesOf(const std::string& text) {
    std::vector<Line> lines;
    for (std::size_t start = 0; start < text.size();) {
        const auto end = text.find('\n', start);
        lines.push_back({text.substr(start, end == std::string::npos ? std::string::npos : end - start),
                         end != std::string::npos});
        start = end == std::string::npos ? text.size() : end + 1;
    }
    return lines;
}

// What applying only the chosen changes to `base` gives, told line by line: the base's lines
// stay unless chosen away, the other side's lines come in where chosen, and every line but the
// last ends with a newline.
std::string expectedResult(const std::string& oldText, const std::string& newText, const FileDiff& file,
                           const std::set<std::pair<int, int>>& chosen, PatchDirection direction) {
    const bool forward = direction == PatchDirection::forward;
    const std::vector<Line> base = linesOf(forward ? oldText : newText);
    const std::vector<Line> other = linesOf(forward ? newText : oldText);
    const DiffLineType baseType = forward ? DiffLineType::deletion : DiffLineType::addition;
    std::vector<Line> result;
    int next = 1; // the next line of the base to copy
    auto copyTo = [&](int last) {
        for (; next <= last; ++next)
            result.push_back(base[std::size_t(next - 1)]);
    };
    for (std::size_t h = 0; h < file.hunks.size(); ++h) {
        const DiffHunk& hunk = file.hunks[h];
        const int start = forward ? hunk.oldStart : hunk.newStart;
        copyTo((forward ? hunk.oldCount : hunk.newCount) > 0 ? start - 1 : start);
        for (std::size_t i = 0; i < hunk.lines.size(); ++i) {
            const DiffLine& line = hunk.lines[i];
            if (line.type == DiffLineType::noNewlineAtEnd)
                continue;
            const bool picked = chosen.contains({int(h), int(i)});
            const auto baseNumber = forward ? line.oldLineNumber : line.newLineNumber;
            const auto otherNumber = forward ? line.newLineNumber : line.oldLineNumber;
            if (line.type == DiffLineType::context || (line.type == baseType && !picked))
                result.push_back(base[std::size_t(*baseNumber - 1)]);
            else if (line.type != baseType && picked)
                result.push_back(other[std::size_t(*otherNumber - 1)]);
            if (baseNumber)
                next = *baseNumber + 1;
        }
    }
    copyTo(int(base.size()));
    std::string text;
    for (std::size_t i = 0; i < result.size(); ++i)
        text += result[i].text + (result[i].newline || i + 1 < result.size() ? "\n" : "");
    return text;
}

TEST_F(LineStaging, GeneratedChoicesApplyAsGitReadsThem) {
    std::mt19937 random(20261126);
    const std::string patchFile = repo.path() + "/.git/lines.patch";
    for (int round = 0; round < 60; ++round) {
        SCOPED_TRACE(round);
        const std::vector<std::string> oldLines = generatedLines(random);
        const std::string oldText = generatedFile(random, oldLines);
        const std::string newText = generatedFile(random, changedLines(random, oldLines));
        repo.write("g.txt", oldText);
        repo.git({"add", "g.txt"});
        repo.write("g.txt", newText);
        const std::string rawDiff = repo.git({"diff", "--", "g.txt"});
        const DiffResult parsed = GitOutputParser::parseDiff(rawDiff);
        if (parsed.files.empty())
            continue;
        const FileDiff& file = parsed.files.front();
        std::vector<HunkLines> chosen;
        std::set<std::pair<int, int>> places;
        for (std::size_t h = 0; h < file.hunks.size(); ++h) {
            HunkLines lines{file.hunks[h], {}};
            for (std::size_t i = 0; i < file.hunks[h].lines.size(); ++i)
                if (file.hunks[h].lines[i].type != DiffLineType::context && random() % 2 == 0) {
                    lines.lines.push_back(int(i));
                    places.insert({int(h), int(i)});
                }
            chosen.push_back(std::move(lines));
        }
        for (const PatchDirection direction : {PatchDirection::forward, PatchDirection::reverse}) {
            const bool forward = direction == PatchDirection::forward;
            const std::string expected = expectedResult(oldText, newText, file, places, direction);
            const std::string patch = buildLinePatch(rawDiff, chosen, direction).text;
            if (patch.empty()) {
                EXPECT_EQ(expected, forward ? oldText : newText) << "nothing chosen changes the file";
                continue;
            }
            test::writeFile(patchFile, patch);
            const std::vector<std::string> apply = forward ? std::vector<std::string>{"apply", "--cached"}
                                                           : std::vector<std::string>{"apply", "--reverse"};
            auto check = apply;
            check.insert(check.begin() + 1, "--check");
            check.push_back(patchFile);
            const test::GitRun checked = repo.gitAllowingFailure(check);
            ASSERT_EQ(checked.exitCode, 0) << checked.err << "\n" << rawDiff << "\n" << patch;
            auto applied = apply;
            applied.push_back(patchFile);
            repo.git(applied);
            EXPECT_EQ(forward ? indexOf("g.txt") : repo.read("g.txt"), expected) << rawDiff << "\n" << patch;
        }
    }
}

} // namespace
} // namespace orvel
