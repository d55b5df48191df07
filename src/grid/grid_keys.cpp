#include "grid/grid_keys.h"

#include "grid/grid_window.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <algorithm>

namespace partwright::grid {

namespace {

constexpr double zoomStep = 1.1;
constexpr int widthStep = 5;

} // namespace

int GridKeys::pageRows() const {
    const GridGeometry& geometry = grid_.geometry_;
    return std::max(
        1, (grid_.viewport()->height() - geometry.headerHeight()) / geometry.rowHeight() - 1);
}

CellPos GridKeys::moved(CellPos from, int rows, int cols) const {
    const GridRows& all = grid_.gridRows();
    const int position = std::clamp(all.shownPosition(from.row) + rows, 0, all.shownCount() - 1);
    int col = from.col;
    for (int step = cols < 0 ? -1 : 1; cols != 0; cols -= step) {
        const int next = grid_.nextCol(col, step);
        if (next == 0)
            break;
        col = next;
    }
    return {all.shownRow(position), col};
}

bool GridKeys::moveBy(int rows, int cols) {
    if (grid_.gridRows().shownCount() == 0 || grid_.firstCol() == 0)
        return false;
    const auto current = grid_.currentCell();
    const CellPos next = current ? moved(*current, rows, cols)
                                 : CellPos{grid_.gridRows().shownRow(0), grid_.firstCol()};
    if (next == current)
        return false;
    grid_.moveTo(next, false);
    return true;
}

/// Along the row, then on to the next row; out of the grid behind the last cell.
bool GridKeys::moveOn(int step) {
    const auto leave = [&] { return grid_.QAbstractScrollArea::focusNextPrevChild(step > 0); };
    const GridRows& all = grid_.gridRows();
    const auto current = grid_.currentCell();
    if (!current || all.shownCount() == 0)
        return leave();
    if (const int col = grid_.nextCol(current->col, step); col > 0) {
        grid_.moveTo({current->row, col}, false);
        return true;
    }
    const int position = all.shownPosition(current->row) + step;
    if (position < 0 || position >= all.shownCount())
        return leave();
    const int edge = step > 0 ? grid_.firstCol() : grid_.nextCol(grid_.colCount() + 1, -1);
    grid_.moveTo({all.shownRow(position), edge}, false);
    return true;
}

bool GridKeys::moveKey(const QKeyEvent& event) {
    const bool control = event.modifiers().testFlag(Qt::ControlModifier);
    const bool extend = event.modifiers().testFlag(Qt::ShiftModifier);
    constexpr int far = 1 << 28;
    int rows = 0;
    int cols = 0;
    switch (event.key()) {
    case Qt::Key_Up:
        rows = control ? -far : -1;
        break;
    case Qt::Key_Down:
        rows = control ? far : 1;
        break;
    case Qt::Key_Left:
        cols = control ? -far : -1;
        break;
    case Qt::Key_Right:
        cols = control ? far : 1;
        break;
    case Qt::Key_PageUp:
        rows = -pageRows();
        break;
    case Qt::Key_PageDown:
        rows = pageRows();
        break;
    case Qt::Key_Home:
        cols = -far;
        rows = control ? -far : 0;
        break;
    case Qt::Key_End:
        cols = far;
        rows = control ? far : 0;
        break;
    default:
        return false;
    }
    if (grid_.gridRows().shownCount() == 0 || grid_.firstCol() == 0)
        return true;
    const auto current = grid_.currentCell();
    if (!current)
        return moveBy(0, 0), true;
    grid_.moveTo(moved(extend && grid_.lead_ ? *grid_.lead_ : *current, rows, cols), extend);
    return true;
}

bool GridKeys::resizeColumn(int key) {
    const auto current = grid_.currentCell();
    const int step = key == Qt::Key_Left ? -widthStep : key == Qt::Key_Right ? widthStep : 0;
    if (!current || step == 0 || !grid_.canResizeCol(current->col))
        return false;
    grid_.SetColWidth(current->col, current->col, grid_.colWidth(current->col) + step);
    grid_.colResized(current->col);
    return true;
}

bool GridKeys::controlKey(QKeyEvent* event) {
    if (event->matches(QKeySequence::Copy)) {
        grid_.copy();
    } else if (event->matches(QKeySequence::Paste)) {
        grid_.paste();
    } else if (event->matches(QKeySequence::SelectAll)) {
        grid_.selectAll();
    } else if (event->matches(QKeySequence::Print)) {
        if (grid_.commitEdit())
            grid_.printPreview();
    } else if (!event->modifiers().testFlag(Qt::ControlModifier)) {
        return false;
    } else if (event->modifiers().testFlag(Qt::AltModifier)) {
        return resizeColumn(event->key());
    } else if (event->key() == Qt::Key_D) {
        fillDown();
    } else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        activate();
    } else if (event->key() == Qt::Key_Space && grid_.currentCell()) {
        grid_.selectRange(CellRange::column(grid_.currentCell()->col));
    } else if (event->key() == Qt::Key_Tab || event->key() == Qt::Key_Backtab) {
        grid_.QAbstractScrollArea::focusNextPrevChild(event->key() == Qt::Key_Tab);
    } else {
        return viewKey(*event);
    }
    return true;
}

bool GridKeys::viewKey(const QKeyEvent& event) {
    if (event.key() == Qt::Key_Plus || event.key() == Qt::Key_Equal)
        grid_.setZoom(grid_.zoom() * zoomStep);
    else if (event.key() == Qt::Key_Minus)
        grid_.setZoom(grid_.zoom() / zoomStep);
    else if (event.key() == Qt::Key_0)
        grid_.setZoom(1);
    else
        return false;
    return true;
}

