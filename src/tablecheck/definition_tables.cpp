#include "tablecheck/definition_tables.h"

#include "core/decimal_mark.h"
#include "core/library_kind.h"
#include "core/text.h"
#include "core/vocabulary.h"
#include "library/small_tables.h"

#include <algorithm>
#include <set>

namespace partwright {

namespace {

constexpr wchar_t tableMark = L'.';
/// From this number on a validation code names a drop-down list.
constexpr std::int32_t firstListCode = 10001;

std::wstring number(std::int64_t value) {
    return std::to_wstring(value);
}

std::optional<double> bound(const std::wstring& text) {
    return text.empty() ? std::optional<double>(0) : readCheckedNumber(text, tableMark);
}

/// Does a text pass a validation code? Lists cannot be judged here and pass.
bool passes(const std::wstring& value, std::int32_t code, const ValidationRules& rules) {
    const auto rule = rules.find(code);
    if (code < 0 || code >= firstListCode || rule == rules.end())
        return true;
    const ValidationRule& r = rule->second;
    return CheckValue(value, r.checkType, r.checkId, bound(r.param1).value_or(0),
                      bound(r.param2).value_or(0), tableMark) == CheckResult::Passed;
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

// ---- Property tables -------------------------------------------------------------------------

constexpr std::wstring_view sdtaPropertyColumns[] = {
    L"Family", L"BCodeID", L"GroupName", L"GroupDescription", L"TypeName", L"FieldListDescription"};

/// "LPAR3.Name" and its siblings, for parameters 1 to `count`.
std::vector<std::wstring> propertyColumns(std::size_t count) {
    std::vector<std::wstring> columns(std::begin(sdtaPropertyColumns),
                                      std::end(sdtaPropertyColumns));
    for (std::size_t n = 1; n <= count; ++n)
        for (const wchar_t* part : {L".Name", L".Message", L".Valid"})
            columns.push_back(L"LPAR" + std::to_wstring(n) + part);
    return columns;
}

template <class Record>
class PropertyCheck {
public:
    PropertyCheck(const CPartwrightPlugInApp& app, const ValidationRules& rules,
                  std::vector<TableFinding>& all, const std::wstring& path, std::size_t slots,
                  bool doublesQuotes)
        : app_(app), rules_(rules), findings_(all, path), columns_(propertyColumns(slots)),
          slots_(slots) {
        const std::vector<std::wstring_view> names(columns_.begin(), columns_.end());
        RuleTableForm form;
        form.columns = names;
        form.doublesQuotes = doublesQuotes;
        const RuleTable table = openForCheck(path, form, findings_);
        for (const RuleRow& row : table.rows)
            checkRow(row);
        if (!table.rows.empty())
            checkPairs();
    }

private:
    void checkRow(const RuleRow& row) {
        const auto group = integerCell(row, L"BCodeID", findings_);
        if (!group)
            return;
        const std::wstring name = row.text(L"GroupName");
        if (namesOf<Record>(app_, *group, 0).first != name)
            findings_.add(row.line, L"GroupName",
                          say({L"\"", name, L"\" is not the name of group ", number(*group)}));
        if (Kind<Record>::family(*group) != row.text(L"Family"))
            findings_.add(row.line, L"Family", L"the vocabulary has another family for the group");
        if (row.text(L"GroupDescription").empty())
            findings_.add(row.line, L"GroupDescription", L"is empty, so the row is skipped");
        const std::wstring type = row.text(L"TypeName");
        if (type.find(L'<') != std::wstring::npos && type.find(L'<') != 0)
            cutNames_.insert(type.substr(0, type.find(L'<')));
        else if (!isType(*group, type))
            findings_.add(row.line, L"TypeName", say({L"\"", type, L"\" is no type of the group"}));
        if (!seen_.insert({name, type}).second)
            findings_.add(row.line, L"TypeName", L"the pair of group and type stands twice");
        checkTriples(row, *group);
    }

    [[nodiscard]] bool isType(std::int32_t group, const std::wstring& type) const {
        if (type == defaultTypeName)
            return true;
        const auto& types = Kind<Record>::groupTypes(app_);
        const auto found = types.find(namesOf<Record>(app_, group, 0).first);
        return found != types.end() &&
               std::any_of(found->second.begin(), found->second.end(), [&](const TypeEntry& entry) {
                   return entry.name == type || entry.name.substr(0, entry.name.find(L'<')) == type;
               });
    }

    void checkTriples(const RuleRow& row, std::int32_t group) {
        const Names columns = Kind<Record>::columns(group);
        for (std::size_t n = 1; n <= slots_; ++n) {
            const std::wstring stem = L"LPAR" + std::to_wstring(n);
            const std::wstring* label = row.find(stem + L".Name");
            const std::wstring* valid = row.find(stem + L".Valid");
            if (n > columns.size()) {
                if (label != nullptr && !label->empty() && *label != L"-")
                    findings_.add(row.line, stem + L".Name", L"the group has no such column");
                continue;
            }
            if (label == nullptr || (*label != columns[n - 1] && *label != L"-"))
                findings_.add(row.line, stem + L".Name",
                              say({L"is neither \"", columns[n - 1], L"\" nor \"-\""}));
            if (row.text(stem + L".Message").empty())
                findings_.add(row.line, stem + L".Message", L"tells nothing");
            checkCode(row, stem + L".Valid", valid);
        }
    }

    void checkCode(const RuleRow& row, const std::wstring& column, const std::wstring* valid) {
        if (valid == nullptr || *valid == L"NU")
            return;
        const auto code = integerCell(row, column, findings_);
        if (code && *code >= 0 && *code < firstListCode && !rules_.contains(*code))
            findings_.add(row.line, column, say({L"no validation rule ", number(*code)}));
    }

    void checkPairs() {
        for (const auto& [group, types] : Kind<Record>::groupTypes(app_)) {
            if (group == notDefinedName || group == notApplicableGroup)
                continue;
            for (const TypeEntry& type : types)
                if (!seen_.contains({group, type.name}) &&
                    findRow<Record>(app_, group, type.name) == nullptr)
                    missing(group, type.name);
                else if (!seen_.contains({group, type.name}))
                    missing(group, type.name);
        }
        for (const std::wstring& cut : cutNames_)
            if (std::none_of(seen_.begin(), seen_.end(),
                             [&](const auto& pair) { return pair.second == cut; }))
                findings_.add(
                    0, L"TypeName",
                    say({L"a type with \"<\" is looked up as \"", cut, L"\", which has no row"}));
    }

    void missing(const std::wstring& group, const std::wstring& type) {
        findings_.add(0, {}, say({L"no row for group \"", group, L"\", type \"", type, L"\""}));
    }

    const CPartwrightPlugInApp& app_;
    const ValidationRules& rules_;
    Findings findings_;
    std::vector<std::wstring> columns_;
    std::size_t slots_;
    std::set<std::pair<std::wstring, std::wstring>> seen_;
    std::set<std::wstring> cutNames_;
};

// ---- Default tables --------------------------------------------------------------------------

template <class Record>
void checkDefaultTable(const CPartwrightPlugInApp& app, const std::wstring& path,
                       const ValidationRules& rules, std::vector<TableFinding>& all) {
    Findings findings(all, path);
    std::vector<std::wstring> columns = {L"ID_Family", L"ID_Type"};
    for (std::size_t n = 1; n <= Kind<Record>::maximumColumns; ++n)
        columns.push_back(L"LPar" + std::to_wstring(n));
    const std::vector<std::wstring_view> names(columns.begin(), columns.end());
    RuleTableForm form;
    form.columns = names;
    form.comments = true;
    form.closesRows = true;
    RuleTable table = readRuleTable(path, form);
    if (table.status != FileStatus::Ok)
        findings.add(0, {}, L"the file is missing or cannot be opened");
    for (const RuleRow& row : table.rows) {
        const auto group = integerCell(row, L"ID_Family", findings);
        const auto type = integerCell(row, L"ID_Type", findings);
        if (!group || !type)
            continue;
        const auto [groupName, typeName] = namesOf<Record>(app, *group, *type);
        const auto* property = findRow<Record>(app, groupName, typeName);
        const Names known = Kind<Record>::columns(*group);
        if (known.empty() || (*type != 0 && typeName == defaultTypeName) || property == nullptr) {
            findings.add(row.line, L"ID_Type", L"no such pair of group and type");
            continue;
        }
        for (std::size_t n = 1; n <= Kind<Record>::maximumColumns; ++n) {
            const std::wstring value = row.text(columns[n + 1]);
            if (value.empty())
                continue;
            if (n > known.size())
                findings.add(row.line, columns[n + 1], L"the group has no such column");
            else if (property->names[n] == L"-")
                findings.add(row.line, columns[n + 1], L"the parameter does not apply to the type");
            else if (!passes(value, property->valid[n], rules))
                findings.add(row.line, columns[n + 1],
                             say({L"\"", value, L"\" fails its own validation rule"}));
        }
    }
}

// ---- Thermal rules ---------------------------------------------------------------------------

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
                     say({L"rule ", number(form.rule), L" takes ",
                          number(static_cast<std::int64_t>(form.operands.size())), L" operands"}));
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

} // namespace

ValidationRules checkValidationRules(const CPartwrightPlugInApp& app,
                                     std::vector<TableFinding>& all) {
    static constexpr std::wstring_view columns[] = {L"ValidationID", L"CheckType", L"CheckID",
                                                    L"Param1",       L"Param2",    L"Message"};
    Findings findings(all, app.sdtaValidationRulesPath);
    RuleTableForm form;
    form.columns = columns;
    ValidationRules rules;
    for (const RuleRow& row : openForCheck(app.sdtaValidationRulesPath, form, findings).rows) {
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
        if (*id < 0 || *id >= firstListCode)
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
    Findings findings(all, app.sdtaThermalValidationPath);
    RuleTableForm form;
    form.columns = columns;
    std::set<std::pair<std::int32_t, std::int32_t>> seen;
    for (const RuleRow& row : openForCheck(app.sdtaThermalValidationPath, form, findings).rows) {
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

void checkProperties(const CPartwrightPlugInApp& app, const ValidationRules& rules,
                     std::vector<TableFinding>& all) {
    PropertyCheck<SdtaComponent>(app, rules, all, app.sdtaPropertyLibraryPath, 13, false);
    PropertyCheck<AsrComponent>(app, rules, all, app.asrPropertyLibraryPath, 24, true);
}

void checkVisibility(const CPartwrightPlugInApp& app, std::vector<TableFinding>& all) {
    static constexpr std::wstring_view columns[] = {L"GroupID", L"LParID_RAPID", L"LParID_ASR"};
    const std::wstring path = app.programFolder + L"LibColVisibility_Ext.csv";
    Findings findings(all, path);
    RuleTableForm form;
    form.columns = columns;
    std::set<std::int32_t> groups;
    for (const RuleRow& row : openForCheck(path, form, findings).rows) {
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
    for (std::int32_t group = 1; group <= lastAsrGroup; ++group)
        if (!ColumnsOfAsrGroup(group).empty() && !groups.contains(group))
            findings.add(0, L"GroupID",
                         say({L"no row for group ", number(group),
                              L": both levels call it complete as it is"}));
}

void checkDefaults(const CPartwrightPlugInApp& app, const ValidationRules& rules,
                   std::vector<TableFinding>& all) {
    checkDefaultTable<SdtaComponent>(app, app.sdtaDefaultLParPath, rules, all);
    checkDefaultTable<AsrComponent>(app, app.asrDefaultLParPath, rules, all);
}

void checkConversion(const CPartwrightPlugInApp& app, std::vector<TableFinding>& all) {
    static constexpr std::wstring_view columns[] = {L"Method", L"NameID", L"Family", L"ID_BiCod"};
    const std::wstring path = app.programFolder + L"Conv_BiCode.csv";
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
        if (family && (*family < 0 || static_cast<std::size_t>(*family) >= familyNames().size()))
            findings.add(row.line, L"Family", L"no such family");
    }
    if (table.rows.empty())
        return;
    for (std::int32_t group = 1; group <= lastSdtaGroup; ++group) {
        std::int32_t family = 0;
        const std::int32_t code = ConvertBiCode(app, group, family);
        const bool named = namesOf<AsrComponent>(app, code, 0).first != notApplicableGroup &&
                           namesOf<AsrComponent>(app, code, 0).first != notDefinedName;
        if (!named)
            findings.add(0, L"NameID",
                         say({L"SDTA group ", number(group), L" reaches no Analyses group"}));
    }
}

} // namespace partwright
