#include "validation/row_passes.h"

#include "validation/check_texts.h"
#include "validation/db_checks.h"
#include "validation/duplicate_pins.h"
#include "validation/group_cell_checks.h"
#include "validation/list_cells.h"
#include "validation/row_lists.h"

namespace partwright {

namespace {

/// The first row for which `fault` has boxes.
template <class Fault>
PassResult firstFault(SplitRows rows, Fault fault) {
    for (std::size_t i = 0; i < rows.size(); ++i)
        if (CellBoxes boxes = fault(rows[i]); !boxes.empty())
            return CheckFinding{{i}, 0, std::move(boxes)};
    return std::nullopt;
}

CellBoxes boxesOf(const CellAnswer& answer) {
    return answer.value_or(CellBoxes{});
}

constexpr std::size_t filterPins[] = {1, 2, 3};

} // namespace

PassResult checkRegulatorOutputs(const AnalysesTable& table, SplitRows rows) {
    if (table.group != 8)
        return std::nullopt;
    return firstFault(rows, [&](const SplitRow& row) {
        return row.isDash(3) ? CellBoxes{check_text::ofMethod(table.methodText,
                                                              check_text::regulatorOutputInRow)}
                             : CellBoxes{};
    });
}

PassResult checkAmplifierInputs(const AnalysesTable& table, SplitRows rows) {
    if (table.group != 5)
        return std::nullopt;
    PassResult result = firstFault(rows, [](const SplitRow& row) {
        return row.row().typePosition == 1 && !isOneInput(row.text(1))
                   ? CellBoxes{std::wstring(check_text::oneAmplifierInput)}
                   : CellBoxes{};
    });
    if (result)
        result->position = 1;
    return result;
}

PassResult checkOscillatorOutputs(const AnalysesTable& table, SplitRows rows) {
    if (table.group != 25)
        return std::nullopt;
    return firstFault(rows, [](const SplitRow& row) {
        return row.row().typePosition == 3 && !isOutputPair(row.text(3))
                   ? CellBoxes{check_text::outputPair(row.type())}
                   : CellBoxes{};
    });
}

PassResult CheckFrequencies(const AnalysesTable& table, SplitRows rows) {
    return firstFault(rows, [&](const SplitRow& row) {
        if (!row.row().isFull)
            return CellBoxes{};
        const std::size_t position = frequencyPosition(table, row.row());
        return boxesOf(CheckFrequencyCell(table, row.row(), position, row.text(position)));
    });
}

PassResult CheckDbOfCoupling(const AnalysesTable& table, SplitRows rows) {
    if (table.group != 38)
        return std::nullopt;
    return firstFault(rows, [&](const SplitRow& row) {
        const std::wstring fault =
            row.row().isFull ? couplingFault(row, table.decimalMark) : std::wstring();
        return fault.empty()
                   ? CellBoxes{}
                   : CellBoxes{check_text::atCell(fault, row.row().number, 5 + shownTypeColumn)};
    });
}

PassResult CheckFilterRows(const AnalysesTable& table, SplitRows rows) {
    if (table.group != 26)
        return std::nullopt;
    return firstFault(rows, [&](const SplitRow& row) {
        if (row.row().isHidden)
            return CellBoxes{};
        for (const std::size_t position : filterPins) {
            CellBoxes boxes =
                boxesOf(CheckGroupCell(table, row.row(), position, row.text(position)));
            if (!boxes.empty())
                return boxes;
        }
        const std::size_t count = row.items(1).size();
        if (row.type() == L"Feed.Th.Cap" &&
            (row.items(2).size() != count || row.items(3).size() != count))
            return CellBoxes{std::wstring(check_text::feedThroughCounts)};
        return CellBoxes{};
    });
}

PassResult CheckAllListCells(const AnalysesTable& table, SplitRows rows) {
    if (!hasListColumns(table.group))
        return std::nullopt;
    return firstFault(rows, [&](const SplitRow& row) {
        for (std::size_t position = 1; position <= maximumAnalysesColumns; ++position) {
            if (row.isEmpty(position))
                continue;
            ListAnswer answer = CheckListCell(table.group, row.type(), position, row.text(position),
                                              table.decimalMark);
            if (answer.isList && !answer.isValid())
                return CellBoxes{std::move(answer.message)};
        }
        return CellBoxes{};
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
