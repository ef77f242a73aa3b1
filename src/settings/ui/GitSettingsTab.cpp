#include "settings/ui/GitSettingsTab.h"

#include "settings/GitSettingsViewModel.h"
#include "settings/LocalizationManager.h"
#include "settings/ui/SettingsPathRow.h"
#include "widgets/OInlineMessage.h"

#include <QComboBox>
#include <QDir>
#include <QEvent>
#include <QFileDialog>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace orvel {

namespace {

// The folder where the picker's file dialog opens: where a git built by hand is installed.
const QString customBinaryFolder = QStringLiteral("/usr/local/bin");

QLineEdit* lineEdit(const char* objectName, QWidget* parent) {
    auto* edit = new QLineEdit(parent);
    edit->setObjectName(QLatin1String(objectName));
    edit->setClearButtonEnabled(true);
    return edit;
}

} // namespace

GitSettingsTab::GitSettingsTab(GitSettingsViewModel& model, QWidget* parent)
    : QWidget(parent), model_(model), form_(new QFormLayout), binaryPicker_(new QComboBox(this)),
      userName_(lineEdit("settings.git.name-field", this)),
      userEmail_(lineEdit("settings.git.email-field", this)),
      defaultBranch_(lineEdit("settings.git.default-branch-field", this)),
      sshCommand_(lineEdit("settings.git.ssh-command-field", this)),
      globalExcludes_(new SettingsPathRow("Global Excludes", QDir::homePath(), this)),
      error_(new OInlineMessage(this)) {
    setObjectName(QStringLiteral("settings.git.form"));
    binaryPicker_->setObjectName(QStringLiteral("settings.git.binary-picker"));
    globalExcludes_->setObjectName(QStringLiteral("settings.git.global-excludes-row"));
    error_->setObjectName(QStringLiteral("settings.git.error-text"));
    form_->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    for (QWidget* field : {static_cast<QWidget*>(binaryPicker_), static_cast<QWidget*>(userName_),
                           static_cast<QWidget*>(userEmail_), static_cast<QWidget*>(defaultBranch_),
                           static_cast<QWidget*>(sshCommand_), static_cast<QWidget*>(globalExcludes_)}) {
        auto* label = new QLabel(this);
        label->setBuddy(field);
        form_->addRow(label, field);
    }
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form_);
    layout->addWidget(error_);
    layout->addStretch(1);

    connect(userName_, &QLineEdit::textEdited, &model_, &GitSettingsViewModel::setUserName);
    connect(userEmail_, &QLineEdit::textEdited, &model_, &GitSettingsViewModel::setUserEmail);
    connect(defaultBranch_, &QLineEdit::textEdited, &model_, &GitSettingsViewModel::setDefaultBranch);
    connect(sshCommand_, &QLineEdit::textEdited, &model_, &GitSettingsViewModel::setSshCommand);
    connect(globalExcludes_, &SettingsPathRow::textEdited, &model_, &GitSettingsViewModel::setGlobalExcludes);
    connect(binaryPicker_, &QComboBox::activated, this, &GitSettingsTab::binaryChosen);
    connect(&model_, &GitSettingsViewModel::fieldsChanged, this, &GitSettingsTab::showFields);
    connect(&model_, &GitSettingsViewModel::binariesChanged, this, &GitSettingsTab::showBinaries);
    connect(&model_, &GitSettingsViewModel::errorMessageChanged, this, &GitSettingsTab::showError);
    retranslate();
    showFields();
    showError();
}

void GitSettingsTab::showFields() {
    // setText only where the text differs, so that a cursor in a field being edited stays put.
    const auto show = [](QLineEdit* edit, const QString& text) {
        if (edit->text() != text)
            edit->setText(text);
    };
    show(userName_, model_.userName());
    show(userEmail_, model_.userEmail());
    show(defaultBranch_, model_.defaultBranch());
    show(sshCommand_, model_.sshCommand());
    globalExcludes_->setText(model_.globalExcludes());
    showBinaries();
}

void GitSettingsTab::showBinaries() {
    const QSignalBlocker blocker(binaryPicker_);
    binaryPicker_->clear();
    const QString selected = model_.selectedBinaryPath();
    const auto& binaries = model_.availableBinaries();
    if (binaries.empty() && model_.isDiscovering()) {
        binaryPicker_->addItem(localized("Detecting..."));
        binaryPicker_->setEnabled(false);
        return;
    }
    binaryPicker_->setEnabled(true);
    binaryPicker_->addItem(localized("Automatic (found on PATH)"), QString());
    for (const GitBinaryEntry& entry : binaries)
        binaryPicker_->addItem(entry.label, entry.path);
    // A stored program that no longer answers as git still shows as the choice in force.
    if (!selected.isEmpty() && binaryPicker_->findData(selected) < 0)
        binaryPicker_->addItem(selected, selected);
    binaryPicker_->addItem(localized("Custom..."), QLatin1String(customBinaryTag));
    binaryPicker_->setCurrentIndex(binaryPicker_->findData(selected));
}

void GitSettingsTab::binaryChosen(int index) {
    const QString path = binaryPicker_->itemData(index).toString();
    if (path == QLatin1String(customBinaryTag)) {
        // The picker keeps showing the program in force until a file is taken.
        showBinaries();
        chooseCustomBinary();
        return;
    }
    model_.selectBinary(path);
}

void GitSettingsTab::chooseCustomBinary() {
    auto* dialog = new QFileDialog(this, localized("Choose a git executable"), customBinaryFolder);
    dialog->setObjectName(QStringLiteral("settings.git.binary-dialog"));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::ExistingFile);
    dialog->setOption(QFileDialog::DontResolveSymlinks);
    connect(dialog, &QFileDialog::fileSelected, &model_,
            [model = &model_](const QString& path) { model->selectCustomBinary(path); });
    dialog->open();
}

void GitSettingsTab::showError() {
    const QString message = model_.errorMessage();
    error_->setMessage(message.isEmpty() ? std::nullopt : std::optional<QString>(message));
}

void GitSettingsTab::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

void GitSettingsTab::retranslate() {
    const auto label = [this](QWidget* field, const QString& text) {
        if (auto* item = form_->labelForField(field))
            static_cast<QLabel*>(item)->setText(text);
        field->setAccessibleName(text);
    };
    label(binaryPicker_, localized("Git Instance"));
    label(userName_, localized("User Name"));
    label(userEmail_, localized("User Email"));
    label(defaultBranch_, localized("Default Branch"));
    label(sshCommand_, localized("SSH Command"));
    label(globalExcludes_, localized("Global Excludes"));
    showBinaries();
}

} // namespace orvel
