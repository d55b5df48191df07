#pragma once

// A project opened from the command line: the application, the engine and both pages, started in
// the order of the window.

#include "autofill/fill_engine.h"
#include "cli/commands.h"
#include "cli/console.h"
#include "core/application.h"
#include "core/system_clock.h"
#include "editing/interrupted_saves.h"
#include "editing/main_session.h"

namespace partwright::cli {

/// The folder of the tables is known, no project is open.
class Tables {
public:
    Tables(const PlaceOptions& place, Streams streams);

    CPartwrightPlugInApp app;
    ConsolePrompt prompt;
    FillEngine engine;
};

class Project {
public:
    Project(const PlaceOptions& place, Streams streams);

    /// Fine, or the exit code of what stands against working on the project, which was told: an
    /// interrupted save; an input folder without a part list, or with one that has no header line,
    /// so that what a command answers would be about nothing.
    [[nodiscard]] ExitCode opened() const { return opened_; }
    /// Says on the error stream how many records of which files the command looked at.
    void tellLookedAt(bool sdta = true, bool analyses = true);

    CPartwrightPlugInApp app;
    ConsolePrompt prompt;
    FillEngine engine;
    MainSession session;

private:
    SystemClock clock_;
    ExitCode opened_ = Fine;
};

/// One line about what was not taken of a file, if anything was not.
void tellReport(Prompt& prompt, std::wstring_view path, const LoadReport& report);
/// All of it, a line each.
void tellEntries(Prompt& prompt, const LoadReport& report);

[[nodiscard]] InterruptedSaves interruptedSaves(const PlaceOptions& place);

/// The folders that the options name are all there, those of a project only where a command opens
/// one; what is not there is told.
[[nodiscard]] bool foldersAreThere(const PlaceOptions& place, bool project, Prompt& prompt);

/// The filter of a page for a choice; without one, the filter that the page has.
[[nodiscard]] PageFilter pageFilter(const PageSession& page, std::optional<FilterChoice> choice);

/// The word of a filter in the output.
[[nodiscard]] const char* filterName(PageFilter filter);

} // namespace partwright::cli
