#pragma once

// The keyboard of a grid with no editor open, and the context menu, which names the same verbs.

#include "grid/cell_range.h"

class QContextMenuEvent;
class QKeyEvent;

namespace partwright::grid {

class CGridWnd;

class GridKeys {
public:
    explicit GridKeys(CGridWnd& grid) : grid_(grid) {}

    /// True when the key has done something.
    bool press(QKeyEvent* event);
    /// To the neighbour; false at the edge.
    bool moveBy(int rows, int cols);
    void openMenu(const QContextMenuEvent& event);

private:
    bool controlKey(QKeyEvent* event);
    bool viewKey(const QKeyEvent& event);
    bool resizeColumn(int key);
    bool moveKey(const QKeyEvent& event);
    bool spaceKey(bool shift);
    [[nodiscard]] CellPos moved(CellPos from, int rows, int cols) const;
    bool moveOn(int step);
    void clearSelected();
    void fillDown();
    void activate();
    [[nodiscard]] int pageRows() const;

    CGridWnd& grid_;
};

} // namespace partwright::grid
