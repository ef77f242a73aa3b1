// A configured remote with the URLs git fetches from and pushes to.
#pragma once

#include <string>

namespace orvel {

struct RemoteEntry {
    std::string name;
    std::string fetchURL;
    std::string pushURL;

    bool operator==(const RemoteEntry&) const = default;
};

} // namespace orvel
