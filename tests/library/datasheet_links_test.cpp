#include "core/application.h"
#include "library/datasheet_links.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace partwright {
namespace {

TEST(DatasheetLinks, RoundTripAndFaults) {
    const test::TempFolder folder;
    CPartwrightPlugInApp app;
    app.paths.libraryFolder = pathText(folder.path());
    EXPECT_EQ(LoadDatasheetLinks(app.paths, app.libraries).status, FileStatus::Absent);
    app.libraries.datasheetLinks = {{L"1N4148", L"diodes/1N4148 - (2).pdf"},
                                    {L"A,B", L"x, y.pdf"},
                                    {L"EMPTY", L""},
                                    {L"\u03A9-1", L"\u03A9.pdf"}};
    ASSERT_EQ(SaveDatasheetLinks(app.paths, app.libraries).status, SaveStatus::Saved);
    EXPECT_EQ(folder.bytesOf(L"DataSheetLinkTable.csv"),
              "PartNum,FileName,\n1N4148,diodes/1N4148 - (2).pdf,\n\"A,B\",\"x, y.pdf\",\n"
              "\xCE\xA9-1,\xCE\xA9.pdf,\n");
    DatasheetLinks expected = app.libraries.datasheetLinks;
    expected.erase(L"EMPTY");
    ASSERT_EQ(LoadDatasheetLinks(app.paths, app.libraries).status, FileStatus::Ok);
    EXPECT_EQ(app.libraries.datasheetLinks, expected);

    // A table of an older code page keeps its form until a character asks for more.
    folder.put(L"DataSheetLinkTable.csv", "PartNum,FileName,\r\n\xB5P,a.pdf,\r\n");
    LoadDatasheetLinks(app.paths, app.libraries);
    ASSERT_EQ(SaveDatasheetLinks(app.paths, app.libraries).status, SaveStatus::Saved);
    EXPECT_EQ(folder.bytesOf(L"DataSheetLinkTable.csv"), "PartNum,FileName,\r\n\xB5P,a.pdf,\r\n");

    // A table that could not be read is told of and never written over.
    std::filesystem::remove(folder.path() / "DataSheetLinkTable.csv");
    std::filesystem::create_directory(folder.path() / "DataSheetLinkTable.csv");
    EXPECT_EQ(LoadDatasheetLinks(app.paths, app.libraries).message,
              L"Failed to Open File\n" + datasheetLinksPath(app.paths) + L".");
    EXPECT_EQ(app.libraries.datasheetLinks.size(), 1U);
    std::filesystem::remove(folder.path() / "DataSheetLinkTable.csv");
    const SaveResult refused = SaveDatasheetLinks(app.paths, app.libraries);
    EXPECT_EQ(refused.status, SaveStatus::Refused);
    EXPECT_FALSE(refused.message.empty());
    EXPECT_FALSE(std::filesystem::exists(folder.path() / "DataSheetLinkTable.csv"));
    // Once it reads again the mark is gone.
    LoadDatasheetLinks(app.paths, app.libraries);
    EXPECT_EQ(SaveDatasheetLinks(app.paths, app.libraries).status, SaveStatus::Saved);
    app.paths.libraryFolder = folder / L"nowhere/";
    EXPECT_EQ(SaveDatasheetLinks(app.paths, app.libraries).message,
              L"Failed to Open File: \n" + datasheetLinksPath(app.paths));
}

// What a table holds beside links stays in it, or is asked about; one without the columns is left
// alone.
TEST(DatasheetLinks, TablesOfOtherHands) {
    const std::string header = "PartNum,FileName,\n";
    const struct {
        std::string bytes;
        DatasheetLinks links;
        SaveStatus status;
        std::string after;
    } cases[] = {
        {header + "O'HARA-1,it's.pdf,\n",
         {{L"O'HARA-1", L"it's.pdf"}},
         SaveStatus::Saved,
         header + "O'HARA-1,it's.pdf,\n"},
        {header + "\"\"\"Q\"\",X\",\"a \"\"b\"\", c.pdf\"\n",
         {{L"\"Q\",X", L"a \"b\", c.pdf"}},
         SaveStatus::Saved,
         header + "\"\"\"Q\"\",X\",\"a \"\"b\"\", c.pdf\",\n"},
        {header + "# by hand\n,lost.pdf\n\nP,a.pdf\n",
         {{L"P", L"a.pdf"}},
         SaveStatus::Saved,
         header + "P,a.pdf,\n# by hand\n,lost.pdf\n"},
        {"FileName,PartNum\na.pdf,P\rQ\n", {{L"P\rQ", L"a.pdf"}}, SaveStatus::Refused, ""},
        {"PartNum,FileName\rP,a.pdf\r",
         {{L"P", L"a.pdf"}},
         SaveStatus::Saved,
         "PartNum,FileName,\rP,a.pdf,\r"},
        {header + "P,a.pdf\nP,b.pdf\n",
         {{L"P", L"b.pdf"}},
         SaveStatus::WouldDrop,
         header + "P,b.pdf,\n"},
        {header + "P,a.pdf,more\n",
         {{L"P", L"a.pdf"}},
         SaveStatus::WouldDrop,
         header + "P,a.pdf,\n"},
        {"PartNum;FileName\nP;a.pdf\n", {}, SaveStatus::Refused, ""},
        {"Part Number,File\nP,a.pdf\n", {}, SaveStatus::Refused, ""},
        {"", {}, SaveStatus::Saved, header},
    };
    for (const auto& row : cases) {
        const test::TempFolder folder;
        folder.put(L"DataSheetLinkTable.csv", row.bytes);
        CPartwrightPlugInApp app;
        app.paths.libraryFolder = pathText(folder.path());
        static_cast<void>(LoadDatasheetLinks(app.paths, app.libraries));
        EXPECT_EQ(app.libraries.datasheetLinks, row.links) << row.bytes;
        EXPECT_EQ(SaveDatasheetLinks(app.paths, app.libraries).status, row.status) << row.bytes;
        const std::string unasked = row.status == SaveStatus::Saved ? row.after : row.bytes;
        EXPECT_EQ(folder.bytesOf(L"DataSheetLinkTable.csv"), unasked);
        if (row.status == SaveStatus::Refused)
            continue;
        app.libraries.loadReports[datasheetLinksPath(app.paths)].dropsAllowed = true;
        EXPECT_EQ(SaveDatasheetLinks(app.paths, app.libraries).status, SaveStatus::Saved);
        EXPECT_EQ(folder.bytesOf(L"DataSheetLinkTable.csv"), row.after);
    }
}

} // namespace
} // namespace partwright
