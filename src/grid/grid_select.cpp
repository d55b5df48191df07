// CGridCore: current cell, selection, sorting, clipboard text and filling.

#include "grid/grid_core.h"
#include "grid/tab_text.h"

#include <algorithm>

namespace partwright::grid {

void CGridCore::setCurrent(std::optional<CellPos> next) {
    if (next == current_)
        return;
    const auto before = std::exchange(current_, next);
    currentMovedFrom(before);
    if (next)
        currentCellMoved(next->row, next->col);
}

bool CGridCore::setCurrentCell(int row, int col) {
    if (row < 1 || col < 1 || !exists(row, col))
        return false;
    if (current_ != CellPos{row, col}) {
        const RowKey key = rowKey(row);
        if (validating_ || !leaveCell())
            return false;
        const int now = rowOfKey(key, row);
        if (now < 1)
            return false;
        row = now;
    }
    scrollTo(row, col);
    setCurrent(CellPos{row, col});
    return true;
}

void CGridCore::clearCurrentCell() {
    setCurrent(std::nullopt);
}

std::vector<int> CGridCore::selectedRows() const {
    std::vector<int> rows;
    for (const CellRange& range : selection_)
        if (range.wholeRows())
            for (int row = std::max(range.top, 1); row <= std::min(range.bottom, rowCount()); ++row)
                rows.push_back(row);
    std::sort(rows.begin(), rows.end());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    std::erase_if(rows, [&](int row) { return isRowHidden(row); });
    return rows;
}

bool CGridCore::isSelected(int row, int col) const {
    return std::any_of(selection_.begin(), selection_.end(),
                       [&](const CellRange& range) { return range.contains(row, col); });
}

bool CGridCore::isRowSelected(int row) const {
    return std::any_of(selection_.begin(), selection_.end(), [&](const CellRange& range) {
        return range.wholeRows() && row >= range.top && row <= range.bottom;
    });
}

void CGridCore::selectRange(const CellRange& range) {
    for (const CellRange& old : selection_)
        cellsChanged(old);
    selection_.assign(1, range);
    cellsChanged(range);
    selectionMoved();
    selectionChanged();
}

void CGridCore::addSelection(const CellRange& range) {
    selection_.push_back(range);
    cellsChanged(range);
    selectionMoved();
    selectionChanged();
}

void CGridCore::clearSelection() {
    if (selection_.empty())
        return;
    for (const CellRange& old : selection_)
        cellsChanged(old);
    selection_.clear();
    selectionMoved();
    selectionChanged();
}

void CGridCore::sortRows(int col, const SortRule& rule) {
    if (!exists(1, col) || !leaveCell())
        return;
    readyAll();
    std::vector<const QString*> texts;
    texts.reserve(static_cast<std::size_t>(rowCount()));
    for (int row = 1; row <= rowCount(); ++row)
        texts.push_back(&store_.text(row, col));
    std::vector<quint32> order = sortedOrder(texts, rule);
    for (quint32& position : order)
        ++position;
    const auto key = current_ ? std::optional(store_.keyOf(current_->row)) : std::nullopt;
    store_.reorder(order);
    sortedCol_ = col;
    selection_.clear();
    structureChanged();
    followCurrent(key);
    rowsSorted(col);
}

void CGridCore::sortByHeader(int col) {
    if (rowCount() < 2 || col < 1 || col > colCount() || !leaveCell())
        return;
    readyAll();
    bool filled = false;
    for (int row = 1; row <= rowCount() && !filled; ++row)
        filled = !store_.text(row, col).isEmpty();
    if (!filled)
        return;
    bool& ascending = (*sortFlags_)[col];
    ascending = !ascending;
    SortRule rule = sortRule(col);
    rule.order = ascending ? SortOrder::Ascending : SortOrder::Descending;
    sortRows(col, rule);
    scrollTo(1, 1);
    current_.reset();
    setCurrentCell(1, col);
}

std::vector<int> CGridCore::visibleCols(const CellRange& range) const {
    std::vector<int> cols;
    for (int col = std::max(range.left, 1); col <= std::min(range.right, colCount()); ++col)
        if (isColVisible(col))
            cols.push_back(col);
    return cols;
}

std::vector<int> CGridCore::visibleRows(const CellRange& range) const {
    std::vector<int> rows;
    for (int row = std::max(range.top, 1); row <= std::min(range.bottom, rowCount()); ++row)
        if (!isRowHidden(row))
            rows.push_back(row);
    return rows;
}

QString CGridCore::selectedText() const {
    CellRange range;
    std::vector<int> rows = selectedRows();
    if (!selection_.empty())
        range = selection_.back();
    else if (current_)
        range = CellRange::cell(current_->row, current_->col);
    if (rows.empty() || !range.wholeRows())
        rows = visibleRows(range);
    const std::vector<int> cols = visibleCols(range);
    TextTable table;
    for (const int row : rows) {
        auto& line = table.emplace_back();
        for (const int col : cols)
            line.push_back(text(row, col));
    }
    QString result = toTabText(table);
    if (rows.size() == 1 && cols.size() == 1)
        result.chop(1);
    return result;
}

/// The part of the range that the table covers when it is laid on the range's corner: all of it
/// when the table fits a whole number of times, else what one copy reaches.
CGridCore::PasteArea CGridCore::pasteArea(CellRange range, std::size_t height,
                                          std::size_t width) const {
    PasteArea area{visibleRows(range), visibleCols(range)};
    if (area.rows.empty() || area.cols.empty())
        return {};
    if (area.rows.size() % height == 0 && area.cols.size() % width == 0)
        return area;
    range.bottom = range.right = CellRange::last;
    area = {visibleRows(range), visibleCols(range)};
    area.rows.resize(std::min(area.rows.size(), height));
    area.cols.resize(std::min(area.cols.size(), width));
    return area;
}

void CGridCore::pasteText(const QString& text) {
    const TextTable table = fromTabText(text);
    std::size_t width = 0;
    for (const auto& line : table)
        width = std::max(width, line.size());
    if (width == 0 || !leaveCell())
        return;
    std::vector<CellRange> targets;
    if (selection_.empty() && current_)
        targets.push_back(CellRange::cell(current_->row, current_->col));
    else if (!selection_.empty())
        targets.push_back(selection_.back());
    if (table.size() == 1 && width == 1 && !selection_.empty())
        targets = selection_;
    std::optional<CellRange> pasted;
    for (const CellRange& target : targets) {
        const PasteArea area = pasteArea(target, table.size(), width);
        if (area.rows.empty())
            continue;
        {
            const RedrawLock lock(*this);
            for (std::size_t i = 0; i < area.rows.size(); ++i) {
                const auto& line = table[i % table.size()];
                for (std::size_t k = 0; k < area.cols.size(); ++k)
                    if (k % width < line.size())
                        pasteCell(area.rows[i], area.cols[k], line[k % width]);
            }
        }
        const CellRange covered{area.rows.front(), area.cols.front(), area.rows.back(),
                                area.cols.back()};
        if (area.rows.size() * area.cols.size() > 1 && selection_.empty())
            selectRange(covered);
        pasted = pasted ? pasted->united(covered) : covered;
    }
    if (pasted)
        pasteFinished(*pasted);
}

void CGridCore::fill(int sourceRow, const CellRange& range) {
    if (!leaveCell())
        return;
    const std::vector<int> cols = visibleCols(range);
    for (const int col : cols)
        autoFillFinished({sourceRow, col}, {range.top, col, range.bottom, col});
    if (!cols.empty())
        fillFinished({sourceRow, cols.front()}, range);
}

void CGridCore::autoFillFinished(CellPos source, const CellRange& range) {
    const RedrawLock lock(*this);
    const QString text = this->text(source.row, source.col);
    if (text.isEmpty())
        return;
    for (const int row : visibleRows(range))
        if (row != source.row && takes(row, source.col, text))
            setText(row, source.col, text);
}

} // namespace partwright::grid
