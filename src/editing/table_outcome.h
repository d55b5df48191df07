#pragma once

// What a verb of a table session asks its dialog to show. A dialog applies it in this order: cells
// and rows, the description line, current cell and selection, the editor, and last the boxes, so
// that a box speaks about what is on the screen.

#include "core/ports/prompt.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace partwright {

struct CellAt {
    std::size_t row = 0;
    std::size_t column = 0;
    friend bool operator==(const CellAt&, const CellAt&) = default;
};

struct Box {
    std::wstring text;
    PromptIcon icon = PromptIcon::None;
    /// Tells a fault of the rule tables: while such a box is open no second one opens.
    bool isTableFault = false;
};

struct TableOutcome {
    /// False: the edit was refused and its editor stays open with its text; OK did not end.
    bool accepted = true;
    /// What the editor must show in place of its text.
    std::optional<std::wstring> editorText;
    /// New text of the description line.
    std::optional<std::wstring> line;
    /// Rows whose cells must be painted again, the row numbers being those after the verb.
    std::vector<std::size_t> changedRows;
    /// Row numbers before the verb, ascending.
    std::vector<std::size_t> removedRows;
    /// Row numbers after the verb, ascending.
    std::vector<std::size_t> insertedRows;
    /// The cell to make current and scroll to.
    std::optional<CellAt> current;
    /// Rows to select as a whole; the first is scrolled to.
    std::vector<std::size_t> selectedRows;
    std::vector<Box> boxes;
};

} // namespace partwright
