#include "library/library_reader.h"

#include "core/messages.h"
#include "library/library_dialect.h"
#include "library/save_result.h"

#include <utility>

namespace partwright {

namespace {

/// The words of a fault that lies with the table of groups.
template <class Record>
void tellGroupFault(const CPartwrightPlugInApp& app, LoadReport& report) {
    const std::wstring& table = Dialect<Record>::groupTable(app.paths);
    if (report.fault == LibraryFault::NoGroupNames) {
        report.faultText = message::groupTableMissing(table);
    } else if (const auto& gap = app.of<Record>().gap;
               gap && report.fault != LibraryFault::Unreadable) {
        // Whatever else was found follows from this.
        report.fault = LibraryFault::GroupTable;
        report.faultText = message::gapInGroupTable(gap->code, gap->line, table);
    } else if (report.fault == LibraryFault::GroupTable) {
        report.faultText.append(L"\n").append(table);
    }
}

/// Puts the records of a file that was read into the target, which is empty.
template <class Record>
void takeRecords(CPartwrightPlugInApp& app, typename Kind<Record>::Library& target, TextFile& file,
                 LoadResult& result) {
    rememberRead(app.libraries, result.path, file);
    LoadReport report;
    if (file.status == FileStatus::OpenFailed) {
        report.setFault(LibraryFault::Unreadable, message::fileUnreadable());
        result.message = message::failedToOpen(result.path);
    } else if (file.status == FileStatus::Ok) {
        auto parsed = parseLibrary(app.of<Record>(), app.decimalMark(), std::move(file.bytes),
                                   file.form.codePage);
        target = std::move(parsed.records);
        report = std::move(parsed.report);
    }
    tellGroupFault<Record>(app, report);
    app.libraries.loadReports.insert_or_assign(result.path, std::move(report));
}

template <class Record>
LoadResult loadLibrary(CPartwrightPlugInApp& app, typename Kind<Record>::Library& target,
                       const std::wstring& path) {
    target.clear();
    TextFile file = readTextFile(path);
    LoadResult result{file.status, path, {}};
    takeRecords<Record>(app, target, file, result);
    return result;
}

} // namespace

LoadResult LoadSdtaLibrary(CPartwrightPlugInApp& app, SdtaLibrary& target, std::wstring_view path) {
    return loadLibrary<SdtaComponent>(
        app, target, path.empty() ? app.paths.sdtaLibraryPath : std::wstring(path));
}

LoadResult loadSdtaMaster(CPartwrightPlugInApp& app, MasterCopy<SdtaComponent>& master,
                          std::wstring_view wantedPath) {
    const std::wstring path =
        wantedPath.empty() ? app.paths.sdtaLibraryPath : std::wstring(wantedPath);
    TextFile file = readTextFile(path);
    LoadResult result{file.status, path, {}};
    std::optional<LibraryReading> reading;
    if (file.status == FileStatus::Ok) {
        reading = {path,
                   file.form.codePage,
                   app.decimalMark(),
                   app.sdta.propertiesRead,
                   app.sdta.groupNames,
                   file.bytes};
        if (master.isFrom(*reading))
            return result;
    }
    SdtaLibrary records;
    takeRecords<SdtaComponent>(app, records, file, result);
    master.replace(std::move(records), std::move(reading));
    return result;
}

LoadResult LoadAnalysesLibrary(CPartwrightPlugInApp& app, AsrLibrary& target,
                               std::wstring_view path) {
    if (app.paths.programFolder.empty()) {
        if (!path.empty() && fileExists(path)) // not read, so never to be written over
            app.libraries.loadReports[std::wstring(path)].setFault(LibraryFault::Unreadable,
                                                                   message::fileUnreadable());
        return {};
    }
    LoadResult result = loadLibrary<AsrComponent>(
        app, target, path.empty() ? app.paths.programFolder + L"ASRLib.csv" : std::wstring(path));
    if (result.status == FileStatus::Absent)
        result.message = message::sourceFileNotFound(result.path);
    return result;
}

} // namespace partwright
