// A temporary repository with the git service over the real git program, for the changes page's
// tests; the queue drains before the repository goes, so no awaiting coroutine is abandoned.
#pragma once

#include "core/process/SubprocessExecutor.h"
#include "core/queue/GitOpRunner.h"
#include "core/service/NativeGitService.h"
#include "core/support/UserDefaults.h"
#include "support/DrainQueue.h"
#include "support/GitFixture.h"
#include "notices/ToastManager.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace orvel::test {

class ChangesOnRealGit : public ::testing::Test {
  protected:
    ~ChangesOnRealGit() override { drainQueue(*runner); }

    RepoEntry entry() const {
        RepoEntry repoEntry;
        repoEntry.path = repo.path();
        return repoEntry;
    }

    // The toasts shown since the first `from`, a line each.
    std::string toastText(std::size_t from = 0) const {
        std::string text;
        for (std::size_t i = from; i < toasts.toasts().size(); ++i)
            text += toasts.toasts()[i].message.toStdString() + "\n";
        return text;
    }

    TempRepo repo;
    InMemoryUserDefaults defaults;
    std::shared_ptr<GitOpRunner> runner = std::make_shared<GitOpRunner>(2);
    std::shared_ptr<NativeGitService> service = std::make_shared<NativeGitService>(
        std::make_shared<SubprocessExecutor>(std::nullopt, defaults), runner);
    ToastManager toasts;
};

} // namespace orvel::test
