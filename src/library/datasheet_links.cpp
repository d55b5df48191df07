#include "library/datasheet_links.h"

#include "core/encoding.h"
#include "core/messages.h"
#include "core/paths.h"
#include "core/text.h"
#include "core/text_file.h"
#include "library/part_key.h"
#include "library/rule_table.h"

#include <algorithm>

namespace partwright {

namespace {

constexpr std::wstring_view tableName = L"DataSheetLinkTable.csv";
constexpr std::wstring_view partColumn = L"PartNum";
constexpr std::wstring_view fileColumn = L"FileName";

/// A cell of the table: one line, in quotes when it would not come back without. The brackets of a
/// file name stay what they are, or the link would lead nowhere.
std::wstring linkCell(std::wstring_view text) {
    const std::wstring line = removeAll(text, L"\r\n");
    if (line.find(L',') == std::wstring::npos && !line.starts_with(L'"'))
        return line;
    return L'"' + replaceAll(line, L"\"", L"\"\"") + L'"';
}

/// The cells of a line, trimmed. Names of files have apostrophes, and quotes that are doubled
/// inside of a cell in quotes.
std::vector<std::wstring> linkCells(std::wstring_view line) {
    std::vector<std::wstring> cells;
    while (!line.empty()) {
        std::wstring text;
        if (line.front() == L'"') {
            std::size_t at = 1;
            for (; at < line.size(); ++at) {
                if (line[at] == L'"' && line.substr(at + 1, 1) != L"\"")
                    break;
                text += line[at];
                at += line[at] == L'"' ? 1 : 0;
            }
            line.remove_prefix(at);
        } else {
            text = line.substr(0, line.find(L','));
        }
        line.remove_prefix(std::min(line.find(L','), line.size()));
        line.remove_prefix(std::min<std::size_t>(1, line.size()));
        cells.emplace_back(trim(text));
    }
    return cells;
}

std::wstring linkLine(std::wstring_view part, std::wstring_view file) {
    return linkCell(part) + L"," + linkCell(file) + L",";
}

/// The links of a table's content.
class LinkParser {
public:
    LinkParser(CodePage codePage, LoadReport& report) : codePage_(codePage), report_(report) {
        report_.codePage = codePage;
    }

    [[nodiscard]] DatasheetLinks run(std::string_view bytes) {
        LineReader reader(bytes);
        for (std::string_view line; reader.next(line);) {
            ++line_;
            const std::wstring text = decode(line, codePage_);
            if (line_ == 1)
                takeHeader(text);
            else if (part_ && file_)
                takeRow(line, text);
            if ((!part_ || !file_) && !trim(text).empty())
                report_.setFault(LibraryFault::NotUnderstood,
                                 std::wstring(message::linkColumnsMissing));
        }
        report_.close();
        return std::move(links_);
    }

private:
    void takeHeader(std::wstring_view text) {
        const HeaderColumns header = SplitHeader(text, L",");
        if (const auto part = header.find(partColumn); part != header.end())
            part_ = part->second;
        if (const auto file = header.find(fileColumn); file != header.end())
            file_ = file->second;
    }

    void takeRow(std::string_view line, std::wstring_view text) {
        const std::vector<std::wstring> cells = linkCells(text);
        const auto filled = static_cast<std::size_t>(std::count_if(
            cells.begin(), cells.end(), [](const auto& cell) { return !cell.empty(); }));
        if (filled == 0)
            return;
        const auto cellAt = [&](std::size_t place) {
            return place < cells.size() ? cells[place] : std::wstring();
        };
        const std::wstring part = cellAt(*part_);
        const std::wstring file = cellAt(*file_);
        if (part.empty() || file.empty()) {
            report_.keptLines.push_back({std::string(line), part});
            report_.add({line_, LoadCause::NoLink, part});
            return;
        }
        if (filled > 2)
            report_.add({line_, LoadCause::WrongCellCount, part});
        if (const auto before = lines_.find(part); before != lines_.end() && links_[part] != file)
            report_.add({before->second, LoadCause::Repeated, part, {}, line_});
        lines_[part] = line_;
        links_.insert_or_assign(part, file);
    }

    CodePage codePage_;
    LoadReport& report_;
    std::size_t line_ = 0;
    std::optional<std::size_t> part_;
    std::optional<std::size_t> file_;
    DatasheetLinks links_;
    std::map<std::wstring, std::size_t> lines_;
};

/// Parts of lines without a file that have one now.
std::set<std::wstring> supersededParts(const LoadReport& report, const DatasheetLinks& links) {
    std::set<std::wstring> parts;
    for (const KeptLine& line : report.keptLines)
        if (const auto link = links.find(line.part); link != links.end() && !link->second.empty())
            parts.insert(line.part);
    return parts;
}

/// Bytes of the table; what its code page cannot hold makes it UTF-8.
std::string formatLinks(const DatasheetLinks& links, const LoadReport& report, TextForm form) {
    std::string bytes;
    bool complete = true;
    const auto put = [&](std::wstring_view line) {
        complete = encodeInto(bytes, line, form.codePage) && complete;
        bytes += form.lineEndBytes();
    };
    put(std::wstring(partColumn).append(L",").append(fileColumn).append(L","));
    for (const auto& [part, file] : links)
        if (!file.empty())
            put(linkLine(part, file));
    const auto superseded = supersededParts(report, links);
    for (const KeptLine& line : report.keptLines)
        if (!superseded.contains(line.part))
            put(decode(line.bytes, report.codePage));
    return complete ? bytes : formatLinks(links, report, {CodePage::Utf8, form.lineEnd});
}

} // namespace

std::wstring datasheetLinksPath(const ProjectPaths& paths) {
    return withSeparator(paths.libraryFolder) + std::wstring(tableName);
}

LoadResult LoadDatasheetLinks(const ProjectPaths& paths, Libraries& libraries) {
    const std::wstring path = datasheetLinksPath(paths);
    const TextFile file = readTextFile(path);
    rememberRead(libraries, path, file);
    LoadReport report;
    if (file.status == FileStatus::OpenFailed)
        report.setFault(LibraryFault::Unreadable, message::fileUnreadable());
    else if (file.status == FileStatus::Ok)
        libraries.datasheetLinks = LinkParser(file.form.codePage, report).run(file.bytes);
    libraries.loadReports.insert_or_assign(path, std::move(report));
    return resultOf(file.status, path);
}

SaveResult SaveDatasheetLinks(const ProjectPaths& paths, Libraries& libraries,
                              SaveChoices choices) {
    const std::wstring path = datasheetLinksPath(paths);
    const DatasheetLinks& links = libraries.datasheetLinks;
    LoadReport& report = libraries.loadReports[path];
    SaveResult result = lookAtReport(report, path, report.drops(), choices);
    for (const auto& [part, file] : links)
        if (result.status == SaveStatus::Saved && !file.empty() &&
            linkCells(linkLine(part, file)) != std::vector<std::wstring>{part, file}) {
            result.status = SaveStatus::Refused;
            result.message = message::linkNotReadBack(path, part, file);
        }
    if (result.status != SaveStatus::Saved)
        return result;
    InPlaceFile file(path);
    result = lookBeforeSave(libraries, path, file, choices);
    if (result.status == SaveStatus::Saved)
        result = putInPlace(libraries, path, file, formatLinks(links, report, file.form()));
    if (result.status == SaveStatus::Saved)
        report.fileWritten(supersededParts(report, links));
    return result;
}

} // namespace partwright
