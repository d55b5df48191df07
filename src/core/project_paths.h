#pragma once

// Where the files of a run stand: what the command line and the settings say, and the full paths
// that follow from it (paths.h works them out).

#include "core/records.h"

#include <cstdint>
#include <string>
#include <type_traits>

namespace partwright {

struct ProjectPaths {
    std::int32_t hostTool = 0;
    std::wstring libraryFolder;
    std::wstring projectInputFolder;
    std::wstring projectInputPath;
    /// Part of the names of the design libraries.
    std::wstring projectName;
    std::wstring programFolder;
    std::wstring publicLibraryFolder;
    std::wstring datasheetFolder;

    std::wstring sdtaPropertyLibraryPath;
    std::wstring sdtaValidationRulesPath;
    std::wstring sdtaThermalValidationPath;
    std::wstring descrRulesPath;
    std::wstring descrRulesSdtaTypesPath;
    std::wstring groupLibraryPath;
    std::wstring managementTablePath;
    std::wstring sdtaDefaultLParPath;
    std::wstring asrPropertyLibraryPath;
    std::wstring asrDefaultLParPath;
    std::wstring publicSdtaLibraryPath;
    std::wstring publicAsrLibraryPath;
    std::wstring sdtaLibraryPath;
    std::wstring asrLibraryPath;

    /// The library files of a kind.
    template <class Record>
    [[nodiscard]] const std::wstring& designPath() const {
        if constexpr (std::is_same_v<Record, SdtaComponent>)
            return sdtaLibraryPath;
        else
            return asrLibraryPath;
    }
    template <class Record>
    [[nodiscard]] const std::wstring& publicPath() const {
        if constexpr (std::is_same_v<Record, SdtaComponent>)
            return publicSdtaLibraryPath;
        else
            return publicAsrLibraryPath;
    }

    // Settled like the others, and read by nothing yet: the host knows a table and a folder more.
    std::wstring sdtaPropertyPath;
    std::wstring hostLibFolder;
};

} // namespace partwright
