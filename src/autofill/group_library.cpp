#include "autofill/group_library.h"

#include "autofill/group_library_sections.h"
#include "core/messages.h"
#include "core/text.h"
#include "core/text_file.h"

#include <algorithm>
#include <limits>
#include <optional>

namespace partwright {

namespace {

using namespace group_library;

using NamesById = std::map<std::int32_t, std::wstring>;

NamesById namesOf(const Section& section, std::wstring_view idColumn,
                  std::wstring_view nameColumn) {
    const std::wstring_view columns[] = {idColumn, nameColumn};
    const SectionRows rows(section, columns);
    NamesById names;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const RuleRow row = rows[i];
        if (const auto id = idOf(row, idColumn))
            names[*id] = row.text(nameColumn);
    }
    return names;
}

std::wstring nameFor(const NamesById& names, std::optional<std::int32_t> id) {
    const auto name = id ? names.find(*id) : names.end();
    return name == names.end() ? std::wstring() : name->second;
}

using RulesById = std::map<std::int32_t, GroupLibraryRule>;

RulesById rulesOf(const Section& section, const NamesById& families,
                  const NamesById& manufacturers) {
    constexpr std::wstring_view columns[] = {L"Rules_ID",   L"Completed", L"RegExp",
                                             L"Example",    L"Family_ID", L"Manufacturer_ID",
                                             L"Description"};
    const SectionRows rows(section, columns);
    RulesById rules;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const RuleRow row = rows[i];
        const auto id = idOf(row, L"Rules_ID");
        if (!id || row.number(L"Completed").value_or(0) == 0)
            continue;
        GroupLibraryRule rule;
        rule.id = *id;
        rule.regExp = row.text(L"RegExp");
        if (rule.regExp.empty() || (!rule.byColumns() && !ValidateRegularExpression(rule.regExp)))
            continue;
        rule.familyName = nameFor(families, idOf(row, L"Family_ID"));
        rule.manufacturer = nameFor(manufacturers, idOf(row, L"Manufacturer_ID"));
        rule.example = row.text(L"Example");
        rule.description = row.text(L"Description");
        rules[*id] = std::move(rule);
    }
    return rules;
}

/// The rows of one rule, gathered by columns.
class RuleColumnsGatherer {
public:
    /// Cells of the row from `first` on are LPar1 and on.
    void append(std::int32_t subRule, RuleRow& row, std::size_t first) {
        constexpr std::int32_t methodSubRule = 3;
        for (std::size_t i = 0; i < tableColumns; ++i) {
            columns_[i].push_back(std::move(row.cells[first + i]).value_or(std::wstring()));
            if (subRule == methodSubRule && split_ == tableColumns &&
                columns_[i].back() == descriptionMethod)
                split_ = i;
        }
    }

    void moveTo(GroupLibraryRule& rule) {
        const auto middle = columns_.begin() + static_cast<std::ptrdiff_t>(split_);
        rule.keyColumns.assign(std::make_move_iterator(columns_.begin()),
                               std::make_move_iterator(middle));
        rule.valueColumns.assign(std::make_move_iterator(middle),
                                 std::make_move_iterator(columns_.end()));
        std::erase_if(rule.valueColumns, [](const GroupLibraryColumn& column) {
            return std::all_of(column.begin(), column.end(),
                               [](const std::wstring& cell) { return cell.empty(); });
        });
        std::stable_sort(rule.valueColumns.begin(), rule.valueColumns.end(),
                         [](const GroupLibraryColumn& a, const GroupLibraryColumn& b) {
                             return placeOf(a) < placeOf(b);
                         });
    }

private:
    /// A column without a place stands last.
    static std::int64_t placeOf(const GroupLibraryColumn& column) {
        const std::wstring_view cell = cellOf(column, positionRow);
        return cell.empty() ? std::numeric_limits<std::int64_t>::max() : toInteger(cell);
    }

    std::array<GroupLibraryColumn, tableColumns> columns_;
    std::size_t split_ = tableColumns;
};

void addColumns(const Section& section, RulesById& rules) {
    std::vector<std::wstring_view> columns = {L"Rule_ID", L"SubRul_ID"};
    const std::size_t firstCell = columns.size();
    columns.insert(columns.end(), tableColumnNames().begin(), tableColumnNames().end());
    const SectionRows rows(section, columns);
    std::optional<std::int32_t> current;
    RuleColumnsGatherer gathered;
    const auto finish = [&] {
        const auto rule = current ? rules.find(*current) : rules.end();
        if (rule != rules.end())
            gathered.moveTo(rule->second);
        gathered = RuleColumnsGatherer();
    };
    for (std::size_t i = 0; i < rows.size(); ++i) {
        RuleRow row = rows[i];
        const auto id = idOf(row, L"Rule_ID");
        if (!id)
            continue;
        if (id != current)
            finish();
        current = id;
        gathered.append(row.number(L"SubRul_ID").value_or(0), row, firstCell);
    }
    finish();
}

