// What a library's file has and no record took: every command tells it, and none drops it unasked.

#include "cli/cli_fixture.h"
#include "support/places.h"

#include <fstream>

namespace partwright::test {

namespace {

constexpr const char* header = "*,PMET,FAMILY,GROUP,PART#,CAT#,DESCR,Type,Pw-RT,V-RT,TMax,Res,I-RT,"
                               "Manufacturer,Notes,Color,*\n";

std::string resistor(const std::string& part, const std::string& type = "RM.Fix.Pw<0.5",
                     const std::string& notes = "n") {
    return ">,SDTA-M, Resistor,Resistor,\"\"\"" + part + "\"\"\",\"\"\"c\"\"\",\"\"\"d\"\"\"," +
           type + ",0.1,75,155,4700,1,\"\"\"M\"\"\",\"\"\"" + notes + "\"\"\",,<\n";
}

class CliLoad : public CliTest {
protected:
    CliLoad() { folder.putParts("R1,R-1,,RES 4K7 1% 0603,100-1,Yes\n"); }

    void put(const std::string& rows) {
        folder.put(sdtaFile, std::string("sep=,\n") + header + rows + "|,End of File\n");
    }
    Answer unchanged(int code, const Arguments& arguments) {
        const auto before = folder.files();
        Answer answer = inProject(arguments);
        EXPECT_EQ(answer.code, code) << answer.err;
        EXPECT_EQ(folder.files(), before);
        return answer;
    }
    static std::size_t count(const std::string& text, const std::string& word) {
        std::size_t found = 0;
        for (auto at = text.find(word); at != std::string::npos; at = text.find(word, at + 1))
            ++found;
        return found;
    }

    const std::string tooLong = resistor("LONG", "RM.Fix.Pw<0.5", std::string(300, 'x'));
};

} // namespace

TEST_F(CliLoad, EveryCommandTellsAndNoneDropsUnasked) {
    put(resistor("R-1") + tooLong + resistor("TYPE", "No.Type") + resistor("R-1") + "# remark\n" +
        resistor("A", "No.Type") + resistor("B", "No.Type") + resistor("C", "No.Type"));
    const std::string told = pathOf(sdtaFile) + ": 6 lines were not taken as they stand: line 3, "
                                                "part R-1: the part stands again in line 6; ";
    const Answer status = unchanged(0, {"status"});
    EXPECT_EQ(count(status.err, told), 1U) << status.err;
    EXPECT_EQ(count(status.err, "; and 1 more\n"), 1U) << status.err;
    const Answer check = unchanged(1, {"check"});
    EXPECT_EQ(count(check.out, "\tload\t"), 6U) << check.out;
    EXPECT_EQ(
        count(check.out, "SDTA\tLONG\t\t\t\t\tload\t" + pathOf(sdtaFile) + ": line 4: a cell"), 1U)
        << check.out;

    const Answer refused = unchanged(1, {"fill"});
    EXPECT_NE(refused.err.find("Saving would drop 5 lines"), std::string::npos) << refused.err;
    EXPECT_NE(refused.err.find("\nline 10, part C: type \"No.Type\" is not known\n"),
              std::string::npos)
        << refused.err;
    const Answer shown = unchanged(0, {"fill", "--dry-run"});
    EXPECT_EQ(inProject({"fill", "--drop-unread"}).out, shown.out);
    EXPECT_NE(folder.bytesOf(sdtaFile).find(tooLong), std::string::npos);
    EXPECT_NE(folder.bytesOf(sdtaFile).find("\n# remark\n"), std::string::npos);
    EXPECT_EQ(inProject({"fill"}).code, 0) << "what is kept stands against nothing";
}

TEST_F(CliLoad, ConvertTellsByItsExitCode) {
    put(resistor("R-1") + tooLong);
    const std::string in = pathOf(sdtaFile);
    const std::string out = pathOf(L"out.csv");
    std::filesystem::create_symlink(in, folder.path() / "same.csv");
    for (const std::string& same : {in, pathOf(L"same.csv")}) {
        const auto before = folder.files();
        EXPECT_EQ(withTables({"convert", in, same, "--kind", "sdta"}).code, 1);
        EXPECT_EQ(folder.files(), before);
    }
    EXPECT_EQ(withTables({"convert", in, out, "--kind", "sdta"}).code, 1);
    EXPECT_NE(folder.bytesOf(L"out.csv").find(tooLong), std::string::npos);
    EXPECT_EQ(withTables({"convert", in, in, "--kind", "sdta", "--drop-unread"}).code, 0);
    EXPECT_NE(folder.bytesOf(sdtaFile).find(tooLong), std::string::npos);
}

// Whoever changes the table of groups must not change groups and columns of the libraries.
TEST_F(CliLoad, ATableOfGroupsThatDoesNotFitStopsTheSave) {
    const std::string one = resistor("R-1");
    copyTables();
    const auto table = [this](const char* name) { return std::filesystem::path(tables) / name; };
    const auto edited = [&](const char* name, auto edit) {
        std::ifstream in(places::tables + std::string("/") + name, std::ios::binary);
        std::vector<std::string> lines;
        for (std::string line; std::getline(in, line);)
            lines.push_back(line);
        edit(lines);
        std::ofstream out(table(name), std::ios::binary);
        for (const std::string& line : lines)
            out << line << '\n';
    };
    const auto expect = [&](const std::string& words) {
        const Answer answer = unchanged(1, {"fill", "--sdta"});
        EXPECT_NE(answer.err.find(words), std::string::npos) << answer.err;
    };
    put(one);
    edited("DescrRules.csv", [](auto& lines) { lines[5].replace(lines[5].find('('), 1, "(("); });
    expect("no valid row for group 5, so that records would get other groups and columns:\n" +
           table("DescrRules.csv").string() + ", line 6");
    std::filesystem::remove(folder.path() / "library/SDTALib_B.csv");
    expect("no valid row for group 5"); // nor is a new library written in other groups
    put(one);
    edited("DescrRules.csv", [](auto& lines) { lines.resize(9); });
    expect("of the group Resistor, which the table of groups does not have");
    edited("DescrRules.csv", [](auto&) {});
    EXPECT_EQ(inProject({"fill", "--sdta"}).code, 0);

    edited("Property_ASR_Library.csv", [](auto& lines) { lines.resize(11); });
    EXPECT_NE(unchanged(1, {"fill", "--analyses"}).err.find("no valid row for group"),
              std::string::npos);
}

// The file gives back "AB-C" for the part list's "AB\C"; as a key it is one from the beginning.
TEST_F(CliLoad, APartNumberIsWhatTheFileGivesBack) {
    folder.putParts("R1, ab\\c ,,RES 4K7 1% 0603,100-1,Yes\nR2,AB-C,,RES 4K7 1% 0603,100-1,Yes\n");
    for (int run = 0; run < 2; ++run) {
        EXPECT_EQ(inProject({"fill", "--sdta"}).code, 0);
        EXPECT_EQ(count(folder.bytesOf(sdtaFile), "\"\"\"AB"), 1U) << folder.bytesOf(sdtaFile);
        EXPECT_EQ(count(folder.bytesOf(sdtaFile), "\"\"\"AB-C\"\"\""), 1U);
    }
}

} // namespace partwright::test
