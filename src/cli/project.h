#pragma once

// A project opened from the command line: the application, the engine and both pages, started in
// the order of the window.

#include "autofill/fill_engine.h"
#include "cli/commands.h"
#include "cli/console.h"
#include "core/application.h"
#include "core/system_clock.h"
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

    /// False when the input folder that was named holds no part list, or one without a header line:
    /// what a command answers would be about nothing. Told on the error stream.
    [[nodiscard]] bool isThere() const { return isThere_; }
    /// Says on the error stream how many records of which files the command looked at.
    void tellLookedAt(bool sdta = true, bool analyses = true);

    CPartwrightPlugInApp app;
    ConsolePrompt prompt;
    FillEngine engine;
    MainSession session;

private:
    SystemClock clock_;
    bool isThere_ = false;
};

/// The folders that the options name are all there, those of a project only where a command opens
/// one; what is not there is told.
[[nodiscard]] bool foldersAreThere(const PlaceOptions& place, bool project, Prompt& prompt);

/// The filter of a page for a choice; without one, the filter that the page has.
[[nodiscard]] PageFilter pageFilter(const PageSession& page, std::optional<FilterChoice> choice);

/// The word of a filter in the output.
[[nodiscard]] const char* filterName(PageFilter filter);

} // namespace partwright::cli
