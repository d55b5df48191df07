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

/// Rows that stand in a library file, understood or not.
std::size_t rowsIn(std::wstring_view path) {
    const TextFile file = readTextFile(path);
    LineReader lines(file.bytes);
    std::size_t rows = 0;
    for (std::string_view line; lines.next(line);)
        rows += line.starts_with('>') ? 1 : 0;
    return rows;
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
    if (const std::size_t rows = rowsIn(in); library.size() < rows) {
        tables.prompt.tell(message::rowsLeftOut(in, rows - library.size(), rows), PromptIcon::None);
        if (library.empty())
            return Findings; // most likely the other kind of library
    }
    // What was not understood on reading would be lost in the copy as well.
    auto& faults = tables.app.libraries.faults;
    if (const auto fault = faults.find(in); fault != faults.end())
        faults[out] = fault->second;
    return saveLibraryFile<Record>(tables.app, library, out, false, tables.prompt) ? Fine
                                                                                   : Findings;
}

} // namespace

int runConvert(const PlaceOptions& place, const ConvertOptions& options, Streams streams) {
    Tables tables(place, streams);
    return options.analyses ? convert<AsrComponent>(tables, place, options)
                            : convert<SdtaComponent>(tables, place, options);
}

} // namespace partwright::cli
