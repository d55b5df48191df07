#include "library/small_tables.h"

#include "core/library_kind.h"
#include "library/rule_table.h"

#include <algorithm>

namespace partwright {

namespace {

template <class Record>
LoadResult loadDefaults(Definitions<Record>& definitions, const std::wstring& path) {
    constexpr std::wstring_view group = L"ID_Family";
    constexpr std::wstring_view type = L"ID_Type";
    std::vector<std::wstring> slots;
    for (std::size_t number = 1; number <= Kind<Record>::maximumColumns; ++number)
        slots.push_back(L"LPar" + std::to_wstring(number));
    std::vector<std::wstring_view> columns{group, type};
    columns.insert(columns.end(), slots.begin(), slots.end());

    auto& defaults = definitions.defaultLPar;
    defaults.clear();
    const RuleTable table =
        readRuleTable(path, {.columns = columns, .comments = true, .closesRows = true});
    for (const RuleRow& row : table.rows) {
        const auto groupCode = row.code(group);
        const auto typeNumber = row.number(type);
        if (!groupCode || !typeNumber)
            continue;
        Record record;
        for (std::size_t i = 0; i < slots.size(); ++i)
            record.LPar[i] = row.text(slots[i]);
        defaults.insert_or_assign({*groupCode, *typeNumber}, std::move(record));
    }
    return resultOf(table, path);
}

} // namespace

LoadResult LoadSdtaDefaultLPar(const ProjectPaths& paths, Definitions<SdtaComponent>& sdta) {
    return loadDefaults(sdta, paths.sdtaDefaultLParPath);
}

LoadResult LoadAsrDefaultLPar(const ProjectPaths& paths, Definitions<AsrComponent>& asr) {
    return loadDefaults(asr, paths.asrDefaultLParPath);
}

LoadResult LoadManagementTable(const ProjectPaths& paths, ClassifierTables& classifier) {
    constexpr std::wstring_view columns[] = {L"Text_Key", L"MethodID", L"BiCod", L"TypeID",
                                             L"Type Name"};
    classifier.DirectKeyTable.clear();
    const RuleTable table = readRuleTable(
        paths.managementTablePath, {.columns = columns, .comments = true, .searchesHeader = true});
    for (const RuleRow& row : table.rows) {
        const auto method = row.number(L"MethodID");
        const auto group = row.code(L"BiCod");
        if (method && group)
            classifier.DirectKeyTable[*method].push_back({*group, row.number(L"TypeID").value_or(0),
                                                          row.text(L"Text_Key"),
                                                          row.text(L"Type Name")});
    }
    return resultOf(table, paths.managementTablePath);
}

std::wstring biCodePath(const ProjectPaths& paths) {
    return paths.programFolder + L"Conv_BiCode.csv";
}

LoadResult LoadConvBiCode(const ProjectPaths& paths, ClassifierTables& classifier) {
    constexpr std::wstring_view columns[] = {L"Method", L"NameID", L"Family", L"ID_BiCod"};
    classifier.convBiCode.clear();
    const std::wstring path = biCodePath(paths);
    const RuleTable table = readRuleTable(path, {.columns = columns});
    for (const RuleRow& row : table.rows) {
        const auto method = row.number(L"Method");
        const auto code = row.code(L"NameID");
        if (method && code)
            classifier.convBiCode[*method].push_back(
                {*code, row.number(L"Family").value_or(0), row.number(L"ID_BiCod").value_or(0)});
    }
    return resultOf(table, path);
}

std::int32_t ConvertBiCode(const ClassifierTables& classifier, std::int32_t code,
                           std::int32_t& family) {
    const auto from = classifier.convBiCode.find(Kind<SdtaComponent>::method);
    const auto to = classifier.convBiCode.find(Kind<AsrComponent>::method);
    if (from == classifier.convBiCode.end() || to == classifier.convBiCode.end())
        return noBiCode;
    const auto source = std::find_if(from->second.begin(), from->second.end(),
                                     [&](const BiCodeEntry& entry) { return entry.code == code; });
    if (source == from->second.end())
        return noBiCode;
    const BiCodeEntry* target = nullptr;
    for (const BiCodeEntry& entry : to->second) {
        if (entry.commonCode == source->commonCode) {
            family = entry.family;
            return entry.code;
        }
        if (entry.family == source->family && (target == nullptr || entry.code < target->code))
            target = &entry;
    }
    if (target == nullptr)
        return noBiCode;
    family = target->family;
    return target->code;
}

} // namespace partwright
