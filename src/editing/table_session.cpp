#include "editing/table_session.h"

#include "core/cell_text.h"
#include "core/messages.h"
#include "core/text.h"
#include "editing/cell_question.h"

#include <algorithm>
#include <numeric>

namespace partwright {

namespace {

/// The fields of a search request.
struct Request {
    std::int32_t column = 0;
    std::int32_t mode = 0;
    bool isBackward = false;
    std::wstring_view text;
};

std::optional<Request> parseRequest(std::wstring_view text) {
    std::int32_t numbers[3] = {};
    for (std::int32_t& number : numbers) {
        const IntegerPrefix read = readInteger(text);
        if (read.consumed == 0 || read.consumed >= text.size() || text[read.consumed] != L'_')
            return std::nullopt;
        number = read.value;
        text.remove_prefix(read.consumed + 1);
    }
    return Request{numbers[0], numbers[1], numbers[2] != 0, text};
}

bool matches(std::wstring_view cell, const Request& request) {
    switch (request.mode) {
    case 0:
        return cell == request.text;
    case 1:
        return cell.find(request.text) != std::wstring_view::npos;
    case 2:
        return cell.substr(0, request.text.size()) == request.text;
    default:
        return false;
    }
}

} // namespace

TableSession::TableSession(TableSetup setup, const ValidationTables& rules, TablePlace place,
                           Prompt& prompt)
    : table_(std::move(setup)), rules_(rules), checks_(makeTableChecks(table_.setup(), rules)),
      place_(std::move(place)), prompt_(prompt) {}

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

bool TableSession::isReadOnly(std::size_t column) const {
    switch (this->column(column).kind) {
    case ColumnKind::RowNumber:
    case ColumnKind::PartNumber:
    case ColumnKind::Full:
    case ColumnKind::Used:
        return true;
    default:
        return false;
    }
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
        setLine(outcome, lineFor(at));
        const ColumnKind kind = column(at.column).kind;
        if (kind == ColumnKind::PinLibrary || kind == ColumnKind::CalcOutput)
            return outcome;
        RecheckRowFlag(at, outcome);
    }
    takeFlags(outcome);
    return outcome;
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
        if (const PropertyView* property = setup().property(type)) {
            const auto name =
                std::find(property->names.begin(), property->names.end(), column.header);
            if (name != property->names.end())
                line = property->messages[static_cast<std::size_t>(name - property->names.begin())];
        }
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

TableOutcome TableSession::search(std::wstring_view text, std::optional<CellAt> current,
                                  RowOrder order) {
    TableOutcome outcome;
    const auto request = parseRequest(text);
    outcome.accepted = request.has_value();
    if (!request)
        return outcome;
    const std::vector<std::size_t> rows = rowsIn(order);
    if (current) {
        const auto place = std::find(rows.begin(), rows.end(), current->row) - rows.begin();
        searchStart_ = static_cast<std::size_t>(place) + (request->isBackward ? 0 : 1);
        // Backward, the row before the first one is none: the walk is over before it begins.
        searchStart_ -= request->isBackward ? 1 : 0;
    }
    const bool isColumn = request->column >= 0 &&
                          static_cast<std::size_t>(request->column) + 1 < setup().columns.size();
    const auto at = isColumn ? static_cast<std::size_t>(request->column) + 1 : 0;
    for (std::size_t place = searchStart_; isColumn && place < rows.size();
         request->isBackward ? --place : ++place) {
        if (!matches(table_.text(rows[place], at), *request))
            continue;
        searchStart_ = place;
        outcome.current = CellAt{rows[place], at};
        outcome.selectedRows = {rows[place]};
        return outcome;
    }
    outcome.boxes.push_back({message::rowNotFound(request->isBackward), PromptIcon::Information});
    return outcome;
}

void TableSession::present(const TableOutcome& outcome) {
    for (const Box& box : outcome.boxes) {
        if (box.isTableFault && isFaultBoxOpen_)
            continue;
        const bool wasOpen = isFaultBoxOpen_;
        isFaultBoxOpen_ = isFaultBoxOpen_ || box.isTableFault;
        prompt_.tell(box.text, box.icon);
        isFaultBoxOpen_ = wasOpen;
    }
}

void TableSession::RecheckRowFlag(CellAt at, TableOutcome& outcome) {
    if (at.column < typeColumn)
        return;
    std::optional<Finding> finding =
        CheckCellQuiet(cellQuestion(table_, *checks_, at, table_.text(at.row, at.column), false),
                       rules_.rules, setup().decimalMark);
    const bool wasFull = table_.text(at.row, fullColumn) == fullMark;
    const bool isFull = !finding && table_.isComplete(at.row);
    table_.flag(at.row, isFull);
    if (isFull != wasFull)
        outcome.changedRows.push_back(at.row);
    take(outcome, std::move(finding));
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
    setLine(outcome, {});
    takeFlags(outcome);
    return outcome;
}

TableOutcome TableSession::checkAllRowsForOk(RowOrder order) {
    TableOutcome outcome = cancelEdit();
    takeFlags(outcome);
    const std::vector<std::size_t> rows = rowsIn(order);
    bool isAsked = false;
    for (const std::size_t row : rows) {
        if (!isAsked && table_.text(row, fullColumn) == notFullMark) {
            isAsked = true;
            outcome.accepted = prompt_.ask(message::caption, message::notAllFilledIn);
            if (!outcome.accepted)
                return outcome;
        }
        if (auto found = checks_->atOkRow(table_, row)) {
            stop(outcome, std::move(*found));
            holdsLine_ = true;
            return outcome;
        }
    }
    if (auto found = checks_->atOkTable(table_, rows))
        stop(outcome, std::move(*found));
    return outcome;
}

void TableSession::setLine(TableOutcome& outcome, std::wstring line) {
    line_ = std::move(line);
    outcome.line = line_;
}

void TableSession::take(TableOutcome& outcome, std::optional<Finding> finding) {
    if (!finding)
        return;
    if (finding->line)
        setLine(outcome, std::move(*finding->line));
    // Many cells may meet the same fault of the tables: it is told once.
    const auto isTold = [&](const Box& box) {
        return box.isTableFault && box.text == finding->tableFault;
    };
    if (!finding->tableFault.empty() &&
        std::none_of(outcome.boxes.begin(), outcome.boxes.end(), isTold))
        outcome.boxes.push_back({std::move(finding->tableFault), PromptIcon::None, true});
    for (std::wstring& text : finding->texts)
        outcome.boxes.push_back({std::move(text)});
    if (!finding->rows.empty())
        outcome.selectedRows = std::move(finding->rows);
}

void TableSession::stop(TableOutcome& outcome, Finding finding) {
    outcome.accepted = false;
    if (finding.leadsToCell())
        outcome.current = CellAt{finding.rows.front(), typeColumn + finding.position};
    take(outcome, std::move(finding));
}

void TableSession::takeFlags(TableOutcome& outcome) {
    const auto flagged = table_.refreshFlags();
    auto& rows = outcome.changedRows;
    rows.insert(rows.end(), flagged.begin(), flagged.end());
    std::sort(rows.begin(), rows.end());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
}

} // namespace partwright
