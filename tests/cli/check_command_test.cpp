// check over a project on disk.

#include "cli/cli_fixture.h"

namespace partwright::test {

using nlohmann::json;

namespace {

class CliCheck : public CliTest {
protected:
    CliCheck() {
        folder.putParts("R1,R-1,Vishay,RES 4K7,100-1,Yes\n");
        put("0.1", "1,2");
    }

    /// One resistor in both libraries: its power limit, and its two lists of pins.
    void put(const std::string& power, const std::string& pins) {
        folder.put(sdtaFile, "sep=,\n|\n"
                             "*,PMET,FAMILY,GROUP,PART#,CAT#,DESCR,Type,Pw-RT,V-RT,TMax,Res,I-RT,"
                             "Manufacturer,Notes,Color,*\n"
                             ">,SDTA-M, Resistor,Resistor,R-1,100-1,RES 4K7,RM.Fix.Pw<0.5," +
                                 power + ",75,155,4700,1,Vishay,,,<\n|,End of File\n");
        folder.put(analysesFile,
                   "sep=,\n|\n"
                   "*,PMET,FAMILY,GROUP,PART#,CAT#,DESCR,Type,Res,PinR-1,PinR-2,"
                   "Manufacturer,Notes,Color,*\n"
                   ">,DORVANE,Resistor,Resistor,R-1,100-1,RES 4K7,Resistor.Fix,4700," +
                       pins + ",Vishay,,,<\n|,End of File\n");
    }
};

} // namespace

TEST_F(CliCheck, ALibraryWithoutFaultsIsFine) {
    const Answer answer = inProject({"check"});
    EXPECT_EQ(answer.out, "0 findings\n");
    EXPECT_EQ(answer.code, 0) << answer.err;
    EXPECT_EQ(inProject({"check", "--json"}).out, "");
}

TEST_F(CliCheck, EachFindingIsALineOfEightFields) {
    put("0.6", "1\\2\\3,");
    const auto before = folder.files();
    const Answer text = inProject({"check"});
    EXPECT_EQ(text.code, 1) << text.err;
    EXPECT_EQ(text.out, "SDTA\tR-1\tResistor\tRM.Fix.Pw<0.5\tPw-RT\t0.6\tsingle value\t"
                        "Value 0.6 out of range:  Rated power in W must be above 0 and below 0.5 "
                        "for this type.\n"
                        "SDTA\tR-1\tResistor\tRM.Fix.Pw<0.5\tPw-RT\t0.6\tpower limit\t"
                        "For the selected type power should be < 0.5\n"
                        "Analyses\tR-1\tResistor\tResistor.Fix\tPinR-2\t\tcompleteness\t"
                        "Not all columns are filled in.\n"
                        "3 findings\n");
    // Of the pins "A" alone comes back from a save as it is.
    put("0.1", "36,A");
    EXPECT_EQ(inProject({"check"}).out, "Analyses\tR-1\tResistor\tResistor.Fix\tPinR-1\t36\tsave\t"
                                        "A save changes it to \"10\".\n1 finding\n");
    put("0.1", "1\\2\\3,4");
    const auto objects = inProject({"check", "--json"}).objects();
    ASSERT_EQ(objects.size(), 1U);
    EXPECT_EQ(objects[0],
              json({{"library", "Analyses"},
                    {"partNumber", "R-1"},
                    {"group", "Resistor"},
                    {"type", "Resistor.Fix"},
                    {"parameter", "PinR-2"},
                    {"value", "4"},
                    {"rule", "row lists"},
                    {"text", "Method Tessara (Full)\nThe quantity of Pin numbers in the columns  "
                             "'PinR-1'  and  'PinR-2'\n in the selected row must be equal!"}}));
    const Answer one = inProject({"check", "--level", "rapid"});
    EXPECT_NE(one.out.find("Method Auto Stress Calculation (Rapid ) The quantity"),
              std::string::npos)
        << one.out;
    EXPECT_NE(one.out.find("\n1 finding\n"), std::string::npos);
    put("0.6", "1\\2\\3,");
    EXPECT_EQ(folder.files(), before) << "a check writes nothing";
}

TEST_F(CliCheck, PartsThatTheLibrariesLackAreFindings) {
    folder.putParts("R1,R-1,Vishay,RES 4K7,100-1,Yes\n"
                    "R2,R-2,Vishay,RES 1K 1% 0603,100-2,No\n");
    const Answer answer = inProject({"check", "--level", "asr"});
    EXPECT_EQ(answer.code, 1);
    EXPECT_NE(answer.out.find("SDTA\tR-2\tResistor\t"), std::string::npos) << answer.out;
    // A type that was not found is none of the list's.
    EXPECT_NE(answer.out.find("Analyses\tR-2\tResistor\tDefault\tType\tDefault\tsingle value\t"
                              " /Default/ Must be from list\n"),
              std::string::npos)
        << answer.out;
}

TEST_F(CliCheck, WhatCannotBeReadOrMeantIsNoReport) {
    EXPECT_EQ(inProject({"check", "--level", "half"}).code, 2);
    EXPECT_EQ(withTables({"check"}).code, 2);
    folder.block(analysesFile);
    EXPECT_EQ(inProject({"check"}).code, 2);
}

} // namespace partwright::test
