#include "sidebar/ui/CreateTagSheet.h"

#include "settings/LocalizationManager.h"
#include "sidebar/CreateTagViewModel.h"
#include "widgets/OInlineMessage.h"

#include <QComboBox>
#include <QEvent>
#include <QFormLayout>
#include <QHBoxLayout>
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
    : QDialog(parent),
      model_(new CreateTagViewModel(std::move(repo), std::move(targetHash), std::move(service), this)),
      caption_(new QLabel(this)), nameLabel_(new QLabel(this)), nameField_(new QLineEdit(this)),
      validation_(new OInlineMessage(this)), messageLabel_(new QLabel(this)),
      messageField_(new QPlainTextEdit(this)), targetLabel_(new QLabel(this)), target_(new QLabel(this)),
      advancedToggle_(new QToolButton(this)), advanced_(new QWidget(this)),
      commitLabel_(new QLabel(advanced_)), commitPicker_(new QComboBox(advanced_)),
      loadingCommits_(new QLabel(advanced_)), createError_(new OInlineMessage(this)),
      cancelButton_(new QPushButton(this)), createButton_(new QPushButton(this)) {
    setObjectName(QStringLiteral("create-tag-sheet"));
    setWindowModality(Qt::WindowModal);
    setMinimumWidth(440);

    QFont captionFont = caption_->font();
    captionFont.setBold(true);
    caption_->setFont(captionFont);
    nameField_->setObjectName(QStringLiteral("create-tag.name-field"));
    nameLabel_->setBuddy(nameField_);
    validation_->setObjectName(QStringLiteral("create-tag.validation-error"));
    messageField_->setObjectName(QStringLiteral("create-tag.message-field"));
    messageField_->setTabChangesFocus(true);
    messageField_->setFixedHeight(messageField_->fontMetrics().lineSpacing() * 4 + 12);
    messageLabel_->setBuddy(messageField_);
    target_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    advancedToggle_->setCheckable(true);
    advancedToggle_->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    advancedToggle_->setArrowType(Qt::RightArrow);
    advancedToggle_->setAutoRaise(true);
    commitLabel_->setBuddy(commitPicker_);
    advanced_->hide();
    cancelButton_->setObjectName(QStringLiteral("create-tag.cancel-button"));
    cancelButton_->setAutoDefault(false);
    createButton_->setObjectName(QStringLiteral("create-tag.create-button"));
    createButton_->setDefault(true);

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
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(cancelButton_);
    buttons->addWidget(createButton_);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(caption_);
    layout->addLayout(form);
    layout->addWidget(advancedToggle_, 0, Qt::AlignLeft);
    layout->addWidget(advanced_);
    layout->addWidget(createError_);
    layout->addStretch(1);
    layout->addLayout(buttons);

    connect(nameField_, &QLineEdit::textEdited, model_, &CreateTagViewModel::setTagName);
    connect(messageField_, &QPlainTextEdit::textChanged, model_,
            [this] { model_->setMessage(messageField_->toPlainText()); });
    connect(advancedToggle_, &QToolButton::toggled, this, &CreateTagSheet::toggleAdvanced);
    connect(commitPicker_, &QComboBox::activated, model_, [this](int index) {
        model_->selectCommit(commitPicker_->itemData(index).toString().toStdString());
    });
    connect(model_, &CreateTagViewModel::stateChanged, this, &CreateTagSheet::showState);
    connect(model_, &CreateTagViewModel::commitsChanged, this, &CreateTagSheet::showCommits);
    connect(createButton_, &QPushButton::clicked, model_, [this] { model_->create(); });
    connect(cancelButton_, &QPushButton::clicked, this, &QDialog::reject);
    connect(model_, &CreateTagViewModel::created, this, [this] {
        emit created();
        accept();
    });

    retranslate();
    nameField_->setFocus();
}

void CreateTagSheet::changeEvent(QEvent* event) {
    QDialog::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

void CreateTagSheet::retranslate() {
    setWindowTitle(localized("Create Tag"));
    caption_->setText(localized("Create Tag"));
    nameLabel_->setText(localized("Tag name:"));
    nameField_->setAccessibleName(localized("Tag name"));
    messageLabel_->setText(localized("Tag message (creates annotated tag):"));
    messageField_->setAccessibleName(localized("Tag message"));
    targetLabel_->setText(localized("Tag at:"));
    advancedToggle_->setText(localized("Advanced Options"));
    commitLabel_->setText(localized("Commit:"));
    loadingCommits_->setText(localized("Loading commits..."));
    cancelButton_->setText(localized("Cancel"));
    cancelButton_->setAccessibleName(localized("Cancel creating tag"));
    createButton_->setText(localized("Create"));
    createButton_->setAccessibleName(localized("Create tag"));
    showState();
    showCommits();
}

void CreateTagSheet::showState() {
    validation_->setMessage(model_->validationErrorMessage());
    createError_->setMessage(model_->createError());
    const std::string& selected = model_->selectedCommit();
    target_->setText(selected.empty() ? QStringLiteral("HEAD") : shortHash(selected));
    createButton_->setEnabled(model_->canCreate());
    nameField_->setEnabled(!model_->isCreating());
    messageField_->setEnabled(!model_->isCreating());
}

// The given target comes first (HEAD when none was given), then HEAD's recent commits.
void CreateTagSheet::showCommits() {
    loadingCommits_->setVisible(model_->isLoadingCommits());
    commitPicker_->clear();
    const std::string& target = model_->targetHash();
    commitPicker_->addItem(target.empty() ? QStringLiteral("HEAD") : shortHash(target),
                           QString::fromStdString(target));
    for (const CommitEntry& commit : model_->commits()) {
        if (commit.hash == target)
            continue;
        commitPicker_->addItem(QString::fromUtf8(commit.abbreviatedHash) + QStringLiteral("  ") +
                                   QString::fromUtf8(commit.subject),
                               QString::fromStdString(commit.hash));
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
