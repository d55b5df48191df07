#include "grid/grid_geometry.h"

#include <algorithm>
#include <cstdlib>

namespace partwright::grid {

void GridGeometry::setColumns(const std::vector<int>& widths) {
    lefts_.assign(1, 0);
    for (const int width : widths)
        lefts_.push_back(lefts_.back() + width);
}

void GridGeometry::setHeights(int header, int row) {
    headerHeight_ = header;
    rowHeight_ = row;
}

QSize GridGeometry::contentSize() const {
    return {lefts_.back() - frozenWidth(), rows_.shownCount() * rowHeight_};
}

int GridGeometry::topOf(int position) const {
    return headerHeight_ + position * rowHeight_ - offset_.y();
}

QRect GridGeometry::cellRect(int row, int col) const {
    // Under a redraw lock the cells may be ahead of the geometry.
    if (row < 0 || col < 0 || row > rows_.count() || col > colCount())
        return {};
    const int width = widthOf(col);
    if (width == 0 || (row > 0 && rows_.isHidden(row)))
        return {};
    if (row == 0)
        return {screenLeft(col), 0, width, headerHeight_};
    return {screenLeft(col), topOf(rows_.shownPosition(row)), width, rowHeight_};
}

QRect GridGeometry::rangeRect(const CellRange& range) const {
    const CellRange area = range.within({1, 1, rows_.count(), colCount()});
    if (area.empty())
        return {};
    const int top = topOf(rows_.shownPosition(area.top));
    const int bottom = topOf(area.bottom == rows_.count() ? rows_.shownCount()
                                                          : rows_.shownPosition(area.bottom + 1));
    const int left = screenLeft(area.left);
    int right = screenRight(area.right);
    if (isFrozen(area.left)) // what is scrolled away does not cut it short
        right = std::max(right, screenRight(std::min(area.right, frozenCols())));
    return {left, top, right - left, bottom - top};
}

int GridGeometry::colAt(int x) const {
    if (x < 0)
        return -1;
    const int place = x < frozenWidth() ? x : x + offset_.x();
    const auto next = std::upper_bound(lefts_.begin(), lefts_.end(), place);
    return next == lefts_.end() ? -1 : static_cast<int>(next - lefts_.begin()) - 1;
}

int GridGeometry::positionAt(int y) const {
    return (y - headerHeight_ + offset_.y()) / rowHeight_;
}

int GridGeometry::rowAt(int y) const {
    if (y < 0)
        return -1;
    if (y < headerHeight_)
        return 0;
    const int position = positionAt(y);
    return position < rows_.shownCount() ? rows_.shownRow(position) : -1;
}

int GridGeometry::borderAt(int x, int reach) const {
    int best = 0;
    int distance = reach + 1;
    for (int col = 1; col <= colCount(); ++col) {
        const int border = screenRight(col);
        const int edge = isFrozen(col) ? rowHeaderWidth() : frozenWidth();
        if (widthOf(col) > 0 && border > edge && std::abs(border - x) < distance) {
            best = col;
            distance = std::abs(border - x);
        }
    }
    return best;
}

CellPos GridGeometry::nearestCell(QPoint point) const {
    const int count = rows_.shownCount();
    if (count == 0 || colCount() == 0)
        return {};
    const int position = std::clamp(positionAt(point.y()), 0, count - 1);
    int col = colAt(std::max(point.x(), rowHeaderWidth()));
    if (col < 0)
        col = colCount();
    while (col > 1 && widthOf(col) == 0)
        --col;
    while (col < colCount() && widthOf(col) == 0)
        ++col;
    return {rows_.shownRow(position), std::max(col, 1)};
}

} // namespace partwright::grid
