#pragma once

// The definition tables of one kind of library: its groups, their types, what a pair of group and
// type calls its parameters, and default values. The loaders that fill them are in library/.
//
// A pair of group and type is named by GroupAndTypeNames and described by a property row. Numbers
// out of range never fail: they are named "Not defined" and "Default".

#include "core/classifier_tables.h"
#include "core/library_kind.h"
#include "core/records.h"

#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace partwright {

/// A group that the program has columns for, and its table has no valid row.
struct GroupGap {
    std::int32_t code = 0;
    /// Of the table, where the gap shows; 0 when it shows nowhere.
    std::size_t line = 0;
};

/// What one kind alone has.
template <class Record>
struct OwnDefinitions {};

template <>
struct OwnDefinitions<AsrComponent> {
    FamilyGroups familyGroups;
    std::map<std::int32_t, std::wstring> groupFamily;
    std::map<std::int32_t, std::wstring> groupNamesByCode;
    std::map<std::int32_t, LevelColumns> columnsForRapid;
    std::map<std::int32_t, LevelColumns> columnsForAsr;
};

template <class Record>
struct Definitions : OwnDefinitions<Record> {
    using Row = typename Kind<Record>::Row;

    Definitions();

    std::map<PropertyKey, Row> properties;
    /// Raised by each reading of the property rows: what was worked out from others is stale.
    std::uint32_t propertiesRead = 0;
    std::vector<std::wstring> groupNames;
    /// With a gap, records would be written under other groups than theirs.
    std::optional<GroupGap> gap;
    std::map<std::wstring, std::vector<TypeEntry>, std::less<>> groupTypes;
    /// The type that "Default" stands for, by group number.
    std::vector<std::int16_t> defaultTypes;
    std::map<GroupAndType, Record> defaultLPar;

    /// The types of a group by position; none for a number out of range.
    [[nodiscard]] std::span<const TypeEntry> typesOf(std::int32_t group) const;

    /// (group name, type name): "Not defined" and "Default" for what is out of range.
    [[nodiscard]] std::pair<std::wstring_view, std::wstring_view>
    GroupAndTypeNames(std::int32_t group, std::int32_t type) const;

    /// The property row that serves a pair of names; null when none does.
    [[nodiscard]] const Row* FindPropertyRow(std::wstring_view groupName,
                                             std::wstring_view typeName) const;

    /// A group that the pages list and parts can have; numbers that name none, and codes that the
    /// tables keep without a name, are "Not defined" to them.
    [[nodiscard]] bool isInUse(std::int32_t group) const;

    /// Position in the group list; 0 when absent.
    [[nodiscard]] std::int32_t GroupNumber(std::wstring_view groupName) const;

    /// Makes the type lists for the names in groupNames.
    void rebuildTypes();
};

extern template struct Definitions<SdtaComponent>;
extern template struct Definitions<AsrComponent>;

/// The list of SDTA groups and its type lists, from groupNamesByCode.
void rebuildSdtaGroups(const ClassifierTables& classifier, Definitions<SdtaComponent>& sdta);

} // namespace partwright
