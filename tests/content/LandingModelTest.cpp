// The landing page's model: the preview of a selected recent, the README it finds and cuts, a
// later selection that wins over a slow earlier one, and a recent that no longer opens.
#include "content/Readme.h"
#include "content/WelcomeViewModel.h"

#include "core/service/GitServiceError.h"
#include "core/service/MockGitService.h"
#include "core/support/UserDefaults.h"
#include "support/Await.h"
#include "support/GitFixture.h"

#include <QCoro/QCoroTimer>
#include <QFileInfo>
#include <QSignalSpy>

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <future>
#include <map>
#include <set>
#include <system_error>

using namespace orvel;

namespace {

// Opens of the paths in `held` wait until released; opens of the paths in `failures` throw.
class LandingService final : public MockGitService {
  public:
    std::set<std::string> held;
    std::map<std::string, std::exception_ptr> failures;

    QCoro::Task<RepoEntry> open(std::string path, std::stop_token) override {
        while (held.count(path))
            co_await QCoro::sleepFor(std::chrono::milliseconds(1));
        if (failures.count(path))
            std::rethrow_exception(failures[path]);
        auto opened = MockGitService::open(path);
        co_return co_await std::move(opened);
    }
};

struct Landing {
    std::shared_ptr<LandingService> service = std::make_shared<LandingService>();
    WelcomeViewModel model{service, nullptr, std::make_shared<InMemoryUserDefaults>()};
};

std::string lines(int count) {
    std::string text;
    for (int line = 0; line < count; ++line)
        text += "line\n";
    return text;
}

} // namespace

TEST(Landing, SelectionLoadsCommitsBranchesAndReadme) {
    test::TempDir folder;
    test::writeFile(folder / "README.md", "# Hello\n");
    Landing landing;
    landing.model.setRecents({QString::fromStdString(folder.path())});
    test::await(landing.model.select(QString::fromStdString(folder.path())));

    EXPECT_FALSE(landing.model.isLoading());
    EXPECT_FALSE(landing.model.errorMessage());
    ASSERT_TRUE(landing.model.repo());
    EXPECT_EQ(landing.model.repo()->path, folder.path());
    ASSERT_FALSE(landing.model.recentCommits().empty());
    EXPECT_EQ(landing.model.recentCommits().front().subject, "Merge branch 'feature/search'");
    EXPECT_EQ(landing.model.branches(), landing.service->branchList);
    ASSERT_TRUE(landing.model.readme());
    EXPECT_EQ(landing.model.readme()->text, QStringLiteral("# Hello\n"));

    // No commits: no history is asked for and nothing is wrong.
    landing.service->repository.headHash.reset();
    landing.service->graph.clear();
    test::await(landing.model.select(QString::fromStdString(folder.path())));
    EXPECT_TRUE(landing.model.recentCommits().empty());
    EXPECT_FALSE(landing.model.errorMessage());
}

TEST(Landing, ALaterSelectionDropsTheAnswerOfAnEarlierOne) {
    test::TempDir slow;
    test::TempDir fast;
    Landing landing;
    landing.service->held.insert(slow.path());
    auto first = landing.model.select(QString::fromStdString(slow.path()));
    test::await(landing.model.select(QString::fromStdString(fast.path())));
    landing.service->held.clear();
    test::await(std::move(first));

    EXPECT_EQ(landing.model.selectedPath(), QString::fromStdString(fast.path()));
    ASSERT_TRUE(landing.model.repo());
    EXPECT_EQ(landing.model.repo()->path, fast.path());
}

TEST(Landing, ARecentThatNoLongerOpensLeavesTheListButGitTroubleDoesNot) {
    test::TempDir folder;
    const std::string gone = folder / "gone-repo";
    const std::string notRepository = folder / "plain";
    std::filesystem::create_directory(notRepository);
    Landing landing;
    const auto cannotRun =
        std::make_exception_ptr(std::system_error(ENOENT, std::generic_category(), "no git"));
    landing.service->failures = {
        {gone, cannotRun},
        {notRepository,
         std::make_exception_ptr(GitServiceError::commandFailed("rev-parse", "not a git repository"))},
        {folder.path(), cannotRun},
    };
    QSignalSpy removals(&landing.model, &WelcomeViewModel::removeRecentRequested);
    for (const std::string& path : {gone, notRepository}) {
        test::await(landing.model.select(QString::fromStdString(path)));
        EXPECT_FALSE(landing.model.selectedPath());
    }
    ASSERT_EQ(removals.size(), 2);
    EXPECT_EQ(removals.at(0).at(0).toString().toStdString(), gone);
    EXPECT_EQ(landing.model.notice(), QStringLiteral("Removed invalid repos: plain"));

    // The folder is there and git could not run: the entry stays and the error shows.
    test::await(landing.model.select(QString::fromStdString(folder.path())));
    EXPECT_EQ(removals.size(), 2);
    EXPECT_TRUE(landing.model.selectedPath());
    EXPECT_TRUE(landing.model.errorMessage());
}

