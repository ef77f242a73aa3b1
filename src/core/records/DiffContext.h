// Which diff is meant: the working tree against the index, the index against HEAD, one commit
// (optionally against a chosen parent), a stash, or the range between two revisions.
#pragma once

#include <QJsonObject>

#include <optional>
#include <string>
#include <utility>

namespace orvel {

struct DiffContext {
    enum class Case : char { unstaged, staged, commit, stash, commitRange };

    Case kind = Case::unstaged;
    std::string hash;               // commit and stash
    std::optional<int> parentIndex; // commit only
    std::string from;               // commitRange only
    std::string to;                 // commitRange only

    static DiffContext unstaged() { return {}; }
    static DiffContext staged() { return withKind(Case::staged); }
    static DiffContext commit(std::string hash, std::optional<int> parentIndex = std::nullopt) {
        DiffContext context = withKind(Case::commit);
        context.hash = std::move(hash);
        context.parentIndex = parentIndex;
        return context;
    }
    static DiffContext stash(std::string hash) {
        DiffContext context = withKind(Case::stash);
        context.hash = std::move(hash);
        return context;
    }
    static DiffContext commitRange(std::string from, std::string to) {
        DiffContext context = withKind(Case::commitRange);
        context.from = std::move(from);
        context.to = std::move(to);
        return context;
    }

    bool operator==(const DiffContext&) const = default;

  private:
    static DiffContext withKind(Case kind) {
        DiffContext context;
        context.kind = kind;
        return context;
    }
};

// For log lines: "unstaged", "staged", "commit(hash: abc, parentIndex: 1)", "stash(hash: abc)",
// "commitRange(from: a, to: b)".
std::string describe(const DiffContext& context);

// A tagged value: {"commit": {"hash": "abc", "parentIndex": 1}}, {"unstaged": {}}, ...
QJsonObject toJson(const DiffContext& context);
// Nothing for an object that is not one of those shapes.
std::optional<DiffContext> diffContextFromJson(const QJsonObject& object);

} // namespace orvel
