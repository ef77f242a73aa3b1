#include "diff/SyntaxHighlighter.h"

#include "settings/Theme.h"

#include <QRegularExpression>

#include <array>
#include <map>
#include <mutex>

namespace orvel {

namespace {

struct Rule {
    QString pattern;
    SyntaxTokenType type;
    QRegularExpression::PatternOptions options = QRegularExpression::NoPatternOption;
};

const QString swiftKeywords = QStringLiteral(
    "import func var let class struct enum protocol extension if else guard switch case default for while "
    "repeat return break continue throw throws try catch do async await actor nonisolated isolated sending "
    "public private internal fileprivate open override final static mutating nonmutating init deinit self "
    "super true false nil some any where is as in typealias associatedtype weak unowned lazy inout didSet "
    "willSet get set subscript convenience required");
const QString pythonKeywords = QStringLiteral(
    "import from def class if elif else for while return yield break continue pass raise try except finally "
    "with as lambda and or not is in True False None self async await global nonlocal del assert print");
const QString scriptKeywords = QStringLiteral(
    "import export from function const let var class if else for while do switch case default break "
    "continue return throw try catch finally new delete typeof instanceof in of this super extends "
    "implements async await yield true false null undefined interface type enum namespace abstract readonly "
    "private public protected static void");
const QString goKeywords = QStringLiteral(
    "package import func var const type struct interface map chan if else for range switch case default "
    "break continue return go defer select fallthrough true false nil make new len cap append delete close "
    "panic recover");
const QString rustKeywords = QStringLiteral(
    "fn let mut const static struct enum impl trait pub use mod crate self super if else match for while "
    "loop break continue return as in where async await move unsafe extern type ref true false Some None Ok "
    "Err");
const QString cKeywords = QStringLiteral(
    "auto break case char const continue default do double else enum extern float for goto if int long "
    "register return short signed sizeof static struct switch typedef union unsigned void volatile while "
    "class namespace template typename virtual override final public private protected new delete this "
    "throw try catch true false nullptr NULL include define ifdef endif");
const QString jvmKeywords = QStringLiteral(
    "abstract assert boolean break byte case catch char class const continue default do double else enum "
    "extends final finally float for if implements import instanceof int interface long native new null "
    "package private protected public return short static super switch this throw throws try void volatile "
    "while true false var val fun when object companion data sealed suspend override open lateinit by lazy");
const QString rubyKeywords = QStringLiteral(
    "def end class module if elsif else unless while until for do begin rescue ensure raise return yield "
    "break next self super true false nil and or not require include attr_accessor attr_reader attr_writer "
    "puts print");
const QString shellKeywords = QStringLiteral(
    "if then else elif fi case esac for while do done in function return exit echo export local readonly "
    "shift set unset true false");
const QString sqlKeywords = QStringLiteral(
    "SELECT FROM WHERE INSERT UPDATE DELETE CREATE ALTER DROP TABLE INDEX VIEW JOIN LEFT RIGHT INNER OUTER ON "
    "AND OR NOT NULL IN BETWEEN LIKE ORDER BY GROUP HAVING LIMIT OFFSET AS DISTINCT COUNT SUM AVG MAX MIN "
    "INTO VALUES SET BEGIN COMMIT ROLLBACK TRANSACTION PRIMARY KEY FOREIGN REFERENCES CASCADE EXISTS UNION "
    "ALL");

QString keywordsOf(SourceLanguage language) {
    using L = SourceLanguage;
    switch (language) {
    case L::swift: return swiftKeywords;
    case L::python: return pythonKeywords;
    case L::javascript:
    case L::typescript: return scriptKeywords;
    case L::go: return goKeywords;
    case L::rust: return rustKeywords;
    case L::c:
    case L::cpp: return cKeywords;
    case L::java:
    case L::kotlin: return jvmKeywords;
    case L::ruby: return rubyKeywords;
    case L::shell: return shellKeywords;
    case L::sql: return sqlKeywords;
    default: return {};
    }
}

QString lineCommentOf(SourceLanguage language) {
    using L = SourceLanguage;
    switch (language) {
    case L::python:
    case L::ruby:
    case L::shell:
    case L::yaml:
    case L::toml:
    case L::dockerfile: return QStringLiteral("#");
    case L::sql: return QStringLiteral("--");
    case L::html:
    case L::css:
    case L::json:
    case L::markdown: return {};
    default: return QStringLiteral("//");
    }
}

std::pair<QString, QString> blockCommentOf(SourceLanguage language) {
    using L = SourceLanguage;
    switch (language) {
    case L::html: return {QStringLiteral("<!--"), QStringLiteral("-->")};
    case L::ruby: return {QStringLiteral("=begin"), QStringLiteral("=end")};
    case L::python:
    case L::shell:
    case L::yaml:
    case L::json:
    case L::toml:
    case L::dockerfile: return {};
    default: return {QStringLiteral("/*"), QStringLiteral("*/")};
    }
}

bool hasSingleQuotes(SourceLanguage language) {
    using L = SourceLanguage;
    switch (language) {
    case L::python:
    case L::javascript:
    case L::typescript:
    case L::go:
    case L::rust:
    case L::ruby:
    case L::dart:
    case L::php:
    case L::shell: return true;
    default: return false;
    }
}

QStringList directivesOf(SourceLanguage language) {
    using L = SourceLanguage;
    switch (language) {
    case L::swift: return {QStringLiteral("#\\w+"), QStringLiteral("@\\w+")};
    case L::python:
    case L::typescript:
    case L::java:
    case L::kotlin: return {QStringLiteral("@\\w+")};
    case L::rust: return {QStringLiteral("#\\[.*?\\]"), QStringLiteral("#!\\[.*?\\]")};
    case L::c:
    case L::cpp: return {QStringLiteral("#\\w+")};
    default: return {};
    }
}

QString quoted(QChar quote) {
    const QString q = QRegularExpression::escape(QString(quote));
    return q + QStringLiteral("(?:[^") + q + QStringLiteral("\\\\]|\\\\.)*") + q;
}

// The rules of a language in their order of priority.
std::vector<Rule> rulesOf(SourceLanguage language) {
    using T = SyntaxTokenType;
    std::vector<Rule> rules;
    if (const QString prefix = lineCommentOf(language); !prefix.isEmpty())
        rules.push_back({QRegularExpression::escape(prefix) + QStringLiteral(".*"), T::comment});
    if (const auto [open, close] = blockCommentOf(language); !open.isEmpty())
        rules.push_back({QRegularExpression::escape(open) + QStringLiteral("[\\s\\S]*?") +
                             QRegularExpression::escape(close),
                         T::comment});
    rules.push_back({quoted(u'"'), T::string});
    if (hasSingleQuotes(language))
        rules.push_back({quoted(u'\''), T::string});
    if (language == SourceLanguage::javascript || language == SourceLanguage::typescript)
        rules.push_back({quoted(u'`'), T::string});
    rules.push_back({QStringLiteral("\\b(?:0[xX][0-9a-fA-F_]+|0[bB][01_]+|[0-9][0-9_]*\\.?[0-9_]*(?:[eE][+-]?[0-9_]+)?)\\b"),
                     T::number});
    for (const QString& directive : directivesOf(language))
        rules.push_back({directive, T::directive});
    if (const QString words = keywordsOf(language); !words.isEmpty())
        rules.push_back({QStringLiteral("\\b(?:") + QString(words).replace(u' ', u'|') + QStringLiteral(")\\b"),
                         T::keyword,
                         language == SourceLanguage::sql ? QRegularExpression::CaseInsensitiveOption
                                                         : QRegularExpression::NoPatternOption});
    rules.push_back({QStringLiteral("\\b[A-Z][a-zA-Z0-9_]*\\b"), T::type});
    return rules;
}

// Every pattern is compiled once for the life of the program; a pattern that fails to compile is
// not kept and adds no token.
class PatternCache {
  public:
    std::optional<QRegularExpression> find(const Rule& rule) {
        const QString key = rule.pattern + u'|' + QString::number(int(rule.options));
        std::lock_guard lock(mutex_);
        if (auto found = compiled_.find(key); found != compiled_.end())
            return found->second;
        QRegularExpression expression(rule.pattern, rule.options);
        if (!expression.isValid())
            return std::nullopt;
        expression.optimize();
        compiled_.emplace(key, expression);
        return expression;
    }

