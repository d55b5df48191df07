#pragma once

// The pass that compares the lists of a row with each other: columns that describe the same
// channels must list the same number of items, and some lists must fit in what they say. It runs at
// OK and before a row is copied.
//
//   group 14   Pin-Collec 1-4, Pin-Emit 2-5, Pin-Base 3   ->  "The quantity of Pin numbers ..."
//
// A column is left out of the pass when it is hidden by the level, empty or "N/A"; some are left
// out when they hold "-". Which columns belong together is a table in row_lists.cpp.

#include "validation/analyses_table.h"
#include "validation/finding.h"

#include <optional>

namespace partwright {

/// The first row at fault, with its message behind the name of the method.
[[nodiscard]] std::optional<Finding> CheckRowLists(const AnalysesTable& table, ItemRows rows);

/// Group 24: what the lists of a row's windings say beyond their counts. A row without any value is
/// left alone like an unfilled row of any other group.
[[nodiscard]] std::optional<Finding> transformerFault(const ItemRow& row, wchar_t decimalMark);

} // namespace partwright
