#pragma once

// What the user of a Change Component dialog can do, without a widget. The session owns a value
// copy of one group's components as a table of texts; every verb returns what the dialog must show.
// Records are written only when OK went through (component_table_session.h); dropping the session
// drops the work.
//
//   TableOutcome outcome = session.modify({row, typeColumn}, L"SCR");   // while the list is open
//   outcome = session.commit({row, typeColumn}, L"SCR", 1);             // Enter, Tab, a click away
//
// An open editor is a CellEdit, the judge of its text a CellJudge; cells that break their rule are
// found by CellMarks.
//
// Rows are counted from 0 in the order of the records, whatever the order on the screen is; verbs
// that go through the table on the screen take that order, an empty one being the order of the
// rows. Columns are those of table_setup.h.

#include "core/records.h"
#include "editing/cell_edit.h"
#include "editing/cell_judge.h"
#include "editing/cell_marks.h"
#include "editing/component_table.h"
#include "editing/table_outcome.h"
#include "editing/table_search.h"
#include "library/datasheet_links.h"
#include "validation/validation_tables.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace partwright {

using RowOrder = std::span<const std::size_t>;

/// What a page lends to the dialogs that it opens. Nothing may be left out.
struct TablePlace {
    /// Parts with a row in the project, which cannot be deleted.
    const PartSelection* projectParts = nullptr;
    /// The set of the checked radio and the keys of the library; they learn of new parts.
    PartSelection* shownParts = nullptr;
    PartSelection* libraryParts = nullptr;
    /// The library on which the page works has the part, in whatever group.
    std::function<bool(std::wstring_view part)> inLibrary;
};

/// What the small dialog of groups and part numbers gave.
struct GroupChoice {
    /// In capitals; not asked for when a group is changed.
    std::wstring partNumber;
    std::int32_t group = 0;
    std::wstring groupName;
    /// Position in the family list.
    std::int32_t family = 0;
};

struct CellText {
    CellAt at;
    std::wstring text;
};

/// A paste takes texts as they are, or makes of them what typing would.
enum class PasteAs { Text, Typed };

class TableSession {
public:
    TableSession(TableSetup setup, const ValidationTables& rules, TablePlace place);
    TableSession(const TableSession&) = delete;
    TableSession& operator=(const TableSession&) = delete;
    virtual ~TableSession() = default;

    [[nodiscard]] const ComponentTable& table() const { return table_; }
    [[nodiscard]] const TableSetup& setup() const { return table_.setup(); }
    [[nodiscard]] std::wstring title() const;

    // --- What a cell is
    [[nodiscard]] bool isReadOnly(std::size_t column) const {
        return this->column(column).isReadOnly();
    }
    /// A parameter that does not apply to the row's type is disabled.
    [[nodiscard]] bool isEnabled(CellAt at) const;
    /// The list that the cell drops down; null when it has none.
    [[nodiscard]] const ChoiceList* choices(CellAt at) const;
    /// What the parameter means and what its rule asks for, where its mark does not say that;
    /// empty for other columns.
    [[nodiscard]] std::wstring explanation(CellAt at);
    [[nodiscard]] CellMarks& marks() { return marks_; }

    // --- Moving and looking
    /// The cell became current.
    TableOutcome selectCell(CellAt at);
    /// Cells changed: the line speaks about what the current one holds now. No box is told twice.
    TableOutcome lookAgain(CellAt at);
    /// Ctrl+F: the whole row of the current cell.
    TableOutcome selectWholeRow(std::optional<CellAt> current);
    /// F8: the next cell that bears a mark.
    TableOutcome nextMark(std::optional<CellAt> current, RowOrder order, bool isBackward);
    /// A request as parseQuery() takes it; a box tells that nothing was found.
    TableOutcome search(std::wstring_view request, std::optional<CellAt> current, RowOrder order);
    /// Nothing found leaves the answer empty, without a box.
    std::optional<TableSearch::Hit> find(const TableQuery& query, std::optional<CellAt> current,
                                         RowOrder order);
    /// The rows that an outcome selects are on the screen: the next cell has its own line again.
    void rowsShown() { holdsLine_ = false; }

    // --- Editing a cell; `shownRow` is the row's number on the screen, which messages name
    TableOutcome modify(CellAt at, std::wstring_view text) { return edit_.modify(at, text); }
    TableOutcome commit(CellAt at, std::wstring_view text, std::size_t shownRow) {
        return edit_.commit(at, text, shownRow);
    }
    TableOutcome cancelEdit() { return edit_.cancel(); }

