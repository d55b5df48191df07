#pragma once

// Regular expressions of the rule tables: meaning and validity are those of std::wregex in its
// default syntax and the classic locale, full match. The standard library is asked for the validity
// alone: its matching recurses once per character and can take exponential time. RE2 matches; for
// what it has no words for (look-ahead, back-references, large counts) there is a matcher of our
// own.
//
// No text overflows the stack, and none takes for ever. What RE2 does costs time in proportion to
// the text. The other matcher has a number of steps for each text, and each expression has further
// ones for its whole life, which the texts that need more use up; a text that would need still more
// does not match.
//
// An expression of more than 4,096 characters or 200 nested groups is invalid, since compiling one
// recurses; so is one with a count of more than 18 digits.
//
//   RegularExpression(L"RC0[46]02.*").fullMatch(L"RC0402JR-074K7L")  ->  true

#include <memory>
#include <string_view>

namespace partwright {

/// True when the text compiles.
[[nodiscard]] bool ValidateRegularExpression(std::wstring_view text);

/// One prepared expression, cheap to copy; copies share what they used up. For many of them see
/// RegularExpressionSet.
class RegularExpression {
public:
    explicit RegularExpression(std::wstring_view text);

    [[nodiscard]] bool valid() const { return prepared_ != nullptr; }
    /// An invalid expression matches nothing.
    [[nodiscard]] bool fullMatch(std::wstring_view text) const;

private:
    struct Prepared;
    std::shared_ptr<const Prepared> prepared_;
};

} // namespace partwright
