#include "workspace/ui/WorkspaceCommandPrompts.h"

#include "content/ui/CreateBranchSheet.h"
#include "settings/LocalizationManager.h"
#include "settings/UndoSentence.h"
#include "sidebar/ui/CreateTagSheet.h"
#include "widgets/OAlert.h"
#include "workspace/AppViewModel.h"
#include "workspace/RemoteChoice.h"
#include "workspace/WorkspaceCommands.h"
#include "workspace/ui/StashPrompt.h"

#include <QPointer>

namespace orvel {

WorkspaceCommandPrompts::WorkspaceCommandPrompts(AppViewModel& app, WorkspaceCommands& commands,
                                                 QWidget* window)
    : QObject(window), app_(app), commands_(commands), window_(window) {
    connect(&commands_, &WorkspaceCommands::discardConfirmationNeeded, this,
            &WorkspaceCommandPrompts::askDiscard);
}

void WorkspaceCommandPrompts::askForcePush() {
    WorkspaceTabState* tab = app_.activeTab();
    if (!tab)
        return;
    const int behind = upstreamDistance(tab->branches()).behind;
    QPointer<WorkspaceCommands> commands(&commands_);
    confirm(window_, localized("Force Push"), WorkspaceCommands::forcePushWarning(behind),
            localized("Force Push"), true, [commands] {
                if (commands)
                    commands->forcePush();
            });
}

void WorkspaceCommandPrompts::askStashName() {
    WorkspaceTabState* tab = app_.activeTab();
    if (!tab)
        return;
    const QString branch = QString::fromStdString(tab->currentBranchName().value_or("unknown"));
    auto* prompt =
        new StashPrompt(WorkspaceCommands::stashPlaceholder(branch, QDateTime::currentDateTime()), window_);
    prompt->setAttribute(Qt::WA_DeleteOnClose);
    connect(prompt, &StashPrompt::stashRequested, &commands_,
            [this](const QString& name) { commands_.stash(name); });
    prompt->open();
}

void WorkspaceCommandPrompts::askNewBranch() {
    WorkspaceTabState* tab = app_.activeTab();
    if (!tab)
        return;
    const QString head = tab->headName();
    auto* sheet = new CreateBranchSheet(head.isEmpty() ? QStringLiteral("HEAD") : head, true, window_);
    sheet->setAttribute(Qt::WA_DeleteOnClose);
    connect(sheet, &CreateBranchSheet::createRequested, &commands_,
            [this](const QString& name, bool checkout, LocalChangesOption localChanges) {
                commands_.createBranch({name, checkout, localChanges});
            });
    sheet->open();
}

void WorkspaceCommandPrompts::askNewTag() {
    WorkspaceTabState* tab = app_.activeTab();
    if (!tab)
        return;
    auto* sheet = new CreateTagSheet(tab->repo(), std::string(), tab->service(), window_);
    sheet->setAttribute(Qt::WA_DeleteOnClose);
    connect(sheet, &CreateTagSheet::createRequested, &commands_,
            [this](const QString& name, const std::optional<QString>& message, const std::string& commit) {
                commands_.createTag(name, message, commit);
            });
    sheet->open();
}

void WorkspaceCommandPrompts::askDiscard(int fileCount) {
    QPointer<WorkspaceCommands> commands(&commands_);
    showAlert(window_, QMessageBox::Warning, localized("Discard Uncommitted Changes?"),
              undoableText(localized("Discard %1 uncommitted change(s)?", QString::number(fileCount)),
                           localized("Discard %1 uncommitted change(s)? This cannot be undone. Stashing is safer.",
                                     QString::number(fileCount))),
              {{localized("Cancel"), QMessageBox::RejectRole},
               {localized("Discard and Create Branch"), QMessageBox::DestructiveRole}},
              0, [commands](int chosen) {
                  if (!commands)
                      return;
                  if (chosen == 1)
                      commands->confirmDiscard();
                  else
                      commands->cancelDiscard();
              });
}

} // namespace orvel
