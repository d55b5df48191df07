#pragma once

// The check of one cell of a component row: which rule applies, and what is said when it fails. The
// caller gathers what the cell is (CellQuestion); nothing here speaks or keeps state. No finding
// means that the cell passed.
//
// A cell is checked on two ways that differ on purpose. When it becomes current the check is quiet
// and lenient: it warns of a stored value. When an edit is committed it is strict: it refuses.
//
//   value "1-5" under a numeric rule     quiet: passes      commit: refused
//   value "-" where the rule lacks it    quiet: passes      commit: refused

#include "validation/choice_list.h"
#include "validation/finding.h"
#include "validation/value_check.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace partwright {

/// A reference above this asks for an entry of the cell's list.
inline constexpr std::int32_t lastRuleReference = 10000;

/// What a cell is, as far as its check asks.
struct CellQuestion {
    /// The Type cell of the row.
    std::wstring_view type;
    std::wstring_view value;
    bool isType = false;
    /// The column is outside of all checks of this way.
    bool isExempt = false;
    /// at, Package, Process and the like: what they hold comes from a list.
    bool isChoice = false;
    /// A list of pins, which no single-value rule fits.
    bool isPinList = false;
    /// The property row's reference for the parameter; none when there is no property row.
    std::optional<std::int32_t> reference;
    /// The cell's drop-down list, where it has one.
    const ChoiceList* choices = nullptr;
};

/// The list or rule that the reference names. A finding always has a line, which may be empty.
[[nodiscard]] std::optional<Finding>
CheckCellByRule(const CellQuestion& cell, const ValidationRules& rules, wchar_t decimalMark);
/// When the cell becomes current. A finding without a line is the ordinary state of an empty cell.
[[nodiscard]] std::optional<Finding>
CheckCellQuiet(const CellQuestion& cell, const ValidationRules& rules, wchar_t decimalMark);
/// When a parameter's edit is accepted; `cell.value` is the new text.
[[nodiscard]] std::optional<Finding>
CheckCellOnCommit(const CellQuestion& cell, const ValidationRules& rules, wchar_t decimalMark);

} // namespace partwright
