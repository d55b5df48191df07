#pragma once

// What a check found wrong, and where: the one answer of every check of this program. A check that
// finds nothing answers std::nullopt.
//
//   one cell             texts and a line; who asked knows which cell it is
//   a pass over a table  the rows at fault, and the position of the cell that the words are about
//   a report             the same with the name of the rule
//   a table file         the number of the line in the place of the row
//
// A user meets a finding in two ways: the line below the table, which stays, and boxes, which stop
// the work. A check says which of its words goes which way; it never speaks itself.

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace partwright {

struct Finding {
    /// The check that found it, by a name that lives as long as the program.
    std::wstring_view rule = {};
    /// Indices of the rows at fault, as the caller counts them.
    std::vector<std::size_t> rows = {};
    /// The cell of the first row that the words are about, counted behind the Type; 0 when they are
    /// about the row as a whole.
    std::size_t position = 0;
    /// New text of the line below the table; none leaves the line as it is.
    std::optional<std::wstring> line = {};
    /// A fault of the rule tables themselves, told in a box.
    std::wstring tableFault = {};
    /// Boxes, one after the other.
    std::vector<std::wstring> texts = {};

    [[nodiscard]] bool leadsToCell() const { return position != 0; }
    /// What a report says in one text: what made the check impossible, or else the line, or else
    /// the first box.
    [[nodiscard]] std::wstring_view summary() const {
        if (!tableFault.empty())
            return tableFault;
        if (line && !line->empty())
            return *line;
        return texts.empty() ? std::wstring_view() : texts.front();
    }
};

/// A finding of one box.
[[nodiscard]] inline Finding refusal(std::wstring_view text, std::size_t position = 0) {
    return {.position = position, .texts = {std::wstring(text)}};
}
/// The same of a check that answers with a message, empty when all is well.
[[nodiscard]] inline std::optional<Finding> refusalUnless(std::wstring_view message,
                                                          std::size_t position = 0) {
    return message.empty() ? std::nullopt : std::optional(refusal(message, position));
}

/// The answer of a rule that is for some cells only.
struct CellAnswer {
    /// The rule is for this cell.
    bool isJudged = false;
    std::optional<Finding> finding = {};

    [[nodiscard]] bool isValid() const { return isJudged && !finding; }
};

} // namespace partwright
