#pragma once

// Whole text files, in and out. Reading gives bytes and the form they are in; writing puts bytes
// in place (core/in_place_file.h). Parsing and formatting never touch a file.

#include "core/content_mark.h"
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
/// The form that bytes are in.
[[nodiscard]] TextForm textForm(std::string_view bytes);

enum class FileStatus { Ok, Absent, OpenFailed };

struct TextFile {
    FileStatus status = FileStatus::Absent;
    /// Without a byte-order mark.
    std::string bytes;
    TextForm form;
    /// Of all bytes of the file.
    ContentMark mark;
};

/// A path of the program as the file layer takes it. Path texts are wide; a byte of a file name
/// that is no UTF-8 stands as U+DC80 + (byte - 0x80), so that every existing file can be named.
[[nodiscard]] std::filesystem::path nativePath(std::wstring_view path);
[[nodiscard]] std::wstring pathText(const std::filesystem::path& path);

[[nodiscard]] bool fileExists(std::wstring_view path);

/// A folder in place of a file counts as one that cannot be opened.
[[nodiscard]] TextFile readTextFile(std::wstring_view path);

enum class WriteStatus {
    Ok,
    OpenFailed,
    WriteFailed,
    /// Another program is writing the file at this moment.
    Locked,
    /// A file that was not there has been made by somebody else meanwhile.
    Appeared,
};

struct WriteResult {
    WriteStatus status = WriteStatus::Ok;
    /// What the system says about a failure, such as "There is no space left on the disk".
    std::wstring reason;
    /// Of a failure: the file is what it was before.
    bool oldStands = false;
};

[[nodiscard]] WriteResult writeTextFile(std::wstring_view path, std::string_view bytes);

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
