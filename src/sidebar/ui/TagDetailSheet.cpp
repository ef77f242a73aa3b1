#include "sidebar/ui/TagDetailSheet.h"

#include "settings/LocalizationManager.h"

#include <QFontDatabase>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace orvel {

TagDetailSheet::TagDetailSheet(const QString& tagName, const QString& detail, QWidget* parent)
    : OSheet(parent), tagName_(tagName), detail_(new QPlainTextEdit(this)) {
    setObjectName(QStringLiteral("tag-detail-sheet"));
    setMinimumSize(560, 360);
    detail_->setObjectName(QStringLiteral("tag-detail.text"));
    detail_->setReadOnly(true);
    detail_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    detail_->setPlainText(detail);
    contentLayout()->addWidget(detail_, 1);
    cancelButton()->hide();
    connect(acceptButton(), &QPushButton::clicked, this, &QDialog::accept);
    retranslate();
}

void TagDetailSheet::retranslate() {
    setWindowTitle(localized("Tag '%1'", tagName_));
    caption()->setText(localized("Tag '%1'", tagName_));
    detail_->setAccessibleName(localized("Tag detail"));
    acceptButton()->setText(localized("Done"));
}

} // namespace orvel
