// The main window on a real repository, switched from English to Simplified Chinese and back while
// it stays open with some of its dialogs and sheets. Every text it shows on its history and changes pages and
// in those dialogs (labels, buttons, actions, menus, tabs, headers, rows, placeholders, tool tips)
// is read after each switch: in Chinese none may still read as in English, and back in English
// every one reads as before. Pictures of both pages in Chinese are written for a person to
// check that the characters render.
#include "workspace/ui/MainWindow.h"

#include "changes/ChangesPaneViewModel.h"
#include "core/process/SubprocessExecutor.h"
#include "core/queue/GitOpRunner.h"
#include "core/service/NativeGitService.h"
#include "core/support/UserDefaults.h"
#include "graph/RepoGraphPaneViewModel.h"
#include "settings/LocalizationManager.h"
#include "sidebar/SidebarViewModel.h"
#include "support/Await.h"
#include "support/DrainQueue.h"
#include "support/Eventually.h"
#include "support/GitFixture.h"
#include "support/Screenshot.h"
#include "workspace/AppViewModel.h"
#include "workspace/WorkspaceTabState.h"
#include "workspace/WorkspaceViewModel.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAction>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QRegularExpression>
#include <QTabBar>
#include <QTest>
#include <QTextDocumentFragment>
#include <QTextEdit>

#include <gtest/gtest.h>

#include <set>

using namespace orvel;

namespace {

// Texts that read the same in both languages: the program's name, git's own words (the author
// that blame gives uncommitted lines), the sort order's letters and the sidebar's "W" toggle for
// whole-word matching.
const QStringList sameInEveryLanguage = {QStringLiteral("Orvel"),     QStringLiteral("HEAD"),
                                         QStringLiteral("Git"),       QStringLiteral("A-Z"),
                                         QStringLiteral("Z-A"),       QStringLiteral("W"),
                                         QStringLiteral("README.md"), QStringLiteral("Not Committed Yet")};

// Texts that are not words of any language: names from the test repository (its folder, branches,
// tag, files and their type, commits and author), commit hashes, keys and web addresses.
bool isName(const QString& text, const QString& folder) {
    static const QRegularExpression names(QStringLiteral(
        R"re((?<![A-Za-z])(kiwi|main|txt|v1\.2|Orvel Test|test@orvel\.invalid)(?![A-Za-z])|^[0-9a-f]{7,40}$)re"
        R"re(|^((Ctrl|Shift|Alt|Meta)\+)+\S+$|^https://)re"));
    return text.contains(folder) || names.match(text).hasMatch();
}

// Each line on its own, so that a name from the repository excuses only its own line. Labels may
// hold rich text; what a user reads is its plain text.
void addText(std::set<QString>& texts, const QString& text) {
    const QString plain =
        Qt::mightBeRichText(text) ? QTextDocumentFragment::fromHtml(text).toPlainText() : text;
    for (const QString& line : plain.split(QLatin1Char('\n')))
        if (!line.trimmed().isEmpty())
            texts.insert(line.trimmed());
}

void addModelTexts(std::set<QString>& texts, const QAbstractItemView& view) {
    const QAbstractItemModel* model = view.model();
    if (!model)
        return;
    for (int column = 0; column < model->columnCount(); ++column)
        addText(texts, model->headerData(column, Qt::Horizontal).toString());
    // The rows that fit a screen are enough: the rest are made by the same code.
    const int rows = std::min(model->rowCount(), 40);
    for (int row = 0; row < rows; ++row)
        for (int column = 0; column < model->columnCount(); ++column)
            for (const int role : {int(Qt::DisplayRole), int(Qt::ToolTipRole), int(Qt::AccessibleTextRole)})
                addText(texts, model->index(row, column).data(role).toString());
}

// Every text the window shows now, with its menus and actions.
std::set<QString> shownTexts(QWidget& window) {
    std::set<QString> texts;
    addText(texts, window.windowTitle());
    for (QWidget* widget : window.findChildren<QWidget*>()) {
        if (!widget->isVisible())
            continue;
        addText(texts, widget->toolTip());
        if (auto* label = qobject_cast<QLabel*>(widget))
            addText(texts, label->text());
        if (auto* button = qobject_cast<QAbstractButton*>(widget))
            addText(texts, button->text());
        if (auto* line = qobject_cast<QLineEdit*>(widget))
            addText(texts, line->placeholderText());
        if (auto* edit = qobject_cast<QPlainTextEdit*>(widget))
            addText(texts, edit->placeholderText());
        if (auto* edit = qobject_cast<QTextEdit*>(widget))
            addText(texts, edit->placeholderText());
        if (auto* group = qobject_cast<QGroupBox*>(widget))
            addText(texts, group->title());
        if (auto* combo = qobject_cast<QComboBox*>(widget))
            for (int i = 0; i < combo->count(); ++i)
                addText(texts, combo->itemText(i));
        if (auto* tabs = qobject_cast<QTabBar*>(widget))
            for (int i = 0; i < tabs->count(); ++i) {
                addText(texts, tabs->tabText(i));
                addText(texts, tabs->tabToolTip(i));
            }
        if (auto* view = qobject_cast<QAbstractItemView*>(widget))
            addModelTexts(texts, *view);
    }
    for (QMenu* menu : window.findChildren<QMenu*>())
        addText(texts, menu->title());
    for (QAction* action : window.findChildren<QAction*>()) {
        addText(texts, action->text());
        if (action->toolTip() != QString(action->text()).remove(QLatin1Char('&')))
            addText(texts, action->toolTip());
    }
    return texts;
}

class ChineseWindow : public ::testing::Test {
  protected:
    ChineseWindow() {
        repo.write("README.md", "# kiwi\n");
        repo.write("kiwi.txt", "kiwi 1\n");
        repo.commitAll("Add kiwi");
        repo.git({"tag", "v1.2"});
        repo.git({"branch", "kiwi-topic"});
        repo.write("kiwi.txt", "kiwi 2\n");
        repo.commitAll("Grow kiwi");
        repo.write("kiwi.txt", "stashed kiwi\n");
        repo.git({"stash", "-q"});
        repo.write("kiwi.txt", "kiwi 3\n");
        repo.write("kiwi-new.txt", "kiwi 4\n");
        repo.git({"add", "kiwi-new.txt"});
    }
    ~ChineseWindow() override {
        LocalizationManager::shared().switchLanguage(QStringLiteral("en"), defaults);
        test::drainQueue(*runner);
    }

