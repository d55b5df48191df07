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

/// What was not taken of the two files of a kind, told as findings.
template <class Record>
void addLoadFindings(const CPartwrightPlugInApp& app, std::vector<LibraryFinding>& findings) {
    for (const auto* path : {&app.paths.designPath<Record>(), &app.paths.publicPath<Record>()})
        if (const auto report = app.libraries.loadReports.find(*path);
            report != app.libraries.loadReports.end()) {
            auto found = loadFindings(Kind<Record>::name, report->first, report->second);
            std::move(found.begin(), found.end(), std::back_inserter(findings));
        }
}

} // namespace

int runCheck(const PlaceOptions& place, const CheckOptions& options, Streams streams) {
    Project project(place, streams);
    if (!project.isThere())
        return Usage;
    MainSession& session = project.session;
    // Parts that the libraries lack are unfilled ones in the window, so they are here.
    for (int index = 0; index < MainSession::pageCount; ++index) {
        session.page(index).setFilter(PageFilter::AllProject);
        session.page(index).refresh();
    }
    std::vector<LibraryFinding> findings;
    addLoadFindings<SdtaComponent>(project.app, findings);
    addLoadFindings<AsrComponent>(project.app, findings);
    const auto add = [&](std::vector<LibraryFinding> found) {
        std::move(found.begin(), found.end(), std::back_inserter(findings));
    };
    add(checkLibrary<SdtaComponent>(project.app, session.sdtaPage.workingLibrary(), session.rules,
                                    options.level));
    add(checkLibrary<AsrComponent>(project.app, session.asrPage.workingLibrary(), session.rules,
                                   options.level));
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
