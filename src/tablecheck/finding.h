#pragma once

// What the table check hands back: one place in one file, and what is wrong there.

#include "library/rule_table.h"
#include "validation/finding.h"

#include <string>
#include <string_view>
#include <vector>

namespace partwright {

struct TableFinding {
    /// File name without its folder.
    std::wstring file;
    /// Empty for the row as a whole.
    std::wstring column;
    /// Its row is the line, from 1; a finding about the file as a whole has none.
    Finding finding;

    [[nodiscard]] std::size_t line() const {
        return finding.rows.empty() ? 0 : finding.rows.front();
    }
};

/// Findings of one file under check.
class Findings {
public:
    Findings(std::vector<TableFinding>& all, std::wstring_view path);

    /// Line 0 is the file as a whole.
    void add(std::size_t line, std::wstring_view column, std::wstring_view text);
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
