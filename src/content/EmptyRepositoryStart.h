// The first commit of a repository cloned empty: one small file in the root folder, committed with
// the message of the settings and pushed to "origin", so that the clone has a history to show.
#pragma once

#include "core/records/RepoEntry.h"

#include <QString>

#include <QCoro/QCoroTask>

#include <memory>
#include <stop_token>
#include <string>

namespace orvel {

class GitServiceProtocol;
class UserDefaults;

struct EmptyRepositoryStart {
    QString fileName;
    std::string fileContent;
    QString message;     // the commit's subject
    QString description; // its body

    // Reads "emptyRepoInitMessage", "emptyRepoInitDesc" and "emptyRepoInitFile"; `repoName` heads a
    // README, and a .gitignore takes the text of `gitignoreResource` when it exists.
    static EmptyRepositoryStart
    fromSettings(const UserDefaults& defaults, const QString& repoName,
                 const QString& gitignoreResource = QStringLiteral(":/default.gitignore"));

    std::string commitMessage() const;
};

// Writes the file, stages it, commits and pushes to "origin", in this order. A failure stops
// there and undoes nothing: a failed push leaves the commit in place.
QCoro::Task<void> startEmptyRepository(std::shared_ptr<GitServiceProtocol> service, RepoEntry repo,
                                       EmptyRepositoryStart start, std::stop_token cancellation = {});

} // namespace orvel
