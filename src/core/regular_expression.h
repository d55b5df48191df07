#pragma once

// Regular expressions of the rule tables: meaning and validity are those of std::wregex in its
// default syntax and the classic locale, full match. The matching is our own, since the standard
// library's recurses once per character and can take exponential time: here no text overflows the
// stack, and one that would need too much work does not match.
//
// An expression of more than 4,096 characters or 200 nested groups is invalid, since compiling one
// recurses; so is one with a count of more than 18 digits.
//
//   RegularExpression(L"RC0[46]02.*").fullMatch(L"RC0402JR-074K7L")  ->  true

#include <memory>
#include <string_view>

namespace partwright {

namespace regex {
struct Program;
}

/// True when the text compiles.
[[nodiscard]] bool ValidateRegularExpression(std::wstring_view text);

/// One prepared expression, cheap to copy. For many of them see RegularExpressionSet.
class RegularExpression {
public:
    explicit RegularExpression(std::wstring_view text);

    [[nodiscard]] bool valid() const { return program_ != nullptr; }
    /// An invalid expression matches nothing.
    [[nodiscard]] bool fullMatch(std::wstring_view text) const;

private:
    std::shared_ptr<const regex::Program> program_;
};

} // namespace partwright
