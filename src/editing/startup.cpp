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

void findProgramFolder(CPartwrightPlugInApp& app, const StartOptions& options) {
    app.programFolder = options.programFolder.empty()
                            ? programFolderFor(programPath(), app.hostTool)
                            : withSeparator(options.programFolder);
}

} // namespace

void tell(Prompt& prompt, const LoadResult& result, PromptIcon icon) {
    if (!result.message.empty())
        prompt.tell(result.message, icon);
}

void loadAtStart(CPartwrightPlugInApp& app, Clock& clock, Prompt& prompt,
                 const StartOptions& options) {
    app.decimalPoint = localeDecimalPoint();
    findProgramFolder(app, options);
    const auto setting = [&app](std::wstring& value, std::wstring_view name) {
        // A value that is missing stays empty: the ordinary case of a first run.
        static_cast<void>(
            ReadRegistryValue(app.hostTool, RegistryOperation::Read, value, settingsSection, name));
    };
    if (app.hostTool == 1)
        setting(app.hostLibFolder, L"LibFolder");
    setting(app.datasheetFolder, L"PDF_Folder_Path");
    tell(prompt, LoadProjectInput(app, clock), PromptIcon::None);
    ResolveFilePaths(app, options.publicFolder);
    if (app.sdtaProperties.empty())
        tell(prompt, LoadSdtaProperties(app));
    tell(prompt, LoadGroupNames(app));
    loadSdtaLibraries(app, prompt);
    tell(prompt, LoadDatasheetLinks(app), PromptIcon::None);
}

void loadTables(CPartwrightPlugInApp& app, Prompt& prompt, const StartOptions& options) {
    app.decimalPoint = localeDecimalPoint();
    findProgramFolder(app, options);
    ResolveFilePaths(app, options.publicFolder);
    tell(prompt, LoadSdtaProperties(app));
    tell(prompt, LoadGroupNames(app));
    loadAnalysesTables(app, prompt);
}

void loadAnalysesTables(CPartwrightPlugInApp& app, Prompt& prompt) {
    if (app.asrProperties.empty())
        tell(prompt, LoadAsrProperties(app));
    if (app.asrColumnsForRapid.empty() && app.asrColumnsForAsr.empty())
        tell(prompt, LoadColumnVisibility(app));
    if (app.convBiCode.empty())
        tell(prompt, LoadConvBiCode(app));
    if (app.asrDefaultLPar.empty())
        tell(prompt, LoadAsrDefaultLPar(app));
}

void loadSdtaLibraries(CPartwrightPlugInApp& app, Prompt& prompt) {
    tell(prompt,
         loadSdtaMaster(app, app.sdtaDesignLibrary, app.sdtaDesignReading, app.sdtaLibraryPath),
         PromptIcon::None);
    tell(prompt,
         loadSdtaMaster(app, app.sdtaPublicLibrary, app.sdtaPublicReading,
                        app.publicSdtaLibraryPath),
         PromptIcon::None);
}

void loadAnalysesLibraries(CPartwrightPlugInApp& app, Prompt& prompt) {
    tell(prompt, LoadAnalysesLibrary(app, app.asrDesignLibrary, app.asrLibraryPath),
         PromptIcon::None);
    tell(prompt, LoadAnalysesLibrary(app, app.asrPublicLibrary, app.publicAsrLibraryPath),
         PromptIcon::None);
}

void reloadSdtaLibraries(CPartwrightPlugInApp& app, Prompt& prompt) {
    const auto earlier = app.loadReports;
    loadSdtaLibraries(app, prompt);
    for (const auto& [path, report] : earlier)
        if (report.fault != LibraryFault::None)
            app.loadReports[path] = report;
    app.forgetReadings(); // each library is read twice in a run, not more often
}

PartSelection partsOfProject(const CPartwrightPlugInApp& app, bool onlySelected) {
    PartSelection parts;
    for (const auto& [designator, entry] : app.projectEntries) {
        const std::wstring part = asReadBack(app.ProjectValue(designator, app.columnPartNumber));
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
