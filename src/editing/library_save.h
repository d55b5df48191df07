#pragma once

// Writing one library over its file, with the words that go with every outcome.

#include "core/application.h"
#include "core/library_kind.h"
#include "core/ports/prompt.h"

#include <string_view>

namespace partwright {

/// Sorts the records by group and writes them. With `announce` a success is told. False when
/// nothing was written: the library was not understood when it was read, the file cannot be opened
/// or written, or its code page lacks a character and UTF-8 was declined.
template <class Record>
bool saveLibraryFile(CPartwrightPlugInApp& app, const typename Kind<Record>::Library& records,
                     std::wstring_view path, bool announce, Prompt& prompt);

extern template bool saveLibraryFile<SdtaComponent>(CPartwrightPlugInApp&, const SdtaLibrary&,
                                                    std::wstring_view, bool, Prompt&);
extern template bool saveLibraryFile<AsrComponent>(CPartwrightPlugInApp&, const AsrLibrary&,
                                                   std::wstring_view, bool, Prompt&);

} // namespace partwright
