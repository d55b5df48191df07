#pragma once

// The coded checks of an Analyses table behind one door: what a change dialog asks at commit,
// before Copy and at OK, and what a report asks of every row. Nothing here speaks or changes a row.
//
//   AnalysesTable table = makeAnalysesTable(setup.group, setup.decimalMark);
//   table.hidden = ...by position...;      table.methodText = L"Schematic Review (ASR)";
//   const AnalysesChecks checks(std::move(table));
//
//   AnalysesRow row;                       // a view of the table's cells from the Type on
//   row.cells = std::span(cells).subspan(typeColumn);
//   row.typePosition = 3;  row.number = 1;  row.isFull = true;
//
//   CommitAnswer answer = checks.atCommit(row, 8, L"16M");
//   answer.text       what the cell gets in place of the text, the unit letter worked in
//   answer.decision   Accepted   store the text, no rule of the property table is asked
//                     Refused    show answer.finding, the editor stays open
//                     NotApplicable  refuse with the box that says that "N/A" is illegal
//                     Open       go on with the rule of the cell (CheckCellOnCommit)
//
//   if (std::optional<Finding> stop = checks.atOk(rows))    // rows in the order on the screen
//       select stop->rows, show stop->texts
//
// Rows are only borrowed while a call runs.

#include "validation/analyses_table.h"
#include "validation/finding.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace partwright {

enum class CommitDecision { Accepted, Refused, NotApplicable, Open };

/// What is to become of a committed text.
struct CommitAnswer {
    CommitDecision decision = CommitDecision::Open;
    /// What takes the place of the text.
    std::optional<std::wstring> text = {};
    /// Of a refusal.
    Finding finding = {};
};

class AnalysesChecks {
public:
    explicit AnalysesChecks(AnalysesTable table) : table_(std::move(table)) {}

    [[nodiscard]] const AnalysesTable& table() const { return table_; }

    /// The parameter at `position` gets a new text. `row` has the old one.
    [[nodiscard]] CommitAnswer atCommit(const AnalysesRow& row, std::size_t position,
                                        std::wstring_view text) const;
    /// The lists of all rows, as Copy asks first.
    [[nodiscard]] std::optional<Finding> atCopy(std::span<const AnalysesRow> rows) const;
    /// All steps of OK in turn, to the first failure.
    [[nodiscard]] std::optional<Finding> atOk(std::span<const AnalysesRow> rows) const;
    /// Each step's first finding about this row.
    [[nodiscard]] std::vector<Finding> everyStep(const AnalysesRow& row) const;

    /// No single-value rule judges the column: it names pins, and the group has lists.
    [[nodiscard]] bool isPinList(std::size_t position) const;

private:
    AnalysesTable table_;
};

} // namespace partwright
