#include "validation/analyses_checks.h"

#include "core/cell_text.h"
#include "validation/analyses_options.h"
#include "validation/check_texts.h"
#include "validation/group_cell_checks.h"
#include "validation/list_cells.h"
#include "validation/row_lists.h"
#include "validation/row_passes.h"
#include "validation/unit_normaliser.h"

namespace partwright {

namespace {

constexpr std::int32_t regulatorGroup = 8;
constexpr std::wstring_view regulatorOutput = L"Pin-Out";

void decide(CommitAnswer& answer, std::vector<std::wstring> boxes) {
    answer.decision = boxes.empty() ? CommitDecision::Accepted : CommitDecision::Refused;
    answer.boxes = std::move(boxes);
}

/// Rules that are final for their cells, ahead of all others.
bool decideByGroup(const AnalysesTable& table, const AnalysesRow& row, std::size_t position,
                   CommitAnswer& answer) {
    if (std::wstring fault = amplifierOutputFault(table, row, position, answer.text);
        !fault.empty()) {
        decide(answer, {std::move(fault)});
        return true;
    }
    const CellAnswer frequency = CheckFrequencyCell(table, row, position, answer.text);
    if (frequency && !frequency->empty()) {
        decide(answer, *frequency);
        return true;
    }
    const CellAnswer group = CheckGroupCell(table, row, position, answer.text);
    if (!frequency && !group)
        return false;
    // What passes here is still no value: its own box refuses it.
    if (answer.text == cell::notApplicable && (!group || group->empty()))
        return false;
    decide(answer, group.value_or(CellBoxes{}));
    return true;
}

std::vector<ItemRow> splitRows(const AnalysesTable& table, std::span<const AnalysesRow> rows) {
    std::vector<ItemRow> split;
    split.reserve(rows.size());
    for (const AnalysesRow& row : rows)
        split.emplace_back(table, row);
    return split;
}

} // namespace

CommitAnswer AnalysesChecks::atCommit(const AnalysesRow& row, std::size_t position,
                                      std::wstring_view text) const {
    CommitAnswer answer;
    const std::wstring_view header = table_.header(position);
    answer.text =
        normaliseUnit(table_.group, header, text, table_.decimalMark).value_or(std::wstring(text));
    if (decideByGroup(table_, row, position, answer))
        return answer;
    if (answer.text == cell::notApplicable && !isOptionColumn(table_.group, position)) {
        answer.decision = CommitDecision::NotApplicable;
        return answer;
    }
    ListAnswer list =
        CheckListCell(table_.group, row.type(), position, answer.text, table_.decimalMark);
    if (list.isValid())
        decide(answer, {});
    else if (list.isList)
        decide(answer, {std::move(list.message)});
    else if (table_.group == regulatorGroup && header == regulatorOutput &&
             answer.text == cell::shownNoValue)
        decide(answer, {std::wstring(check_text::regulatorOutput)});
    else if (table_.namesPins(position))
        decide(answer, {});
    return answer;
}

PassResult AnalysesChecks::atCopy(std::span<const AnalysesRow> rows) const {
    return CheckRowLists(table_, splitRows(table_, rows));
}

PassResult AnalysesChecks::atOk(std::span<const AnalysesRow> rows) const {
    const std::vector<ItemRow> split = splitRows(table_, rows);
    for (const OkPass& pass : okPasses())
        if (PassResult result = pass.run(table_, split))
            return result;
    return std::nullopt;
}

std::vector<StepFinding> AnalysesChecks::everyStep(const AnalysesRow& row) const {
    const std::vector<ItemRow> split = splitRows(table_, std::span(&row, 1));
    std::vector<StepFinding> findings;
    for (const OkPass& pass : okPasses())
        if (PassResult result = pass.run(table_, split))
            findings.push_back({pass.name, std::move(*result)});
    return findings;
}

bool AnalysesChecks::isPinList(std::size_t position) const {
    return table_.namesPins(position) && hasListColumns(table_.group);
}

} // namespace partwright
