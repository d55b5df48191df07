// The Change Component session against a plain pass that copies the records: opening a group,
// changing the type of a tenth of its rows, and OK each cost at most twice the copy of the group,
// at any size; moving the current cell costs the same in every table.

#include "core/paths.h"
#include "core/text_file.h"
#include "editing/component_table_session.h"
#include "library/property_tables.h"
#include "validation/validation_tables.h"

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <memory>

namespace partwright {
namespace {

class SilentPrompt final : public Prompt {
public:
    PromptAnswer show(std::wstring_view, std::wstring_view, PromptIcon,
                      PromptButtons buttons) override {
        return buttons == PromptButtons::Ok ? PromptAnswer::Ok : PromptAnswer::Yes;
    }
};

constexpr std::int32_t group = 7;

struct Bench {
    CPartwrightPlugInApp app;
    ValidationTables rules;
    SdtaLibrary records;
    PartSelection project, shown, library;
    SilentPrompt prompt;

    explicit Bench(std::int64_t count) {
        app.hostTool = 1;
        app.programFolder = withSeparator(pathText(PARTWRIGHT_TABLES));
        ResolveFilePaths(app, L"/nowhere/");
        LoadGroupNames(app);
        LoadSdtaProperties(app);
        LoadValidationRules(app.sdtaValidationRulesPath, rules.rules);
        LoadThermalValidationRules(app.sdtaThermalValidationPath, rules.thermal);
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
            app, group, AnalysisLevel::Full, std::move(own), rules, place(), prompt);
    }
};

void copyRecords(benchmark::State& state) {
    const Bench bench(state.range(0));
    for (auto _ : state) {
        SdtaLibrary copy = bench.records;
        benchmark::DoNotOptimize(copy);
        state.PauseTiming();
        copy.clear();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void openGroup(benchmark::State& state) {
    Bench bench(state.range(0));
    for (auto _ : state) {
        state.PauseTiming();
        SdtaLibrary own = bench.records;
        state.ResumeTiming();
        auto session = bench.open(std::move(own));
        state.PauseTiming();
        if (session->table().text(0, fullColumn) != fullMark)
            std::abort();
        session.reset();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void changeTypes(benchmark::State& state) {
    Bench bench(state.range(0));
    std::vector<std::size_t> rows(static_cast<std::size_t>(state.range(0) / 10));
    for (std::size_t i = 0; i < rows.size(); ++i)
        rows[i] = i * 10;
    const auto session = bench.open(bench.records);
    for (auto _ : state) {
        auto outcome = session->fill({0, typeColumn}, rows, L"BIP_Switching");
        state.PauseTiming();
        if (outcome.changedRows.size() != rows.size() || session->table().isComplete(0))
            std::abort();
        session->undo();
        state.ResumeTiming();
    }
}

void okPass(benchmark::State& state) {
    Bench bench(state.range(0));
    for (auto _ : state) {
        state.PauseTiming();
        auto session = bench.open(bench.records);
        state.ResumeTiming();
        const bool accepted = session->ok({}, bench.app.datasheetLinks).accepted;
        state.PauseTiming();
        if (!accepted || session->takeRecords() != bench.records)
            std::abort();
        session.reset();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void moveCell(benchmark::State& state) {
    Bench bench(state.range(0));
    const auto session = bench.open(bench.records);
    session->RefreshAllRowFlags();
    std::size_t row = 0;
    for (auto _ : state) {
        row = (row + 7919) % session->table().rowCount();
        benchmark::DoNotOptimize(session->selectCell({row, typeColumn + 1}));
    }
}

BENCHMARK(copyRecords)->Arg(1'000)->Arg(10'000)->Arg(100'000);
BENCHMARK(openGroup)->Arg(1'000)->Arg(10'000)->Arg(100'000);
BENCHMARK(okPass)->Arg(1'000)->Arg(10'000)->Arg(100'000);
BENCHMARK(changeTypes)->Arg(10'000)->Arg(100'000);
BENCHMARK(moveCell)->Arg(1'000)->Arg(100'000);

} // namespace
} // namespace partwright

BENCHMARK_MAIN();
