#pragma once

// Our own matching, for what RE2 has no words for: look-ahead, back-references and large counts. It
// backtracks in the order of the standard library, whose treatment of groups is followed closely:
// they keep their text when a loop enters them again, a group without a text fails, and a loop may
// pass twice without moving on. Without back-references a choice that failed at one character is
// not tried there again, so that the time does not grow exponentially. Inside of core/ only.

#include "core/regular_expression_program.h"

#include <cstdint>
#include <string_view>

namespace partwright::regex {

/// Does all of the text match? Steps are taken off the budget; a text that needs more than it holds
/// does not match and leaves it below 0.
[[nodiscard]] bool fullMatch(const Program& program, std::wstring_view text, std::int64_t& budget);

} // namespace partwright::regex
