// Loading and saving of libraries against three measures of the same run: a literal reader and
// writer, a bare CSV tokeniser over the same bytes, one plain write of the same bytes.
//
//   ./build/bench/bin/library_bench
//
// Run it while nothing else runs. Each size first shows that the fast answer equals the literal
// one. Ratios are printed at the end; a save's ratio leaves the flush to the device out on all
// sides.

#include "library/library_reader.h"
#include "library/library_writer.h"
#include "library/literal_library.h"
#include "library/sample_app.h"
#include "support/dice.h"

#include <benchmark/benchmark.h>
#include <csv.h>
#include <fcntl.h>
#include <malloc.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <functional>
#include <map>

namespace partwright {

namespace {

using test::Dice;

const CPartwrightPlugInApp& app() {
    static const CPartwrightPlugInApp sample = test::sampleApp();
    return sample;
}

/// Parts of a few makers' series, as a library has them: long common starts, all groups.
template <class Record>
typename Kind<Record>::Library partsLibrary(std::size_t count) {
    static constexpr std::wstring_view series[] = {L"RC0402FR-07", L"GRM155R71", L"SN74LVC1G",
                                                   L"BZX84C",      L"MMBT",      L"ERJ-3EKF"};
    static constexpr std::wstring_view values[] = {L"0.125", L"155", L"-1", L"N/A", L"50", L"4.7"};
    Dice dice(7);
    typename Kind<Record>::Library library;
    while (library.size() < count) {
        Record record;
        record.PartNum =
            std::wstring(dice.pick(series)) + std::to_wstring(1'000'000 + dice.roll(9'000'000));
        record.CatNum = std::to_wstring(dice.roll(1'000'000));
        record.Description = L"RES 10K OHM 1% 1/16W 0402, " + std::to_wstring(dice.roll(1000));
        record.Manufacturer = L"Acme Components";
        record.group = static_cast<std::int32_t>(1 + dice.roll(17));
        record.type = 1;
        const Names columns = Kind<Record>::columns(record.group);
        for (std::size_t i = 0; i < columns.size(); ++i)
            record.LPar[i] = columns[i].find(L"Pin") == std::wstring_view::npos
                                 ? std::wstring(dice.pick(values))
                                 : std::to_wstring(1 + dice.roll(9));
        UpdateCompletion(app().of<Record>(), record);
        library.emplace(record.PartNum, record);
    }
    return library;
}

template <class Record>
const std::string& libraryBytes(std::size_t count) {
    static std::map<std::size_t, std::string> files;
    std::string& bytes = files[count];
    if (bytes.empty()) {
        const auto library = partsLibrary<Record>(count);
        bytes = formatLibrary<Record>(app(), recordsByGroup(library), L"/lib.csv", {}).bytes;
        if (bytes != test::literalWrite<Record>(app(), library, L"/lib.csv")) {
            std::fputs("the writers differ\n", stderr);
            std::abort();
        }
        if (parseLibrary(app().of<Record>(), app().decimalMark(), bytes, CodePage::Utf8).records !=
            test::literalRead<Record>(app(), bytes, CodePage::Utf8)) {
            std::fputs("the readers differ\n", stderr);
            std::abort();
        }
    }
    return bytes;
}

std::size_t liveBytes() {
    const auto info = mallinfo2();
    return info.uordblks + info.hblkhd;
}

template <class Record>
void load(benchmark::State& state) {
    const std::string& bytes = libraryBytes<Record>(static_cast<std::size_t>(state.range(0)));
    std::size_t memory = 0;
    for (auto _ : state) {
        state.PauseTiming();
        std::string copy = bytes;
        const std::size_t before = liveBytes();
        state.ResumeTiming();
        auto parsed =
            parseLibrary(app().of<Record>(), app().decimalMark(), std::move(copy), CodePage::Utf8);
        state.PauseTiming();
        memory = liveBytes() + bytes.size() - before;
        { const auto dropped = std::move(parsed.records); }
        state.ResumeTiming();
    }
    state.counters["bytes_per_record"] =
        static_cast<double>(memory) / static_cast<double>(state.range(0));
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

template <class Record>
void loadLiteral(benchmark::State& state) {
    const std::string& bytes = libraryBytes<Record>(static_cast<std::size_t>(state.range(0)));
    for (auto _ : state) {
        auto library = test::literalRead<Record>(app(), bytes, CodePage::Utf8);
        state.PauseTiming();
        library.clear();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

template <class Record>
void tokenise(benchmark::State& state) {
    const std::string& bytes = libraryBytes<Record>(static_cast<std::size_t>(state.range(0)));
    std::size_t cells = 0;
    for (auto _ : state) {
        csv_parser parser;
        csv_init(&parser, 0);
        csv_parse(
            &parser, bytes.data(), bytes.size(),
            [](void*, std::size_t, void* count) { ++*static_cast<std::size_t*>(count); }, nullptr,
            &cells);
        csv_fini(&parser, nullptr, nullptr, nullptr);
        csv_free(&parser);
    }
    benchmark::DoNotOptimize(cells);
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

/// A file that is emptied and filled by one call, over and over, as every save but the first does.
class PlainFile {
public:
    ~PlainFile() { unlink(path_.c_str()); }
    void write(std::string_view bytes) const {
        const int file = open(path_.c_str(), O_RDWR | O_CREAT | O_TRUNC, 0600);
        if (file < 0 ||
            ::write(file, bytes.data(), bytes.size()) != static_cast<ssize_t>(bytes.size()))
            std::abort();
        close(file);
    }

private:
    std::string path_ = "/tmp/partwright_bench_" + std::to_string(getpid()) + ".csv";
};

void writePlain(std::string_view bytes) {
    static const PlainFile file;
    file.write(bytes);
}

template <class Record>
void save(benchmark::State& state) {
    // As a session has it: read from a file, into memory that nothing else has broken up.
    const auto& bytes = libraryBytes<Record>(static_cast<std::size_t>(state.range(0)));
    malloc_trim(0);
    const auto library =
        parseLibrary(app().of<Record>(), app().decimalMark(), bytes, CodePage::Utf8).records;
    for (auto _ : state)
        writePlain(formatLibrary<Record>(app(), recordsByGroup(library), L"/lib.csv", {}).bytes);
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

/// The writer alone, its records in the order of the file.
template <class Record>
void writeSorted(benchmark::State& state) {
    const auto& bytes = libraryBytes<Record>(static_cast<std::size_t>(state.range(0)));
    malloc_trim(0);
    const auto library =
        parseLibrary(app().of<Record>(), app().decimalMark(), bytes, CodePage::Utf8).records;
    const auto records = recordsByGroup(library);
    for (auto _ : state)
        writePlain(formatLibrary<Record>(app(), records, L"/lib.csv", {}).bytes);
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

template <class Record>
void saveLiteral(benchmark::State& state) {
    // As a session has it: read from a file, into memory that nothing else has broken up.
    const auto& bytes = libraryBytes<Record>(static_cast<std::size_t>(state.range(0)));
    malloc_trim(0);
    const auto library =
        parseLibrary(app().of<Record>(), app().decimalMark(), bytes, CodePage::Utf8).records;
    for (auto _ : state)
        writePlain(test::literalWrite<Record>(app(), library, L"/lib.csv"));
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

template <class Record>
void saveBytesOnly(benchmark::State& state) {
    const std::string& bytes = libraryBytes<Record>(static_cast<std::size_t>(state.range(0)));
    for (auto _ : state)
        writePlain(bytes);
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void loadSizes(benchmark::internal::Benchmark* benchmark) {
    benchmark->RangeMultiplier(10)->Range(1000, 1'000'000)->Unit(benchmark::kMillisecond);
}
void saveSize(benchmark::internal::Benchmark* benchmark) {
    benchmark->Arg(100'000)->Unit(benchmark::kMillisecond);
}

BENCHMARK_TEMPLATE(load, SdtaComponent)->Apply(loadSizes);
BENCHMARK_TEMPLATE(loadLiteral, SdtaComponent)->Apply(loadSizes);
BENCHMARK_TEMPLATE(tokenise, SdtaComponent)->Apply(loadSizes);
BENCHMARK_TEMPLATE(load, AsrComponent)->Arg(100'000)->Unit(benchmark::kMillisecond);
BENCHMARK_TEMPLATE(loadLiteral, AsrComponent)->Arg(100'000)->Unit(benchmark::kMillisecond);
BENCHMARK_TEMPLATE(tokenise, AsrComponent)->Arg(100'000)->Unit(benchmark::kMillisecond);
BENCHMARK_TEMPLATE(save, SdtaComponent)->Apply(saveSize);
BENCHMARK_TEMPLATE(writeSorted, SdtaComponent)->Apply(saveSize);
BENCHMARK_TEMPLATE(saveLiteral, SdtaComponent)->Apply(saveSize);
BENCHMARK_TEMPLATE(saveBytesOnly, SdtaComponent)->Apply(saveSize);
BENCHMARK_TEMPLATE(save, AsrComponent)->Apply(saveSize);
BENCHMARK_TEMPLATE(writeSorted, AsrComponent)->Apply(saveSize);
BENCHMARK_TEMPLATE(saveLiteral, AsrComponent)->Apply(saveSize);
BENCHMARK_TEMPLATE(saveBytesOnly, AsrComponent)->Apply(saveSize);

/// Prints the ratios that are promised.
class RatioReporter : public benchmark::ConsoleReporter {
public:
    void ReportRuns(const std::vector<Run>& runs) override {
        ConsoleReporter::ReportRuns(runs);
        for (const Run& run : runs)
            times_[run.benchmark_name()] = run.GetAdjustedRealTime();
    }
    void Finalize() override {
        for (const char* rows : {"1000", "10000", "100000", "1000000"}) {
            ratio("load<SdtaComponent>", "loadLiteral<SdtaComponent>", rows, 0.45);
            ratio("load<SdtaComponent>", "tokenise<SdtaComponent>", rows, 3.5);
        }
        ratio("load<AsrComponent>", "loadLiteral<AsrComponent>", "100000", 0.45);
        ratio("load<AsrComponent>", "tokenise<AsrComponent>", "100000", 3.5);
        for (const std::string kind : {"<SdtaComponent>", "<AsrComponent>"}) {
            ratio("save" + kind, "saveLiteral" + kind, "100000", 0.15);
            ratio("save" + kind, "saveBytesOnly" + kind, "100000", 5);
            ratio("writeSorted" + kind, "saveBytesOnly" + kind, "100000", 5);
        }
        const auto small = times_.find("load<SdtaComponent>/10000");
        const auto large = times_.find("load<SdtaComponent>/1000000");
        if (small != times_.end() && large != times_.end())
            std::printf("load, a row at 1,000,000 to a row at 10,000: %.2f, at most 2\n",
                        large->second / small->second / 100);
    }

private:
    void ratio(const std::string& ours, const std::string& other, const std::string& rows,
               double limit) {
        const auto a = times_.find(ours + "/" + rows);
        const auto b = times_.find(other + "/" + rows);
        if (a != times_.end() && b != times_.end())
            std::printf("%s to %s at %s: %.3f, at most %.2f\n", ours.c_str(), other.c_str(),
                        rows.c_str(), a->second / b->second, limit);
    }
    std::map<std::string, double> times_;
};

} // namespace

} // namespace partwright

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    partwright::RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    return 0;
}
