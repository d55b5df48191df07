#pragma once

// Places in a grid. Row 0 is the header, column 0 the row headers; cells start at (1, 1).
//
// A range that starts in column 0 and has no end on the right means whole rows: it stays whole when
// columns are added, and it is what a click on a row header selects.

#include <algorithm>
#include <limits>

namespace partwright::grid {

struct CellPos {
    int row = 0;
    int col = 0;
    friend bool operator==(const CellPos&, const CellPos&) = default;
};

struct CellRange {
    static constexpr int last = std::numeric_limits<int>::max();

    int top = 0;
    int left = 0;
    int bottom = -1;
    int right = -1;

    [[nodiscard]] static constexpr CellRange cell(int row, int col) { return {row, col, row, col}; }
    [[nodiscard]] static constexpr CellRange rows(int first, int final) {
        return {first, 0, final, last};
    }
    [[nodiscard]] static constexpr CellRange column(int col) { return {1, col, last, col}; }
    [[nodiscard]] static constexpr CellRange between(CellPos a, CellPos b) {
        return {std::min(a.row, b.row), std::min(a.col, b.col), std::max(a.row, b.row),
                std::max(a.col, b.col)};
    }

    [[nodiscard]] constexpr bool empty() const { return bottom < top || right < left; }
    [[nodiscard]] constexpr bool wholeRows() const { return left == 0 && right == last; }
    [[nodiscard]] constexpr bool contains(int row, int col) const {
        return row >= top && row <= bottom && col >= left && col <= right;
    }
    [[nodiscard]] constexpr CellRange within(const CellRange& other) const {
        return {std::max(top, other.top), std::max(left, other.left),
                std::min(bottom, other.bottom), std::min(right, other.right)};
    }
    /// The smallest range that holds both.
    [[nodiscard]] constexpr CellRange united(const CellRange& other) const {
        return {std::min(top, other.top), std::min(left, other.left),
                std::max(bottom, other.bottom), std::max(right, other.right)};
    }
    friend bool operator==(const CellRange&, const CellRange&) = default;
};

} // namespace partwright::grid
