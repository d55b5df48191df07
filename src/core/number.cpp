#include "core/number.h"

#include "core/text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>

namespace partwright {

namespace {

/// A decimal number split by character class, its digits copied into narrow text.
struct Scanned {
    std::string text;
    std::size_t consumed = 0;
    bool negative = false;
};

Scanned scan(std::wstring_view text, wchar_t mark) {
    Scanned result;
    std::size_t at = 0;
    while (at < text.size() && (text[at] == L' ' || (text[at] >= L'\t' && text[at] <= L'\r')))
        ++at;
    if (at < text.size() && (text[at] == L'-' || text[at] == L'+'))
        result.negative = text[at++] == L'-';
    bool seenDigit = false;
    bool seenMark = false;
    for (; at < text.size(); ++at) {
        if (isDigit(text[at])) {
            seenDigit = true;
            result.text.push_back(static_cast<char>(text[at]));
        } else if (text[at] == mark && !seenMark) {
            seenMark = true;
            result.text.push_back('.');
        } else {
            break;
        }
    }
    if (!seenDigit)
        return {};
    result.consumed = at;
    if (at < text.size() && (text[at] == L'e' || text[at] == L'E')) {
        std::string exponent = "e";
        std::size_t ahead = at + 1;
        if (ahead < text.size() && (text[ahead] == L'-' || text[ahead] == L'+'))
            exponent.push_back(text[ahead++] == L'-' ? '-' : '+');
        const std::size_t digits = ahead;
        for (; ahead < text.size() && isDigit(text[ahead]); ++ahead)
            exponent.push_back(static_cast<char>(text[ahead]));
        if (ahead > digits) {
            result.text += exponent;
            result.consumed = ahead;
        }
    }
    return result;
}

/// What std::from_chars could not hold: the largest double or zero, by the power of ten of the
/// first digit that is not zero.
double saturated(const std::string& text) {
    const auto exponentAt = text.find('e');
    const std::string mantissa = text.substr(0, exponentAt);
    const auto point = std::min(mantissa.find('.'), mantissa.size());
    const auto digit = mantissa.find_first_of("123456789");
    if (digit == std::string::npos)
        return 0;
    const double lead =
        digit < point ? static_cast<double>(point - digit) : -static_cast<double>(digit - point);
    double exponent = 0;
    if (exponentAt != std::string::npos) {
        const IntegerPrefix power = readInteger(
            std::wstring(text.begin() + static_cast<std::ptrdiff_t>(exponentAt) + 1, text.end()));
        exponent = power.value;
    }
    return lead + exponent > 0 ? std::numeric_limits<double>::max() : 0;
}

std::wstring widen(const char* first, const char* last, wchar_t mark) {
    std::wstring result(first, last);
    std::replace(result.begin(), result.end(), L'.', mark);
    return result;
}

} // namespace

NumberPrefix readNumber(std::wstring_view text, wchar_t mark) {
    const Scanned scanned = scan(text, mark);
    if (scanned.consumed == 0)
        return {};
    double value = 0;
    const auto [end, error] =
        std::from_chars(scanned.text.data(), scanned.text.data() + scanned.text.size(), value);
    if (error == std::errc::result_out_of_range)
        value = saturated(scanned.text);
    return {scanned.negative ? -value : value, scanned.consumed};
}

std::optional<double> wholeNumber(std::wstring_view text, wchar_t mark) {
    const NumberPrefix prefix = readNumber(text, mark);
    if (prefix.consumed == 0 || prefix.consumed != text.size())
        return std::nullopt;
    return prefix.value;
}

std::wstring formatGeneral(double value, wchar_t mark, int digits) {
    std::array<char, 64> buffer;
    const auto [end, error] = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                            std::chars_format::general, std::clamp(digits, 1, 40));
    return error == std::errc{} ? widen(buffer.data(), end, mark) : std::wstring();
}

std::wstring formatFixed(double value, wchar_t mark, int decimals) {
    std::array<char, 512> buffer; // 309 digits of the largest double, mark, decimals
    const auto [end, error] = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                            std::chars_format::fixed, std::clamp(decimals, 0, 100));
    return error == std::errc{} ? widen(buffer.data(), end, mark) : std::wstring();
}

} // namespace partwright
