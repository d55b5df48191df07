#pragma once

// What the table check hands back: one place in one file, and what is wrong there.

#include "library/rule_table.h"

#include <string>
#include <string_view>
#include <vector>

namespace partwright {

struct TableFinding {
    /// File name without its folder.
    std::wstring file;
    /// From 1; 0 for the file as a whole.
    std::size_t line = 0;
    /// Empty for the row as a whole.
    std::wstring column;
    std::wstring text;
};

/// Findings of one file under check.
class Findings {
public:
    Findings(std::vector<TableFinding>& all, std::wstring_view path);

    void add(std::size_t line, std::wstring_view column, std::wstring text);
    [[nodiscard]] const std::wstring& file() const { return file_; }

private:
    std::vector<TableFinding>& all_;
    std::wstring file_;
};

/// Reads a table for checking. A file that is missing or cannot be opened, and a column that is
/// missing, are findings; then the table has no rows. A table without rows is one where it must
/// have some.
enum class Rows { MustBe, MayBe };
[[nodiscard]] RuleTable openForCheck(std::wstring_view path, const RuleTableForm& form,
                                     Findings& findings, Rows rows = Rows::MustBe);

/// A cell that must hold a decimal integer; findings tell when it does not.
[[nodiscard]] std::optional<std::int32_t> integerCell(const RuleRow& row, std::wstring_view column,
                                                      Findings& findings);

template <class Integer>
[[nodiscard]] std::wstring number(Integer value) {
    return std::to_wstring(value);
}

/// Text from pieces.
[[nodiscard]] std::wstring say(std::initializer_list<std::wstring_view> pieces);

} // namespace partwright
