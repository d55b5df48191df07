// The table of parts without a group over a project on disk, from the page to the library file.

#include "core/paths.h"
#include "dialog_driver.h"
#include "dialogs/main_dialog.h"
#include "dialogs/new_component_dialog.h"
#include "dialogs/new_component_grid.h"
#include "editing/main_session.h"
#include "editing/startup.h"
#include "support/places.h"
#include "support/project_folder.h"
#include "support/recording_opener.h"
#include "support/scripted_prompt.h"
#include "support/widget_sweep.h"

#include <gtest/gtest.h>

#include <QClipboard>
#include <QTimer>
#include <optional>

namespace partwright::test {

namespace {

class NoWait final : public Clock {
public:
    void pause(std::chrono::milliseconds) override { ADD_FAILURE() << "nothing is locked"; }
};

using Grid = CNewComponentGrid;

class NewComponentDialog : public ::testing::Test {
protected:
    /// ODD-1 and ODD-2 are parts of the project that no rule knows; FREE-1 and FREE-2 stand in the
    /// libraries alone.
    NewComponentDialog() {
        folder.putParts("ZZ1,odd-1,,what nobody knows,100-1,Yes\nZZ2,ODD-2,,nor this,,Yes\n");
        app.paths.hostTool = 1;
        app.paths.libraryFolder = folder / L"library";
        app.paths.projectInputFolder = withSeparator(folder / L"input");
        prompt.expect(message::sourceFileNotFound(folder / analysesFile));
        prompt.expect(message::sourceFileNotFound(folder / L"public/AnalysesLib_Public.csv"));
        loadAtStart(app, clock, prompt, {pathText(places::tables), folder / L"public"});
        session.start();
        addFreeParts(session.sdtaPage);
        addFreeParts(session.asrPage);
        for (int page = 0; page < MainSession::pageCount; ++page)
            session.page(page).setFilter(PageFilter::FullLibrary);
    }

    template <class Page>
    static void addFreeParts(Page& page) {
        for (auto* library : {&page.designLibrary, &page.publicLibrary})
            for (const wchar_t* part : {L"FREE-1", L"FREE-2"}) {
                auto& record = (*library)[part];
                record.PartNum = part;
                record.LPar[0] = L"7";
            }
        page.RebuildKeySets();
    }

    Grid& openTable(int page) {
        table = session.page(page).openNewComponents();
        dialog = std::make_unique<CNewComp1>(*table, services, sortFlags);
        open(*dialog);
        return find<Grid>(*dialog, "newComponentGrid");
    }

    static QStringList column(const Grid& grid, int col) {
        QStringList texts;
        for (int row = 0; row <= grid.rowCount(); ++row)
            texts.append(grid.text(row, col));
        return texts;
    }

    static void choose(const char* start) {
        key(Qt::Key_Down, Qt::AltModifier);
        type(start);
        key(Qt::Key_Return);
    }

