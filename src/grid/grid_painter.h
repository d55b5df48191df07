#pragma once

// Paints a grid: cells and their marks, lines, headers, selection and the frame of the current
// cell. A marked cell has a corner and a sign, so that it is known without its colour. On the
// screen the palette gives all colours a style does not name; a style that names only a background
// gets the text colour that stands out from it.

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
    /// What was copied, in a dashed border.
    std::vector<CellRange> copied;
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
    void beginPaper() {
        texts_.begin(true);
        onPaper_ = true;
    }
    [[nodiscard]] QColor lineColor() const { return line_; }

private:
    void paintText(QPainter& painter, QRect area, int row, int col, const CellStyle& look);
    /// One pane, or the part of it that is dirty.
    void paintPane(QPainter& painter, const QRect& dirty, bool frozen, const PaintState& state);
    void paintCells(QPainter& painter, const QRect& dirty);
    void paintSelection(QPainter& painter, bool frozen, const PaintState& state);
    void paintCurrent(QPainter& painter, bool frozen, const PaintState& state);
    void paintMark(QPainter& painter, const QRect& cell, const QRect& sign);
    void paintRowHeaders(QPainter& painter, const QRect& dirty);
    void paintHeader(QPainter& painter, const QRect& dirty);
    void paintHeaderCells(QPainter& painter, int first, int last);
    void paintHeaderCell(QPainter& painter, const QRect& area, int row, int col, bool marked);
    void paintLines(QPainter& painter, const QRect& area, int firstCol, int lastCol);
    void setPen(QPainter& painter, const QColor& color);
    [[nodiscard]] QColor textColorOf(const CellStyle& look) const;
    [[nodiscard]] bool columnMarked(int col) const;
    /// The range has cells in the pane.
    [[nodiscard]] bool isIn(const CellRange& range, bool frozen) const;

    const CGridCore& grid_;
    const GridGeometry& geometry_;
    TextPainter texts_;
    QPalette palette_;
    QColor line_;
    QColor header_;
    QColor headerMarked_;
    QColor disabledBack_;
    QColor selected_;
    QColor alarm_;
    QColor penColor_;
    bool onPaper_ = false;
};

} // namespace partwright::grid
