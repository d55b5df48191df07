// The project input file and the tables beside the program, from a file in a folder to the
// application's tables.

#include "core/application.h"
#include "core/messages.h"
#include "core/paths.h"
#include "library/project_input.h"
#include "library/property_tables.h"
#include "library/small_tables.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

#include <functional>

namespace partwright::test {

namespace {

/// Counts the pauses, and lets something happen in one of them.
class ScriptedClock : public Clock {
public:
    void pause(std::chrono::milliseconds duration) override {
        EXPECT_EQ(duration, std::chrono::milliseconds(1000));
        ++pauses;
        if (onPause)
            onPause();
    }
    int pauses = 0;
    std::function<void()> onPause;
};

class Tables : public testing::Test {
protected:
    Tables() {
        app.paths.programFolder = folder / L"";
        app.paths.libraryFolder = folder / L"lib";
        app.paths.projectInputFolder = folder / L"";
        ResolveFilePaths(app.paths, folder / L"public");
    }
    LoadResult project(std::string_view bytes) {
        folder.put(projectInputName, bytes);
        return LoadProjectInput(app.paths, app.partList, clock);
    }
    TempFolder folder;
    CPartwrightPlugInApp app;
    ScriptedClock clock;
};

} // namespace

TEST_F(Tables, ProjectInput) {
    EXPECT_EQ(LoadProjectInput(app.paths, app.partList, clock).status, FileStatus::Absent);
    EXPECT_EQ(app.partList.projectInputPresent, 0);
    const LoadResult result = project("\xEF\xBB\xBF"
                                      "R9,before,the,header,,Yes\r\n"
                                      "  #Project filename: C:\\Work\\My Board.v2.DSN\r\n"
                                      "#REFDES,P/N,MFG,DESCR,CPN,SELECT\r\n"
                                      "R1, rc-10k ,Acme,\"RES, 10K \"\"1%\"\"\",C1,yes\r\n"
                                      "R2,,Acme,no part,,Yes\r\n"
                                      "R3,pn3,5\" bad,fine,C3,YES\r\n"
                                      "R1,pn1,,again,-,Yes\r\n"
                                      "R4,pn4,m,d,Empty");
    EXPECT_EQ(result.status, FileStatus::Ok);
    EXPECT_EQ(app.partList.projectInputPresent, 1);
    EXPECT_EQ(app.paths.projectName, L"My Board.v2");
    EXPECT_EQ(app.partList.columnPartNumber, L"P/N");
    EXPECT_EQ(app.partList.columnManufacturer, L"MFG");
    EXPECT_EQ(app.partList.columnDescription, L"DESCR");
    EXPECT_EQ(app.partList.columnCatalogNumber, L"CPN");
    EXPECT_EQ(app.partList.selectedCount, 3) << "a repeated designator counts twice";
    ASSERT_EQ(app.partList.projectEntries.size(), 3U);
    EXPECT_EQ(app.partList.projectEntries.at(L"R1").values.at(L"P/N"), L"pn1");
    EXPECT_EQ(app.partList.ProjectValue(L"R1", L"CPN"), L"") << "a hyphen stands for no value";
    EXPECT_EQ(app.partList.ProjectValue(L"R3", L"mfg"), L"") << "a broken field is empty";
    EXPECT_EQ(app.partList.ProjectValue(L"R3", L"DESCR"), L"fine")
        << "and the next ones keep their places";
    EXPECT_EQ(app.partList.projectEntries.at(L"R4").selected, 0);
    EXPECT_EQ(app.partList.ProjectValue(L"R4", L"CPN"), L"");
    EXPECT_EQ(clock.pauses, 0);
}

TEST_F(Tables, ProjectNamesAndHeaders) {
    const struct {
        const char* line;
        const wchar_t* name;
    } cases[] = {{"#Project filename:C:\\Work\\Board.DSN", L"Board"},
                 {"#Project filename: /home/me/a.b.c ", L"a.b"},
                 {"#Project filename: C:\\Work\\Board", L""},
                 {"#Project filename", L""},
                 {"#Project filename: \\.x", L""}};
    for (const auto& row : cases) {
        project(std::string(row.line) + "\n\n");
        EXPECT_EQ(app.paths.projectName, row.name) << row.line;
    }
    project("#REFDES;P/N;MFG;DESCR;CPN;SELECT\nR1;p;;;;Yes\n");
    EXPECT_TRUE(app.partList.projectEntries.empty()) << "the separator of this file is the comma";
    project("#refdes,P/N,MFG,DESCR,CPN,SELECT\nR1,p,,,,Yes\n");
    EXPECT_TRUE(app.partList.projectEntries.empty());
    project("#REFDES;P/N;MFG;DESCR;CPN;SELECT\nR1;p;;;;Yes\nsep=;");
    EXPECT_EQ(app.partList.projectEntries.size(), 1U) << "wherever the separator line stands";
    project("#REFDES,P/N,MFG,DESCR,CPN,SELECT");
    EXPECT_TRUE(app.partList.projectEntries.empty());
}

TEST_F(Tables, LockedProjectInputIsTriedFiveTimes) {
    std::filesystem::create_directory(nativePath(folder / projectInputName));
    const LoadResult result = LoadProjectInput(app.paths, app.partList, clock);
    EXPECT_EQ(clock.pauses, 4);
    EXPECT_EQ(result.message, message::failedToOpen(app.paths.projectInputPath));
    EXPECT_EQ(app.partList.projectInputPresent, 1);
    clock.onPause = [&] {
        if (clock.pauses < 6)
            return;
        std::filesystem::remove(nativePath(folder / projectInputName));
        folder.put(projectInputName, "#REFDES,P/N,MFG,DESCR,CPN,SELECT\nR1,p\n");
        clock.onPause = nullptr;
    };
    EXPECT_TRUE(LoadProjectInput(app.paths, app.partList, clock).message.empty());
    EXPECT_EQ(clock.pauses, 6) << "the second pause of this time saw the file";
    EXPECT_EQ(app.partList.projectEntries.size(), 1U);
}

TEST_F(Tables, SdtaProperties) {
    EXPECT_EQ(LoadSdtaProperties(app.paths, app.sdta).status, FileStatus::Absent);
    folder.put(L"Property_SDTA_Library.csv",
               "TypeName,GroupName,GroupDescription,LPAR1.Name,LPAR1.Message,LPAR1.Valid,"
               "LPAR2.Valid,LPAR3.Valid,LPAR4.Valid,LPAR99.Name,LPAR0.Name,LPAR14.Name\n"
               "T,G,D,Pw,NU,7,NU,x,99999999999,a,b,c\n"
               "Short,G,D,It's\n"
               "NoGroup\n"
               "\n");
    EXPECT_EQ(LoadSdtaProperties(app.paths, app.sdta).status, FileStatus::Ok);
    ASSERT_EQ(app.sdta.properties.size(), 2U);
    const SdtaPropertyRow& row = app.sdta.properties.at({L"G", L"T"});
    EXPECT_EQ(row.names[1], L"Pw");
    EXPECT_EQ(row.messages[1], L"NU");
    EXPECT_EQ(row.valid[1], 7);
    EXPECT_EQ(row.valid[2], SdtaPropertyRow::noValidation);
    EXPECT_EQ(row.valid[3], 0) << "a broken code reads as 0";
    EXPECT_EQ(row.valid[4], 2147483647);
    EXPECT_EQ(row.valid[5], SdtaPropertyRow::noValidation);
    EXPECT_EQ(row.names[14], L"");
    EXPECT_EQ(app.sdta.properties.at({L"G", L"Short"}).names[1], L"Its");
    std::filesystem::remove(nativePath(app.paths.sdtaPropertyLibraryPath));
    std::filesystem::create_directory(nativePath(app.paths.sdtaPropertyLibraryPath));
    EXPECT_EQ(LoadSdtaProperties(app.paths, app.sdta).message,
              message::failedToOpen(app.paths.sdtaPropertyLibraryPath));
    EXPECT_EQ(app.sdta.properties.size(), 2U);
}

TEST_F(Tables, AsrPropertiesMakeTheGroupList) {
    folder.put(L"Property_ASR_Library.csv",
               "Family,BCodeID,GroupName,GroupDescription,TypeName,FieldListDescription,"
               "LPAR1.Name,LPAR1.Message,LPAR1.Valid,LPAR24.Name\n"
               "Diode,4,Rectifier,d,T1,f,\"Pw, \"\"max\"\"\",m,,L\n"
               "Diode,4,Rectifier,d,T2,f\n"
               "Board,29,Wrong name,d,T,f\n"
               "Bad,0,Zero,d,T,f\nBad,-1,Minus,d,T,f\nBad,2000000000,Huge,d,T,f\n");
    EXPECT_EQ(LoadAsrProperties(app.paths, app.asr).status, FileStatus::Ok);
    EXPECT_EQ(app.asr.groupNames.size(), 35U);
    EXPECT_EQ(app.asr.groupNames[0], L"Not defined");
    EXPECT_EQ(app.asr.groupNames[3], L"N/A");
    EXPECT_EQ(app.asr.groupNames[4], L"Rectifier");
    EXPECT_EQ(app.asr.groupNames[29], L"PCB");
    EXPECT_EQ(app.asr.groupNames[34], L"Mechanical");
    EXPECT_EQ(app.asr.familyGroups.at(L"Diode").size(), 1U);
    EXPECT_EQ(app.asr.groupFamily.at(4), L"Diode");
    EXPECT_EQ(app.asr.groupTypes.at(L"Rectifier").at(1).name, L"IC.Dig.Others");
    const AsrPropertyRow& row = app.asr.properties.at({L"Rectifier", L"T1"});
    EXPECT_EQ(row.names[1], L"Pw, \"max\"");
    EXPECT_EQ(row.valid[1], 0) << "an empty code that the row reaches";
    EXPECT_EQ(row.names[24], L"L");
    EXPECT_EQ(app.asr.properties.at({L"Rectifier", L"T2"}).valid[1], AsrPropertyRow::noValidation);
    app.paths.programFolder.clear();
    EXPECT_EQ(LoadAsrProperties(app.paths, app.asr).status, FileStatus::Absent);
    EXPECT_EQ(app.asr.groupNames.size(), 35U);
}

TEST_F(Tables, ColumnVisibility) {
    folder.put(L"LibColVisibility_Ext.csv", "GroupID,LParID_RAPID,LParID_ASR\n4,1,0\n4,24,25\n"
                                            "4,-3,99\n0,1,1\n2000000000,1,1\n5,,2\n");
    EXPECT_EQ(LoadColumnVisibility(app.paths, app.asr).status, FileStatus::Ok);
    LevelColumns rapid{};
    rapid[1] = rapid[24] = 1;
    EXPECT_EQ(app.asr.columnsForRapid.at(4), rapid);
    EXPECT_EQ(app.asr.columnsForAsr.at(4), LevelColumns{});
    EXPECT_EQ(app.asr.columnsForAsr.at(5)[2], 1);
    EXPECT_EQ(app.asr.columnsForRapid.size(), 2U);
}

TEST_F(Tables, GroupNames) {
    folder.put(L"DescrRules.csv", "BiCod,NameGroup,Description,Rules,RulesExcluding,TipicalRefDes\n"
                                  "2,Linear,,\"(OP|AMP),x\",DIG,U\n1,Digital,,DIG.*,,\n"
                                  "3,Broken,,(,,D\n4,No rule,,,,D\n0,Zero,,X,,\n1001,Far,,X,,\n");
    EXPECT_EQ(LoadGroupNames(app.paths, app.classifier, app.sdta).status, FileStatus::Ok);
    EXPECT_EQ(app.sdta.groupNames,
              (std::vector<std::wstring>{L"Not defined", L"Digital", L"Linear"}));
    EXPECT_EQ(app.classifier.GroupRuleTable.at(2).rules, L"(OP|AMP),x");
    EXPECT_EQ(app.classifier.GroupRuleTable.at(2).excluding, L"DIG");
    EXPECT_EQ(app.classifier.GroupRefDesTable, (std::map<std::int32_t, std::wstring>{{2, L"U"}}));
    EXPECT_EQ(app.sdta.groupTypes.at(L"Linear").at(1).name, L"LIN/DF/BIP");
    EXPECT_FALSE(app.sdta.gap) << "what is missing behind the last group moves none";
    std::filesystem::remove(nativePath(app.paths.descrRulesPath));
    EXPECT_EQ(LoadGroupNames(app.paths, app.classifier, app.sdta).status, FileStatus::Absent);
    EXPECT_EQ(app.sdta.groupNames.size(), 3U) << "records in memory keep their groups";
}

TEST_F(Tables, DefaultValues) {
    folder.put(L"SDTA_Default_LPar.csv",
               "ID_Family,ID_Type,LPar1,LPar2,LPar14,LPar15\n#10,1,comment\n10,1,a,,b,c\n"
               "10,2,a\n10,1,last,wins\n0,1,x\n");
    EXPECT_EQ(LoadSdtaDefaultLPar(app.paths, app.sdta).status, FileStatus::Ok);
    ASSERT_EQ(app.sdta.defaultLPar.size(), 2U);
    EXPECT_EQ(app.sdta.defaultLPar.at({10, 1}).LPar[0], L"last");
    EXPECT_EQ(app.sdta.defaultLPar.at({10, 1}).LPar[13], L"");
    folder.put(L"ASR_Default_LPar.csv", "ID_Family,ID_Type,LPar24\n4,1,z\n");
    EXPECT_EQ(LoadAsrDefaultLPar(app.paths, app.asr).status, FileStatus::Ok);
    EXPECT_EQ(app.asr.defaultLPar.at({4, 1}).LPar[23], L"z");
}

TEST_F(Tables, ManagementTable) {
    folder.put(L"SDTA_ASR_MGT.csv",
               "Some title\n#x\nText_Key,MethodID,BiCod,TypeID,Type Name\n\n#key,14,1,1,n\n"
               "SCR,14,3,1,SCR\nLED,20,18,1,Opto.Dev\nTRIAC,14,3,2,\nBAD,14,0,1,x\n");
    EXPECT_EQ(LoadManagementTable(app.paths, app.classifier).status, FileStatus::Ok);
    ASSERT_EQ(app.classifier.DirectKeyTable.at(14).size(), 2U);
    EXPECT_EQ(app.classifier.DirectKeyTable.at(14)[1].text, L"TRIAC");
    EXPECT_EQ(app.classifier.DirectKeyTable.at(14)[1].type, 2);
    EXPECT_EQ(app.classifier.DirectKeyTable.at(20)[0].typeName, L"Opto.Dev");
}

TEST_F(Tables, ConversionOfGroupCodes) {
    std::int32_t family = 0;
    EXPECT_EQ(ConvertBiCode(app.classifier, 1, family), noBiCode);
    folder.put(L"Conv_BiCode.csv", "Method,NameID,Family,ID_BiCod\n14,1,2,100\n14,4,3,101\n"
                                   "14,5,9,102\n20,9,3,200\n20,7,3,201\n20,30,5,100\n,1,1,1\n");
    EXPECT_EQ(LoadConvBiCode(app.paths, app.classifier).status, FileStatus::Ok);
    EXPECT_EQ(ConvertBiCode(app.classifier, 1, family), 30);
    EXPECT_EQ(family, 5);
    EXPECT_EQ(ConvertBiCode(app.classifier, 4, family), 7) << "the lowest code of the family";
    EXPECT_EQ(family, 3);
    EXPECT_EQ(ConvertBiCode(app.classifier, 5, family), noBiCode);
    EXPECT_EQ(ConvertBiCode(app.classifier, 6, family), noBiCode);
}

} // namespace partwright::test
