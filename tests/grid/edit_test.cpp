// Editing in the real control: what opens, commits, refuses and drops an editor.

#include "grid/grid_window.h"
#include "support/qt_print.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QPushButton>
#include <QStringList>
#include <QTest>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <functional>

namespace partwright::grid {
namespace {

QString s(const char* text) {
    return QString::fromLatin1(text);
}

/// Four rows; column 1 text, 2 drop-down, 3 check box, 4 read-only. Refuses what holds "bad" and
/// logs its events.
class Sheet : public CGridWnd {
public:
    Sheet() {
        InsertCols(1, 5);
        InsertRows(1, 4);
        for (int row = 1; row <= 4; ++row)
            setText(row, 1, s("t%1").arg(row));
        setColStyle(2, {.kind = CellKind::DropDown, .choices = s("red\t a\ngreen\t b\nbad\t c\n")});
        setColStyle(3, {.kind = CellKind::CheckBox});
        setColStyle(4, {.readOnly = true});
        resize(600, 300);
        show();
        activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(this));
        setFocus();
        setCurrentCell(2, 1);
    }

    bool validateCell(int row, int col, const QString& text) override {
        log.append(s("validate %1,%2 %3").arg(row).arg(col).arg(text));
        if (duringValidation)
            duringValidation();
        return !text.contains(s("bad"));
    }
    void cellCommitted(int row, int col, const QString& before) override {
        log.append(s("commit %1,%2 %3>%4").arg(row).arg(col).arg(before, text(row, col)));
    }
    void cellTextModified(int row, int col) override {
        log.append(s("modified %1").arg(controlText(row, col)));
        if (controlText(row, col).size() > 6)
            setControlText(controlText(row, col).left(6));
    }
    void editCancelled(int row, int col) override {
        log.append(s("cancel %1,%2").arg(row).arg(col));
    }
    void dropDownEntered(int row, int col) override {
        log.append(s("list %1,%2").arg(row).arg(col));
    }
    void currentCellMoved(int row, int col) override {
        log.append(s("cell %1,%2").arg(row).arg(col));
    }
    bool doubleClick(int row, int col) override {
        log.append(s("double %1,%2").arg(row).arg(col));
        return col == 5;
    }

    CellEditor* editor() {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return findChild<CellEditor*>(s("cellEditor"));
    }
    QTreeWidget* list() {
        return editor() != nullptr && editor()->list() != nullptr ? editor()->list()->entries()
                                                                  : nullptr;
    }
    /// As the desktop does: each key goes where the focus is.
    QWidget* target() {
        if (QTreeWidget* const entries = list())
            return entries;
        return isEditing() ? static_cast<QWidget*>(editor()) : this;
    }
    void type(const char* text) {
        for (const char* c = text; *c != 0; ++c)
            QTest::keyClick(target(), *c);
    }
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(target(), key, modifiers);
    }
    void click(int row, int col) {
        QTest::mouseClick(viewport(), Qt::LeftButton, Qt::NoModifier, cellRect(row, col).center());
    }
    QStringList takeLog() { return std::exchange(log, {}); }

    QStringList log;
    std::function<void()> duringValidation;
};

