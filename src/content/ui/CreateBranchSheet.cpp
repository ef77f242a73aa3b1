#include "content/ui/CreateBranchSheet.h"

#include "content/CreateBranchViewModel.h"
#include "core/support/UserDefaults.h"
#include "settings/LocalizationManager.h"
#include "widgets/OInlineMessage.h"

#include <QCheckBox>
#include <QEvent>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace orvel {

namespace {

// A full hash reads better abbreviated; a ref name stays whole.
QString displayedStartPoint(const std::string& startPoint) {
    const bool isHash =
        startPoint.size() == 40 && startPoint.find_first_not_of("0123456789abcdef") == std::string::npos;
    return QString::fromUtf8(isHash ? startPoint.substr(0, 7) : startPoint);
}

QString spaceReplacementSetting() {
    const SettingsUserDefaults defaults;
    return BranchNameValidator::spaceReplacement(defaults);
}

} // namespace

CreateBranchSheet::CreateBranchSheet(RepoEntry repo, std::string startPoint,
                                     std::shared_ptr<GitServiceProtocol> service, QWidget* parent)
    : QDialog(parent), model_(new CreateBranchViewModel(std::move(repo), std::move(startPoint),
                                                        std::move(service), spaceReplacementSetting(), this)),
      caption_(new QLabel(this)), startPointLabel_(new QLabel(this)),
      startPoint_(new QLabel(displayedStartPoint(model_->startPoint()), this)), nameLabel_(new QLabel(this)),
      nameField_(new QLineEdit(this)), counter_(new QLabel(this)), validation_(new OInlineMessage(this)),
      checkoutToggle_(new QCheckBox(this)), createError_(new OInlineMessage(this)),
      cancelButton_(new QPushButton(this)), createButton_(new QPushButton(this)) {
    setObjectName(QStringLiteral("create-branch-sheet"));
    setWindowModality(Qt::WindowModal);
    setMinimumWidth(420);

    QFont captionFont = caption_->font();
    captionFont.setBold(true);
    caption_->setFont(captionFont);
    startPoint_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    nameField_->setObjectName(QStringLiteral("create-branch.name-field"));
    nameLabel_->setBuddy(nameField_);
    counter_->setMinimumWidth(counter_->fontMetrics().horizontalAdvance(QStringLiteral("0000")));
    counter_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    validation_->setObjectName(QStringLiteral("create-branch.validation-message"));
    createError_->setObjectName(QStringLiteral("create-branch.error"));
    checkoutToggle_->setObjectName(QStringLiteral("create-branch.checkout-toggle"));
    checkoutToggle_->setChecked(model_->checkoutAfterCreate());
    cancelButton_->setObjectName(QStringLiteral("create-branch.cancel-button"));
    cancelButton_->setAutoDefault(false);
    createButton_->setObjectName(QStringLiteral("create-branch.create-button"));
    createButton_->setDefault(true);

    auto* nameRow = new QHBoxLayout;
    nameRow->addWidget(nameField_, 1);
    nameRow->addWidget(counter_);
    auto* form = new QFormLayout;
    form->addRow(startPointLabel_, startPoint_);
    form->addRow(nameLabel_, nameRow);
    form->addRow(QString(), validation_);
    form->addRow(QString(), checkoutToggle_);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(cancelButton_);
    buttons->addWidget(createButton_);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(caption_);
    layout->addLayout(form);
    layout->addWidget(createError_);
    layout->addStretch(1);
    layout->addLayout(buttons);

    connect(nameField_, &QLineEdit::textEdited, model_, &CreateBranchViewModel::setName);
    connect(model_, &CreateBranchViewModel::nameChanged, nameField_, [this](const QString& name) {
        if (nameField_->text() != name)
            nameField_->setText(name);
    });
    connect(checkoutToggle_, &QCheckBox::toggled, model_, &CreateBranchViewModel::setCheckoutAfterCreate);
    connect(model_, &CreateBranchViewModel::stateChanged, this, &CreateBranchSheet::showState);
    // Return in the field reaches the default button, which creates; Escape rejects the dialog.
    connect(createButton_, &QPushButton::clicked, model_, [this] { model_->create(); });
    connect(cancelButton_, &QPushButton::clicked, this, &QDialog::reject);
    connect(model_, &CreateBranchViewModel::created, this, [this] {
        emit created();
        accept();
    });

    retranslate();
    showState();
    nameField_->setFocus();
}

void CreateBranchSheet::changeEvent(QEvent* event) {
    QDialog::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

void CreateBranchSheet::retranslate() {
    setWindowTitle(localized("Create Branch"));
    caption_->setText(localized("Create new branch"));
    startPointLabel_->setText(localized("Create branch at:"));
    nameLabel_->setText(localized("Branch name:"));
    nameField_->setAccessibleName(localized("Branch name"));
    checkoutToggle_->setText(localized("Check out after create"));
    cancelButton_->setText(localized("Cancel"));
    cancelButton_->setAccessibleName(localized("Cancel creating branch"));
    showState();
}

void CreateBranchSheet::showState() {
    counter_->setText(QString::number(model_->name().size()));
    validation_->setMessage(model_->validationMessage());
    createError_->setMessage(model_->createError());
    const bool checkout = model_->checkoutAfterCreate();
    createButton_->setText(checkout ? localized("Create and Checkout") : localized("Create"));
    createButton_->setAccessibleName(checkout ? localized("Create branch and check it out")
                                              : localized("Create branch"));
    createButton_->setEnabled(model_->canCreate());
    nameField_->setEnabled(!model_->isCreating());
    checkoutToggle_->setEnabled(!model_->isCreating());
}

} // namespace orvel
