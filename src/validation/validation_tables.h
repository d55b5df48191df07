#pragma once

// The two tables that say what a valid cell is: rules for one value, by ValidationID, and rules for
// the combination of several cells, by group and ordering number. A property table refers to the
// first by number. Both are read once and not changed afterwards.

#include "library/load_result.h"
#include "validation/value_check.h"

#include <string_view>

namespace partwright {

struct ValidationTables {
    ValidationRules rules;
    ThermalRules thermal;
};

/// A line without one of the columns is skipped; of two lines with one key the later counts. The
/// target is emptied only by a table that could be read.
LoadResult LoadValidationRules(std::wstring_view path, ValidationRules& target);
LoadResult LoadThermalValidationRules(std::wstring_view path, ThermalRules& target);

} // namespace partwright
