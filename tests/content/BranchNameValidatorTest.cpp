// Every rule of the branch-name validator once, the message the sheet shows for the first broken
// rule, the cleaning while typing and the name that Create hands over.
#include "content/BranchNameValidator.h"
#include "core/support/UserDefaults.h"

#include <gtest/gtest.h>

using namespace orvel;
using namespace orvel::BranchNameValidator;
using enum orvel::BranchNameValidator::ErrorCase;

namespace {

std::vector<ErrorCase> kinds(const QString& name) {
    std::vector<ErrorCase> result;
    for (const auto& error : validate(name))
        result.push_back(error.kind);
    return result;
}

} // namespace

TEST(BranchNameValidator, ReportsEveryBrokenRuleInOrder) {
    const struct {
        QString name;
        std::vector<ErrorCase> expected;
    } cases[] = {
        {QStringLiteral("feature/login"), {}},
        {QString(), {empty}},
        {QString(255, QLatin1Char('a')), {}},
        {QString(256, QLatin1Char('a')), {tooLong}},
        // Combining marks join their letter: 255 user-perceived characters are not too long.
        {QString(255, QLatin1Char('a')).replace(QLatin1Char('a'), QStringLiteral("e\u0301")), {}},
        {QStringLiteral("-x"), {startsWithDash}},
        {QStringLiteral(".a"), {startsWithDot, componentStartsWithDot}},
        {QStringLiteral("a."), {endsWithDot}},
        {QStringLiteral("feat/"), {endsWithSlash}},
        {QStringLiteral("foo.lock"), {endsWithLockExtension}},
        {QStringLiteral("a..b"), {containsConsecutiveDots}},
        {QStringLiteral("a//b"), {containsConsecutiveSlashes}},
        {QStringLiteral("a@{b"), {containsAtBrace}},
        {QStringLiteral("@"), {isSingleAt}},
        {QStringLiteral("a b~c"), {containsSpace}},
        {QStringLiteral("a~b c"), {containsInvalidCharacter}},
        {QStringLiteral("a\r\nb"), {containsInvalidCharacter}},
        {QStringLiteral("a\x7f"), {containsInvalidCharacter}},
        {QStringLiteral("a/.b/.c"), {componentStartsWithDot}},
        // "]" is left to the cleaning step.
        {QStringLiteral("a]"), {}},
    };
    for (const auto& c : cases)
        EXPECT_EQ(kinds(c.name), c.expected) << c.name.toStdString();
    EXPECT_EQ(validate(QStringLiteral("a:b")).front().character, QStringLiteral(":"));
}

TEST(BranchNameValidator, SheetMessagesAndReasons) {
    EXPECT_EQ(message(validate(QStringLiteral("foo.lock")).front()),
              QStringLiteral("Cannot end with '.lock'"));
    EXPECT_EQ(message(validate(QStringLiteral("@")).front()), QStringLiteral("'@' alone is not valid"));
    EXPECT_EQ(message(validate(QStringLiteral("a/.b")).front()),
              QStringLiteral("Path components cannot start with '.'"));
    // The first error has no message, so none shows although a later one has.
    EXPECT_EQ(message(validate(QStringLiteral(".a.")).front()), std::nullopt);
    EXPECT_EQ(reason(validate(QStringLiteral("a:b")).front()), QStringLiteral("Cannot contain ':'"));
}

TEST(BranchNameValidator, CleansWhileTypingAndNormalisesOnCreate) {
    const struct {
        QString typed;
        QString replacement;
        QString cleaned;
        QString handedOver;
    } cases[] = {
        {QStringLiteral("a b"), QStringLiteral("-"), QStringLiteral("a-b"), QStringLiteral("a-b")},
        {QStringLiteral("a b"), QStringLiteral("_"), QStringLiteral("a_b"), QStringLiteral("a_b")},
        // A space in the replacement itself is removed as well.
        {QStringLiteral("a b"), QStringLiteral(" "), QStringLiteral("ab"), QStringLiteral("ab")},
        {QStringLiteral("-x"), QStringLiteral("-"), QStringLiteral("x"), QStringLiteral("x")},
        {QStringLiteral(".-.x~^:\\?*[]\ty"), QStringLiteral("-"), QStringLiteral("xy"), QStringLiteral("xy")},
        {QStringLiteral("foo.lock"), QStringLiteral("-"), QStringLiteral("foo.lock"), QStringLiteral("foo")},
        {QStringLiteral("a..b"), QStringLiteral("-"), QStringLiteral("a..b"), QStringLiteral("a.b")},
        {QStringLiteral("feat/"), QStringLiteral("-"), QStringLiteral("feat/"), QStringLiteral("feat")},
        {QStringLiteral("a////b"), QStringLiteral("-"), QStringLiteral("a////b"), QStringLiteral("a/b")},
        {QStringLiteral("feature/..x.lock"), QStringLiteral("-"), QStringLiteral("feature/..x.lock"),
         QStringLiteral("feature/.x")},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(sanitize(c.typed, c.replacement), c.cleaned) << c.typed.toStdString();
        EXPECT_EQ(normalizedBranchName(c.typed, c.replacement), c.handedOver) << c.typed.toStdString();
    }

    InMemoryUserDefaults defaults;
    EXPECT_EQ(spaceReplacement(defaults), QStringLiteral("-"));
    defaults.setValue(QStringLiteral("branchSpaceReplacement"), QString());
    EXPECT_EQ(spaceReplacement(defaults), QStringLiteral("-"));
    defaults.setValue(QStringLiteral("branchSpaceReplacement"), QStringLiteral("_"));
    EXPECT_EQ(spaceReplacement(defaults), QStringLiteral("_"));
}
