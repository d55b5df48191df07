// Lookups of the application object, and when a record is complete.

#include "core/completion.h"
#include "library/sample_app.h"

#include <gtest/gtest.h>

namespace partwright::test {

TEST(Vocabulary, NumbersOutOfRange) {
    for (const std::int32_t group : {-1, 0, 27, 40, 1'000'000}) {
        EXPECT_TRUE(ColumnsOfSdtaGroup(group).empty()) << group;
        EXPECT_EQ(FamilyOfSdtaGroup(group), L"N/A");
        EXPECT_EQ(TypeTableOfSdtaGroup(group).front().name, L"Not defined");
    }
    EXPECT_EQ(ColumnsOfAsrGroup(9).size(), 24U);
    EXPECT_EQ(FamilyNumber(L"Diode"), 3);
    EXPECT_EQ(FamilyNumber(L""), 0);
}

TEST(Application, Names) {
    const auto app = sampleApp();
    using Pair = std::pair<std::wstring_view, std::wstring_view>;
    EXPECT_EQ(app.sdta.GroupAndTypeNames(4, 1), (Pair{L"Diode group 4", L"DiodeRect"}));
    EXPECT_EQ(app.sdta.GroupAndTypeNames(4, 99), (Pair{L"Diode group 4", L"Default"}));
    EXPECT_EQ(app.sdta.GroupAndTypeNames(-5, 1), (Pair{L"Not defined", L"Default"}));
    EXPECT_EQ(app.asr.GroupAndTypeNames(2000, 0), (Pair{L"Not defined", L"Default"}));
    EXPECT_EQ(app.sdta.GroupNumber(L"Diode group 4"), 4);
    EXPECT_EQ(app.asr.GroupNumber(L"nothing"), 0);
}

TEST(Application, PropertyRows) {
    auto app = sampleApp();
    EXPECT_EQ(app.sdta.FindPropertyRow(L"Diode group 4", L"Default")->type, L"DiodeRect");
    app.sdta.properties.erase({L"Diode group 4", L"DiodeRect"});
    EXPECT_EQ(app.sdta.FindPropertyRow(L"Diode group 4", L"DiodeRect")->type, L"Default");
    app.sdta.properties[{L"G", L"RM.Fix.Pw"}] = sampleRow<SdtaPropertyRow>(L"G", L"RM.Fix.Pw");
    app.sdta.properties[{L"G", L"A<b"}] = sampleRow<SdtaPropertyRow>(L"G", L"A<b");
    EXPECT_EQ(app.sdta.FindPropertyRow(L"G", L"RM.Fix.Pw<0.5")->type, L"RM.Fix.Pw");
    EXPECT_EQ(app.sdta.FindPropertyRow(L"G", L"A<b <shown>")->type, L"A<b");
    EXPECT_EQ(app.sdta.FindPropertyRow(L"G", L"other"), nullptr);
    EXPECT_EQ(CPartwrightPlugInApp().asr.FindPropertyRow(L"G", L"T"), nullptr);
}

TEST(Completion, Sdta) {
    const auto app = sampleApp();
    SdtaComponent record;
    record.group = 4;
    record.type = 1;
    for (std::wstring& value : record.LPar)
        value = L"1";
    UpdateCompletion(app.sdta, record);
    EXPECT_EQ(record.completed, 0) << "no part number";
    record.PartNum = L"P";
    record.LPar[0] = L"-1";
    record.LPar[4] = L""; // LPar 5 is not used by this type
    record.LPar[6] = L""; // LPar 7 has no label
    UpdateCompletion(app.sdta, record);
    EXPECT_EQ(record.completed, 1);
    EXPECT_EQ(record.LPar[4], L"N/A");
    EXPECT_EQ(record.LPar[6], L"N/A");
    record.LPar[1] = L"";
    UpdateCompletion(app.sdta, record);
    EXPECT_EQ(record.completed, 0);
    EXPECT_EQ(record.LPar[1], L"");

    record = {};
    record.PartNum = L"C";
    record.group = 11;
    for (std::wstring& value : record.LPar)
        value = L"1";
    UpdateCompletion(app.sdta, record);
    EXPECT_EQ(record.LPar[4], L"N/A") << "the process is settled by the type, whatever it held";
    record.type = static_cast<std::int32_t>(TypeTableOfSdtaGroup(11).size()) - 1;
    ASSERT_EQ(app.sdta.GroupAndTypeNames(11, record.type).second, L"Custom");
    record.LPar[4] = L"X7R";
    UpdateCompletion(app.sdta, record);
    EXPECT_EQ(record.LPar[4], L"X7R");

    record.group = 18; // no columns
    record.type = 0;
    UpdateCompletion(app.sdta, record);
    EXPECT_EQ(record.completed, 1);
    for (const std::int32_t group : {-1, 0}) {
        record.group = group;
        UpdateCompletion(app.sdta, record);
        EXPECT_EQ(record.completed, 0);
    }
    record.group = 2'000'000'000;
    UpdateCompletion(app.sdta, record);
    EXPECT_EQ(record.completed, 1) << "a group without columns, and no crash";
}

TEST(Completion, AnalysesLevels) {
    const auto app = sampleApp();
    AsrComponent record;
    record.PartNum = L"P";
    record.group = 11;
    for (std::wstring& value : record.LPar)
        value = L"1";
    UpdateCompletion(app.asr, record);
    EXPECT_EQ(record.completed + record.completedForRapid + record.completedForAsr, 0)
        << "the default type is never complete";
    record.type = 1;
    UpdateCompletion(app.asr, record);
    EXPECT_EQ(record.completed + record.completedForRapid + record.completedForAsr, 3);
    record.LPar[1] = L""; // the ASR level of the sample needs LPar 1 alone
    UpdateCompletion(app.asr, record);
    EXPECT_EQ(record.completed, 0);
    EXPECT_EQ(record.completedForRapid, 0);
    EXPECT_EQ(record.completedForAsr, 1);
    record.group = 1; // a gap in the list of groups
    UpdateCompletion(app.asr, record);
    EXPECT_EQ(record.completedForAsr, 0);
}

TEST(Application, ProjectValues) {
    CPartwrightPlugInApp app;
    app.partList.projectEntries[L"R1"].values = {
        {L"DESCR", L"a\tb\x7F\xA0\xADz\u2598"}, {L"CPN", L"-"}, {L"MFG", L"Empty"}};
    EXPECT_EQ(app.partList.ProjectValue(L"R1", L"descr"), L"abz");
    EXPECT_EQ(app.partList.ProjectValue(L"R1", L"CPN"), L"");
    EXPECT_EQ(app.partList.ProjectValue(L"R1", L"MFG"), L"");
    EXPECT_EQ(app.partList.ProjectValue(L"R1", L"no"), L"");
    EXPECT_EQ(app.partList.ProjectValue(L"R2", L"DESCR"), L"");
}

} // namespace partwright::test
