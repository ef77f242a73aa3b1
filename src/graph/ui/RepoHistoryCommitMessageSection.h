// The selected commit's message: "Commit:" with its short hash, the subject, the body, and a Copy
// button that puts the whole message on the clipboard and shows a check mark for a moment.
#pragma once

#include "core/records/GraphCommit.h"

#include <QWidget>

#include <optional>

class QLabel;
class QPushButton;
class QTimer;

namespace orvel {

class RepoHistoryCommitMessageSection final : public QWidget {
    Q_OBJECT

  public:
    static constexpr int copyCheckMilliseconds = 1500;

    explicit RepoHistoryCommitMessageSection(QWidget* parent = nullptr);

    // Nothing shows without a commit.
    void setCommit(const GraphCommit* commit);

  protected:
    void changeEvent(QEvent* event) override;

  private:
    void retranslate();
    void copy();

    std::optional<GraphCommit> selectedCommit_;
    bool showCopyCheck_ = false;
    QLabel* hash_;
    QPushButton* copyButton_;
    QLabel* subject_;
    QLabel* description_;
    QTimer* copyCheckTimer_;
};

} // namespace orvel
