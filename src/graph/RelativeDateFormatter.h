// The short relative dates of the graph's date column ("3 days ago", "2 hr. ago"), measured from
// one fixed moment. The texts are looked up once per formatter and again when the language changes,
// not once per row.
#pragma once

#include "core/support/IsoDate.h"

#include <QString>

#include <array>
#include <string>

namespace orvel {

class RelativeDateFormatter {
  public:
    explicit RelativeDateFormatter(Instant now);

    // The largest whole unit between `date` and now, in the past or the future.
    std::string format(Instant date) const;

    // Looks the texts up again, in the language now in force.
    void retranslate();

  private:
    enum Unit { years, months, weeks, days, hours, minutes, seconds, unitCount };
    struct Forms {
        QString pastOne, pastMany, futureOne, futureMany;
    };

    Instant now_;
    QString justNow_;
    std::array<Forms, unitCount> forms_;
};

} // namespace orvel
