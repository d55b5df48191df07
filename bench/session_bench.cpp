// The Change Component session against a plain pass that copies the records: opening a group,
// changing the type of a tenth of its rows, and OK each cost at most twice the copy of the group,
// at any size; moving the current cell costs the same in every table.

#include "session_bench_data.h"

#include <benchmark/benchmark.h>

#include <cstdlib>

namespace partwright {
namespace {

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
        auto outcome = session->fill({{{0, typeColumn}, L"BIP_Switching"}}, rows, 1);
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
        const bool accepted = session->ok({}, bench.app.libraries.datasheetLinks).accepted;
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
        row = (row + 1) % session->table().rowCount(); // as the arrow key goes
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
