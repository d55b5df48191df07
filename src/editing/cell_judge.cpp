#include "editing/cell_judge.h"

#include "core/cell_text.h"
#include "core/messages.h"
#include "editing/cell_question.h"

#include <algorithm>

namespace partwright {

CellJudge::CellJudge(const ComponentTable& table, const ValidationTables& rules)
    : table_(table), rules_(rules), checks_(makeTableChecks(table.setup(), rules)) {}

std::optional<Finding> CellJudge::quiet(CellAt at) const {
    return CheckCellQuiet(cellQuestion(table_, *checks_, at, table_.text(at.row, at.column), false),
                          rules_.rules, table_.setup().decimalMark);
}

ColumnSet CellJudge::brokenIn(std::size_t row) const {
    const TableSetup& setup = table_.setup();
    ColumnSet broken;
    for (std::size_t column = typeColumn; column <= setup.lastParameter; ++column) {
        if (setup.columns[column].hidden || table_.text(row, column).empty())
            continue;
        const auto finding = quiet({row, column});
        broken.set(column, finding && finding->line);
    }
    return broken;
}

std::wstring CellJudge::complaint(CellAt at) const {
    const auto finding = quiet(at);
    if (!finding || !finding->line)
        return {};
    const std::wstring_view text = finding->summary();
    return std::wstring(text.empty() ? message::valueTypeOrRangeError : text);
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
    CommitAnswer answer = checks_->atCommit(table_, at, text, shownRow);
    if (answer.text) {
        text = std::move(*answer.text);
        outcome.editorText = text;
    }
    if (answer.decision == CommitDecision::Open && text == cell::notApplicable &&
        column.kind == ColumnKind::Parameter && column.choices == ColumnChoices::None)
        answer.decision = CommitDecision::NotApplicable;
    outcome.accepted = answer.decision == CommitDecision::Accepted;
    switch (answer.decision) {
    case CommitDecision::Accepted:
        break;
    case CommitDecision::Refused:
        report(outcome, std::move(answer.finding));
        break;
    case CommitDecision::NotApplicable:
        outcome.boxes.push_back({std::wstring(message::notApplicableIsIllegal)});
        break;
    case CommitDecision::Open:
        auto finding = CheckCellOnCommit(cellQuestion(table_, *checks_, at, text, true),
                                         rules_.rules, table_.setup().decimalMark);
        outcome.accepted = !finding;
        if (finding)
            report(outcome, std::move(*finding));
    }
}

std::wstring CellJudge::normalised(CellAt at, std::wstring text) const {
    CommitAnswer answer = checks_->atCommit(table_, at, text, at.row + 1);
    return answer.text ? std::move(*answer.text) : std::move(text);
}

void report(TableOutcome& outcome, Finding finding) {
    if (finding.line)
        outcome.line = std::move(*finding.line);
    const auto isTold = [&](const Box& box) {
        return box.isTableFault && box.text == finding.tableFault;
    };
    if (!finding.tableFault.empty() &&
        std::none_of(outcome.boxes.begin(), outcome.boxes.end(), isTold))
        outcome.boxes.push_back({std::move(finding.tableFault), PromptIcon::None, true});
    for (std::wstring& text : finding.texts)
        outcome.boxes.push_back({std::move(text)});
    if (!finding.rows.empty())
        outcome.selectedRows = std::move(finding.rows);
}

void stop(TableOutcome& outcome, Finding finding) {
    outcome.accepted = false;
    if (finding.leadsToCell())
        outcome.current = CellAt{finding.rows.front(), typeColumn + finding.position};
    report(outcome, std::move(finding));
}

} // namespace partwright
