// A library file in and out: golden files, round trips, the literal reader and writer as oracle.

#include "core/cell_text.h"
#include "core/messages.h"
#include "library/library_generator.h"
#include "library/library_reader.h"
#include "library/library_writer.h"
#include "library/literal_library.h"
#include "library/sample_app.h"
#include "support/places.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

#include <fstream>

namespace partwright::test {

namespace {

template <class Record>
void expectSame(const std::map<std::wstring, Record, std::less<>>& actual,
                const std::map<std::wstring, Record, std::less<>>& wanted) {
    ASSERT_EQ(actual.size(), wanted.size());
    auto other = wanted.begin();
    for (const auto& [key, record] : actual) {
        ASSERT_EQ(key, other->first);
        EXPECT_EQ(record.Manufacturer, other->second.Manufacturer) << encodeUtf8(key);
        EXPECT_EQ(record.Notes, other->second.Notes) << encodeUtf8(key);
        for (std::size_t i = 0; i < record.LPar.size(); ++i)
            EXPECT_EQ(record.LPar[i], other->second.LPar[i])
                << encodeUtf8(key) << " group " << record.group << " slot " << i;
        EXPECT_TRUE(record == other->second) << encodeUtf8(key);
        ++other;
    }
}

template <class Record>
std::string written(const CPartwrightPlugInApp& app,
                    const std::map<std::wstring, Record, std::less<>>& library,
                    std::wstring_view path = L"/projects/board/lib.csv") {
    const auto records = recordsByGroup(library);
    return formatLibrary<Record>(app, records, path, {}).bytes;
}

SdtaLibrary goldenSdta(wchar_t mark) {
    const std::wstring m(1, mark);
    SdtaLibrary library;
    SdtaComponent diode;
    diode.PartNum = L"1N4148";
    diode.CatNum = L"cat 7";
    diode.Description = L"DIODE 100 V, 4\" tape; \"fast\"";
    diode.Manufacturer = L"Acme \u00B5";
    diode.Notes = L"GLib";
    diode.group = 4;
    diode.family = 3;
    diode.type = 0;
    diode.LPar = {L"0" + m + L"5", L"25",    L"A",   L"175", L"-1",
                  L"100",          L"a,b;c", L"N/A", L"5\"", L"<3"};
    library[diode.PartNum] = diode;
    SdtaComponent capacitor;
    capacitor.PartNum = L"cc0603-\u00E9";
    capacitor.Description = L"two\nlines";
    capacitor.group = 11;
    capacitor.type = 9;
    capacitor.LPar = {L"50", L"125", L"", L"-", L"N/A"};
    library[capacitor.PartNum] = capacitor;
    capacitor.PartNum = L"BOARD";
    capacitor.group = 18;
    capacitor.type = 1;
    library[capacitor.PartNum] = capacitor;
    capacitor.PartNum = L"LOOSE";
    capacitor.group = 0;
    capacitor.type = 0;
    library[capacitor.PartNum] = capacitor;
    capacitor.PartNum = L"DELETED";
    capacitor.group = -1;
    library[capacitor.PartNum] = capacitor;
    return library;
}

AsrLibrary goldenAnalyses(wchar_t mark) {
    const std::wstring m(1, mark);
    AsrLibrary library;
    AsrComponent diode;
    diode.PartNum = L"bav99";
    diode.Manufacturer = L"Acme, Inc";
    diode.Notes = L"see 4\" reel - (new)";
    diode.group = 11;
    diode.type = 0;
    diode.LPar = {L"0" + m + L"25", L"1-2", L"-5", L"50%", L"12", L"12-13-a", L"a - (b), c"};
    library[diode.PartNum] = diode;
    AsrComponent crystal;
    crystal.PartNum = L"XTAL";
    crystal.Notes = L"ref - (2)";
    crystal.group = 25;
    crystal.type = 2;
    crystal.family = 9;
    crystal.LPar = {L"1" + m + L"5", L"-1",  L"99999999999999", L"<5", L"a\"b", L" x ", L"0", L"",
                    L"-1",           L"N/A", L"78364164095",    L"%"};
    crystal.LPar[1] = L"35";
    crystal.LPar[0] = L"K7";
    library[crystal.PartNum] = crystal;
    crystal.PartNum = L"GAP";
    crystal.group = 36;
    library[crystal.PartNum] = crystal;
    crystal.PartNum = L"NEGATIVE";
    crystal.group = -1;
    library[crystal.PartNum] = crystal;
    return library;
}

template <class Record>
void expectGolden(const char* file, const std::string& bytes) {
    const std::string path = std::string(places::testData) + "/library/" + file;
    std::ifstream in(path, std::ios::binary);
    const std::string wanted{std::istreambuf_iterator<char>(in), {}};
    EXPECT_EQ(bytes, wanted) << path;
}

template <class Record>
class LibraryFile : public testing::Test {};
using Kinds = testing::Types<SdtaComponent, AsrComponent>;
TYPED_TEST_SUITE(LibraryFile, Kinds);

} // namespace

TEST(LibraryWriter, GoldenFiles) {
    const auto point = sampleApp(L".");
    const auto comma = sampleApp(L",");
    expectGolden<SdtaComponent>("sdta_point.csv", written(point, goldenSdta(L'.')));
    expectGolden<SdtaComponent>("sdta_comma.csv", written(comma, goldenSdta(L',')));
    expectGolden<AsrComponent>("analyses_point.csv", written(point, goldenAnalyses(L'.')));
    expectGolden<AsrComponent>("analyses_comma.csv", written(comma, goldenAnalyses(L',')));
}

TEST(LibraryWriter, EmptyLibraryHasSevenLines) {
    const std::string bytes = written(sampleApp(), SdtaLibrary());
    EXPECT_EQ(std::count(bytes.begin(), bytes.end(), '\n'), 7);
    EXPECT_TRUE(bytes.ends_with("\n|,\n|,End of File\n"));
}

TYPED_TEST(LibraryFile, ComesBackUnchanged) {
    for (const wchar_t* mark : {L".", L","}) {
        const auto app = sampleApp(mark);
        for (std::uint64_t seed = 1; seed <= 20; ++seed) {
            const auto library = generatedLibrary<TypeParam>(app, 200, seed);
            const std::string bytes = written(app, library);
            const auto back =
                parseLibrary(app.of<TypeParam>(), app.decimalMark(), bytes, CodePage::Utf8);
            expectSame<TypeParam>(back.records, library);
            EXPECT_EQ(back.report.fault, LibraryFault::None);
            EXPECT_EQ(back.report.count(), 0U);
            EXPECT_EQ(written(app, back.records), bytes);
        }
    }
}

TYPED_TEST(LibraryFile, EqualsTheLiteralOnDamagedFiles) {
    Dice dice(20240607);
    for (const wchar_t* mark : {L".", L","}) {
        const auto app = sampleApp(mark);
        for (std::uint64_t seed = 1; seed <= 300; ++seed) {
            const auto library = generatedLibrary<TypeParam>(app, 1 + dice.roll(12), seed);
            std::string bytes = written(app, library);
            if (seed % 3 != 0)
                bytes.erase(0, bytes.find("\n*") + 1); // more of the damage hits rows
            bytes = damaged("first line\n" + bytes, dice);
            const CodePage codePage = detectCodePage(bytes);
            expectSame<TypeParam>(
                parseLibrary(app.of<TypeParam>(), app.decimalMark(), bytes, codePage).records,
                literalRead<TypeParam>(app, bytes, codePage));
            EXPECT_EQ(written(app, library),
                      literalWrite<TypeParam>(app, library, L"/projects/board/lib.csv"));
            if (testing::Test::HasFailure())
                FAIL() << "seed " << seed << "\n" << bytes;
        }
    }
}

TEST(LibraryReader, CellsAsTheyStandInTheFile) {
    const auto app = sampleApp();
    struct Case {
        const char* row;
        const wchar_t* part;
        std::size_t slot;
        const wchar_t* value;
    };
    const Case cases[] = {
        {">,SDTA-M, Diode,Diode group 4,\"\"\"abc\"\"\",c,d,DiodeRect,4,7,<", L"ABC", 0, L"4"},
        {">,SDTA-M,,Diode group 4,p,c,d,,\"4,7\",<", L"P", 0, L"4.7"},
        {">,SDTA-M,,Diode group 4,p,c,d,,SOT23,1\\2,<", L"P", 1, L"1-2"},
        {">,SDTA-M,,Diode group 4,p,c,d,,\"\"\"5\"\"\"\"\"", L"P", 0, L"5\""},
        {">,SDTA-M,,Diode group 4,p,c,d,,-,<", L"P", 0, L"-1"},
        {">x , SDTA-M ,,Diode group 4,p,c,d,,a\rb,<", L"P", 0, L"a\rb"},
        {">,SDTA-M,,0,p,c,d,,1,<", L"P", 0, L""},
        {">,SDTA-M,,unknown,p,c,d,,1,<", L"P", 0, L""},
    };
    for (const Case& row : cases) {
        const auto library = parseLibrary(app.of<SdtaComponent>(), app.decimalMark(),
                                          std::string("x\n") + row.row + "\n#", CodePage::Utf8)
                                 .records;
        ASSERT_EQ(library.size(), 1U) << row.row;
        EXPECT_EQ(library.begin()->first, row.part) << row.row;
        EXPECT_EQ(library.begin()->second.LPar[row.slot], row.value) << row.row;
    }
    const char* dropped[] = {
        ">,DORVANE,,Diode group 4,p,c,d,,1,<",
        ">,SDTA-M,,,p,c,d,,1,<",
        ">,SDTA-M,,Diode group 4,\"\"\"\"\"\",c,d,,1,<",
        ">",
        ">,",
        ">,SDTA-M,,Diode group 4",
        ">,SDTA-M,,Diode group 4,p\"q,c",
        "x,SDTA-M,,Diode group 4,p,c,d,,1,<",
    };
    for (const char* row : dropped)
        EXPECT_TRUE(parseLibrary(app.of<SdtaComponent>(), app.decimalMark(),
                                 std::string("x\n") + row, CodePage::Utf8)
                        .records.empty())
            << row;
}

TEST(LibraryReader, LimitCountsCharactersWithoutQuotes) {
    const auto app = sampleApp();
    const auto rows = [&](std::size_t length) {
        std::string text;
        for (std::size_t i = 0; i < length; ++i)
            text += "\xC2\xB5";
        return parseLibrary(app.of<SdtaComponent>(), app.decimalMark(),
                            "x\n>,SDTA-M,,Diode group 4,P,\"\"\"" + text + "\"\"\",d,,1,<",
                            CodePage::Utf8)
            .records.size();
    };
    EXPECT_EQ(rows(255), 1U);
    EXPECT_EQ(rows(256), 0U);
}

TEST(LibraryReader, RowsOfBoardsAreDroppedFromAnalyses) {
    const auto app = sampleApp();
    const std::string rows = "sep=;\n>;DORVANE;;PCB;p1;c;d;N/A;;;;<\n>;DORVANE;;Kind 21;p2;c;d;"
                             "Resistor.Fix;4,7;A,1;B;<\n";
    const auto library =
        parseLibrary(app.of<AsrComponent>(), app.decimalMark(), rows, CodePage::Utf8).records;
    ASSERT_EQ(library.size(), 1U);
    EXPECT_EQ(library.at(L"p2").LPar[0], L"4.7");
    EXPECT_EQ(library.at(L"p2").LPar[1], L"A,1") << "a pin keeps its mark";
}

TEST(LibraryReader, HugeLinesAndCellCounts) {
    const auto app = sampleApp();
    const std::string row = ">,SDTA-M,,Diode group 4,P,c,d,DiodeRect,1,<\n";
    const std::string huge(100'000'000, 'x');
    const std::string large(1'000'000, 'x');
    for (const std::string& line : {">,SDTA-M,,Diode group 4,\"" + huge, large, ">," + large,
                                    "\"" + large, ">,SDTA-M" + std::string(400, ',')})
        EXPECT_EQ(parseLibrary(app.of<SdtaComponent>(), app.decimalMark(),
                               "x\n" + line + "\n" + row, CodePage::Utf8)
                      .records.size(),
                  1U);
}

TEST(LibraryReader, FilesThatAreNotThere) {
    const TempFolder folder;
    auto app = sampleApp();
    SdtaLibrary sdta = goldenSdta(L'.');
    AsrLibrary analyses;
    LoadResult result = LoadSdtaLibrary(app, sdta, folder / L"none.csv");
    EXPECT_EQ(result.status, FileStatus::Absent);
    EXPECT_TRUE(result.message.empty());
    EXPECT_TRUE(sdta.empty());
    result = LoadAnalysesLibrary(app, analyses, folder / L"none.csv");
    EXPECT_EQ(result.message, message::sourceFileNotFound(folder / L"none.csv"));
    result = LoadSdtaLibrary(app, sdta, pathText(folder.path()));
    EXPECT_EQ(result.message, message::failedToOpen(pathText(folder.path())));
    EXPECT_EQ(app.libraries.loadReports.at(result.path).fault, LibraryFault::Unreadable);
    EXPECT_EQ(SaveSdtaLibrary(app, {}, result.path).status, SaveStatus::Refused);
    analyses[L"kept"];
    app.paths.programFolder.clear();
    EXPECT_TRUE(LoadAnalysesLibrary(app, analyses, folder / L"none.csv").message.empty());
    EXPECT_EQ(analyses.size(), 1U);
}

TEST(LibraryReader, AMasterCopyStandsWhileItsFileIsTheSame) {
    const TempFolder folder;
    auto app = sampleApp();
    const std::string one = ">,SDTA-M,,Diode group 4,P1,c,d,DiodeRect,1,<\n";
    const std::wstring path = folder.put(L"lib.csv", "sep=,\n" + one);
    MasterCopy<SdtaComponent>& master = app.libraries.sdtaDesignLibrary;
    const auto load = [&] { return loadSdtaMaster(app, master, path).status; };
    const auto first = [&] {
        return master.records().empty() ? nullptr : &master.records().begin()->second;
    };
    const auto isKept = [&] { // only a copy that was not read again keeps its record in place
        const SdtaComponent* before = first();
        EXPECT_EQ(load(), FileStatus::Ok);
        return first() == before;
    };
    EXPECT_EQ(load(), FileStatus::Ok);
    EXPECT_TRUE(isKept());
    EXPECT_EQ(master.records().size(), 1U);

    static_cast<void>(loadSdtaMaster(app, app.libraries.sdtaPublicLibrary, path));
    EXPECT_EQ(app.libraries.sdtaPublicLibrary.records(), master.records())
        << "one file behind both libraries";

    folder.put(L"lib.csv", "sep=,\n>,SDTA-M,,Diode group 4,P2,c,d,DiodeRect,1,<\n");
    EXPECT_FALSE(isKept());
    EXPECT_EQ(master.records().begin()->first, L"P2");
    app.classifier.groupNamesByCode.begin()->second += L" renamed";
    rebuildSdtaGroups(app.classifier, app.sdta);
    EXPECT_FALSE(isKept());
    app.decimalPoint = L",";
    EXPECT_FALSE(isKept());
    ++app.sdta.propertiesRead;
    EXPECT_FALSE(isKept());
    master.replace(master.records());
    EXPECT_FALSE(isKept());
    std::filesystem::remove(nativePath(path));
    EXPECT_EQ(load(), FileStatus::Absent);
    EXPECT_TRUE(master.records().empty());
    folder.put(L"lib.csv", "sep=,\n" + one);
    EXPECT_FALSE(isKept());
    EXPECT_EQ(master.records().size(), 1U);
}

TYPED_TEST(LibraryFile, IsNotSavedWhenNoGroupWasKnown) {
    const TempFolder folder;
    const auto good = sampleApp();
    const auto library = generatedLibrary<TypeParam>(good, 3, 1);
    const std::string before = written(good, library);
    const std::wstring path = folder.put(L"lib.csv", before);
    CPartwrightPlugInApp app;
    app.paths.programFolder = L"/program/";
    app.asr.groupNames.resize(35, L"N/A"); // what a table without rows leaves behind
    app.asr.groupNames[29] = L"PCB";
    typename Kind<TypeParam>::Library read;
    const auto load = [&](CPartwrightPlugInApp& target) {
        if constexpr (std::is_same_v<TypeParam, SdtaComponent>)
            return LoadSdtaLibrary(target, read, path);
        else
            return LoadAnalysesLibrary(target, read, path);
    };
    const auto save = [&](CPartwrightPlugInApp& target) {
        const auto records = recordsByGroup(read);
        if constexpr (std::is_same_v<TypeParam, SdtaComponent>)
            return SaveSdtaLibrary(target, records, path);
        else
            return SaveAnalysesLibrary(target, records, path);
    };
    EXPECT_EQ(load(app).status, FileStatus::Ok);
    const SaveResult refused = save(app);
    EXPECT_EQ(refused.status, SaveStatus::Refused);
    EXPECT_FALSE(refused.message.empty());
    EXPECT_EQ(folder.bytesOf(L"lib.csv"), before);
    auto healthy = sampleApp();
    healthy.libraries.loadReports = app.libraries.loadReports;
    EXPECT_EQ(load(healthy).status, FileStatus::Ok);
    EXPECT_EQ(save(healthy).status, SaveStatus::Saved) << "a good read lifts the fault";
}

TEST(LibraryWriter, KeepsTheFormOfTheFile) {
    const TempFolder folder;
    auto app = sampleApp();
    SdtaLibrary library;
    const std::wstring path =
        folder.put(L"old.csv", "sep=,\r\n>,SDTA-M,,Diode group 4,P\xE9,c\x80,d,DiodeRect,1,<\r\n");
    EXPECT_EQ(LoadSdtaLibrary(app, library, path).status, FileStatus::Ok);
    EXPECT_EQ(library.begin()->first, L"P\u00C9");
    app.libraries.loadReports[path].dropsAllowed = true; // the row is short
    ASSERT_EQ(SaveSdtaLibrary(app, recordsByGroup(library), path).status, SaveStatus::Saved);
    const std::string saved = folder.bytesOf(L"old.csv");
    EXPECT_NE(saved.find("\"\"\"P\xC9\"\"\",\"\"\"c\x80\"\"\""), std::string::npos);
    EXPECT_EQ(std::count(saved.begin(), saved.end(), '\n'),
              std::count(saved.begin(), saved.end(), '\r'));

    library.begin()->second.LPar[1] = L"10 \u2126";
    const SaveResult refused = SaveSdtaLibrary(app, recordsByGroup(library), path);
    EXPECT_EQ(refused.status, SaveStatus::Unencodable);
    EXPECT_EQ(refused.part, L"P\u00C9");
    EXPECT_EQ(refused.column, L"Ts");
    EXPECT_EQ(folder.bytesOf(L"old.csv"), saved);
    EXPECT_EQ(SaveSdtaLibrary(app, recordsByGroup(library), path, {.asUtf8 = true}).status,
              SaveStatus::Saved);
    EXPECT_TRUE(isValidUtf8(folder.bytesOf(L"old.csv")));
}

TEST(LibraryWriter, TellsWhatStoodAgainstIt) {
    auto app = sampleApp();
    const TempFolder folder;
    const auto library = goldenSdta(L'.');
    const auto records = recordsByGroup(library);
    SaveResult result = SaveSdtaLibrary(app, records, folder / L"no/such/folder.csv");
    EXPECT_EQ(result.status, SaveStatus::Failed);
    EXPECT_EQ(result.message, message::failedToOpenForWriting(folder / L"no/such/folder.csv"));
    result = SaveSdtaLibrary(app, records, pathText(folder.path()));
    EXPECT_EQ(result.status, SaveStatus::Failed);
    result = SaveSdtaLibrary(app, records, L"/dev/full");
    EXPECT_EQ(result.status, SaveStatus::Failed);
    EXPECT_NE(result.message.find(L"no space left"), std::wstring::npos);
}

TEST(LibraryWriter, CutsWhatTheReaderWouldRefuse) {
    const auto app = sampleApp();
    SdtaLibrary library = goldenSdta(L'.');
    library.at(L"1N4148").Notes.assign(400, L'"');
    library.at(L"1N4148").LPar[0].assign(300, L'x');
    const auto back = parseLibrary(app.of<SdtaComponent>(), app.decimalMark(),
                                   written(app, library), CodePage::Utf8);
    ASSERT_EQ(back.records.count(L"1N4148"), 1U);
    EXPECT_EQ(back.records.at(L"1N4148").Notes.size(), cell::maximumLength);
    EXPECT_EQ(back.records.at(L"1N4148").LPar[0].size(), cell::maximumLength);
}

TEST(LibraryWriter, GrowingPercentSignsLoseNoRecord) {
    const auto app = sampleApp();
    AsrLibrary library = goldenAnalyses(L'.');
    for (int saves = 0; saves < 12; ++saves)
        library = parseLibrary(app.of<AsrComponent>(), app.decimalMark(), written(app, library),
                               CodePage::Utf8)
                      .records;
    ASSERT_EQ(library.count(L"BAV99"), 1U);
    EXPECT_EQ(library.at(L"BAV99").LPar[3].size(), cell::maximumLength);
}

TEST(LibraryWriter, SingleRows) {
    const auto app = sampleApp();
    EXPECT_EQ(GroupHeaderRow(app, 17),
              L"*,PMET,FAMILY,GROUP,PART#,CAT#,DESCR,Type,V-RT,Manufacturer,Notes,Color,*");
    EXPECT_EQ(AnalysesGroupHeaderRow(app, 27), L"*,PMET,FAMILY,GROUP,PART#,CAT#,DESCR,Type,PinF-1,"
                                               L"PinF-2,Manufacturer,Notes,Color,*");
    SdtaComponent lamp;
    lamp.PartNum = L"la";
    lamp.group = 17;
    lamp.LPar[0] = L"-1";
    EXPECT_EQ(ComponentRow(app, lamp),
              L">,SDTA-M, Lamp,Lamp group 17,\"\"\"LA\"\"\",\"\"\"\"\"\",\"\"\"\"\"\",AC.Lamp,-,"
              L"\"\"\"\"\"\",\"\"\"\"\"\",,<");
    AsrComponent fuse;
    fuse.PartNum = L"f1";
    fuse.group = 27;
    fuse.type = 1;
    fuse.LPar = {L"10", L"35"};
    EXPECT_EQ(AnalysesComponentRow(app, fuse),
              L">,DORVANE,Fuse,Kind 27,\"\"\"F1\"\"\",\"\"\"\"\"\",\"\"\"\"\"\",Fuse,A,Z,,,,<");
}

} // namespace partwright::test
