#include "editing/table_session.h"

#include "core/cell_text.h"
#include "core/messages.h"
#include "core/vocabulary.h"
#include "editing/cell_question.h"
#include "editing/clean_text.h"
#include "editing/row_deletion.h"
#include "editing/row_type.h"

#include <algorithm>
#include <numeric>

namespace partwright {

TableSession::TableSession(TableSetup setup, const ValidationTables& rules, TablePlace place)
    : table_(std::move(setup)), judge_(table_, rules), edit_(table_, judge_),
      marks_(table_, judge_), place_(std::move(place)) {}

std::vector<std::size_t> TableSession::rowsIn(RowOrder order) const {
    std::vector<std::size_t> rows(order.begin(), order.end());
    if (rows.empty()) {
        rows.resize(table_.rowCount());
        std::iota(rows.begin(), rows.end(), std::size_t{0});
    }
    return rows;
}

std::wstring TableSession::title() const {
    return message::componentTableTitle(setup().groupName, openedParts_);
}

bool TableSession::isEnabled(CellAt at) const {
    const TableColumn& column = this->column(at.column);
    if (column.header.starts_with(L'$'))
        return false;
    return column.kind != ColumnKind::Parameter || column.choices == ColumnChoices::Process ||
           table_.text(at.row, at.column) != cell::notApplicable;
}

const ChoiceList* TableSession::choices(CellAt at) const {
    return choicesOf(table_, at);
}

TableOutcome TableSession::selectCell(CellAt at) {
    TableOutcome outcome;
    if (holdsLine_) {
        holdsLine_ = false;
    } else {
        outcome.line = lineFor(at);
        const ColumnKind kind = column(at.column).kind;
        if (kind == ColumnKind::PinLibrary || kind == ColumnKind::CalcOutput)
            return outcome;
        RecheckRowFlag(at, outcome);
    }
    takeFlags(outcome);
    return outcome;
}

TableOutcome TableSession::lookAgain(CellAt at) {
    holdsLine_ = false;
    TableOutcome outcome = selectCell(at);
    outcome.boxes.clear();
    return outcome;
}

std::wstring TableSession::meaning(CellAt at) const {
    const PropertyView* property = setup().property(table_.type(at.row));
    if (property == nullptr)
        return {};
    const auto name =
        std::find(property->names.begin(), property->names.end(), column(at.column).header);
    return name == property->names.end()
               ? std::wstring()
               : property->messages[static_cast<std::size_t>(name - property->names.begin())];
}

std::wstring TableSession::explanation(CellAt at) {
    if (column(at.column).kind != ColumnKind::Parameter ||
        table_.text(at.row, at.column) == cell::notApplicable)
        return {};
    std::wstring text = meaning(at);
    const std::wstring rule = marks_.isMarked(at) ? std::wstring() : judge_.ruleText(at);
    if (!rule.empty())
        text += (text.empty() ? L"" : L"\n") + rule;
    return text;
}

std::wstring TableSession::lineFor(CellAt at) const {
    if (at.column < typeColumn)
        return {};
    const TableColumn& column = this->column(at.column);
    const std::wstring& type = table_.type(at.row);
    std::wstring line;
    switch (column.kind) {
    case ColumnKind::PinLibrary:
        return std::wstring(message::pinLibraryHint);
    case ColumnKind::CalcOutput:
        return std::wstring(message::calcOutputHint);
    case ColumnKind::Datasheet:
        line = message::datasheetHint;
        break;
    case ColumnKind::Notes:
        line = message::notesHint;
        break;
    case ColumnKind::Manufacturer:
        line = message::manufacturerHint;
        break;
    case ColumnKind::Type:
        line = message::typeHint;
        break;
    default:
        if (type.empty())
            return std::wstring(message::chooseTypeFirst);
        line = meaning(at);
    }
    const std::wstring& text = table_.text(at.row, at.column);
    if (text == cell::notApplicable)
        line += message::notApplicableHint;
    if (column.kind == ColumnKind::Type && !text.empty())
        line += message::typeChangeHint;
    return line;
}

TableOutcome TableSession::selectWholeRow(std::optional<CellAt> current) {
    TableOutcome outcome;
    if (table_.rowCount() == 0) {
        outcome.boxes.push_back({std::wstring(message::tableIsEmpty)});
        return outcome;
    }
    takeFlags(outcome);
    if (!current)
        outcome.boxes.push_back({std::wstring(message::noSelection)});
    else if (table_.text(current->row, partNumberColumn).empty())
        outcome.boxes.push_back({std::wstring(message::emptyPartNumberCell)});
    else
        outcome.selectedRows = {current->row};
    return outcome;
}

TableOutcome TableSession::search(std::wstring_view request, std::optional<CellAt> current,
                                  RowOrder order) {
    TableOutcome outcome;
    const auto query = parseQuery(request);
    outcome.accepted = query.has_value();
    if (!query)
        return outcome;
    if (const auto hit = find(*query, current, order)) {
        outcome.current = hit->at;
        outcome.selectedRows = {hit->at.row};
    } else {
        outcome.boxes.push_back({message::rowNotFound(query->isBackward), PromptIcon::Information});
    }
    return outcome;
}

std::optional<TableSearch::Hit> TableSession::find(const TableQuery& query,
                                                   std::optional<CellAt> current, RowOrder order) {
    return search_.find(table_, query, current, rowsIn(order));
}

TableOutcome TableSession::nextMark(std::optional<CellAt> current, RowOrder order,
                                    bool isBackward) {
    TableOutcome outcome;
    outcome.current = marks_.next(current, rowsIn(order), isBackward);
    if (!outcome.current)
        outcome.line = message::noCellBreaksItsRule;
    return outcome;
}

void TableSession::RecheckRowFlag(CellAt at, TableOutcome& outcome) {
    if (at.column < typeColumn)
        return;
    auto finding = judge_.quiet(at);
    const bool wasFull = table_.text(at.row, fullColumn) == fullMark;
    const bool isFull = !finding && table_.isComplete(at.row);
    table_.flag(at.row, isFull);
    if (isFull != wasFull)
        outcome.changedRows.push_back(at.row);
    if (finding)
        report(outcome, std::move(*finding));
}

TableOutcome TableSession::RefreshAllRowFlags() {
    TableOutcome outcome;
    takeFlags(outcome);
    return outcome;
}

TableOutcome TableSession::undo() {
    cancelEdit();
    return table_.canUndo() ? afterMove(table_.undo()) : TableOutcome{};
}

TableOutcome TableSession::redo() {
    cancelEdit();
    return table_.canRedo() ? afterMove(table_.redo()) : TableOutcome{};
}

TableOutcome TableSession::afterMove(ComponentTable::Change change) {
    TableOutcome outcome;
    outcome.changedRows = std::move(change.changed);
    outcome.removedRows = std::move(change.removed);
    outcome.insertedRows = std::move(change.inserted);
    takeFlags(outcome);
    return outcome;
}

TableOutcome TableSession::checkAllRowsForOk(RowOrder order, Consent consent) {
    TableOutcome outcome = cancelEdit();
    takeFlags(outcome);
    const std::vector<std::size_t> rows = rowsIn(order);
    for (const std::size_t row : rows) {
        if (consent == Consent::NotAsked && table_.text(row, fullColumn) == notFullMark) {
            outcome.accepted = false;
            outcome.question = message::notAllFilledIn;
            return outcome;
        }
        if (auto found = judge_.checks().atOkRow(table_, row)) {
            stop(outcome, std::move(*found));
            holdsLine_ = true;
            return outcome;
        }
    }
    if (auto found = judge_.checks().atOkTable(table_, rows))
        stop(outcome, std::move(*found));
    return outcome;
}

TableOutcome TableSession::drop() {
    TableOutcome outcome = cancelEdit();
    const std::size_t changed = changedComponents();
    outcome.accepted = changed == 0;
    if (!outcome.accepted)
        outcome.question = message::dropChanges(changed);
    return outcome;
}

void TableSession::takeFlags(TableOutcome& outcome) {
    const auto flagged = table_.refreshFlags();
    auto& rows = outcome.changedRows;
    rows.insert(rows.end(), flagged.begin(), flagged.end());
    std::sort(rows.begin(), rows.end());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
}

void TableSession::beginStep() {
    cancelEdit();
    table_.beginStep();
}

void TableSession::storeText(CellAt at, std::wstring_view text, TableOutcome& outcome) {
    if (table_.text(at.row, at.column) == text)
        return;
    beginStep();
    table_.write(at.row, at.column, text);
    outcome.changedRows.push_back(at.row);
    table_.endStep();
}

TableOutcome TableSession::fill(std::vector<CellText> sources, std::vector<std::size_t> rows,
                                std::size_t shownRow) {
    TableOutcome outcome;
    std::erase_if(sources, [&](CellText& source) { return !mayFill(source, shownRow, outcome); });
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
            isChanged =
                fillCell({row, source.at.column}, source.text) == Taken::Changed || isChanged;
        if (isChanged)
            outcome.changedRows.push_back(row);
    }
    takeFlags(outcome);
    table_.endStep();
    return outcome;
}

