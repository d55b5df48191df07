// Verbs over many cells: filling by drag, pasting, links and calculated values.

#include "core/cell_text.h"
#include "core/text.h"
#include "editing/cell_question.h"
#include "editing/table_session.h"

#include <algorithm>

namespace partwright {

TableOutcome TableSession::fill(std::vector<CellText> sources, std::vector<std::size_t> rows) {
    TableOutcome outcome;
    std::erase_if(sources, [&](CellText& source) { return !mayFill(source, outcome); });
    outcome.editorText.reset(); // no editor is open
    // A type comes before the values that are to stand under it.
    std::sort(sources.begin(), sources.end(),
              [](const CellText& a, const CellText& b) { return a.at.column < b.at.column; });
    std::sort(rows.begin(), rows.end());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    beginStep();
    for (const std::size_t row : rows) {
        bool isChanged = false;
        for (const CellText& source : sources)
            isChanged = fillCell({row, source.at.column}, source.text) || isChanged;
        if (isChanged)
            outcome.changedRows.push_back(row);
    }
    takeFlags(outcome);
    endStep();
    return outcome;
}

/// Puts the text that is to be filled in place of the source's.
bool TableSession::mayFill(CellText& source, TableOutcome& outcome) {
    const ColumnKind kind = column(source.at.column).kind;
    if (source.text.empty() || source.at.column < typeColumn || kind == ColumnKind::Datasheet)
        return false;
    source.text = clean(source.at.column, source.text).text;
    if (kind == ColumnKind::Type)
        return true;
    TableOutcome verdict;
    judge(source.at, source.text, source.at.row + 1, verdict);
    if (!verdict.accepted) {
        // The first refusal is told; the columns that passed are filled all the same.
        if (outcome.accepted)
            outcome = std::move(verdict);
        return false;
    }
    return true;
}

bool TableSession::fillCell(CellAt at, std::wstring_view text) {
    if (at.row >= table_.rowCount())
        return false;
    const ChoiceList* list = choices(at);
    const ColumnKind kind = column(at.column).kind;
    if ((kind == ColumnKind::PinLibrary || kind == ColumnKind::CalcOutput) && text != checkedBox &&
        text != uncheckedBox)
        return false;
    if (table_.text(at.row, at.column) == text || !isEnabled(at) ||
        (list != nullptr && !list->holds(text)))
        return false;
    table_.keep(at.row);
    if (at.column == typeColumn)
        ChangeRowType(at.row, text);
    table_.write(at.row, at.column, text);
    return true;
}

TableOutcome TableSession::paste(std::vector<CellText> cells) {
    // By column in a row: a type comes before the values that are to stand under it.
    std::stable_sort(cells.begin(), cells.end(), [](const CellText& a, const CellText& b) {
        return std::pair(a.at.row, a.at.column) < std::pair(b.at.row, b.at.column);
    });
    TableOutcome outcome;
    beginStep();
    for (const CellText& cell : cells)
        if (pasteCell(cell, outcome) &&
            (outcome.changedRows.empty() || outcome.changedRows.back() != cell.at.row))
            outcome.changedRows.push_back(cell.at.row);
    takeFlags(outcome);
    endStep();
    return outcome;
}

bool TableSession::pasteCell(const CellText& cell, TableOutcome& outcome) {
    const CellAt at = cell.at;
    if (at.column >= setup().columns.size())
        return false;
    CleanText cleaned = clean(at.column, cell.text);
    const bool isNeeded = at.column == catalogNumberColumn || at.column == descriptionColumn;
    if (isReadOnly(at.column) || cleaned.text == cell::notApplicable ||
        (isNeeded && cleaned.text.empty()))
        return false;
    const bool isChanged = fillCell(at, cleaned.text);
    if (cleaned.complaint && isChanged)
        setLine(outcome, std::move(*cleaned.complaint));
    // Any text may come in this way, but not without a word about it.
    if (isChanged && at.column > typeColumn)
        take(outcome, CheckCellQuiet(cellQuestion(table_, *checks_, at, cleaned.text, false),
                                     rules_.rules, setup().decimalMark));
    return isChanged;
}

TableOutcome TableSession::storeLink(std::size_t row, std::wstring_view file) {
    TableOutcome outcome;
    const std::size_t column = setup().datasheetColumn;
    storeText({row, column}, clean(column, file).text, outcome);
    return outcome;
}

TableOutcome TableSession::clearLink(std::size_t row) {
    return storeLink(row, {});
}

TableOutcome TableSession::storeResults(std::size_t row, std::span<const CellText> results) {
    TableOutcome outcome;
    beginStep();
    for (const CellText& result : results) {
        const CellAt at{row, result.at.column};
        if (!isEnabled(at) || table_.text(row, at.column) == result.text)
            continue;
        table_.keep(row);
        table_.write(row, at.column, result.text);
        outcome.changedRows = {row};
    }
    takeFlags(outcome);
    endStep();
    return outcome;
}

} // namespace partwright
