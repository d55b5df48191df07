#pragma once

// The folders that a desktop gives a user for the files of programs.

#include <string>

namespace partwright {

/// The path in a variable of the environment; empty when it is not set.
[[nodiscard]] std::wstring environmentPath(const char* variable);

/// For settings: $XDG_CONFIG_HOME, else ".config" in the home folder; empty when there is neither.
[[nodiscard]] std::wstring userConfigFolder();
/// For what a program remembers between its runs: $XDG_STATE_HOME, else ".local/state" in the home
/// folder; empty when there is neither.
[[nodiscard]] std::wstring userStateFolder();

} // namespace partwright
