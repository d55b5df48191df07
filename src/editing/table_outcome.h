#pragma once

// What a verb of a table session asks its dialog to show; the session itself never speaks. A dialog
// applies it in this order: cells and rows, the description line, current cell and selection, the
// editor, and last the boxes, so that a box speaks about what is on the screen.
//
// A verb that must ask first has done nothing and says so by its question. It is called again when
// the answer is Yes:
//
//   TableOutcome outcome = session.ok(order, links);
//   if (show(outcome))                                  // OutcomeBoxes::show
//       show(outcome = session.ok(order, links, Consent::Given));

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

/// The user said Yes to the question that the verb asks first.
enum class Consent { NotAsked, Given };

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
    /// What is to be asked with Yes and No before the verb goes on.
    std::optional<std::wstring> question;
};

/// The one way in which outcomes reach the user. One for each table on the screen.
class OutcomeBoxes {
public:
    explicit OutcomeBoxes(Prompt& prompt) : prompt_(prompt) {}

    /// Shows the boxes, then the question. True when that was answered with Yes.
    bool show(const TableOutcome& outcome);

private:
    Prompt& prompt_;
    bool isFaultBoxOpen_ = false;
};

} // namespace partwright
