#include "graph/RelativeDateFormatter.h"

#include "settings/LocalizationManager.h"

namespace orvel {

namespace {

constexpr long minute = 60;
constexpr long hour = 60 * minute;
constexpr long day = 24 * hour;
// A month and a year by their average lengths: a relative date only needs the rough size.
constexpr long month = 2629746;
constexpr long year = 12 * month;

} // namespace

RelativeDateFormatter::RelativeDateFormatter(Instant now) : now_(now) {
    retranslate();
}

void RelativeDateFormatter::retranslate() {
    justNow_ = localized("now");
    forms_[years] = {localized("1 yr. ago"), localized("%1 yr. ago"), localized("in 1 yr."),
                     localized("in %1 yr.")};
    forms_[months] = {localized("1 mo. ago"), localized("%1 mo. ago"), localized("in 1 mo."),
                      localized("in %1 mo.")};
    forms_[weeks] = {localized("1 wk. ago"), localized("%1 wk. ago"), localized("in 1 wk."),
                     localized("in %1 wk.")};
    forms_[days] = {localized("1 day ago"), localized("%1 days ago"), localized("in 1 day"),
                    localized("in %1 days")};
    forms_[hours] = {localized("1 hr. ago"), localized("%1 hr. ago"), localized("in 1 hr."),
                     localized("in %1 hr.")};
    forms_[minutes] = {localized("1 min. ago"), localized("%1 min. ago"), localized("in 1 min."),
                       localized("in %1 min.")};
    forms_[seconds] = {localized("1 sec. ago"), localized("%1 sec. ago"), localized("in 1 sec."),
                       localized("in %1 sec.")};
}

std::string RelativeDateFormatter::format(Instant date) const {
    const long difference = static_cast<long>((now_ - date).count());
    const bool future = difference < 0;
    const long span = future ? -difference : difference;
    if (span < 1)
        return justNow_.toStdString();
    static constexpr long lengths[unitCount] = {year, month, 7 * day, day, hour, minute, 1};
    int unit = 0;
    while (span < lengths[unit])
        ++unit;
    const long count = span / lengths[unit];
    const Forms& forms = forms_[unit];
    const QString& text = count == 1 ? (future ? forms.futureOne : forms.pastOne)
                                     : (future ? forms.futureMany : forms.pastMany);
    return (count == 1 ? text : text.arg(count)).toStdString();
}

} // namespace orvel
