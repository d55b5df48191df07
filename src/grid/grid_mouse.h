#pragma once

// The mouse in a grid: what a press begins, where a drag leads, what the release does.
//
// A press on a column's border sizes it, on the fill handle it fills, on a header it sorts when the
// same header sees the release, on a row header it selects rows, on a cell it selects cells. A drag
// beyond the edge scrolls.

#include "grid/cell_range.h"

#include <QBasicTimer>
#include <QPoint>
#include <optional>

class QMouseEvent;

namespace partwright::grid {

class CGridWnd;

class GridMouse {
public:
    explicit GridMouse(CGridWnd& grid) : grid_(grid) {}

    void press(const QMouseEvent& event);
    void move(const QMouseEvent& event);
    void release(const QMouseEvent& event);
    void doubleClick(const QMouseEvent& event);
    /// True when the timer is that of scrolling.
    bool timeOut(int timer);
    /// False when nothing was being dragged.
    bool endDrag();

    /// The range that a fill would take; empty without one.
    [[nodiscard]] const CellRange& fillPreview() const { return fillPreview_; }

private:
    enum class Drag { None, Cells, Rows, Border, Fill, Header };

    void pressHeader(int col);
    void pressRowHeader(const QMouseEvent& event, int row);
    void pressCell(const QMouseEvent& event, CellPos pos);
    void releaseCell(CellPos pos);
    void dragTo(QPoint point);
    void dragBorder(QPoint point);
    void dragFill(CellPos near);
    void scroll();
    void showCursor(QPoint point);
    [[nodiscard]] int resizableBorder(QPoint point) const;
    [[nodiscard]] bool onFillHandle(QPoint point) const;
    [[nodiscard]] bool onListMark(CellPos pos, QPoint point) const;

    CGridWnd& grid_;
    Drag drag_ = Drag::None;
    QPoint start_;
    QPoint point_;
    CellPos cell_;
    bool hasMoved_ = false;
    /// Of the column whose border is dragged, when the drag began.
    int width_ = 0;
    CellRange fillPreview_;
    QBasicTimer autoScroll_;
};

} // namespace partwright::grid
