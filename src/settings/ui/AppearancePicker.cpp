#include "settings/ui/AppearancePicker.h"

#include "settings/GeneralSettingsViewModel.h"
#include "settings/LocalizationManager.h"
#include "settings/ui/ChoicePicker.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>

namespace orvel {

namespace {

QString appearanceLabel(const QVariant& value) {
    const QString appearance = value.toString();
    if (appearance == QLatin1String("light"))
        return localized("Light");
    if (appearance == QLatin1String("dark"))
        return localized("Dark");
    return localized("System");
}

} // namespace

AppearancePicker::AppearancePicker(GeneralSettingsViewModel& model, QWidget* parent)
    : QWidget(parent), model_(model), label_(new QLabel(this)),
      picker_(new ChoicePicker({QStringLiteral("system"), QStringLiteral("light"), QStringLiteral("dark")},
                               appearanceLabel, this)) {
    picker_->setObjectName(QStringLiteral("settings.general.appearance-picker"));
    label_->setBuddy(picker_);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(label_);
    layout->addWidget(picker_);
    layout->addStretch(1);
    connect(picker_, &ChoicePicker::chosen, this, [this](const QVariant& value) {
        GeneralSettings values = model_.values();
        values.appearance = value.toString();
        model_.setValues(values);
    });
    // Any value but light or dark follows the system, and shows so.
    auto show = [this] {
        const QString appearance = model_.values().appearance;
        const bool forced = appearance == QLatin1String("light") || appearance == QLatin1String("dark");
        picker_->showValue(forced ? appearance : QStringLiteral("system"));
    };
    connect(&model_, &GeneralSettingsViewModel::appearanceChanged, this, show);
    show();
    retranslate();
}

void AppearancePicker::retranslate() {
    label_->setText(localized("Appearance:"));
    picker_->setAccessibleName(localized("Appearance"));
}

void AppearancePicker::changeEvent(QEvent* event) {
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QWidget::changeEvent(event);
}

} // namespace orvel
