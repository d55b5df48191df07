#pragma once

// The table of parts without a group: the user chooses a family and a group for each, and may
// delete parts that the project does not use. All else is only shown.
//
// Rows move when they are sorted and go when they are deleted; each keeps the key that the grid
// gave it, and by it the table's row is found. Every way of changing a cell, the list, a paste and
// a fill, ends in the table's own verbs, and the cell shows what the table made of it.

#include "editing/new_component_session.h"
#include "grid/grid_window.h"

#include <map>
#include <memory>
#include <unordered_map>
#include <vector>

namespace partwright {

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
    void cellCommitted(int row, int col, const QString& before) override;
    bool doubleClick(int row, int col) override;
    bool keyPressed(QKeyEvent* event) override;

private:
    void buildColumns();
    void fillRows();
    /// Of the table, by the row of the grid.
    [[nodiscard]] std::size_t placeOf(int row) const { return places_.at(rowKey(row)); }
    void rebuildPlaces();
    void assign(int row, int col, const QString& text);
    void showChoices(int row);
    [[nodiscard]] const QString& groupChoices(const std::wstring& family);
    void deleteKey();

    NewComponentTable& table_;
    /// By place in the table.
    std::vector<grid::RowKey> keys_;
    std::unordered_map<grid::RowKey, std::size_t> places_;
    std::map<std::wstring, QString> groupChoices_;
};

} // namespace partwright
