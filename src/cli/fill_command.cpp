#include "cli/commands.h"
#include "cli/project.h"
#include "core/encoding.h"
#include "core/messages.h"
#include "library/library_writer.h"
#include "maintenance/record_changes.h"

#include <nlohmann/json.hpp>

#include <ostream>

namespace partwright::cli {

namespace {

using Json = nlohmann::ordered_json;

template <class Record>
void printText(std::ostream& out, const RecordChange& change) {
    out << encodeUtf8(Kind<Record>::name) << '\t' << encodeUtf8(change.partNumber);
    for (const FieldChange& field : change.fields)
        out << '\t' << encodeUtf8(field.name) << ": " << encodeUtf8(field.before) << " -> "
            << encodeUtf8(field.after);
    out << '\n';
}

template <class Record>
void printJson(std::ostream& out, const RecordChange& change) {
    Json line = {{"library", encodeUtf8(Kind<Record>::name)},
                 {"partNumber", encodeUtf8(change.partNumber)},
                 {"added", change.added}};
    for (const FieldChange& field : change.fields)
        line["changes"][encodeUtf8(field.name)] = {encodeUtf8(field.before),
                                                   encodeUtf8(field.after)};
    out << line.dump() << '\n';
}

/// The auto-fill commands of one page, and what they changed since the library was read.
template <class Record>
std::vector<RecordChange> fillPage(Project& project, LibraryPageSession<Record>& page,
                                   const FillOptions& options) {
    const auto before = project.app.libraries.designLibrary<Record>().records();
    page.setFilter(pageFilter(page, options.filter));
    page.refresh();
    const bool all = !options.groupLibrary && !options.descriptions;
    if (options.groupLibrary || all)
        page.runGroupLibrary();
    if (options.descriptions || all)
        page.parseDescriptions();
    return changesBetween(project.app.of<Record>(), before, page.designLibrary);
}

template <class Record>
void print(std::ostream& out, const std::vector<RecordChange>& changes, bool json) {
    for (const RecordChange& change : changes) {
        if (json)
            printJson<Record>(out, change);
        else
            printText<Record>(out, change);
    }
}

/// Tells what saving this page's library would drop of the file; false when that is nothing, or
/// agreed to.
template <class Record>
bool refuses(Project& project, const LibraryPageSession<Record>& page, bool dropUnread) {
    LoadReport& report = project.app.libraries.loadReports[page.libraryPath()];
    report.dropsAllowed = dropUnread;
    const std::size_t lines =
        droppedLines<Record>(report, recordsByGroup<Record>(page.workingLibrary()));
    if (lines == 0 || dropUnread || report.fault != LibraryFault::None)
        return false;
    project.prompt.tell(message::savingNeedsLeave(page.libraryPath(), lines), PromptIcon::None);
    tellEntries(project.prompt, report);
    return true;
}

} // namespace

int runFill(const PlaceOptions& place, const FillOptions& options, Streams streams) {
    Project project(place, streams);
    if (project.opened() != Fine)
        return project.opened();
    // With a table or the part list unread, values would be missing or come from the wrong rules.
    // A library that was not read is refused by its own save.
    if (project.prompt.unreadableTable(project.app.libraries))
        return Usage;
    if (const auto missing = project.engine.missingTables(); !missing.empty()) {
        project.prompt.tell(message::fillNeedsTables(missing), PromptIcon::None);
        return Usage;
    }
    const bool sdta = options.sdta || !options.analyses;
    const bool analyses = options.analyses || !options.sdta;
    MainSession& session = project.session;
    const bool sdtaRefuses = sdta && refuses(project, session.sdtaPage, options.dropUnread);
    const bool asrRefuses = analyses && refuses(project, session.asrPage, options.dropUnread);
    if ((sdtaRefuses || asrRefuses) && !options.dryRun)
        return Findings;
    // All is saved before anything is printed: whoever reads the answer may close the pipe.
    std::vector<RecordChange> sdtaChanges;
    std::vector<RecordChange> analysesChanges;
    bool written = true;
    if (sdta) {
        sdtaChanges = fillPage(project, session.sdtaPage, options);
        written = options.dryRun || session.sdtaPage.save(false);
    }
    if (analyses) {
        analysesChanges = fillPage(project, session.asrPage, options);
        written = (options.dryRun || session.asrPage.save(false)) && written;
    }
    print<SdtaComponent>(streams.out, sdtaChanges, place.json);
    print<AsrComponent>(streams.out, analysesChanges, place.json);
    project.tellLookedAt(sdta, analyses);
    if (!written)
        return Findings;
    return project.prompt.unreadable() ? Usage : Fine;
}

} // namespace partwright::cli
