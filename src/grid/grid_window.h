#pragma once

// The spreadsheet control. It is a CGridCore with a window: it paints the cells itself, opens the
// editors and turns keys and the mouse into the core's operations and events. Derive from it and
// override the events of CGridCore.
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
// Keys with no editor open: arrows, Home, End, Page Up, Page Down (Ctrl: to the edge; Shift:
// extends the selection), Tab and Enter (Shift: back), F2 or typing to edit, Alt+Down or F4 for the
// list, Space for a check box, Shift+Space and Ctrl+Space for the row and the column, Ctrl+A,
// Ctrl+C, Ctrl+V, Ctrl+D to fill down, Ctrl+P to print, Ctrl with plus, minus or 0 to zoom,
// Ctrl+Enter for what a double click does, Menu for the context menu, Ctrl+Tab to leave the grid,
// Ctrl+Alt with Left or Right for a narrower or wider column. In the editor: Enter, Tab, Up, Down
// and the Page keys commit and move, Escape drops; Left and Right move inside the text, but commit
// when the text was typed over the cell.

#include "grid/cell_editor.h"
#include "grid/grid_core.h"
#include "grid/grid_geometry.h"
#include "grid/grid_painter.h"

#include <QAbstractScrollArea>
#include <QBasicTimer>
#include <QPointer>

class QPrinter;

namespace partwright::grid {

class CGridWnd : public QAbstractScrollArea, public CGridCore, private EditorHost {
    Q_OBJECT

public:
    explicit CGridWnd(QWidget* parent = nullptr);
    ~CGridWnd() override;

    // Editing
    /// Opens the editor of the current cell, as F2 does. False when it cannot be edited.
    bool beginEdit();
    /// True when nothing is left to commit.
    bool commitEdit();
    void cancelEdit();
    [[nodiscard]] bool isEditing() const { return edit_.has_value(); }
    [[nodiscard]] std::optional<CellPos> editedCell() const;
    /// The editor's text when this cell is being edited, else the stored text.
    [[nodiscard]] QString controlText(int row, int col) const;
    /// Replaces the editor's text; cellTextModified() does not run for it.
    void setControlText(const QString& text);

    // View
    void setZoom(double zoom);
    [[nodiscard]] double zoom() const { return zoom_; }
    /// Makes the column as wide as its widest text.
    void fitColWidth(int col);
    /// In the viewport; row 0 is the header. Empty for hidden cells.
    [[nodiscard]] QRect cellRect(int row, int col) const { return geometry_.cellRect(row, col); }
    /// The cell under a place of the viewport, headers included.
    [[nodiscard]] std::optional<CellPos> cellAt(QPoint place) const;
    /// In the viewport; empty when the current selection cannot be filled from.
    [[nodiscard]] QRect fillHandleRect() const;
    [[nodiscard]] QSize sizeHint() const override;

    // Clipboard and paper
    void copy() const;
    void paste();
    void setPrintTitle(const QString& title) { printTitle_ = title; }
    void printPreview();
    void printTo(QPrinter& printer) const;

protected:
    void cellsChanged(const CellRange& range) override;
    void layoutChanged() override;
    void structureChanged() override;
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
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    bool focusNextPrevChild(bool next) override;

private:
    enum class Drag { None, Cells, Rows, Border, Fill, Header };
    enum class Start { WithText, Empty };

    struct Edit {
        RowKey key = 0;
        int row = 0;
        int col = 0;
        /// The text was typed over the cell: Left and Right leave it.
        bool typedOver = false;
        CellEditor* editor = nullptr;
    };

    // View
    void relayout();
    void updateScrollBars();
    void updateCurrentArea(CellPos pos);
    void updateHandleArea();
    [[nodiscard]] QFont zoomedFont() const;
    [[nodiscard]] PaintState paintState() const;
    bool showToolTip(QPoint place, QPoint global);

    // Editing
    bool openEditor(Start start, const QString& typed = {});
    void openList(const QString& typed);
    void placeEditor();
    void closeEditor();
    void announceModified();
    bool editorKey(QKeyEvent* event) override;
    void editorTextChanged() override;
    void choiceMade(const QString& name) override;
    void choiceDropped() override;
    void toggleCheckBox(CellPos pos);

    // Mouse
    void pressHeader(QMouseEvent* event, int col);
    void pressRowHeader(QMouseEvent* event, int row);
    void pressCell(QMouseEvent* event, CellPos pos);
    void releaseCell(CellPos pos);
    void dragTo(QPoint place);
    void endDrag();
    void showCursor(QPoint place);
    [[nodiscard]] int resizableBorder(QPoint place) const;
    [[nodiscard]] bool onMark(CellPos pos, QPoint place) const;
    [[nodiscard]] CellRange fillSource() const;
    void fillDown();

    // Keys
    bool gridKey(QKeyEvent* event);
    bool controlKey(QKeyEvent* event);
    bool moveKey(QKeyEvent* event);
    void moveTo(CellPos pos, bool extend);
    bool moveBy(int rows, int cols);
    [[nodiscard]] CellPos moved(CellPos from, int rows, int cols) const;
    bool moveOn(int step);
    void clearSelected();
    void selectAll();
    void activate();
    [[nodiscard]] int firstCol() const { return nextCol(0, 1); }
    [[nodiscard]] int lastCol() const { return nextCol(colCount() + 1, -1); }
    [[nodiscard]] int pageRows() const;

    GridGeometry geometry_;
    GridPainter painter_;
    double zoom_ = 1;
    QString printTitle_;
    std::optional<Edit> edit_;
    bool announcing_ = false;
    /// The moving corner of a selection whose other corner is the current cell.
    std::optional<CellPos> lead_;

    Drag drag_ = Drag::None;
    QPoint dragStart_;
    QPoint dragPlace_;
    CellPos dragCell_;
    bool dragMoved_ = false;
    int dragWidth_ = 0;
    CellRange fillPreview_;
    QBasicTimer autoScroll_;
};

} // namespace partwright::grid
