#include "settings/ui/ChoicePicker.h"

#include <QEvent>

namespace orvel {

ChoicePicker::ChoicePicker(const QVariantList& values, Label label, QWidget* parent)
    : QComboBox(parent), label_(std::move(label)) {
    for (const QVariant& value : values)
        addItem(label_(value), value);
    connect(this, &QComboBox::activated, this, [this](int index) { emit chosen(itemData(index)); });
}

void ChoicePicker::showValue(const QVariant& value) {
    int index = findData(value);
    if (index < 0) {
        addItem(label_(value), value);
        index = count() - 1;
    }
    setCurrentIndex(index);
}

void ChoicePicker::relabel() {
    for (int index = 0; index < count(); ++index)
        setItemText(index, label_(itemData(index)));
}

void ChoicePicker::changeEvent(QEvent* event) {
    if (event->type() == QEvent::LanguageChange)
        relabel();
    QComboBox::changeEvent(event);
}

} // namespace orvel
