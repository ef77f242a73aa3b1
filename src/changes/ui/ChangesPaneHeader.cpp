#include "changes/ui/ChangesPaneHeader.h"

#include "changes/ChangesPaneViewModel.h"
#include "settings/LocalizationManager.h"
#include "settings/UndoSentence.h"
#include "widgets/Icons.h"
#include "widgets/OAlert.h"

#include <QButtonGroup>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QToolButton>
#include <QVBoxLayout>

namespace orvel {

ChangesPaneHeader::ChangesPaneHeader(ChangesPaneViewModel& model, QWidget* parent)
    : QWidget(parent), model_(model), filter_(new QLineEdit(this)), listButton_(new QToolButton(this)),
      treeButton_(new QToolButton(this)), discardAll_(new QToolButton(this)), discarding_(new QLabel(this)) {
    filter_->setObjectName(QStringLiteral("changes-pane.filter"));
    filter_->setClearButtonEnabled(true);
    listButton_->setObjectName(QStringLiteral("changes-pane.mode-list"));
    treeButton_->setObjectName(QStringLiteral("changes-pane.mode-tree"));
    auto* modes = new QButtonGroup(this);
    for (QToolButton* button : {listButton_, treeButton_}) {
        button->setAutoRaise(true);
        button->setCheckable(true);
        modes->addButton(button);
    }
    discardAll_->setObjectName(QStringLiteral("changes-pane.discard-all"));
    discardAll_->setAutoRaise(true);
    discardAll_->setIcon(themedIcon(QStringLiteral("edit-delete")));
    discardAll_->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    discarding_->setObjectName(QStringLiteral("changes-pane.discarding"));
    discarding_->setEnabled(false);

    auto* row = new QHBoxLayout;
    row->addWidget(filter_, 1);
    row->addWidget(listButton_);
    row->addWidget(treeButton_);
    row->addWidget(discardAll_);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(row);
    layout->addWidget(discarding_);

    connect(filter_, &QLineEdit::textChanged, this, &ChangesPaneHeader::filterEdited);
    connect(treeButton_, &QToolButton::toggled, this, [this](bool tree) {
        model_.setDisplayMode(tree ? ChangesDisplayMode::tree : ChangesDisplayMode::list);
    });
    connect(discardAll_, &QToolButton::clicked, this, [this] {
        QPointer<ChangesPaneViewModel> guard(&model_);
        confirm(this, localized("Discard All Changes"),
                undoableText(localized("Are you sure you want to discard all changes?"),
                             localized("Are you sure you want to discard all changes? This cannot be undone.")),
                localized("Discard"), true, [guard] {
                    if (guard)
                        guard->discardAll();
                });
    });
    connect(&model_, &ChangesPaneViewModel::discardingAllChanged, this, &ChangesPaneHeader::showState);
    connect(&model_, &ChangesPaneViewModel::listsChanged, this, &ChangesPaneHeader::showState);
    connect(&model_, &ChangesPaneViewModel::displayModeChanged, this, &ChangesPaneHeader::showState);
    connect(&model_, &ChangesPaneViewModel::filterChanged, this, [this] {
        if (filter_->text() != model_.searchText())
            filter_->setText(model_.searchText());
    });
    retranslate();
}

// Typing turns the filter on; clearing the field turns it off.
void ChangesPaneHeader::filterEdited(const QString& text) {
    if (text.isEmpty() == model_.isSearchActive())
        model_.toggleSearch();
    model_.setSearchText(text);
}

void ChangesPaneHeader::showState() {
    const bool tree = model_.displayMode() == ChangesDisplayMode::tree;
    listButton_->setChecked(!tree);
    treeButton_->setChecked(tree);
    discarding_->setVisible(model_.isDiscardingAll());
    const bool canDiscard = !model_.isDiscardingAll() &&
                            !(model_.stagedFiles().empty() && model_.unstagedFiles().empty());
    // A focused button that turns off hands its focus to the next widget, the commit form's text
    // field, which would then keep Ctrl+Z from reaching Edit > Undo; the window keeps it instead.
    if (!canDiscard && window()->focusWidget() == discardAll_)
        discardAll_->clearFocus();
    discardAll_->setEnabled(canDiscard);
}

void ChangesPaneHeader::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

void ChangesPaneHeader::retranslate() {
    filter_->setPlaceholderText(localized("Filter changes..."));
    filter_->setAccessibleName(localized("Filter changes"));
    listButton_->setText(localized("List"));
    listButton_->setAccessibleName(localized("Show as list"));
    treeButton_->setText(localized("Tree"));
    treeButton_->setAccessibleName(localized("Show as tree"));
    discardAll_->setText(localized("Discard All"));
    discardAll_->setToolTip(localized("Discard All Changes"));
    discardAll_->setAccessibleName(localized("Discard All Changes"));
    discarding_->setText(localized("Discarding all changes…"));
    showState();
}

} // namespace orvel
