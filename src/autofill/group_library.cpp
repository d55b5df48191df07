#include "autofill/group_library.h"

#include "core/messages.h"
#include "core/text.h"
#include "core/text_file.h"
#include "library/text_table.h"

#include <algorithm>
#include <array>
#include <limits>
#include <optional>

namespace partwright {

namespace {

constexpr std::size_t columnsOfRow = 28;
constexpr std::wstring_view separator = L",";

/// A section: its column names, and the lines that hold rows.
struct Section {
    bool present = false;
    HeaderColumns header;
    std::vector<std::wstring> rows;
};

class SectionReader {
public:
    SectionReader(std::string_view bytes, CodePage codePage) : lines_(bytes), codePage_(codePage) {}

    /// Goes on behind the section read before.
    Section read(std::wstring_view name) {
        Section section;
        std::wstring line;
        while (next(line))
            if (line.find(name) != std::wstring::npos) {
                readInto(section);
                break;
            }
        return section;
    }

private:
    bool next(std::wstring& line) {
        std::string_view bytes;
        if (!lines_.next(bytes))
            return false;
        line = decode(bytes, codePage_);
        return true;
    }

    void readInto(Section& section) {
        std::size_t count = 0;
        std::wstring line;
        while (next(line) && line.find(L"End of Section") == std::wstring::npos) {
            ++count;
            if (trim(line).empty() || line.starts_with(L'#'))
                continue;
            if (section.header.empty())
                section.header = headerOf(line);
            else
                section.rows.push_back(line);
        }
        section.present = count >= 2;
    }

    /// The first of two columns of one name counts.
    static HeaderColumns headerOf(std::wstring_view line) {
        HeaderColumns header;
        std::size_t position = 0;
        for (const std::wstring_view cell : split(line, separator.front())) {
            const std::wstring_view name = trimOf(cell, L" \t\"");
            if (!name.empty())
                header.emplace(name, position);
            ++position;
        }
        return header;
    }

