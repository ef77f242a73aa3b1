#include "core/commands/HunkCommands.h"

#include "core/service/GitServiceError.h"
#include "core/support/AtomicFile.h"
#include "core/support/PrivateFiles.h"

#include <string>

namespace orvel::HunkCommands {

namespace {

using Arguments = GitExecutorProtocol::Arguments;

// Re-reads the file's diff with `reread`, cuts the hunk out and runs `apply` with the patch
// file appended. The whole of it runs inside one block of the repository's queue.
void applyHunk(GitExecutorProtocol& git, const std::string& repoPath, const Arguments& reread,
               Arguments apply, const DiffHunk& hunk) {
    const std::string rawDiff = git.execute(reread, repoPath);
    const std::string patch = extractHunkPatch(rawDiff, hunk);
    if (patch.empty())
        throw GitServiceError::parseFailed(
            "apply", "target hunk not found \u2014 file may have changed since you viewed the diff");
    // The patch file goes away when this block ends, however it ends.
    TemporaryFiles files;
    const std::string patchFile = files.add(uniqueTemporaryPath("orvel_hunk_", ".patch"));
    writePrivateFileAtomically(patchFile, patch);
    apply.push_back(patchFile);
    git.execute(apply, repoPath);
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

} // namespace orvel::HunkCommands
