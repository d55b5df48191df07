#include "editing/new_component_session.h"
#include "session_fixture.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace partwright {
namespace {

using test::narrow;
using test::ScriptedPrompt;

TEST(GroupChoice, PartNumbersAndGroups) {
    ScriptedPrompt prompt;
    const auto groups = familyGroups(test::shippedApp().sdta);
    GroupChoiceSession add(GroupChoiceMode::Add, groups, 4,
                           [](std::wstring_view part) { return part == L"OLD-1"; });
    EXPECT_EQ(narrow(add.title()), "Add new component");
    EXPECT_EQ(narrow(add.families()[add.family()].key), "Diode");
    EXPECT_EQ(add.groups()[add.group()].code, 4);
    EXPECT_EQ(narrow(add.families().front().shown), "Hybrid Integrated Circuit or Equipped PCB");
    prompt.expect(L"You should enter a new Part Number.");
    EXPECT_FALSE(add.accept(L"  \t", prompt));
    prompt.expect(L"You cannot duplicate Part Number.");
    EXPECT_FALSE(add.accept(L" old-1 ", prompt));
    EXPECT_TRUE(add.accept(L" new-1 ", prompt));
    EXPECT_EQ(narrow(add.result().partNumber), "NEW-1");
    add.chooseFamily(0);
    EXPECT_TRUE(add.accept(L"x", prompt));
    EXPECT_EQ(add.result().group, 24);
    EXPECT_EQ(add.result().family, 1);

    GroupChoiceSession change(GroupChoiceMode::ChangeGroup, groups, 11, nullptr);
    EXPECT_EQ(narrow(change.title()), "Change component's group");
    EXPECT_TRUE(change.accept(L"", prompt));
    EXPECT_EQ(change.result().group, 11);
    EXPECT_EQ(narrow(GroupChoiceSession(GroupChoiceMode::Copy, groups, 1, nullptr).title()),
              "Copy component");
}

TEST(GroupChoice, OffersOnlyGroupsThatAPartCanLiveIn) {
    CPartwrightPlugInApp app = test::shippedApp();
    app.asr.familyGroups[L"OptoDevice"].push_back({20, L"Reserved.Opto"});
    const auto groups = familyGroups(app.of<AsrComponent>());
    EXPECT_FALSE(groups.contains(L"PCB"));
    for (const auto& [family, list] : groups) {
        EXPECT_FALSE(list.empty());
        for (const FamilyGroup& group : list)
            EXPECT_NE(narrow(group.name), "Reserved.Opto");
    }
    EXPECT_FALSE(GroupChoiceSession(GroupChoiceMode::ChangeGroup, {}, 1, nullptr)
                     .accept(L"", *std::make_unique<ScriptedPrompt>()));
}

TEST(NewComponent, AssignsGroups) {
    ScriptedPrompt prompt;
    const CPartwrightPlugInApp& app = test::shippedApp();
    SdtaLibrary records;
    for (const wchar_t* name : {L"A", L"B", L"C", L"D"}) {
        SdtaComponent record;
        record.PartNum = name;
        record.completed = 1;
        record.LPar.fill(L"7");
        records[name] = record;
    }
    records[L"B"].family = FamilyNumber(L"Diode");
    const PartSelection project = {{L"A", L"R1"}};
    NewComponentSession<SdtaComponent> s(app, records, project, prompt);
    EXPECT_EQ(narrow(s.rows()[1].family), "Diode");
    EXPECT_EQ(s.groups(L"Hybrid-EquipPCB"), s.groups(L"Hybrid"));
    const auto ofResistors = s.groups(L"Resistor");
    EXPECT_NE(std::find(ofResistors.begin(), ofResistors.end(), L"Miscellaneous"),
              ofResistors.end());
    EXPECT_TRUE(s.groups(L"Unknown").empty());

    s.setFamily(0, L"Resistor");
    s.setGroup(0, L"Diode SCR"); // not of this family
    EXPECT_EQ(narrow(s.rows()[0].group), "");
    s.setGroup(0, L"Resistor");
    s.setGroup(1, L"Diode SCR");
    s.setFamily(1, L"Resistor"); // takes the group with it
    EXPECT_EQ(narrow(s.rows()[1].group), "");
    s.setFamily(2, L"Hybrid-EquipPCB");
    s.setGroup(2, L"Hybrid");
    prompt.expectQuestion(L"You have selected 2 rows for deletion.\n1 of them is present in the "
                          L"project and cannot be deleted.\nThe remaining 1 will be deleted now.\n"
                          L"Choose Yes to delete or No to exit.",
                          PromptAnswer::Yes);
    EXPECT_EQ(s.deleteRows({3, 0}), std::vector<std::size_t>{3});
    EXPECT_EQ(s.removedParts(), std::vector<std::wstring>{L"D"});

    const SdtaLibrary back = s.takeRecords();
    EXPECT_EQ(back.size(), 3U);
    EXPECT_EQ(back.at(L"A").group, 10);
    EXPECT_EQ(back.at(L"A").type, 1);
    EXPECT_EQ(back.at(L"A").completed, 0);
    EXPECT_EQ(back.at(L"A").family, FamilyNumber(L"Resistor"));
    EXPECT_EQ(back.at(L"A").LPar, SdtaComponent().LPar);
    EXPECT_EQ(back.at(L"B"), records.at(L"B")); // a family alone changes nothing
    EXPECT_EQ(back.at(L"C").group, 24);
}

} // namespace
} // namespace partwright
