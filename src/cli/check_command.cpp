#include "cli/commands.h"
#include "cli/project.h"
#include "core/encoding.h"
#include "editing/library_check.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <iterator>
#include <ostream>

namespace partwright::cli {

namespace {

/// A field of a line: nothing in it may look like the end of the field or of the line.
std::string field(std::wstring_view text) {
    std::wstring line(text);
    std::replace_if(
        line.begin(), line.end(), [](wchar_t c) { return c < L' '; }, L' ');
    return encodeUtf8(line);
}

void printText(std::ostream& out, const LibraryFinding& finding) {
    const std::wstring_view fields[] = {
        finding.library,   finding.part,  finding.group,        finding.type,
        finding.parameter, finding.value, finding.finding.rule, finding.finding.summary()};
    for (std::size_t i = 0; i < std::size(fields); ++i)
        out << (i == 0 ? "" : "\t") << field(fields[i]);
    out << '\n';
}

nlohmann::ordered_json json(const LibraryFinding& finding) {
    return {{"library", encodeUtf8(finding.library)},
            {"partNumber", encodeUtf8(finding.part)},
            {"group", encodeUtf8(finding.group)},
            {"type", encodeUtf8(finding.type)},
            {"parameter", encodeUtf8(finding.parameter)},
            {"value", encodeUtf8(finding.value)},
            {"rule", encodeUtf8(finding.finding.rule)},
            {"text", encodeUtf8(finding.finding.summary())}};
}

/// What was not taken of the two files of the kind, what is wrong in the records, and what a save
/// changes.
template <class Record>
void addFindings(Project& project, const LibraryPageSession<Record>& page, AnalysisLevel level,
                 std::vector<LibraryFinding>& findings) {
    const auto add = [&](std::vector<LibraryFinding> found) {
        std::move(found.begin(), found.end(), std::back_inserter(findings));
    };
    const ProjectPaths& paths = project.app.paths;
    const auto& reports = project.app.libraries.loadReports;
    for (const auto* path : {&paths.designPath<Record>(), &paths.publicPath<Record>()})
        if (const auto report = reports.find(*path); report != reports.end())
            add(loadFindings(Kind<Record>::name, report->first, report->second));
    const auto& library = page.workingLibrary();
    add(checkLibrary<Record>(project.app, library, project.session.rules, level));
    add(saveFindings<Record>(project.app, library));
}

} // namespace

int runCheck(const PlaceOptions& place, const CheckOptions& options, Streams streams) {
    Project project(place, streams);
    if (project.opened() != Fine)
        return project.opened();
    MainSession& session = project.session;
    // Parts that the libraries lack are unfilled ones in the window, so they are here.
    for (int index = 0; index < MainSession::pageCount; ++index) {
        session.page(index).setFilter(PageFilter::AllProject);
        session.page(index).refresh();
    }
    std::vector<LibraryFinding> findings;
    addFindings(project, session.sdtaPage, options.level, findings);
    addFindings(project, session.asrPage, options.level, findings);
    for (const LibraryFinding& finding : findings)
        if (place.json)
            streams.out << json(finding).dump() << '\n';
        else
            printText(streams.out, finding);
    if (!place.json)
        streams.out << findings.size() << (findings.size() == 1 ? " finding" : " findings") << '\n';
    project.tellLookedAt();
    if (project.prompt.unreadable())
        return Usage;
    return findings.empty() ? Fine : Findings;
}

} // namespace partwright::cli
