#include "editing/power_calculator.h"

#include "core/messages.h"
#include "core/number.h"
#include "core/text.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>

namespace partwright {

namespace {

constexpr double margin = 0.999;
constexpr double ambientTemperature = 25.0;
constexpr double lowestJunction = 60;
constexpr int cellDigits = 13;
constexpr std::wstring_view placeHeading = L"AT";

bool isCircuit(std::int32_t group) {
    return group == 1 || group == 2;
}

/// The field that a column's heading means.
std::optional<CalculatorField> fieldOf(std::wstring_view heading) {
    const std::wstring name = upperCase(heading);
    if (name == L"OJA")
        return CalculatorField::Ambient;
    if (name == L"OJC")
        return CalculatorField::Case;
    if (name == L"TS")
        return CalculatorField::Reference;
    if (name == L"TJMAX")
        return CalculatorField::Junction;
    if (name.find(L"PW") != std::wstring::npos)
        return CalculatorField::Power;
    return std::nullopt;
}

double toTenth(double value) {
    return std::trunc(value * 10 + 0.5) / 10;
}

} // namespace

PowerCalculator::PowerCalculator(std::int32_t group, wchar_t decimalMark)
    : group_(group), mark_(decimalMark) {}

std::vector<PowerCalculator::Cell> PowerCalculator::cellsOf(const TableSession& session,
                                                            std::size_t row) {
    std::vector<Cell> cells;
    const TableSetup& setup = session.setup();
    for (std::size_t at = typeColumn + 1; at <= setup.lastParameter; ++at)
        cells.push_back({at, setup.columns[at].header, session.table().text(row, at),
                         session.isEnabled({row, at})});
    return cells;
}

void PowerCalculator::load(const std::vector<Cell>& row) {
    status_.clear();
    targets_.clear();
    place_ = ReferencePlace::Ambient;
    ts_ = ambientTemperature;
    tj_ = pw_ = oja_ = ojc_ = 0; // what was worked out before is not in the row
    double* const values[] = {&tj_, &ts_, &pw_, &oja_, &ojc_};
    for (const Cell& cell : row) {
        const auto field = fieldOf(cell.heading);
        const bool isPlace = upperCase(cell.heading) == placeHeading;
        if (!field && !isPlace)
            continue;
        if (cell.isEnabled)
            targets_.push_back({cell.column, std::wstring(cell.heading)});
        if (isPlace)
            place_ = cell.text == L"C" ? ReferencePlace::Case : ReferencePlace::Ambient;
        else if (const NumberPrefix number = readNumber(cell.text, mark_); number.consumed != 0)
            *values[static_cast<std::size_t>(*field)] = number.value;
    }
    for (std::size_t i = 0; i < fields_.size(); ++i)
        show(static_cast<CalculatorField>(i), *values[i]);
}

bool PowerCalculator::isAmbientOnly() const {
    return isCircuit(group_) || group_ == lastGroup;
}

const std::wstring& PowerCalculator::field(CalculatorField field) const {
    return fields_[static_cast<std::size_t>(field)];
}

const std::wstring& PowerCalculator::setField(CalculatorField field, std::wstring_view typed) {
    std::wstring& text = fields_[static_cast<std::size_t>(field)];
    text.clear();
    bool hasMark = false;
    for (const wchar_t typedChar : typed) {
        // The key pad and data sheets have a point whatever the locale's mark is.
        const wchar_t c = typedChar == L'.' ? mark_ : typedChar;
        if (c == mark_ ? !std::exchange(hasMark, true) : isDigit(c))
            text += c;
    }
    return text;
}

double PowerCalculator::value(CalculatorField field) const {
    return readNumber(this->field(field), mark_).value;
}

void PowerCalculator::show(CalculatorField field, double value) {
    fields_[static_cast<std::size_t>(field)] = formatGeneral(value, mark_, cellDigits);
}

bool PowerCalculator::calculate(Quantity chosen) {
    tj_ = value(CalculatorField::Junction);
    ts_ = value(CalculatorField::Reference);
    pw_ = value(CalculatorField::Power);
    oja_ = value(CalculatorField::Ambient);
    ojc_ = value(CalculatorField::Case);
    status_ = checkBefore(chosen);
    if (!status_.empty())
        return false;
    compute(chosen);
    round();
    show(CalculatorField::Junction, tj_);
    show(CalculatorField::Reference, ts_);
    show(CalculatorField::Power, pw_);
    show(CalculatorField::Ambient, oja_);
    show(CalculatorField::Case, ojc_);
    status_ = checkAfter(chosen);
    return status_.empty();
}

void PowerCalculator::compute(Quantity chosen) {
    double& r = place_ == ReferencePlace::Case ? ojc_ : oja_;
    switch (chosen) {
    case Quantity::Junction:
        tj_ = (pw_ * r + ts_) / margin;
        break;
    case Quantity::Reference:
        ts_ = (tj_ - pw_ * r) * margin;
        break;
    case Quantity::Power:
        pw_ = (tj_ - ts_) / r * margin;
        break;
    case Quantity::Resistance:
        r = (tj_ - ts_) / pw_ * margin;
        break;
    }
}

void PowerCalculator::round() {
    pw_ = std::trunc(pw_ * 1000) / 1000;
    for (double* value : {&tj_, &ts_, &oja_, &ojc_})
        *value = toTenth(*value);
}

std::wstring PowerCalculator::checkBefore(Quantity chosen) const {
    std::wstring fault;
    if (chosen != Quantity::Junction)
        fault = checkJunction();
    if (fault.empty() && chosen != Quantity::Reference) {
        if (!isAmbientOnly())
            fault = checkReference();
        if (chosen == Quantity::Resistance)
            return fault;
    }
    return fault.empty() ? checkResistances() : fault;
}

std::wstring PowerCalculator::checkAfter(Quantity chosen) const {
    if (chosen == Quantity::Resistance)
        return checkResistances();
    std::wstring fault;
    if (chosen == Quantity::Junction)
        fault = checkJunction();
    else if (chosen == Quantity::Reference)
        fault = checkReference();
    if (fault.empty() && !(ojc_ < oja_))
        fault = message::ojcOutOfRange;
    return fault;
}

// Each rule is asked as "does it hold", so that an undefined value fails it.

std::wstring PowerCalculator::checkJunction() const {
    constexpr double epsilon = std::numeric_limits<double>::epsilon();
    if (tj_ > ts_ && tj_ > lowestJunction && tj_ - junctionLimit() <= epsilon)
        return {};
    return message::junctionOutOfRange(formatGeneral(std::max(lowestJunction, ts_), mark_),
                                       formatGeneral(junctionLimit(), mark_));
}

std::wstring PowerCalculator::checkReference() const {
    if (ts_ > 0 && ts_ < tj_)
        return {};
    return message::referenceOutOfRange(formatGeneral(tj_, mark_));
}

std::wstring PowerCalculator::checkResistances() const {
    if (!(ojc_ < oja_))
        return std::wstring(message::ojaBelowOjc);
    return ojc_ > 0 ? std::wstring() : std::wstring(message::ojcOutOfRange);
}

double PowerCalculator::junctionLimit() const {
    return isCircuit(group_) ? 350 : 200;
}

std::vector<CellText> PowerCalculator::results() const {
    std::vector<CellText> cells;
    const double values[] = {tj_, ts_, pw_, oja_, ojc_};
    for (const Target& target : targets_) {
        const CellAt at{0, target.column};
        const auto field = fieldOf(target.heading);
        if (!field) {
            cells.push_back({at, place_ == ReferencePlace::Case ? L"C" : L"A"});
            continue;
        }
        const double value = values[static_cast<std::size_t>(*field)];
        if (std::isfinite(value))
            cells.push_back({at, formatGeneral(value, mark_, cellDigits)});
    }
    return cells;
}

} // namespace partwright
