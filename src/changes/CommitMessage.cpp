#include "changes/CommitMessage.h"

#include "settings/LocalizationManager.h"

namespace orvel {

QString commitButtonTitle(bool isAmend, bool isCommitAndPush) {
    if (isAmend)
        return isCommitAndPush ? localized("Amend and Push") : localized("Amend Previous Commit");
    return isCommitAndPush ? localized("Commit and Push") : localized("Commit");
}

std::optional<std::string> composeCommitMessage(const QString& subject, const QString& description) {
    const QString trimmedSubject = subject.trimmed();
    if (trimmedSubject.isEmpty())
        return std::nullopt;
    QString message = trimmedSubject;
    const QString trimmedDescription = description.trimmed();
    if (!trimmedDescription.isEmpty())
        message += QStringLiteral("\n\n") + trimmedDescription;
    return message.toStdString();
}

CommitMessageFields splitCommitMessage(const std::string& message) {
    const QString text = QString::fromStdString(message);
    const qsizetype end = text.indexOf(QLatin1Char('\n'));
    if (end < 0)
        return {text.trimmed(), QString()};
    return {text.left(end).trimmed(), text.mid(end + 1).trimmed()};
}

} // namespace orvel
