#include "editing/table_search.h"

#include "core/text.h"

#include <algorithm>

namespace partwright {

namespace {

bool matches(std::wstring_view cell, const TableQuery& query, std::wstring_view text) {
    switch (query.match) {
    case TextMatch::Whole:
        return cell == text;
    case TextMatch::Part:
        return cell.find(text) != std::wstring_view::npos;
    case TextMatch::Beginning:
        return cell.starts_with(text);
    case TextMatch::Never:
        break;
    }
    return false;
}

/// The first column of a row that has the text; 0 when none has.
std::size_t columnIn(const ComponentTable& table, std::size_t row, const TableQuery& query,
                     std::wstring_view text) {
    const auto& columns = table.setup().columns;
    const std::size_t first = query.column.value_or(partNumberColumn);
    const std::size_t end = query.column ? first + 1 : columns.size();
    for (std::size_t column = first; column < end && column < columns.size(); ++column) {
        if (!query.column && columns[column].hidden)
            continue;
        const std::wstring& cell = table.text(row, column);
        if (query.ignoresCase ? matches(upperCase(cell), query, text) : matches(cell, query, text))
            return column;
    }
    return 0;
}

} // namespace

std::optional<TableQuery> parseQuery(std::wstring_view request) {
    std::int32_t numbers[3] = {};
    for (std::int32_t& number : numbers) {
        const IntegerPrefix read = readInteger(request);
        if (read.consumed == 0 || read.consumed >= request.size() || request[read.consumed] != L'_')
            return std::nullopt;
        number = read.value;
        request.remove_prefix(read.consumed + 1);
    }
    TableQuery query;
    query.column = static_cast<std::size_t>(std::max(numbers[0], 0)) + 1;
    const bool isKnown = numbers[0] >= 0 && numbers[1] >= 0 && numbers[1] < 3;
    query.match = isKnown ? static_cast<TextMatch>(numbers[1]) : TextMatch::Never;
    query.isBackward = numbers[2] != 0;
    query.text = request;
    return query;
}

std::optional<TableSearch::Hit> TableSearch::find(const ComponentTable& table,
                                                  const TableQuery& query,
                                                  std::optional<CellAt> current,
                                                  std::span<const std::size_t> rows) {
    const std::wstring text = query.ignoresCase ? upperCase(query.text) : query.text;
    if (current) {
        const auto place = std::find(rows.begin(), rows.end(), current->row) - rows.begin();
        start_ = static_cast<std::size_t>(place) + (query.isBackward ? 0 : 1);
        // Backward, the row before the first one is none: the walk is over before it begins.
        start_ -= query.isBackward ? 1 : 0;
    }
    const auto walk = [&](std::size_t from, bool isWrapped) -> std::optional<Hit> {
        for (std::size_t place = from; place < rows.size(); query.isBackward ? --place : ++place) {
            const std::size_t column = columnIn(table, rows[place], query, text);
            if (column == 0)
                continue;
            start_ = place;
            return Hit{{rows[place], column}, isWrapped};
        }
        return std::nullopt;
    };
    auto hit = walk(start_, false);
    if (!hit && query.wraps && !rows.empty())
        hit = walk(query.isBackward ? rows.size() - 1 : 0, true);
    return hit;
}

} // namespace partwright
