#include "grid/grid_core.h"

#include "grid/choice_list.h"

#include <QKeyEvent>
#include <algorithm>
#include <utility>

namespace partwright::grid {

namespace {

constexpr int defaultColWidth = 80;
constexpr int defaultRowHeaderWidth = 35;
constexpr int defaultRowHeight = 22;
constexpr int smallestSize = 15;

} // namespace

CGridCore::CGridCore()
    : widths_{defaultRowHeaderWidth}, rowHeight_(defaultRowHeight),
      sortFlags_(std::make_shared<SortFlags>()) {
    CellStyle header;
    header.bold = true;
    header.readOnly = true;
    store_.setStyle(0, 0, styles_.find(header));
}

CGridCore::~CGridCore() = default;

void CGridCore::InsertRows(int before, int count) {
    const auto key = current_ ? std::optional(store_.keyOf(current_->row)) : std::nullopt;
    store_.insertRows(std::clamp(before, 1, rowCount() + 1), count);
    selection_.clear();
    structureChanged();
    followCurrent(key);
}

void CGridCore::InsertCols(int before, int count) {
    const int at = std::clamp(before, 1, colCount() + 1);
    store_.insertCols(at, count);
    widths_.insert(widths_.begin() + at, static_cast<std::size_t>(count), defaultColWidth);
    const StyleId header = store_.styleOf(0, 0);
    for (int col = at; col < at + count; ++col)
        store_.setStyle(0, col, header);
    selection_.clear();
    structureChanged();
    if (current_ && current_->col >= at)
        setCurrent(CellPos{current_->row, current_->col + count});
}

void CGridCore::RemoveRows(int first, int final) {
    std::vector<int> rows;
    for (int row = std::max(first, 1); row <= std::min(final, rowCount()); ++row)
        rows.push_back(row);
    removeRowList(std::move(rows));
}

void CGridCore::removeRowList(std::vector<int> rows) {
    std::sort(rows.begin(), rows.end());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    std::erase_if(rows, [&](int row) { return row < 1 || row > rowCount(); });
    if (rows.empty())
        return;
    const bool gone = current_ && std::binary_search(rows.begin(), rows.end(), current_->row);
    const auto key = current_ ? std::optional(store_.keyOf(current_->row)) : std::nullopt;
    store_.removeRows(rows);
    selection_.clear();
    structureChanged();
    if (!gone) {
        followCurrent(key);
    } else {
        const CellPos old = *current_;
        current_.reset();
        if (rowCount() > 0)
            setCurrent(CellPos{std::min(old.row, rowCount()), old.col});
    }
}

void CGridCore::followCurrent(std::optional<RowKey> key) {
    if (key && current_)
        current_->row = store_.rowOf(*key);
}

void CGridCore::HideRows(int first, int final, bool hide) {
    for (int row = std::max(first, 0); row <= std::min(final, rowCount()); ++row)
        store_.hideRow(row, hide);
    layoutChanged();
}

void CGridCore::HideCols(int first, int final, bool hide) {
    for (int col = std::max(first, 0); col <= std::min(final, colCount()); ++col)
        store_.hideCol(col, hide);
    layoutChanged();
}

void CGridCore::SetColWidth(int first, int final, int width) {
    for (int col = std::max(first, 0); col <= std::min(final, colCount()); ++col)
        widths_[static_cast<std::size_t>(col)] = limitColWidth(col, width);
    layoutChanged();
}

void CGridCore::setRowHeight(int height) {
    rowHeight_ = limitRowHeight(height);
    layoutChanged();
}

void CGridCore::deferRows(int first, int final) {
    const CellRange area = clipped(CellRange::rows(std::max(first, 1), final));
    for (int row = area.top; row <= area.bottom; ++row)
        store_.deferRow(row);
    cellsChanged(area);
}

void CGridCore::fillDeferred(int row) {
    if (!store_.undeferRow(row))
        return;
    // The row was announced as changed when it was deferred, and it may be painted right now.
    const bool cells = cellsStale_;
    const bool layout = layoutStale_;
    ++locks_;
    fillRow(row);
    --locks_;
    cellsStale_ = cells;
    layoutStale_ = layout;
}

void CGridCore::readyAll() const {
    for (int row = 1; row <= rowCount() && store_.hasDeferredRows(); ++row)
        ready(row);
}

QString CGridCore::text(int row, int col) const {
    if (!exists(row, col))
        return {};
    ready(row);
    const QString& stored = store_.text(row, col);
    return col == 0 && row > 0 && stored.isEmpty() ? QString::number(row) : stored;
}

void CGridCore::setText(int row, int col, const QString& text, Redraw redraw) {
    if (!exists(row, col))
        return;
    ready(row);
    store_.setText(row, col, text);
    if (redraw == Redraw::Now)
        cellsChanged(CellRange::cell(row, col));
}

CellRange CGridCore::clipped(const CellRange& range) const {
    return range.within({0, 0, rowCount(), colCount()});
}

void CGridCore::restyle(const CellRange& range, const StyleChange& change) {
    std::map<StyleId, StyleId> merged;
    for (int col = range.left; col <= range.right; ++col) {
        for (int row = range.top; row <= range.bottom; ++row) {
            const StyleId old = store_.styleOf(row, col);
            const auto [place, added] = merged.try_emplace(old, 0);
            if (added) {
                CellStyle next = styles_.at(old);
                change.apply(next);
                place->second = styles_.find(next);
            }
            store_.setStyle(row, col, place->second);
        }
    }
}

void CGridCore::SetStyleRange(const CellRange& range, const StyleChange& change, Redraw redraw) {
    const CellRange area = clipped(range);
    if (area.empty())
        return;
    if (change.touchesStyle())
        restyle(area, change);
    if (change.value)
        for (int row = area.top; row <= area.bottom; ++row) {
            ready(row);
            for (int col = area.left; col <= area.right; ++col)
                store_.setText(row, col, *change.value);
        }
    if (redraw == Redraw::Now)
        cellsChanged(area);
}

void CGridCore::setColStyle(int col, const StyleChange& change) {
    if (col < 0 || col > colCount())
        return;
    CellStyle next = styles_.at(store_.columnStyle(col));
    change.apply(next);
    store_.setColumnStyle(col, styles_.find(next));
    cellsChanged(CellRange::column(col));
}

const CellStyle& CGridCore::cellStyle(int row, int col) const {
    ready(row);
    return styles_.at(store_.styleOf(row, col));
}

bool CGridCore::exists(int row, int col) const {
    return row >= 0 && row <= rowCount() && col >= 0 && col <= colCount();
}

bool CGridCore::isEditable(int row, int col) const {
    if (row < 1 || col < 1 || !exists(row, col))
        return false;
    const CellStyle& look = cellStyle(row, col);
    return look.enabled && !look.readOnly;
}

int CGridCore::nextCol(int col, int step) const {
    for (int next = col + step; next >= 1 && next <= colCount(); next += step)
        if (isColVisible(next))
            return next;
    return 0;
}

bool CGridCore::validate(int row, int col, const QString& text) {
    if (validating_)
        return false;
    validating_ = true;
    const bool accepted = validateCell(row, col, text);
    validating_ = false;
    return accepted;
}

bool CGridCore::commitText(int row, int col, const QString& text) {
    const RowKey key = rowKey(row);
    if (!validate(row, col, text))
        return false;
    const int now = rowOfKey(key, row);
    if (now < 0)
        return true;
    const QString before = this->text(now, col);
    setText(now, col, text);
    cellCommitted(now, col, before);
    return true;
}

bool CGridCore::takes(int row, int col, const QString& text) const {
    if (!isEditable(row, col))
        return false;
    const CellStyle& look = cellStyle(row, col);
    if (look.kind == CellKind::DropDown)
        return findInChoiceList(look.choices, text, ChoiceMatch::Exact) >= 0;
    if (look.kind == CellKind::CheckBox)
        return text == QStringLiteral("0") || text == QStringLiteral("1");
    return true;
}

void CGridCore::unlockRedraw() {
    if (locks_ == 0 || --locks_ > 0)
        return;
    if (std::exchange(layoutStale_, false))
        layoutChanged();
    if (std::exchange(cellsStale_, false))
        cellsChanged({0, 0, CellRange::last, CellRange::last});
}

void CGridCore::cellsChanged(const CellRange&) {
    cellsStale_ = redrawLocked();
}

void CGridCore::layoutChanged() {
    layoutStale_ = redrawLocked();
}

void CGridCore::structureChanged() {
    layoutChanged();
}

void CGridCore::scrollTo(int, int) {}

void CGridCore::selectionMoved() {}

void CGridCore::currentMovedFrom(std::optional<CellPos>) {}

int CGridCore::limitColWidth(int, int width) const {
    return std::max(width, smallestSize);
}

int CGridCore::limitRowHeight(int height) const {
    return std::max(height, smallestSize);
}

bool CGridCore::canResizeCol(int) const {
    return true;
}

void CGridCore::colResized(int) {}

void CGridCore::dropDownEntered(int, int) {}

bool CGridCore::validateCell(int, int, const QString&) {
    return true;
}

void CGridCore::cellTextModified(int, int) {}

void CGridCore::cellCommitted(int, int, const QString&) {}

void CGridCore::editCancelled(int, int) {}

void CGridCore::pasteCell(int row, int col, const QString& text) {
    if (takes(row, col, text))
        setText(row, col, text);
}

void CGridCore::pasteFinished(const CellRange&) {}

void CGridCore::fillFinished(CellPos, const CellRange&) {}

bool CGridCore::leftClick(int row, int col) {
    if (row != 0 || col < 1)
        return false;
    sortByHeader(col);
    return true;
}

bool CGridCore::doubleClick(int, int) {
    return false;
}

bool CGridCore::keyPressed(QKeyEvent*) {
    return false;
}

void CGridCore::currentCellMoved(int, int) {}

void CGridCore::selectionChanged() {}

void CGridCore::rowsSorted(int) {}
void CGridCore::fillRow(int) {}
void CGridCore::menuOpening(QMenu&) {}

SortRule CGridCore::sortRule(int) const {
    return {};
}

} // namespace partwright::grid
