// The application's style: the desktop's own, with the program's tooltip delay of half a second.
#pragma once

#include <QProxyStyle>

namespace orvel {

class OrvelStyle final : public QProxyStyle {
  public:
    static constexpr int toolTipDelay = 500; // milliseconds

    using QProxyStyle::QProxyStyle;

    int styleHint(StyleHint hint, const QStyleOption* option = nullptr, const QWidget* widget = nullptr,
                  QStyleHintReturn* returnData = nullptr) const override;
};

} // namespace orvel
