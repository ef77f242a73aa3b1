#include "content/ui/CloneSheet.h"

#include "content/CloneViewModel.h"
#include "content/ui/SheetParts.h"
#include "settings/LocalizationManager.h"
#include "widgets/OAlert.h"
#include "widgets/OInlineMessage.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

namespace orvel {

CloneSheet::CloneSheet(CloneViewModel& model, QWidget* parent)
    : OSheet(parent), model_(model), subtitle_(makeSecondaryLabel(this)), urlLabel_(new QLabel(this)),
      url_(new QLineEdit(this)), destinationLabel_(new QLabel(this)), destination_(new QLineEdit(this)),
      browse_(new QPushButton(this)), progressLabel_(new QLabel(this)), progress_(new QProgressBar(this)) {
    setObjectName(QStringLiteral("clone.sheet"));
    setMinimumWidth(520);
    url_->setObjectName(QStringLiteral("clone.url"));
    destination_->setObjectName(QStringLiteral("clone.destination"));
    browse_->setObjectName(QStringLiteral("clone.browse"));
    browse_->setAutoDefault(false);
    progress_->setObjectName(QStringLiteral("clone.progress"));
    progress_->setRange(0, 0);
    progress_->setTextVisible(false);
    errorLine()->setObjectName(QStringLiteral("clone.error"));
    cancelButton()->setObjectName(QStringLiteral("clone.cancel"));
    acceptButton()->setObjectName(QStringLiteral("clone.submit"));
    urlLabel_->setBuddy(url_);
    destinationLabel_->setBuddy(destination_);

    auto* destinationRow = new QHBoxLayout;
    destinationRow->addWidget(destination_, 1);
    destinationRow->addWidget(browse_);
    auto* form = new QFormLayout;
    form->addRow(urlLabel_, url_);
    form->addRow(destinationLabel_, destinationRow);
    auto* progressRow = new QHBoxLayout;
    progressRow->addWidget(progressLabel_);
    progressRow->addWidget(progress_, 1);
    contentLayout()->addWidget(subtitle_);
    contentLayout()->addSpacing(8);
    contentLayout()->addLayout(form);
    contentLayout()->addLayout(progressRow);

    connect(url_, &QLineEdit::textEdited, &model_, &CloneViewModel::setUrlText);
    connect(destination_, &QLineEdit::textEdited, &model_, &CloneViewModel::setDestinationPath);
    connect(browse_, &QPushButton::clicked, this, [this] {
        chooseFolder(this, localized("Choose Clone Destination"), QString(),
                     [this](const QString& folder) { model_.chooseDestinationFolder(folder); });
    });
    connect(acceptButton(), &QPushButton::clicked, this, [this] { model_.clone(); });
    connect(&model_, &CloneViewModel::formChanged, this, &CloneSheet::showForm);
    connect(&model_, &CloneViewModel::stateChanged, this, &CloneSheet::showState);
    connect(&model_, &CloneViewModel::emptyRepositoryFound, this, &CloneSheet::askAboutEmptyRepository);
    connect(&model_, &CloneViewModel::finished, this, [this](const QString& path) {
        accept();
        // The dialog is gone before the repository opens behind it.
        QTimer::singleShot(100, this, [this, path] { emit repositoryReady(path); });
    });
    retranslate();
    showForm();
    showState();
}

void CloneSheet::retranslate() {
    setWindowTitle(localized("Clone Repository"));
    caption()->setText(localized("Clone Repository"));
    subtitle_->setText(localized("Clone a remote repository to your machine"));
    urlLabel_->setText(localized("Repository URL:"));
    url_->setPlaceholderText(QStringLiteral("https://github.com/user/repository.git"));
    url_->setAccessibleName(localized("Repository URL"));
    destinationLabel_->setText(localized("Destination:"));
    destination_->setAccessibleName(localized("Destination"));
    browse_->setText(localized("Browse..."));
    browse_->setAccessibleName(localized("Browse for destination folder"));
    progressLabel_->setText(localized("Cloning…"));
    cancelButton()->setText(localized("Cancel"));
    cancelButton()->setAccessibleName(localized("Cancel clone"));
    acceptButton()->setText(localized("Clone"));
    acceptButton()->setAccessibleName(localized("Clone repository"));
}

void CloneSheet::showForm() {
    if (url_->text() != model_.urlText())
        url_->setText(model_.urlText());
    if (destination_->text() != model_.destinationPath())
        destination_->setText(model_.destinationPath());
    acceptButton()->setEnabled(model_.canClone());
}

void CloneSheet::showState() {
    const bool busy = model_.isCloning();
    progressLabel_->setVisible(busy);
    progress_->setVisible(busy);
    url_->setEnabled(!busy);
    destination_->setEnabled(!busy);
    browse_->setEnabled(!busy);
    acceptButton()->setEnabled(model_.canClone());
    errorLine()->setMessage(model_.errorMessage());
}

void CloneSheet::reject() {
    model_.cancel();
    OSheet::reject();
}

void CloneSheet::askAboutEmptyRepository() {
    const EmptyRepositoryStart start = model_.emptyRepositoryStart();
    showAlert(
        this, QMessageBox::Question, localized("Empty Repository"),
        localized(
            "This repository is empty. Orvel will create a %1 file, commit with \"%2\", and push to the "
            "remote. You can change these in Settings → General.",
            start.fileName, start.message),
        {{localized("Initialize & Push"), QMessageBox::AcceptRole},
         {localized("Cancel"), QMessageBox::RejectRole}},
        1, [this](int chosen) {
            if (chosen == 0)
                model_.initializeEmptyRepository();
            else
                model_.keepEmptyRepository();
        });
}

} // namespace orvel
