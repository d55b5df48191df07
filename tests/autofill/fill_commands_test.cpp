#include "autofill/compiled_tables.h"
#include "autofill/defaults.h"
#include "autofill/fill_commands.h"
#include "autofill/type_keywords.h"
#include "core/paths.h"
#include "core/text.h"
#include "core/text_file.h"
#include "library/property_tables.h"
#include "library/small_tables.h"
#include "support/places.h"

#include <gtest/gtest.h>

#include <optional>

namespace partwright {
namespace {

/// The engine over the shipped tables.
class FillCommands : public ::testing::Test {
protected:
    FillCommands() : tables_(compiledFillTables()), filler_(tables_, app_) {
        app_.paths.programFolder = withSeparator(pathText(places::tables));
        ResolveFilePaths(app_.paths, L"unused");
        for (const LoadResult& result :
             {LoadSdtaProperties(app_.paths, app_.sdta), LoadAsrProperties(app_.paths, app_.asr),
              LoadColumnVisibility(app_.paths, app_.asr),
              LoadGroupNames(app_.paths, app_.classifier, app_.sdta),
              LoadSdtaDefaultLPar(app_.paths, app_.sdta), LoadAsrDefaultLPar(app_.paths, app_.asr),
              LoadManagementTable(app_.paths, app_.classifier),
              LoadConvBiCode(app_.paths, app_.classifier)})
            EXPECT_EQ(result.status, FileStatus::Ok);
        EXPECT_EQ(LoadTypeKeywords(app_.paths, keywords_).status, FileStatus::Ok);
        EXPECT_EQ(LoadGroupLibrary(app_.paths.groupLibraryPath, L'.', groupLibrary_).status,
                  FileStatus::Ok);
        classifier_.emplace(app_.classifier, keywords_, tables_.units);
    }

    template <class Record>
    static void add(std::map<std::wstring, Record, std::less<>>& library, std::wstring_view part,
                    std::int32_t group, std::int32_t type, std::wstring_view description = {}) {
        Record record;
        record.PartNum = part;
        record.group = group;
        record.type = type;
        record.Description = description;
        record.Notes = L"old";
        library.insert_or_assign(record.PartNum, record);
    }

    [[nodiscard]] FillTools tools() const {
        return {app_, filler_, [](std::wstring_view text) { return std::wstring(text); }};
    }

