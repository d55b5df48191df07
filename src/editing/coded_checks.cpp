#include "editing/table_checks.h"

#include <utility>

namespace partwright {

namespace {

AnalysesTable tableOf(const TableSetup& setup) {
    AnalysesTable table = makeAnalysesTable(setup.group, setup.decimalMark);
    for (std::size_t column = typeColumn; column <= setup.lastParameter; ++column)
        table.hidden.push_back(setup.columns[column].hidden);
    table.methodText = levelText(setup.level);
    return table;
}

AnalysesRow rowOf(const ComponentTable& table, std::size_t row, std::size_t shownRow) {
    const TableSetup& setup = table.setup();
    const std::size_t type = setup.typeNumber(table.type(row));
    AnalysesRow result;
    result.cells =
        std::span(table.row(row).cells).subspan(typeColumn, setup.lastParameter - typeColumn + 1);
    result.typePosition = type == TableSetup::noType ? 0 : type;
    result.number = shownRow;
    result.isFull = table.isComplete(row);
    return result;
}

std::vector<AnalysesRow> rowsOf(const ComponentTable& table, std::span<const std::size_t> order) {
    std::vector<AnalysesRow> rows;
    rows.reserve(order.size());
    for (const std::size_t row : order)
        rows.push_back(rowOf(table, row, rows.size() + 1));
    return rows;
}

std::vector<Box> boxesOf(std::vector<std::wstring> texts) {
    std::vector<Box> boxes;
    for (std::wstring& text : texts)
        boxes.push_back({std::move(text)});
    return boxes;
}

TableStop stopOf(CheckFinding finding, std::span<const std::size_t> order) {
    TableStop stop;
    for (const std::size_t place : finding.rows)
        stop.rows.push_back(order[place]);
    stop.boxes = boxesOf(std::move(finding.boxes));
    stop.column = finding.position == 0 ? 0 : typeColumn + finding.position;
    stop.goesToCell = finding.goesToCell;
    return stop;
}

std::optional<TableStop> stopOf(PassResult result, std::span<const std::size_t> order) {
    if (!result)
        return std::nullopt;
    return stopOf(std::move(*result), order);
}

} // namespace

CodedChecks::CodedChecks(const TableSetup& setup) : checks_(tableOf(setup)) {}

CommitVerdict CodedChecks::atCommit(const ComponentTable& table, CellAt at, std::wstring_view text,
                                    std::size_t shownRow) const {
    const std::size_t parameter = table.setup().columns[at.column].parameter;
    if (parameter == 0)
        return {};
    CommitAnswer answer = checks_.atCommit(rowOf(table, at.row, shownRow), parameter, text);
    CommitVerdict verdict;
    verdict.decision = answer.decision;
    verdict.stop.boxes = boxesOf(std::move(answer.boxes));
    if (answer.text != text)
        verdict.text = std::move(answer.text);
    return verdict;
}

std::optional<TableStop> CodedChecks::atCopy(const ComponentTable& table,
                                             std::span<const std::size_t> order) const {
    return stopOf(checks_.atCopy(rowsOf(table, order)), order);
}

std::optional<TableStop> CodedChecks::atOkTable(const ComponentTable& table,
                                                std::span<const std::size_t> order) const {
    return stopOf(checks_.atOk(rowsOf(table, order)), order);
}

std::vector<StepStop> CodedChecks::everyStep(const ComponentTable& table, std::size_t row) const {
    std::vector<StepStop> stops;
    const std::size_t order[] = {row};
    for (StepFinding& found : checks_.everyStep(rowOf(table, row, row + 1)))
        stops.push_back({found.step, stopOf(std::move(found.finding), order)});
    return stops;
}

bool CodedChecks::isPinList(const TableColumn& column) const {
    return column.kind == ColumnKind::PinLibrary || checks_.isPinList(column.parameter);
}

} // namespace partwright
