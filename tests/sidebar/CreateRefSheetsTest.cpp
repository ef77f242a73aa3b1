// The create-branch and create-tag sheets end to end on a real repository: names that break a
// rule keep Create disabled and say why, git's refusal shows in the sheet, an accepted name
// becomes a branch at the chosen commit, and the tag sheet hands its answer over.
#include "content/ui/CreateBranchSheet.h"
#include "core/process/SubprocessExecutor.h"
#include "core/queue/GitOpRunner.h"
#include "core/service/NativeGitService.h"
#include "core/support/UserDefaults.h"
#include "sidebar/ui/CreateTagSheet.h"
#include "support/Eventually.h"
#include "support/GitFixture.h"
#include "support/Screenshot.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

using namespace orvel;

namespace {

class CreateRefSheets : public ::testing::Test {
  protected:
    CreateRefSheets() {
        repo.write("a.txt", "one\n");
        first = repo.commitAll("first");
        repo.write("a.txt", "two\n");
        repo.commitAll("second");
        entry.path = repo.path();
    }

    template <typename T>
    static T* child(QWidget& sheet, const char* name) {
        auto* found = sheet.findChild<T*>(QString::fromLatin1(name));
        EXPECT_NE(found, nullptr) << name;
        return found;
    }

    static void retype(QLineEdit* field, const QString& text) {
        field->clear();
        QTest::keyClicks(field, text);
    }

    test::TempRepo repo;
    std::string first;
    RepoEntry entry;
    InMemoryUserDefaults defaults;
    std::shared_ptr<NativeGitService> service = std::make_shared<NativeGitService>(
        std::make_shared<SubprocessExecutor>(std::nullopt, defaults), std::make_shared<GitOpRunner>(2));
};

} // namespace

TEST_F(CreateRefSheets, CreateABranchAtACommitWithoutCheckingItOut) {
    CreateBranchSheet sheet(entry, first, service);
    QSignalSpy created(&sheet, &CreateBranchSheet::created);
    sheet.open();
    auto* field = child<QLineEdit>(sheet, "create-branch.name-field");
    auto* create = child<QPushButton>(sheet, "create-branch.create-button");
    auto* message = child<QLabel>(sheet, "create-branch.validation-message");

    retype(field, QStringLiteral("@"));
    EXPECT_FALSE(create->isEnabled());
    EXPECT_EQ(message->text(), QStringLiteral("'@' alone is not valid"));
    test::saveScreenshot(sheet, QStringLiteral("create-branch-sheet-invalid"), QSize(460, 220));

    // A name git refuses: the sheet stays open and says why.
    retype(field, QStringLiteral("main"));
    child<QCheckBox>(sheet, "create-branch.checkout-toggle")->setChecked(false);
    EXPECT_EQ(create->text(), QStringLiteral("Create"));
    create->click();
    ASSERT_TRUE(test::eventually(
        [&] { return sheet.findChild<QLabel*>(QStringLiteral("create-branch.error"))->isVisible(); }));
    EXPECT_TRUE(sheet.isVisible());

    retype(field, QStringLiteral("feature one"));
    EXPECT_EQ(field->text(), QStringLiteral("feature-one"));
    QTest::keyClick(field, Qt::Key_Return);
    ASSERT_TRUE(test::eventually([&] { return created.count() == 1; }));
    EXPECT_FALSE(sheet.isVisible());
    EXPECT_EQ(repo.rev("feature-one"), first);
    EXPECT_EQ(repo.git({"branch", "--show-current"}), "main\n");
}

TEST_F(CreateRefSheets, TheTagSheetHandsOverAValidNameWithItsMessageAndCommit) {
    CreateTagSheet sheet(entry, first, service);
    struct Request {
        QString name;
        std::optional<QString> message;
        std::string commit;
    };
    std::vector<Request> requests;
    QObject::connect(
        &sheet, &CreateTagSheet::createRequested,
        [&](const QString& name, const std::optional<QString>& message, const std::string& commit) {
            requests.push_back({name, message, commit});
        });
    sheet.open();
    auto* field = child<QLineEdit>(sheet, "create-tag.name-field");
    auto* create = child<QPushButton>(sheet, "create-tag.create-button");

    retype(field, QStringLiteral("v 1"));
    EXPECT_FALSE(create->isEnabled());
    EXPECT_EQ(child<QLabel>(sheet, "create-tag.validation-error")->text(),
              QStringLiteral("Invalid tag name: Cannot contain spaces"));

    retype(field, QStringLiteral("v1.0"));
    child<QPlainTextEdit>(sheet, "create-tag.message-field")->setPlainText(QStringLiteral("Release"));
    create->click();
    ASSERT_EQ(requests.size(), 1u);
    EXPECT_EQ(requests.front().name, QStringLiteral("v1.0"));
    EXPECT_EQ(requests.front().message, std::optional(QStringLiteral("Release")));
    EXPECT_EQ(requests.front().commit, first);
    EXPECT_FALSE(sheet.isVisible());
}
