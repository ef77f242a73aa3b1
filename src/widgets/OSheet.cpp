#include "widgets/OSheet.h"

#include "widgets/OInlineMessage.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace orvel {

OSheet::OSheet(QWidget* parent)
    : QDialog(parent), caption_(new QLabel(this)), content_(new QVBoxLayout),
      errorLine_(new OInlineMessage(this)), cancelButton_(new QPushButton(this)),
      acceptButton_(new QPushButton(this)) {
    setWindowModality(Qt::WindowModal);
    QFont captionFont = caption_->font();
    captionFont.setBold(true);
    caption_->setFont(captionFont);
    cancelButton_->setAutoDefault(false);
    acceptButton_->setDefault(true);
    connect(cancelButton_, &QPushButton::clicked, this, &QDialog::reject);

    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    buttons->addWidget(cancelButton_);
    buttons->addWidget(acceptButton_);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(caption_);
    layout->addLayout(content_);
    layout->addWidget(errorLine_);
    layout->addStretch(1);
    layout->addLayout(buttons);
}

void OSheet::changeEvent(QEvent* event) {
    QDialog::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

} // namespace orvel
