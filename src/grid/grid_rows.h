#pragma once

// The rows of a grid: their order on the screen, the owner's row behind each, and which are hidden.
//
// A row has a key as long as it exists, whatever happens to its number on the screen or to its
// number in the source; sorting and removing move keys and touch no cell.
//
// Row 0 is the header row. It always exists, has the key 0 and no row of the source.

#include <QtGlobal>
#include <vector>

namespace partwright::grid {

using RowKey = quint32;

class GridRows {
public:
    GridRows();

    [[nodiscard]] int count() const { return static_cast<int>(order_.size()) - 1; }

    /// Rows on the screen before row `before` that are the rows of the source from `first` on.
    void insert(int before, int first, int count);
    /// Removes rows given in ascending order; the rows of the source that they stood for, ascending
    /// too, are gone from its numbering.
    std::vector<int> remove(const std::vector<int>& rows);
    /// `order` holds the present row numbers from 1 in their new order.
    void reorder(const std::vector<quint32>& order);

    [[nodiscard]] RowKey keyOf(int row) const { return order_[index(row)]; }
    /// -1 when the row is gone.
    [[nodiscard]] int rowOf(RowKey key) const;
    /// The row of the source behind a row from 1.
    [[nodiscard]] int sourceOf(int row) const {
        refresh();
        return source_[keyOf(row)];
    }
    /// The row on the screen of a row of the source.
    [[nodiscard]] int rowOfSource(int source) const { return rowOf(keys_[index(source)]); }

    void hide(int row, bool hidden);
    [[nodiscard]] bool isHidden(int row) const { return hidden_[keyOf(row)] != 0; }
    // Rows from 1 that are not hidden, numbered from 0 as they stand on the screen.
    [[nodiscard]] int shownCount() const;
    [[nodiscard]] int shownRow(int position) const;
    /// Position of the row, or of the next shown one when it is hidden.
    [[nodiscard]] int shownPosition(int row) const;

private:
    static std::size_t index(int value) { return static_cast<std::size_t>(value); }
    /// Works the numbers by key out anew when rows came, went or moved.
    void refresh() const;

    /// Keys by row on the screen, and by row of the source.
    std::vector<RowKey> order_;
    std::vector<RowKey> keys_;
    std::vector<RowKey> free_;
    std::vector<char> hidden_;
    int hiddenRows_ = 0;
    mutable bool isStale_ = false;
    /// By key.
    mutable std::vector<int> row_;
    mutable std::vector<int> source_;
    /// Rows that are shown, when some are not.
    mutable std::vector<int> shown_;
};

} // namespace partwright::grid
