// Regular expressions against the standard library's, tried one after the other.
//
//   ./build/bench/bin/regex_bench
//
// Shows first that a million random pairs of expression and text, and all descriptions and part
// numbers used here, get the same answer. The group rules are those of the shipped DescrRules.csv.

#include "autofill/group_detector.h"
#include "autofill/literal_classifier.h"
#include "autofill/synonyms.h"
#include "core/encoding.h"
#include "core/text.h"
#include "library/property_tables.h"
#include "sample_descriptions.h"
#include "support/random_expressions.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <random>

namespace partwright {

namespace {

void demand(bool condition, const char* what) {
    if (condition)
        return;
    std::fprintf(stderr, "differs: %s\n", what);
    std::exit(1);
}

void compareRandomPairs() {
    test::RandomExpressions random(1);
    for (int i = 0; i < 50'000; ++i) {
        const std::wstring text = i % 5 == 0 ? random.noise() : random.expression();
        const test::StandardExpression standard(text);
        const RegularExpression single(text);
        const RegularExpressionSet set({text});
        demand(standard.valid() == single.valid(), "validity");
        for (int t = 0; t < 20; ++t) {
            const std::wstring subject = random.text();
            const bool expected = standard.fullMatch(subject);
            demand(single.fullMatch(subject) == expected, "single expression");
            demand(set.matches(subject).size() == (expected ? 1U : 0U), "set");
        }
    }
}

const CPartwrightPlugInApp& app() {
    static const CPartwrightPlugInApp loaded = [] {
        CPartwrightPlugInApp made;
        made.paths.programFolder = decodeLossy(PARTWRIGHT_TABLES "/");
        made.paths.descrRulesPath = made.paths.programFolder + L"DescrRules.csv";
        demand(LoadGroupNames(made.paths, made.classifier, made.sdta).status == FileStatus::Ok,
               "DescrRules.csv was not read");
        return made;
    }();
    return loaded;
}

/// Group detection asks for neither keywords nor units.
const TypeKeywords noKeywords;
const UnitTable noUnits;

const std::vector<bench::Part>& parts() {
    static const std::vector<bench::Part> made = [] {
        SynonymTable synonyms;
        LoadSynonyms(app().paths, synonyms);
        std::vector<bench::Part> result = bench::sampleParts(20'000);
        for (bench::Part& part : result)
            part.description = synonyms.rewrite(part.description);
        return result;
    }();
    return made;
}

// Distinct descriptions all the way, as a first reading of a large library meets them.
void groupDetection(benchmark::State& state) {
    const GroupDetector detector(app().classifier);
    const auto& all = parts();
    std::size_t at = 0;
    for ([[maybe_unused]] const auto once : state) {
        const bench::Part& part = all[at == all.size() ? at = 0 : at];
        ++at;
        benchmark::DoNotOptimize(detector.DetectGroup(part.designators, part.description, false));
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(groupDetection)->MinTime(2);

void groupDetectionLiteral(benchmark::State& state) {
    test::LiteralClassifier literal(app(), noKeywords, noUnits);
    const auto& all = parts();
    std::size_t at = 0;
    for ([[maybe_unused]] const auto once : state) {
        const bench::Part& part = all[at == all.size() ? at = 0 : at];
        ++at;
        benchmark::DoNotOptimize(literal.DetectGroup(part.designators, part.description, false));
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(groupDetectionLiteral)->MinTime(2);

/// Series of part numbers, as a group library of a thousand rules has them.
std::vector<std::wstring> seriesExpressions() {
    std::vector<std::wstring> result;
    std::mt19937 random(3);
    const auto letter = [&random] { return static_cast<wchar_t>(L'A' + random() % 26); };
    while (result.size() < 1'000) {
        std::wstring text{letter(), letter()};
        text += random() % 2 == 0 ? std::wstring{letter()} : std::wstring();
        text += L"(0201|0402|0603|0805|1206)[FJK][RT]-[0-9]{2}([0-9]R[0-9]{1,2}|[0-9]{1,4}[KM]?)L?";
        result.push_back(std::move(text));
    }
    return result;
}

std::vector<std::wstring> partNumbers(const std::vector<std::wstring>& series) {
    std::vector<std::wstring> result;
    std::mt19937 random(4);
    for (int i = 0; i < 20'000; ++i) {
        const std::wstring& text = series[random() % series.size()];
        static const std::wstring sizes[] = {L"0402", L"0603", L"0805", L"1210"};
        result.push_back(text.substr(0, text.find(L'(')) + sizes[random() % 4] + L"JR-07" +
                         std::to_wstring(random() % 10'000) + (random() % 2 == 0 ? L"KL" : L"L"));
    }
    return result;
}

void ruleOfPartNumber(benchmark::State& state) {
    const auto series = seriesExpressions();
    const auto numbers = partNumbers(series);
    const RegularExpressionSet set(series);
    std::size_t at = 0;
    for ([[maybe_unused]] const auto once : state)
        benchmark::DoNotOptimize(set.matches(numbers[at++ % numbers.size()]).data());
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(ruleOfPartNumber)->MinTime(1);

void compareAnswers() {
    const GroupDetector detector(app().classifier);
    test::LiteralClassifier literal(app(), noKeywords, noUnits);
    for (std::size_t i = 0; i < parts().size(); i += 10)
        demand(detector.DetectGroup(parts()[i].designators, parts()[i].description, false) ==
                   literal.DetectGroup(parts()[i].designators, parts()[i].description, false),
               "group of a description");
    const auto series = seriesExpressions();
    const RegularExpressionSet set(series);
    std::vector<test::StandardExpression> standard;
    for (const auto& text : series)
        standard.emplace_back(text);
    const auto numbers = partNumbers(series);
    for (std::size_t n = 0; n < numbers.size(); n += 100) {
        std::vector<std::size_t> expected;
        for (std::size_t i = 0; i < standard.size(); ++i)
            if (standard[i].fullMatch(numbers[n]))
                expected.push_back(i);
        demand(set.matches(numbers[n]) == expected, "rules of a part number");
    }
}

} // namespace

} // namespace partwright

int main(int argumentCount, char** arguments) {
    partwright::compareRandomPairs();
    partwright::compareAnswers();
    std::puts("equal answers; a million random pairs compared");
    benchmark::Initialize(&argumentCount, arguments);
    benchmark::RunSpecifiedBenchmarks();
}
