#include "core/messages.h"

#include "core/text.h"

#include <algorithm>

namespace partwright::message {

namespace {

std::wstring join(std::initializer_list<std::wstring_view> pieces) {
    std::wstring text;
    for (const std::wstring_view piece : pieces)
        text += piece;
    return text;
}

} // namespace

std::wstring completenessStatus(std::int32_t uncompleted, std::int32_t total) {
    if (uncompleted == 0)
        return join({L"All (", std::to_wstring(total), L") components completed"});
    return join({std::to_wstring(uncompleted), L" uncompleted component",
                 uncompleted > 1 ? L"s" : L"", L" of ", std::to_wstring(total), L" total"});
}

namespace {

std::wstring counted(std::size_t count, std::wstring_view one, std::wstring_view many) {
    return join({std::to_wstring(count), L" ", count == 1 ? one : many});
}

} // namespace

std::wstring fillDone(std::wstring_view command, std::size_t parts, std::size_t filled,
                      std::size_t replaced, std::size_t emptied) {
    if (parts == 0)
        return join({command, L": no value was changed."});
    return join({command, L": ", counted(parts, L"part", L"parts"), L", ",
                 counted(filled, L"value", L"values"), L" filled, ", std::to_wstring(replaced),
                 L" replaced, ", std::to_wstring(emptied), L" emptied."});
}

std::wstring fillTakenBack(std::wstring_view command, std::size_t restored, std::size_t kept) {
    std::wstring text = join(
        {command, L" taken back: ", counted(restored, L"part is", L"parts are"), L" as before."});
    if (kept != 0)
        text += join(
            {L" ", counted(kept, L"part was", L"parts were"), L" changed since and left alone."});
    return text;
}

std::wstring fillNeedsTables(const std::vector<std::wstring>& paths) {
    std::wstring text = L"Nothing was filled: without these tables values would be missing or come "
                        L"from the wrong rules.";
    for (const std::wstring& path : paths)
        text += join({L"\n", path});
    return text;
}

std::wstring noPartList(std::wstring_view path) {
    return join({L"There is no part list: ", path});
}

std::wstring noPartListHeader(std::wstring_view path) {
    return join(
        {L"No line \"#REFDES,P/N,MFG,DESCR,CPN,SELECT\" was found in the part list: ", path});
}

std::wstring lookedAt(const std::vector<LookedAt>& files) {
    std::wstring text = L"Looked at ";
    for (std::size_t i = 0; i < files.size(); ++i)
        text += join({i == 0 ? L"" : L", ", counted(files[i].records, L"record", L"records"),
                      L" of ", files[i].path});
    return text;
}

std::wstring noFolder(std::wstring_view option, std::wstring_view path) {
    return join({L"The folder of ", option, L" is not there: ", path});
}

std::wstring failedToOpen(std::wstring_view path) {
    return join({failedToOpenStart, path, L"."});
}

std::wstring failedToOpenForWriting(std::wstring_view path) {
    return join({L"Failed to Open File: \n", path});
}

std::wstring sourceFileNotFound(std::wstring_view path) {
    return join({L"Source File\n'", path, L"' was not found."});
}

std::wstring indexFieldErrorIn(std::wstring_view field) {
    return join({indexFieldError, L": ", field});
}

std::wstring failedToWrite(std::wstring_view path, std::wstring_view reason,
                           FileAfterFailure after) {
    constexpr std::wstring_view states[] = {
        L"The file is as it was.",
        L"What it held could not be put back. What was to be saved is kept; the next start offers "
        L"to complete the save.",
        L"What it held could not be put back."};
    return join({L"The file could not be written:\n", path, L"\n", reason, L".\n",
                 states[static_cast<std::size_t>(after)]});
}

std::wstring fileInUse(std::wstring_view path) {
    return join({L"Another program is writing the file at this moment:\n", path});
}

std::wstring fileChanged(std::wstring_view path, FileChange change) {
    constexpr std::wstring_view changes[] = {
        L"Another program changed the file since it was read:\n",
        L"Another program removed the file since it was read:\n",
        L"Another program made the file since this one looked for it:\n"};
    return join({changes[static_cast<std::size_t>(change)], path,
                 change == FileChange::Removed ? L"\nNothing was written. Write it anew?"
                                               : L"\nNothing was written. Write over it?"});
}

std::wstring savesNotSecured(std::wstring_view reason) {
    return join({L"Saves are not secured against interruptions, since their texts cannot be kept "
                 L"in the user's state folder: ",
                 reason, L"."});
}

std::wstring completeSaveQuestion(std::wstring_view path, bool isBegun) {
    return join({L"The last save of this file was interrupted ",
                 isBegun ? L"in its middle" : L"before it began", L":\n", path,
                 L"\nWhat was to be saved is kept. Complete the save now?"});
}

std::wstring saveWasInterrupted(std::wstring_view path, std::wstring_view keptAt) {
    return join({L"The last save of ", path, L" was interrupted. --recover completes it; deleting ",
                 keptAt, L" leaves the file as it is."});
}

std::wstring saveCompleted(std::wstring_view path) {
    return join({L"The interrupted save of ", path, L" was completed."});
}

std::wstring characterNotInCodePage(std::wstring_view path, std::wstring_view part,
                                    std::wstring_view column) {
    return join({L"The file\n", path, L"\ncannot hold a character of part ", part, L", column ",
                 column, L". Nothing was written. Write the file as UTF-8?"});
}

std::wstring saveWouldLose(std::wstring_view path, std::wstring_view cause) {
    return join({L"The library was not written, since its records were not understood when it was "
                 L"read:\n",
                 path, L"\n", cause});
}

std::wstring saveChanges(std::wstring_view after) {
    return join({L"A save changes it to \"", after, L"\"."});
}

std::wstring groupTableMissing(std::wstring_view tablePath) {
    return join({L"No group names are known; the table is missing or empty:\n", tablePath});
}

std::wstring fileUnreadable() {
    return L"The file was there and could not be opened.";
}

std::wstring wrongColumns(std::size_t line, std::wstring_view group) {
    return join({L"The header in line ", std::to_wstring(line),
                 L" does not have the columns of the group below it, ", group, L"."});
}

std::wstring groupNotInTable(std::size_t line, std::wstring_view group) {
    return join({L"Line ", std::to_wstring(line), L" and those below it are of the group ", group,
                 L", which the table of groups does not have."});
}

std::wstring gapInGroupTable(std::int32_t code, std::size_t line, std::wstring_view tablePath) {
    const std::wstring place = line == 0 ? std::wstring() : L", line " + std::to_wstring(line);
    return join({L"The table of groups has no valid row for group ", std::to_wstring(code),
                 L", so that records would get other groups and columns:\n", tablePath, place});
}

std::wstring linkNotReadBack(std::wstring_view path, std::wstring_view part,
                             std::wstring_view file) {
    return join({L"The links to data sheets were not written, since the table cannot hold the link "
                 L"of part ",
                 part, L" to the file \"", file, L"\":\n", path});
}

std::wstring causeText(const LoadEntry& entry) {
    switch (entry.cause) {
    case LoadCause::TooLong:
        return L"a cell of more than 255 characters; the row is left out and stays in the file";
    case LoadCause::OtherKind:
        return L"no row of this kind of library; it stays in the file";
    case LoadCause::Malformed:
        return L"the row could not be read";
    case LoadCause::NoPartNumber:
        return L"no part number or no group";
    case LoadCause::Repeated:
        return L"the part stands again in line " + std::to_wstring(entry.otherLine);
    case LoadCause::CaseTwin:
        return L"differs only in case from the part in line " + std::to_wstring(entry.otherLine);
    case LoadCause::UnknownGroup:
        return join({L"group \"", entry.name, L"\" is not known, so the values are left out"});
    case LoadCause::UnknownType:
        return join({L"type \"", entry.name, L"\" is not known"});
    case LoadCause::WrongCellCount:
        return L"not as many cells as its group has, or no \"<\" at the end";
    case LoadCause::OtherHeader:
        return L"the header above it has the columns of another group";
    case LoadCause::NoHeader:
        return L"no header says where manufacturer and notes stand, so they are left out";
    case LoadCause::RefusedField:
        return L"quotes that do not fit; what stands behind them is left out";
    case LoadCause::Colour:
        return L"the colour is left out";
    case LoadCause::FirstLine:
        return L"the first line is never read as a row";
    case LoadCause::Torn:
        return L"the file ends in the middle of this row, which is left out";
    case LoadCause::NoEnd:
        return L"the file ends without \"End of File\"; it may have been cut";
    case LoadCause::ZeroBytes:
        return L"zero bytes, as an interrupted save leaves them";
    case LoadCause::Board:
        return L"a board (PCB), which is not kept";
    case LoadCause::ForeignBytes:
        return L"bytes that are no UTF-8; they stay as they are";
    case LoadCause::Backslash:
        return L"a backslash in a text was read as a hyphen";
    case LoadCause::BehindEnd:
        return L"stands behind \"End of File\"";
    case LoadCause::NoLink:
        return L"no link from a part to a file; it stays in the table";
    }
    return {};
}

std::wstring entryText(const LoadEntry& entry) {
    std::wstring text;
    if (entry.line != 0)
        text = L"line " + std::to_wstring(entry.line);
    if (!entry.part.empty())
        text.append(text.empty() ? L"part " : L", part ").append(entry.part);
    return text.append(text.empty() ? L"" : L": ").append(causeText(entry));
}

std::wstring furtherLines(std::size_t lines) {
    return join({L"and ", std::to_wstring(lines), L" more"});
}

std::wstring loadSummary(std::wstring_view path, const LoadReport& report) {
    constexpr std::size_t shown = 5;
    std::wstring text(path);
    text += L": ";
    if (report.fault != LibraryFault::None)
        text.append(replaceAll(report.faultText, L"\n", L" ")).append(L" It will not be written. ");
    if (report.count() == 0)
        return text;
    text += std::to_wstring(report.count());
    text += report.count() == 1 ? L" line was not taken as it stands: "
                                : L" lines were not taken as they stand: ";
    const std::size_t listed = std::min(report.entries().size(), shown);
    for (std::size_t i = 0; i < listed; ++i)
        text.append(i == 0 ? L"" : L"; ").append(entryText(report.entries()[i]));
    if (report.count() > listed)
        text += L"; " + furtherLines(report.count() - listed);
    return text;
}

std::wstring savingWillDrop(std::wstring_view path, std::size_t lines) {
    return join({L"Saving will drop ", std::to_wstring(lines), lines == 1 ? L" line" : L" lines",
                 L", or parts of ", lines == 1 ? L"it" : L"them",
                 L", which could not be read as they stand in this file:\n", path,
                 L"\nSave all the same?"});
}

std::wstring savingNeedsLeave(std::wstring_view path, std::size_t lines) {
    return join({path, L": Saving would drop ", std::to_wstring(lines),
                 lines == 1 ? L" line" : L" lines",
                 L", in whole or in part. Nothing was written; --drop-unread writes it all the "
                 L"same."});
}

std::wstring foundCheckId(std::int32_t checkId) {
    return L" Found CheckID = " + std::to_wstring(checkId);
}

std::wstring foundThermalCheckId(std::int32_t checkId) {
    return L" Found in LedSet CheckID = " + std::to_wstring(checkId);
}

std::wstring valueOutOfRange(std::wstring_view value, std::wstring_view explanation) {
    return join({L"Value ", value, L" out of range:  ", explanation});
}

std::wstring mustBeFromList(std::wstring_view value) {
    return join({L" /", value, L"/ Must be from list"});
}

std::wstring longCell(std::wstring_view header) {
    return join({header, L" can't exceed 255 characters"});
}

std::wstring cellBeginsWithRowEnd(std::wstring_view header) {
    return join({header, L" can't begin with \"<\""});
}

std::wstring backslashBecomesHyphen(std::wstring_view header) {
    return join({header, L" can't hold \"\\\", which is kept as \"-\""});
}

std::wstring ruleWithDash(std::wstring_view rule) {
    return join({rule, L" \"-\" is allowed."});
}

std::wstring cellAndComplaint(std::wstring_view part, std::wstring_view header,
                              std::wstring_view complaint) {
    return join({part, L", ", header, L": ", trim(complaint)});
}

std::wstring pastedBreakRules(std::size_t broken, std::size_t pasted, std::wstring_view first) {
    return join({std::to_wstring(broken), L" of ", std::to_wstring(pasted), L" pasted values ",
                 broken == 1 ? L"breaks its rule; first: " : L"break their rule; first: ", first});
}

std::wstring powerShouldBeBelow(std::wstring_view limit) {
    return join({L"For the selected type power should be < ", limit});
}

std::wstring powerShouldBeAtLeast(std::wstring_view limit) {
    return join({L"For the selected type power should be >= ", limit});
}

std::wstring dropChanges(std::size_t components) {
    return join({L"Drop the changes to ", std::to_wstring(components),
                 components == 1 ? L" component?" : L" components?"});
}

std::wstring selectedForDeletion(std::size_t rows) {
    return join({L"You have selected ", std::to_wstring(rows), rows >= 2 ? L" rows" : L" row",
                 L" for deletion.\n"});
}

std::wstring partlyDeletable(std::size_t blocked, std::size_t deletable) {
    return join({std::to_wstring(blocked), L" of them ", blocked >= 2 ? L"are" : L"is",
                 L" present in the project and cannot be deleted.\nThe remaining ",
                 std::to_wstring(deletable), L" will be deleted now.\n"});
}

std::wstring allBlocked(std::size_t rows) {
    return join({rows >= 2 ? L"All selected Part Numbers are" : L"This Part Number is",
                 L" present in the project and cannot be deleted."});
}

std::wstring rowNotFound(bool backward) {
    return join({backward ? L"Previous " : L"Next ",
                 L" row containing the desired parameter with the required search conditions was "
                 L"not found"});
}

std::wstring componentTableTitle(std::wstring_view groupName, std::size_t quantity) {
    return join(
        {L"Component Table\t\tGroup: ", groupName, L" \tQuantity: ", std::to_wstring(quantity)});
}

std::wstring calculatorTitle(std::wstring_view partNumber) {
    return join({L"Power Dissipation Calculator (Part Number: ", partNumber, L")"});
}

std::wstring junctionOutOfRange(std::wstring_view low, std::wstring_view high) {
    return join({L"Value of Tj should be between ", low, L" and ", high, L"."});
}

std::wstring referenceOutOfRange(std::wstring_view high) {
    return join({L"Value of Ts should be between 0 and ", high, L"."});
}

std::wstring datasheetFolderMissing(std::wstring_view folder) {
    return join({L"Defined Path to Datasheet Directory \"", folder, L"\" does not exist."});
}

std::wstring fileMissing(std::wstring_view path) {
    return join({L"File \"", path, L"\" does not exist."});
}

std::wstring linkLeavesFolder(std::wstring_view link) {
    return join({L"The link \"", link, L"\" leads out of the folder of data sheets."});
}

std::wstring noProgramToOpen(std::wstring_view path) {
    return join({L"No program of this desktop opens the file\n", path});
}

} // namespace partwright::message
