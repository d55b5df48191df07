// The Change Component dialog against a plain pass over its records, with one repaint each: opening
// a group of so many components costs at most twice the pass that opens a window as well, a new
// type for a tenth of its rows and OK at most twice the pass alone, at any size.

#include "dialogs/change_dialog.h"
#include "session_bench_data.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QPushButton>
#include <cstdlib>

namespace partwright {
namespace {

class NoOpener final : public Opener {
public:
    bool open(std::wstring_view) override { return false; }
};

struct Window {
    explicit Window(Bench& bench)
        : dialog(*(session = bench.open(bench.records)), {bench.app, bench.prompt, opener},
                 std::make_shared<grid::SortFlags>()) {
        dialog.show();
        repaint();
    }
    void repaint() { dialog.grab(); }

    NoOpener opener;
    std::unique_ptr<ComponentTableSession<SdtaComponent>> session;
    CComChange1 dialog;
};

/// Copies the records, as a dialog that does nothing would have to, and repaints once.
void plainPass(benchmark::State& state) {
    Bench bench(state.range(0));
    Window window(bench);
    for (auto _ : state) {
        SdtaLibrary copy = bench.records;
        benchmark::DoNotOptimize(copy);
        window.repaint();
        state.PauseTiming();
        copy.clear();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

/// The same with the window made anew, over no rows: what opening costs whatever the group holds.
void plainOpen(benchmark::State& state) {
    Bench bench(state.range(0));
    Bench nothing(0);
    for (auto _ : state) {
        SdtaLibrary copy = bench.records;
        benchmark::DoNotOptimize(copy);
        auto window = std::make_unique<Window>(nothing);
        state.PauseTiming();
        copy.clear();
        window.reset();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void openDialog(benchmark::State& state) {
    Bench bench(state.range(0));
    for (auto _ : state) {
        auto window = std::make_unique<Window>(bench);
        state.PauseTiming();
        if (window->dialog.grid().rowCount() != state.range(0))
            std::abort();
        window.reset();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void changeTypes(benchmark::State& state) {
    Bench bench(state.range(0));
    Window window(bench);
    std::vector<std::size_t> rows(static_cast<std::size_t>(state.range(0) / 10));
    for (std::size_t i = 0; i < rows.size(); ++i)
        rows[i] = i * 10;
    CComponentGrid& grid = window.dialog.grid();
    for (auto _ : state) {
        grid.show(window.session->fill({{{0, typeColumn}, L"BIP_Switching"}}, rows, 1));
        window.repaint();
        state.PauseTiming();
        if (grid.text(11, static_cast<int>(typeColumn)) != QLatin1String("BIP_Switching"))
            std::abort();
        grid.undo();
        state.ResumeTiming();
    }
}

void okDialog(benchmark::State& state) {
    Bench bench(state.range(0));
    for (auto _ : state) {
        state.PauseTiming();
        auto window = std::make_unique<Window>(bench);
        state.ResumeTiming();
        window->dialog.accept();
        window->repaint();
        state.PauseTiming();
        if (window->dialog.result() != QDialog::Accepted)
            std::abort();
        window.reset();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

BENCHMARK(plainPass)->Arg(1'000)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);
BENCHMARK(plainOpen)->Arg(1'000)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);
BENCHMARK(openDialog)->Arg(1'000)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);
BENCHMARK(changeTypes)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);
BENCHMARK(okDialog)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace partwright

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
