#include "workspace/UndoViewModel.h"

#include "core/service/GitServiceProtocol.h"
#include "core/support/Log.h"
#include "core/support/Text.h"
#include "notices/ToastManager.h"
#include "settings/LocalizationManager.h"
#include "workspace/AppViewModel.h"
#include "workspace/WorkspaceTabState.h"

#include <QPointer>

namespace orvel {

namespace {

QString shortHash(const std::string& hash) {
    return QString::fromStdString(hash.substr(0, 7));
}

// A ref as the user knows it: "topic", "origin/topic".
QString refLabel(const std::string& name) {
    for (std::string_view prefix : {"refs/heads/", "refs/remotes/"})
        if (name.starts_with(prefix))
            return QString::fromUtf8(name.substr(prefix.size()));
    return QString::fromUtf8(name);
}

} // namespace

UndoViewModel::UndoViewModel(AppViewModel& app, QObject* parent) : QObject(parent), app_(app) {}

QString UndoViewModel::describe(const UndoEntry& entry) {
    if (entry.refs.empty() || entry.refs.front().after == entry.refs.front().before) {
        if (entry.files.size() == 1)
            return localized("Restore discarded file \"%1\"", QString::fromUtf8(entry.files.front().path));
        return localized("Restore %1 discarded files", static_cast<int>(entry.files.size()));
    }
    const UndoRef& ref = entry.refs.front();
    const QString name = refLabel(ref.name);
    const QString after = shortHash(ref.after.value_or(std::string()));
    switch (entry.action) {
    case UndoAction::deleteBranch:
    case UndoAction::deleteRemoteBranch:
        return localized("Bring back branch \"%1\" at %2", name, shortHash(ref.before));
    case UndoAction::dropStash:
        return localized("Bring back stash \"%1\"", QString::fromUtf8(entry.subject));
    case UndoAction::hardReset:
        return localized("Undo hard reset of %1 to %2", name, after);
    case UndoAction::rebase:
        return localized("Undo rebase of %1", name);
    case UndoAction::merge:
        return localized("Undo merge into %1", name);
    case UndoAction::pull:
        return localized("Undo pull into %1", name);
    case UndoAction::amend:
        return localized("Undo amend of %1", name);
    case UndoAction::forcePush:
        return localized("Undo force push of %1 to %2", name, after);
    case UndoAction::discard:
        break;
    }
    return localized("Restore %1 discarded files", static_cast<int>(entry.files.size()));
}

QCoro::Task<void> UndoViewModel::refresh() {
    auto ticket = loads_.begin(this);
    WorkspaceTabState* tab = app_.activeTab();
    if (!tab) {
        entries_.clear();
        emit entriesChanged();
        co_return;
    }
    std::vector<UndoEntry> read;
    try {
        read = co_await tab->service()->undoHistory(tab->repo(), ticket.stopToken());
    } catch (const std::exception& error) {
        qCDebug(lcOps, "op=undo.history reason=%s", redactForLog(error.what()).c_str());
    }
    if (!ticket.isCurrent())
        co_return;
    entries_ = std::move(read);
    emit entriesChanged();
}

QCoro::Task<bool> UndoViewModel::undo(std::string id) {
    QPointer<UndoViewModel> self(this);
    QPointer<WorkspaceTabState> tab(app_.activeTab());
    if (!tab)
        co_return false;
    ToastManager& toasts = app_.toastManager();
    bool undone = true;
    try {
        co_await tab->service()->undo(tab->repo(), id);
    } catch (const std::exception& error) {
        undone = false;
        qCDebug(lcOps, "op=undo reason=%s", redactForLog(error.what()).c_str());
        if (self)
            toasts.show(localized("Undo failed: %1", QString::fromUtf8(error.what())), ToastType::warning);
    }
    if (!self)
        co_return undone;
    if (undone)
        toasts.show(localized("Undone"), ToastType::notice);
    if (tab)
        tab->refresh();
    co_await refresh();
    co_return undone;
}

} // namespace orvel
