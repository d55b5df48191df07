#pragma once

// Writing one library over its file, with the words that go with every outcome.

#include "core/application.h"
#include "core/library_kind.h"
#include "core/ports/prompt.h"

#include <string_view>

namespace partwright {

enum class SaveOutcome {
    Saved,
    /// The file cannot be opened for writing; told in a box.
    CannotOpen,
    /// The library was not understood when it was read, so it is not written; told in a box.
    Withheld,
    /// The disk refused the content, or the code page lacks a character and UTF-8 was declined;
    /// told in a box. What is on the disk is as it was.
    Failed,
};

/// Sorts the records by group and writes them. With `announce` a success is told.
template <class Record>
SaveOutcome saveLibraryFile(CPartwrightPlugInApp& app,
                            const typename Kind<Record>::Library& records, std::wstring_view path,
                            bool announce, Prompt& prompt);

extern template SaveOutcome saveLibraryFile<SdtaComponent>(CPartwrightPlugInApp&,
                                                           const SdtaLibrary&, std::wstring_view,
                                                           bool, Prompt&);
extern template SaveOutcome saveLibraryFile<AsrComponent>(CPartwrightPlugInApp&, const AsrLibrary&,
                                                          std::wstring_view, bool, Prompt&);

} // namespace partwright
