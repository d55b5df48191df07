#include "core/definitions.h"

#include "core/text.h"

#include <algorithm>
#include <type_traits>

namespace partwright {

namespace {

/// Type lists by group name, for the groups 1 to `last`; position 0 is always there.
template <class Table>
auto buildTypes(const std::vector<std::wstring>& groupNames, std::int32_t last, Table typesOf) {
    std::map<std::wstring, std::vector<TypeEntry>, std::less<>> result;
    const auto count = std::min(groupNames.size(), static_cast<std::size_t>(last) + 1);
    for (std::size_t group = 0; group < count; ++group) {
        std::vector<TypeEntry> entries;
        for (const TypeName& type : typesOf(static_cast<std::int32_t>(group))) {
            TypeEntry entry{std::wstring(type.name), std::wstring(type.description)};
            if (!entries.empty()) // the first one shows its second text alone
                entry.display = entry.name + L" <" + entry.display + L">";
            entries.push_back(std::move(entry));
        }
        result[groupNames[group]] = std::move(entries);
    }
    return result;
}

/// Text before the second "<", or before the only one.
std::wstring_view cutAtAngle(std::wstring_view typeName) {
    const auto first = typeName.find(L'<');
    if (first == std::wstring_view::npos)
        return typeName;
    const auto second = typeName.find(L'<', first + 1);
    return trim(typeName.substr(0, second == std::wstring_view::npos ? first : second));
}

} // namespace

template <class Record>
Definitions<Record>::Definitions()
    : groupNames{std::wstring(notDefinedName)},
      defaultTypes(static_cast<std::size_t>(Kind<Record>::lastGroup) + 1, 1) {}

template <class Record>
std::span<const TypeEntry> Definitions<Record>::typesOf(std::int32_t group) const {
    const auto types = groupTypes.find(GroupAndTypeNames(group, 0).first);
    return types == groupTypes.end() ? std::span<const TypeEntry>() : types->second;
}

template <class Record>
std::pair<std::wstring_view, std::wstring_view>
Definitions<Record>::GroupAndTypeNames(std::int32_t group, std::int32_t type) const {
    if (group < 0 || static_cast<std::size_t>(group) >= groupNames.size())
        return {notDefinedName, defaultTypeName};
    const std::wstring_view groupName = groupNames[static_cast<std::size_t>(group)];
    const auto types = groupTypes.find(groupName);
    if (types == groupTypes.end() || type < 0 ||
        static_cast<std::size_t>(type) >= types->second.size())
        return {groupName, defaultTypeName};
    return {groupName, types->second[static_cast<std::size_t>(type)].name};
}

template <class Record>
const typename Definitions<Record>::Row*
Definitions<Record>::FindPropertyRow(std::wstring_view groupName,
                                     std::wstring_view typeName) const {
    if (properties.empty())
        return nullptr;
    if (typeName == defaultTypeName) {
        const auto types = groupTypes.find(groupName);
        const std::int32_t group = GroupNumber(groupName);
        if (group != 0 && types != groupTypes.end() &&
            static_cast<std::size_t>(group) < defaultTypes.size()) {
            const auto position =
                static_cast<std::size_t>(defaultTypes[static_cast<std::size_t>(group)]);
            if (position < types->second.size())
                typeName = types->second[position].name;
        }
    }
    const std::wstring group(groupName);
    auto row = properties.find({group, std::wstring(cutAtAngle(typeName))});
    if (row == properties.end())
        row = properties.find({group, std::wstring(defaultTypeName)});
    return row == properties.end() ? nullptr : &row->second;
}

template <class Record>
bool Definitions<Record>::isInUse(std::int32_t group) const {
    return group > 0 && static_cast<std::size_t>(group) < groupNames.size() &&
           groupNames[static_cast<std::size_t>(group)].find(notApplicableGroup) ==
               std::wstring::npos;
}

template <class Record>
std::int32_t Definitions<Record>::GroupNumber(std::wstring_view groupName) const {
    const auto found = std::find(groupNames.begin(), groupNames.end(), groupName);
    return found == groupNames.end() ? 0 : static_cast<std::int32_t>(found - groupNames.begin());
}

template <class Record>
void Definitions<Record>::rebuildTypes() {
    if constexpr (std::is_same_v<Record, SdtaComponent>)
        groupTypes = buildTypes(groupNames, lastSdtaTypeGroup, TypeTableOfSdtaGroup);
    else
        groupTypes = buildTypes(groupNames, lastAsrGroup, TypeTableOfAsrGroup);
}

template struct Definitions<SdtaComponent>;
template struct Definitions<AsrComponent>;

void rebuildSdtaGroups(const ClassifierTables& classifier, Definitions<SdtaComponent>& sdta) {
    sdta.groupNames.assign(1, std::wstring(notDefinedName));
    for (const auto& [code, name] : classifier.groupNamesByCode)
        sdta.groupNames.push_back(name);
    sdta.rebuildTypes();
}

} // namespace partwright
