// The working tree's changed files as git reports them, one record a path: what the history page's
// notice counts and what the working-tree row of the graph lists.
#pragma once

#include "core/records/FileChange.h"
#include "core/records/RepoEntry.h"
#include "core/support/LoadGeneration.h"

#include <QObject>

#include <QCoro/QCoroTask>

#include <memory>
#include <vector>

namespace orvel {

class GitServiceProtocol;

class ContentViewModel final : public QObject {
    Q_OBJECT

  public:
    explicit ContentViewModel(std::shared_ptr<GitServiceProtocol> service, QObject* parent = nullptr);

    const std::vector<FileChange>& fileChanges() const { return fileChanges_; }

    // Both read the status; only the last one begun is applied, and a failure keeps the list.
    QCoro::Task<void> loadData(RepoEntry repo);
    QCoro::Task<void> refreshStatus(RepoEntry repo);

  signals:
    void fileChangesChanged();

  private:
    QCoro::Task<bool> read(RepoEntry repo, const char* failureOperation);

    std::shared_ptr<GitServiceProtocol> service_;
    std::vector<FileChange> fileChanges_;
    LoadGeneration loads_;
};

} // namespace orvel
