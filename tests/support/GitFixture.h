// Throw-away directories and repositories for tests, driven by the real git program.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace orvel::test {

// Points HOME, the global git configuration and the identities of commits at private, fixed
// values for the life of the test program, and removes the private home at the end.
class IsolatedGitEnvironment {
  public:
    IsolatedGitEnvironment();
    ~IsolatedGitEnvironment();

  private:
    std::filesystem::path home_;
};

// A private directory that is removed with everything in it.
class TempDir {
  public:
    TempDir();
    ~TempDir();
    TempDir(const TempDir&) = delete;
    TempDir& operator=(const TempDir&) = delete;

    const std::string& path() const { return path_; }
    std::string operator/(const std::string& relative) const { return path_ + "/" + relative; }

  private:
    std::string path_;
};

struct GitRun {
    int exitCode = 0;
    std::string out;
    std::string err;
};

// Runs git with `arguments` in `directory`; fails the test on a non-zero exit unless allowed.
std::string git(const std::string& directory, const std::vector<std::string>& arguments);
GitRun gitAllowingFailure(const std::string& directory, const std::vector<std::string>& arguments);

void writeFile(const std::string& path, const std::string& content);
// Writes `content` to `path` and lets its owner run it.
void writeScript(const std::string& path, const std::string& content);
std::string readFile(const std::string& path);

// A repository in a TempDir: "git init" with branch "main" unless `bare` asks otherwise.
class TempRepo : public TempDir {
  public:
    enum class Kind { workTree, bare, uninitialised };
    explicit TempRepo(Kind kind = Kind::workTree);

    std::string git(const std::vector<std::string>& arguments) const;
    GitRun gitAllowingFailure(const std::vector<std::string>& arguments) const;
    void write(const std::string& relative, const std::string& content) const;
    std::string read(const std::string& relative) const;
    // Stages everything and commits; returns the new HEAD hash.
    std::string commitAll(const std::string& message) const;
    std::string head() const;
    // The full hash that `revision` names.
    std::string rev(const std::string& revision) const;
    // "main" and "topic" both change "file" after a common "base" (which also adds "other"), so
    // merges, rebases and picks between them conflict. Leaves "main" checked out.
    void divergeOnOneFile() const;
};

} // namespace orvel::test
