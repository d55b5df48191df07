#include "validation/group_cell_checks.h"

#include "core/cell_text.h"
#include "core/decimal_mark.h"
#include "validation/analyses_options.h"
#include "validation/check_texts.h"
#include "validation/list_cells.h"

#include <algorithm>
#include <limits>

namespace partwright {

namespace {

constexpr double smallest = 1e-12;
constexpr std::size_t anyType = 0;

/// The answer of a rule with a message, empty when the text is fine.
CellAnswer judged(std::wstring_view message) {
    return {true, refusalUnless(message)};
}

/// The numbers of a list of values, none when anything in it is wrong.
std::optional<std::vector<double>> readValues(std::wstring_view text, wchar_t mark) {
    if (!valueFault(text, false, mark).empty() || !isInOrder(text))
        return std::nullopt;
    std::vector<double> values;
    for (const std::wstring_view item : listItems(text, false)) {
        const auto number = listNumber(item, mark);
        if (!number)
            return std::nullopt;
        values.push_back(*number);
    }
    return values;
}

bool isAscending(const std::vector<double>& values) {
    return std::adjacent_find(values.begin(), values.end(),
                              [](double a, double b) { return !(a < b); }) == values.end();
}

// --- Frequencies

struct FrequencyColumn {
    std::int32_t group;
    std::size_t typePosition;
    std::size_t position;
};
constexpr FrequencyColumn frequencyColumns[] = {{38, anyType, 6}, {26, 3, 8}, {30, 2, 4}};

constexpr std::int32_t filterGroup = 26;
constexpr std::size_t filterType = 3;
constexpr std::size_t subTypePosition = 7;
/// Band filters stand behind low and high pass in the list of sub types.
constexpr std::size_t firstBandFilter = 3;

std::wstring_view filterFrequencyFault(const std::vector<double>& values, bool isBand) {
    if (values.empty() || values.front() <= smallest)
        return check_text::firstFrequency;
    if (!isBand)
        return values.size() == 1 ? std::wstring_view() : check_text::oneFrequency;
    if (values.size() < 2)
        return check_text::twoFrequencies;
    return isAscending(values) ? std::wstring_view() : check_text::ascendingFrequencies;
}

std::vector<std::wstring_view> frequencyFaults(const AnalysesTable& table, const AnalysesRow& row,
                                               std::wstring_view text) {
    const bool isFilter = table.group == filterGroup;
    if (text == cell::notApplicable || (text == cell::shownNoValue && !isFilter))
        return {};
    const auto values = readValues(text, table.decimalMark);
    if (!values)
        return {check_text::wrongFormat};
    std::vector<std::wstring_view> faults;
    if (!isFilter) {
        if (values->empty() || values->size() > 2 || !isAscending(*values))
            faults.push_back(check_text::oneOrTwoFrequencies);
        return faults;
    }
    const std::size_t subType =
        optionPlace(filterGroup, subTypePosition, row.text(subTypePosition));
    const auto fault = filterFrequencyFault(*values, subType >= firstBandFilter);
    if (!fault.empty())
        faults.push_back(fault);
    if (values->size() == 2 && !isAscending(*values))
        faults.push_back(check_text::secondFrequency);
    return faults;
}

// --- Groups

std::wstring connectorFault(std::wstring_view text, wchar_t mark) {
    if (text == cell::shownNoValue)
        return {};
    const auto values = readValues(text, mark);
    constexpr double epsilon = std::numeric_limits<double>::epsilon();
    if (values &&
        (values->size() == 1 || (values->size() == 2 && (*values)[1] - (*values)[0] > epsilon)))
        return {};
    return std::wstring(check_text::connectorFrequencies);
}

/// How many pins a type of the splitter family has at its input or output.
struct SplitterPins {
    std::size_t typePosition;
    std::size_t position;
    std::size_t fewest;
    std::size_t most;
    std::wstring_view request;
};
constexpr std::size_t anyNumber = std::numeric_limits<std::size_t>::max();
constexpr SplitterPins splitterPins[] = {
    {1, 1, 1, 1, check_text::oneInput},
    {1, 2, 2, anyNumber, check_text::outputsFromTwo},
    {2, 1, 1, 1, check_text::oneInput},
    {2, 2, 3, 3, check_text::threeOutputs},
    {3, 1, 2, anyNumber, check_text::inputsFromTwo},
    {3, 2, 1, 1, check_text::oneOutput},
    {4, 1, 2, 2, check_text::twoInputs},
    {4, 2, 1, 1, check_text::oneOutput},
};

std::wstring splitterFault(const AnalysesRow& row, std::size_t position, std::wstring_view text) {
    if (!isInOrder(text))
        return std::wstring(check_text::pinOrder);
    const auto items = listItems(text, true);
    if (holdsDuplicate(items))
        return std::wstring(check_text::duplicateNames);
    if (position == 3)
        return std::wstring(items.empty() ? check_text::onePinGround : std::wstring_view());
    for (const SplitterPins& pins : splitterPins)
        if (pins.typePosition == row.typePosition && pins.position == position &&
            (items.size() < pins.fewest || items.size() > pins.most))
            return check_text::splitterPins(row.type(), pins.request);
    return {};
}

std::wstring filterFault(std::size_t position, std::wstring_view text) {
    if (position != 3) {
        if (text.empty())
            return check_text::filterPins(position == 1 ? check_text::filterInput
                                                        : check_text::filterOutput);
        return text.find(L'-') == std::wstring_view::npos
                   ? std::wstring()
                   : check_text::filterPins(check_text::filterWithoutDash);
    }
    if (text.empty())
        return check_text::filterPins(check_text::filterGround);
    auto items = listItems(text, true);
    if (items.empty() || !isInOrder(text))
        return check_text::filterPins(check_text::filterGroundItems);
    return std::wstring(holdsDuplicate(std::move(items)) ? check_text::duplicateNames
                                                         : std::wstring_view());
}

bool isPinCellOfThree(std::size_t position) {
    return position >= 1 && position <= 3;
}

} // namespace

CellAnswer CheckGroupCell(const AnalysesTable& table, const AnalysesRow& row, std::size_t position,
                          std::wstring_view text) {
    const std::size_t type = row.typePosition;
    if (table.group == filterGroup && type == filterType && isPinCellOfThree(position))
        return judged(filterFault(position, text));
    if (text.empty())
        return {};
    if (table.group == 5 && position == 1)
        return judged(isOneInput(text) ? std::wstring_view() : check_text::oneAmplifierInput);
    if (table.group == 25 && type == 3 && position == 3)
        return judged(isOutputPair(text) ? std::wstring() : check_text::outputPair(row.type()));
    if (table.group == 30 && type == 2 && position == 4)
        return judged(connectorFault(text, table.decimalMark));
    if (table.group == 38 && isPinCellOfThree(position))
        return judged(splitterFault(row, position, text));
    return {};
}

std::size_t frequencyPosition(const AnalysesTable& table, const AnalysesRow& row) {
    for (const FrequencyColumn& column : frequencyColumns)
        if (column.group == table.group &&
            (column.typePosition == anyType || column.typePosition == row.typePosition))
            return column.position;
    return 0;
}

CellAnswer CheckFrequencyCell(const AnalysesTable& table, const AnalysesRow& row,
                              std::size_t position, std::wstring_view text) {
    if (position == 0 || position != frequencyPosition(table, row) || text.empty())
        return {};
    Finding found;
    for (const std::wstring_view fault : frequencyFaults(table, row, text))
        found.texts.push_back(check_text::atCell(fault, row.number, position + shownTypeColumn));
    return {true, found.texts.empty() ? std::nullopt : std::optional(std::move(found))};
}

std::wstring amplifierOutputFault(const AnalysesTable& table, const AnalysesRow& row,
                                  std::size_t position, std::wstring_view text) {
    if (table.group != 6 || (position != 3 && position != 4))
        return {};
    const std::wstring_view other = row.text(position == 3 ? 4 : 3);
    // Which of the two is the output is told by the headers.
    const bool isOutputFirst = table.header(4).find(L"Vout") == std::wstring_view::npos;
    const bool isOutput = (position == 3) == isOutputFirst;
    const auto output = readCheckedNumber(isOutput ? text : other, table.decimalMark);
    const auto supply = readCheckedNumber(isOutput ? other : text, table.decimalMark);
    if (!output || !supply || *output <= *supply + smallest)
        return {};
    return std::wstring(check_text::outputAboveSupply);
}

bool isOneInput(std::wstring_view text) {
    return text.find(L'-', 1) == std::wstring_view::npos;
}

bool isOutputPair(std::wstring_view text) {
    if (text.find(L'-') == std::wstring_view::npos)
        return true;
    const auto items = listItems(text, true);
    return items.size() == 2 && !items[0].empty() && !items[1].empty() && items[0] != items[1];
}

bool holdsDuplicate(std::vector<std::wstring_view> items) {
    std::sort(items.begin(), items.end());
    return std::adjacent_find(items.begin(), items.end()) != items.end();
}

} // namespace partwright
