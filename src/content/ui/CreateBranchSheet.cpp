#include "content/ui/CreateBranchSheet.h"

#include "content/CreateBranchViewModel.h"
#include "core/support/UserDefaults.h"
#include "settings/LocalizationManager.h"
#include "widgets/OInlineMessage.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QFontDatabase>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QToolButton>
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
    : CreateBranchSheet(new CreateBranchViewModel(std::move(repo), std::move(startPoint), std::move(service),
                                                  spaceReplacementSetting()),
                        false, false, parent) {}

// The model never runs git here: Create hands the name over instead.
CreateBranchSheet::CreateBranchSheet(const QString& startPoint, bool offersLocalChanges, QWidget* parent)
    : CreateBranchSheet(
          new CreateBranchViewModel({}, startPoint.toStdString(), nullptr, spaceReplacementSetting()), true,
          offersLocalChanges, parent) {}

CreateBranchSheet::CreateBranchSheet(CreateBranchViewModel* model, bool handsOver, bool offersLocalChanges,
                                     QWidget* parent)
    : OSheet(parent), model_(model), startPointLabel_(new QLabel(this)),
      startPoint_(new QLabel(displayedStartPoint(model_->startPoint()), this)), nameLabel_(new QLabel(this)),
      nameField_(new QLineEdit(this)), counter_(new QLabel(this)), validation_(new OInlineMessage(this)),
      checkoutToggle_(new QCheckBox(this)), handsOver_(handsOver) {
    model_->setParent(this);
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
    if (offersLocalChanges)
        addLocalChangesChoice();

    connect(nameField_, &QLineEdit::textEdited, model_, &CreateBranchViewModel::setName);
    connect(model_, &CreateBranchViewModel::nameChanged, nameField_, [this](const QString& name) {
        if (nameField_->text() != name)
            nameField_->setText(name);
    });
    connect(checkoutToggle_, &QCheckBox::toggled, model_, &CreateBranchViewModel::setCheckoutAfterCreate);
    connect(model_, &CreateBranchViewModel::stateChanged, this, &CreateBranchSheet::showState);
    // Return in the field reaches the default button, which creates.
    connect(acceptButton(), &QPushButton::clicked, this, &CreateBranchSheet::confirm);
    connect(model_, &CreateBranchViewModel::created, this, [this] {
        emit created();
        accept();
    });

    retranslate();
    nameField_->setFocus();
}

void CreateBranchSheet::addLocalChangesChoice() {
    advancedToggle_ = new QToolButton(this);
    advancedToggle_->setObjectName(QStringLiteral("create-branch.advanced-toggle"));
    advancedToggle_->setCheckable(true);
    advancedToggle_->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    advancedToggle_->setArrowType(Qt::RightArrow);
    advancedToggle_->setAutoRaise(true);
    advanced_ = new QWidget(this);
    advanced_->setVisible(false);
    localChangesLabel_ = new QLabel(advanced_);
    localChanges_ = new QButtonGroup(this);
    auto* choices = new QVBoxLayout;
    const std::pair<LocalChangesOption, const char*> options[] = {
        {LocalChangesOption::dontChange, "local-changes.keep"},
        {LocalChangesOption::stashAndReapply, "local-changes.stashAndReapply"},
        {LocalChangesOption::discard, "local-changes.discard"}};
    for (const auto& [option, identifier] : options) {
        auto* choice = new QRadioButton(advanced_);
        choice->setObjectName(QString::fromLatin1(identifier));
        choice->setChecked(option == model_->localChanges());
        localChanges_->addButton(choice, static_cast<int>(option));
        choices->addWidget(choice);
    }
    auto* row = new QHBoxLayout(advanced_);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(localChangesLabel_, 0, Qt::AlignTop);
    row->addLayout(choices, 1);
    contentLayout()->addWidget(advancedToggle_, 0, Qt::AlignLeft);
    contentLayout()->addWidget(advanced_);
    connect(advancedToggle_, &QToolButton::toggled, this, [this](bool open) {
        advancedToggle_->setArrowType(open ? Qt::DownArrow : Qt::RightArrow);
        advanced_->setVisible(open);
        adjustSize();
    });
    connect(localChanges_, &QButtonGroup::idClicked, model_,
            [this](int option) { model_->setLocalChanges(static_cast<LocalChangesOption>(option)); });
}

void CreateBranchSheet::confirm() {
    if (!handsOver_) {
        model_->create();
        return;
    }
    if (const std::optional<QString> name = model_->nameToHandOver()) {
        emit createRequested(*name, model_->checkoutAfterCreate(), model_->localChanges());
        accept();
    }
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
    if (localChanges_) {
        advancedToggle_->setText(localized("Advanced Settings"));
        localChangesLabel_->setText(localized("Local changes:"));
        for (QAbstractButton* choice : localChanges_->buttons())
            choice->setText(displayText(static_cast<LocalChangesOption>(localChanges_->id(choice))));
    }
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
