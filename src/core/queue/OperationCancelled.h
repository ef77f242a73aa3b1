// The queue's one error of its own: a submission whose stop token had fired, or a block that was
// dropped without running because its pool ended first.
#pragma once

#include <stdexcept>

namespace orvel {

class OperationCancelled final : public std::runtime_error {
  public:
    OperationCancelled() : std::runtime_error("Operation cancelled") {}
};

} // namespace orvel
