#pragma once

// What becomes of a text on its way into a cell, however it comes: typed, pasted, filled or worked
// out. Whatever the table shows must be what the library file gives back.
//
//   cleanText(notes, L"a\\b")          ->  "a-b", and a line that says so
//   keptText(table, rules, at, L"-2")  ->  "-2.0" where a rule asks for numbers: "-2" alone is how
//                                          a library says that a parameter does not apply

#include "editing/component_table.h"
#include "editing/table_outcome.h"
#include "validation/value_check.h"

#include <optional>
#include <string>
#include <string_view>

namespace partwright {

/// Longest catalogue number that the dialogs take.
inline constexpr std::size_t maximumCatalogNumber = 20;

struct CleanText {
    std::wstring text;
    /// What was taken away, for the description line.
    std::optional<std::wstring> complaint;
};

/// One line, not too long, without the mark that a file has for hyphens, and not taken for the end
/// of its row.
[[nodiscard]] CleanText cleanText(const TableColumn& column, std::wstring_view text);

/// The same for a new part number, whose length is another matter.
[[nodiscard]] CleanText cleanPartNumber(std::wstring_view text);

/// What a cell keeps of a text that it takes.
[[nodiscard]] std::wstring keptText(const ComponentTable& table, const ValidationRules& rules,
                                    CellAt at, std::wstring_view text);

} // namespace partwright
