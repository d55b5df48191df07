#pragma once

// One save of one file in place, from the look at its old content to the end of the write. No other
// file is made beside it.
//
//   InPlaceFile file(path);               // opens, locks and reads
//   if (file.state().status != WriteStatus::Ok)
//       ...                               // told in state().reason
//   std::string bytes = format(file.form());
//   const WriteResult result = file.write(std::move(bytes));
//
// The lock is advisory and lasts until the object is gone; whoever else would save the same file
// meanwhile is refused. Bytes that the file holds already are not written. Otherwise the whole text
// exists before the first byte is touched, and so does the space for it; then one call writes it,
// which covers the tail of a longer old text with line ends; then the file is cut to its length and
// flushed to the device. When anything fails before the first byte the old content is untouched;
// when the write itself fails the old content is put back as far as the device allows, and a file
// that the write made is removed.

#include "core/file_calls.h"
#include "core/text_file.h"

#include <string>
#include <string_view>

namespace partwright {

class InPlaceFile {
public:
    /// A file that is not there is made by write().
    explicit InPlaceFile(std::wstring_view path);

    /// Ok when the content is known and the file can be written.
    [[nodiscard]] const WriteResult& state() const { return state_; }
    [[nodiscard]] bool exists() const { return file_.isOpen(); }
    /// A file whose old content is known and that can be written. A pipe or a device can be written
    /// as well; what it holds is not known and counts as nothing.
    [[nodiscard]] bool isWritable() const {
        return state_.status == WriteStatus::Ok && isRegular_ && readOnly_ == 0;
    }
    [[nodiscard]] const std::string& before() const { return before_; }
    /// The form of the old content, or that of a new file.
    [[nodiscard]] TextForm form() const;

    [[nodiscard]] bool holds(std::string_view bytes) const { return exists() && before_ == bytes; }
    /// Replaces the content, where the state is Ok. To be called once.
    [[nodiscard]] WriteResult write(std::string bytes);

private:
    void readOld();
    [[nodiscard]] WriteResult make();
    [[nodiscard]] bool fill(std::string& bytes) const;
    [[nodiscard]] bool putBack() const;

    std::filesystem::path path_;
    FileHandle file_;
    WriteResult state_;
    std::string before_;
    bool isRegular_ = true;
    bool isNew_ = false;
    /// Reason why the file can only be read; 0 when it can be written.
    int readOnly_ = 0;
};

} // namespace partwright
