#include "autofill/classifier.h"
#include "autofill/compiled_tables.h"
#include "autofill/literal_classifier.h"
#include "autofill/random_classification.h"
#include "core/encoding.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

namespace partwright {
namespace {

class ClassifierTest : public testing::Test {
protected:
    static void SetUpTestSuite() { tables_ = new FillTables(compiledFillTables()); }
    static void TearDownTestSuite() { delete tables_; }

    static const UnitTable& units() { return tables_->units; }

    static TypeKeywords keywordsOf(std::string_view rows) {
        const std::string file = "BiCod,ParamID,Rules,RulesExcluding\n" + std::string(rows);
        return typeKeywordsOf(parseRuleTable(file, CodePage::Utf8, typeKeywordForm()));
    }

private:
    static const FillTables* tables_;
};
const FillTables* ClassifierTest::tables_ = nullptr;

// Tables and descriptions of random words that overlap, hold separators and touch each other.
TEST_F(ClassifierTest, AnswersAsTheLiteralForm) {
    test::RandomClassification random(7);
    std::size_t groupsFound = 0;
    std::size_t typesFound = 0;
    for (int round = 0; round < 60; ++round) {
        CPartwrightPlugInApp app;
        random.fillGroups(app);
        random.fillDirectKeys(app);
        const TypeKeywords keywords = keywordsOf(encodeUtf8(random.typeRows()));
        const Classifier classifier(app.classifier, keywords, units());
        test::LiteralClassifier literal(app, keywords, units());
        for (int i = 0; i < 150; ++i) {
            const std::wstring description = random.description();
            const std::wstring designators = random.designators();
            const bool byName = i % 2 == 1;
            const auto group = classifier.DetectGroup(designators, description, byName);
            ASSERT_EQ(group, literal.DetectGroup(designators, description, byName))
                << encodeUtf8(designators + L"  " + description);
            groupsFound += group > 0 ? 1 : 0;
            for (const std::int32_t family : {14, 20}) {
                std::int32_t fastGroup = 1 + i % 4;
                std::int32_t slowGroup = fastGroup;
                std::int32_t fastType = -1;
                std::int32_t slowType = -1;
                classifier.DetectType(family, fastGroup, description, fastType);
                literal.DetectType(family, slowGroup, description, slowType);
                ASSERT_EQ(std::tuple(fastGroup, fastType), std::tuple(slowGroup, slowType))
                    << encodeUtf8(description) << " in group " << 1 + i % 4;
                typesFound += fastType > 0 ? 1 : 0;
            }
        }
    }
    EXPECT_GT(groupsFound, 3'000U);
    EXPECT_GT(typesFound, 5'000U);
}

TEST_F(ClassifierTest, GroupWantsWordsAndDesignator) {
    CPartwrightPlugInApp app;
    app.classifier.GroupRuleTable = {
        {1, {L".*", L".*RES.*|.*(CAP|[a-Z]).*"}}, // not valid: does not exclude
        {10, {L".*(res|ohm).*", L".*LED.*"}},
        {11, {L".*CAP.*", L""}},
        {12, {L"[_-a]|.*", L""}}}; // valid as written, not in capitals
    app.classifier.GroupRefDesTable = {
        {1, L"U, IC"}, {10, L"r,RN,,"}, {11, L"C"}, {12, L"L"}, {15, L"FL,R"}};
    app.classifier.groupNamesByCode = {{10, L"Resistor"}, {11, L"Capacitor"}};
    const GroupDetector detector(app.classifier);
    struct Case {
        const wchar_t* designators;
        const wchar_t* description;
        bool byName;
        std::int32_t group;
    };
    const Case cases[] = {
        {L"R1", L"Res 4k7", false, 10},
        {L"r1", L"res 4k7", true, 10},
        {L"X1, rn2", L"RES", false, 10},
        {L"R", L"RES", false, 0},
        {L"12", L"RES", false, 0},
        {L"", L"RES", false, 0},
        {L"R1", L"RES WITH LED", true, 0},
        {L"R1", L"RES WITH LED", false, 10},
        {L"FL1", L"ANYTHING", false, 15},
        {L"FL1", L"ANYTHING", true, 0},
        {L"U1", L"RES", false, 1},
        {L"R1,C1", L"CAP", true, 11},
        {L"R1,C1", L"OHM CAP", true, 10},
        {L"Resistor", L"RES", true, 10},
        {L"Resistor", L"RES", false, 0},
        {L"L1", L"Anything", true, 0},
        {L" Capacitor ,X", L"CAP", true, 11},
        {L"R1", L"RES\nOHM", true, 0},
    };
    for (const Case& it : cases)
        EXPECT_EQ(detector.DetectGroup(it.designators, it.description, it.byName), it.group)
            << encodeUtf8(it.designators) << ": " << encodeUtf8(it.description) << it.byName;
}

TEST_F(ClassifierTest, TypeByDirectKeyKeywordTestAndDefault) {
    CPartwrightPlugInApp app;
    app.classifier.DirectKeyTable[14] = {
        {9, 4, L"Opto coupler", L""}, {9, 5, L"OPTO", L""}, {1, 1, L"", L""}};
    const std::string longKeyword(300, 'K');
    const TypeKeywords keywords = keywordsOf("10,1,\"RES, FILM\",\n"
                                             "10,2,\"CHIP RES,MELF\",\n"
                                             "10,27,POWER,\"FUNC6{[Pw][0.5][<]}\"\n"
                                             "10,28,POWER,FUNC6{[Pw][0.5][>=]} \n"
                                             "10,30,POWER,*D\n"
                                             "10,31,POWER,*NU\n"
                                             "10,32,(POWER,\n"
                                             "6,1,TRANS,FUNC5{[BIP][NPN]}*D\n"
                                             "6,2,TRANS,FUNC5{[BIP][PNP]}\n"
                                             "0,1,RES,\n"
                                             "2000000000,1,RES,\n"
                                             "7,0,RES,\n"
                                             "7,3," +
                                             longKeyword + ",\n");
    EXPECT_EQ(keywords.typeKeywordMaxLength, 255U);
    EXPECT_EQ(keywords.TypeKeywordTable.at(14).size(), 3U);
    const TypeDetector detector(app.classifier, keywords, units());
    struct Case {
        std::int32_t group;
        std::wstring description;
        std::int32_t groupAfter;
        std::int32_t type;
    };
    const Case cases[] = {
        {10, L"metal res, 1%", 10, 1},
        {10, L"CHIP RES 1K", 10, 2},
        {10, L"PRESS 1", 10, 30},
        {10, L"RES", 10, 30}, // touches no separator
        {10, L"RESISTOR RESISTOR", 10, 1},
        {10, L"POWER 0.25 W", 10, 27},
        {10, L"POWER 0.5 W", 10, 28},
        {10, L"POWER", 10, 30},
        {10, L"A POWER B", 10, 30},
        {10, L"OPTO COUPLER RES ", 9, 4},
        {0, L"X,opto", 9, 5},
        {0, L"OPTOCOUPLER", 0, 0},
        {6, L"TRANS PNP", 6, 2},
        {6, L"TRANS NPN", 6, 1},
        {6, L"OTHER", 6, 1},
        {7, std::wstring(255, L'k') + L",", 7, 3},
        {10, L"", 10, 0},
        {10, L"-", 10, 0},
    };
    for (const Case& it : cases) {
        std::int32_t group = it.group;
        std::int32_t type = 99;
        detector.DetectType(14, group, it.description, type);
        EXPECT_EQ(std::tuple(group, type), std::tuple(it.groupAfter, it.type))
            << encodeUtf8(it.description);
    }
}

} // namespace
} // namespace partwright
