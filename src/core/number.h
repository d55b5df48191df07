#pragma once

// Numbers in texts. The decimal mark is always an argument: the process locale has no say, so that
// the same file means the same on every machine.
//
// Accepted form: blanks, one sign, digits with at most one mark among them, an exponent. No
// hexadecimal, no "inf", no "nan". A number too large for a double reads as the largest one, a
// number too small as zero.

#include <optional>
#include <string>
#include <string_view>

namespace partwright {

struct NumberPrefix {
    double value = 0;
    /// Characters used, leading blanks included; 0 when the text starts with no number.
    std::size_t consumed = 0;
};

/// The longest number at the start of the text.
[[nodiscard]] NumberPrefix readNumber(std::wstring_view text, wchar_t mark);

/// The number, if it is the whole text. The empty text is none.
[[nodiscard]] std::optional<double> wholeNumber(std::wstring_view text, wchar_t mark);

/// Like "%.<digits>g" of C, with `mark`.
[[nodiscard]] std::wstring formatGeneral(double value, wchar_t mark, int digits = 6);

/// Like "%.<decimals>f" of C, with `mark`.
[[nodiscard]] std::wstring formatFixed(double value, wchar_t mark, int decimals);

} // namespace partwright
