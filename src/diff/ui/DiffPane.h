// The diff pane: the selected file's change unified, side by side or as the whole file, with the
// side of a working-tree change ("Unstaged" or "Staged") in its header, the hunk buttons its diff
// offers, "Show full file", and in place of the text whatever the file's inspection decided (the
// large-file gate, an image and "Loading image…" while it is read, a type that can't be shown, a
// folder) or the failure with Retry. A conflicted file shows its conflicts with "Open Merge
// Editor". It shows the model's state and forwards what the person does.
#pragma once

#include <QWidget>

#include <string>

class QButtonGroup;
class QLabel;
class QPushButton;
class QStackedWidget;
class QToolButton;

namespace orvel {

class DiffDetailViewModel;
class DiffTextView;
class ImagePairView;
class MarkdownView;
class OEmptyState;

class DiffPane final : public QWidget {
    Q_OBJECT

  public:
    explicit DiffPane(DiffDetailViewModel& model, QWidget* parent = nullptr);

    DiffTextView& textView() const { return *text_; }

  signals:
    // "Close diff": the model has let go of its file; the tab may hide the pane.
    void closeRequested();
    // "Open Merge Editor" on the conflicted file shown.
    void openMergeEditorRequested(const std::string& path);

  protected:
    void changeEvent(QEvent* event) override;

  private:
    void retranslate();
    void showContent();
    void showMode();
    void showMessage(const QString& icon, const QString& title, const QString& message,
                     const QString& action = {}, const QString& actionHelp = {});
    void showHunkActionError();
    void confirmDiscard();

    DiffDetailViewModel& model_;
    QLabel* side_;
    QLabel* path_;
    QLabel* kind_;
    QButtonGroup* modes_;
    QToolButton* diffMode_;
    QToolButton* splitMode_;
    QToolButton* fileMode_;
    QToolButton* fullContext_;
    QToolButton* markdown_;
    QToolButton* close_;
    QPushButton* openMergeEditor_;
    QStackedWidget* stack_;
    DiffTextView* text_;
    QWidget* messagePage_;
    OEmptyState* message_;
    QPushButton* messageAction_;
    ImagePairView* image_;
    MarkdownView* markdownView_;
};

} // namespace orvel
