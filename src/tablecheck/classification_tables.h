#pragma once

// The checks of the tables that classify parts.

#include "autofill/fill_engine.h"
#include "core/application.h"
#include "tablecheck/finding.h"

#include <vector>

namespace partwright {

void checkGroupRules(const CPartwrightPlugInApp& app, std::vector<TableFinding>& all);
void checkTypeKeywords(const CPartwrightPlugInApp& app, const UnitTable& units,
                       std::vector<TableFinding>& all);
void checkDirectKeys(const CPartwrightPlugInApp& app, std::vector<TableFinding>& all);
void checkSynonyms(const CPartwrightPlugInApp& app, std::vector<TableFinding>& all);
void checkPartPrefixes(const CPartwrightPlugInApp& app, const FillEngine& engine,
                       std::vector<TableFinding>& all);

} // namespace partwright
