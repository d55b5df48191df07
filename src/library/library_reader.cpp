#include "library/library_reader.h"

#include "core/cell_text.h"
#include "core/completion.h"
#include "core/decimal_mark.h"
#include "core/messages.h"
#include "library/field_scanner.h"
#include "library/library_dialect.h"
#include "library/node_collector.h"
#include "library/save_result.h"
#include "library/text_table.h"

#include <algorithm>
#include <bitset>
#include <optional>
#include <utility>

namespace partwright {

namespace {

using namespace library_file;

std::string narrow(std::wstring_view text, CodePage codePage) {
    std::string bytes;
    // A name that the code page cannot hold stands in no cell of the file.
    return encodeInto(bytes, text, codePage) ? bytes : std::string();
}

std::string_view trimQuotes(std::string_view text) {
    if (!text.empty() && text.front() == '"')
        text.remove_prefix(1);
    if (!text.empty() && text.back() == '"')
        text.remove_suffix(1);
    return text;
}

/// Positions by name, in the bytes of the file at work; the first of equal names counts.
class NameTable {
public:
    void add(std::string name, std::int32_t number) { rows_.emplace_back(std::move(name), number); }
    void seal() {
        std::stable_sort(rows_.begin(), rows_.end(),
                         [](const auto& a, const auto& b) { return a.first < b.first; });
    }
    [[nodiscard]] std::int32_t find(std::string_view name) const {
        const auto row = std::lower_bound(
            rows_.begin(), rows_.end(), name,
            [](const auto& entry, std::string_view wanted) { return entry.first < wanted; });
        return row != rows_.end() && row->first == name ? row->second : 0;
    }

private:
    std::vector<std::pair<std::string, std::int32_t>> rows_;
};

/// What a row of one group needs to know.
struct GroupPlan {
    std::int32_t number = 0;
    std::int32_t family = 0;
    std::size_t columns = 0;
    std::bitset<Kind<AsrComponent>::maximumColumns> pins;
    NameTable types;
};

template <class Record>
class LibraryParser {
public:
    LibraryParser(const Definitions<Record>& definitions, wchar_t decimalMark, std::string bytes,
                  CodePage codePage)
        : definitions_(definitions), bytes_(std::move(bytes)), codePage_(codePage),
          separator_(findSeparator(bytes_)), mark_(decimalMark),
          rowKind_(narrow(Dialect<Record>::rowKind, codePage)),
          droppedGroup_(narrow(Dialect<Record>::droppedGroup, codePage)) {
        std::replace(bytes_.begin(), bytes_.end(), '\\', '-');
    }

    void run(NodeCollector<typename Kind<Record>::Library>& records) {
        LineReader reader(bytes_);
        std::string_view line;
        if (!reader.next(line)) // the first line is never a row
            return;
        while (reader.next(line))
            takeLine(line, records);
    }

    [[nodiscard]] bool metRows() const { return metRows_; }

private:
    using Collector = NodeCollector<typename Kind<Record>::Library>;

    void prepare();
    void addPlan(std::int32_t number);
    void takeLine(std::string_view line, Collector& records);
    void takeHeader(std::string_view line);
    [[nodiscard]] std::size_t readCells(std::string_view cursor);
    void fillTexts(Record& record, const GroupPlan& plan) const;
    void fillValues(Record& record, const GroupPlan& plan) const;
    void fill(std::wstring& target, std::string_view cell) const;
    [[nodiscard]] bool isTooLong(std::string_view cell) const;

    const Definitions<Record>& definitions_;
    std::string bytes_;
    CodePage codePage_;
    char separator_;
    wchar_t mark_;
    /// Prepared with the first row, as the plans are: many a library has none.
    std::optional<CompletionRules<Record>> rules_;
    std::string rowKind_;
    std::string droppedGroup_;
    std::vector<GroupPlan> plans_;
    NameTable groups_;

