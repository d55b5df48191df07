#include "core/regular_expression.h"

#include "core/regular_expression_program.h"

#include <algorithm>
#include <locale>
#include <regex>
#include <string>

namespace partwright {

namespace {

constexpr std::size_t maximumLength = 4096;
constexpr int maximumNesting = 200;
constexpr std::size_t maximumDigits = 18;

bool isDigitAt(std::wstring_view text, std::size_t at) {
    return at < text.size() && text[at] >= L'0' && text[at] <= L'9';
}

/// True for what the standard library must not be given: it would recurse too deep, or overflow a
/// number.
bool isOutOfBounds(std::wstring_view text) {
    int depth = 0;
    int deepest = 0;
    bool inBracket = false;
    bool inBrace = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const wchar_t c = text[i];
        inBrace = !inBracket && (c == L'{' || (inBrace && c != L'}'));
        std::size_t digits = 0;
        if (inBrace || c == L'\\')
            while (isDigitAt(text, i + 1 + digits))
                ++digits;
        if (digits > maximumDigits)
            return true;
        if (c == L'\\')
            ++i;
        else if (c == L'[')
            inBracket = true;
        else if (c == L']')
            inBracket = false;
        else if (!inBracket && c == L'(')
            deepest = std::max(deepest, ++depth);
        else if (!inBracket && c == L')')
            --depth;
    }
    return deepest > maximumNesting;
}

} // namespace

bool ValidateRegularExpression(std::wstring_view text) {
    if (text.size() > maximumLength || isOutOfBounds(text))
        return false;
    // The library looks one character behind an opening bracket, so the text must be terminated.
    const std::wstring terminated(text);
    try {
        std::wregex compiled;
        compiled.imbue(std::locale::classic());
        compiled.assign(terminated);
        return true;
    } catch (const std::regex_error&) {
        return false;
    }
}

RegularExpression::RegularExpression(std::wstring_view text) {
    if (!ValidateRegularExpression(text))
        return;
    const regex::Tree tree = regex::readTree(std::wstring(text));
    program_ = std::make_shared<const regex::Program>(regex::compile(tree));
}

bool RegularExpression::fullMatch(std::wstring_view text) const {
    return program_ != nullptr && regex::fullMatch(*program_, text);
}

} // namespace partwright
