#include "library/library_parser.h"

#include "core/cell_text.h"
#include "core/completion.h"
#include "core/decimal_mark.h"
#include "core/text.h"
#include "core/text_file.h"
#include "library/field_scanner.h"
#include "library/library_dialect.h"
#include "library/load_observer.h"
#include "library/node_collector.h"
#include "library/part_key.h"
#include "library/row_cells.h"
#include "library/text_table.h"

#include <algorithm>
#include <bitset>
#include <optional>
#include <utility>

namespace partwright {

namespace {

using namespace library_file;
using End = RowCells::End;

std::string narrow(std::wstring_view text, CodePage codePage) {
    std::string bytes;
    // A name that the code page cannot hold stands in no cell of the file.
    return encodeInto(bytes, text, codePage) ? bytes : std::string();
}

/// Positions by name, in the bytes of the file at work; the first of equal names counts.
class NameTable {
public:
    void add(std::string name, std::int32_t number) { rows_.emplace_back(std::move(name), number); }
    void seal() {
        std::stable_sort(rows_.begin(), rows_.end(),
                         [](const auto& a, const auto& b) { return a.first < b.first; });
    }
    [[nodiscard]] std::optional<std::int32_t> find(std::string_view name) const {
        const auto row = std::lower_bound(
            rows_.begin(), rows_.end(), name,
            [](const auto& entry, std::string_view wanted) { return entry.first < wanted; });
        return row != rows_.end() && row->first == name ? std::optional(row->second) : std::nullopt;
    }

private:
    std::vector<std::pair<std::string, std::int32_t>> rows_;
};

/// What a row of one group needs to know.
struct GroupPlan {
    std::int32_t number = 0;
    std::int32_t family = 0;
    std::wstring_view name;
    Names columns;
    std::bitset<Kind<AsrComponent>::maximumColumns> pins;
    NameTable types;
};

/// A part number without its quotes, and without blanks inside of them.
std::string_view keyCell(std::string_view cell) {
    return dropTrailingBlanks(dropLeadingBlanks(trimQuotes(cell)));
}

/// The line is the last one with anything in it, and not even the mark of a row's end, which other
/// programs may have put separators behind, ends it.
bool isHalf(std::string_view line, std::string_view rest) {
    while (!line.empty() && (isFieldBlank(line.back()) || line.back() == ',' || line.back() == ';'))
        line.remove_suffix(1);
    return !line.ends_with(rowEnd) && std::all_of(rest.begin(), rest.end(), isFieldBlank<char>);
}

template <class Record>
class LibraryParser {
public:
    LibraryParser(const Definitions<Record>& definitions, wchar_t decimalMark, std::string bytes,
                  CodePage codePage, bool lists)
        : definitions_(definitions), bytes_(std::move(bytes)), codePage_(codePage), lists_(lists),
          rowKind_(narrow(Dialect<Record>::rowKind, codePage)),
          separator_(separatorOf(bytes_, rowKind_)), mark_(decimalMark),
          droppedGroup_(narrow(Dialect<Record>::droppedGroup, codePage)),
          notDefined_(narrow(notDefinedName, codePage)), row_(separator_, codePage, rowKind_),
          observer_(row_, separator_, codePage),
          hasZeros_(lists && bytes_.find('\0') != std::string::npos) {}

    [[nodiscard]] ParsedLibrary<Record> run();

private:
    using Library = typename Kind<Record>::Library;

    [[nodiscard]] static char separatorOf(std::string_view bytes, std::string_view rowKind);
    void prepare();
    void addPlan(std::int32_t number);
    void takeFirstLine(std::string_view line);
    void takeLine(std::string_view line);
    [[nodiscard]] std::string_view withoutBackslashes(std::string_view line);
    void takeHeader(std::string_view line);
    void takeRow(std::string_view line, std::string_view cells);
    [[nodiscard]] std::optional<LoadCause> refusal(End end, std::string_view line) const;
    void leaveOut(LoadCause cause, std::string_view line, std::string_view cells);
    void makeRecord(End end, std::string_view line);
    void fillTexts(Record& record, const GroupPlan& plan);
    void fillValues(Record& record, const GroupPlan& plan);
    void fill(std::wstring& target, std::string_view cell);
    void tellTwins();
    static void keepRowsOfRecords(const Library& records, LoadReport& report);

