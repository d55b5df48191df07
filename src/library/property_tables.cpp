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

void storeFamily(Definitions<AsrComponent>& asr, const RuleRow& row, const std::wstring& name) {
    const auto code = row.code(groupCode);
    if (!code)
        return;
    const std::wstring familyName = row.text(family);
    auto& groups = asr.familyGroups[familyName];
    if (std::none_of(groups.begin(), groups.end(),
                     [&](const FamilyGroup& group) { return group.code == *code; }))
        groups.push_back({*code, name});
    asr.groupFamily[*code] = familyName;
    asr.groupNamesByCode[*code] = name;
}

void rebuildAsrGroups(Definitions<AsrComponent>& asr) {
    for (const auto& [code, name] : fixedGroups)
        asr.groupNamesByCode[code] = name;
    asr.groupNames.assign(1, std::wstring(notDefinedName));
    for (const auto& [code, name] : asr.groupNamesByCode) {
        asr.groupNames.resize(static_cast<std::size_t>(code), std::wstring(notApplicableGroup));
        asr.groupNames.push_back(name);
    }
    asr.rebuildTypes();
}

/// The codes are positions in the list of groups as well, so each must have a name.
std::optional<GroupGap> gapOf(const Definitions<AsrComponent>& asr) {
    for (std::int32_t code = 1; code <= Kind<AsrComponent>::lastGroup; ++code)
        if (const auto name = asr.groupNamesByCode.find(code);
            !Kind<AsrComponent>::columns(code).empty() &&
            (name == asr.groupNamesByCode.end() || name->second == notApplicableGroup))
            return GroupGap{code, 0};
    return std::nullopt;
}

/// The place of a name in ascending order of the codes must be its code. `lineOf` knows the rows
/// that made no group as well.
std::optional<GroupGap> gapOf(const std::map<std::int32_t, std::wstring>& nameOf,
                              const std::map<std::int32_t, std::size_t>& lineOf) {
    std::int32_t place = 0;
    for (const auto& [code, name] : nameOf)
        if (code != ++place) {
            const auto line = lineOf.find(place);
            return GroupGap{place, line == lineOf.end() ? lineOf.at(code) : line->second};
        }
    return std::nullopt;
}

void setFlag(LevelColumns& flags, std::optional<std::int32_t> parameter) {
    if (parameter && *parameter > 0 && static_cast<std::size_t>(*parameter) < flags.size())
        flags[static_cast<std::size_t>(*parameter)] = 1;
}

} // namespace

LoadResult LoadSdtaProperties(const ProjectPaths& paths, Definitions<SdtaComponent>& sdta) {
    const PropertyColumns columns(13);
    RuleTable table = readRuleTable(paths.sdtaPropertyLibraryPath, {.columns = columns.names()});
    if (table.status == FileStatus::Ok) {
        sdta.properties.clear();
        ++sdta.propertiesRead;
    }
    for (RuleRow& source : table.rows) {
        SdtaPropertyRow row;
        if (takeRow(source, row))
            sdta.properties.insert_or_assign({row.group, row.type}, std::move(row));
    }
    return resultOf(table, paths.sdtaPropertyLibraryPath);
}

LoadResult LoadAsrProperties(const ProjectPaths& paths, Definitions<AsrComponent>& asr) {
    if (paths.programFolder.empty())
        return {};
    const std::wstring path = paths.programFolder + L"Property_ASR_Library.csv";
    const PropertyColumns columns(24);
    RuleTable table = readRuleTable(path, {.columns = columns.names(), .doublesQuotes = true});
    if (table.status != FileStatus::Ok)
        return resultOf(table, path);
    asr.properties.clear();
    asr.familyGroups.clear();
    asr.groupFamily.clear();
    asr.groupNamesByCode.clear();
    for (RuleRow& source : table.rows) {
        AsrPropertyRow row;
        if (!takeRow(source, row))
            continue;
        storeFamily(asr, source, row.group);
        asr.properties.insert_or_assign({row.group, row.type}, std::move(row));
    }
    rebuildAsrGroups(asr);
    asr.gap = gapOf(asr);
    return resultOf(table, path);
}

std::wstring columnVisibilityPath(const ProjectPaths& paths) {
    return paths.programFolder + std::wstring(visibilityFile);
}

LoadResult LoadColumnVisibility(const ProjectPaths& paths, Definitions<AsrComponent>& asr) {
    constexpr std::wstring_view group = L"GroupID";
    constexpr std::wstring_view forRapid = L"LParID_RAPID";
    constexpr std::wstring_view forAsr = L"LParID_ASR";
    constexpr std::wstring_view columns[] = {group, forRapid, forAsr};
    const std::wstring path = columnVisibilityPath(paths);
    asr.columnsForRapid.clear();
    asr.columnsForAsr.clear();
    const RuleTable table = readRuleTable(path, {.columns = columns});
    for (const RuleRow& row : table.rows) {
        const auto code = row.code(group);
        if (!code)
            continue;
        setFlag(asr.columnsForRapid.try_emplace(*code, LevelColumns{}).first->second,
                row.number(forRapid));
        setFlag(asr.columnsForAsr.try_emplace(*code, LevelColumns{}).first->second,
                row.number(forAsr));
    }
    return resultOf(table, path);
}

LoadResult LoadGroupNames(const ProjectPaths& paths, ClassifierTables& classifier,
                          Definitions<SdtaComponent>& sdta) {
    constexpr std::wstring_view columns[] = {L"BiCod", L"NameGroup", L"Rules", L"RulesExcluding",
                                             L"TipicalRefDes"};
    const RuleTable table = readRuleTable(paths.descrRulesPath, {.columns = columns});
    std::map<std::int32_t, GroupRule> ruleOf;
    std::map<std::int32_t, std::wstring> designatorsOf;
    std::map<std::int32_t, std::wstring> nameOf;
    std::map<std::int32_t, std::size_t> lineOf;
    for (const RuleRow& row : table.rows) {
        const auto code = row.code(L"BiCod");
        const std::wstring rules = row.text(L"Rules");
        if (code)
            lineOf[*code] = row.line;
        if (!code || rules.empty())
            continue;
        // The same text passed at the reading before; compiling it is what takes long here.
        const auto before = classifier.GroupRuleTable.find(*code);
        if ((before == classifier.GroupRuleTable.end() || before->second.rules != rules) &&
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
        sdta.gap = gapOf(nameOf, lineOf);
        classifier.GroupRuleTable = std::move(ruleOf);
        classifier.GroupRefDesTable = std::move(designatorsOf);
        classifier.groupNamesByCode = std::move(nameOf);
    }
    rebuildSdtaGroups(classifier, sdta);
    return resultOf(table, paths.descrRulesPath);
}

} // namespace partwright
