#include "core/in_place_file.h"

#include "core/system_error.h"

#include <cerrno>

namespace partwright {

namespace {

WriteResult failure(WriteStatus status, int error) {
    return {status, systemErrorText(error), true};
}

} // namespace

InPlaceFile::InPlaceFile(std::wstring_view path)
    : path_(nativePath(path)), file_(path_, FileAccess::Write) {
    if (!file_.isOpen()) {
        const int error = errno;
        if (error == ENOENT)
            return; // a new file, or a folder that is missing: write() will tell
        // What can only be read need not be written when it holds the wanted bytes.
        if (error == EACCES || error == EPERM || error == EROFS)
            file_ = FileHandle(path_, FileAccess::Read);
        readOnly_ = error;
        if (!file_.isOpen()) {
            state_ = failure(WriteStatus::OpenFailed, error);
            return;
        }
    }
    readOld();
}

void InPlaceFile::readOld() {
    const FileHandle::Kind kind = file_.kind();
    isRegular_ = kind != FileHandle::Kind::Other;
    if (!isRegular_)
        return;
    if (kind == FileHandle::Kind::Unknown)
        state_ = failure(WriteStatus::WriteFailed, errno);
    else if (readOnly_ == 0 && file_.lock() == FileHandle::Lock::Held)
        state_ = {WriteStatus::Locked, {}, true};
    else if (!file_.readAll(before_))
        state_ = failure(WriteStatus::WriteFailed, errno);
}

TextForm InPlaceFile::form() const {
    return before_.empty() ? newFileForm() : textForm(before_);
}

WriteResult InPlaceFile::write(std::string bytes) {
    if (state_.status != WriteStatus::Ok || (holds(bytes) && isRegular_))
        return state_;
    if (readOnly_ != 0)
        return failure(WriteStatus::OpenFailed, readOnly_);
    if (!file_.isOpen()) {
        if (WriteResult made = make(); made.status != WriteStatus::Ok)
            return made;
    }
    if (!file_.reserve(bytes.size())) {
        WriteResult result = failure(WriteStatus::WriteFailed, errno);
        result.oldStands = isRegular_ && (isNew_ ? putBack() : file_.cutTo(before_.size()));
        return result;
    }
    if (fill(bytes)) {
        if (isNew_)
            flushFolder(path_.parent_path());
        return {};
    }
    WriteResult result = failure(WriteStatus::WriteFailed, errno);
    result.oldStands = isRegular_ && putBack();
    return result;
}

/// Somebody else may have made the file since the look at it.
WriteResult InPlaceFile::make() {
    file_ = FileHandle(path_, FileAccess::Create);
    if (!file_.isOpen())
        return failure(WriteStatus::OpenFailed, errno);
    readOld();
    if (state_.status == WriteStatus::Ok && !before_.empty())
        return {WriteStatus::Appeared, {}, true};
    isNew_ = state_.status == WriteStatus::Ok && isRegular_;
    return state_;
}

bool InPlaceFile::fill(std::string& bytes) const {
    const std::size_t size = bytes.size();
    if (before_.size() > size)
        bytes.resize(before_.size(), '\n');
    return file_.writeAll(bytes) && (!isRegular_ || before_.size() <= size || file_.cutTo(size)) &&
           file_.flush();
}

bool InPlaceFile::putBack() const {
    if (isNew_) {
        std::error_code error;
        const auto target = std::filesystem::canonical(path_, error);
        return !error && std::filesystem::remove(target, error);
    }
    return file_.writeAll(before_) && file_.cutTo(before_.size()) && file_.flush();
}

} // namespace partwright