    LineReader lines_;
    CodePage codePage_;
};

std::wstring take(RowValues& row, std::wstring_view column) {
    const auto cell = row.find(column);
    return cell == row.end() ? std::wstring() : std::move(cell->second);
}

/// A cell that starts with a number.
std::optional<std::int32_t> idOf(const RowValues& row, std::wstring_view column) {
    const auto cell = row.find(column);
    if (cell == row.end() || readInteger(cell->second).consumed == 0)
        return std::nullopt;
    return toInteger(cell->second);
}

using NamesById = std::map<std::int32_t, std::wstring>;

NamesById namesOf(const Section& section, std::wstring_view idColumn,
                  std::wstring_view nameColumn) {
    const std::array columns = {idColumn, nameColumn};
    NamesById names;
    for (const std::wstring& line : section.rows) {
        RowValues row = SplitRow(line, separator, columns, section.header);
        if (const auto id = idOf(row, idColumn))
            names[*id] = take(row, nameColumn);
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
    RulesById rules;
    for (const std::wstring& line : section.rows) {
        RowValues row = SplitRow(line, separator, columns, section.header);
        const auto id = idOf(row, L"Rules_ID");
        if (!id || toInteger(take(row, L"Completed")) == 0)
            continue;
        GroupLibraryRule rule;
        rule.id = *id;
        rule.regExp = take(row, L"RegExp");
        if (rule.regExp.empty() || !ValidateRegularExpression(rule.regExp))
            continue;
        rule.familyName = nameFor(families, idOf(row, L"Family_ID"));
        rule.manufacturer = nameFor(manufacturers, idOf(row, L"Manufacturer_ID"));
        rule.example = take(row, L"Example");
        rule.description = take(row, L"Description");
        rules[*id] = std::move(rule);
    }
    return rules;
}

/// The rows of one rule, gathered by columns.
class RuleColumns {
public:
    void append(std::int32_t subRule, RowValues& row) {
        constexpr std::int32_t methodRow = 3;
        for (std::size_t i = 0; i < columnsOfRow; ++i) {
            columns_[i].push_back(take(row, names()[i]));
            if (subRule == methodRow && split_ == columnsOfRow &&
                columns_[i].back() == L"Description")
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

    /// LPar1 to LPar28.
    static const std::array<std::wstring, columnsOfRow>& names() {
        static const auto list = [] {
            std::array<std::wstring, columnsOfRow> result;
            for (std::size_t i = 0; i < columnsOfRow; ++i)
                result[i] = L"LPar" + std::to_wstring(i + 1);
            return result;
        }();
        return list;
    }

private:
    /// A column without a place stands last.
    static std::int64_t placeOf(const GroupLibraryColumn& column) {
        const std::wstring& cell = column.front();
        return cell.empty() ? std::numeric_limits<std::int64_t>::max() : toInteger(cell);
    }

    std::array<GroupLibraryColumn, columnsOfRow> columns_;
    std::size_t split_ = columnsOfRow;
};

void addColumns(const Section& section, RulesById& rules) {
    std::vector<std::wstring_view> columns = {L"Rule_ID", L"SubRul_ID"};
    columns.insert(columns.end(), RuleColumns::names().begin(), RuleColumns::names().end());
    std::optional<std::int32_t> current;
    RuleColumns gathered;
    const auto finish = [&] {
        const auto rule = current ? rules.find(*current) : rules.end();
        if (rule != rules.end())
            gathered.moveTo(rule->second);
        gathered = RuleColumns();
    };
    for (const std::wstring& line : section.rows) {
        RowValues row = SplitRow(line, separator, columns, section.header);
        const auto id = idOf(row, L"Rule_ID");
        if (!id)
            continue;
        if (id != current)
            finish();
        current = id;
        gathered.append(toInteger(take(row, L"SubRul_ID")), row);
    }
    finish();
}

/// Reads the positions of the key columns; together they must count 1, 2, 3 and on.
void prepareIndex(GroupLibraryRule& rule) {
    std::int32_t expected = 1;
    for (const GroupLibraryColumn& column : rule.keyColumns) {
        rule.positions.push_back(column.empty() ? std::vector<std::int32_t>()
                                                : ParseIndexList(column.front()));
        for (const std::int32_t position : rule.positions.back()) {
            if (position != expected && rule.indexFault.empty()) {
                const std::wstring field = expected == 1       ? L"KEY_PN"
                                           : column.size() > 1 ? column[1]
                                                               : L"";
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
    SectionReader reader(bytes, codePage);
    const Section families = reader.read(L"Family Section");
    if (!families.present)
        return {};
    const Section manufacturers = reader.read(L"Manufacturer Section");
    if (!manufacturers.present)
        return {};
    const Section list = reader.read(L"Rules List Section");
    if (!list.present)
        return {};
    RulesById rules = rulesOf(list, namesOf(families, L"Family_ID", L"Family"),
                              namesOf(manufacturers, L"Manufacturer_ID", L"ShortName"));
    const Section descriptions = reader.read(L"Description Rules Section");
    if (descriptions.present)
        addColumns(descriptions, rules);
    GroupLibraryTable table;
    table.reserve(rules.size());
    for (auto& [id, rule] : rules) {
        prepareIndex(rule);
        table.push_back(std::move(rule));
    }
    return table;
}

GroupLibrary::GroupLibrary(GroupLibraryTable table, wchar_t mark)
    : table_(std::move(table)), mark_(mark) {
    std::vector<std::wstring> expressions;
    expressions.reserve(table_.size());
    for (const GroupLibraryRule& rule : table_)
        expressions.push_back(rule.regExp);
    expressions_ = RegularExpressionSet(expressions);
}

PartDescription GroupLibrary::DescribePartNumber(std::wstring_view partNumber) {
    PartDescription result;
    for (const std::size_t index : expressions_.matches(partNumber)) {
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
