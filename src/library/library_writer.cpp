#include "library/library_writer.h"

#include "core/cell_text.h"
#include "core/messages.h"
#include "core/number.h"
#include "core/text.h"
#include "library/library_dialect.h"
#include "library/row_buffer.h"
#include "library/text_table.h"

#include <algorithm>
#include <bitset>
#include <filesystem>
#include <limits>
#include <optional>

namespace partwright {

namespace {

using namespace library_file;

constexpr std::size_t bannerFillers = 34;
/// A guess at a row's bytes that few libraries exceed.
constexpr std::size_t expectedRow = 256;

/// A pin number as the host's tools write it; none when it has more than seven digits.
std::optional<std::wstring> toBase36(double number) {
    constexpr double limit = 78'364'164'096.0; // 36 to the seventh
    if (number >= limit)
        return std::nullopt;
    auto rest = static_cast<std::uint64_t>(number);
    std::wstring digits;
    do {
        digits.insert(digits.begin(), L"0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ"[rest % 36]);
        rest /= 36;
    } while (rest != 0);
    return digits;
}

/// An Analyses value as it stands in the file, before it is made a cell: hyphens as backslashes;
/// a list of pins in capital letters; a single pin that is a number in base 36. `buffer` holds
/// the answer where it differs from the value.
std::wstring_view encodeValue(std::wstring_view value, bool isPin, wchar_t mark,
                              std::wstring& buffer) {
    if (value.empty() || value.front() == L'-')
        return value;
    if (value.find(L'-') != std::wstring_view::npos) {
        buffer = replaceAll(value, L"-", L"\\");
        if (isPin)
            buffer = upperCase(buffer);
        return buffer;
    }
    if (!isPin || !holdsDigit(value))
        return value;
    const auto number = wholeNumber(value, mark);
    const bool allDigits = std::all_of(value.begin(), value.end(), isDigit);
    if (number && (allDigits || *number > std::numeric_limits<double>::min()))
        if (auto digits = toBase36(*number))
            return buffer = std::move(*digits);
    return value;
}

bool isAscii(std::string_view bytes) {
    return std::all_of(bytes.begin(), bytes.end(),
                       [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

/// A name that holds the separator or a quote, as one cell.
std::wstring nameCell(std::wstring_view name, wchar_t separator) {
    if (name.find(separator) == std::wstring_view::npos &&
        name.find(L'"') == std::wstring_view::npos)
        return std::wstring(name);
    return L'"' + replaceAll(name, L"\"", L"\"\"") + L'"';
}

/// The texts that the rows of one group share, in the bytes of the file at work. A text that the
/// code page cannot hold is none.
struct GroupText {
    Names columns;
    std::bitset<Kind<AsrComponent>::maximumColumns> pins;
    std::string header;
    /// A row up to the part number, where the group names the family.
    std::optional<std::string> start;
    /// The same in two pieces, for a family that each record names itself.
    std::string beforeFamily;
    std::optional<std::string> behindFamily;
    /// By type position; the last one serves the positions out of range.
    std::vector<std::optional<std::string>> types;
};

template <class Record>
class LibraryFormatter {
public:
    LibraryFormatter(const CPartwrightPlugInApp& app, TextForm form, std::size_t records = 0)
        : definitions_(app.of<Record>()), codePage_(form.codePage),
          separator_(static_cast<char>(app.writtenSeparator())), mark_(app.decimalMark()),
          lineEnd_(form.lineEndBytes()), rowEnd_(separator_ + ("<" + lineEnd_)),
          out_(form.codePage, separator_, (records + 1) * expectedRow) {}

    void banner(std::wstring_view path);
    void groupStart(std::int32_t group);
    void groupHeader(std::int32_t group) { out_.raw(groupText(group).header); }
    /// With its line end.
    [[nodiscard]] bool row(const Record& record);
    void lineEnd() { out_.raw(lineEnd_); }
    void kept(std::string_view line, CodePage codePage);
    void end();

    [[nodiscard]] std::string take() { return out_.take(); }
    /// Bytes that are no UTF-8 were written into a file that is.
    [[nodiscard]] bool hasForeignBytes() const { return out_.hasForeignBytes(); }
    /// Column of the text that could not be encoded.
    [[nodiscard]] std::wstring_view failedColumn() const { return failed_; }

private:
    [[nodiscard]] const GroupText& groupText(std::int32_t group);
    [[nodiscard]] GroupText prepare(std::int32_t group) const;
    [[nodiscard]] std::string joined(const std::vector<std::wstring_view>& cells) const;
    [[nodiscard]] std::optional<std::string> name(std::wstring_view text) const;
    [[nodiscard]] std::string pathBytes(std::wstring_view path) const;
    [[nodiscard]] bool names(const Record& record, const GroupText& group);
    [[nodiscard]] bool start(const Record& record, const GroupText& group);
    [[nodiscard]] bool value(std::wstring_view text, bool isPin);
    [[nodiscard]] bool notes(std::wstring_view text);
    [[nodiscard]] bool ruledCell(std::wstring_view text, bool isValue);
    /// Remembers the column when the cell could not be put down.
    bool put(bool done, std::wstring_view column) {
        if (!done)
            failed_ = column;
        return done;
    }

    const Definitions<Record>& definitions_;
    CodePage codePage_;
    char separator_;
    wchar_t mark_;
    std::string lineEnd_;
    std::string rowEnd_;
    RowBuffer out_;
    std::map<std::int32_t, GroupText> groups_;
    const GroupText* current_ = nullptr;
    std::int32_t currentGroup_ = 0;
    std::wstring_view failed_;
    std::wstring buffer_;
};

template <class Record>
std::optional<std::string> LibraryFormatter<Record>::name(std::wstring_view text) const {
    std::string bytes;
    const auto cell = nameCell(text, static_cast<wchar_t>(separator_));
    return encodeInto(bytes, cell, codePage_) ? std::optional(bytes) : std::nullopt;
}

template <class Record>
std::string LibraryFormatter<Record>::joined(const std::vector<std::wstring_view>& cells) const {
    std::string line;
    for (const std::wstring_view cell : cells) {
        if (!line.empty())
            line += separator_;
        line += encodeUtf8(cell); // names of columns are ASCII
    }
    return line;
}

template <class Record>
GroupText LibraryFormatter<Record>::prepare(std::int32_t number) const {
    using Rules = Dialect<Record>;
    GroupText text;
    text.columns = Kind<Record>::columns(number);
    std::vector<std::wstring_view> cells{L"*"};
    cells.insert(cells.end(), cellNames.begin(), cellNames.end());
    cells.insert(cells.end(), text.columns.begin(), text.columns.end());
    cells.insert(cells.end(), {makerColumn, notesColumn, colorColumn, L"*"});
    text.header = joined(cells);
    for (std::size_t i = 0; i < text.columns.size(); ++i)
        text.pins[i] = isPinColumn(text.columns[i]);

    const auto family = name(Rules::family(definitions_, number));
    const auto group = name(definitions_.GroupAndTypeNames(number, 0).first);
    text.beforeFamily = joined({L">", Rules::rowKind, Rules::beforeFamily});
    if (group)
        text.behindFamily = separator_ + *group + separator_;
    if (family && !family->empty() && group)
        text.start = text.beforeFamily + *family + *text.behindFamily;
    const auto cellOf = [this](std::wstring_view type) {
        auto cell = name(type);
        if (cell)
            *cell += separator_;
        return cell;
    };
    const std::size_t known = definitions_.typesOf(number).size();
    for (std::size_t type = 0; type <= known; ++type)
        text.types.push_back(
            cellOf(Rules::type(definitions_, number, static_cast<std::int32_t>(type))));
    return text;
}

template <class Record>
const GroupText& LibraryFormatter<Record>::groupText(std::int32_t group) {
    if (current_ == nullptr || currentGroup_ != group) {
        auto known = groups_.find(group);
        if (known == groups_.end())
            known = groups_.emplace(group, prepare(group)).first;
        current_ = &known->second;
        currentGroup_ = group;
    }
    return *current_;
}

/// The path is there for people to read, so what the file cannot hold of it is no matter.
template <class Record>
std::string LibraryFormatter<Record>::pathBytes(std::wstring_view path) const {
    std::string bytes;
    for (const wchar_t& c : path)
        if (c != L'\r' && c != L'\n' &&
            (isForeignByte(c) || !encodeInto(bytes, {&c, 1}, codePage_)))
            bytes += '?';
    return bytes;
}

template <class Record>
void LibraryFormatter<Record>::banner(std::wstring_view path) {
    std::vector<std::wstring_view> fillers{L"|", L" FLIB"};
    fillers.insert(fillers.end(), bannerFillers, L" ~");
    fillers.insert(fillers.end(), {L" L", L" |"});
    out_.raw("sep=");
    out_.separator();
    lineEnd();
    out_.raw(joined(fillers));
    lineEnd();
    out_.raw("|");
    out_.separator();
    lineEnd();
    out_.raw("|");
    out_.separator();
    out_.raw(" File: ");
    out_.raw(pathBytes(path));
    lineEnd();
    out_.raw("|");
    out_.separator();
    out_.raw(" Project: ");
    out_.raw(encodeUtf8(Dialect<Record>::title));
    lineEnd();
}

/// The line as it stood, in the code page that the file has now.
template <class Record>
void LibraryFormatter<Record>::kept(std::string_view line, CodePage codePage) {
    if (codePage == codePage_)
        out_.foreign(line);
    else
        out_.raw(encodeUtf8(decode(line, codePage))); // only ever from the old code page to UTF-8
    lineEnd();
}

template <class Record>
void LibraryFormatter<Record>::groupStart(std::int32_t group) {
    out_.raw("|");
    out_.separator();
    lineEnd();
    groupHeader(group);
    lineEnd();
}

template <class Record>
void LibraryFormatter<Record>::end() {
    out_.raw("|");
    out_.separator();
    lineEnd();
    out_.raw("|");
    out_.separator();
    out_.raw("End of File");
    lineEnd();
}

template <class Record>
bool LibraryFormatter<Record>::start(const Record& record, const GroupText& group) {
    if (group.start) {
        out_.raw(*group.start);
        return true;
    }
    if (!group.behindFamily)
        return false;
    out_.raw(group.beforeFamily);
    if (record.family > 0 && static_cast<std::size_t>(record.family) < familyNames().size())
        out_.raw(encodeUtf8(familyNames()[static_cast<std::size_t>(record.family)]));
    out_.raw(*group.behindFamily);
    return true;
}

template <class Record>
bool LibraryFormatter<Record>::names(const Record& record, const GroupText& group) {
    const bool isUpper = std::none_of(record.PartNum.begin(), record.PartNum.end(), [](wchar_t c) {
        return (c >= L'a' && c <= L'z') || static_cast<char32_t>(c) >= 0x80;
    });
    if (!isUpper)
        buffer_ = upperCase(record.PartNum);
    if (!put(start(record, group), cellNames[groupName]) ||
        !put(out_.quotedCell(isUpper ? record.PartNum : buffer_), cellNames[partNumber]) ||
        !put(out_.quotedCell(record.CatNum), cellNames[catalogNumber]) ||
        !put(out_.quotedCell(record.Description), cellNames[description]))
        return false;
    const auto last = group.types.size() - 1;
    const auto type =
        record.type < 0 ? last : std::min(static_cast<std::size_t>(record.type), last);
    if (!put(group.types[type].has_value(), cellNames[typeName]))
        return false;
    out_.raw(*group.types[type]);
    return true;
}

/// A cell of an Analyses record that its rules may change. A quote in it would break the row, and
/// "<" at its start would end it.
template <class Record>
bool LibraryFormatter<Record>::ruledCell(std::wstring_view text, bool isValue) {
    // Percent signs double at every save, so the length counts behind the rules.
    constexpr wchar_t noSeparator = L'\n';
    std::wstring ruled = ToCsvCell(text, noSeparator, isValue);
    ruled.resize(std::min(ruled.size(), cell::maximumLength));
    if (RowBuffer::needsQuotes(ruled))
        return out_.quotedCell(ruled);
    return out_.plainCell(ToCsvCell(ruled, static_cast<wchar_t>(separator_), false));
}

template <class Record>
bool LibraryFormatter<Record>::value(std::wstring_view text, bool isPin) {
    using Buffer = RowBuffer;
    if (text.starts_with(L'-') && text == cell::noValue)
        return out_.simpleCell(cell::shownNoValue, 0);
    if constexpr (!Dialect<Record>::encodesValues)
        return out_.bareOrQuotedCell(text);
    // A digit alone is its own base 36.
    const unsigned numbers = isPin && text.size() > 1 ? Buffer::digit : 0;
    constexpr unsigned classes = Buffer::lineEnd | Buffer::quote | Buffer::ending | Buffer::ruled |
                                 Buffer::hyphen | Buffer::blank;
    return (text.size() <= cell::maximumLength && out_.simpleCell(text, classes | numbers)) ||
           ruledCell(trim(encodeValue(text, isPin, mark_, buffer_)), true);
}

template <class Record>
bool LibraryFormatter<Record>::notes(std::wstring_view text) {
    using Buffer = RowBuffer;
    if constexpr (Dialect<Record>::quotesNotes)
        return out_.quotedCell(text);
    constexpr unsigned classes = Buffer::lineEnd | Buffer::quote | Buffer::ending | Buffer::ruled;
    return (text.size() <= cell::maximumLength && out_.simpleCell(text, classes)) ||
           ruledCell(text, false);
}

template <class Record>
bool LibraryFormatter<Record>::row(const Record& record) {
    const GroupText& group = groupText(record.group);
    if (!names(record, group))
        return false;
    for (std::size_t i = 0; i < group.columns.size(); ++i)
        if (!put(value(record.LPar[i], group.pins[i]), group.columns[i]))
            return false;
    if (!put(notes(record.Manufacturer), makerColumn) || !put(notes(record.Notes), notesColumn))
        return false;
    out_.raw(rowEnd_);
    return true;
}

/// A file whose only characters beyond ASCII share their lines with foreign bytes would be read in
/// the old code page; then these bytes become the characters that they are in it.
std::string keptReadable(std::string bytes) {
    if (detectCodePage(bytes) == CodePage::Utf8)
        return bytes;
    std::wstring text = decode(bytes, CodePage::Utf8);
    const bool hasOthers = std::any_of(text.begin(), text.end(), [](wchar_t c) {
        return static_cast<char32_t>(c) >= 0x80 && !isForeignByte(c);
    });
    if (!hasOthers)
        return bytes; // in the old code page they read as well
    for (wchar_t& c : text)
        if (isForeignByte(c))
            c = decode(std::string(1, static_cast<char>(c)), CodePage::Windows1252).front();
    return encodeUtf8(text);
}

/// The file's own full path.
std::wstring fullPath(const std::wstring& path) {
    std::error_code error;
    const auto full = std::filesystem::absolute(nativePath(path), error);
    return error ? path : pathText(full);
}

template <class Record>
SaveResult saveLibrary(CPartwrightPlugInApp& app, std::span<const Record* const> records,
                       const std::wstring& path, SaveChoices choices) {
    static const LoadReport nothing;
    const auto found = app.libraries.loadReports.find(path);
    const LoadReport& report = found == app.libraries.loadReports.end() ? nothing : found->second;
    SaveResult result = lookAtReport(report, path, droppedLines(report, records), choices);
    if (result.status != SaveStatus::Saved)
        return result;
    InPlaceFile file(path);
    result = lookBeforeSave(app.libraries, path, file, choices);
    if (result.status != SaveStatus::Saved)
        return result;
    TextForm form = file.form();
    if (choices.asUtf8)
        form.codePage = CodePage::Utf8;
    FormattedLibrary text = formatLibrary<Record>(app, records, fullPath(path), form, report);
    if (text.encodable) {
        const auto superseded = supersededParts(report, records);
        result = putInPlace(app.libraries, path, file, std::move(text.bytes));
        if (result.status == SaveStatus::Saved)
            app.libraries.loadReports[path].fileWritten(superseded);
        return result;
    }
    result.status = SaveStatus::Unencodable;
    result.message = message::characterNotInCodePage(path, text.part, text.column);
    result.part = std::move(text.part);
    result.column = std::move(text.column);
    return result;
}

template <class Record>
std::wstring headerText(const CPartwrightPlugInApp& app, std::int32_t group) {
    LibraryFormatter<Record> formatter(app, {});
    formatter.groupHeader(group);
    return decode(formatter.take(), CodePage::Utf8);
}

template <class Record>
std::wstring rowText(const CPartwrightPlugInApp& app, const Record& record) {
    LibraryFormatter<Record> formatter(app, {});
    static_cast<void>(formatter.row(record)); // UTF-8 holds every character
    std::string bytes = formatter.take();
    bytes.pop_back(); // the line end
    return decode(bytes, CodePage::Utf8);
}

} // namespace

template <class Record>
RecordList<Record> recordsByGroup(const std::map<std::wstring, Record, std::less<>>& library) {
    std::map<std::int32_t, RecordList<Record>> groups;
    for (const auto& [key, record] : library)
        if (Dialect<Record>::writesDeleted || record.group >= 0)
            groups[record.group].push_back(&record);
    RecordList<Record> records;
    records.reserve(library.size());
    for (const auto& [number, group] : groups)
        records.insert(records.end(), group.begin(), group.end());
    return records;
}

template RecordList<SdtaComponent> recordsByGroup<SdtaComponent>(const SdtaLibrary&);
template RecordList<AsrComponent> recordsByGroup<AsrComponent>(const AsrLibrary&);

template <class Record>
std::set<std::wstring> supersededParts(const LoadReport& report,
                                       std::span<const Record* const> records) {
    std::set<std::wstring> kept;
    for (const KeptLine& line : report.keptLines)
        if (!line.part.empty())
            kept.insert(line.part);
    std::set<std::wstring> superseded;
    if (!kept.empty())
        for (const Record* record : records)
            if (const auto part = kept.find(upperCase(record->PartNum)); part != kept.end())
                superseded.insert(*part);
    return superseded;
}

template std::set<std::wstring>
supersededParts<SdtaComponent>(const LoadReport&, std::span<const SdtaComponent* const>);
template std::set<std::wstring> supersededParts<AsrComponent>(const LoadReport&,
                                                              std::span<const AsrComponent* const>);

template <class Record>
std::size_t droppedLines(const LoadReport& report, std::span<const Record* const> records) {
    std::size_t lines = report.drops();
    const auto superseded = supersededParts(report, records);
    for (const KeptLine& line : report.keptLines)
        lines += superseded.contains(line.part) ? 1 : 0;
    return lines;
}

template std::size_t droppedLines<SdtaComponent>(const LoadReport&,
                                                 std::span<const SdtaComponent* const>);
template std::size_t droppedLines<AsrComponent>(const LoadReport&,
                                                std::span<const AsrComponent* const>);

template <class Record>
FormattedLibrary formatLibrary(const CPartwrightPlugInApp& app,
                               std::span<const Record* const> records, std::wstring_view path,
                               TextForm form, const LoadReport& report) {
    LibraryFormatter<Record> formatter(app, form, records.size());
    FormattedLibrary result;
    formatter.banner(path);
    std::optional<std::int32_t> group;
    for (const Record* record : records) {
        if (!Dialect<Record>::writesDeleted && record->group < 0)
            continue;
        if (group != record->group)
            formatter.groupStart(record->group);
        group = record->group;
        if (!formatter.row(*record)) {
            result.encodable = false;
            result.part = record->PartNum;
            result.column = formatter.failedColumn();
            return result;
        }
    }
    const auto superseded = supersededParts(report, records);
    for (const KeptLine& line : report.keptLines)
        if (!superseded.contains(line.part))
            formatter.kept(line.bytes, report.codePage);
    formatter.end();
    result.bytes = formatter.take();
    // Characters of the old code page that happen to read as UTF-8 would come back as others.
    if (form.codePage == CodePage::Windows1252 && !isAscii(result.bytes) &&
        detectCodePage(result.bytes) == CodePage::Utf8)
        return formatLibrary<Record>(app, records, path, {CodePage::Utf8, form.lineEnd}, report);
    if (formatter.hasForeignBytes())
        result.bytes = keptReadable(std::move(result.bytes));
    return result;
}

template FormattedLibrary formatLibrary<SdtaComponent>(const CPartwrightPlugInApp&,
                                                       std::span<const SdtaComponent* const>,
                                                       std::wstring_view, TextForm,
                                                       const LoadReport&);
template FormattedLibrary formatLibrary<AsrComponent>(const CPartwrightPlugInApp&,
                                                      std::span<const AsrComponent* const>,
                                                      std::wstring_view, TextForm,
                                                      const LoadReport&);

SaveResult SaveSdtaLibrary(CPartwrightPlugInApp& app, std::span<const SdtaComponent* const> records,
                           std::wstring_view path, SaveChoices choices) {
    return saveLibrary<SdtaComponent>(
        app, records, path.empty() ? app.paths.sdtaLibraryPath : std::wstring(path), choices);
}

SaveResult SaveAnalysesLibrary(CPartwrightPlugInApp& app,
                               std::span<const AsrComponent* const> records, std::wstring_view path,
                               SaveChoices choices) {
    return saveLibrary<AsrComponent>(
        app, records, path.empty() ? app.paths.asrLibraryPath : std::wstring(path), choices);
}

std::wstring GroupHeaderRow(const CPartwrightPlugInApp& app, std::int32_t group) {
    return headerText<SdtaComponent>(app, group);
}

std::wstring ComponentRow(const CPartwrightPlugInApp& app, const SdtaComponent& record) {
    return rowText(app, record);
}

std::wstring AnalysesGroupHeaderRow(const CPartwrightPlugInApp& app, std::int32_t group) {
    return headerText<AsrComponent>(app, group);
}

std::wstring AnalysesComponentRow(const CPartwrightPlugInApp& app, const AsrComponent& record) {
    return rowText(app, record);
}

} // namespace partwright
