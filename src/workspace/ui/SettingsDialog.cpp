#include "workspace/ui/SettingsDialog.h"

#include "notices/ToastManager.h"
#include "settings/GeneralSettingsViewModel.h"
#include "settings/LocalizationManager.h"
#include "settings/SettingsPage.h"
#include "settings/ThemeEngine.h"
#include "settings/ui/AppearancePicker.h"
#include "settings/ui/GeneralSettingsTab.h"
#include "workspace/ui/KeyboardSettingsTab.h"

#include <QDialogButtonBox>
#include <QEvent>
#include <QPointer>
#include <QPushButton>
#include <QShowEvent>
#include <QTabWidget>
#include <QVBoxLayout>

namespace orvel {

namespace {

// The program's own preferences first, then git's configuration, then signing, which is checked
// against git's; the theme is committed after them all.
constexpr SettingsTab applyOrder[] = {SettingsTab::general, SettingsTab::git, SettingsTab::signing,
                                      SettingsTab::appearance, SettingsTab::keyboard};

const char* identifier(SettingsTab tab) {
    switch (tab) {
    case SettingsTab::appearance:
        return "settings.tab.appearance";
    case SettingsTab::general:
        return "settings.tab.general";
    case SettingsTab::git:
        return "settings.tab.git";
    case SettingsTab::signing:
        return "settings.tab.signing";
    case SettingsTab::keyboard:
        break;
    }
    return "settings.tab.keyboard";
}

QString title(SettingsTab tab) {
    switch (tab) {
    case SettingsTab::appearance:
        return localized("Appearance");
    case SettingsTab::general:
        return localized("General");
    case SettingsTab::git:
        return localized("Git");
    case SettingsTab::signing:
        return localized("Signing");
    case SettingsTab::keyboard:
        break;
    }
    return localized("Keyboard");
}

} // namespace

SettingsDialog::SettingsDialog(ToastManager& toasts, GeneralSettingsViewModel& general, QWidget* parent)
    : QDialog(parent), toasts_(toasts), tabs_(new QTabWidget(this)), keyboard_(new KeyboardSettingsTab),
      buttons_(new QDialogButtonBox(QDialogButtonBox::Apply | QDialogButtonBox::Cancel, this)) {
    setObjectName(QStringLiteral("settings.window"));
    tabs_->setObjectName(QStringLiteral("settings.tabview"));
    for (SettingsTab tab : allSettingsTabs) {
        Slot& place = slot(tab);
        place.container = new QWidget(tabs_);
        place.container->setObjectName(QLatin1String(identifier(tab)));
        place.layout = new QVBoxLayout(place.container);
        tabs_->addTab(place.container, QString());
    }
    // The appearance control heads its tab, above whatever the tab's own page shows.
    slot(SettingsTab::appearance).layout->addWidget(new AppearancePicker(general));
    slot(SettingsTab::appearance).layout->addStretch(1);
    setPage(SettingsTab::general, new GeneralSettingsTab(general), &general);
    setPage(SettingsTab::keyboard, keyboard_);

    buttons_->button(QDialogButtonBox::Apply)->setObjectName(QStringLiteral("settings.apply"));
    buttons_->button(QDialogButtonBox::Cancel)->setObjectName(QStringLiteral("settings.cancel"));
    connect(buttons_->button(QDialogButtonBox::Apply), &QPushButton::clicked, this, [this] { apply(); });
    connect(buttons_, &QDialogButtonBox::rejected, this, &SettingsDialog::reject);
    connect(&SettingsTabRoute::shared(), &SettingsTabRoute::requested, this, [this] {
        if (isVisible())
            takeRoute();
    });
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(tabs_);
    layout->addWidget(buttons_);
    retranslate();
}

void SettingsDialog::setPage(SettingsTab tab, QWidget* widget, SettingsPage* page) {
    Slot& place = slot(tab);
    delete place.content;
    place.content = widget;
    place.page = page;
    // Below the appearance control, which stays first; the stretch stays last.
    place.layout->insertWidget(tab == SettingsTab::appearance ? 1 : 0, widget, 1);
}

void SettingsDialog::showTab(SettingsTab tab) {
    tabs_->setCurrentWidget(slot(tab).container);
}

void SettingsDialog::takeRoute() {
    if (const std::optional<SettingsTab> requested = SettingsTabRoute::shared().take())
        showTab(*requested);
}

void SettingsDialog::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    if (event->spontaneous())
        return;
    takeRoute();
    ThemeEngine::shared().saveSnapshot();
    loadPages();
}

QCoro::Task<void> SettingsDialog::loadPages() {
    QPointer<SettingsDialog> self(this);
    for (SettingsTab tab : applyOrder) {
        SettingsPage* page = slot(tab).page;
        if (!page)
            continue;
        co_await page->load();
        if (!self)
            co_return;
    }
}

QCoro::Task<void> SettingsDialog::apply() {
    if (applying_)
        co_return;
    QPointer<SettingsDialog> self(this);
    setApplying(true);
    bool failed = false;
    for (SettingsTab tab : applyOrder) {
        SettingsPage* page = slot(tab).page;
        if (!page)
            continue;
        co_await page->apply();
        if (!self)
            co_return;
        failed = failed || !page->errorMessage().isEmpty();
    }
    ThemeEngine::shared().commitTheme();
    if (failed) {
        toasts_.show(localized("Some settings failed to save"), ToastType::error,
                     ToastManager::errorDuration);
        setApplying(false);
        co_return;
    }
    bool mayClose = true;
    if (afterApply_) {
        mayClose = co_await afterApply_();
        if (!self)
            co_return;
    }
    setApplying(false);
    if (mayClose)
        accept();
}

void SettingsDialog::setApplying(bool applying) {
    applying_ = applying;
    buttons_->setEnabled(!applying);
}

void SettingsDialog::reject() {
    // An Apply under way runs to its end first: a revert between its steps would undo half of it.
    if (applying_)
        return;
    for (SettingsTab tab : applyOrder)
        if (SettingsPage* page = slot(tab).page)
            page->revert();
    ThemeEngine::shared().revertTheme();
    QDialog::reject();
}

void SettingsDialog::retranslate() {
    setWindowTitle(localized("Settings"));
    for (SettingsTab tab : allSettingsTabs) {
        QWidget* container = slot(tab).container;
        tabs_->setTabText(tabs_->indexOf(container), title(tab));
        container->setAccessibleName(title(tab));
    }
    buttons_->button(QDialogButtonBox::Apply)->setText(localized("Apply"));
    buttons_->button(QDialogButtonBox::Cancel)->setText(localized("Cancel"));
}

void SettingsDialog::changeEvent(QEvent* event) {
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QDialog::changeEvent(event);
}

} // namespace orvel
