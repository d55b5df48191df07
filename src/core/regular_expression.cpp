#include "core/regular_expression.h"

#include "core/regular_expression_matcher.h"
#include "core/regular_expression_re2.h"

#include <algorithm>
#include <locale>
#include <optional>
#include <regex>
#include <string>

namespace partwright {

namespace {

constexpr std::size_t maximumLength = 4096;
constexpr int maximumNesting = 200;
constexpr std::size_t maximumDigits = 18;

/// Far more than any text needs that is not made to need many.
constexpr std::int64_t stepsOfText = 20'000;
constexpr std::int64_t stepsOfCharacter = 100;

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

/// Served by one of the two.
struct RegularExpression::Prepared {
    std::unique_ptr<const re2::RE2> re2;
    std::optional<const regex::Program> program;
    /// Steps that texts may take beyond their own.
    mutable std::int64_t reserve = 20'000'000;
};

RegularExpression::RegularExpression(std::wstring_view text) {
    if (!ValidateRegularExpression(text))
        return;
    const regex::Tree tree = regex::readTree(std::wstring(text));
    auto made = std::make_shared<Prepared>();
    if (const auto pattern = regex::re2Pattern(tree))
        made->re2 = std::make_unique<const re2::RE2>(*pattern, regex::re2Options());
    if (made->re2 == nullptr || !made->re2->ok()) {
        made->re2 = nullptr;
        made->program.emplace(regex::compile(tree));
    }
    prepared_ = std::move(made);
}

bool RegularExpression::fullMatch(std::wstring_view text) const {
    if (prepared_ == nullptr)
        return false;
    const auto length = static_cast<std::int64_t>(text.size());
    std::int64_t budget = stepsOfText + stepsOfCharacter * length + prepared_->reserve;
    bool matched = false;
    if (prepared_->re2 != nullptr) {
        std::string buffer;
        matched = re2::RE2::FullMatch(regex::narrow(text, regex::Letters::AsTheyStand, buffer),
                                      *prepared_->re2);
    } else {
        matched = regex::fullMatch(*prepared_->program, text, budget);
    }
    prepared_->reserve = std::clamp<std::int64_t>(budget, 0, prepared_->reserve);
    return matched;
}

} // namespace partwright