TEST(GridEdit, TypeOverAndCommitByEveryWay) {
    struct Way {
        std::function<void(Sheet&)> leave;
        CellPos next;
    };
    const Way ways[] = {
        {[](Sheet& sheet) { sheet.key(Qt::Key_Return); }, {3, 1}},
        {[](Sheet& sheet) { sheet.key(Qt::Key_Return, Qt::ShiftModifier); }, {1, 1}},
        {[](Sheet& sheet) { sheet.key(Qt::Key_Tab); }, {2, 2}},
        {[](Sheet& sheet) { sheet.key(Qt::Key_Up); }, {1, 1}},
        {[](Sheet& sheet) { sheet.key(Qt::Key_Right); }, {2, 2}},
        {[](Sheet& sheet) { sheet.key(Qt::Key_PageDown); }, {4, 1}},
        {[](Sheet& sheet) { sheet.click(4, 5); }, {4, 5}},
        {[](Sheet& sheet) { sheet.click(3, 0); }, {3, 1}},
        {[](Sheet& sheet) { sheet.setCurrentCell(1, 5); }, {1, 5}},
    };
    for (const Way& way : ways) {
        Sheet good;
        good.takeLog();
        good.type("ok");
        EXPECT_EQ(good.text(2, 1), s("t2")) << "stored and editor text are two things";
        EXPECT_EQ(good.controlText(2, 1), s("ok"));
        way.leave(good);
        EXPECT_FALSE(good.isEditing());
        EXPECT_EQ(good.currentCell(), way.next);
        EXPECT_EQ(good.takeLog(),
                  (QStringList{s("modified o"), s("modified ok"), s("validate 2,1 ok"),
                               s("commit 2,1 t2>ok"),
                               s("cell %1,%2").arg(way.next.row).arg(way.next.col)}));

        Sheet refusing;
        refusing.type("bad");
        refusing.takeLog();
        way.leave(refusing);
        EXPECT_EQ(refusing.takeLog(), QStringList{s("validate 2,1 bad")});
        ASSERT_TRUE(refusing.isEditing());
        EXPECT_EQ(refusing.editor()->text(), s("bad"));
        EXPECT_TRUE(refusing.editor()->hasFocus());
        EXPECT_EQ(refusing.currentCell(), (CellPos{2, 1}));
        EXPECT_EQ(refusing.text(2, 1), s("t2"));
        EXPECT_TRUE(refusing.selection().empty());
        refusing.key(Qt::Key_Escape);
        EXPECT_FALSE(refusing.isEditing());
        EXPECT_EQ(refusing.text(2, 1), s("t2"));
        EXPECT_EQ(refusing.takeLog(), QStringList{s("cancel 2,1")});
        EXPECT_TRUE(refusing.hasFocus());
    }
}

TEST(GridEdit, ARefusalHoldsBackSortFillAndPaste) {
    Sheet sheet;
    sheet.type("bad");
    sheet.click(0, 1);
    sheet.sortByHeader(1);
    sheet.fill(1, {1, 1, 4, 1});
    sheet.pasteText(s("pasted"));
    EXPECT_TRUE(sheet.isEditing());
    EXPECT_EQ(sheet.text(1, 1) + sheet.text(4, 1), s("t1t4"));
    sheet.SetStyleRange(CellRange::cell(2, 5), {.value = s("program")});
    EXPECT_EQ(sheet.text(2, 5), s("program"));
}

TEST(GridEdit, EditModeKeepsTheCaretKeys) {
    Sheet sheet;
    sheet.key(Qt::Key_F2);
    sheet.key(Qt::Key_End);
    sheet.key(Qt::Key_Left);
    sheet.type("X");
    EXPECT_EQ(sheet.controlText(2, 1), s("tX2"));
    sheet.key(Qt::Key_Down);
    EXPECT_EQ(sheet.text(2, 1), s("tX2"));
    EXPECT_EQ(sheet.currentCell(), (CellPos{3, 1}));
    QTest::mouseDClick(sheet.viewport(), Qt::LeftButton, Qt::NoModifier,
                       sheet.cellRect(3, 1).center());
    EXPECT_EQ(sheet.controlText(3, 1), s("t3"));
    EXPECT_TRUE(sheet.isEditing());
    sheet.key(Qt::Key_Escape);
    sheet.key(Qt::Key_Backspace);
    EXPECT_EQ(sheet.controlText(3, 1), QString());
}

TEST(GridEdit, UnchangedTextAsksNobody) {
    Sheet sheet;
    sheet.setText(2, 1, s("bad before"));
    sheet.takeLog();
    sheet.key(Qt::Key_F2);
    sheet.key(Qt::Key_Return);
    EXPECT_EQ(sheet.takeLog(), QStringList{s("cell 3,1")});
}

