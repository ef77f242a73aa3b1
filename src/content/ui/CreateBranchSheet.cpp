#include "content/ui/CreateBranchSheet.h"

#include "content/CreateBranchViewModel.h"
#include "core/support/UserDefaults.h"
#include "settings/LocalizationManager.h"
#include "widgets/OInlineMessage.h"

#include <QCheckBox>
#include <QFontDatabase>
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
    : OSheet(parent), model_(new CreateBranchViewModel(std::move(repo), std::move(startPoint),
                                                       std::move(service), spaceReplacementSetting(), this)),
      startPointLabel_(new QLabel(this)),
      startPoint_(new QLabel(displayedStartPoint(model_->startPoint()), this)), nameLabel_(new QLabel(this)),
      nameField_(new QLineEdit(this)), counter_(new QLabel(this)), validation_(new OInlineMessage(this)),
      checkoutToggle_(new QCheckBox(this)) {
    setObjectName(QStringLiteral("create-branch-sheet"));
    setMinimumWidth(420);
    startPoint_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    startPoint_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    nameField_->setObjectName(QStringLiteral("create-branch.name-field"));
    nameLabel_->setBuddy(nameField_);
    counter_->setMinimumWidth(counter_->fontMetrics().horizontalAdvance(QStringLiteral("0000")));
    counter_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    validation_->setObjectName(QStringLiteral("create-branch.validation-message"));
    errorLine()->setObjectName(QStringLiteral("create-branch.error"));
    checkoutToggle_->setObjectName(QStringLiteral("create-branch.checkout-toggle"));
    checkoutToggle_->setChecked(model_->checkoutAfterCreate());
    cancelButton()->setObjectName(QStringLiteral("create-branch.cancel-button"));
    acceptButton()->setObjectName(QStringLiteral("create-branch.create-button"));

    auto* nameRow = new QHBoxLayout;
    nameRow->addWidget(nameField_, 1);
    nameRow->addWidget(counter_);
    auto* form = new QFormLayout;
    form->addRow(startPointLabel_, startPoint_);
    form->addRow(nameLabel_, nameRow);
    form->addRow(QString(), validation_);
    form->addRow(QString(), checkoutToggle_);
    contentLayout()->addLayout(form);

    connect(nameField_, &QLineEdit::textEdited, model_, &CreateBranchViewModel::setName);
    connect(model_, &CreateBranchViewModel::nameChanged, nameField_, [this](const QString& name) {
        if (nameField_->text() != name)
            nameField_->setText(name);
    });
    connect(checkoutToggle_, &QCheckBox::toggled, model_, &CreateBranchViewModel::setCheckoutAfterCreate);
    connect(model_, &CreateBranchViewModel::stateChanged, this, &CreateBranchSheet::showState);
    // Return in the field reaches the default button, which creates.
    connect(acceptButton(), &QPushButton::clicked, model_, [this] { model_->create(); });
    connect(model_, &CreateBranchViewModel::created, this, [this] {
        emit created();
        accept();
    });

    retranslate();
    nameField_->setFocus();
}

void CreateBranchSheet::retranslate() {
    setWindowTitle(localized("Create Branch"));
    caption()->setText(localized("Create new branch"));
    startPointLabel_->setText(localized("Create branch at:"));
    nameLabel_->setText(localized("Branch name:"));
    nameField_->setAccessibleName(localized("Branch name"));
    checkoutToggle_->setText(localized("Check out after create"));
    cancelButton()->setText(localized("Cancel"));
    cancelButton()->setAccessibleName(localized("Cancel creating branch"));
    showState();
}

void CreateBranchSheet::showState() {
    counter_->setText(QString::number(model_->name().size()));
    validation_->setMessage(model_->validationMessage());
    errorLine()->setMessage(model_->createError());
    const bool checkout = model_->checkoutAfterCreate();
    acceptButton()->setText(checkout ? localized("Create and Checkout") : localized("Create"));
    acceptButton()->setAccessibleName(checkout ? localized("Create branch and check it out")
                                               : localized("Create branch"));
    acceptButton()->setEnabled(model_->canCreate());
    nameField_->setEnabled(!model_->isCreating());
    checkoutToggle_->setEnabled(!model_->isCreating());
}

} // namespace orvel
