#pragma once

// Every table beside the program checked against the others and against the compiled ones. The
// engine itself never complains about a table: a broken row is skipped and a part stays empty.
// This is where a person who edits a table learns what the engine would skip in silence.
//
//   for (const TableFinding& finding : checkTables(app, engine))
//       ... finding.file, finding.line, finding.column, finding.text
//
// What is checked, by file:
//   UnitTable, ParamRuleTable    the compiled tables: words, factors, terms, keys, codes, columns
//   DescrRules.csv               groups 1 to 26 in order, expressions, typical designators
//   DescrRules_SDTATypes.csv     groups and types, keywords, exclusion terms
//   SDTA_ASR_MGT.csv             methods, groups and types, type names
//   DescrSynonyms.csv            entries that can be read, each reachable
//   PartPrefixes.csv             prefixes that are reached and lead to a group
//   Property_SDTA_Library.csv,   a row for every pair of group and type, families and numbers,
//   Property_ASR_Library.csv     labels, hints, rule references, drop-down lists
//   LibColVisibility_Ext.csv     groups and parameters
//   SDTALibraryValidationRules.csv      numbers, kinds, comparisons, bounds
//   SDTALibThermalParamValidation.csv   rules, messages, positions of the right columns
//   SDTA_Default_LPar.csv, ASR_Default_LPar.csv   pairs, slots, values under their rules
//   Conv_BiCode.csv              families; every SDTA group reaches an Analyses group
//   GLibData.glb                 expressions and the codes they let through, fields, examples

#include "autofill/fill_engine.h"
#include "core/application.h"
#include "tablecheck/finding.h"

#include <vector>

namespace partwright {

/// `app` has its tables loaded, and `engine` its rule files; the files are read once more for the
/// places of the findings, which stand in the order of the list above.
[[nodiscard]] std::vector<TableFinding> checkTables(const CPartwrightPlugInApp& app,
                                                    FillEngine& engine);

} // namespace partwright
