#pragma once

// The open editor of a grid: opening it over the current cell, following its row, committing and
// dropping its text. CGridWnd's head tells what happens to a text.

#include "grid/cell_editor.h"
#include "grid/cell_range.h"
#include "grid/grid_rows.h"

#include <QString>
#include <optional>

namespace partwright::grid {

class CGridWnd;

class GridEdit final : private EditorHost {
public:
    enum class Start { WithText, Empty };

    explicit GridEdit(CGridWnd& grid) : grid_(grid) {}

    /// False when the current cell cannot be edited. `typed` is the first key.
    bool open(Start start, const QString& typed = {});
    bool commit();
    void cancel();
    /// Under a drop-down's editor; `typed` starts the search.
    void openList(const QString& typed);

    [[nodiscard]] bool isOpen() const { return edit_.has_value(); }
    [[nodiscard]] bool hasList() const { return edit_ && edit_->editor->isDropDown(); }
    [[nodiscard]] std::optional<CellPos> cell() const;
    [[nodiscard]] CellEditor* editor() const { return edit_ ? edit_->editor : nullptr; }
    void setText(const QString& text);

    /// The cells are elsewhere on the screen.
    void place();
    /// Rows came, went or moved: the editor goes with its row.
    void followRow();

private:
    struct Edit {
        RowKey key = 0;
        int row = 0;
        int col = 0;
        /// The text was typed over the cell: Left and Right leave it.
        bool typedOver = false;
        CellEditor* editor = nullptr;
    };

    void close();
    void announceModified();
    bool editorKey(QKeyEvent* event) override;
    void editorTextChanged() override;
    void choiceMade(const QString& name) override;
    void choiceDropped() override;

    CGridWnd& grid_;
    std::optional<Edit> edit_;
    bool announcing_ = false;
};

} // namespace partwright::grid
