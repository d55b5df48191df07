#pragma once

// Every text that the program shows in a box, one function each: a search for its words leads here
// and to the one place that shows it. Arguments are typed; a user's text is never a format.

#include "core/load_report.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace partwright::message {

inline constexpr std::wstring_view caption = L"Partwright";
inline constexpr std::wstring_view commandLineError = L"Command Line Error.";
inline constexpr std::wstring_view outOfMemory =
    L"There is not enough memory. The operation was given up.";
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

/// OK writes the libraries of one type; those of the other hold changes, too.
inline constexpr std::wstring_view designUnsaved =
    L"The design libraries have unsaved changes. Save them, too?";
inline constexpr std::wstring_view publicUnsaved =
    L"The public libraries have unsaved changes. Save them, too?";

/// How many of the counted components are uncompleted.
[[nodiscard]] std::wstring completenessStatus(std::int32_t uncompleted, std::int32_t total);

/// What an auto-fill command did: parts that changed, and texts that were filled, replaced and
/// emptied.
[[nodiscard]] std::wstring fillDone(std::wstring_view command, std::size_t parts,
                                    std::size_t filled, std::size_t replaced, std::size_t emptied);
/// An auto-fill command was taken back; `kept` parts were changed since and stay as they are.
[[nodiscard]] std::wstring fillTakenBack(std::wstring_view command, std::size_t restored,
                                         std::size_t kept);
/// Auto-fill would work without a table that it rests on.
[[nodiscard]] std::wstring fillNeedsTables(const std::vector<std::wstring>& paths);
/// The part list that a start looked for is not there.
[[nodiscard]] std::wstring noPartList(std::wstring_view path);
/// The part list has no header line, so no part was read from it.
[[nodiscard]] std::wstring noPartListHeader(std::wstring_view path);
/// A library file and how many records a command looked at.
struct LookedAt {
    std::wstring_view path;
    std::size_t records = 0;
};
[[nodiscard]] std::wstring lookedAt(const std::vector<LookedAt>& files);
/// A folder that a command line named is not there.
[[nodiscard]] std::wstring noFolder(std::wstring_view option, std::wstring_view path);

/// A file is there and cannot be opened for reading.
[[nodiscard]] std::wstring failedToOpen(std::wstring_view path);
/// A file cannot be opened for writing.
[[nodiscard]] std::wstring failedToOpenForWriting(std::wstring_view path);
/// The Analyses library that a page wants to read is not there.
[[nodiscard]] std::wstring sourceFileNotFound(std::wstring_view path);
/// The index row of a decoder table does not count 1, 2, 3 and on.
[[nodiscard]] std::wstring indexFieldErrorIn(std::wstring_view field);

enum class FileAfterFailure {
    Unchanged,
    /// Neither old nor new, but the new text is kept.
    Recoverable,
    Damaged,
};
/// The disk refused the content of a file that could be opened.
[[nodiscard]] std::wstring failedToWrite(std::wstring_view path, std::wstring_view reason,
                                         FileAfterFailure after = FileAfterFailure::Unchanged);
/// Another program holds the file.
[[nodiscard]] std::wstring fileInUse(std::wstring_view path);
enum class FileChange { Changed, Removed, Made };
/// A file is not what it was when it was read or last written.
[[nodiscard]] std::wstring fileChanged(std::wstring_view path, FileChange change);
/// A save went on although its text could not be kept.
[[nodiscard]] std::wstring savesNotSecured(std::wstring_view reason);
/// A start finds the text of a save that was not carried through; the window asks.
[[nodiscard]] std::wstring completeSaveQuestion(std::wstring_view path, bool isBegun);
/// The command line refuses, in one line.
[[nodiscard]] std::wstring saveWasInterrupted(std::wstring_view path, std::wstring_view keptAt);
[[nodiscard]] std::wstring saveCompleted(std::wstring_view path);
/// A part's text has a character that the file's code page lacks.
[[nodiscard]] std::wstring characterNotInCodePage(std::wstring_view path, std::wstring_view part,
                                                  std::wstring_view column);
