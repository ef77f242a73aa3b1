// Whether a file is a git that works, and its version: the settings ask before they offer a
// program or let the user choose one.
#pragma once

#include <QCoro/QCoroTask>

#include <optional>
#include <string>

namespace orvel {

class GitBinaryProberProtocol {
  public:
    virtual ~GitBinaryProberProtocol() = default;

    // The version ("2.39.5"), or nothing when `path` is not a usable git.
    virtual QCoro::Task<std::optional<std::string>> probe(std::string path) = 0;
};

} // namespace orvel
