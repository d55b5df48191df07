#pragma once

// Looks over the shoulder of the reader of a library and writes down what was not taken as it
// stands: lines that were left out, rows of which something is lost, and what speaks against
// writing the file back at all. It changes nothing of what is read.
//
// Columns and group names are judged by section, the rows below one header row. Where no row of a
// section fits its header, or none has a known group, a table of groups is at fault or the file is
// of another version, and the library must not be written back. A single row among others that fit
// is a slip in that row.

#include "core/load_report.h"
#include "core/vocabulary.h"
#include "library/row_cells.h"
#include "library/text_table.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace partwright {

using HeaderNames = std::array<std::string, maximumCells>;

/// What a row that became a record says beside it.
struct TakenRow {
    /// As it stands in the file, and where it begins in the text that was read.
    std::string_view line;
    const char* start = nullptr;
    RowCells::End end = RowCells::End::Mark;
    /// 0 for a row without a group that is known.
    std::int32_t group = 0;
    std::wstring_view groupName;
    Names columns;
    /// The cell names a group, and there is none of that name.
    bool unknownGroup = false;
    bool unknownType = false;
    bool foreignBytes = false;
    /// The line has backslashes in the file.
    bool backslashes = false;
    /// Only those of values are read as they are meant.
    bool encodesValues = false;
};

class LoadObserver {
public:
    LoadObserver(const RowCells& row, char separator, CodePage codePage)
        : row_(row), separator_(separator), codePage_(codePage) {
        report_.codePage = codePage;
    }

    void startLine() { ++line_; }
    [[nodiscard]] std::size_t line() const { return line_; }
    /// A fault graver than those of the content.
    void setFault(LibraryFault fault, std::wstring text) {
        report_.setFault(fault, std::move(text));
    }
    void header(std::string_view line, const HeaderNames& names);
    /// A line that is neither a row nor a header row; `mark` is its first field, `rest` the others.
    void otherLine(std::string_view line, std::optional<std::string_view> mark,
                   std::string_view rest);
    /// A header row or a data row that stands in the first line.
    void firstLine(bool isRow);
    void zeroBytes() { note(LoadCause::ZeroBytes, {}); }

    void leftOut(LoadCause cause, std::string_view line);
    void taken(const TakenRow& row);
    void repeated(LoadCause cause, std::size_t line, std::wstring part, std::size_t otherLine);

    /// The whole file was read.
    [[nodiscard]] LoadReport close(bool hasRecords);

private:
    struct Section {
        std::size_t headerLine = 0;
        bool namesColumns = false;
        bool anyFits = false;
        bool anyKnown = false;
        /// The first row that does not fit, and the first whose group is not known.
        std::wstring misfitGroup;
        std::size_t unknownLine = 0;
        std::wstring unknownName;
    };

    [[nodiscard]] std::optional<LoadCause> lossOf(const TakenRow& row);
    [[nodiscard]] bool fitsHeader(const TakenRow& row);
    [[nodiscard]] bool hasTextBackslash(const TakenRow& row) const;
    [[nodiscard]] bool isFrame(std::string_view mark, std::string_view rest);
    void closeSection();
    void note(LoadCause cause, std::wstring part, std::wstring name = {});
    [[nodiscard]] std::wstring partOf(std::string_view text) const;

    const RowCells& row_;
    char separator_;
    CodePage codePage_;
    LoadReport report_;
    std::string scratch_;
    std::size_t line_ = 0;
    HeaderNames names_;
    std::size_t makerAt_ = 0;
    std::size_t notesAt_ = 0;
    Section section_;
    /// The answer of fitsHeader for the group that was asked for last.
    std::int32_t askedGroup_ = -1;
    bool askedFits_ = false;
    std::size_t rows_ = 0;
    std::size_t boards_ = 0;
    bool hasContent_ = false;
    bool sawEnd_ = false;
    bool sawHalf_ = false;
    /// Of the first sections at fault.
    std::wstring wrongColumns_;
    std::size_t unknownGroupLine_ = 0;
    std::wstring unknownGroup_;
};

} // namespace partwright
