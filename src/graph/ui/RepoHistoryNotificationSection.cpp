#include "graph/ui/RepoHistoryNotificationSection.h"

#include "settings/LocalizationManager.h"
#include "widgets/Icons.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace orvel {

RepoHistoryNotificationSection::RepoHistoryNotificationSection(QWidget* parent)
    : QFrame(parent), icon_(new QLabel(this)), text_(new QLabel(this)), goToChanges_(new QPushButton(this)) {
    setFrameShape(QFrame::StyledPanel);
    icon_->setPixmap(themedIcon(QStringLiteral("dialog-warning")).pixmap(16, 16));
    goToChanges_->setObjectName(QStringLiteral("workspace.go-to-changes"));
    text_->setObjectName(QStringLiteral("history.changes-notice"));
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(8, 4, 4, 4);
    layout->addWidget(icon_);
    layout->addWidget(text_, 1);
    layout->addWidget(goToChanges_);
    connect(goToChanges_, &QPushButton::clicked, this, &RepoHistoryNotificationSection::goToChangesRequested);
    retranslate();
    hide();
}

void RepoHistoryNotificationSection::setChangeCount(int count) {
    count_ = count;
    retranslate();
    setVisible(count > 0);
}

void RepoHistoryNotificationSection::changeEvent(QEvent* event) {
    QFrame::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

void RepoHistoryNotificationSection::retranslate() {
    text_->setText(localized("%1 file(s) changed", count_));
    goToChanges_->setText(localized("Go to Changes"));
}

} // namespace orvel
