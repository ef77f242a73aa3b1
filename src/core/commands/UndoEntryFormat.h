// The bytes of an undo entry on the disk: NUL-ended fields, so that paths and messages with any
// byte but NUL pass unchanged. A file that doesn't read back whole is no entry at all.
#pragma once

#include "core/records/UndoEntry.h"

#include <optional>
#include <string>
#include <string_view>

namespace orvel {

std::string formatUndoEntry(const UndoEntry& entry);
// The entry written by formatUndoEntry, or nothing for any other bytes. `id` comes from the
// file's name, not from its bytes.
std::optional<UndoEntry> parseUndoEntry(std::string_view bytes, std::string id);

const char* undoActionName(UndoAction action);

} // namespace orvel