    const Definitions<Record>& definitions_;
    std::string bytes_;
    CodePage codePage_;
    bool lists_;
    std::string rowKind_;
    char separator_;
    wchar_t mark_;
    /// Prepared with the first row, as the plans are: many a library has none.
    std::optional<CompletionRules<Record>> rules_;
    std::string droppedGroup_;
    std::string notDefined_;
    std::vector<GroupPlan> plans_;
    NameTable groups_;

    RowCells row_;
    LoadObserver observer_;
    bool hasZeros_;
    NodeCollector<Library> records_;
    /// By number of the record.
    std::vector<std::uint32_t> lines_;
    std::string_view rest_;
    std::string scratch_;
    /// The line at work with its backslashes, if it has any.
    std::string original_;
    HeaderNames header_;
    std::optional<std::size_t> maker_;
    std::optional<std::size_t> notes_;
    bool slashed_ = false;
    bool metRows_ = false;
    bool foreignBytes_ = false;
    bool unknownType_ = false;
    bool smallLetters_ = false;
};

/// Without a line that names it the separator is ",", unless only ";" gives a row of this kind.
template <class Record>
char LibraryParser<Record>::separatorOf(std::string_view bytes, std::string_view rowKind) {
    if (const auto named = namedSeparator(bytes))
        return *named;
    const auto givesRow = [&](char separator) {
        LineReader reader(bytes);
        std::string buffer;
        for (std::string_view line; reader.next(line);) {
            const auto mark = NextField(line, separator, buffer);
            if (!mark || mark->empty() || mark->front() != rowMark)
                continue;
            const auto kind = NextField(line, separator, buffer);
            if (kind && *kind == rowKind)
                return true;
        }
        return false;
    };
    return !givesRow(',') && givesRow(';') ? ';' : ',';
}

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
    plan.columns = Kind<Record>::columns(number);
    for (std::size_t i = 0; i < plan.columns.size(); ++i)
        plan.pins[i] = Dialect<Record>::encodesValues && isPinColumn(plan.columns[i]);
    plan.name = definitions_.GroupAndTypeNames(number, 0).first;
    const auto types = definitions_.typesOf(number);
    for (std::size_t i = 0; i < types.size(); ++i)
        plan.types.add(narrow(types[i].name, codePage_), static_cast<std::int32_t>(i));
    plan.types.seal();
    plans_.push_back(std::move(plan));
    const std::wstring_view name = plans_.back().name;
    if (number > 0 && name != L"0") // "0" is written for no group
        groups_.add(narrow(name, codePage_), number);
}

template <class Record>
ParsedLibrary<Record> LibraryParser<Record>::run() {
    LineReader reader(bytes_);
    std::string_view line;
    if (reader.next(line)) {
        observer_.startLine();
        if (lists_)
            takeFirstLine(line);
    }
    while (reader.next(line)) {
        observer_.startLine();
        rest_ = reader.rest();
        takeLine(withoutBackslashes(line));
    }
    if (lists_)
        tellTwins();
    ParsedLibrary<Record> result;
    result.records = records_.collect([this](std::size_t dropped, std::size_t next) {
        if (lists_)
            observer_.repeated(LoadCause::Repeated, lines_[dropped], records_.key(dropped),
                               lines_[next]);
    });
    if (metRows_ && !Dialect<Record>::knowsGroups(definitions_))
        observer_.setFault(LibraryFault::NoGroupNames, {});
    if (lists_) {
        result.report = observer_.close(!result.records.empty());
        keepRowsOfRecords(result.records, result.report);
    }
    return result;
}

template <class Record>
void LibraryParser<Record>::takeFirstLine(std::string_view line) {
    std::string_view cursor = line;
    const auto mark = NextField(cursor, separator_, scratch_);
    if (mark && !mark->empty() && (mark->front() == rowMark || mark->front() == headerMark))
        observer_.firstLine(mark->front() == rowMark);
    else
        observer_.otherLine(line, mark, cursor);
}

/// The line as it is read: backslashes are hyphens. What stands in the file is remembered.
template <class Record>
std::string_view LibraryParser<Record>::withoutBackslashes(std::string_view line) {
    slashed_ = line.find('\\') != std::string_view::npos;
    if (!slashed_)
        return line;
    if (lists_)
        original_.assign(line);
    const auto from = bytes_.begin() + (line.data() - bytes_.data());
    std::replace(from, from + static_cast<std::ptrdiff_t>(line.size()), '\\', '-');
    return line;
}

template <class Record>
void LibraryParser<Record>::takeLine(std::string_view line) {
    if (hasZeros_ && line.find('\0') != std::string_view::npos)
        observer_.zeroBytes();
    std::string_view cursor = line;
    const auto mark = NextField(cursor, separator_, scratch_);
    const char first = mark && !mark->empty() ? mark->front() : '\0';
    if (first == rowMark)
        takeRow(line, cursor);
    else if (first == headerMark)
        takeHeader(line);
    else if (lists_)
        observer_.otherLine(slashed_ ? original_ : line, mark, cursor);
}

template <class Record>
void LibraryParser<Record>::takeHeader(std::string_view line) {
    SplitStarRow(line, separator_, header_);
    maker_.reset();
    notes_.reset();
    for (std::size_t i = firstValue; i < header_.size(); ++i) {
        if (header_[i] == "Manufacturer")
            maker_ = i;
        else if (header_[i] == "Notes")
            notes_ = i;
    }
    if (lists_)
        observer_.header(slashed_ ? original_ : line, header_);
}

template <class Record>
void LibraryParser<Record>::takeRow(std::string_view line, std::string_view cells) {
    const End end = row_.read(cells);
    metRows_ = metRows_ || (row_.count() > 0 && end != End::TooLong && end != End::OtherKind);
    if (const auto cause = refusal(end, line))
        leaveOut(*cause, line, cells);
    else
        makeRecord(end, line);
}

/// Why the row makes no record, if it makes none.
template <class Record>
std::optional<LoadCause> LibraryParser<Record>::refusal(End end, std::string_view line) const {
    if (end != End::Mark && isHalf(line, rest_))
        return LoadCause::Torn;
    if (end == End::TooLong)
        return LoadCause::TooLong;
    if (end == End::OtherKind || row_.count() == 0)
        return LoadCause::OtherKind;
    if (row_.count() <= partNumber)
        return LoadCause::Malformed;
    if (row_[groupName].empty() || keyCell(row_[partNumber]).empty())
        return LoadCause::NoPartNumber;
    if (!droppedGroup_.empty() && row_[groupName] == droppedGroup_)
        return LoadCause::Board;
    return std::nullopt;
}

template <class Record>
void LibraryParser<Record>::leaveOut(LoadCause cause, std::string_view line,
                                     std::string_view cells) {
    if (!lists_)
        return;
    if (row_.count() <= partNumber)
        row_.readOn(cells, partNumber);
    observer_.leftOut(cause, slashed_ ? original_ : line);
}

template <class Record>
void LibraryParser<Record>::makeRecord(End end, std::string_view line) {
    if (!rules_)
        prepare();
    const auto group = groups_.find(row_[groupName]);
    const GroupPlan& plan = plans_[static_cast<std::size_t>(group.value_or(0))];
    auto node = records_.make();
    Record& record = node.mapped();
    foreignBytes_ = false;
    fillTexts(record, plan);
    fillValues(record, plan);
    rules_->update(record);
    node.key() = record.PartNum;
    records_.take(std::move(node));
    if (!lists_)
        return;
    lines_.push_back(static_cast<std::uint32_t>(observer_.line()));
    TakenRow row;
    row.line = slashed_ ? std::string_view(original_) : line;
    row.start = line.data();
    row.end = end;
    row.group = plan.number;
    row.groupName = plan.name;
    row.columns = plan.columns;
    row.unknownGroup = !group && row_[groupName] != "0" && row_[groupName] != notDefined_;
    row.unknownType = unknownType_;
    row.foreignBytes = foreignBytes_;
    row.backslashes = slashed_;
    row.encodesValues = Dialect<Record>::encodesValues;
    observer_.taken(row);
}

template <class Record>
void LibraryParser<Record>::fill(std::wstring& target, std::string_view cell) {
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
        foreignBytes_ = foreignBytes_ || std::any_of(target.begin(), target.end(), isForeignByte);
    }
}

