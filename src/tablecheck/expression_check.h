#pragma once

// What an expression of a rule table must keep to.

#include "tablecheck/finding.h"

#include <string_view>

namespace partwright {

/// Longest expression that a table may hold; longer ones cannot be read by a person.
inline constexpr std::size_t maximumExpression = 1000;

/// `inCapitals`: the engine raises the expression to capitals before it uses it.
void checkExpression(std::wstring_view expression, bool inCapitals, std::size_t line,
                     std::wstring_view column, Findings& findings);

} // namespace partwright
