#pragma once

// The parameters of the Analyses library that are chosen from a short list (OptionColumn of the
// fixed vocabulary): for one type of the group the list and its default apply, for every other type
// the cell says "N/A".
//
// The auto-fill engine stores the place in the list instead of the word; such a number shows as the
// word and counts as its place, from 1.

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace partwright {

/// The column drops down a list for some type of the group. `position` is the LPar number.
[[nodiscard]] bool isOptionColumn(std::int32_t group, std::size_t position);
/// Place of the text in the column's list, from 1, be it the word or the place itself; 0 when it
/// is neither.
[[nodiscard]] std::size_t optionPlace(std::int32_t group, std::size_t position,
                                      std::wstring_view text);
/// The word that the cell shows: that of a stored place, otherwise the text.
[[nodiscard]] std::wstring_view shownOption(std::int32_t group, std::size_t position,
                                            std::wstring_view text);

} // namespace partwright
