#include "settings/ui/SigningSettingsTab.h"

#include "settings/LocalizationManager.h"
#include "settings/SigningKeyService.h"
#include "settings/SigningSettingsViewModel.h"
#include "widgets/OInlineMessage.h"

#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QFileDialog>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace orvel {

namespace {

// Where the open panel for a gpg program starts: where the system's gpg lies.
const QString programFolder = QStringLiteral("/usr/bin");

QString keyText(const SigningKeyEntry& key) {
    if (!key.expires)
        return key.label;
    return key.label + QStringLiteral("  —  ") + localized("Expires: %1", *key.expires);
}

// The picker shows the key's entry when the list has it, otherwise the id or path as typed.
void showKey(QComboBox* picker, const QString& key) {
    const int index = picker->findData(key);
    if (index >= 0) {
        if (picker->currentIndex() != index || picker->currentText() != picker->itemText(index))
            picker->setCurrentIndex(index);
    } else if (picker->currentIndex() != -1 || picker->currentText() != key) {
        picker->setCurrentIndex(-1);
        picker->setEditText(key);
    }
}

void fillKeys(QComboBox* picker, const std::vector<SigningKeyEntry>& keys, bool offerNone,
              const QString& emptyText) {
    const QSignalBlocker blocker(picker);
    picker->clear();
    if (offerNone && !keys.empty())
        picker->addItem(localized("None"), QString());
    for (const SigningKeyEntry& key : keys)
        picker->addItem(keyText(key), key.keyID);
    picker->lineEdit()->setPlaceholderText(keys.empty() ? emptyText : QString());
}

void showText(QLineEdit* field, const QString& text) {
    if (field->text() != text)
        field->setText(text);
}

} // namespace

