#include "validation/list_cells.h"

#include "core/cell_text.h"
#include "core/decimal_mark.h"
#include "core/text.h"
#include "validation/check_texts.h"

#include <algorithm>

namespace partwright {

namespace {

constexpr wchar_t dash = L'-';

/// One row serves a group, or one type of it; the first that fits counts.
struct ListRow {
    std::int32_t group;
    /// Empty for all types.
    std::wstring_view type;
    ColumnSet pins;
    ColumnSet values;
    /// Columns of `values` that also take "-".
    ColumnSet dashAtEnds = 0;
    /// Columns of `values` in which "-" is a list of pins.
    ColumnSet pinsWhenDash = 0;
};

constexpr ListRow listRows[] = {
    {4, L"", columnSet(4), columnSet(1, 6, 10), 0, columnSet(1, 10)},
    {5, L"", columnSet(2), columnSet(5)},
    {6, L"", columnSet(6, 8, 9), 0},
    {7, L"", columnSet(2, 6, 7), 0},
    {9, L"", columnSet(7, 10), columnSet(8, 9, 11, 23), columnSet(8, 9, 11, 23)},
    {11, L"", columnSet(5, 6), 0},
    {12, L"", columnSet(3, 4), 0},
    {13, L"", columnSet(3, 4), 0},
    {14, L"", columnSet(4, 5, 6), 0},
    {15, L"", columnSet(4, 5, 6), 0},
    {16, L"", columnSet(4, 5, 6), 0},
    {17, L"", columnSet(4, 5, 6), 0},
    {18, L"", columnSet(3, 4), 0},
    {19, L"", columnSet(3, 4, 7, 8), 0},
    {21, L"", columnSet(2, 3), 0},
    {23, L"", columnSet(3, 4), 0},
    {24, L"Coil", columnSet(2, 3), columnSet(1, 4)},
    {24, L"", columnSet(2, 3, 9, 10), columnSet(1, 5, 6, 8, 11, 12), columnSet(5, 6, 8, 11, 12)},
    {25, L"", columnSet(3, 11), 0},
    {31, L"", columnSet(2, 3), 0},
    {32, L"", columnSet(5, 6), 0},
    {36, L"", columnSet(7, 8), 0},
    {38, L"", columnSet(2), columnSet(5), columnSet(5)},
    {39, L"", columnSet(1, 2), 0},
};

/// Of a list of numbers only: most dashes of a list in group 6.
constexpr std::int32_t limitedGroup = 6;
constexpr std::ptrdiff_t maximumDashes = 3;

bool isDashAtEnd(std::wstring_view text) {
    return !text.empty() && (text.front() == dash || text.back() == dash);
}

std::wstring pinNumberFault(std::int32_t group, std::wstring_view text) {
    for (const wchar_t c : text)
        if (!isDigit(c) && c != dash)
            return check_text::illegalSeparator(c);
    if (isDashAtEnd(text))
        return std::wstring(check_text::separatorPosition);
    if (group == limitedGroup && std::count(text.begin(), text.end(), dash) > maximumDashes)
        return std::wstring(check_text::separatorCount);
    return {};
}

std::wstring listFault(ListKind kind, std::int32_t group, std::wstring_view text, wchar_t mark,
                       PinNames names) {
    std::wstring fault;
    if (kind != ListKind::Pins)
        fault = valueFault(text, kind == ListKind::ValuesOrDash, mark);
    else if (names == PinNames::Numbers)
        fault = pinNumberFault(group, text);
    if (!fault.empty())
        return fault;
    if (!isInOrder(text))
        return std::wstring(kind == ListKind::Pins ? check_text::pinOrder : check_text::valueOrder);
    const wchar_t twoMarks[] = {mark, mark};
    if (kind != ListKind::Pins &&
        text.find(std::wstring_view(twoMarks, 2)) != std::wstring_view::npos)
        return std::wstring(check_text::pointOrder);
    return {};
}

} // namespace

ListKind listKind(std::int32_t group, std::wstring_view type, std::size_t position,
                  std::wstring_view text) {
    for (const ListRow& row : listRows) {
        if (row.group != group || (!row.type.empty() && row.type != type))
            continue;
        const bool isDash = text == cell::shownNoValue;
        if (holds(row.pins, position) || (isDash && holds(row.pinsWhenDash, position)))
            return ListKind::Pins;
        if (!holds(row.values, position))
            return ListKind::None;
        return holds(row.dashAtEnds, position) ? ListKind::ValuesOrDash : ListKind::Values;
    }
    return ListKind::None;
}

bool hasListColumns(std::int32_t group) {
    return std::any_of(std::begin(listRows), std::end(listRows),
                       [&](const ListRow& row) { return row.group == group; });
}

CellAnswer CheckListCell(std::int32_t group, std::wstring_view type, std::size_t position,
                         std::wstring_view text, wchar_t decimalMark, PinNames names) {
    const ListKind kind = listKind(group, type, position, text);
    if (kind == ListKind::None || text == cell::notApplicable)
        return {kind != ListKind::None};
    return {true, refusalUnless(listFault(kind, group, text, decimalMark, names))};
}

bool isInOrder(std::wstring_view text) {
    return text.find(L"--") == std::wstring_view::npos && (text.size() < 2 || !isDashAtEnd(text));
}

std::wstring valueFault(std::wstring_view text, bool admitsDashAtEnds, wchar_t decimalMark) {
    wchar_t before = L'\0';
    for (const wchar_t c : text) {
        const bool isSuffix = c == L'k' || c == L'K' || c == L'm' || c == L'M';
        const bool isFine = isDigit(c) || c == dash || c == decimalMark || c == L'e' || c == L'E' ||
                            (isSuffix && isDigit(before));
        if (!isFine)
            return check_text::illegalCharacter(c);
        before = c;
    }
    if (!admitsDashAtEnds && isDashAtEnd(text))
        return std::wstring(check_text::separatorPosition);
    return {};
}

std::optional<double> listNumber(std::wstring_view item, wchar_t decimalMark) {
    double factor = 1;
    if (!item.empty()) {
        const wchar_t last = upperCase(item.back());
        factor = last == L'K' ? 1e3 : last == L'M' ? 1e6 : 1;
        if (factor > 1)
            item.remove_suffix(1);
    }
    const auto number = readCheckedNumber(item, decimalMark);
    return number ? std::optional(*number * factor) : std::nullopt;
}

} // namespace partwright
