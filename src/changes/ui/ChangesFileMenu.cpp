#include "changes/ui/ChangesFileMenu.h"

#include "changes/ChangesPaneViewModel.h"
#include "changes/StatusRows.h"
#include "settings/LocalizationManager.h"
#include "settings/UndoSentence.h"
#include "widgets/OAlert.h"

#include <QMenu>
#include <QPointer>

namespace orvel {

namespace {

QString displayPath(const FileChange& file) {
    return QString::fromUtf8(file.path);
}

void confirmDeleteFile(ChangesPaneViewModel& model, const FileChange& file, QWidget* parent) {
    // Nothing to confirm: the model refuses to delete a nested repository and says why.
    if (isNestedRepository(file)) {
        model.deleteFile(file);
        return;
    }
    QPointer<ChangesPaneViewModel> guard(&model);
    confirm(parent, localized("Delete File"),
            undoableText(localized("Are you sure you want to delete \"%1\"?", displayPath(file)),
                         localized("Are you sure you want to delete \"%1\"? This cannot be undone.", displayPath(file))),
            localized("Delete"), true, [guard, file] {
                if (guard)
                    guard->deleteFile(file);
            });
}

} // namespace

void confirmDiscardFile(ChangesPaneViewModel& model, const FileChange& file, QWidget* parent) {
    if (isNestedRepository(file)) {
        model.discardFile(file);
        return;
    }
    QPointer<ChangesPaneViewModel> guard(&model);
    if (file.status.kind == FileStatusKind::Case::untracked) {
        showAlert(
            parent, QMessageBox::Warning, localized("Discard Untracked File"),
            undoableText(localized("This file is untracked."),
                         localized("This file is untracked. It cannot be restored by git.")) +
                QLatin1Char(' ') + localized("Choose how to discard it:"),
            {{localized("Delete File"), QMessageBox::DestructiveRole},
             {localized("Stash File"), QMessageBox::AcceptRole},
             {localized("Cancel"), QMessageBox::RejectRole}},
            2, [guard, file](int chosen) {
                if (!guard)
                    return;
                if (chosen == 0)
                    guard->deleteFile(file);
                else if (chosen == 1)
                    guard->stashFile(file);
            });
        return;
    }
    confirm(parent, localized("Discard Changes"),
            undoableText(localized("Are you sure you want to discard all changes to \"%1\"?", displayPath(file)),
                         localized("Are you sure you want to discard all changes to \"%1\"? This cannot be undone.",
                                   displayPath(file))),
            localized("Discard"), true, [guard, file] {
                if (guard)
                    guard->discardFile(file);
            });
}

void showChangesFileMenu(ChangesPaneViewModel& model, const FileChange& file, bool staged, QWidget* parent,
                         const QPoint& globalPosition) {
    auto* menu = new QMenu(parent);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    QPointer<ChangesPaneViewModel> guard(&model);
    // Every entry runs only while the model lives: the menu can outlast a closing tab.
    auto add = [menu, guard](const QString& text, auto action) {
        QObject::connect(menu->addAction(text), &QAction::triggered, menu, [guard, action] {
            if (guard)
                action(*guard);
        });
    };
    const auto selected = static_cast<int>(model.selectedFiles(staged).size());
    if (selected > 1) {
        if (staged)
            add(localized("Unstage Selected (%1)", selected),
                [](ChangesPaneViewModel& m) { m.unstageSelected(); });
        else
            add(localized("Stage Selected (%1)", selected),
                [](ChangesPaneViewModel& m) { m.stageSelected(); });
    } else if (staged) {
        add(localized("Unstage"), [file](ChangesPaneViewModel& m) { m.unstageFile(file); });
    } else {
        add(localized("Stage"), [file](ChangesPaneViewModel& m) { m.stageFile(file); });
    }
    if (file.status.kind == FileStatusKind::Case::unmerged) {
        menu->addSeparator();
        add(localized("Accept Theirs (Incoming)"),
            [file](ChangesPaneViewModel& m) { m.resolveConflictTheirs(file); });
        add(localized("Accept Ours (Current)"),
            [file](ChangesPaneViewModel& m) { m.resolveConflictOurs(file); });
    }
    if (!staged) {
        menu->addSeparator();
        add(localized("Discard Changes"),
            [file, parent](ChangesPaneViewModel& m) { confirmDiscardFile(m, file, parent); });
        add(localized("Delete File"),
            [file, parent](ChangesPaneViewModel& m) { confirmDeleteFile(m, file, parent); });
        add(localized("Stash This File"), [file](ChangesPaneViewModel& m) { m.stashFile(file); });
        if (file.status.kind == FileStatusKind::Case::untracked)
            add(localized("Add to .gitignore"), [file](ChangesPaneViewModel& m) { m.ignoreFile(file); });
    }
    // A file git doesn't track has no lines to blame and no commits to list.
    if (hasHistory(file)) {
        menu->addSeparator();
        add(localized("Blame This File"), [file](ChangesPaneViewModel& m) { m.requestBlame(file); });
        add(localized("File History"), [file](ChangesPaneViewModel& m) { m.requestFileHistory(file); });
    }
    menu->addSeparator();
    add(localized("Copy Path"), [file](ChangesPaneViewModel& m) { m.copyPath(file); });
    add(localized("Show in File Manager"), [file](ChangesPaneViewModel& m) { m.showInFileManager(file); });
    menu->popup(globalPosition);
}

} // namespace orvel
