#include "library/datasheet_links.h"

#include "core/encoding.h"
#include "core/messages.h"
#include "core/paths.h"
#include "core/text.h"
#include "core/text_file.h"
#include "library/rule_table.h"

namespace partwright {

namespace {

constexpr std::wstring_view tableName = L"DataSheetLinkTable.csv";
constexpr std::wstring_view partColumn = L"PartNum";
constexpr std::wstring_view fileColumn = L"FileName";
constexpr std::wstring_view linkColumns[] = {partColumn, fileColumn};

/// A cell of the table: one line, in quotes when it holds the separator. The brackets of a file
/// name stay what they are, or the link would lead nowhere.
std::wstring linkCell(std::wstring_view text) {
    const std::wstring line = removeAll(text, L"\r\n");
    return line.find(L',') == std::wstring::npos ? line : L'"' + line + L'"';
}

std::wstring formatLinks(const DatasheetLinks& links, std::wstring_view lineEnd) {
    std::wstring text;
    for (const std::wstring_view column : linkColumns)
        text.append(column).append(L",");
    text += lineEnd;
    for (const auto& [part, file] : links)
        if (!file.empty())
            text.append(linkCell(part))
                .append(L",")
                .append(linkCell(file))
                .append(L",")
                .append(lineEnd);
    return text;
}

} // namespace

std::wstring datasheetLinksPath(const ProjectPaths& paths) {
    return withSeparator(paths.libraryFolder) + std::wstring(tableName);
}

LoadResult LoadDatasheetLinks(const ProjectPaths& paths, Libraries& libraries) {
    const std::wstring path = datasheetLinksPath(paths);
    const TextFile file = readTextFile(path);
    rememberRead(libraries, path, file);
    const RuleTable table = ruleTableOf(file, {.columns = linkColumns});
    libraries.faults.erase(path);
    if (table.status == FileStatus::OpenFailed)
        libraries.faults[path] = LibraryFault::Unreadable;
    if (table.status == FileStatus::Ok)
        libraries.datasheetLinks.clear();
    for (const RuleRow& row : table.rows)
        if (!row.text(partColumn).empty())
            libraries.datasheetLinks.insert_or_assign(row.text(partColumn), row.text(fileColumn));
    return resultOf(table, path);
}

SaveResult SaveDatasheetLinks(const ProjectPaths& paths, Libraries& libraries,
                              SaveChoices choices) {
    const std::wstring path = datasheetLinksPath(paths);
    SaveResult result;
    if (libraries.faults.contains(path)) {
        result.path = path;
        result.status = SaveStatus::Refused;
        result.message = message::saveWouldLose(path, message::fileUnreadable());
        return result;
    }
    InPlaceFile file(path);
    result = lookBeforeSave(libraries, path, file, choices);
    if (result.status != SaveStatus::Saved)
        return result;
    const TextForm form = file.form();
    const std::wstring text = formatLinks(libraries.datasheetLinks, form.crLf ? L"\r\n" : L"\n");
    std::string bytes;
    if (!encodeInto(bytes, text, form.codePage))
        bytes = encodeUtf8(text);
    return putInPlace(libraries, path, file, std::move(bytes));
}

} // namespace partwright
