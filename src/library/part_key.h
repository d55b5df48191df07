#pragma once

// Part numbers as keys. A library file does not give back every text: a backslash reads as a
// hyphen, blanks at the edges go, and a text longer than a cell may be drops the row. So whatever
// becomes a key or is looked up as one, from the part list, a dialog or the command line, goes
// through asReadBack, or the part would be a new one at every start.
//
//   asReadBack(L" ab\\c ")  ->  L"AB-C"

#include <string>
#include <string_view>

namespace partwright {

[[nodiscard]] std::wstring asReadBack(std::wstring_view partNumber);

} // namespace partwright
