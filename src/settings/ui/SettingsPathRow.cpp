#include "settings/ui/SettingsPathRow.h"

#include "settings/LocalizationManager.h"

#include <QEvent>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>

namespace orvel {

SettingsPathRow::SettingsPathRow(const char* label, QString startDir, QWidget* parent)
    : QWidget(parent), label_(label), startDir_(std::move(startDir)), field_(new QLineEdit(this)),
      browse_(new QPushButton(this)) {
    field_->setObjectName(QStringLiteral("settings.path-row.text.") + QLatin1String(label));
    browse_->setObjectName(QStringLiteral("settings.path-row.browse.") + QLatin1String(label));
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(field_, 1);
    layout->addWidget(browse_);
    connect(field_, &QLineEdit::textEdited, this, &SettingsPathRow::textEdited);
    connect(browse_, &QPushButton::clicked, this, &SettingsPathRow::browse);
    retranslate();
}

QString SettingsPathRow::text() const {
    return field_->text();
}

void SettingsPathRow::setText(const QString& text) {
    if (field_->text() != text)
        field_->setText(text);
}

void SettingsPathRow::browse() {
    auto* dialog = new QFileDialog(this, localized(label_), startDir_);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::ExistingFile);
    dialog->setOption(QFileDialog::DontResolveSymlinks);
    connect(dialog, &QFileDialog::fileSelected, this, [this](const QString& path) {
        field_->setText(path);
        emit textEdited(path);
    });
    dialog->open();
}

void SettingsPathRow::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

void SettingsPathRow::retranslate() {
    browse_->setText(localized("Browse"));
    field_->setAccessibleName(localized(label_));
    browse_->setAccessibleName(localized("Browse") + QStringLiteral(": ") + localized(label_));
}

} // namespace orvel