TEST(GridEdit, OwnerSeesAndReplacesTheEditorText) {
    Sheet sheet;
    sheet.type("1234567");
    EXPECT_EQ(sheet.controlText(2, 1), s("123456"));
    EXPECT_EQ(sheet.takeLog().last(), s("modified 1234567")) << "no event for the replacement";
    sheet.duringValidation = [&] { sheet.setControlText(s("final")); };
    sheet.key(Qt::Key_Return);
    EXPECT_EQ(sheet.text(2, 1), s("final"));
    sheet.type("gone");
    sheet.duringValidation = [&] { sheet.RemoveRows(3, 3); };
    sheet.key(Qt::Key_Return);
    EXPECT_FALSE(sheet.isEditing());
    EXPECT_EQ(sheet.rowCount(), 3);
    EXPECT_EQ(sheet.text(3, 1), s("t4"));
}

TEST(GridEdit, TheEditorFollowsItsRow) {
    Sheet sheet;
    sheet.type("new");
    sheet.InsertRows(1, 2);
    EXPECT_EQ(sheet.editedCell(), (CellPos{4, 1}));
    sheet.RemoveRows(1, 1);
    EXPECT_TRUE(sheet.commitEdit());
    EXPECT_EQ(sheet.text(3, 1), s("new"));
    EXPECT_EQ(sheet.text(1, 1) + sheet.text(2, 1), s("t1"));
}

TEST(GridEdit, LosingTheFocusCommitsNothing) {
    QWidget window;
    auto* const layout = new QVBoxLayout(&window);
    auto* const sheet = new Sheet;
    auto* const button = new QPushButton;
    layout->addWidget(sheet);
    layout->addWidget(button);
    window.show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    sheet->setFocus();
    sheet->type("bad");
    sheet->takeLog();
    button->setFocus();
    QFocusEvent away(QEvent::FocusOut, Qt::ActiveWindowFocusReason);
    QApplication::sendEvent(sheet->editor(), &away);
    EXPECT_TRUE(sheet->isEditing());
    EXPECT_EQ(sheet->takeLog(), QStringList());
    EXPECT_FALSE(sheet->commitEdit()) << "what an OK button asks first";
    EXPECT_EQ(sheet->takeLog(), QStringList{s("validate 2,1 bad")});
    sheet->setFocus();
    EXPECT_TRUE(sheet->editor()->hasFocus());
    window.close();
    EXPECT_EQ(sheet->text(2, 1), s("t2"));
    EXPECT_EQ(sheet->takeLog(), QStringList());
}

TEST(GridEdit, NothingNestsWhileARefusalIsShown) {
    Sheet sheet;
    sheet.type("bad");
    sheet.takeLog();
    int runs = 0;
    sheet.duringValidation = [&] {
        ++runs;
        sheet.key(Qt::Key_Return);
        sheet.click(4, 5);
        sheet.click(0, 1);
        EXPECT_FALSE(sheet.setCurrentCell(1, 5));
        EXPECT_FALSE(sheet.commitEdit());
        sheet.selectRows(3, 3);
    };
    sheet.key(Qt::Key_Tab);
    EXPECT_EQ(runs, 1);
    EXPECT_TRUE(sheet.isEditing());
    EXPECT_EQ(sheet.currentCell(), (CellPos{2, 1}));
    EXPECT_EQ(sheet.selectedRows(), std::vector<int>{3}) << "an owner may select the row at fault";
}

