#pragma once

// The tables that define groups and their parameters: what each LPar slot of a pair of group and
// type is called (property tables), which parameters an analysis level needs, and the list of
// groups itself. An absent table is silent and leaves the application's tables as they are, except
// where told.

#include "core/application.h"
#include "library/load_result.h"

namespace partwright {

/// sdtaProperties from sdtaPropertyLibraryPath.
LoadResult LoadSdtaProperties(CPartwrightPlugInApp& app);

/// asrProperties, the families, the group names by code and the list asrGroupNames, whose gaps
/// read "N/A"; then the type lists. Without a program folder nothing is done.
LoadResult LoadAsrProperties(CPartwrightPlugInApp& app);

/// asrColumnsForRapid and asrColumnsForAsr, emptied first.
LoadResult LoadColumnVisibility(CPartwrightPlugInApp& app);

/// GroupRuleTable, GroupRefDesTable and groupNamesByCode, emptied first; then the list of SDTA
/// groups and its type lists. A row whose rule is no valid expression makes no group.
LoadResult LoadGroupNames(CPartwrightPlugInApp& app);

} // namespace partwright
