#include "core/text.h"

#include <algorithm>
#include <limits>

namespace partwright {

namespace {

constexpr bool isBlank(wchar_t c) {
    return c == L' ' || (c >= L'\t' && c <= L'\r');
}

} // namespace

std::wstring_view trimOf(std::wstring_view text, std::wstring_view set) {
    const auto first = text.find_first_not_of(set);
    if (first == std::wstring_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(set) - first + 1);
}

std::wstring_view trim(std::wstring_view text) {
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

std::wstring_view trimOnce(std::wstring_view text, wchar_t mark) {
    if (!text.empty() && text.front() == mark)
        text.remove_prefix(1);
    if (!text.empty() && text.back() == mark)
        text.remove_suffix(1);
    return text;
}

wchar_t upperCase(wchar_t c) {
    if (static_cast<char32_t>(c) < 0x80)
        return c >= L'a' && c <= L'z' ? static_cast<wchar_t>(c - 32) : c;
    if (c >= 0xE0 && c <= 0xFE && c != 0xF7) // Latin-1 letters; the division sign is none
        return static_cast<wchar_t>(c - 32);
    if (c == 0xFF)
        return 0x178;
    // Latin Extended-A: pairs of capital and small letter, with two places where the pairs shift.
    if ((c >= 0x100 && c <= 0x137 && c != 0x131) || (c >= 0x14A && c <= 0x177))
        return static_cast<wchar_t>(c & ~1);
    if ((c >= 0x139 && c <= 0x148) || (c >= 0x179 && c <= 0x17E))
        return static_cast<wchar_t>(c % 2 == 0 ? c - 1 : c);
    if (c == 0x3BC) // Greek mu written for the micro sign
        return c;
    if ((c >= 0x3B1 && c <= 0x3C9 && c != 0x3C2) || (c >= 0x430 && c <= 0x44F))
        return static_cast<wchar_t>(c - 32);
    if (c >= 0x450 && c <= 0x45F)
        return static_cast<wchar_t>(c - 80);
    return c;
}

std::wstring onOneLine(std::wstring_view text) {
    std::wstring result(text);
    for (wchar_t& c : result)
        if (c < L' ')
            c = L' ';
    return result;
}

std::wstring upperCase(std::wstring_view text) {
    std::wstring result(text);
    // Nearly all texts are ASCII, for which this loop is all.
    char32_t bits = 0;
    for (wchar_t& c : result) {
        const auto code = static_cast<char32_t>(c);
        bits |= code;
        c = static_cast<wchar_t>(code - (code - U'a' < 26 ? 32 : 0));
    }
    if (bits >= 0x80)
        for (wchar_t& c : result)
            c = upperCase(c);
    return result;
}

bool equalsNoCase(std::wstring_view a, std::wstring_view b) {
    return a.size() == b.size() &&
           std::equal(a.begin(), a.end(), b.begin(),
                      [](wchar_t x, wchar_t y) { return upperCase(x) == upperCase(y); });
}

std::vector<std::wstring_view> split(std::wstring_view text, wchar_t separator) {
    std::vector<std::wstring_view> pieces;
    for (;;) {
        const auto end = text.find(separator);
        pieces.push_back(text.substr(0, end));
        if (end == std::wstring_view::npos)
            return pieces;
        text.remove_prefix(end + 1);
    }
}

std::wstring replaceAll(std::wstring_view text, std::wstring_view from, std::wstring_view to) {
    std::wstring result;
    for (;;) {
        const auto hit = text.find(from);
        result.append(text.substr(0, hit));
        if (hit == std::wstring_view::npos)
            return result;
        result.append(to);
        text.remove_prefix(hit + from.size());
    }
}

std::wstring removeAll(std::wstring_view text, std::wstring_view set) {
    std::wstring result;
    result.reserve(text.size());
    for (const wchar_t c : text)
        if (set.find(c) == std::wstring_view::npos)
            result.push_back(c);
    return result;
}

bool holdsDigit(std::wstring_view text) {
    return std::any_of(text.begin(), text.end(), isDigit);
}

IntegerPrefix readInteger(std::wstring_view text) {
    std::size_t at = 0;
    while (at < text.size() && isBlank(text[at]))
        ++at;
    const bool negative = at < text.size() && text[at] == L'-';
    if (at < text.size() && (text[at] == L'-' || text[at] == L'+'))
        ++at;
    const std::size_t digits = at;
    constexpr std::int64_t limit = std::int64_t{1} << 40;
    std::int64_t value = 0;
    for (; at < text.size() && isDigit(text[at]); ++at)
        value = std::min(value * 10 + (text[at] - L'0'), limit);
    if (at == digits)
        return {};
    if (negative)
        value = -value;
    IntegerPrefix result;
    const auto clamped = std::clamp<std::int64_t>(value, std::numeric_limits<std::int32_t>::min(),
                                                  std::numeric_limits<std::int32_t>::max());
    result.value = static_cast<std::int32_t>(clamped);
    result.clamped = clamped != value;
    result.consumed = at;
    return result;
}

std::int32_t toInteger(std::wstring_view text) {
    return readInteger(text).value;
}

} // namespace partwright
