#pragma once

// The question before rows are deleted, the same in every table of components.

#include "core/ports/prompt.h"
#include "core/records.h"

#include <string>
#include <string_view>
#include <vector>

namespace partwright {

/// The places in `parts` that may be deleted, ascending; empty when there are none or the user
/// said No. Parts of the project stay. All is told here.
[[nodiscard]] std::vector<std::size_t> confirmDeletion(const std::vector<std::wstring_view>& parts,
                                                       const PartSelection& projectParts,
                                                       Prompt& prompt);

} // namespace partwright
