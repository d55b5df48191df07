// CGridWnd: the keyboard and the context menu.

#include "grid/grid_window.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QPointer>
#include <algorithm>
#include <memory>

namespace partwright::grid {

namespace {

constexpr double zoomStep = 1.1;
constexpr int widthStep = 5;

} // namespace

bool CGridWnd::focusNextPrevChild(bool) {
    return false;
}

int CGridWnd::pageRows() const {
    return std::max(1,
                    (viewport()->height() - geometry_.headerHeight()) / geometry_.rowHeight() - 1);
}

CellPos CGridWnd::moved(CellPos from, int rows, int cols) const {
    const int count = store().shownCount();
    const int position = std::clamp(store().shownPosition(from.row) + rows, 0, count - 1);
    int col = from.col;
    for (int step = cols < 0 ? -1 : 1; cols != 0; cols -= step) {
        const int next = nextCol(col, step);
        if (next == 0)
            break;
        col = next;
    }
    return {store().shownRow(position), col};
}

void CGridWnd::moveTo(CellPos pos, bool extend) {
    const auto current = currentCell();
    if (!extend || !current) {
        const RowKey key = rowKey(pos.row);
        if (setCurrentCell(pos.row, pos.col) && rowOfKey(key, pos.row) > 0)
            clearSelection();
        return;
    }
    if (!leaveCell())
        return;
    lead_ = pos;
    scrollTo(pos.row, pos.col);
    selectRange(CellRange::between(*current, pos));
}

bool CGridWnd::moveBy(int rows, int cols) {
    if (store().shownCount() == 0 || firstCol() == 0)
        return false;
    const auto current = currentCell();
    const CellPos next =
        current ? moved(*current, rows, cols) : CellPos{store().shownRow(0), firstCol()};
    if (next == current)
        return false;
    moveTo(next, false);
    return true;
}

/// Along the row, then on to the next row; out of the grid behind the last cell.
bool CGridWnd::moveOn(int step) {
    const auto current = currentCell();
    if (!current || store().shownCount() == 0)
        return QAbstractScrollArea::focusNextPrevChild(step > 0);
    if (const int col = nextCol(current->col, step); col > 0) {
        moveTo({current->row, col}, false);
        return true;
    }
    const int position = store().shownPosition(current->row) + step;
    if (position < 0 || position >= store().shownCount())
        return QAbstractScrollArea::focusNextPrevChild(step > 0);
    moveTo({store().shownRow(position), step > 0 ? firstCol() : lastCol()}, false);
    return true;
}

void CGridWnd::keyPressEvent(QKeyEvent* event) {
    if (validating())
        return;
    if (keyPressed(event) || gridKey(event))
        event->accept();
    else
        event->ignore();
}

bool CGridWnd::moveKey(QKeyEvent* event) {
    const bool control = event->modifiers().testFlag(Qt::ControlModifier);
    const bool extend = event->modifiers().testFlag(Qt::ShiftModifier);
    constexpr int far = 1 << 28;
    int rows = 0;
    int cols = 0;
    switch (event->key()) {
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
    if (store().shownCount() == 0 || firstCol() == 0)
        return true;
    const auto current = currentCell();
    if (!current)
        return moveBy(0, 0), true;
    moveTo(moved(extend && lead_ ? *lead_ : *current, rows, cols), extend);
    return true;
}

bool CGridWnd::controlKey(QKeyEvent* event) {
    if (event->matches(QKeySequence::Copy)) {
        copy();
    } else if (event->matches(QKeySequence::Paste)) {
        paste();
    } else if (event->matches(QKeySequence::SelectAll)) {
        selectAll();
    } else if (event->matches(QKeySequence::Print)) {
        if (commitEdit())
            printPreview();
    } else if (!event->modifiers().testFlag(Qt::ControlModifier)) {
        return false;
    } else if (event->modifiers().testFlag(Qt::AltModifier)) {
        const auto current = currentCell();
        const int step = event->key() == Qt::Key_Left    ? -widthStep
                         : event->key() == Qt::Key_Right ? widthStep
                                                         : 0;
        if (!current || step == 0 || !canResizeCol(current->col))
            return false;
        SetColWidth(current->col, current->col, colWidth(current->col) + step);
        colResized(current->col);
    } else if (event->key() == Qt::Key_D) {
        fillDown();
    } else if (event->key() == Qt::Key_Plus || event->key() == Qt::Key_Equal) {
        setZoom(zoom_ * zoomStep);
    } else if (event->key() == Qt::Key_Minus) {
        setZoom(zoom_ / zoomStep);
    } else if (event->key() == Qt::Key_0) {
        setZoom(1);
    } else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        activate();
    } else if (event->key() == Qt::Key_Space && currentCell()) {
        selectRange(CellRange::column(currentCell()->col));
    } else if (event->key() == Qt::Key_Tab || event->key() == Qt::Key_Backtab) {
        QAbstractScrollArea::focusNextPrevChild(event->key() == Qt::Key_Tab);
    } else {
        return false;
    }
    return true;
}

bool CGridWnd::gridKey(QKeyEvent* event) {
    const bool alt = event->modifiers().testFlag(Qt::AltModifier);
    const bool shift = event->modifiers().testFlag(Qt::ShiftModifier);
    if (controlKey(event))
        return true;
    const auto current = currentCell();
    const bool list = current && cellStyle(current->row, current->col).kind == CellKind::DropDown;
    if (list && ((alt && event->key() == Qt::Key_Down) || event->key() == Qt::Key_F4))
        return openEditor(Start::WithText);
    if (!alt && moveKey(event))
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
    case Qt::Key_Escape: {
        const bool dragging = drag_ != Drag::None;
        endDrag();
        return dragging;
    }
    case Qt::Key_F2:
        openEditor(Start::WithText);
        return true;
    case Qt::Key_Delete:
        clearSelected();
        return true;
    case Qt::Key_Backspace:
        openEditor(Start::Empty);
        return true;
    case Qt::Key_Space:
        if (shift && current) {
            selectRows(current->row, current->row);
            return true;
        }
        if (current && cellStyle(current->row, current->col).kind == CellKind::CheckBox) {
            toggleCheckBox(*current);
            return true;
        }
        break;
    default:
        break;
    }
    const bool typed = !event->text().isEmpty() && event->text()[0].isPrint() && !alt &&
                       !event->modifiers().testFlag(Qt::ControlModifier);
    return typed && openEditor(Start::Empty, event->text());
}

