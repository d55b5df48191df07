#pragma once

// Cells that somebody wrote into a grid: the source of a grid whose owner gave it no other.

#include "grid/cell_source.h"

#include <vector>

namespace partwright::grid {

class CellSheet final : public CellSource {
public:
    /// `styles` gives the looks their numbers.
    explicit CellSheet(StyleTable& styles) : styles_(styles) { insertCols(0, 1); }

    [[nodiscard]] QString text(int row, int col) const override { return cell(row, col).text; }
    [[nodiscard]] const CellStyle* style(int row, int col) const override;

    void setText(int row, int col, const QString& text) { cell(row, col).text = text; }
    /// Merges the change into the cell's look, which is `usual` when it has none of its own.
    void restyle(int row, int col, const CellStyle& usual, const StyleChange& change);

    /// Rows at the end.
    void addRows(int count);
    /// Rows in ascending order; those behind them move up.
    void removeRows(const std::vector<int>& rows);
    void insertCols(int before, int count);

private:
    /// `style` is one above the number in the table; 0 means that of the column.
    struct Cell {
        QString text;
        StyleId style = 0;
    };
    static std::size_t index(int value) { return static_cast<std::size_t>(value); }
    [[nodiscard]] const Cell& cell(int row, int col) const {
        return columns_[index(col)][index(row)];
    }
    [[nodiscard]] Cell& cell(int row, int col) { return columns_[index(col)][index(row)]; }

    StyleTable& styles_;
    std::vector<std::vector<Cell>> columns_;
    std::size_t rows_ = 0;
};

} // namespace partwright::grid
