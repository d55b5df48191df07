#pragma once

// Shows a part's data sheet with the desktop's program for it. A link is relative to the folder of
// data sheets; it may separate its folders by "\" or by "/", since the link table travels between
// systems.

#include "core/ports/opener.h"
#include "core/ports/prompt.h"
#include "core/project_paths.h"

#include <string_view>

namespace partwright {

/// An empty name does nothing; a folder or a file that is not there is told in a box.
void OpenDatasheet(const ProjectPaths& paths, std::wstring_view fileName, Prompt& prompt,
                   Opener& opener);

} // namespace partwright
