#include "content/LocalChangesOption.h"

#include "settings/LocalizationManager.h"

namespace orvel {

QString displayText(LocalChangesOption option) {
    switch (option) {
    case LocalChangesOption::dontChange:
        return localized("Don't change");
    case LocalChangesOption::stashAndReapply:
        return localized("Stash and reapply");
    case LocalChangesOption::discard:
        return localized("Discard");
    }
    return {};
}

} // namespace orvel
