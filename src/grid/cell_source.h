#pragma once

// Where the cells of a grid come from. The grid keeps no text of its own: it asks its owner for
// what it shows, so that a text lives once and nothing has to be carried over when it changes.
//
// Rows are counted from 0 in the owner's own order; the grid alone knows their order on the screen.
// Columns are those of the grid, from 1; column 0 asks for a row header, which shows the row's
// number where it has no text. The header row is the grid's own.
//
//     class Prices : public CellSource {
//         QString text(int row, int col) const override { return prices_[row].field(col); }
//     };
//     grid.setSource(prices);                  // its columns stand already
//     grid.InsertRows(1, prices.count());
//     ...
//     grid.sourceChanged(7);                   // the eighth row has other texts or looks

#include "grid/cell_style.h"

#include <QString>

namespace partwright::grid {

class CellSource {
public:
    virtual ~CellSource() = default;

    [[nodiscard]] virtual QString text(int row, int col) const = 0;
    /// The look of a cell that differs from its column's; null for all others. It lives at least
    /// until the source changes.
    [[nodiscard]] virtual const CellStyle* style(int row, int col) const;
    /// Why the cell bears a mark; empty when it bears none.
    [[nodiscard]] virtual QString markText(int row, int col) const;
    /// What there is to say about the cell besides its text and its mark.
    [[nodiscard]] virtual QString tip(int row, int col) const;
    [[nodiscard]] virtual QString headerTip(int col) const;
};

} // namespace partwright::grid
