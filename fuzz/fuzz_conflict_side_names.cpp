// Feeds arbitrary bytes as the files git keeps in its directory during a merge, rebase, pick or
// revert; naming the sides must never crash, and a name is never longer than what it came from.
#include "merge/ConflictSideNames.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // "name\ncontent" records apart by NUL bytes; the first byte's bits choose branches at
    // the commit the rebase replays onto.
    std::string_view text(reinterpret_cast<const char*>(data), size);
    orvel::SideFiles files;
    while (!text.empty()) {
        const auto end = text.find('\0');
        const std::string_view record = text.substr(0, end);
        const auto split = record.find('\n');
        files[std::string(record.substr(0, split))] =
            split == std::string_view::npos ? std::string() : std::string(record.substr(split + 1));
        text = end == std::string_view::npos ? std::string_view() : text.substr(end + 1);
    }
    std::vector<orvel::BranchEntry> branches;
    if (const auto onto = orvel::rebaseOnto(files); onto && size > 0) {
        if (data[0] & 1)
            branches.push_back({"origin/x", "refs/remotes/origin/x", true, false, *onto});
        if (data[0] & 2)
            branches.push_back({"x", "refs/heads/x", false, false, *onto});
    }
    const orvel::ConflictSideNames names = orvel::conflictSideNames(files, branches);
    if (names.ours.size() > size + 8 || names.theirs.size() > size + 8)
        __builtin_trap();
    return 0;
}
