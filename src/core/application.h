#pragma once

// The application object: the one owner of all tables and all libraries of a run, made before
// start-up and passed to whoever needs it. It offers the lookups over its tables; the loaders that
// fill them are in library/, the compiled and prepared tables of the auto-fill engine belong to
// the engine itself (autofill/).
//
// A pair of group and type is named by GroupAndTypeNames and described by a property row. Numbers
// out of range never fail: they are named "Not defined" and "Default".

#include "core/load_report.h"
#include "core/records.h"
#include "core/text_file.h"

#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace partwright {

/// What the records read from an SDTA library file depend on, beside the property rows.
struct SdtaReading {
    std::wstring path;
    CodePage codePage = CodePage::Utf8;
    wchar_t decimalMark = L'.';
    std::vector<std::wstring> groupNames;
    std::string bytes;
    friend bool operator==(const SdtaReading&, const SdtaReading&) = default;
};

class CPartwrightPlugInApp {
public:
    CPartwrightPlugInApp();

    /// Decimal mark of the user's locale; it also picks the separator of written libraries.
    std::wstring decimalPoint = L".";
    std::int32_t hostTool = 0;
    std::int32_t startPage = 0;
    std::int32_t analysisLevel = 0;
    std::int32_t selectedCount = 0;
    std::wstring libraryFolder;
    std::wstring projectInputFolder;
    std::int32_t projectInputPresent = 0;
    std::wstring projectInputPath;
    std::wstring projectName;
    std::wstring columnPartNumber;
    std::wstring columnDescription;
    std::wstring columnCatalogNumber;
    std::wstring columnManufacturer;
    std::wstring programFolder;

    std::wstring sdtaPropertyPath;
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
    std::wstring hostLibFolder;
    std::wstring publicLibraryFolder;
    std::wstring datasheetFolder;

    SdtaProperties sdtaProperties;
    AsrProperties asrProperties;
    std::vector<std::wstring> sdtaGroupNames;
    std::vector<std::wstring> asrGroupNames;
    std::map<std::wstring, std::vector<TypeEntry>, std::less<>> sdtaGroupTypes;
    std::map<std::wstring, std::vector<TypeEntry>, std::less<>> asrGroupTypes;
    FamilyGroups asrFamilyGroups;
    std::map<std::int32_t, std::wstring> asrGroupFamily;
    std::map<std::int32_t, LevelColumns> asrColumnsForRapid;
    std::map<std::int32_t, LevelColumns> asrColumnsForAsr;
    /// The type that "Default" stands for, by group number.
    std::vector<std::int16_t> sdtaDefaultTypes;
    std::vector<std::int16_t> asrDefaultTypes;
    SdtaLibrary sdtaDesignLibrary;
    SdtaLibrary sdtaPublicLibrary;
    AsrLibrary asrDesignLibrary;
    AsrLibrary asrPublicLibrary;
    std::map<std::wstring, ProjectEntry, std::less<>> projectEntries;
    std::map<std::int32_t, std::wstring> asrGroupNamesByCode;
    std::map<GroupAndType, SdtaComponent> sdtaDefaultLPar;
    std::map<GroupAndType, AsrComponent> asrDefaultLPar;
    /// Method number (14 or 20) to rows in file order.
    std::map<std::int32_t, std::vector<DirectKey>> DirectKeyTable;
    std::map<std::int32_t, std::vector<BiCodeEntry>> convBiCode;
    std::int32_t useCatalogNumber = 0;
    /// The classification rules of the SDTA groups, by BiCod.
    std::map<std::int32_t, GroupRule> GroupRuleTable;
    std::map<std::int32_t, std::wstring> GroupRefDesTable;
    std::map<std::int32_t, std::wstring> groupNamesByCode;

    DatasheetLinks datasheetLinks;

    /// What the master copies were read from. Whoever changes a master copy or the property rows
    /// forgets them.
    std::optional<SdtaReading> sdtaDesignReading;
    std::optional<SdtaReading> sdtaPublicReading;
    void forgetReadings() { sdtaDesignReading = sdtaPublicReading = std::nullopt; }

    /// What was not taken of the four library files and of the link table, by path.
    std::map<std::wstring, LoadReport, std::less<>> loadReports;

    [[nodiscard]] wchar_t decimalMark() const;
    /// "," when the decimal mark is ".", otherwise ";".
    [[nodiscard]] wchar_t writtenSeparator() const;

    /// (group name, type name) of an SDTA pair.
    [[nodiscard]] std::pair<std::wstring_view, std::wstring_view>
    GroupAndTypeNames(std::int32_t group, std::int32_t type) const;
    /// The same for an Analyses pair.
    [[nodiscard]] std::pair<std::wstring_view, std::wstring_view>
    AsrGroupAndTypeNames(std::int32_t group, std::int32_t type) const;

    /// Null when no row serves the pair.
    [[nodiscard]] const SdtaPropertyRow* FindSdtaPropertyRow(std::wstring_view groupName,
                                                             std::wstring_view typeName) const;
    [[nodiscard]] const AsrPropertyRow* FindAsrPropertyRow(std::wstring_view groupName,
                                                           std::wstring_view typeName) const;

    /// Position in the SDTA group list; 0 when absent.
    [[nodiscard]] std::int32_t GroupNumber(std::wstring_view groupName) const;
    [[nodiscard]] std::int32_t AsrGroupNumber(std::wstring_view groupName) const;

    /// Rebuilds sdtaGroupNames from groupNamesByCode and then sdtaGroupTypes.
    void rebuildSdtaGroups();
    /// Rebuilds asrGroupTypes for the names in asrGroupNames.
    void rebuildAsrTypes();

    /// Value of a placement's column without control and soft characters; empty for "-" and
    /// "Empty".
    [[nodiscard]] std::wstring ProjectValue(std::wstring_view referenceDesignator,
                                            std::wstring_view columnName) const;

    /// Recomputes the completion flag(s), and sets "N/A" where an empty value does not apply. Run
    /// it after every change of a record; use CompletionRules (completion.h) for many records.
    void UpdateCompletion(SdtaComponent& record) const;
    void UpdateCompletion(AsrComponent& record) const;
};

} // namespace partwright
