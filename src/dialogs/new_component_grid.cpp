#include "dialogs/new_component_grid.h"

#include "dialogs/qt_text.h"
#include "validation/choice_list.h"

#include <QKeyEvent>

namespace partwright {

using grid::CellKind;
using grid::CellPos;
using grid::CellRange;

namespace {

struct ColumnLook {
    const char* header;
    /// In characters of the font.
    int width;
};

constexpr ColumnLook columns[] = {
    {"PartNum", 20}, {"CatNum", 14}, {"Description", 32},     {"BlockNumb", 17},    {"Family", 18},
    {"Group", 20},   {"Used", 12},   {"Datasheet (PDF)", 20}, {"Manufacturer", 18}, {"Notes", 13},
};

} // namespace

QString NewComponentCells::text(int row, int col) const {
    const NewComponentRow& line = this->row(row);
    switch (col) {
    case CNewComponentGrid::PartNumber:
        return qtText(line.part).trimmed();
    case CNewComponentGrid::CatalogNumber:
        return qtText(line.catalogNumber);
    case CNewComponentGrid::Description:
        return qtText(line.description);
    case CNewComponentGrid::Family:
        return qtText(line.family);
    case CNewComponentGrid::Group:
        return qtText(line.group);
    case CNewComponentGrid::Used:
        return qtText(line.used);
    case CNewComponentGrid::Datasheet:
        return qtText(line.datasheet);
    case CNewComponentGrid::Manufacturer:
        return qtText(line.manufacturer);
    case CNewComponentGrid::Notes:
        return qtText(line.notes);
    default:
        return {};
    }
}

const grid::CellStyle* NewComponentCells::style(int row, int col) const {
    if (col != CNewComponentGrid::Group)
        return nullptr;
    const auto [entry, added] = looks_.try_emplace(this->row(row).family);
    if (added) {
        entry->second.kind = CellKind::DropDown;
        for (const std::wstring& name : table_.groups(entry->first))
            entry->second.choices += qtText(name) + QLatin1Char('\n');
        entry->second.enabled = !entry->second.choices.isEmpty();
    }
    return &entry->second;
}

CNewComponentGrid::CNewComponentGrid(NewComponentTable& table,
                                     std::shared_ptr<grid::SortFlags> sortFlags, QWidget* parent)
    : CGridWnd(parent), table_(table), cells_(table) {
    setSortFlags(std::move(sortFlags));
    setSource(cells_);
    const grid::RedrawLock lock(*this);
    buildColumns();
    InsertRows(1, static_cast<int>(table_.rows().size()));
}

void CNewComponentGrid::buildColumns() {
    InsertCols(1, static_cast<int>(std::size(columns)));
    const int unit = fontMetrics().averageCharWidth();
    int col = 1;
    for (const ColumnLook& look : columns) {
        setText(0, col, QLatin1String(look.header));
        SetColWidth(col, col, look.width * unit);
        if (col != Family && col != Group)
            setColStyle(col, {.readOnly = true});
        ++col;
    }
    setColStyle(Datasheet, {.kind = CellKind::Link});
    ChoiceList families;
    for (const std::wstring& key : table_.families()) {
        const std::wstring_view shown = familyDisplayName(key);
        families.add(key, shown == key ? std::wstring_view() : shown);
    }
    setColStyle(Family, {.kind = CellKind::DropDown, .choices = qtText(families.text())});
}

void CNewComponentGrid::assign(int row, int col, const QString& text) {
    const int place = sourceRow(row);
    if (col == Family)
        table_.setFamily(static_cast<std::size_t>(place), engineText(text));
    else if (col == Group)
        table_.setGroup(static_cast<std::size_t>(place), engineText(text));
    sourceChanged(place);
}

bool CNewComponentGrid::validateCell(int row, int col, const QString& text) {
    assign(row, col, text);
    return true;
}

void CNewComponentGrid::pasteCell(int row, int col, const QString& text) {
    if (takes(row, col, text))
        assign(row, col, text);
}

void CNewComponentGrid::autoFillFinished(CellPos source, const CellRange& range) {
    const grid::RedrawLock lock(*this);
    const QString text = this->text(source.row, source.col);
    for (int row = range.top; row <= range.bottom; ++row)
        if (row != source.row && takes(row, source.col, text))
            assign(row, source.col, text);
}

bool CNewComponentGrid::doubleClick(int row, int col) {
    if (row == 0)
        return true;
    if (col != Datasheet || text(row, col).isEmpty())
        return false;
    Q_EMIT datasheetOpened(text(row, col));
    return true;
}

bool CNewComponentGrid::keyPressed(QKeyEvent* event) {
    if (event->key() != Qt::Key_Delete)
        return false;
    deleteKey();
    return true;
}

void CNewComponentGrid::deleteKey() {
    if (const auto current = currentCell(); current && current->col == Datasheet) {
        const int place = sourceRow(current->row);
        table_.clearDatasheet(static_cast<std::size_t>(place));
        sourceChanged(place);
        return;
    }
    std::vector<std::size_t> places;
    for (const int row : selectedRows())
        places.push_back(static_cast<std::size_t>(sourceRow(row)));
    const std::vector<std::size_t> gone = table_.deleteRows(std::move(places));
    if (!gone.empty())
        sourceReshaped({gone.begin(), gone.end()}, {});
}

} // namespace partwright
