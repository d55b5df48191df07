#include "editing/interrupted_saves.h"

#include "core/messages.h"
#include "core/recovery.h"
#include "library/datasheet_links.h"
#include "library/save_result.h"

namespace partwright {

namespace {

bool complete(std::wstring_view path, InterruptedSaves wanted, Prompt& prompt) {
    const WriteResult result = completeSave(path);
    if (result.status != WriteStatus::Ok)
        prompt.tell(saveFailureText(path, result, true), PromptIcon::Warning);
    else if (wanted == InterruptedSaves::Complete)
        prompt.tell(message::saveCompleted(path), PromptIcon::None);
    return result.status == WriteStatus::Ok;
}

} // namespace

bool settleInterruptedSave(std::wstring_view path, InterruptedSaves wanted, Prompt& prompt) {
    const InterruptedSave save = interruptedSave(path);
    const bool asks = wanted == InterruptedSaves::Ask;
    switch (save.state) {
    case InterruptedSave::State::None:
        return true;
    case InterruptedSave::State::Busy:
        prompt.tell(message::fileInUse(path), PromptIcon::Warning);
        return asks;
    case InterruptedSave::State::NotBegun:
    case InterruptedSave::State::Torn:
        break;
    }
    if (wanted == InterruptedSaves::Complete)
        return complete(path, wanted, prompt);
    if (!asks) {
        prompt.tell(message::saveWasInterrupted(path, save.keptAt), PromptIcon::Warning);
        return false;
    }
    const bool isBegun = save.state == InterruptedSave::State::Torn;
    if (prompt.ask(message::caption, message::completeSaveQuestion(path, isBegun)))
        static_cast<void>(complete(path, wanted, prompt));
    return true;
}

bool settleInterruptedSaves(const ProjectPaths& paths, InterruptedSaves wanted, Prompt& prompt) {
    bool isSettled = true;
    for (const std::wstring& path :
         {paths.sdtaLibraryPath, paths.asrLibraryPath, paths.publicSdtaLibraryPath,
          paths.publicAsrLibraryPath, datasheetLinksPath(paths)})
        isSettled = settleInterruptedSave(path, wanted, prompt) && isSettled;
    return isSettled;
}

} // namespace partwright
