#include "core/commands/HunkCommands.h"

#include "core/service/GitServiceError.h"
#include "core/support/AtomicFile.h"
#include "core/support/PrivateFiles.h"

#include <string>

namespace orvel::HunkCommands {

namespace {

using Arguments = GitExecutorProtocol::Arguments;

// Writes `patch` to a private temporary file and runs `apply` with its path appended.
void applyPatch(GitExecutorProtocol& git, const std::string& repoPath, const std::string& patch,
                Arguments apply) {
    // The patch file goes away when this block ends, however it ends.
    TemporaryFiles files;
    const std::string patchFile = files.add(uniqueTemporaryPath("orvel_hunk_", ".patch"));
    writePrivateFileAtomically(patchFile, patch);
    apply.push_back(patchFile);
    git.execute(apply, repoPath);
}

// Re-reads the file's diff with `reread`, cuts the hunk out and applies it. The whole of it runs
// inside one block of the repository's queue.
void applyHunk(GitExecutorProtocol& git, const std::string& repoPath, const Arguments& reread,
               Arguments apply, const DiffHunk& hunk) {
    const std::string rawDiff = git.execute(reread, repoPath);
    const std::string patch = extractHunkPatch(rawDiff, hunk);
    if (patch.empty())
        throw GitServiceError::parseFailed(
            "apply", "target hunk not found \u2014 file may have changed since you viewed the diff");
    applyPatch(git, repoPath, patch, std::move(apply));
}

// The re-read of the chosen lines' file: `arguments`, then its paths behind "--". The prefixes
// are the ones `git apply` strips, whatever the person's configuration chose to print.
Arguments rereadOf(Arguments arguments, const FileChange& file) {
    arguments.push_back("--src-prefix=a/");
    arguments.push_back("--dst-prefix=b/");
    arguments.push_back("--");
    arguments.push_back(file.path);
    if (file.originalPath && *file.originalPath != file.path)
        arguments.push_back(*file.originalPath);
    return arguments;
}

// Returns what it applied.
LinePatch applyLines(GitExecutorProtocol& git, const std::string& repoPath, const Arguments& reread,
                     Arguments apply, const std::vector<HunkLines>& lines, PatchDirection direction) {
    const std::string rawDiff = git.execute(reread, repoPath);
    LinePatch patch = buildLinePatch(rawDiff, lines, direction);
    if (patch.text.empty())
        throw GitServiceError::parseFailed(
            "apply", "chosen lines not found \u2014 file may have changed since you viewed the diff");
    applyPatch(git, repoPath, patch.text, std::move(apply));
    return patch;
}

} // namespace

void stageHunk(GitExecutorProtocol& git, const std::string& repoPath, const std::string& file,
               const DiffHunk& hunk) {
    applyHunk(git, repoPath, {"diff", "--", file}, {"apply", "--cached", "--whitespace=nowarn"}, hunk);
}

void unstageHunk(GitExecutorProtocol& git, const std::string& repoPath, const std::string& file,
                 const DiffHunk& hunk) {
    applyHunk(git, repoPath, {"diff", "--cached", "--", file},
              {"apply", "--cached", "--reverse", "--whitespace=nowarn"}, hunk);
}

void discardHunk(GitExecutorProtocol& git, const std::string& repoPath, const std::string& file,
                 const DiffHunk& hunk) {
    applyHunk(git, repoPath, {"diff", "--", file}, {"apply", "--reverse", "--whitespace=nowarn"}, hunk);
}

void stageLines(GitExecutorProtocol& git, const std::string& repoPath, const FileChange& file,
                const std::vector<HunkLines>& lines) {
    applyLines(git, repoPath, rereadOf({"diff"}, file), {"apply", "--cached", "--whitespace=nowarn"}, lines,
               PatchDirection::forward);
}

void unstageLines(GitExecutorProtocol& git, const std::string& repoPath, const FileChange& file,
                  const std::vector<HunkLines>& lines) {
    applyLines(git, repoPath, rereadOf({"diff", "--cached"}, file),
               {"apply", "--cached", "--reverse", "--whitespace=nowarn"}, lines, PatchDirection::reverse);
}

void discardLines(GitExecutorProtocol& git, const std::string& repoPath, const FileChange& file,
                  const std::vector<HunkLines>& lines) {
    const LinePatch patch =
        applyLines(git, repoPath, rereadOf({"diff"}, file), {"apply", "--reverse", "--whitespace=nowarn"},
                   lines, PatchDirection::reverse);
    // git's diff shows a whole new file only while the index holds no more than the intent to add
    // it (`add -N`): with every line discarded the file is gone, and that intent goes with it, so
    // nothing is left of the file, as after discarding it whole.
    if (patch.removesFile)
        git.execute({"update-index", "--remove", "--", file.path}, repoPath);
}

} // namespace orvel::HunkCommands
