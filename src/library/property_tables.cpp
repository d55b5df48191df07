#include "library/property_tables.h"

#include "core/cell_text.h"
#include "core/library_kind.h"
#include "core/regular_expression.h"
#include "library/rule_table.h"

#include <algorithm>

namespace partwright {

namespace {

constexpr std::wstring_view groupName = L"GroupName";
constexpr std::wstring_view groupDescription = L"GroupDescription";
constexpr std::wstring_view typeName = L"TypeName";
constexpr std::wstring_view family = L"Family";
constexpr std::wstring_view groupCode = L"BCodeID";
constexpr std::wstring_view visibilityFile = L"LibColVisibility_Ext.csv";

/// Groups of the Analyses library that have a fixed code whatever the table says.
constexpr std::pair<std::int32_t, std::wstring_view> fixedGroups[] = {{29, L"PCB"},
                                                                      {34, L"Mechanical"}};

/// Column names of one parameter.
struct ParameterColumns {
    explicit ParameterColumns(std::size_t number)
        : name(L"LPAR" + std::to_wstring(number) + L".Name"),
          message(L"LPAR" + std::to_wstring(number) + L".Message"),
          valid(L"LPAR" + std::to_wstring(number) + L".Valid") {}
    std::wstring name;
    std::wstring message;
    std::wstring valid;
};

/// The columns of a property table with parameters 1 to `last`.
struct PropertyColumns {
    explicit PropertyColumns(std::size_t last) {
        for (std::size_t number = 1; number <= last; ++number)
            parameters.emplace_back(number);
        names = {family, groupCode, groupName, groupDescription, typeName};
        for (const ParameterColumns& parameter : parameters)
            names.insert(names.end(), {parameter.name, parameter.message, parameter.valid});
    }
    std::vector<ParameterColumns> parameters;
    std::vector<std::wstring_view> names;
};

template <class Row>
void readParameters(const RuleRow& source, const PropertyColumns& columns, Row& row) {
    for (std::size_t i = 0; i < columns.parameters.size(); ++i) {
        const ParameterColumns& parameter = columns.parameters[i];
        row.names[i + 1] = source.text(parameter.name);
        row.messages[i + 1] = source.text(parameter.message);
        const std::wstring* valid = source.find(parameter.valid);
        if (valid != nullptr && *valid != cell::messageNotUsed)
            row.valid[i + 1] = *source.number(parameter.valid);
    }
}

/// False for a row that lacks a part of its key.
template <class Row>
bool readRow(const RuleRow& source, const PropertyColumns& columns, Row& row) {
    const std::wstring* group = source.find(groupName);
    const std::wstring* description = source.find(groupDescription);
    const std::wstring* type = source.find(typeName);
    if (group == nullptr || description == nullptr || type == nullptr)
        return false;
    row.group = *group;
    row.groupDescription = *description;
    row.type = *type;
    readParameters(source, columns, row);
    return true;
}

void storeFamily(CPartwrightPlugInApp& app, const RuleRow& row) {
    const auto code = row.code(groupCode);
    if (!code)
        return;
    const std::wstring name = row.text(groupName);
    const std::wstring familyName = row.text(family);
    auto& groups = app.asrFamilyGroups[familyName];
    if (std::none_of(groups.begin(), groups.end(),
                     [&](const FamilyGroup& group) { return group.code == *code; }))
        groups.push_back({*code, name});
    app.asrGroupFamily[*code] = familyName;
    app.asrGroupNamesByCode[*code] = name;
}

void rebuildAsrGroups(CPartwrightPlugInApp& app) {
    for (const auto& [code, name] : fixedGroups)
        app.asrGroupNamesByCode[code] = name;
    app.asrGroupNames.assign(1, std::wstring(notDefinedName));
    for (const auto& [code, name] : app.asrGroupNamesByCode) {
        app.asrGroupNames.resize(static_cast<std::size_t>(code), std::wstring(notApplicableGroup));
        app.asrGroupNames.push_back(name);
    }
    app.rebuildAsrTypes();
}

void setFlag(LevelColumns& flags, std::optional<std::int32_t> parameter) {
    if (parameter && *parameter > 0 && static_cast<std::size_t>(*parameter) < flags.size())
        flags[static_cast<std::size_t>(*parameter)] = 1;
}

} // namespace

LoadResult LoadSdtaProperties(CPartwrightPlugInApp& app) {
    const PropertyColumns columns(13);
    const RuleTable table = readRuleTable(app.sdtaPropertyLibraryPath, {.columns = columns.names});
    if (table.status == FileStatus::Ok)
        app.sdtaProperties.clear();
    for (const RuleRow& source : table.rows) {
        SdtaPropertyRow row;
        if (readRow(source, columns, row))
            app.sdtaProperties.insert_or_assign({row.group, row.type}, row);
    }
    return resultOf(table, app.sdtaPropertyLibraryPath);
}

LoadResult LoadAsrProperties(CPartwrightPlugInApp& app) {
    if (app.programFolder.empty())
        return {};
    const std::wstring path = app.programFolder + L"Property_ASR_Library.csv";
    const PropertyColumns columns(24);
    const RuleTable table = readRuleTable(path, {.columns = columns.names, .doublesQuotes = true});
    if (table.status != FileStatus::Ok)
        return resultOf(table, path);
    app.asrProperties.clear();
    app.asrFamilyGroups.clear();
    app.asrGroupFamily.clear();
    app.asrGroupNamesByCode.clear();
    for (const RuleRow& source : table.rows) {
        AsrPropertyRow row;
        if (!readRow(source, columns, row))
            continue;
        storeFamily(app, source);
        app.asrProperties.insert_or_assign({row.group, row.type}, row);
    }
    rebuildAsrGroups(app);
    return resultOf(table, path);
}

LoadResult LoadColumnVisibility(CPartwrightPlugInApp& app) {
    constexpr std::wstring_view group = L"GroupID";
    constexpr std::wstring_view rapid = L"LParID_RAPID";
    constexpr std::wstring_view asr = L"LParID_ASR";
    constexpr std::wstring_view columns[] = {group, rapid, asr};
    const std::wstring path = app.programFolder + std::wstring(visibilityFile);
    app.asrColumnsForRapid.clear();
    app.asrColumnsForAsr.clear();
    const RuleTable table = readRuleTable(path, {.columns = columns});
    for (const RuleRow& row : table.rows) {
        const auto code = row.code(group);
        if (!code)
            continue;
        setFlag(app.asrColumnsForRapid.try_emplace(*code, LevelColumns{}).first->second,
                row.number(rapid));
        setFlag(app.asrColumnsForAsr.try_emplace(*code, LevelColumns{}).first->second,
                row.number(asr));
    }
    return resultOf(table, path);
}

LoadResult LoadGroupNames(CPartwrightPlugInApp& app) {
    constexpr std::wstring_view columns[] = {L"BiCod", L"NameGroup", L"Rules", L"RulesExcluding",
                                             L"TipicalRefDes"};
    const RuleTable table = readRuleTable(app.descrRulesPath, {.columns = columns});
    std::map<std::int32_t, GroupRule> ruleOf;
    std::map<std::int32_t, std::wstring> designatorsOf;
    std::map<std::int32_t, std::wstring> nameOf;
    for (const RuleRow& row : table.rows) {
        const auto code = row.code(L"BiCod");
        const std::wstring rules = row.text(L"Rules");
        if (!code || rules.empty() || !ValidateRegularExpression(rules))
            continue;
        ruleOf[*code] = {rules, row.text(L"RulesExcluding")};
        if (std::wstring designators = row.text(L"TipicalRefDes"); !designators.empty())
            designatorsOf[*code] = std::move(designators);
        nameOf[*code] = row.text(L"NameGroup");
    }
    // The table is read more than once in a run. Records in memory stand under the names of the
    // earlier reading; without any they could not be written under their groups.
    if (!nameOf.empty()) {
        app.GroupRuleTable = std::move(ruleOf);
        app.GroupRefDesTable = std::move(designatorsOf);
        app.groupNamesByCode = std::move(nameOf);
    }
    app.rebuildSdtaGroups();
    return resultOf(table, app.descrRulesPath);
}

} // namespace partwright
