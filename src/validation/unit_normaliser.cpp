#include "validation/unit_normaliser.h"

#include "core/decimal_mark.h"
#include "core/number.h"

#include <algorithm>
#include <cmath>

namespace partwright {

namespace {

struct Factor {
    wchar_t letter;
    double factor;
};

constexpr Factor factors[] = {
    {L'p', 1e-12}, {L'n', 1e-9}, {L'u', 1e-6}, {L'm', 1e-3}, {L'k', 1e3},
    {L'K', 1e3},   {L'M', 1e6},  {L'G', 1e9},  {L'T', 1e12},
};

/// The unit of a column that is not stored in its base unit.
struct StoredUnit {
    std::int32_t group;
    std::wstring_view header;
    double divisor;
};

constexpr StoredUnit storedUnits[] = {
    {2, L"F-RT", 1e6},   {2, L"Cpd", 1e-12},   {2, L"CL", 1e-12},    {2, L"Cin", 1e-12},
    {3, L"F-RT", 1e6},   {3, L"Cpd", 1e-12},   {3, L"CL", 1e-12},    {3, L"Cin", 1e-12},
    {4, L"F-RT", 1e6},   {4, L"Cin", 1e-12},   {7, L"Cin", 1e-12},   {9, L"Cin", 1e-12},
    {16, L"Cin", 1e-12}, {16, L"Cout", 1e-12}, {17, L"Cin", 1e-12},  {17, L"Cout", 1e-12},
    {19, L"Cin", 1e-12}, {23, L"C", 1e-6},     {23, L"I-Lkg", 1e-3}, {24, L"L", 1e-6},
    {25, L"Fout", 1e6},  {25, L"Delay", 1e-6}, {26, L"C", 1e-12},    {28, L"C", 1e-12},
    {31, L"Rcont", 1e6}, {32, L"Rcont", 1e6},  {36, L"Cin", 1e-12},  {36, L"Cpd", 1e-12},
    {36, L"CLS", 1e-12}, {37, L"Cin", 1e-12},  {37, L"Cpd", 1e-12},
};

constexpr std::wstring_view unitless[] = {L"dB", L"h-fe"};
constexpr int decimals = 20;

double divisorOf(std::int32_t group, std::wstring_view header) {
    for (const StoredUnit& unit : storedUnits)
        if (unit.group == group && unit.header == header)
            return unit.divisor;
    return 1;
}

} // namespace

std::optional<double> unitFactor(wchar_t letter) {
    for (const Factor& row : factors)
        if (row.letter == letter)
            return row.factor;
    return std::nullopt;
}

std::optional<std::wstring> normaliseUnit(std::int32_t group, std::wstring_view header,
                                          std::wstring_view text, wchar_t decimalMark) {
    if (text.empty() || header.find(L"Pin") != std::wstring_view::npos ||
        std::find(std::begin(unitless), std::end(unitless), header) != std::end(unitless))
        return std::nullopt;
    const auto factor = unitFactor(text.back());
    const auto number = readCheckedNumber(text.substr(0, text.size() - 1), decimalMark);
    if (!factor || !number || *number <= 0)
        return std::nullopt;
    const double value = *number * *factor / divisorOf(group, header);
    if (!std::isfinite(value))
        return std::nullopt;
    std::wstring result = formatFixed(value, decimalMark, decimals);
    result.erase(result.find_last_not_of(L'0') + 1);
    if (result.back() == decimalMark)
        result.pop_back();
    if (result == L"0")
        return std::nullopt;
    return result;
}

} // namespace partwright