TEST(GridEdit, DropDownTakesOneEntryAndTellsOnce) {
    Sheet sheet;
    sheet.setCurrentCell(2, 2);
    sheet.takeLog();
    sheet.key(Qt::Key_Down, Qt::AltModifier);
    ASSERT_NE(sheet.list(), nullptr);
    EXPECT_EQ(sheet.list()->topLevelItem(1)->text(1), s("b"));
    sheet.key(Qt::Key_Down);
    sheet.key(Qt::Key_Up);
    sheet.key(Qt::Key_Down);
    EXPECT_EQ(sheet.takeLog(), QStringList{s("list 2,2")}) << "moving in the list changes nothing";
    sheet.key(Qt::Key_Return);
    EXPECT_EQ(sheet.takeLog(),
              (QStringList{s("modified green"), s("validate 2,2 green"), s("commit 2,2 >green")}));
    EXPECT_EQ(sheet.text(2, 2), s("green"));
    EXPECT_FALSE(sheet.isEditing());
    EXPECT_TRUE(sheet.hasFocus());

    sheet.type("b");
    ASSERT_NE(sheet.list(), nullptr) << "typing opens the list and searches";
    EXPECT_EQ(sheet.list()->currentItem()->text(0), s("bad"));
    sheet.takeLog();
    sheet.key(Qt::Key_Return);
    EXPECT_EQ(sheet.takeLog(), (QStringList{s("modified bad"), s("validate 2,2 bad")}));
    ASSERT_TRUE(sheet.isEditing()) << "refused: the editor keeps the entry";
    EXPECT_EQ(sheet.controlText(2, 2), s("bad"));
    sheet.key(Qt::Key_F4);
    sheet.key(Qt::Key_Escape);
    EXPECT_TRUE(sheet.isEditing()) << "the first Escape closes the list";
    sheet.key(Qt::Key_Escape);
    EXPECT_EQ(sheet.text(2, 2), s("green"));

    const QRect cell = sheet.cellRect(3, 2);
    QTest::mouseClick(sheet.viewport(), Qt::LeftButton, Qt::NoModifier,
                      QPoint(cell.right() - 5, cell.center().y()));
    ASSERT_NE(sheet.list(), nullptr);
    sheet.key(Qt::Key_Escape);
    EXPECT_FALSE(sheet.isEditing()) << "a list left alone leaves no editor behind";
}

TEST(GridEdit, CheckBoxByKeyAndMouse) {
    Sheet sheet;
    sheet.setCurrentCell(2, 3);
    sheet.key(Qt::Key_Space);
    EXPECT_EQ(sheet.text(2, 3), s("1"));
    sheet.click(2, 3);
    EXPECT_EQ(sheet.text(2, 3), s("0"));
    sheet.SetStyleRange(CellRange::cell(2, 3), {.enabled = false});
    sheet.click(2, 3);
    sheet.type("x");
    EXPECT_EQ(sheet.text(2, 3), s("0"));
    EXPECT_FALSE(sheet.isEditing());
}

TEST(GridEdit, WhatCannotBeEditedIsNot) {
    Sheet sheet;
    sheet.setText(1, 4, s("kept"));
    sheet.setCurrentCell(1, 4);
    sheet.type("x");
    sheet.key(Qt::Key_F2);
    sheet.key(Qt::Key_Delete);
    EXPECT_FALSE(sheet.isEditing());
    EXPECT_EQ(sheet.text(1, 4), s("kept"));
    sheet.setText(1, 5, s("link"));
    sheet.setCurrentCell(1, 5);
    sheet.takeLog();
    QTest::mouseDClick(sheet.viewport(), Qt::LeftButton, Qt::NoModifier,
                       sheet.cellRect(1, 5).center());
    sheet.key(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(sheet.takeLog(), (QStringList{s("double 1,5"), s("double 1,5")}));
    EXPECT_FALSE(sheet.isEditing()) << "handled by the owner";
    sheet.key(Qt::Key_Delete);
    EXPECT_EQ(sheet.text(1, 5), QString());
}

TEST(GridEdit, AVeryLongTextSurvives) {
    Sheet sheet;
    const QString text(100000, u'y');
    sheet.setText(2, 5, text);
    sheet.setCurrentCell(2, 5);
    sheet.key(Qt::Key_F2);
    EXPECT_EQ(sheet.controlText(2, 5), text);
    EXPECT_TRUE(sheet.commitEdit());
    EXPECT_EQ(sheet.text(2, 5), text);
}

} // namespace
} // namespace partwright::grid
