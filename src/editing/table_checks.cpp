#include "editing/table_checks.h"

#include "core/decimal_mark.h"
#include "core/messages.h"
#include "core/number.h"
#include "core/text.h"

#include <limits>

namespace partwright {

namespace {

constexpr std::wstring_view powerHeader = L"Pw-RT";
constexpr std::wstring_view powerLimitText = L"0.5";
constexpr double powerLimit = 0.5;
/// Places in the type list of chip resistors below and from the limit on.
constexpr std::size_t typeBelowLimit = 27;
constexpr std::size_t typeFromLimit = 28;

/// The value of the first parameter against the type's limit.
std::optional<TableStop> checkPower(const ComponentTable& table, std::size_t row,
                                    std::wstring_view type, std::wstring_view value) {
    const TableSetup& setup = table.setup();
    if (setup.group != setup.kind->powerGroup)
        return std::nullopt;
    const std::size_t position = setup.typeChoices.position(type);
    value = trim(value);
    if (value.empty() || (position != typeBelowLimit && position != typeFromLimit))
        return std::nullopt;
    // A number with a unit behind it is still judged by its number.
    const auto whole = readCheckedNumber(value, setup.decimalMark);
    const double missing =
        powerLimit - (whole ? *whole : readNumber(value, setup.decimalMark).value);
    constexpr double epsilon = std::numeric_limits<double>::epsilon();
    TableStop stop;
    stop.rows = {row};
    stop.column = typeColumn + 1;
    if (position == typeBelowLimit && missing < epsilon)
        stop.boxes.push_back({message::powerShouldBeBelow(powerLimitText)});
    else if (position == typeFromLimit && missing > epsilon)
        stop.boxes.push_back({message::powerShouldBeAtLeast(powerLimitText)});
    else
        return std::nullopt;
    return stop;
}

std::optional<TableStop> checkRowPower(const ComponentTable& table, std::size_t row,
                                       std::wstring_view type) {
    if (table.setup().lastParameter == typeColumn)
        return std::nullopt;
    return checkPower(table, row, type, table.text(row, typeColumn + 1));
}

/// The message names the resistance that the row's reference temperature asks for.
std::wstring thermalLine(std::int32_t messageId, std::wstring_view at) {
    return replaceAll(thermalMessage(messageId), L"Ojac", at == L"C" ? L"Ojc" : L"Oja");
}

std::wstring_view referenceOf(const ComponentTable& table, std::size_t row) {
    const TableSetup& setup = table.setup();
    for (std::size_t column = typeColumn + 1; column <= setup.lastParameter; ++column)
        if (setup.columns[column].choices == ColumnChoices::At)
            return table.text(row, column);
    return {};
}

} // namespace

CommitVerdict TableChecks::atCommit(const ComponentTable&, CellAt, std::wstring_view,
                                    std::size_t) const {
    return {};
}

std::optional<TableStop> TableChecks::atCopy(const ComponentTable&,
                                             std::span<const std::size_t>) const {
    return std::nullopt;
}

std::optional<TableStop> TableChecks::atOkRow(const ComponentTable&, std::size_t) const {
    return std::nullopt;
}

std::optional<TableStop> TableChecks::atOkTable(const ComponentTable&,
                                                std::span<const std::size_t>) const {
    return std::nullopt;
}

std::vector<StepStop> TableChecks::everyStep(const ComponentTable&, std::size_t) const {
    return {};
}

bool TableChecks::isPinList(const TableColumn&) const {
    return false;
}

CommitVerdict StressChecks::atCommit(const ComponentTable& table, CellAt at, std::wstring_view text,
                                     std::size_t) const {
    std::optional<TableStop> stop;
    if (at.column == typeColumn)
        stop = checkRowPower(table, at.row, text);
    else if (table.setup().columns[at.column].header == powerHeader)
        stop = checkPower(table, at.row, table.type(at.row), text);
    if (!stop)
        return {};
    return {CommitDecision::Refused, std::nullopt, std::move(*stop)};
}

std::optional<TableStop> StressChecks::atOkRow(const ComponentTable& table, std::size_t row) const {
    const TableSetup& setup = table.setup();
    const auto rules = tables_.thermal.find(setup.group);
    if (rules == tables_.thermal.end() || !table.isComplete(row))
        return std::nullopt;
    const std::span<const std::wstring> values(table.row(row).cells.data() + typeColumn,
                                               setup.lastParameter - typeColumn + 1);
    for (const auto& [order, rule] : rules->second) {
        const CheckResult result =
            CheckThermalRule(values, rule.validationId, rule.name, setup.decimalMark);
        if (result == CheckResult::Passed)
            continue;
        TableStop stop;
        stop.rows = {row};
        stop.line = thermalLine(rule.messageId, referenceOf(table, row));
        if (result == CheckResult::UnknownCheck)
            stop.boxes.push_back(
                {message::foundThermalCheckId(rule.validationId), PromptIcon::None, true});
        return stop;
    }
    return std::nullopt;
}

std::optional<TableStop> StressChecks::atOkTable(const ComponentTable& table,
                                                 std::span<const std::size_t> order) const {
    if (table.setup().group != table.setup().kind->powerGroup)
        return std::nullopt;
    for (const std::size_t row : order)
        if (auto stop = checkRowPower(table, row, table.type(row)))
            return stop;
    return std::nullopt;
}

std::vector<StepStop> StressChecks::everyStep(const ComponentTable& table, std::size_t row) const {
    std::vector<StepStop> stops;
    if (auto stop = atOkRow(table, row))
        stops.push_back({L"thermal values", std::move(*stop)});
    if (auto stop = checkRowPower(table, row, table.type(row)))
        stops.push_back({L"power limit", std::move(*stop)});
    return stops;
}

std::unique_ptr<TableChecks> makeTableChecks(const TableSetup& setup,
                                             const ValidationTables& tables) {
    if (setup.kind->hasStressChecks)
        return std::make_unique<StressChecks>(tables);
    if (setup.kind->hasCodedChecks)
        return std::make_unique<CodedChecks>(setup);
    return std::make_unique<TableChecks>();
}

} // namespace partwright
