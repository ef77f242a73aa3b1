// The state of the diff pane: which file of which diff is shown, how (unified, side by side or
// whole), and what its inspection decided (a large text behind a gate, an image, a type that can't
// be shown, a folder). It reads the diff through the service and applies one hunk at a time, or
// chosen lines of hunks; each action re-reads the diff in git at that moment, so a hunk that moved
// or changed fails instead of landing in the wrong place.
#pragma once

#include "core/records/DiffResult.h"
#include "core/records/FileChange.h"
#include "core/records/RepoEntry.h"
#include "core/support/LoadGeneration.h"
#include "diff/DiffDisplayRows.h"
#include "diff/FileOpenPolicy.h"
#include "diff/SourceLanguage.h"
#include "diff/SubmoduleChange.h"

#include <QImage>
#include <QObject>
#include <QString>

#include <QCoro/QCoroTask>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace orvel {

class GitServiceProtocol;
class UserDefaults;

class DiffDetailViewModel final : public QObject {
    Q_OBJECT

  public:
    struct Selection {
        FileChange file;
        std::optional<std::string> commitHash; // none: the working tree
        bool isMerge = false;
        bool isStaged = false;

        bool operator==(const Selection&) const = default;
    };

    enum class Content : char {
        none, // nothing selected
        loading,
        diff,            // rows() hold the diff, or the file in file mode
        noChanges,       // the diff has no hunks for the file
        binary,          // git calls the change binary
        unreadable,      // the text could not be read
        untrackedFolder, // inspection().metadata.directoryEntries lists it
        largeFile,       // the gate: showLargeFileAnyway() opens it
        unsupported,
        image,
        submodule, // submoduleChange() tells its commits
        conflict,  // a conflicted file of the working tree: rows() show it with git's markers
        failed     // diffLoadError()
    };

    // The hunk buttons the selection offers: stage and discard for the working tree, unstage for
    // the index, none for a commit, an untracked or a conflicted file.
    struct HunkActions {
        bool stage = false;
        bool unstage = false;
        bool discard = false;
    };

    // `defaults`, when given, supplies the large-file thresholds at each inspection.
    DiffDetailViewModel(RepoEntry repo, std::shared_ptr<GitServiceProtocol> service,
                        const UserDefaults* defaults = nullptr, QObject* parent = nullptr);

    const std::optional<Selection>& selection() const { return selection_; }
    Content content() const { return content_; }
    // While loading: the file is an image whose sides are being read (not when the same image is
    // read again, which stays in sight meanwhile).
    bool isReadingImage() const { return isReadingImage_; }
    const std::optional<FileDiff>& fileDiff() const { return fileDiff_; }
    const std::optional<FileInspection>& inspection() const { return inspection_; }
    const std::optional<SubmoduleChange>& submoduleChange() const { return submoduleChange_; }
    const std::vector<DiffDisplayRow>& rows() const { return rows_; }
    SourceLanguage language() const { return language_; }
    const QString& diffLoadError() const { return diffLoadError_; }
    const std::optional<QString>& hunkActionError() const { return hunkActionError_; }
    // The whole file's text in file mode (Markdown is rendered from it).
    const std::shared_ptr<const std::string>& fileText() const { return fileText_; }
    const QImage& oldImage() const { return oldImage_; }
    const QImage& newImage() const { return newImage_; }
    CodeDiffMode mode() const { return mode_; }
    bool fullContext() const { return fullContext_; }
    bool renderMarkdown() const { return renderMarkdown_; }
    bool forceLargeFile() const { return forceLargeFile_; }
    int diffRetryToken() const { return diffRetryToken_; }
    HunkActions hunkActions() const;

    // What the tab asks for: a file of the working tree (staged or not) or of a commit.
    void showDiff(FileChange file, std::optional<std::string> commitHash, bool isMerge, bool isStaged);
    void closeDiff();
    void setMode(CodeDiffMode mode);
    // Shows the whole file as one hunk of context ("Show full file"), or the changes only.
    void setFullContext(bool on);
    void setRenderMarkdown(bool on);
    void showLargeFileAnyway();
    void retry();
    // Reads the selection again.
    QCoro::Task<void> reload();
    // After a change on disk: reads the selection again when it is of the working tree.
    void reloadWorkingTree();

    // A hunk action names its hunk by its index and by how it was shown when the person chose it
    // (shownHunk() of the rows then). When the hunk at that index is no longer shown so, the action
    // is refused: the diff is read again and hunkActionError says why.
    QCoro::Task<bool> stageHunk(int hunk, std::string shown);
    QCoro::Task<bool> unstageHunk(int hunk, std::string shown);
    // Holds the hunk until the person confirms; confirmDiscard() then discards it.
    void requestDiscardHunk(int hunk, std::string shown);

    // The line actions, offered where the hunk's are: only the chosen additions and deletions
    // change. Each hunk is refused as a hunk action is when it is no longer shown so; when git's
    // diff no longer reads as shown, nothing changes, the diff is read again and
    // hunkActionError says why.
    QCoro::Task<bool> stageLines(std::vector<ChosenLines> lines);
    QCoro::Task<bool> unstageLines(std::vector<ChosenLines> lines);
    // Holds the lines until the person confirms; confirmDiscard() then discards them.
    void requestDiscardLines(std::vector<ChosenLines> lines);

    // Whether the discard waiting for confirmation is of chosen lines rather than a whole hunk.
    bool discardsLines() const { return pendingDiscard_ && pendingDiscard_->lines; }
    QCoro::Task<bool> confirmDiscard();
    void cancelDiscard();
    void clearHunkActionError();

  signals:
    void selectionChanged();
    void contentChanged();
    void modeChanged();
    void hunkActionErrorChanged();
    void discardConfirmationRequested();
    // A hunk action changed the index or the working tree: the lists should read the status.
    void needsStatusRefresh();

  private:
    enum class HunkAction : char { stage, unstage, discard };

    // What an action applies: one whole hunk, or chosen lines of hunks.
    struct Target {
        std::vector<ChosenLines> hunks;
        bool lines = false;
    };

    // Whether every hunk of the target is still shown as it was chosen; if not, refuses as
    // stageHunk() tells.
    bool stillShown(const Target& target);
    // Tells the person why an action did nothing, and reads the diff again.
    void refuse(const QString& reason);
    QCoro::Task<bool> runHunkAction(HunkAction action, Target target);
    QCoro::Task<void> loadImages(const Selection& selection, LoadTicket ticket);
    void setContent(Content content);
    void rebuildRows();
    std::string fullPath() const;

    RepoEntry repo_;
    std::shared_ptr<GitServiceProtocol> service_;
    const UserDefaults* defaults_;
    std::optional<Selection> selection_;
    Content content_ = Content::none;
    std::optional<FileDiff> fileDiff_;
    std::optional<FileInspection> inspection_;
    std::optional<SubmoduleChange> submoduleChange_;
    std::shared_ptr<const std::string> fileText_;
    std::vector<DiffDisplayRow> rows_;
    SourceLanguage language_ = SourceLanguage::unknown;
    QImage oldImage_;
    QImage newImage_;
    // The selection whose sides oldImage_ and newImage_ are.
    std::optional<Selection> imagesOf_;
    bool isReadingImage_ = false;
    QString diffLoadError_;
    std::optional<QString> hunkActionError_;
    std::optional<Target> pendingDiscard_;
    CodeDiffMode mode_ = CodeDiffMode::diff;
    bool fullContext_ = false;
    bool renderMarkdown_ = true;
    bool forceLargeFile_ = false;
    int diffRetryToken_ = 0;
    LoadGeneration loads_;
};

} // namespace orvel
