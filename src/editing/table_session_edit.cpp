// The editing of one cell: what happens while its editor is open, and whether its text is accepted.

#include "core/cell_text.h"
#include "core/messages.h"
#include "core/text.h"
#include "editing/cell_question.h"
#include "editing/table_session.h"

namespace partwright {

namespace {

/// What a custom capacitor starts as, and two parameters that this process does not have.
constexpr std::wstring_view firstCustomProcess = L"CKR";
constexpr std::size_t unusedByFirstProcess[] = {3, 4};

/// A type whose output supply current is calculated when the table shows that choice.
constexpr std::wstring_view calculatedType = L"IC.PinLibrary";

} // namespace

TableOutcome TableSession::modify(CellAt at, std::wstring_view text) {
    TableOutcome outcome;
    if (isReadOnly(at.column))
        return outcome;
    if (at.column == typeColumn) {
        modifyType(at, text, outcome);
        return outcome;
    }
    CleanText cleaned = clean(at.column, text);
    if (cleaned.text != text)
        outcome.editorText = std::move(cleaned.text);
    if (cleaned.complaint)
        setLine(outcome, std::move(*cleaned.complaint));
    else if (at.column < typeColumn)
        setLine(outcome, {});
    return outcome;
}

void TableSession::modifyType(CellAt at, std::wstring_view text, TableOutcome& outcome) {
    const std::wstring stored = table_.type(at.row);
    if (text.empty())
        outcome.editorText = stored;
    if (text.empty() || text == stored) {
        // The old type is back in the editor: its values come back with it.
        if (typeEdit_)
            outcome.changedRows = cancelEdit().changedRows;
        return;
    }
    if (!setup().typeChoices.holds(text))
        return;
    if (stored.empty()) {
        commitType(at, text, outcome);
        outcome.isCommitted = outcome.accepted;
        return;
    }
    applyTypeEdit(at, text);
    outcome.changedRows = {at.row};
}

void TableSession::applyTypeEdit(CellAt at, std::wstring_view text) {
    if (typeEdit_ && typeEdit_->at == at && typeEdit_->applied == text)
        return;
    if (!typeEdit_ || typeEdit_->at != at) {
        beginStep();
        table_.keep(at.row);
    }
    ChangeRowType(at.row, text);
    typeEdit_ = TypeEdit{at, std::wstring(text)};
}

TableOutcome TableSession::cancelEdit() {
    TableOutcome outcome;
    if (!typeEdit_)
        return outcome;
    table_.cancelStep();
    outcome.changedRows = {typeEdit_->at.row};
    typeEdit_.reset();
    return outcome;
}

void TableSession::beginStep() {
    cancelEdit();
    table_.beginStep();
}

void TableSession::endStep() {
    table_.endStep();
    typeEdit_.reset();
}

TableOutcome TableSession::commit(CellAt at, std::wstring_view text, std::size_t shownRow) {
    TableOutcome outcome;
    if (isReadOnly(at.column))
        return outcome;
    if (at.column == typeColumn) {
        commitType(at, text, outcome);
        return outcome;
    }
    CleanText cleaned = clean(at.column, text);
    if (cleaned.complaint)
        setLine(outcome, std::move(*cleaned.complaint));
    if (cleaned.text != text)
        outcome.editorText = cleaned.text;
    if (at.column < typeColumn) {
        outcome.accepted = !cleaned.text.empty();
        if (outcome.accepted)
            storeText(at, cleaned.text, outcome);
        else
            outcome.boxes.push_back(
                {std::wstring(at.column == catalogNumberColumn ? message::emptyCatalogNumber
                                                               : message::emptyDescription),
                 PromptIcon::Warning});
        return outcome;
    }
    if (isChoice(at.column))
        commitChoice(at, cleaned.text, outcome);
    else
        commitValue(at, std::move(cleaned.text), shownRow == 0 ? at.row + 1 : shownRow, outcome);
    return outcome;
}

void TableSession::commitType(CellAt at, std::wstring_view text, TableOutcome& outcome) {
    const std::wstring& stored = table_.type(at.row);
    if (text.empty() || text == stored) {
        outcome.editorText = stored;
        outcome.changedRows = cancelEdit().changedRows;
        return;
    }
    if (!setup().typeChoices.holds(text)) {
        outcome.accepted = false;
        setLine(outcome, message::mustBeFromList(text));
        return;
    }
    applyTypeEdit(at, text);
    outcome.changedRows = {at.row};
    CommitAnswer answer = checks_->atCommit(table_, at, text, at.row + 1);
    if (answer.decision == CommitDecision::Refused) {
        outcome.accepted = false;
        take(outcome, std::move(answer.finding));
        return;
    }
    table_.write(at.row, at.column, text);
    endStep();
}

/// What a list offers, or what the cell had; the list of another type's cell is never typed into
/// it. These cells cannot be emptied.
void TableSession::commitChoice(CellAt at, std::wstring_view text, TableOutcome& outcome) {
    const std::wstring stored = table_.text(at.row, at.column);
    if (text.empty() || text == stored) {
        outcome.editorText = stored;
        return;
    }
    if (!choices(at)->holds(text)) {
        outcome.accepted = false;
        setLine(outcome, message::mustBeFromList(text));
        return;
    }
    if (column(at.column).choices != ColumnChoices::Process ||
        setup().group != setup().kind->processGroup || stored.empty()) {
        commitValue(at, std::wstring(text), at.row + 1, outcome);
        return;
    }
    beginStep();
    table_.keep(at.row);
    changeRowProcess(at.row, text);
    outcome.changedRows = {at.row};
    endStep();
}

void TableSession::commitValue(CellAt at, std::wstring text, std::size_t shownRow,
                               TableOutcome& outcome) {
    judge(at, text, shownRow, outcome);
    if (outcome.accepted)
        storeText(at, text, outcome);
}

void TableSession::judge(CellAt at, std::wstring& text, std::size_t shownRow,
                         TableOutcome& outcome) {
    CommitAnswer answer = checks_->atCommit(table_, at, text, shownRow);
    if (answer.text) {
        text = std::move(*answer.text);
        outcome.editorText = text;
    }
    if (answer.decision == CommitDecision::Open && text == cell::notApplicable &&
        column(at.column).kind == ColumnKind::Parameter && !isChoice(at.column))
        answer.decision = CommitDecision::NotApplicable;
    outcome.accepted = answer.decision == CommitDecision::Accepted;
    switch (answer.decision) {
    case CommitDecision::Accepted:
        break;
    case CommitDecision::Refused:
        take(outcome, std::move(answer.finding));
        break;
    case CommitDecision::NotApplicable:
        outcome.boxes.push_back({std::wstring(message::notApplicableIsIllegal)});
        break;
    case CommitDecision::Open:
        auto finding = CheckCellOnCommit(cellQuestion(table_, *checks_, at, text, true),
                                         rules_.rules, setup().decimalMark);
        outcome.accepted = !finding;
        take(outcome, std::move(finding));
    }
}

void TableSession::storeText(CellAt at, std::wstring_view text, TableOutcome& outcome) {
    if (table_.text(at.row, at.column) == text)
        return;
    beginStep();
    table_.keep(at.row);
    table_.write(at.row, at.column, text);
    outcome.changedRows.push_back(at.row);
    endStep();
}

/// A text that the library file gives back whole: one line, not too long, and not taken for the
/// end of its row.
TableSession::CleanText TableSession::clean(std::size_t column, std::wstring_view text) const {
    const TableColumn& of = this->column(column);
    CleanText result{onOneLine(text), std::nullopt};
    const bool isCatalog = of.kind == ColumnKind::CatalogNumber;
    if (isCatalog)
        result.text = upperCase(result.text);
    if (column > typeColumn && trim(result.text).starts_with(L'<')) {
        result.text.erase(0, result.text.find_first_not_of(L" <"));
        result.complaint = message::cellBeginsWithRowEnd(of.header);
    }
    const std::size_t limit = isCatalog ? maximumCatalogNumber : cell::maximumLength;
    if (result.text.size() > limit) {
        result.text.resize(limit);
        result.complaint = isCatalog ? std::wstring(message::longCatalogNumber)
                           : of.kind == ColumnKind::Description
                               ? std::wstring(message::longDescription)
                               : message::longCell(of.header);
    }
    return result;
}

void TableSession::ChangeRowType(std::size_t row, std::wstring_view type) {
    ClearRowForType(row);
    ApplyTypeDefaults(row, type);
    const std::size_t last = setup().columns.size() - 1;
    if (column(last).kind == ColumnKind::CalcOutput && !column(last).hidden &&
        type == calculatedType)
        table_.write(row, last, checkedBox);
    if (setup().processColumn != 0 && setup().group == setup().kind->processGroup)
        followProcess(row, type);
}

void TableSession::changeRowProcess(std::size_t row, std::wstring_view process) {
    ClearRowForType(row);
    table_.write(row, setup().processColumn, process);
    ApplyTypeDefaults(row, process);
}

void TableSession::ClearRowForType(std::size_t row) {
    for (std::size_t column = typeColumn + 1; column <= setup().lastParameter; ++column)
        table_.write(row, column, {});
    table_.flag(row, false);
}

void TableSession::ApplyTypeDefaults(std::size_t row, std::wstring_view type) {
    const PropertyView* property = setup().property(type);
    if (property == nullptr)
        return;
    for (std::size_t column = typeColumn + 1; column <= setup().lastParameter; ++column) {
        const ColumnChoices list = this->column(column).choices;
        if (list == ColumnChoices::None) {
            if (property->isUnused(this->column(column).parameter))
                table_.write(row, column, cell::notApplicable);
        } else if (list == ColumnChoices::Option) {
            const OptionColumn& option = *setup().option(column)->first;
            table_.write(row, column,
                         setup().resolved(type) == option.type ? option.defaultValue
                                                               : cell::notApplicable);
        }
    }
}

/// The process of a capacitor is chosen for one type alone.
void TableSession::followProcess(std::size_t row, std::wstring_view type) {
    const bool isCustom = type == customTypeName;
    table_.write(row, setup().processColumn, isCustom ? firstCustomProcess : cell::notApplicable);
    for (const std::size_t parameter : unusedByFirstProcess)
        if (isCustom && typeColumn + parameter <= setup().lastParameter)
            table_.write(row, typeColumn + parameter, cell::notApplicable);
}

} // namespace partwright
