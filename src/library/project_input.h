#pragma once

// The part list that the host tool writes for the program: a project line, a header line, then one
// placement a line.
//
//   sep=,
//   #Project filename: C:\Work\Board.DSN
//   #REFDES,P/N,MFG,DESCR,CPN,SELECT
//   R1,RC0402-10K,Acme,RES 10K 1%,,Yes
//
// The host may still be writing the file when the program starts, so a file that cannot be opened
// is tried five times, with a pause of a second between.

#include "core/part_list.h"
#include "core/ports/clock.h"
#include "core/project_paths.h"
#include "library/load_result.h"

#include <string_view>

namespace partwright {

inline constexpr std::wstring_view projectInputName = L"PlugIn_Partwright_PrjInput.csv";

/// Fills projectEntries, projectName, selectedCount and the four column keys. Without a library
/// folder nothing is done.
LoadResult LoadProjectInput(ProjectPaths& paths, PartList& parts, Clock& clock);

/// Why no part came from the part list: it is not there, or no header line was found in it. Empty
/// when parts could be read; a file that cannot be opened is told when it is loaded.
[[nodiscard]] std::wstring partListFault(const ProjectPaths& paths, const PartList& parts);

/// The part of that work behind the file.
void parseProjectInput(ProjectPaths& paths, PartList& parts, std::string_view bytes,
                       CodePage codePage);

} // namespace partwright
