#include "grid/grid_store.h"

#include <algorithm>

namespace partwright::grid {

GridStore::GridStore() {
    order_.push_back(0);
    rowHidden_.push_back(0);
    deferred_.push_back(0);
    insertCols(0, 1);
}

StyleId GridStore::styleOf(int row, int col) const {
    const StyleId own = cell(row, col).style;
    if (own != 0)
        return own - 1;
    return row == 0 ? 0 : columns_[index(col)].style;
}

void GridStore::insertRows(int before, int count) {
    std::vector<RowKey> keys;
    keys.reserve(index(count));
    while (!free_.empty() && keys.size() < index(count)) {
        keys.push_back(free_.back());
        free_.pop_back();
    }
    while (keys.size() < index(count)) {
        keys.push_back(static_cast<RowKey>(rowHidden_.size()));
        rowHidden_.push_back(0);
    }
    for (Column& column : columns_)
        column.cells.resize(rowHidden_.size());
    deferred_.resize(rowHidden_.size());
    order_.insert(order_.begin() + before, keys.begin(), keys.end());
    shownStale_ = true;
}

void GridStore::insertCols(int before, int count) {
    Column column;
    column.cells.resize(rowHidden_.size());
    columns_.insert(columns_.begin() + before, index(count), column);
}

void GridStore::removeRows(const std::vector<int>& rows) {
    if (rows.empty())
        return;
    for (const int row : rows) {
        const RowKey key = keyOf(row);
        for (Column& column : columns_)
            column.cells[key] = Cell{};
        hideRow(row, false);
        undeferRow(row);
        free_.push_back(key);
    }
    auto gone = rows.begin();
    std::size_t to = index(rows.front());
    for (std::size_t from = to; from < order_.size(); ++from) {
        if (gone != rows.end() && index(*gone) == from)
            ++gone;
        else
            order_[to++] = order_[from];
    }
    order_.resize(to);
    shownStale_ = true;
}

void GridStore::reorder(const std::vector<quint32>& order) {
    std::vector<RowKey> next;
    next.reserve(order_.size());
    next.push_back(order_.front());
    for (const quint32 row : order)
        next.push_back(order_[row]);
    order_ = std::move(next);
    shownStale_ = true;
}

int GridStore::rowOf(RowKey key, int guess) const {
    if (guess > 0 && guess <= rowCount() && keyOf(guess) == key)
        return guess;
    const auto found = std::find(order_.begin(), order_.end(), key);
    return found == order_.end() ? -1 : static_cast<int>(found - order_.begin());
}

void GridStore::hideRow(int row, bool hidden) {
    char& flag = rowHidden_[keyOf(row)];
    if ((flag != 0) == hidden)
        return;
    flag = hidden ? 1 : 0;
    hiddenRows_ += hidden ? 1 : -1;
    shownStale_ = true;
}

void GridStore::deferRow(int row) {
    char& mark = deferred_[keyOf(row)];
    deferredCount_ += mark == 0 ? 1 : 0;
    mark = 1;
}

bool GridStore::undeferRow(int row) {
    char& mark = deferred_[keyOf(row)];
    if (mark == 0)
        return false;
    mark = 0;
    --deferredCount_;
    return true;
}

void GridStore::refreshShown() const {
    if (!shownStale_)
        return;
    shown_.clear();
    shownStale_ = false;
    if (hiddenRows_ == 0)
        return;
    for (int row = 1; row <= rowCount(); ++row)
        if (!rowHidden(row))
            shown_.push_back(row);
}

int GridStore::shownCount() const {
    return rowCount() - hiddenRows_ + (rowHidden_[order_.front()] != 0 ? 1 : 0);
}

int GridStore::shownRow(int position) const {
    refreshShown();
    return hiddenRows_ == 0 ? position + 1 : shown_[index(position)];
}

int GridStore::shownPosition(int row) const {
    refreshShown();
    if (hiddenRows_ == 0)
        return row - 1;
    return static_cast<int>(std::lower_bound(shown_.begin(), shown_.end(), row) - shown_.begin());
}

} // namespace partwright::grid