/// A library was read while it could not be understood, so writing it would lose records.
[[nodiscard]] std::wstring saveWouldLose(std::wstring_view path, std::wstring_view cause);
/// The cause of the refusal: no group was known while the library was read.
[[nodiscard]] std::wstring groupTableMissing(std::wstring_view tablePath);
/// The cause of the refusal: the file was there and could not be read.
[[nodiscard]] std::wstring fileUnreadable();
/// Further causes, which the content of the file shows.
inline constexpr std::wstring_view fileNotUnderstood =
    L"No row of this file was understood; is it the other kind of library, or was its first line "
    L"lost?";
[[nodiscard]] std::wstring wrongColumns(std::size_t line, std::wstring_view group);
[[nodiscard]] std::wstring groupNotInTable(std::size_t line, std::wstring_view group);
/// The table of groups has no row for a group that the program has columns for.
[[nodiscard]] std::wstring gapInGroupTable(std::int32_t code, std::size_t line,
                                           std::wstring_view tablePath);

inline constexpr std::wstring_view linkColumnsMissing =
    L"It has no columns \"PartNum\" and \"FileName\".";
/// A link that would come back as another one, or as none.
[[nodiscard]] std::wstring linkNotReadBack(std::wstring_view path, std::wstring_view part,
                                           std::wstring_view file);

// --- What was not taken of a file ----------------------------------------------------------------

/// What became of a line, without its number and part.
[[nodiscard]] std::wstring causeText(const LoadEntry& entry);
/// The same with line and part: "line 40, part R-10K: ...".
[[nodiscard]] std::wstring entryText(const LoadEntry& entry);
/// Of a list that was cut.
[[nodiscard]] std::wstring furtherLines(std::size_t lines);
/// One line about a file, with the first five entries.
[[nodiscard]] std::wstring loadSummary(std::wstring_view path, const LoadReport& report);
/// A save would leave less in the file than stands there: the question, and the refusal of a
/// program that cannot ask.
[[nodiscard]] std::wstring savingWillDrop(std::wstring_view path, std::size_t lines);
[[nodiscard]] std::wstring savingNeedsLeave(std::wstring_view path, std::size_t lines);

// --- Change Component dialogs: cells -------------------------------------------------------------

inline constexpr std::wstring_view failedValidationId = L"Failed Validation ID.";
inline constexpr std::wstring_view valueTypeOrRangeError = L"Value Type or Range Error.";
inline constexpr std::wstring_view notApplicableIsIllegal = L"'N/A' is illegal in this cell.";
inline constexpr std::wstring_view emptyCatalogNumber =
    L"Field 'Catalog Number' can't be a zero-length sting.";
inline constexpr std::wstring_view emptyDescription =
    L"Field 'Description' can't be a zero-length sting.";
inline constexpr std::wstring_view longCatalogNumber = L"Catalog Number can't exceed 20 characters";
inline constexpr std::wstring_view longDescription = L"Description can't exceed 255 characters";

/// A rule asks for a comparison that does not exist.
[[nodiscard]] std::wstring foundCheckId(std::int32_t checkId);
/// A combination rule that does not exist.
[[nodiscard]] std::wstring foundThermalCheckId(std::int32_t checkId);
[[nodiscard]] std::wstring valueOutOfRange(std::wstring_view value, std::wstring_view explanation);
[[nodiscard]] std::wstring mustBeFromList(std::wstring_view value);
/// Any other column than the two with texts of their own.
[[nodiscard]] std::wstring longCell(std::wstring_view header);
/// The mark that would end a library row.
[[nodiscard]] std::wstring cellBeginsWithRowEnd(std::wstring_view header);
/// The mark that a library file has in place of hyphens.
[[nodiscard]] std::wstring backslashBecomesHyphen(std::wstring_view header);
/// A rule in its own words, where it takes a lone "-" as well.
[[nodiscard]] std::wstring ruleWithDash(std::wstring_view rule);
[[nodiscard]] std::wstring cellAndComplaint(std::wstring_view part, std::wstring_view header,
                                            std::wstring_view complaint);
/// `first` is what cellAndComplaint() says of the first of them.
[[nodiscard]] std::wstring pastedBreakRules(std::size_t broken, std::size_t pasted,
                                            std::wstring_view first);
[[nodiscard]] std::wstring powerShouldBeBelow(std::wstring_view limit);
[[nodiscard]] std::wstring powerShouldBeAtLeast(std::wstring_view limit);

// --- A report on a library -----------------------------------------------------------------------

