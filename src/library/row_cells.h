#pragma once

// The cells of one data row of a library, as bytes. Rows come from spreadsheets, scripts and hands,
// so a quote too many must not cost the rest of the row: a field that the scanner refuses is taken,
// when it began with three quotes, up to the next three that end a cell, and a bare one up to the
// separator. What the scanner takes is never taken otherwise.
//
//   """5" pipe"""          ->  "5" pipe"          (inner quotes stand as they are)
//   """CONN 2", RA"""      ->  "CONN 2", RA"      (one cell, although a separator follows a quote)
//   5" Corp                ->  5" Corp
//
// Cells that the row does not reach are empty.

#include "core/encoding.h"
#include "library/text_table.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace partwright {

class RowCells {
public:
    enum class End {
        /// The mark of a row's end stands there.
        Mark,
        /// The line ends without it, or there are more cells than a row can have.
        Line,
        /// A field could not be read, or taken in any other way.
        Refused,
        TooLong,
        OtherKind,
    };

    RowCells(char separator, CodePage codePage, std::string rowKind)
        : separator_(separator), codePage_(codePage), rowKind_(std::move(rowKind)) {}

    /// Reads the row behind its mark. The cells live as long as the text and this object.
    End read(std::string_view row);
    [[nodiscard]] std::size_t count() const { return count_; }
    [[nodiscard]] std::string_view operator[](std::size_t cell) const { return cells_[cell]; }
    /// Where a cell begins in the text; the one behind the last counts as well.
    [[nodiscard]] const char* start(std::size_t cell) const { return starts_[cell]; }

    /// Reads up to a cell whatever speaks against the row, for a row that read() gave up before.
    void readOn(std::string_view row, std::size_t cell);

private:
    End scan(std::string_view row);
    void store(std::string_view field);
    [[nodiscard]] std::optional<std::string_view> mended(std::string_view from,
                                                         std::string_view& cursor);
    [[nodiscard]] std::optional<std::size_t> openCell() const;
    [[nodiscard]] std::size_t closingQuotes(std::string_view text) const;
    [[nodiscard]] bool isTooLong(std::string_view field) const;

    char separator_;
    CodePage codePage_;
    std::string rowKind_;
    std::size_t count_ = 0;
    /// Cells up to here may hold something of the row before.
    std::size_t filled_ = 0;
    /// A cell is a view of the text, or of its copy where quotes had to be removed.
    std::array<std::string_view, maximumCells> cells_;
    std::array<const char*, maximumCells + 1> starts_{};
    /// The last three quotes that ended a cell which had to be mended.
    const char* lastClosing_ = nullptr;
    std::array<std::string, maximumCells> copies_;
    std::string scratch_;
};

} // namespace partwright
