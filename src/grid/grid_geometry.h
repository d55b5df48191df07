#pragma once

// Where the cells of a grid are on the screen.
//
// The header row and the column of row headers stand still; the cells scroll behind them by pixels.
// All rows are of one height, so that a row's place is a multiplication however many rows there
// are. Positions count the rows that are not hidden, from 0.

#include "grid/cell_range.h"
#include "grid/grid_store.h"

#include <QPoint>
#include <QRect>
#include <vector>

namespace partwright::grid {

class GridGeometry {
public:
    explicit GridGeometry(const GridStore& store) : store_(store) {}

    /// Widths are zoomed and 0 for hidden columns; the first is that of the row headers.
    void setColumns(const std::vector<int>& widths);
    void setHeights(int header, int row);
    void setOffset(QPoint offset) { offset_ = offset; }

    [[nodiscard]] int headerHeight() const { return headerHeight_; }
    [[nodiscard]] int rowHeight() const { return rowHeight_; }
    [[nodiscard]] int rowHeaderWidth() const { return widthOf(0); }
    [[nodiscard]] int widthOf(int col) const { return rightOf(col) - leftOf(col); }
    /// Of all cells, without the headers.
    [[nodiscard]] QSize contentSize() const;
    /// Right edge of the last column in the viewport.
    [[nodiscard]] int contentRight() const { return lefts_.back() - offset_.x() - 1; }
    [[nodiscard]] QPoint offset() const { return offset_; }

    /// In the viewport; row 0 and column 0 give the headers. Empty for what is hidden.
    [[nodiscard]] QRect cellRect(int row, int col) const;
    /// From the first to the last cell of the range that exist, headers not counted in.
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
    [[nodiscard]] const GridStore& store() const { return store_; }
    [[nodiscard]] int colCount() const { return static_cast<int>(lefts_.size()) - 2; }

private:
    [[nodiscard]] int leftOf(int col) const { return lefts_[static_cast<std::size_t>(col)]; }
    [[nodiscard]] int rightOf(int col) const { return lefts_[static_cast<std::size_t>(col) + 1]; }
    /// Left edge in the viewport.
    [[nodiscard]] int screenLeft(int col) const;

    const GridStore& store_;
    std::vector<int> lefts_{0, 0};
    int headerHeight_ = 1;
    int rowHeight_ = 1;
    QPoint offset_;
};

} // namespace partwright::grid
