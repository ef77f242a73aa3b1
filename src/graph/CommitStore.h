// The commits of a graph load, kept compactly enough for a whole history of hundreds of thousands
// of commits: one fixed record each, their hashes, parents and subjects in blocks of text, each
// author once, refs only where there are any, and an open-addressed index by hash. Nothing grows by
// copying what it holds: records and text are added in blocks, so that a page added to a long
// history costs only its own commits. A commit comes back whole (GraphCommit) only when it is
// asked for by itself.
#pragma once

#include "core/records/CommitAuthor.h"
#include "core/records/GraphCommit.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace orvel {

class CommitStore {
  public:
    void append(const GraphCommit& commit);
    void clear();

    std::size_t size() const { return entries_.size(); }
    bool empty() const { return entries_.empty(); }

    std::string_view hash(std::size_t index) const;
    // The parents' hashes, first parent first.
    std::vector<std::string_view> parents(std::size_t index) const;
    // The first parent's hash, empty for a root.
    std::string_view firstParent(std::size_t index) const;
    std::string_view subject(std::size_t index) const;
    const CommitAuthor& author(std::size_t index) const;
    Instant date(std::size_t index) const { return entries_[index].date; }
    std::span<const GraphRef> refs(std::size_t index) const;
    bool isHead(std::size_t index) const { return entries_[index].isHead; }
    // The commit as the log gave it, with no body.
    GraphCommit commit(std::size_t index) const;

    // The index of `hash`, or nothing.
    std::optional<std::size_t> find(std::string_view hash) const;
    // The index of the checked-out commit, or nothing.
    std::optional<std::size_t> head() const;

  private:
    struct Entry {
        std::uint32_t block = 0;       // the block of text_ that holds the commit's text
        std::uint32_t offset = 0;      // where the hash begins in it; the parents and subject follow
        std::uint32_t subjectLength = 0;
        std::uint32_t author = 0;      // into authors_
        std::uint32_t refs = 0;        // into refLists_ plus one; 0 for none
        std::uint16_t parentCount = 0;
        std::uint8_t hashLength = 0;
        bool isHead = false;
        Instant date = distantPast;
    };
    struct AuthorKey {
        std::string name;
        std::string email;
        bool operator==(const AuthorKey&) const = default;
    };
    struct AuthorKeyHash {
        std::size_t operator()(const AuthorKey& key) const noexcept;
    };

    std::uint32_t internAuthor(const CommitAuthor& author);
    void index(std::size_t entry);
    void rebuildIndex(std::size_t slotCount);
    void place(std::uint32_t entry, std::uint32_t code);

    // The index's slot: the entry plus one (0 for a free slot) and the low bits of its hash's code,
    // which place it again when the index grows.
    struct Slot {
        std::uint32_t entry = 0;
        std::uint32_t code = 0;
    };

    std::string_view text(const Entry& entry, std::size_t from, std::size_t length) const;

    std::deque<Entry> entries_;
    // Per commit: the hash, then each parent as a length byte and its text, then the subject; a
    // commit's text never spans two blocks.
    std::vector<std::string> text_;
    std::vector<CommitAuthor> authors_;
    std::unordered_map<AuthorKey, std::uint32_t, AuthorKeyHash> authorIds_;
    std::vector<std::vector<GraphRef>> refLists_;
    // A power of two in size, at most half full.
    std::vector<Slot> slots_;
};

} // namespace orvel