inline constexpr std::wstring_view columnsNotFilledIn = L"Not all columns are filled in.";
inline constexpr std::wstring_view groupNotChosen = L"The component has no group.";
/// The library file has rules for pins and "%" that do not give every text back.
[[nodiscard]] std::wstring saveChanges(std::wstring_view after);

// --- Change Component dialogs: the "Parameter Description" line ----------------------------------

inline constexpr std::wstring_view datasheetHint = L"Link to corresponding Datasheet file.";
inline constexpr std::wstring_view pinLibraryHint = L"Check to use Pin Library data";
inline constexpr std::wstring_view calcOutputHint = L"Check to calculate output supply current";
inline constexpr std::wstring_view notesHint = L"Notes";
inline constexpr std::wstring_view manufacturerHint = L"Product manufacturer";
inline constexpr std::wstring_view typeHint = L"Component Type. See option List.";
inline constexpr std::wstring_view notApplicableHint = L"  (Not applicable for selected type)";
inline constexpr std::wstring_view typeChangeHint =
    L"  <Type Changing results in clearing all data>";
inline constexpr std::wstring_view chooseTypeFirst = L"You must choose Type first time";
inline constexpr std::wstring_view noCellBreaksItsRule = L"No cell breaks its rule.";

// --- Change Component dialogs: rows --------------------------------------------------------------

inline constexpr std::wstring_view notAllFilledIn =
    L"\nNot all columns are filled in for some components. Do you want to continue?";
inline constexpr std::wstring_view selectRowsForDeleting =
    L"Select row(s) for deleting by click on row header.";
inline constexpr std::wstring_view deleteQuestion = L"Choose Yes to delete or No to exit.";
inline constexpr std::wstring_view tableIsEmpty = L"The Components Table is empty.";
inline constexpr std::wstring_view noSelection = L"There is no selection.";
inline constexpr std::wstring_view emptyPartNumberCell = L"Part Number cell is empty.";
inline constexpr std::wstring_view selectRowInTable =
    L"You should select a row in the Component Table.";

/// Asked when Escape would close a table.
[[nodiscard]] std::wstring dropChanges(std::size_t components);
[[nodiscard]] std::wstring selectedForDeletion(std::size_t rows);
[[nodiscard]] std::wstring partlyDeletable(std::size_t blocked, std::size_t deletable);
[[nodiscard]] std::wstring allBlocked(std::size_t rows);
[[nodiscard]] std::wstring rowNotFound(bool backward);
[[nodiscard]] std::wstring componentTableTitle(std::wstring_view groupName, std::size_t quantity);

// --- New component dialogs -----------------------------------------------------------------------

inline constexpr std::wstring_view changeGroupTitle = L"Change component's group";
inline constexpr std::wstring_view addComponentTitle = L"Add new component";
inline constexpr std::wstring_view copyComponentTitle = L"Copy component";
inline constexpr std::wstring_view enterPartNumber = L"You should enter a new Part Number.";
inline constexpr std::wstring_view duplicatePartNumber = L"You cannot duplicate Part Number.";

// --- Power dissipation calculator ----------------------------------------------------------------

inline constexpr std::wstring_view ojaBelowOjc = L"Value of Oja should be more than Ojc";
inline constexpr std::wstring_view ojcOutOfRange = L"Value of Ojc should be between 0 and Oja";

[[nodiscard]] std::wstring calculatorTitle(std::wstring_view partNumber);
[[nodiscard]] std::wstring junctionOutOfRange(std::wstring_view low, std::wstring_view high);
[[nodiscard]] std::wstring referenceOutOfRange(std::wstring_view high);

// --- Data sheets ---------------------------------------------------------------------------------

inline constexpr std::wstring_view datasheetFolderNotDefined =
    L"Path to Datasheet Directory is not defined.";

[[nodiscard]] std::wstring datasheetFolderMissing(std::wstring_view folder);
[[nodiscard]] std::wstring fileMissing(std::wstring_view path);
/// The link leads to a file outside of the folder.
[[nodiscard]] std::wstring linkLeavesFolder(std::wstring_view link);
/// The file is there, but the desktop has no program for it.
[[nodiscard]] std::wstring noProgramToOpen(std::wstring_view path);

} // namespace partwright::message
