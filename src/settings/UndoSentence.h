// The end of the confirmation of an action that the undo journal keeps: while the journal is on,
// that Edit > Undo brings back what the action removes; while it is off, the confirmation's own
// warning that the action is for good.
#pragma once

#include <QString>

namespace orvel {

// Whether the journal is on, as the program started it (its "undoJournalEntries" above 0). On
// until told otherwise, as the journal is by default.
void setUndoJournalOn(bool on);

// `undoable` and the sentence that Edit > Undo brings it back while the journal is on, the
// sentence alone when `undoable` is empty; `final` while it is off. Both come localized.
QString undoableText(const QString& undoable, const QString& final);

} // namespace orvel
