#include "graph/CommitStore.h"

#include <algorithm>
#include <functional>
#include <limits>

namespace orvel {

namespace {

std::uint32_t hashCode(std::string_view hash) {
    return static_cast<std::uint32_t>(std::hash<std::string_view>{}(hash));
}

constexpr std::size_t blockSize = 1 << 20;

} // namespace

std::size_t CommitStore::AuthorKeyHash::operator()(const AuthorKey& key) const noexcept {
    const std::size_t name = std::hash<std::string>{}(key.name);
    return name ^ (std::hash<std::string>{}(key.email) + 0x9e3779b97f4a7c15ULL + (name << 6) + (name >> 2));
}

std::uint32_t CommitStore::internAuthor(const CommitAuthor& author) {
    AuthorKey key{author.name, author.email.value_or(std::string())};
    const auto [found, added] = authorIds_.try_emplace(std::move(key), static_cast<std::uint32_t>(authors_.size()));
    if (added) {
        CommitAuthor kept = author;
        kept.date = distantPast; // each commit has its own date
        authors_.push_back(std::move(kept));
    }
    return found->second;
}

void CommitStore::append(const GraphCommit& commit) {
    Entry entry;
    // git prints hashes of 40 or 64 digits; anything longer is cut rather than mis-read.
    constexpr std::size_t longestHash = std::numeric_limits<std::uint8_t>::max();
    const std::string_view hash = std::string_view(commit.hash).substr(0, longestHash);
    const std::size_t parentCount =
        std::min<std::size_t>(commit.parentHashes.size(), std::numeric_limits<std::uint16_t>::max());
    const std::string_view subject = std::string_view(commit.subject).substr(0, blockSize);
    const std::size_t length = hash.size() + parentCount * (1 + longestHash) + subject.size();
    if (text_.empty() || text_.back().size() + length > text_.back().capacity()) {
        text_.emplace_back().reserve(std::max(blockSize, length));
    }
    std::string& block = text_.back();
    entry.block = static_cast<std::uint32_t>(text_.size() - 1);
    entry.offset = static_cast<std::uint32_t>(block.size());
    entry.hashLength = static_cast<std::uint8_t>(hash.size());
    block.append(hash);
    for (std::size_t n = 0; n < parentCount; ++n) {
        const std::string_view kept = std::string_view(commit.parentHashes[n]).substr(0, longestHash);
        block.push_back(static_cast<char>(kept.size()));
        block.append(kept);
    }
    entry.parentCount = static_cast<std::uint16_t>(parentCount);
    entry.subjectLength = static_cast<std::uint32_t>(subject.size());
    block.append(subject);
    entry.author = commit.authors.empty() ? internAuthor(CommitAuthor{}) : internAuthor(commit.authors.front());
    if (!commit.refs.empty()) {
        refLists_.push_back(commit.refs);
        entry.refs = static_cast<std::uint32_t>(refLists_.size());
    }
    entry.isHead = commit.isHead;
    entry.date = commit.date;
    entries_.push_back(entry);
    index(entries_.size() - 1);
}

void CommitStore::clear() {
    *this = CommitStore();
}

std::string_view CommitStore::text(const Entry& entry, std::size_t from, std::size_t length) const {
    return std::string_view(text_[entry.block]).substr(entry.offset + from, length);
}

std::string_view CommitStore::hash(std::size_t index) const {
    const Entry& entry = entries_[index];
    return text(entry, 0, entry.hashLength);
}

std::vector<std::string_view> CommitStore::parents(std::size_t index) const {
    const Entry& entry = entries_[index];
    std::vector<std::string_view> parents;
    parents.reserve(entry.parentCount);
    std::size_t at = entry.hashLength;
    for (std::uint16_t n = 0; n < entry.parentCount; ++n) {
        const auto length = static_cast<unsigned char>(text(entry, at, 1).front());
        parents.push_back(text(entry, at + 1, length));
        at += 1 + length;
    }
    return parents;
}

std::string_view CommitStore::firstParent(std::size_t index) const {
    const Entry& entry = entries_[index];
    if (entry.parentCount == 0)
        return {};
    return text(entry, entry.hashLength + 1, static_cast<unsigned char>(text(entry, entry.hashLength, 1).front()));
}

std::string_view CommitStore::subject(std::size_t index) const {
    const Entry& entry = entries_[index];
    std::size_t at = entry.hashLength;
    for (std::uint16_t n = 0; n < entry.parentCount; ++n)
        at += 1 + static_cast<unsigned char>(text(entry, at, 1).front());
    return text(entry, at, entry.subjectLength);
}

const CommitAuthor& CommitStore::author(std::size_t index) const {
    return authors_[entries_[index].author];
}

std::span<const GraphRef> CommitStore::refs(std::size_t index) const {
    const std::uint32_t list = entries_[index].refs;
    return list == 0 ? std::span<const GraphRef>() : std::span<const GraphRef>(refLists_[list - 1]);
}

GraphCommit CommitStore::commit(std::size_t index) const {
    GraphCommit whole;
    whole.hash = hash(index);
    for (const auto parent : parents(index))
        whole.parentHashes.emplace_back(parent);
    whole.subject = subject(index);
    CommitAuthor author = this->author(index);
    author.date = date(index);
    whole.authors.push_back(std::move(author));
    whole.date = date(index);
    const auto refs = this->refs(index);
    whole.refs.assign(refs.begin(), refs.end());
    whole.isHead = isHead(index);
    return whole;
}

std::optional<std::size_t> CommitStore::find(std::string_view hash) const {
    if (slots_.empty())
        return std::nullopt;
    const std::uint32_t code = hashCode(hash);
    const std::size_t mask = slots_.size() - 1;
    for (std::size_t slot = code & mask; slots_[slot].entry != 0; slot = (slot + 1) & mask) {
        if (slots_[slot].code == code && this->hash(slots_[slot].entry - 1) == hash)
            return slots_[slot].entry - 1;
    }
    return std::nullopt;
}

std::optional<std::size_t> CommitStore::head() const {
    const auto found = std::find_if(entries_.begin(), entries_.end(), [](const Entry& entry) { return entry.isHead; });
    if (found == entries_.end())
        return std::nullopt;
    return static_cast<std::size_t>(found - entries_.begin());
}

void CommitStore::index(std::size_t entry) {
    if ((entry + 1) * 2 > slots_.size())
        rebuildIndex(std::max<std::size_t>(16, slots_.size() * 2));
    place(static_cast<std::uint32_t>(entry), hashCode(hash(entry)));
}

// Places the kept entries by the codes they keep, without reading their hashes again.
void CommitStore::rebuildIndex(std::size_t slotCount) {
    std::vector<Slot> old(slotCount);
    old.swap(slots_);
    const std::size_t mask = slotCount - 1;
    for (const Slot& kept : old) {
        if (kept.entry == 0)
            continue;
        std::size_t slot = kept.code & mask;
        while (slots_[slot].entry != 0)
            slot = (slot + 1) & mask;
        slots_[slot] = kept;
    }
}

// A hash that is already indexed keeps its first entry, as git lists each commit once.
void CommitStore::place(std::uint32_t entry, std::uint32_t code) {
    const std::string_view key = hash(entry);
    const std::size_t mask = slots_.size() - 1;
    std::size_t slot = code & mask;
    for (; slots_[slot].entry != 0; slot = (slot + 1) & mask) {
        if (slots_[slot].code == code && hash(slots_[slot].entry - 1) == key)
            return;
    }
    slots_[slot] = {entry + 1, code};
}

} // namespace orvel
