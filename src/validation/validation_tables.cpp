#include "validation/validation_tables.h"

#include "library/rule_table.h"

#include <algorithm>
#include <span>

namespace partwright {

namespace {

constexpr std::wstring_view ruleColumns[] = {L"ValidationID", L"CheckType", L"CheckID",
                                             L"Param1",       L"Param2",    L"Message"};
constexpr std::wstring_view thermalColumns[] = {L"BCodeID", L"TypeID", L"Name", L"ValidationID",
                                                L"MessageID"};

bool isWhole(const RuleRow& row, std::span<const std::wstring_view> columns) {
    return std::all_of(columns.begin(), columns.end(),
                       [&](std::wstring_view column) { return row.find(column) != nullptr; });
}

} // namespace

LoadResult LoadValidationRules(std::wstring_view path, ValidationRules& target) {
    const RuleTable table = readRuleTable(path, {.columns = ruleColumns});
    if (table.status == FileStatus::Ok)
        target.clear();
    for (const RuleRow& row : table.rows) {
        if (!isWhole(row, ruleColumns))
            continue;
        ValidationRule rule;
        rule.validationId = *row.number(L"ValidationID");
        rule.checkId = *row.number(L"CheckID");
        rule.checkType = row.text(L"CheckType");
        rule.param1 = row.text(L"Param1");
        rule.param2 = row.text(L"Param2");
        rule.message = row.text(L"Message");
        target.insert_or_assign(rule.validationId, std::move(rule));
    }
    return resultOf(table, path);
}

LoadResult LoadThermalValidationRules(std::wstring_view path, ThermalRules& target) {
    const RuleTable table = readRuleTable(path, {.columns = thermalColumns});
    if (table.status == FileStatus::Ok)
        target.clear();
    for (const RuleRow& row : table.rows) {
        const auto group = row.code(L"BCodeID");
        if (!group || !isWhole(row, thermalColumns))
            continue;
        ThermalRule rule;
        rule.bCodeId = *group;
        rule.typeId = *row.number(L"TypeID");
        rule.validationId = *row.number(L"ValidationID");
        rule.messageId = *row.number(L"MessageID");
        rule.name = row.text(L"Name");
        target[rule.bCodeId].insert_or_assign(rule.typeId, std::move(rule));
    }
    return resultOf(table, path);
}

} // namespace partwright
