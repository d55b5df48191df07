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

/// Rules that are final for their cells, ahead of all others.
CellAnswer byGroup(const AnalysesTable& table, const AnalysesRow& row, std::size_t position,
                   std::wstring_view text) {
    if (auto fault = refusalUnless(amplifierOutputFault(table, row, position, text)))
        return {true, std::move(fault)};
    CellAnswer group = CheckGroupCell(table, row, position, text);
    return group.isJudged ? group : CheckFrequencyCell(table, row, position, text);
}

/// What holds for every group.
CellAnswer byColumn(const AnalysesTable& table, const AnalysesRow& row, std::size_t position,
                    std::wstring_view text) {
    if (CellAnswer list = CheckListCell(table.group, row.type(), position, text, table.decimalMark);
        list.isJudged)
        return list;
    if (table.group == regulatorGroup && table.header(position) == regulatorOutput &&
        text == cell::shownNoValue)
        return {true, refusal(check_text::regulatorOutput)};
    return {table.namesPins(position)};
}

CommitDecision decide(const CellAnswer& answer) {
    return answer.finding ? CommitDecision::Refused : CommitDecision::Accepted;
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
    answer.text = normaliseUnit(table_.group, table_.header(position), text, table_.decimalMark);
    if (answer.text)
        text = *answer.text;
    CellAnswer judged = byGroup(table_, row, position, text);
    // A "N/A" that passes here is still no value: its own box refuses it.
    const bool isNotApplicable = text == cell::notApplicable && !judged.finding;
    if (isNotApplicable && !isOptionColumn(table_.group, position)) {
        answer.decision = CommitDecision::NotApplicable;
        return answer;
    }
    if (!judged.isJudged || isNotApplicable)
        judged = byColumn(table_, row, position, text);
    if (!judged.isJudged)
        return answer;
    answer.decision = decide(judged);
    if (judged.finding)
        answer.finding = std::move(*judged.finding);
    return answer;
}

std::optional<Finding> AnalysesChecks::atCopy(std::span<const AnalysesRow> rows) const {
    return CheckRowLists(table_, splitRows(table_, rows));
}

std::optional<Finding> AnalysesChecks::atOk(std::span<const AnalysesRow> rows) const {
    const std::vector<ItemRow> split = splitRows(table_, rows);
    for (const OkPass& pass : okPasses())
        if (auto found = pass.run(table_, split))
            return found;
    return std::nullopt;
}

std::vector<Finding> AnalysesChecks::everyStep(const AnalysesRow& row) const {
    const std::vector<ItemRow> split = splitRows(table_, std::span(&row, 1));
    std::vector<Finding> findings;
    for (const OkPass& pass : okPasses())
        if (auto found = pass.run(table_, split)) {
            findings.push_back(std::move(*found));
            findings.back().rule = pass.name;
        }
    return findings;
}

bool AnalysesChecks::isPinList(std::size_t position) const {
    return table_.namesPins(position) && hasListColumns(table_.group);
}

} // namespace partwright
