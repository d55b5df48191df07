// The check of the two property tables.

#include "core/cell_text.h"
#include "core/library_kind.h"
#include "core/text.h"
#include "core/vocabulary.h"
#include "tablecheck/definition_tables.h"
#include "tablecheck/value_lists.h"
#include "validation/cell_check.h"

#include <algorithm>
#include <iterator>
#include <map>

namespace partwright {

namespace {

constexpr std::wstring_view fixedColumns[] = {
    L"Family", L"BCodeID", L"GroupName", L"GroupDescription", L"TypeName", L"FieldListDescription"};

/// The columns of parameters 1 to `count`.
std::vector<std::wstring> parameterColumns(std::size_t count) {
    std::vector<std::wstring> columns;
    for (std::size_t n = 1; n <= count; ++n)
        for (const wchar_t* part : {L".Name", L".Message", L".Valid"})
            columns.push_back(L"LPAR" + std::to_wstring(n) + part);
    return columns;
}

/// A type is looked up by its name up to the first "<".
std::wstring lookedUpName(const std::wstring& type) {
    return type.substr(0, type.find(L'<'));
}

template <class Record>
class PropertyCheck {
public:
    PropertyCheck(const CPartwrightPlugInApp& app, const ValidationRules& rules,
                  std::vector<TableFinding>& all, const std::wstring& path, std::size_t slots,
                  bool doublesQuotes)
        : app_(app), rules_(rules), findings_(all, path), parameters_(parameterColumns(slots)) {
        std::vector<std::wstring_view> names(std::begin(fixedColumns), std::end(fixedColumns));
        names.insert(names.end(), parameters_.begin(), parameters_.end());
        RuleTableForm form;
        form.columns = names;
        form.doublesQuotes = doublesQuotes;
        const RuleTable table = openForCheck(path, form, findings_);
        for (const RuleRow& row : table.rows)
            checkRow(row);
        if (table.rows.empty())
            return;
        for (const auto& [pair, row] : rows_)
            checkServingRow(pair, *row);
        checkPairs();
    }

private:
    using Pair = std::pair<std::wstring, std::wstring>;

    void checkRow(const RuleRow& row) {
        const auto group = integerCell(row, L"BCodeID", findings_);
        if (!group)
            return;
        const std::wstring name = row.text(L"GroupName");
        if (app_.of<Record>().GroupAndTypeNames(*group, 0).first != name)
            findings_.add(row.line, L"GroupName",
                          say({L"\"", name, L"\" is not the name of group ", number(*group)}));
        if (Kind<Record>::family(*group) != row.text(L"Family"))
            findings_.add(row.line, L"Family", L"the vocabulary has another family for the group");
        if (row.text(L"GroupDescription").empty())
            findings_.add(row.line, L"GroupDescription", L"is empty, so the row is skipped");
        if (row.text(L"FieldListDescription").empty())
            findings_.add(row.line, L"FieldListDescription", L"is empty");
        const std::wstring type = row.text(L"TypeName");
        if (!isType(*group, type))
            findings_.add(row.line, L"TypeName", say({L"\"", type, L"\" is no type of the group"}));
        if (!rows_.emplace(Pair(name, type), &row).second)
            findings_.add(row.line, L"TypeName", L"the pair of group and type stands twice");
        checkParameters(row, *group);
    }

    [[nodiscard]] bool isType(std::int32_t group, const std::wstring& type) const {
        const auto types = app_.of<Record>().typesOf(group);
        return type == defaultTypeName ||
               std::any_of(types.begin(), types.end(), [&](const TypeEntry& entry) {
                   return entry.name == type || lookedUpName(entry.name) == type;
               });
    }

    void checkParameters(const RuleRow& row, std::int32_t group) {
        const Names columns = Kind<Record>::columns(group);
        for (std::size_t n = 1; n <= parameters_.size() / 3; ++n) {
            const std::wstring& nameColumn = parameters_[3 * n - 3];
            const std::wstring label = row.text(nameColumn);
            if (n > columns.size()) {
                if (!label.empty() && label != cell::labelNotApplicable)
                    findings_.add(row.line, nameColumn, L"the group has no such column");
                continue;
            }
            if (label != columns[n - 1] && label != cell::labelNotApplicable)
                findings_.add(row.line, nameColumn,
                              say({L"is neither \"", columns[n - 1], L"\" nor \"-\""}));
            if (row.text(parameters_[3 * n - 2]).empty())
                findings_.add(row.line, parameters_[3 * n - 2], L"tells nothing");
            if (label != cell::labelNotApplicable)
                checkReference(row, parameters_[3 * n - 1], group, n);
        }
    }

    void checkReference(const RuleRow& row, const std::wstring& column, std::int32_t group,
                        std::size_t parameter) {
        const std::wstring* text = row.find(column);
        if (text == nullptr || *text == cell::messageNotUsed)
            return;
        const auto reference = integerCell(row, column, findings_);
        if (!reference || *reference < 0)
            return;
        const bool hasList = !valueList<Record>(group, parameter).empty();
        if (*reference > lastRuleReference && !hasList)
            findings_.add(row.line, column, L"asks for a list, and the column has none");
        else if (*reference <= lastRuleReference && hasList)
            findings_.add(row.line, column, L"the column has a list, which begins above 10000");
        else if (*reference <= lastRuleReference && !rules_.contains(*reference))
            findings_.add(row.line, column, say({L"no validation rule ", number(*reference)}));
    }

    /// A row of a name with "<" is never looked up itself: the one that is must say the same.
    void checkServingRow(const Pair& pair, const RuleRow& row) {
        const std::wstring name = lookedUpName(pair.second);
        if (name == pair.second)
            return;
        const auto serving = rows_.find({pair.first, name});
        if (serving == rows_.end()) {
            findings_.add(row.line, L"TypeName",
                          say({L"is looked up as \"", name, L"\", which has no row"}));
            return;
        }
        for (const std::wstring& column : parameters_)
            if (row.text(column) != serving->second->text(column))
                findings_.add(row.line, column,
                              say({L"differs from line ", number(serving->second->line),
                                   L", which serves the type"}));
    }

    void checkPairs() {
        for (const auto& [group, types] : app_.of<Record>().groupTypes) {
            if (group == notDefinedName || group == notApplicableGroup)
                continue;
            for (const TypeEntry& type : types) {
                const auto* row = app_.of<Record>().FindPropertyRow(group, type.name);
                // The group's "Default" row steps in for a type without a row of its own.
                const bool own = row != nullptr && (type.name == defaultTypeName ||
                                                    row->type == lookedUpName(type.name));
                if (!own || !rows_.contains({group, type.name}))
                    findings_.add(
                        0, L"TypeName",
                        say({L"no row for group \"", group, L"\", type \"", type.name, L"\""}));
            }
        }
    }

    const CPartwrightPlugInApp& app_;
    const ValidationRules& rules_;
    Findings findings_;
    std::vector<std::wstring> parameters_;
    std::map<Pair, const RuleRow*> rows_;
};

} // namespace

void checkProperties(const CPartwrightPlugInApp& app, const ValidationRules& rules,
                     std::vector<TableFinding>& all) {
    PropertyCheck<SdtaComponent>(app, rules, all, app.paths.sdtaPropertyLibraryPath, 13, false);
    PropertyCheck<AsrComponent>(app, rules, all, app.paths.asrPropertyLibraryPath, 24, true);
}

} // namespace partwright
