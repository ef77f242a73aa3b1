// The sheet that creates a tag on a commit: the name, checked as it is typed, an optional message
// that makes the tag annotated, and under "Advanced Options" a choice among HEAD's recent commits.
// Create hands the answer to the owner's own action, which runs git and tells the outcome.
#pragma once

#include "core/records/RepoEntry.h"
#include "widgets/OSheet.h"

#include <memory>
#include <optional>
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
    // An empty `targetHash` tags HEAD; `service` reads the recent commits for the picker.
    CreateTagSheet(RepoEntry repo, std::string targetHash, std::shared_ptr<GitServiceProtocol> service,
                   QWidget* parent = nullptr);

  signals:
    // An empty `commit` means HEAD; a message makes the tag annotated.
    void createRequested(const QString& name, const std::optional<QString>& message,
                         const std::string& commit);

  protected:
    void retranslate() override;

  private:
    void showState();
    void showCommits();
    void toggleAdvanced(bool open);
    void confirm();

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