  private:
    std::mutex mutex_;
    std::map<QString, QRegularExpression> compiled_;
};

PatternCache& patternCache() {
    static PatternCache cache;
    return cache;
}

// A language's compiled rules, looked up once per language.
struct CompiledRule {
    QRegularExpression expression;
    SyntaxTokenType type;
};

const std::vector<CompiledRule>& compiledRules(SourceLanguage language) {
    static std::array<std::vector<CompiledRule>, std::size_t(SourceLanguage::unknown) + 1> rules;
    static std::array<std::once_flag, std::size_t(SourceLanguage::unknown) + 1> once;
    const auto index = std::size_t(language);
    std::call_once(once[index], [&] {
        for (const Rule& rule : rulesOf(language))
            if (auto expression = patternCache().find(rule))
                rules[index].push_back({std::move(*expression), rule.type});
    });
    return rules[index];
}

} // namespace

std::vector<SyntaxToken> highlightTokens(const QString& text, SourceLanguage language) {
    std::vector<SyntaxToken> tokens;
    if (language == SourceLanguage::unknown || text.isEmpty())
        return tokens;
    // One flag a UTF-16 unit: a match that touches a claimed unit overlaps an earlier token.
    std::vector<bool> claimed(std::size_t(text.size()), false);
    for (const CompiledRule& rule : compiledRules(language)) {
        auto matches = rule.expression.globalMatch(text);
        while (matches.hasNext()) {
            const auto match = matches.next();
            const auto start = match.capturedStart();
            const auto end = match.capturedEnd();
            if (end <= start)
                continue;
            bool overlaps = false;
            for (auto at = start; at < end && !overlaps; ++at)
                overlaps = claimed[std::size_t(at)];
            if (overlaps)
                continue;
            std::fill(claimed.begin() + start, claimed.begin() + end, true);
            tokens.push_back({int(start), int(end - start), rule.type});
        }
    }
    std::sort(tokens.begin(), tokens.end(),
              [](const SyntaxToken& left, const SyntaxToken& right) { return left.start < right.start; });
    return tokens;
}

QColor syntaxColor(const SyntaxColors& colors, SyntaxTokenType type) {
    using T = SyntaxTokenType;
    switch (type) {
    case T::keyword: return colors.keyword.color();
    case T::type: return colors.type.color();
    case T::string: return colors.string.color();
    case T::comment: return colors.comment.color();
    case T::number: return colors.number.color();
    case T::property: return colors.property.color();
    case T::function: return colors.function.color();
    case T::directive: return colors.directive.color();
    case T::plain: break;
    }
    return colors.plain.color();
}

} // namespace orvel
