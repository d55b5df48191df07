#pragma once

// The spreadsheet behind the window: cells, rows, selection, sorting, filling and the clipboard's
// text, without a pixel. CGridWnd adds the window; owners derive from CGridWnd and override the
// events below.
//
// Row 0 is the header and column 0 holds the row headers; cells start at (1, 1). A row header
// without a text of its own shows the row's number.
//
// Texts and looks of the rows come from a CellSource. An owner that has them anyway is the source;
// it writes a text where validateCell() accepts one, and says what changed. A grid without such an
// owner has a sheet of its own, which setText() and SetStyleRange() write; with an owner's source
// they reach the header alone.
//
// Stored text and editor text are two things. While a cell is edited text() gives what is stored;
// CGridWnd::controlText() gives what stands in the editor.
//
// The road of an edit: cellTextModified() at each change of the editor's text; then, when the user
// leaves the cell, validateCell(). True stores the text and cellCommitted() follows; false keeps
// the editor open with the text that was refused. While validateCell() runs nothing else is
// validated and the current cell stands still, so an owner may show a box from it. An editor whose
// text equals the stored one has nothing to commit and closes without a question. Texts set by the
// program (setText, SetStyleRange) are never validated.
//
//     class PriceGrid : public CGridWnd {
//         bool validateCell(int row, int col, const QString& text) override {
//             return col != 3 || isPrice(text) || refuse(tr("Not a price."));
//         }
//     };
//
// Events must not destroy the grid.

#include "grid/cell_range.h"
#include "grid/cell_sheet.h"
#include "grid/cell_source.h"
#include "grid/cell_style.h"
#include "grid/grid_rows.h"
#include "grid/row_sort.h"

#include <QString>
#include <map>
#include <memory>
#include <optional>
#include <vector>

class QKeyEvent;
class QMenu;

namespace partwright::grid {

enum class Redraw { Now, Later };

/// Per column: was the last sort by its header an ascending one.
using SortFlags = std::map<int, bool>;

class CGridCore {
public:
    CGridCore();
    virtual ~CGridCore();
    CGridCore(const CGridCore&) = delete;
    CGridCore& operator=(const CGridCore&) = delete;

    // Where the cells come from
    /// Before the first row is inserted; the grid borrows it.
    void setSource(const CellSource& source);
    /// The row of the source behind a row of the grid, and back.
    [[nodiscard]] int sourceRow(int row) const { return rows_.sourceOf(row); }
    [[nodiscard]] int rowOfSource(int source) const { return rows_.rowOfSource(source); }
    /// A row of the source has other texts or looks.
    void sourceChanged(int source);
    /// Rows of the source went, by their numbers before, and came, by their numbers after; both
    /// ascending. What came stands before the row that follows it in the source.
    void sourceReshaped(const std::vector<int>& removed, const std::vector<int>& inserted);

    // Rows and columns
    [[nodiscard]] int rowCount() const { return rows_.count(); }
    [[nodiscard]] int colCount() const { return static_cast<int>(columns_.size()) - 1; }
    /// The rows are the last ones of the source.
    void InsertRows(int before, int count = 1);
    void InsertCols(int before, int count = 1);
    /// The rows behind the removed ones keep their order.
    void RemoveRows(int first, int final);
    void removeRowList(std::vector<int> rows);
    void HideRows(int first, int final, bool hide = true);
    void HideCols(int first, int final, bool hide = true);
    [[nodiscard]] bool isRowHidden(int row) const { return rows_.isHidden(row); }
    [[nodiscard]] bool isColHidden(int col) const { return column(col).hidden; }
    /// Widths are in pixels at 96 dots an inch and zoom 1.
    void SetColWidth(int first, int final, int width);
    [[nodiscard]] int colWidth(int col) const { return column(col).width; }
    /// One height serves all rows but the header.
    void setRowHeight(int height);
    [[nodiscard]] int rowHeight() const { return rowHeight_; }
    /// Stays with a row as long as it exists, through sorting too.
    [[nodiscard]] RowKey rowKey(int row) const { return rows_.keyOf(row); }
    /// -1 when the row is gone.
    [[nodiscard]] int rowOfKey(RowKey key) const { return rows_.rowOf(key); }

