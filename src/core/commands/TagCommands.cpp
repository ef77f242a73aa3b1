#include "core/commands/TagCommands.h"

#include "core/commands/ArgumentGuard.h"
#include "core/parsers/RefParsers.h"
#include "core/support/Text.h"

namespace orvel::TagCommands {

using Arguments = GitExecutorProtocol::Arguments;

namespace {

const GitExecutorProtocol::Environment& lightweightEnvironment() {
    static const GitExecutorProtocol::Environment environment{
        {"GIT_CONFIG_COUNT", "1"}, {"GIT_CONFIG_KEY_0", "tag.gpgSign"}, {"GIT_CONFIG_VALUE_0", "false"}};
    return environment;
}

} // namespace

std::vector<TagEntry> listTags(GitExecutorProtocol& git, const std::string& repoPath) {
    return GitOutputParser::parseTags(
        git.execute({"tag", "-l", "--format", std::string(GitOutputParser::tagListFormat)}, repoPath));
}

std::string tagDetail(GitExecutorProtocol& git, const std::string& repoPath, const std::string& name) {
    refuseOptionLike(name, "tag name");
    return git.execute({"show", "--no-patch", "tags/" + name}, repoPath);
}

void createTag(GitExecutorProtocol& git, const std::string& repoPath, const std::string& name,
               const std::optional<std::string>& hash, const std::optional<std::string>& message, bool sign) {
    refuseOptionLike(name, "tag name");
    if (hash)
        refuseOptionLike(*hash, "commit");
    Arguments arguments{"tag"};
    if (message) {
        arguments.push_back(sign ? "-s" : "-a");
        arguments.push_back("-m");
        arguments.push_back(*message);
    }
    arguments.push_back("--");
    arguments.push_back(name);
    if (hash)
        arguments.push_back(*hash);
    if (message) {
        git.execute(arguments, repoPath);
        return;
    }
    // With "tag.gpgSign" on, git would turn a tag without a message into a signed one and wait
    // for an editor to write its message. Switched off for this one run, the tag stays lightweight.
    git.executeWithEnvironment(arguments, repoPath, lightweightEnvironment());
}

void pushTag(GitExecutorProtocol& git, const std::string& repoPath, const std::string& name,
             const std::string& remote) {
    refuseOptionLike(remote, "remote name");
    refuseOptionLike(name, "tag name");
    git.execute({"push", "--", remote, name}, repoPath);
}

void deleteTag(GitExecutorProtocol& git, const std::string& repoPath, const std::string& name) {
    refuseOptionLike(name, "tag name");
    git.execute({"tag", "-d", "--", name}, repoPath);
}

void checkoutTag(GitExecutorProtocol& git, const std::string& repoPath, const std::string& name) {
    refuseOptionLike(name, "tag name");
    git.execute({"checkout", "tags/" + name}, repoPath);
}

} // namespace orvel::TagCommands
