#pragma once

// The open editor of a table: what its text does while it is typed, whether the text is accepted,
// and what comes back when it is dropped.
//
//   edit.modify(at, text)      at every change of the editor's text
//   edit.commit(at, text, 3)   Enter, Tab, a click away; may refuse, and the editor stays open
//   edit.cancel()              the text is dropped
//
// A change of Type takes effect while its list is open: it clears the parameters of its row, once,
// in a step of undo that stays open until the editor closes.

#include "editing/cell_judge.h"
#include "editing/component_table.h"
#include "editing/table_outcome.h"

#include <optional>
#include <string>
#include <string_view>

namespace partwright {

class CellEdit {
public:
    CellEdit(ComponentTable& table, const CellJudge& judge) : table_(table), judge_(judge) {}

    TableOutcome modify(CellAt at, std::wstring_view text);
    /// `shownRow` is the row's number on the screen, which messages name.
    TableOutcome commit(CellAt at, std::wstring_view text, std::size_t shownRow);
    /// Brings back what an open list of types had cleared.
    TableOutcome cancel();

private:
    /// A Type editor whose change of the row is already done, in an open step.
    struct TypeEdit {
        CellAt at;
        std::wstring applied;
    };

    [[nodiscard]] const TableColumn& column(std::size_t column) const {
        return table_.setup().columns[column];
    }
    void modifyType(CellAt at, std::wstring_view text, TableOutcome& outcome);
    void applyType(CellAt at, std::wstring_view text);
    void commitType(CellAt at, std::wstring_view text, std::size_t shownRow, TableOutcome& outcome);
    void commitFreeText(CellAt at, std::wstring_view text, TableOutcome& outcome);
    void commitChoice(CellAt at, std::wstring_view text, std::size_t shownRow,
                      TableOutcome& outcome);
    void commitValue(CellAt at, std::wstring text, std::size_t shownRow, TableOutcome& outcome);
    void store(CellAt at, std::wstring_view text, TableOutcome& outcome);

    ComponentTable& table_;
    const CellJudge& judge_;
    std::optional<TypeEdit> typeEdit_;
};

} // namespace partwright
