// A ref pill on one row of the graph: the ref and how strongly it shows there. A ref is drawn at
// full strength on its own commit and fades on the rows of its first-parent ancestors.
#pragma once

#include "core/records/GraphRef.h"

namespace orvel {

struct RowRef {
    GraphRef ref;
    double opacity = 1.0;

    bool operator==(const RowRef&) const = default;
};

} // namespace orvel
