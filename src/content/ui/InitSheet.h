// The init dialog: the folder for the new repository, an optional initial branch, errors inline.
// Shows InitViewModel and forwards the user's actions to it.
#pragma once

#include <QDialog>

class QLabel;
class QLineEdit;
class QPushButton;

namespace orvel {

class InitViewModel;

class InitSheet final : public QDialog {
    Q_OBJECT

  public:
    InitSheet(InitViewModel& model, QWidget* parent = nullptr);

  signals:
    // The dialog has closed and the repository at `path` should open.
    void repositoryReady(const QString& path);

  protected:
    void changeEvent(QEvent* event) override;

  private:
    void retranslate();
    void showForm();
    void showState();

    InitViewModel& model_;
    QLabel* title_;
    QLabel* caption_;
    QLabel* directoryLabel_;
    QLineEdit* directory_;
    QPushButton* browse_;
    QLabel* branchLabel_;
    QLineEdit* branch_;
    QLabel* error_;
    QPushButton* cancel_;
    QPushButton* create_;
};

} // namespace orvel