SigningSettingsTab::SigningSettingsTab(SigningSettingsViewModel& model, QWidget* parent)
    : QWidget(parent), model_(model), form_(new QFormLayout), formatLabel_(new QLabel(this)),
      format_(new QComboBox(this)), gpgProgramLabel_(new QLabel(this)),
      gpgProgram_(
          makePathRow(QStringLiteral("settings.signing.gpg-program-row"), QStringLiteral("GPG Program"))),
      gpgKeyLabel_(new QLabel(this)),
      gpgKey_(makeKeyPicker(QStringLiteral("settings.signing.gpg-key-picker"))),
      sshKeyLabel_(new QLabel(this)), sshKeyRow_(new QWidget(this)),
      sshKey_(makeKeyPicker(QStringLiteral("settings.signing.ssh-key-picker"))),
      sshKeyBrowse_(new QPushButton(sshKeyRow_)), allowedSignersLabel_(new QLabel(this)),
      allowedSigners_(makePathRow(QStringLiteral("settings.signing.ssh-allowed-signers-row"),
                                  QStringLiteral("Allowed Signers"))),
      signCommits_(new QCheckBox(this)), signTags_(new QCheckBox(this)), statusLabel_(new QLabel(this)),
      status_(new QLabel(this)), error_(new OInlineMessage(this)) {
    setObjectName(QStringLiteral("settings.signing.tab"));
    format_->setObjectName(QStringLiteral("settings.signing.format-picker"));
    format_->addItem(QString(), QVariant::fromValue(static_cast<int>(SigningFormat::gpg)));
    format_->addItem(QString(), QVariant::fromValue(static_cast<int>(SigningFormat::ssh)));
    sshKeyRow_->setObjectName(QStringLiteral("settings.signing.ssh-key-row"));
    sshKeyBrowse_->setObjectName(QStringLiteral("settings.signing.ssh-key-browse"));
    sshKeyBrowse_->setAutoDefault(false);
    auto* sshKeyLayout = new QHBoxLayout(sshKeyRow_);
    sshKeyLayout->setContentsMargins(0, 0, 0, 0);
    sshKeyLayout->addWidget(sshKey_, 1);
    sshKeyLayout->addWidget(sshKeyBrowse_);
    signCommits_->setObjectName(QStringLiteral("settings.signing.sign-commits-toggle"));
    signTags_->setObjectName(QStringLiteral("settings.signing.sign-tags-toggle"));
    status_->setObjectName(QStringLiteral("settings.signing.status-text"));
    status_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    error_->setObjectName(QStringLiteral("settings.signing.error-text"));
    formatLabel_->setBuddy(format_);
    gpgProgramLabel_->setBuddy(gpgProgram_.text);
    gpgKeyLabel_->setBuddy(gpgKey_);
    sshKeyLabel_->setBuddy(sshKey_);
    allowedSignersLabel_->setBuddy(allowedSigners_.text);

    form_->addRow(formatLabel_, format_);
    form_->addRow(gpgProgramLabel_, gpgProgram_.row);
    form_->addRow(gpgKeyLabel_, gpgKey_);
    form_->addRow(sshKeyLabel_, sshKeyRow_);
    form_->addRow(allowedSignersLabel_, allowedSigners_.row);
    form_->addRow(QString(), signCommits_);
    form_->addRow(QString(), signTags_);
    form_->addRow(statusLabel_, status_);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form_);
    layout->addWidget(error_);
    layout->addStretch(1);

    connect(format_, &QComboBox::activated, this, [this](int index) {
        model_.setSelectedFormat(static_cast<SigningFormat>(format_->itemData(index).toInt()));
    });
    connect(gpgProgram_.text, &QLineEdit::textEdited, &model_, &SigningSettingsViewModel::setGpgProgram);
    connect(gpgProgram_.browse, &QPushButton::clicked, this, [this] {
        chooseFile(localized("Choose GPG Program"), programFolder,
                   [this](const QString& path) { model_.setGpgProgram(path); });
    });
    connect(gpgKey_, &QComboBox::activated, this,
            [this](int index) { model_.setGpgSigningKey(gpgKey_->itemData(index).toString()); });
    connect(gpgKey_->lineEdit(), &QLineEdit::textEdited, &model_,
            &SigningSettingsViewModel::setGpgSigningKey);
    connect(sshKey_, &QComboBox::activated, this,
            [this](int index) { model_.setSshSigningKey(sshKey_->itemData(index).toString()); });
    connect(sshKey_->lineEdit(), &QLineEdit::textEdited, &model_,
            &SigningSettingsViewModel::setSshSigningKey);
    connect(sshKeyBrowse_, &QPushButton::clicked, this, [this] {
        chooseFile(localized("Choose SSH Signing Key"), SigningKeyService::defaultSshFolder(),
                   [this](const QString& path) { model_.setSshSigningKey(path); });
    });
    connect(allowedSigners_.text, &QLineEdit::textEdited, &model_,
            &SigningSettingsViewModel::setSshAllowedSigners);
    connect(allowedSigners_.browse, &QPushButton::clicked, this, [this] {
        chooseFile(localized("Choose Allowed Signers File"), SigningKeyService::defaultSshFolder(),
                   [this](const QString& path) { model_.setSshAllowedSigners(path); });
    });
    connect(signCommits_, &QCheckBox::clicked, &model_, &SigningSettingsViewModel::setSignCommits);
    connect(signTags_, &QCheckBox::clicked, &model_, &SigningSettingsViewModel::setSignTags);
    connect(&model_, &SigningSettingsViewModel::formChanged, this, &SigningSettingsTab::showForm);
    connect(&model_, &SigningSettingsViewModel::keysChanged, this, &SigningSettingsTab::showKeys);
    connect(&model_, &SigningSettingsViewModel::errorChanged, this, &SigningSettingsTab::showError);
    retranslate();
    showError();
}