/// Puts the text that is to be filled in place of the source's.
bool TableSession::mayFill(CellText& source, std::size_t shownRow, TableOutcome& outcome) {
    const ColumnKind kind = column(source.at.column).kind;
    if (source.text.empty() || source.at.column < typeColumn || kind == ColumnKind::Datasheet)
        return false;
    source.text = cleanText(column(source.at.column), source.text).text;
    if (kind == ColumnKind::Type)
        return true;
    TableOutcome verdict;
    judge_.commit(source.at, source.text, shownRow, verdict);
    if (!verdict.accepted) {
        // The first refusal is told; the columns that passed are filled all the same.
        if (outcome.accepted)
            outcome = std::move(verdict);
        return false;
    }
    return true;
}

TableSession::Taken TableSession::fillCell(CellAt at, std::wstring_view text) {
    if (at.row >= table_.rowCount())
        return Taken::No;
    const std::wstring now = keptText(table_, judge_.rules(), at, text);
    const ChoiceList* list = choices(at);
    const ColumnKind kind = column(at.column).kind;
    const bool isCheckBox = kind == ColumnKind::PinLibrary || kind == ColumnKind::CalcOutput;
    if ((isCheckBox && now != checkedBox && now != uncheckedBox) || !isEnabled(at))
        return Taken::No;
    if (table_.text(at.row, at.column) == now)
        return Taken::Same;
    if (list != nullptr && !list->holds(now))
        return Taken::No;
    if (at.column == typeColumn)
        ChangeRowType(table_, at.row, now);
    table_.write(at.row, at.column, now);
    return Taken::Changed;
}

