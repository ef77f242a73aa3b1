// The commit form under the lists: subject with its character counter, description, the Amend and
// Commit and Push options and the submit button; it asks the force-push question of an amended
// commit that was already pushed, and offers to set a missing identity.
#pragma once

#include <QPointer>
#include <QWidget>

class QCheckBox;
class QLabel;
class QLineEdit;
class QMessageBox;
class QPlainTextEdit;
class QPushButton;

namespace orvel {

class ChangesPaneViewModel;
class CommitIdentityOffer;

class ChangesPaneCommit final : public QWidget {
    Q_OBJECT

  public:
    explicit ChangesPaneCommit(ChangesPaneViewModel& model, QWidget* parent = nullptr);

  protected:
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void retranslate();
    void showForm();
    void showQuestion();
    void submit();

    ChangesPaneViewModel& model_;
    CommitIdentityOffer* identity_;
    QLineEdit* subject_;
    QLabel* counter_;
    QPlainTextEdit* description_;
    QCheckBox* amend_;
    QCheckBox* push_;
    QPushButton* submit_;
    QPointer<QMessageBox> question_;
};

} // namespace orvel
