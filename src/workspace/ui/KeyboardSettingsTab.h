// The keyboard page of the settings: each rebindable command with its shortcut, a Record button
// that takes the next key press as the new shortcut (Escape cancels) and a Reset button; Reset All
// below. Changes take effect and persist at once. While a row records, the key press goes to the
// row and not to the menus, so the command bound to it does not run.
#pragma once

#include "settings/KeybindingStore.h"

#include <QWidget>

#include <map>
#include <optional>

class QLabel;
class QPushButton;

namespace orvel {

class KeyboardSettingsTab final : public QWidget {
    Q_OBJECT

  public:
    explicit KeyboardSettingsTab(QWidget* parent = nullptr);
    ~KeyboardSettingsTab() override;

    const std::optional<KeyBindingID>& recordingID() const { return recordingID_; }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void hideEvent(QHideEvent* event) override;

  private:
    struct Row {
        QLabel* label;
        QLabel* display;
        QPushButton* record;
        QPushButton* reset;
    };

    void toggleRecording(KeyBindingID id);
    void stopRecording();
    void showBindings();

    std::map<KeyBindingID, Row> rows_;
    QPushButton* resetAll_;
    std::optional<KeyBindingID> recordingID_;
};

} // namespace orvel