    ProjectFolder folder;
    NoWait clock;
    ScriptedPrompt prompt;
    CPartwrightPlugInApp app;
    FillEngine engine{app};
    MainSession session{app, engine, prompt};
    RecordingOpener opener;
    DialogServices services{app, prompt, opener};
    std::unique_ptr<NewComponentTable> table;
    std::shared_ptr<grid::SortFlags> sortFlags = std::make_shared<grid::SortFlags>();
    std::unique_ptr<CNewComp1> dialog;
};

} // namespace

TEST_F(NewComponentDialog, FamilyAndGroupByKeyboard) {
    app.libraries.datasheetLinks[L"ODD-1"] = L"odd.pdf";
    Grid& grid = openTable(0);
    EXPECT_EQ(dialog->windowTitle(), s("New component group assignment"));
    QStringList headers;
    for (int col = 1; col <= grid.colCount(); ++col)
        headers.append(grid.text(0, col));
    EXPECT_EQ(headers.join(s("|")), s("PartNum|CatNum|Description|BlockNumb|Family|Group|Used|"
                                      "Datasheet (PDF)|Manufacturer|Notes"));
    EXPECT_EQ(column(grid, Grid::PartNumber).join(s(" ")), s("PartNum FREE-1 FREE-2 ODD-1 ODD-2"));
    EXPECT_EQ(column(grid, Grid::Used).join(s(" ")), s("Used   ZZ1 ZZ2"));
    EXPECT_EQ(grid.text(3, Grid::Datasheet), s("odd.pdf"));
    EXPECT_EQ(namelessControls(*dialog), QStringList());
    EXPECT_NE(grid.accessibleName(), QString());
    EXPECT_EQ(QApplication::focusWidget(), &grid);

    key(Qt::Key_Down);
    key(Qt::Key_Down);
    type("x"); // opens the list, and no family starts so
    key(Qt::Key_Escape);
    EXPECT_FALSE(grid.isEditable(3, Grid::Group)) << "no family, no groups";
    choose("Res");
    EXPECT_EQ(grid.text(3, Grid::Family), s("Resistor"));
    key(Qt::Key_Right);
    choose("Res");
    EXPECT_EQ(grid.text(3, Grid::Group), s("Resistor"));
    EXPECT_TRUE(grid.cellStyle(3, Grid::Group).choices.contains(s("Miscellaneous")));
    key(Qt::Key_Left);
    choose("Dio");
    EXPECT_EQ(grid.text(3, Grid::Group), QString()) << "no group of a diode";
    choose("Res");
    key(Qt::Key_Right);
    choose("Res");
    key(Qt::Key_Left);
    choose("Cap"); // a family alone changes nothing
    key(Qt::Key_Down);
    choose("Fuse");
    key(Qt::Key_Right);
    choose("Fuse");
    press(*dialog, "ok");
    ASSERT_EQ(dialog->result(), QDialog::Accepted);

    EXPECT_FALSE(session.sdtaPage.modified());
    session.storeNewComponents(0, *table);
    EXPECT_TRUE(session.sdtaPage.modified());
    const SdtaLibrary& library = session.sdtaPage.designLibrary;
    EXPECT_EQ(library.at(L"ODD-1").group, 0);
    EXPECT_EQ(app.sdta.GroupAndTypeNames(library.at(L"ODD-2").group, 0).first, L"Fuse");
    EXPECT_EQ(library.at(L"ODD-2").family, FamilyNumber(L"Fuse"));
    EXPECT_TRUE(session.closeWithOk());
    EXPECT_NE(folder.bytesOf(sdtaFile).find("Fuse,Fuse,\"\"\"ODD-2\"\"\""), std::string::npos)
        << folder.bytesOf(sdtaFile);
}

TEST_F(NewComponentDialog, RowsAreKnownThroughSortingAndDeletion) {
    const QSize least = openTable(0).window()->size();
    dialog->resize(10, 10);
    EXPECT_EQ(dialog->size(), least) << "grows, and does not shrink below its first size";
    Grid& grid = find<Grid>(*dialog, "newComponentGrid");
    const auto clickHeader = [&](int col) {
        grid.setCurrentCell(1, col); // scrolls there
        QTest::mouseClick(grid.viewport(), Qt::LeftButton, Qt::NoModifier,
                          grid.cellRect(0, col).center());
    };
    clickHeader(Grid::PartNumber);
    clickHeader(Grid::PartNumber);
    EXPECT_EQ(column(grid, Grid::PartNumber).join(s(" ")), s("PartNum ODD-2 ODD-1 FREE-2 FREE-1"));

    prompt.expect(L"Select row(s) for deleting by click on row header.");
    key(Qt::Key_Delete);
    grid.setCurrentCell(2, Grid::Family);
    choose("Res");
    key(Qt::Key_Right);
    choose("Res");
    grid.selectRows(2, 3);
    const auto question = L"You have selected 2 rows for deletion.\n1 of them is present in the "
                          L"project and cannot be deleted.\nThe remaining 1 will be deleted now.\n"
                          L"Choose Yes to delete or No to exit.";
    prompt.expectQuestion(question, PromptAnswer::No);
    key(Qt::Key_Delete);
    EXPECT_EQ(grid.rowCount(), 4);
    prompt.expectQuestion(question, PromptAnswer::Yes);
    key(Qt::Key_Delete);
    EXPECT_EQ(column(grid, Grid::PartNumber).join(s(" ")), s("PartNum ODD-2 ODD-1 FREE-1"));
    EXPECT_EQ(grid.text(3, 0), s("3")) << "the row numbers close the gap";
    grid.setCurrentCell(3, Grid::Family);
    choose("Rel");
    key(Qt::Key_Right);
    choose("Rel");
    press(*dialog, "ok");

    // A part that a dialog had added by hand counts as shown, though the project has no row of it.
    session.sdtaPage.projectParts.emplace(L"FREE-2", L"");
    session.storeNewComponents(0, *table);
    const SdtaLibrary& library = session.sdtaPage.designLibrary;
    EXPECT_EQ(app.sdta.GroupAndTypeNames(library.at(L"ODD-1").group, 0).first, L"Resistor");
    EXPECT_EQ(app.sdta.GroupAndTypeNames(library.at(L"FREE-1").group, 0).first, L"Relay");
    EXPECT_EQ(library.at(L"FREE-1").LPar[0], L"") << "a value of another group means nothing here";
    EXPECT_EQ(library.at(L"ODD-2").group, 0);
    for (const PartSelection* keys : {&session.sdtaPage.projectParts, &session.sdtaPage.designParts,
                                      &session.asrPage.designParts})
        EXPECT_FALSE(keys->contains(L"FREE-2"));
    EXPECT_FALSE(library.contains(L"FREE-2"));
    EXPECT_FALSE(session.sdtaPage.publicLibrary.contains(L"FREE-2"));
    EXPECT_FALSE(session.asrPage.designLibrary.contains(L"FREE-2"));
    EXPECT_TRUE(session.asrPage.publicLibrary.contains(L"FREE-2"));
}

TEST_F(NewComponentDialog, PasteAndFillOnTheAnalysesPage) {
    Grid& grid = openTable(1);
    ASSERT_EQ(grid.rowCount(), 4) << "those whose stress record has no group, too";
    const auto paste = [&](const char* text) {
        QApplication::clipboard()->setText(s(text));
        key(Qt::Key_V, Qt::ControlModifier);
    };
    paste("no family");
    EXPECT_EQ(grid.text(1, Grid::Family), QString());
    paste("Resistor\tResistor");
    EXPECT_EQ(grid.text(1, Grid::Group), s("Resistor"));
    grid.selectRange({1, Grid::Family, 2, Grid::Group});
    key(Qt::Key_D, Qt::ControlModifier);
    EXPECT_EQ(column(grid, Grid::Group).join(s(" ")), s("Group Resistor Resistor  "));
    grid.selectRows(2, 2);
    prompt.expectQuestion(L"You have selected 1 row for deletion.\n"
                          L"Choose Yes to delete or No to exit.",
                          PromptAnswer::Yes);
    key(Qt::Key_Delete);
    press(*dialog, "ok");
    session.storeNewComponents(1, *table);
    const AsrLibrary& library = session.asrPage.designLibrary;
    EXPECT_EQ(app.asr.GroupAndTypeNames(library.at(L"FREE-1").group, 0).first, L"Resistor");
    EXPECT_FALSE(library.contains(L"FREE-2"));
    EXPECT_FALSE(session.asrPage.publicLibrary.contains(L"FREE-2"));
    EXPECT_TRUE(session.sdtaPage.designLibrary.contains(L"FREE-2"));
    EXPECT_FALSE(session.sdtaPage.designParts.contains(L"FREE-2"));
}

TEST_F(NewComponentDialog, OpensFromTheListOfEitherPage) {
    CPartwrightPlugInDlg window(session, services);
    open(window);
    const auto quantity = [&](const char* list) {
        return find<CMyListCtrl>(window, list).item(0, 2)->text();
    };
    const auto answer = [&](const char* button) {
        QTimer::singleShot(0, &window, [button] {
            auto* const opened = qobject_cast<CNewComp1*>(QApplication::activeModalWidget());
            ASSERT_NE(opened, nullptr);
            find<Grid>(*opened, "newComponentGrid").pasteText(s("Resistor\tResistor"));
            press(*opened, button);
        });
    };
    ASSERT_EQ(quantity("sdtaList"), s("4"));
    ASSERT_EQ(quantity("asrList"), s("4"));
    auto& stress = find<CMyListCtrl>(window, "sdtaList");
    stress.setCurrentCell(0, 0);
    answer("cancel");
    QTest::keyClick(&stress, Qt::Key_Return);
    EXPECT_EQ(quantity("sdtaList"), s("4"));
    answer("ok");
    QTest::keyClick(&stress, Qt::Key_Return);
    EXPECT_EQ(quantity("sdtaList"), s("3"));
    find<CPropSheetList>(window, "propertySheet").setCurrentIndex(1);
    auto& analyses = find<CMyListCtrl>(window, "asrList");
    answer("ok");
    QTest::mouseClick(analyses.viewport(), Qt::LeftButton, Qt::NoModifier,
                      analyses.visualItemRect(analyses.item(0, 1)).center());
    QTest::mouseDClick(analyses.viewport(), Qt::LeftButton, Qt::NoModifier,
                       analyses.visualItemRect(analyses.item(0, 1)).center());
    EXPECT_EQ(quantity("asrList"), s("3"));
}

TEST_F(NewComponentDialog, PublicShowsAllAndCancelDropsAll) {
    session.setLibraryType(false);
    app.libraries.datasheetLinks[L"FREE-1"] = L"free.pdf";
    Grid& grid = openTable(0);
    EXPECT_EQ(grid.rowCount(), 2) << "all of the public library, none of the project";
    choose("Res");
    grid.setCurrentCell(1, Grid::Datasheet);
    prompt.expect(L"Path to Datasheet Directory is not defined.", PromptIcon::Warning);
    QTest::mouseDClick(grid.viewport(), Qt::LeftButton, Qt::NoModifier,
                       grid.cellRect(1, Grid::Datasheet).center());
    key(Qt::Key_Delete);
    EXPECT_EQ(grid.text(1, Grid::Datasheet), QString()) << "the link alone, without a question";
    EXPECT_EQ(grid.rowCount(), 2);
    press(*dialog, "cancel");
    EXPECT_EQ(dialog->result(), QDialog::Rejected);
    EXPECT_EQ(session.sdtaPage.publicLibrary.at(L"FREE-1").group, 0);
    EXPECT_EQ(app.libraries.datasheetLinks.at(L"FREE-1"), L"free.pdf");
}

} // namespace partwright::test
