#pragma once

// A value typed with a unit letter is turned into the unit in which its column is stored, before
// any rule looks at it.
//
//   group 4, column "Cin" (picofarad)   10n   ->  10000
//   group 25, column "Fout" (megahertz) 16M   ->  16
//   column "h-fe", "dB" or a pin column 10k   ->  stays
//
// Letters are p, n, u, m, k or K, M, G and T; in upper and lower case they differ as units do. A
// text that is not a positive number with exactly one such letter stays. So does a value so small
// that the stored digits would say zero.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace partwright {

/// The factor of a unit letter.
[[nodiscard]] std::optional<double> unitFactor(wchar_t letter);

/// The new text of the cell; none when it stays.
[[nodiscard]] std::optional<std::wstring> normaliseUnit(std::int32_t group,
                                                        std::wstring_view header,
                                                        std::wstring_view text,
                                                        wchar_t decimalMark);

} // namespace partwright
