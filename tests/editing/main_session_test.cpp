// The two pages and the window around them, over the shipped tables and a project on disk. Every
// box is foretold.

#include "core/messages.h"
#include "core/paths.h"
#include "core/system_error.h"
#include "editing/main_session.h"
#include "editing/new_component_session.h"
#include "editing/startup.h"
#include "support/interrupted_save.h"
#include "support/places.h"
#include "support/project_folder.h"
#include "support/scripted_prompt.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <optional>
#include <set>

namespace partwright::test {

namespace {

class NoWait final : public Clock {
public:
    void pause(std::chrono::milliseconds) override { ++pauses; }
    int pauses = 0;
};

class MainSessionTest : public ::testing::Test {
protected:
    MainSessionTest() {
        app.paths.hostTool = 1;
        app.paths.libraryFolder = folder / L"library";
        app.paths.projectInputFolder = withSeparator(folder / L"input");
        folder.putParts("R1,r-1,,RES 10K OHM 1% 1/10W 0603,100-1,Yes\n"
                        "R2,R-1,,RES 22K OHM,100-2,No\n"
                        "C7,C-1,,CAP CER 0.1UF 50V X7R 0603,200-1,No\n");
    }

    /// The boxes of a first start: neither Analyses library is there.
    void expectFirstStart() {
        prompt.expect(message::sourceFileNotFound(folder / analysesFile));
        prompt.expect(message::sourceFileNotFound(folder / L"public/AnalysesLib_Public.csv"));
    }

    MainSession& start() {
        loadAtStart(app, clock, prompt, {pathText(places::tables), folder / L"public"});
        session.emplace(app, engine, prompt);
        session->start();
        return *session;
    }

