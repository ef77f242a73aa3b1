// Texts of the interactive rebase's todo list and editor scripts.
#include "core/commands/RebaseTodo.h"

namespace orvel::RebaseTodo {

std::string todoFileContents(const std::vector<RebaseTodoEntry>& entries) {
    std::string text;
    for (const RebaseTodoEntry& entry : entries) {
        if (entry.action == RebaseAction::exec) {
            text += "exec ";
            text += entry.execCommand.value_or(std::string());
        } else {
            text += rawValue(entry.action);
            text += ' ';
            text += entry.hash;
            text += ' ';
            text += entry.subject;
        }
        text += '\n';
    }
    return text;
}

std::map<int, std::string> rewordMessages(const std::vector<RebaseTodoEntry>& entries) {
    std::map<int, std::string> messages;
    for (std::size_t i = 0; i < entries.size(); ++i) {
        if (entries[i].action == RebaseAction::reword && entries[i].rewordMessage)
            messages.emplace(static_cast<int>(i) + 1, *entries[i].rewordMessage);
    }
    return messages;
}

std::string sequenceEditorScript(std::string_view todoFilePath) {
    std::string script = "#!/bin/sh\ncp '";
    script += todoFilePath;
    script += "' \"$1\"\n";
    return script;
}

std::string rewordEditorScript(std::string_view gitDirectory, const std::map<int, std::string>& messages) {
    std::string script = "#!/bin/sh\nSTEP=$(cat '";
    script += escapeSingleQuotes(gitDirectory);
    script += "rebase-merge/msgnum' 2>/dev/null || echo '0')\n";
    script += "case \"$STEP\" in\n";
    for (const auto& [step, message] : messages) {
        // printf '%s' adds nothing, so the message arrives byte for byte.
        script += "  " + std::to_string(step) + ") printf '%s' '";
        script += escapeSingleQuotes(message);
        script += "' > \"$1\" ;;\n";
    }
    script += "esac\nexit 0\n";
    return script;
}

std::string escapeSingleQuotes(std::string_view text) {
    std::string escaped;
    escaped.reserve(text.size());
    for (const char c : text) {
        if (c == '\'')
            escaped += "'\\''";
        else
            escaped += c;
    }
    return escaped;
}

} // namespace orvel::RebaseTodo