    CPartwrightPlugInApp app_;
    FillTables tables_;
    ParamFiller filler_;
    TypeKeywords keywords_;
    std::optional<Classifier> classifier_;
    GroupLibrary groupLibrary_;
    PartSelection selection_ = {{L"RC0603FR-0710KL", L"R1,R2"},
                                {L"RC0603FR-07 4K7L", L"R3"},
                                {L"UNKNOWN", L"R4"},
                                {L"DONE", L"R5"},
                                {L"EMPTY", L"R6"},
                                {L"LOW", L"R7"}};
};

TEST_F(FillCommands, GroupLibraryIdentifiesPartsAnew) {
    SdtaLibrary library;
    for (const wchar_t* part : {L"RC0603FR-0710KL", L"RC0603FR-07 4K7L", L"UNKNOWN", L"EMPTY"})
        add(library, part, 3, 1);
    add(library, L"RC0805FR-0710KL", 0, 0); // known, but not selected
    library[L"RC0603FR-0710KL"].LPar = {L"1", L"2", L"3", L"4", L"5"};
    const SdtaLibrary before = library;

    const FillReport<SdtaComponent> report =
        RunGroupLibrary(tools(), *classifier_, groupLibrary_, selection_, library);

    EXPECT_EQ(report.changed, (std::vector<std::wstring>{L"RC0603FR-07 4K7L", L"RC0603FR-0710KL"}));
    EXPECT_TRUE(report.messages.empty());
    const SdtaComponent& part = library[L"RC0603FR-0710KL"];
    EXPECT_EQ(part.group, 10);
    EXPECT_EQ(part.family, FamilyNumber(L"Resistor"));
    EXPECT_EQ(app_.sdta.GroupAndTypeNames(10, part.type).second, L"RM.Fix.Pw<0.5");
    EXPECT_EQ(part.LPar[0], L"0.1");
    EXPECT_EQ(part.LPar[3], L"10000");
    EXPECT_EQ(part.LPar[4], L"N/A") << "a value without a counterpart is replaced, too";
    EXPECT_EQ(part.Manufacturer, L"Yageo");
    EXPECT_TRUE(part.Notes.ends_with(L"GLib"));
    EXPECT_EQ(part.Notes.find(L"old"), std::wstring::npos);
    EXPECT_EQ(part.completed, 1);
    EXPECT_EQ(library[L"RC0603FR-07 4K7L"].LPar[3], L"4700");
    for (const wchar_t* untouched : {L"UNKNOWN", L"EMPTY", L"RC0805FR-0710KL"})
        EXPECT_EQ(library[untouched], before.at(untouched)) << encodeUtf8(untouched);

    EXPECT_TRUE(
        RunGroupLibrary(tools(), *classifier_, groupLibrary_, selection_, library).changed.empty())
        << "completed records are left alone";
}

TEST_F(FillCommands, AnalysesRecordsGoTheSameWay) {
    AsrLibrary library;
    add(library, L"rc0603fr-0710kl", 21, 1);
    add(library, L"RC0603FR-0710KL", 0, 0);
    add(library, L"RC0603FR-07 4K7L", 21, 1);
    const FillReport<AsrComponent> report =
        RunAsrGroupLibrary(tools(), *classifier_, groupLibrary_, selection_, library);
    EXPECT_EQ(report.changed, (std::vector<std::wstring>{L"RC0603FR-07 4K7L"}))
        << "group 0 is left alone, and part numbers keep their case";
    const AsrComponent& part = library[L"RC0603FR-07 4K7L"];
    EXPECT_EQ(part.group, 21);
    EXPECT_EQ(part.LPar[0], L"4700");
    EXPECT_TRUE(part.Notes.ends_with(L"GLib"));

    add(library, L"unknown", 21, 1, L"RES 3.3 kOHM 1%, (1) Pin1");
    EXPECT_EQ(ParseAsrDescriptionsForSelection(tools(), selection_, library).changed.back(),
              L"unknown");
    EXPECT_EQ(library[L"unknown"].LPar[0], L"3300");
    EXPECT_EQ(library[L"unknown"].Notes, L"Descr");
}

TEST_F(FillCommands, DescriptionsFillOnlyWhatIsEmpty) {
    SdtaLibrary library;
    add(library, L"UNKNOWN", 10, 27, L"RES 4.7 kOHM 0.25W 155C");
    library[L"UNKNOWN"].LPar[0] = L"-1";
    add(library, L"LOW", 10, 1, L"RES 0 OHM 0603");
    add(library, L"EMPTY", 10, 27, L"nothing to read");
    add(library, L"DONE", 10, 27, L"RES 1 kOHM");
    library[L"DONE"].completed = 1;
    add(library, L"RC0603FR-0710KL", 0, 0, L"RES 1 kOHM");
    add(library, L"OTHER", 10, 27, L"RES 1 kOHM");
    const SdtaLibrary before = library;

    const FillReport<SdtaComponent> report =
        ParseDescriptionsForSelection(tools(), selection_, library);

    EXPECT_EQ(report.changed, (std::vector<std::wstring>{L"EMPTY", L"LOW", L"UNKNOWN"}));
    EXPECT_EQ(library[L"UNKNOWN"].LPar[0], L"-1");
    EXPECT_EQ(library[L"UNKNOWN"].LPar[3], L"4700");
    EXPECT_TRUE(library[L"UNKNOWN"].Notes.ends_with(L"Descr"));
    EXPECT_EQ(library[L"LOW"].LPar[3], L"0.05");
    EXPECT_EQ(library[L"LOW"].type, jumperType);
    EXPECT_EQ(library[L"LOW"].Notes, L"Resistance is defined as default value; Descr");
    EXPECT_EQ(library[L"EMPTY"].Notes, L"Descr");
    for (const wchar_t* untouched : {L"DONE", L"RC0603FR-0710KL", L"OTHER"})
        EXPECT_EQ(library[untouched], before.at(untouched)) << encodeUtf8(untouched);
}

TEST_F(FillCommands, GroupsOfTheAnalysesNumbering) {
    app_.classifier.convBiCode = {{14, {{1, 2, 7}, {2, 3, 8}, {3, 9, 9}}},
                                  {20, {{4, 2, 7}, {6, 3, 1}}}};
    EXPECT_EQ(analysesGroupOf(app_.classifier, 1), 9) << "code 4 is moved";
    EXPECT_EQ(analysesGroupOf(app_.classifier, 2), 6) << "by the family";
    EXPECT_EQ(analysesGroupOf(app_.classifier, 3), 1) << "no counterpart";
}

TEST(Defaults, FillEmptyCellsAndNameTheCodes) {
    CPartwrightPlugInApp app;
    app.sdta.defaultLPar[{3, 1}].LPar = {L"0.5", L"25", L"2"};
    SdtaComponent record;
    record.group = 3;
    record.type = 1;
    record.LPar[0] = L"-1";
    record.LPar[6] = L"16";
    EXPECT_TRUE(ApplySdtaDefaults(app.sdta, record));
    EXPECT_EQ(record.LPar[0], L"-1");
    EXPECT_EQ(record.LPar[1], L"25");
    EXPECT_EQ(record.LPar[2], L"C");
    EXPECT_EQ(record.LPar[6], L"DO-13");
    record.type = 2;
    record.LPar[6] = L"17"; // one past the list
    record.LPar[2] = L"1";
    EXPECT_FALSE(ApplySdtaDefaults(app.sdta, record)) << "names are no filled cells";
    EXPECT_EQ(record.LPar[6], L"17");
    EXPECT_EQ(record.LPar[2], L"A");
}

} // namespace
} // namespace partwright
