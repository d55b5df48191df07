#include "core/completion.h"

#include "core/cell_text.h"

#include <algorithm>
#include <type_traits>

namespace partwright {

namespace {

template <class Row>
bool doesNotApply(const Row* row, std::size_t parameter) {
    return row != nullptr && parameter < row->names.size() &&
           (row->names[parameter] == cell::labelNotApplicable ||
            row->messages[parameter] == cell::messageNotUsed);
}

bool flags(const LevelColumns* level, std::size_t parameter) {
    return level != nullptr && parameter < level->size() && (*level)[parameter] != 0;
}

/// The process of a capacitor is typed by hand for one type and means nothing for the others.
void settleProcess(std::wstring& value, const SdtaPropertyRow* row) {
    if (row != nullptr && row->type != customTypeName)
        value = cell::notApplicable;
}

} // namespace

template <class Record>
CompletionRules<Record>::CompletionRules(const Definitions<Record>& definitions) {
    // Groups that have columns but no name are judged by their own columns, too.
    const auto count = std::max(static_cast<std::int32_t>(definitions.groupNames.size()),
                                Kind<Record>::lastGroup + 1);
    for (std::int32_t number = 0; number <= count; ++number)
        groups_.push_back(prepare(definitions, number));
}

template <class Record>
CompletionRules<Record>::CompletionRules(const Definitions<Record>& definitions,
                                         std::int32_t onlyGroup)
    : groups_{prepare(definitions, onlyGroup)}, first_(onlyGroup) {}

template <class Record>
typename CompletionRules<Record>::Group
CompletionRules<Record>::prepare(const Definitions<Record>& definitions, std::int32_t number) {
    Group group;
    group.columns = Kind<Record>::columns(number);
    const std::wstring_view name = definitions.GroupAndTypeNames(number, 0).first;
    group.unused = name == notApplicableGroup;
    const std::size_t known = definitions.typesOf(number).size();
    for (std::size_t type = 0; type <= known; ++type)
        group.rows.push_back(definitions.FindPropertyRow(
            name, definitions.GroupAndTypeNames(number, static_cast<std::int32_t>(type)).second));
    if constexpr (std::is_same_v<Record, AsrComponent>) {
        const auto levelOf = [number](const auto& levels) {
            const auto found = levels.find(number);
            return found == levels.end() ? nullptr : &found->second;
        };
        group.rapid = levelOf(definitions.columnsForRapid);
        group.asr = levelOf(definitions.columnsForAsr);
    }
    return group;
}

template <class Record>
const typename CompletionRules<Record>::Group&
CompletionRules<Record>::group(std::int32_t number) const {
    const auto at = static_cast<std::int64_t>(number) - first_;
    return at >= 0 && at < static_cast<std::int64_t>(groups_.size())
               ? groups_[static_cast<std::size_t>(at)]
               : groups_.back();
}

template <class Record>
const typename CompletionRules<Record>::Row* CompletionRules<Record>::row(std::int32_t number,
                                                                          std::int32_t type) const {
    const auto& rows = group(number).rows;
    return type >= 0 && static_cast<std::size_t>(type) < rows.size()
               ? rows[static_cast<std::size_t>(type)]
               : rows.back();
}

template <>
void CompletionRules<SdtaComponent>::update(SdtaComponent& record) const {
    record.completed = 0;
    if (record.PartNum.empty() || record.group < 1 || record.type < 0)
        return;
    const Names columns = group(record.group).columns;
    const SdtaPropertyRow* row = this->row(record.group, record.type);
    bool complete = true;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        std::wstring& value = record.LPar[i];
        if (columns[i] == processColumn)
            settleProcess(value, row);
        else if (value.empty() && doesNotApply(row, i + 1))
            value = cell::notApplicable;
        complete = complete && !value.empty();
    }
    record.completed = complete ? 1 : 0;
}

template <>
void CompletionRules<AsrComponent>::update(AsrComponent& record) const {
    record.completed = record.completedForRapid = record.completedForAsr = 0;
    if (record.PartNum.empty() || record.group < 1 || record.type < 1)
        return;
    const Group& group = this->group(record.group);
    if (group.unused)
        return;
    const AsrPropertyRow* row = this->row(record.group, record.type);
    record.completed = record.completedForRapid = record.completedForAsr = 1;
    for (std::size_t i = 0; i < group.columns.size(); ++i) {
        std::wstring& value = record.LPar[i];
        if (value.empty() && doesNotApply(row, i + 1))
            value = cell::notApplicable;
        if (!value.empty())
            continue;
        record.completed = 0;
        if (flags(group.rapid, i + 1))
            record.completedForRapid = 0;
        if (flags(group.asr, i + 1))
            record.completedForAsr = 0;
    }
}

template class CompletionRules<SdtaComponent>;
template class CompletionRules<AsrComponent>;

} // namespace partwright
