#include "autofill/param_rules.h"

#include "core/text.h"

#include <algorithm>

namespace partwright {

namespace {

/// The position that a cell names in a list of `size` entries, from 1; 0 for every other text.
std::size_t positionIn(std::wstring_view cell, std::size_t size) {
    const IntegerPrefix number = readInteger(cell);
    const bool whole = number.consumed != 0 && number.consumed == cell.size() && !number.clamped;
    if (!whole || number.value < 1 || static_cast<std::size_t>(number.value) > size)
        return 0;
    return static_cast<std::size_t>(number.value);
}

} // namespace

void ParamRuleTable::add(const RuleKey& key, std::span<const std::wstring_view> rules,
                         const UnitTable& units, Prepared& prepared) {
    PreparedRuleRow row;
    for (std::size_t i = 0; i < rulesPerRow && i < rules.size(); ++i) {
        const std::wstring_view text = rules[i];
        row.texts[i] = text;
        auto known = prepared.find(text);
        if (known == prepared.end()) {
            auto rule = std::make_shared<const PreparedRule>(text, units);
            if (rule->terms().empty())
                rule = nullptr;
            known = prepared.emplace(text, std::move(rule)).first;
        }
        row.rules[i] = known->second;
    }
    rows_.insert_or_assign(key, std::move(row));
}

const PreparedRuleRow* ParamRuleTable::find(const RuleKey& key) const {
    const auto found = rows_.find(key);
    return found == rows_.end() ? nullptr : &found->second;
}

TypeRefineTable::TypeRefineTable(const ParamRuleTable& rules, const UnitTable& units) {
    constexpr std::int32_t resistors = 10;
    constexpr std::pair<std::int32_t, std::wstring_view> comparisons[] = {
        {27, L"FUNC_IF{[FUNC1{[#Pw] }, FUNC4{[0.5] }] [<] [FUNC4{[27] },FUNC4{[28] }]"},
        {28, L"FUNC_IF{ [FUNC1{ [#Pw] }, FUNC4{ [0.5] }] [< ] [FUNC4{ [27] },FUNC4{ [28] }]"}};
    for (const auto& [key, row] : rules.rows()) {
        std::wstring text = std::to_wstring(key.type);
        for (const auto& [type, comparison] : comparisons)
            if (key.group == resistors && key.type == type) {
                text = comparison;
                prepared_.emplace(key, PreparedRule(comparison, units));
            }
        texts_.emplace(key, std::move(text));
    }
}

const PreparedRule* TypeRefineTable::find(const RuleKey& key) const {
    const auto found = prepared_.find(key);
    return found == prepared_.end() ? nullptr : &found->second;
}

void applyCodeNames(Names columns, std::int32_t group, std::span<std::wstring> cells) {
    constexpr std::int32_t lastGroup = 9;
    constexpr std::int32_t lastCircuitGroup = 2;
    if (group > lastGroup)
        return;
    const Names packages = group <= lastCircuitGroup ? circuitPackages() : semiconductorPackages();
    for (std::size_t i = 0; i < columns.size() && i < cells.size(); ++i) {
        Names list;
        if (columns[i] == packageColumn)
            list = packages;
        else if (columns[i] == temperatureReferenceColumn)
            list = temperatureReferences;
        if (const std::size_t position = positionIn(cells[i], list.size()))
            cells[i] = list[position - 1];
    }
}

std::int32_t ApplyParamRules(const ParamRuleTable& rules, const FillRequest& request,
                             std::span<std::wstring> cells, const PackageTable& packageTable,
                             const PiqTable& piqTable) {
    constexpr std::int32_t resistors = 10;
    constexpr std::size_t voltageCell = 1;
    const RuleKey& key = request.key;
    const PreparedRuleRow* row = rules.find(key);
    std::int32_t type = key.type;
    if (!row)
        return type;
    const std::size_t count = std::min(cells.size(), rulesPerRow);
    for (std::size_t i = 0; i < count; ++i)
        if (cells[i].empty() && row->rules[i])
            cells[i] = row->rules[i]->evaluate({request.text, request.mark, key.family, key.group,
                                                static_cast<std::int32_t>(i), type, request.note,
                                                packageTable, piqTable});
    for (std::size_t i = 0; i < count; ++i) {
        if (!cells[i].empty() || !row->rules[i])
            continue;
        cells[i] = row->rules[i]->evaluateSecondPass(cells, request.mark);
        const bool voltage =
            key.family == ruleFamily::sdta && key.group == resistors && i == voltageCell;
        if (voltage && !cells[i].empty())
            request.note.insert(0, L"Voltage is calculated value; ");
    }
    const Names columns = key.family == ruleFamily::sdta ? ColumnsOfSdtaGroup(key.group)
                                                         : ColumnsOfAsrGroup(key.group);
    applyCodeNames(columns, key.group, cells);
    return type;
}

void ParamFiller::FillParamsFromDescription(std::int32_t group, std::int32_t& type,
                                            std::span<std::wstring> cells, const ScannedText& text,
                                            std::int32_t family, std::wstring& note) const {
    for (std::wstring& cell : cells)
        cell.clear();
    note.clear();
    const std::int32_t used = type == 0 ? defaultType(family, group) : type;
    const std::int32_t after = ApplyParamRules(
        tables_.rules, {{family, group, used}, text, app_.decimalMark(), note}, cells);
    if (after != used)
        type = after;
}

void ParamFiller::RefineTypeByRule(std::int32_t family, std::int32_t group, std::int32_t& type,
                                   const ScannedText& text) const {
    const PreparedRule* rule = tables_.refine.find({family, group, type});
    if (!rule)
        return;
    if (const std::optional<double> picked = rule->pick(text, app_.decimalMark()))
        type = static_cast<std::int32_t>(*picked);
}

std::int32_t ParamFiller::defaultType(std::int32_t family, std::int32_t group) const {
    const std::vector<std::int16_t>& types =
        family == ruleFamily::sdta ? app_.sdta.defaultTypes : app_.asr.defaultTypes;
    if (group < 0 || static_cast<std::size_t>(group) >= types.size())
        return 0;
    return types[static_cast<std::size_t>(group)];
}

} // namespace partwright
