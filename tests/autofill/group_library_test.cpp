#include "autofill/group_library.h"
#include "autofill/value_cases.h"
#include "support/places.h"

namespace partwright {
namespace {

std::wstring dataPath(const char* name) {
    return pathText(std::string(places::testData) + "/autofill/" + name);
}

TEST(GroupLibrary, CaseFile) {
    GroupLibrary library;
    ASSERT_EQ(LoadGroupLibrary(dataPath("group_library.glb"), L'.', library).message, L"");
    for (const test::ValueCase& row : test::readCases("group_library.cases")) {
        SCOPED_TRACE(test::where("group_library.cases", row));
        const PartDescription answer = library.DescribePartNumber(row.cell(1));
        EXPECT_EQ(encodeUtf8(answer.description), encodeUtf8(row.cell(2)));
        EXPECT_EQ(encodeUtf8(answer.manufacturer), encodeUtf8(row.cell(3)));
        EXPECT_EQ(answer.rule != 0, !answer.description.empty());
        std::wstring messages;
        for (const std::wstring& message : answer.messages)
            messages += message;
        EXPECT_EQ(encodeUtf8(messages), encodeUtf8(row.cell(4)));
    }
}

TEST(GroupLibrary, DecimalCommaInNumbers) {
    GroupLibrary library;
    (void)LoadGroupLibrary(dataPath("group_library.glb"), L',', library);
    EXPECT_EQ(library.DescribePartNumber(L"EX0805J4K70").description,
              L"RES THICK FILM CHIP (SMD), 4,70 KOHM, 5 %, 0.125 W, 0805");
    EXPECT_EQ(library.DescribePartNumber(L"P45L").description, L"CAP CER MLCC (x), 0,005 OHM");
}

TEST(GroupLibrary, FilesThatAreNotThere) {
    GroupLibrary library;
    EXPECT_EQ(LoadGroupLibrary(dataPath("no such file"), L'.', library).message, L"");
    EXPECT_TRUE(library.empty());
    EXPECT_EQ(library.DescribePartNumber(L"EX0603F10R0").description, L"");
    const std::wstring folder = pathText(places::testData);
    EXPECT_EQ(LoadGroupLibrary(folder, L'.', library).message,
              L"Failed to Open File\n" + folder + L".");
}

TEST(GroupLibrary, AShortSectionEndsTheReading) {
    const std::string families = "Family Section\nFamily_ID,Family\n1,RES\nEnd of Section\n";
    const std::string makers = "Manufacturer Section\nManufacturer_ID,ShortName\nEnd of Section\n";
    const std::string rules = "Rules List Section\nCompleted,Rules_ID,RegExp\n1,7,A\n1,x,B\n,9,C\n";
    EXPECT_TRUE(parseGroupLibrary(families + makers + rules, CodePage::Utf8).empty());
    const std::string longer =
        "Manufacturer Section\n#\nManufacturer_ID,ShortName\nEnd of Section\n";
    const GroupLibraryTable table = parseGroupLibrary(families + longer + rules, CodePage::Utf8);
    ASSERT_EQ(table.size(), 1U);
    EXPECT_EQ(table.front().id, 7);
}

} // namespace
} // namespace partwright
