#include "grid/grid_accessible.h"

#include "grid/grid_window.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QHash>
#include <QPointer>

namespace partwright::grid {

namespace {

class GridAccessible;

/// Children of the table are numbered row by row, headers included.
int indexOf(const CGridWnd& grid, CellPos pos) {
    return pos.row * (grid.colCount() + 1) + pos.col;
}

class CellAccessible : public QAccessibleInterface, public QAccessibleTableCellInterface {
public:
    CellAccessible(CGridWnd* grid, CellPos pos) : grid_(grid), pos_(pos) {}

    [[nodiscard]] CellPos pos() const { return pos_; }

    bool isValid() const override { return grid_ && grid_->exists(pos_.row, pos_.col); }
    QObject* object() const override { return nullptr; }
    QAccessibleInterface* parent() const override {
        return QAccessible::queryAccessibleInterface(grid_);
    }
    QAccessibleInterface* child(int) const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    void setText(QAccessible::Text, const QString&) override {}
    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::TableCellInterface
                   ? static_cast<QAccessibleTableCellInterface*>(this)
                   : nullptr;
    }

    QAccessible::Role role() const override {
        if (pos_.row == 0)
            return QAccessible::ColumnHeader;
        return pos_.col == 0 ? QAccessible::RowHeader : QAccessible::Cell;
    }

    QString text(QAccessible::Text kind) const override {
        if (!isValid())
            return {};
        if (kind == QAccessible::Name || kind == QAccessible::Value)
            return grid_->controlText(pos_.row, pos_.col);
        if (kind != QAccessible::Description || pos_.row == 0 || pos_.col == 0)
            return {};
        QString said = CGridWnd::tr("%1, row %2").arg(grid_->text(0, pos_.col)).arg(pos_.row);
        if (const QString mark = grid_->markText(pos_.row, pos_.col); !mark.isEmpty())
            said += QStringLiteral(". ") + mark;
        return said;
    }

    QRect rect() const override {
        if (!isValid())
            return {};
        const QRect area = grid_->cellRect(pos_.row, pos_.col);
        return {grid_->viewport()->mapToGlobal(area.topLeft()), area.size()};
    }

    QAccessible::State state() const override {
        QAccessible::State state;
        if (!isValid()) {
            state.invalid = true;
            return state;
        }
        const CellStyle& look = grid_->cellStyle(pos_.row, pos_.col);
        const QRect area = grid_->cellRect(pos_.row, pos_.col);
        state.invisible = area.isEmpty();
        state.offscreen = !area.intersects(grid_->viewport()->rect());
        if (pos_.row == 0 || pos_.col == 0)
            return state;
        state.selectable = true;
        state.focusable = true;
        state.selected = grid_->isSelected(pos_.row, pos_.col);
        state.focused = grid_->hasFocus() && grid_->currentCell() == pos_;
        state.disabled = !look.enabled;
        state.readOnly = !grid_->isEditable(pos_.row, pos_.col);
        state.editable = !state.readOnly;
        state.hasPopup = look.kind == CellKind::DropDown;
        state.linked = look.kind == CellKind::Link;
        state.checkable = look.kind == CellKind::CheckBox;
        state.checked = state.checkable && grid_->text(pos_.row, pos_.col) == QLatin1String("1");
        return state;
    }

    bool isSelected() const override { return grid_ && grid_->isSelected(pos_.row, pos_.col); }
    int columnIndex() const override { return pos_.col - 1; }
    int rowIndex() const override { return pos_.row - 1; }
    int columnExtent() const override { return 1; }
    int rowExtent() const override { return 1; }
    QAccessibleInterface* table() const override { return parent(); }
    QList<QAccessibleInterface*> columnHeaderCells() const override {
        return {parent()->child(indexOf(*grid_, {0, pos_.col}))};
    }
    QList<QAccessibleInterface*> rowHeaderCells() const override {
        return {parent()->child(indexOf(*grid_, {pos_.row, 0}))};
    }

private:
    QPointer<CGridWnd> grid_;
    CellPos pos_;
};

class GridAccessible : public QAccessibleWidget, public QAccessibleTableInterface {
public:
    explicit GridAccessible(CGridWnd* grid)
        : QAccessibleWidget(grid, QAccessible::Table), grid_(*grid) {}
    ~GridAccessible() override { forget(); }

    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::TableInterface ? static_cast<QAccessibleTableInterface*>(this)
                                                   : QAccessibleWidget::interface_cast(type);
    }

