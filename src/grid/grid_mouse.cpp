// CGridWnd: the mouse.

#include "grid/grid_window.h"

#include <QMouseEvent>
#include <QScrollBar>
#include <QTimerEvent>
#include <algorithm>
#include <cmath>

namespace partwright::grid {

namespace {

constexpr int borderReach = 4;
constexpr int handleReach = 3;
constexpr int autoScrollInterval = 40;

} // namespace

int CGridWnd::resizableBorder(QPoint place) const {
    if (place.y() >= geometry_.headerHeight())
        return 0;
    const int col = geometry_.borderAt(place.x(), borderReach);
    return col > 0 && canResizeCol(col) ? col : 0;
}

bool CGridWnd::onMark(CellPos pos, QPoint place) const {
    const QRect cell = geometry_.cellRect(pos.row, pos.col);
    return cellStyle(pos.row, pos.col).kind == CellKind::DropDown &&
           place.x() > cell.right() - cell.height();
}

void CGridWnd::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || validating())
        return;
    const QPoint place = event->position().toPoint();
    const int row = geometry_.rowAt(place.y());
    const int col = geometry_.colAt(place.x());
    dragStart_ = dragPlace_ = place;
    dragMoved_ = false;
    if (const int border = resizableBorder(place); border > 0) {
        drag_ = Drag::Border;
        dragCell_ = {0, border};
        dragWidth_ = geometry_.widthOf(border);
        return;
    }
    const QRect handle = fillHandleRect();
    if (!handle.isEmpty() &&
        handle.adjusted(-handleReach, -handleReach, handleReach, handleReach).contains(place)) {
        drag_ = Drag::Fill;
        fillPreview_ = fillSource();
        return;
    }
    if (row >= 1 && col >= 1 && editedCell() == CellPos{row, col}) {
        if (edit_->editor->isDropDown())
            openList({});
        return;
    }
    if (!leaveCell() || row < 0 || col < 0)
        return;
    if (row == 0)
        pressHeader(event, col);
    else if (col == 0)
        pressRowHeader(event, row);
    else
        pressCell(event, {row, col});
}

void CGridWnd::pressHeader(QMouseEvent*, int col) {
    if (col == 0) {
        selectAll();
        return;
    }
    drag_ = Drag::Header;
    dragCell_ = {0, col};
}

void CGridWnd::pressRowHeader(QMouseEvent* event, int row) {
    if (firstCol() == 0)
        return;
    const bool extend = event->modifiers().testFlag(Qt::ShiftModifier) && currentCell();
    const bool add = event->modifiers().testFlag(Qt::ControlModifier);
    const int from = extend ? currentCell()->row : row;
    if (!extend && !setCurrentCell(row, firstCol()))
        return;
    drag_ = Drag::Rows;
    dragCell_ = {from, 0};
    const CellRange rows = CellRange::rows(std::min(from, row), std::max(from, row));
    if (add)
        addSelection(rows);
    else
        selectRange(rows);
}

void CGridWnd::pressCell(QMouseEvent* event, CellPos pos) {
    if (event->modifiers().testFlag(Qt::ShiftModifier) && currentCell()) {
        drag_ = Drag::Cells;
        dragCell_ = *currentCell();
        dragMoved_ = true;
        moveTo(pos, true);
        return;
    }
    const RowKey key = rowKey(pos.row);
    if (!setCurrentCell(pos.row, pos.col))
        return;
    pos.row = rowOfKey(key, pos.row);
    if (pos.row < 0)
        return;
    if (!event->modifiers().testFlag(Qt::ControlModifier))
        clearSelection();
    else
        addSelection(CellRange::cell(pos.row, pos.col));
    drag_ = Drag::Cells;
    dragCell_ = pos;
}

void CGridWnd::mouseMoveEvent(QMouseEvent* event) {
    const QPoint place = event->position().toPoint();
    if (drag_ == Drag::None || !event->buttons().testFlag(Qt::LeftButton)) {
        showCursor(place);
        return;
    }
    dragPlace_ = place;
    dragTo(place);
    const bool scrolls = drag_ == Drag::Cells || drag_ == Drag::Rows || drag_ == Drag::Fill;
    const QRect inside(geometry_.rowHeaderWidth(), geometry_.headerHeight(),
                       viewport()->width() - geometry_.rowHeaderWidth(),
                       viewport()->height() - geometry_.headerHeight());
    if (!scrolls || inside.contains(place))
        autoScroll_.stop();
    else if (!autoScroll_.isActive())
        autoScroll_.start(autoScrollInterval, this);
}

