#include "library/save_result.h"

#include "core/messages.h"
#include "core/recovery.h"

namespace partwright {

namespace {

SaveResult failed(const std::wstring& path, const WriteResult& failure, bool isKept) {
    SaveResult result;
    result.path = path;
    result.status =
        failure.status == WriteStatus::Appeared ? SaveStatus::Changed : SaveStatus::Failed;
    result.message = saveFailureText(path, failure, isKept);
    return result;
}

} // namespace

std::wstring saveFailureText(std::wstring_view path, const WriteResult& failure, bool isKept) {
    switch (failure.status) {
    case WriteStatus::OpenFailed:
        return message::failedToOpenForWriting(path);
    case WriteStatus::Locked:
        return message::fileInUse(path);
    case WriteStatus::Appeared:
        return message::fileChanged(path, message::FileChange::Made);
    case WriteStatus::WriteFailed:
    case WriteStatus::Ok:
        break;
    }
    using message::FileAfterFailure;
    const FileAfterFailure after = failure.oldStands ? FileAfterFailure::Unchanged
                                   : isKept          ? FileAfterFailure::Recoverable
                                                     : FileAfterFailure::Damaged;
    return message::failedToWrite(path, failure.reason, after);
}

SaveResult lookAtReport(const LoadReport& report, const std::wstring& path, std::size_t drops,
                        SaveChoices choices) {
    SaveResult result;
    result.path = path;
    if (report.fault != LibraryFault::None) {
        result.status = SaveStatus::Refused;
        result.message = message::saveWouldLose(path, report.faultText);
    } else if (drops > 0 && !report.dropsAllowed && !choices.dropsLines) {
        result.status = SaveStatus::WouldDrop;
        result.message = message::savingWillDrop(path, drops);
    }
    return result;
}

SaveResult lookBeforeSave(const Libraries& libraries, const std::wstring& path,
                          const InPlaceFile& file, SaveChoices choices) {
    if (file.state().status != WriteStatus::Ok)
        return failed(path, file.state(), false);
    SaveResult result;
    result.path = path;
    const auto known = libraries.marks.find(path);
    if (choices.overChanged || known == libraries.marks.end())
        return result;
    const ContentMark now = file.exists() ? markOf(file.before()) : ContentMark{};
    if (now == known->second)
        return result;
    using message::FileChange;
    result.status = SaveStatus::Changed;
    result.message = message::fileChanged(path, !now.present             ? FileChange::Removed
                                                : !known->second.present ? FileChange::Made
                                                                         : FileChange::Changed);
    return result;
}

SaveResult putInPlace(Libraries& libraries, const std::wstring& path, InPlaceFile& file,
                      std::string bytes) {
    SecuredWrite done = writeSecured(path, file, std::move(bytes));
    SaveResult result;
    result.path = path;
    if (done.result.status == WriteStatus::Ok) {
        libraries.marks[path] = done.mark;
    } else {
        result = failed(path, done.result, done.notKept.empty());
        if (!done.result.oldStands)
            libraries.marks.erase(path);
    }
    result.notKept = std::move(done.notKept);
    return result;
}

void rememberRead(Libraries& libraries, const std::wstring& path, const TextFile& file) {
    if (file.status == FileStatus::OpenFailed)
        libraries.marks.erase(path);
    else
        libraries.marks[path] = file.mark;
}

} // namespace partwright
