// The texts an interactive rebase hands to git instead of an editor: the todo list, the reworded
// messages by step, and the two shell scripts git runs as its sequence editor and message editor.
// All are pure: writing the files and running git is the caller's business.
#pragma once

#include "core/records/RebasePlan.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace orvel::RebaseTodo {

// One line per entry, in order, each ending in a newline. A drop row is written out ("drop <hash>
// <subject>"), an exec row is "exec " and its command, any other row "<action> <hash> <subject>".
std::string todoFileContents(const std::vector<RebaseTodoEntry>& entries);

// The new message of every reword row that has one, keyed by git's step number: the row's
// position from 1, counting every row, exec and drop included.
std::map<int, std::string> rewordMessages(const std::vector<RebaseTodoEntry>& entries);

// The sequence editor: copies the todo file over the one git hands it as "$1". The todo path lies
// in the temporary directory and is written as it is.
std::string sequenceEditorScript(std::string_view todoFilePath);

// The message editor: reads git's step counter from "<gitDirectory>rebase-merge/msgnum" and, for a
// step with a message, writes exactly that message to "$1"; any other step keeps git's message.
// `gitDirectory` ends in "/". Single quotes in the path and in the messages are escaped as '\''.
std::string rewordEditorScript(std::string_view gitDirectory, const std::map<int, std::string>& messages);

// `text` with every single quote replaced by '\'', for use between single quotes in sh.
std::string escapeSingleQuotes(std::string_view text);

} // namespace orvel::RebaseTodo
