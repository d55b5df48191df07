#include "dialogs/new_component_grid.h"

#include "dialogs/qt_text.h"
#include "validation/choice_list.h"

#include <QKeyEvent>
#include <algorithm>

namespace partwright {

using grid::CellKind;
using grid::CellPos;
using grid::CellRange;
using grid::Redraw;

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

CNewComponentGrid::CNewComponentGrid(NewComponentTable& table,
                                     std::shared_ptr<grid::SortFlags> sortFlags, QWidget* parent)
    : CGridWnd(parent), table_(table) {
    setSortFlags(std::move(sortFlags));
    const grid::RedrawLock lock(*this);
    buildColumns();
    fillRows();
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
    setColStyle(Group, {.kind = CellKind::DropDown, .enabled = false});
}

void CNewComponentGrid::fillRows() {
    InsertRows(1, static_cast<int>(table_.rows().size()));
    int row = 1;
    for (const NewComponentRow& line : table_.rows()) {
        keys_.push_back(rowKey(row));
        const auto put = [&](Column col, const std::wstring& text) {
            if (!text.empty())
                setText(row, col, qtText(text), Redraw::Later);
        };
        setText(row, PartNumber, qtText(line.part).trimmed(), Redraw::Later);
        put(CatalogNumber, line.catalogNumber);
        put(Description, line.description);
        put(Used, line.used);
        put(Datasheet, line.datasheet);
        put(Manufacturer, line.manufacturer);
        put(Notes, line.notes);
        ++row;
    }
    rebuildPlaces();
    for (row = 1; row <= rowCount(); ++row)
        showChoices(row);
}

void CNewComponentGrid::rebuildPlaces() {
    places_.clear();
    for (std::size_t place = 0; place < keys_.size(); ++place)
        places_.emplace(keys_[place], place);
}

const QString& CNewComponentGrid::groupChoices(const std::wstring& family) {
    const auto [entry, added] = groupChoices_.try_emplace(family);
    if (added)
        for (const std::wstring& name : table_.groups(family))
            entry->second += qtText(name) + QLatin1Char('\n');
    return entry->second;
}

void CNewComponentGrid::showChoices(int row) {
    const NewComponentRow& line = table_.rows()[placeOf(row)];
    setText(row, Family, qtText(line.family));
    const QString& choices = groupChoices(line.family);
    SetStyleRange(CellRange::cell(row, Group),
                  {.value = qtText(line.group), .enabled = !choices.isEmpty(), .choices = choices});
}

void CNewComponentGrid::assign(int row, int col, const QString& text) {
    if (col == Family)
        table_.setFamily(placeOf(row), text.toStdWString());
    else if (col == Group)
        table_.setGroup(placeOf(row), text.toStdWString());
    showChoices(row);
}

void CNewComponentGrid::cellCommitted(int row, int col, const QString&) {
    assign(row, col, text(row, col));
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
        table_.clearDatasheet(placeOf(current->row));
        setText(current->row, Datasheet, QString());
        return;
    }
    const std::vector<int> rows = selectedRows();
    std::vector<std::size_t> places;
    places.reserve(rows.size());
    for (const int row : rows)
        places.push_back(placeOf(row));
    const std::vector<std::size_t> gone = table_.deleteRows(places);
    std::vector<int> goneRows;
    for (std::size_t i = 0; i < rows.size(); ++i)
        if (std::binary_search(gone.begin(), gone.end(), places[i]))
            goneRows.push_back(rows[i]);
    for (auto place = gone.rbegin(); place != gone.rend(); ++place)
        keys_.erase(keys_.begin() + static_cast<std::ptrdiff_t>(*place));
    rebuildPlaces();
    removeRowList(std::move(goneRows));
}

} // namespace partwright
