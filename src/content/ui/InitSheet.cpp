#include "content/ui/InitSheet.h"

#include "content/InitViewModel.h"
#include "content/ui/SheetParts.h"
#include "settings/LocalizationManager.h"

#include <QEvent>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace orvel {

InitSheet::InitSheet(InitViewModel& model, QWidget* parent)
    : QDialog(parent), model_(model), title_(makeSheetTitle(this)), caption_(makeSheetCaption(this)),
      directoryLabel_(new QLabel(this)), directory_(new QLineEdit(this)), browse_(new QPushButton(this)),
      branchLabel_(new QLabel(this)), branch_(new QLineEdit(this)),
      error_(makeSheetError(this, QStringLiteral("init.error"))), cancel_(new QPushButton(this)),
      create_(new QPushButton(this)) {
    setObjectName(QStringLiteral("init.sheet"));
    setWindowModality(Qt::WindowModal);
    setMinimumWidth(520);
    directory_->setObjectName(QStringLiteral("init.directory"));
    browse_->setObjectName(QStringLiteral("init.browse"));
    browse_->setAutoDefault(false);
    branch_->setObjectName(QStringLiteral("init.branch"));
    cancel_->setObjectName(QStringLiteral("init.cancel"));
    cancel_->setAutoDefault(false);
    create_->setObjectName(QStringLiteral("init.create"));
    create_->setDefault(true);
    directoryLabel_->setBuddy(directory_);
    branchLabel_->setBuddy(branch_);

    auto* directoryRow = new QHBoxLayout;
    directoryRow->addWidget(directory_, 1);
    directoryRow->addWidget(browse_);
    auto* form = new QFormLayout;
    form->addRow(directoryLabel_, directoryRow);
    form->addRow(branchLabel_, branch_);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(cancel_);
    buttons->addWidget(create_);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(20, 18, 20, 16);
    layout->addWidget(title_);
    layout->addWidget(caption_);
    layout->addSpacing(10);
    layout->addLayout(form);
    layout->addWidget(error_);
    layout->addStretch(1);
    layout->addSpacing(6);
    layout->addLayout(buttons);

    connect(directory_, &QLineEdit::textEdited, &model_, &InitViewModel::setDirectoryPath);
    connect(branch_, &QLineEdit::textEdited, &model_, &InitViewModel::setInitialBranch);
    connect(browse_, &QPushButton::clicked, this, [this] {
        chooseFolder(this, localized("Choose Directory"), model_.directoryPath(),
                     [this](const QString& folder) { model_.setDirectoryPath(folder); });
    });
    connect(create_, &QPushButton::clicked, this, [this] { model_.create(); });
    connect(cancel_, &QPushButton::clicked, this, &QDialog::reject);
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

void InitSheet::changeEvent(QEvent* event) {
    QDialog::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    else if (event->type() == QEvent::PaletteChange)
        colourSheetError(error_);
}

void InitSheet::retranslate() {
    setWindowTitle(localized("Initialize Repository"));
    title_->setText(localized("Initialize Repository"));
    caption_->setText(localized("Create a new Git repository"));
    directoryLabel_->setText(localized("Directory:"));
    directory_->setPlaceholderText(QStringLiteral("/path/to/directory"));
    directory_->setAccessibleName(localized("Repository directory path"));
    browse_->setText(localized("Browse..."));
    browse_->setAccessibleName(localized("Browse for directory"));
    branchLabel_->setText(localized("Initial branch name"));
    branch_->setPlaceholderText(localized("Uses git default"));
    branch_->setAccessibleName(localized("Initial branch name"));
    cancel_->setText(localized("Cancel"));
    cancel_->setAccessibleName(localized("Cancel initialize"));
    create_->setText(localized("Create"));
    create_->setAccessibleName(localized("Create repository"));
}

void InitSheet::showForm() {
    if (directory_->text() != model_.directoryPath())
        directory_->setText(model_.directoryPath());
    if (branch_->text() != model_.initialBranch())
        branch_->setText(model_.initialBranch());
    create_->setEnabled(model_.canCreate());
}

void InitSheet::showState() {
    const bool busy = model_.isCreating();
    directory_->setEnabled(!busy);
    branch_->setEnabled(!busy);
    browse_->setEnabled(!busy);
    create_->setEnabled(model_.canCreate());
    error_->setText(model_.errorMessage().value_or(QString()));
    error_->setVisible(model_.errorMessage().has_value());
}

} // namespace orvel
