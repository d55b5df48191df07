#pragma once

// Pins that a row names twice. One pin of a part has one use, so the columns of a row must not
// repeat each other; supply pins of circuits have rules of their own, which say what is wrong.

#include "validation/analyses_table.h"
#include "validation/finding.h"

#include <optional>

namespace partwright {

/// Groups 4 to 9, 36 and 38. Plain duplicates are told for all rows at once, the others for the
/// first row.
[[nodiscard]] std::optional<Finding> CheckDuplicatePins(const AnalysesTable& table, ItemRows rows);

/// Group 32: the pins of the coil differ from each other and from those of the contacts, which may
/// share one among themselves.
[[nodiscard]] std::optional<Finding> checkRelayPins(const AnalysesTable& table, ItemRows rows);

} // namespace partwright
