#include "validation/row_passes.h"

#include "validation/check_texts.h"
#include "validation/db_checks.h"
#include "validation/duplicate_pins.h"
#include "validation/group_cell_checks.h"
#include "validation/list_cells.h"
#include "validation/row_lists.h"

namespace partwright {

namespace {

/// What one row is refused for, and which cell that is about.
struct RowFault {
    CellBoxes boxes;
    std::size_t position = 0;
};

RowFault faultAt(std::size_t position, std::wstring_view message) {
    return {{std::wstring(message)}, position};
}

/// The first row for which `fault` has boxes.
template <class Fault>
PassResult firstFault(ItemRows rows, Fault fault) {
    for (std::size_t i = 0; i < rows.size(); ++i)
        if (RowFault found = fault(rows[i]); !found.boxes.empty())
            return CheckFinding{{i}, found.position, false, std::move(found.boxes)};
    return std::nullopt;
}

CellBoxes boxesOf(const CellAnswer& answer) {
    return answer.value_or(CellBoxes{});
}

constexpr std::size_t filterPins[] = {1, 2, 3};
constexpr std::size_t couplingDb = 5;

} // namespace

PassResult checkRegulatorOutputs(const AnalysesTable& table, ItemRows rows) {
    constexpr std::size_t output = 3;
    if (table.group != 8)
        return std::nullopt;
    return firstFault(rows, [&](const ItemRow& row) {
        return row.isDash(output)
                   ? faultAt(output, check_text::ofMethod(table.methodText,
                                                          check_text::regulatorOutputInRow))
                   : RowFault{};
    });
}

PassResult checkAmplifierInputs(const AnalysesTable& table, ItemRows rows) {
    constexpr std::size_t input = 1;
    if (table.group != 5)
        return std::nullopt;
    PassResult result = firstFault(rows, [](const ItemRow& row) {
        return row.row().typePosition == 1 && !isOneInput(row.text(input))
                   ? faultAt(input, check_text::oneAmplifierInput)
                   : RowFault{};
    });
    if (result)
        result->goesToCell = true;
    return result;
}

PassResult checkOscillatorOutputs(const AnalysesTable& table, ItemRows rows) {
    constexpr std::size_t output = 3;
    if (table.group != 25)
        return std::nullopt;
    return firstFault(rows, [](const ItemRow& row) {
        return row.row().typePosition == 3 && !isOutputPair(row.text(output))
                   ? faultAt(output, check_text::outputPair(row.type()))
                   : RowFault{};
    });
}

PassResult CheckFrequencies(const AnalysesTable& table, ItemRows rows) {
    return firstFault(rows, [&](const ItemRow& row) {
        if (!row.row().isFull)
            return RowFault{};
        const std::size_t position = frequencyPosition(table, row.row());
        return RowFault{boxesOf(CheckFrequencyCell(table, row.row(), position, row.text(position))),
                        position};
    });
}

PassResult CheckDbOfCoupling(const AnalysesTable& table, ItemRows rows) {
    if (table.group != 38)
        return std::nullopt;
    return firstFault(rows, [&](const ItemRow& row) {
        const std::wstring fault =
            row.row().isFull ? couplingFault(row, table.decimalMark) : std::wstring();
        return fault.empty()
                   ? RowFault{}
                   : faultAt(couplingDb, check_text::atCell(fault, row.row().number,
                                                            couplingDb + shownTypeColumn));
    });
}

PassResult CheckFilterRows(const AnalysesTable& table, ItemRows rows) {
    if (table.group != 26)
        return std::nullopt;
    return firstFault(rows, [&](const ItemRow& row) {
        if (row.row().isHidden)
            return RowFault{};
        for (const std::size_t position : filterPins) {
            CellBoxes boxes =
                boxesOf(CheckGroupCell(table, row.row(), position, row.text(position)));
            if (!boxes.empty())
                return RowFault{std::move(boxes), position};
        }
        const std::size_t count = row.items(1).size();
        if (row.type() == L"Feed.Th.Cap" &&
            (row.items(2).size() != count || row.items(3).size() != count))
            return faultAt(0, check_text::feedThroughCounts);
        return RowFault{};
    });
}

PassResult CheckAllListCells(const AnalysesTable& table, ItemRows rows) {
    if (!hasListColumns(table.group))
        return std::nullopt;
    return firstFault(rows, [&](const ItemRow& row) {
        for (std::size_t position = 1; position <= maximumAnalysesColumns; ++position) {
            if (row.isEmpty(position))
                continue;
            const ListAnswer answer = CheckListCell(table.group, row.type(), position,
                                                    row.text(position), table.decimalMark);
            if (answer.isList && !answer.isValid())
                return faultAt(position, answer.message);
        }
        return RowFault{};
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