    int childCount() const override { return (grid_.rowCount() + 1) * (grid_.colCount() + 1); }
    QAccessibleInterface* child(int index) const override {
        if (index < 0 || index >= childCount())
            return nullptr;
        auto id = cells_.constFind(index);
        if (id == cells_.cend()) {
            const int across = grid_.colCount() + 1;
            auto* const made = new CellAccessible(&grid_, {index / across, index % across});
            id = cells_.insert(index, QAccessible::registerAccessibleInterface(made));
        }
        return QAccessible::accessibleInterface(*id);
    }
    QAccessibleInterface* childAt(int x, int y) const override {
        const auto pos = grid_.cellAt(grid_.viewport()->mapFromGlobal(QPoint(x, y)));
        return pos ? child(indexOf(grid_, *pos)) : nullptr;
    }
    int indexOfChild(const QAccessibleInterface* cell) const override {
        const auto* const ours = dynamic_cast<const CellAccessible*>(cell);
        return ours != nullptr ? indexOf(grid_, ours->pos()) : -1;
    }
    QAccessibleInterface* focusChild() const override {
        const auto current = grid_.currentCell();
        return current && grid_.hasFocus() ? child(indexOf(grid_, *current)) : nullptr;
    }

    QAccessibleInterface* caption() const override { return nullptr; }
    QAccessibleInterface* summary() const override { return nullptr; }
    QAccessibleInterface* cellAt(int row, int col) const override {
        return row >= 0 && row < rowCount() && col >= 0 && col < columnCount()
                   ? child(indexOf(grid_, {row + 1, col + 1}))
                   : nullptr;
    }
    int rowCount() const override { return grid_.rowCount(); }
    int columnCount() const override { return grid_.colCount(); }
    QString columnDescription(int col) const override { return grid_.text(0, col + 1); }
    QString rowDescription(int row) const override { return grid_.text(row + 1, 0); }

    QList<QAccessibleInterface*> selectedCells() const override {
        QList<QAccessibleInterface*> cells;
        for (const CellRange& range : grid_.selection()) {
            const CellRange area = range.within({1, 1, grid_.rowCount(), grid_.colCount()});
            for (int row = area.top; row <= area.bottom; ++row)
                for (int col = area.left; col <= area.right; ++col)
                    cells.append(child(indexOf(grid_, {row, col})));
        }
        return cells;
    }
    int selectedCellCount() const override {
        int count = 0;
        for (const CellRange& range : grid_.selection()) {
            const CellRange area = range.within({1, 1, grid_.rowCount(), grid_.colCount()});
            if (!area.empty())
                count += (area.bottom - area.top + 1) * (area.right - area.left + 1);
        }
        return count;
    }
    QList<int> selectedRows() const override {
        QList<int> rows;
        for (const int row : grid_.selectedRows())
            rows.append(row - 1);
        return rows;
    }
    int selectedRowCount() const override { return static_cast<int>(grid_.selectedRows().size()); }
    QList<int> selectedColumns() const override {
        QList<int> cols;
        for (int col = 0; col < columnCount(); ++col)
            if (isColumnSelected(col))
                cols.append(col);
        return cols;
    }
    int selectedColumnCount() const override { return static_cast<int>(selectedColumns().size()); }
    bool isRowSelected(int row) const override { return grid_.isRowSelected(row + 1); }
    bool isColumnSelected(int col) const override {
        for (const CellRange& range : grid_.selection())
            if (range.top <= 1 && range.bottom >= grid_.rowCount() &&
                range.contains(range.top, col + 1))
                return true;
        return false;
    }
    bool selectRow(int row) override {
        grid_.selectRows(row + 1, row + 1);
        return true;
    }
    bool selectColumn(int col) override {
        grid_.selectRange(CellRange::column(col + 1));
        return true;
    }
    bool unselectRow(int) override {
        grid_.clearSelection();
        return true;
    }
    bool unselectColumn(int) override {
        grid_.clearSelection();
        return true;
    }
    void modelChange(QAccessibleTableModelChangeEvent*) override { forget(); }

private:
    void forget() {
        for (const QAccessible::Id id : std::as_const(cells_))
            QAccessible::deleteAccessibleInterface(id);
        cells_.clear();
    }

    CGridWnd& grid_;
    mutable QHash<int, QAccessible::Id> cells_;
};

QAccessibleInterface* makeAccessible(const QString&, QObject* object) {
    auto* const grid = dynamic_cast<CGridWnd*>(object);
    return grid != nullptr ? new GridAccessible(grid) : nullptr;
}

} // namespace

void installGridAccessibility() {
    QAccessible::installFactory(makeAccessible);
}

void announceCurrentCell(CGridWnd& grid, CellPos pos) {
    if (!QAccessible::isActive() || !grid.hasFocus())
        return;
    QAccessibleEvent event(&grid, QAccessible::Focus);
    event.setChild(indexOf(grid, pos));
    QAccessible::updateAccessibility(&event);
}

} // namespace partwright::grid
