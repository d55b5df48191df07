#include "grid/cell_sheet.h"

namespace partwright::grid {

const CellStyle* CellSheet::style(int row, int col) const {
    const StyleId own = cell(row, col).style;
    return own == 0 ? nullptr : &styles_.at(own - 1);
}

void CellSheet::restyle(int row, int col, const CellStyle& usual, const StyleChange& change) {
    const CellStyle* const own = style(row, col);
    CellStyle next = own == nullptr ? usual : *own;
    change.apply(next);
    cell(row, col).style = styles_.find(next) + 1;
}

void CellSheet::addRows(int count) {
    rows_ += index(count);
    for (auto& cells : columns_)
        cells.resize(rows_);
}

void CellSheet::removeRows(const std::vector<int>& rows) {
    for (auto& cells : columns_) {
        std::size_t gone = 0;
        for (std::size_t row = 0; row < rows_; ++row) {
            if (gone < rows.size() && index(rows[gone]) == row)
                ++gone;
            else if (gone != 0)
                cells[row - gone] = std::move(cells[row]);
        }
        cells.resize(rows_ - rows.size());
    }
    rows_ -= rows.size();
}

void CellSheet::insertCols(int before, int count) {
    columns_.insert(columns_.begin() + before, index(count), std::vector<Cell>(rows_));
}

} // namespace partwright::grid
