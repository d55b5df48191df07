#include "maintenance/record_changes.h"

#include "core/cell_text.h"
#include "core/text.h"

namespace partwright {

namespace {

constexpr std::wstring_view notesField = L"Notes";

/// The type as the file names it: the default type by its own name.
template <class Record>
std::int32_t typeInFile(const Definitions<Record>& definitions, const Record& record) {
    const auto& defaults = definitions.defaultTypes;
    if (record.type != 0 || record.group <= 0 ||
        static_cast<std::size_t>(record.group) >= defaults.size())
        return record.type;
    return defaults[static_cast<std::size_t>(record.group)];
}

/// Every text of a record by name, in the order of the file.
template <class Record>
std::vector<std::pair<std::wstring, std::wstring>> fieldsOf(const Definitions<Record>& definitions,
                                                            const Record& record) {
    const auto [group, type] =
        definitions.GroupAndTypeNames(record.group, typeInFile(definitions, record));
    std::vector<std::pair<std::wstring, std::wstring>> fields = {
        {L"Group", std::wstring(group)},
        {L"Type", std::wstring(type)},
        {L"CatNum", record.CatNum},
        {L"Description", record.Description},
        {L"Manufacturer", record.Manufacturer}};
    const Names columns = Kind<Record>::columns(record.group);
    for (std::size_t i = 0; i < columns.size(); ++i)
        fields.emplace_back(columns[i], cell::toFile(record.LPar[i]));
    fields.emplace_back(notesField, record.Notes);
    return fields;
}

} // namespace

template <class Record>
RecordChange changeBetween(const Definitions<Record>& definitions, const Record& before,
                           const Record& after) {
    RecordChange change;
    change.partNumber = after.PartNum;
    auto old = fieldsOf(definitions, before);
    const auto takeOld = [&old](const std::wstring& name) {
        for (auto& [oldName, text] : old)
            if (oldName == name)
                return std::exchange(text, {});
        return std::wstring();
    };
    for (auto& [name, text] : fieldsOf(definitions, after))
        if (std::wstring was = takeOld(name); was != text)
            change.fields.push_back({name, std::move(was), text});
    for (const auto& [name, text] : old) // columns that the new group does not have
        if (!text.empty())
            change.fields.push_back({name, text, {}});
    return change;
}

ChangeCount countOf(const RecordChange& change) {
    ChangeCount count;
    for (const FieldChange& field : change.fields) {
        if (field.name == notesField)
            continue;
        ++(field.before.empty()  ? count.filled
           : field.after.empty() ? count.emptied
                                 : count.replaced);
    }
    return count;
}

template <class Library>
std::vector<RecordChange>
changesBetween(const Definitions<typename Library::mapped_type>& definitions, const Library& before,
               const Library& after) {
    std::map<std::wstring, const typename Library::mapped_type*, std::less<>> old;
    for (const auto& [key, record] : before)
        old[upperCase(key)] = &record;
    std::vector<RecordChange> changes;
    for (const auto& [key, record] : after) {
        const auto found = old.find(key);
        if (found != old.end() && *found->second == record)
            continue;
        RecordChange change =
            found == old.end() ? changeBetween(definitions, typename Library::mapped_type{}, record)
                               : changeBetween(definitions, *found->second, record);
        change.added = found == old.end();
        if (change.added || !change.fields.empty())
            changes.push_back(std::move(change));
    }
    return changes;
}

template RecordChange changeBetween(const Definitions<SdtaComponent>&, const SdtaComponent&,
                                    const SdtaComponent&);
template RecordChange changeBetween(const Definitions<AsrComponent>&, const AsrComponent&,
                                    const AsrComponent&);
template std::vector<RecordChange> changesBetween(const Definitions<SdtaComponent>&,
                                                  const SdtaLibrary&, const SdtaLibrary&);
template std::vector<RecordChange> changesBetween(const Definitions<AsrComponent>&,
                                                  const AsrLibrary&, const AsrLibrary&);

} // namespace partwright
