#pragma once

// A component table as the cells of a grid: what a TableSession holds, in the toolkit's words.

#include "editing/table_session.h"
#include "grid/cell_source.h"

#include <QHash>
#include <map>
#include <set>
#include <tuple>
#include <utility>

namespace partwright {

class TableCells final : public grid::CellSource {
public:
    explicit TableCells(TableSession& session) : session_(session) {}

    /// The look of most cells of a column.
    [[nodiscard]] grid::StyleChange columnLook(std::size_t column) const;
    /// The list of the cell was opened: from now on it is set apart from those not looked at.
    void listEntered(CellAt at);
    /// The row whose type the tips of the headers speak about.
    void setTypeRow(std::size_t row) { typeRow_ = row; }

    [[nodiscard]] QString text(int row, int col) const override;
    [[nodiscard]] const grid::CellStyle* style(int row, int col) const override;
    [[nodiscard]] QString markText(int row, int col) const override;
    [[nodiscard]] QString tip(int row, int col) const override;
    [[nodiscard]] QString headerTip(int col) const override;

private:
    /// Column, enabled, list, italic.
    using LookKey = std::tuple<std::size_t, bool, const ChoiceList*, bool>;

    [[nodiscard]] static CellAt cell(int row, int col) {
        return {static_cast<std::size_t>(row), static_cast<std::size_t>(col)};
    }
    [[nodiscard]] QString choiceText(const ChoiceList* list) const;
    [[nodiscard]] bool isEntered(CellAt at) const;

    TableSession& session_;
    std::size_t typeRow_ = 0;
    /// Part and column.
    std::set<std::pair<std::wstring, std::size_t>> entered_;
    mutable QHash<const ChoiceList*, QString> choiceTexts_;
    mutable std::map<LookKey, grid::CellStyle> looks_;
};

} // namespace partwright
