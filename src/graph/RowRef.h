// A ref pill on one row of the graph: the ref and how strongly it shows there. A ref is drawn at
// full strength on its own commit and fades on the rows of its first-parent ancestors. A tag shows on
// two hundred rows, so a pill refers to its commit's ref rather than copying the name onto each row;
// the view model lays its pills out again whenever its commits change.
#pragma once

#include "core/records/GraphRef.h"

namespace orvel {

struct RowRef {
    const GraphRef* ref = nullptr;
    double opacity = 1.0;

    bool operator==(const RowRef&) const = default;
};

} // namespace orvel
