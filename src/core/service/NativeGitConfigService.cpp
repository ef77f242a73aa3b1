#include "core/service/NativeGitConfigService.h"

#include "core/queue/BackgroundWork.h"

#include <filesystem>

namespace orvel {

namespace {

std::string directoryFor(const std::optional<std::string>& repoPath) {
    return repoPath ? *repoPath : std::filesystem::current_path().string();
}

} // namespace

NativeGitConfigService::NativeGitConfigService(std::shared_ptr<GitExecutorProtocol> executor)
    : executor_(std::move(executor)) {}

QCoro::Task<std::optional<std::string>> NativeGitConfigService::get(std::string key, GitConfigScope scope,
                                                                    std::optional<std::string> repoPath) {
    auto read = runOnPool(backgroundPool(), [executor = executor_, key, scope, repoPath] {
        return ConfigCommands::get(*executor, directoryFor(repoPath), key, scope);
    });
    co_return co_await std::move(read);
}

QCoro::Task<void> NativeGitConfigService::set(std::string key, std::string value, GitConfigScope scope,
                                              std::optional<std::string> repoPath) {
    auto write = runOnPool(backgroundPool(), [executor = executor_, key, value, scope, repoPath] {
        ConfigCommands::set(*executor, directoryFor(repoPath), key, value, scope);
    });
    co_await std::move(write);
}

QCoro::Task<void> NativeGitConfigService::unset(std::string key, GitConfigScope scope,
                                                std::optional<std::string> repoPath) {
    auto erase = runOnPool(backgroundPool(), [executor = executor_, key, scope, repoPath] {
        ConfigCommands::unset(*executor, directoryFor(repoPath), key, scope);
    });
    co_await std::move(erase);
}

} // namespace orvel