    // --- Many cells
    /// Drags cells of one row, with what their editors show, over rows of their columns.
    TableOutcome fill(std::vector<CellText> sources, std::vector<std::size_t> rows,
                      std::size_t shownRow);
    TableOutcome paste(std::vector<CellText> cells, PasteAs as = PasteAs::Text);
    TableOutcome storeLink(std::size_t row, std::wstring_view file);
    TableOutcome clearLink(std::size_t row);
    /// Results of the power calculator by column; disabled cells stay.
    TableOutcome storeResults(std::size_t row, std::span<const CellText> results);

    // --- Rows
    /// Asks first.
    TableOutcome deleteRows(std::vector<std::size_t> selected, Consent consent = Consent::NotAsked);
    TableOutcome add(const GroupChoice& choice);
    /// Asked before the dialog of a copy opens; refused when the rows cannot stay as they are.
    TableOutcome checkBeforeCopy(RowOrder order);
    TableOutcome copy(std::size_t row, const GroupChoice& choice);
    TableOutcome changeGroup(std::size_t row, const GroupChoice& choice);
    /// Buttons that work on a row: refused with a box when no cell is current.
    [[nodiscard]] TableOutcome requireRow(std::optional<CellAt> current) const;
    /// The part number is taken, in this table or elsewhere in the library.
    [[nodiscard]] bool hasPart(std::wstring_view part) const;
    /// Every family that has groups which a part can be put into.
    [[nodiscard]] virtual FamilyGroups familyGroups() const = 0;

    // --- The end
    /// Checks all rows, and asks first when some are not full; when nothing stops it, the rows are
    /// stored to the records and the links to the table of links.
    virtual TableOutcome ok(RowOrder order, DatasheetLinks& links,
                            Consent consent = Consent::NotAsked) = 0;
    /// Accepted when there are no changes that would be lost; else it asks about them.
    [[nodiscard]] TableOutcome drop();

    // --- Flags and the way back
    void RecheckRowFlag(CellAt at, TableOutcome& outcome);
    TableOutcome RefreshAllRowFlags();
    [[nodiscard]] bool canUndo() const { return table_.canUndo(); }
    [[nodiscard]] bool canRedo() const { return table_.canRedo(); }
    TableOutcome undo();
    TableOutcome redo();

protected:
    /// The checks of OK; the outcome is accepted when the rows may be stored.
    TableOutcome checkAllRowsForOk(RowOrder order, Consent consent);
    /// The dialog was opened with the part.
    [[nodiscard]] virtual bool isOpened(std::wstring_view part) const = 0;

    /// Components that differ from what the dialog was opened with.
    [[nodiscard]] virtual std::size_t changedComponents() const = 0;

    ComponentTable table_;
    /// Parts that the dialog was opened with.
    std::size_t openedParts_ = 0;

private:
    enum class Taken { No, Same, Changed };

    [[nodiscard]] const TableColumn& column(std::size_t column) const {
        return setup().columns[column];
    }
    /// The rows of an order; an empty one is that of the rows.
    [[nodiscard]] std::vector<std::size_t> rowsIn(RowOrder order) const;
    [[nodiscard]] std::wstring lineFor(CellAt at) const;
    /// What the property tables say of the row's parameter.
    [[nodiscard]] std::wstring meaning(CellAt at) const;

    void takeFlags(TableOutcome& outcome);
    TableOutcome afterMove(ComponentTable::Change change);
    /// Drops an editor that was left open, then opens a step.
    void beginStep();
    void storeText(CellAt at, std::wstring_view text, TableOutcome& outcome);
    [[nodiscard]] bool mayFill(CellText& source, std::size_t shownRow, TableOutcome& outcome);
    Taken fillCell(CellAt at, std::wstring_view text);
    Taken pasteCell(const CellText& cell, PasteAs as, TableOutcome& outcome);
    void tellPasted(const std::vector<CellAt>& pasted, TableOutcome& outcome);
    void announce(const std::wstring& part);

    CellJudge judge_;
    CellEdit edit_;
    CellMarks marks_;
    TableSearch search_;
    TablePlace place_;
    /// The line that a stop of OK wrote outlives the selection of its row.
    bool holdsLine_ = false;
};

} // namespace partwright
