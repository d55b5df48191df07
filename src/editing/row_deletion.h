#pragma once

// What is said before rows are deleted, the same in every table of components.

#include "core/records.h"

#include <string>
#include <string_view>
#include <vector>

namespace partwright {

struct Deletion {
    /// Places of the parts that may be deleted, ascending; those of the project may not.
    std::vector<std::size_t> deletable;
    /// The question before that, or what stands in its way when nothing may be deleted.
    std::wstring text;
};

[[nodiscard]] Deletion deletionOf(const std::vector<std::wstring_view>& parts,
                                  const PartSelection& projectParts);

} // namespace partwright
