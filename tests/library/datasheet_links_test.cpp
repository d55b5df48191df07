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

} // namespace
} // namespace partwright
