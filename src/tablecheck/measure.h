#pragma once

// The unit of a quantity, as the rules spell it and as the messages of the property tables tell it.
//
//   unitOfList({L"pF", L"nF"}, {L"1", L"1000"})                ->  farad, 1e-12
//   unitOfMessage(L"Capacitance to ground, pF")                ->  farad, 1e-12
//   unitOfMessage(L"Early voltage, V; - where it is not given") ->  volt, 1

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace partwright {

struct Measure {
    std::wstring_view base;
    /// Of one unit in the base.
    double scale = 1;

    [[nodiscard]] bool isSameAs(const Measure& other) const;
    [[nodiscard]] std::wstring text() const;
};

/// The unit that a value is in after the factors of a unit list; none for a list of other words.
/// A few lists hold a slip beside right units: what most of the spellings say counts.
[[nodiscard]] std::optional<Measure> unitOfList(std::span<const std::wstring> names,
                                                std::span<const std::wstring> factors);
/// The unit at the end of a message, before remarks; none where the quantity has no unit.
[[nodiscard]] std::optional<Measure> unitOfMessage(std::wstring_view message);

} // namespace partwright
