// A real repository and the git service and toasts that a graph pane's model needs to show it.
#pragma once

#include "core/RealGitService.h"
#include "notices/ToastManager.h"

#include <memory>

namespace orvel::test {

class GraphPaneOnRealGit : public RepositoryTest {
  protected:
    std::shared_ptr<GitServiceProtocol> service{&real.service, [](GitServiceProtocol*) {}};
    ToastManager toasts;
};

} // namespace orvel::test
