#include "editing/main_session.h"

#include "core/messages.h"
#include "editing/new_component_session.h"
#include "library/datasheet_links.h"

namespace partwright {

MainSession::MainSession(CPartwrightPlugInApp& app, FillEngine& engine, Prompt& prompt)
    : sdtaPage(app, engine, rules, prompt), asrPage(app, engine, rules, prompt), app_(app),
      engine_(engine), prompt_(prompt) {}

void MainSession::start() {
    savedLinks_ = app_.libraries.datasheetLinks;
    for (int index = 0; index < pageCount; ++index) {
        activePage_ = index;
        page(index).start();
    }
    activePage_ = app_.startPage == 1 ? 1 : 0;
}

PageSession& MainSession::page(int index) {
    if (index == 0)
        return sdtaPage;
    return asrPage;
}

void MainSession::setLibraryType(bool isDesign) {
    if (isDesign == isDesign_)
        return; // a press on the radio that is checked already
    isDesign_ = isDesign;
    for (int index = 0; index < pageCount; ++index) {
        PageSession& one = page(index);
        PageFilter& stored = storedFilterRadio_[static_cast<std::size_t>(index)];
        if (!isDesign)
            stored = one.filter();
        one.setDesign(isDesign);
        one.setFilter(isDesign ? stored : PageFilter::FullLibrary);
        one.refresh();
    }
}

bool MainSession::isOffered(MainCommand command) {
    switch (command) {
    case MainCommand::SaveLibrary:
    case MainCommand::ExportLibrary:
    case MainCommand::SelectDatasheetFolder:
        return true;
    case MainCommand::GroupLibrary:
    case MainCommand::DescriptionParsing:
        return page(activePage_).filter() != PageFilter::FullLibrary;
    case MainCommand::ImportLibrary:
    case MainCommand::AddToPublicLibrary:
    case MainCommand::ImportFromPublicLibrary:
    case MainCommand::RequestLibrary:
    case MainCommand::SyncLibraries:
    case MainCommand::ClearLibrary:
        break;
    }
    return isDesign_;
}

void MainSession::saveActivePage() {
    PageSession& active = page(activePage_);
    active.save(true);
    if (activePage_ == 0) {
        active.RebuildKeySets();
        active.refresh();
    }
}

bool MainSession::canFill(const std::wstring& notNeeded) {
    std::vector<std::wstring> missing = engine_.missingTables();
    std::erase(missing, notNeeded);
    if (!missing.empty())
        prompt_.tell(message::fillNeedsTables(missing), PromptIcon::Warning);
    return missing.empty();
}

void MainSession::runGroupLibrary() {
    // Without any decoder the command finds nothing and changes nothing.
    if (canFill(app_.paths.groupLibraryPath))
        page(activePage_).runGroupLibrary();
}

void MainSession::parseDescriptions() {
    if (!canFill(app_.paths.groupLibraryPath))
        return;
    if (prompt_.ask(message::confirmAutoFillTitle, message::confirmAutoFill))
        page(activePage_).parseDescriptions();
}

void MainSession::storeNewComponents(int index, NewComponentTable& table) {
    for (const std::wstring& part : table.removedParts()) {
        for (PartSelection* keys :
             {&sdtaPage.projectParts, &sdtaPage.selectedParts, &sdtaPage.designParts,
              &asrPage.projectParts, &asrPage.designParts, &asrPage.publicParts})
            keys->erase(part);
        asrPage.designLibrary.erase(part);
        if (index == 0) {
            sdtaPage.designLibrary.erase(part);
            if (sdtaPage.publicLibrary.erase(part) != 0)
                sdtaPage.markModified(false);
        } else if (asrPage.publicLibrary.erase(part) != 0) {
            asrPage.markModified(false);
        }
    }
    page(index).storeNewComponents(table);
}

bool MainSession::isUnsaved() const {
    const auto changed = [](const PageSession& page) {
        return page.hasUnsaved(true) || page.hasUnsaved(false);
    };
    return changed(sdtaPage) || changed(asrPage) || app_.libraries.datasheetLinks != savedLinks_;
}

bool MainSession::closeWithOk() {
    const bool isOtherUnsaved = sdtaPage.hasUnsaved(!isDesign_) || asrPage.hasUnsaved(!isDesign_);
    const bool savesOther =
        isOtherUnsaved &&
        prompt_.ask(message::caption, isDesign_ ? message::publicUnsaved : message::designUnsaved);
    bool isSaved = saveBothPages(isDesign_);
    if (savesOther)
        isSaved = saveBothPages(!isDesign_) && isSaved;
    return saveLinks() && isSaved;
}

bool MainSession::saveBothPages(bool isDesign) {
    bool isSaved = true;
    for (int index = 0; index < pageCount; ++index)
        isSaved = page(index).saveType(isDesign, false) && isSaved;
    return isSaved;
}

bool MainSession::saveLinks() {
    const bool isSaved = saveLinkFile(app_, prompt_);
    if (isSaved)
        savedLinks_ = app_.libraries.datasheetLinks;
    const auto report = app_.libraries.loadReports.find(datasheetLinksPath(app_.paths));
    const bool isWithheld =
        report != app_.libraries.loadReports.end() && report->second.fault != LibraryFault::None;
    return isSaved || (isWithheld && app_.libraries.datasheetLinks.empty());
}

} // namespace partwright
