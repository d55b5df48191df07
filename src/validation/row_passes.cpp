#include "validation/row_passes.h"

#include "validation/check_texts.h"
#include "validation/db_checks.h"
#include "validation/duplicate_pins.h"
#include "validation/group_cell_checks.h"
#include "validation/list_cells.h"
#include "validation/row_lists.h"

#include <set>

namespace partwright {

namespace {

/// The finding of one cell's rule, with its position.
std::optional<Finding> at(std::size_t position, CellAnswer answer) {
    if (answer.finding)
        answer.finding->position = position;
    return std::move(answer.finding);
}

constexpr std::size_t filterPins[] = {1, 2, 3};
constexpr std::size_t couplingDb = 5;

} // namespace

std::optional<Finding> checkRegulatorOutputs(const AnalysesTable& table, ItemRows rows) {
    constexpr std::size_t output = 3;
    if (table.group != 8)
        return std::nullopt;
    return firstFinding(rows, [&](const ItemRow& row) -> std::optional<Finding> {
        if (!row.isDash(output))
            return std::nullopt;
        return refusal(check_text::ofMethod(table.methodText, check_text::regulatorOutputInRow),
                       output);
    });
}

std::optional<Finding> checkAmplifierInputs(const AnalysesTable& table, ItemRows rows) {
    constexpr std::size_t input = 1;
    if (table.group != 5)
        return std::nullopt;
    return firstFinding(rows, [](const ItemRow& row) -> std::optional<Finding> {
        if (row.row().typePosition != 1 || isOneInput(row.text(input)))
            return std::nullopt;
        return refusal(check_text::oneAmplifierInput, input);
    });
}

std::optional<Finding> checkOscillatorOutputs(const AnalysesTable& table, ItemRows rows) {
    constexpr std::size_t output = 3;
    if (table.group != 25)
        return std::nullopt;
    return firstFinding(rows, [](const ItemRow& row) -> std::optional<Finding> {
        if (row.row().typePosition != 3 || isOutputPair(row.text(output)))
            return std::nullopt;
        return refusal(check_text::outputPair(row.type()), output);
    });
}

std::optional<Finding> CheckFrequencies(const AnalysesTable& table, ItemRows rows) {
    return firstFinding(rows, [&](const ItemRow& row) -> std::optional<Finding> {
        if (!row.row().isFull)
            return std::nullopt;
        const std::size_t position = frequencyPosition(table, row.row());
        return at(position, CheckFrequencyCell(table, row.row(), position, row.text(position)));
    });
}

std::optional<Finding> CheckDbOfCoupling(const AnalysesTable& table, ItemRows rows) {
    if (table.group != 38)
        return std::nullopt;
    return firstFinding(rows, [&](const ItemRow& row) -> std::optional<Finding> {
        const std::wstring fault =
            row.row().isFull ? couplingFault(row, table.decimalMark) : std::wstring();
        if (fault.empty())
            return std::nullopt;
        constexpr std::size_t column = couplingDb + shownTypeColumn;
        return refusal(check_text::atCell(fault, row.row().number, column), couplingDb);
    });
}

std::optional<Finding> CheckFilterRows(const AnalysesTable& table, ItemRows rows) {
    if (table.group != 26)
        return std::nullopt;
    return firstFinding(rows, [&](const ItemRow& row) -> std::optional<Finding> {
        if (row.row().isHidden)
            return std::nullopt;
        std::set<std::size_t> counts;
        for (const std::size_t position : filterPins) {
            if (row.isHidden(position))
                continue;
            if (auto found =
                    at(position, CheckGroupCell(table, row.row(), position, row.text(position))))
                return found;
            counts.insert(row.items(position).size());
        }
        if (row.type() == L"Feed.Th.Cap" && counts.size() > 1)
            return refusal(check_text::feedThroughCounts);
        return std::nullopt;
    });
}

std::optional<Finding> CheckAllListCells(const AnalysesTable& table, ItemRows rows) {
    if (!hasListColumns(table.group))
        return std::nullopt;
    return firstFinding(rows, [&](const ItemRow& row) -> std::optional<Finding> {
        for (std::size_t position = 1; position <= maximumAnalysesColumns; ++position) {
            if (row.isEmpty(position))
                continue;
            if (auto found = at(position, CheckListCell(table.group, row.type(), position,
                                                        row.text(position), table.decimalMark)))
                return found;
        }
        return std::nullopt;
    });
}

std::span<const OkPass> okPasses() {
    static constexpr OkPass passes[] = {
        {L"regulator output", checkRegulatorOutputs},
        {L"row lists", CheckRowLists},
        {L"duplicate pins", CheckDuplicatePins},
        {L"amplifier input", checkAmplifierInputs},
        {L"oscillator output", checkOscillatorOutputs},
        {L"relay pins", checkRelayPins},
        {L"frequencies", CheckFrequencies},
        {L"dB of coupling", CheckDbOfCoupling},
        {L"filter rows", CheckFilterRows},
        {L"list cells", CheckAllListCells},
    };
    return passes;
}

} // namespace partwright
