#include "cli/commands.h"
#include "cli/project.h"
#include "cli/record_changes.h"
#include "core/encoding.h"
#include "core/messages.h"
#include "library/library_writer.h"

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

/// The auto-fill commands of one page, then its save. False when the library was not written.
template <class Record>
bool fillPage(Project& project, LibraryPageSession<Record>& page, const FillOptions& options,
              bool json, std::ostream& out) {
    const auto before = project.app.libraries.designLibrary<Record>().records();
    page.setFilter(pageFilter(page, options.filter));
    page.refresh();
    const bool all = !options.groupLibrary && !options.descriptions;
    if (options.groupLibrary || all)
        page.runGroupLibrary();
    if (options.descriptions || all)
        page.parseDescriptions();
    for (const RecordChange& change :
         changesBetween(project.app.of<Record>(), before, page.designLibrary)) {
        if (json)
            printJson<Record>(out, change);
        else
            printText<Record>(out, change);
    }
    return options.dryRun || page.save(false) == SaveOutcome::Saved;
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
    // With a table or the part list unread, values would be missing or come from the wrong rules.
    // A library that was not read is refused by its own save.
    if (project.prompt.unreadableTable(project.app.libraries))
        return Usage;
    const bool both = !options.sdta && !options.analyses;
    const bool sdtaRefuses =
        (options.sdta || both) && refuses(project, project.session.sdtaPage, options.dropUnread);
    const bool asrRefuses =
        (options.analyses || both) && refuses(project, project.session.asrPage, options.dropUnread);
    if ((sdtaRefuses || asrRefuses) && !options.dryRun)
        return Findings;
    bool written = true;
    if (options.sdta || both)
        written = fillPage(project, project.session.sdtaPage, options, place.json, streams.out);
    if (options.analyses || both)
        written =
            fillPage(project, project.session.asrPage, options, place.json, streams.out) && written;
    if (!written)
        return Findings;
    return project.prompt.unreadable() ? Usage : Fine;
}

} // namespace partwright::cli