    void switchTo(const char* language) {
        LocalizationManager::shared().switchLanguage(QString::fromLatin1(language), defaults);
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
    }

    // The texts of the history page and then the changes page.
    std::set<QString> bothPages(WorkspaceTabState& tab, const char* picturePrefix = nullptr) {
        std::set<QString> texts;
        for (const auto& [page, name] :
             {std::pair{WorkspaceTab::repoHistory, "history"}, std::pair{WorkspaceTab::changes, "changes"}}) {
            tab.workspace().setActiveTab(page);
            QCoreApplication::processEvents();
            if (picturePrefix)
                test::saveScreenshot(window, QString::fromLatin1(picturePrefix) + QString::fromLatin1(name));
            texts.merge(shownTexts(window));
        }
        return texts;
    }

    test::TempRepo repo;
    InMemoryUserDefaults defaults;
    std::shared_ptr<GitOpRunner> runner = std::make_shared<GitOpRunner>(2);
    AppViewModel model{std::make_shared<NativeGitService>(
                           std::make_shared<SubprocessExecutor>(std::nullopt, defaults), runner),
                       defaults};
    MainWindow window{model, defaults};
};

} // namespace

TEST_F(ChineseWindow, EveryShownTextFollowsTheLanguageSwitchedWhileTheWindowIsOpen) {
    switchTo("en");
    window.resize(1280, 800);
    window.show();
    test::await(model.openRepository(repo.path()));
    WorkspaceTabState& tab = *model.activeTab();
    ASSERT_TRUE(test::eventually([&] {
        return !tab.graph().isLoading() && tab.graph().commits().size() >= 2 && !tab.branches().empty() &&
               !tab.sidebar().stashEntries().empty() && !tab.changes().stagedFiles().empty() &&
               !tab.changes().unstagedFiles().empty();
    }));
    const QString folder = QString::fromStdString(std::filesystem::path(repo.path()).filename().string());
    static const QRegularExpression letters(QStringLiteral("[A-Za-z]"));
    static const QRegularExpression chinese(QStringLiteral("\\p{Han}"));

    // The diff of a changed file, and dialogs and sheets that stay open through the switches as a
    // user may leave them.
    tab.workspace().showDiff(tab.changes().unstagedFiles().front(), std::nullopt, false, false);
    for (const char* action :
         {"menu.clone", "menu.new-branch", "menu.new-tag", "menu.stash", "menu.settings"})
        window.findChild<QAction*>(QString::fromLatin1(action))->trigger();
    emit tab.changes().blameRequested("kiwi.txt");
    emit tab.changes().fileHistoryRequested("kiwi.txt");
    QTest::qWait(500); // the sheets read the file's blame and history from git

    const std::set<QString> english = bothPages(tab);
    ASSERT_GT(english.size(), 40u);

    switchTo("zh-Hans");
    for (const QString& text : bothPages(tab, "window-zh-Hans-"))
        if (english.contains(text) && text.contains(letters) && !sameInEveryLanguage.contains(text) &&
            !isName(text, folder))
            ADD_FAILURE() << "still in English: \"" << text.toStdString() << "\"";

    switchTo("en");
    const std::set<QString> englishAgain = bothPages(tab);
    for (const QString& text : englishAgain)
        if (text.contains(chinese))
            ADD_FAILURE() << "still in Chinese: \"" << text.toStdString() << "\"";
    for (const QString& text : english)
        if (!englishAgain.contains(text))
            ADD_FAILURE() << "gone after switching back: \"" << text.toStdString() << "\"";
    tab.cancelAllTasks();
}
