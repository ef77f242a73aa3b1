#include "workspace/ui/ToastOverlay.h"

#include "settings/ThemeEngine.h"
#include "support/Screenshot.h"
#include "widgets/OEmptyState.h"
#include "widgets/OInlineBanner.h"
#include "widgets/TokenPalette.h"
#include "notices/ToastManager.h"
#include "workspace/ui/ToastBadge.h"

#include <QApplication>
#include <QPropertyAnimation>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>

#include <algorithm>

namespace orvel {
namespace {

// A window with the shared pieces a view shows when it has nothing to list, under the toasts.
struct Window {
    Window() {
        auto* layout = new QVBoxLayout(&widget);
        auto* banner = new OInlineBanner(&widget);
        banner->setMessage(OInlineBanner::Kind::warning, "The theme file lacks \"colors.toast\".");
        banner->addButton("Dismiss", [] {});
        layout->addWidget(banner);
        layout->addWidget(new OEmptyState("vcs-commit", "No Commits Yet",
                                          "Commit your first change and the history starts here.", &widget));
        widget.resize(900, 560);
    }
    QWidget widget;
};

std::vector<ToastBadge*> badgesTopDown(const ToastOverlay& overlay) {
    const QList<ToastBadge*> found = overlay.findChildren<ToastBadge*>();
    std::vector<ToastBadge*> badges(found.begin(), found.end());
    std::sort(badges.begin(), badges.end(), [](auto* a, auto* b) { return a->y() < b->y(); });
    return badges;
}

TEST(ToastOverlayTest, StacksOldestOnTopTakesTheMouseOnlyOnBadgesFollowsTheWindowAndFades) {
    for (const ColorScheme scheme : {ColorScheme::light, ColorScheme::dark}) {
        QApplication::setPalette(tokenPalette(ThemeEngine::shared().tokens(scheme)));
        Window window;
        ToastManager toasts;
        auto* overlay = new ToastOverlay(toasts, &window.widget);
        window.widget.show();
        EXPECT_FALSE(overlay->isVisible());

        toasts.show("Committed 3 files to main", ToastType::notice, 60);
        toasts.show("Fetch skipped: origin is unreachable", ToastType::warning, 60);
        toasts.show("Fetch skipped: origin is unreachable", ToastType::warning, 60);
        toasts.show("Push rejected: the remote has commits that are not here. Pull first, then push again.",
                    ToastType::error, 60);
        const auto settled = [&] { return overlay->findChildren<QPropertyAnimation*>().isEmpty(); };
        EXPECT_TRUE(QTest::qWaitFor(settled));
        const std::vector<ToastBadge*> badges = badgesTopDown(*overlay);
        ASSERT_EQ(badges.size(), 3u);
        EXPECT_EQ(badges[0]->item().type, ToastType::notice);
        EXPECT_EQ(badges[1]->item().repeatCount, 1);
        EXPECT_EQ(badges[2]->item().type, ToastType::error);
        EXPECT_EQ(badges[2]->geometry().right(), window.widget.width() - 17);
        EXPECT_EQ(badges[2]->geometry().bottom(), window.widget.height() - 17);
        EXPECT_TRUE(overlay->mask().contains(badges[1]->geometry().center()));
        EXPECT_FALSE(overlay->mask().contains(QPoint(10, 10)));

        test::saveScreenshot(window.widget,
                             scheme == ColorScheme::dark ? "toast-overlay-dark" : "toast-overlay-light",
                             QSize(900, 560));
        window.widget.resize(700, 480);
        EXPECT_EQ(overlay->geometry(), window.widget.rect());
        EXPECT_EQ(badges[2]->geometry().right(), 700 - 17);

        // A sixth toast pushes the oldest out: it fades, and the rest slide into place.
        for (int index = 0; index < 3; ++index)
            toasts.show(QStringLiteral("Fetched origin %1").arg(index), ToastType::notice, 60);
        EXPECT_TRUE(QTest::qWaitFor([&] { return badgesTopDown(*overlay).size() == 5 && settled(); }));
        EXPECT_EQ(badgesTopDown(*overlay).front()->item().type, ToastType::warning);
        EXPECT_EQ(badgesTopDown(*overlay).back()->geometry().bottom(), window.widget.height() - 17);
    }
    QApplication::setPalette(QPalette());
}

} // namespace
} // namespace orvel
