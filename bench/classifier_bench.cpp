// Type detection against the literal one, over the shipped tables.
//
//   ./build/bench/bin/classifier_bench
//
// Shows first that both give the same group and type for every description.

#include "autofill/classifier.h"
#include "autofill/compiled_tables.h"
#include "autofill/literal_classifier.h"
#include "autofill/synonyms.h"
#include "core/encoding.h"
#include "library/property_tables.h"
#include "library/small_tables.h"
#include "sample_descriptions.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>

namespace partwright {

namespace {

struct Tables {
    CPartwrightPlugInApp app;
    FillTables fill = compiledFillTables();
    TypeKeywords keywords;
    SynonymTable synonyms;
    std::vector<bench::Part> parts = bench::sampleParts(10'000);
    std::vector<std::int32_t> groups;

    Tables() {
        app.paths.programFolder = decodeLossy(PARTWRIGHT_TABLES "/");
        app.paths.descrRulesPath = app.paths.programFolder + L"DescrRules.csv";
        app.paths.descrRulesSdtaTypesPath = app.paths.programFolder + L"DescrRules_SDTATypes.csv";
        app.paths.managementTablePath = app.paths.programFolder + L"SDTA_ASR_MGT.csv";
        LoadGroupNames(app.paths, app.classifier, app.sdta);
        LoadManagementTable(app.paths, app.classifier);
        LoadTypeKeywords(app.paths, keywords);
        LoadSynonyms(app.paths, synonyms);
        const GroupDetector detector(app.classifier);
        for (bench::Part& part : parts) {
            part.description = synonyms.rewrite(part.description);
            groups.push_back(detector.DetectGroup(part.designators, part.description, false));
        }
    }
};

const Tables& tables() {
    static const Tables made;
    return made;
}

template <class Classifier>
void detectTypes(benchmark::State& state, Classifier& classifier) {
    std::size_t at = 0;
    for ([[maybe_unused]] const auto once : state) {
        const std::size_t index = at++ % tables().parts.size();
        std::int32_t group = tables().groups[index];
        std::int32_t type = 0;
        classifier.DetectType(14, group, tables().parts[index].description, type);
        benchmark::DoNotOptimize(type);
    }
    state.SetItemsProcessed(state.iterations());
}

void typeDetection(benchmark::State& state) {
    const Classifier classifier(tables().app.classifier, tables().keywords, tables().fill.units);
    detectTypes(state, classifier);
}
BENCHMARK(typeDetection)->MinTime(1);

void typeDetectionLiteral(benchmark::State& state) {
    test::LiteralClassifier literal(tables().app, tables().keywords, tables().fill.units);
    detectTypes(state, literal);
}
BENCHMARK(typeDetectionLiteral)->MinTime(1);

void rewriting(benchmark::State& state) {
    const auto parts = bench::sampleParts(10'000);
    std::size_t at = 0;
    for ([[maybe_unused]] const auto once : state)
        benchmark::DoNotOptimize(tables().synonyms.rewrite(parts[at++ % parts.size()].description));
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(rewriting)->MinTime(1);

void compareAnswers() {
    const Classifier classifier(tables().app.classifier, tables().keywords, tables().fill.units);
    test::LiteralClassifier literal(tables().app, tables().keywords, tables().fill.units);
    for (std::size_t i = 0; i < tables().parts.size(); ++i) {
        std::int32_t fastGroup = tables().groups[i];
        std::int32_t slowGroup = fastGroup;
        std::int32_t fastType = 0;
        std::int32_t slowType = 0;
        classifier.DetectType(14, fastGroup, tables().parts[i].description, fastType);
        literal.DetectType(14, slowGroup, tables().parts[i].description, slowType);
        if (fastGroup != slowGroup || fastType != slowType) {
            std::fprintf(stderr, "differs: %s\n",
                         encodeUtf8(tables().parts[i].description).c_str());
            std::exit(1);
        }
    }
}

} // namespace

} // namespace partwright

int main(int argumentCount, char** arguments) {
    partwright::compareAnswers();
    std::puts("equal answers");
    benchmark::Initialize(&argumentCount, arguments);
    benchmark::RunSpecifiedBenchmarks();
}
