// Readable test failure messages for the ref, stash and blame records.
#pragma once

#include "core/records/BlameEntry.h"
#include "core/records/BranchEntry.h"
#include "core/records/StashEntry.h"
#include "core/records/TagEntry.h"

#include <optional>
#include <ostream>

namespace orvel {

namespace detail {

inline std::ostream& operator<<(std::ostream& out, const std::optional<std::string>& value) {
    return value ? out << '"' << *value << '"' : out << "absent";
}

inline std::ostream& operator<<(std::ostream& out, const std::optional<Instant>& value) {
    return value ? out << value->time_since_epoch().count() << "s" : out << "absent";
}

} // namespace detail

inline void PrintTo(const UpstreamInfo& upstream, std::ostream* out) {
    using detail::operator<<;
    *out << "{" << upstream.name << " remote=" << upstream.remoteName << " ahead=" << upstream.ahead
         << " behind=" << upstream.behind << " gone=" << upstream.isGone << " full=" << upstream.fullRemoteRef
         << "}";
}

inline void PrintTo(const BranchEntry& branch, std::ostream* out) {
    using detail::operator<<;
    *out << "{" << branch.name << " ref=" << branch.fullRefName << " remote=" << branch.isRemote
         << " current=" << branch.isCurrent << " hash=" << branch.hash << " upstream=";
    if (branch.upstream)
        PrintTo(*branch.upstream, out);
    else
        *out << "absent";
    *out << " worktree=" << branch.worktreePath << " subject=" << branch.lastCommitSubject
         << " date=" << branch.lastCommitDate << "}";
}

inline void PrintTo(const TagEntry& tag, std::ostream* out) {
    using detail::operator<<;
    *out << "{" << tag.name << " hash=" << tag.hash << " target=" << tag.targetHash << "}";
}

inline void PrintTo(const StashEntry& stash, std::ostream* out) {
    using detail::operator<<;
    *out << "{" << stash.index << " hash=" << stash.hash << " message=\"" << stash.message
         << "\" branch=" << stash.branchName << " base=" << stash.baseHash
         << " date=" << stash.date.time_since_epoch().count() << "s untracked=" << stash.includesUntracked
         << " index=" << stash.includesIndex << "}";
}

inline void PrintTo(const BlameEntry& entry, std::ostream* out) {
    *out << "{" << entry.hash << " line=" << entry.finalLineNumber << " lines=" << entry.lines.size()
         << " author=" << entry.authorName << " date=" << entry.authorDate.time_since_epoch().count()
         << "s summary=\"" << entry.summary << "\" file=" << entry.filename << "}";
}

} // namespace orvel
