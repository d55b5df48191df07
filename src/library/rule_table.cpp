#include "library/rule_table.h"

#include "core/messages.h"
#include "core/text.h"

#include <algorithm>

namespace partwright {

namespace {

constexpr std::wstring_view delimiter = L",";

std::vector<std::optional<std::wstring>>
splitDoubledRow(std::wstring_view line, const RuleTableForm& form, const HeaderColumns& header) {
    const auto fields = SplitQuoted(line, delimiter.front());
    std::vector<std::optional<std::wstring>> cells(form.columns.size());
    for (std::size_t place = 0; place < cells.size(); ++place) {
        const auto column = header.find(form.columns[place]);
        if (column != header.end() && column->second < fields.size())
            cells[place].emplace(trim(fields[column->second]));
    }
    return cells;
}

bool namesAll(const HeaderColumns& header, const RuleTableForm& form) {
    return std::all_of(form.columns.begin(), form.columns.end(),
                       [&](std::wstring_view name) { return header.contains(name); });
}

} // namespace

const std::wstring* RuleRow::find(std::wstring_view column) const {
    if (!columns)
        return nullptr;
    const auto found = std::lower_bound(
        columns->begin(), columns->end(), column,
        [](const auto& entry, std::wstring_view name) { return entry.first < name; });
    if (found == columns->end() || found->first != column || !cells[found->second])
        return nullptr;
    return &*cells[found->second];
}

std::wstring RuleRow::text(std::wstring_view column) const {
    const std::wstring* value = find(column);
    return value == nullptr ? std::wstring() : *value;
}

std::optional<std::int32_t> RuleRow::number(std::wstring_view column) const {
    const std::wstring* value = find(column);
    return value == nullptr ? std::nullopt : std::optional(toInteger(*value));
}

std::optional<std::int32_t> RuleRow::code(std::wstring_view column) const {
    const auto value = number(column);
    return value && *value >= firstGroupCode && *value <= lastGroupCode ? value : std::nullopt;
}

std::shared_ptr<const RuleColumns> ruleColumnsOf(std::span<const std::wstring_view> names) {
    RuleColumns columns;
    for (std::size_t place = 0; place < names.size(); ++place)
        columns.emplace_back(names[place], place);
    std::sort(columns.begin(), columns.end());
    return std::make_shared<const RuleColumns>(std::move(columns));
}

RuleTable parseRuleTable(std::string_view bytes, CodePage codePage, const RuleTableForm& form) {
    RuleTable table;
    table.status = FileStatus::Ok;
    LineReader reader(bytes);
    const auto columns = ruleColumnsOf(form.columns);
    std::optional<RowSplitter> splitter;
    std::wstring line;
    bool inTable = false;
    std::size_t number = 0;
    for (std::string_view narrow; reader.next(narrow);) {
        ++number;
        line.clear();
        decodeInto(line, narrow, codePage);
        if (!inTable) {
            table.header = SplitHeader(line, delimiter);
            inTable = !form.searchesHeader || namesAll(table.header, form);
            splitter.emplace(form.columns, table.header);
            continue;
        }
        if (trim(line).empty() || (form.comments && line.front() == L'#'))
            continue;
        if (form.closesRows)
            line += delimiter;
        table.rows.push_back({number, columns,
                              form.doublesQuotes ? splitDoubledRow(line, form, table.header)
                                                 : splitter->split(line, delimiter)});
    }
    return table;
}

RuleTable ruleTableOf(const TextFile& file, const RuleTableForm& form) {
    if (file.status == FileStatus::Ok)
        return parseRuleTable(file.bytes, file.form.codePage, form);
    RuleTable table;
    table.status = file.status;
    return table;
}

RuleTable readRuleTable(std::wstring_view path, const RuleTableForm& form) {
    return ruleTableOf(readTextFile(path), form);
}

bool hasHeader(std::wstring_view path, std::wstring_view column) {
    const TextFile file = readTextFile(path);
    LineReader reader(file.bytes);
    for (std::string_view line; reader.next(line);)
        if (SplitHeader(decode(line, file.form.codePage), delimiter).contains(column))
            return true;
    return false;
}

LoadResult resultOf(FileStatus status, std::wstring_view path) {
    LoadResult result{status, std::wstring(path), {}};
    if (status == FileStatus::OpenFailed)
        result.message = message::failedToOpen(path);
    return result;
}

LoadResult resultOf(const RuleTable& table, std::wstring_view path) {
    return resultOf(table.status, path);
}

} // namespace partwright
