#pragma once

// Small operations on wide text that every layer uses. All are pure and none asks the process
// locale: what counts as a blank, a digit or a capital letter is fixed here.
//
//   upperCase(L"4.7 µF")  ->  L"4.7 µF"     (the micro sign has no capital in a unit)
//   trim(L"  abc ")       ->  L"abc"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace partwright {

/// Without blanks, tabs and line ends on both sides.
[[nodiscard]] std::wstring_view trim(std::wstring_view text);

/// Without the characters of `set` on both sides.
[[nodiscard]] std::wstring_view trimOf(std::wstring_view text, std::wstring_view set);

/// Exactly one character `mark` is removed from each side that has it.
[[nodiscard]] std::wstring_view trimOnce(std::wstring_view text, wchar_t mark);

/// Capital form of one character. Length is kept for every text, so a character whose capital
/// would be two (sharp s) stays; the micro sign in both of its codes stays, because its Greek
/// capital is no unit prefix.
[[nodiscard]] wchar_t upperCase(wchar_t character);
[[nodiscard]] std::wstring upperCase(std::wstring_view text);

/// Line ends, tabs and other control characters become blanks: what a cell of a text file holds.
[[nodiscard]] std::wstring onOneLine(std::wstring_view text);

[[nodiscard]] bool equalsNoCase(std::wstring_view a, std::wstring_view b);

/// All pieces between separators, empty ones included; one piece at least.
[[nodiscard]] std::vector<std::wstring_view> split(std::wstring_view text, wchar_t separator);

/// Every occurrence of `from` (not empty) replaced by `to`.
[[nodiscard]] std::wstring replaceAll(std::wstring_view text, std::wstring_view from,
                                      std::wstring_view to);

/// Text without any of the characters of `set`.
[[nodiscard]] std::wstring removeAll(std::wstring_view text, std::wstring_view set);

[[nodiscard]] constexpr bool isDigit(wchar_t c) {
    return c >= L'0' && c <= L'9';
}
[[nodiscard]] constexpr bool isAsciiAlnum(wchar_t c) {
    return isDigit(c) || (c >= L'A' && c <= L'Z') || (c >= L'a' && c <= L'z');
}
[[nodiscard]] bool holdsDigit(std::wstring_view text);

/// Result of reading a decimal integer from the start of a text.
struct IntegerPrefix {
    /// Clamped to 32 bits; 0 when nothing could be read.
    std::int32_t value = 0;
    /// Characters consumed, leading blanks and sign included; 0 when nothing could be read.
    std::size_t consumed = 0;
    /// The text named a number outside of 32 bits.
    bool clamped = false;
};

/// Leading blanks, one optional sign, decimal digits.
[[nodiscard]] IntegerPrefix readInteger(std::wstring_view text);

/// The number at the start of the text, 0 when there is none: what a table cell means.
[[nodiscard]] std::int32_t toInteger(std::wstring_view text);

} // namespace partwright
