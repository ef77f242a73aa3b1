// Who wrote the selected commit and when, and under "Parents:" a link for each parent, in order;
// following a link asks for that parent to be selected.
#pragma once

#include "core/records/GraphCommit.h"

#include <QWidget>

#include <string>
#include <vector>

class QHBoxLayout;
class QLabel;
class QPushButton;

namespace orvel {

class RepoHistoryAuthorsSection final : public QWidget {
    Q_OBJECT

  public:
    explicit RepoHistoryAuthorsSection(QWidget* parent = nullptr);

    // Nothing shows without a commit.
    void setCommit(const GraphCommit* commit);

  signals:
    void parentActivated(const std::string& hash);

  protected:
    void changeEvent(QEvent* event) override;

  private:
    void retranslate();

    std::vector<CommitAuthor> shownAuthors_; // their dates are written in the language in force
    std::vector<std::string> parentHashes_;
    QLabel* authors_;
    QLabel* parentsLabel_;
    QHBoxLayout* parentLinks_;
    std::vector<QPushButton*> parentButtons_;
};

} // namespace orvel
