// The init dialog: the folder for the new repository, an optional initial branch, errors inline.
// Shows InitViewModel and forwards the user's actions to it.
#pragma once

#include "widgets/OSheet.h"

class QLabel;
class QLineEdit;

namespace orvel {

class InitViewModel;

class InitSheet final : public OSheet {
    Q_OBJECT

  public:
    InitSheet(InitViewModel& model, QWidget* parent = nullptr);

  signals:
    // The dialog has closed and the repository at `path` should open.
    void repositoryReady(const QString& path);

  protected:
    void retranslate() override;

  private:
    void showForm();
    void showState();

    InitViewModel& model_;
    QLabel* subtitle_;
    QLabel* directoryLabel_;
    QLineEdit* directory_;
    QPushButton* browse_;
    QLabel* branchLabel_;
    QLineEdit* branch_;
};

} // namespace orvel
