#include "workspace/ui/SettingsDialog.h"

#include "settings/LocalizationManager.h"
#include "workspace/ui/KeyboardSettingsTab.h"

#include <QDialogButtonBox>
#include <QEvent>
#include <QTabWidget>
#include <QVBoxLayout>

namespace orvel {

SettingsDialog::SettingsDialog(QWidget* parent)
    : QDialog(parent), tabs_(new QTabWidget(this)), keyboard_(new KeyboardSettingsTab(tabs_)),
      buttons_(new QDialogButtonBox(QDialogButtonBox::Close, this)) {
    setObjectName(QStringLiteral("settings-window"));
    tabs_->setObjectName(QStringLiteral("settings.tabs"));
    tabs_->addTab(keyboard_, QString());
    connect(buttons_, &QDialogButtonBox::rejected, this, &QDialog::close);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(tabs_);
    layout->addWidget(buttons_);
    retranslate();
}

void SettingsDialog::retranslate() {
    setWindowTitle(localized("Settings"));
    tabs_->setTabText(tabs_->indexOf(keyboard_), localized("Keyboard"));
}

void SettingsDialog::changeEvent(QEvent* event) {
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QDialog::changeEvent(event);
}

} // namespace orvel
