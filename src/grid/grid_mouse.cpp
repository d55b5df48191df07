#include "grid/grid_mouse.h"

#include "grid/grid_window.h"

#include <QMouseEvent>
#include <QScrollBar>
#include <algorithm>
#include <cmath>

namespace partwright::grid {

namespace {

constexpr int borderReach = 4;
constexpr int handleReach = 3;
constexpr int autoScrollInterval = 40;

} // namespace

int GridMouse::resizableBorder(QPoint point) const {
    if (point.y() >= grid_.geometry_.headerHeight())
        return 0;
    const int col = grid_.geometry_.borderAt(point.x(), borderReach);
    return col > 0 && grid_.canResizeCol(col) ? col : 0;
}

bool GridMouse::onFillHandle(QPoint point) const {
    const QRect handle = grid_.fillHandleRect();
    return !handle.isEmpty() &&
           handle.adjusted(-handleReach, -handleReach, handleReach, handleReach).contains(point);
}

bool GridMouse::onListMark(CellPos pos, QPoint point) const {
    const QRect cell = grid_.cellRect(pos.row, pos.col);
    return grid_.cellStyle(pos.row, pos.col).kind == CellKind::DropDown &&
           point.x() > cell.right() - cell.height();
}

void GridMouse::press(const QMouseEvent& event) {
    if (event.button() != Qt::LeftButton || grid_.validating())
        return;
    start_ = point_ = event.position().toPoint();
    hasMoved_ = false;
    if (const int border = resizableBorder(point_); border > 0) {
        drag_ = Drag::Border;
        cell_ = {0, border};
        width_ = grid_.geometry_.widthOf(border);
        return;
    }
    if (onFillHandle(point_)) {
        drag_ = Drag::Fill;
        fillPreview_ = grid_.fillSource();
        return;
    }
    const auto pos = grid_.cellAt(point_);
    if (pos && grid_.editedCell() == pos) {
        if (grid_.edit_.hasList())
            grid_.edit_.openList({});
        return;
    }
    if (!grid_.leaveCell() || !pos)
        return;
    if (pos->row == 0)
        pressHeader(pos->col);
    else if (pos->col == 0)
        pressRowHeader(event, pos->row);
    else
        pressCell(event, *pos);
}

void GridMouse::pressHeader(int col) {
    if (col == 0) {
        grid_.selectAll();
        return;
    }
    drag_ = Drag::Header;
    cell_ = {0, col};
}

void GridMouse::pressRowHeader(const QMouseEvent& event, int row) {
    if (grid_.firstCol() == 0)
        return;
    const bool extend =
        event.modifiers().testFlag(Qt::ShiftModifier) && grid_.currentCell().has_value();
    const int from = extend ? grid_.currentCell()->row : row;
    if (!extend && !grid_.setCurrentCell(row, grid_.firstCol()))
        return;
    drag_ = Drag::Rows;
    cell_ = {from, 0};
    const CellRange rows = CellRange::rows(std::min(from, row), std::max(from, row));
    if (event.modifiers().testFlag(Qt::ControlModifier))
        grid_.addSelection(rows);
    else
        grid_.selectRange(rows);
}

void GridMouse::pressCell(const QMouseEvent& event, CellPos pos) {
    if (event.modifiers().testFlag(Qt::ShiftModifier) && grid_.currentCell()) {
        drag_ = Drag::Cells;
        cell_ = *grid_.currentCell();
        hasMoved_ = true;
        grid_.moveTo(pos, true);
        return;
    }
    const RowKey key = grid_.rowKey(pos.row);
    if (!grid_.setCurrentCell(pos.row, pos.col))
        return;
    pos.row = grid_.rowOfKey(key);
    if (pos.row < 0)
        return;
    if (!event.modifiers().testFlag(Qt::ControlModifier))
        grid_.clearSelection();
    else
        grid_.addSelection(CellRange::cell(pos.row, pos.col));
    drag_ = Drag::Cells;
    cell_ = pos;
}

void GridMouse::move(const QMouseEvent& event) {
    const QPoint point = event.position().toPoint();
    if (drag_ == Drag::None || !event.buttons().testFlag(Qt::LeftButton)) {
        showCursor(point);
        return;
    }
    point_ = point;
    dragTo(point);
    const bool scrolls = drag_ == Drag::Cells || drag_ == Drag::Rows || drag_ == Drag::Fill;
    const GridGeometry& geometry = grid_.geometry_;
    const QRect inside(geometry.rowHeaderWidth(), geometry.headerHeight(),
                       grid_.viewport()->width() - geometry.rowHeaderWidth(),
                       grid_.viewport()->height() - geometry.headerHeight());
    if (!scrolls || inside.contains(point))
        autoScroll_.stop();
    else if (!autoScroll_.isActive())
        autoScroll_.start(autoScrollInterval, &grid_);
}

void GridMouse::dragTo(QPoint point) {
    const CellPos near = grid_.geometry_.nearestCell(point);
    if (drag_ == Drag::Border) {
        dragBorder(point);
    } else if (near.row < 1) {
        return;
    } else if (drag_ == Drag::Cells && (near != cell_ || hasMoved_)) {
        hasMoved_ = true;
        if (grid_.lead_ != near) {
            grid_.lead_ = near;
            grid_.selectRange(CellRange::between(cell_, near));
        }
    } else if (drag_ == Drag::Rows) {
        grid_.selectRange(
            CellRange::rows(std::min(cell_.row, near.row), std::max(cell_.row, near.row)));
    } else if (drag_ == Drag::Fill) {
        dragFill(near);
    }
}

void GridMouse::dragBorder(QPoint point) {
    const int width = width_ + point.x() - start_.x();
    grid_.SetColWidth(cell_.col, cell_.col, static_cast<int>(std::lround(width / grid_.zoom())));
    grid_.colResized(cell_.col);
}

void GridMouse::dragFill(CellPos near) {
    const CellRange source = grid_.fillSource();
    if (source.empty())
        return;
    fillPreview_ = {std::min(near.row, source.top), source.left, std::max(near.row, source.bottom),
                    source.right};
    grid_.viewport()->update();
}

bool GridMouse::timeOut(int timer) {
    if (timer != autoScroll_.timerId())
        return false;
    if (drag_ == Drag::None)
        autoScroll_.stop();
    else
        scroll();
    return true;
}

void GridMouse::scroll() {
    const auto push = [](QScrollBar* bar, int place, int low, int high) {
        if (place < low)
            bar->setValue(bar->value() - bar->singleStep());
        else if (place >= high)
            bar->setValue(bar->value() + bar->singleStep());
    };
    push(grid_.verticalScrollBar(), point_.y(), grid_.geometry_.headerHeight(),
         grid_.viewport()->height());
    if (drag_ == Drag::Cells)
        push(grid_.horizontalScrollBar(), point_.x(), grid_.geometry_.rowHeaderWidth(),
             grid_.viewport()->width());
    dragTo(point_);
}

bool GridMouse::endDrag() {
    const bool wasDragging = drag_ != Drag::None;
    drag_ = Drag::None;
    autoScroll_.stop();
    if (!fillPreview_.empty()) {
        fillPreview_ = {};
        grid_.viewport()->update();
    }
    return wasDragging;
}

void GridMouse::release(const QMouseEvent& event) {
    if (event.button() != Qt::LeftButton)
        return;
    const Drag ended = drag_;
    const CellRange preview = fillPreview_;
    const CellRange source = grid_.fillSource();
    endDrag();
    if (ended == Drag::Fill) {
        if (preview.bottom > preview.top)
            grid_.fill(source.top, preview);
    } else if (ended == Drag::Header) {
        if (grid_.cellAt(event.position().toPoint()) == CellPos{0, cell_.col})
            grid_.leftClick(0, cell_.col);
    } else if (ended == Drag::Cells && !hasMoved_) {
        releaseCell(cell_);
    }
}

void GridMouse::releaseCell(CellPos pos) {
    if (!grid_.exists(pos.row, pos.col) || grid_.leftClick(pos.row, pos.col) ||
        !grid_.exists(pos.row, pos.col))
        return;
    if (grid_.cellStyle(pos.row, pos.col).kind == CellKind::CheckBox)
        grid_.toggleCheckBox(pos);
    else if (onListMark(pos, start_) && grid_.currentCell() == pos)
        grid_.beginEdit();
}

void GridMouse::doubleClick(const QMouseEvent& event) {
    if (event.button() != Qt::LeftButton || grid_.validating())
        return;
    const QPoint point = event.position().toPoint();
    if (const int border = resizableBorder(point); border > 0) {
        grid_.fitColWidth(border);
        return;
    }
    const auto pos = grid_.cellAt(point);
    if (!pos || grid_.doubleClick(pos->row, pos->col) || pos->row == 0 || pos->col == 0)
        return;
    if (!grid_.exists(pos->row, pos->col) || !grid_.setCurrentCell(pos->row, pos->col))
        return;
    if (grid_.cellStyle(pos->row, pos->col).kind == CellKind::CheckBox)
        grid_.toggleCheckBox(*pos);
    else
        grid_.beginEdit();
}

void GridMouse::showCursor(QPoint point) {
    if (resizableBorder(point) > 0)
        grid_.viewport()->setCursor(Qt::SplitHCursor);
    else if (onFillHandle(point))
        grid_.viewport()->setCursor(Qt::CrossCursor);
    else
        grid_.viewport()->unsetCursor();
}

} // namespace partwright::grid
