#pragma once

// What the check of a cell asks about a cell of a component table, for the dialogs and for a report
// alike.

#include "editing/component_table.h"
#include "editing/table_checks.h"
#include "editing/table_outcome.h"
#include "validation/cell_check.h"

#include <string_view>

namespace partwright {

/// The list that the cell drops down; null when it has none.
[[nodiscard]] const ChoiceList* choicesOf(const ComponentTable& table, CellAt at);

/// `text` is borrowed. A commit asks some columns that the quiet check leaves alone.
[[nodiscard]] CellQuestion cellQuestion(const ComponentTable& table, const TableChecks& checks,
                                        CellAt at, std::wstring_view text, bool isCommit);

} // namespace partwright
