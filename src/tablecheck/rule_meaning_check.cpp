#include "tablecheck/rule_meaning_check.h"

#include "core/cell_text.h"
#include "core/library_kind.h"
#include "core/vocabulary.h"
#include "tablecheck/measure.h"

#include <algorithm>
#include <iterator>

namespace partwright {

namespace {

struct RulePlace {
    RuleKey key;
    std::size_t parameter = 0;
    friend bool operator==(const RulePlace&, const RulePlace&) = default;
};

/// Libraries have always been filled so: a recommended supply where linear circuits have no input
/// power, and the two choices of a crystal.
constexpr RulePlace kept[] = {
    {{14, 2, 1}, 10},
    {{20, 25, 2}, 8},
    {{20, 25, 2}, 10},
};

bool onlyTellsNotApplicable(const std::vector<Term>& terms) {
    return std::all_of(terms.begin(), terms.end(), [](const Term& term) {
        return term.name == L"FUNC4" && !term.lists.empty() &&
               term.lists.front().front() == cell::storedNotApplicable;
    });
}

std::optional<Measure> unitOfTerm(const Term& term) {
    if (term.name == L"FUNC1" && term.lists.size() >= 2)
        return unitOfList(term.lists[0], term.lists[1]);
    if (term.name == L"FUNC8" && !term.lists.empty())
        return unitOfList(term.lists.front(), std::vector<std::wstring>{L"1"});
    return std::nullopt;
}

template <class Record>
class MeaningCheck {
public:
    MeaningCheck(const CPartwrightPlugInApp& app, const FillTables& tables, Findings& findings)
        : app_(app), tables_(tables), findings_(findings) {}

    void run() {
        for (const auto& [key, row] : tables_.rules.rows()) {
            if (key.family != Kind<Record>::method)
                continue;
            const auto [group, type] = app_.of<Record>().GroupAndTypeNames(key.group, key.type);
            const auto* property = app_.of<Record>().FindPropertyRow(group, type);
            const std::size_t columns = Kind<Record>::columns(key.group).size();
            for (std::size_t n = 1; property != nullptr && n <= std::min(columns, rulesPerRow); ++n)
                check({key, n}, ParseRuleString(row.texts[n - 1], tables_.units),
                      property->names[n], property->messages[n]);
        }
    }

private:
    void check(const RulePlace& place, const std::vector<Term>& terms, std::wstring_view label,
               std::wstring_view message) {
        if (label == cell::labelNotApplicable) {
            if (!onlyTellsNotApplicable(terms) &&
                std::find(std::begin(kept), std::end(kept), place) == std::end(kept))
                tell(place, L"fills a parameter that does not apply to the type");
            return;
        }
        const auto asked = unitOfMessage(message);
        for (const Term& term : terms)
            if (const auto read = unitOfTerm(term); asked && read && !read->isSameAs(*asked)) {
                tell(place, say({L"reads in ", read->text(), L", and the message asks for ",
                                 asked->text()}));
                return;
            }
    }

    void tell(const RulePlace& place, std::wstring_view text) {
        findings_.add(0, L"LPar" + std::to_wstring(place.parameter),
                      say({number(place.key.family), L"/", number(place.key.group), L"/",
                           number(place.key.type), L": ", text}));
    }

    const CPartwrightPlugInApp& app_;
    const FillTables& tables_;
    Findings& findings_;
};

} // namespace

void checkRuleMeanings(const CPartwrightPlugInApp& app, const FillTables& tables,
                       std::vector<TableFinding>& all) {
    Findings findings(all, L"ParamRuleTable");
    MeaningCheck<SdtaComponent>(app, tables, findings).run();
    MeaningCheck<AsrComponent>(app, tables, findings).run();
}

} // namespace partwright
