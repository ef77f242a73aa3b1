// The way to open the settings window on a given tab: whoever wants it sets the requested tab, the
// window opens (or comes forward) and takes the request, clearing it.
#pragma once

#include <QObject>

#include <optional>
#include <utility>

namespace orvel {

// The settings window's tabs, in their order.
enum class SettingsTab { appearance, general, git, signing, keyboard };

inline constexpr SettingsTab allSettingsTabs[] = {SettingsTab::appearance, SettingsTab::general,
                                                  SettingsTab::git, SettingsTab::signing,
                                                  SettingsTab::keyboard};

class SettingsTabRoute final : public QObject {
    Q_OBJECT

  public:
    static SettingsTabRoute& shared();

    const std::optional<SettingsTab>& requestedTab() const { return requestedTab_; }
    void request(SettingsTab tab);
    // The request, which is cleared.
    std::optional<SettingsTab> take();

  signals:
    void requested();

  private:
    SettingsTabRoute() = default;

    std::optional<SettingsTab> requestedTab_;
};

} // namespace orvel
