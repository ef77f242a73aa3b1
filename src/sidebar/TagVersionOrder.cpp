#include "sidebar/TagVersionOrder.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <compare>

namespace orvel {

namespace {

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

bool isSeparator(char c) {
    return c == '.' || c == '_' || c == '-' || c == '+';
}

char lower(char c) {
    return static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
}

// Two runs of digits as the numbers they write, however long.
std::strong_ordering compareNumbers(std::string_view a, std::string_view b) {
    a.remove_prefix(std::min(a.find_first_not_of('0'), a.size()));
    b.remove_prefix(std::min(b.find_first_not_of('0'), b.size()));
    if (a.size() != b.size())
        return a.size() <=> b.size();
    return a.compare(b) <=> 0;
}

// Digit runs as numbers, everything else letter by letter without regard to case.
std::strong_ordering compareNatural(std::string_view a, std::string_view b) {
    std::size_t i = 0;
    std::size_t j = 0;
    while (i < a.size() && j < b.size()) {
        if (isDigit(a[i]) && isDigit(b[j])) {
            const std::size_t endA = std::min(a.find_first_not_of("0123456789", i), a.size());
            const std::size_t endB = std::min(b.find_first_not_of("0123456789", j), b.size());
            if (const auto order = compareNumbers(a.substr(i, endA - i), b.substr(j, endB - j)); order != 0)
                return order;
            i = endA;
            j = endB;
            continue;
        }
        if (const auto order = lower(a[i]) <=> lower(b[j]); order != 0)
            return order;
        ++i;
        ++j;
    }
    return (a.size() - i) <=> (b.size() - j);
}

struct Version {
    std::vector<std::string_view> numbers; // empty: the name holds no digit
    std::string_view suffix;               // what follows the numbers, separator included
    bool preRelease = false;
};

bool namesPreRelease(std::string_view suffix) {
    while (!suffix.empty() && isSeparator(suffix.front()))
        suffix.remove_prefix(1);
    static constexpr std::array<std::string_view, 7> words = {"alpha", "beta",    "rc",      "pre",
                                                              "dev",   "preview", "snapshot"};
    for (const std::string_view word : words)
        if (suffix.size() >= word.size() && std::equal(word.begin(), word.end(), suffix.begin(),
                                                       [](char w, char s) { return w == lower(s); }))
            return true;
    // "1.0a1", "1.0b2": a single letter before a number.
    return suffix.size() >= 2 && (lower(suffix[0]) == 'a' || lower(suffix[0]) == 'b') && isDigit(suffix[1]);
}

Version versionOf(std::string_view name) {
    Version version;
    std::size_t at = name.find_first_of("0123456789");
    if (at == std::string_view::npos)
        return version;
    while (true) {
        const std::size_t end = std::min(name.find_first_not_of("0123456789", at), name.size());
        version.numbers.push_back(name.substr(at, end - at));
        at = end;
        if (at + 1 < name.size() && isSeparator(name[at]) && isDigit(name[at + 1]))
            ++at;
        else
            break;
    }
    version.suffix = name.substr(at);
    version.preRelease = namesPreRelease(version.suffix);
    return version;
}

// Newer first: a larger number, then a release after its pre-releases and before its later builds.
std::strong_ordering compareVersions(const Version& a, const Version& b) {
    for (std::size_t i = 0, count = std::max(a.numbers.size(), b.numbers.size()); i < count; ++i) {
        const std::string_view x = i < a.numbers.size() ? a.numbers[i] : std::string_view("0");
        const std::string_view y = i < b.numbers.size() ? b.numbers[i] : std::string_view("0");
        if (const auto order = compareNumbers(x, y); order != 0)
            return order;
    }
    const auto rank = [](const Version& version) {
        return version.suffix.empty() ? 1 : version.preRelease ? 0 : 2;
    };
    if (const auto order = rank(a) <=> rank(b); order != 0)
        return order;
    return compareNatural(a.suffix, b.suffix);
}

bool listedBefore(const Version& first, std::string_view a, const Version& second, std::string_view b) {
    if (first.numbers.empty() != second.numbers.empty())
        return second.numbers.empty();
    if (const auto order = compareVersions(first, second); order != 0)
        return order > 0;
    // The same version in two schemes, or two names without a number: by name.
    if (const auto order = compareNatural(a, b); order != 0)
        return order < 0;
    return a < b;
}

} // namespace

bool listsBefore(std::string_view a, std::string_view b) {
    return listedBefore(versionOf(a), a, versionOf(b), b);
}

// Each name is read once; the versions point into the names, which stay put until the end.
void sortNewestFirst(std::vector<TagEntry>& tags) {
    std::vector<std::pair<Version, std::size_t>> keys;
    keys.reserve(tags.size());
    for (std::size_t index = 0; index < tags.size(); ++index)
        keys.emplace_back(versionOf(tags[index].name), index);
    std::ranges::stable_sort(keys, [&](const auto& x, const auto& y) {
        return listedBefore(x.first, tags[x.second].name, y.first, tags[y.second].name);
    });
    std::vector<TagEntry> sorted;
    sorted.reserve(tags.size());
    for (const auto& key : keys)
        sorted.push_back(std::move(tags[key.second]));
    tags = std::move(sorted);
}

} // namespace orvel
