#pragma once

// The spreadsheet control. It is a CGridCore with a window: it paints the cells itself, and its
// three hands turn what the user does into the core's operations and events: GridEdit has the open
// editor, GridMouse the mouse, GridKeys the keyboard. Derive from it and override the events of
// CGridCore.
//
//     auto* grid = new PriceGrid(dialog);
//     grid->setAccessibleName(tr("Prices"));
//     grid->InsertCols(1, 3);
//     grid->InsertRows(1, 100);
//     grid->setText(0, 1, tr("Article"));
//     grid->SetColWidth(1, 1, 145);
//
// Editing. An open editor stays until it is committed or cancelled. Losing the focus does neither,
// so an owner calls commitEdit() where one of its own buttons needs the text, and stops when that
// says false: the refused text still stands in the editor. Destroying or closing the grid drops the
// editor's text.
//
// Escape takes one step back: the editor or its list, a drag, the dashed border of what was copied,
// a selection of several cells. What it has no step for goes to the window around the grid.
//
// Keys with no editor open: arrows, Home, End, Page Up, Page Down (Ctrl: to the edge; Shift:
// extends the selection), Tab and Enter (Shift: back), F2 or typing to edit, Alt+Down or F4 for the
// list, Space for a check box, Shift+Space and Ctrl+Space for the row and the column, Ctrl+A,
// Ctrl+C, Ctrl+V, Ctrl+D to fill down, Ctrl+P to print, Ctrl with plus, minus or 0 to zoom,
// Ctrl+Enter for what a double click does, Menu for the context menu, Ctrl+Tab to leave the grid,
// Ctrl+Alt with Left or Right for a narrower or wider column. In the editor: Enter, Tab, Up, Down
// and the Page keys commit and move, Escape drops; Left and Right move inside the text, but commit
// when the text was typed over the cell.

#include "grid/grid_core.h"
#include "grid/grid_edit.h"
#include "grid/grid_geometry.h"
#include "grid/grid_keys.h"
#include "grid/grid_mouse.h"
#include "grid/grid_painter.h"

#include <QAbstractScrollArea>

class QPrinter;

namespace partwright::grid {

class CGridWnd : public QAbstractScrollArea, public CGridCore {
    Q_OBJECT

public:
    explicit CGridWnd(QWidget* parent = nullptr);
    ~CGridWnd() override;

    // Editing
    /// Opens the editor of the current cell, as F2 does. False when it cannot be edited.
    bool beginEdit() { return edit_.open(GridEdit::Start::WithText); }
    /// True when nothing is left to commit.
    bool commitEdit() { return edit_.commit(); }
    void cancelEdit() { edit_.cancel(); }
    [[nodiscard]] bool isEditing() const { return edit_.isOpen(); }
    [[nodiscard]] std::optional<CellPos> editedCell() const { return edit_.cell(); }
    /// The editor's text when this cell is being edited, else the stored text.
    [[nodiscard]] QString controlText(int row, int col) const;
    /// Replaces the editor's text; cellTextModified() does not run for it.
    void setControlText(const QString& text) { edit_.setText(text); }
    /// One step back, as the Escape key takes it; false when there is none.
    bool escape();

    // View
    void setZoom(double zoom);
    [[nodiscard]] double zoom() const { return zoom_; }
    /// The first so many columns stand still while the others scroll, and are printed on every
    /// page; not where they would take more than half of the window.
    void setFrozenCols(int cols);
    /// Makes the column as wide as its widest text.
    void fitColWidth(int col);
    /// In the viewport; row 0 is the header. Empty for hidden cells.
    [[nodiscard]] QRect cellRect(int row, int col) const { return geometry_.cellRect(row, col); }
    /// The cell under a point of the viewport, headers included.
    [[nodiscard]] std::optional<CellPos> cellAt(QPoint place) const;
    /// In the viewport; empty when the current selection cannot be filled from.
    [[nodiscard]] QRect fillHandleRect() const;
    [[nodiscard]] QSize sizeHint() const override;

    // Clipboard and paper
    void copy();
    void paste();
    /// What was copied, as long as its dashed border stands.
    [[nodiscard]] const std::vector<CellRange>& copiedCells() const { return copied_; }
    void setPrintTitle(const QString& title) { printTitle_ = title; }
    void printPreview();
    void printTo(QPrinter& printer) const;

protected:
    void cellsChanged(const CellRange& range) override;
    void layoutChanged() override;
    void structureChanged() override;
    void contentChanged() override;
    void scrollTo(int row, int col) override;
    void selectionMoved() override;
    void currentMovedFrom(std::optional<CellPos> before) override;
    bool leaveCell() override { return commitEdit(); }

    bool viewportEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void changeEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override { mouse_.press(*event); }
    void mouseMoveEvent(QMouseEvent* event) override { mouse_.move(*event); }
    void mouseReleaseEvent(QMouseEvent* event) override { mouse_.release(*event); }
    void mouseDoubleClickEvent(QMouseEvent* event) override { mouse_.doubleClick(*event); }
    void timerEvent(QTimerEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override { keys_.openMenu(*event); }
    bool focusNextPrevChild(bool next) override;

private:
    friend class GridEdit;
    friend class GridKeys;
    friend class GridMouse;

    // View
    void relayout();
    void updateScrollBars();
    void updateCurrentArea(CellPos pos);
    void updateHandleArea();
    [[nodiscard]] QFont zoomedFont() const;
    [[nodiscard]] PaintState paintState() const;
    bool showToolTip(QPoint place, QPoint global);

    // What the hands share
    void moveTo(CellPos pos, bool extend);
    void extendTo(CellPos pos);
    void toggleCheckBox(CellPos pos);
    void selectAll();
    [[nodiscard]] CellRange fillSource() const;
    void endCopied();
    [[nodiscard]] int firstCol() const { return nextCol(0, 1); }

    GridGeometry geometry_;
    GridPainter painter_;
    GridEdit edit_{*this};
    GridMouse mouse_{*this};
    GridKeys keys_{*this};
    double zoom_ = 1;
    int frozenCols_ = 0;
    QString printTitle_;
    /// The moving corner of a selection whose other corner is the current cell.
    std::optional<CellPos> lead_;
    std::vector<CellRange> copied_;
};

} // namespace partwright::grid
