// The settings window over the real program: opened on a requested tab, one Apply and one Cancel
// across the General tab and a second page, a page that fails keeping the window open with its
// toast, and the running program following what was applied: the open tab's diff takes the new
// large-file limit, its push fetches without pruning, the fetch loop sleeps the new interval, the
// View menu shows the appearance.
#include "workspace/ui/SettingsDialog.h"

#include "RemoteFixture.h"
#include "changes/ChangesPaneViewModel.h"
#include "diff/DiffDetailViewModel.h"
#include "settings/GeneralSettingsViewModel.h"
#include "settings/SettingsPage.h"
#include "settings/ThemeEngine.h"
#include "support/Screenshot.h"
#include "widgets/TokenPalette.h"
#include "workspace/AutoFetchScheduler.h"
#include "workspace/ui/MainWindow.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>
#include <QTabWidget>
#include <QTest>

using namespace orvel;
using namespace std::chrono_literals;

namespace {

// A tab of the window that records what the window asks of it, and fails its Apply on request.
class RecordingPage final : public SettingsPage {
  public:
    explicit RecordingPage(std::function<void(const char*)> record) : record_(std::move(record)) {}

    QCoro::Task<void> load() override {
        record_("load");
        co_return;
    }
    QCoro::Task<void> apply() override {
        record_("apply");
        error_ = fails ? QStringLiteral("git config failed") : QString();
        co_return;
    }
    void revert() override { record_("revert"); }
    QString errorMessage() const override { return error_; }

    bool fails = false;

  private:
    std::function<void(const char*)> record_;
    QString error_;
};

class SettingsWindow : public test::RemoteFixture {
  protected:
    SettingsWindow() {
        model.autoFetch().setWakeTimer(
            [this](std::chrono::seconds delay, std::function<void()>) { delays.push_back(delay); });
    }

    // Picks an entry of a picker as a person does, with a key.
    void press(const char* picker, Qt::Key key) {
        QWidget* widget = dialog->findChild<QComboBox*>(picker);
        ASSERT_TRUE(widget) << picker;
        QTest::keyClick(widget, key);
    }

    DiffDetailViewModel::Content diffOf(WorkspaceTabState& tab, const std::string& path) {
        FileChange file;
        file.path = path;
        file.status = FileStatusKind::tracked(TrackedStatus::unmodified, TrackedStatus::modified);
        tab.diff().showDiff(file, std::nullopt, false, false);
        EXPECT_TRUE(
            test::eventually([&] { return tab.diff().content() != DiffDetailViewModel::Content::loading; }));
        return tab.diff().content();
    }

    std::vector<std::chrono::seconds> delays;
    std::vector<std::string> calls;
    SettingsDialog* dialog = nullptr;
};

} // namespace

