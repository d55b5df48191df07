#include "validation/value_check.h"

#include "core/cell_text.h"
#include "core/number.h"
#include "core/text.h"

#include <algorithm>
#include <array>
#include <optional>

namespace partwright {

namespace {

constexpr std::size_t maximumOperands = 6;
constexpr double slack = 0.00000001;

wchar_t at(std::wstring_view text, std::size_t position) {
    return position < text.size() ? text[position] : L'\0';
}

/// The value of an integer text: blanks, one sign, digits to the end; nothing at all is 0.
std::optional<double> integerValue(std::wstring_view value) {
    std::wstring_view rest = value;
    while (!rest.empty() &&
           (rest.front() == L' ' || (rest.front() >= L'\t' && rest.front() <= L'\r')))
        rest.remove_prefix(1);
    if (!rest.empty() && (rest.front() == L'-' || rest.front() == L'+'))
        rest.remove_prefix(1);
    for (const wchar_t c : rest)
        if (!isDigit(c))
            return std::nullopt;
    return toInteger(value);
}

CheckResult compare(double v, std::int32_t checkId, double p1, double p2) {
    const auto result = [](bool passed) {
        return passed ? CheckResult::Passed : CheckResult::Failed;
    };
    switch (checkId) {
    case 0:
        return result(v == p1);
    case 1:
        return result(v > p1);
    case 2:
        return result(v >= p1);
    case 3:
        return result(v < p1);
    case 4:
        return result(v <= p1);
    case 5:
        return result(p1 <= v && v <= p2);
    case 6:
        return result(p1 < v && v < p2);
    case 7:
        return result(p1 <= v && v < p2);
    case 8:
        return result(p1 < v && v <= p2);
    default:
        return CheckResult::UnknownCheck;
    }
}

/// The next position of an operand list, taken off its front; none at its end.
std::optional<std::int32_t> nextOperand(std::wstring_view& list) {
    while (!list.empty()) {
        const std::wstring_view token = list.substr(0, list.find(L'.'));
        list.remove_prefix(std::min(token.size() + 1, list.size()));
        if (!token.empty())
            return toInteger(token);
    }
    return std::nullopt;
}

/// The operand cells of a combination rule with their numbers.
class Operands {
public:
    Operands(std::span<const std::wstring> row, std::wstring_view list, wchar_t mark)
        : mark_(mark) {
        for (std::wstring_view& text : texts_) {
            const auto position = nextOperand(list);
            if (!position)
                break;
            if (*position >= 0 && static_cast<std::size_t>(*position) < row.size())
                text = row[static_cast<std::size_t>(*position)];
        }
    }
    [[nodiscard]] double number(std::size_t i) const { return readNumber(texts_[i], mark_).value; }
    [[nodiscard]] std::wstring_view text(std::size_t i) const { return texts_[i]; }
    [[nodiscard]] bool filled(std::size_t i) const { return !texts_[i].empty(); }
    [[nodiscard]] bool given(std::size_t i) const {
        return filled(i) && texts_[i] != cell::shownNoValue;
    }

private:
    std::array<std::wstring_view, maximumOperands> texts_;
    wchar_t mark_;
};

bool junctionFits(const Operands& a) {
    double t = a.number(0);
    if (a.text(2) == L"C")
        t = a.number(5) * t + a.number(1);
    else if (a.text(2) == L"A")
        t = a.number(4) * t + a.number(1);
    else
        return false;
    // One degree more than the message says is allowed above, five below.
    return t + slack >= a.number(3) - 5 && a.number(3) + 1 >= t;
}

} // namespace

CheckResult CheckValue(std::wstring_view value, std::wstring_view checkType, std::int32_t checkId,
                       double bound1, double bound2, wchar_t decimalMark) {
    if (at(checkType, 0) == L'-' && value == cell::shownNoValue)
        return CheckResult::Passed;
    if (at(checkType, 0) == L'S')
        return CheckResult::Passed;
    std::optional<double> number;
    if (at(checkType, 1) == L'I')
        number = integerValue(value);
    else if (at(checkType, 1) == L'F')
        number = wholeNumber(trim(value), decimalMark);
    return number ? compare(*number, checkId, bound1, bound2) : CheckResult::Failed;
}

CheckResult CheckThermalRule(std::span<const std::wstring> rowValues, std::int32_t validationId,
                             std::wstring_view operands, wchar_t decimalMark) {
    const Operands a(rowValues, operands, decimalMark);
    bool passed = true;
    switch (validationId) {
    case 101:
        if (a.given(0) && a.given(1))
            passed = a.number(0) < 0 || a.number(1) < 0 || a.number(0) >= a.number(1);
        break;
    case 102:
        if (a.filled(0) && a.given(1))
            passed = a.number(1) < 0 || a.number(0) * a.number(1) <= 150.0000001;
        break;
    case 103:
        if (a.filled(0) && a.filled(1) && a.filled(2) && a.filled(3) && a.filled(5))
            passed = junctionFits(a);
        break;
    case 104:
        if (a.filled(0) && a.given(1) && a.filled(2)) {
            const double rise = a.number(0) * a.number(1);
            passed = a.number(1) > 0 && a.number(2) - 30 + slack <= rise &&
                     rise <= a.number(2) - 25 + slack;
        }
        break;
    default:
        return CheckResult::UnknownCheck;
    }
    return passed ? CheckResult::Passed : CheckResult::Failed;
}

std::vector<std::int32_t> thermalOperands(std::wstring_view operands) {
    std::vector<std::int32_t> positions;
    while (const auto position = nextOperand(operands))
        positions.push_back(*position);
    return positions;
}

std::wstring_view thermalMessage(std::int32_t messageId) {
    switch (messageId) {
    case 125:
        return L"Thermal resistance Oja must be greater than or equal to Junction to Case Ojc.";
    case 127:
        return L"Combination Error: Do not comply the rule: { (Tjmax-5) <= (Ts + PwRT * Ojac) <= "
               L"(Tjmax) }";
    case 130:
        return L"Combination Error: Do not comply the rule: { (25 + PwMax * Ojc) <= Tjmax }";
    case 134:
        return L"Combination Error: Do not comply the rule: { (Tjmax-5) <= (25 + PwRT * Ojac) <= "
               L"(Tjmax) }";
    default:
        return {};
    }
}

} // namespace partwright
