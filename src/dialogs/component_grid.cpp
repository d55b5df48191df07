#include "dialogs/component_grid.h"

#include "dialogs/qt_text.h"
#include "dialogs/wait_cursor.h"

#include <QAction>
#include <QKeyEvent>
#include <QMenu>
#include <algorithm>

namespace partwright {

using grid::CellKind;
using grid::CellPos;
using grid::CellRange;
using grid::RedrawLock;
using grid::StyleChange;

namespace {

/// Width of a parameter column whose told width is 1.
constexpr double defaultParameterWidth = 90;

int pixels(const TableColumn& column) {
    const double unit = column.kind == ColumnKind::Parameter ? defaultParameterWidth : 1;
    return static_cast<int>(column.width * unit + 0.5);
}

int gridColumn(std::size_t column) {
    return static_cast<int>(column);
}

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

/// The list that most cells of a column have.
const ChoiceList* usualChoices(const TableSetup& setup, const TableColumn& column) {
    switch (column.choices) {
    case ColumnChoices::Type:
        return &setup.typeChoices;
    case ColumnChoices::At:
        return &setup.atChoices;
    case ColumnChoices::Package:
        return &setup.packageChoices;
    case ColumnChoices::Process:
    case ColumnChoices::Option:
        return &setup.notApplicableChoices;
    case ColumnChoices::None:
        break;
    }
    return nullptr;
}

} // namespace

CComponentGrid::CComponentGrid(TableSession& session, Prompt& prompt,
                               std::shared_ptr<grid::SortFlags> flags, QWidget* parent)
    : CGridWnd(parent), session_(session), boxes_(prompt) {
    setSortFlags(std::move(flags));
    makeColumns();
    makeRows();
}

void CComponentGrid::makeColumns() {
    const TableSetup& setup = session_.setup();
    const RedrawLock lock(*this);
    const int last = gridColumn(setup.columns.size()) - 1;
    InsertCols(1, last);
    SetColWidth(0, 0, pixels(setup.columns[0]));
    for (std::size_t at = 1; at < setup.columns.size(); ++at) {
        const TableColumn& column = setup.columns[at];
        const int col = gridColumn(at);
        setText(0, col, qtText(column.header));
        SetColWidth(col, col, pixels(column));
        HideCols(col, col, column.hidden);
        StyleChange look{.kind = kindOf(column), .readOnly = session_.isReadOnly(at)};
        if (const ChoiceList* const list = usualChoices(setup, column))
            look.choices = choiceText(list);
        if (column.header.starts_with(L'$'))
            look.enabled = false;
        if (column.kind == ColumnKind::Full)
            look.align = Qt::AlignHCenter;
        setColStyle(col, look);
    }
    SetStyleRange({0, 1, 0, last}, {.bold = true});
}

void CComponentGrid::makeRows() {
    const RedrawLock lock(*this);
    const std::size_t count = session_.table().rowCount();
    InsertRows(1, static_cast<int>(count));
    keys_.resize(count);
    for (std::size_t row = 0; row < count; ++row)
        keys_[row] = rowKey(static_cast<int>(row) + 1);
    deferRows(1, static_cast<int>(count));
}

QString CComponentGrid::choiceText(const ChoiceList* list) {
    QString& text = choiceTexts_[list];
    if (text.isNull()) {
        text = qtText(list->text());
        text.chop(text.endsWith(QLatin1Char('\n')) ? 1 : 0);
    }
    return text;
}

void CComponentGrid::tieRows() const {
    if (tied_)
        return;
    tied_ = true;
    std::vector<std::size_t> sessionRowOfKey;
    for (std::size_t row = 0; row < keys_.size(); ++row) {
        if (keys_[row] >= sessionRowOfKey.size())
            sessionRowOfKey.resize(keys_[row] + std::size_t{1});
        sessionRowOfKey[keys_[row]] = row;
    }
    gridRows_.resize(keys_.size());
    sessionRows_.resize(keys_.size());
    for (int row = 1; row <= rowCount(); ++row) {
        const std::size_t sessionRow = sessionRowOfKey[rowKey(row)];
        gridRows_[sessionRow] = row;
        sessionRows_[static_cast<std::size_t>(row) - 1] = sessionRow;
    }
}

int CComponentGrid::gridRow(std::size_t sessionRow) const {
    tieRows();
    return gridRows_[sessionRow];
}

CellAt CComponentGrid::sessionCell(int row, int col) const {
    tieRows();
    return {sessionRows_[static_cast<std::size_t>(row) - 1], static_cast<std::size_t>(col)};
}

std::vector<std::size_t> CComponentGrid::rowOrder() const {
    tieRows();
    return sessionRows_;
}

std::optional<CellAt> CComponentGrid::currentSessionCell() const {
    const auto current = currentCell();
    if (!current)
        return std::nullopt;
    return sessionCell(current->row, current->col);
}

std::vector<std::size_t> CComponentGrid::selectedSessionRows() const {
    std::vector<std::size_t> rows;
    for (const int row : selectedRows())
        rows.push_back(sessionCell(row, 1).row);
    return rows;
}

void CComponentGrid::fillRow(int row) {
    if (reshaping_) {
        deferRows(row, row); // which row of the session it is will be known in a moment
        return;
    }
    const TableSetup& setup = session_.setup();
    const std::size_t sessionRow = sessionCell(row, 1).row;
    const auto& cells = session_.table().row(sessionRow).cells;
    for (std::size_t at = 1; at < setup.columns.size(); ++at) {
        const int col = gridColumn(at);
        const QString text = qtText(cells[at]);
        if (this->text(row, col) != text)
            setText(row, col, text);
        if (setup.columns[at].kind == ColumnKind::Parameter)
            showStyle(row, {sessionRow, at});
    }
}

void CComponentGrid::showStyle(int row, CellAt at) {
    const int col = gridColumn(at.column);
    const grid::CellStyle& now = cellStyle(row, col);
    StyleChange change;
    if (const bool enabled = session_.isEnabled(at); enabled != now.enabled)
        change.enabled = enabled;
    if (const ChoiceList* const list = session_.choices(at)) {
        QString choices = choiceText(list);
        // One text serves all cells with a list, so its place tells lists apart.
        if (choices.constData() != now.choices.constData())
            change.choices = std::move(choices);
    }
    if (change.enabled || change.choices)
        SetStyleRange(CellRange::cell(row, col), change);
}

void CComponentGrid::takeOutRows(const std::vector<std::size_t>& rows) {
    std::vector<int> gone;
    gone.reserve(rows.size());
    for (const std::size_t row : rows)
        gone.push_back(gridRow(row));
    std::size_t next = 0;
    std::size_t kept = 0;
    for (std::size_t row = 0; row < keys_.size(); ++row) {
        if (next < rows.size() && rows[next] == row)
            ++next;
        else
            keys_[kept++] = keys_[row];
    }
    keys_.resize(kept);
    tied_ = false;
    removeRowList(std::move(gone));
}

/// A row stands before the one that follows it in the session, so that what comes back by undo
/// comes back to its neighbours.
void CComponentGrid::putInRows(const std::vector<std::size_t>& rows) {
    for (std::size_t i = 0; i < rows.size();) {
        const std::size_t row = rows[i];
        std::size_t count = 1;
        while (i + count < rows.size() && rows[i + count] == row + count)
            ++count;
        const bool isLast = row >= keys_.size();
        const int before =
            isLast ? rowCount() + 1 : rowOfKey(keys_[row], static_cast<int>(row) + 1);
        InsertRows(before, static_cast<int>(count));
        keys_.insert(keys_.begin() + static_cast<std::ptrdiff_t>(row), count, 0);
        for (std::size_t k = 0; k < count; ++k)
            keys_[row + k] = rowKey(before + static_cast<int>(k));
        i += count;
    }
    tied_ = false;
}

void CComponentGrid::reshape(const TableOutcome& outcome) {
    reshaping_ = true;
    if (!outcome.removedRows.empty())
        takeOutRows(outcome.removedRows);
    if (!outcome.insertedRows.empty())
        putInRows(outcome.insertedRows);
    reshaping_ = false;
    for (const std::size_t row : outcome.insertedRows)
        deferRow(row);
}

bool CComponentGrid::show(const TableOutcome& outcome) {
    const bool isReshaped = !outcome.removedRows.empty() || !outcome.insertedRows.empty();
    {
        const RedrawLock lock(*this);
        if (isReshaped)
            reshape(outcome);
        for (const std::size_t row : outcome.changedRows)
            deferRow(row);
    }
    if (isReshaped && currentCell() && !outcome.current)
        currentCellMoved(currentCell()->row, currentCell()->col);
    if (outcome.line)
        Q_EMIT lineChanged(qtText(*outcome.line));
    if (outcome.current)
        setCurrentCell(gridRow(outcome.current->row), gridColumn(outcome.current->column));
    if (!outcome.selectedRows.empty()) {
        const int first = gridRow(outcome.selectedRows.front());
        if (!outcome.current)
            setCurrentCell(first, currentCell() ? currentCell()->col : 1);
        selectRows(first, first);
        for (std::size_t i = 1; i < outcome.selectedRows.size(); ++i) {
            const int row = gridRow(outcome.selectedRows[i]);
            addSelection(CellRange::rows(row, row));
        }
        session_.rowsShown();
    }
    if (outcome.editorText)
        setControlText(qtText(*outcome.editorText));
    return boxes_.show(outcome);
}

bool CComponentGrid::validateCell(int row, int col, const QString& text) {
    const CellAt at = sessionCell(row, col);
    const TableOutcome outcome =
        session_.commit(at, engineText(text), static_cast<std::size_t>(row));
    show(outcome);
    if (outcome.accepted)
        setControlText(qtText(session_.table().text(at.row, at.column)));
    return outcome.accepted;
}

void CComponentGrid::showChange(const TableOutcome& outcome) {
    show(outcome);
    const auto current = currentSessionCell();
    if (current && !outcome.line && !isEditing())
        show(session_.lookAgain(*current));
}

void CComponentGrid::cellCommitted(int, int, const QString&) {
    showChange(session_.RefreshAllRowFlags());
}

void CComponentGrid::cellTextModified(int row, int col) {
    show(session_.modify(sessionCell(row, col), engineText(controlText(row, col))));
}

void CComponentGrid::editCancelled(int row, int col) {
    show(session_.cancelEdit());
    currentCellMoved(row, col); // the line may still speak about the text that was dropped
}

void CComponentGrid::currentCellMoved(int row, int col) {
    if (!reshaping_ && row >= 1 && col >= 1)
        show(session_.selectCell(sessionCell(row, col)));
}

void CComponentGrid::autoFillFinished(CellPos source, const CellRange&) {
    filled_.push_back(
        {sessionCell(source.row, source.col), engineText(controlText(source.row, source.col))});
}

void CComponentGrid::fillFinished(CellPos source, const CellRange& range) {
    std::vector<std::size_t> rows;
    for (int row = range.top; row <= range.bottom; ++row)
        if (!isRowHidden(row))
            rows.push_back(sessionCell(row, 1).row);
    const WaitCursor wait;
    showChange(session_.fill(std::exchange(filled_, {}), std::move(rows),
                             static_cast<std::size_t>(source.row)));
    clearSelection();
    scrollTo(source.row, source.col);
}

void CComponentGrid::dropDownEntered(int row, int col) {
    const CellAt at = sessionCell(row, col);
    const ColumnChoices choices = session_.setup().columns[at.column].choices;
    const bool isMarked = choices == ColumnChoices::At || choices == ColumnChoices::Package ||
                          choices == ColumnChoices::Process;
    if (isMarked && !session_.table().type(at.row).empty())
        SetStyleRange(CellRange::cell(row, col), {.italic = true});
}

void CComponentGrid::pasteCell(int row, int col, const QString& text) {
    pasted_.push_back({sessionCell(row, col), engineText(text)});
}

void CComponentGrid::pasteFinished(const CellRange&) {
    const WaitCursor wait;
    showChange(session_.paste(std::exchange(pasted_, {})));
}

bool CComponentGrid::doubleClick(int row, int col) {
    if (row == 0)
        return true;
    if (col < 1 ||
        session_.setup().columns[static_cast<std::size_t>(col)].kind != ColumnKind::Datasheet)
        return false;
    const QString file = text(row, col);
    if (file.isEmpty())
        return false;
    Q_EMIT datasheetOpened(file);
    return true;
}

bool CComponentGrid::keyPressed(QKeyEvent* event) {
    if (event->key() == Qt::Key_Delete) {
        // With a key held down it is no deletion, but no clearing of cells either.
        if ((event->modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier)
            return true;
        const auto current = currentSessionCell();
        if (current && current->column == session_.setup().datasheetColumn)
            showChange(session_.clearLink(current->row));
        else
            deleteSelectedRows();
        return true;
    }
    if (event->matches(QKeySequence::Find)) {
        selectWholeRow();
        return true;
    }
    return false;
}

void CComponentGrid::deleteSelectedRows() {
    if (!commitEdit())
        return;
    const std::vector<std::size_t> rows = selectedSessionRows();
    if (show(session_.deleteRows(rows)))
        show(session_.deleteRows(rows, Consent::Given));
}

void CComponentGrid::selectWholeRow() {
    if (commitEdit())
        show(session_.selectWholeRow(currentSessionCell()));
}

void CComponentGrid::undo() {
    if (commitEdit())
        showMove(session_.undo());
}

void CComponentGrid::redo() {
    if (commitEdit())
        showMove(session_.redo());
}

/// What went back or forth comes into view, and the line speaks about what the current cell holds
/// now.
void CComponentGrid::showMove(const TableOutcome& outcome) {
    show(outcome);
    const auto& rows = outcome.insertedRows.empty() ? outcome.changedRows : outcome.insertedRows;
    const auto current = currentSessionCell();
    if (!rows.empty() &&
        (!current || std::find(rows.begin(), rows.end(), current->row) == rows.end()))
        setCurrentCell(gridRow(rows.front()), current ? gridColumn(current->column) : 1);
    else if (current)
        show(session_.lookAgain(*currentSessionCell()));
}

void CComponentGrid::rowsSorted(int) {
    tied_ = false;
}

grid::SortRule CComponentGrid::sortRule(int col) const {
    grid::SortRule rule = CGridWnd::sortRule(col);
    rule.decimalPoint = static_cast<char16_t>(session_.setup().decimalMark);
    return rule;
}

void CComponentGrid::menuOpening(QMenu& menu) {
    const auto add = [&](const QString& text, const QKeySequence& key, bool enabled, auto verb) {
        QAction* const entry = menu.addAction(text, this, verb);
        entry->setShortcut(key);
        entry->setEnabled(enabled);
    };
    menu.addSeparator();
    add(tr("&Undo"), QKeySequence::Undo, session_.canUndo(), &CComponentGrid::undo);
    add(tr("&Redo"), QKeySequence(Qt::CTRL | Qt::Key_Y), session_.canRedo(), &CComponentGrid::redo);
    add(tr("De&lete Selected Rows"), {}, !selectedRows().empty(),
        &CComponentGrid::deleteSelectedRows);
    const auto current = currentCell();
    if (current && current->col == gridColumn(session_.setup().datasheetColumn)) {
        const QString file = text(current->row, current->col);
        add(tr("&Open Datasheet"), QKeySequence(Qt::CTRL | Qt::Key_Return), !file.isEmpty(),
            [this, file] { Q_EMIT datasheetOpened(file); });
    }
}

} // namespace partwright