    // Cells
    [[nodiscard]] QString text(int row, int col) const;
    void setText(int row, int col, const QString& text, Redraw redraw = Redraw::Now);
    /// Merges the change into every cell of the range; rows and columns that do not exist are cut
    /// off.
    void SetStyleRange(const CellRange& range, const StyleChange& change,
                       Redraw redraw = Redraw::Now);
    /// For all cells of the column without a style of their own, in rows to come too.
    void setColStyle(int col, const StyleChange& change);
    [[nodiscard]] const CellStyle& cellStyle(int row, int col) const;
    /// Why the cell bears a mark; empty when it bears none.
    [[nodiscard]] QString markText(int row, int col) const;
    /// What the owner says about the cell besides, or about the column in its header.
    [[nodiscard]] QString tip(int row, int col) const;
    [[nodiscard]] bool exists(int row, int col) const;
    /// The user may change the text.
    [[nodiscard]] bool isEditable(int row, int col) const;

    // Current cell and selection
    [[nodiscard]] std::optional<CellPos> currentCell() const { return current_; }
    /// Scrolls there too. False when an open editor refuses to be left. The selection stays.
    bool setCurrentCell(int row, int col);
    void clearCurrentCell();
    [[nodiscard]] const std::vector<CellRange>& selection() const { return selection_; }
    [[nodiscard]] std::vector<int> selectedRows() const;
    [[nodiscard]] bool isSelected(int row, int col) const;
    [[nodiscard]] bool isRowSelected(int row) const;
    void selectRange(const CellRange& range);
    void addSelection(const CellRange& range);
    void selectRows(int first, int final) { selectRange(CellRange::rows(first, final)); }
    void clearSelection();

    // Sorting
    void sortRows(int col, const SortRule& rule);
    /// As by a click on the header: flips the column's direction, sorts, goes to the top and makes
    /// the first cell of the column current. A single row, or a column without any text, is left
    /// alone.
    void sortByHeader(int col);
    /// Flags that outlive the grid, for directions kept as long as the program runs.
    void setSortFlags(std::shared_ptr<SortFlags> flags) { sortFlags_ = std::move(flags); }
    [[nodiscard]] const SortFlags& sortFlags() const { return *sortFlags_; }
    [[nodiscard]] int sortedCol() const { return sortedCol_; }

    // Clipboard text and filling
    /// The last selected range, or all selected rows, or the current cell; hidden rows and columns
    /// are left out.
    [[nodiscard]] QString selectedText() const;
    /// One text goes into every selected cell; a table goes to the upper left cell, and is repeated
    /// when the selection is a multiple of it. Cells that cannot be edited are passed over.
    void pasteText(const QString& text);
    /// Fills each column of the range from its cell in `sourceRow`.
    void fill(int sourceRow, const CellRange& range);

    // Many changes, one redraw
    void lockRedraw() { ++locks_; }
    void unlockRedraw();
    [[nodiscard]] bool redrawLocked() const { return locks_ > 0; }

protected:
    // Events for owners. Those that return bool: true means handled, unless said otherwise.

    /// The size to take for the one that was asked for.
    [[nodiscard]] virtual int limitColWidth(int col, int width) const;
    [[nodiscard]] virtual int limitRowHeight(int height) const;
    [[nodiscard]] virtual bool isColVisible(int col) const { return !isColHidden(col); }
    /// May the user drag the border of the column?
    [[nodiscard]] virtual bool canResizeCol(int col) const;
    virtual void colResized(int col);
    /// Column `range` was dragged over from `source`. Without an override every editable cell takes
    /// the source's text, a drop-down only an entry of its list.
    virtual void autoFillFinished(CellPos source, const CellRange& range);
    /// After the last column of a fill; `source` is its first cell.
    virtual void fillFinished(CellPos source, const CellRange& range);
    virtual void dropDownEntered(int row, int col);
    /// True accepts the text.
    virtual bool validateCell(int row, int col, const QString& text);
    virtual void cellTextModified(int row, int col);
    virtual void cellCommitted(int row, int col, const QString& before);
    virtual void editCancelled(int row, int col);
    /// One cell of a paste, row by row from the left; whether it takes the text is decided here,
    /// since a cell before it may have changed that. Without an override: as for autoFillFinished.
    virtual void pasteCell(int row, int col, const QString& text);
    /// Once a paste; `range` holds all cells that were asked.
    virtual void pasteFinished(const CellRange& range);
    virtual bool leftClick(int row, int col);
    virtual bool doubleClick(int row, int col);
    /// With no editor open. Without an override the grid's own keys work.
    virtual bool keyPressed(QKeyEvent* event);
    /// A cell became current.
    virtual void currentCellMoved(int row, int col);
    virtual void selectionChanged();
    virtual void rowsSorted(int col);
    [[nodiscard]] virtual SortRule sortRule(int col) const;
    /// The context menu is about to open with the grid's own entries; an owner appends its own.
    virtual void menuOpening(QMenu& menu);

