// The merge editor's state for one conflicted file: the file cut into hunks, the user's choice of
// lines in every conflict, and saving the composed result (or a hand-edited text) as the
// resolution, written and staged through the git service.
#pragma once

#include "core/records/ConflictEntry.h"
#include "core/records/RepoEntry.h"
#include "merge/ConflictHunks.h"
#include "merge/ConflictSideNames.h"

#include <QObject>
#include <QString>

#include <QCoro/QCoroTask>

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace orvel {

class GitServiceProtocol;

// Lives on the GUI thread; reads and writes run through the service, never on this thread.
class ConflictResolutionViewModel final : public QObject {
    Q_OBJECT

  public:
    ConflictResolutionViewModel(RepoEntry repo, ConflictEntry conflict,
                                std::shared_ptr<GitServiceProtocol> service, QObject* parent = nullptr);

    const RepoEntry& repo() const { return repo_; }
    const ConflictEntry& conflict() const { return conflict_; }
    const std::vector<ConflictHunk>& hunks() const { return hunks_; }
    const ConflictDecisions& decisions() const { return decisions_; }
    const std::string& baseText() const { return baseText_; }
    const std::string& oursText() const { return oursText_; }
    const std::string& theirsText() const { return theirsText_; }
    const std::string& rawWorkingTreeText() const { return rawWorkingTreeText_; }
    bool isLoading() const { return isLoading_; }
    bool isSaving() const { return isSaving_; }
    const std::optional<QString>& loadError() const { return loadError_; }
    const std::optional<QString>& saveError() const { return saveError_; }
    int loadGeneration() const { return loadGeneration_; }
    // Who ours and theirs are (the branches of a merge, a rebase's target and replayed commit);
    // read with each load, empty until then or where git's files don't tell.
    const ConflictSideNames& sideNames() const { return sideNames_; }

    // The number of conflict hunks, and the text that saving would write.
    int conflictCount() const;
    std::string composedText() const;

    // Reads the three blobs and the working-tree file side by side and cuts the file into hunks;
    // every conflict starts as "ours". A load that a newer one has overtaken changes nothing.
    QCoro::Task<void> load();

    // Inverts one line's flag; an unknown hunk or a line past the end does nothing.
    void toggleOursLine(int hunkId, std::size_t lineIndex);
    void toggleTheirsLine(int hunkId, std::size_t lineIndex);
    // The presets of one conflict: ours only, theirs only, both (ours first), nothing.
    void setOursOnly(int hunkId);
    void setTheirsOnly(int hunkId);
    void setBoth(int hunkId);
    void clearHunk(int hunkId);
    void takeAllOurs();
    void takeAllTheirs();

    // Whether save() would write: the file has been read and cut into hunks, no load is under way,
    // and no save runs. Before that the composed text would be empty and overwrite the file.
    bool canSave() const { return hasLoaded_ && !isLoading_ && !isSaving_; }

    // Writes the composed text over the file and stages it. A failure keeps hunks and choices and
    // sets saveError. Answers whether the file was saved; without canSave() nothing is written.
    QCoro::Task<bool> save();
    // Saves `text` as typed, unless a line still starts with a conflict marker: then nothing is
    // written and saveError says so. Nothing is written while a save runs.
    QCoro::Task<bool> setRawText(std::string text);

  signals:
    // isLoading, loadError, the texts and the hunks changed (decisionsChanged follows a load).
    void loadStateChanged();
    void decisionsChanged();
    // isSaving or saveError changed.
    void saveStateChanged();
    void sideNamesChanged();

  private:
    QCoro::Task<void> readSideNames(int generation);
    void setHunk(int hunkId, bool ours, bool theirs);
    void setEveryHunk(bool ours, bool theirs);
    void toggleLine(int hunkId, std::size_t lineIndex, bool ours);
    QCoro::Task<bool> write(std::string content, const char* strategy, const char* failureOperation);

    RepoEntry repo_;
    ConflictEntry conflict_;
    std::shared_ptr<GitServiceProtocol> service_;
    std::vector<ConflictHunk> hunks_;
    ConflictDecisions decisions_;
    std::string baseText_;
    std::string oursText_;
    std::string theirsText_;
    std::string rawWorkingTreeText_;
    bool isLoading_ = false;
    bool isSaving_ = false;
    bool hasLoaded_ = false;
    std::optional<QString> loadError_;
    std::optional<QString> saveError_;
    int loadGeneration_ = 0;
    ConflictSideNames sideNames_;
};

} // namespace orvel
