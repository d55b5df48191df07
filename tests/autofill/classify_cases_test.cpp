// The case files of tests/data/classify through all of the way that a description takes: rewritten
// by the synonyms, group by designator and words, type, type by rule, values. One line of a file:
//
//   designator <TAB> description <TAB> group <TAB> type or "*" [<TAB> LPar1=0.1;LPar2=75]
//
// A value not named is not looked at; "LPar1=" wants it empty. Files named "analyses..." go on from
// the SDTA group to the Analyses group and are read by its rules.

#include "autofill/classifier.h"
#include "autofill/compiled_tables.h"
#include "autofill/param_rules.h"
#include "autofill/synonyms.h"
#include "core/encoding.h"
#include "core/text.h"
#include "core/text_file.h"
#include "library/property_tables.h"
#include "library/small_tables.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace partwright {
namespace {

struct Answer {
    std::int32_t group = 0;
    std::int32_t type = 0;
    std::wstring typeName;
    std::array<std::wstring, 26> cells;
    std::wstring text;
};

/// The shipped tables, loaded and prepared once.
class Flow {
public:
    Flow() : tables_(compiledFillTables()) {
        app_.programFolder = decodeLossy(PARTWRIGHT_TABLES "/");
        app_.descrRulesPath = app_.programFolder + L"DescrRules.csv";
        app_.descrRulesSdtaTypesPath = app_.programFolder + L"DescrRules_SDTATypes.csv";
        app_.managementTablePath = app_.programFolder + L"SDTA_ASR_MGT.csv";
        EXPECT_EQ(LoadGroupNames(app_).status, FileStatus::Ok);
        EXPECT_EQ(LoadAsrProperties(app_).status, FileStatus::Ok);
        EXPECT_EQ(LoadManagementTable(app_).status, FileStatus::Ok);
        EXPECT_EQ(LoadConvBiCode(app_).status, FileStatus::Ok);
        EXPECT_EQ(LoadSynonyms(app_, synonyms_).status, FileStatus::Ok);
        EXPECT_TRUE(synonyms_.faultyLines().empty())
            << "DescrSynonyms.csv:" << synonyms_.faultyLines().front();
        TypeKeywords keywords;
        EXPECT_EQ(LoadTypeKeywords(app_, keywords).status, FileStatus::Ok);
        classifier_ = std::make_unique<Classifier>(app_, keywords, tables_.units);
    }

    Answer run(std::wstring_view designator, std::wstring_view description,
               std::int32_t family) const {
        Answer answer;
        answer.text = synonyms_.rewrite(description);
        answer.group = classifier_->DetectGroup(designator, answer.text, false);
        if (family == ruleFamily::analyses)
            answer.group = analysesGroup(answer.group);
        classifier_->DetectType(family, answer.group, answer.text, answer.type);
        const ParamFiller filler(tables_, app_);
        const ScannedText scanned(answer.text);
        filler.RefineTypeByRule(family, answer.group, answer.type, scanned);
        std::wstring note;
        filler.FillParamsFromDescription(answer.group, answer.type, answer.cells, scanned, family,
                                         note);
        const auto names = family == ruleFamily::sdta
                               ? app_.GroupAndTypeNames(answer.group, answer.type)
                               : app_.AsrGroupAndTypeNames(answer.group, answer.type);
        answer.typeName = names.second;
        return answer;
    }

private:
    [[nodiscard]] std::int32_t analysesGroup(std::int32_t sdtaGroup) const {
        std::int32_t family = 0;
        const std::int32_t code = ConvertBiCode(app_, sdtaGroup, family);
        if (code == noBiCode)
            return sdtaGroup == 0 ? 0 : 1;
        return code == 4 ? 9 : std::max(code, 0);
    }

    CPartwrightPlugInApp app_;
    FillTables tables_;
    SynonymTable synonyms_;
    std::unique_ptr<Classifier> classifier_;
};

void checkLine(const Flow& flow, std::wstring_view line, std::int32_t family) {
    const auto fields = split(line, L'\t');
    ASSERT_GE(fields.size(), 4U) << "a case has at least four fields";
    const Answer answer = flow.run(fields[0], fields[1], family);
    SCOPED_TRACE(encodeUtf8(fields[0]) + "  " + encodeUtf8(fields[1]) + "\n   read as " +
                 encodeUtf8(answer.text));
    EXPECT_EQ(answer.group, toInteger(fields[2]));
    if (fields[3] != L"*") {
        EXPECT_EQ(encodeUtf8(answer.typeName), encodeUtf8(fields[3]));
    }
    for (const auto wanted : split(fields.size() > 4 ? fields[4] : std::wstring_view(), L';')) {
        if (trim(wanted).empty())
            continue;
        constexpr std::wstring_view prefix = L"LPar";
        const auto equals = wanted.find(L'=');
        ASSERT_TRUE(trim(wanted).starts_with(prefix) && equals != std::wstring_view::npos);
        const std::int32_t number = toInteger(trim(wanted).substr(prefix.size()));
        ASSERT_TRUE(number >= 1 && number <= 26);
        EXPECT_EQ(encodeUtf8(answer.cells[static_cast<std::size_t>(number - 1)]),
                  encodeUtf8(trim(wanted.substr(equals + 1))))
            << "LPar" << number;
    }
}

class ClassifyCases : public testing::TestWithParam<std::string> {};

TEST_P(ClassifyCases, ComeOutAsExpected) {
    static const Flow flow;
    const std::string path = std::string(PARTWRIGHT_TEST_DATA "/classify/") + GetParam();
    const TextFile file = readTextFile(decodeLossy(path));
    ASSERT_EQ(file.status, FileStatus::Ok);
    const bool analyses = GetParam().starts_with("analyses");
    LineReader reader(file.bytes);
    int number = 0;
    int cases = 0;
    for (std::string_view line; reader.next(line);) {
        ++number;
        if (line.empty() || line.front() == '#')
            continue;
        ++cases;
        SCOPED_TRACE(path + ":" + std::to_string(number));
        checkLine(flow, decodeLossy(line), analyses ? ruleFamily::analyses : ruleFamily::sdta);
    }
    EXPECT_GT(cases, 0);
}

std::vector<std::string> caseFiles() {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(PARTWRIGHT_TEST_DATA "/classify"))
        if (entry.path().extension() == ".cases")
            names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

INSTANTIATE_TEST_SUITE_P(Files, ClassifyCases, testing::ValuesIn(caseFiles()),
                         [](const auto& file) {
                             return file.param.substr(0, file.param.find('.'));
                         });

} // namespace
} // namespace partwright
