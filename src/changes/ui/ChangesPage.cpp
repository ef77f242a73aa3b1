#include "changes/ui/ChangesPage.h"

#include "changes/ui/ChangesFileSection.h"
#include "changes/ui/ChangesPaneCommit.h"
#include "changes/ui/ChangesPaneHeader.h"

#include "settings/LocalizationManager.h"
#include "widgets/OEmptyState.h"

#include <QEvent>
#include <QSplitter>
#include <QVBoxLayout>

namespace orvel {

ChangesPage::ChangesPage(ChangesPaneViewModel& model, QWidget* parent)
    : QWidget(parent), diffSlot_(new QWidget),
      placeholder_(new OEmptyState(QStringLiteral("document-open"), QString(), QString(), diffSlot_)) {
    setObjectName(QStringLiteral("changes-page"));
    auto* splitter = new QSplitter(Qt::Horizontal, this);
    splitter->setObjectName(QStringLiteral("changesSplitter"));
    splitter->setChildrenCollapsible(false);

    auto* pane = new QWidget(splitter);
    pane->setObjectName(QStringLiteral("changes-pane"));
    auto* lists = new QSplitter(Qt::Vertical, pane);
    lists->setObjectName(QStringLiteral("changesListsSplitter"));
    lists->setChildrenCollapsible(false);
    auto* unstaged = new ChangesFileSection(model, false, lists);
    auto* staged = new ChangesFileSection(model, true, lists);
    auto* paneLayout = new QVBoxLayout(pane);
    paneLayout->addWidget(new ChangesPaneHeader(model, pane));
    paneLayout->addWidget(lists, 1);
    paneLayout->addWidget(new ChangesPaneCommit(model, pane));

    diffSlot_->setObjectName(QStringLiteral("changes.diff-slot"));
    auto* slotLayout = new QVBoxLayout(diffSlot_);
    slotLayout->setContentsMargins(0, 0, 0, 0);
    // Stands in the slot until the diff pane takes its place.
    placeholder_->setObjectName(QStringLiteral("changes.diff-placeholder"));
    slotLayout->addWidget(placeholder_);
    retranslate();
    splitter->addWidget(pane);
    splitter->addWidget(diffSlot_);
    splitter->setStretchFactor(0, 2);
    splitter->setStretchFactor(1, 3);
    splitter->setSizes({420, 700});

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(splitter);
    for (ChangesFileSection* section : {unstaged, staged})
        connect(section, &ChangesFileSection::fileSelected, this, &ChangesPage::fileSelected);
}

void ChangesPage::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

void ChangesPage::retranslate() {
    placeholder_->setTitle(localized("No File Selected"));
    placeholder_->setMessage(localized("Select a file to see its changes."));
}

} // namespace orvel
