#include "validation/db_checks.h"

#include "core/text.h"
#include "validation/check_texts.h"
#include "validation/list_cells.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace partwright {

namespace {

constexpr double slack = 1e-12;
constexpr std::int32_t splitterGroup = 38;
constexpr std::size_t dbPosition = 5;

double part(double db) {
    return std::pow(10.0, -db / 10.0);
}

double decibel(double ratio) {
    return 10.0 * std::log10(ratio);
}

std::wstring couplerFault(const std::vector<double>& db, wchar_t mark) {
    if (db.size() != 3)
        return std::wstring(check_text::threeDbValues);
    if (part(db[0]) + part(db[1]) + part(db[2]) <= 1)
        return {};
    const double rest = 1 - part(db[0]);
    const double each = -decibel(rest / 2);
    if (rest <= 0)
        return check_text::secondAndThirdDb(each, mark);
    const double third = rest - part(db[1]);
    return check_text::thirdDb(third > 0 ? -decibel(third) : each, each, mark);
}

/// The numbers of the dB cell, or what is wrong with it.
std::wstring readCell(const ItemRow& row, wchar_t mark, std::vector<double>& db) {
    if (!isInOrder(row.text(dbPosition)))
        return std::wstring(check_text::outOfRange);
    for (const std::wstring_view item : row.items(dbPosition)) {
        if (trim(item).empty())
            return std::wstring(check_text::emptyItem);
        const auto number = listNumber(item, mark);
        if (!valueFault(item, true, mark).empty() || !number)
            return std::wstring(check_text::outOfRange);
        db.push_back(*number);
    }
    return {};
}

} // namespace

double powerSum(ListItems values, wchar_t decimalMark) {
    double sum = 0;
    for (const std::wstring_view value : values)
        sum += part(listNumber(value, decimalMark).value_or(0));
    return sum;
}

bool exceedsWhole(double powerSum) {
    return powerSum > 1 + slack;
}

std::wstring dbFault(std::int32_t group, std::wstring_view type, ListItems pins, ListItems values,
                     wchar_t decimalMark) {
    if (values.empty())
        return {};
    const std::size_t count = values.size();
    if (count != pins.size())
        return std::wstring(check_text::dbQuantity);
    for (const std::wstring_view value : values) {
        const double db = listNumber(value, decimalMark).value_or(0);
        if (db < slack)
            return std::wstring(check_text::dbZero);
        // Stricter than its text says. Splitters are judged by couplingFault at OK; this limit is
        // for a caller that compares their lists with the others'.
        if (group == splitterGroup && db < 10.0 * static_cast<double>(count) - slack)
            return check_text::dbBelowSplit(db, count, decimalMark);
    }
    if (group == 5 && type == L"Passive" && exceedsWhole(powerSum(values, decimalMark)))
        return check_text::dbSum(count);
    return {};
}

std::wstring couplingFault(const ItemRow& row, wchar_t decimalMark) {
    if (row.isDash(dbPosition) || row.isEmpty(dbPosition) || row.isNotApplicable(dbPosition))
        return {};
    std::vector<double> db;
    if (std::wstring fault = readCell(row, decimalMark, db); !fault.empty())
        return fault;
    const std::size_t type = row.row().typePosition;
    if (type == 0)
        return {};
    const bool joins = type >= 3;
    if (joins && db.size() > 1)
        return std::wstring(check_text::singleDb);
    const std::size_t pinPosition = joins ? 1 : 2;
    if (row.isHidden(pinPosition))
        return {};
    const std::size_t pins = row.items(pinPosition).size();
    if (pins == 0)
        return std::wstring(joins ? check_text::emptyInputs : check_text::emptyOutputs);
    const double least = decibel(static_cast<double>(pins));
    const bool isBelow = *std::min_element(db.begin(), db.end()) < least;
    switch (type) {
    case 1:
        if (db.size() != pins)
            return std::wstring(check_text::outputsAgainstDb);
        return isBelow ? check_text::dbBelow(least, decimalMark) : std::wstring();
    case 2:
        return couplerFault(db, decimalMark);
    case 3:
        return isBelow ? check_text::singleDbBelow(least, decimalMark) : std::wstring();
    default:
        return {};
    }
}

} // namespace partwright
