#pragma once

// Every text that the program shows in a box, one function each: a search for its words leads here
// and to the one place that shows it. Arguments are typed; a user's text is never a format.

#include <cstdint>
#include <string>
#include <string_view>

namespace partwright::message {

inline constexpr std::wstring_view caption = L"Partwright";
inline constexpr std::wstring_view commandLineError = L"Command Line Error.";
inline constexpr std::wstring_view operationCompleted =
    L"Operation has been completed successfully.";
/// How the box of a file that cannot be read begins.
inline constexpr std::wstring_view failedToOpenStart = L"Failed to Open File\n";
inline constexpr std::wstring_view indexFieldError = L"Error in Index Field";
inline constexpr std::wstring_view confirmAutoFillTitle = L"Confirm Auto-Fill Operation";
inline constexpr std::wstring_view confirmAutoFill =
    L"You are about to initiate an auto-fill process that will attempt to set missing library "
    L"parameter values for all components by parsing their descriptions.\nPlease note:\n - The "
    L"operation will only affect components with currently empty parameter fields.\n - It relies "
    L"on the accuracy of the descriptions to extract valid parameter values.\n - Please verify the "
    L"auto-filled values for accuracy after the process is complete.\n\nDo you want to proceed "
    L"with setting all missing values?\n[Yes, proceed] [No, cancel]";

/// How many of the counted components are uncompleted.
[[nodiscard]] std::wstring completenessStatus(std::int32_t uncompleted, std::int32_t total);

/// A file is there and cannot be opened for reading.
[[nodiscard]] std::wstring failedToOpen(std::wstring_view path);
/// A file cannot be opened for writing.
[[nodiscard]] std::wstring failedToOpenForWriting(std::wstring_view path);
/// The Analyses library that a page wants to read is not there.
[[nodiscard]] std::wstring sourceFileNotFound(std::wstring_view path);
/// The index row of a decoder table does not count 1, 2, 3 and on.
[[nodiscard]] std::wstring indexFieldErrorIn(std::wstring_view field);

/// The disk refused the content of a file that could be opened.
[[nodiscard]] std::wstring failedToWrite(std::wstring_view path, std::wstring_view reason);
/// A part's text has a character that the file's code page lacks.
[[nodiscard]] std::wstring characterNotInCodePage(std::wstring_view path, std::wstring_view part,
                                                  std::wstring_view column);
/// A library was read while it could not be understood, so writing it would lose records.
[[nodiscard]] std::wstring saveWouldLose(std::wstring_view path, std::wstring_view cause);
/// The cause of the refusal: no group was known while the library was read.
[[nodiscard]] std::wstring groupTableMissing(std::wstring_view tablePath);
/// The cause of the refusal: the file was there and could not be read.
[[nodiscard]] std::wstring fileUnreadable();

} // namespace partwright::message
