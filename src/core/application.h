#pragma once

// The application object: the one owner of all tables and all libraries of a run, made before
// start-up and passed to whoever needs it. It is a handful of values, and who needs one of them
// only is handed that one, so that a signature tells what may be touched:
//
//   paths        where files stand, and the project's name        ProjectPaths
//   partList     the project's parts                              PartList
//   sdta, asr    groups, types and parameters of either kind      Definitions<Record>
//   classifier   how a part finds its group and type              ClassifierTables
//   libraries    the records, the links to data sheets, faults    Libraries
//
// The definitions of a kind have one set of names: what the tables call sdtaGroupNames and
// asrGroupNames is sdta.groupNames and asr.groupNames, FindSdtaPropertyRow is sdta.FindPropertyRow.
// Code that serves both kinds asks of<Record>(). The compiled and prepared tables of the auto-fill
// engine belong to the engine itself (autofill/).

#include "core/load_report.h"
#include "core/records.h"
#include "core/text_file.h"

#include <cstdint>
#include <string>
#include <type_traits>

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
    /// Decimal mark of the user's locale; it also picks the separator of written libraries.
    std::wstring decimalPoint = L".";
    /// What the command line says of the window.
    std::int32_t startPage = 0;
    std::int32_t analysisLevel = 0;

    ProjectPaths paths;
    PartList partList;
    Definitions<SdtaComponent> sdta;
    Definitions<AsrComponent> asr;
    ClassifierTables classifier;
    Libraries libraries;

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
};

} // namespace partwright
