#include "grid/grid_edit.h"

#include "grid/grid_window.h"

#include <QFontMetrics>
#include <QKeyEvent>
#include <algorithm>

namespace partwright::grid {

namespace {

constexpr int editorRoom = 14;

} // namespace

std::optional<CellPos> GridEdit::cell() const {
    if (!edit_)
        return std::nullopt;
    return CellPos{edit_->row, edit_->col};
}

void GridEdit::setText(const QString& text) {
    if (!edit_ || edit_->editor->text() == text)
        return;
    const int cursor = edit_->editor->cursorPosition();
    edit_->editor->setText(text);
    edit_->editor->setCursorPosition(std::min<int>(cursor, static_cast<int>(text.size())));
}

bool GridEdit::open(Start start, const QString& typed) {
    const auto current = grid_.currentCell();
    if (edit_ || grid_.validating() || !current || !grid_.isEditable(current->row, current->col))
        return false;
    const CellStyle& look = grid_.cellStyle(current->row, current->col);
    if (look.kind == CellKind::CheckBox)
        return false;
    grid_.scrollTo(current->row, current->col);
    auto* const editor = new CellEditor(grid_.viewport(), *this, look);
    edit_ =
        Edit{grid_.rowKey(current->row), current->row, current->col, start == Start::Empty, editor};
    QPalette colors = grid_.palette();
    if (look.background.isValid()) {
        colors.setColor(QPalette::Base, look.background);
        colors.setColor(QPalette::Text,
                        look.background.lightnessF() > 0.5F ? Qt::black : Qt::white);
    }
    editor->setPalette(colors);
    editor->setAccessibleName(
        CGridWnd::tr("%1, row %2").arg(grid_.text(0, current->col)).arg(current->row));
    editor->setText(grid_.text(current->row, current->col));
    place();
    editor->show();
    editor->setFocus(Qt::OtherFocusReason);
    grid_.updateCurrentArea(*current);
    if (editor->isDropDown()) {
        grid_.dropDownEntered(current->row, current->col);
        openList(typed);
        return true;
    }
    editor->selectAll();
    // Over the cell's text, so that the editor's own undo brings that back.
    if (start == Start::Empty)
        editor->insert(typed);
    return true;
}

void GridEdit::openList(const QString& typed) {
    if (!edit_)
        return;
    const QRect area = grid_.cellRect(edit_->row, edit_->col);
    edit_->editor->openList(QRect(grid_.viewport()->mapToGlobal(area.topLeft()), area.size()),
                            typed);
}

void GridEdit::place() {
    if (!edit_)
        return;
    CellEditor* const editor = edit_->editor;
    const GridGeometry& geometry = grid_.geometry_;
    const int width = grid_.viewport()->width();
    editor->setFont(grid_.zoomedFont());
    QRect area = geometry.cellRect(edit_->row, edit_->col).adjusted(0, 0, -1, -1);
    if (editor->isDropDown()) {
        area.setRight(area.right() - area.height() * 2 / 5 - 5);
    } else {
        const int needed = QFontMetrics(editor->font()).horizontalAdvance(editor->text().left(500));
        const int room = width - area.left();
        area.setWidth(std::max(area.width(), std::min(needed + editorRoom, room)));
    }
    const int edge =
        geometry.isFrozen(edit_->col) ? geometry.rowHeaderWidth() : geometry.frozenWidth();
    const bool inView = area.top() >= geometry.headerHeight() - area.height() / 2 &&
                        area.left() >= edge - area.width() / 2;
    editor->setGeometry(inView ? area : area.translated(-2 * width - area.width(), 0));
}

void GridEdit::followRow() {
    if (!edit_)
        return;
    edit_->row = grid_.rowOfKey(edit_->key);
    if (edit_->row < 0)
        close();
}

void GridEdit::announceModified() {
    if (!edit_ || announcing_)
        return;
    announcing_ = true;
    grid_.cellTextModified(edit_->row, edit_->col);
    announcing_ = false;
}

void GridEdit::editorTextChanged() {
    announceModified();
    place();
}

bool GridEdit::commit() {
    if (!edit_)
        return true;
    if (grid_.validating())
        return false;
    const RowKey key = edit_->key;
    const CellPos pos = *cell();
    const QString before = grid_.text(pos.row, pos.col);
    const auto stillOpen = [&] { return edit_ && edit_->key == key && edit_->col == pos.col; };
    if (edit_->editor->text() == before) {
        close();
        return true;
    }
    const bool accepted = grid_.validate(pos.row, pos.col, edit_->editor->text());
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
    grid_.setText(row, pos.col, final);
    close();
    grid_.cellCommitted(row, pos.col, before);
    return true;
}

void GridEdit::cancel() {
    if (!edit_ || grid_.validating())
        return;
    const CellPos pos = *cell();
    close();
    grid_.editCancelled(pos.row, pos.col);
}

void GridEdit::close() {
    CellEditor* const editor = edit_->editor;
    // After a box the window may not be active yet; its focus counts all the same.
    const bool focused = grid_.window()->focusWidget() == editor;
    edit_.reset();
    editor->hide();
    editor->deleteLater();
    if (focused)
        grid_.setFocus(Qt::OtherFocusReason);
    grid_.viewport()->update();
}

void GridEdit::choiceMade(const QString& name) {
    if (!edit_)
        return;
    edit_->editor->setFocus(Qt::PopupFocusReason);
    if (edit_->editor->text() != name) {
        edit_->editor->setText(name);
        announceModified();
    }
    commit();
}

void GridEdit::choiceDropped() {
    if (!edit_)
        return;
    edit_->editor->setFocus(Qt::PopupFocusReason);
    if (edit_->editor->text() == grid_.text(edit_->row, edit_->col))
        cancel();
}

bool GridEdit::editorKey(QKeyEvent* event) {
    if (!edit_)
        return true;
    const bool alt = event->modifiers().testFlag(Qt::AltModifier);
    const bool control = event->modifiers().testFlag(Qt::ControlModifier);
    const bool list = hasList();
    switch (event->key()) {
    case Qt::Key_Escape:
        cancel();
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
    if (!commit())
        return true;
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter)
        grid_.keys_.press(event);
    else if (!control)
        grid_.keys_.moveBy(event->modifiers().testFlag(Qt::ShiftModifier) ? -1 : 1, 0);
    return true;
}

} // namespace partwright::grid
