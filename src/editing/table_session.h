#pragma once

// What the user of a Change Component dialog can do, without a widget. The session owns a value
// copy of one group's components as a table of texts; every verb returns what the dialog must show.
// Records are written only when OK went through (component_table_session.h); dropping the session
// drops the work.
//
//   TableOutcome outcome = session.modify({row, typeColumn}, L"SCR");   // while the list is open
//   outcome = session.commit({row, typeColumn}, L"SCR");                // Enter, Tab, a click away
//   ...show the outcome..., then session.present(outcome);              // its boxes
//
// An editor calls modify() at every change of its text, then commit(), which may refuse, or
// cancelEdit() when its text is dropped. A change of Type takes effect while the list is open: it
// clears the parameters of its row and runs once; dropping the editor brings the row back.
//
// Rows are counted from 0 in the order of the records, whatever the order on the screen is; verbs
// that go through the table on the screen take that order, an empty one being the order of the
// rows. Columns are those of table_setup.h.

#include "core/ports/prompt.h"
#include "core/records.h"
#include "editing/component_table.h"
#include "editing/table_checks.h"
#include "editing/table_outcome.h"
#include "library/datasheet_links.h"
#include "validation/cell_check.h"
#include "validation/validation_tables.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace partwright {

using RowOrder = std::span<const std::size_t>;

/// Longest catalogue number that the dialogs take.
inline constexpr std::size_t maximumCatalogNumber = 20;

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

class TableSession {
public:
    TableSession(TableSetup setup, const ValidationTables& rules, TablePlace place, Prompt& prompt);
    TableSession(const TableSession&) = delete;
    TableSession& operator=(const TableSession&) = delete;
    virtual ~TableSession() = default;

    [[nodiscard]] const ComponentTable& table() const { return table_; }
    [[nodiscard]] const TableSetup& setup() const { return table_.setup(); }
    [[nodiscard]] std::wstring title() const;
    /// The red line below the table.
    [[nodiscard]] const std::wstring& descriptionLine() const { return line_; }

    // --- What a cell is
    [[nodiscard]] bool isReadOnly(std::size_t column) const;
    /// A parameter that does not apply to the row's type is disabled.
    [[nodiscard]] bool isEnabled(CellAt at) const;
    /// The list that the cell drops down; null when it has none.
    [[nodiscard]] const ChoiceList* choices(CellAt at) const;

    // --- Moving and looking
    /// The cell became current.
    TableOutcome selectCell(CellAt at);
    /// Ctrl+F: the whole row of the current cell.
    TableOutcome selectWholeRow(std::optional<CellAt> current);
    /// "column_mode_direction_text": the column counted from 0 at the part number; mode 0 whole
    /// text, 1 part of it, 2 its beginning; direction other than 0 backward.
    TableOutcome search(std::wstring_view request, std::optional<CellAt> current, RowOrder order);
    /// Shows the boxes of an outcome.
    void present(const TableOutcome& outcome);
    /// The rows that an outcome selects are on the screen: the next cell has its own line again.
    void rowsShown() { holdsLine_ = false; }

    // --- Editing a cell
    TableOutcome modify(CellAt at, std::wstring_view text);
    /// `shownRow` is the row's number on the screen, which messages name; 0 when it is that of the
    /// records' order.
    TableOutcome commit(CellAt at, std::wstring_view text, std::size_t shownRow = 0);
    TableOutcome cancelEdit();

    // --- Many cells
    /// Drags cells of one row, with what their editors show, over rows of their columns.
    TableOutcome fill(std::vector<CellText> sources, std::vector<std::size_t> rows);
    TableOutcome fill(CellAt source, std::vector<std::size_t> rows, std::wstring_view text) {
        return fill({{source, std::wstring(text)}}, std::move(rows));
    }
    TableOutcome paste(std::vector<CellText> cells);
    TableOutcome storeLink(std::size_t row, std::wstring_view file);
    TableOutcome clearLink(std::size_t row);
    /// Results of the power calculator by column; disabled cells stay.
    TableOutcome storeResults(std::size_t row, std::span<const CellText> results);

