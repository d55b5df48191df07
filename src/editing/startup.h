#pragma once

// The order of a start: settings, project input, paths, group names, SDTA tables and libraries.
// Everything else is loaded by the pages when they start. A table that is not there leaves the
// program running with less; one that cannot be opened is told in a box.

#include "core/application.h"
#include "core/ports/clock.h"
#include "core/ports/prompt.h"
#include "core/text_file.h"

#include <string>
#include <string_view>
#include <vector>

namespace partwright {

struct StartOptions {
    /// Folder of the tables; worked out from the program's own place when empty.
    std::wstring programFolder;
    /// Folder of the public libraries; the setting decides when empty.
    std::wstring publicFolder;
};

/// Fills the application from hostTool, libraryFolder and projectInputFolder.
void loadAtStart(CPartwrightPlugInApp& app, Clock& clock, Prompt& prompt,
                 const StartOptions& options);

/// Shows the box of a table that is there and cannot be opened; silent otherwise. True when the
/// table is usable or absent.
bool tellTable(Prompt& prompt, FileStatus status, std::wstring_view path);

/// Reads DescrRules.csv again and rebuilds the group list and the type lists.
void loadGroupNames(CPartwrightPlugInApp& app, Prompt& prompt);

/// The definition tables of the Analyses library, those that are not there yet.
void loadAnalysesTables(CPartwrightPlugInApp& app, Prompt& prompt);

/// Reads the design and the public library file of a kind into the master copies.
void loadSdtaLibraries(CPartwrightPlugInApp& app, Prompt& prompt);
void loadAnalysesLibraries(CPartwrightPlugInApp& app, Prompt& prompt);

/// Part number in capitals to designators, joined by "," in key order, over the project's rows;
/// with `onlySelected` those that the designer selected. Values empty or "Empty" are no part.
[[nodiscard]] PartSelection partsOfProject(const CPartwrightPlugInApp& app, bool onlySelected);

} // namespace partwright
