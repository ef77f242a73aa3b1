#include "core/commands/RebaseStop.h"

#include "core/commands/ConflictRecovery.h"
#include "core/service/GitServiceError.h"
#include "core/support/Log.h"
#include "core/support/Text.h"

#include <charconv>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace orvel {

namespace {

namespace fs = std::filesystem;

std::string readTrimmed(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    if (!in)
        return {};
    return trimmed(std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()));
}

int readCount(const fs::path& file) {
    const std::string text = readTrimmed(file);
    int value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    return error == std::errc() && end == text.data() + text.size() ? value : 0;
}

fs::path rebaseStateDirectory(const RepoEntry& repo) { return fs::path(gitDirectory(repo)) / "rebase-merge"; }

} // namespace

bool rebaseInProgress(const RepoEntry& repo) {
    std::error_code error;
    return fs::is_directory(rebaseStateDirectory(repo), error);
}

InteractiveRebaseResult readRebaseStop(GitExecutorProtocol& git, const RepoEntry& repo) {
    const fs::path stateDir = rebaseStateDirectory(repo);
    if (!rebaseInProgress(repo))
        throw GitServiceError::commandFailed("rebase", "Rebase failed unexpectedly");

    const int currentStep = readCount(stateDir / "msgnum");
    const int totalSteps = readCount(stateDir / "end");
    std::string stoppedAt = readTrimmed(stateDir / "stopped-sha");

    std::vector<ConflictEntry> conflicts;
    try {
        conflicts = conflictFiles(git, repo.path);
    } catch (const std::exception& queryError) {
        // The stop is still a stop; without the list it reads as an edit stop.
        qCDebug(lcOps, "op=rebase.stop.conflicts reason=%s", redactForLog(queryError.what()).c_str());
    }
    qCDebug(lcOps, "op=rebase.stop step=%d total=%d conflicts=%zu", currentStep, totalSteps,
            conflicts.size());
    if (conflicts.empty())
        return rebase::EditStop{std::move(stoppedAt), currentStep, totalSteps};
    return RebaseStop{std::move(stoppedAt), currentStep, totalSteps, std::move(conflicts)};
}

} // namespace orvel
