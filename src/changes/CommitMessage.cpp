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

} // namespace orvel