void CGridWnd::dragTo(QPoint place) {
    const CellPos near = geometry_.nearestCell(place);
    switch (drag_) {
    case Drag::Border: {
        const int width = dragWidth_ + place.x() - dragStart_.x();
        SetColWidth(dragCell_.col, dragCell_.col, static_cast<int>(std::lround(width / zoom_)));
        colResized(dragCell_.col);
        break;
    }
    case Drag::Cells:
        if (near.row < 1 || (near == dragCell_ && !dragMoved_))
            break;
        dragMoved_ = true;
        if (lead_ != near) {
            lead_ = near;
            selectRange(CellRange::between(dragCell_, near));
        }
        break;
    case Drag::Rows:
        if (near.row >= 1)
            selectRange(CellRange::rows(std::min(dragCell_.row, near.row),
                                        std::max(dragCell_.row, near.row)));
        break;
    case Drag::Fill: {
        const CellRange source = fillSource();
        if (near.row < 1 || source.empty())
            break;
        fillPreview_ = {std::min(near.row, source.top), source.left,
                        std::max(near.row, source.bottom), source.right};
        viewport()->update();
        break;
    }
    case Drag::Header:
    case Drag::None:
        break;
    }
}

void CGridWnd::timerEvent(QTimerEvent* event) {
    if (event->timerId() != autoScroll_.timerId()) {
        QAbstractScrollArea::timerEvent(event);
        return;
    }
    if (drag_ == Drag::None) {
        autoScroll_.stop();
        return;
    }
    const auto push = [](QScrollBar* bar, int place, int low, int high) {
        if (place < low)
            bar->setValue(bar->value() - bar->singleStep());
        else if (place >= high)
            bar->setValue(bar->value() + bar->singleStep());
    };
    push(verticalScrollBar(), dragPlace_.y(), geometry_.headerHeight(), viewport()->height());
    if (drag_ == Drag::Cells)
        push(horizontalScrollBar(), dragPlace_.x(), geometry_.rowHeaderWidth(),
             viewport()->width());
    dragTo(dragPlace_);
}

void CGridWnd::endDrag() {
    drag_ = Drag::None;
    autoScroll_.stop();
    if (!fillPreview_.empty()) {
        fillPreview_ = {};
        viewport()->update();
    }
}

void CGridWnd::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton)
        return;
    const Drag ended = drag_;
    const CellRange preview = fillPreview_;
    const CellRange source = fillSource();
    endDrag();
    if (ended == Drag::Fill) {
        if (preview.bottom > preview.top)
            fill(source.top, preview);
    } else if (ended == Drag::Header) {
        const QPoint place = event->position().toPoint();
        if (geometry_.rowAt(place.y()) == 0 && geometry_.colAt(place.x()) == dragCell_.col)
            leftClick(0, dragCell_.col);
    } else if (ended == Drag::Cells && !dragMoved_) {
        releaseCell(dragCell_);
    }
}

void CGridWnd::releaseCell(CellPos pos) {
    if (!exists(pos.row, pos.col) || leftClick(pos.row, pos.col) || !exists(pos.row, pos.col))
        return;
    if (cellStyle(pos.row, pos.col).kind == CellKind::CheckBox)
        toggleCheckBox(pos);
    else if (onMark(pos, dragStart_) && currentCell() == pos)
        beginEdit();
}

void CGridWnd::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || validating())
        return;
    const QPoint place = event->position().toPoint();
    if (const int border = resizableBorder(place); border > 0) {
        fitColWidth(border);
        return;
    }
    const int row = geometry_.rowAt(place.y());
    const int col = geometry_.colAt(place.x());
    if (row < 0 || col < 0 || doubleClick(row, col) || row == 0 || col == 0)
        return;
    if (!exists(row, col) || !setCurrentCell(row, col))
        return;
    if (cellStyle(row, col).kind == CellKind::CheckBox)
        toggleCheckBox({row, col});
    else
        beginEdit();
}

void CGridWnd::showCursor(QPoint place) {
    const QRect handle = fillHandleRect();
    if (resizableBorder(place) > 0)
        viewport()->setCursor(Qt::SplitHCursor);
    else if (!handle.isEmpty() &&
             handle.adjusted(-handleReach, -handleReach, handleReach, handleReach).contains(place))
        viewport()->setCursor(Qt::CrossCursor);
    else
        viewport()->unsetCursor();
}

} // namespace partwright::grid
