// What a start is made of: command line, settings, paths.

#include "core/application.h"
#include "core/command_line.h"
#include "core/paths.h"
#include "core/settings.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace partwright::test {

TEST(CommandLine, Cases) {
    const struct {
        const wchar_t* text;
        bool valid;
        std::int32_t tool, page, level;
    } cases[] = {
        {LR"("1" "C:\Lib" "" "" "")", true, 1, 0, 0},
        {LR"("2" "C:\My Lib" "C:\In\" "1" "-1")", true, 2, 1, -1},
        {LR"(x"3"y"l"z""w"0"v"7" "6" rest)", true, 3, 0, 7},
        {LR"("1x" "l" "" "0" "0")", true, 1, 0, 0},
        {LR"("1" "l")", true, 1, 0, 0},
        {LR"("1" "l" "" "0x" "0")", false, 1, 0, 0},
        {LR"("1" "l" "" "0" "0x")", false, 1, 0, 0},
        {LR"("1" "l" "" "2" "0")", false, 1, 2, 0},
        {LR"("1" "l" "" "-1" "0")", false, 1, -1, 0},
        {LR"("4" "l" "" "0" "0")", false, 4, 0, 0},
        {LR"("" "l" "" "0" "0")", false, 0, 0, 0},
        {LR"("1" "" "" "0" "0")", false, 1, 0, 0},
        {LR"("4294967297" "l" "" "0" "0")", false, 2147483647, 0, 0},
        {LR"("1" "l" "" "4294967297" "0")", false, 1, 2147483647, 0},
        {L"", false, 0, 0, 0},
    };
    for (const auto& row : cases) {
        const CommandLine line = parseCommandLine(row.text);
        EXPECT_EQ(line.valid, row.valid) << row.text;
        EXPECT_EQ(line.hostTool, row.tool) << row.text;
        EXPECT_EQ(line.startPage, row.page) << row.text;
        EXPECT_EQ(line.analysisLevel, row.level) << row.text;
    }
    EXPECT_EQ(parseCommandLine(cases[1].text).libraryFolder, L"C:\\My Lib");
    EXPECT_EQ(parseCommandLine(cases[1].text).projectInputFolder, L"C:\\In\\");
    EXPECT_EQ(commandLineText({L"1", L"/my lib", L"", L"0", L"1"}), LR"("1" "/my lib" "" "0" "1")");
    EXPECT_EQ(commandLineText({LR"("1")", LR"("a b")"}), LR"("1" "a b")");
}

namespace {

/// Configuration folders of its own; the environment is put back at the end.
class Settings : public testing::Test {
protected:
    void SetUp() override {
        for (const char* name : {"XDG_CONFIG_HOME", "XDG_CONFIG_DIRS"})
            if (const char* value = std::getenv(name))
                before_.emplace_back(name, value);
        setenv("XDG_CONFIG_HOME", (folder.path() / "user").c_str(), 1);
        const std::string machine =
            (folder.path() / "first").string() + ":" + (folder.path() / "second").string();
        setenv("XDG_CONFIG_DIRS", machine.c_str(), 1);
    }
    void TearDown() override {
        unsetenv("XDG_CONFIG_HOME");
        unsetenv("XDG_CONFIG_DIRS");
        for (const auto& [name, value] : before_)
            setenv(name.c_str(), value.c_str(), 1);
    }
    std::wstring read(std::int32_t tool, bool setup = false) {
        std::wstring value = L"old";
        status = ReadRegistryValue(tool, RegistryOperation::Read, value, L"Settings", L"PLibPath",
                                   setup);
        return value;
    }
    TempFolder folder;
    RegistryStatus status = RegistryStatus::Ok;

private:
    std::vector<std::pair<std::string, std::string>> before_;
};

} // namespace

