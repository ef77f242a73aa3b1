// Readable test failure messages for the upstream and tag records.
#pragma once

#include "core/records/BranchEntry.h"
#include "core/records/TagEntry.h"

#include <optional>
#include <ostream>

namespace orvel {

namespace detail {

inline std::ostream& operator<<(std::ostream& out, const std::optional<std::string>& value) {
    return value ? out << '"' << *value << '"' : out << "absent";
}

} // namespace detail

inline void PrintTo(const UpstreamInfo& upstream, std::ostream* out) {
    using detail::operator<<;
    *out << "{" << upstream.name << " remote=" << upstream.remoteName << " ahead=" << upstream.ahead
         << " behind=" << upstream.behind << " gone=" << upstream.isGone << " full=" << upstream.fullRemoteRef
         << "}";
}

inline void PrintTo(const TagEntry& tag, std::ostream* out) {
    using detail::operator<<;
    *out << "{" << tag.name << " hash=" << tag.hash << " target=" << tag.targetHash << "}";
}

} // namespace orvel
