#include "editing/new_component_session.h"

#include "core/messages.h"
#include "core/text.h"
#include "core/vocabulary.h"
#include "editing/clean_text.h"
#include "editing/row_deletion.h"
#include "library/part_key.h"

#include <algorithm>
#include <type_traits>

namespace partwright {

namespace {

constexpr std::wstring_view hybrid = L"Hybrid";
constexpr std::wstring_view hybridOrBoard = L"Hybrid-EquipPCB";
constexpr std::wstring_view board = L"PCB";
constexpr std::wstring_view reservedGroup = L"Reserved.Opto";
constexpr std::wstring_view miscellaneous = L"Miscellaneous";
/// The SDTA group that a part of any family can be put into.
constexpr std::int32_t anyFamilyGroup = 22;

struct DisplayName {
    std::wstring_view key;
    std::wstring_view shown;
};

/// In the order in which the families are shown.
constexpr DisplayName displayNames[] = {
    {hybridOrBoard, L"Hybrid Integrated Circuit or Equipped PCB"},
    {L"IC", L"Integrated Circuit"},
    {L"Diode", L"Diode"},
    {L"Transistor", L"Transistor"},
    {L"OptoDevice", L"Opto Device"},
    {L"Resistor", L"Resistor"},
    {L"Capacitor", L"Capacitor"},
    {L"Inductive", L"Inductive Components"},
    {L"Crystal", L"Crystal"},
    {L"Filter", L"Filter"},
    {L"Fuse", L"Fuse"},
    {L"Lamp", L"Lamp"},
    {board, L"Print Circuit Board"},
    {L"Connector", L"Connector"},
    {L"Switch", L"Switch"},
    {L"Relay", L"Relay"},
    {miscellaneous, L"Miscellaneous"},
    {L"Mechanical", L"Mechanical"},
};

std::wstring_view ownKey(std::wstring_view key) {
    return key == hybridOrBoard ? hybrid : key;
}

/// Place in the order of the display names; families without one come last.
std::size_t displayPlace(std::wstring_view key) {
    std::size_t place = 0;
    for (const DisplayName& name : displayNames) {
        if (ownKey(name.key) == ownKey(key))
            break;
        ++place;
    }
    return place;
}

/// What the table of parts without a group offers beyond, or short of, all groups.
template <class Record>
FamilyGroups assignableGroups(const Definitions<Record>& definitions) {
    FamilyGroups groups = familyGroups(definitions);
    if constexpr (std::is_same_v<Record, AsrComponent>) {
        groups.erase(std::wstring(hybridOrBoard));
    } else {
        const std::wstring_view name = definitions.GroupAndTypeNames(anyFamilyGroup, 0).first;
        if (name != notDefinedName)
            for (auto& [family, list] : groups)
                if (family != miscellaneous)
                    list.push_back({anyFamilyGroup, std::wstring(name)});
    }
    return groups;
}

} // namespace

std::wstring_view familyDisplayName(std::wstring_view key) {
    const std::size_t place = displayPlace(key);
    return place < std::size(displayNames) ? displayNames[place].shown : key;
}

std::int32_t familyNumberOf(std::wstring_view key) {
    return FamilyNumber(ownKey(key));
}

template <class Record>
FamilyGroups familyGroups(const Definitions<Record>& definitions) {
    FamilyGroups result;
    const auto add = [&](std::wstring_view family, std::int32_t code, std::wstring_view name) {
        if (code > 0 && name != reservedGroup && name != notApplicableGroup)
            result[std::wstring(family)].push_back({code, std::wstring(name)});
    };
    if constexpr (std::is_same_v<Record, AsrComponent>) {
        for (const auto& [family, groups] : definitions.familyGroups)
            // The library has no rows of boards: a part put there would be lost.
            if (family != board)
                for (const FamilyGroup& group : groups)
                    add(family, group.code, group.name);
    } else {
        for (std::size_t i = 1; i < definitions.groupNames.size(); ++i) {
            const auto code = static_cast<std::int32_t>(i);
            add(FamilyOfSdtaGroup(code), code, definitions.groupNames[i]);
        }
    }
    return result;
}

template FamilyGroups familyGroups(const Definitions<SdtaComponent>&);
template FamilyGroups familyGroups(const Definitions<AsrComponent>&);

GroupChoiceSession::GroupChoiceSession(GroupChoiceMode mode, FamilyGroups groups,
                                       std::int32_t group,
                                       std::function<bool(std::wstring_view)> isTaken)
    : mode_(mode), groups_(std::move(groups)), isTaken_(std::move(isTaken)) {
    for (const auto& [key, list] : groups_)
        families_.push_back({key, std::wstring(familyDisplayName(key))});
    std::stable_sort(families_.begin(), families_.end(), [](const Family& a, const Family& b) {
        return displayPlace(a.key) < displayPlace(b.key);
    });
    for (std::size_t family = 0; family < families_.size(); ++family) {
        const auto& list = groups_[families_[family].key];
        const auto found = std::find_if(list.begin(), list.end(), [&](const FamilyGroup& entry) {
            return entry.code == group;
        });
        if (found != list.end()) {
            family_ = family;
            group_ = static_cast<std::size_t>(found - list.begin());
            break;
        }
    }
}

std::wstring_view GroupChoiceSession::title() const {
    switch (mode_) {
    case GroupChoiceMode::Add:
        return message::addComponentTitle;
    case GroupChoiceMode::Copy:
        return message::copyComponentTitle;
    case GroupChoiceMode::ChangeGroup:
        break;
    }
    return message::changeGroupTitle;
}

const std::vector<FamilyGroup>& GroupChoiceSession::groups() const {
    static const std::vector<FamilyGroup> none;
    return family_ < families_.size() ? groups_.find(families_[family_].key)->second : none;
}

void GroupChoiceSession::chooseFamily(std::size_t place) {
    family_ = place;
    group_ = 0;
}

bool GroupChoiceSession::accept(std::wstring_view partNumber, Prompt& prompt) {
    if (asksGroup() && group_ >= groups().size())
        return false;
    if (asksPartNumber()) {
        const std::wstring part = asReadBack(cleanPartNumber(partNumber).text);
        if (part.empty() || isTaken_(part)) {
            prompt.tell(part.empty() ? message::enterPartNumber : message::duplicatePartNumber,
                        PromptIcon::None);
            return false;
        }
        result_.partNumber = part;
    }
    if (!asksGroup())
        return true;
    const FamilyGroup& group = groups()[group_];
    result_.family = familyNumberOf(families_[family_].key);
    result_.group = group.code;
    result_.groupName = group.name;
    return true;
}

NewComponentTable::NewComponentTable(FamilyGroups groups, PartSelection projectParts,
                                     Prompt& prompt)
    : groups_(std::move(groups)), projectParts_(std::move(projectParts)), prompt_(prompt) {}

std::vector<std::wstring> NewComponentTable::families() const {
    std::vector<std::wstring> keys;
    for (const auto& [key, list] : groups_)
        keys.push_back(key);
    std::stable_sort(keys.begin(), keys.end(), [](const auto& a, const auto& b) {
        return displayPlace(a) < displayPlace(b);
    });
    return keys;
}

const std::vector<FamilyGroup>* NewComponentTable::groupsOf(std::wstring_view family) const {
    const auto found = groups_.find(ownKey(family));
    return found == groups_.end() ? nullptr : &found->second;
}

std::vector<std::wstring> NewComponentTable::groups(std::wstring_view family) const {
    std::vector<std::wstring> names;
    if (const auto* list = groupsOf(family))
        for (const FamilyGroup& group : *list)
            names.push_back(group.name);
    return names;
}

std::int32_t NewComponentTable::groupNumber(std::wstring_view family,
                                            std::wstring_view name) const {
    if (const auto* list = groupsOf(family))
        for (const FamilyGroup& group : *list)
            if (group.name == name)
                return group.code;
    return 0;
}

std::wstring NewComponentTable::designatorsOf(std::wstring_view part) const {
    const auto found = projectParts_.find(part);
    return found == projectParts_.end() ? std::wstring() : found->second;
}

void NewComponentTable::setFamily(std::size_t row, std::wstring_view family) {
    rows_[row].family = family;
    if (groupNumber(family, rows_[row].group) == 0)
        rows_[row].group.clear();
}

void NewComponentTable::setGroup(std::size_t row, std::wstring_view group) {
    if (groupNumber(rows_[row].family, group) != 0)
        rows_[row].group = group;
}

std::vector<std::size_t> NewComponentTable::deleteRows(std::vector<std::size_t> selected) {
    std::sort(selected.begin(), selected.end());
    selected.erase(std::unique(selected.begin(), selected.end()), selected.end());
    std::vector<std::wstring_view> parts;
    parts.reserve(selected.size());
    for (const std::size_t row : selected)
        parts.push_back(rows_[row].part);
    const Deletion deletion = deletionOf(parts, projectParts_);
    if (deletion.deletable.empty())
        prompt_.tell(deletion.text, PromptIcon::None);
    else if (!prompt_.ask(message::caption, deletion.text))
        return {};
    std::vector<std::size_t> gone;
    for (const std::size_t place : deletion.deletable)
        gone.push_back(selected[place]);
    std::vector<NewComponentRow> left;
    for (std::size_t row = 0; row < rows_.size(); ++row) {
        if (std::binary_search(gone.begin(), gone.end(), row))
            removed_.push_back(rows_[row].part);
        else
            left.push_back(std::move(rows_[row]));
    }
    rows_ = std::move(left);
    return gone;
}

template <class Record>
NewComponentSession<Record>::NewComponentSession(const CPartwrightPlugInApp& app, Library records,
                                                 PartSelection projectParts, Prompt& prompt)
    : NewComponentTable(assignableGroups(app.of<Record>()), std::move(projectParts), prompt),
      app_(app), records_(std::move(records)) {
    for (const auto& [key, record] : records_) {
        NewComponentRow row;
        row.part = key;
        row.catalogNumber = record.CatNum;
        row.description = record.Description;
        row.manufacturer = record.Manufacturer;
        row.notes = record.Notes;
        row.used = designatorsOf(key);
        if (app_.of<Record>().isInUse(record.group))
            row.family = Kind<Record>::family(record.group);
        else if (record.family > 0 &&
                 static_cast<std::size_t>(record.family) < familyNames().size())
            row.family = familyNames()[static_cast<std::size_t>(record.family)];
        if (const auto link = app.libraries.datasheetLinks.find(key);
            link != app.libraries.datasheetLinks.end())
            row.datasheet = link->second;
        rows_.push_back(std::move(row));
    }
}

template <class Record>
typename NewComponentSession<Record>::Library NewComponentSession<Record>::takeRecords() {
    for (const std::wstring& part : removedParts())
        records_.erase(part);
    for (const NewComponentRow& row : rows_) {
        const std::int32_t group = groupNumber(row.family, row.group);
        const auto record = records_.find(row.part);
        if (group == 0 || record == records_.end())
            continue;
        Record& target = record->second;
        target.completed = 0;
        if constexpr (std::is_same_v<Record, AsrComponent>)
            target.completedForAsr = target.completedForRapid = 0;
        target.group = group;
        target.family = familyNumberOf(row.family);
        target.type = defaultTypeOf(app_.of<Record>(), group);
        for (std::wstring& value : target.LPar)
            value.clear();
    }
    return std::move(records_);
}

template class NewComponentSession<SdtaComponent>;
template class NewComponentSession<AsrComponent>;

} // namespace partwright
