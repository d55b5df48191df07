#include "editing/main_session.h"

#include "core/messages.h"
#include "editing/new_component_session.h"
#include "library/datasheet_links.h"

namespace partwright {

MainSession::MainSession(CPartwrightPlugInApp& app, FillEngine& engine, Prompt& prompt)
    : sdtaPage(app, engine, rules, prompt), asrPage(app, engine, rules, prompt), app_(app),
      engine_(engine), prompt_(prompt) {}

void MainSession::start() {
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
            sdtaPage.publicLibrary.erase(part);
        } else {
            asrPage.publicLibrary.erase(part);
        }
    }
    page(index).storeNewComponents(table);
}

bool MainSession::closeWithOk() {
    bool close = true;
    for (int index = 0; index < pageCount; ++index) {
        const SaveOutcome outcome = page(index).save(false);
        close = close && (outcome == SaveOutcome::Saved || outcome == SaveOutcome::CannotOpen);
    }
    return saveLinks() && close;
}

bool MainSession::saveLinks() {
    const LinkSaveResult saved = SaveDatasheetLinks(app_.paths, app_.libraries);
    if (!saved.message.empty())
        prompt_.tell(saved.message, PromptIcon::Warning);
    switch (saved.status) {
    case SaveStatus::Saved:
    case SaveStatus::OpenFailed:
        return true;
    case SaveStatus::Refused:
    case SaveStatus::WriteFailed:
    case SaveStatus::Unencodable:
        break;
    }
    return app_.libraries.datasheetLinks.empty();
}

} // namespace partwright
