#include "widgets/OrvelStyle.h"

namespace orvel {

int OrvelStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                          QStyleHintReturn* returnData) const {
    if (hint == SH_ToolTip_WakeUpDelay)
        return toolTipDelay;
    return QProxyStyle::styleHint(hint, option, widget, returnData);
}

} // namespace orvel
