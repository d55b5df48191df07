#include "editing/cell_edit.h"

#include "core/messages.h"
#include "editing/cell_question.h"
#include "editing/clean_text.h"
#include "editing/row_type.h"

namespace partwright {

TableOutcome CellEdit::modify(CellAt at, std::wstring_view text) {
    TableOutcome outcome;
    if (column(at.column).isReadOnly())
        return outcome;
    if (at.column == typeColumn) {
        modifyType(at, text, outcome);
        return outcome;
    }
    CleanText clean = cleanText(column(at.column), text);
    if (clean.text != text)
        outcome.editorText = std::move(clean.text);
    outcome.line = std::move(clean.complaint);
    if (!outcome.line && at.column < typeColumn)
        outcome.line.emplace();
    return outcome;
}

void CellEdit::modifyType(CellAt at, std::wstring_view text, TableOutcome& outcome) {
    const std::wstring stored = table_.type(at.row);
    if (text.empty())
        outcome.editorText = stored;
    if (text.empty() || text == stored) {
        // The old type is back in the editor: its values come back with it.
        if (typeEdit_)
            outcome.changedRows = cancel().changedRows;
        return;
    }
    if (!table_.setup().typeChoices.holds(text))
        return;
    if (stored.empty()) {
        commitType(at, text, at.row + 1, outcome);
        return;
    }
    applyType(at, text);
    outcome.changedRows = {at.row};
}

void CellEdit::applyType(CellAt at, std::wstring_view text) {
    if (typeEdit_ && typeEdit_->at == at && typeEdit_->applied == text)
        return;
    if (!typeEdit_ || typeEdit_->at != at) {
        cancel();
        table_.beginStep();
    }
    ChangeRowType(table_, at.row, text);
    typeEdit_ = TypeEdit{at, std::wstring(text)};
}

TableOutcome CellEdit::cancel() {
    TableOutcome outcome;
    if (!typeEdit_)
        return outcome;
    table_.cancelStep();
    outcome.changedRows = {typeEdit_->at.row};
    typeEdit_.reset();
    return outcome;
}

TableOutcome CellEdit::commit(CellAt at, std::wstring_view text, std::size_t shownRow) {
    TableOutcome outcome;
    if (column(at.column).isReadOnly())
        return outcome;
    if (at.column == typeColumn) {
        commitType(at, text, shownRow, outcome);
        return outcome;
    }
    CleanText clean = cleanText(column(at.column), text);
    outcome.line = std::move(clean.complaint);
    if (clean.text != text)
        outcome.editorText = clean.text;
    if (at.column < typeColumn)
        commitFreeText(at, clean.text, outcome);
    else if (column(at.column).choices != ColumnChoices::None)
        commitChoice(at, clean.text, shownRow, outcome);
    else
        commitValue(at, std::move(clean.text), shownRow, outcome);
    return outcome;
}

void CellEdit::commitType(CellAt at, std::wstring_view text, std::size_t shownRow,
                          TableOutcome& outcome) {
    const std::wstring& stored = table_.type(at.row);
    if (text.empty() || text == stored) {
        outcome.editorText = stored;
        outcome.changedRows = cancel().changedRows;
        return;
    }
    if (!table_.setup().typeChoices.holds(text)) {
        outcome.accepted = false;
        outcome.line = message::mustBeFromList(text);
        return;
    }
    applyType(at, text);
    outcome.changedRows = {at.row};
    CommitAnswer answer = judge_.checks().atCommit(table_, at, text, shownRow);
    if (answer.decision == CommitDecision::Refused) {
        outcome.accepted = false;
        report(outcome, std::move(answer.finding));
        return;
    }
    table_.write(at.row, at.column, text);
    table_.endStep();
    typeEdit_.reset();
}

void CellEdit::commitFreeText(CellAt at, std::wstring_view text, TableOutcome& outcome) {
    outcome.accepted = !text.empty();
    if (outcome.accepted)
        store(at, text, outcome);
    else
        outcome.boxes.push_back(
            {std::wstring(at.column == catalogNumberColumn ? message::emptyCatalogNumber
                                                           : message::emptyDescription),
             PromptIcon::Warning});
}

/// What a list offers, or what the cell had; the list of another type's cell is never typed into
/// it. These cells cannot be emptied.
void CellEdit::commitChoice(CellAt at, std::wstring_view text, std::size_t shownRow,
                            TableOutcome& outcome) {
    const TableSetup& setup = table_.setup();
    const std::wstring stored = table_.text(at.row, at.column);
    if (text.empty() || text == stored) {
        outcome.editorText = stored;
        return;
    }
    if (!choicesOf(table_, at)->holds(text)) {
        outcome.accepted = false;
        outcome.line = message::mustBeFromList(text);
        return;
    }
    if (column(at.column).choices != ColumnChoices::Process ||
        setup.group != setup.kind->processGroup || stored.empty()) {
        commitValue(at, std::wstring(text), shownRow, outcome);
        return;
    }
    cancel();
    table_.beginStep();
    changeRowProcess(table_, at.row, text);
    outcome.changedRows = {at.row};
    table_.endStep();
}

void CellEdit::commitValue(CellAt at, std::wstring text, std::size_t shownRow,
                           TableOutcome& outcome) {
    judge_.commit(at, text, shownRow, outcome);
    if (outcome.accepted)
        store(at, keptText(table_, judge_.rules(), at, text), outcome);
}

void CellEdit::store(CellAt at, std::wstring_view text, TableOutcome& outcome) {
    if (table_.text(at.row, at.column) == text)
        return;
    cancel();
    table_.beginStep();
    table_.write(at.row, at.column, text);
    outcome.changedRows.push_back(at.row);
    table_.endStep();
}

} // namespace partwright
