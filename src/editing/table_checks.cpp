#include "editing/table_checks.h"

#include "core/decimal_mark.h"
#include "core/messages.h"
#include "core/number.h"
#include "core/text.h"

#include <limits>

namespace partwright {

namespace {

constexpr std::wstring_view powerHeader = L"Pw-RT";
constexpr std::size_t powerPosition = 1;
constexpr std::wstring_view powerLimitText = L"0.5";
constexpr double powerLimit = 0.5;
/// Places in the type list of chip resistors below and from the limit on.
constexpr std::size_t typeBelowLimit = 27;
constexpr std::size_t typeFromLimit = 28;

/// The value of the first parameter against the type's limit.
std::optional<Finding> checkPower(const ComponentTable& table, std::size_t row,
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
    std::wstring fault;
    if (position == typeBelowLimit && missing < epsilon)
        fault = message::powerShouldBeBelow(powerLimitText);
    else if (position == typeFromLimit && missing > epsilon)
        fault = message::powerShouldBeAtLeast(powerLimitText);
    auto found = refusalUnless(fault, powerPosition);
    if (found)
        found->rows = {row};
    return found;
}

std::optional<Finding> checkRowPower(const ComponentTable& table, std::size_t row,
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

CommitAnswer TableChecks::atCommit(const ComponentTable&, CellAt, std::wstring_view,
                                   std::size_t) const {
    return {};
}

std::optional<Finding> TableChecks::atCopy(const ComponentTable&,
                                           std::span<const std::size_t>) const {
    return std::nullopt;
}

std::optional<Finding> TableChecks::atOkRow(const ComponentTable&, std::size_t) const {
    return std::nullopt;
}

std::optional<Finding> TableChecks::atOkTable(const ComponentTable&,
                                              std::span<const std::size_t>) const {
    return std::nullopt;
}

std::vector<Finding> TableChecks::everyStep(const ComponentTable&, std::size_t) const {
    return {};
}

bool TableChecks::isPinList(const TableColumn&) const {
    return false;
}

CommitAnswer StressChecks::atCommit(const ComponentTable& table, CellAt at, std::wstring_view text,
                                    std::size_t) const {
    std::optional<Finding> found;
    if (at.column == typeColumn)
        found = checkRowPower(table, at.row, text);
    else if (table.setup().columns[at.column].header == powerHeader)
        found = checkPower(table, at.row, table.type(at.row), text);
    if (!found)
        return {};
    return {CommitDecision::Refused, std::nullopt, std::move(*found)};
}

std::optional<Finding> StressChecks::atOkRow(const ComponentTable& table, std::size_t row) const {
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
        Finding found{.rows = {row}, .line = thermalLine(rule.messageId, referenceOf(table, row))};
        if (result == CheckResult::UnknownCheck)
            found.tableFault = message::foundThermalCheckId(rule.validationId);
        return found;
    }
    return std::nullopt;
}

std::optional<Finding> StressChecks::atOkTable(const ComponentTable& table,
                                               std::span<const std::size_t> order) const {
    if (table.setup().group != table.setup().kind->powerGroup)
        return std::nullopt;
    for (const std::size_t row : order)
        if (auto found = checkRowPower(table, row, table.type(row)))
            return found;
    return std::nullopt;
}

std::vector<Finding> StressChecks::everyStep(const ComponentTable& table, std::size_t row) const {
    std::vector<Finding> findings;
    const auto add = [&](std::wstring_view rule, std::optional<Finding> found) {
        if (!found)
            return;
        found->rule = rule;
        findings.push_back(std::move(*found));
    };
    add(L"thermal values", atOkRow(table, row));
    add(L"power limit", checkRowPower(table, row, table.type(row)));
    return findings;
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
