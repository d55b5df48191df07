#pragma once

// The field scanner of library and project files. It works on the bytes of a file or on wide text
// alike, and copies nothing unless a field holds doubled quotes.
//
//   >,SDTA-M, IC,"""A ""B""",
//      fields: [>] [SDTA-M] [IC] ["A "B"]     then no field
//
// Blanks (every character up to code 32) around a field are dropped, within quotes too. A quote
// inside of a field that does not begin with one makes the field malformed. What the quoted form
// means, an inner quote a side among it, is the caller's matter.

#include <optional>
#include <string>
#include <string_view>
#include <type_traits>

namespace partwright {

template <class Char>
[[nodiscard]] constexpr bool isFieldBlank(Char c) {
    return static_cast<std::make_unsigned_t<Char>>(c) <= 32;
}

template <class Char>
[[nodiscard]] std::basic_string_view<Char> dropTrailingBlanks(std::basic_string_view<Char> text) {
    while (!text.empty() && isFieldBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

template <class Char>
[[nodiscard]] std::basic_string_view<Char> dropLeadingBlanks(std::basic_string_view<Char> text) {
    while (!text.empty() && isFieldBlank(text.front()))
        text.remove_prefix(1);
    return text;
}

/// Without one quote a side.
template <class Char>
[[nodiscard]] std::basic_string_view<Char> trimQuotes(std::basic_string_view<Char> text) {
    constexpr auto quote = static_cast<Char>('"');
    if (!text.empty() && text.front() == quote)
        text.remove_prefix(1);
    if (!text.empty() && text.back() == quote)
        text.remove_suffix(1);
    return text;
}

namespace scanner {

/// A field that begins with a quote, copied into `buffer` where its quotes need it. `cursor`
/// stands on the opening quote.
template <class Char>
[[nodiscard]] std::optional<std::basic_string_view<Char>>
quotedField(std::basic_string_view<Char>& cursor, Char separator, std::basic_string<Char>& buffer) {
    constexpr Char quote = '"';
    // By far the most cells are a text in three quotes without a quote in it: the field is then
    // the text in one quote, and can be seen in place.
    if (cursor.size() > 3 && cursor[1] == quote && cursor[2] == quote && cursor[3] != quote) {
        const auto end = cursor.find(quote, 3);
        if (end != std::basic_string_view<Char>::npos && cursor.substr(end, 3).size() == 3 &&
            cursor[end + 1] == quote && cursor[end + 2] == quote &&
            (end + 3 == cursor.size() || (cursor[end + 3] == separator && separator != quote))) {
            const auto field = cursor.substr(2, end - 1);
            cursor.remove_prefix(end + 3 == cursor.size() ? end + 3 : end + 4);
            return field;
        }
    }
    buffer.clear();
    auto rest = dropLeadingBlanks(cursor.substr(1));
    bool quoted = true;
    bool malformed = false;
    std::size_t at = 0;
    for (; at < rest.size(); ++at) {
        const Char c = rest[at];
        if (c == quote && !quoted) {
            malformed = true;
            break;
        }
        if (c == quote) {
            if (at + 1 < rest.size() && rest[at + 1] == quote)
                buffer.push_back(rest[++at]);
            else
                quoted = false;
        } else if (c == separator && !quoted) {
            break;
        } else {
            buffer.push_back(c);
        }
    }
    if (malformed)
        at = rest.find(separator, at);
    cursor = at < rest.size() ? rest.substr(at + 1) : rest.substr(rest.size());
    if (malformed || (quoted && buffer.empty()))
        return std::nullopt;
    return dropTrailingBlanks(std::basic_string_view<Char>(buffer));
}

} // namespace scanner

/// The field at the cursor, and the cursor moved behind its separator; nothing at the end of the
/// text and for a malformed field, which is passed over. The answer lives as long as the text and
/// `buffer` do; it begins at `buffer` when it had to be copied.
template <class Char>
[[nodiscard]] std::optional<std::basic_string_view<Char>>
NextField(std::basic_string_view<Char>& cursor, std::type_identity_t<Char> separator,
          std::basic_string<Char>& buffer) {
    constexpr Char quote = '"';
    cursor = dropLeadingBlanks(cursor);
    if (cursor.empty())
        return std::nullopt;
    if (cursor.front() == quote)
        return scanner::quotedField<Char>(cursor, separator, buffer);
    std::size_t at = 0;
    while (at < cursor.size() && cursor[at] != separator && cursor[at] != quote)
        ++at;
    const bool malformed = at < cursor.size() && cursor[at] == quote;
    const auto field = cursor.substr(0, at);
    if (malformed)
        at = cursor.find(separator, at);
    cursor = at < cursor.size() ? cursor.substr(at + 1) : cursor.substr(cursor.size());
    if (malformed)
        return std::nullopt;
    return dropTrailingBlanks(field);
}

} // namespace partwright
