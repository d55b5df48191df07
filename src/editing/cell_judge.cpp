#include "editing/cell_judge.h"

#include "core/cell_text.h"
#include "core/messages.h"
#include "editing/cell_question.h"

#include <algorithm>

namespace partwright {

CellJudge::CellJudge(const ComponentTable& table, const ValidationTables& rules)
    : table_(table), rules_(rules), checks_(makeTableChecks(table.setup(), rules)) {}

CellFinding CellJudge::quiet(CellAt at) const {
    return CheckCellQuiet(cellQuestion(table_, *checks_, at, table_.text(at.row, at.column), false),
                          rules_.rules, table_.setup().decimalMark);
}

ColumnSet CellJudge::brokenIn(std::size_t row) const {
    const TableSetup& setup = table_.setup();
    ColumnSet broken;
    for (std::size_t column = typeColumn; column <= setup.lastParameter; ++column) {
        if (setup.columns[column].hidden || table_.text(row, column).empty())
            continue;
        const CellFinding finding = quiet({row, column});
        broken.set(column, !finding.passed && finding.line);
    }
    return broken;
}

std::wstring CellJudge::complaint(CellAt at) const {
    CellFinding finding = quiet(at);
    if (finding.passed || !finding.line)
        return {};
    if (!finding.line->empty())
        return std::move(*finding.line);
    return finding.faultBox.empty() ? std::wstring(message::valueTypeOrRangeError)
                                    : finding.faultBox;
}

std::wstring CellJudge::ruleText(CellAt at) const {
    const CellQuestion cell =
        cellQuestion(table_, *checks_, at, table_.text(at.row, at.column), false);
    if (cell.isExempt || cell.isType || !cell.reference)
        return {};
    const auto rule = rules_.rules.find(*cell.reference);
    if (rule == rules_.rules.end())
        return {};
    const bool takesDash = rule->second.checkType.starts_with(L'-');
    return takesDash ? message::ruleWithDash(rule->second.message) : rule->second.message;
}

void CellJudge::commit(CellAt at, std::wstring& text, std::size_t shownRow,
                       TableOutcome& outcome) const {
    const TableColumn& column = table_.setup().columns[at.column];
    CommitVerdict verdict = checks_->atCommit(table_, at, text, shownRow);
    if (verdict.text) {
        text = std::move(*verdict.text);
        outcome.editorText = text;
    }
    if (verdict.decision == CommitDecision::Open && text == cell::notApplicable &&
        column.kind == ColumnKind::Parameter && column.choices == ColumnChoices::None)
        verdict.decision = CommitDecision::NotApplicable;
    outcome.accepted = verdict.decision == CommitDecision::Accepted;
    switch (verdict.decision) {
    case CommitDecision::Accepted:
        break;
    case CommitDecision::Refused:
        report(outcome, std::move(verdict.stop));
        break;
    case CommitDecision::NotApplicable:
        outcome.boxes.push_back({std::wstring(message::notApplicableIsIllegal)});
        break;
    case CommitDecision::Open:
        CellFinding finding = CheckCellOnCommit(cellQuestion(table_, *checks_, at, text, true),
                                                rules_.rules, table_.setup().decimalMark);
        outcome.accepted = finding.passed;
        report(outcome, std::move(finding));
    }
}

std::wstring CellJudge::normalised(CellAt at, std::wstring text) const {
    CommitVerdict verdict = checks_->atCommit(table_, at, text, at.row + 1);
    return verdict.text ? std::move(*verdict.text) : std::move(text);
}

void report(TableOutcome& outcome, CellFinding finding) {
    if (finding.line)
        outcome.line = std::move(*finding.line);
    const auto isTold = [&](const Box& box) {
        return box.isTableFault && box.text == finding.faultBox;
    };
    if (!finding.faultBox.empty() &&
        std::none_of(outcome.boxes.begin(), outcome.boxes.end(), isTold))
        outcome.boxes.push_back({std::move(finding.faultBox), PromptIcon::None, true});
    if (!finding.refusalBox.empty())
        outcome.boxes.push_back({std::move(finding.refusalBox)});
}

void report(TableOutcome& outcome, TableStop stop) {
    if (stop.line)
        outcome.line = std::move(*stop.line);
    if (stop.goesToCell)
        outcome.current = CellAt{stop.rows.front(), stop.column};
    outcome.selectedRows = std::move(stop.rows);
    for (Box& box : stop.boxes)
        outcome.boxes.push_back(std::move(box));
}

} // namespace partwright
