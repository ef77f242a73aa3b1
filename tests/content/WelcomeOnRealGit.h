// The landing page over the real git service, with the helpers its widget tests share: a card's
// sheet, and the wait for the window to be asked to open a repository.
#pragma once

#include "content/WelcomeViewModel.h"
#include "content/ui/WelcomeCard.h"
#include "content/ui/WelcomeView.h"
#include "core/RealGitService.h"

#include <QSignalSpy>
#include <QTest>

#include <memory>

namespace orvel::test {

struct WelcomeOnRealGit {
    RealGitService git;
    std::shared_ptr<GitServiceProtocol> service{&git.service, [](GitServiceProtocol*) {}};
    std::shared_ptr<InMemoryUserDefaults> defaults = std::make_shared<InMemoryUserDefaults>();
    WelcomeViewModel model{service, nullptr, defaults};
    WelcomeView view{model};
    QSignalSpy opened{&view, &WelcomeView::openRepositoryRequested};

    WelcomeOnRealGit() {
        view.resize(1280, 800);
        view.show();
    }

    // Clicks the card and answers the sheet it opened.
    template <typename Sheet>
    Sheet* openSheet(const char* card) {
        view.findChild<WelcomeCard*>(card)->click();
        return view.findChild<Sheet*>();
    }

    bool waitForOpen() {
        return QTest::qWaitFor([this] { return !opened.isEmpty(); }, 30000);
    }
    std::string openedPath() const { return opened.constFirst().constFirst().toString().toStdString(); }
};

} // namespace orvel::test