bool GridKeys::spaceKey(bool shift) {
    const auto current = grid_.currentCell();
    if (!current)
        return false;
    if (shift) {
        grid_.selectRows(current->row, current->row);
        return true;
    }
    if (grid_.cellStyle(current->row, current->col).kind != CellKind::CheckBox)
        return false;
    grid_.toggleCheckBox(*current);
    return true;
}

bool GridKeys::press(QKeyEvent* event) {
    using Start = GridEdit::Start;
    const bool alt = event->modifiers().testFlag(Qt::AltModifier);
    const bool shift = event->modifiers().testFlag(Qt::ShiftModifier);
    if (controlKey(event))
        return true;
    const auto current = grid_.currentCell();
    const bool list =
        current && grid_.cellStyle(current->row, current->col).kind == CellKind::DropDown;
    if (list && ((alt && event->key() == Qt::Key_Down) || event->key() == Qt::Key_F4))
        return grid_.beginEdit();
    if (!alt && moveKey(*event))
        return true;
    switch (event->key()) {
    case Qt::Key_Tab:
        return moveOn(1);
    case Qt::Key_Backtab:
        return moveOn(-1);
    case Qt::Key_Return:
    case Qt::Key_Enter:
        moveBy(shift ? -1 : 1, 0);
        return true;
    case Qt::Key_Escape:
        return grid_.escape();
    case Qt::Key_F2:
        grid_.beginEdit();
        return true;
    case Qt::Key_Delete:
        clearSelected();
        return true;
    case Qt::Key_Backspace:
        grid_.edit_.open(Start::Empty);
        return true;
    case Qt::Key_Space:
        if (spaceKey(shift))
            return true;
        break;
    default:
        break;
    }
    const bool typed = !event->text().isEmpty() && event->text()[0].isPrint() && !alt &&
                       !event->modifiers().testFlag(Qt::ControlModifier);
    return typed && grid_.edit_.open(Start::Empty, event->text());
}

void GridKeys::clearSelected() {
    const auto current = grid_.currentCell();
    std::vector<CellRange> ranges = grid_.selection();
    if (ranges.empty() && current)
        ranges.push_back(CellRange::cell(current->row, current->col));
    if (ranges.empty())
        return;
    const RedrawLock lock(grid_);
    CellRange cleared = ranges.front();
    for (const CellRange& range : ranges) {
        const CellRange area = range.within({1, 1, grid_.rowCount(), grid_.colCount()});
        cleared = cleared.united(range);
        for (int row = area.top; row <= area.bottom; ++row)
            for (int col = area.left; col <= area.right; ++col)
                if (!grid_.isRowHidden(row) && grid_.isColVisible(col) &&
                    grid_.isEditable(row, col))
                    grid_.pasteCell(row, col, QString());
    }
    grid_.pasteFinished(grid_.clipped(cleared));
}

void GridKeys::fillDown() {
    if (grid_.selection().empty() || grid_.selection().back().wholeRows())
        return;
    const CellRange range =
        grid_.selection().back().within({1, 1, grid_.rowCount(), grid_.colCount()});
    if (range.bottom > range.top)
        grid_.fill(range.top, range);
}

void GridKeys::activate() {
    if (const auto current = grid_.currentCell(); current && grid_.leaveCell())
        grid_.doubleClick(current->row, current->col);
}

void GridKeys::openMenu(const QContextMenuEvent& event) {
    if (!grid_.leaveCell())
        return;
    QPoint point = event.globalPos();
    if (event.reason() == QContextMenuEvent::Mouse) {
        const auto under = grid_.cellAt(event.pos());
        if (under && under->row >= 1 && under->col >= 1 &&
            !grid_.isSelected(under->row, under->col)) {
            grid_.setCurrentCell(under->row, under->col);
            grid_.clearSelection();
        }
    } else if (const auto at = grid_.currentCell()) {
        point = grid_.viewport()->mapToGlobal(grid_.cellRect(at->row, at->col).bottomLeft());
    }
    const auto current = grid_.currentCell();
    const bool hasSelection = !grid_.selection().empty();
    QMenu menu(&grid_);
    const auto add = [&](const QString& text, const QKeySequence& key, bool enabled, auto action) {
        QAction* const entry = menu.addAction(text, &grid_, action);
        entry->setShortcut(key);
        entry->setEnabled(enabled);
    };
    add(CGridWnd::tr("&Edit"), QKeySequence(Qt::Key_F2),
        current && grid_.isEditable(current->row, current->col), [this] { grid_.beginEdit(); });
    add(CGridWnd::tr("&Copy"), QKeySequence::Copy, current || hasSelection,
        [this] { grid_.copy(); });
    add(CGridWnd::tr("&Paste"), QKeySequence::Paste, current.has_value(),
        [this] { grid_.paste(); });
    add(CGridWnd::tr("Fill &Down"), QKeySequence(Qt::CTRL | Qt::Key_D),
        hasSelection && !grid_.selection().back().wholeRows(), [this] { fillDown(); });
    menu.addSeparator();
    const int col = current ? current->col : 0;
    add(CGridWnd::tr("&Sort by This Column"), {}, col > 0,
        [this, col] { grid_.leftClick(0, col); });
    add(CGridWnd::tr("&Fit Column Width"), {}, col > 0 && grid_.canResizeCol(col),
        [this, col] { grid_.fitColWidth(col); });
    menu.addSeparator();
    add(CGridWnd::tr("Pr&int..."), QKeySequence::Print, true, [this] { grid_.printPreview(); });
    grid_.menuOpening(menu);
    menu.exec(point);
}

} // namespace partwright::grid
