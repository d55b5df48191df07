#pragma once

// Where the cells of a grid are on the screen.
//
// The header row, the column of row headers and, when asked for, the first columns stand still; the
// other cells scroll behind them by pixels. The viewport has two panes side by side, that of the
// columns that stand still and that of those which scroll; what reaches over both is painted once
// in each. All rows are of one height, so that a row's place is a multiplication however many rows
// there are. Positions count the rows that are not hidden, from 0.

#include "grid/cell_range.h"
#include "grid/grid_rows.h"

#include <QPoint>
#include <QRect>
#include <algorithm>
#include <vector>

namespace partwright::grid {

class GridGeometry {
public:
    explicit GridGeometry(const GridRows& rows) : rows_(rows) {}

    /// Widths are zoomed and 0 for hidden columns; the first is that of the row headers.
    void setColumns(const std::vector<int>& widths);
    void setHeights(int header, int row);
    void setOffset(QPoint offset) { offset_ = offset; }
    /// The first so many columns stand still.
    void setFrozen(int cols) { frozen_ = cols; }

    [[nodiscard]] int headerHeight() const { return headerHeight_; }
    [[nodiscard]] int rowHeight() const { return rowHeight_; }
    [[nodiscard]] int rowHeaderWidth() const { return widthOf(0); }
    /// Of the row headers and the columns that stand still.
    [[nodiscard]] int frozenWidth() const { return rightOf(frozenCols()); }
    [[nodiscard]] int frozenCols() const { return std::min(frozen_, colCount()); }
    [[nodiscard]] bool isFrozen(int col) const { return col <= frozenCols(); }
    [[nodiscard]] int widthOf(int col) const { return rightOf(col) - leftOf(col); }
    /// Of all cells that scroll.
    [[nodiscard]] QSize contentSize() const;
    /// Right edge of the last column in the viewport.
    [[nodiscard]] int contentRight() const { return lefts_.back() - offset_.x() - 1; }
    [[nodiscard]] QPoint offset() const { return offset_; }

    /// In the viewport; row 0 and column 0 give the headers. Empty for what is hidden.
    [[nodiscard]] QRect cellRect(int row, int col) const;
    /// From the first to the last cell of the range that exist, headers not counted in; of a range
    /// in the scrolled pane alone, a part may lie behind the other pane.
    [[nodiscard]] QRect rangeRect(const CellRange& range) const;

    /// Column at x, counting the row headers as 0; -1 behind the last one.
    [[nodiscard]] int colAt(int x) const;
    /// Row at y, counting the header as 0; -1 below the last one.
    [[nodiscard]] int rowAt(int y) const;
    /// Column whose right border is within `reach` of x; 0 when none is.
    [[nodiscard]] int borderAt(int x, int reach) const;
    /// The cell nearest to the point, hidden ones and headers left out.
    [[nodiscard]] CellPos nearestCell(QPoint point) const;

    [[nodiscard]] int positionAt(int y) const;
    [[nodiscard]] int topOf(int position) const;
    [[nodiscard]] const GridRows& rows() const { return rows_; }
    [[nodiscard]] int colCount() const { return static_cast<int>(lefts_.size()) - 2; }

private:
    [[nodiscard]] int leftOf(int col) const { return lefts_[static_cast<std::size_t>(col)]; }
    [[nodiscard]] int rightOf(int col) const { return lefts_[static_cast<std::size_t>(col) + 1]; }
    /// Edges in the viewport.
    [[nodiscard]] int screenLeft(int col) const {
        return isFrozen(col) ? leftOf(col) : leftOf(col) - offset_.x();
    }
    [[nodiscard]] int screenRight(int col) const { return screenLeft(col) + widthOf(col); }

    const GridRows& rows_;
    std::vector<int> lefts_{0, 0};
    int frozen_ = 0;
    int headerHeight_ = 1;
    int rowHeight_ = 1;
    QPoint offset_;
};

} // namespace partwright::grid
