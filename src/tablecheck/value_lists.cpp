#include "tablecheck/value_lists.h"

#include "core/library_kind.h"
#include "core/vocabulary.h"

namespace partwright {

namespace {

using List = std::vector<std::wstring_view>;

List listOf(Names names) {
    return {names.begin(), names.end()};
}

/// A custom capacitor is built like one of the named types.
List processes(std::int32_t group) {
    List names;
    for (const TypeName& type : TypeTableOfSdtaGroup(group))
        if (type.name != defaultTypeName && type.name != customTypeName)
            names.push_back(type.name);
    return names;
}

} // namespace

template <>
List valueList<SdtaComponent>(std::int32_t group, std::size_t parameter) {
    constexpr std::int32_t lastCircuitGroup = 2;
    const Names columns = ColumnsOfSdtaGroup(group);
    if (parameter < 1 || parameter > columns.size())
        return {};
    const std::wstring_view column = columns[parameter - 1];
    if (column == temperatureReferenceColumn)
        return listOf(temperatureReferences);
    if (column == packageColumn)
        return listOf(group <= lastCircuitGroup ? circuitPackages() : semiconductorPackages());
    return column == processColumn ? processes(group) : List();
}

template <>
List valueList<AsrComponent>(std::int32_t group, std::size_t parameter) {
    for (const OptionColumn& option : optionColumnsOfAsr())
        if (option.group == group && option.parameter == parameter)
            return listOf(option.names);
    return {};
}

} // namespace partwright
