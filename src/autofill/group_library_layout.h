#pragma once

// The words and rows of the group library file; docs/group_library.md tells what they mean.

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace partwright::group_library {

/// Rows of a rule's table, from 0.
inline constexpr std::size_t positionRow = 0;
inline constexpr std::size_t nameRow = 1;
inline constexpr std::size_t methodRow = 2;
inline constexpr std::size_t firstCodeRow = 3;

/// Rows of a key column with a coded number.
inline constexpr std::size_t decimalsRow = 3;
inline constexpr std::size_t lettersRow = 4;
inline constexpr std::size_t scalesRow = 5;
inline constexpr std::size_t formsRow = 6;
inline constexpr std::size_t leastRow = 7;
inline constexpr std::size_t greatestRow = 8;

/// The method of the first value column, and of each other with a fixed text.
inline constexpr std::wstring_view descriptionMethod = L"Description";
/// In front of the number of a key column.
inline constexpr std::wstring_view reference = L"Par";
/// In front of the number of a parsing function.
inline constexpr std::wstring_view parsingMethod = L"Parsing Func_";
/// A value that is the code itself.
inline constexpr std::wstring_view codeItself = L"*";
/// What is written for a code that is no number.
inline constexpr std::wstring_view undefinedNumber = L"NoDef";

/// What a key column does with its part of a part number.
enum class KeyMethod { Unknown, NotUsed, Fixed, Listed, Optional, FixedEnd, ListedEnd, Parsing };

[[nodiscard]] KeyMethod methodOf(std::wstring_view name);

/// The cell of a column; empty behind its last row.
template <class Column>
[[nodiscard]] std::wstring_view cellOf(const Column& column, std::size_t row) {
    return row < column.size() ? std::wstring_view(column[row]) : std::wstring_view();
}

/// LPar1 to LPar28.
inline constexpr std::size_t tableColumns = 28;
[[nodiscard]] const std::array<std::wstring, tableColumns>& tableColumnNames();

} // namespace partwright::group_library
