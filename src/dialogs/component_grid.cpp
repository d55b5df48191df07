#include "dialogs/component_grid.h"

#include "dialogs/qt_text.h"
#include "dialogs/wait_cursor.h"

#include <QAction>
#include <QKeyEvent>
#include <QMenu>
#include <algorithm>

namespace partwright {

using grid::CellPos;
using grid::CellRange;
using grid::RedrawLock;

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

} // namespace

CComponentGrid::CComponentGrid(TableSession& session, Prompt& prompt,
                               std::shared_ptr<grid::SortFlags> flags, QWidget* parent)
    : CGridWnd(parent), session_(session), cells_(session), boxes_(prompt) {
    setSortFlags(std::move(flags));
    setSource(cells_);
    const RedrawLock lock(*this);
    makeColumns();
    InsertRows(1, static_cast<int>(session_.table().rowCount()));
    setFrozenCols(gridColumn(partNumberColumn));
    judging_.setSingleShot(true);
    connect(&judging_, &QTimer::timeout, this, &CComponentGrid::judgeSome);
    judging_.start();
}

void CComponentGrid::makeColumns() {
    const TableSetup& setup = session_.setup();
    const int last = gridColumn(setup.columns.size()) - 1;
    InsertCols(1, last);
    SetColWidth(0, 0, pixels(setup.columns[0]));
    for (std::size_t at = 1; at < setup.columns.size(); ++at) {
        const TableColumn& column = setup.columns[at];
        const int col = gridColumn(at);
        setText(0, col, qtText(column.header));
        SetColWidth(col, col, pixels(column));
        HideCols(col, col, column.hidden);
        setColStyle(col, cells_.columnLook(at));
    }
    SetStyleRange({0, 1, 0, last}, {.bold = true});
}

void CComponentGrid::judgeSome() {
    constexpr std::size_t rowsAtOnce = 250;
    if (session_.marks().judgeMore(rowsAtOnce))
        judging_.start();
    Q_EMIT marksCounted(session_.marks().count());
}

std::vector<std::size_t> CComponentGrid::rowOrder() const {
    std::vector<std::size_t> rows;
    rows.reserve(static_cast<std::size_t>(rowCount()));
    for (int row = 1; row <= rowCount(); ++row)
        rows.push_back(static_cast<std::size_t>(sourceRow(row)));
    return rows;
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

bool CComponentGrid::show(const TableOutcome& outcome) {
    const auto numbers = [](const std::vector<std::size_t>& rows) {
        return std::vector<int>(rows.begin(), rows.end());
    };
    {
        const RedrawLock lock(*this);
        if (!outcome.removedRows.empty() || !outcome.insertedRows.empty())
            sourceReshaped(numbers(outcome.removedRows), numbers(outcome.insertedRows));
        for (const std::size_t row : outcome.changedRows)
            sourceChanged(static_cast<int>(row));
    }
    judging_.start();
    return showRest(outcome);
}

void CComponentGrid::showLook(const TableOutcome& outcome) {
    for (const std::size_t row : outcome.changedRows)
        cellsChanged(CellRange::rows(gridRow(row), gridRow(row)));
    showRest(outcome);
}

/// All but the cells.
bool CComponentGrid::showRest(const TableOutcome& outcome) {
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
        showLook(session_.lookAgain(*current));
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
    const CellAt at = sessionCell(row, col);
    cells_.setTypeRow(at.row);
    showLook(session_.selectCell(at));
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
    cells_.listEntered(sessionCell(row, col));
}

void CComponentGrid::pasteCell(int row, int col, const QString& text) {
    pasted_.push_back({sessionCell(row, col), engineText(text)});
}

void CComponentGrid::pasteFinished(const CellRange&) {
    const WaitCursor wait;
    showChange(session_.paste(std::exchange(pasted_, {}), pasteAs_));
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
    if (event->keyCombination() == (Qt::CTRL | Qt::SHIFT | Qt::Key_V)) {
        pasteTyped();
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

void CComponentGrid::goToMark(bool backward) {
    if (!commitEdit())
        return;
    clearSelection();
    showLook(session_.nextMark(currentSessionCell(), rowOrder(), backward));
    setFocus(Qt::OtherFocusReason);
}

void CComponentGrid::pasteTyped() {
    pasteAs_ = PasteAs::Typed;
    paste();
    pasteAs_ = PasteAs::Text;
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
        showLook(session_.lookAgain(*currentSessionCell()));
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
    add(tr("Paste as &Typed"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_V),
        currentCell().has_value(), &CComponentGrid::pasteTyped);
    add(tr("Fi&nd..."), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_F), true,
        &CComponentGrid::findAsked);
    const auto nextMark = [this] { goToMark(false); };
    add(tr("Ne&xt Marked Cell"), QKeySequence(Qt::Key_F8), session_.marks().count() > 0, nextMark);
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
