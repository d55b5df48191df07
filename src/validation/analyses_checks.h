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
//   answer.text       what the cell gets, the unit letter worked in
//   answer.decision   Accepted   store the text, no rule of the property table is asked
//                     Refused    show answer.boxes, the editor stays open
//                     NotApplicable  refuse with the box that says that "N/A" is illegal
//                     Open       go on with the rule of the cell (CheckCellOnCommit)
//
//   if (PassResult stop = checks.atOk(rows))    // rows in the order on the screen
//       select stop->rows, go to the cell at stop->position when stop->goesToCell; show stop->boxes
//
// Rows are only borrowed while a call runs.

#include "validation/analyses_table.h"

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace partwright {

enum class CommitDecision { Accepted, Refused, NotApplicable, Open };

struct CommitAnswer {
    CommitDecision decision = CommitDecision::Open;
    std::wstring text;
    /// Plain boxes of a refusal.
    std::vector<std::wstring> boxes;
};

/// What one step of OK says about one row.
struct StepFinding {
    std::wstring_view step;
    CheckFinding finding;
};

class AnalysesChecks {
public:
    explicit AnalysesChecks(AnalysesTable table) : table_(std::move(table)) {}

    [[nodiscard]] const AnalysesTable& table() const { return table_; }

    /// The parameter at `position` gets a new text. `row` has the old one.
    [[nodiscard]] CommitAnswer atCommit(const AnalysesRow& row, std::size_t position,
                                        std::wstring_view text) const;
    /// The lists of all rows, as Copy asks first.
    [[nodiscard]] PassResult atCopy(std::span<const AnalysesRow> rows) const;
    /// All steps of OK in turn, to the first failure.
    [[nodiscard]] PassResult atOk(std::span<const AnalysesRow> rows) const;
    /// Each step's first message about this row.
    [[nodiscard]] std::vector<StepFinding> everyStep(const AnalysesRow& row) const;

    /// No single-value rule judges the column: it names pins, and the group has lists.
    [[nodiscard]] bool isPinList(std::size_t position) const;

private:
    AnalysesTable table_;
};

} // namespace partwright
