#pragma once

// As few tables as a library needs to be read and written, so that a start takes no time.

#include "support/places.h"
#include "support/temp_folder.h"

#include <string>

namespace partwright::test {

/// Their folder, made inside of the given one.
inline std::string minimalTables(const TempFolder& folder) {
    const std::filesystem::path tables = folder.path() / "tables";
    std::filesystem::create_directories(tables);
    for (const char* name : {"DescrRules.csv", "Property_SDTA_Library.csv",
                             "Property_ASR_Library.csv", "LibColVisibility_Ext.csv"})
        std::filesystem::create_symlink(std::filesystem::path(places::tables) / name,
                                        tables / name);
    return tables.string();
}

} // namespace partwright::test
