#pragma once

// The table of a Change Component dialog: it shows the rows of a TableSession and turns what the
// user does into the session's verbs. It knows no rule about parts; every verb answers with what
// is to be shown, and show() shows it.
//
// The session counts rows from 0 in the order of its records, the grid from 1 in the order on the
// screen. Sorting moves grid rows only, so the two are tied by the grid's row keys.
//
// Deleting and the link of a row are the grid's own keys here; the dialog around it adds the rest.

#include "editing/table_session.h"
#include "grid/grid_window.h"

#include <QHash>
#include <functional>
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
    [[nodiscard]] int gridRow(std::size_t sessionRow) const;
    /// Whole rows as the selection has them, in session rows.
    [[nodiscard]] std::vector<std::size_t> selectedSessionRows() const;

    void deleteSelectedRows();
    void undo();
    void redo();
    void selectWholeRow();

Q_SIGNALS:
    /// The "Parameter Description" line.
    void lineChanged(const QString& line);
    /// The file of a data sheet was asked for.
    void datasheetOpened(const QString& file);

protected:
    void fillRow(int row) override;
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
    void rowsSorted(int col) override;
    void menuOpening(QMenu& menu) override;
    [[nodiscard]] grid::SortRule sortRule(int col) const override;

private:
    void makeColumns();
    void makeRows();
    void reshape(const TableOutcome& outcome);
    void showMove(const TableOutcome& outcome);
    /// The row's texts changed: they are taken from the session when it is looked at.
    void deferRow(std::size_t sessionRow) { deferRows(gridRow(sessionRow), gridRow(sessionRow)); }
    void showStyle(int row, CellAt at);
    void takeOutRows(const std::vector<std::size_t>& rows);
    void putInRows(const std::vector<std::size_t>& rows);
    /// Row numbers of the grid by session row, and back.
    void tieRows() const;
    [[nodiscard]] CellAt sessionCell(int row, int col) const;
    [[nodiscard]] QString choiceText(const ChoiceList* list);

    TableSession& session_;
    OutcomeBoxes boxes_;
    /// Rows come and go: the cell that becomes current meanwhile is looked at afterwards.
    bool reshaping_ = false;
    /// By session row.
    std::vector<grid::RowKey> keys_;
    mutable std::vector<int> gridRows_;
    mutable std::vector<std::size_t> sessionRows_;
    mutable bool tied_ = false;
    QHash<const ChoiceList*, QString> choiceTexts_;
    std::vector<CellText> pasted_;
    std::vector<CellText> filled_;
};

/// The table of the Analyses dialog: the same grid, its differences are in the session.
using CComponentGrid_ASR = CComponentGrid;

} // namespace partwright
