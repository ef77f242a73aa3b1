#include "widgets/TextContrast.h"

#include <algorithm>
#include <cmath>

namespace orvel {

namespace {

double linear(double channel) {
    return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& colour) {
    const QColor rgb = colour.toRgb();
    return 0.2126 * linear(rgb.redF()) + 0.7152 * linear(rgb.greenF()) + 0.0722 * linear(rgb.blueF());
}

QColor mixed(const QColor& from, const QColor& to, double share) {
    const QColor a = from.toRgb();
    const QColor b = to.toRgb();
    const auto channel = [share](double x, double y) { return x + (y - x) * share; };
    return QColor::fromRgbF(static_cast<float>(channel(a.redF(), b.redF())),
                            static_cast<float>(channel(a.greenF(), b.greenF())),
                            static_cast<float>(channel(a.blueF(), b.blueF())));
}

double ratioOf(double first, double second) {
    return (std::max(first, second) + 0.05) / (std::min(first, second) + 0.05);
}

} // namespace

QColor laidOver(const QColor& top, const QColor& bottom) {
    return mixed(bottom, top, top.alphaF());
}

double contrastRatio(const QColor& foreground, const QColor& background) {
    return ratioOf(luminance(laidOver(foreground, background)), luminance(background));
}

QColor readableOn(const QColor& background, const QColor& preferred, double ratio) {
    const QColor start = laidOver(preferred, background);
    const double ground = luminance(background);
    const QColor extreme =
        ratioOf(ground, 0.0) >= ratioOf(ground, 1.0) ? QColor(Qt::black) : QColor(Qt::white);
    constexpr int steps = 64;
    for (int step = 0; step < steps; ++step) {
        const QColor candidate = mixed(start, extreme, static_cast<double>(step) / steps);
        if (contrastRatio(candidate, background) >= ratio)
            return candidate;
    }
    return extreme;
}

} // namespace orvel