template <class Record>
void LibraryParser<Record>::fillTexts(Record& record, const GroupPlan& plan) {
    fill(record.PartNum, keyCell(row_[partNumber]));
    if constexpr (Dialect<Record>::readsUpperCase)
        for (wchar_t& c : record.PartNum)
            c = upperCase(c);
    else
        for (const wchar_t c : record.PartNum)
            smallLetters_ = smallLetters_ || (c >= L'a' && c <= L'z') || c >= 0x80;
    fill(record.CatNum, trimQuotes(row_[catalogNumber]));
    fill(record.Description, trimQuotes(row_[description]));
    std::replace(record.Description.begin(), record.Description.end(), L';', L',');
    if (maker_)
        fill(record.Manufacturer, trimQuotes(row_[*maker_]));
    if (notes_)
        fill(record.Notes, trimQuotes(row_[*notes_]));
    record.group = plan.number;
    record.family = plan.family;
    if constexpr (Dialect<Record>::readsFamily)
        if (plan.number == 0 && !row_[familyName].empty())
            record.family = FamilyNumber(decode(row_[familyName], codePage_));
    const std::string_view type = row_[typeName];
    std::optional<std::int32_t> known;
    if (type.find(';') == std::string_view::npos) {
        known = plan.types.find(type);
    } else {
        std::string repaired(type);
        std::replace(repaired.begin(), repaired.end(), ';', ',');
        known = plan.types.find(repaired);
    }
    record.type = known.value_or(0);
    unknownType_ = plan.number > 0 && !known && !type.empty() && type != "Default";
}

