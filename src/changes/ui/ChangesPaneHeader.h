// The top of the changes page: the filter field, the switch between list and tree, and "Discard
// All Changes" with its confirmation; while everything is being discarded it says so.
#pragma once

#include <QWidget>

class QLabel;
class QLineEdit;
class QToolButton;

namespace orvel {

class ChangesPaneViewModel;

class ChangesPaneHeader final : public QWidget {
    Q_OBJECT

  public:
    explicit ChangesPaneHeader(ChangesPaneViewModel& model, QWidget* parent = nullptr);

  protected:
    void changeEvent(QEvent* event) override;

  private:
    void retranslate();
    void showState();
    void filterEdited(const QString& text);

    ChangesPaneViewModel& model_;
    QLineEdit* filter_;
    QToolButton* listButton_;
    QToolButton* treeButton_;
    QToolButton* discardAll_;
    QLabel* discarding_;
};

} // namespace orvel
