#include "validation/cell_check.h"

#include "core/cell_text.h"
#include "core/decimal_mark.h"
#include "core/messages.h"

namespace partwright {

namespace {

CellFinding failure(std::wstring line) {
    CellFinding finding;
    finding.passed = false;
    finding.line = std::move(line);
    return finding;
}

std::optional<double> bound(std::wstring_view text, wchar_t mark) {
    return text.empty() ? std::optional(0.0) : readCheckedNumber(text, mark);
}

} // namespace

CellFinding CheckCellByRule(const CellQuestion& cell, const ValidationRules& rules,
                            wchar_t decimalMark) {
    if (!cell.reference)
        return failure({});
    if (cell.isType || *cell.reference > lastRuleReference) {
        // A group without types has nothing to choose from.
        const bool isOpen = cell.isType && cell.choices != nullptr && cell.choices->empty();
        if (isOpen || (cell.choices != nullptr && cell.choices->holds(cell.value)))
            return {};
        return failure(message::mustBeFromList(cell.value));
    }
    if (*cell.reference < 0)
        return {};
    const auto found = rules.find(*cell.reference);
    if (found == rules.end()) {
        CellFinding finding = failure({});
        finding.faultBox = message::failedValidationId;
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
        return {};
    CellFinding finding = failure(message::valueOutOfRange(cell.value, rule.message));
    if (result == CheckResult::UnknownCheck)
        finding.faultBox = message::foundCheckId(checkId);
    return finding;
}

CellFinding CheckCellQuiet(const CellQuestion& cell, const ValidationRules& rules,
                           wchar_t decimalMark) {
    if (cell.isExempt)
        return {};
    if (cell.type.empty() || cell.value.empty()) {
        CellFinding finding;
        finding.passed = false;
        return finding;
    }
    // Ranges, lists and exponents are left to the engineer's eye here.
    if (cell.value == cell::notApplicable || cell.value == cell::shownNoValue ||
        cell.value.find(L'-', 1) != std::wstring_view::npos || cell.isPinList)
        return {};
    return CheckCellByRule(cell, rules, decimalMark);
}

CellFinding CheckCellOnCommit(const CellQuestion& cell, const ValidationRules& rules,
                              wchar_t decimalMark) {
    if (cell.isExempt)
        return {};
    if (cell.type.empty()) {
        CellFinding finding;
        finding.passed = false;
        return finding;
    }
    if (cell.isChoice || cell.value.empty() || cell.isPinList)
        return {};
    CellFinding finding = CheckCellByRule(cell, rules, decimalMark);
    if (!finding.passed)
        finding.refusalBox = message::valueTypeOrRangeError;
    return finding;
}

} // namespace partwright
