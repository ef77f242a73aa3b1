// The settings window: the tabs Appearance, General, Git, Signing and Keyboard, with one Apply and
// one Cancel across every tab that has a page behind it. Opening it snapshots the theme and loads
// the pages; Apply writes them in a fixed order and closes the window unless a page failed;
// Cancel, and closing the window by any other means, drops what was edited. It is not modal. The
// keyboard shortcuts take effect at once and are no part of Apply or Cancel.
#pragma once

#include "settings/SettingsTabRoute.h"

#include <QDialog>

#include <QCoro/QCoroTask>

#include <array>
#include <functional>

class QDialogButtonBox;
class QTabWidget;
class QVBoxLayout;

namespace orvel {

class GeneralSettingsViewModel;
class KeyboardSettingsTab;
class SettingsPage;
class ToastManager;

class SettingsDialog final : public QDialog {
    Q_OBJECT

  public:
    // Asked after an Apply in which no page failed; the window closes when it answers true. The
    // signing tab's identity check goes here: it may ask the user over the window first.
    using AfterApply = std::function<QCoro::Task<bool>()>;

    SettingsDialog(ToastManager& toasts, GeneralSettingsViewModel& general, QWidget* parent = nullptr);

    // Shows `widget` on `tab` in place of what it showed; `page`, when given, takes part in the
    // loading, Apply and Cancel. A tab without a page stays out of them.
    void setPage(SettingsTab tab, QWidget* widget, SettingsPage* page = nullptr);
    void setAfterApply(AfterApply afterApply) { afterApply_ = std::move(afterApply); }

    KeyboardSettingsTab& keyboard() const { return *keyboard_; }
    void showTab(SettingsTab tab);
    bool isApplying() const { return applying_; }

  public slots:
    void reject() override;

  protected:
    void changeEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;

  private:
    struct Slot {
        QWidget* container = nullptr;
        QVBoxLayout* layout = nullptr;
        QWidget* content = nullptr;
        SettingsPage* page = nullptr;
    };

    Slot& slot(SettingsTab tab) { return slots_[static_cast<std::size_t>(tab)]; }
    QCoro::Task<void> loadPages();
    QCoro::Task<void> apply();
    void setApplying(bool applying);
    void takeRoute();
    void retranslate();

    ToastManager& toasts_;
    QTabWidget* tabs_;
    std::array<Slot, std::size(allSettingsTabs)> slots_;
    KeyboardSettingsTab* keyboard_;
    QDialogButtonBox* buttons_;
    AfterApply afterApply_;
    bool applying_ = false;
};

} // namespace orvel
