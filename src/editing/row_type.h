#pragma once

// What a row becomes when its Type changes: the parameters are cleared, those that the type does
// not have say "N/A", options get their defaults, and in the group of capacitors the process
// follows. Every function writes the table inside of a step that its caller opened.

#include "editing/component_table.h"

#include <string_view>

namespace partwright {

/// The row set up for a type; the Type cell itself is written by the caller.
void ChangeRowType(ComponentTable& table, std::size_t row, std::wstring_view type);
/// Another process clears the row as a type does.
void changeRowProcess(ComponentTable& table, std::size_t row, std::wstring_view process);

} // namespace partwright
