#pragma once

// What a reader could not take of a file as it stands there: the lines it left out, and those of
// which it took something else. It goes beside the records, so that a save can keep these lines on
// the disk, ask before it drops them, or refuse.
//
//   LoadReport report;
//   report.add({40, LoadCause::TooLong, L"R-10K"});
//   report.keep({bytes of line 40});
//   report.close();
//
// The list is bounded; what goes beyond is counted. A line stands in it once, with its gravest
// cause.

#include "core/encoding.h"

#include <cstddef>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace partwright {

/// Why a file that was read must not be written back.
enum class LibraryFault {
    None,
    /// Data rows were met while no group name was known.
    NoGroupNames,
    /// The file is there and could not be read.
    Unreadable,
    /// There is content, and nothing of it was understood.
    NotUnderstood,
    /// The columns of a header row are not those of the group below it.
    WrongColumns,
    /// The table that names the groups leaves one out, or lacks one that the file has.
    GroupTable,
};

enum class LoadCause {
    TooLong,
    OtherKind,
    Malformed,
    NoPartNumber,
    /// The part stands again further below.
    Repeated,
    /// Another row has the same part number in capitals.
    CaseTwin,
    UnknownGroup,
    UnknownType,
    WrongCellCount,
    /// The header row above has the columns of another group.
    OtherHeader,
    /// No header row says where maker and notes stand.
    NoHeader,
    /// A field in the middle could not be read, nor what stands behind it.
    RefusedField,
    /// The cell for a colour, which no record keeps, is filled.
    Colour,
    FirstLine,
    /// Half a row at the end of the file.
    Torn,
    NoEnd,
    ZeroBytes,
    Board,
    /// Bytes of another code page.
    ForeignBytes,
    /// A backslash in a text was read as a hyphen.
    Backslash,
    BehindEnd,
    /// A line of the link table that is no link.
    NoLink,
};

/// What the next save does with the line.
enum class LoadFate {
    /// Writes it back as it stands.
    Kept,
    /// Writes less than stands there, and asks first.
    Dropped,
    /// Writes what was read; nothing that counts is lost.
    Told,
};

[[nodiscard]] LoadFate fateOf(LoadCause cause);

struct LoadEntry {
    /// From 1; 0 for a line that a save has moved.
    std::size_t line = 0;
    LoadCause cause = LoadCause::Malformed;
    /// As far as it could be read, as the key that it would be.
    std::wstring part = {};
    /// The name that is not known.
    std::wstring name = {};
    /// The line in which the part stands again.
    std::size_t otherLine = 0;
};

/// A line that a save writes back.
struct KeptLine {
    std::string bytes;
    /// Part number of a row that leaves the file once the part has a record; else empty.
    std::wstring part = {};
};

class LoadReport {
public:
    static constexpr std::size_t maximumEntries = 1000;

    LibraryFault fault = LibraryFault::None;
    /// The fault in words.
    std::wstring faultText;
    /// Of the kept lines.
    CodePage codePage = CodePage::Utf8;
    std::vector<KeptLine> keptLines;
    /// Whoever works with the file agreed beforehand to what a save drops.
    bool dropsAllowed = false;

    void add(LoadEntry entry);
    /// Brings the entries in the order of their lines and within the bound.
    void close();
    /// The file was written: of the lines only those stand in it that were kept, at its end, but
    /// for those of the named parts.
    void fileWritten(const std::set<std::wstring>& superseded = {});
    void setFault(LibraryFault found, std::wstring text);

    [[nodiscard]] const std::vector<LoadEntry>& entries() const { return entries_; }
    /// Those beyond the bound included.
    [[nodiscard]] std::size_t count() const { return count_; }
    /// How many lines a save would drop.
    [[nodiscard]] std::size_t drops() const { return drops_; }
    /// How many lines the records alone do not give back.
    [[nodiscard]] std::size_t losses() const { return losses_; }

private:
    std::vector<LoadEntry> entries_;
    std::size_t count_ = 0;
    std::size_t drops_ = 0;
    std::size_t losses_ = 0;
};

} // namespace partwright
