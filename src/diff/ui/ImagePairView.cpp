#include "diff/ui/ImagePairView.h"

#include "settings/LocalizationManager.h"
#include "settings/ThemeEngine.h"

#include <QEvent>
#include <QPainter>

namespace orvel {

ImagePairView::ImagePairView(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("diff-pane.image"));
    setAccessibleName(localized("Image"));
    connect(&ThemeEngine::shared(), &ThemeEngine::themeChanged, this, qOverload<>(&QWidget::update));
}

void ImagePairView::setImages(QImage before, QImage after) {
    before_ = std::move(before);
    after_ = std::move(after);
    update();
}

void ImagePairView::paintEvent(QPaintEvent*) {
    const ThemeTokens& tokens = ThemeEngine::shared().currentTokens();
    QPainter painter(this);
    painter.fillRect(rect(), tokens.window);
    struct Side {
        const QImage* image;
        QString caption;
        QColor accent;
    };
    std::vector<Side> sides;
    if (!before_.isNull())
        sides.push_back({&before_, localized("Before"), tokens.del});
    if (!after_.isNull())
        sides.push_back({&after_, localized("After"), tokens.add});
    if (sides.empty()) {
        painter.setPen(tokens.fg2);
        painter.drawText(rect(), Qt::AlignCenter, localized("Failed to load image"));
        return;
    }
    const int margin = 16;
    const int captionHeight = fontMetrics().height() + 8;
    const int width = (this->width() - margin * int(sides.size() + 1)) / int(sides.size());
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    for (std::size_t i = 0; i < sides.size(); ++i) {
        const Side& side = sides[i];
        const QRect cell(margin + int(i) * (width + margin), margin, width, height() - 2 * margin);
        painter.setPen(side.accent);
        painter.drawText(QRect(cell.left(), cell.top(), cell.width(), captionHeight), Qt::AlignCenter,
                         side.caption);
        const QRect space = cell.adjusted(0, captionHeight, 0, 0);
        QSize size = side.image->size();
        if (size.width() > space.width() || size.height() > space.height())
            size.scale(space.size(), Qt::KeepAspectRatio);
        const QRect target(space.left() + (space.width() - size.width()) / 2,
                           space.top() + (space.height() - size.height()) / 2, size.width(), size.height());
        painter.drawImage(target, *side.image);
        painter.setPen(tokens.strokeSoft);
        painter.drawRect(target.adjusted(-1, -1, 0, 0));
    }
}

void ImagePairView::changeEvent(QEvent* event) {
    if (event->type() == QEvent::PaletteChange)
        update();
    QWidget::changeEvent(event);
}

} // namespace orvel