template <class Record>
void LibraryParser<Record>::fillValues(Record& record, const GroupPlan& plan) {
    for (std::size_t i = 0; i < plan.columns.size(); ++i) {
        const std::string_view text = trimQuotes(row_[firstValue + i]);
        std::wstring& value = record.LPar[i];
        fill(value, text);
        const auto foreign = static_cast<char>(foreignMark(mark_));
        if (!plan.pins[i] && text.find(foreign) != std::string_view::npos)
            value = repairLibraryCell(value, mark_);
        if (value == cell::shownNoValue)
            value = cell::noValue;
    }
}

/// A kept row leaves the file once its part has a record; where it has one as it is read, the row
/// stays whatever becomes of that.
template <class Record>
void LibraryParser<Record>::keepRowsOfRecords(const Library& records, LoadReport& report) {
    std::map<std::wstring, std::vector<KeptLine*>> rows;
    for (KeptLine& line : report.keptLines)
        if (!line.part.empty())
            rows[line.part].push_back(&line);
    if (rows.empty())
        return;
    for (const auto& [key, record] : records)
        if (const auto row = rows.find(upperCase(key)); row != rows.end())
            for (KeptLine* line : row->second)
                line->part.clear();
}

/// Part numbers that differ only in case are one part to whoever works with the records: of them
/// the last in key order counts.
template <class Record>
void LibraryParser<Record>::tellTwins() {
    if (!smallLetters_)
        return;
    std::vector<std::pair<std::wstring, std::size_t>> parts;
    for (std::size_t i = 0; i < lines_.size(); ++i)
        parts.emplace_back(upperCase(records_.key(i)), i);
    const auto keyOf = [this](const auto& part) -> const std::wstring& {
        return records_.key(part.second);
    };
    std::sort(parts.begin(), parts.end(), [&](const auto& a, const auto& b) {
        if (a.first != b.first)
            return a.first < b.first;
        return keyOf(a) != keyOf(b) ? keyOf(a) < keyOf(b) : a.second < b.second;
    });
    for (std::size_t i = 0; i + 1 < parts.size(); ++i)
        if (parts[i].first == parts[i + 1].first && keyOf(parts[i]) != keyOf(parts[i + 1]))
            observer_.repeated(LoadCause::CaseTwin, lines_[parts[i].second], keyOf(parts[i]),
                               lines_[parts[i + 1].second]);
}

} // namespace

template <class Record>
ParsedLibrary<Record> parseLibrary(const Definitions<Record>& definitions, wchar_t decimalMark,
                                   std::string bytes, CodePage codePage, Listing listing) {
    return LibraryParser<Record>(definitions, decimalMark, std::move(bytes), codePage,
                                 listing == Listing::On)
        .run();
}

template ParsedLibrary<SdtaComponent> parseLibrary(const Definitions<SdtaComponent>&, wchar_t,
                                                   std::string, CodePage, Listing);
template ParsedLibrary<AsrComponent> parseLibrary(const Definitions<AsrComponent>&, wchar_t,
                                                  std::string, CodePage, Listing);

} // namespace partwright
