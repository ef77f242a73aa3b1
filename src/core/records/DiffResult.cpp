#include "core/records/DiffResult.h"

namespace orvel {

namespace {

// Indexed by DiffStatus, in declared order.
constexpr std::string_view statusCodes = "ACDMRTU";

} // namespace

char codeOf(DiffStatus status) {
    return statusCodes[static_cast<std::size_t>(status)];
}

std::optional<DiffStatus> diffStatusFromCode(char code) {
    const auto at = statusCodes.find(code);
    if (at == std::string_view::npos)
        return std::nullopt;
    return static_cast<DiffStatus>(at);
}

} // namespace orvel
