#include "core/application.h"

#include "core/completion.h"
#include "core/library_kind.h"
#include "core/text.h"
#include "core/vocabulary.h"

#include <algorithm>

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

std::int32_t positionOf(const std::vector<std::wstring>& names, std::wstring_view name,
                        std::size_t from) {
    for (std::size_t i = from; i < names.size(); ++i)
        if (names[i] == name)
            return static_cast<std::int32_t>(i);
    return 0;
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

CPartwrightPlugInApp::CPartwrightPlugInApp()
    : sdtaGroupNames{std::wstring(notDefinedName)}, asrGroupNames{std::wstring(notDefinedName)},
      sdtaDefaultTypes(lastSdtaGroup + 1, 1), asrDefaultTypes(lastAsrGroup + 1, 1) {}

wchar_t CPartwrightPlugInApp::decimalMark() const {
    return decimalPoint.empty() ? L'.' : decimalPoint.front();
}

wchar_t CPartwrightPlugInApp::writtenSeparator() const {
    return decimalMark() == L'.' ? L',' : L';';
}

std::pair<std::wstring_view, std::wstring_view>
CPartwrightPlugInApp::GroupAndTypeNames(std::int32_t group, std::int32_t type) const {
    return namesOf<SdtaComponent>(*this, group, type);
}

std::pair<std::wstring_view, std::wstring_view>
CPartwrightPlugInApp::AsrGroupAndTypeNames(std::int32_t group, std::int32_t type) const {
    return namesOf<AsrComponent>(*this, group, type);
}

const SdtaPropertyRow* CPartwrightPlugInApp::FindSdtaPropertyRow(std::wstring_view groupName,
                                                                 std::wstring_view typeName) const {
    return findRow<SdtaComponent>(*this, groupName, typeName);
}

const AsrPropertyRow* CPartwrightPlugInApp::FindAsrPropertyRow(std::wstring_view groupName,
                                                               std::wstring_view typeName) const {
    return findRow<AsrComponent>(*this, groupName, typeName);
}

std::int32_t CPartwrightPlugInApp::GroupNumber(std::wstring_view groupName) const {
    return positionOf(sdtaGroupNames, groupName, 0);
}

std::int32_t CPartwrightPlugInApp::AsrGroupNumber(std::wstring_view groupName) const {
    return positionOf(asrGroupNames, groupName, 1);
}

void CPartwrightPlugInApp::rebuildSdtaGroups() {
    sdtaGroupNames.assign(1, std::wstring(notDefinedName));
    for (const auto& [code, name] : groupNamesByCode)
        sdtaGroupNames.push_back(name);
    sdtaGroupTypes = buildTypes(sdtaGroupNames, lastSdtaTypeGroup, TypeTableOfSdtaGroup);
}

void CPartwrightPlugInApp::rebuildAsrTypes() {
    asrGroupTypes = buildTypes(asrGroupNames, lastAsrGroup, TypeTableOfAsrGroup);
}

std::wstring CPartwrightPlugInApp::ProjectValue(std::wstring_view referenceDesignator,
                                                std::wstring_view columnName) const {
    const auto entry = projectEntries.find(referenceDesignator);
    if (entry == projectEntries.end())
        return {};
    const auto& values = entry->second.values;
    auto value = values.find(columnName);
    if (value == values.end())
        value = values.find(upperCase(columnName));
    if (value == values.end() || value->second == L"-" || value->second == emptyMark)
        return {};
    std::wstring result;
    for (const wchar_t c : value->second) {
        const auto low = static_cast<std::uint32_t>(c) & 0xFFU;
        if (low >= 32 && low != 127 && low != 152 && low != 160 && low != 173)
            result.push_back(c);
    }
    return result;
}

void CPartwrightPlugInApp::UpdateCompletion(SdtaComponent& record) const {
    CompletionRules<SdtaComponent>(*this, record.group).update(record);
}

void CPartwrightPlugInApp::UpdateCompletion(AsrComponent& record) const {
    CompletionRules<AsrComponent>(*this, record.group).update(record);
}

template <class Record>
const typename Kind<Record>::Row* findRow(const CPartwrightPlugInApp& app,
                                          std::wstring_view groupName, std::wstring_view typeName) {
    const auto& rows = Kind<Record>::properties(app);
    if (rows.empty())
        return nullptr;
    if (typeName == defaultTypeName) {
        const auto types = Kind<Record>::groupTypes(app).find(groupName);
        const std::int32_t group = positionOf(Kind<Record>::groupNames(app), groupName, 0);
        const auto& defaults = Kind<Record>::defaultTypes(app);
        if (group != 0 && types != Kind<Record>::groupTypes(app).end() &&
            static_cast<std::size_t>(group) < defaults.size()) {
            const auto position =
                static_cast<std::size_t>(defaults[static_cast<std::size_t>(group)]);
            if (position < types->second.size())
                typeName = types->second[position].name;
        }
    }
    const std::wstring group(groupName);
    auto row = rows.find({group, std::wstring(cutAtAngle(typeName))});
    if (row == rows.end())
        row = rows.find({group, std::wstring(defaultTypeName)});
    return row == rows.end() ? nullptr : &row->second;
}

template const SdtaPropertyRow* findRow<SdtaComponent>(const CPartwrightPlugInApp&,
                                                       std::wstring_view, std::wstring_view);
template const AsrPropertyRow* findRow<AsrComponent>(const CPartwrightPlugInApp&, std::wstring_view,
                                                     std::wstring_view);

} // namespace partwright
