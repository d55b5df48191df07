#include "editing/cell_marks.h"

#include <algorithm>

namespace partwright {

const ColumnSet& CellMarks::marksOf(std::size_t row) {
    if (!table_.row(row).broken)
        table_.judge(row, judge_.brokenIn(row));
    return *table_.row(row).broken;
}

bool CellMarks::isMarked(CellAt at) {
    return at.column < ColumnSet().size() && marksOf(at.row).test(at.column);
}

std::wstring CellMarks::textOf(CellAt at) {
    return isMarked(at) ? judge_.complaint(at) : std::wstring();
}

bool CellMarks::judgeMore(std::size_t rows) {
    for (; rows > 0; --rows) {
        const auto row = table_.takeUnjudged();
        if (!row)
            return false;
        marksOf(*row);
    }
    return true;
}

std::optional<CellAt> CellMarks::next(std::optional<CellAt> current,
                                      std::span<const std::size_t> order, bool isBackward) {
    const std::size_t columns = table_.setup().columns.size();
    const std::size_t cells = order.size() * columns;
    std::size_t from = isBackward ? 0 : cells; // the walk begins at its first step
    if (current) {
        const auto place = std::find(order.begin(), order.end(), current->row) - order.begin();
        from = static_cast<std::size_t>(place) * columns + current->column;
    }
    // Once around, the current cell last.
    for (std::size_t step = 1; step <= cells; ++step) {
        const std::size_t cell = (isBackward ? from + cells - step : from + step) % cells;
        const CellAt at{order[cell / columns], cell % columns};
        if (isMarked(at))
            return at;
    }
    return std::nullopt;
}

} // namespace partwright
