#include "cli/commands.h"
#include "cli/project.h"
#include "core/messages.h"
#include "core/text_file.h"
#include "library/library_reader.h"

#include <filesystem>

namespace partwright::cli {

namespace {

LoadResult load(CPartwrightPlugInApp& app, SdtaLibrary& target, std::wstring_view path) {
    return LoadSdtaLibrary(app, target, path);
}
LoadResult load(CPartwrightPlugInApp& app, AsrLibrary& target, std::wstring_view path) {
    return LoadAnalysesLibrary(app, target, path);
}

bool isSameFile(std::wstring_view a, std::wstring_view b) {
    std::error_code error;
    return a == b || std::filesystem::equivalent(nativePath(a), nativePath(b), error);
}

template <class Record>
int convert(Tables& tables, const PlaceOptions& place, const ConvertOptions& options) {
    const std::wstring in = pathText(std::filesystem::path(options.in));
    const std::wstring out = pathText(std::filesystem::path(options.out));
    if (!settleInterruptedSave(in, interruptedSaves(place), tables.prompt))
        return Findings;
    typename Kind<Record>::Library library;
    const LoadResult result = load(tables.app, library, in);
    if (result.status != FileStatus::Ok) {
        tables.prompt.tell(result.status == FileStatus::Absent ? message::sourceFileNotFound(in)
                                                               : message::failedToOpen(in),
                           PromptIcon::None);
        return Usage;
    }
    LoadReport& report = tables.app.libraries.loadReports[in];
    tellReport(tables.prompt, in, report);
    const bool lost = report.losses() > 0 && !options.dropUnread;
    if (lost && isSameFile(in, out)) {
        tables.prompt.tell(message::savingNeedsLeave(in, report.losses()), PromptIcon::None);
        tellEntries(tables.prompt, report);
        return Findings;
    }
    // The copy is made whatever it lacks, since the original stays; the exit code tells.
    report.dropsAllowed = true;
    tables.app.libraries.loadReports[out] = report;
    const bool saved = saveLibraryFile<Record>(tables.app, library, out, false, tables.prompt);
    return saved && !lost ? Fine : Findings;
}

} // namespace

int runConvert(const PlaceOptions& place, const ConvertOptions& options, Streams streams) {
    Tables tables(place, streams);
    return options.analyses ? convert<AsrComponent>(tables, place, options)
                            : convert<SdtaComponent>(tables, place, options);
}

} // namespace partwright::cli
