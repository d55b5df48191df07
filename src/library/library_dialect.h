#pragma once

// The library file, and in what its two kinds differ.
//
//   sep=,
//   |, FLIB, ~, ~, ... L, |
//   |,
//   |, File: /projects/board/SDTALib_Board.csv
//   |, Project: SDTA Library
//   |,
//   *,PMET,FAMILY,GROUP,PART#,CAT#,DESCR,Type,Pw-RT,...,Manufacturer,Notes,Color,*
//   >,SDTA-M, Diode,Diode Rectifier,"""1N4148""","""""","""100 V""",DiodeRect,0.5,...,"""""",,<
//   |,
//   |,End of File
//
// Only rows count on reading: the first field's mark tells them. Line 1 is never a row. Seven cells
// stand by position behind the mark, the values behind them by the columns of the group, and the
// maker and the notes where the latest header row says.
//
// Reader and writer are written once over the record type; Dialect<Record> answers what differs,
// beside the numbers and names of Kind<Record>.

#include "core/definitions.h"
#include "core/project_paths.h"
#include "core/text.h"

#include <array>
#include <string_view>

namespace partwright {

namespace library_file {

inline constexpr char headerMark = '*';
inline constexpr char rowMark = '>';
inline constexpr char rowEnd = '<';

/// Cells behind the row mark.
enum Cell : std::size_t {
    rowKind,
    familyName,
    groupName,
    partNumber,
    catalogNumber,
    description,
    typeName,
    firstValue
};

inline constexpr std::array<std::wstring_view, firstValue> cellNames = {
    L"PMET", L"FAMILY", L"GROUP", L"PART#", L"CAT#", L"DESCR", L"Type"};
inline constexpr std::wstring_view makerColumn = L"Manufacturer";
inline constexpr std::wstring_view notesColumn = L"Notes";
inline constexpr std::wstring_view colorColumn = L"Color";

/// A column of the Analyses library whose values are pins.
[[nodiscard]] inline bool isPinColumn(std::wstring_view column) {
    return column.find(L"Pin") != std::wstring_view::npos;
}

/// Name of a type; for "Default", of the type that stands behind it, where the group has one.
template <class Record>
[[nodiscard]] std::wstring_view typeBehindDefault(const Definitions<Record>& definitions,
                                                  std::int32_t group) {
    const auto& defaults = definitions.defaultTypes;
    if (group <= 0 || static_cast<std::size_t>(group) >= defaults.size())
        return defaultTypeName;
    return definitions.GroupAndTypeNames(group, defaults[static_cast<std::size_t>(group)]).second;
}

} // namespace library_file

template <class Record>
struct Dialect;

template <>
struct Dialect<SdtaComponent> {
    static constexpr std::wstring_view rowKind = L"SDTA-M";
    static constexpr std::wstring_view title = L"SDTA Library";
    static constexpr std::wstring_view beforeFamily = L" ";
    /// Reading: keys become capital letters, and no group's rows are dropped.
    static constexpr bool readsUpperCase = true;
    static constexpr std::wstring_view droppedGroup = {};
    /// Reading: the family cell counts for a record without a group.
    static constexpr bool readsFamily = true;
    /// Writing: a deleted record is left out; maker and notes stand in three quotes.
    static constexpr bool writesDeleted = false;
    static constexpr bool quotesNotes = true;
    /// A value is stored as it is, pins included.
    static constexpr bool encodesValues = false;

    static bool knowsGroups(const Definitions<SdtaComponent>& sdta) {
        return sdta.groupNames.size() > 1;
    }
    /// Where the names of the groups come from.
    static const std::wstring& groupTable(const ProjectPaths& paths) {
        return paths.descrRulesPath;
    }
    static std::wstring_view family(const Definitions<SdtaComponent>&, std::int32_t group) {
        return Kind<SdtaComponent>::family(group);
    }
    static std::wstring_view type(const Definitions<SdtaComponent>& sdta, std::int32_t group,
                                  std::int32_t type) {
        const auto name = sdta.GroupAndTypeNames(group, type).second;
        return name == defaultTypeName ? library_file::typeBehindDefault(sdta, group) : name;
    }
};

template <>
struct Dialect<AsrComponent> {
    static constexpr std::wstring_view rowKind = L"DORVANE";
    static constexpr std::wstring_view title = L"Analyses Library";
    static constexpr std::wstring_view beforeFamily = {};
    static constexpr bool readsUpperCase = false;
    static constexpr std::wstring_view droppedGroup = L"PCB";
    static constexpr bool readsFamily = false;
    static constexpr bool writesDeleted = true;
    static constexpr bool quotesNotes = false;
    static constexpr bool encodesValues = true;

    /// The two names that are forced into every list say nothing about the table having been read.
    static bool knowsGroups(const Definitions<AsrComponent>& asr) {
        for (std::size_t i = 1; i < asr.groupNames.size(); ++i)
            if (asr.groupNames[i] != notApplicableGroup && asr.groupNames[i] != L"PCB" &&
                asr.groupNames[i] != L"Mechanical")
                return true;
        return false;
    }
    static const std::wstring& groupTable(const ProjectPaths& paths) {
        return paths.asrPropertyLibraryPath;
    }
    static std::wstring_view family(const Definitions<AsrComponent>& asr, std::int32_t group) {
        const auto name = asr.groupFamily.find(group);
        return name == asr.groupFamily.end() ? std::wstring_view() : trim(name->second);
    }
    static std::wstring_view type(const Definitions<AsrComponent>& asr, std::int32_t group,
                                  std::int32_t type) {
        return type == 0 && group != 0 ? library_file::typeBehindDefault(asr, group)
                                       : asr.GroupAndTypeNames(group, type).second;
    }
};

} // namespace partwright