SigningSettingsTab::PathRow SigningSettingsTab::makePathRow(const QString& rowName, const QString& label) {
    PathRow path{new QWidget(this), nullptr, nullptr};
    path.text = new QLineEdit(path.row);
    path.browse = new QPushButton(path.row);
    path.row->setObjectName(rowName);
    // The identifiers name the row by its English label, whatever the language.
    path.text->setObjectName(QStringLiteral("settings.path-row.text.") + label);
    path.browse->setObjectName(QStringLiteral("settings.path-row.browse.") + label);
    path.browse->setAutoDefault(false);
    auto* layout = new QHBoxLayout(path.row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(path.text, 1);
    layout->addWidget(path.browse);
    return path;
}

// A key is picked from the list or typed: an id gpg didn't list, or the path of a key elsewhere.
QComboBox* SigningSettingsTab::makeKeyPicker(const QString& name) {
    auto* picker = new QComboBox(this);
    picker->setObjectName(name);
    picker->setEditable(true);
    picker->setInsertPolicy(QComboBox::NoInsert);
    picker->setCompleter(nullptr);
    picker->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    picker->setMinimumContentsLength(36);
    return picker;
}

void SigningSettingsTab::chooseFile(const QString& title, const QString& startFolder,
                                    std::function<void(const QString&)> chosen) {
    auto* dialog = new QFileDialog(this, title, startFolder);
    dialog->setObjectName(QStringLiteral("settings.signing.open-panel"));
    dialog->setFileMode(QFileDialog::ExistingFile);
    dialog->setWindowModality(Qt::WindowModal);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &QFileDialog::fileSelected, this, std::move(chosen));
    dialog->open();
}

void SigningSettingsTab::retranslate() {
    formatLabel_->setText(localized("Signing Format"));
    format_->setItemText(0, localized("GPG"));
    format_->setItemText(1, localized("SSH"));
    gpgProgramLabel_->setText(localized("GPG Program"));
    gpgKeyLabel_->setText(localized("Signing Key"));
    sshKeyLabel_->setText(localized("SSH Signing Key"));
    allowedSignersLabel_->setText(localized("Allowed Signers"));
    for (QPushButton* browse : {gpgProgram_.browse, sshKeyBrowse_, allowedSigners_.browse})
        browse->setText(localized("Browse"));
    signCommits_->setText(localized("Sign Commits"));
    signTags_->setText(localized("Sign Tags"));
    statusLabel_->setText(localized("Status"));
    for (QLabel* label : {formatLabel_, gpgProgramLabel_, gpgKeyLabel_, sshKeyLabel_, allowedSignersLabel_})
        label->buddy()->setAccessibleName(label->text());
    sshKeyBrowse_->setAccessibleName(localized("Choose SSH Signing Key"));
    gpgProgram_.browse->setAccessibleName(localized("Choose GPG Program"));
    allowedSigners_.browse->setAccessibleName(localized("Choose Allowed Signers File"));
    status_->setAccessibleName(localized("Status"));
    showKeys();
}

void SigningSettingsTab::showKeys() {
    fillKeys(gpgKey_, model_.availableGPGKeys(), true,
             localized("No GPG keys found. Install gpg and create a key."));
    fillKeys(sshKey_, model_.availableSSHKeys(), false, localized("No SSH keys found in ~/.ssh/"));
    showForm();
}

void SigningSettingsTab::showForm() {
    const SigningSettingsViewModel::Snapshot& fields = model_.fields();
    const bool ssh = fields.selectedFormat == SigningFormat::ssh;
    format_->setCurrentIndex(ssh ? 1 : 0);
    form_->setRowVisible(gpgProgram_.row, !ssh);
    form_->setRowVisible(gpgKey_, !ssh);
    form_->setRowVisible(sshKeyRow_, ssh);
    form_->setRowVisible(allowedSigners_.row, ssh);
    showText(gpgProgram_.text, fields.gpgProgram);
    showText(allowedSigners_.text, fields.sshAllowedSigners);
    showKey(gpgKey_, fields.gpgSigningKey);
    showKey(sshKey_, fields.sshSigningKey);
    signCommits_->setChecked(fields.signCommits);
    signTags_->setChecked(fields.signTags);
    status_->setText(model_.statusText());
}

void SigningSettingsTab::showError() {
    const QString message = model_.errorMessage();
    error_->setMessage(message.isEmpty() ? std::nullopt : std::optional<QString>(message));
}

void SigningSettingsTab::changeEvent(QEvent* event) {
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QWidget::changeEvent(event);
}

} // namespace orvel
