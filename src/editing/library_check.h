#pragma once

// Every check that the Change Component dialogs know, over a whole library and without a dialog:
// what a user who opened each group and looked at each cell would be told. It stands on the same
// tables, questions and checks as the dialogs' sessions.
//
//   for (const LibraryFinding& finding : checkLibrary<AsrComponent>(app, library, rules, level))
//       print finding
//
// Cells are judged as when they become current, rows one by one by each step of OK; of each step
// the first message counts. Findings come by group, part and column.
//
// saveFindings() tells what no dialog can: texts of the library that its file would not give back.
// What the file had and the library has not is a finding as well (loadFindings).

#include "core/application.h"
#include "core/library_kind.h"
#include "editing/analysis_level.h"
#include "validation/finding.h"
#include "validation/validation_tables.h"

#include <string>
#include <string_view>
#include <vector>

namespace partwright {

/// A finding with the names of what it is about.
struct LibraryFinding {
    /// "SDTA" or "Analyses".
    std::wstring_view library;
    std::wstring part;
    std::wstring group;
    std::wstring type;
    /// Header of the column and what stands in the cell; empty when the row as a whole is at fault.
    /// Of an unfilled row, the headers of its empty cells.
    std::wstring parameter;
    std::wstring value;
    Finding finding;
};

/// The level hides columns of the Analyses library, which then are not looked at.
template <class Record>
[[nodiscard]] std::vector<LibraryFinding>
checkLibrary(const CPartwrightPlugInApp& app, const typename Kind<Record>::Library& library,
             const ValidationTables& rules, AnalysisLevel level);
extern template std::vector<LibraryFinding> checkLibrary<SdtaComponent>(const CPartwrightPlugInApp&,
                                                                        const SdtaLibrary&,
                                                                        const ValidationTables&,
                                                                        AnalysisLevel);
extern template std::vector<LibraryFinding> checkLibrary<AsrComponent>(const CPartwrightPlugInApp&,
                                                                       const AsrLibrary&,
                                                                       const ValidationTables&,
                                                                       AnalysisLevel);

/// What a save and the next reading would make another text of.
template <class Record>
[[nodiscard]] std::vector<LibraryFinding>
saveFindings(const CPartwrightPlugInApp& app, const typename Kind<Record>::Library& library);
extern template std::vector<LibraryFinding> saveFindings<SdtaComponent>(const CPartwrightPlugInApp&,
                                                                        const SdtaLibrary&);
extern template std::vector<LibraryFinding> saveFindings<AsrComponent>(const CPartwrightPlugInApp&,
                                                                       const AsrLibrary&);

/// What was not taken of a library's file, under the rule "load".
[[nodiscard]] std::vector<LibraryFinding>
loadFindings(std::wstring_view library, std::wstring_view path, const LoadReport& report);

} // namespace partwright
