#include "settings/UndoSentence.h"

#include "settings/LocalizationManager.h"

#include <atomic>

namespace orvel {

namespace {

std::atomic<bool> journalOn{true};

} // namespace

void setUndoJournalOn(bool on) {
    journalOn = on;
}

QString undoableText(const QString& undoable, const QString& final) {
    if (!journalOn)
        return final;
    const QString sentence = localized("You can bring it back with Edit > Undo.");
    return undoable.isEmpty() ? sentence : undoable + QLatin1Char(' ') + sentence;
}

} // namespace orvel
