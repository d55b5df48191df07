#pragma once

// Rules of single groups for one cell, used when an edit is committed and again at OK: pins of
// amplifiers, oscillators, splitters and filters, and the columns that hold frequencies. The text
// is given apart from the row, since at commit the row still has the old one.
//
//   group 38, Splitter, PinIn    1-2   ->  "For the type 'Splitter' you should enter one input
//   pin." group 26, RF.Filter, L8      20-10 ->  "Frequency values should be placed in ascending
//   order." ...
//
// A cell that is not judged is one that no rule looks at.

#include "validation/analyses_table.h"
#include "validation/finding.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace partwright {

/// Groups 5, 25 at type 3, 26 at type 3, 30 at type 2, and 38. The empty text has a rule in the
/// pin cells of an RF filter only: elsewhere a cell may be emptied.
[[nodiscard]] CellAnswer CheckGroupCell(const AnalysesTable& table, const AnalysesRow& row,
                                        std::size_t position, std::wstring_view text);

/// The column of frequencies: group 38 L6, group 26 L8 at type 3, group 30 L4 at type 2.
[[nodiscard]] CellAnswer CheckFrequencyCell(const AnalysesTable& table, const AnalysesRow& row,
                                            std::size_t position, std::wstring_view text);
/// Its position in the row; 0 when the row has none.
[[nodiscard]] std::size_t frequencyPosition(const AnalysesTable& table, const AnalysesRow& row);

/// Group 6, L3 and L4: an output voltage is not above its supply. The message, empty when fine.
[[nodiscard]] std::wstring amplifierOutputFault(const AnalysesTable& table, const AnalysesRow& row,
                                                std::size_t position, std::wstring_view text);
/// Group 5: one input pin.
[[nodiscard]] bool isOneInput(std::wstring_view text);
/// Group 25: one output pin, or two different ones.
[[nodiscard]] bool isOutputPair(std::wstring_view text);
/// An item stands in the list more than once.
[[nodiscard]] bool holdsDuplicate(std::vector<std::wstring_view> items);

} // namespace partwright
