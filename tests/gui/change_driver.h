#pragma once

// Works a Change Component dialog as a person does: keys to the cell or its editor, entries of
// lists, buttons, and the dialogs that open over it.

#include "dialogs/change_dialog.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>
#include <stdexcept>

namespace partwright::test {

constexpr int L(int parameter) {
    return static_cast<int>(typeColumn) + parameter;
}
inline constexpr int typeCol = static_cast<int>(typeColumn);

/// Answers the next modal dialog.
template <class Function>
void whenModal(QObject& context, Function function) {
    QTimer::singleShot(0, &context, [function] {
        auto* const box = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        function(*box);
    });
}

class ChangeDriver {
public:
    ChangeDriver() = default;
    explicit ChangeDriver(CComChange1& dialog) { drive(dialog); }
    void drive(CComChange1& dialog) { dialog_ = &dialog; }

    CComponentGrid& grid() { return dialog_->grid(); }
    template <class Widget>
    Widget& find(const char* name) {
        auto* const widget = dialog_->findChild<Widget*>(QLatin1String(name));
        if (widget == nullptr)
            throw std::runtime_error(std::string("no widget ") + name);
        return *widget;
    }
    std::string shownLine() { return find<QLabel>("parameterDescription").text().toStdString(); }
    std::string text(int row, int col) { return grid().text(row, col).toStdString(); }

    void go(int row, int col) {
        ASSERT_TRUE(grid().setCurrentCell(row, col));
        grid().clearSelection();
    }
    /// Editors and lists that were closed wait for their end beside the open one.
    template <class Widget>
    Widget* visible() {
        for (Widget* const widget : dialog_->findChildren<Widget*>())
            if (widget->isVisible())
                return widget;
        return nullptr;
    }
    /// Where keys go: the editor when one is open.
    QWidget* target() {
        auto* const editor = visible<grid::CellEditor>();
        return editor != nullptr ? static_cast<QWidget*>(editor) : &grid();
    }
    void key(int which, Qt::KeyboardModifiers with = {}) {
        QTest::keyClick(target(), static_cast<Qt::Key>(which), with);
    }
    void keys(const char* texts) {
        for (const char* c = texts; *c != 0; ++c)
            QTest::keyClick(target(), *c);
    }
    /// Types over the cell and leaves it by Enter.
    void enter(int row, int col, const char* texts) {
        go(row, col);
        this->keys(texts);
        key(Qt::Key_Return);
    }
    /// Chooses an entry of the current cell's list.
    void choose(const char* name) {
        key(Qt::Key_Down, Qt::AltModifier);
        auto* const popup = visible<grid::ChoicePopup>();
        ASSERT_NE(popup, nullptr);
        auto* const entries = popup->entries();
        const auto found = entries->findItems(QLatin1String(name), Qt::MatchExactly);
        ASSERT_EQ(found.size(), 1) << name;
        entries->setCurrentItem(found[0]);
        QTest::keyClick(entries, Qt::Key_Return);
    }
    void shortcut(int which, Qt::KeyboardModifiers with) {
        dialog_->activateWindow(); // a box that closed may have left nobody active
        EXPECT_TRUE(QTest::qWaitForWindowActive(dialog_));
        QTest::keyClick(dialog_, static_cast<Qt::Key>(which), with);
    }
    /// Drags the fill handle of the current cell down to a row.
    void dragFill(int lastRow) {
        QWidget* const sheet = grid().viewport();
        const QPoint from = grid().fillHandleRect().center();
        const QPoint to = grid().cellRect(lastRow, grid().currentCell()->col).center();
        QTest::mousePress(sheet, Qt::LeftButton, {}, from);
        QTest::mouseMove(sheet, QPoint(to.x(), (from.y() + to.y()) / 2));
        QTest::mouseMove(sheet, to);
        QTest::mouseRelease(sheet, Qt::LeftButton, {}, to);
    }
    void press(const char* name) { find<QPushButton>(name).click(); }

private:
    CComChange1* dialog_ = nullptr;
};

} // namespace partwright::test
