#pragma once

// The power dissipation calculator: junction temperature, reference temperature, power and thermal
// resistance, each worked out from the others. It is filled from the cells of one row, holds the
// five fields as the user sees them, and gives results back as cells.
//
//   PowerCalculator calculator(group, L'.');
//   calculator.load(cells);                          // heading and text of each cell of the row
//   calculator.setField(CalculatorField::Power, L"0.5");
//   if (calculator.calculate(Quantity::Junction))
//       session.storeResults(row, calculator.results());
//
// A result is a thousandth below what the formula gives, so that it can be used as a limit.

#include "editing/table_session.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace partwright {

/// The entry fields, in their order.
enum class CalculatorField : std::size_t { Junction, Reference, Power, Ambient, Case };
/// What can be worked out, in the order of the radios. Resistance is the one to the reference.
enum class Quantity { Junction, Reference, Power, Resistance };
enum class ReferencePlace { Ambient, Case };

class PowerCalculator {
public:
    /// Highest group number that has the calculator.
    static constexpr std::int32_t lastGroup = 9;
    /// It works on stress values alone.
    [[nodiscard]] static bool serves(const TableSetup& setup) {
        return setup.kind->hasStressChecks && setup.group >= 1 && setup.group <= lastGroup;
    }

    struct Cell {
        std::size_t column = 0;
        std::wstring_view heading;
        std::wstring_view text;
        bool isEnabled = true;
    };
    /// The parameters of a row; the texts are those of the table.
    [[nodiscard]] static std::vector<Cell> cellsOf(const TableSession& session, std::size_t row);

    PowerCalculator(std::int32_t group, wchar_t decimalMark);

    /// Takes the values of a row; the status line is emptied. What the row does not tell stays,
    /// but for the reference: ambient at 25 degrees.
    void load(const std::vector<Cell>& row);

    /// Only ambient temperatures are known for the group: "Case" and everything about Ts is
    /// disabled.
    [[nodiscard]] bool isAmbientOnly() const;
    [[nodiscard]] ReferencePlace place() const { return place_; }
    void setPlace(ReferencePlace place) { place_ = place; }

    [[nodiscard]] const std::wstring& field(CalculatorField field) const;
    /// Digits and one decimal mark are kept of what was typed, a point being the mark in every
    /// locale; what stays is the field's text.
    const std::wstring& setField(CalculatorField field, std::wstring_view typed);
    [[nodiscard]] const std::wstring& status() const { return status_; }

    /// True when all rules hold, and then the status line is empty.
    bool calculate(Quantity chosen);

    /// The cells to write after calculate() went through: those of the row that was loaded which
    /// hold one of the values. A value that is no finite number is left out.
    [[nodiscard]] std::vector<CellText> results() const;

private:
    struct Target {
        std::size_t column;
        std::wstring heading;
    };

    [[nodiscard]] double value(CalculatorField field) const;
    void show(CalculatorField field, double value);
    void compute(Quantity chosen);
    void round();
    [[nodiscard]] std::wstring checkBefore(Quantity chosen) const;
    [[nodiscard]] std::wstring checkAfter(Quantity chosen) const;
    [[nodiscard]] std::wstring checkJunction() const;
    [[nodiscard]] std::wstring checkReference() const;
    [[nodiscard]] std::wstring checkResistances() const;
    [[nodiscard]] double junctionLimit() const;

    std::int32_t group_;
    wchar_t mark_;
    double tj_ = 0;
    double ts_ = 0;
    double pw_ = 0;
    double oja_ = 0;
    double ojc_ = 0;
    ReferencePlace place_ = ReferencePlace::Ambient;
    std::array<std::wstring, 5> fields_;
    std::wstring status_;
    std::vector<Target> targets_;
};

} // namespace partwright
