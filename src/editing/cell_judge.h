#pragma once

// The one judge of a table's cells. Whether a cell became current, bears a mark, was pasted or is
// being committed: what is asked of it, and the words about it, come from here.

#include "editing/component_table.h"
#include "editing/table_checks.h"
#include "editing/table_outcome.h"
#include "validation/cell_check.h"
#include "validation/validation_tables.h"

#include <memory>
#include <optional>
#include <string>

namespace partwright {

class CellJudge {
public:
    /// The table and the rules are borrowed.
    CellJudge(const ComponentTable& table, const ValidationTables& rules);

    [[nodiscard]] const TableChecks& checks() const { return *checks_; }
    [[nodiscard]] const ValidationRules& rules() const { return rules_.rules; }

    /// What is said of the text that a cell holds. A finding without a line is an empty cell.
    [[nodiscard]] std::optional<Finding> quiet(CellAt at) const;
    /// The columns of a row that break their rule; hidden ones are left out.
    [[nodiscard]] ColumnSet brokenIn(std::size_t row) const;
    /// Why a cell breaks its rule, in words that are never empty; empty when it does not.
    [[nodiscard]] std::wstring complaint(CellAt at) const;
    /// The rule of a parameter cell in its own words; empty when it has none.
    [[nodiscard]] std::wstring ruleText(CellAt at) const;

    /// Whether a parameter or a free text is accepted, as `outcome.accepted`; puts the text that is
    /// to be stored in place of `text`. `shownRow` is the row's number on the screen.
    void commit(CellAt at, std::wstring& text, std::size_t shownRow, TableOutcome& outcome) const;
    /// What typing would make of the text, unit letters worked in, whether it is accepted or not.
    [[nodiscard]] std::wstring normalised(CellAt at, std::wstring text) const;

private:
    const ComponentTable& table_;
    const ValidationTables& rules_;
    std::unique_ptr<TableChecks> checks_;
};

/// Adds what a check found to what a verb shows. The same fault of the tables is told once.
void report(TableOutcome& outcome, Finding finding);
/// The same where a verb ends: it is not accepted, and the cell that the words are about becomes
/// current.
void stop(TableOutcome& outcome, Finding finding);

} // namespace partwright
