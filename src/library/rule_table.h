#pragma once

// Reads a rule table beside the program: a header line, found columns by name, then a row a line.
// Every loader of such a table goes through here; what differs is told by RuleTableForm.
//
//   constexpr std::wstring_view columns[] = {L"GroupID", L"LParID_ASR"};
//   const RuleTable table = readRuleTable(path, {.columns = columns});
//   for (const RuleRow& row : table.rows)
//       if (const auto group = row.code(L"GroupID")) ...

#include "core/text_file.h"
#include "library/load_result.h"
#include "library/text_table.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace partwright {

/// Group codes outside of this range are skipped wherever a table gives one.
inline constexpr std::int32_t firstGroupCode = 1;
inline constexpr std::int32_t lastGroupCode = 1000;

struct RuleTableForm {
    /// The columns that the reader wants.
    std::span<const std::wstring_view> columns;
    /// Lines that begin with "#" are no rows.
    bool comments = false;
    /// A "," is put behind each row before it is split, so that an empty last cell counts.
    bool closesRows = false;
    /// The first line that names all columns is the header, not line 1.
    bool searchesHeader = false;
    /// Quotes are doubled inside of quoted cells.
    bool doublesQuotes = false;
};

/// Column names of a table, sorted, with their places in its rows. A name that is asked for twice
/// stands once.
using RuleColumns = std::vector<std::pair<std::wstring, std::size_t>>;
[[nodiscard]] std::shared_ptr<const RuleColumns>
ruleColumnsOf(std::span<const std::wstring_view> names);

struct RuleRow {
    /// From 1, the header included.
    std::size_t line = 0;
    /// One for all rows of a table.
    std::shared_ptr<const RuleColumns> columns;
    /// In the order of the wanted columns.
    std::vector<std::optional<std::wstring>> cells;

    /// Null when the row does not reach the column, or the table has none of that name.
    [[nodiscard]] const std::wstring* find(std::wstring_view column) const;
    /// Empty when absent.
    [[nodiscard]] std::wstring text(std::wstring_view column) const;
    /// None when absent; a text that is no number reads as 0.
    [[nodiscard]] std::optional<std::int32_t> number(std::wstring_view column) const;
    /// A group code; none when absent or out of range.
    [[nodiscard]] std::optional<std::int32_t> code(std::wstring_view column) const;
};

struct RuleTable {
    FileStatus status = FileStatus::Absent;
    HeaderColumns header;
    std::vector<RuleRow> rows;
};

[[nodiscard]] RuleTable parseRuleTable(std::string_view bytes, CodePage codePage,
                                       const RuleTableForm& form);
/// Empty, with the file's status, when the file could not be read.
[[nodiscard]] RuleTable ruleTableOf(const TextFile& file, const RuleTableForm& form);
[[nodiscard]] RuleTable readRuleTable(std::wstring_view path, const RuleTableForm& form);

/// True when the file can be read and one of its lines is a header that names the column. A table
/// may stand without rows; without its header it is no table.
[[nodiscard]] bool hasHeader(std::wstring_view path, std::wstring_view column);

/// The result of a loader whose table was read: a table that cannot be opened is told of.
[[nodiscard]] LoadResult resultOf(FileStatus status, std::wstring_view path);
[[nodiscard]] LoadResult resultOf(const RuleTable& table, std::wstring_view path);

} // namespace partwright
