#pragma once

// The passes of OK over all rows of an Analyses table, beside those of row_lists.h and
// duplicate_pins.h. Each looks at the groups it is for and finds nothing in others; each stops at
// its first failure. okPasses() is the order in which OK runs them all.

#include "validation/analyses_table.h"

#include <optional>
#include <span>
#include <string_view>

namespace partwright {

/// Group 8: the output pin of a regulator is known.
[[nodiscard]] std::optional<Finding> checkRegulatorOutputs(const AnalysesTable& table,
                                                           ItemRows rows);
/// Group 5, type 1: one input pin.
[[nodiscard]] std::optional<Finding> checkAmplifierInputs(const AnalysesTable& table,
                                                          ItemRows rows);
/// Group 25, type 3: one output pin or two different ones.
[[nodiscard]] std::optional<Finding> checkOscillatorOutputs(const AnalysesTable& table,
                                                            ItemRows rows);
/// Rows that are full: the column of frequencies.
[[nodiscard]] std::optional<Finding> CheckFrequencies(const AnalysesTable& table, ItemRows rows);
/// Group 38, rows that are full: the dB cell by the type.
[[nodiscard]] std::optional<Finding> CheckDbOfCoupling(const AnalysesTable& table, ItemRows rows);
/// Group 26, rows that are not hidden: the pins of RF filters and feed-through capacitors.
[[nodiscard]] std::optional<Finding> CheckFilterRows(const AnalysesTable& table, ItemRows rows);
/// The syntax of every filled list cell.
[[nodiscard]] std::optional<Finding> CheckAllListCells(const AnalysesTable& table, ItemRows rows);

struct OkPass {
    std::wstring_view name;
    std::optional<Finding> (*run)(const AnalysesTable&, ItemRows);
};
[[nodiscard]] std::span<const OkPass> okPasses();

} // namespace partwright
