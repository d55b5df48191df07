// The table check through the command "tables": the shipped set is clean, and one broken thing
// gives one finding at its place.

#include "cli/program.h"
#include "support/places.h"
#include "support/temp_folder.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace partwright {
namespace {

namespace fs = std::filesystem;

std::string bytesOf(const fs::path& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

struct Answer {
    int code = 0;
    std::string text;
};

Answer runTables(const fs::path& folder, std::vector<std::string> more) {
    std::vector<std::string> arguments = {"tables", "--program", folder.string()};
    arguments.insert(arguments.end(), more.begin(), more.end());
    std::istringstream in;
    std::ostringstream out;
    std::ostringstream err;
    const int code = cli::run(arguments, in, out, err);
    EXPECT_EQ(err.str(), "");
    return {code, out.str()};
}

/// One thing broken in one file, and where it is found.
struct Break {
    const char* file;
    const char* from;
    const char* to;
    /// What the line of the finding begins with; empty for the file as a whole.
    const char* line;
    const char* column;
    const char* text;
    /// Other findings follow from the same break.
    bool amongOthers = false;
};

std::size_t lineOf(const std::string& bytes, std::string_view begin) {
    if (begin.empty())
        return 0;
    std::istringstream lines(bytes);
    std::size_t number = 1;
    for (std::string line; std::getline(lines, line); ++number)
        if (line.starts_with(begin))
            return number;
    ADD_FAILURE() << "no line begins with " << begin;
    return 0;
}

/// The shipped tables, with a small group library in place of the large one.
class TableCheck : public testing::Test {
protected:
    static void SetUpTestSuite() {
        for (const auto& entry : fs::directory_iterator(places::tables))
            if (entry.path().extension() == ".csv")
                fs::copy(entry.path(), folder().path());
        fs::copy(fs::path(places::testData) / "tablecheck/library.glb",
                 folder().path() / "GLibData.glb");
    }

    static const test::TempFolder& folder() {
        static const test::TempFolder instance;
        return instance;
    }

    static nlohmann::json findings() {
        return nlohmann::json::parse(runTables(folder().path(), {"--json"}).text);
    }

    void expectFinding(const Break& broken) const {
        const fs::path path = folder().path() / broken.file;
        const std::string original = bytesOf(path);
        const auto at = original.find(broken.from);
        ASSERT_NE(at, std::string::npos) << broken.file << ": " << broken.from;
        std::string changed = original;
        changed.replace(at, std::string_view(broken.from).size(), broken.to);
        std::ofstream(path, std::ios::binary) << changed;
        const nlohmann::json found = findings();
        std::ofstream(path, std::ios::binary) << original;

        const std::string where = std::string(broken.file) + ": " + broken.to;
        const std::size_t line = lineOf(changed, broken.line);
        if (!broken.amongOthers) {
            EXPECT_EQ(found.size(), 1U) << where << '\n' << found.dump(1);
        }
        EXPECT_TRUE(std::any_of(found.begin(), found.end(),
                                [&](const auto& finding) {
                                    return finding["file"] == broken.file &&
                                           finding["line"] == line &&
                                           finding["column"] == broken.column &&
                                           finding["text"].template get<std::string>().find(
                                               broken.text) != std::string::npos;
                                }))
            << where << ", line " << line << '\n'
            << found.dump(1);
    }
};

TEST(ShippedTables, AreClean) {
    const Answer answer = runTables(places::tables, {});
    EXPECT_EQ(answer.text, "0 findings\n");
    EXPECT_EQ(answer.code, 0);
}

const std::string longExpression = "|" + std::string(1001, 'X') + ")([^A-Z0-9].*)?,\"D,CR,SCR";

TEST(Coverage, StandsInTheDocumentation) {
    const Answer answer = runTables(places::tables, {"--coverage"});
    EXPECT_EQ(answer.code, 0);
    EXPECT_EQ(bytesOf(places::coveragePage), answer.text)
        << "partwright-cli tables --coverage >docs/coverage.md";
}

TEST_F(TableCheck, ClassificationTables) {
    const char* rules = "DescrRules.csv";
    const char* types = "DescrRules_SDTATypes.csv";
    const char* keys = "SDTA_ASR_MGT.csv";
    const char* synonyms = "DescrSynonyms.csv";
    const char* prefixes = "PartPrefixes.csv";
    const Break cases[] = {
        {rules, "TipicalRefDes", "Designators", "BiCod", "TipicalRefDes", "column is missing"},
        {rules, "\n26,", "\n27,", "27,", "BiCod", "group 26 belongs here", true},
        {rules, "|SIDACTOR)", "|SIDACTOR", "3,", "RulesExcluding", "no valid regular"},
        {rules, "|SIDACTOR)", "|SIDACTOR|\\d+X)", "3,", "RulesExcluding", "letter escape"},
        {rules, "|SIDACTOR)", "|(X)\\3)", "3,", "RulesExcluding", "refers back"},
        {rules, "|SIDACTOR)", "|(X+Y)*)", "3,", "RulesExcluding", "repeat without end"},
        {rules, "|SIDACTOR)", "|[Z-a])", "3,", "RulesExcluding", "invalid in capitals"},
        {rules, "|SIDACTOR)([^A-Z0-9].*)?,\"D,CR,SCR", longExpression.c_str(), "3,",
         "RulesExcluding", "1,000 characters"},
        {rules, "\"D,CR,SCR", "\"D,C R,SCR", "3,", "TipicalRefDes", "\"C R\" is no designator"},
        {rules, "\"D,CR,SCR", "\"D,CR,SCR,CR", "3,", "TipicalRefDes", "\"CR\" stands twice"},
        {types, "\n1,7,\"PAL,PAL/BIP\",", "", "", "ParamID", "no keywords for group 1, type 7"},
        {types, "\n1,7,", "\n1,77,", "1,77,", "ParamID", "no such pair", true},
        {types, "{[I][1][<]", "{[I][1,2][<]", "8,2,", "RulesExcluding", "term that is dropped"},
        {types, "{[I][1][<]", "{[X][1][<]", "8,2,", "RulesExcluding", "no test of polarity"},
        {types, "\"PAL,PAL/BIP\",", "\"PAL,PAL/BIP\",*D", "1,7,", "RulesExcluding",
         "default type already"},
        {types, "\"PAL,PAL/BIP\"", "\"PAL,DIG/BIP\"", "1,7,", "Rules",
         "\"DIG/BIP\" leads to type 1"},
        {keys, "OPTO-CPL,14,9,4,OPTO.ISO", "OPTO-CPL,14,9,4,OPTO", "OPTO-CPL", "Type Name",
         "called \"OPTO.ISO\""},
        {keys, "OPTO-CPL,14,9,4", "OPTO-CPL,15,9,4", "OPTO-CPL", "MethodID", "neither 14 nor 20"},
        {keys, "OPTO-CPL,14,9,4", "OPTO-CPL,14,9,44", "OPTO-CPL", "TypeID", "no type 44"},
        {keys, "OPTO-CPL,14,9,4", "OPTO-CPL,14,99,4", "OPTO-CPL", "BiCod", "no group 99"},
        {keys, "OPTO-CPL,14,9,4", "OPTO-CPL,14,9,x", "OPTO-CPL", "TypeID", "\"x\" is no number"},
        {keys, "OPTO-CPL,14,9", "Optocoupler,14,9,4,OPTO.ISO\nOPTO-CPL,14,9", "Optocoupler",
         "Text_Key", "stands twice", true},
        {synonyms, "\n_,,", "\n{,,", "{", "Find", "cannot be read"},
        {synonyms, "\n7400,", "\nQX1*,<0> LED,\nQX1Z*,", "QX1Z*", "Find", "always matches first"},
        {synonyms, "\n7400,", "\n[!LED]QX1*,<0> LED,\nQX1Y<i>*,<0> LED,\nQX1Y2*,", "QX1Y2*", "Find",
         "always matches first"},
        {synonyms, "\n7400,", "\nQX1*,<0> LED,\n[LED]QX1*,", "[LED]", "Find",
         "always matches first"},
        {prefixes, "\nSTM32,", "\nSTM32,,\nSTM33,", "STM32", "Says", "is empty"},
        {prefixes, "\nSTM32,", "\nstm8,LED,\nSTM32,", "STM8,", "Prefix", "stands on line"},
        {prefixes, "\nSTM32,", "\n7M-?,CRYSTAL,\nSTM32,", "7M-?", "Prefix", "never reached"},
        {prefixes, "\nSTM32,", "\nQX1,THING,\nSTM32,", "QX1", "Says", "leads to no group"},
    };
    for (const Break& broken : cases)
        expectFinding(broken);
}

TEST_F(TableCheck, DefinitionTables) {
    const char* sdta = "Property_SDTA_Library.csv";
    const char* asr = "Property_ASR_Library.csv";
    const char* rules = "SDTALibraryValidationRules.csv";
    const char* thermal = "SDTALibThermalParamValidation.csv";
    const char* defaults = "SDTA_Default_LPar.csv";
    const char* conversion = "Conv_BiCode.csv";
    const char* memory = "IC,1,IC Digital,Digital integrated circuit,MEM/BIP";
    const Break cases[] = {
        {sdta, "MEM/BIP,Memory BIPolar,Package", "MEM/BIP,Memory BIPolar,Pack", memory,
         "LPAR1.Name", "neither \"Package\""},
        {sdta, "MEM/BIP,Memory BIPolar", "MEM/BIP,", memory, "FieldListDescription", "empty"},
        {sdta, "MEM/BIP,Memory BIPolar,Package,Package code of the list that fits the outline of",
         "MEM/BIP,Memory BIPolar,Package,,10002,#PIN,Number of  pins.,1,Vspl-Max,", memory,
         "LPAR1.Message", "tells nothing", true},
        {sdta, "IC,1,IC Digital,Digital integrated circuit,MEM/BIP",
         "Diode,1,IC Digital,Digital integrated circuit,MEM/BIP", "Diode,1,", "Family",
         "another family"},
        {sdta, "circuit,MEM/BIP,", "circuit,MEM/BIPS,",
         "IC,1,IC Digital,Digital integrated circuit,MEM/BIPS", "TypeName", "no type", true},
        {sdta, "circuit,MEM/BIP,", "circuit,MEM/BIPS,", "", "TypeName", "type \"MEM/BIP\"", true},
        {sdta, "circuit,MEM/MOS,", "circuit,MEM/BIP,", "", "TypeName", "type \"MEM/MOS\"", true},
        {sdta, ",10002,#PIN,Number of  pins.,1,", ",30,#PIN,Number of  pins.,1,",
         "IC,1,IC Digital,Digital integrated circuit,Default", "LPAR1.Valid", "column has a list"},
        {sdta, ",10002,#PIN,Number of  pins.,1,", ",10002,#PIN,Number of  pins.,10002,",
         "IC,1,IC Digital,Digital integrated circuit,Default", "LPAR2.Valid", "column has none"},
        {sdta, ",10002,#PIN,Number of  pins.,1,", ",10002,#PIN,Number of  pins.,9999,",
         "IC,1,IC Digital,Digital integrated circuit,Default", "LPAR2.Valid",
         "no validation rule 9999"},
        {sdta, "RM.Fix.Pw,Fix Film Chip with Pw<0.5W,Pw-RT,\"Rated power below 0.5 at the",
         "RM.Fix.Pw,Fix Film Chip with Pw<0.5W,Pw-RT,\"Rated power at the",
         "Resistor,10,Resistor,Resistor,RM.Fix.Pw<0.5", "LPAR1.Message", "which serves the type"},
        {sdta, "Resistor,RM.Fix.Pw,", "Resistor,RNC,",
         "Resistor,10,Resistor,Resistor,RM.Fix.Pw<0.5", "TypeName", "has no row", true},
        {asr, "from the list\",10007", "from the list\",30",
         "Transistor,16,FET N Channel,N-channel field-effect transistor,Default", "LPAR7.Valid",
         "column has a list"},
        {"LibColVisibility_Ext.csv", "\n4,1,0", "\n4,1,17", "4,1,17", "LParID_ASR", "16 columns"},
        {rules, "\n1,NI,5,1,10000", "\n1,NX,5,1,10000", "1,", "CheckType", "neither text nor"},
        {rules, "\n1,NI,5,1,10000", "\n1,NI,9,1,10000", "1,", "CheckID", "0 to 8"},
        {rules, "\n1,NI,5,1,10000", "\n1,NI,5,1,0", "1,", "Param2", "below the lower"},
        {rules, "\n1,NI,5,1,10000", "\n1,NI,5,one,10000", "1,", "Param1", "\"one\" is no number"},
        {rules, "\n2,S,", "\n1,S,", "1,S", "ValidationID", "stands twice", true},
        {thermal, "\n1,1,6.7,101", "\n1,1,6.8,101", "1,1,", "Name", "\"Tjmax\", where \"Ojc\""},
        {thermal, "\n1,1,6.7,101", "\n1,1,6,101", "1,1,", "Name", "takes 2 operands"},
        {thermal, "\n1,1,6.7,101", "\n1,1,6.7,109", "1,1,", "ValidationID", "no such"},
        {thermal, "\n1,1,6.7,101,125", "\n1,1,6.7,101,127", "1,1,", "MessageID", "message 125"},
        {thermal, "\n1,1,6.7,101", "\n1,2,6.7,101", "1,2,5.7", "TypeID", "stands twice"},
        {defaults, "10,2,,,145", "10,2,,,14500", "10,2", "LPar3", "fails its own"},
        {defaults, "10,2,,,145", "10,2,,,145,,,7", "10,2", "LPar6", "no such column"},
        {defaults, "10,2,,,145", "10,99,,,145", "10,99", "ID_Type", "no such pair"},
        {defaults, "10,4,,,130", "10,2,,,130", "10,2,,,130", "ID_Type", "stands above"},
        {defaults, "10,2,,,145", "11,1,,125,5", "11,1", "LPar3", "does not apply"},
        {defaults, "10,2,,,145", "1,1,TO-92", "1,1", "LPar1", "\"TO-92\" is not in the list"},
        {defaults, "10,2,,,145", "7,1,,,B", "7,1", "LPar3", "\"B\" is not in the list"},
        {defaults, "10,2,,,145", "11,38,,,,,Custom", "11,38", "LPar5", "is not in the list"},
        {"ASR_Default_LPar.csv", "# Example", "16,1,,,,,,,Plus\n# Example", "16,1", "LPar7",
         "\"Plus\" is not in the list"},
        {conversion, "\n14,1,2,4", "\n14,1,3,4", "14,1,3", "Family", "of family 2, \"IC\""},
        {conversion, "\n14,1,2,4", "\n14,1,99,4", "14,1,99", "Family", "no such family"},
        {conversion, "\n14,3,3,10", "\n20,3,3,100", "", "NameID", "SDTA group 3 reaches", true},
    };
    for (const Break& broken : cases)
        expectFinding(broken);
}

TEST_F(TableCheck, GoodDefaultsPass) {
    const fs::path path = folder().path() / "SDTA_Default_LPar.csv";
    const std::string original = bytesOf(path);
    std::ofstream(path, std::ios::binary)
        << original << "1,1,PLDIP\n3,1,,,C,,,,TO-220,-1,-2\n11,38,,,,,CK\n";
    const nlohmann::json found = findings();
    std::ofstream(path, std::ios::binary) << original;
    EXPECT_EQ(found.dump(), "[]");
}

TEST_F(TableCheck, AMissingTable) {
    const fs::path path = folder().path() / "LibColVisibility_Ext.csv";
    fs::rename(path, folder().path() / "aside");
    const Answer answer = runTables(folder().path(), {});
    fs::rename(folder().path() / "aside", path);
    EXPECT_EQ(answer.text, "LibColVisibility_Ext.csv: the file is missing\n"
                           "1 finding\n");
    EXPECT_EQ(answer.code, 1);
}

TEST_F(TableCheck, GroupLibrary) {
    const char* file = "GLibData.glb";
    const Break cases[] = {
        {file, "10,EX0603F10R0T,1,", "10,EX0603F10R0T,7,", "10,EX", "Family_ID", "no such family",
         true},
        {file, "10,EX0603F10R0T,1,1", "10,EX0603F10R0T,1,7", "10,EX", "Manufacturer_ID", "no such"},
        {file, "\n2,CAP", "\nB,CAP", "B,CAP", "Family_ID", "\"B\" is no number", true},
        // what the expression lets through, by method
        {file, "(0603|0805)", "(0603|0805|1206)", "10,4,", "LPar2",
         "\"1206\", which the list lacks"},
        {file, "EX(0603", "E[XY](0603", "10,4,", "LPar1", "\"EY\", which the list lacks"},
        {file, "[FJ](", "[FJ]?(", "10,4,", "LPar3", "\"1\", which the list lacks", true},
        {file, "[TB]A?", "[TBC]A?", "10,4,", "LPar5", "\"C\", which the list lacks"},
        {file, "[TB]A?", "[TB]A?A?", "10,EX", "RegExp", "behind position 13"},
        {file, "[TB]A?", "[TB]A*", "10,EX", "RegExp", "behind position 13"},
        {file, "[TB]A?", "[TB](A|B)?", "10,4,", "LPar6", "\"B\", which the list lacks", true},
        {file, "[TB]A?", "[TB]?A?", "10,4,", "LPar5", "\"\", which the list lacks", true},
        {file, "[RK][0-9])", "[RKM][0-9])", "10,4,", "LPar4", "M0\", which is no coded number"},
        {file, "[1-9][0-9][RK][0-9])", "[1-9][RK][RK][0-9])", "10,4,", "LPar4",
         "which is no coded number", true},
        {file, "([1-9][0-9][0-9][0-3]|", "([^ ]{4}|", "10,1,", "LPar4", "cannot be proved"},
        {file, "[pn]Z", "[pn][ZY]", "20,4,", "LPar5", "\"Y\", which the list lacks"},
        {file, "QC0603-[1-9]", "QC0603-(?=1)[1-9]", "20,", "RegExp", "no field looks at", true},
        // the tables of the rules
        {file, "\n10,1,1-2,3-6,7", "\n10,1,1-2,3-5,7", "10,1,", "LPar3", "position 6 belongs",
         true},
        {file, "\n10,3,FIX,List,List", "\n10,3,FIX,List,Liste", "10,3,", "LPar3",
         "\"Liste\" is no method", true},
        {file, "0805,J,R|K,B", "0603,J,R|K,B", "10,5,", "LPar2", "in the list already", true},
        {file, "\n20,6,,,,p|n", "\n20,6,,,,p", "20,6,", "LPar4", "needs its prefix", true},
        {file, "\n20,4,QC,0603,,0", "\n20,4,QC,0603,,", "20,4,", "LPar4", "decimals is missing"},
        {file, "Description,Par4,Par3", "Description,Par4,Par9", "10,3,", "LPar9",
         "\"Par9\" names no key column"},
        {file, "Par3,Par2,Par6", "Par3,Par2,Par5", "10,3,", "LPar11", "never gives a text"},
        {file, "13,1,2,3,4,5", "13,1,2,3,3,5", "10,1,", "LPar10", "stands twice"},
        {file, "\n10,6,,,,,,,,,,W,", "\n10,6,,,,,,,,,,W,\n10,7,,,,,,,,,,,\n10,8,,,,,,,,,,0.5,",
         "10,8,", "LPar10", "on the row of no code"},
        {file, "\n20,3,FIX", "\n20,4,FIX", "20,4,FIX", "SubRul_ID", "row 3 belongs here", true},
        {file, "\n30,1,1-13", "\n40,1,1-13", "40,1,", "Rule_ID", "no such rule", true},
        {file, "\n30,1,1-13", "\n10,7,,,,,,,,,,\n30,1,1-13", "10,7,", "Rule_ID", "stand apart",
         true},
        // the examples
        {file, "10,EX0603F10R0T", "10,EX0603F10R", "10,EX", "Example", "does not match its own"},
        {file, "EX0805J1001TB", "EX0805J1001TA", "30,EX", "Example", "does not match", true},
        {file, "30,EX0805J1001TB,1,1,EX0805[J]1001TB", "30,EX0805J1001TA,1,1,EX0805[J]1001TA",
         "30,EX", "Example", "rule 10 decodes it as \"RES THICK FILM CHIP (SMD)", true},
        {file, "\n1,RES THICK FILM CHIP", "\n1,GADGET", "10,EX", "Example", "no group is found",
         true},
    };
    for (const Break& broken : cases)
        expectFinding(broken);
}

} // namespace
} // namespace partwright
