#include "cli/commands.h"
#include "cli/project.h"
#include "core/encoding.h"

#include <nlohmann/json.hpp>

#include <iomanip>
#include <ostream>

namespace partwright::cli {

namespace {

using Json = nlohmann::ordered_json;

/// One column of counts behind the quantity.
struct CountColumn {
    const char* title;
    const char* key;
    std::int32_t GroupCount::*count;
};

constexpr CountColumn sdtaColumns[] = {{"Uncompleted", "uncompleted", &GroupCount::uncompleted}};
constexpr CountColumn asrColumns[] = {
    {"ASR", "uncompletedAsr", &GroupCount::uncompletedForAsr},
    {"Rapid", "uncompletedRapid", &GroupCount::uncompletedForRapid},
    {"Full", "uncompletedFull", &GroupCount::uncompleted}};
using CountColumns = std::span<const CountColumn>;

GroupCount total(const std::vector<GroupCount>& lines) {
    GroupCount sum;
    for (const GroupCount& line : lines) {
        sum.quantity += line.quantity;
        sum.uncompleted += line.uncompleted;
        sum.uncompletedForAsr += line.uncompletedForAsr;
        sum.uncompletedForRapid += line.uncompletedForRapid;
    }
    return sum;
}

/// Text of at least `width` characters; std::setw counts bytes.
std::string padded(std::wstring_view text, std::size_t width) {
    std::string result = encodeUtf8(text);
    for (std::size_t i = text.size(); i < width; ++i)
        result += ' ';
    return result;
}

void printLine(std::ostream& out, std::wstring_view number, const GroupCount& line,
               CountColumns columns) {
    out << padded(number, 4) << padded(line.name, 28) << padded(line.family, 18) << std::setw(9)
        << line.quantity;
    for (const CountColumn& column : columns)
        out << std::setw(13) << line.*column.count;
    out << '\n';
}

void printPage(std::ostream& out, const char* title, const PageSession& page,
               CountColumns columns) {
    const std::vector<GroupCount> lines = page.counts();
    out << title << ", filter " << filterName(page.filter()) << ", "
        << encodeUtf8(page.libraryPath()) << '\n';
    out << padded(L"No", 4) << padded(L"Group", 28) << padded(L"Family", 18) << std::setw(9)
        << "Quantity";
    for (const CountColumn& column : columns)
        out << std::setw(13) << column.title;
    out << '\n';
    for (const GroupCount& line : lines)
        if (line.quantity != 0)
            printLine(out, std::to_wstring(line.group), line, columns);
    GroupCount sum = total(lines);
    sum.name = L"Total";
    printLine(out, L"", sum, columns);
    out << '\n';
}

Json pageJson(const PageSession& page, CountColumns columns) {
    const auto counted = [columns](Json& target, const GroupCount& line) {
        target["quantity"] = line.quantity;
        for (const CountColumn& column : columns)
            target[column.key] = line.*column.count;
    };
    Json result;
    result["filter"] = filterName(page.filter());
    result["path"] = encodeUtf8(page.libraryPath());
    const std::vector<GroupCount> lines = page.counts();
    for (const GroupCount& line : lines) {
        Json& entry = result["groups"].emplace_back();
        entry["group"] = line.group;
        entry["name"] = encodeUtf8(line.name);
        entry["family"] = encodeUtf8(line.family);
        counted(entry, line);
    }
    counted(result["total"], total(lines));
    return result;
}

} // namespace

int runStatus(const PlaceOptions& place, const StatusOptions& options, Streams streams) {
    Project project(place, streams);
    if (project.opened() != Fine)
        return project.opened();
    for (int index = 0; index < MainSession::pageCount; ++index) {
        PageSession& page = project.session.page(index);
        page.setFilter(pageFilter(page, options.filter));
        page.refresh();
    }
    if (place.json) {
        const Json answer = {{"sdta", pageJson(project.session.sdtaPage, sdtaColumns)},
                             {"analyses", pageJson(project.session.asrPage, asrColumns)}};
        streams.out << answer.dump(2) << '\n';
    } else {
        printPage(streams.out, "SDTA", project.session.sdtaPage, sdtaColumns);
        printPage(streams.out, "Analyses", project.session.asrPage, asrColumns);
    }
    project.tellLookedAt();
    return project.prompt.unreadable() ? Usage : Fine;
}

} // namespace partwright::cli
