#pragma once

// An application with tables enough to read and write libraries: group names in the order of their
// numbers, the type lists, and a property row for every type. Some parameters do not apply.

#include "core/application.h"
#include "core/vocabulary.h"

#include <string>

namespace partwright::test {

template <class Row>
Row sampleRow(std::wstring group, std::wstring type) {
    Row row;
    row.group = std::move(group);
    row.type = std::move(type);
    for (std::size_t i = 1; i < row.names.size(); ++i) {
        row.names[i] = i % 7 == 0 ? L"-" : L"Label " + std::to_wstring(i);
        row.messages[i] = i % 5 == 0 ? L"NU" : L"Hint";
    }
    return row;
}

/// SDTA groups 1 to `sdtaGroups` and Analyses groups 1 to `asrGroups`, gaps read "N/A".
inline CPartwrightPlugInApp sampleApp(std::wstring decimalPoint = L".",
                                      std::int32_t sdtaGroups = lastSdtaGroup,
                                      std::int32_t asrGroups = lastAsrGroup) {
    CPartwrightPlugInApp app;
    app.decimalPoint = std::move(decimalPoint);
    app.paths.programFolder = L"/program/";
    for (std::int32_t code = 1; code <= sdtaGroups; ++code)
        app.classifier.groupNamesByCode[code] =
            std::wstring(FamilyOfSdtaGroup(code)) + L" group " + std::to_wstring(code);
    rebuildSdtaGroups(app.classifier, app.sdta);
    for (std::int32_t code = 1; code <= asrGroups; ++code) {
        const bool gap = ColumnsOfAsrGroup(code).empty() && code != 29;
        app.asr.groupNames.push_back(gap          ? std::wstring(notApplicableGroup)
                                     : code == 29 ? L"PCB"
                                                  : L"Kind " + std::to_wstring(code));
        if (!gap)
            app.asr.groupFamily[code] = FamilyOfAsrGroup(code);
    }
    app.asr.rebuildTypes();
    for (const auto& [group, types] : app.sdta.groupTypes)
        for (const TypeEntry& type : types)
            app.sdta.properties[{group, type.name}] = sampleRow<SdtaPropertyRow>(group, type.name);
    for (const auto& [group, types] : app.asr.groupTypes)
        for (const TypeEntry& type : types)
            app.asr.properties[{group, type.name}] = sampleRow<AsrPropertyRow>(group, type.name);
    for (std::int32_t code = 1; code <= asrGroups; ++code) {
        app.asr.columnsForRapid[code].fill(code % 2);
        app.asr.columnsForAsr[code][1] = 1;
    }
    return app;
}

} // namespace partwright::test
