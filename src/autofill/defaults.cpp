#include "autofill/defaults.h"

#include "autofill/param_rules.h"
#include "core/library_kind.h"

namespace partwright {

namespace {

template <class Record>
bool fillEmpty(const Definitions<Record>& definitions, Record& record) {
    const auto& table = definitions.defaultLPar;
    const auto row = table.find(GroupAndType(record.group, record.type));
    if (row == table.end())
        return false;
    bool changed = false;
    for (std::size_t i = 0; i < Kind<Record>::maximumColumns; ++i) {
        const std::wstring& value = row->second.LPar[i];
        if (!record.LPar[i].empty() || value.empty())
            continue;
        record.LPar[i] = value;
        changed = true;
    }
    return changed;
}

} // namespace

bool ApplySdtaDefaults(const Definitions<SdtaComponent>& definitions, SdtaComponent& record) {
    const bool changed = fillEmpty(definitions, record);
    applyCodeNames(ColumnsOfSdtaGroup(record.group), record.group, record.LPar);
    return changed;
}

bool ApplyAsrDefaults(const Definitions<AsrComponent>& definitions, AsrComponent& record) {
    return fillEmpty(definitions, record);
}

} // namespace partwright
