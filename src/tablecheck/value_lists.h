#pragma once

// Which parameters take their values from a drop-down list, and what stands in it.

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace partwright {

/// The names in the list of a parameter, from LPar 1 on; empty for a parameter without a list.
template <class Record>
[[nodiscard]] std::vector<std::wstring_view> valueList(std::int32_t group, std::size_t parameter);

} // namespace partwright
