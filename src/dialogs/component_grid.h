#pragma once

// The table of a Change Component dialog: it shows the rows of a TableSession and turns what the
// user does into the session's verbs. It knows no rule about parts; every verb answers with what
// is to be shown, and show() shows it.
//
// The session counts rows from 0 in the order of its records, and is the source of the grid's
// cells; the grid counts them from 1 in the order on the screen.
//
// Deleting and the link of a row are the grid's own keys here; the dialog around it adds the rest.

#include "dialogs/table_cells.h"
#include "editing/table_session.h"
#include "grid/grid_window.h"

#include <QTimer>
#include <memory>
#include <vector>

namespace partwright {

class CComponentGrid : public grid::CGridWnd {
    Q_OBJECT

public:
    /// `flags` keep the sort directions as long as the program runs.
    CComponentGrid(TableSession& session, Prompt& prompt, std::shared_ptr<grid::SortFlags> flags,
                   QWidget* parent);

    /// Shows what a verb gave; its boxes come last. True when its question was answered with Yes.
    bool show(const TableOutcome& outcome);
    /// The same for a verb that changed cells: unless it has a line of its own, the line speaks
    /// about what the current cell holds now.
    void showChange(const TableOutcome& outcome);
    using QWidget::show;

    /// The session's cell under the grid's current one; none in an empty table.
    [[nodiscard]] std::optional<CellAt> currentSessionCell() const;
    /// Session rows from top to bottom of the screen.
    [[nodiscard]] std::vector<std::size_t> rowOrder() const;
    [[nodiscard]] int gridRow(std::size_t sessionRow) const {
        return rowOfSource(static_cast<int>(sessionRow));
    }
    /// Whole rows as the selection has them, in session rows.
    [[nodiscard]] std::vector<std::size_t> selectedSessionRows() const;

    void deleteSelectedRows();
    void undo();
    void redo();
    void selectWholeRow();
    /// To the next cell that bears a mark.
    void goToMark(bool backward);
    /// Pastes what typing would make of the texts.
    void pasteTyped();

Q_SIGNALS:
    /// The "Parameter Description" line.
    void lineChanged(const QString& line);
    /// So many cells bear a mark, of those that were judged so far.
    void marksCounted(std::size_t cells);
    /// The file of a data sheet was asked for.
    void datasheetOpened(const QString& file);
    /// The entry of the menu that leads to the find bar.
    void findAsked();

protected:
    bool validateCell(int row, int col, const QString& text) override;
    void cellTextModified(int row, int col) override;
    void editCancelled(int row, int col) override;
    void autoFillFinished(grid::CellPos source, const grid::CellRange& range) override;
    void fillFinished(grid::CellPos source, const grid::CellRange& range) override;
    void dropDownEntered(int row, int col) override;
    void pasteCell(int row, int col, const QString& text) override;
    void pasteFinished(const grid::CellRange& range) override;
    bool doubleClick(int row, int col) override;
    bool keyPressed(QKeyEvent* event) override;
    void currentCellMoved(int row, int col) override;
    void cellCommitted(int row, int col, const QString& before) override;
    void menuOpening(QMenu& menu) override;
    [[nodiscard]] grid::SortRule sortRule(int col) const override;

private:
    void makeColumns();
    /// Shows what a look at a cell gave: no text has changed.
    void showLook(const TableOutcome& outcome);
    void showMove(const TableOutcome& outcome);
    bool showRest(const TableOutcome& outcome);
    [[nodiscard]] CellAt sessionCell(int row, int col) const {
        return {static_cast<std::size_t>(sourceRow(row)), static_cast<std::size_t>(col)};
    }
    void judgeSome();

    TableSession& session_;
    TableCells cells_;
    OutcomeBoxes boxes_;
    /// Judges the rows that nobody looked at yet, a few whenever there is time.
    QTimer judging_;
    PasteAs pasteAs_ = PasteAs::Text;
    std::vector<CellText> pasted_;
    std::vector<CellText> filled_;
};

/// The table of the Analyses dialog: the same grid, its differences are in the session.
using CComponentGrid_ASR = CComponentGrid;

} // namespace partwright
