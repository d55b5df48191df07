#pragma once

// Three kinds of small rule tables: default parameter values by group and type, the direct keys of
// type detection, and the conversion of group codes between the two numberings. Each loader empties
// its table first; an absent file is silent.

#include "core/application.h"
#include "library/load_result.h"

#include <cstdint>

namespace partwright {

LoadResult LoadSdtaDefaultLPar(CPartwrightPlugInApp& app);
LoadResult LoadAsrDefaultLPar(CPartwrightPlugInApp& app);

/// DirectKeyTable from managementTablePath.
LoadResult LoadManagementTable(CPartwrightPlugInApp& app);

/// convBiCode from "Conv_BiCode.csv" beside the program.
LoadResult LoadConvBiCode(CPartwrightPlugInApp& app);

/// The answer of ConvertBiCode for a code that has no counterpart.
inline constexpr std::int32_t noBiCode = -10;

/// Carries an SDTA group code over to the Analyses numbering: by the common code, else the lowest
/// code of the family. `family` is set only when a code was found.
[[nodiscard]] std::int32_t ConvertBiCode(const CPartwrightPlugInApp& app, std::int32_t code,
                                         std::int32_t& family);

} // namespace partwright
