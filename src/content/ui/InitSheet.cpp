#include "content/ui/InitSheet.h"

#include "content/InitViewModel.h"
#include "content/ui/SheetParts.h"
#include "settings/LocalizationManager.h"
#include "widgets/OInlineMessage.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace orvel {

InitSheet::InitSheet(InitViewModel& model, QWidget* parent)
    : OSheet(parent), model_(model), subtitle_(makeSecondaryLabel(this)), directoryLabel_(new QLabel(this)),
      directory_(new QLineEdit(this)), browse_(new QPushButton(this)), branchLabel_(new QLabel(this)),
      branch_(new QLineEdit(this)) {
    setObjectName(QStringLiteral("init.sheet"));
    setMinimumWidth(520);
    directory_->setObjectName(QStringLiteral("init.directory"));
    browse_->setObjectName(QStringLiteral("init.browse"));
    browse_->setAutoDefault(false);
    branch_->setObjectName(QStringLiteral("init.branch"));
    errorLine()->setObjectName(QStringLiteral("init.error"));
    cancelButton()->setObjectName(QStringLiteral("init.cancel"));
    acceptButton()->setObjectName(QStringLiteral("init.create"));
    directoryLabel_->setBuddy(directory_);
    branchLabel_->setBuddy(branch_);

    auto* directoryRow = new QHBoxLayout;
    directoryRow->addWidget(directory_, 1);
    directoryRow->addWidget(browse_);
    auto* form = new QFormLayout;
    form->addRow(directoryLabel_, directoryRow);
    form->addRow(branchLabel_, branch_);
    contentLayout()->addWidget(subtitle_);
    contentLayout()->addSpacing(8);
    contentLayout()->addLayout(form);

    connect(directory_, &QLineEdit::textEdited, &model_, &InitViewModel::setDirectoryPath);
    connect(branch_, &QLineEdit::textEdited, &model_, &InitViewModel::setInitialBranch);
    connect(browse_, &QPushButton::clicked, this, [this] {
        chooseFolder(this, localized("Choose Directory"), model_.directoryPath(),
                     [this](const QString& folder) { model_.setDirectoryPath(folder); });
    });
    connect(acceptButton(), &QPushButton::clicked, this, [this] { model_.create(); });
    connect(&model_, &InitViewModel::formChanged, this, &InitSheet::showForm);
    connect(&model_, &InitViewModel::stateChanged, this, &InitSheet::showState);
    connect(&model_, &InitViewModel::finished, this, [this](const QString& path) {
        accept();
        emit repositoryReady(path);
    });
    retranslate();
    showForm();
    showState();
}

void InitSheet::retranslate() {
    setWindowTitle(localized("Initialize Repository"));
    caption()->setText(localized("Initialize Repository"));
    subtitle_->setText(localized("Create a new Git repository"));
    directoryLabel_->setText(localized("Directory:"));
    directory_->setPlaceholderText(QStringLiteral("/path/to/directory"));
    directory_->setAccessibleName(localized("Repository directory path"));
    browse_->setText(localized("Browse..."));
    browse_->setAccessibleName(localized("Browse for directory"));
    branchLabel_->setText(localized("Initial branch name"));
    branch_->setPlaceholderText(localized("Uses git default"));
    branch_->setAccessibleName(localized("Initial branch name"));
    cancelButton()->setText(localized("Cancel"));
    cancelButton()->setAccessibleName(localized("Cancel initialize"));
    acceptButton()->setText(localized("Create"));
    acceptButton()->setAccessibleName(localized("Create repository"));
}

void InitSheet::showForm() {
    if (directory_->text() != model_.directoryPath())
        directory_->setText(model_.directoryPath());
    if (branch_->text() != model_.initialBranch())
        branch_->setText(model_.initialBranch());
    acceptButton()->setEnabled(model_.canCreate());
}

void InitSheet::showState() {
    const bool busy = model_.isCreating();
    directory_->setEnabled(!busy);
    branch_->setEnabled(!busy);
    browse_->setEnabled(!busy);
    acceptButton()->setEnabled(model_.canCreate());
    errorLine()->setMessage(model_.errorMessage());
}

} // namespace orvel
