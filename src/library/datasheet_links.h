#pragma once

// The links from parts to their data sheets: DataSheetLinkTable.csv beside the design libraries,
// a rule table with the columns "PartNum" and "FileName", in which apostrophes and quotes belong to
// the names. A file name is relative to the folder of data sheets. The table is written whole; one
// that is there and could not be read or understood is never written over, and its lines without a
// link stay in it.

#include "core/libraries.h"
#include "core/project_paths.h"
#include "library/load_result.h"
#include "library/save_result.h"

#include <string>

namespace partwright {

[[nodiscard]] std::wstring datasheetLinksPath(const ProjectPaths& paths);

/// Fills libraries.datasheetLinks; an absent table leaves it as it is.
LoadResult LoadDatasheetLinks(const ProjectPaths& paths, Libraries& libraries);

/// Writes the links that name a file. The table keeps the form it has on disk, unless that cannot
/// hold a character: then it becomes UTF-8.
[[nodiscard]] SaveResult SaveDatasheetLinks(const ProjectPaths& paths, Libraries& libraries,
                                            SaveChoices choices = {});

} // namespace partwright
