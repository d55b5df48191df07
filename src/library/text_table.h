#pragma once

// How a line of a text table falls into cells. There are two dialects, which have nothing in common
// but the look:
//
// Rule tables beside the program: a header line with column names, always ",". A cell that begins
// with a quote runs to the next quote and knows no doubling. Cells are trimmed, apostrophes of rows
// are removed, and an empty cell at a line's end is no cell.
//
// Library and project files: a "sep=" line names the separator, rows have a mark in their first
// field, cells are read by the field scanner (field_scanner.h).
//
// The separator of a file is always one ASCII character.

#include "core/encoding.h"

#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace partwright {

/// Column name to position in the line.
using HeaderColumns = std::map<std::wstring, std::size_t, std::less<>>;
/// Column name to cell text.
using RowValues = std::map<std::wstring, std::wstring, std::less<>>;

[[nodiscard]] HeaderColumns SplitHeader(std::wstring_view line, std::wstring_view delimiters);

/// The cells whose columns are named and stand in the header; a cell that the line does not reach
/// is absent.
[[nodiscard]] RowValues SplitRow(std::wstring_view line, std::wstring_view delimiters,
                                 std::span<const std::wstring_view> columnNames,
                                 const HeaderColumns& header);

/// SplitRow for all rows of a table: what the header says is looked up once.
class RowSplitter {
public:
    RowSplitter(std::span<const std::wstring_view> columnNames, const HeaderColumns& header);

    /// Cells in the order of the column names; those that SplitRow leaves out are absent.
    [[nodiscard]] std::vector<std::optional<std::wstring>>
    split(std::wstring_view line, std::wstring_view delimiters) const;

private:
    std::size_t columns_;
    /// By field of a line, the place among the column names.
    std::vector<std::size_t> places_;
};

/// Cells with quotes that are doubled inside of a quoted part; untrimmed, one at least.
[[nodiscard]] std::vector<std::wstring> SplitQuoted(std::wstring_view line, wchar_t separator);

inline constexpr std::size_t maximumCells = 35;

/// The names of a header row of a library ("*,PMET,FAMILY,...,*"), the first behind the star in
/// cell 0; names that the row does not reach are empty. A name may stand in quotes.
template <class Char>
void SplitStarRow(std::basic_string_view<Char> line, Char separator,
                  std::array<std::basic_string<Char>, maximumCells>& cells);
extern template void SplitStarRow<char>(std::string_view, char,
                                        std::array<std::string, maximumCells>&);
extern template void SplitStarRow<wchar_t>(std::wstring_view, wchar_t,
                                           std::array<std::wstring, maximumCells>&);

/// The pieces of a list in a rule cell, "a, b,c", trimmed; the empty text is the empty list.
void SplitTokens(std::wstring_view text, std::vector<std::wstring>& out);

/// A text as a cell of a library: without line ends, in quotes when it holds the separator, with
/// curly brackets when it holds "- (", and with each "%" doubled when that is asked for.
[[nodiscard]] std::wstring ToCsvCell(std::wstring_view value, wchar_t separator,
                                     bool percentDoubled);

/// The separator that a "sep=" names: the character at position 4 of its line, if that is "," or
/// ";". A line that begins so goes before one that only holds it; none when no line names one.
[[nodiscard]] std::optional<char> namedSeparator(std::string_view bytes);

/// "1-3,7" -> 1, 2, 3, 7. List mark "," or ";", range mark "-" or ":". A falling range and an
/// entry without a number are dropped; a range is cut at 4,096 entries.
[[nodiscard]] std::vector<std::int32_t> ParseIndexList(std::wstring_view text);

} // namespace partwright
