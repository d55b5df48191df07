#include "library/text_table.h"

#include "core/text.h"
#include "core/text_file.h"
#include "library/field_scanner.h"

#include <algorithm>

namespace partwright {

namespace {

constexpr std::size_t maximumRange = 4096;
/// Bounds the whole list, so that a long text of ranges cannot fill the memory.
constexpr std::size_t maximumIndexes = 65536;

/// Calls `take(field number, text)` for the cells of a rule table's line.
template <class Take>
void walkCells(std::wstring_view line, std::wstring_view delimiters, bool isRow, Take take) {
    std::size_t cursor = 0;
    for (std::size_t field = 0; cursor <= line.size(); ++field) {
        const bool quoted = cursor < line.size() && line[cursor] == L'"';
        if (quoted)
            ++cursor;
        std::size_t end = quoted                   ? line.find(L'"', cursor)
                          : delimiters.size() == 1 ? line.find(delimiters.front(), cursor)
                                                   : line.find_first_of(delimiters, cursor);
        const bool last = end == std::wstring_view::npos;
        take(field, trim(line.substr(cursor, last ? end : end - cursor)));
        if (last)
            return;
        if (line[end] == L'"')
            ++end;
        if (isRow && end + 1 >= line.size())
            return;
        cursor = end + 1;
    }
}

} // namespace

HeaderColumns SplitHeader(std::wstring_view line, std::wstring_view delimiters) {
    HeaderColumns columns;
    walkCells(line, delimiters, false, [&](std::size_t field, std::wstring_view name) {
        if (!name.empty())
            columns[std::wstring(name)] = field;
    });
    return columns;
}

RowValues SplitRow(std::wstring_view line, std::wstring_view delimiters,
                   std::span<const std::wstring_view> columnNames, const HeaderColumns& header) {
    std::map<std::size_t, std::wstring_view> wanted;
    for (const std::wstring_view name : columnNames)
        if (const auto column = header.find(name); column != header.end())
            wanted.emplace(column->second, name);
    RowValues values;
    walkCells(line, delimiters, true, [&](std::size_t field, std::wstring_view text) {
        if (const auto column = wanted.find(field); column != wanted.end())
            values[std::wstring(column->second)] = removeAll(text, L"'");
    });
    return values;
}

RowSplitter::RowSplitter(std::span<const std::wstring_view> columnNames,
                         const HeaderColumns& header)
    : columns_(columnNames.size()) {
    for (std::size_t place = 0; place < columns_; ++place) {
        const auto column = header.find(columnNames[place]);
        if (column == header.end())
            continue;
        if (places_.size() <= column->second)
            places_.resize(column->second + 1, columns_);
        std::size_t& taken = places_[column->second];
        if (taken == columns_)
            taken = place;
    }
}

std::vector<std::optional<std::wstring>> RowSplitter::split(std::wstring_view line,
                                                            std::wstring_view delimiters) const {
    std::vector<std::optional<std::wstring>> cells(columns_);
    walkCells(line, delimiters, true, [&](std::size_t field, std::wstring_view text) {
        if (field >= places_.size() || places_[field] == columns_)
            return;
        if (text.find(L'\'') == std::wstring_view::npos)
            cells[places_[field]].emplace(text);
        else
            cells[places_[field]] = removeAll(text, L"'");
    });
    return cells;
}

std::vector<std::wstring> SplitQuoted(std::wstring_view line, wchar_t separator) {
    std::vector<std::wstring> cells(1);
    bool inQuotes = false;
    for (std::size_t at = 0; at < line.size(); ++at) {
        const wchar_t c = line[at];
        if (c == L'"' && inQuotes && at + 1 < line.size() && line[at + 1] == L'"')
            cells.back().push_back(line[++at]);
        else if (c == L'"')
            inQuotes = !inQuotes;
        else if (c == separator && !inQuotes)
            cells.emplace_back();
        else
            cells.back().push_back(c);
    }
    return cells;
}

template <class Char>
void SplitStarRow(std::basic_string_view<Char> line, Char separator,
                  std::array<std::basic_string<Char>, maximumCells>& cells) {
    constexpr auto quote = static_cast<Char>('"');
    std::basic_string<Char> rest(line);
    std::erase(rest, static_cast<Char>('*'));
    std::size_t at = 0;
    for (auto& cell : cells) {
        std::basic_string_view<Char> name;
        bool isStar = false; // a star in quotes leaves the quotes alone, and is no name
        do {
            at = std::min(rest.find_first_not_of(separator, at), rest.size());
            const std::size_t end = std::min(rest.find(separator, at), rest.size());
            name = std::basic_string_view<Char>(rest).substr(at, end - at);
            name = dropTrailingBlanks(dropLeadingBlanks(name));
            isStar = name.size() == 2 && name.front() == quote && name.back() == quote;
            at = end;
        } while (isStar);
        cell = trimQuotes(name);
    }
}

template void SplitStarRow<char>(std::string_view, char, std::array<std::string, maximumCells>&);
template void SplitStarRow<wchar_t>(std::wstring_view, wchar_t,
                                    std::array<std::wstring, maximumCells>&);

void SplitTokens(std::wstring_view text, std::vector<std::wstring>& out) {
    out.clear();
    if (text.empty())
        return;
    for (const std::wstring_view token : split(text, L','))
        out.emplace_back(trim(token));
}

std::wstring ToCsvCell(std::wstring_view value, wchar_t separator, bool percentDoubled) {
    std::wstring text = removeAll(value, L"\r\n");
    if (text.find(separator) != std::wstring::npos)
        text = L'"' + replaceAll(text, L"\"", L"\"\"") + L'"';
    if (text.find(L"- (") != std::wstring::npos) {
        std::replace(text.begin(), text.end(), L'(', L'{');
        std::replace(text.begin(), text.end(), L')', L'}');
    }
    return percentDoubled ? replaceAll(text, L"%", L"%%") : text;
}

std::optional<char> namedSeparator(std::string_view bytes) {
    constexpr std::string_view word = "sep=";
    if (bytes.find(word) == std::string_view::npos)
        return std::nullopt;
    std::optional<char> named;
    LineReader reader(bytes);
    for (std::string_view line; reader.next(line);) {
        const auto hit = line.find(word);
        if (hit == std::string_view::npos || line.size() <= word.size())
            continue;
        const char mark = line[word.size()];
        if (mark != ',' && mark != ';')
            continue;
        if (hit == 0)
            return mark;
        if (!named)
            named = mark;
    }
    return named;
}

std::vector<std::int32_t> ParseIndexList(std::wstring_view text) {
    const std::wstring list = replaceAll(removeAll(text, L" \t"), L";", L",");
    std::vector<std::int32_t> result;
    for (const std::wstring_view entry : split(list, L',')) {
        const auto mark = std::min(entry.find_first_of(L"-:"), entry.size());
        const IntegerPrefix first = readInteger(entry.substr(0, mark));
        IntegerPrefix last = first;
        if (mark < entry.size()) {
            const auto behind = entry.substr(mark + 1);
            last = readInteger(behind.substr(0, behind.find_first_of(L"-:")));
        }
        if (first.consumed == 0 || last.consumed == 0)
            continue;
        std::size_t room = std::min(maximumRange, maximumIndexes - result.size());
        for (std::int64_t index = first.value; index <= last.value && room > 0; ++index, --room)
            result.push_back(static_cast<std::int32_t>(index));
    }
    return result;
}

} // namespace partwright
