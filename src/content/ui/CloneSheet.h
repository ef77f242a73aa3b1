// The clone dialog: URL and destination, a busy bar while git clones, errors inline, and the
// offer of a first commit and push when the clone is empty. Shows CloneViewModel and forwards
// the user's actions to it.
#pragma once

#include <QDialog>

class QDialogButtonBox;
class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;

namespace orvel {

class CloneViewModel;

class CloneSheet final : public QDialog {
    Q_OBJECT

  public:
    CloneSheet(CloneViewModel& model, QWidget* parent = nullptr);

  signals:
    // The dialog has closed and the repository at `path` should open.
    void repositoryReady(const QString& path);

  protected:
    void changeEvent(QEvent* event) override;

  private:
    void retranslate();
    void showForm();
    void showState();
    void browse();
    void askAboutEmptyRepository();
    void cancel();

    CloneViewModel& model_;
    QLabel* title_;
    QLabel* caption_;
    QLabel* urlLabel_;
    QLineEdit* url_;
    QLabel* destinationLabel_;
    QLineEdit* destination_;
    QPushButton* browse_;
    QLabel* progressLabel_;
    QProgressBar* progress_;
    QLabel* error_;
    QPushButton* cancel_;
    QPushButton* clone_;
};

} // namespace orvel
