#include "tablecheck/compiled_rules_check.h"

#include "core/cell_text.h"
#include "core/library_kind.h"
#include "core/number.h"
#include "core/text.h"
#include "core/vocabulary.h"
#include "tablecheck/value_lists.h"

#include <algorithm>
#include <map>

namespace partwright {

namespace {

constexpr std::wstring_view termStart = L"FUNC";

/// How many argument lists a function takes at least.
std::optional<std::size_t> listsOf(std::wstring_view function) {
    static const std::map<std::wstring_view, std::size_t> functions = {
        {L"FUNC1", 2},    {L"FUNC2", 1},    {L"FUNC3", 2},    {L"FUNC4", 1},
        {L"FUNC8", 1},    {L"FUNC_PIN", 1}, {L"FUNC_PW", 2},  {L"FUNC_TETHA", 1},
        {L"FUNC_PiQ", 1}, {L"FUNC_MIN", 1}, {L"FUNC_MAX", 1}, {L"FUNC_SUBCOMP", 1}};
    const auto found = functions.find(function);
    return found == functions.end() ? std::nullopt : std::optional(found->second);
}

/// The pieces of a rule that each hold one whole term; an outer function has its end in the last
/// piece of what it encloses and is no term.
std::vector<std::wstring_view> writtenTerms(std::wstring_view rule) {
    std::vector<std::wstring_view> terms;
    for (auto begin = rule.find(termStart); begin != std::wstring_view::npos;) {
        const auto next = rule.find(termStart, begin + termStart.size());
        const std::wstring_view piece = rule.substr(begin, next - begin);
        if (piece.find(L'}') != std::wstring_view::npos)
            terms.push_back(piece);
        begin = next;
    }
    return terms;
}

bool allNumbers(const std::vector<std::wstring>& values) {
    return std::all_of(values.begin(), values.end(), [](const std::wstring& value) {
        return wholeNumber(value, L'.').has_value();
    });
}

/// Where a rule stands: its row, its parameter, and what the vocabulary says of both.
struct RulePlace {
    RuleKey key;
    std::size_t parameter = 0;
    std::size_t columns = 0;
    /// The drop-down list of the column.
    std::vector<std::wstring_view> list;
};

class RuleTextCheck {
public:
    RuleTextCheck(const UnitTable& units, Findings& findings)
        : units_(units), findings_(findings) {}

    void run(const std::wstring& rule, const RulePlace& place) {
        if (place.parameter > place.columns && !rule.empty())
            tell(place, L"the group has no such column");
        std::size_t whole = 0;
        for (const std::wstring_view piece : writtenTerms(rule)) {
            const std::vector<Term> terms = ParseRuleString(piece, units_);
            if (terms.empty())
                tell(place, say({L"\"", piece, L"\" is dropped"}));
            else
                checkTerm(terms.front(), piece, place);
            whole += terms.size();
        }
        // Two values to compare, and two to choose from.
        if (rule.starts_with(L"FUNC_IF") &&
            (whole != 4 || rule.find_first_of(L"<>=") == std::wstring::npos))
            tell(place, L"a condition compares two terms and picks one of two");
    }

private:
    void checkTerm(const Term& term, std::wstring_view piece, const RulePlace& place) {
        const auto lists = listsOf(term.name);
        if (!lists) {
            tell(place, say({L"no function \"", term.name, L"\""}));
            return;
        }
        if (const auto key = piece.find(L"[#"); key != std::wstring_view::npos) {
            const auto name = piece.substr(key + 2, piece.find(L']', key) - key - 2);
            if (units_.find(name) == nullptr) {
                tell(place, say({L"no key \"", name, L"\" in the unit table"}));
                return;
            }
        }
        if (term.lists.size() < *lists) {
            tell(place, say({L"\"", piece, L"\" lacks a list"}));
            return;
        }
        if (term.name == L"FUNC1" && !allNumbers(term.lists[1]))
            tell(place, say({L"\"", piece, L"\" has a factor that is no number"}));
        if (term.name == L"FUNC2")
            checkSources(term, place);
        if (!place.list.empty() && (term.name == L"FUNC3" || term.name == L"FUNC4"))
            checkCodes(term.name == L"FUNC3" ? term.lists[1] : term.lists[0], place);
    }

