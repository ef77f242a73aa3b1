// The sheet that creates a tag on a commit: the name, checked as it is typed, an optional message
// that makes the tag annotated, and under "Advanced Options" a choice among HEAD's recent commits.
// A failure of git shows in the sheet; success raises created() and closes it.
#pragma once

#include "core/records/RepoEntry.h"

#include <QDialog>

#include <memory>
#include <string>

class QComboBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;
class QToolButton;

namespace orvel {

class CreateTagViewModel;
class GitServiceProtocol;
class OInlineMessage;

class CreateTagSheet final : public QDialog {
    Q_OBJECT

  public:
    CreateTagSheet(RepoEntry repo, std::string targetHash, std::shared_ptr<GitServiceProtocol> service,
                   QWidget* parent = nullptr);

  signals:
    void created();

  protected:
    void changeEvent(QEvent* event) override;

  private:
    void retranslate();
    void showState();
    void showCommits();
    void toggleAdvanced(bool open);

    CreateTagViewModel* model_;
    QLabel* caption_;
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
    OInlineMessage* createError_;
    QPushButton* cancelButton_;
    QPushButton* createButton_;
};

} // namespace orvel