TableOutcome TableSession::paste(std::vector<CellText> cells, PasteAs as) {
    // By column in a row: a type comes before the values that are to stand under it.
    std::stable_sort(cells.begin(), cells.end(), [](const CellText& a, const CellText& b) {
        return std::pair(a.at.row, a.at.column) < std::pair(b.at.row, b.at.column);
    });
    TableOutcome outcome;
    std::vector<CellAt> pasted;
    beginStep();
    for (const CellText& cell : cells) {
        const Taken taken = pasteCell(cell, as, outcome);
        if (taken != Taken::No && cell.at.column > typeColumn && !cell.text.empty())
            pasted.push_back(cell.at);
        if (taken == Taken::Changed &&
            (outcome.changedRows.empty() || outcome.changedRows.back() != cell.at.row))
            outcome.changedRows.push_back(cell.at.row);
    }
    takeFlags(outcome);
    table_.endStep();
    tellPasted(pasted, outcome);
    return outcome;
}

TableSession::Taken TableSession::pasteCell(const CellText& cell, PasteAs as,
                                            TableOutcome& outcome) {
    const CellAt at = cell.at;
    if (at.column >= setup().columns.size() || at.row >= table_.rowCount())
        return Taken::No;
    CleanText clean = cleanText(column(at.column), cell.text);
    const bool isNeeded = at.column == catalogNumberColumn || at.column == descriptionColumn;
    if (isReadOnly(at.column) || clean.text == cell::notApplicable ||
        (isNeeded && clean.text.empty()))
        return Taken::No;
    if (as == PasteAs::Typed && at.column > typeColumn)
        clean.text = judge_.normalised(at, std::move(clean.text));
    const Taken taken = fillCell(at, clean.text);
    if (clean.complaint && taken == Taken::Changed)
        outcome.line = std::move(clean.complaint);
    return taken;
}