TEST(Readme, FirstReadableNameWinsAndLongTextIsCut) {
    struct Case {
        std::vector<std::pair<std::string, std::string>> files;
        std::optional<std::string> found;
        bool isCut;
    } cases[] = {
        {{{"readme.md", "lower"}, {"README.txt", "text"}}, "readme.md", false},
        {{{"README.md", "bad \xff\xfe bytes"}, {"README.txt", "text"}}, "README.txt", false},
        {{{"README.md", std::string("nul\0byte", 8)}}, std::nullopt, false},
        {{{"README", lines(Readme::maxLines)}}, "README", false},
        {{{"README.md", lines(Readme::maxLines + 1)}}, "README.md", true},
        {{}, std::nullopt, false},
    };
    for (const Case& c : cases) {
        test::TempDir folder;
        for (const auto& [name, content] : c.files)
            test::writeFile(folder / name, content);
        const std::optional<Readme> readme = findReadme(folder.path());
        ASSERT_EQ(readme.has_value(), c.found.has_value()) << c.files.size();
        if (!readme)
            continue;
        EXPECT_EQ(readme->fileName.toStdString(), *c.found);
        EXPECT_EQ(readme->isCut, c.isCut) << *c.found;
        if (c.isCut)
            EXPECT_EQ(readme->text.count(QLatin1Char('\n')), Readme::maxLines - 1);
    }
}

// A README that is no regular file (a link to an endless device, a named pipe) is passed over
// without reading it, and a huge regular one is read up to its byte limit, even when the cut
// falls inside a character.
TEST(Readme, OnlyRegularFilesAreReadAndOnlyUpToTheLimit) {
    test::TempDir folder;
    std::filesystem::create_symlink("/dev/zero", folder / "README.md");
    ASSERT_EQ(::mkfifo((folder / "readme.md").c_str(), 0600), 0);
    // Lines of 999 bytes and a line feed, with a two-byte character across the limit.
    std::string large;
    while (large.size() < 3 * std::size_t(Readme::maxBytes))
        large += std::string(999, 'x') + "\n";
    large.replace(std::size_t(Readme::maxBytes) - 1, 2, "\xc3\xa9");
    test::writeFile(folder / "README.txt", large);

    auto found = std::async(std::launch::async, [&folder] { return findReadme(folder.path()); });
    if (found.wait_for(std::chrono::seconds(10)) != std::future_status::ready) {
        ADD_FAILURE() << "the named pipe blocked the read";
        // A writer that comes and goes lets a blocked reader end.
        ::close(::open((folder / "readme.md").c_str(), O_WRONLY));
    }
    const std::optional<Readme> readme = found.get();
    ASSERT_TRUE(readme);
    EXPECT_EQ(readme->fileName, QStringLiteral("README.txt"));
    EXPECT_TRUE(readme->isTruncated);
    EXPECT_FALSE(readme->isCut);
    const QByteArray kept = readme->text.toUtf8();
    EXPECT_EQ(kept.size(), Readme::maxBytes - 1);
    EXPECT_EQ(kept.toStdString(), large.substr(0, std::size_t(Readme::maxBytes) - 1));

    // Exactly at the limit nothing is left out.
    std::filesystem::remove(folder / "README.txt");
    test::writeFile(folder / "README", std::string(std::size_t(Readme::maxBytes), 'y'));
    const std::optional<Readme> exact = findReadme(folder.path());
    ASSERT_TRUE(exact);
    EXPECT_FALSE(exact->isTruncated);
    EXPECT_EQ(exact->text.size(), Readme::maxBytes);
}
