#include "validation/analyses_table.h"

#include "core/cell_text.h"
#include "core/vocabulary.h"

#include <algorithm>

namespace partwright {

namespace {

constexpr std::wstring_view typeHeader = L"Type";

void split(std::wstring_view text, bool namesPins, std::vector<std::wstring_view>& items) {
    if (text.empty() || text == cell::shownNoValue || text == cell::notApplicable)
        return;
    std::size_t start = 0;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const bool isExponent =
            !namesPins && at > 0 && (text[at - 1] == L'e' || text[at - 1] == L'E');
        if (text[at] != L'-' || isExponent)
            continue;
        items.push_back(text.substr(start, at - start));
        start = at + 1;
    }
    items.push_back(text.substr(start));
}

} // namespace

AnalysesTable makeAnalysesTable(std::int32_t group, wchar_t decimalMark) {
    AnalysesTable table;
    table.group = group;
    table.decimalMark = decimalMark;
    table.headers.push_back(typeHeader);
    const Names names = ColumnsOfAsrGroup(group);
    table.headers.insert(table.headers.end(), names.begin(), names.end());
    return table;
}

std::vector<std::wstring_view> listItems(std::wstring_view text, bool namesPins) {
    std::vector<std::wstring_view> items;
    split(text, namesPins, items);
    return items;
}

ItemRow::ItemRow(const AnalysesTable& table, const AnalysesRow& row) : row_(row) {
    items_.reserve(2 * row.cells.size());
    for (std::size_t position = 1; position < ends_.size(); ++position) {
        hidden_[position] = table.isHidden(position);
        split(text(position), table.namesPins(position), items_);
        ends_[position] = items_.size();
    }
}

bool ItemRow::isDash(std::size_t position) const {
    return text(position) == cell::shownNoValue;
}

bool ItemRow::isNotApplicable(std::size_t position) const {
    return text(position) == cell::notApplicable;
}

ListItems ItemRow::items(std::size_t position) const {
    if (position == 0 || position >= ends_.size())
        return {};
    const std::size_t start = ends_[position - 1];
    return ListItems(items_).subspan(start, ends_[position] - start);
}

std::size_t ItemRow::dashes(std::size_t position) const {
    const std::size_t count = items(position).size();
    return count == 0 ? 0 : count - 1;
}

} // namespace partwright
