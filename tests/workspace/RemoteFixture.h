// A repository with a local bare repository as its origin and a second clone that pushes to the
// same origin, so that the local branch can fall behind or diverge; the application model over the
// real git with the local repository open as its one tab.
#pragma once

#include "core/process/SubprocessExecutor.h"
#include "core/queue/GitOpRunner.h"
#include "core/service/NativeGitService.h"
#include "core/support/UserDefaults.h"
#include "support/Await.h"
#include "support/DrainQueue.h"
#include "support/Eventually.h"
#include "support/GitFixture.h"
#include "workspace/AppViewModel.h"

#include <gtest/gtest.h>

namespace orvel::test {

class RemoteFixture : public ::testing::Test {
  protected:
    RemoteFixture() {
        local.write("file.txt", "one\n");
        local.commitAll("first");
        local.git({"remote", "add", "origin", origin.path()});
        local.git({"push", "-q", "-u", "origin", "main"});
        git(clones.path(), {"clone", "-q", origin.path(), "other"});
        // Every toast raised, in order, also those that the five-toast limit pushed out.
        QObject::connect(&model.toastManager(), &ToastManager::toastsChanged, [this] {
            const auto& toasts = model.toastManager().toasts();
            if (!toasts.empty() && toasts.back().id != lastToastId) {
                lastToastId = toasts.back().id;
                shown.append(toasts.back().message);
            }
        });
    }
    ~RemoteFixture() override { drainQueue(*runner); }

    // Opens the local repository and waits until its tab knows its branches. The tab's watcher is
    // stopped: its refreshes would race with the test's own git for the index lock.
    WorkspaceTabState& openLocal() {
        await(model.openRepository(local.path()));
        WorkspaceTabState* tab = model.activeTab();
        EXPECT_TRUE(eventually([tab] { return !tab->branches().empty(); }));
        tab->cancelAllTasks();
        return *tab;
    }

    // Runs a command to its end, and the refresh it started too.
    void run(QCoro::Task<void> command) {
        await(std::move(command));
        drainQueue(*runner);
    }

    // A commit in the other clone, pushed to origin.
    void commitElsewhere(const std::string& file, const std::string& content) {
        git(other, {"pull", "-q", "--ff-only"});
        writeFile(clones / ("other/" + file), content);
        git(other, {"add", "-A"});
        git(other, {"commit", "-q", "-m", "elsewhere " + file});
        git(other, {"push", "-q", "origin", "main"});
    }

    // The last toast's text, or nothing.
    QString lastToast() {
        const auto& toasts = model.toastManager().toasts();
        return toasts.empty() ? QString() : toasts.back().message;
    }

    TempRepo origin{TempRepo::Kind::bare};
    TempRepo local;
    TempDir clones;
    std::string other = clones / "other";
    InMemoryUserDefaults defaults;
    std::shared_ptr<GitOpRunner> runner = std::make_shared<GitOpRunner>(2);
    std::shared_ptr<NativeGitService> service = std::make_shared<NativeGitService>(
        std::make_shared<SubprocessExecutor>(std::nullopt, defaults), runner);
    AppViewModel model{service, defaults};
    QStringList shown;
    QUuid lastToastId;
};

} // namespace orvel::test
