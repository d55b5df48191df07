#pragma once

// Rules for lists of decibels against lists of pins. Power is shared out among the outputs, so that
// the parts, each 10^(-dB/10), add up to the whole at most.
//
//   two outputs, 3.01-3.02   the parts are 0.500 and 0.499: fine
//   two outputs, 3-3         the parts are 0.501 and 0.501: more than went in

#include "validation/analyses_table.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace partwright {

/// Sum of the parts of a list; an item that is no number counts 0 dB, the whole.
[[nodiscard]] double powerSum(ListItems values, wchar_t decimalMark);

/// More than all of the power, beyond what rounding explains.
[[nodiscard]] bool exceedsWhole(double powerSum);

/// A list of values against the output pins of the same row. The message, empty when fine.
[[nodiscard]] std::wstring dbFault(std::int32_t group, std::wstring_view type, ListItems pins,
                                   ListItems values, wchar_t decimalMark);

/// Group 38: the dB cell of a row by its type. The message, empty when fine.
[[nodiscard]] std::wstring couplingFault(const ItemRow& row, wchar_t decimalMark);

} // namespace partwright
