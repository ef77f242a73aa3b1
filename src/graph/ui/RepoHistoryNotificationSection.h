// The line above a commit's detail that says the working tree has changes, with a button that
// leads to them. Hidden while the working tree is clean.
#pragma once

#include <QFrame>

class QLabel;
class QPushButton;

namespace orvel {

class RepoHistoryNotificationSection final : public QFrame {
    Q_OBJECT

  public:
    explicit RepoHistoryNotificationSection(QWidget* parent = nullptr);

    void setChangeCount(int count);

  signals:
    void goToChangesRequested();

  protected:
    void changeEvent(QEvent* event) override;

  private:
    void retranslate();

    int count_ = 0;
    QLabel* icon_;
    QLabel* text_;
    QPushButton* goToChanges_;
};

} // namespace orvel
