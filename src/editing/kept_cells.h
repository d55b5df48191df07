#pragma once

// Texts of cells that a step of undo keeps, in little room: a table of ten thousand rows may go
// through hundreds of steps. Texts stand one behind the other in one buffer; a cell that was
// written twice is kept twice, and going through the list backward brings back the first.

#include "editing/table_outcome.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace partwright {

class KeptCells {
public:
    [[nodiscard]] std::size_t size() const { return cells_.size(); }
    [[nodiscard]] bool empty() const { return cells_.empty(); }
    [[nodiscard]] CellAt at(std::size_t place) const {
        return {cells_[place].row, cells_[place].column};
    }
    [[nodiscard]] std::wstring_view text(std::size_t place) const {
        const std::size_t begin = place == 0 ? 0 : cells_[place - 1].end;
        return std::wstring_view(texts_).substr(begin, cells_[place].end - begin);
    }
    [[nodiscard]] std::size_t bytes() const {
        return cells_.size() * sizeof(Cell) + texts_.size() * sizeof(wchar_t);
    }

    void keep(CellAt at, std::wstring_view text) {
        texts_ += text;
        cells_.push_back({static_cast<std::uint32_t>(at.row), static_cast<std::uint32_t>(at.column),
                          texts_.size()});
    }
    /// Nothing more will be kept.
    void close() {
        cells_.shrink_to_fit();
        texts_.shrink_to_fit();
    }

private:
    struct Cell {
        std::uint32_t row;
        std::uint32_t column;
        /// Of its text in the buffer.
        std::size_t end;
    };
    std::vector<Cell> cells_;
    std::wstring texts_;
};

} // namespace partwright
