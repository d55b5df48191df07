#include "editing/library_save.h"

#include "core/messages.h"
#include "library/datasheet_links.h"
#include "library/library_writer.h"

namespace partwright {

namespace {

SaveResult write(CPartwrightPlugInApp& app, std::span<const SdtaComponent* const> records,
                 std::wstring_view path, SaveChoices choices) {
    return SaveSdtaLibrary(app, records, path, choices);
}
SaveResult write(CPartwrightPlugInApp& app, std::span<const AsrComponent* const> records,
                 std::wstring_view path, SaveChoices choices) {
    return SaveAnalysesLibrary(app, records, path, choices);
}

/// The choice that a save asks for; none when there is nothing to choose.
bool SaveChoices::*openChoice(SaveStatus status) {
    switch (status) {
    case SaveStatus::Changed:
        return &SaveChoices::overChanged;
    case SaveStatus::WouldDrop:
        return &SaveChoices::dropsLines;
    case SaveStatus::Unencodable:
        return &SaveChoices::asUtf8;
    case SaveStatus::Saved:
    case SaveStatus::Refused:
    case SaveStatus::Failed:
        break;
    }
    return nullptr;
}

/// Saves, asking as often as the save has something to ask.
template <class Save>
bool saveAsking(CPartwrightPlugInApp& app, Prompt& prompt, const Save& save) {
    SaveChoices choices;
    for (;;) {
        const SaveResult result = save(choices);
        if (!result.notKept.empty() && !std::exchange(app.libraries.isUnsecuredTold, true))
            prompt.tell(message::savesNotSecured(result.notKept), PromptIcon::Warning);
        const auto choice = openChoice(result.status);
        if (choice == nullptr) {
            if (!result.message.empty())
                prompt.tell(result.message, PromptIcon::Warning);
            return result.status == SaveStatus::Saved;
        }
        if (!prompt.ask(message::caption, result.message))
            return false;
        choices.*choice = true;
    }
}

} // namespace

template <class Record>
bool saveLibraryFile(CPartwrightPlugInApp& app, const typename Kind<Record>::Library& library,
                     std::wstring_view path, bool announce, Prompt& prompt) {
    const RecordList<Record> records = recordsByGroup<Record>(library);
    const bool isSaved = saveAsking(
        app, prompt, [&](SaveChoices choices) { return write(app, records, path, choices); });
    if (isSaved && announce)
        prompt.tell(message::operationCompleted, PromptIcon::Information);
    return isSaved;
}

template bool saveLibraryFile<SdtaComponent>(CPartwrightPlugInApp&, const SdtaLibrary&,
                                             std::wstring_view, bool, Prompt&);
template bool saveLibraryFile<AsrComponent>(CPartwrightPlugInApp&, const AsrLibrary&,
                                            std::wstring_view, bool, Prompt&);

bool saveLinkFile(CPartwrightPlugInApp& app, Prompt& prompt) {
    return saveAsking(app, prompt, [&](SaveChoices choices) {
        return SaveDatasheetLinks(app.paths, app.libraries, choices);
    });
}

} // namespace partwright
