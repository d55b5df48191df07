#include "dialogs/table_cells.h"

#include "dialogs/qt_text.h"

namespace partwright {

using grid::CellKind;
using grid::CellStyle;
using grid::StyleChange;

namespace {

CellKind kindOf(const TableColumn& column) {
    switch (column.kind) {
    case ColumnKind::Datasheet:
        return CellKind::Link;
    case ColumnKind::PinLibrary:
    case ColumnKind::CalcOutput:
        return CellKind::CheckBox;
    default:
        return column.choices == ColumnChoices::None ? CellKind::Text : CellKind::DropDown;
    }
}

/// The lists that a row chooses for its parts, whatever the type is.
bool isOfEveryType(ColumnChoices choices) {
    return choices == ColumnChoices::At || choices == ColumnChoices::Package ||
           choices == ColumnChoices::Process;
}

} // namespace

StyleChange TableCells::columnLook(std::size_t at) const {
    const TableColumn& column = session_.setup().columns[at];
    StyleChange look{.kind = kindOf(column), .readOnly = column.isReadOnly()};
    if (column.choices == ColumnChoices::Type)
        look.choices = choiceText(&session_.setup().typeChoices);
    if (column.header.starts_with(L'$'))
        look.enabled = false;
    if (column.kind == ColumnKind::Full)
        look.align = Qt::AlignHCenter;
    return look;
}

void TableCells::listEntered(CellAt at) {
    if (isOfEveryType(session_.setup().columns[at.column].choices) &&
        !session_.table().type(at.row).empty())
        entered_.emplace(session_.table().text(at.row, partNumberColumn), at.column);
}

bool TableCells::isEntered(CellAt at) const {
    return !entered_.empty() &&
           entered_.contains({session_.table().text(at.row, partNumberColumn), at.column});
}

QString TableCells::choiceText(const ChoiceList* list) const {
    QString& text = choiceTexts_[list];
    if (text.isNull()) {
        text = qtText(list->text());
        text.chop(text.endsWith(QLatin1Char('\n')) ? 1 : 0);
    }
    return text;
}

QString TableCells::text(int row, int col) const {
    return col == 0 ? QString()
                    : qtText(session_.table().text(cell(row, col).row, cell(row, col).column));
}

const CellStyle* TableCells::style(int row, int col) const {
    const CellAt at = cell(row, col);
    if (session_.setup().columns[at.column].kind != ColumnKind::Parameter)
        return nullptr;
    const bool isEnabled = session_.isEnabled(at);
    const ChoiceList* const list = session_.choices(at);
    if (isEnabled && list == nullptr)
        return nullptr;
    const bool isItalic = list != nullptr && isEntered(at);
    const auto [look, added] = looks_.try_emplace({at.column, isEnabled, list, isItalic});
    if (added) {
        columnLook(at.column).apply(look->second);
        look->second.enabled = isEnabled;
        look->second.italic = isItalic;
        if (list != nullptr)
            look->second.choices = choiceText(list);
    }
    return &look->second;
}

QString TableCells::markText(int row, int col) const {
    return qtText(session_.marks().textOf(cell(row, col)));
}

QString TableCells::tip(int row, int col) const {
    return qtText(session_.explanation(cell(row, col)));
}

QString TableCells::headerTip(int col) const {
    return typeRow_ < session_.table().rowCount()
               ? qtText(session_.explanation({typeRow_, static_cast<std::size_t>(col)}))
               : QString();
}

} // namespace partwright
