// The graph's search bar: the query field, the scope menu, the position among the matches and the
// buttons that walk them. It shows the pane model's search and forwards what the user types.
#pragma once

#include <QWidget>

class QLabel;
class QLineEdit;
class QToolButton;

namespace orvel {

class RepoGraphPaneViewModel;

class GraphSearchBar final : public QWidget {
    Q_OBJECT

  public:
    explicit GraphSearchBar(RepoGraphPaneViewModel& model, QWidget* parent = nullptr);

    // Puts the keyboard in the query field, with its text selected.
    void focusField();

  protected:
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void showSearch();
    QString positionText() const;
    void retranslate();

    RepoGraphPaneViewModel& model_;
    QLineEdit* field_;
    QToolButton* scope_;
    QLabel* position_;
    QToolButton* previous_;
    QToolButton* next_;
    QToolButton* close_;
};

} // namespace orvel
