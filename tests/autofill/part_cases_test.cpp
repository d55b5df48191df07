// Real descriptions and part numbers through the shipped tables, from case files:
//
//   tests/data/classify/*.cases   refdes <TAB> description <TAB> group <TAB> type or * <TAB> values
//   tests/data/glib/*.cases       part number <TAB> group <TAB> type <TAB> values [<TAB> Analyses]
//                                 part number <TAB> -            must not decode
//
// Values are "LPar1=0.1;LPar2=" and an empty one must stay empty. analyses.cases expects the
// answer of the Analyses library.

#include "autofill/fill_engine.h"
#include "core/paths.h"
#include "core/text.h"
#include "library/property_tables.h"
#include "library/small_tables.h"
#include "support/places.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <memory>

namespace partwright {
namespace {

class PartCases : public testing::Test {
protected:
    static void SetUpTestSuite() {
        app = std::make_unique<CPartwrightPlugInApp>();
        app->paths.programFolder = withSeparator(pathText(places::tables));
        ResolveFilePaths(app->paths, L"/nowhere");
        LoadSdtaProperties(app->paths, app->sdta);
        LoadGroupNames(app->paths, app->classifier, app->sdta);
        LoadAsrProperties(app->paths, app->asr);
        LoadConvBiCode(app->paths, app->classifier);
        engine = std::make_unique<FillEngine>(*app);
        for (const LoadResult& result : engine->load())
            ASSERT_EQ(result.status, FileStatus::Ok) << encodeUtf8(result.path);
    }
    static void TearDownTestSuite() {
        engine.reset();
        app.reset();
    }

    static std::unique_ptr<CPartwrightPlugInApp> app;
    static std::unique_ptr<FillEngine> engine;
};
std::unique_ptr<CPartwrightPlugInApp> PartCases::app;
std::unique_ptr<FillEngine> PartCases::engine;

struct CaseLine {
    std::string place;
    std::vector<std::wstring> fields;
};

std::vector<CaseLine> linesOf(const std::filesystem::path& path) {
    const TextFile file = readTextFile(pathText(path));
    EXPECT_EQ(file.status, FileStatus::Ok) << path;
    std::vector<CaseLine> lines;
    LineReader reader(file.bytes);
    int number = 0;
    for (std::string_view line; reader.next(line);) {
        ++number;
        if (line.empty() || line.front() == '#')
            continue;
        CaseLine one{path.filename().string() + ":" + std::to_string(number), {}};
        const std::wstring text = decode(line, CodePage::Utf8);
        for (const std::wstring_view field : split(text, L'\t'))
            one.fields.emplace_back(field);
        one.fields.resize(6);
        lines.push_back(std::move(one));
    }
    EXPECT_FALSE(lines.empty()) << path;
    return lines;
}

std::vector<std::filesystem::path> caseFiles(const char* folder) {
    std::vector<std::filesystem::path> files;
    for (const auto& entry :
         std::filesystem::directory_iterator(std::filesystem::path(places::testData) / folder))
        if (entry.path().extension() == ".cases")
            files.push_back(entry.path());
    return files;
}

/// What differs between an answer and the expected fields; empty when nothing does.
template <class Record>
std::string difference(const CPartwrightPlugInApp& app, const FilledPart& part,
                       const std::wstring& group, const std::wstring& type,
                       const std::wstring& values) {
    std::string text;
    if (part.found.group != toInteger(group))
        text += " group " + std::to_string(part.found.group) + " for " + encodeUtf8(group);
    const auto typeName =
        app.of<Record>().GroupAndTypeNames(part.found.group, part.found.type).second;
    if (type != L"*" && typeName != type)
        text += " type " + encodeUtf8(typeName) + " for " + encodeUtf8(type);
    for (const std::wstring_view value : split(values, L';')) {
        if (value.empty())
            continue;
        const auto equals = value.find(L'=');
        const auto slot = static_cast<std::size_t>(toInteger(value.substr(4, equals - 4)));
        const std::wstring& is = part.cells.at(slot - 1);
        if (is != value.substr(equals + 1))
            text += " LPar" + std::to_string(slot) + "=" + encodeUtf8(is) + " for " +
                    encodeUtf8(value.substr(equals + 1));
    }
    return text;
}

TEST_F(PartCases, DescriptionsAreClassifiedAndFilled) {
    std::size_t rows = 0;
    for (const auto& path : caseFiles("classify"))
        for (const CaseLine& line : linesOf(path)) {
            const auto& f = line.fields;
            const std::string wrong =
                path.filename() == "analyses.cases"
                    ? difference<AsrComponent>(*app, engine->fill<AsrComponent>(f[0], f[1]), f[2],
                                               f[3], f[4])
                    : difference<SdtaComponent>(*app, engine->fill<SdtaComponent>(f[0], f[1]), f[2],
                                                f[3], f[4]);
            EXPECT_EQ(wrong, "") << line.place << ": " << encodeUtf8(f[0]) << ", "
                                 << encodeUtf8(f[1]);
            ++rows;
        }
    EXPECT_GE(rows, 400U);
}

TEST_F(PartCases, PartNumbersAreDecoded) {
    for (const auto& path : caseFiles("glib"))
        for (const CaseLine& line : linesOf(path)) {
            const auto& f = line.fields;
            const PartDescription part = engine->describe(f[0]);
            if (f[1] == L"-") {
                EXPECT_EQ(encodeUtf8(part.description), "")
                    << line.place << ": " << encodeUtf8(f[0]);
                continue;
            }
            std::string wrong = difference<SdtaComponent>(
                *app, engine->fillByWords<SdtaComponent>({}, part.description), f[1], f[2], f[3]);
            if (!f[4].empty()) {
                FilledPart analyses = engine->fillByWords<AsrComponent>({}, part.description);
                wrong += difference<AsrComponent>(
                    *app, analyses, std::to_wstring(analyses.found.group), L"*", f[4]);
            }
            EXPECT_EQ(wrong, "") << line.place << ": " << encodeUtf8(f[0]) << ", "
                                 << encodeUtf8(part.description);
        }
}

} // namespace
} // namespace partwright
