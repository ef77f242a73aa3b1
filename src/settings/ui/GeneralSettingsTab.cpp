#include "settings/ui/GeneralSettingsTab.h"

#include "settings/GeneralSettingsViewModel.h"
#include "settings/LocalizationManager.h"
#include "settings/ui/ChoicePicker.h"

#include <QCheckBox>
#include <QEvent>
#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QVBoxLayout>

namespace orvel {

namespace {

QVariantList languageCodes() {
    QVariantList codes;
    for (const SupportedLanguage& language : LocalizationManager::supportedLanguages)
        codes.append(QString::fromLatin1(language.code));
    return codes;
}

// A language shows by its own name, in every language; a code the program lacks shows as it is.
QString languageLabel(const QVariant& value) {
    for (const SupportedLanguage& language : LocalizationManager::supportedLanguages)
        if (value.toString() == QLatin1String(language.code))
            return QString::fromUtf8(language.displayName);
    return value.toString();
}

QString spaceReplacementLabel(const QVariant& value) {
    const QString replacement = value.toString();
    if (replacement == QLatin1String("-"))
        return localized("Hyphen (-)");
    if (replacement == QLatin1String("_"))
        return localized("Underscore (_)");
    if (replacement == QLatin1String("."))
        return localized("Dot (.)");
    return replacement;
}

QVariantList initFileValues() {
    QVariantList values;
    for (EmptyRepoInitFile file : allEmptyRepoInitFiles)
        values.append(rawValue(file));
    return values;
}

QVariantList numbers(std::initializer_list<int> values) {
    QVariantList list;
    for (int value : values)
        list.append(value);
    return list;
}

// A day: longer than anyone waits between fetches.
constexpr int longestFetchInterval = 1440;

} // namespace

GeneralSettingsTab::GeneralSettingsTab(GeneralSettingsViewModel& model, QWidget* parent)
    : QWidget(parent), model_(model), language_(new ChoicePicker(languageCodes(), languageLabel, this)),
      autoFetchInterval_(new QSpinBox(this)), autoPrune_(new QCheckBox(this)),
      branchSection_(new QGroupBox(this)),
      branchSpace_(new ChoicePicker({QStringLiteral("-"), QStringLiteral("_"), QStringLiteral(".")},
                                    spaceReplacementLabel, branchSection_)),
      initSection_(new QGroupBox(this)), initMessage_(new QLineEdit(initSection_)),
      initDescription_(new QLineEdit(initSection_)),
      initFile_(new ChoicePicker(
          initFileValues(),
          [](const QVariant& value) { return initialFileName(emptyRepoInitFileOf(value.toString())); },
          initSection_)),
      diffSection_(new QGroupBox(this)),
      largeFileSize_(new ChoicePicker(
          numbers({1, 2, 5, 10, 20, 50, 100}),
          [](const QVariant& value) { return localized("%1 MB", value.toInt()); }, diffSection_)),
      largeFileLines_(new ChoicePicker(
          numbers({10, 15, 20, 25, 30}),
          [](const QVariant& value) { return localized("%1K lines", value.toInt()); }, diffSection_)),
      languageLabel_(new QLabel(this)), intervalLabel_(new QLabel(this)), branchSpaceLabel_(new QLabel(this)),
      initMessageLabel_(new QLabel(this)), initDescriptionLabel_(new QLabel(this)),
      initFileLabel_(new QLabel(this)), largeFileSizeLabel_(new QLabel(this)),
      largeFileLinesLabel_(new QLabel(this)) {
    setObjectName(QStringLiteral("settings.general.form"));
    language_->setObjectName(QStringLiteral("settings.general.language-picker"));
    autoFetchInterval_->setObjectName(QStringLiteral("settings.general.auto-fetch-interval"));
    autoFetchInterval_->setRange(0, longestFetchInterval);
    autoPrune_->setObjectName(QStringLiteral("settings.general.auto-prune-toggle"));
    branchSpace_->setObjectName(QStringLiteral("settings.general.branch-space-picker"));
    initMessage_->setObjectName(QStringLiteral("settings.general.init-message-field"));
    initDescription_->setObjectName(QStringLiteral("settings.general.init-desc-field"));
    initFile_->setObjectName(QStringLiteral("settings.general.init-file-picker"));
    largeFileSize_->setObjectName(QStringLiteral("settings.general.large-file-size-picker"));
    largeFileLines_->setObjectName(QStringLiteral("settings.general.large-file-lines-picker"));

    auto addRow = [](QFormLayout* form, QLabel* label, QWidget* field) {
        label->setBuddy(field);
        form->addRow(label, field);
    };
    auto* top = new QFormLayout;
    addRow(top, languageLabel_, language_);
    addRow(top, intervalLabel_, autoFetchInterval_);
    top->addRow(QString(), autoPrune_);
    auto* branchForm = new QFormLayout(branchSection_);
    addRow(branchForm, branchSpaceLabel_, branchSpace_);
    auto* initForm = new QFormLayout(initSection_);
    addRow(initForm, initMessageLabel_, initMessage_);
    addRow(initForm, initDescriptionLabel_, initDescription_);
    addRow(initForm, initFileLabel_, initFile_);
    auto* diffForm = new QFormLayout(diffSection_);
    addRow(diffForm, largeFileSizeLabel_, largeFileSize_);
    addRow(diffForm, largeFileLinesLabel_, largeFileLines_);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addWidget(branchSection_);
    layout->addWidget(initSection_);
    layout->addWidget(diffSection_);
    layout->addStretch(1);

    connect(language_, &ChoicePicker::chosen, this, [this](const QVariant& value) {
        edit([&](GeneralSettings& values) { values.language = value.toString(); });
    });
    connect(autoFetchInterval_, &QSpinBox::valueChanged, this, [this](int minutes) {
        edit([&](GeneralSettings& values) { values.autoFetchInterval = minutes; });
    });
    connect(autoPrune_, &QCheckBox::toggled, this,
            [this](bool prune) { edit([&](GeneralSettings& values) { values.autoPrune = prune; }); });
    connect(branchSpace_, &ChoicePicker::chosen, this, [this](const QVariant& value) {
        edit([&](GeneralSettings& values) { values.branchSpaceReplacement = value.toString(); });
    });
    connect(initMessage_, &QLineEdit::textEdited, this, [this](const QString& text) {
        edit([&](GeneralSettings& values) { values.emptyRepoInitMessage = text; });
    });
    connect(initDescription_, &QLineEdit::textEdited, this, [this](const QString& text) {
        edit([&](GeneralSettings& values) { values.emptyRepoInitDesc = text; });
    });
    connect(initFile_, &ChoicePicker::chosen, this, [this](const QVariant& value) {
        edit([&](GeneralSettings& values) {
            values.emptyRepoInitFile = emptyRepoInitFileOf(value.toString());
        });
    });
    connect(largeFileSize_, &ChoicePicker::chosen, this, [this](const QVariant& value) {
        edit([&](GeneralSettings& values) { values.largeFileSizeMB = value.toInt(); });
    });
    connect(largeFileLines_, &ChoicePicker::chosen, this, [this](const QVariant& value) {
        edit([&](GeneralSettings& values) { values.largeFileLineCountK = value.toInt(); });
    });
    connect(&model_, &GeneralSettingsViewModel::valuesChanged, this, &GeneralSettingsTab::showValues);
    showValues();
    retranslate();
}

void GeneralSettingsTab::edit(const std::function<void(GeneralSettings&)>& change) {
    GeneralSettings values = model_.values();
    change(values);
    model_.setValues(values);
}

void GeneralSettingsTab::showValues() {
    const GeneralSettings& values = model_.values();
    language_->showValue(values.language);
    {
        const QSignalBlocker blocker(autoFetchInterval_);
        autoFetchInterval_->setValue(values.autoFetchInterval);
    }
    {
        const QSignalBlocker blocker(autoPrune_);
        autoPrune_->setChecked(values.autoPrune);
    }
    branchSpace_->showValue(values.branchSpaceReplacement);
    // Setting a field's text moves its cursor to the end: only a change from elsewhere does.
    if (initMessage_->text() != values.emptyRepoInitMessage)
        initMessage_->setText(values.emptyRepoInitMessage);
    if (initDescription_->text() != values.emptyRepoInitDesc)
        initDescription_->setText(values.emptyRepoInitDesc);
    initFile_->showValue(rawValue(values.emptyRepoInitFile));
    largeFileSize_->showValue(values.largeFileSizeMB);
    largeFileLines_->showValue(values.largeFileLineCountK);
}

void GeneralSettingsTab::retranslate() {
    languageLabel_->setText(localized("Language"));
    intervalLabel_->setText(localized("Auto-Fetch Interval (min)"));
    autoFetchInterval_->setSpecialValueText(localized("Off"));
    autoPrune_->setText(localized("Auto-Prune"));
    branchSection_->setTitle(localized("Branch Creation"));
    branchSpaceLabel_->setText(localized("Replace spaces with"));
    // A group's title takes "&" for a mnemonic: this one is meant as text.
    initSection_->setTitle(localized("Clone & Init").replace(QLatin1Char('&'), QStringLiteral("&&")));
    initMessageLabel_->setText(localized("Init commit message"));
    initDescriptionLabel_->setText(localized("Init commit description"));
    initFileLabel_->setText(localized("Initial file for empty repos"));
    diffSection_->setTitle(localized("Diff"));
    largeFileSizeLabel_->setText(localized("Large file size"));
    largeFileLinesLabel_->setText(localized("Large file lines"));
    for (QLabel* label : {languageLabel_, intervalLabel_, branchSpaceLabel_, initMessageLabel_,
                          initDescriptionLabel_, initFileLabel_, largeFileSizeLabel_, largeFileLinesLabel_})
        label->buddy()->setAccessibleName(label->text());
    autoPrune_->setAccessibleName(autoPrune_->text());
}

void GeneralSettingsTab::changeEvent(QEvent* event) {
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QWidget::changeEvent(event);
}

} // namespace orvel
