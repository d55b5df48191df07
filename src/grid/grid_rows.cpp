#include "grid/grid_rows.h"

#include <algorithm>

namespace partwright::grid {

GridRows::GridRows() : order_{0}, hidden_{0}, isStale_(true) {}

void GridRows::insert(int before, int first, int count) {
    std::vector<RowKey> fresh;
    fresh.reserve(index(count));
    while (fresh.size() < index(count)) {
        if (!free_.empty()) {
            fresh.push_back(free_.back());
            free_.pop_back();
        } else {
            fresh.push_back(static_cast<RowKey>(hidden_.size()));
            hidden_.push_back(0);
        }
    }
    order_.insert(order_.begin() + before, fresh.begin(), fresh.end());
    keys_.insert(keys_.begin() + first, fresh.begin(), fresh.end());
    isStale_ = true;
}

std::vector<int> GridRows::remove(const std::vector<int>& rows) {
    std::vector<char> isGone(hidden_.size());
    for (const int row : rows) {
        hide(row, false);
        isGone[keyOf(row)] = 1;
        free_.push_back(keyOf(row));
    }
    std::vector<int> gone;
    for (std::size_t source = 0; source < keys_.size(); ++source)
        if (isGone[keys_[source]] != 0)
            gone.push_back(static_cast<int>(source));
    const auto leaves = [&](RowKey key) { return isGone[key] != 0; };
    std::erase_if(order_, leaves);
    std::erase_if(keys_, leaves);
    isStale_ = true;
    return gone;
}

void GridRows::reorder(const std::vector<quint32>& order) {
    std::vector<RowKey> next;
    next.reserve(order_.size());
    next.push_back(order_.front());
    for (const quint32 row : order)
        next.push_back(order_[row]);
    order_ = std::move(next);
    isStale_ = true;
}

void GridRows::refresh() const {
    if (!isStale_)
        return;
    isStale_ = false;
    row_.assign(hidden_.size(), -1);
    source_.assign(hidden_.size(), -1);
    shown_.clear();
    for (std::size_t row = 0; row < order_.size(); ++row) {
        row_[order_[row]] = static_cast<int>(row);
        if (row > 0 && hiddenRows_ > 0 && hidden_[order_[row]] == 0)
            shown_.push_back(static_cast<int>(row));
    }
    for (std::size_t source = 0; source < keys_.size(); ++source)
        source_[keys_[source]] = static_cast<int>(source);
}

int GridRows::rowOf(RowKey key) const {
    refresh();
    return row_[key];
}

void GridRows::hide(int row, bool hidden) {
    char& flag = hidden_[keyOf(row)];
    if ((flag != 0) == hidden)
        return;
    flag = hidden ? 1 : 0;
    hiddenRows_ += hidden ? 1 : -1;
    isStale_ = true;
}

int GridRows::shownCount() const {
    return count() - hiddenRows_ + (hidden_[order_.front()] != 0 ? 1 : 0);
}

int GridRows::shownRow(int position) const {
    refresh();
    return hiddenRows_ == 0 ? position + 1 : shown_[index(position)];
}

int GridRows::shownPosition(int row) const {
    refresh();
    if (hiddenRows_ == 0)
        return row - 1;
    return static_cast<int>(std::lower_bound(shown_.begin(), shown_.end(), row) - shown_.begin());
}

} // namespace partwright::grid