TEST_F(SettingsWindow, ApplyAndCancelRunAcrossTabsAndTheProgramFollowsWhatWasApplied) {
    // A branch that origin had when the repository last fetched, and has no longer.
    test::git(other, {"push", "-q", "origin", "HEAD:refs/heads/gone"});
    local.git({"fetch", "-q", "origin"});
    test::git(other, {"push", "-q", "origin", "--delete", "gone"});
    MainWindow window(model, defaults);
    window.show();
    WorkspaceTabState& tab = openLocal();
    ASSERT_EQ(delays, std::vector{300s});
    // Twelve thousand lines: below the default limit of 15K, above the lowest of 10K.
    std::string lines;
    for (int line = 0; line < 12'000; ++line)
        lines += "line " + std::to_string(line) + "\n";
    local.write("file.txt", lines);
    EXPECT_EQ(diffOf(tab, "file.txt"), DiffDetailViewModel::Content::diff);

    // Whoever asks for a tab gets the window on it.
    SettingsTabRoute::shared().request(SettingsTab::general);
    dialog = window.findChild<SettingsDialog*>();
    ASSERT_TRUE(dialog && dialog->isVisible());
    EXPECT_FALSE(SettingsTabRoute::shared().requestedTab());
    auto* tabs = dialog->findChild<QTabWidget*>("settings.tabview");
    EXPECT_EQ(tabs->currentWidget()->objectName(), "settings.tab.general");
    QStringList order;
    for (int index = 0; index < tabs->count(); ++index)
        order.append(tabs->tabText(index));
    EXPECT_EQ(order, QStringList({"Appearance", "General", "Git", "Signing", "Keyboard"}));

    RecordingPage git([this](const char* call) {
        // The General tab is stored before the next page applies.
        calls.push_back(call + (std::string(call) == "apply"
                                    ? " after interval " + defaults.string("autoFetchInterval").toStdString()
                                    : std::string()));
    });
    dialog->setPage(SettingsTab::git, new QLabel("git"), &git);
    git.fails = true;
    dialog->findChild<QSpinBox*>("settings.general.auto-fetch-interval")->setValue(2);
    dialog->findChild<QCheckBox*>("settings.general.auto-prune-toggle")->click();
    press("settings.general.large-file-lines-picker", Qt::Key_Home);
    press("settings.general.appearance-picker", Qt::Key_End);
    // The appearance shows at once, in the View menu too, and is stored only by Apply.
    EXPECT_TRUE(window.findChild<QAction*>("menu.appearance.dark")->isChecked());
    EXPECT_FALSE(defaults.value("appearance").isValid());

    // A page that fails: the rest is stored, the toast says so, the window stays.
    dialog->findChild<QPushButton*>("settings.apply")->click();
    ASSERT_TRUE(test::eventually([&] { return !dialog->isApplying(); }));
    EXPECT_EQ(calls, std::vector<std::string>{"apply after interval 2"});
    EXPECT_EQ(shown.last(), "Some settings failed to save");
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_EQ(defaults.string("appearance"), "dark");
    EXPECT_EQ(delays.back(), 120s);
    EXPECT_EQ(diffOf(tab, "file.txt"), DiffDetailViewModel::Content::largeFile);
    // The fetch after a commit and push no longer prunes: the branch origin lost stays.
    test::await(tab.changes().refreshStatus());
    test::await(tab.changes().stageAll());
    tab.changes().setCommitSubject("Twelve thousand lines");
    tab.changes().setCommitAndPush(true);
    test::await(tab.changes().commit());
    test::drainQueue(*runner);
    EXPECT_EQ(origin.rev("main"), local.rev("main"));
    EXPECT_NE(local.git({"for-each-ref", "refs/remotes/origin/gone"}), "");

    dialog->showTab(SettingsTab::general);
    for (const auto& [scheme, name] : {std::pair{ColorScheme::light, "settings-general-light"},
                                       std::pair{ColorScheme::dark, "settings-general-dark"}}) {
        QApplication::setPalette(tokenPalette(ThemeEngine::shared().tokens(scheme)));
        QCoreApplication::processEvents();
        test::saveScreenshot(*dialog, name, QSize(620, 560));
    }
    QApplication::setPalette(QPalette());

    // Cancel drops the edits of every page, the previewed appearance with them.
    press("settings.general.appearance-picker", Qt::Key_Home);
    EXPECT_TRUE(window.findChild<QAction*>("menu.appearance.system")->isChecked());
    dialog->findChild<QPushButton*>("settings.cancel")->click();
    EXPECT_EQ(calls.back(), "revert");
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_TRUE(window.findChild<QAction*>("menu.appearance.dark")->isChecked());
    EXPECT_EQ(window.generalSettings().values().appearance, "dark");

    // Opened again it loads its pages; closed by its title bar's button, it reverts as Cancel does.
    window.findChild<QAction*>("menu.settings")->trigger();
    EXPECT_EQ(calls.back(), "load");
    dialog->findChild<QSpinBox*>("settings.general.auto-fetch-interval")->setValue(9);
    dialog->close();
    EXPECT_EQ(calls.back(), "revert");
    EXPECT_EQ(window.generalSettings().values().autoFetchInterval, 2);

    // The View menu stores at once, and the window shows it when it opens.
    window.findChild<QAction*>("menu.appearance.light")->trigger();
    EXPECT_EQ(defaults.string("appearance"), "light");
    window.findChild<QAction*>("menu.settings")->trigger();
    EXPECT_EQ(dialog->findChild<QComboBox*>("settings.general.appearance-picker")->currentData(), "light");

    // With every page working, Apply closes the window.
    git.fails = false;
    dialog->findChild<QPushButton*>("settings.apply")->click();
    ASSERT_TRUE(test::eventually([&] { return !dialog->isVisible(); }));
    EXPECT_EQ(shown.count("Some settings failed to save"), 1);
}
