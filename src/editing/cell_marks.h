#pragma once

// The marks on cells that break their rule, however their texts came: pasted, filled, or read from
// a file. A mark is what the quiet check of a cell says; Full and OK do not ask for it.
//
// Rows are judged when somebody looks at them and when there is time, and again after they changed.

#include "editing/cell_judge.h"
#include "editing/component_table.h"

#include <optional>
#include <span>
#include <string>

namespace partwright {

class CellMarks {
public:
    CellMarks(ComponentTable& table, const CellJudge& judge) : table_(table), judge_(judge) {}

    [[nodiscard]] bool isMarked(CellAt at);
    /// Why; empty when the cell bears no mark.
    [[nodiscard]] std::wstring textOf(CellAt at);
    /// Judges so many of the rows that wait; false when none is left to wait.
    bool judgeMore(std::size_t rows);
    /// Of the rows that are judged.
    [[nodiscard]] std::size_t count() const { return table_.brokenCells(); }
    /// The next marked cell behind the current one, row by row in the order of the screen; from the
    /// last one on to the first. None when no cell bears a mark.
    [[nodiscard]] std::optional<CellAt> next(std::optional<CellAt> current,
                                             std::span<const std::size_t> order, bool isBackward);

private:
    const ColumnSet& marksOf(std::size_t row);

    ComponentTable& table_;
    const CellJudge& judge_;
};

} // namespace partwright