void CGridWnd::clearSelected() {
    if (!currentCell() && selection().empty())
        return;
    std::vector<CellRange> ranges = selection();
    if (ranges.empty())
        ranges.push_back(CellRange::cell(currentCell()->row, currentCell()->col));
    const RedrawLock lock(*this);
    CellRange cleared = ranges.front();
    for (const CellRange& range : ranges) {
        const CellRange area = range.within({1, 1, rowCount(), colCount()});
        cleared = cleared.united(range);
        for (int row = area.top; row <= area.bottom; ++row)
            for (int col = area.left; col <= area.right; ++col)
                if (!isRowHidden(row) && isColVisible(col) && isEditable(row, col))
                    pasteCell(row, col, QString());
    }
    pasteFinished(clipped(cleared));
}

void CGridWnd::selectAll() {
    if (leaveCell() && rowCount() > 0)
        selectRows(1, rowCount());
}

void CGridWnd::fillDown() {
    if (selection().empty() || selection().back().wholeRows())
        return;
    const CellRange range = selection().back().within({1, 1, rowCount(), colCount()});
    if (range.bottom > range.top)
        fill(range.top, range);
}

void CGridWnd::activate() {
    if (const auto current = currentCell(); current && leaveCell())
        doubleClick(current->row, current->col);
}

void CGridWnd::contextMenuEvent(QContextMenuEvent* event) {
    if (!leaveCell())
        return;
    QPoint place = event->globalPos();
    if (event->reason() == QContextMenuEvent::Mouse) {
        const int row = geometry_.rowAt(event->pos().y());
        const int col = geometry_.colAt(event->pos().x());
        if (row >= 1 && col >= 1 && !isSelected(row, col)) {
            setCurrentCell(row, col);
            clearSelection();
        }
    } else if (const auto at = currentCell()) {
        place = viewport()->mapToGlobal(geometry_.cellRect(at->row, at->col).bottomLeft());
    }
    const auto current = currentCell();
    QMenu menu(this);
    const auto add = [&](const QString& text, const QKeySequence& key, bool enabled, auto action) {
        QAction* const entry = menu.addAction(text, this, action);
        entry->setShortcut(key);
        entry->setEnabled(enabled);
    };
    add(tr("&Edit"), QKeySequence(Qt::Key_F2), current && isEditable(current->row, current->col),
        [this] { openEditor(Start::WithText); });
    add(tr("&Copy"), QKeySequence::Copy, current || !selection().empty(), [this] { copy(); });
    add(tr("&Paste"), QKeySequence::Paste, current.has_value(), [this] { paste(); });
    add(tr("Fill &Down"), QKeySequence(Qt::CTRL | Qt::Key_D),
        !selection().empty() && !selection().back().wholeRows(), [this] { fillDown(); });
    menu.addSeparator();
    const int col = current ? current->col : 0;
    add(tr("&Sort by This Column"), {}, col > 0, [this, col] { leftClick(0, col); });
    add(tr("&Fit Column Width"), {}, col > 0 && canResizeCol(col),
        [this, col] { fitColWidth(col); });
    menu.addSeparator();
    add(tr("Pr&int..."), QKeySequence::Print, true, [this] { printPreview(); });
    menuOpening(menu);
    menu.exec(place);
}

} // namespace partwright::grid
