#include "library/load_observer.h"

#include "core/cell_text.h"
#include "core/messages.h"
#include "library/field_scanner.h"
#include "library/library_dialect.h"
#include "library/part_key.h"

#include <algorithm>

namespace partwright {

using namespace library_file;
using End = RowCells::End;

namespace {

/// Cells of a row behind its values: maker, notes and colour.
constexpr std::size_t behindValues = 3;
constexpr std::string_view makerName = "Manufacturer";
constexpr std::string_view notesName = "Notes";
constexpr std::string_view endOfFile = "End of File";

bool isEqual(std::string_view bytes, std::wstring_view ascii) {
    return std::equal(bytes.begin(), bytes.end(), ascii.begin(), ascii.end(),
                      [](char a, wchar_t b) { return a == static_cast<char>(b); });
}

/// Nothing but separators and blanks, in quotes or not: what a spreadsheet makes of an empty line.
bool isBlankLine(std::string_view line) {
    return std::all_of(line.begin(), line.end(),
                       [](char c) { return isFieldBlank(c) || c == ',' || c == ';' || c == '"'; });
}

} // namespace

void LoadObserver::header(std::string_view line, const HeaderNames& names) {
    closeSection();
    if (names[rowKind] != "PMET" && names[partNumber] != "PART#") // a remark that begins with "*"
        report_.keptLines.push_back({std::string(line), {}});
    names_ = names;
    makerAt_ = notesAt_ = 0;
    for (std::size_t i = firstValue; i < names.size(); ++i) {
        if (names[i] == makerName)
            makerAt_ = i;
        else if (names[i] == notesName)
            notesAt_ = i;
    }
    section_ = {};
    section_.headerLine = line_;
    section_.namesColumns = !names[typeName].empty();
    askedGroup_ = -1;
    hasContent_ = true;
}

bool LoadObserver::isFrame(std::string_view mark, std::string_view rest) {
    if (mark != "|")
        return false;
    const auto field = NextField(rest, separator_, scratch_);
    if (!field)
        return isBlankLine(rest);
    sawEnd_ = sawEnd_ || *field == endOfFile;
    return *field == endOfFile || field->starts_with("FLIB") || field->starts_with("File:") ||
           field->starts_with("Project:") || (field->empty() && isBlankLine(rest));
}

void LoadObserver::otherLine(std::string_view line, std::optional<std::string_view> mark,
                             std::string_view rest) {
    if (isBlankLine(line))
        return;
    hasContent_ = true;
    if (line.starts_with("sep="))
        return;
    if (!mark) {
        const auto first = std::find_if(line.begin(), line.end(),
                                        [](char c) { return !isFieldBlank(c) && c != '"'; });
        if (first != line.end() && *first == rowMark) {
            ++rows_;
            return note(LoadCause::Malformed, {});
        }
    } else if (isFrame(*mark, rest)) {
        return;
    }
    report_.keptLines.push_back({std::string(line), {}});
}

void LoadObserver::firstLine(bool isRow) {
    hasContent_ = true;
    rows_ += isRow ? 1 : 0;
    note(LoadCause::FirstLine, {});
}

void LoadObserver::leftOut(LoadCause cause, std::string_view line) {
    hasContent_ = true;
    ++rows_;
    boards_ += cause == LoadCause::Board ? 1 : 0;
    sawHalf_ = sawHalf_ || cause == LoadCause::Torn;
    std::wstring part = partOf(row_[partNumber]);
    if (fateOf(cause) == LoadFate::Kept)
        report_.keptLines.push_back(
            {std::string(line), cause == LoadCause::TooLong ? part : std::wstring()});
    note(cause, std::move(part));
}

void LoadObserver::taken(const TakenRow& row) {
    ++rows_;
    if (row.unknownGroup) {
        if (section_.unknownLine == 0) {
            section_.unknownLine = line_;
            section_.unknownName = decode(row_[groupName], codePage_);
        }
    } else {
        section_.anyKnown = true;
    }
    const auto loss = lossOf(row);
    if (!loss)
        return;
    std::wstring name;
    if (*loss == LoadCause::UnknownGroup || *loss == LoadCause::UnknownType)
        name = decode(row_[*loss == LoadCause::UnknownGroup ? groupName : typeName], codePage_);
    note(*loss, partOf(row_[partNumber]), std::move(name));
}

/// The gravest of what is lost of the row.
std::optional<LoadCause> LoadObserver::lossOf(const TakenRow& row) {
    const std::size_t maker = firstValue + row.columns.size();
    if (row.unknownGroup)
        return LoadCause::UnknownGroup;
    const bool fits = row.group == 0 || !section_.namesColumns || fitsHeader(row);
    if (row.end == End::Refused)
        return LoadCause::RefusedField;
    if (row.end != End::Mark || row_.count() != maker + behindValues)
        return LoadCause::WrongCellCount;
    if (!fits)
        return LoadCause::OtherHeader;
    if ((makerAt_ == 0 && !trimQuotes(row_[maker]).empty()) ||
        (notesAt_ == 0 && !trimQuotes(row_[maker + 1]).empty()))
        return LoadCause::NoHeader;
    if (row.unknownType)
        return LoadCause::UnknownType;
    if (!trimQuotes(row_[maker + 2]).empty())
        return LoadCause::Colour;
    if (row.foreignBytes)
        return LoadCause::ForeignBytes;
    if (row.backslashes && hasTextBackslash(row))
        return LoadCause::Backslash;
    if (sawEnd_)
        return LoadCause::BehindEnd;
    return std::nullopt;
}

bool LoadObserver::fitsHeader(const TakenRow& row) {
    if (askedGroup_ == row.group)
        return askedFits_;
    const std::size_t behind = firstValue + row.columns.size();
    bool fits = true;
    for (std::size_t i = 0; i < row.columns.size(); ++i)
        fits = fits && isEqual(names_[firstValue + i], row.columns[i]);
    // With neither name there is nothing to hold the row against but its columns.
    const std::size_t next = makerAt_ == 0   ? notesAt_
                             : notesAt_ == 0 ? makerAt_
                                             : std::min(makerAt_, notesAt_);
    fits = fits && (next == 0 || next == behind);
    askedGroup_ = row.group;
    askedFits_ = fits;
    section_.anyFits = section_.anyFits || fits;
    if (!fits && section_.misfitGroup.empty())
        section_.misfitGroup = row.groupName;
    return fits;
}

/// The backslashes of values of an Analyses library are hyphens by rule; everywhere else one that
/// is read as a hyphen is a change.
bool LoadObserver::hasTextBackslash(const TakenRow& row) const {
    if (!row.encodesValues)
        return true;
    const auto offset = [&](std::size_t cell) {
        return static_cast<std::size_t>(row_.start(cell) - row.start);
    };
    const auto holds = [](std::string_view text) {
        return text.find('\\') != std::string_view::npos;
    };
    return holds(row.line.substr(0, offset(firstValue))) ||
           holds(row.line.substr(offset(firstValue + row.columns.size())));
}

void LoadObserver::repeated(LoadCause cause, std::size_t line, std::wstring part,
                            std::size_t otherLine) {
    report_.add({line, cause, std::move(part), {}, otherLine});
}

void LoadObserver::note(LoadCause cause, std::wstring part, std::wstring name) {
    report_.add({line_, cause, std::move(part), std::move(name)});
}

std::wstring LoadObserver::partOf(std::string_view text) const {
    constexpr std::size_t enough = (cell::maximumLength + 2) * 4; // bytes, in UTF-8
    return asReadBack(decode(trimQuotes(text.substr(0, enough)), codePage_));
}

void LoadObserver::closeSection() {
    if (section_.namesColumns && !section_.anyFits && !section_.misfitGroup.empty() &&
        wrongColumns_.empty())
        wrongColumns_ = message::wrongColumns(section_.headerLine, section_.misfitGroup);
    if (section_.unknownLine != 0 && !section_.anyKnown && unknownGroupLine_ == 0) {
        unknownGroupLine_ = section_.unknownLine;
        unknownGroup_ = section_.unknownName;
    }
}

LoadReport LoadObserver::close(bool hasRecords) {
    closeSection();
    const bool isEmptyLibrary = sawEnd_ && rows_ == boards_;
    if (hasContent_ && !hasRecords && !isEmptyLibrary)
        report_.setFault(LibraryFault::NotUnderstood, std::wstring(message::fileNotUnderstood));
    if (!wrongColumns_.empty())
        report_.setFault(LibraryFault::WrongColumns, wrongColumns_);
    if (unknownGroupLine_ != 0)
        report_.setFault(LibraryFault::GroupTable,
                         message::groupNotInTable(unknownGroupLine_, unknownGroup_));
    if (hasContent_ && !sawEnd_ && !sawHalf_)
        note(LoadCause::NoEnd, {});
    report_.close();
    return std::move(report_);
}

} // namespace partwright
