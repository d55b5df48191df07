#pragma once

// Writing a library or the links to data sheets over their file, with the questions that stand
// before it and the words that go with every outcome.

#include "core/application.h"
#include "core/library_kind.h"
#include "core/ports/prompt.h"

#include <string_view>

namespace partwright {

/// Sorts the records by group and writes them. With `announce` a success is told. False: nothing
/// was saved, and why was told in a box.
template <class Record>
[[nodiscard]] bool saveLibraryFile(CPartwrightPlugInApp& app,
                                   const typename Kind<Record>::Library& records,
                                   std::wstring_view path, bool announce, Prompt& prompt);

extern template bool saveLibraryFile<SdtaComponent>(CPartwrightPlugInApp&, const SdtaLibrary&,
                                                    std::wstring_view, bool, Prompt&);
extern template bool saveLibraryFile<AsrComponent>(CPartwrightPlugInApp&, const AsrLibrary&,
                                                   std::wstring_view, bool, Prompt&);

[[nodiscard]] bool saveLinkFile(CPartwrightPlugInApp& app, Prompt& prompt);

} // namespace partwright
