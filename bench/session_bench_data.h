#pragma once

// A group of made-up transistors, complete and valid, for the benchmarks of its editing.

#include "core/paths.h"
#include "core/text_file.h"
#include "editing/component_table_session.h"
#include "library/property_tables.h"
#include "validation/validation_tables.h"

#include <cstdint>
#include <iterator>
#include <memory>

namespace partwright {

class SilentPrompt final : public Prompt {
public:
    PromptAnswer show(std::wstring_view, std::wstring_view, PromptIcon,
                      PromptButtons buttons) override {
        return buttons == PromptButtons::Ok ? PromptAnswer::Ok : PromptAnswer::Yes;
    }
};

inline constexpr std::int32_t group = 7;

struct Bench {
    CPartwrightPlugInApp app;
    ValidationTables rules;
    SdtaLibrary records;
    PartSelection project, shown, library;
    SilentPrompt prompt;

    explicit Bench(std::int64_t count) {
        app.paths.hostTool = 1;
        app.paths.programFolder = withSeparator(pathText(PARTWRIGHT_TABLES));
        ResolveFilePaths(app.paths, L"/nowhere/");
        LoadGroupNames(app.paths, app.classifier, app.sdta);
        LoadSdtaProperties(app.paths, app.sdta);
        LoadValidationRules(app.paths.sdtaValidationRulesPath, rules.rules);
        LoadThermalValidationRules(app.paths.sdtaThermalValidationPath, rules.thermal);
        for (std::int64_t i = 0; i < count; ++i) {
            SdtaComponent record;
            record.PartNum = L"2N" + std::to_wstring(10'000'000 + i) + L"-TR";
            record.CatNum = L"CAT-" + std::to_wstring(i);
            record.Description = L"TRANSISTOR NPN 40 V 0.6 A SMALL SIGNAL";
            record.Manufacturer = L"Some Maker";
            record.Notes = L"Descr";
            record.group = group;
            record.family = 4;
            record.type = 2;
            record.completed = 1;
            const wchar_t* values[] = {L"10",     L"25", L"C",  L"125", L"0.6", L"40",
                                       L"NH.SMT", L"60", L"10", L"0.1", L"6",   L"75"};
            for (std::size_t n = 0; n < std::size(values); ++n)
                record.LPar[n] = values[n];
            records.emplace_hint(records.end(), record.PartNum, record);
        }
    }

    [[nodiscard]] TablePlace place() {
        return {&project, &shown, &library, [](std::wstring_view) { return false; }};
    }
    [[nodiscard]] std::unique_ptr<ComponentTableSession<SdtaComponent>> open(SdtaLibrary own) {
        return std::make_unique<ComponentTableSession<SdtaComponent>>(
            app, group, AnalysisLevel::Full, std::move(own), rules, place());
    }
};

} // namespace partwright
