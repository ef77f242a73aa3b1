// A pop-up list of fixed values, each shown by a label made from it, so that the labels follow a
// change of language. A value that is not among the choices (a stored number the list lacks) is
// added as an entry of its own when it is shown, rather than shown as another value.
#pragma once

#include <QComboBox>
#include <QVariant>

#include <functional>

namespace orvel {

class ChoicePicker final : public QComboBox {
    Q_OBJECT

  public:
    using Label = std::function<QString(const QVariant& value)>;

    ChoicePicker(const QVariantList& values, Label label, QWidget* parent = nullptr);

    QVariant value() const { return currentData(); }
    void showValue(const QVariant& value);

  signals:
    // The user picked a value.
    void chosen(const QVariant& value);

  protected:
    void changeEvent(QEvent* event) override;

  private:
    void relabel();

    Label label_;
};

} // namespace orvel
