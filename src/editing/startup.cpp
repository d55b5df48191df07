#include "editing/startup.h"

#include "core/paths.h"
#include "core/settings.h"
#include "core/text.h"
#include "library/datasheet_links.h"
#include "library/library_reader.h"
#include "library/part_key.h"
#include "library/project_input.h"
#include "library/property_tables.h"
#include "library/small_tables.h"

namespace partwright {

namespace {

constexpr std::wstring_view settingsSection = L"Settings";

void findProgramFolder(ProjectPaths& paths, const StartOptions& options) {
    paths.programFolder = options.programFolder.empty()
                              ? programFolderFor(programPath(), paths.hostTool)
                              : withSeparator(options.programFolder);
}

/// The Analyses libraries are read once in a run.
LoadResult loadMaster(CPartwrightPlugInApp& app, MasterCopy<AsrComponent>& master,
                      std::wstring_view path) {
    AsrLibrary records;
    LoadResult result = LoadAnalysesLibrary(app, records, path);
    master.replace(std::move(records));
    return result;
}

} // namespace

void tell(Prompt& prompt, const LoadResult& result, PromptIcon icon) {
    if (!result.message.empty())
        prompt.tell(result.message, icon);
}

bool loadAtStart(CPartwrightPlugInApp& app, Clock& clock, Prompt& prompt,
                 const StartOptions& options) {
    app.decimalPoint = localeDecimalPoint();
    findProgramFolder(app.paths, options);
    const auto setting = [&app](std::wstring& value, std::wstring_view name) {
        // A value that is missing stays empty: the ordinary case of a first run.
        static_cast<void>(ReadRegistryValue(app.paths.hostTool, RegistryOperation::Read, value,
                                            settingsSection, name));
    };
    if (app.paths.hostTool == 1)
        setting(app.paths.hostLibFolder, L"LibFolder");
    setting(app.paths.datasheetFolder, L"PDF_Folder_Path");
    tell(prompt, LoadProjectInput(app.paths, app.partList, clock), PromptIcon::None);
    ResolveFilePaths(app.paths, options.publicFolder);
    if (!settleInterruptedSaves(app.paths, options.interruptedSaves, prompt))
        return false;
    if (app.sdta.properties.empty())
        tell(prompt, LoadSdtaProperties(app.paths, app.sdta));
    tell(prompt, LoadGroupNames(app.paths, app.classifier, app.sdta));
    loadSdtaLibraries(app, prompt);
    tell(prompt, LoadDatasheetLinks(app.paths, app.libraries), PromptIcon::None);
    return true;
}

void loadTables(CPartwrightPlugInApp& app, Prompt& prompt, const StartOptions& options) {
    app.decimalPoint = localeDecimalPoint();
    findProgramFolder(app.paths, options);
    ResolveFilePaths(app.paths, options.publicFolder);
    tell(prompt, LoadSdtaProperties(app.paths, app.sdta));
    tell(prompt, LoadGroupNames(app.paths, app.classifier, app.sdta));
    loadAnalysesTables(app, prompt);
}

void loadAnalysesTables(CPartwrightPlugInApp& app, Prompt& prompt) {
    if (app.asr.properties.empty())
        tell(prompt, LoadAsrProperties(app.paths, app.asr));
    if (app.asr.columnsForRapid.empty() && app.asr.columnsForAsr.empty())
        tell(prompt, LoadColumnVisibility(app.paths, app.asr));
    if (app.classifier.convBiCode.empty())
        tell(prompt, LoadConvBiCode(app.paths, app.classifier));
    if (app.asr.defaultLPar.empty())
        tell(prompt, LoadAsrDefaultLPar(app.paths, app.asr));
}

void loadSdtaLibraries(CPartwrightPlugInApp& app, Prompt& prompt) {
    tell(prompt, loadSdtaMaster(app, app.libraries.sdtaDesignLibrary, app.paths.sdtaLibraryPath),
         PromptIcon::None);
    tell(prompt,
         loadSdtaMaster(app, app.libraries.sdtaPublicLibrary, app.paths.publicSdtaLibraryPath),
         PromptIcon::None);
}

void loadAnalysesLibraries(CPartwrightPlugInApp& app, Prompt& prompt) {
    tell(prompt, loadMaster(app, app.libraries.asrDesignLibrary, app.paths.asrLibraryPath),
         PromptIcon::None);
    tell(prompt, loadMaster(app, app.libraries.asrPublicLibrary, app.paths.publicAsrLibraryPath),
         PromptIcon::None);
}

void reloadSdtaLibraries(CPartwrightPlugInApp& app, Prompt& prompt) {
    // The page works on the records of the first time.
    const auto reports = app.libraries.loadReports;
    const auto marks = app.libraries.marks;
    loadSdtaLibraries(app, prompt);
    app.libraries.loadReports = reports;
    app.libraries.marks = marks;
    // Each library is read twice in a run, not more often.
    app.libraries.sdtaDesignLibrary.forgetReading();
    app.libraries.sdtaPublicLibrary.forgetReading();
}

PartSelection partsOfProject(const PartList& list, bool onlySelected) {
    PartSelection parts;
    for (const auto& [designator, entry] : list.projectEntries) {
        const std::wstring part = asReadBack(list.ProjectValue(designator, list.columnPartNumber));
        if (part.empty() || (onlySelected && entry.selected == 0))
            continue;
        std::wstring& designators = parts[part];
        if (!designators.empty())
            designators += L',';
        designators += designator;
    }
    return parts;
}

} // namespace partwright
