#include "merge/ConflictSideNames.h"

#include <fstream>
#include <iterator>
#include <string_view>

namespace orvel {

namespace {

constexpr const char* sideFileNames[] = {"HEAD",
                                         "MERGE_HEAD",
                                         "MERGE_MSG",
                                         "REBASE_HEAD",
                                         "CHERRY_PICK_HEAD",
                                         "REVERT_HEAD",
                                         "rebase-merge/onto",
                                         "rebase-merge/message",
                                         "rebase-apply/onto"};

std::string_view firstLine(std::string_view text) {
    return text.substr(0, text.find('\n'));
}

std::string fileLine(const SideFiles& files, const char* name) {
    const auto found = files.find(name);
    return found == files.end() ? std::string() : std::string(firstLine(found->second));
}

std::string shortHash(std::string_view hash) {
    return std::string(hash.substr(0, 7));
}

// "abc1234 subject", or the short hash alone without a subject.
std::string commitName(std::string_view hash, std::string_view subject) {
    if (hash.empty())
        return {};
    return subject.empty() ? shortHash(hash) : shortHash(hash) + " " + std::string(subject);
}

// The checked-out branch, or the short hash of a detached HEAD.
std::string headName(const SideFiles& files) {
    const std::string head = fileLine(files, "HEAD");
    constexpr std::string_view branch = "ref: refs/heads/";
    if (head.starts_with(branch))
        return head.substr(branch.size());
    constexpr std::string_view ref = "ref: ";
    return head.starts_with(ref) ? head.substr(ref.size()) : shortHash(head);
}

// The merged branch as "git merge" wrote it into its message ("Merge branch 'topic' into main",
// "Merge remote-tracking branch 'origin/topic'"), or the short hash of MERGE_HEAD.
std::string mergedName(const SideFiles& files) {
    const std::string message = fileLine(files, "MERGE_MSG");
    if (message.starts_with("Merge ")) {
        const auto open = message.find('\'');
        const auto close = open == std::string::npos ? open : message.find('\'', open + 1);
        if (close != std::string::npos && close > open + 1)
            return message.substr(open + 1, close - open - 1);
    }
    return shortHash(fileLine(files, "MERGE_HEAD"));
}

// A local branch at `hash`, else a remote one, else the short hash. The list also holds the
// detached HEAD of the rebase itself ("(no branch, rebasing topic)"), which names no branch.
std::string branchAt(const std::string& hash, const std::vector<BranchEntry>& branches) {
    const BranchEntry* remote = nullptr;
    for (const BranchEntry& branch : branches) {
        if (branch.hash != hash || !branch.fullRefName.starts_with("refs/"))
            continue;
        if (!branch.isRemote)
            return branch.name;
        if (!remote)
            remote = &branch;
    }
    return remote ? remote->name : shortHash(hash);
}

} // namespace

SideFiles readSideFiles(const std::string& gitDirectory) {
    SideFiles files;
    for (const char* name : sideFileNames) {
        std::ifstream in(gitDirectory + name, std::ios::binary);
        if (in)
            files.emplace(name, std::string(std::istreambuf_iterator<char>(in), {}));
    }
    return files;
}

std::optional<std::string> rebaseOnto(const SideFiles& files) {
    for (const char* name : {"rebase-merge/onto", "rebase-apply/onto"})
        if (std::string onto = fileLine(files, name); !onto.empty())
            return onto;
    return std::nullopt;
}

ConflictSideNames conflictSideNames(const SideFiles& files, const std::vector<BranchEntry>& branches) {
    if (const auto onto = rebaseOnto(files)) {
        const std::string message = fileLine(files, "rebase-merge/message");
        return {branchAt(*onto, branches), commitName(fileLine(files, "REBASE_HEAD"), message)};
    }
    if (files.contains("MERGE_HEAD"))
        return {headName(files), mergedName(files)};
    for (const char* applied : {"CHERRY_PICK_HEAD", "REVERT_HEAD"})
        if (files.contains(applied))
            return {headName(files), commitName(fileLine(files, applied), fileLine(files, "MERGE_MSG"))};
    return {headName(files), {}};
}

} // namespace orvel
