#pragma once

// Regular expressions of the rule tables: meaning and validity are those of std::wregex in its
// default syntax, full match. An expression of more than 4,096 characters or 200 nested groups is
// invalid, since compiling one recurses.

#include <string_view>

namespace partwright {

/// True when the text compiles.
[[nodiscard]] bool ValidateRegularExpression(std::wstring_view text);

} // namespace partwright