    /// A value worked out from other cells.
    void checkSources(const Term& term, const RulePlace& place) {
        for (const std::wstring& source : term.lists[0]) {
            const std::int32_t number =
                source.starts_with(L"LPar") ? toInteger(std::wstring_view(source).substr(4)) : 0;
            if (number < 1 || static_cast<std::size_t>(number) > place.columns)
                tell(place, say({L"\"", source, L"\" is no column of the group"}));
        }
    }

    /// Codes become the names at their places in the list.
    void checkCodes(const std::vector<std::wstring>& codes, const RulePlace& place) {
        for (const std::wstring& code : codes) {
            const auto number = wholeNumber(code, L'.');
            if (code != cell::noValue && code != cell::storedNotApplicable &&
                (!number || *number < 1 || *number > static_cast<double>(place.list.size())))
                tell(place, say({L"code \"", code, L"\" lies outside of the column's list"}));
        }
    }

    void tell(const RulePlace& place, std::wstring text) {
        findings_.add(0, L"LPar" + std::to_wstring(place.parameter),
                      say({number(place.key.family), L"/", number(place.key.group), L"/",
                           number(place.key.type), L": ", text}));
    }

    const UnitTable& units_;
    Findings& findings_;
};

template <class Record>
std::span<const TypeName> typesOf(std::int32_t group) {
    if constexpr (std::is_same_v<Record, SdtaComponent>)
        return TypeTableOfSdtaGroup(group);
    else
        return TypeTableOfAsrGroup(group);
}

/// A group without types of its own is not in use; rows of its number serve nothing.
template <class Record>
void checkRows(const FillTables& tables, Findings& findings) {
    RuleTextCheck check(tables.units, findings);
    for (const auto& [key, row] : tables.rules.rows()) {
        const auto types = typesOf<Record>(key.group);
        if (key.family != Kind<Record>::method || types.size() < 2)
            continue;
        if (key.type < 1 || key.type >= static_cast<std::int32_t>(types.size()))
            findings.add(0, L"Type",
                         say({number(key.family), L"/", number(key.group), L"/", number(key.type),
                              L": the group has no such type"}));
        for (std::size_t i = 0; i < row.texts.size(); ++i)
            check.run(row.texts[i], {key, i + 1, Kind<Record>::columns(key.group).size(),
                                     valueList<Record>(key.group, i + 1)});
    }
    for (std::int32_t group = 1; group <= Kind<Record>::lastGroup; ++group)
        for (std::int32_t type = 1; !Kind<Record>::columns(group).empty() &&
                                    type < static_cast<std::int32_t>(typesOf<Record>(group).size());
             ++type)
            if (tables.rules.find({Kind<Record>::method, group, type}) == nullptr)
                findings.add(0, L"Type",
                             say({number(Kind<Record>::method), L"/", number(group), L"/",
                                  number(type), L": no row for the type"}));
}

} // namespace

void checkCompiledRules(const FillTables& tables, std::vector<TableFinding>& all) {
    Findings units(all, L"UnitTable");
    for (const auto& [key, list] : tables.units.lists())
        for (std::size_t i = 0; i < list.names.size(); ++i)
            if (list.names[i].empty() || !wholeNumber(list.values[i], L'.'))
                units.add(0, key,
                          say({L"\"", list.names[i], L"\" with \"", list.values[i],
                               L"\" is no word with a number"}));
    Findings rules(all, L"ParamRuleTable");
    checkRows<SdtaComponent>(tables, rules);
    checkRows<AsrComponent>(tables, rules);
}

} // namespace partwright
