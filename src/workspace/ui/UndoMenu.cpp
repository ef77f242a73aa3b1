#include "workspace/ui/UndoMenu.h"

#include "core/records/UndoEntry.h"
#include "notices/ToastManager.h"
#include "settings/LocalizationManager.h"
#include "widgets/OAlert.h"
#include "workspace/AppViewModel.h"
#include "workspace/UndoViewModel.h"
#include "workspace/ui/UndoHistoryDialog.h"

#include <QAction>
#include <QEvent>
#include <QKeySequence>
#include <QMenu>
#include <QPointer>

namespace orvel {

void askToUndo(QWidget* parent, UndoViewModel& model, const UndoEntry& entry) {
    QPointer<UndoViewModel> guard(&model);
    confirm(parent, localized("Undo"),
            localized("%1?\n\nFiles and branches go back to what they were before.", UndoViewModel::describe(entry)),
            localized("Undo"), true, [guard, id = entry.id] {
                if (guard)
                    guard->undo(id);
            });
}

UndoMenu::UndoMenu(AppViewModel& app, QMenu& menu, QWidget* window)
    : QObject(&menu), app_(app), menu_(menu), window_(window), model_(new UndoViewModel(app, this)) {
    undo_ = new QAction(this);
    undo_->setObjectName(QStringLiteral("menu.undo"));
    undo_->setShortcut(QKeySequence::Undo);
    // Text fields take Ctrl+Z for themselves before a window shortcut sees it.
    undo_->setShortcutContext(Qt::WindowShortcut);
    history_ = new QAction(this);
    history_->setObjectName(QStringLiteral("menu.undo-history"));
    QAction* first = menu_.actions().isEmpty() ? nullptr : menu_.actions().front();
    menu_.insertActions(first, {undo_, history_});
    menu_.insertSeparator(first);
    window_->addAction(undo_);
    connect(undo_, &QAction::triggered, this, [this] { undoNewest(); });
    connect(history_, &QAction::triggered, this, &UndoMenu::openHistory);
    connect(&menu_, &QMenu::aboutToShow, model_, &UndoViewModel::refresh);
    connect(&app_, &AppViewModel::activeTabChanged, model_, &UndoViewModel::refresh);
    connect(model_, &UndoViewModel::entriesChanged, this, &UndoMenu::showEntries);
    menu_.installEventFilter(this);
    retranslate();
}

bool UndoMenu::eventFilter(QObject* watched, QEvent* event) {
    if (watched == &menu_ && event->type() == QEvent::LanguageChange)
        retranslate();
    return QObject::eventFilter(watched, event);
}

void UndoMenu::retranslate() {
    history_->setText(localized("Undo History…"));
    showEntries();
}

void UndoMenu::showEntries() {
    const auto& entries = model_->entries();
    undo_->setText(entries.empty() ? localized("Undo")
                                   : localized("Undo: %1", UndoViewModel::describe(entries.front())));
    history_->setEnabled(app_.activeTab() != nullptr);
}

// The journal may have grown since the menu last read it, so the newest entry is read anew first.
QCoro::Task<void> UndoMenu::undoNewest() {
    QPointer<UndoMenu> self(this);
    co_await model_->refresh();
    if (!self)
        co_return;
    if (model_->entries().empty()) {
        app_.toastManager().show(localized("Nothing to undo"), ToastType::notice);
        co_return;
    }
    askToUndo(window_, *model_, model_->entries().front());
}

void UndoMenu::openHistory() {
    auto* dialog = new UndoHistoryDialog(*model_, window_);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->open();
    model_->refresh();
}

} // namespace orvel
