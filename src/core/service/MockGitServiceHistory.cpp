// The canned history of the in-memory service: a small graph with a merge, a feature branch, a
// remote branch and a tag, HEAD's flat history read from it, and a search of its messages and
// authors.
#include "core/service/MockGitService.h"

#include "core/service/GitServiceError.h"

#include <QCoro/QCoroTimer>

#include <algorithm>
#include <cctype>
#include <chrono>
#include <set>

namespace orvel {

namespace {

GraphCommit cannedCommit(std::string hash, std::vector<std::string> parents, std::string subject,
                         int dayOfMonth, std::vector<GraphRef> refs = {}) {
    using namespace std::chrono;
    GraphCommit commit;
    commit.hash = std::move(hash);
    commit.parentHashes = std::move(parents);
    commit.subject = std::move(subject);
    commit.date = sys_days{year{2026} / 1 / dayOfMonth} + hours{9};
    commit.authors.push_back(
        {QUuid::createUuid(), "Ada Example", "ada@example.invalid", std::nullopt, commit.date});
    commit.refs = std::move(refs);
    commit.isHead = std::any_of(commit.refs.begin(), commit.refs.end(),
                                [](const GraphRef& ref) { return ref.isCurrent; });
    return commit;
}

// The decorations as git's "%D" prints them.
std::vector<std::string> decorationsOf(const GraphCommit& commit) {
    std::vector<std::string> items;
    if (commit.isHead && std::none_of(commit.refs.begin(), commit.refs.end(),
                                      [](const GraphRef& ref) { return ref.isCurrent; }))
        items.push_back("HEAD");
    for (const auto& ref : commit.refs) {
        if (ref.isCurrent)
            items.push_back("HEAD -> " + ref.name);
        else if (ref.type == GraphRefType::tag)
            items.push_back("tag: " + ref.name);
        else
            items.push_back(ref.name);
    }
    return items;
}

} // namespace

CommitEntry MockGitService::entryOf(const GraphCommit& commit) {
    CommitEntry entry;
    entry.hash = commit.hash;
    entry.abbreviatedHash = commit.hash.substr(0, 7);
    if (!commit.authors.empty()) {
        entry.authorName = commit.authors.front().name;
        entry.authorEmail = commit.authors.front().email.value_or("");
    }
    entry.authorDate = commit.date;
    entry.subject = commit.subject;
    entry.body = commit.body;
    entry.parentHashes = commit.parentHashes;
    entry.refs = decorationsOf(commit);
    return entry;
}

std::vector<GraphCommit> MockGitService::sampleGraph() {
    const std::string merge = "4b825dc642cb6eb9a060e54bf8d69288fbee4904";
    const std::string feature = "9d1e3c6a2f1b0e4d8c7a6b5f4e3d2c1b0a998877";
    const std::string fix = "2c3d4e5f60718293a4b5c6d7e8f90a1b2c3d4e5f";
    const std::string base = "7f6e5d4c3b2a19080706050403020100ffeeddcc";
    const std::string root = "0123456789abcdef0123456789abcdef01234567";
    return {
        cannedCommit(
            merge, {fix, feature}, "Merge branch 'feature/search'", 5,
            {{"main", GraphRefType::localBranch, true}, {"origin/main", GraphRefType::remoteBranch, false}}),
        cannedCommit(feature, {base}, "Add commit search", 4,
                     {{"feature/search", GraphRefType::localBranch, false}}),
        cannedCommit(fix, {base}, "Fix the lane colours", 3),
        cannedCommit(base, {root}, "Draw the commit graph", 2, {{"v1.0", GraphRefType::tag, false}}),
        cannedCommit(root, {}, "Initial commit", 1),
    };
}

bool MockGitService::reaches(const std::string& commit, const std::string& ancestor) const {
    std::vector<std::string> pending{commit};
    std::set<std::string> seen;
    while (!pending.empty()) {
        const std::string hash = pending.back();
        pending.pop_back();
        if (hash == ancestor)
            return true;
        if (!seen.insert(hash).second)
            continue;
        const auto found = std::ranges::find(graph, hash, &GraphCommit::hash);
        if (found != graph.end())
            pending.insert(pending.end(), found->parentHashes.begin(), found->parentHashes.end());
    }
    return false;
}

std::string MockGitService::resolve(const std::string& revision) const {
    if (revision == "HEAD")
        return repository.headHash.value_or("");
    for (const BranchEntry& branch : branchList)
        if (branch.name == revision)
            return branch.hash;
    for (const TagEntry& tag : tags)
        if (tag.name == revision)
            return tag.targetHash.value_or(tag.hash);
    const auto commit = std::ranges::find_if(graph, [&](const GraphCommit& candidate) {
        return revision.size() >= 4 && candidate.hash.starts_with(revision);
    });
    return commit == graph.end() ? std::string() : commit->hash;
}

void MockGitService::moveHead(const std::string& hash) {
    const auto onBranch = [&](const GraphRef& ref) {
        return ref.type == GraphRefType::localBranch && ref.name == repository.currentBranch;
    };
    for (GraphCommit& commit : graph) {
        commit.isHead = commit.hash == hash;
        std::erase_if(commit.refs, onBranch);
        for (GraphRef& ref : commit.refs)
            ref.isCurrent = false;
    }
    if (repository.currentBranch) {
        const auto target = std::ranges::find(graph, hash, &GraphCommit::hash);
        if (target != graph.end())
            target->refs.insert(target->refs.begin(),
                                {*repository.currentBranch, GraphRefType::localBranch, true});
        if (BranchEntry* branch = findBranch("refs/heads/" + *repository.currentBranch))
            branch->hash = hash;
    }
    repository.headHash = hash;
}

QCoro::Task<std::vector<CommitEntry>> MockGitService::commitHistory(RepoEntry, long limit, std::stop_token) {
    std::vector<CommitEntry> history;
    auto current =
        std::find_if(graph.begin(), graph.end(), [](const GraphCommit& commit) { return commit.isHead; });
    while (current != graph.end() && static_cast<long>(history.size()) < limit) {
        history.push_back(entryOf(*current));
        if (current->parentHashes.empty())
            break;
        const std::string& parent = current->parentHashes.front();
        current = std::find_if(graph.begin(), graph.end(),
                               [&](const GraphCommit& commit) { return commit.hash == parent; });
    }
    co_return history;
}

QCoro::Task<std::vector<GraphCommit>> MockGitService::commitGraph(RepoEntry, long limit, std::stop_token) {
    co_return std::vector<GraphCommit>(graph.begin(), graph.begin() + std::clamp<long>(limit, 0, graph.size()));
}

// Pushes a page only once the one before was taken: this service runs on the consumer's thread,
// where a full channel would wait forever.
QCoro::Task<void> MockGitService::streamCommitGraph(RepoEntry, long skip, std::shared_ptr<CommitPageChannel> pages,
                                                    std::stop_token) {
    const auto size = static_cast<long>(graph.size());
    const auto pageSize = static_cast<long>(pages->pageSize());
    for (long first = std::clamp<long>(skip, 0, size); first < size; first += pageSize) {
        while (pages->hasPages())
            co_await QCoro::sleepFor(std::chrono::milliseconds(1));
        pages->push(std::vector<GraphCommit>(graph.begin() + first, graph.begin() + std::min(first + pageSize, size)));
    }
}

QCoro::Task<CommitEntry> MockGitService::commitDetails(RepoEntry, std::string hash, std::stop_token) {
    const auto found = std::ranges::find(graph, hash, &GraphCommit::hash);
    if (found == graph.end())
        throw GitServiceError::commandFailed("log", "no commit " + hash);
    co_return entryOf(*found);
}

// A full hash or a unique prefix of one in the canned graph, or a ref's name on it.
QCoro::Task<std::optional<std::string>> MockGitService::resolveCommit(RepoEntry, std::string name,
                                                                      std::stop_token) {
    std::optional<std::string> found;
    for (const auto& commit : graph) {
        const bool named = std::any_of(commit.refs.begin(), commit.refs.end(),
                                       [&](const GraphRef& ref) { return ref.name == name; });
        if (named)
            co_return commit.hash;
        if (!name.empty() && commit.hash.starts_with(name)) {
            if (found)
                co_return std::nullopt;
            found = commit.hash;
        }
    }
    co_return found;
}

// Message and author searches over the canned graph, compared in ASCII lower case; the scopes
// that need the content of commits find nothing.
QCoro::Task<std::vector<std::string>> MockGitService::searchCommits(RepoEntry, std::string query,
                                                                    CommitSearchType scope, std::stop_token) {
    const auto lowered = [](std::string text) {
        std::transform(text.begin(), text.end(), text.begin(),
                       [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
        return text;
    };
    const std::string needle = lowered(query);
    const bool byMessage = scope == CommitSearchType::all || scope == CommitSearchType::message;
    const bool byAuthor = scope == CommitSearchType::all || scope == CommitSearchType::author;
    std::vector<std::string> found;
    for (const auto& commit : graph) {
        if (needle.empty())
            break;
        const CommitEntry entry = entryOf(commit);
        const bool hit =
            (byMessage && lowered(entry.subject + "\n" + entry.body).find(needle) != std::string::npos) ||
            (byAuthor &&
             lowered(entry.authorName + " " + entry.authorEmail).find(needle) != std::string::npos);
        if (hit)
            found.push_back(entry.hash);
    }
    co_return found;
}

} // namespace orvel
