#include "content/ui/CloneSheet.h"

#include "content/CloneViewModel.h"
#include "content/ui/SheetParts.h"
#include "settings/LocalizationManager.h"

#include <QEvent>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

namespace orvel {

CloneSheet::CloneSheet(CloneViewModel& model, QWidget* parent)
    : QDialog(parent), model_(model), title_(makeSheetTitle(this)), caption_(makeSheetCaption(this)),
      urlLabel_(new QLabel(this)), url_(new QLineEdit(this)), destinationLabel_(new QLabel(this)),
      destination_(new QLineEdit(this)), browse_(new QPushButton(this)), progressLabel_(new QLabel(this)),
      progress_(new QProgressBar(this)), error_(makeSheetError(this, QStringLiteral("clone.error"))),
      cancel_(new QPushButton(this)), clone_(new QPushButton(this)) {
    setObjectName(QStringLiteral("clone.sheet"));
    setWindowModality(Qt::WindowModal);
    setMinimumWidth(520);
    url_->setObjectName(QStringLiteral("clone.url"));
    destination_->setObjectName(QStringLiteral("clone.destination"));
    browse_->setObjectName(QStringLiteral("clone.browse"));
    browse_->setAutoDefault(false);
    progress_->setObjectName(QStringLiteral("clone.progress"));
    progress_->setRange(0, 0);
    progress_->setTextVisible(false);
    cancel_->setObjectName(QStringLiteral("clone.cancel"));
    cancel_->setAutoDefault(false);
    clone_->setObjectName(QStringLiteral("clone.submit"));
    clone_->setDefault(true);
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
    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(cancel_);
    buttons->addWidget(clone_);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(20, 18, 20, 16);
    layout->addWidget(title_);
    layout->addWidget(caption_);
    layout->addSpacing(10);
    layout->addLayout(form);
    layout->addLayout(progressRow);
    layout->addWidget(error_);
    layout->addStretch(1);
    layout->addSpacing(6);
    layout->addLayout(buttons);

    connect(url_, &QLineEdit::textEdited, &model_, &CloneViewModel::setUrlText);
    connect(destination_, &QLineEdit::textEdited, &model_, &CloneViewModel::setDestinationPath);
    connect(browse_, &QPushButton::clicked, this, &CloneSheet::browse);
    connect(clone_, &QPushButton::clicked, this, [this] { model_.clone(); });
    connect(cancel_, &QPushButton::clicked, this, &CloneSheet::cancel);
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

void CloneSheet::changeEvent(QEvent* event) {
    QDialog::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    else if (event->type() == QEvent::PaletteChange)
        colourSheetError(error_);
}

void CloneSheet::retranslate() {
    setWindowTitle(localized("Clone Repository"));
    title_->setText(localized("Clone Repository"));
    caption_->setText(localized("Clone a remote repository to your machine"));
    urlLabel_->setText(localized("Repository URL:"));
    url_->setPlaceholderText(QStringLiteral("https://github.com/user/repository.git"));
    url_->setAccessibleName(localized("Repository URL"));
    destinationLabel_->setText(localized("Destination:"));
    destination_->setAccessibleName(localized("Destination"));
    browse_->setText(localized("Browse..."));
    browse_->setAccessibleName(localized("Browse for destination folder"));
    progressLabel_->setText(localized("Cloning…"));
    cancel_->setText(localized("Cancel"));
    cancel_->setAccessibleName(localized("Cancel clone"));
    clone_->setText(localized("Clone"));
    clone_->setAccessibleName(localized("Clone repository"));
}

void CloneSheet::showForm() {
    if (url_->text() != model_.urlText())
        url_->setText(model_.urlText());
    if (destination_->text() != model_.destinationPath())
        destination_->setText(model_.destinationPath());
    clone_->setEnabled(model_.canClone());
}

void CloneSheet::showState() {
    const bool busy = model_.isCloning();
    progressLabel_->setVisible(busy);
    progress_->setVisible(busy);
    url_->setEnabled(!busy);
    destination_->setEnabled(!busy);
    browse_->setEnabled(!busy);
    clone_->setEnabled(model_.canClone());
    error_->setText(model_.errorMessage().value_or(QString()));
    error_->setVisible(model_.errorMessage().has_value());
}

void CloneSheet::browse() {
    chooseFolder(this, localized("Choose Clone Destination"), QString(),
                 [this](const QString& folder) { model_.chooseDestinationFolder(folder); });
}

void CloneSheet::cancel() {
    if (model_.isCloning())
        model_.cancel();
    reject();
}

void CloneSheet::askAboutEmptyRepository() {
    const EmptyRepositoryStart start = model_.emptyRepositoryStart();
    auto* alert = new QMessageBox(QMessageBox::Question, localized("Empty Repository"),
                                  localized("Empty Repository"), QMessageBox::NoButton, this);
    alert->setObjectName(QStringLiteral("clone.empty-repository"));
    alert->setAttribute(Qt::WA_DeleteOnClose);
    alert->setWindowModality(Qt::WindowModal);
    alert->setInformativeText(
        localized("This repository is empty. Orvel will create a %1 file, commit with "
                  "\"%2\", and push to the remote. You can change these in Settings → General.",
                  start.fileName, start.message));
    QPushButton* initialize = alert->addButton(localized("Initialize & Push"), QMessageBox::AcceptRole);
    initialize->setObjectName(QStringLiteral("clone.empty-repository.initialize"));
    QPushButton* keep = alert->addButton(localized("Cancel"), QMessageBox::RejectRole);
    keep->setObjectName(QStringLiteral("clone.empty-repository.cancel"));
    alert->setDefaultButton(keep);
    alert->setEscapeButton(keep);
    connect(alert, &QMessageBox::buttonClicked, this, [this, initialize](QAbstractButton* button) {
        if (button == initialize)
            model_.initializeEmptyRepository();
        else
            model_.keepEmptyRepository();
    });
    alert->open();
}

} // namespace orvel
