#pragma once

// Three kinds of small rule tables: default parameter values by group and type, the direct keys of
// type detection, and the conversion of group codes between the two numberings. Each loader empties
// its table first; an absent file is silent.

#include "core/classifier_tables.h"
#include "core/definitions.h"
#include "core/project_paths.h"
#include "library/load_result.h"

#include <cstdint>
#include <string>

namespace partwright {

LoadResult LoadSdtaDefaultLPar(const ProjectPaths& paths, Definitions<SdtaComponent>& sdta);
LoadResult LoadAsrDefaultLPar(const ProjectPaths& paths, Definitions<AsrComponent>& asr);

/// DirectKeyTable from managementTablePath.
LoadResult LoadManagementTable(const ProjectPaths& paths, ClassifierTables& classifier);

/// Path of "Conv_BiCode.csv" beside the program.
[[nodiscard]] std::wstring biCodePath(const ProjectPaths& paths);
/// convBiCode from that file.
LoadResult LoadConvBiCode(const ProjectPaths& paths, ClassifierTables& classifier);

/// The answer of ConvertBiCode for a code that has no counterpart.
inline constexpr std::int32_t noBiCode = -10;

/// Carries an SDTA group code over to the Analyses numbering: by the common code, else the lowest
/// code of the family. `family` is set only when a code was found.
[[nodiscard]] std::int32_t ConvertBiCode(const ClassifierTables& classifier, std::int32_t code,
                                         std::int32_t& family);

} // namespace partwright
