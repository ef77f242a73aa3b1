// The checker of branch and tag names, and the cleaning the branch sheet applies while the user
// types. Pure: validate() reports every rule a name breaks, in a fixed order, and never fails.
#pragma once

#include <QString>

#include <optional>
#include <vector>

namespace orvel {

class UserDefaults;

namespace BranchNameValidator {

enum class ErrorCase {
    containsInvalidCharacter,
    empty,
    tooLong,
    startsWithDash,
    startsWithDot,
    endsWithDot,
    endsWithSlash,
    endsWithLockExtension,
    containsConsecutiveDots,
    containsConsecutiveSlashes,
    containsSpace,
    containsAtBrace,
    isSingleAt,
    componentStartsWithDot,
};

struct ValidationError {
    ErrorCase kind;
    QString character; // the offending character, for containsInvalidCharacter only

    bool operator==(const ValidationError&) const = default;
};

// Every rule `name` breaks, in the order of the checks; empty when the name is valid.
std::vector<ValidationError> validate(const QString& name);

// The message the branch sheet shows for an error. The faults that the cleaning removes while the
// user types have none: nobody sees them reported.
std::optional<QString> message(const ValidationError& error);
// A reason for every error, for a field that is not cleaned as it is typed (the tag sheet).
QString reason(const ValidationError& error);

// What a typed space becomes: "branchSpaceReplacement", "-" when absent or empty.
QString spaceReplacement(const UserDefaults& defaults);

} // namespace BranchNameValidator

// The cleaning of the branch sheet's name field: spaces become `replacement`, characters git
// refuses are removed, and leading "." and "-" are dropped.
QString sanitize(const QString& text, const QString& replacement);

// The name the Create action hands over: the field cleaned, "." "-" "/" trimmed from both ends,
// runs of ".." and "//" collapsed, and one trailing ".lock" dropped.
QString normalizedBranchName(const QString& text, const QString& replacement);

} // namespace orvel
