#include "widgets/OInlineMessage.h"

#include "settings/ThemeEngine.h"

#include <QEvent>

namespace orvel {

OInlineMessage::OInlineMessage(QWidget* parent) : QLabel(parent) {
    setWordWrap(true);
    setTextFormat(Qt::PlainText);
    setTextInteractionFlags(Qt::TextSelectableByMouse);
    hide();
    applyColour();
    connect(&ThemeEngine::shared(), &ThemeEngine::themeChanged, this, &OInlineMessage::applyColour);
}

void OInlineMessage::setMessage(const std::optional<QString>& message) {
    setText(message.value_or(QString()));
    setVisible(message.has_value() && !message->isEmpty());
}

void OInlineMessage::changeEvent(QEvent* event) {
    QLabel::changeEvent(event);
    // The tokens follow the application's light or dark palette.
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::ApplicationPaletteChange)
        applyColour();
}

void OInlineMessage::applyColour() {
    QPalette colours = palette();
    const QColor wanted = ThemeEngine::shared().currentTokens().del;
    if (colours.color(QPalette::WindowText) == wanted)
        return;
    colours.setColor(QPalette::WindowText, wanted);
    setPalette(colours);
}

} // namespace orvel
