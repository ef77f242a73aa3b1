// The clone dialog: URL and destination, a busy bar while git clones, errors inline, and the
// offer of a first commit and push when the clone is empty. Shows CloneViewModel and forwards
// the user's actions to it.
#pragma once

#include "widgets/OSheet.h"

class QLabel;
class QLineEdit;
class QProgressBar;

namespace orvel {

class CloneViewModel;

class CloneSheet final : public OSheet {
    Q_OBJECT

  public:
    CloneSheet(CloneViewModel& model, QWidget* parent = nullptr);

    // Escape and Cancel alike abandon a running clone.
    void reject() override;

  signals:
    // The dialog has closed and the repository at `path` should open.
    void repositoryReady(const QString& path);

  protected:
    void retranslate() override;

  private:
    void showForm();
    void showState();
    void askAboutEmptyRepository();

    CloneViewModel& model_;
    QLabel* subtitle_;
    QLabel* urlLabel_;
    QLineEdit* url_;
    QLabel* destinationLabel_;
    QLineEdit* destination_;
    QPushButton* browse_;
    QLabel* progressLabel_;
    QProgressBar* progress_;
};

} // namespace orvel