    // --- Rows
    TableOutcome deleteRows(std::vector<std::size_t> selected);
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
    /// Checks all rows; when nothing stops it, the rows are stored to the records and the links to
    /// the table of links.
    virtual TableOutcome ok(RowOrder order, DatasheetLinks& links) = 0;

    // --- Flags and the way back
    void RecheckRowFlag(CellAt at, TableOutcome& outcome);
    TableOutcome RefreshAllRowFlags();
    [[nodiscard]] bool canUndo() const { return table_.canUndo(); }
    [[nodiscard]] bool canRedo() const { return table_.canRedo(); }
    TableOutcome undo();
    TableOutcome redo();

protected:
    /// The checks of OK; the outcome is accepted when the rows may be stored.
    TableOutcome checkAllRowsForOk(RowOrder order);
    /// The dialog was opened with the part.
    [[nodiscard]] virtual bool isOpened(std::wstring_view part) const = 0;

    ComponentTable table_;
    /// Parts that the dialog was opened with.
    std::size_t openedParts_ = 0;

private:
    /// A Type editor whose change of the row is already done, in an open step.
    struct TypeEdit {
        CellAt at;
        std::wstring applied;
    };
    struct CleanText {
        std::wstring text;
        std::optional<std::wstring> complaint;
    };

    [[nodiscard]] const TableColumn& column(std::size_t column) const {
        return setup().columns[column];
    }
    [[nodiscard]] bool isChoice(std::size_t column) const {
        return this->column(column).choices != ColumnChoices::None;
    }
    /// The rows of an order; an empty one is that of the rows.
    [[nodiscard]] std::vector<std::size_t> rowsIn(RowOrder order) const;
    [[nodiscard]] std::wstring lineFor(CellAt at) const;
    [[nodiscard]] CleanText clean(std::size_t column, std::wstring_view text) const;

    void setLine(TableOutcome& outcome, std::wstring line);
    void take(TableOutcome& outcome, std::optional<Finding> finding);
    /// OK ends here: the cell that the words are about becomes current.
    void stop(TableOutcome& outcome, Finding finding);
    void takeFlags(TableOutcome& outcome);
    TableOutcome afterMove(ComponentTable::Change change);

    /// Drops an editor that was left open, then opens a step.
    void beginStep();
    void endStep();
    /// The row's parameters cleared and set up for a type, in an open step.
    void ChangeRowType(std::size_t row, std::wstring_view type);
    void changeRowProcess(std::size_t row, std::wstring_view process);
    void ClearRowForType(std::size_t row);
    void ApplyTypeDefaults(std::size_t row, std::wstring_view type);
    void followProcess(std::size_t row, std::wstring_view type);

    void modifyType(CellAt at, std::wstring_view text, TableOutcome& outcome);
    void commitType(CellAt at, std::wstring_view text, TableOutcome& outcome);
    void commitChoice(CellAt at, std::wstring_view text, TableOutcome& outcome);
    void commitValue(CellAt at, std::wstring text, std::size_t shownRow, TableOutcome& outcome);
    /// Whether a parameter or a free text is accepted; puts the text that is to be stored in place
    /// of `text`.
    void judge(CellAt at, std::wstring& text, std::size_t shownRow, TableOutcome& outcome);
    void applyTypeEdit(CellAt at, std::wstring_view text);
    void storeText(CellAt at, std::wstring_view text, TableOutcome& outcome);
    [[nodiscard]] bool mayFill(CellText& source, TableOutcome& outcome);
    bool fillCell(CellAt at, std::wstring_view text);
    bool pasteCell(const CellText& cell, TableOutcome& outcome);
    void announce(const std::wstring& part);

    const ValidationTables& rules_;
    std::unique_ptr<TableChecks> checks_;
    TablePlace place_;
    Prompt& prompt_;
    std::wstring line_;
    /// The line that a stop of OK wrote outlives the selection of its row.
    bool holdsLine_ = false;
    bool isFaultBoxOpen_ = false;
    std::optional<TypeEdit> typeEdit_;
    std::size_t searchStart_ = 0;
};

} // namespace partwright
