#pragma once

// What the main window does, without a widget: two pages, the library type, which commands are
// offered, the two auto-fill commands, and the way it ends.
//
// "Save" writes the active page's library; "OK" writes both libraries of the current type, changed
// or not, and the links to data sheets; when records of the other type were changed and not saved,
// it asks whether to write those as well. Cancel writes nothing and asks nothing.

#include "core/application.h"
#include "core/ports/prompt.h"
#include "editing/page_session.h"

#include <array>

namespace partwright {

enum class MainCommand {
    SaveLibrary,
    ImportLibrary,
    ExportLibrary,
    AddToPublicLibrary,
    GroupLibrary,
    DescriptionParsing,
    ImportFromPublicLibrary,
    RequestLibrary,
    SyncLibraries,
    SelectDatasheetFolder,
    ClearLibrary,
};

class MainSession {
public:
    MainSession(CPartwrightPlugInApp& app, FillEngine& engine, Prompt& prompt);

    /// Rules for cells, shared by the dialogs of both pages.
    ValidationTables rules;

    /// Starts both pages, SDTA first, and activates the one that the command line named.
    void start();

    SdtaPageSession sdtaPage;
    AsrPageSession asrPage;

    static constexpr int pageCount = 2;
    [[nodiscard]] PageSession& page(int index);
    void setActivePage(int index) { activePage_ = index; }
    [[nodiscard]] int activePage() const { return activePage_; }

    /// Leaving "Design" remembers each page's filter and shows everything; the way back restores
    /// it.
    void setLibraryType(bool isDesign);
    [[nodiscard]] bool isDesign() const { return isDesign_; }

    /// Whether the rules of the window offer a command now.
    [[nodiscard]] bool isOffered(MainCommand command);

    void saveActivePage();
    void runGroupLibrary();
    /// Asks first; anything but Yes changes nothing.
    void parseDescriptions();

    /// A page's parts without a group after OK: the records go back to the page, and the parts that
    /// were removed leave both pages.
    void storeNewComponents(int page, NewComponentTable& table);

    /// Closing without a save would lose records of either type, or links to data sheets. Parts of
    /// the project that were added by themselves do not count.
    [[nodiscard]] bool isUnsaved() const;

    /// Saves all; true when the window closes. It stays, with everything in memory, when anything
    /// could not be written.
    bool closeWithOk();

private:
    bool saveBothPages(bool isDesign);
    /// False when links would be lost by closing.
    bool saveLinks();

    /// Tells the tables that filling would miss, all but `notNeeded`; false when there are any.
    bool canFill(const std::wstring& notNeeded);

    CPartwrightPlugInApp& app_;
    FillEngine& engine_;
    Prompt& prompt_;
    /// The links as their file has them.
    DatasheetLinks savedLinks_;
    int activePage_ = 0;
    bool isDesign_ = true;
    std::array<PageFilter, pageCount> storedFilterRadio_{};
};

} // namespace partwright
