// The main window for now: shows the active repository's path, branch, head and state.
#pragma once

#include <QMainWindow>

class QLabel;

namespace orvel {

class AppViewModel;

class RepositoryWindow final : public QMainWindow {
    Q_OBJECT

public:
    explicit RepositoryWindow(AppViewModel& model, QWidget* parent = nullptr);

private:
    void showState();

    AppViewModel& model_;
    QLabel* summary_;
};

} // namespace orvel
