#pragma once

// The special texts of a parameter cell. Nothing else in the program spells them.
//
// A value is text. Empty means that nobody filled it yet. "-1" means that the part has no such
// value (shown, and stored in a file, as "-"). "N/A" means that the parameter does not apply to
// this type of part; the dialogs store it as "-2".

#include <string_view>

namespace partwright::cell {

inline constexpr std::wstring_view noValue = L"-1";
inline constexpr std::wstring_view shownNoValue = L"-";
inline constexpr std::wstring_view notApplicable = L"N/A";
inline constexpr std::wstring_view storedNotApplicable = L"-2";

/// A library file has this where a value has a hyphen, so no text of ours may hold it.
inline constexpr wchar_t fileHyphen = L'\\';

/// Longest text that a cell keeps; a library row with a longer one could not be read back.
inline constexpr std::size_t maximumLength = 255;

/// In a property table: a parameter that does not apply to the type.
inline constexpr std::wstring_view labelNotApplicable = L"-";
inline constexpr std::wstring_view messageNotUsed = L"NU";

/// A value as it stands in a library file.
[[nodiscard]] constexpr std::wstring_view toFile(std::wstring_view value) {
    return value == noValue ? shownNoValue : value;
}

/// A value of a library file as it is kept in memory.
[[nodiscard]] constexpr std::wstring_view fromFile(std::wstring_view value) {
    return value == shownNoValue ? noValue : value;
}

} // namespace partwright::cell
