#pragma once

// What a loader hands back. It never speaks: `message` is the text that its caller shows, empty
// when there is nothing to show (an absent table is silent, an absent Analyses library is not).

#include "core/text_file.h"

#include <string>

namespace partwright {

struct LoadResult {
    FileStatus status = FileStatus::Absent;
    /// The file that was meant.
    std::wstring path;
    std::wstring message;
};

} // namespace partwright
