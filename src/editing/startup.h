#pragma once

// The order of a start: settings, project input, paths, SDTA tables, group names, libraries
// and the links to data sheets. Everything else is loaded by the pages when they start. A table
// that is not there leaves the program running with less; one that cannot be opened is told in a
// box.

#include "core/application.h"
#include "core/ports/clock.h"
#include "core/ports/prompt.h"
#include "editing/interrupted_saves.h"
#include "library/load_result.h"

#include <string>

namespace partwright {

struct StartOptions {
    /// Folder of the tables; worked out from the program's own place when empty.
    std::wstring programFolder;
    /// Folder of the public libraries; the setting decides when empty.
    std::wstring publicFolder;
    InterruptedSaves interruptedSaves = InterruptedSaves::Ask;
};

/// Fills the application from its hostTool, libraryFolder and projectInputFolder. False: the last
/// save of a library was interrupted and is not settled, so nothing was read; told in a box.
bool loadAtStart(CPartwrightPlugInApp& app, Clock& clock, Prompt& prompt,
                 const StartOptions& options);

/// The tables alone, for work without a project: paths, property rows and group names of both
/// kinds.
void loadTables(CPartwrightPlugInApp& app, Prompt& prompt, const StartOptions& options);

/// Shows what a loader has to say, if anything.
void tell(Prompt& prompt, const LoadResult& result, PromptIcon icon = PromptIcon::Information);

/// The definition tables of the Analyses library, those that are not there yet.
void loadAnalysesTables(CPartwrightPlugInApp& app, Prompt& prompt);

/// Reads the design and the public library file of a kind into the master copies.
void loadSdtaLibraries(CPartwrightPlugInApp& app, Prompt& prompt);
void loadAnalysesLibraries(CPartwrightPlugInApp& app, Prompt& prompt);

/// Reads the SDTA libraries once more into the master copies; a file that holds what it held before
/// is not parsed again. A library that could not be read the first time stays withheld from saving,
/// even if it can be read now: the SDTA page works on the records of the first time.
void reloadSdtaLibraries(CPartwrightPlugInApp& app, Prompt& prompt);

/// Part number, as a library gives it back, to designators, joined by "," in key order, over the
/// project's rows; with `onlySelected` those that the designer selected. Values empty or "Empty"
/// are no part.
[[nodiscard]] PartSelection partsOfProject(const PartList& list, bool onlySelected);

} // namespace partwright
