// The value side of the auto-fill engine against its literal forms, in one run.
//
//   ./build/bench/bin/autofill_bench
//
// Before anything is timed the answers are compared; a difference ends the program. Wanted: rule
// terms at most 0.2 of the literal evaluation, the rule of a part number among 1,000 in at most one
// microsecond, classification and filling of a part at most 0.02 of the literal flow and as fast at
// 1,000,000 parts as at 10,000.

#include "autofill/classifier.h"
#include "autofill/compiled_tables.h"
#include "autofill/group_library.h"
#include "autofill/literal_classifier.h"
#include "autofill/literal_rules.h"
#include "autofill/type_keywords.h"
#include "core/paths.h"
#include "core/text_file.h"
#include "library/property_tables.h"
#include "library/small_tables.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <random>
#include <regex>

namespace partwright {
namespace {

[[noreturn]] void differs(const char* what, const std::wstring& text) {
    std::fprintf(stderr, "%s differs for: %s\n", what, encodeUtf8(text).c_str());
    std::exit(1);
}

const CPartwrightPlugInApp& app() {
    static const CPartwrightPlugInApp loaded = [] {
        CPartwrightPlugInApp result;
        result.paths.programFolder = withSeparator(pathText(PARTWRIGHT_TABLES));
        ResolveFilePaths(result.paths, L"unused");
        for (const LoadResult& table :
             {LoadSdtaProperties(result.paths, result.sdta),
              LoadGroupNames(result.paths, result.classifier, result.sdta),
              LoadManagementTable(result.paths, result.classifier)})
            if (table.status != FileStatus::Ok)
                differs("A table", result.paths.programFolder);
        return result;
    }();
    return loaded;
}

const FillTables& tables() {
    static const FillTables compiled = compiledFillTables();
    return compiled;
}

const TypeKeywords& keywords() {
    static const TypeKeywords loaded = [] {
        TypeKeywords result;
        if (LoadTypeKeywords(app().paths, result).status != FileStatus::Ok)
            differs("A table", app().paths.descrRulesSdtaTypesPath);
        return result;
    }();
    return loaded;
}

struct Part {
    std::wstring designator;
    std::wstring description;
};

/// Descriptions as they stand on part lists, of many families and none twice.
std::vector<Part> parts(std::size_t count) {
    static const struct {
        const wchar_t *designator, *words[4];
    } kinds[] = {
        {L"R", {L"RES", L"CHIP 0603", L"1% 100ppm", L"0.1W 75V"}},
        {L"R", {L"RES THICK FILM", L"0805", L"5%", L"1/8W 150V 155C"}},
        {L"C", {L"CAP CER MLCC", L"X7R 0402", L"10%", L"50V"}},
        {L"C", {L"CAP ALUM ELECT", L"SMD", L"20%", L"25 V 105C"}},
        {L"L", {L"INDUCTOR", L"SHIELDED SMD", L"20%", L"1.2A"}},
        {L"D", {L"DIODE SCHOTTKY", L"DO-35", L"", L"40V, 1A"}},
        {L"D", {L"DIODE ZENER", L"SOT-23", L"", L"5V1 300mW"}},
        {L"Q", {L"TRANS NPN", L"SOT-23", L"", L"40V 0.2A 225mW"}},
        {L"U", {L"IC OP AMP", L"SO8", L"RAIL TO RAIL", L"5.5V 10MHz"}},
        {L"J", {L"CONN HEADER", L"24AWG", L"14 pin", L"250V 3A"}},
        {L"F", {L"FUSE", L"1206", L"FAST", L"63V 2A"}},
        {L"K", {L"RELAY DPDT", L"THT", L"", L"12 VDC 2A"}},
    };
    static const wchar_t* const units[] = {L"ohm", L"k", L"nF", L"uH", L"uF", L"R"};
    std::mt19937 random(7);
    std::vector<Part> list(count);
    for (std::size_t i = 0; i < count; ++i) {
        const auto& kind = kinds[random() % std::size(kinds)];
        list[i].designator = kind.designator + std::to_wstring(i + 1);
        for (const wchar_t* words : kind.words)
            if (*words != L'\0')
                list[i].description.append(words).append(random() % 4 == 0 ? L", " : L" ");
        list[i].description += std::to_wstring(i) + units[random() % std::size(units)];
    }
    return list;
}

using Cells = std::vector<std::wstring>;

/// One part the literal way: every rule parsed for every cell.
std::int32_t literalFill(const RuleKey& key, const std::wstring& text, Cells& cells) {
    cells.assign(24, {});
    const PreparedRuleRow* row = tables().rules.find(key);
    if (!row)
        return key.type;
    literal::Evaluation evaluation{text, L'.',     key.family, key.group,
                                   0,    key.type, L"",        &tables().units};
    literal::fill(std::vector<std::wstring>(row->texts.begin(), row->texts.end()), cells,
                  evaluation);
    return evaluation.type;
}

const RuleKey ruleKeys[] = {{14, 1, 1},  {14, 4, 1},  {14, 7, 1},  {14, 10, 1},
                            {14, 11, 1}, {14, 19, 1}, {20, 14, 1}, {20, 25, 1}};

void literalRules(benchmark::State& state) {
    const std::vector<Part> list = parts(200);
    Cells cells;
    for (auto _ : state)
        for (const Part& part : list)
            for (const RuleKey& key : ruleKeys)
                benchmark::DoNotOptimize(literalFill(key, part.description, cells));
    state.SetItemsProcessed(state.iterations() * 200);
}
BENCHMARK(literalRules)->Unit(benchmark::kMillisecond);

void preparedRules(benchmark::State& state) {
    const std::vector<Part> list = parts(200);
    Cells cells(24);
    Cells plain;
    std::wstring note;
    ScannedText text;
    const auto fill = [&](const RuleKey& key, const Part& part) {
        for (std::wstring& cell : cells)
            cell.clear();
        note.clear();
        text.assign(part.description);
        return ApplyParamRules(tables().rules, {key, text, L'.', note}, cells);
    };
    for (const Part& part : list)
        for (const RuleKey& key : ruleKeys)
            if (fill(key, part) != literalFill(key, part.description, plain) || cells != plain)
                differs("A filled row", part.description);
    for (auto _ : state)
        for (const Part& part : list)
            for (const RuleKey& key : ruleKeys)
                benchmark::DoNotOptimize(fill(key, part));
    state.SetItemsProcessed(state.iterations() * 200);
}
BENCHMARK(preparedRules)->Unit(benchmark::kMillisecond);

/// A thousand series with part numbers of each.
void ruleOfPartNumber(benchmark::State& state) {
    std::mt19937 random(3);
    GroupLibraryTable table;
    std::vector<std::wstring> numbers;
    std::vector<std::wregex> plain;
    for (std::int32_t id = 1; id <= 1000; ++id) {
        std::wstring series;
        for (int i = 0; i < 3; ++i)
            series += static_cast<wchar_t>(L'A' + random() % 26);
        series += std::to_wstring(id);
        GroupLibraryRule rule;
        rule.id = id;
        rule.regExp = series + L"(0402|0603|0805|1206)[BDFJ][RK]-07([1-9][0-9][RKM]|[0-9]{3,4})L?";
        plain.emplace_back(rule.regExp);
        table.push_back(rule);
        numbers.push_back(series + L"0603FR-0710KL");
        numbers.push_back(series + L"0603XR-0710KL");
    }
    std::vector<std::wstring> expressions;
    for (const GroupLibraryRule& rule : table)
        expressions.push_back(rule.regExp);
    const RegularExpressionSet set(expressions);
    for (std::size_t i = 0; i < numbers.size(); i += 97) {
        std::vector<std::size_t> expected;
        for (std::size_t k = 0; k < plain.size(); ++k)
            if (std::regex_match(numbers[i], plain[k]))
                expected.push_back(k);
        if (set.matches(numbers[i]) != expected)
            differs("The rule", numbers[i]);
    }
    for (auto _ : state)
        for (const std::wstring& number : numbers)
            benchmark::DoNotOptimize(set.matches(number).data());
    state.counters["per part"] = benchmark::Counter(static_cast<double>(numbers.size()),
                                                    benchmark::Counter::kIsIterationInvariantRate |
                                                        benchmark::Counter::kInvert);
}
BENCHMARK(ruleOfPartNumber)->Unit(benchmark::kMillisecond);

void literalFlow(benchmark::State& state) {
    const std::vector<Part> list = parts(static_cast<std::size_t>(state.range(0)));
    test::LiteralClassifier classifier(app(), keywords(), tables().units);
    Cells cells;
    for (auto _ : state)
        for (const Part& part : list) {
            std::int32_t group = classifier.DetectGroup(part.designator, part.description, false);
            std::int32_t type = 0;
            classifier.DetectType(14, group, part.description, type);
            benchmark::DoNotOptimize(literalFill({14, group, type}, part.description, cells));
        }
    state.counters["per part"] = benchmark::Counter(static_cast<double>(list.size()),
                                                    benchmark::Counter::kIsIterationInvariantRate |
                                                        benchmark::Counter::kInvert);
}
BENCHMARK(literalFlow)->Arg(500)->Unit(benchmark::kMillisecond)->Iterations(1);

void preparedFlow(benchmark::State& state) {
    const std::vector<Part> list = parts(static_cast<std::size_t>(state.range(0)));
    const Classifier classifier(app().classifier, keywords(), tables().units);
    const ParamFiller filler(tables(), app());
    Cells cells(24);
    std::wstring note;
    ScannedText text;
    std::int32_t group = 0;
    std::int32_t type = 0;
    const auto run = [&](const Part& part) {
        group = classifier.DetectGroup(part.designator, part.description, false);
        classifier.DetectType(14, group, part.description, type);
        text.assign(part.description);
        filler.FillParamsFromDescription(group, type, cells, text, 14, note);
    };
    test::LiteralClassifier literal(app(), keywords(), tables().units);
    Cells plain;
    for (std::size_t i = 0; i < 100; ++i) {
        const Part& part = list[i];
        std::int32_t literalGroup = literal.DetectGroup(part.designator, part.description, false);
        std::int32_t literalType = 0;
        literal.DetectType(14, literalGroup, part.description, literalType);
        const std::int32_t used = literalType == 0 ? 1 : literalType;
        const std::int32_t after = literalFill({14, literalGroup, used}, part.description, plain);
        run(part);
        if (group != literalGroup || type != (after == used ? literalType : after) ||
            cells != plain)
            differs("A classified part", part.description);
    }
    for (auto _ : state)
        for (const Part& part : list)
            run(part);
    state.counters["per part"] = benchmark::Counter(static_cast<double>(list.size()),
                                                    benchmark::Counter::kIsIterationInvariantRate |
                                                        benchmark::Counter::kInvert);
}
BENCHMARK(preparedFlow)
    ->Arg(10'000)
    ->Arg(100'000)
    ->Arg(1'000'000)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(1);

} // namespace
} // namespace partwright

BENCHMARK_MAIN();
