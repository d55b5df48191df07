#pragma once

// Searching a table for a row whose cell has a text.
//
//   "6_2_0_15"  ->  column 7, beginning with "15", forward

#include "editing/component_table.h"
#include "editing/table_outcome.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace partwright {

enum class TextMatch { Whole, Part, Beginning, Never };

struct TableQuery {
    /// Every visible column when there is none.
    std::optional<std::size_t> column;
    TextMatch match = TextMatch::Part;
    bool isBackward = false;
    bool ignoresCase = false;
    /// At the end the search goes on at the other one.
    bool wraps = false;
    std::wstring text;
};

/// "column_mode_direction_text": the column counted from 0 at the part number; mode 0 whole text,
/// 1 part of it, 2 its beginning; direction other than 0 backward.
[[nodiscard]] std::optional<TableQuery> parseQuery(std::wstring_view request);

class TableSearch {
public:
    struct Hit {
        CellAt at;
        bool isWrapped = false;
    };

    /// `rows` in the order on the screen. The current row is looked at last, and only by a search
    /// that wraps; without a current cell it starts where the last one ended.
    std::optional<Hit> find(const ComponentTable& table, const TableQuery& query,
                            std::optional<CellAt> current, std::span<const std::size_t> rows);

private:
    std::size_t start_ = 0;
};

} // namespace partwright
