#include "sidebar/ui/CreateTagSheet.h"

#include "settings/LocalizationManager.h"
#include "sidebar/CreateTagViewModel.h"
#include "widgets/OInlineMessage.h"

#include <QComboBox>
#include <QFontDatabase>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>

namespace orvel {

namespace {

QString shortHash(const std::string& hash) {
    return QString::fromUtf8(hash.substr(0, 7));
}

} // namespace

CreateTagSheet::CreateTagSheet(RepoEntry repo, std::string targetHash,
                               std::shared_ptr<GitServiceProtocol> service, QWidget* parent)
    : OSheet(parent),
      model_(new CreateTagViewModel(std::move(repo), std::move(targetHash), std::move(service), this)),
      nameLabel_(new QLabel(this)), nameField_(new QLineEdit(this)), validation_(new OInlineMessage(this)),
      messageLabel_(new QLabel(this)), messageField_(new QPlainTextEdit(this)),
      targetLabel_(new QLabel(this)), target_(new QLabel(this)), advancedToggle_(new QToolButton(this)),
      advanced_(new QWidget(this)), commitLabel_(new QLabel(advanced_)),
      commitPicker_(new QComboBox(advanced_)), loadingCommits_(new QLabel(advanced_)) {
    setObjectName(QStringLiteral("create-tag-sheet"));
    setMinimumWidth(440);
    nameField_->setObjectName(QStringLiteral("create-tag.name-field"));
    nameLabel_->setBuddy(nameField_);
    validation_->setObjectName(QStringLiteral("create-tag.validation-error"));
    messageField_->setObjectName(QStringLiteral("create-tag.message-field"));
    messageField_->setTabChangesFocus(true);
    messageField_->setFixedHeight(messageField_->fontMetrics().lineSpacing() * 4 + 12);
    messageLabel_->setBuddy(messageField_);
    target_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    target_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    advancedToggle_->setCheckable(true);
    advancedToggle_->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    advancedToggle_->setArrowType(Qt::RightArrow);
    advancedToggle_->setAutoRaise(true);
    commitLabel_->setBuddy(commitPicker_);
    advanced_->hide();
    cancelButton()->setObjectName(QStringLiteral("create-tag.cancel-button"));
    acceptButton()->setObjectName(QStringLiteral("create-tag.create-button"));

    auto* advancedLayout = new QFormLayout(advanced_);
    advancedLayout->setContentsMargins(0, 0, 0, 0);
    advancedLayout->addRow(commitLabel_, commitPicker_);
    advancedLayout->addRow(QString(), loadingCommits_);
    auto* form = new QFormLayout;
    form->addRow(nameLabel_, nameField_);
    form->addRow(QString(), validation_);
    form->addRow(messageLabel_);
    form->addRow(messageField_);
    form->addRow(targetLabel_, target_);
    contentLayout()->addLayout(form);
    contentLayout()->addWidget(advancedToggle_, 0, Qt::AlignLeft);
    contentLayout()->addWidget(advanced_);

    connect(nameField_, &QLineEdit::textEdited, model_, &CreateTagViewModel::setTagName);
    connect(messageField_, &QPlainTextEdit::textChanged, model_,
            [this] { model_->setMessage(messageField_->toPlainText()); });
    connect(advancedToggle_, &QToolButton::toggled, this, &CreateTagSheet::toggleAdvanced);
    connect(commitPicker_, &QComboBox::activated, model_, [this](int index) {
        model_->selectCommit(commitPicker_->itemData(index).toString().toStdString());
    });
    connect(model_, &CreateTagViewModel::stateChanged, this, &CreateTagSheet::showState);
    connect(model_, &CreateTagViewModel::commitsChanged, this, &CreateTagSheet::showCommits);
    connect(acceptButton(), &QPushButton::clicked, this, &CreateTagSheet::confirm);

    retranslate();
    nameField_->setFocus();
}

void CreateTagSheet::confirm() {
    if (!model_->canCreate())
        return;
    const QString& message = model_->message();
    emit createRequested(model_->tagName(), message.isEmpty() ? std::nullopt : std::optional(message),
                         model_->selectedCommit());
    accept();
}

void CreateTagSheet::retranslate() {
    setWindowTitle(localized("Create Tag"));
    caption()->setText(localized("Create Tag"));
    nameLabel_->setText(localized("Tag name:"));
    nameField_->setAccessibleName(localized("Tag name"));
    messageLabel_->setText(localized("Tag message (creates annotated tag):"));
    messageField_->setAccessibleName(localized("Tag message"));
    targetLabel_->setText(localized("Tag at:"));
    advancedToggle_->setText(localized("Advanced Options"));
    commitLabel_->setText(localized("Commit:"));
    loadingCommits_->setText(localized("Loading commits..."));
    cancelButton()->setText(localized("Cancel"));
    cancelButton()->setAccessibleName(localized("Cancel creating tag"));
    acceptButton()->setText(localized("Create"));
    acceptButton()->setAccessibleName(localized("Create tag"));
    showState();
    showCommits();
}

void CreateTagSheet::showState() {
    validation_->setMessage(model_->validationErrorMessage());
    const std::string& selected = model_->selectedCommit();
    target_->setText(selected.empty() ? QStringLiteral("HEAD") : shortHash(selected));
    acceptButton()->setEnabled(model_->canCreate());
}

// The given target comes first (HEAD when none was given), then HEAD's recent commits.
void CreateTagSheet::showCommits() {
    loadingCommits_->setVisible(model_->isLoadingCommits());
    commitPicker_->clear();
    const std::string& target = model_->targetHash();
    commitPicker_->addItem(target.empty() ? QStringLiteral("HEAD") : shortHash(target),
                           QString::fromStdString(target));
    for (const CommitEntry& commit : model_->commits()) {
        const QString text = QString::fromUtf8(commit.abbreviatedHash) + QStringLiteral("  ") +
                             QString::fromUtf8(commit.subject);
        if (commit.hash == target)
            commitPicker_->setItemText(0, text);
        else
            commitPicker_->addItem(text, QString::fromStdString(commit.hash));
    }
    const int selected = commitPicker_->findData(QString::fromStdString(model_->selectedCommit()));
    commitPicker_->setCurrentIndex(std::max(selected, 0));
}

void CreateTagSheet::toggleAdvanced(bool open) {
    advancedToggle_->setArrowType(open ? Qt::DownArrow : Qt::RightArrow);
    advanced_->setVisible(open);
    if (open && model_->commits().empty() && !model_->isLoadingCommits())
        model_->loadCommits();
}

} // namespace orvel
