#include "autofill/defaults.h"

#include "autofill/param_rules.h"
#include "core/library_kind.h"

namespace partwright {

namespace {

template <class Record>
bool fillEmpty(const CPartwrightPlugInApp& app, Record& record) {
    const auto& table = Kind<Record>::defaultLPar(app);
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

bool ApplySdtaDefaults(const CPartwrightPlugInApp& app, SdtaComponent& record) {
    const bool changed = fillEmpty(app, record);
    applyCodeNames(ColumnsOfSdtaGroup(record.group), record.group, record.LPar);
    return changed;
}

bool ApplyAsrDefaults(const CPartwrightPlugInApp& app, AsrComponent& record) {
    return fillEmpty(app, record);
}

} // namespace partwright
