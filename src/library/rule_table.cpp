#include "library/rule_table.h"

#include "core/messages.h"
#include "core/text.h"

#include <algorithm>

namespace partwright {

namespace {

constexpr std::wstring_view delimiter = L",";

RowValues splitDoubledRow(std::wstring_view line, const RuleTableForm& form,
                          const HeaderColumns& header) {
    const auto cells = SplitQuoted(line, delimiter.front());
    RowValues values;
    for (const std::wstring_view name : form.columns) {
        const auto column = header.find(name);
        if (column != header.end() && column->second < cells.size())
            values[std::wstring(name)] = trim(cells[column->second]);
    }
    return values;
}

bool namesAll(const HeaderColumns& header, const RuleTableForm& form) {
    return std::all_of(form.columns.begin(), form.columns.end(),
                       [&](std::wstring_view name) { return header.contains(name); });
}

} // namespace

const std::wstring* RuleRow::find(std::wstring_view column) const {
    const auto value = values.find(column);
    return value == values.end() ? nullptr : &value->second;
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

RuleTable parseRuleTable(std::string_view bytes, CodePage codePage, const RuleTableForm& form) {
    RuleTable table;
    table.status = FileStatus::Ok;
    LineReader reader(bytes);
    bool inTable = false;
    std::size_t number = 0;
    for (std::string_view narrow; reader.next(narrow);) {
        ++number;
        std::wstring line = decode(narrow, codePage);
        if (!inTable) {
            table.header = SplitHeader(line, delimiter);
            inTable = !form.searchesHeader || namesAll(table.header, form);
            continue;
        }
        if (trim(line).empty() || (form.comments && line.front() == L'#'))
            continue;
        if (form.closesRows)
            line += delimiter;
        table.rows.push_back({number, form.doublesQuotes
                                          ? splitDoubledRow(line, form, table.header)
                                          : SplitRow(line, delimiter, form.columns, table.header)});
    }
    return table;
}

RuleTable readRuleTable(std::wstring_view path, const RuleTableForm& form) {
    const TextFile file = readTextFile(path);
    if (file.status == FileStatus::Ok)
        return parseRuleTable(file.bytes, file.form.codePage, form);
    RuleTable table;
    table.status = file.status;
    return table;
}

LoadResult resultOf(const RuleTable& table, std::wstring_view path) {
    LoadResult result{table.status, std::wstring(path), {}};
    if (table.status == FileStatus::OpenFailed)
        result.message = message::failedToOpen(path);
    return result;
}

} // namespace partwright
