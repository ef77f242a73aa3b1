// Shown in the commit form when git refused a commit for want of a name and e-mail: two fields,
// the choice between every repository of the user and this one, and a button that saves them and
// commits the form's message.
#pragma once

#include <QWidget>

class QLineEdit;
class QPushButton;
class QRadioButton;

namespace orvel {

class ChangesPaneViewModel;
class OInlineBanner;

class CommitIdentityOffer final : public QWidget {
    Q_OBJECT

  public:
    explicit CommitIdentityOffer(ChangesPaneViewModel& model, QWidget* parent = nullptr);

    // Shows the offer while the model asks for an identity, and follows a commit under way.
    void showState();

  protected:
    void changeEvent(QEvent* event) override;

  private:
    void retranslate();
    void submit();

    ChangesPaneViewModel& model_;
    OInlineBanner* banner_;
    QLineEdit* name_;
    QLineEdit* email_;
    QRadioButton* allRepositories_;
    QRadioButton* thisRepository_;
    QPushButton* submit_;
    QPushButton* dismiss_;
};

} // namespace orvel
