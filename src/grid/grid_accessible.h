#pragma once

// What a screen reader learns of a grid: a table with its row and column headers, and every cell
// with its text, its headers, and whether it is selected, read-only, disabled, checked or has a
// list.

#include "grid/cell_range.h"

namespace partwright::grid {

class CGridWnd;

/// Makes CGridWnd known to the toolkit; once is enough.
void installGridAccessibility();

/// Tells that the cell has become current, if anybody listens.
void announceCurrentCell(CGridWnd& grid, CellPos pos);

} // namespace partwright::grid
