#include "settings/SettingsTabRoute.h"

namespace orvel {

SettingsTabRoute& SettingsTabRoute::shared() {
    static SettingsTabRoute route;
    return route;
}

void SettingsTabRoute::request(SettingsTab tab) {
    requestedTab_ = tab;
    emit requested();
}

std::optional<SettingsTab> SettingsTabRoute::take() {
    return std::exchange(requestedTab_, std::nullopt);
}

} // namespace orvel
