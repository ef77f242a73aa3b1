// The selected recent repository before it is opened: its name with "Open", its branches, its
// latest commits and its README, as the landing page's model has loaded them.
#pragma once

#include <QWidget>

class QLabel;
class QPushButton;
class QToolButton;

namespace orvel {

class MarkdownView;
class WelcomeViewModel;

class RepositoryPreview final : public QWidget {
    Q_OBJECT

  public:
    static constexpr int shownBranches = 8;

    explicit RepositoryPreview(WelcomeViewModel& model, QWidget* parent = nullptr);

  signals:
    void openRequested(const QString& path);
    void closeRequested();

  protected:
    void changeEvent(QEvent* event) override;

  private:
    void retranslate();
    void showState();
    QString branchesText() const;
    QString commitsText() const;

    WelcomeViewModel& model_;
    QLabel* name_;
    QLabel* path_;
    QPushButton* open_;
    QToolButton* close_;
    QLabel* status_;
    QLabel* branchesTitle_;
    QLabel* branches_;
    QLabel* commitsTitle_;
    QLabel* commits_;
    QLabel* readmeTitle_;
    QLabel* readmeNotice_;
    QLabel* readmeMissing_;
    MarkdownView* readme_;
};

} // namespace orvel
