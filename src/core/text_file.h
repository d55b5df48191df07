#pragma once

// Whole text files, in and out. Reading gives bytes and the form they are in; writing puts bytes
// in place. Parsing and formatting never touch a file.
//
// In-place writing, without a copy beside the file: the complete text exists before the file is
// opened, the disk space for it is made sure of while the old content still stands, then one call
// writes it, and it is flushed to the device. When anything fails before the first byte is
// written the old content is untouched; when the write itself fails the old content is put back
// as far as the device allows.

#include "core/encoding.h"

#include <filesystem>
#include <string>
#include <string_view>

namespace partwright {

enum class LineEnd { Lf, CrLf, Cr };

/// How a text stands in its file.
struct TextForm {
    CodePage codePage = CodePage::Utf8;
    LineEnd lineEnd = LineEnd::Lf;
    /// The bytes of a line end.
    [[nodiscard]] std::string_view lineEndBytes() const;
    friend bool operator==(const TextForm&, const TextForm&) = default;
};

/// Of a file that does not exist yet.
[[nodiscard]] TextForm newFileForm();

enum class FileStatus { Ok, Absent, OpenFailed };

struct TextFile {
    FileStatus status = FileStatus::Absent;
    /// Without a byte-order mark.
    std::string bytes;
    TextForm form;
};

/// A path of the program as the file layer takes it. Path texts are wide; a byte of a file name
/// that is no UTF-8 stands as U+DC80 + (byte - 0x80), so that every existing file can be named.
[[nodiscard]] std::filesystem::path nativePath(std::wstring_view path);
[[nodiscard]] std::wstring pathText(const std::filesystem::path& path);

[[nodiscard]] bool fileExists(std::wstring_view path);

/// A folder in place of a file counts as one that cannot be opened.
[[nodiscard]] TextFile readTextFile(std::wstring_view path);

enum class WriteStatus { Ok, OpenFailed, WriteFailed };

struct WriteResult {
    WriteStatus status = WriteStatus::Ok;
    /// The system's word on a failure, such as "No space left on device".
    std::wstring reason;
};

[[nodiscard]] WriteResult writeTextFile(std::wstring_view path, std::string_view bytes);

/// The form a file on disk has, or newFileForm() when there is none.
[[nodiscard]] TextForm formOnDisk(std::wstring_view path);

/// Walks the lines of a text: each without its line end (LF, CR LF, or CR in a text without any
/// LF); a text that ends in a line end has no empty line behind it.
class LineReader {
public:
    explicit LineReader(std::string_view bytes);
    /// False at the end of the text.
    [[nodiscard]] bool next(std::string_view& line);
    /// What stands behind the line that was read last.
    [[nodiscard]] std::string_view rest() const { return rest_; }

private:
    std::string_view rest_;
    char mark_;
};

} // namespace partwright
