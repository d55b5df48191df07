#pragma once

// Paints a grid: cells, lines, headers, selection and the frame of the current cell. On the screen
// the palette gives all colours a style does not name; a style that names only a background gets
// the text colour that stands out from it.

#include "grid/grid_core.h"
#include "grid/grid_geometry.h"
#include "grid/text_painter.h"

#include <QPalette>

class QPainter;

namespace partwright::grid {

struct PaintState {
    bool focused = false;
    /// The cell under the editor has no frame.
    std::optional<CellPos> edited;
    /// Empty when the handle or the preview is not shown.
    QRect fillHandle;
    CellRange fillPreview;
};

class GridPainter {
public:
    GridPainter(const CGridCore& grid, const GridGeometry& geometry);

    void setLook(const QFont& font, const QPalette& palette);
    [[nodiscard]] const TextPainter& texts() const { return texts_; }
    /// Room that a cell's text, mark and margins need.
    [[nodiscard]] int widthNeeded(int row, int col) const;

    /// `dirty` is in the viewport.
    void paint(QPainter& painter, const QRect& dirty, const PaintState& state);
    /// One cell without lines and selection, as on paper.
    void paintCell(QPainter& painter, const QRect& area, int row, int col);
    void beginPaper() { texts_.begin(true); }
    [[nodiscard]] QColor lineColor() const { return line_; }

private:
    void paintText(QPainter& painter, QRect area, int row, int col, const CellStyle& look);
    void paintCells(QPainter& painter, const QRect& dirty);
    void paintSelection(QPainter& painter, const PaintState& state);
    void paintRowHeaders(QPainter& painter, const QRect& dirty);
    void paintHeader(QPainter& painter, const QRect& dirty);
    void paintHeaderCell(QPainter& painter, const QRect& area, int row, int col, bool marked);
    void paintLines(QPainter& painter, const QRect& area, int firstCol, int lastCol);
    void setPen(QPainter& painter, const QColor& color);
    [[nodiscard]] QColor textColorOf(const CellStyle& look) const;
    [[nodiscard]] bool columnMarked(int col) const;

    const CGridCore& grid_;
    const GridGeometry& geometry_;
    TextPainter texts_;
    QPalette palette_;
    QColor line_;
    QColor header_;
    QColor headerMarked_;
    QColor disabledBack_;
    QColor selected_;
    QColor penColor_;
};

} // namespace partwright::grid
