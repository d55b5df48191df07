#include "grid/grid_core.h"

#include "grid/choice_list.h"
#include "grid/tab_text.h"

#include <algorithm>
#include <utility>

namespace partwright::grid {

namespace {

constexpr int defaultColWidth = 80;
constexpr int defaultRowHeaderWidth = 35;
constexpr int defaultRowHeight = 22;
constexpr int smallestSize = 15;

} // namespace

CGridCore::CGridCore() : rowHeight_(defaultRowHeight), sortFlags_(std::make_shared<SortFlags>()) {
    CellStyle header;
    header.bold = true;
    header.readOnly = true;
    columns_.push_back({.width = defaultRowHeaderWidth, .headerStyle = styles_.find(header)});
}

CGridCore::~CGridCore() = default;

void CGridCore::setSource(const CellSource& source) {
    source_ = &source;
}

void CGridCore::sourceChanged(int source) {
    contentChanged();
    const int row = rowOfSource(source);
    cellsChanged(CellRange::rows(row, row));
}

void CGridCore::sourceReshaped(const std::vector<int>& removed, const std::vector<int>& inserted) {
    const auto key = current_ ? std::optional(rowKey(current_->row)) : std::nullopt;
    std::vector<int> gone;
    gone.reserve(removed.size());
    for (const int source : removed)
        gone.push_back(rowOfSource(source));
    std::sort(gone.begin(), gone.end());
    if (!gone.empty())
        takeOut(gone);
    const bool isGone = key && rowOfKey(*key) < 1; // before its key is given to another row
    for (std::size_t i = 0; i < inserted.size();) {
        int count = 1;
        while (i + static_cast<std::size_t>(count) < inserted.size() &&
               inserted[i + static_cast<std::size_t>(count)] == inserted[i] + count)
            ++count;
        const bool isLast = inserted[i] >= rowCount();
        rows_.insert(isLast ? rowCount() + 1 : rowOfSource(inserted[i]), inserted[i], count);
        i += static_cast<std::size_t>(count);
    }
    selection_.clear();
    structureChanged();
    followCurrent(key, isGone);
}

void CGridCore::InsertRows(int before, int count) {
    const auto key = current_ ? std::optional(rowKey(current_->row)) : std::nullopt;
    if (ownsCells())
        sheet_.addRows(count);
    rows_.insert(std::clamp(before, 1, rowCount() + 1), rowCount(), count);
    selection_.clear();
    structureChanged();
    followCurrent(key);
}

void CGridCore::InsertCols(int before, int count) {
    const int at = std::clamp(before, 1, colCount() + 1);
    sheet_.insertCols(at, count);
    columns_.insert(columns_.begin() + at, static_cast<std::size_t>(count),
                    {.width = defaultColWidth, .headerStyle = columns_.front().headerStyle});
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
    const auto key = current_ ? std::optional(rowKey(current_->row)) : std::nullopt;
    takeOut(rows);
    selection_.clear();
    structureChanged();
    followCurrent(key, key && rowOfKey(*key) < 1);
}

void CGridCore::takeOut(const std::vector<int>& rows) {
    const std::vector<int> gone = rows_.remove(rows);
    if (ownsCells())
        sheet_.removeRows(gone);
}

void CGridCore::followCurrent(std::optional<RowKey> key, bool isGone) {
    if (!key || !current_)
        return;
    if (!isGone) {
        current_->row = rowOfKey(*key);
        return;
    }
    const CellPos old = *current_;
    current_.reset();
    if (rowCount() > 0)
        setCurrent(CellPos{std::min(old.row, rowCount()), old.col});
}

void CGridCore::HideRows(int first, int final, bool hide) {
    for (int row = std::max(first, 0); row <= std::min(final, rowCount()); ++row)
        rows_.hide(row, hide);
    layoutChanged();
}

void CGridCore::HideCols(int first, int final, bool hide) {
    for (int col = std::max(first, 0); col <= std::min(final, colCount()); ++col)
        column(col).hidden = hide;
    layoutChanged();
}

void CGridCore::SetColWidth(int first, int final, int width) {
    for (int col = std::max(first, 0); col <= std::min(final, colCount()); ++col)
        column(col).width = limitColWidth(col, width);
    layoutChanged();
}

void CGridCore::setRowHeight(int height) {
    rowHeight_ = limitRowHeight(height);
    layoutChanged();
}

QString CGridCore::text(int row, int col) const {
    if (!exists(row, col))
        return {};
    if (row == 0)
        return column(col).header;
    const QString text = source_->text(sourceRow(row), col);
    return col == 0 && text.isEmpty() ? QString::number(row) : text;
}

void CGridCore::setText(int row, int col, const QString& text, Redraw redraw) {
    if (!exists(row, col))
        return;
    if (row == 0)
        column(col).header = text;
    else if (ownsCells())
        sheet_.setText(sourceRow(row), col, text);
    contentChanged();
    if (redraw == Redraw::Now)
        cellsChanged(CellRange::cell(row, col));
}

CellRange CGridCore::clipped(const CellRange& range) const {
    return range.within({0, 0, rowCount(), colCount()});
}

void CGridCore::restyleHeader(int col, const StyleChange& change) {
    CellStyle next = styles_.at(column(col).headerStyle);
    change.apply(next);
    column(col).headerStyle = styles_.find(next);
    if (change.value)
        column(col).header = *change.value;
}

void CGridCore::SetStyleRange(const CellRange& range, const StyleChange& change, Redraw redraw) {
    const CellRange area = clipped(range);
    if (area.empty())
        return;
    for (int col = area.left; col <= area.right; ++col) {
        if (area.top == 0)
            restyleHeader(col, change);
        for (int row = std::max(area.top, 1); ownsCells() && row <= area.bottom; ++row) {
            if (change.touchesStyle())
                sheet_.restyle(sourceRow(row), col, styles_.at(column(col).style), change);
            if (change.value)
                sheet_.setText(sourceRow(row), col, *change.value);
        }
    }
    if (change.value)
        contentChanged();
    if (redraw == Redraw::Now)
        cellsChanged(area);
}

void CGridCore::setColStyle(int col, const StyleChange& change) {
    if (col < 0 || col > colCount())
        return;
    CellStyle next = styles_.at(column(col).style);
    change.apply(next);
    column(col).style = styles_.find(next);
    cellsChanged(CellRange::column(col));
}

const CellStyle& CGridCore::cellStyle(int row, int col) const {
    if (row == 0)
        return styles_.at(column(col).headerStyle);
    const CellStyle* const own = source_->style(sourceRow(row), col);
    return own != nullptr ? *own : styles_.at(column(col).style);
}

QString CGridCore::markText(int row, int col) const {
    return row > 0 && col > 0 ? source_->markText(sourceRow(row), col) : QString();
}

QString CGridCore::tip(int row, int col) const {
    if (col < 1)
        return {};
    return row > 0 ? source_->tip(sourceRow(row), col) : source_->headerTip(col);
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
    const int now = rowOfKey(key);
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
    contentChanged();
    layoutChanged();
}

void CGridCore::contentChanged() {}

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
void CGridCore::menuOpening(QMenu&) {}

SortRule CGridCore::sortRule(int) const {
    return {};
}

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
        const int now = rowOfKey(key);
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
    std::vector<QString> texts;
    texts.reserve(static_cast<std::size_t>(rowCount()));
    for (int row = 1; row <= rowCount(); ++row)
        texts.push_back(source_->text(sourceRow(row), col));
    std::vector<quint32> order = sortedOrder(texts, rule);
    for (quint32& position : order)
        ++position;
    const auto key = current_ ? std::optional(rowKey(current_->row)) : std::nullopt;
    rows_.reorder(order);
    sortedCol_ = col;
    selection_.clear();
    structureChanged();
    followCurrent(key);
    rowsSorted(col);
}

void CGridCore::sortByHeader(int col) {
    if (rowCount() < 2 || col < 1 || col > colCount() || !leaveCell())
        return;
    bool filled = false;
    for (int row = 1; row <= rowCount() && !filled; ++row)
        filled = !source_->text(sourceRow(row), col).isEmpty();
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
