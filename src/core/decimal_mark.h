#pragma once

// The three ways in which a text meets the decimal mark, side by side. They differ on purpose: a
// library cell is kept as text and repaired only where it reads as no number; free text is made
// readable as a whole; a value under check, and the bound it is checked against, is never changed.
//
//   mark "."    library cell      1,5 -> 1.5     1.5 -> 1.5     SOT23,5 -> SOT23.5
//               free text         1,000 V -> 1.000 V
//               checked number    1.5 -> 1.5     1,5 -> none
//   mark ","    library cell      1.5 -> 1,5     1,5 -> 1,5
//               free text         4.7uF -> 4,7uF
//               checked number    1,5 -> 1.5     1.5 -> 1.5 (rule tables are written with a point)

#include <optional>
#include <string>
#include <string_view>

namespace partwright {

/// The mark that a text of another country has where `mark` is expected.
[[nodiscard]] constexpr wchar_t foreignMark(wchar_t mark) {
    return mark == L'.' ? L',' : L'.';
}

/// A value cell of a library on reading: a text that holds a digit and is no number has its
/// foreign marks exchanged; any other text stays.
[[nodiscard]] std::wstring repairLibraryCell(std::wstring_view text, wchar_t mark);

/// Free text before numbers are searched in it: every foreign mark becomes `mark`.
[[nodiscard]] std::wstring unifyMarks(std::wstring_view text, wchar_t mark);

/// A bound of a rule table or a value typed in a dialog: the number, if it is the whole text with
/// `mark` or with a point.
[[nodiscard]] std::optional<double> readCheckedNumber(std::wstring_view text, wchar_t mark);

} // namespace partwright
