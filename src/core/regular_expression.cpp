#include "core/regular_expression.h"

#include <algorithm>
#include <regex>

namespace partwright {

namespace {

constexpr std::size_t maximumLength = 4096;
constexpr int maximumNesting = 200;

bool nestsTooDeep(std::wstring_view text) {
    int depth = 0;
    int deepest = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == L'\\')
            ++i;
        else if (text[i] == L'(')
            deepest = std::max(deepest, ++depth);
        else if (text[i] == L')')
            --depth;
    }
    return deepest > maximumNesting;
}

} // namespace

bool ValidateRegularExpression(std::wstring_view text) {
    if (text.size() > maximumLength || nestsTooDeep(text))
        return false;
    try {
        const std::wregex compiled(text.begin(), text.end());
        return true;
    } catch (const std::regex_error&) {
        return false;
    }
}

} // namespace partwright
