// Feeds arbitrary lines as tag names to the sidebar's version order, which must never crash and
// must stay a strict weak order, or sorting would read out of bounds.
#include "sidebar/TagVersionOrder.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string_view text(reinterpret_cast<const char*>(data), size);
    std::vector<orvel::TagEntry> tags;
    while (!text.empty()) {
        const auto end = text.find('\n');
        tags.push_back({std::string(text.substr(0, end)), "hash", std::nullopt});
        text = end == std::string_view::npos ? std::string_view() : text.substr(end + 1);
    }
    // Every pair and triple among the first names: never before itself, never both ways, transitive.
    const std::size_t checked = std::min<std::size_t>(tags.size(), 12);
    const auto before = [&](std::size_t x, std::size_t y) {
        return orvel::listsBefore(tags[x].name, tags[y].name);
    };
    for (std::size_t a = 0; a < checked; ++a) {
        if (before(a, a))
            __builtin_trap();
        for (std::size_t b = 0; b < checked; ++b) {
            if (before(a, b) && before(b, a))
                __builtin_trap();
            for (std::size_t c = 0; c < checked; ++c)
                if (before(a, b) && before(b, c) && !before(a, c))
                    __builtin_trap();
        }
    }
    orvel::sortNewestFirst(tags);
    if (!std::ranges::is_sorted(
            tags, [](const auto& x, const auto& y) { return orvel::listsBefore(x.name, y.name); }))
        __builtin_trap();
    return 0;
}
