#include "tablecheck/classification_tables.h"

#include "autofill/part_prefixes.h"
#include "autofill/rule_language.h"
#include "autofill/synonyms.h"
#include "autofill/type_keywords.h"
#include "core/cell_text.h"
#include "core/library_kind.h"
#include "core/text.h"
#include "core/vocabulary.h"
#include "tablecheck/expression_check.h"

#include <algorithm>
#include <map>
#include <set>

namespace partwright {

namespace {

bool isPrefix(std::wstring_view prefix) {
    return !prefix.empty() && std::none_of(prefix.begin(), prefix.end(),
                                           [](wchar_t c) { return isDigit(c) || c == L' '; });
}

void checkDesignators(const RuleRow& row, Findings& findings) {
    const std::wstring list = row.text(L"TipicalRefDes");
    if (list.empty())
        findings.add(row.line, L"TipicalRefDes", L"is empty, so no designator leads to the group");
    std::set<std::wstring> seen;
    for (const std::wstring_view prefix : split(list, L',')) {
        if (!list.empty() && !isPrefix(trim(prefix)))
            findings.add(row.line, L"TipicalRefDes",
                         say({L"\"", prefix, L"\" is no designator prefix"}));
        else if (!seen.insert(upperCase(trim(prefix))).second)
            findings.add(row.line, L"TipicalRefDes", say({L"\"", prefix, L"\" stands twice"}));
    }
}

constexpr std::wstring_view switchedOff = L"*NU";

/// Which functions an exclusion may use, and how many lists each takes.
bool isExclusionTerm(const Term& term) {
    static const std::set<std::wstring, std::less<>> keys = {L"V",   L"I",   L"Pw",
                                                             L"Cap", L"Res", L"T_CAP"};
    static const std::set<std::wstring, std::less<>> operators = {L">", L"<", L">=", L"<="};
    if (term.name == L"FUNC5")
        return term.lists.size() == 2 && term.lists[0][0] == L"BIP" &&
               (term.lists[1][0] == L"NPN" || term.lists[1][0] == L"PNP");
    if (term.name != L"FUNC6" || term.lists.size() < 3 || term.lists.size() > 4)
        return false;
    const auto comparable = [](const std::wstring& text) {
        return readInteger(text).consumed != 0 || text.starts_with(L"0.") || text.starts_with(L".");
    };
    return keys.contains(term.lists[0][0]) &&
           std::all_of(term.lists[1].begin(), term.lists[1].end(), comparable) &&
           std::all_of(term.lists[2].begin(), term.lists[2].end(),
                       [](const std::wstring& text) { return operators.contains(text); });
}

void checkExclusion(const RuleRow& row, const UnitTable& units, Findings& findings) {
    const std::wstring text = row.text(L"RulesExcluding");
    if (text.empty() || text == switchedOff || text == L"*D")
        return;
    const std::vector<Term> terms = ParseRuleString(text, units);
    std::size_t written = 0;
    for (auto at = text.find(L"FUNC"); at != std::wstring::npos; at = text.find(L"FUNC", at + 1))
        ++written;
    if (terms.size() != written || terms.empty())
        findings.add(row.line, L"RulesExcluding",
                     L"holds a term that is dropped; the lists of a term must be equally long");
    else if (!std::all_of(terms.begin(), terms.end(), isExclusionTerm))
        findings.add(row.line, L"RulesExcluding", L"is no test of polarity or value");
}

void checkKeywords(const RuleRow& row, Findings& findings) {
    const std::vector<std::wstring> keywords = splitKeywords(row.text(L"Rules"));
    if (keywords.empty())
        findings.add(row.line, L"Rules", L"holds no keyword");
    for (const std::wstring& keyword : keywords)
        if (keyword.size() >= cell::maximumLength)
            findings.add(row.line, L"Rules", L"a keyword is cut at 255 characters");
    if (!row.text(L"Rules").empty())
        checkExpression(row.text(L"Rules"), false, row.line, L"Rules", findings);
}

/// A keyword of two types leads to the lower one, unless that one has a test to fail.
class KeywordOwners {
public:
    void check(const RuleRow& row, std::int32_t group, std::int32_t type, Findings& findings) {
        if (row.text(L"RulesExcluding") == switchedOff)
            return;
        const bool tested = row.text(L"RulesExcluding").find(L"FUNC") != std::wstring::npos;
        for (const std::wstring& keyword : splitKeywords(row.text(L"Rules"))) {
            const auto [owner, isNew] =
                owners_.emplace(std::pair(group, keyword), Owner{type, tested});
            if (!isNew && !owner->second.tested && owner->second.type <= type)
                findings.add(
                    row.line, L"Rules",
                    say({L"\"", keyword, L"\" leads to type ", number(owner->second.type)}));
        }
    }

private:
    struct Owner {
        std::int32_t type = 0;
        bool tested = false;
    };
    std::map<std::pair<std::int32_t, std::wstring>, Owner> owners_;
};

template <class Record>
void checkDirectKey(const CPartwrightPlugInApp& app, const RuleRow& row, std::int32_t group,
                    std::int32_t type, Findings& findings) {
    const auto [groupName, typeName] = app.of<Record>().GroupAndTypeNames(group, type);
    if (groupName == notDefinedName || groupName == notApplicableGroup)
        findings.add(row.line, L"BiCod", say({L"no group ", number(group)}));
    else if (type != 0 && typeName == defaultTypeName)
        findings.add(row.line, L"TypeID",
                     say({L"group ", number(group), L" has no type ", number(type)}));
    else if (row.text(L"Type Name") != typeName)
        findings.add(row.line, L"Type Name", say({L"the type is called \"", typeName, L"\""}));
}

/// A part number that begins with a prefix and is told by it; none when synonyms or other prefixes
/// come before it, whatever stands behind.
std::optional<std::wstring> reachedSample(const std::wstring& prefix, const std::wstring& says,
                                          const SynonymTable& synonyms) {
    for (wchar_t digit = L'0'; digit <= L'9'; ++digit)
        for (const std::wstring_view behind : {L"", L"7", L"A1", L"~1", L"#1"}) {
            std::wstring sample = prefix;
            std::replace(sample.begin(), sample.end(), anyDigit, digit);
            sample += behind;
            if (synonyms.rewrite(sample) == L" " + sample + L" " + says)
                return sample;
        }
    return std::nullopt;
}

} // namespace

void checkGroupRules(const CPartwrightPlugInApp& app, std::vector<TableFinding>& all) {
    static constexpr std::wstring_view columns[] = {L"BiCod", L"NameGroup",      L"Description",
                                                    L"Rules", L"RulesExcluding", L"TipicalRefDes"};
    Findings findings(all, app.paths.descrRulesPath);
    RuleTableForm form;
    form.columns = columns;
    const RuleTable table = openForCheck(app.paths.descrRulesPath, form, findings);
    std::int32_t expected = 0;
    std::set<std::wstring> names;
    for (const RuleRow& row : table.rows) {
        const auto group = integerCell(row, L"BiCod", findings);
        if (group && *group != ++expected) {
            findings.add(row.line, L"BiCod", say({L"group ", number(expected), L" belongs here"}));
            expected = *group;
        }
        const std::wstring name = row.text(L"NameGroup");
        if (name.empty() || !names.insert(name).second)
            findings.add(row.line, L"NameGroup", L"is empty or stands twice");
        if (row.text(L"Rules").empty())
            findings.add(row.line, L"Rules", L"is empty, so the group does not exist");
        else
            checkExpression(row.text(L"Rules"), true, row.line, L"Rules", findings);
        if (const std::wstring excluding = row.text(L"RulesExcluding"); !excluding.empty())
            checkExpression(excluding, true, row.line, L"RulesExcluding", findings);
        checkDesignators(row, findings);
    }
    if (!table.rows.empty() && expected != lastSdtaGroup)
        findings.add(
            0, L"BiCod",
            say({L"the groups end at ", number(expected), L", not at ", number(lastSdtaGroup)}));
}

void checkTypeKeywords(const CPartwrightPlugInApp& app, const UnitTable& units,
                       std::vector<TableFinding>& all) {
    Findings findings(all, app.paths.descrRulesSdtaTypesPath);
    std::set<GroupAndType> seen;
    std::set<std::int32_t> defaults;
    KeywordOwners owners;
    const RuleTable table =
        openForCheck(app.paths.descrRulesSdtaTypesPath, typeKeywordForm(), findings);
    for (const RuleRow& row : table.rows) {
        const auto group = integerCell(row, L"BiCod", findings);
        const auto type = integerCell(row, L"ParamID", findings);
        if (!group || !type)
            continue;
        const auto count = static_cast<std::int32_t>(TypeTableOfSdtaGroup(*group).size());
        if (*group < 1 || *group > lastSdtaTypeGroup || *type < 1 || *type >= count) {
            findings.add(row.line, L"ParamID", L"no such pair of group and type");
            continue;
        }
        seen.insert({*group, *type});
        checkKeywords(row, findings);
        owners.check(row, *group, *type, findings);
        checkExclusion(row, units, findings);
        if (row.text(L"RulesExcluding").find(L"*D") != std::wstring::npos &&
            !defaults.insert(*group).second)
            findings.add(row.line, L"RulesExcluding", L"the group has a default type already");
    }
    for (std::int32_t group = 1; group <= lastSdtaTypeGroup && !table.rows.empty(); ++group)
        for (std::int32_t type = 1;
             type < static_cast<std::int32_t>(TypeTableOfSdtaGroup(group).size()); ++type)
            if (!seen.contains({group, type}))
                findings.add(
                    0, L"ParamID",
                    say({L"no keywords for group ", number(group), L", type ", number(type)}));
}

void checkDirectKeys(const CPartwrightPlugInApp& app, std::vector<TableFinding>& all) {
    static constexpr std::wstring_view columns[] = {L"Text_Key", L"MethodID", L"BiCod", L"TypeID",
                                                    L"Type Name"};
    Findings findings(all, app.paths.managementTablePath);
    RuleTableForm form;
    form.columns = columns;
    form.comments = true;
    form.searchesHeader = true;
    std::set<std::pair<std::int32_t, std::wstring>> keys;
    for (const RuleRow& row : openForCheck(app.paths.managementTablePath, form, findings).rows) {
        const auto method = integerCell(row, L"MethodID", findings);
        const auto group = integerCell(row, L"BiCod", findings);
        const auto type = integerCell(row, L"TypeID", findings);
        if (!method || !group || !type)
            continue;
        const std::wstring key = upperCase(row.text(L"Text_Key"));
        if (key.empty())
            findings.add(row.line, L"Text_Key", L"is empty and matches nothing");
        if (!keys.insert({*method, key}).second)
            findings.add(row.line, L"Text_Key", L"stands twice; the later row is never reached");
        if (*method == Kind<SdtaComponent>::method)
            checkDirectKey<SdtaComponent>(app, row, *group, *type, findings);
        else if (*method == Kind<AsrComponent>::method)
            checkDirectKey<AsrComponent>(app, row, *group, *type, findings);
        else
            findings.add(row.line, L"MethodID", L"is neither 14 nor 20");
    }
}

void checkSynonyms(const CPartwrightPlugInApp& app, std::vector<TableFinding>& all) {
    const std::wstring path = synonymPath(app.paths);
    Findings findings(all, path);
    const RuleTable table = openForCheck(path, synonymForm(), findings);
    std::map<std::wstring, std::size_t> seen;
    std::set<std::size_t> repeated;
    for (const RuleRow& row : table.rows)
        if (const auto [first, isNew] = seen.emplace(row.text(L"Find"), row.line); !isNew) {
            repeated.insert(row.line);
            findings.add(
                row.line, L"Find",
                say({L"stands on line ", number(first->second), L" already and is never reached"}));
        }
    const SynonymTable synonyms(table);
    for (const std::size_t line : synonyms.faultyLines())
        findings.add(line, L"Find", L"the entry cannot be read");
    for (const SynonymTable::HiddenEntry& hidden : synonyms.hiddenEntries())
        if (repeated.insert(hidden.line).second)
            findings.add(
                hidden.line, L"Find",
                say({L"is never reached: line ", number(hidden.behind), L" always matches first"}));
}

void checkPartPrefixes(const CPartwrightPlugInApp& app, const FillEngine& engine,
                       std::vector<TableFinding>& all) {
    Findings findings(all, partPrefixPath(app.paths));
    SynonymTable synonyms;
    static_cast<void>(LoadSynonyms(app.paths, synonyms));
    std::map<std::wstring, std::size_t> seen;
    for (const RuleRow& row :
         openForCheck(partPrefixPath(app.paths), partPrefixForm(), findings).rows) {
        const std::wstring prefix = row.text(L"Prefix");
        const std::wstring says = row.text(L"Says");
        if (prefix.empty() || says.empty()) {
            findings.add(row.line, prefix.empty() ? L"Prefix" : L"Says", L"is empty");
            continue;
        }
        if (const auto [first, isNew] = seen.emplace(upperCase(prefix), row.line); !isNew) {
            findings.add(row.line, L"Prefix",
                         say({L"stands on line ", number(first->second), L" already"}));
            continue;
        }
        const auto sample = reachedSample(prefix, says, synonyms);
        if (!sample)
            findings.add(row.line, L"Prefix", L"is never reached");
        else if (engine.fillByWords<SdtaComponent>({}, *sample).found.group == 0)
            findings.add(row.line, L"Says", say({L"\"", says, L"\" leads to no group"}));
    }
}

} // namespace partwright