    ProjectFolder folder;
    NoWait clock;
    ScriptedPrompt prompt;
    CPartwrightPlugInApp app;
    FillEngine engine{app};
    std::optional<MainSession> session;
};

using Filters = std::pair<PageFilter, PageFilter>;

Filters filtersOf(MainSession& session) {
    return {session.sdtaPage.filter(), session.asrPage.filter()};
}

} // namespace

TEST_F(MainSessionTest, StartsSdtaFirstAndOpensWhatTheCommandLineNamed) {
    app.startPage = 1;
    app.analysisLevel = -1;
    folder.block(L"library/SDTALib_B.csv");
    prompt.expect(message::failedToOpen(folder / sdtaFile)); // at the start, before any page
    expectFirstStart();
    prompt.expect(message::failedToOpen(folder / sdtaFile)); // the Analyses page reads it again
    MainSession& main = start();
    EXPECT_EQ(main.activePage(), 1);
    EXPECT_EQ(main.asrPage.level(), AnalysisLevel::Rapid);
    EXPECT_EQ(filtersOf(main), Filters(PageFilter::SelectedOnly, PageFilter::AllProject));
    EXPECT_EQ(clock.pauses, 0);
    EXPECT_FALSE(main.sdtaPage.rules().rules.empty());
    EXPECT_FALSE(main.asrPage.rules().thermal.empty());
}

TEST_F(MainSessionTest, WaitsForALockedPartListAndGoesOnWithoutAProject) {
    folder.block(L"input/PlugIn_Partwright_PrjInput.csv");
    prompt.expect(
        message::failedToOpen(app.paths.projectInputFolder + L"PlugIn_Partwright_PrjInput.csv"));
    prompt.expect(message::sourceFileNotFound(folder / L"library/AnalysesLib_.csv"));
    prompt.expect(message::sourceFileNotFound(folder / L"public/AnalysesLib_Public.csv"));
    MainSession& main = start();
    EXPECT_EQ(clock.pauses, 4);
    EXPECT_TRUE(main.sdtaPage.designLibrary.empty());
    EXPECT_EQ(main.sdtaPage.filter(), PageFilter::AllProject);
}

TEST_F(MainSessionTest, HandsOutAGroupAndTakesItBack) {
    folder.put(sdtaFile, "sep=,\n|\n"
                         ">,SDTA-M, Capacitor,Capacitor,CAP-8,8,kept,CK,16,85,N/A,N/A,N/A,,,,<\n"
                         ">,SDTA-M, Capacitor,Capacitor,CAP-9,9,kept,CK,16,85,N/A,N/A,N/A,,,,<\n");
    expectFirstStart();
    MainSession& main = start();
    SdtaPageSession& page = main.sdtaPage;
    constexpr std::int32_t capacitors = 11;
    page.setFilter(PageFilter::AllProject);
    page.refresh();
    EXPECT_EQ(page.openGroup(capacitors)->table().rowCount(), 1u); // the project has C-1 alone
    page.setFilter(PageFilter::FullLibrary);
    const auto keys = [&] {
        std::set<std::wstring> found;
        for (const auto& [key, record] : page.designLibrary)
            found.insert(key);
        return found;
    };
    const auto everything = keys();
    const GroupChoice added{L"NEW-1", capacitors, L"Capacitor", 7};

    {
        // Dropping the dialog undoes all but the numbers it announced.
        const auto dropped = page.openGroup(capacitors);
        EXPECT_EQ(dropped->table().rowCount(), 3u);
        dropped->deleteRows({1}, Consent::Given);
        dropped->add(added);
    }
    page.setFilter(PageFilter::AllProject);
    page.openGroup(capacitors)->add({L"GHOST", capacitors, L"Capacitor", 7});
    page.refresh();
    EXPECT_EQ(keys(), everything); // only what the project's rows name is added by a refresh

    page.setFilter(PageFilter::FullLibrary);
    const auto opened = page.openGroup(capacitors);
    opened->deleteRows({1}, Consent::Given);
    opened->add(added);
    opened->changeGroup(1, {{}, 10, L"Resistor Chip", 6});
    DatasheetLinks links;
    ASSERT_TRUE(opened->ok({}, links, Consent::Given).accepted);
    page.storeGroup(*opened);
    EXPECT_FALSE(page.designLibrary.contains(L"CAP-8"));
    EXPECT_FALSE(page.designParts.contains(L"CAP-8"));
    EXPECT_EQ(page.designLibrary.at(L"CAP-9").group, 10);
    EXPECT_EQ(page.designLibrary.at(L"NEW-1").group, capacitors);
    EXPECT_TRUE(page.designParts.contains(L"NEW-1"));
    EXPECT_TRUE(page.modified());
    EXPECT_EQ(page.openGroup(capacitors)->table().rowCount(), 2u);

    // A part added by hand can be deleted again, one of the project cannot.
    const auto last = page.openGroup(capacitors);
    EXPECT_EQ(last->deleteRows({0, 1}, Consent::Given).removedRows, std::vector<std::size_t>{1});
    ASSERT_TRUE(last->ok({}, links, Consent::Given).accepted);
    page.storeGroup(*last);
    EXPECT_FALSE(page.designLibrary.contains(L"NEW-1"));
}

TEST_F(MainSessionTest, AddsTheMissingPartsOfTheProject) {
    const std::string longText(300, 'x');
    folder.putParts("R10,res-1,,-,,Yes\n"
                    "R2,RES-1,,RES 10K OHM 1% 1/10W 0603,100-7,Yes\n"
                    "R3,RES-1,,RES 47K OHM,100-8,Yes\n"
                    "C1,CAP-1,,CAP CER 0.1UF 50V X7R 0603," +
                    longText +
                    ",Yes\n"
                    "C2,CAP-2,,not chosen,,No\n"
                    "X1,Empty,,no part,,Yes\nX2,-,,no part,,Yes\n");
    // A record of group 0 is replaced, whatever it says; one with a group is kept.
    folder.put(sdtaFile, "sep=,\n|\n"
                         ">,SDTA-M, N/A,Not defined,RES-1,old,old words,Default,<\n"
                         ">,SDTA-M, Capacitor,Capacitor,CAP-9,,kept,CK,16,85,N/A,N/A,N/A,,,,<\n");
    expectFirstStart();
    MainSession& main = start();

    EXPECT_EQ(main.sdtaPage.projectParts.at(L"RES-1"), L"R10,R2,R3");
    SdtaLibrary& sdta = main.sdtaPage.designLibrary;
    ASSERT_EQ(sdta.size(), 3U) << "the part that is not selected stays away";
    EXPECT_EQ(sdta.at(L"RES-1").Description, L"RES 10K OHM 1% 1/10W 0603");
    EXPECT_EQ(sdta.at(L"RES-1").CatNum, L"100-7");
    EXPECT_EQ(app.sdta.GroupAndTypeNames(sdta.at(L"RES-1").group, 0).first, L"Resistor");
    EXPECT_EQ(sdta.at(L"CAP-1").CatNum, std::wstring(255, L'x'));
    EXPECT_EQ(sdta.at(L"CAP-9").Description, L"kept");
    EXPECT_TRUE(main.sdtaPage.designParts.contains(L"RES-1"));

    AsrLibrary& analyses = main.asrPage.designLibrary;
    EXPECT_EQ(analyses.size(), 3U) << "Project Only takes what is not selected, too";
    EXPECT_EQ(app.asr.GroupAndTypeNames(analyses.at(L"RES-1").group, 0).first, L"Resistor");
}

TEST_F(MainSessionTest, AnalysesRecordsStartFromTheSdtaMaster) {
    folder.put(sdtaFile, "sep=,\n|\n"
                         ">,SDTA-M, Capacitor,Capacitor,R-1,cat-m,words of the master,CK,<\n");
    expectFirstStart();
    const AsrComponent& record = start().asrPage.designLibrary.at(L"R-1");
    EXPECT_EQ(app.asr.GroupAndTypeNames(record.group, 0).first, L"Capacitor");
    EXPECT_EQ(record.CatNum, L"cat-m");
    EXPECT_EQ(record.Description, L"words of the master");
}

TEST_F(MainSessionTest, EveryPartIsReachedAndClassifiedOnceItsTwinIs) {
    folder.putParts("BT1,ODD-1,,what nobody knows,,Yes\n");
    expectFirstStart();
    MainSession& main = start();
    for (int page = 0; page < MainSession::pageCount; ++page) {
        const std::vector<GroupCount> lines = main.page(page).counts();
        const auto line = std::find_if(lines.begin(), lines.end(),
                                       [](const GroupCount& one) { return one.quantity != 0; });
        ASSERT_NE(line, lines.end()) << page;
        EXPECT_EQ(line->name, L"Not defined");
        EXPECT_EQ(main.page(page).openNewComponents()->rows().size(), 1U);
    }
    AsrComponent& record = main.asrPage.designLibrary.at(L"ODD-1");
    record.Manufacturer = L"ACME";
    record.Notes = L"typed";
    main.asrPage.refresh();
    EXPECT_EQ(record.group, 1) << "nothing is known that was not known before";

    const auto table = main.sdtaPage.openNewComponents();
    table->setFamily(0, L"Resistor");
    table->setGroup(0, L"Resistor");
    main.storeNewComponents(0, *table);
    main.sdtaPage.save(false);
    main.asrPage.refresh();
    EXPECT_EQ(app.asr.GroupAndTypeNames(record.group, 0).first, L"Resistor");
    EXPECT_EQ(record.Manufacturer + L"|" + record.Notes, L"ACME|typed");
}

TEST_F(MainSessionTest, NoRefreshClassifiesTheSameTextTwice) {
    folder.putParts("BT1,ODD-1,,what nobody knows,,Yes\nR1,R-1,,RES 10K OHM,,Yes\n");
    expectFirstStart();
    MainSession& main = start();
    ASSERT_EQ(main.sdtaPage.designLibrary.at(L"ODD-1").group, 0) << "tried again by each refresh";
    const std::size_t workedOut = engine.workedOut();
    EXPECT_EQ(workedOut, 4U);
    for (int times = 0; times < 3; ++times)
        for (int index = 0; index < MainSession::pageCount; ++index)
            main.page(index).refresh();
    EXPECT_EQ(engine.workedOut(), workedOut);
}

TEST_F(MainSessionTest, PublicShowsAllAndTheWayBackRestoresTheFilters) {
    folder.put(L"public/SDTALib_Public.csv", "sep=,\n|\n>,SDTA-M, IC,IC Linear,PUB-1,,,Default,<\n"
                                             ">,SDTA-M, IC,IC Linear,PUB-2,,,Default,<\n");
    expectFirstStart();
    MainSession& main = start();
    main.asrPage.setFilter(PageFilter::FullLibrary);
    const Filters before = filtersOf(main);
    main.setLibraryType(true); // checked already: nothing happens
    EXPECT_EQ(filtersOf(main), before);

    main.setLibraryType(false);
    EXPECT_EQ(filtersOf(main), Filters(PageFilter::FullLibrary, PageFilter::FullLibrary));
    EXPECT_EQ(main.sdtaPage.counts().at(2).quantity, 2);
    EXPECT_EQ(main.sdtaPage.libraryPath(), folder / L"public/SDTALib_Public.csv");
    EXPECT_EQ(main.sdtaPage.publicLibrary.size(), 2U) << "parts of the project stay out";

    main.setLibraryType(true);
    EXPECT_EQ(filtersOf(main), before);
    EXPECT_EQ(main.sdtaPage.libraryPath(), folder / sdtaFile);
}

TEST_F(MainSessionTest, OffersCommandsByTypeAndFilter) {
    expectFirstStart();
    MainSession& main = start();
    using enum MainCommand;
    const auto offered = [&main] {
        std::vector<MainCommand> list;
        for (const MainCommand command :
             {SaveLibrary, ImportLibrary, ExportLibrary, AddToPublicLibrary, GroupLibrary,
              DescriptionParsing, ImportFromPublicLibrary, RequestLibrary, SyncLibraries,
              SelectDatasheetFolder, ClearLibrary})
            if (main.isOffered(command))
                list.push_back(command);
        return list;
    };
    EXPECT_EQ(offered().size(), 11U);
    main.sdtaPage.setFilter(PageFilter::FullLibrary);
    EXPECT_EQ(offered(), (std::vector{SaveLibrary, ImportLibrary, ExportLibrary, AddToPublicLibrary,
                                      ImportFromPublicLibrary, RequestLibrary, SyncLibraries,
                                      SelectDatasheetFolder, ClearLibrary}));
    main.setActivePage(1); // has a filter of its own
    EXPECT_EQ(offered().size(), 11U);
    main.setLibraryType(false);
    EXPECT_EQ(offered(), (std::vector{SaveLibrary, ExportLibrary, SelectDatasheetFolder}));
}

TEST_F(MainSessionTest, SaveWritesTheActivePageAndOkBoth) {
    expectFirstStart();
    MainSession& main = start();
    prompt.expect(message::operationCompleted, PromptIcon::Information);
    main.saveActivePage();
    EXPECT_EQ(folder.files().size(), 2U) << "the part list and one library";
    EXPECT_NE(folder.bytesOf(sdtaFile).find("\"\"\"R-1\"\"\""), std::string::npos);

    main.setLibraryType(false);
    EXPECT_TRUE(main.closeWithOk());
    EXPECT_TRUE(folder.files().contains("public/SDTALib_Public.csv"));
    EXPECT_TRUE(folder.files().contains("public/AnalysesLib_Public.csv"));
    EXPECT_EQ(folder.bytesOf(analysesFile), "") << "the Design type was not shown at the end";
}

TEST_F(MainSessionTest, OkTellsWhatItCannotOpenAndStays) {
    expectFirstStart();
    MainSession& main = start();
    folder.block(sdtaFile);
    folder.block(linkFile);
    prompt.expect(message::failedToOpenForWriting(folder / sdtaFile), PromptIcon::Warning);
    prompt.expect(message::failedToOpenForWriting(folder / linkFile), PromptIcon::Warning);
    EXPECT_FALSE(main.closeWithOk());
    EXPECT_NE(folder.bytesOf(analysesFile).find("R-1"), std::string::npos);
}

TEST_F(MainSessionTest, OkAsksAboutUnsavedRecordsOfTheOtherType) {
    expectFirstStart();
    MainSession& main = start();
    const auto okOfPublic = [&](PromptAnswer answer) {
        main.setLibraryType(false);
        prompt.expectQuestion(message::designUnsaved, answer);
        EXPECT_TRUE(main.closeWithOk());
        main.setLibraryType(true);
    };
    main.setLibraryType(false);
    EXPECT_TRUE(main.closeWithOk()) << "parts that were added by themselves do not count";
    main.setLibraryType(true);
    main.sdtaPage.parseDescriptions();
    okOfPublic(PromptAnswer::No);
    EXPECT_FALSE(fileExists(folder / sdtaFile));
    okOfPublic(PromptAnswer::Yes);
    EXPECT_NE(folder.bytesOf(sdtaFile).find("R-1"), std::string::npos);
    main.setLibraryType(false);
    EXPECT_TRUE(main.closeWithOk());
}

TEST_F(MainSessionTest, AFileThatSomebodyChangedIsNotWrittenOverUnasked) {
    folder.put(linkFile, "PartNum,FileName,\nR-1,r.pdf,\n");
    expectFirstStart();
    MainSession& main = start();
    const std::vector<std::pair<std::wstring_view, message::FileChange>> changes = {
        {sdtaFile, message::FileChange::Made},
        {analysesFile, message::FileChange::Made},
        {linkFile, message::FileChange::Changed}};
    const auto changeAll = [&](std::string_view bytes) {
        for (const auto& [file, change] : changes)
            folder.put(file, bytes);
    };
    const auto answerAll = [&](PromptAnswer answer) {
        for (const auto& [file, change] : changes)
            prompt.expectQuestion(message::fileChanged(folder / file, change), answer);
    };
    changeAll("somebody's");
    answerAll(PromptAnswer::No);
    EXPECT_FALSE(main.closeWithOk());
    for (const auto& [file, change] : changes)
        EXPECT_EQ(folder.bytesOf(file), "somebody's");
    answerAll(PromptAnswer::Yes);
    EXPECT_TRUE(main.closeWithOk());
    EXPECT_TRUE(main.closeWithOk()) << "what was written last is known";
    std::filesystem::remove(nativePath(folder / sdtaFile));
    prompt.expectQuestion(message::fileChanged(folder / sdtaFile, message::FileChange::Removed),
                          PromptAnswer::Yes);
    EXPECT_TRUE(main.closeWithOk());
    EXPECT_TRUE(fileExists(folder / sdtaFile));
}

TEST_F(MainSessionTest, TheStartOffersToCompleteAnInterruptedSave) {
    const std::string wanted = "PartNum,FileName,\nR-1,new.pdf,\n";
    folder.put(linkFile, "PartNum,FileName,\n" + std::string(1000, 'o') + ",old.pdf,\n");
    interruptSave(folder / linkFile, wanted);
    const std::string torn = folder.bytesOf(linkFile);
    for (const auto& [answer, link] :
         {std::pair{PromptAnswer::No, torn}, std::pair{PromptAnswer::Yes, wanted}}) {
        prompt.expectQuestion(message::completeSaveQuestion(folder / linkFile, true), answer);
        expectFirstStart();
        start();
        EXPECT_EQ(folder.bytesOf(linkFile), link);
    }
    expectFirstStart();
    start();
    EXPECT_EQ(app.libraries.datasheetLinks.at(L"R-1"), L"new.pdf");
}

TEST_F(MainSessionTest, ThatSavesAreNotSecuredIsToldOnce) {
    expectFirstStart();
    MainSession& main = start();
    setenv("XDG_STATE_HOME", nativePath(folder.put(L"a file", "")).c_str(), 1);
    prompt.expect(message::savesNotSecured(systemErrorText(EEXIST)), PromptIcon::Warning);
    EXPECT_TRUE(main.closeWithOk());
    EXPECT_NE(folder.bytesOf(sdtaFile).find("R-1"), std::string::npos);
}

TEST_F(MainSessionTest, OkKeepsTheLinksAndTheWindowWhileTheirTableIsWithheld) {
    folder.block(linkFile);
    prompt.expect(message::failedToOpen(folder / linkFile)); // behind the SDTA libraries
    expectFirstStart();
    MainSession& main = start();
    std::filesystem::remove(nativePath(folder / linkFile));
    const auto expectRefusal = [this] {
        prompt.expect(message::saveWouldLose(folder / linkFile, message::fileUnreadable()),
                      PromptIcon::Warning);
    };
    expectRefusal();
    EXPECT_TRUE(main.closeWithOk()) << "there is no link to lose";
    app.libraries.datasheetLinks[L"R-1"] = L"r.pdf";
    expectRefusal();
    EXPECT_FALSE(main.closeWithOk());
    EXPECT_FALSE(std::filesystem::exists(nativePath(folder / linkFile)));
}

// The records were read while their groups were unknown: writing them would drop the groups.
TEST_F(MainSessionTest, OkLeavesALibraryReadWithoutGroupNamesAlone) {
    const std::string old = "sep=,\n|\n>,SDTA-M, IC,IC Linear,PRECIOUS,,,Default,<\n";
    folder.put(sdtaFile, old);
    std::filesystem::create_directory(folder.path() / "tables");
    for (const auto& table : std::filesystem::directory_iterator(places::tables))
        if (table.path().filename() != "DescrRules.csv")
            std::filesystem::create_symlink(table.path(),
                                            folder.path() / "tables" / table.path().filename());
    expectFirstStart();
    loadAtStart(app, clock, prompt, {folder / L"tables", folder / L"public"});
    session.emplace(app, engine, prompt);
    session->start();
    prompt.expect(message::saveWouldLose(folder / sdtaFile,
                                         message::groupTableMissing(app.paths.descrRulesPath)),
                  PromptIcon::Warning);
    EXPECT_FALSE(session->closeWithOk());
    EXPECT_EQ(folder.bytesOf(sdtaFile), old);
    EXPECT_NE(folder.bytesOf(analysesFile), "") << "everything else goes on";
}

// A number that was put into the library by hand stands in the sets as well, without designators.
TEST_F(MainSessionTest, OnlyPartsOfTheProjectAreEverMissing) {
    folder.put(analysesFile, "sep=,\n|\n>,DORVANE,N/A,Unknown,HAND-1,cat,words,Default,<\n");
    prompt.expect(message::sourceFileNotFound(folder / L"public/AnalysesLib_Public.csv"));
    MainSession& main = start();
    const AsrComponent byHand = main.asrPage.designLibrary.at(L"HAND-1");
    ASSERT_EQ(byHand.Description, L"words");
    main.asrPage.setFilter(PageFilter::FullLibrary);
    main.asrPage.refresh();
    EXPECT_EQ(main.asrPage.designLibrary.at(L"HAND-1"), byHand);
    main.sdtaPage.selectedParts[L"HAND-2"];
    main.sdtaPage.refresh();
    EXPECT_FALSE(main.sdtaPage.designLibrary.contains(L"HAND-2"));
}

TEST_F(MainSessionTest, ACharacterTheFileLacksKeepsTheWindowOpenUntilUtf8IsTaken) {
    folder.putParts("R1,R-1,,RES 10 k\u03A9,,Yes\n");
    const std::string old =
        "sep=,\n|\n>,SDTA-M, IC,IC Linear,U-1,,10 \xB5s,Default,,,,,,,,,,,,,,,,,<\n|,End of File\n";
    folder.put(sdtaFile, old);
    expectFirstStart();
    MainSession& main = start();
    const auto question = message::characterNotInCodePage(folder / sdtaFile, L"R-1", L"DESCR");
    prompt.expectQuestion(question, PromptAnswer::No);
    EXPECT_FALSE(main.closeWithOk());
    EXPECT_EQ(folder.bytesOf(sdtaFile), old);

    prompt.expectQuestion(question, PromptAnswer::Yes);
    EXPECT_TRUE(main.closeWithOk());
    EXPECT_NE(folder.bytesOf(sdtaFile).find("10 \u00B5s"), std::string::npos);
    EXPECT_NE(folder.bytesOf(sdtaFile).find("10 k\u03A9"), std::string::npos);
}

TEST_F(MainSessionTest, LongWorkShowsThatItGoesOnAndEnds) {
    class Counted final : public Progress {
    public:
        void step() override { ++steps; }
        void finish() override {
            if (steps > 0)
                finished.push_back(steps);
            steps = 0;
        }
        int steps = 0;
        std::vector<int> finished;
    } progress;
    engine.setProgress(progress);
    expectFirstStart();
    MainSession& main = start();
    EXPECT_EQ(progress.finished, (std::vector{1, 4})) << "one text for SDTA, two for Analyses, "
                                                         "each with a group and a type";
    progress.finished.clear();
    main.asrPage.parseDescriptions();
    EXPECT_EQ(progress.finished, (std::vector{2}));
    EXPECT_EQ(progress.steps, 0);
}

TEST_F(MainSessionTest, DescriptionParsingAsksFirst) {
    expectFirstStart();
    MainSession& main = start();
    const auto ask = [this](PromptAnswer answer) {
        prompt.expectQuestion(message::confirmAutoFill, answer, message::confirmAutoFillTitle);
    };
    const SdtaLibrary before = main.sdtaPage.designLibrary;
    ask(PromptAnswer::No);
    main.parseDescriptions();
    EXPECT_EQ(main.sdtaPage.designLibrary, before);
    EXPECT_FALSE(main.sdtaPage.modified());
    ask(PromptAnswer::Yes);
    main.parseDescriptions();
    EXPECT_EQ(main.sdtaPage.designLibrary.at(L"R-1").Notes, L"Descr");
    EXPECT_TRUE(main.sdtaPage.modified());
    EXPECT_FALSE(main.asrPage.modified()) << "the active page only";
    session.reset(); // Cancel
    EXPECT_EQ(folder.files().size(), 1U);
}

// A prompt at which the user mends the file before pressing OK.
TEST_F(MainSessionTest, ALibraryThatWasUnreadableAtFirstIsNotWrittenOver) {
    class Mending final : public Prompt {
    public:
        explicit Mending(const ProjectFolder& folder) : folder_(folder) {}
        PromptAnswer show(std::wstring_view, std::wstring_view text, PromptIcon,
                          PromptButtons) override {
            if (text == message::failedToOpen(folder_ / sdtaFile)) {
                std::filesystem::remove(nativePath(folder_ / sdtaFile));
                folder_.put(sdtaFile, content);
            }
            last = text;
            return PromptAnswer::Ok;
        }
        std::string content = "sep=,\n|\n>,SDTA-M, IC,IC Linear,PRECIOUS,,,Default,<\n";
        std::wstring last;

    private:
        const ProjectFolder& folder_;
    } mending(folder);
    folder.block(sdtaFile);
    loadAtStart(app, clock, mending, {pathText(places::tables), folder / L"public"});
    session.emplace(app, engine, mending);
    session->start();
    EXPECT_FALSE(session->sdtaPage.save(false));
    EXPECT_EQ(mending.last, message::saveWouldLose(folder / sdtaFile, message::fileUnreadable()));
    EXPECT_EQ(folder.bytesOf(sdtaFile), mending.content);
}

TEST_F(MainSessionTest, CountsByTheLevelAndLeavesOutCodesNotInUse) {
    expectFirstStart();
    MainSession& main = start();
    std::vector<std::wstring> families;
    std::int32_t quantity = 0;
    for (const GroupCount& line : main.asrPage.counts()) {
        EXPECT_EQ(line.name.find(L"N/A"), std::wstring::npos);
        if (families.empty() || families.back() != line.family)
            families.push_back(line.family);
        quantity += line.quantity;
        EXPECT_EQ(main.asrPage.uncompletedOf(line), line.uncompletedForAsr);
    }
    const std::set<std::wstring> distinct(families.begin(), families.end());
    EXPECT_EQ(distinct.size(), families.size()) << "each family stands in one piece";
    EXPECT_EQ(quantity, 2);
}

} // namespace partwright::test
