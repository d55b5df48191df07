#pragma once

// The cells of a grid: texts, style numbers, the order of the rows, and what is hidden.
//
// A row lives in a slot that never changes while the row exists; the order of the rows is a list of
// slots. Sorting and removing move numbers in that list and touch no cell. The slot is therefore a
// key by which an owner can keep something beside a row.
//
// Row 0 is the header row and column 0 that of the row headers. Both always exist.

#include "grid/cell_style.h"

#include <QString>
#include <vector>

namespace partwright::grid {

using RowKey = quint32;

class GridStore {
public:
    GridStore();

    [[nodiscard]] int rowCount() const { return static_cast<int>(order_.size()) - 1; }
    [[nodiscard]] int colCount() const { return static_cast<int>(columns_.size()) - 1; }

    [[nodiscard]] const QString& text(int row, int col) const { return cell(row, col).text; }
    void setText(int row, int col, const QString& text) { cell(row, col).text = text; }
    [[nodiscard]] StyleId styleOf(int row, int col) const;
    void setStyle(int row, int col, StyleId style) { cell(row, col).style = style + 1; }
    /// For all cells of the column that have no style of their own, in rows to come too.
    void setColumnStyle(int col, StyleId style) { columns_[index(col)].style = style; }
    [[nodiscard]] StyleId columnStyle(int col) const { return columns_[index(col)].style; }

    void insertRows(int before, int count);
    void insertCols(int before, int count);
    /// Removes the rows, given in ascending order.
    void removeRows(const std::vector<int>& rows);
    /// `order` holds the present row numbers from 1 in their new order.
    void reorder(const std::vector<quint32>& order);

    [[nodiscard]] RowKey keyOf(int row) const { return order_[index(row)]; }
    /// -1 when the row is gone. Looks at row `guess` first, and through all rows only if that
    /// fails.
    [[nodiscard]] int rowOf(RowKey key, int guess = 0) const;

    void hideRow(int row, bool hidden);
    [[nodiscard]] bool rowHidden(int row) const { return rowHidden_[keyOf(row)] != 0; }

    /// A mark of the owner on a row; a new row has none.
    void deferRow(int row);
    /// Takes the mark off; true when the row had it.
    bool undeferRow(int row);
    [[nodiscard]] bool hasDeferredRows() const { return deferredCount_ > 0; }

    void hideCol(int col, bool hidden) { columns_[index(col)].hidden = hidden; }
    [[nodiscard]] bool colHidden(int col) const { return columns_[index(col)].hidden; }

    // Rows from 1 that are not hidden, numbered from 0 as they stand on the screen.
    [[nodiscard]] int shownCount() const;
    [[nodiscard]] int shownRow(int position) const;
    /// Position of the row, or of the next shown one when it is hidden.
    [[nodiscard]] int shownPosition(int row) const;

private:
    /// `style` is one above the number in the style table; 0 means that of the column.
    struct Cell {
        QString text;
        StyleId style = 0;
    };
    struct Column {
        std::vector<Cell> cells;
        StyleId style = 0;
        bool hidden = false;
    };

    static std::size_t index(int value) { return static_cast<std::size_t>(value); }
    [[nodiscard]] const Cell& cell(int row, int col) const {
        return columns_[index(col)].cells[order_[index(row)]];
    }
    [[nodiscard]] Cell& cell(int row, int col) {
        return columns_[index(col)].cells[order_[index(row)]];
    }
    void refreshShown() const;

    std::vector<Column> columns_;
    std::vector<RowKey> order_;
    std::vector<RowKey> free_;
    std::vector<char> rowHidden_;
    int hiddenRows_ = 0;
    std::vector<char> deferred_;
    int deferredCount_ = 0;
    mutable std::vector<int> shown_;
    mutable bool shownStale_ = false;
};

} // namespace partwright::grid
