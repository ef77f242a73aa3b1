#include "support/GitFixture.h"

#include "core/process/ChildProcess.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace orvel::test {

namespace fs = std::filesystem;

namespace {

std::string makePrivateDirectory(const char* prefix) {
    std::string pattern = (fs::temp_directory_path() / (std::string(prefix) + "XXXXXX")).string();
    if (!::mkdtemp(pattern.data()))
        throw std::runtime_error("mkdtemp failed");
    // Canonical, so that paths compare equal to what git prints.
    return fs::canonical(pattern).string();
}

} // namespace

IsolatedGitEnvironment::IsolatedGitEnvironment() : home_(makePrivateDirectory("orvel-test-home-")) {
    const std::string config = (home_ / ".gitconfig").string();
    writeFile(config, "[user]\n\tname = Orvel Test\n\temail = test@orvel.invalid\n"
                      "[init]\n\tdefaultBranch = main\n"
                      "[commit]\n\tgpgsign = false\n"
                      "[protocol \"file\"]\n\tallow = always\n"
                      "[advice]\n\tdetachedHead = false\n");
    ::setenv("HOME", home_.c_str(), 1);
    ::setenv("XDG_CONFIG_HOME", (home_ / ".config").c_str(), 1);
    ::setenv("GIT_CONFIG_NOSYSTEM", "1", 1);
    ::setenv("GIT_CONFIG_GLOBAL", config.c_str(), 1);
    ::setenv("GIT_AUTHOR_NAME", "Orvel Test", 1);
    ::setenv("GIT_AUTHOR_EMAIL", "test@orvel.invalid", 1);
    ::setenv("GIT_COMMITTER_NAME", "Orvel Test", 1);
    ::setenv("GIT_COMMITTER_EMAIL", "test@orvel.invalid", 1);
    ::setenv("GIT_AUTHOR_DATE", "2026-01-01T12:00:00+0000", 1);
    ::setenv("GIT_COMMITTER_DATE", "2026-01-01T12:00:00+0000", 1);
    ::unsetenv("GIT_DIR");
    ::unsetenv("GIT_WORK_TREE");
    ::setenv("LC_ALL", "C", 1);
}

IsolatedGitEnvironment::~IsolatedGitEnvironment() {
    std::error_code error;
    fs::remove_all(home_, error);
}

TempDir::TempDir() : path_(makePrivateDirectory("orvel-test-")) {}

TempDir::~TempDir() {
    std::error_code error;
    fs::remove_all(path_, error);
}

GitRun gitAllowingFailure(const std::string& directory, const std::vector<std::string>& arguments) {
    ChildRequest request;
    request.executable = "/usr/bin/git";
    request.arguments = {"-C", directory};
    request.arguments.insert(request.arguments.end(), arguments.begin(), arguments.end());
    request.environment = inheritedEnvironment();
    request.stdoutCapture = StreamCapture::capture(256u << 20);
    request.stderrCapture = StreamCapture::capture(16u << 20);
    ChildOutcome outcome = runChild(request);
    return {outcome.succeeded() ? 0 : (outcome.code == 0 ? -1 : outcome.code), std::move(outcome.out),
            std::move(outcome.err)};
}

std::string git(const std::string& directory, const std::vector<std::string>& arguments) {
    GitRun run = gitAllowingFailure(directory, arguments);
    if (run.exitCode != 0) {
        std::string command;
        for (const auto& argument : arguments)
            command += " " + argument;
        ADD_FAILURE() << "git" << command << " failed in " << directory << ": " << run.err;
    }
    return run.out;
}

void writeFile(const std::string& path, const std::string& content) {
    fs::create_directories(fs::path(path).parent_path());
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file << content;
}

void writeScript(const std::string& path, const std::string& content) {
    writeFile(path, content);
    fs::permissions(path, fs::perms::owner_all);
}

std::string readFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream content;
    content << file.rdbuf();
    return content.str();
}

TempRepo::TempRepo(Kind kind) {
    if (kind == Kind::workTree)
        git({"init", "-q", "-b", "main"});
    else if (kind == Kind::bare)
        git({"init", "-q", "--bare", "-b", "main"});
}

std::string TempRepo::git(const std::vector<std::string>& arguments) const {
    return test::git(path(), arguments);
}

GitRun TempRepo::gitAllowingFailure(const std::vector<std::string>& arguments) const {
    return test::gitAllowingFailure(path(), arguments);
}

void TempRepo::write(const std::string& relative, const std::string& content) const {
    writeFile(*this / relative, content);
}

std::string TempRepo::read(const std::string& relative) const {
    return readFile(*this / relative);
}

std::string TempRepo::commitAll(const std::string& message) const {
    git({"add", "-A"});
    git({"commit", "-q", "--allow-empty", "-m", message});
    return head();
}

std::string TempRepo::head() const {
    return rev("HEAD");
}

std::string TempRepo::rev(const std::string& revision) const {
    std::string hash = git({"rev-parse", revision});
    while (!hash.empty() && hash.back() == '\n')
        hash.pop_back();
    return hash;
}

void TempRepo::divergeOnOneFile() const {
    write("file", "base\n");
    write("other", "other\n");
    commitAll("base");
    git({"checkout", "-q", "-b", "topic"});
    write("file", "topic\n");
    commitAll("topic changes file");
    git({"checkout", "-q", "main"});
    write("file", "main\n");
    commitAll("main changes file");
}

} // namespace orvel::test
