// A tab's refresh on a real repository stopped in a merge conflict: the repository's state is read
// once, and the conflict banner shows that read, with the conflicted file, without reading again.
#include "merge/ConflictBannerViewModel.h"

#include "RemoteFixture.h"
#include "support/LogCapture.h"

using namespace orvel;

namespace {

class TabRefresh : public test::RemoteFixture {};

} // namespace

TEST_F(TabRefresh, OneStateReadPerRefreshIsSharedWithTheConflictBanner) {
    WorkspaceTabState& tab = openLocal();
    test::drainQueue(*runner);
    local.divergeOnOneFile();
    ASSERT_NE(local.gitAllowingFailure({"merge", "topic"}).exitCode, 0);

    test::LogCapture log;
    tab.refresh();
    test::drainQueue(*runner);

    // Read from the git directory's markers, with no need to open the repository again.
    const QStringList lines = log.text().split('\n');
    const QString path = QString::fromStdString(local.path());
    EXPECT_EQ(lines.count(QStringLiteral("repositoryState: ") + path), 1) << log.text().toStdString();
    EXPECT_EQ(lines.count(QStringLiteral("open: ") + path), 0) << log.text().toStdString();
    const ConflictBannerViewModel& banner = tab.conflictBanner();
    EXPECT_EQ(banner.repoState(), RepositoryState::merging);
    ASSERT_EQ(banner.conflicts().size(), 1u);
    EXPECT_EQ(banner.conflicts().front().path, "file");
}
