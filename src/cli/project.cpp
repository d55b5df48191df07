#include "cli/project.h"

#include "core/messages.h"
#include "core/paths.h"
#include "core/text_file.h"
#include "editing/startup.h"
#include "library/project_input.h"

#include <algorithm>
#include <filesystem>
#include <utility>

namespace partwright::cli {

namespace {

std::wstring folder(const std::string& argument) {
    return pathText(std::filesystem::path(argument));
}

StartOptions startOptions(const PlaceOptions& place) {
    return {folder(place.program), folder(place.publicFolder), interruptedSaves(place)};
}

/// Without group names no command gives an answer worth having, so the place is told where they
/// were looked for.
void tellMissingGroups(const CPartwrightPlugInApp& app, Prompt& prompt) {
    if (app.classifier.groupNamesByCode.empty())
        prompt.tell(message::groupTableMissing(app.paths.descrRulesPath), PromptIcon::None);
}

} // namespace

Tables::Tables(const PlaceOptions& place, Streams streams) : prompt(streams.err), engine(app) {
    app.paths.hostTool = place.host;
    loadTables(app, prompt, startOptions(place));
    for (const LoadResult& result : engine.load())
        tell(prompt, result);
    tellMissingGroups(app, prompt);
}

Project::Project(const PlaceOptions& place, Streams streams)
    : prompt(streams.err), engine(app), session(app, engine, prompt) {
    app.paths.hostTool = place.host;
    app.paths.libraryFolder = folder(place.library);
    app.paths.projectInputFolder = withSeparator(folder(place.input));
    if (!loadAtStart(app, clock_, prompt, startOptions(place))) {
        opened_ = Findings;
        return;
    }
    session.start();
    tellMissingGroups(app, prompt);
    for (const auto& [path, report] : app.libraries.loadReports)
        tellReport(prompt, path, report);
    const std::wstring fault =
        place.input.empty() ? std::wstring() : partListFault(app.paths, app.partList);
    if (fault.empty() || prompt.unreadable()) // an unreadable list was told already
        return;
    opened_ = Usage;
    prompt.tell(fault, PromptIcon::None);
}

void tellReport(Prompt& prompt, std::wstring_view path, const LoadReport& report) {
    // A file that cannot be opened, and group names that nobody knows, were told of before.
    const bool isTold =
        report.fault == LibraryFault::Unreadable || report.fault == LibraryFault::NoGroupNames;
    if (!isTold && (report.fault != LibraryFault::None || report.count() > 0))
        prompt.tell(message::loadSummary(path, report), PromptIcon::None);
}

void tellEntries(Prompt& prompt, const LoadReport& report) {
    for (const LoadEntry& entry : report.entries())
        prompt.tell(message::entryText(entry), PromptIcon::None);
}

void Project::tellLookedAt(bool sdta, bool analyses) {
    std::vector<message::LookedAt> files;
    if (sdta)
        files.push_back({session.sdtaPage.libraryPath(), session.sdtaPage.workingLibrary().size()});
    if (analyses)
        files.push_back({session.asrPage.libraryPath(), session.asrPage.workingLibrary().size()});
    prompt.tell(message::lookedAt(files), PromptIcon::None);
}

bool foldersAreThere(const PlaceOptions& place, bool project, Prompt& prompt) {
    std::vector<std::pair<std::wstring_view, std::string>> named = {{L"--program", place.program}};
    if (project)
        named.insert(named.end(), {{L"--library", place.library},
                                   {L"--input", place.input},
                                   {L"--public", place.publicFolder}});
    bool allThere = true;
    for (const auto& [option, path] : named) {
        std::error_code ignored;
        if (path.empty() || std::filesystem::is_directory(std::filesystem::path(path), ignored))
            continue;
        prompt.tell(message::noFolder(option, folder(path)), PromptIcon::None);
        allThere = false;
    }
    return allThere;
}

InterruptedSaves interruptedSaves(const PlaceOptions& place) {
    return place.recover ? InterruptedSaves::Complete : InterruptedSaves::Refuse;
}

PageFilter pageFilter(const PageSession& page, std::optional<FilterChoice> choice) {
    if (!choice)
        return page.filter();
    switch (*choice) {
    case FilterChoice::Selected:
        return page.filters().front(); // "Project Only" on the Analyses page
    case FilterChoice::Project:
        return PageFilter::AllProject;
    case FilterChoice::Full:
        break;
    }
    return PageFilter::FullLibrary;
}

const char* filterName(PageFilter filter) {
    switch (filter) {
    case PageFilter::SelectedOnly:
        return "selected";
    case PageFilter::AllProject:
        return "project";
    case PageFilter::FullLibrary:
        break;
    }
    return "full";
}

} // namespace partwright::cli
