#pragma once

// The project's part list as the host wrote it: one entry a reference designator, its values by the
// header cells of the file.

#include "core/records.h"

#include <cstdint>
#include <map>
#include <string>
#include <string_view>

namespace partwright {

struct PartList {
    /// Rows with SELECT "Yes".
    std::int32_t selectedCount = 0;
    std::wstring columnPartNumber;
    std::wstring columnDescription;
    std::wstring columnCatalogNumber;
    std::wstring columnManufacturer;
    std::map<std::wstring, ProjectEntry, std::less<>> projectEntries;

    /// Value of a placement's column without control and soft characters; empty for "-" and
    /// "Empty".
    [[nodiscard]] std::wstring ProjectValue(std::wstring_view referenceDesignator,
                                            std::wstring_view columnName) const;

    // Read by nothing yet: whether the file was there, and whether the catalogue number stands for
    // the part number when a data sheet is looked for.
    std::int32_t projectInputPresent = 0;
    std::int32_t useCatalogNumber = 0;
};

} // namespace partwright
