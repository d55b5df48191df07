// status, fill and convert over a project on disk.

#include "cli/cli_fixture.h"
#include "support/places.h"

#include <fstream>
#include <set>

namespace partwright::test {

using nlohmann::json;

namespace {

class CliProject : public CliTest {
protected:
    CliProject() {
        folder.putParts("R1,CRCW06034K70FKEA,Vishay,RES 4K7 1% 0603,100-1,Yes\n"
                        "R2,CRCW06034K70FKEA,Vishay,RES 4K7 1% 0603,100-1,Yes\n"
                        "D1,D-1,,DIODE GEN PURP 100V 300MA SOD123,100-2,Yes\n"
                        "C1,C-1,,CAP CER 0.1UF 50V X7R 0603,100-3,No\n");
        folder.put(sdtaFile,
                   "sep=,\n|\n"
                   "*,PMET,FAMILY,GROUP,PART#,CAT#,DESCR,Type,Pw-RT,V-RT,TMax,Res,I-RT,"
                   "Manufacturer,Notes,Color,*\n"
                   ">,SDTA-M, Resistor,Resistor,old-1,,RES 1K 0.25W,RM.Fix.Pw<0.5,0.1,,,,,,,,<\n"
                   "|,End of File\n");
    }

    /// "library partNumber" of each changed record.
    static std::set<std::string> changed(const Answer& answer) {
        std::set<std::string> all;
        for (const json& line : answer.objects())
            all.insert(line["library"].get<std::string>() + ' ' +
                       line["partNumber"].get<std::string>());
        return all;
    }
    /// Runs a command that must be refused and leave every file as it was.
    Answer refused(int code, const Arguments& arguments) {
        const auto before = folder.files();
        Answer answer = inProject(arguments);
        EXPECT_EQ(answer.code, code) << answer.out << answer.err;
        EXPECT_EQ(folder.files(), before);
        return answer;
    }
};

} // namespace

TEST_F(CliProject, StatusCountsUnderTheFilters) {
    const json selected = json::parse(inProject({"status", "--json"}).out);
    EXPECT_EQ(selected["sdta"]["filter"], "selected");
    EXPECT_EQ(selected["analyses"]["filter"], "project");
    EXPECT_EQ(selected["sdta"]["path"], pathOf(sdtaFile));
    EXPECT_EQ(selected["sdta"]["total"], json({{"quantity", 2}, {"uncompleted", 2}}));
    EXPECT_EQ(selected["analyses"]["total"], json({{"quantity", 3},
                                                   {"uncompletedAsr", 3},
                                                   {"uncompletedRapid", 3},
                                                   {"uncompletedFull", 3}}));
    EXPECT_EQ(selected["sdta"]["groups"][4], json({{"group", 4},
                                                   {"name", "Diode Rectifier"},
                                                   {"family", "Diode"},
                                                   {"quantity", 1},
                                                   {"uncompleted", 1}}));
    const auto quantity = [this](const char* filter, const char* library) {
        return json::parse(inProject({"status", "--json", "--filter", filter}).out)
            .at(library)["total"]["quantity"]
            .get<int>();
    };
    EXPECT_EQ(quantity("project", "sdta"), 3);
    EXPECT_EQ(quantity("full", "sdta"), 4);
    EXPECT_EQ(quantity("selected", "analyses"), 3) << "the page has no such filter";
    EXPECT_EQ(quantity("full", "analyses"), 3);

    const Answer text = inProject({"status"});
    EXPECT_EQ(text.code, 0);
    EXPECT_NE(text.out.find("4   Diode Rectifier             Diode                     1"),
              std::string::npos);
    EXPECT_EQ(folder.files().size(), 2U) << "status writes nothing";
}

TEST_F(CliProject, FillRunsTheStepsAskedForOnTheLibrariesAskedFor) {
    const auto start = folder.files();
    for (int chosen = 0; chosen < 16; ++chosen) {
        Arguments arguments = {"fill", "--json"};
        const auto add = [&](int bit, const char* option) {
            if ((chosen & bit) != 0)
                arguments.emplace_back(option);
            return (chosen & bit) != 0;
        };
        const bool decode = add(1, "--group-library");
        const bool parse = add(2, "--descriptions");
        const bool sdta = add(4, "--sdta");
        const bool analyses = add(8, "--analyses");
        SCOPED_TRACE(::testing::PrintToString(arguments));

        const Answer answer = inProject(arguments);
        EXPECT_EQ(answer.code, 0) << answer.err;
        const auto after = folder.files();
        EXPECT_EQ(after.contains("library/AnalysesLib_B.csv"), analyses || !sdta);
        EXPECT_EQ(after.at("library/SDTALib_B.csv") != start.at("library/SDTALib_B.csv"),
                  sdta || !analyses);
        EXPECT_FALSE(after.contains("public/SDTALib_Public.csv"));
        for (const json& line : answer.objects()) {
            if (line["library"] != "SDTA")
                continue;
            const json& changes = line["changes"];
            EXPECT_EQ(changes.contains("Manufacturer"),
                      line["partNumber"] == "CRCW06034K70FKEA" && (decode || !parse));
            EXPECT_EQ(changes.contains("If-RT"), line["partNumber"] == "D-1" && (parse || !decode));
        }
        std::filesystem::remove(nativePath(folder / analysesFile));
        folder.put(sdtaFile, start.at("library/SDTALib_B.csv"));
    }
}

TEST_F(CliProject, ADryRunShowsWhatTheRunDoesAndASecondRunFindsNothing) {
    const Answer shown = refused(0, {"fill", "--json", "--dry-run"});
    EXPECT_EQ(shown.objects().size(), 5U);
    for (const json& line : shown.objects()) {
        EXPECT_EQ(line["added"], true);
        EXPECT_EQ(line["changes"]["Group"][0], "Not defined");
    }
    const Answer done = inProject({"fill", "--json"});
    EXPECT_EQ(done.code, 0);
    EXPECT_EQ(done.out, shown.out);
    EXPECT_EQ(inProject({"fill"}).out, "");
}

TEST_F(CliProject, FillPrintsOldAndNewValuesUnderTheFilter) {
    const std::string added = "SDTA CRCW06034K70FKEA";
    EXPECT_EQ(changed(inProject({"fill", "--sdta", "--json", "--dry-run"})),
              (std::set<std::string>{added, "SDTA D-1"}));
    EXPECT_EQ(changed(inProject({"fill", "--sdta", "--json", "--dry-run", "--filter", "project"})),
              (std::set<std::string>{added, "SDTA D-1", "SDTA C-1"}));
    const Answer full =
        inProject({"fill", "--sdta", "--descriptions", "--dry-run", "--filter", "full"});
    EXPECT_NE(full.out.find("SDTA\tOLD-1\tV-RT:  -> 15.8114\tRes:  -> 1000"), std::string::npos)
        << full.out;
    EXPECT_EQ(full.out.find("Pw-RT: 0.1 ->"), std::string::npos) << "a value that stands stays";
}

TEST_F(CliProject, FillRefusesToWriteWhatItCouldNotRead) {
    // A folder in place of the library.
    const std::string library = folder.bytesOf(sdtaFile);
    folder.block(sdtaFile);
    Answer answer = refused(1, {"fill", "--sdta"});
    EXPECT_NE(answer.err.find("The library was not written"), std::string::npos);
    std::filesystem::remove(nativePath(folder / sdtaFile));
    folder.put(sdtaFile, library);

    // A library whose groups nobody knows.
    copyTables();
    std::filesystem::rename(nativePath(folder / L"tables/DescrRules.csv"),
                            nativePath(folder / L"tables/away"));
    answer = refused(2, {"fill", "--sdta"});
    EXPECT_NE(answer.err.find("No group names are known"), std::string::npos);
    std::filesystem::rename(nativePath(folder / L"tables/away"),
                            nativePath(folder / L"tables/DescrRules.csv"));

    // A table that is there and cannot be opened.
    folder.block(L"tables/DescrSynonyms.csv");
    refused(2, {"fill"});
    tables = places::tables;
}

// A gate that looked at nothing must not be green.
TEST_F(CliProject, AWrongFolderIsTold) {
    folder.put(L"empty/readme", "");
    folder.put(L"bom/PlugIn_Partwright_PrjInput.csv", "Ref,Value\nR1,10k\n");
    const std::pair<const char*, std::pair<const wchar_t*, const char*>> wrong[] = {
        {"library", {L"nowhere", "The folder of --library is not there: "}},
        {"public", {L"nowhere", "The folder of --public is not there: "}},
        {"input", {L"nowhere", "The folder of --input is not there: "}},
        {"input", {L"empty", "There is no part list: "}},
        {"input", {L"bom", "No line \"#REFDES,P/N,MFG,DESCR,CPN,SELECT\" was found"}}};
    for (const char* command : {"check", "status", "fill"})
        for (const auto& [option, entry] : wrong) {
            Arguments arguments = {command, "--program", tables};
            for (const std::string name : {"library", "public", "input"})
                arguments.insert(
                    arguments.end(),
                    {"--" + name, name == option ? pathOf(entry.first) : pathOf(pathText(name))});
            const auto files = folder.files();
            const Answer answer = run(arguments);
            EXPECT_EQ(answer.code, 2) << command << option;
            EXPECT_EQ(answer.out, "");
            EXPECT_NE(answer.err.find(entry.second), std::string::npos) << answer.err;
            EXPECT_EQ(folder.files(), files);
        }
}

TEST_F(CliProject, FillStopsWithoutATable) {
    copyTables();
    const auto table = [this](const std::string& name) {
        return std::filesystem::path(tables) / name;
    };
    for (const char* name :
         {"DescrRules_SDTATypes.csv", "DescrSynonyms.csv", "SDTA_ASR_MGT.csv", "Conv_BiCode.csv",
          "Property_SDTA_Library.csv", "Property_ASR_Library.csv", "LibColVisibility_Ext.csv",
          "SDTA_Default_LPar.csv", "ASR_Default_LPar.csv", "GLibData.glb"}) {
        std::filesystem::rename(table(name), table("away"));
        for (const char* content : {"", "\n\nsomething else, altogether\n"}) {
            std::filesystem::remove(table(name));
            if (*content != 0)
                std::ofstream(table(name)) << content;
            const Answer answer = refused(2, {"fill"});
            EXPECT_NE(answer.err.find(name), std::string::npos) << answer.err;
        }
        std::filesystem::remove(table(name));
        std::filesystem::rename(table("away"), table(name));
    }
    refused(0, {"fill", "--dry-run"});
}

TEST_F(CliProject, FillKeepsTheCodePageOrWritesNothing) {
    const std::string library =
        ">,SDTA-M, IC,IC Linear,U-1,,gain \xB5,Default,,,,,,,,,,,,,,,,,<\r\n|,End of File\r\n";
    folder.put(sdtaFile, "sep=,\r\n|\r\n" + library);
    EXPECT_EQ(inProject({"fill", "--sdta"}).code, 0);
    const std::string written = folder.bytesOf(sdtaFile);
    EXPECT_NE(written.find("gain \xB5\"\"\""), std::string::npos);
    EXPECT_EQ(std::count(written.begin(), written.end(), '\n'),
              std::count(written.begin(), written.end(), '\r'));

    folder.putParts("R9,R-9,,RES 10 k\u03A9,,Yes\n");
    const Answer answer = refused(1, {"fill", "--sdta"});
    EXPECT_NE(answer.err.find("cannot hold a character of part R-9, column DESCR"),
              std::string::npos);
}

TEST_F(CliProject, ConvertKeepsALibraryAsItIs) {
    for (const std::string kind : {"sdta", "analyses"}) {
        const std::string name =
            kind == "sdta" ? "SDTALib_MotorDrive.csv" : "AnalysesLib_MotorDrive.csv";
        const std::filesystem::path source = std::filesystem::path(places::samples) / "library";
        std::filesystem::copy_file(source / name, folder.path() / name);
        const Answer answer = withTables(
            {"convert", (folder.path() / name).string(), pathOf(L"out.csv"), "--kind", kind});
        EXPECT_EQ(answer.code, 0) << answer.err;
        EXPECT_EQ(answer.err, "");
        std::string expected = folder.bytesOf(pathText(name));
        const auto banner = expected.find(name);
        ASSERT_NE(banner, std::string::npos);
        expected.replace(banner, name.size(), pathOf(L"out.csv"));
        EXPECT_EQ(folder.bytesOf(L"out.csv"), expected);
    }
}

TEST_F(CliProject, ConvertRefusesWhatItWouldLose) {
    const std::string in = pathOf(sdtaFile);
    const auto convert = [&](const std::string& from, const std::string& to, const char* kind) {
        const auto before = folder.files();
        const Answer answer = withTables({"convert", from, to, "--kind", kind});
        EXPECT_EQ(folder.files(), before);
        EXPECT_NE(answer.err, "");
        return answer.code;
    };
    EXPECT_EQ(convert(pathOf(L"absent.csv"), in, "sdta"), 2);
    EXPECT_EQ(convert(pathOf(L"absent.csv"), in, "analyses"), 2);
    EXPECT_EQ(convert(pathOf(L"library"), in, "sdta"), 2);
    EXPECT_EQ(convert(in, in, "analyses"), 1) << "the other kind has no row of this file";
    EXPECT_EQ(convert(in, pathOf(L"public"), "sdta"), 1) << "a folder in place of the file";
    tables = pathOf(L"input"); // no tables there
    EXPECT_EQ(convert(in, in, "sdta"), 1);
    EXPECT_EQ(convert(in, pathOf(L"new.csv"), "sdta"), 1);
}

// What run shows: the sample project is completed, and more so than before.
TEST_F(CliProject, FillCompletesTheSampleProject) {
    std::filesystem::copy(places::samples, folder.path(),
                          std::filesystem::copy_options::recursive |
                              std::filesystem::copy_options::overwrite_existing);
    const auto uncompleted = [this](const char* library, const char* level) {
        const json total = json::parse(inProject({"status", "--json"}).out)[library]["total"];
        EXPECT_GT(total["quantity"], 50);
        return total[level].get<int>();
    };
    const int sdta = uncompleted("sdta", "uncompleted");
    const int analyses = uncompleted("analyses", "uncompletedFull");
    EXPECT_GT(uncompleted("analyses", "uncompletedFull"), 0);
    const Answer answer = inProject({"fill"});
    EXPECT_EQ(answer.code, 0) << answer.err;
    EXPECT_TRUE(answer.err.starts_with("Looked at ")) << answer.err;
    EXPECT_LT(uncompleted("sdta", "uncompleted"), sdta);
    EXPECT_LT(uncompleted("analyses", "uncompletedFull"), analyses);
}

} // namespace partwright::test
