// The commit form's pure rules: the submit button's title for the two options, the message made of
// a subject and an optional description, and a whole message taken apart into the two fields.
#pragma once

#include <QString>

#include <optional>
#include <string>

namespace orvel {

QString commitButtonTitle(bool isAmend, bool isCommitAndPush);

// The trimmed subject, then a blank line and the trimmed description when there is one; nothing
// when the subject is blank.
std::optional<std::string> composeCommitMessage(const QString& subject, const QString& description);

struct CommitMessageFields {
    QString subject;
    QString description;
};

// The first line as the subject and what follows the blank lines after it as the description.
CommitMessageFields splitCommitMessage(const std::string& message);

} // namespace orvel
