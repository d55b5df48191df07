#include "validation/check_texts.h"

#include "core/number.h"

#include <initializer_list>

namespace partwright::check_text {

namespace {

std::wstring join(std::initializer_list<Text> pieces) {
    std::wstring text;
    for (const Text piece : pieces)
        text += piece;
    return text;
}

Text asText(const wchar_t& character) {
    return {&character, 1};
}

constexpr Text sumCondition = L"condition 'SUM{10^(-dBi / 10)} <= 1' is not fulfilled.";

} // namespace

std::wstring illegalCharacter(wchar_t character) {
    return join({L"Character '", asText(character),
                 L"' is illegal. Use only dash for separation and point for values!\nCase "
                 L"insensitive designations 'm' or 'k' are also acceptable for resistance value."});
}

std::wstring illegalSeparator(wchar_t character) {
    return join(
        {L"Separator '", asText(character), L"'  is illegal. Enter dash separated numbers only."});
}

std::wstring outputPair(Text type) {
    return join({L"For type \"", type,
                 L"\" output pins entry should be made in the format X - Y\nwhere X and Y have "
                 L"unique values."});
}

std::wstring splitterPins(Text type, Text pins) {
    return join({L"For the type '", type, L"' you should enter ", pins});
}

std::wstring filterPins(Text request) {
    return join({L"For the type \"RF.Filter\" ", request});
}

std::wstring atCell(Text message, std::size_t row, std::size_t column) {
    return join({message, L"\n(Row = ", std::to_wstring(row), L", Column = ",
                 std::to_wstring(column), L")"});
}

std::wstring dbBelow(double bound, wchar_t mark) {
    return join({L"One of DB values is less than ", formatGeneral(bound, mark), L"!"});
}

std::wstring singleDbBelow(double bound, wchar_t mark) {
    return join({L"value should not be less than ", formatGeneral(bound, mark)});
}

std::wstring thirdDb(double third, double each, wchar_t mark) {
    return join({L"Third DB value should be more than ", formatGeneral(third, mark),
                 L"\nor second and third DB values each should be more than ",
                 formatGeneral(each, mark), L"!"});
}

std::wstring secondAndThirdDb(double each, wchar_t mark) {
    return join({L"Second and third DB values should be more than ", formatGeneral(each, mark)});
}

std::wstring ofMethod(Text method, Text message) {
    return join({L"Method ", method, L"\n", message});
}

std::wstring quantityMustBeEqual(Text columns) {
    return join({L"The quantity of Pin numbers in the columns  ", columns,
                 L"\n in the selected row must be equal!"});
}

std::wstring delayTooLong(double delay, wchar_t mark) {
    return join({L"Delay value ", formatGeneral(delay, mark),
                 L" in the selected row\ndoes not correspond to condition \"Delay < 1 / Fout\""});
}

std::wstring repeatedPins(Text first, Text second) {
    return join({L"Pin duplication error in the selected row: '", first, L"' and '", second, L"'"});
}

std::wstring sectionDbQuantity(std::size_t section, Text type) {
    return join({L"dB parameters quantity for Section #", std::to_wstring(section), L" of ", type,
                 L"\ndoes not correspond to Pin-Out quantity\nin the selected row."});
}

std::wstring sectionDbSum(std::size_t section) {
    return join({L"one/some of IS-S", std::to_wstring(section),
                 L" values in the selected row is wrong :\n", sumCondition});
}

std::wstring dbBelowSplit(double value, std::size_t outputs, wchar_t mark) {
    return join({L"The value dB = ", formatGeneral(value, mark),
                 L" in the selected row is wrong,\nbecause it does not correspond to condition "
                 L":\n\"db >= 10 * lg( ",
                 std::to_wstring(outputs), L" )\", where ", std::to_wstring(outputs),
                 L" is output pins quantity."});
}

std::wstring dbSum(std::size_t values) {
    return join({values == 1 ? L"dB value" : L"one/some of dB values",
                 L" in the selected row is wrong :\n", sumCondition});
}

std::wstring inRow(std::size_t row, Text message) {
    return join({L"Error in the row ", std::to_wstring(row), L": ", message});
}

std::wstring supplyDuplicate(Text field) {
    return join({L"Pin Number duplication for \"", field, L"\""});
}

} // namespace partwright::check_text
