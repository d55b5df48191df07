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
    return {lefts_.back() - rowHeaderWidth(), store_.shownCount() * rowHeight_};
}

int GridGeometry::screenLeft(int col) const {
    return col == 0 ? 0 : leftOf(col) - offset_.x();
}

int GridGeometry::topOf(int position) const {
    return headerHeight_ + position * rowHeight_ - offset_.y();
}

QRect GridGeometry::cellRect(int row, int col) const {
    // Under a redraw lock the cells may be ahead of the geometry.
    if (row < 0 || col < 0 || row > store_.rowCount() || col > colCount())
        return {};
    const int width = widthOf(col);
    if (width == 0 || (row > 0 && store_.rowHidden(row)))
        return {};
    if (row == 0)
        return {screenLeft(col), 0, width, headerHeight_};
    return {screenLeft(col), topOf(store_.shownPosition(row)), width, rowHeight_};
}

QRect GridGeometry::rangeRect(const CellRange& range) const {
    const CellRange area = range.within({1, 1, store_.rowCount(), colCount()});
    if (area.empty())
        return {};
    const int top = topOf(store_.shownPosition(area.top));
    const int bottom =
        topOf(area.bottom == store_.rowCount() ? store_.shownCount()
                                               : store_.shownPosition(area.bottom + 1));
    const int left = screenLeft(area.left);
    return {left, top, rightOf(area.right) - offset_.x() - left, bottom - top};
}

int GridGeometry::colAt(int x) const {
    if (x < 0)
        return -1;
    if (x < rowHeaderWidth())
        return 0;
    const int place = x + offset_.x();
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
    return position < store_.shownCount() ? store_.shownRow(position) : -1;
}

int GridGeometry::borderAt(int x, int reach) const {
    int best = 0;
    int distance = reach + 1;
    for (int col = 1; col <= colCount(); ++col) {
        const int border = rightOf(col) - offset_.x();
        if (widthOf(col) > 0 && border > rowHeaderWidth() && std::abs(border - x) < distance) {
            best = col;
            distance = std::abs(border - x);
        }
    }
    return best;
}

CellPos GridGeometry::nearestCell(QPoint point) const {
    const int count = store_.shownCount();
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
    return {store_.shownRow(position), std::max(col, 1)};
}

} // namespace partwright::grid