    /// The cells of the row at work. They outlive their row: a short row has the cells of the row
    /// before behind its end. A cell is a view of the file, or of its copy where quotes had to be
    /// removed.
    std::array<std::string_view, maximumCells> cells_;
    std::array<std::string, maximumCells> copies_;
    std::string scratch_;
    std::optional<std::size_t> maker_;
    std::optional<std::size_t> notes_;
    bool metRows_ = false;
};

template <class Record>
void LibraryParser<Record>::prepare() {
    rules_.emplace(definitions_);
    const auto count = static_cast<std::int32_t>(definitions_.groupNames.size());
    for (std::int32_t number = 0; number < std::max(count, 1); ++number)
        addPlan(number);
    groups_.seal();
}

template <class Record>
void LibraryParser<Record>::addPlan(std::int32_t number) {
    GroupPlan plan;
    plan.number = number;
    plan.family = FamilyNumber(Kind<Record>::family(number));
    const Names columns = Kind<Record>::columns(number);
    plan.columns = columns.size();
    for (std::size_t i = 0; i < columns.size(); ++i)
        plan.pins[i] = Dialect<Record>::encodesValues && isPinColumn(columns[i]);
    const std::wstring_view name = definitions_.GroupAndTypeNames(number, 0).first;
    const auto types = definitions_.typesOf(number);
    for (std::size_t i = 0; i < types.size(); ++i)
        plan.types.add(narrow(types[i].name, codePage_), static_cast<std::int32_t>(i));
    plan.types.seal();
    plans_.push_back(std::move(plan));
    if (number > 0 && name != L"0") // "0" is written for no group
        groups_.add(narrow(name, codePage_), number);
}

template <class Record>
void LibraryParser<Record>::takeHeader(std::string_view line) {
    std::array<std::string, maximumCells> names;
    SplitStarRow(line, separator_, names);
    maker_.reset();
    notes_.reset();
    for (std::size_t i = firstValue; i < names.size(); ++i) {
        if (names[i] == "Manufacturer")
            maker_ = i;
        else if (names[i] == "Notes")
            notes_ = i;
    }
}

template <class Record>
bool LibraryParser<Record>::isTooLong(std::string_view cell) const {
    constexpr std::size_t longestCharacter = 4; // bytes, in UTF-8
    if (cell.size() <= cell::maximumLength)
        return false;
    if (cell.size() > (cell::maximumLength + 2) * longestCharacter)
        return true;
    return decode(trimQuotes(cell), codePage_).size() > cell::maximumLength;
}

/// How many cells the row has; 0 for a row that is none of this library's.
template <class Record>
std::size_t LibraryParser<Record>::readCells(std::string_view cursor) {
    for (std::size_t count = 0; count < maximumCells; ++count) {
        const auto field = NextField(cursor, separator_, scratch_);
        if (!field || (!field->empty() && field->front() == rowEnd))
            return count;
        if (isTooLong(*field))
            return 0;
        if (field->data() == scratch_.data())
            cells_[count] = copies_[count].assign(*field);
        else
            cells_[count] = *field;
        if (count == rowKind && cells_[rowKind] != rowKind_)
            return 0;
    }
    return maximumCells;
}

template <class Record>
void LibraryParser<Record>::takeLine(std::string_view line, Collector& records) {
    std::string_view cursor = line;
    const auto mark = NextField(cursor, separator_, scratch_);
    if (!mark || mark->empty())
        return;
    if (mark->front() == headerMark)
        return takeHeader(line);
    if (mark->front() != rowMark)
        return;
    const std::size_t count = readCells(cursor);
    metRows_ = metRows_ || count > 0;
    if (count <= partNumber || cells_[groupName].empty() ||
        trimQuotes(cells_[partNumber]).empty() ||
        (!droppedGroup_.empty() && cells_[groupName] == droppedGroup_))
        return;
    if (!rules_)
        prepare();
    const auto group = groups_.find(cells_[groupName]);
    const GroupPlan& plan = plans_[static_cast<std::size_t>(group)];
    auto node = records.make();
    Record& record = node.mapped();
    fillTexts(record, plan);
    fillValues(record, plan);
    rules_->update(record);
    node.key() = record.PartNum;
    records.take(std::move(node));
}

template <class Record>
void LibraryParser<Record>::fill(std::wstring& target, std::string_view cell) const {
    target.resize(cell.size());
    unsigned char all = 0;
    for (std::size_t i = 0; i < cell.size(); ++i) {
        const auto byte = static_cast<unsigned char>(cell[i]);
        all = static_cast<unsigned char>(all | byte);
        target[i] = byte;
    }
    if (all >= 0x80) {
        target.clear();
        decodeInto(target, cell, codePage_);
    }
}

template <class Record>
void LibraryParser<Record>::fillTexts(Record& record, const GroupPlan& plan) const {
    fill(record.PartNum, trimQuotes(cells_[partNumber]));
    if constexpr (Dialect<Record>::readsUpperCase)
        for (wchar_t& c : record.PartNum)
            c = upperCase(c);
    fill(record.CatNum, trimQuotes(cells_[catalogNumber]));
    fill(record.Description, trimQuotes(cells_[description]));
    std::replace(record.Description.begin(), record.Description.end(), L';', L',');
    if (maker_)
        fill(record.Manufacturer, trimQuotes(cells_[*maker_]));
    if (notes_)
        fill(record.Notes, trimQuotes(cells_[*notes_]));
    record.group = plan.number;
    record.family = plan.family;
    if constexpr (Dialect<Record>::readsFamily)
        if (plan.number == 0 && !cells_[familyName].empty())
            record.family = FamilyNumber(decode(cells_[familyName], codePage_));
    const std::string_view type = cells_[typeName];
    if (type.find(';') == std::string_view::npos) {
        record.type = plan.types.find(type);
    } else {
        std::string repaired(type);
        std::replace(repaired.begin(), repaired.end(), ';', ',');
        record.type = plan.types.find(repaired);
    }
}

template <class Record>
void LibraryParser<Record>::fillValues(Record& record, const GroupPlan& plan) const {
    for (std::size_t i = 0; i < plan.columns; ++i) {
        const std::string_view text = trimQuotes(cells_[firstValue + i]);
        std::wstring& value = record.LPar[i];
        fill(value, text);
        const auto foreign = static_cast<char>(foreignMark(mark_));
        if (!plan.pins[i] && text.find(foreign) != std::string_view::npos)
            value = repairLibraryCell(value, mark_);
        if (value == cell::shownNoValue)
            value = cell::noValue;
    }
}

/// Puts the records of a file that was read into the target, which is empty.
template <class Record>
void takeRecords(CPartwrightPlugInApp& app, typename Kind<Record>::Library& target, TextFile& file,
                 LoadResult& result) {
    rememberRead(app.libraries, result.path, file);
    LibraryFault fault = LibraryFault::None;
    if (file.status == FileStatus::OpenFailed) {
        fault = LibraryFault::Unreadable;
        result.message = message::failedToOpen(result.path);
    } else if (file.status == FileStatus::Ok) {
        auto parsed = parseLibrary(app.of<Record>(), app.decimalMark(), std::move(file.bytes),
                                   file.form.codePage);
        target = std::move(parsed.records);
        if (parsed.groupsUnknown)
            fault = LibraryFault::NoGroupNames;
    }
    app.libraries.faults.insert_or_assign(result.path, fault);
}

template <class Record>
LoadResult loadLibrary(CPartwrightPlugInApp& app, typename Kind<Record>::Library& target,
                       const std::wstring& path) {
    target.clear();
    TextFile file = readTextFile(path);
    LoadResult result{file.status, path, {}};
    takeRecords<Record>(app, target, file, result);
    return result;
}

} // namespace

template <class Record>
ParsedLibrary<Record> parseLibrary(const Definitions<Record>& definitions, wchar_t decimalMark,
                                   std::string bytes, CodePage codePage) {
    ParsedLibrary<Record> result;
    NodeCollector<typename Kind<Record>::Library> records;
    LibraryParser<Record> parser(definitions, decimalMark, std::move(bytes), codePage);
    parser.run(records);
    result.records = records.collect();
    result.groupsUnknown = parser.metRows() && !Dialect<Record>::knowsGroups(definitions);
    return result;
}

template ParsedLibrary<SdtaComponent> parseLibrary(const Definitions<SdtaComponent>&, wchar_t,
                                                   std::string, CodePage);
template ParsedLibrary<AsrComponent> parseLibrary(const Definitions<AsrComponent>&, wchar_t,
                                                  std::string, CodePage);

LoadResult LoadSdtaLibrary(CPartwrightPlugInApp& app, SdtaLibrary& target, std::wstring_view path) {
    return loadLibrary<SdtaComponent>(
        app, target, path.empty() ? app.paths.sdtaLibraryPath : std::wstring(path));
}

LoadResult loadSdtaMaster(CPartwrightPlugInApp& app, MasterCopy<SdtaComponent>& master,
                          std::wstring_view wantedPath) {
    const std::wstring path =
        wantedPath.empty() ? app.paths.sdtaLibraryPath : std::wstring(wantedPath);
    TextFile file = readTextFile(path);
    LoadResult result{file.status, path, {}};
    std::optional<LibraryReading> reading;
    if (file.status == FileStatus::Ok) {
        reading = {path,
                   file.form.codePage,
                   app.decimalMark(),
                   app.sdta.propertiesRead,
                   app.sdta.groupNames,
                   file.bytes};
        if (master.isFrom(*reading))
            return result;
    }
    SdtaLibrary records;
    takeRecords<SdtaComponent>(app, records, file, result);
    master.replace(std::move(records), std::move(reading));
    return result;
}

LoadResult LoadAnalysesLibrary(CPartwrightPlugInApp& app, AsrLibrary& target,
                               std::wstring_view path) {
    if (app.paths.programFolder.empty()) {
        if (!path.empty() && fileExists(path)) // not read, so never to be written over
            app.libraries.faults.insert_or_assign(std::wstring(path), LibraryFault::Unreadable);
        return {};
    }
    LoadResult result = loadLibrary<AsrComponent>(
        app, target, path.empty() ? app.paths.programFolder + L"ASRLib.csv" : std::wstring(path));
    if (result.status == FileStatus::Absent)
        result.message = message::sourceFileNotFound(result.path);
    return result;
}

} // namespace partwright
