// The author of a commit as the graph shows it. The id is minted at every parse and identifies
// nothing in git, so equality looks at the name, the e-mail and the date only.
#pragma once

#include "core/support/IsoDate.h"

#include <QUuid>

#include <cstddef>
#include <functional>
#include <optional>
#include <string>

namespace orvel {

struct CommitAuthor {
    QUuid id;
    std::string name;
    std::optional<std::string> email;
    std::optional<std::string> avatar;
    Instant date = distantPast;

    bool operator==(const CommitAuthor& other) const {
        return name == other.name && email == other.email && date == other.date;
    }
};

} // namespace orvel

// Authors hash by name and e-mail, so that the same person at different dates shares a bucket.
template <>
struct std::hash<orvel::CommitAuthor> {
    std::size_t operator()(const orvel::CommitAuthor& author) const noexcept {
        const std::size_t name = std::hash<std::string>{}(author.name);
        const std::size_t email = author.email ? std::hash<std::string>{}(*author.email) : 0;
        return name ^ (email + 0x9e3779b97f4a7c15ULL + (name << 6) + (name >> 2));
    }
};
