// Verbs over whole rows: deleting, adding, copying, and leaving for another group. Records follow
// at OK; until then a part that left or came is known here alone.

#include "core/messages.h"
#include "editing/row_deletion.h"
#include "editing/table_session.h"

#include <algorithm>

namespace partwright {

TableOutcome TableSession::deleteRows(std::vector<std::size_t> selected) {
    TableOutcome outcome = cancelEdit();
    std::sort(selected.begin(), selected.end());
    selected.erase(std::unique(selected.begin(), selected.end()), selected.end());
    std::vector<std::wstring_view> parts;
    parts.reserve(selected.size());
    for (const std::size_t row : selected)
        parts.push_back(table_.row(row).part());
    for (const std::size_t place : confirmDeletion(parts, *place_.projectParts, prompt_))
        outcome.removedRows.push_back(selected[place]);
    if (outcome.removedRows.empty())
        return outcome;
    beginStep();
    table_.remove(outcome.removedRows);
    endStep();
    return outcome;
}

TableOutcome TableSession::add(const GroupChoice& choice) {
    TableOutcome outcome;
    TableRow row;
    row.isNew = true;
    row.cells.resize(setup().columns.size());
    row.cells[partNumberColumn] = choice.partNumber;
    row.cells[fullColumn] = notFullMark;
    beginStep();
    if (choice.group == setup().group) {
        const std::size_t at = table_.append(std::move(row));
        if (setup().defaultType != 0) {
            const std::wstring& type = setup().types[static_cast<std::size_t>(setup().defaultType)];
            ChangeRowType(at, type);
            table_.write(at, typeColumn, type);
        }
        for (std::size_t column = typeColumn + 1; column <= setup().lastParameter; ++column)
            if (this->column(column).choices == ColumnChoices::Package)
                table_.write(at, column, setup().defaultPackage);
        outcome.insertedRows = {at};
        outcome.current = CellAt{at, partNumberColumn};
    } else {
        table_.depart({std::move(row), choice.group, choice.family});
    }
    endStep();
    announce(choice.partNumber);
    return outcome;
}

TableOutcome TableSession::checkBeforeCopy(RowOrder order) {
    TableOutcome outcome = cancelEdit();
    takeFlags(outcome);
    const std::vector<std::size_t> rows = rowsIn(order);
    if (auto found = checks_->atCopy(table_, rows))
        stop(outcome, std::move(*found));
    return outcome;
}

TableOutcome TableSession::copy(std::size_t row, const GroupChoice& choice) {
    TableOutcome outcome;
    beginStep();
    TableRow copied = table_.row(row);
    if (copied.source.empty() && !copied.isNew)
        copied.source = copied.part();
    copied.isNew = true;
    copied.ownKey.reset();
    copied.cells[partNumberColumn] = choice.partNumber;
    const std::size_t at = table_.append(std::move(copied));
    outcome.insertedRows = {at};
    outcome.current = CellAt{at, partNumberColumn};
    endStep();
    announce(choice.partNumber);
    return outcome;
}

TableOutcome TableSession::changeGroup(std::size_t row, const GroupChoice& choice) {
    TableOutcome outcome;
    if (choice.group == setup().group)
        return outcome;
    beginStep();
    table_.depart({table_.row(row), choice.group, choice.family, true});
    outcome.removedRows = {row};
    table_.remove(outcome.removedRows);
    endStep();
    return outcome;
}

TableOutcome TableSession::requireRow(std::optional<CellAt> current) const {
    TableOutcome outcome;
    outcome.accepted = current.has_value();
    if (!current)
        outcome.boxes.push_back({std::wstring(message::selectRowInTable)});
    return outcome;
}

bool TableSession::hasPart(std::wstring_view part) const {
    for (std::size_t row = 0; row < table_.rowCount(); ++row)
        if (table_.row(row).part() == part)
            return true;
    for (const DepartedPart& left : table_.departed())
        if (left.row.part() == part)
            return true;
    // A part that was opened and is in none of the two was deleted: its number is free again.
    return !isOpened(part) && place_.inLibrary(part);
}

void TableSession::announce(const std::wstring& part) {
    const auto inProject = place_.projectParts->find(part);
    const std::wstring designators =
        inProject == place_.projectParts->end() ? std::wstring() : inProject->second;
    place_.shownParts->emplace(part, designators);
    place_.libraryParts->emplace(part, designators);
}

} // namespace partwright
