// classify, describe, tables and the arguments themselves.

#include "cli/cli_fixture.h"
#include "support/places.h"

#include <cstdio>
#include <fstream>

namespace partwright::test {

using nlohmann::json;

TEST_F(CliTest, WrongArgumentsAreUsageErrors) {
    const Arguments wrong[] = {
        {},
        {"nonsense"},
        {"status"},
        {"status", "--library", ""},
        {"status", "--library", "x", "--filter", "some"},
        {"status", "--library", "x", "--filter", "1"},
        {"status", "--library", "x", "--host", "0"},
        {"classify", "--host", "4"},
        {"classify", "--host", "2x"},
        {"classify", "--fill"},
        {"describe", "--unknown"},
        {"convert", "a.csv", "--kind", "sdta"},
        {"convert", "a.csv", "b.csv"},
        {"convert", "a.csv", "b.csv", "--kind", "both"},
        {"tables", "status"},
    };
    for (const Arguments& arguments : wrong) {
        const Answer answer = run(arguments);
        EXPECT_EQ(answer.code, 2) << ::testing::PrintToString(arguments);
        EXPECT_EQ(answer.out, "") << ::testing::PrintToString(arguments);
        EXPECT_NE(answer.err, "") << ::testing::PrintToString(arguments);
    }
    for (const Arguments& arguments : {Arguments{"--help"}, {"--version"}, {"fill", "--help"}}) {
        const Answer answer = run(arguments);
        EXPECT_EQ(answer.code, 0);
        EXPECT_NE(answer.out, "");
        EXPECT_EQ(answer.err, "");
    }
}

TEST_F(CliTest, ClassifyAnswersInBothForms) {
    const std::string line = "R1,R2\tRES 4K7 1% 0.1W 0603\n";
    EXPECT_EQ(withTables({"classify"}, line).out,
              R"({"refdes":"R1,R2","description":"RES 4K7 1% 0.1W 0603","group":10,)"
              R"("groupName":"Resistor","type":27,"typeName":"RM.Fix.Pw<0.5",)"
              R"("LPar":{"Pw-RT":"0.1","V-RT":"75","Res":"4700"},"notes":""})"
              "\n");
    // The options that all commands share are taken and change nothing here.
    EXPECT_EQ(
        withTables({"classify", "--analyses", "--json", "--library", "x", "--input", "y"}, line)
            .out,
        R"({"refdes":"R1,R2","description":"RES 4K7 1% 0.1W 0603","group":21,)"
        R"("groupName":"Resistor","type":0,"typeName":"Default",)"
        R"("LPar":{"Res":"4700"},"notes":""})"
        "\n");
}

TEST_F(CliTest, EveryLineGetsOneAnswerHoweverBroken) {
    using namespace std::string_literals;
    struct Case {
        std::string line;
        std::string refdes;
        std::string description;
    };
    const std::string megabyte(1 << 20, 'R');
    const Case cases[] = {
        {"C1\tCAP CER 1UF", "C1", "CAP CER 1UF"},
        {"C1\tCAP CER 1UF\r", "C1", "CAP CER 1UF"},
        {"", "", ""},
        {"R1", "R1", ""},
        {"\t", "", ""},
        {"R1\tRES\t1K", "R1", "RES\t1K"},
        {"R\xFF\tRES \xC3(", "R\uFFFD", "RES \uFFFD("},
        {"R\0\tRES\0 1K"s, "R\0"s, "RES\0 1K"s},
        {"R1\t\"quoted\\\"", "R1", "\"quoted\\\""},
        {"R1\t" + megabyte, "R1", megabyte},
        {"C2\tno final line end", "C2", "no final line end"},
    };
    std::string input;
    for (const Case& one : cases)
        input += (input.empty() ? "" : "\n") + one.line;
    const Answer answer = withTables({"classify"}, input);
    EXPECT_EQ(answer.code, 0);
    EXPECT_EQ(answer.err, "");
    const std::vector<json> objects = answer.objects();
    ASSERT_EQ(objects.size(), std::size(cases));
    for (std::size_t i = 0; i < objects.size(); ++i) {
        EXPECT_EQ(objects[i]["refdes"], cases[i].refdes);
        EXPECT_EQ(objects[i]["description"], cases[i].description);
        EXPECT_TRUE(objects[i]["group"].is_number());
        for (const auto& value : objects[i]["LPar"])
            EXPECT_TRUE(value.is_string() && value != "");
    }
    EXPECT_EQ(objects[0]["LPar"], objects[1]["LPar"]) << "a line end of another system";
}

TEST_F(CliTest, DescribeDecodesPartNumbers) {
    const std::string input = "CRCW06034K70FKEA\nNO-SUCH-PART\tU1\nCRCW06034K70FKEA\tR7\r\n\n";
    const std::vector<json> plain = withTables({"describe"}, input).objects();
    ASSERT_EQ(plain.size(), 4U);
    const json known = plain[0];
    EXPECT_EQ(known.size(), 4U);
    EXPECT_EQ(known["partNumber"], "CRCW06034K70FKEA");
    EXPECT_NE(known["description"].get<std::string>().find("4.70 KOHM"), std::string::npos);
    EXPECT_EQ(known["manufacturer"], "Vishay");
    EXPECT_GT(known["rule"], 0);
    EXPECT_EQ(plain[1], json({{"partNumber", "NO-SUCH-PART"},
                              {"description", ""},
                              {"manufacturer", ""},
                              {"rule", 0}}));
    EXPECT_EQ(plain[2], known);

    const std::vector<json> filled = withTables({"describe", "--fill"}, input).objects();
    EXPECT_EQ(filled[0]["groupName"], "Resistor") << "without a designator the words decide";
    EXPECT_EQ(filled[0]["LPar"]["Res"], "4700");
    EXPECT_EQ(filled[1]["group"], 0);
    EXPECT_EQ(filled[2]["LPar"], filled[0]["LPar"]);
    const std::vector<json> analyses =
        withTables({"describe", "--fill", "--analyses"}, input).objects();
    EXPECT_EQ(analyses[0]["group"], 21);
    EXPECT_EQ(analyses[0]["LPar"], json({{"Res", "4700"}}));
}

TEST_F(CliTest, AnUnreadTableOrALostAnswerIsNoSuccess) {
    copyTables();
    folder.block(L"tables/DescrSynonyms.csv");
    Answer answer = withTables({"classify"}, "R1\tRES 1K\n");
    EXPECT_EQ(answer.code, 2);
    EXPECT_EQ(answer.err, "Failed to Open File\n" + tables + "/DescrSynonyms.csv.\n");
    EXPECT_EQ(answer.objects().size(), 1U) << "one answer a line all the same";

    std::istringstream in("R1\tRES 1K\n");
    std::ostringstream full;
    full.setstate(std::ios::badbit);
    std::ostringstream err;
    EXPECT_EQ(cli::run({"classify", "--program", places::tables}, in, full, err), 1);
    EXPECT_NE(err.str(), "");

    answer = withTables({"classify", "--program", pathOf(L"input")});
    EXPECT_EQ(answer.code, 2) << "an option given twice";
    answer = run({"classify", "--program", pathOf(L"input")}, "R1\tRES 1K\n");
    EXPECT_EQ(answer.code, 0) << "an absent table is no error";
    EXPECT_NE(answer.err.find("No group names are known"), std::string::npos);
}

TEST_F(CliTest, TablesReportsFindings) {
    Answer answer = withTables({"tables"});
    EXPECT_EQ(answer.code, 0);
    EXPECT_EQ(answer.out, "0 findings\n");
    EXPECT_EQ(withTables({"tables", "--json"}).out, "[]\n");

    copyTables();
    const std::string rows = folder.bytesOf(L"tables/Conv_BiCode.csv");
    folder.put(L"tables/Conv_BiCode.csv", rows.substr(0, rows.find('\n', rows.size() / 2) + 1));
    answer = withTables({"tables", "--json"});
    EXPECT_EQ(answer.code, 1);
    const json findings = json::parse(answer.out);
    ASSERT_FALSE(findings.empty());
    for (const json& finding : findings) {
        EXPECT_EQ(finding["file"], "Conv_BiCode.csv");
        EXPECT_TRUE(finding["line"].is_number());
        EXPECT_NE(finding["text"], "");
    }
    answer = withTables({"tables"});
    EXPECT_NE(answer.out.find("Conv_BiCode.csv:"), std::string::npos);
    EXPECT_NE(answer.out.find(std::to_string(findings.size()) + " finding"), std::string::npos);
}

TEST_F(CliTest, AnExpressionOfAGroupMayBeginWithItsWord) {
    copyTables();
    const std::string path = tables + "/DescrRules.csv";
    std::ifstream file(path);
    std::ostringstream changed;
    for (std::string line; std::getline(file, line);)
        changed << (line.starts_with("6,") ? "6,Diode Zener Suppressor,,ZENER.*,,D" : line) << '\n';
    std::ofstream(path) << changed.str();
    EXPECT_EQ(withTables({"classify"}, "D1\tZENER 5V\n").objects().at(0)["group"], 6);
}

// The program itself: the tables are found from anywhere, for each design tool in its own place.
TEST_F(CliTest, TheProgramFindsItsTables) {
    for (const char* host : {"1", "2", "3"}) {
        const std::string command = "cd / && printf 'R1\\tRES 1K 0603\\n' | '" +
                                    std::string(places::commandLineProgram) + "' classify --host " +
                                    std::string(host) + " 2>&1";
        FILE* pipe = popen(command.c_str(), "r");
        ASSERT_NE(pipe, nullptr);
        char line[1000] = {};
        EXPECT_NE(std::fgets(line, sizeof line, pipe), nullptr);
        EXPECT_EQ(pclose(pipe), 0);
        EXPECT_EQ(json::parse(line)["groupName"], "Resistor") << "host " << host;
    }
}

} // namespace partwright::test
