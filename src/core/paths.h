#pragma once

// Where everything stands. Tables stand beside the program, in a folder that depends on the design
// tool; the design libraries stand in the project's library folder under the project's name; the
// public libraries in a shared folder that a setting names.

#include "core/project_paths.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace partwright {

#ifdef _WIN32
inline constexpr wchar_t pathSeparator = L'\\';
#else
inline constexpr wchar_t pathSeparator = L'/';
#endif

[[nodiscard]] bool isPathSeparator(wchar_t c);

/// The path with a separator at its end; an empty path stays empty.
[[nodiscard]] std::wstring withSeparator(std::wstring_view folder);

/// The path with a separator at its end when it names a folder; any other text, which may be the
/// first half of a file's path, stays as it is.
[[nodiscard]] std::wstring asFolder(std::wstring_view path);

/// Full path of the running program; empty when the system does not tell.
[[nodiscard]] std::wstring programPath();

/// Folder of the tables, with its separator, for a program at `program`. Tools 1 and 2 keep their
/// programs one folder below the tables, tool 2 the tables in "ComServ_Dorvane" beside them; tool 3
/// keeps them together.
[[nodiscard]] std::wstring programFolderFor(std::wstring_view program, std::int32_t hostTool);

/// Fills every path from programFolder, libraryFolder and projectName, and
/// publicLibraryFolder from the settings. With `publicFolder` the setting is not asked.
void ResolveFilePaths(ProjectPaths& paths, std::wstring_view publicFolder = {});

/// The part of that work for the Analyses library.
void ResolveAnalysesFilePaths(ProjectPaths& paths);

/// Decimal mark of the user's locale.
[[nodiscard]] std::wstring localeDecimalPoint();

} // namespace partwright