    // What the window needs to know.
    virtual void cellsChanged(const CellRange& range);
    virtual void layoutChanged();
    virtual void structureChanged();
    /// Texts changed, or the rows that they stand in.
    virtual void contentChanged();
    virtual void scrollTo(int row, int col);
    virtual void selectionMoved();
    virtual void currentMovedFrom(std::optional<CellPos> before);
    /// Is asked before the current cell moves; false keeps it where it is.
    virtual bool leaveCell() { return true; }

    /// Asks validateCell() unless it is being asked already; that counts as refused.
    [[nodiscard]] bool validate(int row, int col, const QString& text);
    [[nodiscard]] bool validating() const { return validating_; }
    /// Validates and stores, as when an editor is left.
    bool commitText(int row, int col, const QString& text);
    /// Is `text` something that the user could have typed or chosen here?
    [[nodiscard]] bool takes(int row, int col, const QString& text) const;
    [[nodiscard]] const GridRows& gridRows() const { return rows_; }
    /// The next visible cell; `step` -1 goes back. 0 when there is none.
    [[nodiscard]] int nextCol(int col, int step) const;
    [[nodiscard]] CellRange clipped(const CellRange& range) const;

private:
    struct PasteArea {
        std::vector<int> rows;
        std::vector<int> cols;
    };

    struct Column {
        int width = 0;
        bool hidden = false;
        StyleId style = 0;
        QString header = {};
        StyleId headerStyle = 0;
    };

    [[nodiscard]] const Column& column(int col) const {
        return columns_[static_cast<std::size_t>(col)];
    }
    [[nodiscard]] Column& column(int col) { return columns_[static_cast<std::size_t>(col)]; }
    [[nodiscard]] bool ownsCells() const { return source_ == &sheet_; }
    void takeOut(const std::vector<int>& rows);
    /// Rows moved: the current cell is where its row is, or in the row that took its place.
    void followCurrent(std::optional<RowKey> key, bool isGone = false);
    void restyleHeader(int col, const StyleChange& change);
    void setCurrent(std::optional<CellPos> next);
    [[nodiscard]] std::vector<int> visibleCols(const CellRange& range) const;
    [[nodiscard]] std::vector<int> visibleRows(const CellRange& range) const;
    [[nodiscard]] PasteArea pasteArea(CellRange range, std::size_t height, std::size_t width) const;

    StyleTable styles_;
    CellSheet sheet_{styles_};
    const CellSource* source_ = &sheet_;
    GridRows rows_;
    std::vector<Column> columns_;
    int rowHeight_;
    std::optional<CellPos> current_;
    std::vector<CellRange> selection_;
    std::shared_ptr<SortFlags> sortFlags_;
    int sortedCol_ = 0;
    int locks_ = 0;
    bool layoutStale_ = false;
    bool cellsStale_ = false;
    bool validating_ = false;
};

/// Locks the redraw of a grid while it lives.
class RedrawLock {
public:
    explicit RedrawLock(CGridCore& grid) : grid_(grid) { grid_.lockRedraw(); }
    ~RedrawLock() { grid_.unlockRedraw(); }
    RedrawLock(const RedrawLock&) = delete;
    RedrawLock& operator=(const RedrawLock&) = delete;

private:
    CGridCore& grid_;
};

} // namespace partwright::grid
