#pragma once

// The same expression in the words of RE2, whose matching takes time in proportion to the text.
// Sets are spelled out as ranges of code points, so that no class, escape or flag of either side
// can mean something else on the other. Inside of core/ only.

#include "core/regular_expression_tree.h"

#include <re2/re2.h>

#include <optional>
#include <string>
#include <string_view>

namespace partwright::regex {

/// Nothing for what is not to be given to RE2: it has no words for look-ahead and back-references,
/// and a pattern whose counts make it very large would cost as much for each character of a text.
[[nodiscard]] std::optional<std::string> re2Pattern(const Tree& tree);

[[nodiscard]] re2::RE2::Options re2Options();

enum class Letters { AsTheyStand, InCapitals };
/// The text as RE2 reads it, in a buffer that is kept from text to text. Half of a surrogate pair
/// is a character; what is beyond all characters is taken for the last one.
[[nodiscard]] std::string_view narrow(std::wstring_view text, Letters letters, std::string& buffer);

} // namespace partwright::regex
