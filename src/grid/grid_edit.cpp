// CGridWnd: opening, committing and dropping the editor.

#include "grid/grid_window.h"

#include <QCoreApplication>
#include <QFontMetrics>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QScrollBar>
#include <QTreeWidget>
#include <algorithm>

namespace partwright::grid {

namespace {

constexpr int editorRoom = 14;

} // namespace

std::optional<CellPos> CGridWnd::editedCell() const {
    if (!edit_)
        return std::nullopt;
    return CellPos{edit_->row, edit_->col};
}

QString CGridWnd::controlText(int row, int col) const {
    return editedCell() == CellPos{row, col} ? edit_->editor->text() : text(row, col);
}

void CGridWnd::setControlText(const QString& text) {
    if (!edit_ || edit_->editor->text() == text)
        return;
    const int cursor = edit_->editor->cursorPosition();
    edit_->editor->setText(text);
    edit_->editor->setCursorPosition(std::min<int>(cursor, static_cast<int>(text.size())));
}

bool CGridWnd::beginEdit() {
    return openEditor(Start::WithText);
}

bool CGridWnd::openEditor(Start start, const QString& typed) {
    const auto current = currentCell();
    if (edit_ || validating() || !current || !isEditable(current->row, current->col))
        return false;
    const CellStyle& look = cellStyle(current->row, current->col);
    if (look.kind == CellKind::CheckBox)
        return false;
    scrollTo(current->row, current->col);
    auto* const editor = new CellEditor(viewport(), *this, look);
    edit_ = Edit{rowKey(current->row), current->row, current->col, start == Start::Empty, editor};
    QPalette colors = palette();
    if (look.background.isValid()) {
        colors.setColor(QPalette::Base, look.background);
        colors.setColor(QPalette::Text,
                        look.background.lightnessF() > 0.5F ? Qt::black : Qt::white);
    }
    editor->setPalette(colors);
    editor->setAccessibleName(tr("%1, row %2").arg(text(0, current->col)).arg(current->row));
    const bool list = editor->isDropDown();
    if (start == Start::WithText || list)
        editor->setText(text(current->row, current->col));
    placeEditor();
    editor->show();
    editor->setFocus(Qt::OtherFocusReason);
    updateCurrentArea(*current);
    if (list) {
        dropDownEntered(current->row, current->col);
        openList(typed);
    } else if (start == Start::Empty) {
        // Over the cell's text, so that the editor's own undo brings that back.
        editor->setText(text(current->row, current->col));
        editor->selectAll();
        editor->insert(typed);
    } else {
        editor->selectAll();
    }
    return true;
}

void CGridWnd::openList(const QString& typed) {
    if (!edit_)
        return;
    const CellPos pos = *editedCell();
    const QRect cell = geometry_.cellRect(pos.row, pos.col);
    edit_->editor->openList(QRect(viewport()->mapToGlobal(cell.topLeft()), cell.size()), typed);
}

void CGridWnd::placeEditor() {
    if (!edit_)
        return;
    const CellPos pos = *editedCell();
    CellEditor* const editor = edit_->editor;
    editor->setFont(zoomedFont());
    QRect area = geometry_.cellRect(pos.row, pos.col).adjusted(0, 0, -1, -1);
    if (editor->isDropDown()) {
        area.setRight(area.right() - area.height() * 2 / 5 - 5);
    } else {
        const int needed = QFontMetrics(editor->font()).horizontalAdvance(editor->text().left(500));
        const int room = viewport()->width() - area.left();
        area.setWidth(std::max(area.width(), std::min(needed + editorRoom, room)));
    }
    const bool inView = area.top() >= geometry_.headerHeight() - area.height() / 2 &&
                        area.left() >= geometry_.rowHeaderWidth() - area.width() / 2;
    editor->setGeometry(inView ? area
                               : area.translated(-2 * viewport()->width() - area.width(), 0));
}

void CGridWnd::announceModified() {
    if (!edit_ || announcing_)
        return;
    announcing_ = true;
    const CellPos pos = *editedCell();
    cellTextModified(pos.row, pos.col);
    announcing_ = false;
}

void CGridWnd::editorTextChanged() {
    announceModified();
    placeEditor();
}

bool CGridWnd::commitEdit() {
    if (!edit_)
        return true;
    if (validating())
        return false;
    const RowKey key = edit_->key;
    const CellPos pos = *editedCell();
    const QString before = text(pos.row, pos.col);
    const auto stillOpen = [&] { return edit_ && edit_->key == key && edit_->col == pos.col; };
    if (edit_->editor->text() == before) {
        closeEditor();
        return true;
    }
    const bool accepted = validate(pos.row, pos.col, edit_->editor->text());
    if (!stillOpen())
        return true;
    if (!accepted) {
        edit_->typedOver = false;
        edit_->editor->setFocus(Qt::OtherFocusReason);
        edit_->editor->selectAll();
        return false;
    }
    // Read again: the owner may have put the text into its final form.
    const QString final = edit_->editor->text();
    const int row = edit_->row;
    setText(row, pos.col, final);
    closeEditor();
    cellCommitted(row, pos.col, before);
    return true;
}

void CGridWnd::cancelEdit() {
    if (!edit_ || validating())
        return;
    const CellPos pos = *editedCell();
    closeEditor();
    editCancelled(pos.row, pos.col);
}

void CGridWnd::closeEditor() {
    CellEditor* const editor = edit_->editor;
    // After a box the window may not be active yet; its focus counts all the same.
    const bool focused = window()->focusWidget() == editor;
    edit_.reset();
    editor->hide();
    editor->deleteLater();
    if (focused)
        setFocus(Qt::OtherFocusReason);
    viewport()->update();
}

void CGridWnd::choiceMade(const QString& name) {
    if (!edit_)
        return;
    edit_->editor->setFocus(Qt::PopupFocusReason);
    if (edit_->editor->text() != name) {
        edit_->editor->setText(name);
        announceModified();
    }
    commitEdit();
}

void CGridWnd::choiceDropped() {
    if (!edit_)
        return;
    edit_->editor->setFocus(Qt::PopupFocusReason);
    const CellPos pos = *editedCell();
    if (edit_->editor->text() == text(pos.row, pos.col))
        cancelEdit();
}

void CGridWnd::toggleCheckBox(CellPos pos) {
    if (!isEditable(pos.row, pos.col) || cellStyle(pos.row, pos.col).kind != CellKind::CheckBox)
        return;
    const bool checked = text(pos.row, pos.col) == QLatin1String("1");
    commitText(pos.row, pos.col, checked ? QStringLiteral("0") : QStringLiteral("1"));
}

bool CGridWnd::editorKey(QKeyEvent* event) {
    if (!edit_)
        return true;
    const bool alt = event->modifiers().testFlag(Qt::AltModifier);
    const bool control = event->modifiers().testFlag(Qt::ControlModifier);
    const bool list = edit_->editor->isDropDown();
    switch (event->key()) {
    case Qt::Key_Escape:
        cancelEdit();
        return true;
    case Qt::Key_F2:
        edit_->typedOver = false;
        return true;
    case Qt::Key_F4:
        if (list)
            openList({});
        return list;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        break;
    case Qt::Key_Up:
    case Qt::Key_Down:
        if (list && alt) {
            openList({});
            return true;
        }
        break;
    case Qt::Key_Left:
    case Qt::Key_Right:
        if (!edit_->typedOver && !list)
            return false;
        break;
    default:
        if (list && !control && !alt && !event->text().isEmpty() && event->text()[0].isPrint()) {
            openList(event->text());
            return true;
        }
        return false;
    }
    if (!commitEdit())
        return true;
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        if (!control)
            moveBy(event->modifiers().testFlag(Qt::ShiftModifier) ? -1 : 1, 0);
        return true;
    }
    gridKey(event);
    return true;
}

void CGridWnd::inputMethodEvent(QInputMethodEvent* event) {
    const bool typed = !event->commitString().isEmpty() || !event->preeditString().isEmpty();
    const QPointer<QWidget> before = edit_ ? edit_->editor : nullptr;
    if (typed && before == nullptr && openEditor(Start::Empty) && edit_) {
        QCoreApplication::sendEvent(edit_->editor, event);
        return;
    }
    QAbstractScrollArea::inputMethodEvent(event);
}

} // namespace partwright::grid
