#include "e2e/BranchRepo.h"

#include "e2e/SyntheticRepo.h"

#include <cstdio>
#include <filesystem>
#include <fstream>

namespace orvel::bench {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t commitsInHistory = 10;

void writeCommit(std::ofstream& out, const std::string& ref, std::size_t mark, std::size_t parent) {
    const std::string subject = "Change " + std::to_string(mark) + ": adjust the generated module";
    const std::string content = "revision " + std::to_string(mark) + "\n";
    out << "commit " << ref << "\nmark :" << mark << "\ncommitter Bench <bench@orvel.invalid> "
        << 1767225600 + mark * 3600 << " +0000\ndata " << subject.size() << "\n"
        << subject << "\n";
    if (parent)
        out << "from :" << parent << "\n";
    out << "M 100644 inline file.txt\ndata " << content.size() << "\n" << content << "\n";
}

} // namespace

std::string branchName(std::size_t n) {
    char name[64];
    std::snprintf(name, sizeof name, "team%02zu/feature/topic-%05zu", n % 17, n);
    return name;
}

// One fast-import stream makes two lines of history that part after the third commit, main (marks
// 1 to 10) and origin/main (marks 11 to 20), and points every branch at one of their commits: local
// branch n on main past the fork, its remote counterpart on the other line, so that a tracking
// branch is both ahead and behind. Upstreams go straight into the configuration; tags
// point at commits of main.
void makeBranchRepository(const std::string& directory, std::size_t branches, std::size_t tags) {
    fs::create_directories(directory);
    runGit(directory, {"init", "-q", "-b", "main"});
    const fs::path stream = fs::path(directory) / ".git" / "orvel-fast-import";
    {
        std::ofstream out(stream, std::ios::binary);
        for (std::size_t c = 1; c <= commitsInHistory; ++c)
            writeCommit(out, "refs/heads/main", c, c - 1);
        for (std::size_t c = 1; c <= commitsInHistory; ++c)
            writeCommit(out, "refs/remotes/origin/main", commitsInHistory + c,
                        c == 1 ? 3 : commitsInHistory + c - 1);
        const std::size_t locals = branches / 2;
        for (std::size_t n = 0; n < locals; ++n) {
            out << "reset refs/heads/" << branchName(n) << "\nfrom :" << 4 + n % 7 << "\n\n";
            out << "reset refs/remotes/origin/" << branchName(n)
                << "\nfrom :" << commitsInHistory + 1 + n % 10 << "\n\n";
        }
        for (std::size_t n = 0; n < tags; ++n) {
            const std::string name = "release/" + std::to_string(n / 100) + "." + std::to_string(n % 100);
            if (n % 10 == 0)
                out << "tag " << name << "\nfrom :" << 1 + n % commitsInHistory
                    << "\ntagger Bench <bench@orvel.invalid> " << 1767225600 + n
                    << " +0000\ndata 8\nRelease\n\n";
            else
                out << "reset refs/tags/" << name << "\nfrom :" << 1 + n % commitsInHistory << "\n\n";
        }
    }
    runGit(directory, {"fast-import", "--quiet"}, stream.string());
    fs::remove(stream);

    std::ofstream config(fs::path(directory) / ".git" / "config", std::ios::binary | std::ios::app);
    config << "[remote \"origin\"]\n\turl = " << directory << "/.no-remote\n"
           << "\tfetch = +refs/heads/*:refs/remotes/origin/*\n";
    for (std::size_t n = 0; n < branches / 2; n += 2)
        config << "[branch \"" << branchName(n) << "\"]\n\tremote = origin\n\tmerge = refs/heads/"
               << branchName(n) << "\n";
    config.close();
    runGit(directory, {"pack-refs", "--all"});
}

} // namespace orvel::bench
