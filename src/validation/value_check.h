#pragma once

// The pure comparisons behind every validated cell. A rule says which kind of text a value must be
// and how it compares with one or two bounds; a combination rule looks at several cells of a row.
// Neither knows where a rule came from, and neither speaks.
//
//   CheckValue(L"155", L"-F", 5, -55, 1000, L'.')  ->  passed
//   CheckValue(L"-",   L"-F", 5, -55, 1000, L'.')  ->  passed: a leading "-" admits the dash
//
// A CheckType is read by its characters: first "-" admits a lone dash, first "S" accepts any text,
// second "I" asks for an integer, second "F" for a decimal number.

#include <cstdint>
#include <map>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace partwright {

/// A single-value rule. The bounds stay text: they are read where they are used.
struct ValidationRule {
    std::int32_t validationId = 0;
    std::int32_t checkId = 0;
    std::wstring checkType;
    std::wstring param1;
    std::wstring param2;
    std::wstring message;
};

/// A rule over several cells of a row; `name` is the list of positions, 0 being the Type cell,
/// joined by full stops.
struct ThermalRule {
    std::int32_t bCodeId = 0;
    std::int32_t typeId = 0;
    std::int32_t validationId = 0;
    std::int32_t messageId = 0;
    std::wstring name;
};

using ValidationRules = std::map<std::int32_t, ValidationRule>;
/// Group to (ordering number to rule).
using ThermalRules = std::map<std::int32_t, std::map<std::int32_t, ThermalRule>>;

enum class CheckResult {
    Passed,
    Failed,
    /// The rule names a comparison that does not exist; the value fails.
    UnknownCheck,
};

/// Comparisons are numbered: 0 equal, 1 above, 2 at least, 3 below, 4 at most the first bound;
/// 5 to 8 between both, with both, neither, the lower, the upper bound included.
[[nodiscard]] CheckResult CheckValue(std::wstring_view value, std::wstring_view checkType,
                                     std::int32_t checkId, double bound1, double bound2,
                                     wchar_t decimalMark);

/// The four combinations: 101 first at least second; 102 power times resistance at most 150
/// degrees; 103 junction temperature from power, reference temperature and the resistance that "at"
/// picks; 104 the same from 25 degrees. A rule whose cells are not all filled passes.
[[nodiscard]] CheckResult CheckThermalRule(std::span<const std::wstring> rowValues,
                                           std::int32_t validationId, std::wstring_view operands,
                                           wchar_t decimalMark);

/// Positions of an operand list; a token that is no number counts as 0.
[[nodiscard]] std::vector<std::int32_t> thermalOperands(std::wstring_view operands);

/// The fixed text of a combination rule; empty for an unknown number.
[[nodiscard]] std::wstring_view thermalMessage(std::int32_t messageId);

} // namespace partwright