/// Any text may come in this way, but not without a word about it.
void TableSession::tellPasted(const std::vector<CellAt>& pasted, TableOutcome& outcome) {
    std::size_t broken = 0;
    std::wstring first;
    for (const CellAt at : pasted) {
        const auto finding = judge_.quiet(at);
        if (!finding)
            continue;
        report(outcome, {.tableFault = finding->tableFault}); // whatever the text is
        if (finding->line && broken++ == 0)
            first = message::cellAndComplaint(table_.text(at.row, partNumberColumn),
                                              column(at.column).header, judge_.complaint(at));
    }
    if (broken != 0)
        outcome.line = message::pastedBreakRules(broken, pasted.size(), first);
}

TableOutcome TableSession::storeLink(std::size_t row, std::wstring_view file) {
    TableOutcome outcome;
    const std::size_t column = setup().datasheetColumn;
    storeText({row, column}, cleanText(this->column(column), file).text, outcome);
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
        const std::wstring now = keptText(table_, judge_.rules(), at, result.text);
        if (!isEnabled(at) || table_.text(row, at.column) == now)
            continue;
        table_.write(row, at.column, now);
        outcome.changedRows = {row};
    }
    takeFlags(outcome);
    table_.endStep();
    return outcome;
}

TableOutcome TableSession::deleteRows(std::vector<std::size_t> selected, Consent consent) {
    TableOutcome outcome = cancelEdit();
    std::sort(selected.begin(), selected.end());
    selected.erase(std::unique(selected.begin(), selected.end()), selected.end());
    std::vector<std::wstring_view> parts;
    parts.reserve(selected.size());
    for (const std::size_t row : selected)
        parts.push_back(table_.row(row).part());
    Deletion deletion = deletionOf(parts, *place_.projectParts);
    if (deletion.deletable.empty()) {
        outcome.boxes.push_back({std::move(deletion.text)});
        return outcome;
    }
    if (consent == Consent::NotAsked) {
        outcome.question = std::move(deletion.text);
        return outcome;
    }
    for (const std::size_t place : deletion.deletable)
        outcome.removedRows.push_back(selected[place]);
    beginStep();
    table_.remove(outcome.removedRows);
    table_.endStep();
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
        std::wstring_view type;
        if (setup().defaultType != 0)
            type = setup().types[static_cast<std::size_t>(setup().defaultType)];
        else if (setup().typeChoices.empty())
            type = defaultTypeName; // there is none to choose, and values want one
        if (!type.empty()) {
            ChangeRowType(table_, at, type);
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
    table_.endStep();
    announce(choice.partNumber);
    return outcome;
}

TableOutcome TableSession::checkBeforeCopy(RowOrder order) {
    TableOutcome outcome = cancelEdit();
    takeFlags(outcome);
    const std::vector<std::size_t> rows = rowsIn(order);
    if (auto found = judge_.checks().atCopy(table_, rows))
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
    table_.endStep();
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
    table_.endStep();
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
