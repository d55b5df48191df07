#pragma once

// Reads a library file into a map from part number to record; of two rows of one part the later
// one wins. A library that is not there yet is an empty one.
//
// A library that was read while no group name was known, or that is there and could not be read,
// is marked in libraries.faults: writing it back would lose records.
//
//   const LoadResult result = LoadSdtaLibrary(app, library, path);
//   if (!result.message.empty())
//       prompt.tell(result.message, PromptIcon::None);

#include "core/application.h"
#include "library/load_result.h"

#include <string>
#include <string_view>

namespace partwright {

template <class Record>
struct ParsedLibrary {
    typename Kind<Record>::Library records;
    /// Rows were met while the definitions knew no group by name.
    bool groupsUnknown = false;
};

/// The rows of a file's content, without a byte-order mark.
template <class Record>
[[nodiscard]] ParsedLibrary<Record> parseLibrary(const Definitions<Record>& definitions,
                                                 wchar_t decimalMark, std::string bytes,
                                                 CodePage codePage);
extern template ParsedLibrary<SdtaComponent> parseLibrary(const Definitions<SdtaComponent>&,
                                                          wchar_t, std::string, CodePage);
extern template ParsedLibrary<AsrComponent> parseLibrary(const Definitions<AsrComponent>&, wchar_t,
                                                         std::string, CodePage);

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
