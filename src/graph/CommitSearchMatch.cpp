#include "graph/CommitSearchMatch.h"

#include <QString>

#include <algorithm>

namespace orvel {

namespace {

bool contains(std::string_view text, std::string_view loweredQuery) {
    return lowercased(text).find(loweredQuery) != std::string::npos;
}

bool matchesAuthor(const CommitAuthor& author, std::string_view query) {
    return contains(author.name, query) || (author.email && contains(*author.email, query));
}

bool matchesRef(std::span<const GraphRef> refs, std::string_view query) {
    return std::any_of(refs.begin(), refs.end(), [query](const GraphRef& ref) { return contains(ref.name, query); });
}

} // namespace

std::string lowercased(std::string_view text) {
    const bool ascii =
        std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
    if (!ascii) {
        const QByteArray folded =
            QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())).toLower().toUtf8();
        return std::string(folded.constData(), static_cast<std::size_t>(folded.size()));
    }
    std::string lowered(text);
    for (char& c : lowered) {
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c - 'A' + 'a');
    }
    return lowered;
}

bool matchesLocally(const CommitStore& store, std::size_t index, CommitSearchType scope,
                    std::string_view loweredQuery) {
    switch (scope) {
    case CommitSearchType::all:
        return contains(store.subject(index), loweredQuery) || matchesAuthor(store.author(index), loweredQuery) ||
               matchesRef(store.refs(index), loweredQuery) || store.hash(index).starts_with(loweredQuery);
    case CommitSearchType::message:
        return contains(store.subject(index), loweredQuery);
    case CommitSearchType::author:
        return matchesAuthor(store.author(index), loweredQuery);
    case CommitSearchType::ref:
        return matchesRef(store.refs(index), loweredQuery);
    case CommitSearchType::hash:
        return store.hash(index).starts_with(loweredQuery);
    case CommitSearchType::diff:
    case CommitSearchType::filePath:
        return false;
    }
    return false;
}

} // namespace orvel
