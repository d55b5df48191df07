#pragma once

// Saves that are old or new, whenever they are killed. A file that is written in place is for some
// moments neither; so its new text is first kept in the user's state folder, and forgotten once the
// file is written and flushed to the device. Nothing is made beside the file itself.
//
//   const SecuredWrite done = writeSecured(path, file, std::move(bytes));
//
// At the next start a text that is still kept tells of a save that was not carried through:
//
//   const InterruptedSave save = interruptedSave(path);
//   if (save.state == InterruptedSave::State::Torn)
//       ... completeSave(path) ...
//
// A kept text is the file "<hash of the full path>.save" in the folder "partwright", readable by
// the user alone: some lines with the path and the marks of the old and the new content, an empty
// line, and the new content.

#include "core/content_mark.h"
#include "core/in_place_file.h"
#include "core/text_file.h"

#include <string>
#include <string_view>

namespace partwright {

struct SecuredWrite {
    WriteResult result;
    /// The mark of the content that was written, or was there already.
    ContentMark mark;
    /// Why the text could not be kept beforehand; empty when it was, or needed not be.
    std::wstring notKept;
};

/// Writes a file that was looked at, with its new text kept until it is done. Signals that would
/// end the program wait.
[[nodiscard]] SecuredWrite writeSecured(std::wstring_view path, InPlaceFile& file,
                                        std::string bytes);

struct InterruptedSave {
    enum class State {
        /// Nothing is kept, or the file holds what was to be saved.
        None,
        /// The file is what it was before that save.
        NotBegun,
        /// The file is neither what it was nor what it was to become.
        Torn,
        /// Another program is writing the file at this moment.
        Busy,
    };
    State state = State::None;
    /// Where the text is kept.
    std::wstring keptAt;
};

/// What is known of the last save of a file. Forgets the text of a save that was carried through.
[[nodiscard]] InterruptedSave interruptedSave(std::wstring_view path);

/// Writes the kept text over the file, and forgets it.
[[nodiscard]] WriteResult completeSave(std::wstring_view path);

} // namespace partwright
