#pragma once

// Every table beside the program checked against the others and against the compiled ones. The
// engine itself never complains about a table: a broken row is skipped and a part stays empty.
// This is where a person who edits a table learns what the engine would skip in silence.
//
//   for (const TableFinding& finding : checkTables(app))
//       ... finding.file, finding.line, finding.column, finding.text
//
// What is checked, by file:
//   DescrRules.csv               groups 1 to 26 in order, expressions, typical designators
//   DescrRules_SDTATypes.csv     groups and types, keywords, exclusion terms
//   SDTA_ASR_MGT.csv             methods, groups and types, type names
//   DescrSynonyms.csv            entries that can be read, each reachable
//   Property_SDTA_Library.csv,   a row for every pair of group and type, families and numbers,
//   Property_ASR_Library.csv     labels, hints, rule references
//   LibColVisibility_Ext.csv     groups and parameters
//   SDTALibraryValidationRules.csv      numbers, kinds, comparisons, bounds
//   SDTALibThermalParamValidation.csv   rules, messages, positions of the right columns
//   SDTA_Default_LPar.csv, ASR_Default_LPar.csv   pairs, slots, values under their own rules
//   Conv_BiCode.csv              every SDTA group reaches an Analyses group
//   GLibData.glb                 expressions, index rows, lists, examples, conflicts

#include "core/application.h"
#include "tablecheck/finding.h"

#include <vector>

namespace partwright {

/// Reads the tables of the application's programFolder itself; of `app` only the resolved paths and
/// the loaded tables are used. Findings stand in the order of the list above.
[[nodiscard]] std::vector<TableFinding> checkTables(const CPartwrightPlugInApp& app);

} // namespace partwright
