#include "validation/duplicate_pins.h"

#include "validation/check_texts.h"
#include "validation/group_cell_checks.h"
#include "validation/list_cells.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <vector>

namespace partwright {

namespace {

using Pins = std::vector<std::wstring_view>;

struct PinColumns {
    std::int32_t group;
    ColumnSet columns;
    /// A type whose pins are not entered here.
    std::wstring_view skippedType = {};
};

constexpr PinColumns pinColumns[] = {
    {4, columnSet(4, 5, 11, 12)},
    {5, columnSet(1, 2, 3)},
    {6, columnSet(5, 6, 7, 8, 9)},
    {7, columnSet(1, 2, 6, 7)},
    {8, columnSet(2, 3, 4, 7, 8)},
    {9, columnSet(3, 4, 6, 7, 10, 12), L"IC.PinLibrary"},
    {36, 0},
    {38, columnSet(1, 2, 3)},
};

void append(Pins& pins, ListItems items) {
    std::copy_if(items.begin(), items.end(), std::back_inserter(pins),
                 [](std::wstring_view pin) { return !pin.empty(); });
}

bool holdsAny(const Pins& sorted, const Pins& pins) {
    return std::any_of(pins.begin(), pins.end(), [&](std::wstring_view pin) {
        return std::binary_search(sorted.begin(), sorted.end(), pin);
    });
}

bool repeatsPin(const ItemRow& row, ColumnSet columns) {
    Pins pins;
    for (std::size_t position = 1; position <= maximumAnalysesColumns; ++position)
        if (holds(columns, position))
            append(pins, row.items(position));
    return holdsDuplicate(std::move(pins));
}

// --- Supply pins of circuits, found by their headers

constexpr std::wstring_view supplyFields[] = {L"PinVspl+", L"PinGnd", L"PinVspl-"};

std::size_t positionOf(const AnalysesTable& table, std::wstring_view header) {
    const auto found = std::find(table.headers.begin(), table.headers.end(), header);
    return found == table.headers.end() ? 0
                                        : static_cast<std::size_t>(found - table.headers.begin());
}

struct SupplyColumns {
    std::array<std::size_t, 3> supplies;
    std::array<std::size_t, 2> signals;
};

SupplyColumns supplyColumns(const AnalysesTable& table) {
    SupplyColumns columns{};
    for (std::size_t i = 0; i < columns.supplies.size(); ++i)
        columns.supplies[i] = positionOf(table, supplyFields[i]);
    // The positive supply may be headed as the only one.
    if (columns.supplies[0] == 0)
        columns.supplies[0] = positionOf(table, L"PinVspl");
    columns.signals = {positionOf(table, L"PinIn"), positionOf(table, L"PinOut")};
    return columns;
}

std::wstring supplyFault(const SupplyColumns& columns, const ItemRow& row) {
    Pins all;
    for (std::size_t i = 0; i < columns.supplies.size(); ++i) {
        Pins pins;
        append(pins, row.items(columns.supplies[i]));
        all.insert(all.end(), pins.begin(), pins.end());
        if (holdsDuplicate(std::move(pins)))
            return check_text::supplyDuplicate(supplyFields[i]);
    }
    if (holdsDuplicate(all))
        return std::wstring(check_text::supplyShared);
    std::sort(all.begin(), all.end());
    for (const std::size_t position : columns.signals) {
        Pins pins;
        append(pins, row.items(position));
        if (holdsAny(all, pins))
            return std::wstring(check_text::supplyAsSignal);
    }
    return {};
}

constexpr std::size_t supplyOutput = 11;

/// Group 4: with several supply pins the way out of each is known.
bool lacksSupplyOutput(const ItemRow& row) {
    return row.items(4).size() > 1 && row.isDash(supplyOutput);
}

Finding inRows(std::vector<std::size_t> rows, std::wstring_view message, std::size_t position = 0) {
    Finding finding = refusal(message, position);
    finding.rows = std::move(rows);
    return finding;
}

/// The rules of supply pins that a group has, for one row.
std::optional<Finding> supplyRuleFault(const AnalysesTable& table, const SupplyColumns& supplies,
                                       const ItemRow& row) {
    if (table.group == 9 || table.group == 36)
        if (const std::wstring fault = supplyFault(supplies, row); !fault.empty())
            return inRows({row.row().index}, check_text::inRow(row.row().number, fault));
    if (table.group == 4 && lacksSupplyOutput(row))
        return inRows({row.row().index}, check_text::supplyOutput, supplyOutput);
    return std::nullopt;
}

std::optional<Finding> allOf(std::vector<std::size_t> rows, std::wstring_view message) {
    return rows.empty() ? std::nullopt : std::optional(inRows(std::move(rows), message));
}

} // namespace

std::optional<Finding> CheckDuplicatePins(const AnalysesTable& table, ItemRows rows) {
    const auto* rule = std::find_if(std::begin(pinColumns), std::end(pinColumns),
                                    [&](const PinColumns& p) { return p.group == table.group; });
    if (rule == std::end(pinColumns))
        return std::nullopt;
    const SupplyColumns supplies = supplyColumns(table);
    std::vector<std::size_t> repeating;
    std::optional<Finding> single;
    for (const ItemRow& row : rows) {
        if (!rule->skippedType.empty() && row.type() == rule->skippedType)
            continue;
        // The fault of one row is told unless a row before it repeats a pin.
        if (!single && repeating.empty())
            single = supplyRuleFault(table, supplies, row);
        if (repeatsPin(row, rule->columns))
            repeating.push_back(row.row().index);
    }
    if (single)
        return single;
    return allOf(std::move(repeating), check_text::duplicatePins);
}

std::optional<Finding> checkRelayPins(const AnalysesTable& table, ItemRows rows) {
    if (table.group != 32)
        return std::nullopt;
    std::vector<std::size_t> repeating;
    for (const ItemRow& row : rows) {
        Pins coil;
        append(coil, row.items(3));
        append(coil, row.items(4));
        std::sort(coil.begin(), coil.end());
        Pins contacts;
        append(contacts, row.items(5));
        append(contacts, row.items(6));
        if (holdsDuplicate(coil) || holdsAny(coil, contacts))
            repeating.push_back(row.row().index);
    }
    return allOf(std::move(repeating), check_text::relayPins);
}

} // namespace partwright
