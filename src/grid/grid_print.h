#pragma once

// A grid on paper: the title and the page number at the top of each page, the header row repeated,
// and columns that do not fit beside each other on pages of their own, with the first columns
// repeated so that each value has its name beside it. Colours are those of paper, whatever the
// theme of the screen.

#include "grid/grid_core.h"

#include <QFont>
#include <QSizeF>
#include <vector>

class QPrinter;

namespace partwright::grid {

/// Which columns and how many rows go on each page; pages run down first, then to the right.
struct PagePlan {
    /// Positions in the list of widths. A column wider than the page has one of its own.
    std::vector<std::vector<std::size_t>> bands;
    int rowsPerPage = 1;
    int pagesDown = 1;

    [[nodiscard]] int pages() const { return pagesDown * static_cast<int>(bands.size()); }
};

/// The first `repeated` columns come again on every page, unless they take half of it.
[[nodiscard]] PagePlan planPages(const std::vector<int>& widths, std::size_t repeated, int rowCount,
                                 int rowHeight, QSizeF room);

/// What is to be printed; `cols` may have the row headers (0) among them.
struct PrintJob {
    std::vector<int> cols;
    std::size_t repeatedCols = 0;
    QString title;
    QFont font;
};

void printGrid(const CGridCore& grid, const GridRows& rows, const PrintJob& job, QPrinter& printer);

} // namespace partwright::grid
