#pragma once

// The plain data of the program: component records, property rows, project entries and the rows of
// the small tables. They own their texts by value and have no behaviour; definitions.h looks things
// up in them.
//
// A record holds parameter values as text in LPar slots. LPar n is slot n - 1, and what it means is
// the n-th column of the record's group (vocabulary.h). The special texts are those of cell_text.h.

#include <array>
#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace partwright {

/// What the records of both libraries have in common.
struct ComponentFields {
    std::wstring PartNum;
    std::wstring CatNum;
    std::wstring Description;
    std::wstring Notes;
    std::wstring Manufacturer;
    /// Position in the group list of the library's kind; 0 is "Not defined", below 0 is deleted.
    std::int32_t group = 0;
    /// Position in the family list.
    std::int32_t family = 0;
    /// Position in the group's type list; 0 stands for the group's default type.
    std::int32_t type = 0;
    /// 1 when every column of the group is filled.
    std::int32_t completed = 0;
    friend bool operator==(const ComponentFields&, const ComponentFields&) = default;
};

struct SdtaComponent : ComponentFields {
    std::array<std::wstring, 16> LPar;
    friend bool operator==(const SdtaComponent&, const SdtaComponent&) = default;
};

struct AsrComponent : ComponentFields {
    /// 1 when every column marked for the Rapid level is filled.
    std::int32_t completedForRapid = 0;
    /// 1 when every column marked for the ASR level is filled.
    std::int32_t completedForAsr = 0;
    std::array<std::wstring, 26> LPar;
    friend bool operator==(const AsrComponent&, const AsrComponent&) = default;
};

/// A library: part number to record, one record a key.
using SdtaLibrary = std::map<std::wstring, SdtaComponent, std::less<>>;
using AsrLibrary = std::map<std::wstring, AsrComponent, std::less<>>;

/// What a pair of group and type calls its parameters. Slot n belongs to LPar n; slot 0 is unused.
template <std::size_t Slots>
struct PropertyRow {
    static constexpr std::int32_t noValidation = -1000;

    std::wstring group;
    std::wstring groupDescription;
    std::wstring type;
    std::array<std::wstring, Slots> names;
    std::array<std::wstring, Slots> messages;
    std::array<std::int32_t, Slots> valid;

    PropertyRow() { valid.fill(noValidation); }
};
using SdtaPropertyRow = PropertyRow<15>;
using AsrPropertyRow = PropertyRow<25>;

/// (group name, type name) to row.
using PropertyKey = std::pair<std::wstring, std::wstring>;
using SdtaProperties = std::map<PropertyKey, SdtaPropertyRow>;
using AsrProperties = std::map<PropertyKey, AsrPropertyRow>;

/// One entry of a type list: the name, and the text that a list shows.
struct TypeEntry {
    std::wstring name;
    std::wstring display;
};

/// One placement of the project's part list.
struct ProjectEntry {
    /// Header cell to field text, as the file has it.
    std::map<std::wstring, std::wstring, std::less<>> values;
    /// 1 when the designer selected the placement.
    std::int32_t selected = 0;
};

/// Part number, in capitals, to the designators that carry it, joined by ",".
using PartSelection = std::map<std::wstring, std::wstring, std::less<>>;

/// Part number to the file of its data sheet.
using DatasheetLinks = std::map<std::wstring, std::wstring, std::less<>>;

/// A group of an Analyses family.
struct FamilyGroup {
    std::int32_t code = 0;
    std::wstring name;
};

/// Family key to its groups.
using FamilyGroups = std::map<std::wstring, std::vector<FamilyGroup>, std::less<>>;

/// Flags by LPar number, from 1: the columns that an analysis level needs.
using LevelColumns = std::array<std::int32_t, 25>;

/// (group, type) to default values, held as a record.
using GroupAndType = std::pair<std::int32_t, std::int32_t>;

/// A text that settles group and type of a part by itself.
struct DirectKey {
    std::int32_t group = 0;
    std::int32_t type = 0;
    std::wstring text;
    std::wstring typeName;
};

/// A group code of one numbering and the common code it shares with the other.
struct BiCodeEntry {
    std::int32_t code = 0;
    std::int32_t family = 0;
    std::int32_t commonCode = 0;
};

/// The tests of one group over a description.
struct GroupRule {
    std::wstring rules;
    std::wstring excluding;
    friend bool operator==(const GroupRule&, const GroupRule&) = default;
};

} // namespace partwright
