#pragma once

// Seeded random regular expressions and texts over a few characters, so that many of them match.
// Small enough for the standard library's default matching, which recurses and backtracks.

#include <random>
#include <regex>
#include <string>
#include <string_view>

namespace partwright::test {

class RandomExpressions {
public:
    explicit RandomExpressions(unsigned seed) : random_(seed) {}

    std::wstring expression() {
        groups_ = 0;
        repeats_ = 0;
        return alternatives(0);
    }

    std::wstring text() {
        static constexpr std::wstring_view characters =
            L"aaaaaaaabbbbbbbbABAB11__,,  --]\\\n\r\u2028\u00B5\u03A9\U0001F600";
        std::wstring result;
        for (int n = below(7); n > 0; --n)
            result += pick(characters);
        return result;
    }

    /// Anything over the characters with a meaning: mostly invalid.
    std::wstring noise() {
        static constexpr std::wstring_view characters =
            L"aabb\\\\((())[[]]{{}}..**++??||^$-,:=!1203xuwWdDsSbBc";
        std::wstring result;
        for (int n = 1 + below(7); n > 0; --n)
            result += pick(characters);
        return result;
    }

private:
    int below(int limit) { return static_cast<int>(random_() % static_cast<unsigned>(limit)); }
    wchar_t pick(std::wstring_view from) {
        return from[static_cast<std::size_t>(below(static_cast<int>(from.size())))];
    }

    std::wstring alternatives(int depth) {
        std::wstring result = sequence(depth);
        while (below(4) == 0)
            result += L'|' + sequence(depth);
        return result;
    }

    std::wstring sequence(int depth) {
        std::wstring result;
        for (int n = below(depth == 0 ? 5 : 4); n > 0; --n)
            result += term(depth);
        return result;
    }

    std::wstring term(int depth) {
        switch (below(24)) {
        case 0:
            return std::wstring(1, pick(L"^$"));
        case 1:
            return below(2) == 0 ? L"\\b" : L"\\B";
        case 2:
            if (depth < 2)
                return (below(2) == 0 ? L"(?=" : L"(?!") + alternatives(depth + 1) + L')';
            break;
        case 3:
            if (groups_ > 0)
                return L'\\' + std::to_wstring(1 + below(groups_)) + quantifier();
            break;
        default:
            break;
        }
        std::wstring atom = this->atom(depth);
        return atom + quantifier();
    }

    std::wstring atom(int depth) {
        const int kind = below(14);
        if (kind < 3 && depth < 2) {
            const bool captures = kind < 2;
            std::wstring inside = alternatives(depth + 1);
            groups_ += captures ? 1 : 0; // referred to only when it is closed
            return (captures ? L"(" : L"(?:") + inside + L')';
        }
        if (kind < 5)
            return L".";
        if (kind == 5)
            return L'\\' + std::wstring(1, pick(L"dDwWsSntr0\\.-]cc"));
        if (kind == 6)
            return below(2) == 0 ? L"\\x61" : L"\\u0042";
        if (kind < 9)
            return bracket();
        return std::wstring(1, pick(L"aaaabbbbAB1_, -]}:\u00B5\u2028"));
    }

    std::wstring bracket() {
        std::wstring result = below(4) == 0 ? L"[^" : L"[";
        for (int n = below(4); n > 0; --n) {
            static const std::wstring items[] = {
                L"a",         L"b",          L"a-b",       L"A-Z",
                L"\\d",       L"\\W",        L"[:alpha:]", L"[:Upper]",
                L"[:space:]", L"-",          L"1-_",       L"[=a=]",
                L",",         L"[.hyphen.]", L"\\n",       L"\\x20-\\x2D",
                L"\u00B5",    L"[.a.]",      L"^",         L"\\b",
                L"[",         L"\\S",        L"\\D",       L"\u0080-\U0010FFFF"};
            result += items[below(static_cast<int>(std::size(items)))];
        }
        return result + L']';
    }

    std::wstring quantifier() {
        if (repeats_ >= 3 || below(3) != 0)
            return {};
        ++repeats_;
        static const std::wstring kinds[] = {
            L"*",   L"+",   L"?",     L"*?",     L"+?",    L"??",           L"*",
            L"{2}", L"{0}", L"{1,2}", L"{0,2}?", L"{0,}?", L"{4294967297}", L"{1}{2}"};
        return kinds[below(static_cast<int>(std::size(kinds)))];
    }

    std::mt19937 random_;
    int groups_ = 0;
    int repeats_ = 0;
};

/// The meaning to compare with. False for an expression that does not compile.
class StandardExpression {
public:
    explicit StandardExpression(const std::wstring& text) {
        try {
            expression_.assign(text);
            valid_ = true;
        } catch (const std::regex_error&) {
            valid_ = false;
        }
    }
    [[nodiscard]] bool valid() const { return valid_; }
    [[nodiscard]] bool fullMatch(const std::wstring& text) const {
        return valid_ && std::regex_match(text, expression_);
    }

private:
    std::wregex expression_;
    bool valid_ = false;
};

} // namespace partwright::test
