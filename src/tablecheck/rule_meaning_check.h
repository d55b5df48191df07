#pragma once

// What a rule fills against what its property row asks for: a rule under a parameter that does not
// apply to the type, and a rule that reads in another unit than the message of the row tells.

#include "autofill/param_rules.h"
#include "tablecheck/finding.h"

#include <vector>

namespace partwright {

void checkRuleMeanings(const CPartwrightPlugInApp& app, const FillTables& tables,
                       std::vector<TableFinding>& all);

} // namespace partwright
