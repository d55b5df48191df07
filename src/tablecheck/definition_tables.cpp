#include "tablecheck/definition_tables.h"

#include "core/decimal_mark.h"
#include "core/library_kind.h"
#include "core/text.h"
#include "core/vocabulary.h"
#include "library/property_tables.h"
#include "library/small_tables.h"
#include "validation/cell_check.h"

#include <algorithm>
#include <set>

namespace partwright {

namespace {

constexpr wchar_t tableMark = L'.';

std::optional<double> bound(const std::wstring& text) {
    return text.empty() ? std::optional<double>(0) : readCheckedNumber(text, tableMark);
}

void checkBounds(const RuleRow& row, const ValidationRule& rule, Findings& findings) {
    const auto low = bound(rule.param1);
    const auto high = bound(rule.param2);
    if (!low)
        findings.add(row.line, L"Param1", say({L"\"", rule.param1, L"\" is no number"}));
    if (!high)
        findings.add(row.line, L"Param2", say({L"\"", rule.param2, L"\" is no number"}));
    if (low && high && rule.checkId >= 5 && *low > *high)
        findings.add(row.line, L"Param2", L"the upper bound lies below the lower one");
}

/// What the operands of a combination rule must be, each one of several column names; an empty
/// list stands for any column.
struct ThermalForm {
    std::int32_t rule;
    std::int32_t message;
    std::vector<std::vector<std::wstring_view>> operands;
};

const std::vector<ThermalForm>& thermalForms() {
    static const std::vector<std::wstring_view> power = {L"Pw-RT", L"Pw-Max"};
    static const std::vector<std::wstring_view> resistance = {L"Oja", L"Ojc"};
    static const std::vector<ThermalForm> forms = {
        {101, 125, {{L"Oja"}, {L"Ojc"}}},
        {102, 130, {power, {L"Ojc"}}},
        {103, 127, {power, {L"Ts"}, {L"at"}, {L"Tjmax"}, {L"Oja"}, {L"Ojc"}}},
        {104, 134, {power, resistance, {L"Tjmax"}}},
    };
    return forms;
}

void checkOperands(const RuleRow& row, std::int32_t group, const ThermalForm& form,
                   Findings& findings) {
    const Names columns = ColumnsOfSdtaGroup(group);
    const auto positions = thermalOperands(row.text(L"Name"));
    if (positions.size() != form.operands.size())
        findings.add(row.line, L"Name",
                     say({L"rule ", number(form.rule), L" takes ", number(form.operands.size()),
                          L" operands"}));
    for (std::size_t i = 0; i < std::min(positions.size(), form.operands.size()); ++i) {
        const auto at = positions[i] - 1;
        const bool inside = at >= 0 && static_cast<std::size_t>(at) < columns.size();
        const std::wstring_view column = inside ? columns[static_cast<std::size_t>(at)] : L"";
        const auto& wanted = form.operands[i];
        if (std::find(wanted.begin(), wanted.end(), column) == wanted.end())
            findings.add(row.line, L"Name",
                         say({L"position ", number(positions[i]), L" is \"", column,
                              L"\", where \"", wanted.front(), L"\" belongs"}));
    }
}

void checkFamily(const RuleRow& row, std::int32_t method, std::int32_t code, std::int32_t family,
                 Findings& findings) {
    const std::wstring_view name =
        method == Kind<SdtaComponent>::method ? FamilyOfSdtaGroup(code) : FamilyOfAsrGroup(code);
    const Names names = familyNames();
    if (family < 0 || static_cast<std::size_t>(family) >= names.size())
        findings.add(row.line, L"Family", L"no such family");
    else if (std::find(names.begin(), names.end(), name) != names.end() &&
             family != FamilyNumber(name))
        findings.add(row.line, L"Family",
                     say({L"group ", number(code), L" is of family ", number(FamilyNumber(name)),
                          L", \"", name, L"\""}));
}

} // namespace

ValidationRules checkValidationRules(const CPartwrightPlugInApp& app,
                                     std::vector<TableFinding>& all) {
    static constexpr std::wstring_view columns[] = {L"ValidationID", L"CheckType", L"CheckID",
                                                    L"Param1",       L"Param2",    L"Message"};
    Findings findings(all, app.paths.sdtaValidationRulesPath);
    RuleTableForm form;
    form.columns = columns;
    ValidationRules rules;
    for (const RuleRow& row :
         openForCheck(app.paths.sdtaValidationRulesPath, form, findings).rows) {
        const auto id = integerCell(row, L"ValidationID", findings);
        const auto check = integerCell(row, L"CheckID", findings);
        if (!id || !check)
            continue;
        ValidationRule rule{*id,
                            *check,
                            row.text(L"CheckType"),
                            row.text(L"Param1"),
                            row.text(L"Param2"),
                            row.text(L"Message")};
        if (*id < 0 || *id > lastRuleReference)
            findings.add(row.line, L"ValidationID", L"must lie in 0 to 10000");
        if (*check < 0 || *check > 8)
            findings.add(row.line, L"CheckID", L"must lie in 0 to 8");
        const bool text = rule.checkType.starts_with(L"S");
        const wchar_t kind = rule.checkType.size() < 2 ? L'\0' : rule.checkType[1];
        if (!text && kind != L'I' && kind != L'F')
            findings.add(row.line, L"CheckType", L"accepts neither text nor numbers");
        if (rule.message.empty())
            findings.add(row.line, L"Message", L"tells nothing");
        checkBounds(row, rule, findings);
        if (!rules.emplace(*id, rule).second)
            findings.add(row.line, L"ValidationID", L"the number stands twice");
    }
    return rules;
}

void checkThermalRules(const CPartwrightPlugInApp& app, std::vector<TableFinding>& all) {
    static constexpr std::wstring_view columns[] = {L"BCodeID", L"TypeID", L"Name", L"ValidationID",
                                                    L"MessageID"};
    Findings findings(all, app.paths.sdtaThermalValidationPath);
    RuleTableForm form;
    form.columns = columns;
    std::set<std::pair<std::int32_t, std::int32_t>> seen;
    for (const RuleRow& row :
         openForCheck(app.paths.sdtaThermalValidationPath, form, findings).rows) {
        const auto group = integerCell(row, L"BCodeID", findings);
        const auto order = integerCell(row, L"TypeID", findings);
        const auto rule = integerCell(row, L"ValidationID", findings);
        const auto message = integerCell(row, L"MessageID", findings);
        if (!group || !order || !rule || !message)
            continue;
        if (ColumnsOfSdtaGroup(*group).empty())
            findings.add(row.line, L"BCodeID", L"no SDTA group with columns");
        if (!seen.insert({*group, *order}).second)
            findings.add(row.line, L"TypeID", L"the number stands twice in the group");
        const auto& forms = thermalForms();
        const auto known = std::find_if(forms.begin(), forms.end(),
                                        [&](const ThermalForm& f) { return f.rule == *rule; });
        if (known == forms.end()) {
            findings.add(row.line, L"ValidationID", L"no such combination rule");
            continue;
        }
        if (*message != known->message)
            findings.add(
                row.line, L"MessageID",
                say({L"rule ", number(*rule), L" is told by message ", number(known->message)}));
        checkOperands(row, *group, *known, findings);
    }
}

void checkVisibility(const CPartwrightPlugInApp& app, std::vector<TableFinding>& all) {
    static constexpr std::wstring_view columns[] = {L"GroupID", L"LParID_RAPID", L"LParID_ASR"};
    const std::wstring path = columnVisibilityPath(app.paths);
    Findings findings(all, path);
    RuleTableForm form;
    form.columns = columns;
    std::set<std::int32_t> groups;
    const RuleTable table = openForCheck(path, form, findings);
    for (const RuleRow& row : table.rows) {
        const auto group = integerCell(row, L"GroupID", findings);
        if (!group)
            continue;
        groups.insert(*group);
        const auto count = static_cast<std::int32_t>(ColumnsOfAsrGroup(*group).size());
        for (const std::wstring_view column : {columns[1], columns[2]}) {
            if (row.text(column).empty())
                continue;
            const auto parameter = integerCell(row, column, findings);
            if (parameter && (*parameter < 0 || *parameter > count))
                findings.add(
                    row.line, column,
                    say({L"group ", number(*group), L" has ", number(count), L" columns"}));
        }
    }
    for (std::int32_t group = 1; group <= lastAsrGroup && !table.rows.empty(); ++group)
        if (!ColumnsOfAsrGroup(group).empty() && !groups.contains(group))
            findings.add(0, L"GroupID",
                         say({L"no row for group ", number(group),
                              L": both levels call it complete as it is"}));
}

void checkConversion(const CPartwrightPlugInApp& app, std::vector<TableFinding>& all) {
    static constexpr std::wstring_view columns[] = {L"Method", L"NameID", L"Family", L"ID_BiCod"};
    const std::wstring path = biCodePath(app.paths);
    Findings findings(all, path);
    RuleTableForm form;
    form.columns = columns;
    const RuleTable table = openForCheck(path, form, findings);
    for (const RuleRow& row : table.rows) {
        const auto method = integerCell(row, L"Method", findings);
        const auto code = integerCell(row, L"NameID", findings);
        const auto family = integerCell(row, L"Family", findings);
        static_cast<void>(integerCell(row, L"ID_BiCod", findings));
        if (method && *method != Kind<SdtaComponent>::method &&
            *method != Kind<AsrComponent>::method)
            findings.add(row.line, L"Method", L"is neither 14 nor 20");
        if (code && (*code < firstGroupCode || *code > lastGroupCode))
            findings.add(row.line, L"NameID", L"lies outside of 1 to 1000, so the row is skipped");
        if (method && code && family)
            checkFamily(row, *method, *code, *family, findings);
    }
    if (table.rows.empty())
        return;
    for (std::int32_t group = 1; group <= lastSdtaGroup; ++group) {
        std::int32_t family = 0;
        const std::int32_t code = ConvertBiCode(app.classifier, group, family);
        const bool named =
            app.of<AsrComponent>().GroupAndTypeNames(code, 0).first != notApplicableGroup &&
            app.of<AsrComponent>().GroupAndTypeNames(code, 0).first != notDefinedName;
        if (!named)
            findings.add(0, L"NameID",
                         say({L"SDTA group ", number(group), L" reaches no Analyses group"}));
    }
}

} // namespace partwright
