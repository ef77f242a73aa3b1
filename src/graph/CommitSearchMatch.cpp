#include "graph/CommitSearchMatch.h"

#include <QString>

#include <algorithm>

namespace orvel {

namespace {

bool contains(std::string_view text, std::string_view loweredQuery) {
    return lowercased(text).find(loweredQuery) != std::string::npos;
}

bool matchesMessage(const GraphCommit& commit, std::string_view query) {
    return contains(commit.subject, query);
}

bool matchesAuthor(const GraphCommit& commit, std::string_view query) {
    return std::any_of(commit.authors.begin(), commit.authors.end(), [query](const CommitAuthor& author) {
        return contains(author.name, query) || (author.email && contains(*author.email, query));
    });
}

bool matchesRef(const GraphCommit& commit, std::string_view query) {
    return std::any_of(commit.refs.begin(), commit.refs.end(),
                       [query](const GraphRef& ref) { return contains(ref.name, query); });
}

bool matchesHash(const GraphCommit& commit, std::string_view query) {
    return commit.hash.starts_with(query) || commit.abbreviatedHash.starts_with(query);
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

bool matchesLocally(const GraphCommit& commit, CommitSearchType scope, std::string_view loweredQuery) {
    switch (scope) {
    case CommitSearchType::all:
        return matchesMessage(commit, loweredQuery) || matchesAuthor(commit, loweredQuery) ||
               matchesRef(commit, loweredQuery) || matchesHash(commit, loweredQuery);
    case CommitSearchType::message:
        return matchesMessage(commit, loweredQuery);
    case CommitSearchType::author:
        return matchesAuthor(commit, loweredQuery);
    case CommitSearchType::ref:
        return matchesRef(commit, loweredQuery);
    case CommitSearchType::hash:
        return matchesHash(commit, loweredQuery);
    case CommitSearchType::diff:
    case CommitSearchType::filePath:
        return false;
    }
    return false;
}

} // namespace orvel
