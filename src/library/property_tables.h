#pragma once

// The tables that define groups and their parameters: what each LPar slot of a pair of group and
// type is called (property tables), which parameters an analysis level needs, and the list of
// groups itself. An absent table is silent and leaves the application's tables as they are, except
// where told.

#include "core/classifier_tables.h"
#include "core/definitions.h"
#include "core/project_paths.h"
#include "library/load_result.h"

namespace partwright {

/// The property rows from sdtaPropertyLibraryPath.
LoadResult LoadSdtaProperties(const ProjectPaths& paths, Definitions<SdtaComponent>& sdta);

/// The property rows, the families, the group names by code and the list of groups, whose gaps
/// read "N/A"; then the type lists. Without a program folder nothing is done.
LoadResult LoadAsrProperties(const ProjectPaths& paths, Definitions<AsrComponent>& asr);

/// asrColumnsForRapid and asrColumnsForAsr, emptied first.
[[nodiscard]] std::wstring columnVisibilityPath(const ProjectPaths& paths);
/// columnsForRapid and columnsForAsr, emptied first.
LoadResult LoadColumnVisibility(const ProjectPaths& paths, Definitions<AsrComponent>& asr);

/// GroupRuleTable, GroupRefDesTable and groupNamesByCode, emptied first; then the list of SDTA
/// groups and its type lists. A row whose rule is no valid expression makes no group.
LoadResult LoadGroupNames(const ProjectPaths& paths, ClassifierTables& classifier,
                          Definitions<SdtaComponent>& sdta);

} // namespace partwright
