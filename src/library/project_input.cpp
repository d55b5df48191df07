#include "library/project_input.h"

#include "core/messages.h"
#include "core/paths.h"
#include "core/text.h"
#include "library/field_scanner.h"
#include "library/text_table.h"

#include <algorithm>

namespace partwright {

namespace {

constexpr int maximumTries = 5;
constexpr std::chrono::milliseconds pauseBetweenTries{1000};
constexpr std::wstring_view projectMark = L"#Project filename";
constexpr std::wstring_view selectedText = L"Yes";

enum Column : std::size_t { designator, partNumber, maker, description, catalogNumber, selection };
constexpr std::size_t columnCount = 6;

/// "#Project filename: C:\Work\Board.DSN" -> "Board"; a file name without "." has no name.
std::wstring projectNameOf(std::wstring_view line) {
    const auto colon = line.find(L':');
    std::wstring_view path = colon == std::wstring_view::npos ? L"" : line.substr(colon + 1);
    const auto dot = path.rfind(L'.');
    path = path.substr(0, dot == std::wstring_view::npos ? 0 : dot);
    const auto separator =
        std::find_if(path.rbegin(), path.rend(), [](wchar_t c) { return isPathSeparator(c); });
    return std::wstring(trim(path.substr(static_cast<std::size_t>(path.rend() - separator))));
}

std::array<std::wstring, columnCount> readFields(std::wstring_view line, wchar_t separator) {
    std::array<std::wstring, columnCount> fields;
    std::wstring buffer;
    for (std::wstring& field : fields)
        if (const auto text = NextField(line, separator, buffer))
            field = trim(trimOf(trim(*text), L"\""));
    return fields;
}

void storePlacement(PartList& parts, std::wstring_view line, wchar_t separator) {
    auto fields = readFields(line, separator);
    if (fields[designator].empty() || fields[partNumber].empty())
        return;
    ProjectEntry entry;
    entry.selected = equalsNoCase(fields[selection], selectedText) ? 1 : 0;
    parts.selectedCount += entry.selected;
    entry.values[parts.columnPartNumber] = std::move(fields[partNumber]);
    entry.values[parts.columnManufacturer] = std::move(fields[maker]);
    entry.values[parts.columnDescription] = std::move(fields[description]);
    entry.values[parts.columnCatalogNumber] = std::move(fields[catalogNumber]);
    parts.projectEntries[std::move(fields[designator])] = std::move(entry);
}

void storeColumns(PartList& parts, std::wstring_view line, wchar_t separator) {
    std::array<std::wstring, maximumCells> cells;
    SplitStarRow(line, separator, cells);
    parts.columnPartNumber = cells[partNumber];
    parts.columnManufacturer = cells[maker];
    parts.columnDescription = cells[description];
    parts.columnCatalogNumber = cells[catalogNumber];
}

} // namespace

LoadResult LoadProjectInput(ProjectPaths& paths, PartList& parts, Clock& clock) {
    if (paths.libraryFolder.empty())
        return {};
    paths.projectInputPath = paths.projectInputFolder + std::wstring(projectInputName);
    LoadResult result{FileStatus::Absent, paths.projectInputPath, {}};
    TextFile file;
    for (int tries = 1; tries <= maximumTries; ++tries) {
        file = readTextFile(paths.projectInputPath);
        if (file.status != FileStatus::OpenFailed)
            break;
        if (tries < maximumTries)
            clock.pause(pauseBetweenTries);
    }
    result.status = file.status;
    if (file.status == FileStatus::Absent)
        return result;
    parts.projectInputPresent = 1;
    parts.projectEntries.clear();
    if (file.status == FileStatus::OpenFailed)
        result.message = message::failedToOpen(paths.projectInputPath);
    else
        parseProjectInput(paths, parts, file.bytes, file.form.codePage);
    return result;
}

std::wstring partListFault(const ProjectPaths& paths, const PartList& parts) {
    if (parts.projectInputPresent == 0)
        return message::noPartList(paths.projectInputPath);
    return parts.columnPartNumber.empty() ? message::noPartListHeader(paths.projectInputPath)
                                          : std::wstring();
}

void parseProjectInput(ProjectPaths& paths, PartList& parts, std::string_view bytes,
                       CodePage codePage) {
    const auto separator = static_cast<wchar_t>(namedSeparator(bytes).value_or(','));
    const std::wstring_view header = separator == L';' ? L"#REFDES;P/N;MFG;DESCR;CPN;SELECT"
                                                       : L"#REFDES,P/N,MFG,DESCR,CPN,SELECT";
    LineReader reader(bytes);
    std::string_view narrow;
    bool inTable = false;
    for (std::size_t number = 1; reader.next(narrow); ++number) {
        if (number == 1 && reader.rest().empty())
            return; // fewer than two lines
        const std::wstring text = decode(narrow, codePage);
        const std::wstring_view line = trim(text);
        if (line.find(projectMark) != std::wstring_view::npos) {
            paths.projectName = projectNameOf(line);
        } else if (line.find(header) != std::wstring_view::npos) {
            storeColumns(parts, line, separator);
            inTable = true;
        } else if (inTable) {
            storePlacement(parts, line, separator);
        }
    }
}

} // namespace partwright
