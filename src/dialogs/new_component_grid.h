#pragma once

// The table of parts without a group: the user chooses a family and a group for each, and may
// delete parts that the project does not use. All else is only shown.
//
// The grid's cells are those of the table. Every way of changing one, the list, a paste and a fill,
// ends in the table's own verbs, and the cell shows what the table made of it.

#include "editing/new_component_session.h"
#include "grid/cell_source.h"
#include "grid/grid_window.h"

#include <map>
#include <memory>

namespace partwright {

/// The rows of a NewComponentTable as the cells of a grid.
class NewComponentCells final : public grid::CellSource {
public:
    explicit NewComponentCells(const NewComponentTable& table) : table_(table) {}

    [[nodiscard]] QString text(int row, int col) const override;
    /// A group is chosen from those of the row's family.
    [[nodiscard]] const grid::CellStyle* style(int row, int col) const override;

private:
    [[nodiscard]] const NewComponentRow& row(int row) const {
        return table_.rows()[static_cast<std::size_t>(row)];
    }

    const NewComponentTable& table_;
    /// Of the group cells, by family.
    mutable std::map<std::wstring, grid::CellStyle> looks_;
};

class CNewComponentGrid : public grid::CGridWnd {
    Q_OBJECT

public:
    enum Column {
        PartNumber = 1,
        CatalogNumber,
        Description,
        BlockNumber,
        Family,
        Group,
        Used,
        Datasheet,
        Manufacturer,
        Notes,
    };

    CNewComponentGrid(NewComponentTable& table, std::shared_ptr<grid::SortFlags> sortFlags,
                      QWidget* parent = nullptr);

Q_SIGNALS:
    /// A data sheet was asked for.
    void datasheetOpened(const QString& file);

protected:
    void autoFillFinished(grid::CellPos source, const grid::CellRange& range) override;
    void pasteCell(int row, int col, const QString& text) override;
    bool validateCell(int row, int col, const QString& text) override;
    bool doubleClick(int row, int col) override;
    bool keyPressed(QKeyEvent* event) override;

private:
    void buildColumns();
    void assign(int row, int col, const QString& text);
    void deleteKey();

    NewComponentTable& table_;
    NewComponentCells cells_;
};

} // namespace partwright
