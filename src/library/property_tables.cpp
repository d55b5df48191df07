#include "library/property_tables.h"

#include "core/cell_text.h"
#include "core/library_kind.h"
#include "core/regular_expression.h"
#include "core/text.h"
#include "library/rule_table.h"

#include <algorithm>
#include <optional>
#include <span>
#include <utility>

namespace partwright {

namespace {

constexpr std::wstring_view family = L"Family";
constexpr std::wstring_view groupCode = L"BCodeID";
constexpr std::wstring_view visibilityFile = L"LibColVisibility_Ext.csv";

/// Groups of the Analyses library that have a fixed code whatever the table says.
constexpr std::pair<std::int32_t, std::wstring_view> fixedGroups[] = {{29, L"PCB"},
                                                                      {34, L"Mechanical"}};

/// The columns of a property table with parameters 1 to `last`, in the order of Place.
class PropertyColumns {
public:
    enum Place : std::size_t { Family, GroupCode, GroupName, GroupDescription, TypeName, First };
    /// Behind the first place, three a parameter: its name, its message and its validation.
    static constexpr std::size_t perParameter = 3;

    explicit PropertyColumns(std::size_t last) {
        texts_ = {L"Family", L"BCodeID", L"GroupName", L"GroupDescription", L"TypeName"};
        for (std::size_t number = 1; number <= last; ++number)
            for (const std::wstring_view part : {L".Name", L".Message", L".Valid"})
                texts_.push_back(L"LPAR" + std::to_wstring(number) + std::wstring(part));
        names_.assign(texts_.begin(), texts_.end());
    }
    [[nodiscard]] std::span<const std::wstring_view> names() const { return names_; }

private:
    std::vector<std::wstring> texts_;
    std::vector<std::wstring_view> names_;
};

/// The text of a cell, which is not asked for again; empty when the row lacks it.
std::wstring take(std::optional<std::wstring>& cell) {
    return cell ? std::move(*cell) : std::wstring();
}

template <class Row>
void takeParameters(RuleRow& source, Row& row) {
    std::size_t parameter = 1;
    for (std::size_t place = PropertyColumns::First; place < source.cells.size();
         place += PropertyColumns::perParameter, ++parameter) {
        row.names[parameter] = take(source.cells[place]);
        row.messages[parameter] = take(source.cells[place + 1]);
        const auto& valid = source.cells[place + 2];
        if (valid && *valid != cell::messageNotUsed)
            row.valid[parameter] = toInteger(*valid);
    }
}

/// False for a row that lacks a part of its key. Takes the texts out of the cells.
template <class Row>
bool takeRow(RuleRow& source, Row& row) {
    auto& cells = source.cells;
    if (!cells[PropertyColumns::GroupName] || !cells[PropertyColumns::GroupDescription] ||
        !cells[PropertyColumns::TypeName])
        return false;
    row.group = take(cells[PropertyColumns::GroupName]);
    row.groupDescription = take(cells[PropertyColumns::GroupDescription]);
    row.type = take(cells[PropertyColumns::TypeName]);
    takeParameters(source, row);
    return true;
}

void storeFamily(CPartwrightPlugInApp& app, const RuleRow& row, const std::wstring& name) {
    const auto code = row.code(groupCode);
    if (!code)
        return;
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
    RuleTable table = readRuleTable(app.sdtaPropertyLibraryPath, {.columns = columns.names()});
    if (table.status == FileStatus::Ok) {
        app.sdtaProperties.clear();
        app.forgetReadings();
    }
    for (RuleRow& source : table.rows) {
        SdtaPropertyRow row;
        if (takeRow(source, row))
            app.sdtaProperties.insert_or_assign({row.group, row.type}, std::move(row));
    }
    return resultOf(table, app.sdtaPropertyLibraryPath);
}

LoadResult LoadAsrProperties(CPartwrightPlugInApp& app) {
    if (app.programFolder.empty())
        return {};
    const std::wstring path = app.programFolder + L"Property_ASR_Library.csv";
    const PropertyColumns columns(24);
    RuleTable table = readRuleTable(path, {.columns = columns.names(), .doublesQuotes = true});
    if (table.status != FileStatus::Ok)
        return resultOf(table, path);
    app.asrProperties.clear();
    app.asrFamilyGroups.clear();
    app.asrGroupFamily.clear();
    app.asrGroupNamesByCode.clear();
    for (RuleRow& source : table.rows) {
        AsrPropertyRow row;
        if (!takeRow(source, row))
            continue;
        storeFamily(app, source, row.group);
        app.asrProperties.insert_or_assign({row.group, row.type}, std::move(row));
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
        if (!code || rules.empty())
            continue;
        // The same text passed at the reading before; compiling it is what takes long here.
        const auto before = app.GroupRuleTable.find(*code);
        if ((before == app.GroupRuleTable.end() || before->second.rules != rules) &&
            !ValidateRegularExpression(rules))
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
