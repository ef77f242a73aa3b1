#include "core/records/GraphRef.h"

namespace orvel {

std::string_view toString(GraphRefType type) {
    switch (type) {
    case GraphRefType::localBranch:
        return "localBranch";
    case GraphRefType::remoteBranch:
        return "remoteBranch";
    case GraphRefType::tag:
        return "tag";
    }
    return "localBranch";
}

std::string GraphRef::id() const {
    std::string identity(toString(type));
    identity += ':';
    identity += name;
    return identity;
}

} // namespace orvel
