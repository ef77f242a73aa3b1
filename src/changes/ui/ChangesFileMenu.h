// The context menu of a row of the changes page, and the confirmations that guard its
// destructive entries.
#pragma once

#include "core/records/FileChange.h"

class QPoint;
class QWidget;

namespace orvel {

class ChangesPaneViewModel;

// Opens the menu for `file` of the staged or unstaged list at `globalPosition`.
void showChangesFileMenu(ChangesPaneViewModel& model, const FileChange& file, bool staged, QWidget* parent,
                         const QPoint& globalPosition);

// "Discard Changes" on a row: a tracked file asks to discard, an untracked one offers deletion
// or a stash, since git can't restore it.
void confirmDiscardFile(ChangesPaneViewModel& model, const FileChange& file, QWidget* parent);

} // namespace orvel
