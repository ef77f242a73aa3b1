// The merge editor: one conflicted file, one conflict at a time. Each side of the conflict is a
// panel with a choice per line, the composed file stands below as "Output", and presets set a
// conflict or every conflict at once. "Open in Text Editor" edits the whole file by hand instead.
// "Save & Stage" writes the result over the file, stages it and closes the editor.
#pragma once

#include "core/records/ConflictEntry.h"
#include "core/records/RepoEntry.h"

#include <QDialog>

#include <QCoro/QCoroTask>

#include <memory>

class QLabel;
class QListView;
class QPlainTextEdit;
class QPushButton;
class QStackedWidget;

namespace orvel {

class ConflictResolutionViewModel;
class GitServiceProtocol;
class MergeLineModel;
class OInlineMessage;

class ConflictResolutionView final : public QDialog {
    Q_OBJECT

  public:
    enum class Mode { merge, rawText };

    ConflictResolutionView(RepoEntry repo, ConflictEntry conflict,
                           std::shared_ptr<GitServiceProtocol> service, QWidget* parent = nullptr);

    ConflictResolutionViewModel& model() const { return *model_; }
    Mode mode() const { return mode_; }
    int currentConflictIndex() const { return currentConflictIndex_; }

  signals:
    // The resolution was written and staged; the editor closes.
    void saved();

  protected:
    void changeEvent(QEvent* event) override;

  private:
    void retranslate();
    void showLoadState();
    void showSideNames();
    void showDecisions();
    void showSaveState();
    void showConflict(int index);
    void setMode(Mode mode);
    void toggleLine(MergeLineModel* side, bool ours, int row);
    void applyPreset(void (ConflictResolutionViewModel::*preset)(int));
    // The file has been read and cut into hunks.
    bool isReady() const;
    int currentHunkId() const;
    QCoro::Task<void> saveAndStage();

    ConflictResolutionViewModel* model_;
    Mode mode_ = Mode::merge;
    int currentConflictIndex_ = 0;
    QString language_;
    bool rawBufferFilled_ = false;

    QLabel* title_;
    QPushButton* previous_;
    QLabel* conflictCount_;
    QPushButton* next_;
    QPushButton* takeAllOurs_;
    QPushButton* takeAllTheirs_;
    QPushButton* toggleRaw_;
    QStackedWidget* pages_;
    QLabel* loading_;
    QPushButton* retryLoad_;
    QWidget* loadPage_;
    QWidget* mergePage_;
    QPushButton* oursOnly_;
    QPushButton* theirsOnly_;
    QPushButton* both_;
    QPushButton* clear_;
    QLabel* oursTitle_;
    QLabel* theirsTitle_;
    QLabel* outputTitle_;
    MergeLineModel* oursRows_;
    MergeLineModel* theirsRows_;
    MergeLineModel* outputRows_;
    QListView* oursPanel_;
    QListView* theirsPanel_;
    QListView* outputPanel_;
    QPlainTextEdit* rawText_;
    OInlineMessage* saveError_;
    QPushButton* retrySave_;
    QPushButton* cancel_;
    QPushButton* save_;
};

} // namespace orvel
