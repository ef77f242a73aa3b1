#include "workspace/ui/StashPrompt.h"

#include "settings/LocalizationManager.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace orvel {

StashPrompt::StashPrompt(QString placeholder, QWidget* parent)
    : OSheet(parent), placeholder_(std::move(placeholder)), prompt_(new QLabel(this)),
      name_(new QLineEdit(this)) {
    setObjectName(QStringLiteral("menu-stash"));
    setMinimumWidth(460);
    prompt_->setWordWrap(true);
    prompt_->setBuddy(name_);
    name_->setObjectName(QStringLiteral("menu-stash.text-field"));
    name_->setPlaceholderText(placeholder_);
    name_->setClearButtonEnabled(true);
    acceptButton()->setObjectName(QStringLiteral("menu-stash.confirm"));
    cancelButton()->setObjectName(QStringLiteral("menu-stash.cancel"));
    contentLayout()->addWidget(prompt_);
    contentLayout()->addWidget(name_);
    connect(acceptButton(), &QPushButton::clicked, this, [this] {
        const QString typed = name_->text().trimmed();
        emit stashRequested(typed.isEmpty() ? placeholder_ : typed);
        accept();
    });
    retranslate();
    name_->setFocus();
}

void StashPrompt::retranslate() {
    setWindowTitle(localized("Stash Changes"));
    caption()->setText(localized("Stash Changes"));
    prompt_->setText(localized("Enter a name for this stash, or leave empty for default"));
    name_->setAccessibleName(localized("Stash name"));
    acceptButton()->setText(localized("Stash"));
    cancelButton()->setText(localized("Cancel"));
}

} // namespace orvel
