// The control on the screen: mouse, keys, scrolling, painting, printing, screen readers.

#include "grid/grid_window.h"
#include "support/qt_print.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QFile>
#include <QPrinter>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTest>
#include <QVBoxLayout>
#include <QWheelEvent>

namespace partwright::grid {
namespace {

QString s(const char* text) {
    return QString::fromLatin1(text);
}

class Sheet : public CGridWnd {
public:
    explicit Sheet(int rows = 200, int cols = 10) {
        InsertCols(1, cols);
        InsertRows(1, rows);
        for (int col = 1; col <= cols; ++col) {
            setText(0, col, s("Column %1").arg(col));
            for (int row = 1; row <= rows; ++row)
                setText(row, col, s("%1").arg((row * 7 + col) % 101));
        }
        resize(500, 300);
        show();
        activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(this));
        setFocus();
        setCurrentCell(1, 1);
    }

    bool canResizeCol(int col) const override { return col != 2; }
    void colResized(int col) override { resized = col; }
    int limitColWidth(int col, int width) const override {
        return col == 3 && width < 30 ? 77 : CGridWnd::limitColWidth(col, width);
    }
    void autoFillFinished(CellPos source, const CellRange& range) override {
        filled = s("%1,%2:%3-%4").arg(source.row).arg(source.col).arg(range.top).arg(range.bottom);
        CGridWnd::autoFillFinished(source, range);
    }

    void key(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(this, static_cast<Qt::Key>(key), modifiers);
    }
    void drag(QPoint from, QPoint to, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::mousePress(viewport(), Qt::LeftButton, modifiers, from);
        QMouseEvent move(QEvent::MouseMove, to, viewport()->mapToGlobal(to), Qt::LeftButton,
                         Qt::LeftButton, modifiers);
        QApplication::sendEvent(viewport(), &move);
        duringDrag = viewport()->grab().toImage();
        QTest::mouseRelease(viewport(), Qt::LeftButton, modifiers, to);
    }
    QPoint center(int row, int col) const { return cellRect(row, col).center(); }
    /// What stands on the screen after the repaints that were asked for.
    QImage onScreen() {
        QApplication::processEvents();
        return screen()->grabWindow(winId()).toImage();
    }

