#include "core/encoding.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

namespace partwright {

namespace {

constexpr wchar_t replacement = 0xFFFD;
/// A byte of 0x80 or above that is no UTF-8 stands at this distance in the text.
constexpr wchar_t foreignBytes = 0xDC00;

/// Windows-1252 from 0x80 to 0x9F; the five unused codes stand for themselves.
constexpr std::array<wchar_t, 32> upperControls = {
    0x20AC, 0x81,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x8D,   0x017D, 0x8F,   0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D,   0x017E, 0x0178};

struct CodePoint {
    char32_t value = 0;
    /// Bytes of the sequence; 0 when the bytes are no UTF-8.
    std::size_t length = 0;
};

bool continues(std::string_view bytes, std::size_t at) {
    return at < bytes.size() && (static_cast<unsigned char>(bytes[at]) & 0xC0U) == 0x80U;
}

CodePoint nextCodePoint(std::string_view bytes, std::size_t at) {
    const auto byte = [&](std::size_t n) -> char32_t {
        return static_cast<unsigned char>(bytes[at + n]);
    };
    const char32_t first = byte(0);
    if (first < 0x80)
        return {first, 1};
    if (first >= 0xC2 && first < 0xE0 && continues(bytes, at + 1))
        return {((first & 0x1F) << 6) | (byte(1) & 0x3F), 2};
    if (first >= 0xE0 && first < 0xF0 && continues(bytes, at + 1) && continues(bytes, at + 2)) {
        const char32_t value = ((first & 0x0F) << 12) | ((byte(1) & 0x3F) << 6) | (byte(2) & 0x3F);
        if (value >= 0x800 && (value < 0xD800 || value > 0xDFFF))
            return {value, 3};
    }
    if (first >= 0xF0 && first < 0xF5 && continues(bytes, at + 1) && continues(bytes, at + 2) &&
        continues(bytes, at + 3)) {
        const char32_t value = ((first & 0x07) << 18) | ((byte(1) & 0x3F) << 12) |
                               ((byte(2) & 0x3F) << 6) | (byte(3) & 0x3F);
        if (value >= 0x10000 && value <= 0x10FFFF)
            return {value, 4};
    }
    return {};
}

/// Length of the run of ASCII bytes at `at`, eight bytes a step.
std::size_t asciiRun(std::string_view bytes, std::size_t at) {
    const std::size_t start = at;
    std::uint64_t word = 0;
    while (at + sizeof word <= bytes.size()) {
        std::memcpy(&word, bytes.data() + at, sizeof word);
        if ((word & 0x8080808080808080ULL) != 0)
            break;
        at += sizeof word;
    }
    while (at < bytes.size() && static_cast<unsigned char>(bytes[at]) < 0x80)
        ++at;
    return at - start;
}

void appendCodePoint(std::wstring& target, char32_t value) {
    if constexpr (sizeof(wchar_t) == 2) {
        if (value > 0xFFFF) {
            value -= 0x10000;
            target.push_back(static_cast<wchar_t>(0xD800 + (value >> 10)));
            target.push_back(static_cast<wchar_t>(0xDC00 + (value & 0x3FF)));
            return;
        }
    }
    target.push_back(static_cast<wchar_t>(value));
}

void appendUtf8(std::string& target, char32_t value) {
    const auto push = [&](char32_t byte) { target.push_back(static_cast<char>(byte)); };
    if (value < 0x80) {
        push(value);
    } else if (value < 0x800) {
        push(0xC0 | (value >> 6));
        push(0x80 | (value & 0x3F));
    } else if (value < 0x10000) {
        push(0xE0 | (value >> 12));
        push(0x80 | ((value >> 6) & 0x3F));
        push(0x80 | (value & 0x3F));
    } else {
        push(0xF0 | (value >> 18));
        push(0x80 | ((value >> 12) & 0x3F));
        push(0x80 | ((value >> 6) & 0x3F));
        push(0x80 | (value & 0x3F));
    }
}

/// One code point of wide text, pairs of a 16-bit platform joined; broken ones become U+FFFD.
char32_t takeCodePoint(std::wstring_view text, std::size_t& at) {
    const auto unit = static_cast<char32_t>(text[at++]);
    if constexpr (sizeof(wchar_t) == 2) {
        if (unit >= 0xD800 && unit < 0xDC00 && at < text.size()) {
            const auto low = static_cast<char32_t>(text[at]);
            if (low >= 0xDC00 && low < 0xE000) {
                ++at;
                return 0x10000 + ((unit - 0xD800) << 10) + (low - 0xDC00);
            }
        }
    }
    return unit > 0x10FFFF || (unit >= 0xD800 && unit < 0xE000) ? replacement : unit;
}

bool appendWindows1252(std::string& target, wchar_t c) {
    const auto code = static_cast<char32_t>(c);
    if (code < 0x80 || (code >= 0xA0 && code < 0x100)) {
        target.push_back(static_cast<char>(c));
        return true;
    }
    for (std::size_t i = 0; i < upperControls.size(); ++i)
        if (upperControls[i] == c) {
            target.push_back(static_cast<char>(0x80 + i));
            return true;
        }
    return false;
}

} // namespace

bool isValidUtf8(std::string_view bytes) {
    for (std::size_t at = asciiRun(bytes, 0); at < bytes.size(); at += asciiRun(bytes, at)) {
        const CodePoint point = nextCodePoint(bytes, at);
        if (point.length == 0)
            return false;
        at += point.length;
    }
    return true;
}

CodePage detectCodePage(std::string_view bytes) {
    if (isValidUtf8(bytes))
        return CodePage::Utf8;
    while (!bytes.empty()) {
        const std::string_view line = bytes.substr(0, bytes.find_first_of("\r\n"));
        if (asciiRun(line, 0) < line.size() && isValidUtf8(line))
            return CodePage::Utf8;
        bytes.remove_prefix(std::min(line.size() + 1, bytes.size()));
    }
    return CodePage::Windows1252;
}

void decodeInto(std::wstring& target, std::string_view bytes, CodePage codePage) {
    target.reserve(target.size() + bytes.size());
    for (std::size_t at = 0; at < bytes.size();) {
        const std::size_t run = asciiRun(bytes, at);
        target.append(bytes.begin() + static_cast<std::ptrdiff_t>(at),
                      bytes.begin() + static_cast<std::ptrdiff_t>(at + run));
        at += run;
        if (at == bytes.size())
            return;
        const auto byte = static_cast<unsigned char>(bytes[at]);
        if (codePage == CodePage::Windows1252) {
            target.push_back(byte < 0xA0 ? upperControls[byte - 0x80U]
                                         : static_cast<wchar_t>(byte));
            ++at;
            continue;
        }
        const CodePoint point = nextCodePoint(bytes, at);
        if (point.length == 0)
            target.push_back(static_cast<wchar_t>(foreignBytes + byte));
        else
            appendCodePoint(target, point.value);
        at += point.length == 0 ? 1 : point.length;
    }
}

std::wstring decode(std::string_view bytes, CodePage codePage) {
    std::wstring result;
    decodeInto(result, bytes, codePage);
    return result;
}

std::wstring decodeLossy(std::string_view bytes) {
    std::wstring text = decode(bytes, CodePage::Utf8);
    if (!isValidUtf8(bytes))
        std::replace_if(text.begin(), text.end(), isForeignByte, replacement);
    return text;
}

bool encodeInto(std::string& target, std::wstring_view text, CodePage codePage) {
    for (std::size_t at = 0; at < text.size();) {
        if (static_cast<char32_t>(text[at]) < 0x80) {
            target.push_back(static_cast<char>(text[at++]));
        } else if (codePage == CodePage::Utf8) {
            if (isForeignByte(text[at])) // no half of a pair: takeCodePoint leaves none behind
                target.push_back(static_cast<char>(text[at++] - foreignBytes));
            else
                appendUtf8(target, takeCodePoint(text, at));
        } else if (!appendWindows1252(target, text[at++])) {
            return false;
        }
    }
    return true;
}

std::string encodeUtf8(std::wstring_view text) {
    std::string result;
    result.reserve(text.size());
    for (std::size_t at = 0; at < text.size();)
        appendUtf8(result, takeCodePoint(text, at));
    return result;
}

} // namespace partwright
