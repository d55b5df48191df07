#include "validation/cell_check.h"

#include "core/cell_text.h"
#include "core/decimal_mark.h"
#include "core/messages.h"

namespace partwright {

namespace {

Finding failure(std::wstring line) {
    return {.line = std::move(line)};
}

std::optional<double> bound(std::wstring_view text, wchar_t mark) {
    return text.empty() ? std::optional(0.0) : readCheckedNumber(text, mark);
}

} // namespace

std::optional<Finding> CheckCellByRule(const CellQuestion& cell, const ValidationRules& rules,
                                       wchar_t decimalMark) {
    if (!cell.reference)
        return failure({});
    if (cell.isType || *cell.reference > lastRuleReference) {
        // A group without types has nothing to choose from.
        const bool isOpen = cell.isType && cell.choices != nullptr && cell.choices->empty();
        if (isOpen || (cell.choices != nullptr && cell.choices->holds(cell.value)))
            return std::nullopt;
        return failure(message::mustBeFromList(cell.value));
    }
    if (*cell.reference < 0)
        return std::nullopt;
    const auto found = rules.find(*cell.reference);
    if (found == rules.end()) {
        Finding finding = failure({});
        finding.tableFault = message::failedValidationId;
        return finding;
    }
    const ValidationRule& rule = found->second;
    const auto bound1 = bound(rule.param1, decimalMark);
    const auto bound2 = bound(rule.param2, decimalMark);
    if (!bound1 || !bound2)
        return failure({});
    // The table's number is a 16-bit one.
    const std::int32_t checkId = static_cast<std::int16_t>(rule.checkId);
    const CheckResult result =
        CheckValue(cell.value, rule.checkType, checkId, *bound1, *bound2, decimalMark);
    if (result == CheckResult::Passed)
        return std::nullopt;
    Finding finding = failure(message::valueOutOfRange(cell.value, rule.message));
    if (result == CheckResult::UnknownCheck)
        finding.tableFault = message::foundCheckId(checkId);
    return finding;
}

std::optional<Finding> CheckCellQuiet(const CellQuestion& cell, const ValidationRules& rules,
                                      wchar_t decimalMark) {
    if (cell.isExempt)
        return std::nullopt;
    if (cell.type.empty() || cell.value.empty())
        return Finding{};
    // Ranges, lists and exponents are left to the engineer's eye here.
    if (cell.value == cell::notApplicable || cell.value == cell::shownNoValue ||
        cell.value.find(L'-', 1) != std::wstring_view::npos || cell.isPinList)
        return std::nullopt;
    return CheckCellByRule(cell, rules, decimalMark);
}

std::optional<Finding> CheckCellOnCommit(const CellQuestion& cell, const ValidationRules& rules,
                                         wchar_t decimalMark) {
    if (cell.isExempt)
        return std::nullopt;
    if (cell.type.empty())
        return Finding{};
    if (cell.isChoice || cell.value.empty() || cell.isPinList)
        return std::nullopt;
    std::optional<Finding> finding = CheckCellByRule(cell, rules, decimalMark);
    if (finding)
        finding->texts = {std::wstring(message::valueTypeOrRangeError)};
    return finding;
}

} // namespace partwright
