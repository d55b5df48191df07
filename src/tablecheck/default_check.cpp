// The check of the two tables of default values.

#include "core/cell_text.h"
#include "core/decimal_mark.h"
#include "core/library_kind.h"
#include "core/text.h"
#include "core/vocabulary.h"
#include "tablecheck/definition_tables.h"
#include "tablecheck/value_lists.h"
#include "validation/cell_check.h"

#include <algorithm>
#include <set>

namespace partwright {

namespace {

constexpr wchar_t tableMark = L'.';

double bound(const std::wstring& text) {
    return text.empty() ? 0 : readCheckedNumber(text, tableMark).value_or(0);
}

/// Does a value pass the reference of its column? A missing rule is told of where it is missing.
bool passes(const std::wstring& value, std::int32_t reference, const ValidationRules& rules) {
    const auto rule = rules.find(reference);
    if (reference < 0 || reference > lastRuleReference || rule == rules.end())
        return true;
    const ValidationRule& r = rule->second;
    return CheckValue(cell::toFile(value), r.checkType, r.checkId, bound(r.param1), bound(r.param2),
                      tableMark) == CheckResult::Passed;
}

template <class Record>
class DefaultCheck {
public:
    DefaultCheck(const CPartwrightPlugInApp& app, const std::wstring& path,
                 const ValidationRules& rules, std::vector<TableFinding>& all)
        : app_(app), rules_(rules), findings_(all, path) {
        for (std::size_t n = 1; n <= Kind<Record>::maximumColumns; ++n)
            columns_.push_back(L"LPar" + std::to_wstring(n));
        std::vector<std::wstring_view> names = {L"ID_Family", L"ID_Type"};
        names.insert(names.end(), columns_.begin(), columns_.end());
        RuleTableForm form;
        form.columns = names;
        form.comments = true;
        form.closesRows = true;
        for (const RuleRow& row : openForCheck(path, form, findings_, Rows::MayBe).rows)
            checkRow(row);
    }

private:
    void checkRow(const RuleRow& row) {
        const auto group = integerCell(row, L"ID_Family", findings_);
        const auto type = integerCell(row, L"ID_Type", findings_);
        if (!group || !type)
            return;
        if (!seen_.insert({*group, *type}).second)
            findings_.add(row.line, L"ID_Type", L"the pair stands above; that line is lost");
        const auto [groupName, typeName] = app_.of<Record>().GroupAndTypeNames(*group, *type);
        const auto* property = app_.of<Record>().FindPropertyRow(groupName, typeName);
        if (Kind<Record>::columns(*group).empty() || property == nullptr ||
            (*type != 0 && typeName == defaultTypeName)) {
            findings_.add(row.line, L"ID_Type", L"no such pair of group and type");
            return;
        }
        for (std::size_t n = 1; n <= columns_.size(); ++n)
            if (const std::wstring value = row.text(columns_[n - 1]); !value.empty())
                checkValue(row, *group, n, value, *property);
    }

    template <class Row>
    void checkValue(const RuleRow& row, std::int32_t group, std::size_t n,
                    const std::wstring& value, const Row& property) {
        const auto tell = [&](std::wstring text) {
            findings_.add(row.line, columns_[n - 1], std::move(text));
        };
        const auto list = valueList<Record>(group, n);
        if (n > Kind<Record>::columns(group).size())
            tell(L"the group has no such column");
        else if (value == cell::storedNotApplicable)
            return;
        else if (property.names[n] == cell::labelNotApplicable)
            tell(L"the parameter does not apply to the type");
        else if (!list.empty() && std::find(list.begin(), list.end(), value) == list.end())
            tell(say({L"\"", value, L"\" is not in the list of the column"}));
        else if (!passes(value, property.valid[n], rules_))
            tell(say({L"\"", value, L"\" fails its own validation rule"}));
    }

    const CPartwrightPlugInApp& app_;
    const ValidationRules& rules_;
    Findings findings_;
    std::vector<std::wstring> columns_;
    std::set<std::pair<std::int32_t, std::int32_t>> seen_;
};

} // namespace

void checkDefaults(const CPartwrightPlugInApp& app, const ValidationRules& rules,
                   std::vector<TableFinding>& all) {
    DefaultCheck<SdtaComponent>(app, app.paths.sdtaDefaultLParPath, rules, all);
    DefaultCheck<AsrComponent>(app, app.paths.asrDefaultLParPath, rules, all);
}

} // namespace partwright
