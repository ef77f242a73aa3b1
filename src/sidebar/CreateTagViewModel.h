// The state of the create-tag sheet: the name checked by the branch-name rules, the optional
// message that makes the tag annotated, the commit to tag (the given target, or one of HEAD's
// recent commits), read through the git service.
#pragma once

#include "core/records/CommitEntry.h"
#include "core/records/RepoEntry.h"
#include "core/support/LoadGeneration.h"

#include <QObject>
#include <QString>

#include <QCoro/QCoroTask>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace orvel {

class GitServiceProtocol;

// Lives on the GUI thread; git runs only through the service.
class CreateTagViewModel final : public QObject {
    Q_OBJECT

  public:
    static constexpr long recentCommitLimit = 50;

    // An empty `targetHash` tags HEAD.
    CreateTagViewModel(RepoEntry repo, std::string targetHash, std::shared_ptr<GitServiceProtocol> service,
                       QObject* parent = nullptr);

    const QString& tagName() const { return tagName_; }
    const QString& message() const { return message_; }
    // "Invalid tag name: " and the first broken rule, while the name has text and breaks one.
    const std::optional<QString>& validationErrorMessage() const { return validationErrorMessage_; }
    const std::string& targetHash() const { return targetHash_; }
    const std::string& selectedCommit() const { return selectedCommit_; }
    // HEAD's recent commits, once loadCommits() has read them.
    const std::vector<CommitEntry>& commits() const { return commits_; }
    bool isLoadingCommits() const { return isLoadingCommits_; }
    bool canCreate() const;

    void setTagName(const QString& name);
    void setMessage(const QString& message);
    void selectCommit(std::string hash);

    // Reads HEAD's recent commits for the picker; a failure leaves the list empty.
    QCoro::Task<void> loadCommits();

  signals:
    void stateChanged();
    void commitsChanged();

  private:
    RepoEntry repo_;
    std::string targetHash_;
    std::shared_ptr<GitServiceProtocol> service_;
    QString tagName_;
    QString message_;
    std::optional<QString> validationErrorMessage_;
    std::string selectedCommit_;
    std::vector<CommitEntry> commits_;
    bool isLoadingCommits_ = false;
    LoadGeneration commitLoads_;
};

} // namespace orvel
