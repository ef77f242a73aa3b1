#include "sidebar/FilterMatcher.h"

#define PCRE2_CODE_UNIT_WIDTH 8
#include <pcre2.h>

#include <QList>
#include <QStringView>

namespace orvel {

namespace {

// The deadline is read every this many steps of the engine: often enough to stop within a fraction
// of a millisecond, seldom enough to cost nothing on an ordinary name.
constexpr unsigned clockInterval = 256;

struct CalloutState {
    FilterMatcher::Clock::time_point deadline;
    unsigned steps = 0;
};

int checkDeadline(pcre2_callout_block*, void* data) {
    auto* state = static_cast<CalloutState*>(data);
    if (++state->steps % clockInterval != 0)
        return 0;
    return FilterMatcher::Clock::now() >= state->deadline ? PCRE2_ERROR_CALLOUT : 0;
}

// The first `limit` bytes, not cutting a UTF-8 sequence in two.
std::string_view cut(std::string_view text, std::size_t limit) {
    if (text.size() <= limit)
        return text;
    std::size_t end = limit;
    while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80)
        --end;
    return text.substr(0, end);
}

QString decoded(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

} // namespace

// The compiled pattern with its scratch space. Every item of the pattern calls back into
// checkDeadline (automatic callouts), which is how a runaway match is stopped from outside.
struct FilterMatcher::Regex {
    pcre2_code* code = nullptr;
    pcre2_match_data* matchData = nullptr;
    pcre2_match_context* context = nullptr;
    CalloutState state;

    ~Regex() {
        pcre2_match_context_free(context);
        pcre2_match_data_free(matchData);
        pcre2_code_free(code);
    }
};

FilterMatcher::FilterMatcher(const FilterQuery& query)
    : query_(query), lowerQuery_(query.text.toLower()), refused_(query.text.size() >= refusedQueryLength) {
    if (!query_.useRegex || refused_)
        return;
    const QByteArray pattern = query_.text.toUtf8();
    int error = 0;
    PCRE2_SIZE offset = 0;
    pcre2_code* code = pcre2_compile(
        reinterpret_cast<PCRE2_SPTR>(pattern.constData()), static_cast<PCRE2_SIZE>(pattern.size()),
        PCRE2_CASELESS | PCRE2_UTF | PCRE2_MATCH_INVALID_UTF | PCRE2_AUTO_CALLOUT, &error, &offset, nullptr);
    if (!code)
        return;
    regex_ = std::make_unique<Regex>();
    regex_->code = code;
    pcre2_jit_compile(code, PCRE2_JIT_COMPLETE); // the interpreter runs when JIT is unavailable
    regex_->matchData = pcre2_match_data_create_from_pattern(code, nullptr);
    regex_->context = pcre2_match_context_create(nullptr);
    pcre2_set_callout(regex_->context, checkDeadline, &regex_->state);
}

FilterMatcher::~FilterMatcher() = default;

MatchResult FilterMatcher::match(std::string_view text, Clock::time_point deadline) {
    if (refused_)
        return MatchResult::noMatch;
    text = cut(text, maxTextBytes);
    if (query_.useRegex) {
        if (!regex_)
            return MatchResult::noMatch;
        if (Clock::now() >= deadline)
            return MatchResult::timedOut;
        regex_->state = {deadline, 0};
        const int found = pcre2_match(regex_->code, reinterpret_cast<PCRE2_SPTR>(text.data()), text.size(), 0,
                                      0, regex_->matchData, regex_->context);
        if (found >= 0)
            return MatchResult::matched;
        switch (found) {
        case PCRE2_ERROR_CALLOUT:
        case PCRE2_ERROR_MATCHLIMIT:
        case PCRE2_ERROR_DEPTHLIMIT:
        case PCRE2_ERROR_HEAPLIMIT:
        case PCRE2_ERROR_JIT_STACKLIMIT:
        case PCRE2_ERROR_NOMEMORY:
            return MatchResult::timedOut;
        default:
            return MatchResult::noMatch;
        }
    }
    const QString name = decoded(text);
    if (!query_.wordMatch)
        return name.contains(query_.text, Qt::CaseInsensitive) ? MatchResult::matched : MatchResult::noMatch;
    const QString lowerName = name.toLower();
    for (const QStringView part : QStringView(lowerName).split(u'/', Qt::SkipEmptyParts))
        if (part == lowerQuery_)
            return MatchResult::matched;
    return MatchResult::noMatch;
}

} // namespace orvel
