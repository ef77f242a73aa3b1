#include "core/commands/InteractiveRebaseCommands.h"

#include "core/commands/ArgumentGuard.h"
#include "core/commands/RebaseStop.h"
#include "core/commands/RebaseTodo.h"
#include "core/parsers/RebaseTodoListParser.h"
#include "core/support/AtomicFile.h"
#include "core/support/PrivateFiles.h"

#include <filesystem>
#include <map>

namespace orvel::InteractiveRebaseCommands {

namespace {

// git runs its editors through /bin/sh, which needs the execute bits.
void writeScript(const std::string& path, std::string_view text) {
    writePrivateFileAtomically(path, text);
    std::filesystem::permissions(path, std::filesystem::perms(0755));
}

} // namespace

std::vector<RebaseTodoEntry> rebaseTodoList(GitExecutorProtocol& git, const std::string& repoPath,
                                            const std::string& onto) {
    refuseOptionLike(onto, "Rebase target");
    return GitOutputParser::parseRebaseTodoList(
        git.execute({"log", "--oneline", "--reverse", onto + "..HEAD"}, repoPath));
}

InteractiveRebaseResult interactiveRebase(GitExecutorProtocol& git, const RepoEntry& repo,
                                          const RebasePlan& plan) {
    refuseOptionLike(plan.onto, "Rebase target");

    TemporaryFiles files;
    const std::string todoFile = files.add(uniqueTemporaryPath("orvel-rebase-todo-"));
    writePrivateFileAtomically(todoFile, RebaseTodo::todoFileContents(plan.entries));
    const std::string sequenceEditor = files.add(uniqueTemporaryPath("orvel-rebase-editor-", ".sh"));
    writeScript(sequenceEditor, RebaseTodo::sequenceEditorScript(todoFile));

    GitExecutorProtocol::Environment environment{{"GIT_SEQUENCE_EDITOR", sequenceEditor}};
    // Without reworded messages git keeps its own, so no message editor is handed over at all.
    const std::map<int, std::string> messages = RebaseTodo::rewordMessages(plan.entries);
    if (!messages.empty()) {
        const std::string rewordEditor = files.add(uniqueTemporaryPath("orvel-reword-editor-", ".sh"));
        writeScript(rewordEditor, RebaseTodo::rewordEditorScript(gitDirectory(repo), messages));
        environment.emplace("GIT_EDITOR", rewordEditor);
    }

    try {
        git.executeWithEnvironment({"rebase", "--interactive", "--", plan.onto}, repo.path, environment);
    } catch (const std::exception&) {
        // git's words don't say where it stopped; its state files do. Without them the rebase
        // never started, and the reader raises that.
        return readRebaseStop(git, repo);
    }
    // git pauses at an edit row with exit 0; the plan has finished only when its state is gone.
    if (rebaseInProgress(repo))
        return readRebaseStop(git, repo);
    return rebase::Success{};
}

} // namespace orvel::InteractiveRebaseCommands
