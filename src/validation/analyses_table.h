#pragma once

// What the coded checks of the Analyses library look at: a table of one group's components as texts
// and what is said about them. Columns are positions behind the Type, which is position 0, so that
// LPar n is position n; the grid shows LPar n as its column n + 6.
//
// A list cell holds items joined by dashes. "-" alone, an empty cell and "N/A" hold no items. Where
// the header does not name pins, the dash of an exponent joins nothing:
//
//   column "Pin-A"   1-2-3A     ->  1, 2, 3A
//   column "Delay"   1e-6-2     ->  1e-6, 2
//
// A table borrows its headers and a row its cells; both must outlive the checks.

#include "validation/finding.h"

#include <array>
#include <bitset>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace partwright {

/// The parameters of the longest group.
inline constexpr std::size_t maximumAnalysesColumns = 24;
/// Number of the Type's column in the grid, which messages count from.
inline constexpr std::size_t shownTypeColumn = 6;

struct AnalysesTable {
    std::int32_t group = 0;
    /// By position.
    std::vector<std::wstring_view> headers;
    /// By position: what the level of the analysis hides; positions behind the end are shown.
    std::vector<bool> hidden = {};
    wchar_t decimalMark = L'.';
    /// Text of the level's radio.
    std::wstring methodText = {};

    [[nodiscard]] std::wstring_view header(std::size_t position) const {
        return position < headers.size() ? headers[position] : std::wstring_view();
    }
    [[nodiscard]] bool isHidden(std::size_t position) const {
        return position < hidden.size() && hidden[position];
    }
    [[nodiscard]] bool namesPins(std::size_t position) const {
        return header(position).find(L"Pin") != std::wstring_view::npos;
    }
};

/// The table of a group with the columns of the fixed vocabulary.
[[nodiscard]] AnalysesTable makeAnalysesTable(std::int32_t group, wchar_t decimalMark);

struct AnalysesRow {
    /// By position, the Type's name first. Missing cells are empty.
    std::span<const std::wstring> cells;
    /// Place of the type in the list of the group, from 1; 0 for "Default".
    std::size_t typePosition = 0;
    /// What findings call the row.
    std::size_t index = 0;
    /// The row's number on the screen, which messages name.
    std::size_t number = 1;
    /// Full shows "+".
    bool isFull = false;
    bool isHidden = false;

    [[nodiscard]] std::wstring_view text(std::size_t position) const {
        return position < cells.size() ? std::wstring_view(cells[position]) : std::wstring_view();
    }
    [[nodiscard]] std::wstring_view type() const { return text(0); }
};

using ListItems = std::span<const std::wstring_view>;

/// The items of one list text.
[[nodiscard]] std::vector<std::wstring_view> listItems(std::wstring_view text, bool namesPins);

/// A row as the passes over all rows see it: its cells split, once for all checks that follow, and
/// those empty that the level of the analysis hides.
class ItemRow {
public:
    ItemRow(const AnalysesTable& table, const AnalysesRow& row);

    [[nodiscard]] const AnalysesRow& row() const { return row_; }
    [[nodiscard]] std::wstring_view type() const { return row_.type(); }
    [[nodiscard]] std::wstring_view text(std::size_t position) const {
        return isHidden(position) ? std::wstring_view() : row_.text(position);
    }
    [[nodiscard]] bool isHidden(std::size_t position) const {
        return position < hidden_.size() && hidden_[position];
    }
    [[nodiscard]] bool isEmpty(std::size_t position) const { return text(position).empty(); }
    [[nodiscard]] bool isDash(std::size_t position) const;
    [[nodiscard]] bool isNotApplicable(std::size_t position) const;
    /// The cell has a text that is compared with others.
    [[nodiscard]] bool takesPart(std::size_t position) const {
        return !isEmpty(position) && !isNotApplicable(position);
    }
    [[nodiscard]] ListItems items(std::size_t position) const;
    /// Dashes that join items.
    [[nodiscard]] std::size_t dashes(std::size_t position) const;

private:
    AnalysesRow row_;
    std::bitset<maximumAnalysesColumns + 1> hidden_;
    std::vector<std::wstring_view> items_;
    /// End of each position's items.
    std::array<std::size_t, maximumAnalysesColumns + 1> ends_{};
};

using ItemRows = std::span<const ItemRow>;

/// What a pass over the rows finds first; `check` answers for one row.
template <class Check>
[[nodiscard]] std::optional<Finding> firstFinding(ItemRows rows, Check check) {
    for (const ItemRow& row : rows)
        if (std::optional<Finding> found = check(row)) {
            found->rows = {row.row().index};
            return found;
        }
    return std::nullopt;
}

} // namespace partwright
