#include "tablecheck/table_check.h"

#include "tablecheck/classification_tables.h"
#include "tablecheck/compiled_rules_check.h"
#include "tablecheck/definition_tables.h"
#include "tablecheck/group_library_check.h"

namespace partwright {

std::vector<TableFinding> checkTables(const CPartwrightPlugInApp& app, FillEngine& engine) {
    std::vector<TableFinding> all;
    checkCompiledRules(engine.tables(), all);
    checkGroupRules(app, all);
    checkTypeKeywords(app, engine.tables().units, all);
    checkDirectKeys(app, all);
    checkSynonyms(app, all);
    checkPartPrefixes(app, engine, all);
    const ValidationRules rules = checkValidationRules(app, all);
    checkThermalRules(app, all);
    checkProperties(app, rules, all);
    checkVisibility(app, all);
    checkDefaults(app, rules, all);
    checkConversion(app, all);
    checkGroupLibrary(app, engine, all);
    return all;
}

} // namespace partwright
