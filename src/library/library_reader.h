#pragma once

// Reads a library file into a map from part number to record; of two rows of one part the later
// one wins. A library that is not there yet is an empty one.
//
// What was not taken of a file goes to loadReports, and so does what speaks against writing it
// back: that it could not be read, or was not understood.
//
//   const LoadResult result = LoadSdtaLibrary(app, library, path);
//   if (!result.message.empty())
//       prompt.tell(result.message, PromptIcon::None);

#include "core/application.h"
#include "library/library_parser.h"
#include "library/load_result.h"

#include <optional>
#include <string_view>

namespace partwright {

/// An empty path stands for the design library. The target is emptied first in every case.
LoadResult LoadSdtaLibrary(CPartwrightPlugInApp& app, SdtaLibrary& target,
                           std::wstring_view path = {});

/// The same for a master copy. When the file holds what the copy was made from, and the definitions
/// are still the same, the copy stands as it is.
LoadResult loadSdtaMaster(CPartwrightPlugInApp& app, MasterCopy<SdtaComponent>& master,
                          std::wstring_view path);

/// An empty path stands for "ASRLib.csv" beside the program. Without a program folder nothing is
/// done; an absent file is told of.
LoadResult LoadAnalysesLibrary(CPartwrightPlugInApp& app, AsrLibrary& target,
                               std::wstring_view path = {});

} // namespace partwright
