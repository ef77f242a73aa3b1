#include "core/records/FileChange.h"

#include <array>
#include <utility>

namespace orvel {

namespace {

constexpr std::array<std::pair<std::string_view, ConflictType>, 7> conflictCodes{{
    {"DD", ConflictType::bothDeleted},
    {"AU", ConflictType::addedByUs},
    {"UD", ConflictType::deletedByThem},
    {"UA", ConflictType::addedByThem},
    {"DU", ConflictType::deletedByUs},
    {"AA", ConflictType::bothAdded},
    {"UU", ConflictType::bothModified},
}};

} // namespace

TrackedStatus trackedStatusFromCode(char code) {
    switch (code) {
    case 'M':
        return TrackedStatus::modified;
    case 'T':
        return TrackedStatus::typeChanged;
    case 'A':
        return TrackedStatus::added;
    case 'D':
        return TrackedStatus::deleted;
    case 'R':
        return TrackedStatus::renamed;
    case 'C':
        return TrackedStatus::copied;
    default:
        return TrackedStatus::unmodified;
    }
}

char codeOf(TrackedStatus status) {
    constexpr std::string_view codes = " MTADRC";
    return codes[static_cast<std::size_t>(status)];
}

std::optional<ConflictType> conflictTypeFromCode(std::string_view code) {
    for (const auto& [text, type] : conflictCodes) {
        if (text == code)
            return type;
    }
    return std::nullopt;
}

std::string_view codeOf(ConflictType type) {
    for (const auto& [text, candidate] : conflictCodes) {
        if (candidate == type)
            return text;
    }
    return {};
}

} // namespace orvel
