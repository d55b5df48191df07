#include "validation/row_lists.h"

#include "core/cell_text.h"
#include "validation/check_texts.h"
#include "validation/db_checks.h"
#include "validation/list_cells.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <optional>

namespace partwright {

namespace {

using Text = std::wstring_view;

/// Columns of a group that list the same channels. All rows of a group, or of a type, are looked
/// at one after the other.
struct EqualCounts {
    std::int32_t group;
    /// Empty for all types.
    Text type;
    ColumnSet columns;
    /// Columns that "-" leaves out.
    ColumnSet dashLeavesOut;
    /// Columns that list one value more than the others list pins.
    ColumnSet oneMore;
    Text names;
};

constexpr Text icNames = L"'PinIn',  'PinOut',  'Cin',  'Rin',  'Vout-Max'  and  'Rout'";
constexpr Text diodeNames = L"'Pin-A'  and  'Pin-C'";
constexpr Text bipolarNames = L"'Pin-Collec',  'Pin-Emit'  and  'Pin-Base'";
constexpr Text fieldEffectNames = L"'Pin-Drain',  'Pin-Source'  and  'Pin-Gate'";
constexpr Text resistorNames = L"'PinR-1'  and  'PinR-2'";
constexpr Text contactNames = L"'PinCon-n.1'  and  'PinCon-n.2'";
constexpr Text coilNames =
    L"'PinCo-1'  and  'PinCo-2',\nand resistance Rcoil values in the column 'Rcoil'\nand "
    L"inductance L values in column 'L'";
constexpr Text windingNames =
    L"'PinCo-1'  and  'PinCo-2',\nand resistance Rcoil values in the column 'Rcoil'\nand "
    L"transformation ratio N values in column 'N'";

constexpr EqualCounts equalCounts[] = {
    {4, L"", columnSet(1, 4, 6, 10), columnSet(1, 10), 0,
     L"'Icc-Max',  'Pin-Vspl',  'Vspl'  and  'Icc-Min'"},
    {5, L"", columnSet(2, 5), columnSet(5), 0, L"'PinOut'  and dB values in the column 'dB'"},
    {6, L"", columnSet(6, 8, 9), 0, 0, L"'Pin-Out',  'Pin-In(+)'  and  'Pin-In(-)'"},
    {7, L"", columnSet(2, 6, 7), 0, 0, L"'PinIn',  'PinOut1'  and  'PinOut2'"},
    {9, L"", columnSet(7, 8, 9), columnSet(7, 8, 9), 0, icNames},
    {9, L"", columnSet(10, 11, 23), columnSet(23), 0, icNames},
    {11, L"", columnSet(5, 6), 0, 0, diodeNames},
    {12, L"", columnSet(3, 4), 0, 0, diodeNames},
    {13, L"", columnSet(3, 4), 0, 0, diodeNames},
    {14, L"", columnSet(4, 5, 6), 0, 0, bipolarNames},
    {15, L"", columnSet(4, 5, 6), 0, 0, bipolarNames},
    {16, L"", columnSet(4, 5, 6), 0, 0, fieldEffectNames},
    {17, L"", columnSet(4, 5, 6), 0, 0, fieldEffectNames},
    {18, L"", columnSet(3, 4), 0, 0, diodeNames},
    {19, L"", columnSet(3, 4, 7, 8), 0, 0, L"'Pin-A',  'Pin-C',  'Pin-Collec'  and  'Pin-Emit'"},
    {21, L"", columnSet(2, 3), 0, 0, resistorNames},
    {23, L"", columnSet(3, 4), 0, 0, L"'PinC-1'  and  'PinC-2'"},
    {24, L"Coil", columnSet(1, 2, 3, 4), 0, 0, coilNames},
    {24, L"Transformer", columnSet(1, 2, 3, 5), 0, 0, windingNames},
    {24, L"Transformer", columnSet(8, 9, 10, 11), 0, 0, windingNames},
    {24, L"RF.Transformer", columnSet(1, 2, 3, 5, 6), 0, columnSet(6), windingNames},
    {24, L"RF.Transformer", columnSet(8, 9, 10, 11, 12), 0, columnSet(12), windingNames},
    {24, L"Flyback.Transformer", columnSet(1, 2, 3, 5), 0, 0, windingNames},
    {25, L"", columnSet(3, 11), columnSet(11), 0, L"'Pin-Out'  and  'Delay'"},
    {31, L"", columnSet(2, 3), 0, 0, contactNames},
    {32, L"", columnSet(5, 6), 0, 0, contactNames},
    {36, L"", columnSet(7, 8), 0, 0, L"'PinIn'  and  'PinOut'"},
    {39, L"", columnSet(1, 2), 0, 0, resistorNames},
};

/// The first column that lists another number of items than the columns before it; 0 when all
/// agree.
std::size_t unequalColumn(const ItemRow& row, const EqualCounts& rule) {
    std::optional<std::ptrdiff_t> expected;
    for (std::size_t position = 1; position <= maximumAnalysesColumns; ++position) {
        const bool isDash = row.isDash(position);
        if (!holds(rule.columns, position) || !row.takesPart(position) ||
            (isDash && holds(rule.dashLeavesOut, position)))
            continue;
        auto count = static_cast<std::ptrdiff_t>(row.dashes(position));
        if (holds(rule.oneMore, position) && !isDash)
            --count;
        if (expected && *expected != count)
            return position;
        expected = count;
    }
    return 0;
}

std::optional<Finding> countFault(const AnalysesTable& table, const ItemRow& row) {
    for (const EqualCounts& rule : equalCounts) {
        if (rule.group != table.group || (!rule.type.empty() && rule.type != row.type()))
            continue;
        if (const std::size_t position = unequalColumn(row, rule))
            return refusal(check_text::quantityMustBeEqual(rule.names), position);
    }
    return std::nullopt;
}

// --- Rules of single groups

std::optional<Finding> circuitFault(const ItemRow& row) {
    constexpr std::size_t pinOut = 10;
    constexpr std::size_t vout = 11;
    constexpr std::size_t rout = 23;
    if (!row.takesPart(vout))
        return std::nullopt;
    if (row.takesPart(pinOut) && row.isDash(pinOut) && !row.isDash(vout))
        return refusal(check_text::maximumOutputUndefined, vout);
    if (row.takesPart(pinOut) && row.isDash(vout) && !row.isDash(pinOut))
        return refusal(check_text::outputUndefined, pinOut);
    if (row.takesPart(rout) && row.isDash(vout) && !row.isDash(rout))
        return refusal(check_text::outputResistance, rout);
    return std::nullopt;
}

/// A delay is shorter than a period: Fout is in megahertz and delays are in microseconds. Without a
/// frequency there is no period that a delay could be shorter than.
std::optional<Finding> delayFault(const AnalysesTable& table, const ItemRow& row) {
    constexpr std::size_t fout = 4;
    constexpr std::size_t delay = 11;
    constexpr double slack = 1e-12;
    if (!row.takesPart(delay) || row.isHidden(fout))
        return std::nullopt;
    const double frequency = listNumber(row.text(fout), table.decimalMark).value_or(0);
    for (const std::wstring_view item : row.items(delay)) {
        const auto number = listNumber(item, table.decimalMark);
        if (!number || frequency == 0 || !(*number < 1 / frequency + slack))
            return refusal(check_text::delayTooLong(number.value_or(0), table.decimalMark), delay);
    }
    return std::nullopt;
}

std::optional<Finding> diodeFault(const AnalysesTable& table, const ItemRow& row) {
    const std::size_t anode = table.group == 11 ? 5 : 3;
    if (!row.takesPart(anode) || !row.takesPart(anode + 1))
        return std::nullopt;
    const ListItems a = row.items(anode);
    const ListItems c = row.items(anode + 1);
    if (a.size() != 1 || c.size() != 1 || a[0] != c[0])
        return std::nullopt;
    return refusal(check_text::equalPair, anode);
}

std::optional<Finding> groupFault(const AnalysesTable& table, const ItemRow& row) {
    switch (table.group) {
    case 5:
        if (!row.takesPart(2) || !row.takesPart(5))
            return std::nullopt;
        return refusalUnless(dbFault(5, row.type(), row.items(2), row.items(5), table.decimalMark),
                             5);
    case 9:
        return circuitFault(row);
    case 11:
    case 12:
    case 13:
        return diodeFault(table, row);
    case 24:
        return transformerFault(row, table.decimalMark);
    case 25:
        return delayFault(table, row);
    default:
        return std::nullopt;
    }
}

} // namespace

std::optional<Finding> CheckRowLists(const AnalysesTable& table, ItemRows rows) {
    if (std::none_of(std::begin(equalCounts), std::end(equalCounts),
                     [&](const EqualCounts& rule) { return rule.group == table.group; }))
        return std::nullopt;
    return firstFinding(rows, [&](const ItemRow& row) {
        std::optional<Finding> found = countFault(table, row);
        if (!found)
            found = groupFault(table, row);
        if (found)
            found->texts = {check_text::ofMethod(table.methodText, found->texts.front())};
        return found;
    });
}

} // namespace partwright
