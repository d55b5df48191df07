#pragma once

// Which cells of the Analyses library are lists, and whether a text is one.
//
// A list of pins takes any names; only the order of its dashes is looked at. A list of values takes
// digits, the decimal mark, exponents and the letters k and M behind a digit. Some value columns
// take a lone "-" for "not given". "N/A" and the empty text are no lists and are always valid.
//
//   CheckListCell(21, L"", 2, L"1-2-A", L'.')  ->  valid
//   CheckListCell(21, L"", 2, L"1--2", L'.')   ->  invalid, "Wrong dash separators order!"
//   CheckListCell(21, L"", 1, L"100", L'.')    ->  no list column

#include "validation/analyses_table.h"
#include "validation/finding.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace partwright {

/// Positions 1 to 31, each a bit.
using ColumnSet = std::uint32_t;

template <class... Positions>
constexpr ColumnSet columnSet(Positions... positions) {
    return (ColumnSet{0} | ... | (ColumnSet{1} << positions));
}
constexpr bool holds(ColumnSet set, std::size_t position) {
    return position < 32 && ((set >> position) & 1U) != 0;
}

enum class ListKind { None, Pins, Values, ValuesOrDash };

[[nodiscard]] ListKind listKind(std::int32_t group, std::wstring_view type, std::size_t position,
                                std::wstring_view text);
/// The group has list columns. Single-value rules do not judge its "Pin" columns.
[[nodiscard]] bool hasListColumns(std::int32_t group);

/// How strictly a list of pins is read: any names, or numbers only. The second is offered for
/// libraries whose pins have no letters; no dialog asks for it.
enum class PinNames { Any, Numbers };

/// `type` is the name in the Type cell. A cell that holds no list is not judged.
[[nodiscard]] CellAnswer CheckListCell(std::int32_t group, std::wstring_view type,
                                       std::size_t position, std::wstring_view text,
                                       wchar_t decimalMark, PinNames names = PinNames::Any);

/// No doubled dash, and none at an end of a text longer than one character.
[[nodiscard]] bool isInOrder(std::wstring_view text);
/// The characters of a list of values: empty when they are fine, else the message.
[[nodiscard]] std::wstring valueFault(std::wstring_view text, bool admitsDashAtEnds,
                                      wchar_t decimalMark);
/// One item of a list of values; k and m of either case stand for a thousand and a million.
[[nodiscard]] std::optional<double> listNumber(std::wstring_view item, wchar_t decimalMark);

} // namespace partwright
