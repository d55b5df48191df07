#pragma once

// What a save of a library or of the link table answers, and the two steps that both have in
// common: the look at the file before its new text is made, and the way of the text into the file.
// Nothing here speaks: the result carries the text to show.

#include "core/in_place_file.h"
#include "core/libraries.h"
#include "core/text_file.h"

#include <string>

namespace partwright {

enum class SaveStatus {
    Saved,
    /// The file was not understood when it was read (LoadReport::fault).
    Refused,
    /// Lines of the file would be lost, which could not be taken as they stand.
    WouldDrop,
    /// The file is not what it was when it was read or last written.
    Changed,
    /// A character of a part does not exist in the file's code page.
    Unencodable,
    /// The file cannot be opened for writing, another program is writing it, or the disk refused.
    Failed,
};

struct SaveResult {
    SaveStatus status = SaveStatus::Saved;
    /// The file that was meant.
    std::wstring path;
    /// What to show; empty when the file was saved.
    std::wstring message;
    /// Where the first character stands that could not be encoded.
    std::wstring part;
    std::wstring column;
    /// Why the new text could not be kept while the file was written; empty when it was.
    std::wstring notKept;
};

/// What was decided about a save that asked.
struct SaveChoices {
    /// The file changes to UTF-8, which holds every character.
    bool asUtf8 = false;
    /// A file that is not what it was is written over.
    bool overChanged = false;
    bool dropsLines = false;
};

/// What speaks against a save that drops so many lines of the file; Saved when nothing does.
[[nodiscard]] SaveResult lookAtReport(const LoadReport& report, const std::wstring& path,
                                      std::size_t drops, SaveChoices choices);

/// Why the file is not to be written; Saved when nothing stands against it.
[[nodiscard]] SaveResult lookBeforeSave(const Libraries& libraries, const std::wstring& path,
                                        const InPlaceFile& file, SaveChoices choices);

/// What to show when a file was not written. With `isKept` the new text is still at hand.
[[nodiscard]] std::wstring saveFailureText(std::wstring_view path, const WriteResult& failure,
                                           bool isKept);

/// Writes the text, and keeps in mind what the file holds now.
[[nodiscard]] SaveResult putInPlace(Libraries& libraries, const std::wstring& path,
                                    InPlaceFile& file, std::string bytes);

/// Keeps in mind what a file held when it was read.
void rememberRead(Libraries& libraries, const std::wstring& path, const TextFile& file);
} // namespace partwright
