// The sheet that creates a tag on a commit: the name, checked as it is typed, an optional message
// that makes the tag annotated, and under "Advanced Options" a choice among HEAD's recent commits.
// A failure of git shows in the sheet; success raises created() and closes it.
#pragma once

#include "core/records/RepoEntry.h"
#include "widgets/OSheet.h"

#include <memory>
#include <string>

class QComboBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QToolButton;

namespace orvel {

class CreateTagViewModel;
class GitServiceProtocol;

class CreateTagSheet final : public OSheet {
    Q_OBJECT

  public:
    // An empty `targetHash` tags HEAD.
    CreateTagSheet(RepoEntry repo, std::string targetHash, std::shared_ptr<GitServiceProtocol> service,
                   QWidget* parent = nullptr);

  signals:
    void created();

  protected:
    void retranslate() override;

  private:
    void showState();
    void showCommits();
    void toggleAdvanced(bool open);

    CreateTagViewModel* model_;
    QLabel* nameLabel_;
    QLineEdit* nameField_;
    OInlineMessage* validation_;
    QLabel* messageLabel_;
    QPlainTextEdit* messageField_;
    QLabel* targetLabel_;
    QLabel* target_;
    QToolButton* advancedToggle_;
    QWidget* advanced_;
    QLabel* commitLabel_;
    QComboBox* commitPicker_;
    QLabel* loadingCommits_;
};

} // namespace orvel
