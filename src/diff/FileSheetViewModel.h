// The state of a read-only sheet about one file: its blame (who last changed each line) or its
// history (the commits that changed it), read once when the sheet opens.
#pragma once

#include "core/records/BlameEntry.h"
#include "core/records/CommitEntry.h"
#include "core/records/RepoEntry.h"
#include "core/support/LoadGeneration.h"

#include <QObject>
#include <QString>

#include <QCoro/QCoroTask>

#include <memory>
#include <string>
#include <vector>

namespace orvel {

class GitServiceProtocol;

class FileSheetViewModel final : public QObject {
    Q_OBJECT

  public:
    enum class Kind : char { blame, history };
    // The history sheet shows at most this many commits.
    static constexpr long historyLimit = 100;

    FileSheetViewModel(Kind kind, RepoEntry repo, std::string path, std::shared_ptr<GitServiceProtocol> service,
                       QObject* parent = nullptr);

    Kind kind() const { return kind_; }
    const std::string& path() const { return path_; }
    bool isLoading() const { return isLoading_; }
    // "Blame failed: ..." or "History failed: ...", empty after a successful read.
    const QString& error() const { return error_; }
    const std::vector<BlameEntry>& blameEntries() const { return blame_; }
    const std::vector<CommitEntry>& historyEntries() const { return history_; }

    QCoro::Task<void> load();

  signals:
    void loadStateChanged();

  private:
    Kind kind_;
    RepoEntry repo_;
    std::string path_;
    std::shared_ptr<GitServiceProtocol> service_;
    bool isLoading_ = false;
    QString error_;
    std::vector<BlameEntry> blame_;
    std::vector<CommitEntry> history_;
    LoadGeneration loads_;
};

} // namespace orvel
