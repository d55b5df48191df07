#pragma once

// The checks of the tables that define groups, parameters, defaults and conversions.

#include "core/application.h"
#include "tablecheck/finding.h"
#include "validation/value_check.h"

#include <vector>

namespace partwright {

/// The single-value rules by number, with findings for rows that cannot work.
[[nodiscard]] ValidationRules checkValidationRules(const CPartwrightPlugInApp& app,
                                                   std::vector<TableFinding>& all);
void checkThermalRules(const CPartwrightPlugInApp& app, std::vector<TableFinding>& all);
void checkProperties(const CPartwrightPlugInApp& app, const ValidationRules& rules,
                     std::vector<TableFinding>& all);
void checkVisibility(const CPartwrightPlugInApp& app, std::vector<TableFinding>& all);
void checkDefaults(const CPartwrightPlugInApp& app, const ValidationRules& rules,
                   std::vector<TableFinding>& all);
void checkConversion(const CPartwrightPlugInApp& app, std::vector<TableFinding>& all);

} // namespace partwright
