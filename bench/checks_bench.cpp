// The row passes over an Analyses group: a table ten times as long takes ten times as long. Each
// benchmark measures both tables in one run and reports the ratio of the times a row took.

#include "core/paths.h"
#include "core/text_file.h"
#include "editing/component_table_session.h"
#include "editing/library_check.h"
#include "library/property_tables.h"
#include "validation/validation_tables.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstdlib>
#include <memory>

namespace partwright {
namespace {

constexpr std::int32_t group = 9;
constexpr std::int64_t fewRows = 1'000;
constexpr std::int64_t manyRows = 10'000;

/// Circuits with eight outputs, full and without a fault, so that every pass sees every row.
AsrLibrary circuits(std::int64_t count) {
    const wchar_t* values[] = {L"8e-05",
                               L"5",
                               L"G",
                               L"8",
                               L"-1",
                               L"-1",
                               L"A-B-C-D-E",
                               L"10-10-10-10-10",
                               L"-1",
                               L"1-2-3-4-5-6-7-9",
                               L"5-5-5-5-5-5-5-5",
                               L"-1",
                               L"1e-11",
                               L"-1",
                               L"-1",
                               L"-1",
                               L"-1",
                               L"0.33",
                               L"0.006",
                               L"-1",
                               L"3.84",
                               L"0.006",
                               L"-1",
                               L"-1"};
    AsrLibrary library;
    for (std::int64_t i = 0; i < count; ++i) {
        AsrComponent record;
        record.PartNum = L"SN" + std::to_wstring(10'000'000 + i) + L"DR";
        record.group = group;
        record.type = 2;
        for (std::size_t n = 0; n < std::size(values); ++n)
            record.LPar[n] = values[n];
        library.emplace_hint(library.end(), record.PartNum, record);
    }
    return library;
}

struct Bench {
    CPartwrightPlugInApp app;
    ValidationTables rules;
    PartSelection parts;

    Bench() {
        app.paths.hostTool = 1;
        app.paths.programFolder = withSeparator(pathText(PARTWRIGHT_TABLES));
        ResolveFilePaths(app.paths, L"/nowhere/");
        LoadGroupNames(app.paths, app.classifier, app.sdta);
        LoadAsrProperties(app.paths, app.asr);
        LoadValidationRules(app.paths.sdtaValidationRulesPath, rules.rules);
    }

    double okSeconds(std::int64_t count) {
        ComponentTableSession<AsrComponent> session(
            app, group, AnalysisLevel::Full, circuits(count), rules,
            {&parts, &parts, &parts, [](std::wstring_view) { return false; }});
        return seconds([&] {
            if (!session.ok({}, app.libraries.datasheetLinks).accepted)
                std::abort();
        });
    }

    double reportSeconds(std::int64_t count) {
        const AsrLibrary library = circuits(count);
        return seconds([&] {
            benchmark::DoNotOptimize(
                checkLibrary<AsrComponent>(app, library, rules, AnalysisLevel::Full));
        });
    }

private:
    template <class Work>
    static double seconds(Work work) {
        const auto start = std::chrono::steady_clock::now();
        work();
        return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    }
};

void compare(benchmark::State& state, double (Bench::*measure)(std::int64_t)) {
    Bench bench;
    double few = 0;
    double many = 0;
    for (auto _ : state) {
        // The same number of rows on both sides.
        for (std::int64_t i = 0; i < manyRows / fewRows; ++i)
            few += (bench.*measure)(fewRows);
        const double last = (bench.*measure)(manyRows);
        many += last;
        state.SetIterationTime(last);
    }
    state.counters["ratio_per_row"] = many / few;
    state.SetItemsProcessed(state.iterations() * manyRows);
}

void okOfTenThousandRows(benchmark::State& state) {
    compare(state, &Bench::okSeconds);
}

void reportOnTenThousandRows(benchmark::State& state) {
    compare(state, &Bench::reportSeconds);
}

BENCHMARK(okOfTenThousandRows)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(reportOnTenThousandRows)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace
} // namespace partwright

BENCHMARK_MAIN();
