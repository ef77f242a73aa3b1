// The undo journal of the active repository for Edit > Undo and the undo history: the entries,
// the sentence that names what each brings back, and the undo of one of them.
#pragma once

#include "core/records/UndoEntry.h"
#include "core/support/LoadGeneration.h"

#include <QCoro/QCoroTask>
#include <QObject>
#include <QString>

#include <string>
#include <vector>

namespace orvel {

class AppViewModel;

class UndoViewModel final : public QObject {
    Q_OBJECT

  public:
    explicit UndoViewModel(AppViewModel& app, QObject* parent = nullptr);

    // Reads the journal of the active tab's repository; no tab, no entries.
    QCoro::Task<void> refresh();
    // Newest first.
    const std::vector<UndoEntry>& entries() const { return entries_; }
    // "Restore 3 discarded files", "Bring back branch 'topic' at 1a2b3c4", ...
    static QString describe(const UndoEntry& entry);
    // Brings the entry back; the outcome reaches the user as a toast, the tab reloads and the
    // entries are read again. False when git refused or failed.
    QCoro::Task<bool> undo(std::string id);

  signals:
    void entriesChanged();

  private:
    AppViewModel& app_;
    std::vector<UndoEntry> entries_;
    LoadGeneration loads_;
};

} // namespace orvel
