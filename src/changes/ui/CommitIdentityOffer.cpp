#include "changes/ui/CommitIdentityOffer.h"

#include "changes/ChangesPaneViewModel.h"
#include "settings/LocalizationManager.h"
#include "widgets/OInlineBanner.h"

#include <QEvent>
#include <QGridLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

namespace orvel {

CommitIdentityOffer::CommitIdentityOffer(ChangesPaneViewModel& model, QWidget* parent)
    : QWidget(parent), model_(model), banner_(new OInlineBanner(this)), name_(new QLineEdit(this)),
      email_(new QLineEdit(this)), allRepositories_(new QRadioButton(this)),
      thisRepository_(new QRadioButton(this)), submit_(new QPushButton(this)),
      dismiss_(new QPushButton(this)) {
    setObjectName(QStringLiteral("commit-form.identity"));
    name_->setObjectName(QStringLiteral("commit-form.identity-name"));
    email_->setObjectName(QStringLiteral("commit-form.identity-email"));
    allRepositories_->setObjectName(QStringLiteral("commit-form.identity-all-repositories"));
    thisRepository_->setObjectName(QStringLiteral("commit-form.identity-this-repository"));
    submit_->setObjectName(QStringLiteral("commit-form.identity-submit"));
    dismiss_->setObjectName(QStringLiteral("commit-form.identity-dismiss"));
    allRepositories_->setChecked(true);

    auto* layout = new QGridLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(banner_, 0, 0, 1, 4);
    layout->addWidget(name_, 1, 0, 1, 2);
    layout->addWidget(email_, 1, 2, 1, 2);
    layout->addWidget(allRepositories_, 2, 0);
    layout->addWidget(thisRepository_, 2, 1);
    layout->setColumnStretch(1, 1);
    layout->addWidget(dismiss_, 2, 2);
    layout->addWidget(submit_, 2, 3);

    const auto filled = [this] { showState(); };
    connect(name_, &QLineEdit::textChanged, this, filled);
    connect(email_, &QLineEdit::textChanged, this, filled);
    connect(name_, &QLineEdit::returnPressed, this, &CommitIdentityOffer::submit);
    connect(email_, &QLineEdit::returnPressed, this, &CommitIdentityOffer::submit);
    connect(submit_, &QPushButton::clicked, this, &CommitIdentityOffer::submit);
    connect(dismiss_, &QPushButton::clicked, &model_, &ChangesPaneViewModel::dismissIdentityRequest);
    retranslate();
}

void CommitIdentityOffer::showState() {
    setVisible(model_.isIdentityRequested());
    const bool idle = !model_.isCommitting();
    name_->setEnabled(idle);
    email_->setEnabled(idle);
    allRepositories_->setEnabled(idle);
    thisRepository_->setEnabled(idle);
    submit_->setEnabled(idle && !name_->text().trimmed().isEmpty() && !email_->text().trimmed().isEmpty());
}

void CommitIdentityOffer::submit() {
    if (submit_->isEnabled())
        model_.setIdentityAndCommit(name_->text(), email_->text(), allRepositories_->isChecked());
}

void CommitIdentityOffer::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

void CommitIdentityOffer::retranslate() {
    banner_->setMessage(OInlineBanner::Kind::warning,
                        localized("Git needs your name and e-mail before it can commit."));
    name_->setPlaceholderText(localized("Full name"));
    name_->setAccessibleName(localized("Full name"));
    email_->setPlaceholderText(localized("E-mail"));
    email_->setAccessibleName(localized("E-mail"));
    allRepositories_->setText(localized("For all repositories"));
    thisRepository_->setText(localized("For this repository only"));
    submit_->setText(localized("Save and Commit"));
    dismiss_->setText(localized("Not Now"));
}

} // namespace orvel