/// Makes the key columns ready; their positions together must count 1, 2, 3 and on.
void prepareKeys(GroupLibraryRule& rule) {
    std::int32_t expected = 1;
    for (const GroupLibraryColumn& column : rule.keyColumns) {
        rule.keys.emplace_back(column);
        for (const std::int32_t position : rule.keys.back().positions()) {
            if (position != expected && rule.indexFault.empty()) {
                const std::wstring_view field =
                    expected == 1 ? std::wstring_view(L"KEY_PN") : cellOf(column, nameRow);
                rule.indexFault = field.empty() ? std::wstring(message::indexFieldError)
                                                : message::indexFieldErrorIn(field);
            }
            ++expected;
        }
    }
    if (expected == 1 && !rule.keyColumns.empty())
        rule.indexFault = message::indexFieldErrorIn(L"KEY_PN");
}

} // namespace

GroupLibraryTable parseGroupLibrary(std::string_view bytes, CodePage codePage) {
    const Sections sections = readSections(bytes, codePage);
    if (!sections.rules.present)
        return {};
    RulesById rules = rulesOf(sections.rules, namesOf(sections.families, L"Family_ID", L"Family"),
                              namesOf(sections.makers, L"Manufacturer_ID", L"ShortName"));
    if (sections.tables.present)
        addColumns(sections.tables, rules);
    GroupLibraryTable table;
    table.reserve(rules.size());
    for (auto& [id, rule] : rules) {
        prepareKeys(rule);
        table.push_back(std::move(rule));
    }
    return table;
}

GroupLibrary::GroupLibrary(GroupLibraryTable table, wchar_t mark)
    : table_(std::move(table)), mark_(mark) {
    prepare();
}

void GroupLibrary::prepare() {
    std::vector<std::wstring> expressions;
    for (std::size_t index = 0; index < table_.size(); ++index) {
        const GroupLibraryRule& rule = table_[index];
        if (!rule.byColumns()) {
            byExpression_.push_back(index);
            expressions.push_back(rule.regExp);
            continue;
        }
        if (rule.keys.empty())
            continue;
        const auto codes = rule.keys.front().codes(rule.keyColumns.front());
        if (codes.empty())
            withoutFirstCode_.push_back(index);
        for (const std::wstring_view code : codes) {
            const auto fresh = static_cast<std::uint32_t>(byFirstCode_.size());
            const std::uint32_t list = firstCodes_.insert(code, fresh);
            if (list == fresh)
                byFirstCode_.emplace_back();
            byFirstCode_[list].push_back(index);
        }
    }
    expressions_ = RegularExpressionSet(expressions);
}

std::vector<std::size_t> GroupLibrary::candidates(std::wstring_view partNumber) const {
    std::vector<std::size_t> found = expressions_.matches(partNumber);
    for (std::size_t& index : found)
        index = byExpression_[index];
    found.insert(found.end(), withoutFirstCode_.begin(), withoutFirstCode_.end());
    CharacterTrie::Node node = CharacterTrie::root;
    for (const wchar_t c : partNumber) {
        node = firstCodes_.step(node, c);
        if (node == CharacterTrie::nowhere)
            break;
        if (const auto list = firstCodes_.value(node); list != CharacterTrie::noValue)
            found.insert(found.end(), byFirstCode_[list].begin(), byFirstCode_[list].end());
    }
    std::sort(found.begin(), found.end());
    return found;
}

PartDescription GroupLibrary::DescribePartNumber(std::wstring_view partNumber) {
    PartDescription result;
    for (const std::size_t index : candidates(partNumber)) {
        const GroupLibraryRule& rule = table_[index];
        if (!rule.indexFault.empty()) {
            if (reported_.insert(rule.id).second)
                result.messages.push_back(rule.indexFault);
            continue;
        }
        result.description = describeBy(rule, partNumber, mark_);
        if (!result.description.empty()) {
            result.manufacturer = rule.manufacturer;
            result.rule = rule.id;
            break;
        }
    }
    return result;
}

LoadResult LoadGroupLibrary(std::wstring_view path, wchar_t mark, GroupLibrary& library) {
    const TextFile file = readTextFile(path);
    LoadResult result{file.status, std::wstring(path), {}};
    if (file.status == FileStatus::OpenFailed)
        result.message = message::failedToOpen(path);
    library = GroupLibrary(file.status == FileStatus::Ok
                               ? parseGroupLibrary(file.bytes, file.form.codePage)
                               : GroupLibraryTable(),
                           mark);
    return result;
}

} // namespace partwright