    int resized = 0;
    QString filled;
    QImage duringDrag;
};

TEST(GridView, KeysMoveTheCurrentCell) {
    struct Case {
        int key;
        Qt::KeyboardModifiers modifiers;
        CellPos from;
        CellPos to;
    };
    // Row 5 and column 4 are hidden.
    const Case cases[] = {
        {Qt::Key_Down, Qt::NoModifier, {4, 3}, {6, 3}},
        {Qt::Key_Up, Qt::NoModifier, {6, 3}, {4, 3}},
        {Qt::Key_Right, Qt::NoModifier, {4, 3}, {4, 5}},
        {Qt::Key_Left, Qt::NoModifier, {4, 1}, {4, 1}},
        {Qt::Key_Home, Qt::NoModifier, {4, 8}, {4, 1}},
        {Qt::Key_End, Qt::NoModifier, {4, 3}, {4, 10}},
        {Qt::Key_Home, Qt::ControlModifier, {99, 8}, {1, 1}},
        {Qt::Key_End, Qt::ControlModifier, {4, 3}, {200, 10}},
        {Qt::Key_Down, Qt::ControlModifier, {4, 3}, {200, 3}},
        {Qt::Key_PageUp, Qt::NoModifier, {2, 3}, {1, 3}},
        {Qt::Key_Return, Qt::NoModifier, {4, 3}, {6, 3}},
        {Qt::Key_Tab, Qt::NoModifier, {4, 10}, {6, 1}},
        {Qt::Key_Backtab, Qt::ShiftModifier, {6, 1}, {4, 10}},
    };
    Sheet sheet;
    sheet.HideRows(5, 5);
    sheet.HideCols(4, 4);
    for (const Case& row : cases) {
        sheet.setCurrentCell(row.from.row, row.from.col);
        sheet.key(row.key, row.modifiers);
        ASSERT_TRUE(sheet.currentCell());
        EXPECT_EQ(*sheet.currentCell(), row.to) << row.key << " from row " << row.from.row;
        EXPECT_TRUE(sheet.viewport()->rect().contains(sheet.center(row.to.row, row.to.col)));
    }
    sheet.setCurrentCell(1, 1);
    sheet.key(Qt::Key_PageDown);
    sheet.key(Qt::Key_PageDown);
    EXPECT_GT(sheet.currentCell()->row, 12);
}

TEST(GridView, TabLeavesAtTheEndAndControlTabAnywhere) {
    QWidget window;
    auto* const layout = new QVBoxLayout(&window);
    auto* const sheet = new Sheet(2, 2);
    auto* const button = new QPushButton;
    layout->addWidget(sheet);
    layout->addWidget(button);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    for (const auto& [row, modifiers] :
         {std::pair{2, Qt::NoModifier}, std::pair{1, Qt::ControlModifier}}) {
        sheet->setFocus();
        sheet->setCurrentCell(row, row);
        sheet->key(Qt::Key_Tab, modifiers);
        EXPECT_TRUE(button->hasFocus());
    }
}

TEST(GridView, SelectionByKeysAndMouse) {
    Sheet sheet;
    sheet.setCurrentCell(3, 2);
    sheet.key(Qt::Key_Down, Qt::ShiftModifier);
    sheet.key(Qt::Key_Right, Qt::ShiftModifier);
    EXPECT_EQ(sheet.selection(), (std::vector<CellRange>{{3, 2, 4, 3}}));
    EXPECT_EQ(sheet.currentCell(), (CellPos{3, 2}));
    sheet.key(Qt::Key_Up);
    EXPECT_TRUE(sheet.selection().empty());
    sheet.drag(sheet.center(5, 1), sheet.center(2, 3));
    EXPECT_EQ(sheet.selection(), (std::vector<CellRange>{{2, 1, 5, 3}}));
    EXPECT_EQ(sheet.currentCell(), (CellPos{5, 1}));
    QTest::mouseClick(sheet.viewport(), Qt::LeftButton, Qt::ShiftModifier, sheet.center(7, 2));
    EXPECT_EQ(sheet.selection(), (std::vector<CellRange>{{5, 1, 7, 2}}));

    sheet.drag(sheet.center(2, 0), sheet.center(4, 0));
    EXPECT_EQ(sheet.selectedRows(), (std::vector<int>{2, 3, 4}));
    EXPECT_EQ(sheet.currentCell(), (CellPos{2, 1}));
    QTest::mouseClick(sheet.viewport(), Qt::LeftButton, Qt::ControlModifier, sheet.center(7, 0));
    EXPECT_EQ(sheet.selectedRows(), (std::vector<int>{2, 3, 4, 7}));
    QTest::mouseClick(sheet.viewport(), Qt::LeftButton, Qt::ShiftModifier, sheet.center(9, 0));
    EXPECT_EQ(sheet.selectedRows(), (std::vector<int>{7, 8, 9}));
    sheet.key(Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(sheet.selectedRows().size(), 200U);
    QTest::mouseClick(sheet.viewport(), Qt::LeftButton, {}, sheet.center(3, 3));
    sheet.key(Qt::Key_Space, Qt::ShiftModifier);
    EXPECT_EQ(sheet.selectedRows(), std::vector<int>{3});
}

TEST(GridView, AHeaderClickSortsOnceAndADoubleClickNoMore) {
    Sheet sheet(5, 3);
    QTest::mouseClick(sheet.viewport(), Qt::LeftButton, {}, sheet.center(0, 2));
    EXPECT_EQ(sheet.text(1, 2), s("9"));
    EXPECT_EQ(sheet.currentCell(), (CellPos{1, 2}));
    QTest::mouseClick(sheet.viewport(), Qt::LeftButton, {}, sheet.center(0, 2));
    EXPECT_EQ(sheet.text(1, 2), s("37"));
    QTest::mouseDClick(sheet.viewport(), Qt::LeftButton, {}, sheet.center(0, 2));
    QTest::mouseRelease(sheet.viewport(), Qt::LeftButton, {}, sheet.center(0, 2));
    EXPECT_EQ(sheet.text(1, 2), s("37"));
    sheet.drag(sheet.center(0, 1), sheet.center(0, 3));
    EXPECT_EQ(sheet.text(1, 2), s("37")) << "released over another header";
}

TEST(GridView, FillHandleDragsWithAPreview) {
    Sheet sheet;
    sheet.setCurrentCell(3, 2);
    const QImage before = sheet.viewport()->grab().toImage();
    sheet.drag(sheet.fillHandleRect().center(), sheet.center(6, 5));
    EXPECT_EQ(sheet.filled, s("3,2:3-6"));
    EXPECT_EQ(sheet.text(6, 2), sheet.text(3, 2));
    EXPECT_NE(sheet.text(6, 5), sheet.text(3, 2));
    const QPoint edge(sheet.cellRect(5, 2).right(), sheet.center(5, 2).y());
    int changed = 0;
    for (int y = sheet.cellRect(5, 2).top(); y <= sheet.cellRect(5, 2).bottom(); ++y)
        changed += before.pixel(edge.x(), y) != sheet.duringDrag.pixel(edge.x(), y) ? 1 : 0;
    EXPECT_GT(changed, 5) << "the dashed frame";
    sheet.filled.clear();
    sheet.drag(sheet.fillHandleRect().center(), sheet.center(1, 2));
    EXPECT_EQ(sheet.filled, s("3,2:1-3")) << "upwards too";
    sheet.SetStyleRange(CellRange::cell(3, 2), {.readOnly = true});
    EXPECT_TRUE(sheet.fillHandleRect().isEmpty());
    sheet.selectRange({10, 3, 12, 4});
    sheet.key(Qt::Key_D, Qt::ControlModifier);
    EXPECT_EQ(sheet.filled, s("10,4:10-12"));
}

TEST(GridView, ColumnsResizeFitAndZoom) {
    Sheet sheet;
    const auto border = [&](int col) {
        return QPoint(sheet.cellRect(0, col).right(), sheet.center(0, col).y());
    };
    const int width = sheet.colWidth(1);
    sheet.drag(border(1), border(1) + QPoint(25, 0));
    EXPECT_EQ(sheet.colWidth(1), width + 25);
    EXPECT_EQ(sheet.resized, 1);
    sheet.drag(border(1), border(1) - QPoint(500, 0));
    EXPECT_EQ(sheet.colWidth(1), 15);
    sheet.drag(border(2), border(2) + QPoint(25, 0));
    EXPECT_EQ(sheet.colWidth(2), width) << "not resizable";
    sheet.SetColWidth(3, 3, 5);
    EXPECT_EQ(sheet.colWidth(3), 77);
    sheet.setText(150, 3, s("a text far down that is wider than all the others"));
    sheet.drag(border(1), border(1) + QPoint(60, 0));
    QTest::mouseDClick(sheet.viewport(), Qt::LeftButton, {}, border(3));
    EXPECT_GT(sheet.colWidth(3), 200);
    EXPECT_NE(sheet.text(1, 3), s("0")) << "fitting does not sort";

    const int before = sheet.cellRect(0, 5).width();
    QWheelEvent wheel(QPointF(50, 50), QPointF(50, 50), {}, QPoint(0, 120), Qt::NoButton,
                      Qt::ControlModifier, Qt::NoScrollPhase, false);
    for (int i = 0; i < 3; ++i)
        QApplication::sendEvent(sheet.viewport(), &wheel);
    EXPECT_GT(sheet.cellRect(0, 5).width(), before * 5 / 4);
    EXPECT_EQ(sheet.colWidth(5), width);
    sheet.key(Qt::Key_0, Qt::ControlModifier);
    EXPECT_EQ(sheet.cellRect(0, 5).width(), before);
    for (int i = 0; i < 40; ++i)
        sheet.key(Qt::Key_Minus, Qt::ControlModifier);
    EXPECT_DOUBLE_EQ(sheet.zoom(), 0.5);
}

TEST(GridView, PartialRepaintsEqualAFullOne) {
    Sheet sheet;
    sheet.SetStyleRange(CellRange::cell(4, 2), {.background = QColor(255, 240, 150)});
    sheet.setColStyle(3, {.kind = CellKind::DropDown, .choices = s("1\n2")});
    sheet.setColStyle(4, {.kind = CellKind::Link});
    sheet.onScreen();
    const std::function<void()> steps[] = {
        [&] { sheet.setCurrentCell(4, 3); },
        [&] {
            sheet.selectRange({2, 2, 6, 4});
        },
        [&] { sheet.verticalScrollBar()->setValue(31); },
        [&] { sheet.horizontalScrollBar()->setValue(47); },
        [&] { sheet.verticalScrollBar()->setValue(7); },
        [&] { sheet.clearSelection(); },
        [&] { sheet.setCurrentCell(5, 5); },
        [&] {
            sheet.selectRange({5, 4, 5, 6});
        },
        [&] { sheet.setCurrentCell(6, 4); },
        [&] { sheet.clearSelection(); },
        [&] { sheet.setText(5, 5, s("changed")); },
        [&] {
            sheet.SetStyleRange({3, 3, 4, 5}, {.enabled = false});
        },
        [&] { sheet.selectRows(5, 7); },
        [&] { sheet.setCurrentCell(120, 9); },
        [&] { sheet.HideRows(115, 118); },
        [&] { sheet.RemoveRows(119, 119); },
        [&] { sheet.sortByHeader(3); },
    };
    int number = 0;
    for (const auto& step : steps) {
        step();
        const QImage partial = sheet.onScreen();
        ASSERT_FALSE(partial.isNull());
        sheet.viewport()->update();
        EXPECT_EQ(partial, sheet.onScreen()) << "after step " << number;
        ++number;
    }
}

TEST(GridView, FrozenColumnsStandStillWhileTheOthersScroll) {
    Sheet sheet;
    sheet.setFrozenCols(1);
    sheet.onScreen();
    const QRect first = sheet.cellRect(3, 1);
    const QImage before = sheet.viewport()->grab(first.adjusted(0, 0, -4, 0)).toImage();
    sheet.setCurrentCell(3, 10);
    EXPECT_EQ(sheet.cellRect(3, 1), first);
    sheet.setCurrentCell(9, 10);
    EXPECT_EQ(sheet.viewport()->grab(first.adjusted(0, 0, -4, 0)).toImage(), before);
    EXPECT_LT(sheet.cellRect(3, 2).right(), first.right()) << "behind it";
    EXPECT_EQ(sheet.cellAt(first.center()), (CellPos{3, 1}));
    const QPoint beside(first.right() + 2, first.center().y());
    EXPECT_GT(sheet.cellAt(beside)->col, 2);
    // Backward through what is hidden behind the frozen column.
    sheet.setCurrentCell(3, 3);
    EXPECT_GT(sheet.cellRect(3, 3).left(), first.right());
    sheet.drag(sheet.center(3, 1), sheet.center(4, 3));
    EXPECT_EQ(sheet.selection(), (std::vector<CellRange>{{3, 1, 4, 3}}));
    const QImage partial = sheet.onScreen();
    sheet.viewport()->update();
    EXPECT_EQ(partial, sheet.onScreen());
    sheet.resize(200, 300); // too narrow to lose half of it
    EXPECT_TRUE(sheet.setCurrentCell(3, 10));
    EXPECT_LT(sheet.cellRect(3, 1).right(), 0);
}

TEST(GridView, EscapeTakesOneStepBack) {
    Sheet sheet;
    sheet.selectRange({2, 2, 4, 3});
    sheet.key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(sheet.copiedCells(), (std::vector<CellRange>{{2, 2, 4, 3}}));
    const auto darkOn = [&](int y) {
        const QImage image = sheet.viewport()->grab().toImage();
        int dark = 0;
        for (int x = sheet.cellRect(2, 2).left(); x < sheet.cellRect(2, 3).right(); ++x)
            dark += qGray(image.pixel(x, y)) < 60 ? 1 : 0;
        return dark;
    };
    const int edge = sheet.cellRect(4, 2).bottom();
    EXPECT_GT(darkOn(edge), 40) << "the dashed border";
    sheet.key(Qt::Key_F2);
    for (const int left : {3, 2, 1, 0}) { // editor, border, selection, none
        const int steps = (sheet.isEditing() ? 1 : 0) + (sheet.copiedCells().empty() ? 0 : 1) +
                          (sheet.selection().empty() ? 0 : 1);
        EXPECT_EQ(steps, left);
        EXPECT_EQ(sheet.escape(), left > 0);
    }
    EXPECT_LT(darkOn(edge), 10);
    // The border ends when a text changes, not when one only moves.
    sheet.key(Qt::Key_C, Qt::ControlModifier);
    sheet.key(Qt::Key_Down);
    EXPECT_FALSE(sheet.copiedCells().empty());
    sheet.setText(9, 9, s("x"));
    EXPECT_TRUE(sheet.copiedCells().empty());
}

/// Marks what holds a 7.
class Marked final : public CellSource {
public:
    QString text(int row, int col) const override { return QString::number(row * 10 + col); }
    QString markText(int row, int col) const override {
        return text(row, col).contains(u'7') ? s("Not a seven.") : QString();
    }
};

TEST(GridView, AMarkIsSeenAndHeard) {
    const Marked source;
    CGridWnd grid;
    grid.setSource(source);
    grid.InsertCols(1, 9);
    grid.InsertRows(1, 3);
    grid.resize(900, 200);
    grid.show();
    const auto reds = [&](int row, int col) {
        const QImage cell = grid.viewport()->grab(grid.cellRect(row, col)).toImage();
        int left = 0;
        int right = 0;
        for (int y = 0; y < cell.height(); ++y)
            for (int x = 0; x < cell.width(); ++x) {
                const QColor color = cell.pixelColor(x, y);
                if (color.red() > 150 && color.green() < 60 && color.blue() < 60)
                    ++(x < 8 ? left : right);
            }
        return std::pair(left, right);
    };
    const auto [corner, sign] = reds(1, 7);
    EXPECT_GT(corner, 10);
    EXPECT_GT(sign, 10);
    EXPECT_EQ(reds(1, 6), std::pair(0, 0));
    QAccessibleTableInterface* const table =
        QAccessible::queryAccessibleInterface(&grid)->tableInterface();
    EXPECT_EQ(table->cellAt(0, 6)->text(QAccessible::Description), s(", row 1. Not a seven."));
}

TEST(GridView, ALockedGridMayBePaintedAndUsed) {
    Sheet sheet(3, 2);
    {
        const RedrawLock lock(sheet);
        sheet.InsertCols(3, 3);
        sheet.InsertRows(1, 50);
        EXPECT_TRUE(sheet.setCurrentCell(53, 5));
        sheet.selectRange({50, 4, 53, 5});
        sheet.onScreen();
        sheet.RemoveRows(1, 53);
        sheet.onScreen();
        sheet.InsertRows(1, 2);
    }
    EXPECT_FALSE(sheet.cellRect(2, 5).isEmpty());
}

TEST(GridView, ToldBackgroundsCarryReadableText) {
    for (const auto& [back, dark] :
         {std::pair{QColor(255, 240, 150), true}, std::pair{QColor(20, 20, 60), false}}) {
        Sheet sheet(2, 2);
        QPalette night(QColor(40, 40, 40));
        night.setColor(QPalette::Base, Qt::black);
        night.setColor(QPalette::Text, Qt::white);
        sheet.setPalette(night);
        sheet.SetStyleRange(CellRange::cell(2, 2), {.value = s("MMMM"), .background = back});
        const QImage cell = sheet.viewport()->grab(sheet.cellRect(2, 2)).toImage();
        int darkest = 255;
        int lightest = 0;
        for (int y = 2; y < cell.height() - 2; ++y)
            for (int x = 2; x < cell.width() - 2; ++x) {
                darkest = std::min(darkest, qGray(cell.pixel(x, y)));
                lightest = std::max(lightest, qGray(cell.pixel(x, y)));
            }
        if (dark)
            EXPECT_LT(darkest, 80);
        else
            EXPECT_GT(lightest, 200);
    }
}

TEST(GridView, ClipboardBothWays) {
    Sheet sheet(3, 3);
    sheet.selectRange({1, 1, 2, 2});
    sheet.key(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), s("8\t9\n15\t16\n"));
    sheet.setCurrentCell(2, 2);
    sheet.clearSelection();
    sheet.key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(sheet.text(3, 3), s("16"));
    EXPECT_EQ(sheet.text(2, 2), s("8"));
}

TEST(GridView, PrintsEveryPage) {
    Sheet sheet(100, 10);
    sheet.setPrintTitle(s("Parts"));
    const QTemporaryDir folder;
    const QString file = folder.filePath(s("grid.pdf"));
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(file);
    printer.setPageSize(QPageSize(QPageSize::A4));
    sheet.printTo(printer);
    QFile pdf(file);
    ASSERT_TRUE(pdf.open(QIODevice::ReadOnly));
    const QByteArray bytes = pdf.readAll();
    // 835 dots of columns on a page of about 720: two pages across; 100 rows: three down.
    EXPECT_TRUE(bytes.contains("/Count 6")) << bytes.left(600).toStdString();
}

TEST(GridView, ScreenReadersSeeATable) {
    Sheet sheet(3, 3);
    sheet.setAccessibleName(s("Parts"));
    sheet.SetStyleRange(CellRange::cell(2, 3), {.value = s("1"), .kind = CellKind::CheckBox});
    sheet.SetStyleRange(CellRange::cell(3, 3), {.readOnly = true, .enabled = false});
    QAccessibleInterface* const grid = QAccessible::queryAccessibleInterface(&sheet);
    ASSERT_NE(grid, nullptr);
    EXPECT_EQ(grid->role(), QAccessible::Table);
    EXPECT_EQ(grid->text(QAccessible::Name), s("Parts"));
    QAccessibleTableInterface* const table = grid->tableInterface();
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(table->rowCount(), 3);
    EXPECT_EQ(table->columnDescription(1), s("Column 2"));
    QAccessibleInterface* const cell = table->cellAt(1, 2);
    ASSERT_NE(cell, nullptr);
    EXPECT_EQ(cell->role(), QAccessible::Cell);
    EXPECT_EQ(cell->text(QAccessible::Name), s("1"));
    EXPECT_TRUE(cell->state().checked);
    EXPECT_EQ(cell->text(QAccessible::Description), s("Column 3, row 2"));
    EXPECT_EQ(cell->tableCellInterface()->columnHeaderCells().front()->text(QAccessible::Name),
              s("Column 3"));
    EXPECT_TRUE(table->cellAt(2, 2)->state().disabled);
    sheet.setCurrentCell(2, 1);
    EXPECT_EQ(grid->focusChild(), table->cellAt(1, 0));
    sheet.selectRows(3, 3);
    EXPECT_EQ(table->selectedRows(), QList<int>{2});
    const QPoint place = cell->rect().center();
    EXPECT_EQ(grid->childAt(place.x(), place.y()), cell);
    EXPECT_EQ(grid->child(grid->indexOfChild(cell)), cell);
}

TEST(GridView, AnEmptyGridTakesEverythingCalmly) {
    for (const int cols : {0, 2}) {
        Sheet sheet(0, cols);
        for (const int key : {Qt::Key_Down, Qt::Key_End, Qt::Key_Tab, Qt::Key_F2, Qt::Key_Delete,
                              Qt::Key_Return, Qt::Key_A, Qt::Key_D, Qt::Key_PageDown})
            for (const auto modifiers : {Qt::NoModifier, Qt::ControlModifier, Qt::ShiftModifier})
                sheet.key(key, modifiers);
        sheet.drag({60, 40}, {100, 200});
        sheet.drag({5, 40}, {100, 5});
        sheet.pasteText(s("a\tb"));
        sheet.sortByHeader(1);
        sheet.onScreen();
        EXPECT_EQ(sheet.currentCell(), std::nullopt);
        EXPECT_EQ(sheet.rowCount(), 0);
    }
}

} // namespace
} // namespace partwright::grid