TEST_F(Settings, UserBeforeMachine) {
    EXPECT_EQ(read(1), L"");
    EXPECT_EQ(status, RegistryStatus::NoValue);
    EXPECT_FALSE(std::filesystem::exists(folder.path() / "user")) << "a read creates nothing";
    folder.put(L"second/Varnel_Altium/Settings.ini", "[Settings]\nPLibPath=/second\n");
    EXPECT_EQ(read(1), L"/second");
    folder.put(L"first/Varnel_Altium/Settings.ini", "[Other]\nPLibPath=/x\n");
    EXPECT_EQ(read(1), L"/second") << "a file without the section does not count";
    folder.put(L"user/Varnel_Altium/Settings.ini",
               "PLibPath=early\r\n[Settings]\r\n PLibPath = a=b,c\\d \r\n[Next]\r\nPLibPath=late");
    EXPECT_EQ(read(1), L" a=b,c\\d ") << "values are raw";
    EXPECT_EQ(status, RegistryStatus::Ok);
    EXPECT_EQ(read(2), L"");
    folder.put(L"user/Varnel_OrCAD_Setup/Settings.ini", "[Settings]\nPLibPath=setup\n");
    EXPECT_EQ(read(2), L"");
    EXPECT_EQ(read(2, true), L"setup");
    folder.put(L"user/Varnel_Altium/Settings.ini", "[Settings]\n");
    EXPECT_EQ(read(1), L"") << "the user's section hides the machine's";
    std::filesystem::create_directories(folder.path() / "user/Varnel_Mentor/Settings.ini");
    EXPECT_EQ(read(3), L"");
}

TEST_F(Settings, WriteKeepsTheRest) {
    std::wstring value = L"/new\nline";
    const auto write = [&](std::wstring_view name) {
        return ReadRegistryValue(1, RegistryOperation::Write, value, L"Settings", name);
    };
    EXPECT_EQ(write(L"PLibPath"), RegistryStatus::Ok);
    EXPECT_EQ(read(1), L"/newline");
    folder.put(L"user/Varnel_Altium/Settings.ini", "# mine\r\n[Settings]\r\nA=1\r\nPLibPath=x\r\n");
    value = std::wstring(2000, L'y');
    EXPECT_EQ(write(L"PLibPath"), RegistryStatus::Ok);
    EXPECT_EQ(folder.bytesOf(L"user/Varnel_Altium/Settings.ini"),
              "# mine\r\n[Settings]\r\nA=1\r\nPLibPath=" + std::string(1024, 'y') + "\r\n");
    std::filesystem::remove_all(folder.path() / "user");
    folder.put(L"user", "a file where the folder should be");
    EXPECT_EQ(write(L"PLibPath"), RegistryStatus::NoPlace);
}

TEST_F(Settings, PathsOfAProject) {
    EXPECT_EQ(programFolderFor(L"/opt/pw/bin/partwright", 1), L"/opt/pw/");
    EXPECT_EQ(programFolderFor(L"/opt/pw/bin/partwright", 2), L"/opt/pw/ComServ_Dorvane/");
    EXPECT_EQ(programFolderFor(L"/opt/pw/bin/partwright", 3), L"/opt/pw/bin/");
    EXPECT_EQ(programFolderFor(L"/partwright", 2), L"/") << "no folder above: the first cut stands";
    EXPECT_EQ(programFolderFor(L"partwright", 1), L"partwright");
    CPartwrightPlugInApp app;
    app.paths.hostTool = 1;
    app.paths.programFolder = L"/opt/pw/";
    app.paths.libraryFolder = L"/prj";
    app.paths.projectName = L"Board";
    ResolveFilePaths(app.paths);
    EXPECT_EQ(app.paths.publicSdtaLibraryPath, L"/opt/pw/Morlith_PLib/SDTALib_Public.csv");
    EXPECT_EQ(app.paths.sdtaLibraryPath, L"/prj/SDTALib_Board.csv");
    EXPECT_EQ(app.paths.asrLibraryPath, L"/prj/AnalysesLib_Board.csv");
    EXPECT_EQ(app.paths.groupLibraryPath, L"/opt/pw/GLibData.glb");
    folder.put(L"user/Varnel_Altium/Settings.ini", "[Settings]\nPLibPath=/public\n");
    ResolveFilePaths(app.paths);
    EXPECT_EQ(app.paths.publicAsrLibraryPath, L"/public/AnalysesLib_Public.csv");
    ResolveFilePaths(app.paths, L"/given");
    EXPECT_EQ(app.paths.publicAsrLibraryPath, L"/given/AnalysesLib_Public.csv");
    EXPECT_EQ(withSeparator(L"/a"), L"/a/");
    EXPECT_EQ(withSeparator(L"/a\\"), L"/a\\");
    EXPECT_EQ(withSeparator(L""), L"");
}

} // namespace partwright::test
