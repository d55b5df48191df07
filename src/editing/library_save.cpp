#include "editing/library_save.h"

#include "core/messages.h"
#include "library/library_writer.h"

namespace partwright {

namespace {

SaveResult write(const CPartwrightPlugInApp& app, std::span<const SdtaComponent* const> records,
                 std::wstring_view path, SaveForm form) {
    return SaveSdtaLibrary(app, records, path, form);
}
SaveResult write(const CPartwrightPlugInApp& app, std::span<const AsrComponent* const> records,
                 std::wstring_view path, SaveForm form) {
    return SaveAnalysesLibrary(app, records, path, form);
}

} // namespace

template <class Record>
SaveOutcome saveLibraryFile(CPartwrightPlugInApp& app,
                            const typename Kind<Record>::Library& library, std::wstring_view path,
                            bool announce, Prompt& prompt) {
    const RecordList<Record> records = recordsByGroup<Record>(library);
    LoadReport& report = app.libraries.loadReports[std::wstring(path)];
    SaveForm form = SaveForm::Kept;
    SaveResult result = write(app, records, path, form);
    while (result.status == SaveStatus::WouldDrop || result.status == SaveStatus::Unencodable) {
        if (!prompt.ask(message::caption, result.message))
            return SaveOutcome::Failed;
        if (result.status == SaveStatus::WouldDrop)
            report.dropsAllowed = true;
        else
            form = SaveForm::Utf8;
        result = write(app, records, path, form);
    }
    if (!result.message.empty())
        prompt.tell(result.message, PromptIcon::Warning);
    switch (result.status) {
    case SaveStatus::Saved:
        report.fileWritten(supersededParts<Record>(report, records));
        break;
    case SaveStatus::OpenFailed:
        return SaveOutcome::CannotOpen;
    case SaveStatus::Refused:
        return SaveOutcome::Withheld;
    case SaveStatus::WriteFailed:
    case SaveStatus::WouldDrop:
    case SaveStatus::Unencodable:
        return SaveOutcome::Failed;
    }
    if (announce)
        prompt.tell(message::operationCompleted, PromptIcon::Information);
    return SaveOutcome::Saved;
}

template SaveOutcome saveLibraryFile<SdtaComponent>(CPartwrightPlugInApp&, const SdtaLibrary&,
                                                    std::wstring_view, bool, Prompt&);
template SaveOutcome saveLibraryFile<AsrComponent>(CPartwrightPlugInApp&, const AsrLibrary&,
                                                   std::wstring_view, bool, Prompt&);

} // namespace partwright
