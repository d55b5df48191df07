#include "autofill/compiled_tables.h"

#include "autofill/param_rule_rows.h"
#include "autofill/unit_table_rows.h"

namespace partwright {

FillTables compiledFillTables() {
    FillTables tables;
    tables.units = UnitTable(unitTableRows);
    tables.rules = ParamRuleTable(paramRuleRows, tables.units);
    tables.refine = TypeRefineTable(tables.rules, tables.units);
    return tables;
}

} // namespace partwright
