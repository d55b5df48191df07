#pragma once

// What a start makes of the saves that were not carried through (core/recovery.h): the window asks
// about each file, a command refuses or, when told so, completes the save.

#include "core/ports/prompt.h"
#include "core/project_paths.h"

#include <string_view>

namespace partwright {

enum class InterruptedSaves {
    /// Yes completes the save, No leaves the file and the kept text as they are.
    Ask,
    Refuse,
    Complete,
};

/// False when the file must not be read: its save is refused, could not be completed, or is going
/// on at this moment; told in a box. A start that asks always goes on.
[[nodiscard]] bool settleInterruptedSave(std::wstring_view path, InterruptedSaves wanted,
                                         Prompt& prompt);

/// The same for the libraries and the link table of a project, whose paths are known.
[[nodiscard]] bool settleInterruptedSaves(const ProjectPaths& paths, InterruptedSaves wanted,
                                          Prompt& prompt);

} // namespace partwright
