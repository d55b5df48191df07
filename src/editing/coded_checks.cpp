#include "editing/table_checks.h"

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
    result.index = row;
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

} // namespace

CodedChecks::CodedChecks(const TableSetup& setup) : checks_(tableOf(setup)) {}

CommitAnswer CodedChecks::atCommit(const ComponentTable& table, CellAt at, std::wstring_view text,
                                   std::size_t shownRow) const {
    const std::size_t parameter = table.setup().columns[at.column].parameter;
    if (parameter == 0)
        return {};
    return checks_.atCommit(rowOf(table, at.row, shownRow), parameter, text);
}

std::optional<Finding> CodedChecks::atCopy(const ComponentTable& table,
                                           std::span<const std::size_t> order) const {
    return checks_.atCopy(rowsOf(table, order));
}

std::optional<Finding> CodedChecks::atOkTable(const ComponentTable& table,
                                              std::span<const std::size_t> order) const {
    return checks_.atOk(rowsOf(table, order));
}

std::vector<Finding> CodedChecks::everyStep(const ComponentTable& table, std::size_t row) const {
    return checks_.everyStep(rowOf(table, row, row + 1));
}

bool CodedChecks::isPinList(const TableColumn& column) const {
    return column.kind == ColumnKind::PinLibrary || checks_.isPinList(column.parameter);
}

} // namespace partwright
