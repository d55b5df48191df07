// The core without a window.

#include "grid/grid_core.h"
#include "support/qt_print.h"

#include <gtest/gtest.h>

#include <QStringList>

namespace partwright::grid {
namespace {

QString s(const char* text) {
    return QString::fromLatin1(text);
}

class Sheet : public CGridCore {
public:
    /// Cells in reading order, columns separated by '|', rows by '/'.
    Sheet(int cols, const QString& cells) {
        InsertCols(1, cols);
        const QStringList rows = cells.split(u'/');
        InsertRows(1, static_cast<int>(rows.size()));
        for (int row = 1; row <= rowCount(); ++row) {
            const QStringList texts = rows[row - 1].split(u'|');
            for (int col = 1; col <= cols; ++col)
                setText(row, col, texts.value(col - 1));
        }
    }

    [[nodiscard]] QString cells() const {
        QStringList rows;
        for (int row = 1; row <= rowCount(); ++row) {
            QStringList texts;
            for (int col = 1; col <= colCount(); ++col)
                texts.append(text(row, col));
            rows.append(texts.join(u'|'));
        }
        return rows.join(u'/');
    }

    void cellsChanged(const CellRange& range) override {
        CGridCore::cellsChanged(range);
        if (!redrawLocked())
            ++redraws;
    }
    bool validateCell(int, int, const QString& text) override {
        nested = commitText(1, 1, QStringLiteral("nested"));
        return text != QStringLiteral("bad");
    }
    void autoFillFinished(CellPos source, const CellRange& range) override {
        fills.append(QStringLiteral("%1,%2:%3-%4")
                         .arg(source.row)
                         .arg(source.col)
                         .arg(range.top)
                         .arg(range.bottom));
        CGridCore::autoFillFinished(source, range);
    }
    using CGridCore::commitText;

    int redraws = 0;
    bool nested = false;
    QStringList fills;
};

TEST(GridCore, RowsComeAndGoInOrder) {
    Sheet sheet(1, s("a/b/c/d/e"));
    const RowKey key = sheet.rowKey(4);
    sheet.setCurrentCell(4, 1);
    sheet.RemoveRows(2, 3);
    EXPECT_EQ(sheet.cells(), s("a/d/e"));
    EXPECT_EQ(sheet.rowOfKey(key), 2);
    EXPECT_EQ(sheet.currentCell(), (CellPos{2, 1}));
    EXPECT_EQ(sheet.text(2, 0), s("2"));
    sheet.InsertRows(2, 3);
    EXPECT_EQ(sheet.cells(), s("a////d/e"));
    EXPECT_EQ(sheet.rowOfKey(key), 5);
    sheet.removeRowList({6, 1, 99, 1});
    EXPECT_EQ(sheet.cells(), s("///d"));
    sheet.RemoveRows(4, 4);
    EXPECT_EQ(sheet.rowOfKey(key), -1);
    EXPECT_EQ(sheet.currentCell(), (CellPos{3, 1}));
    sheet.RemoveRows(1, 3);
    EXPECT_EQ(sheet.currentCell(), std::nullopt);
    EXPECT_FALSE(sheet.setCurrentCell(1, 1));
}

/// An owner's rows: letters, of which it says what they are by their order.
class Letters final : public CellSource {
public:
    explicit Letters(const char* letters) : letters_(QString::fromLatin1(letters)) {}
    QString text(int row, int col) const override {
        return col == 1 ? letters_.mid(row, 1) : s("-");
    }

    QString letters_;
};

TEST(GridCore, AnOwnersRowsAreReadWhereTheyAre) {
    Letters letters("cadb");
    Sheet sheet(0, {});
    sheet.RemoveRows(1, 1);
    sheet.setSource(letters);
    sheet.InsertCols(1, 2);
    sheet.InsertRows(1, 4);
    sheet.sortRows(1, {});
    EXPECT_EQ(sheet.cells(), s("a|-/b|-/c|-/d|-"));
    EXPECT_EQ(sheet.sourceRow(1), 1);
    EXPECT_EQ(sheet.rowOfSource(2), 4);
    sheet.setCurrentCell(3, 1);   // c
    letters.letters_ = s("cxdb"); // a changed, nobody carries it over
    sheet.sourceChanged(1);
    EXPECT_EQ(sheet.cells(), s("x|-/b|-/c|-/d|-"));
    EXPECT_EQ(sheet.commitText(3, 1, s("good")), true);
    EXPECT_EQ(sheet.text(3, 1), s("c")) << "the owner alone writes";
    // x and d leave; y and z come in front of b and at the end.
    letters.letters_ = s("cybz");
    sheet.sourceReshaped({1, 2}, {1, 3});
    EXPECT_EQ(sheet.cells(), s("y|-/b|-/c|-/z|-"));
    EXPECT_EQ(sheet.currentCell(), (CellPos{3, 1})) << "it stays with its row";
    letters.letters_ = s("yb");
    sheet.sourceReshaped({0, 3}, {});
    EXPECT_EQ(sheet.cells(), s("y|-/b|-"));
    EXPECT_EQ(sheet.currentCell(), (CellPos{2, 1}));
}

TEST(GridCore, StylesMergeAndColumnsGiveTheDefault) {
    Sheet sheet(3, s("a|b|c/d|e|f"));
    sheet.setColStyle(2, {.readOnly = true});
    sheet.SetStyleRange({1, 1, 2, 2}, {.bold = true});
    sheet.SetStyleRange(CellRange::cell(1, 2), {.value = s("new"), .enabled = false});
    EXPECT_TRUE(sheet.cellStyle(1, 2).readOnly);
    EXPECT_TRUE(sheet.cellStyle(1, 2).bold);
    EXPECT_FALSE(sheet.cellStyle(1, 2).enabled);
    EXPECT_TRUE(sheet.cellStyle(2, 2).enabled);
    EXPECT_TRUE(sheet.isEditable(1, 1));
    EXPECT_FALSE(sheet.isEditable(2, 2));
    EXPECT_FALSE(sheet.isEditable(0, 1));
    EXPECT_EQ(sheet.cells(), s("a|new|c/d|e|f"));
    // A row that reuses the place of a removed one starts with the column's style.
    sheet.RemoveRows(1, 1);
    sheet.InsertRows(1);
    EXPECT_FALSE(sheet.cellStyle(1, 2).bold);
    EXPECT_TRUE(sheet.cellStyle(1, 2).readOnly);
    EXPECT_EQ(sheet.text(1, 2), QString());
}

TEST(GridCore, SortByHeaderFlipsAndLeavesAlone) {
    const auto flags = std::make_shared<SortFlags>();
    {
        Sheet sheet(2, s("2|/10|/1|"));
        sheet.setSortFlags(flags);
        sheet.SetStyleRange(CellRange::cell(2, 1), {.bold = true});
        sheet.selectRows(1, 2);
        sheet.sortByHeader(1);
        EXPECT_EQ(sheet.cells(), s("1|/2|/10|"));
        EXPECT_TRUE(sheet.cellStyle(3, 1).bold);
        EXPECT_TRUE(sheet.selection().empty());
        EXPECT_EQ(sheet.currentCell(), (CellPos{1, 1}));
        sheet.sortByHeader(2);
        EXPECT_EQ(flags->count(2), 0U) << "an empty column flips nothing";
        EXPECT_EQ(sheet.cells(), s("1|/2|/10|"));
    }
    Sheet next(2, s("2|/10|/1|"));
    next.setSortFlags(flags);
    next.sortByHeader(1);
    EXPECT_EQ(next.cells(), s("10|/2|/1|")) << "the direction outlives the grid";
    Sheet one(1, s("x"));
    one.setSortFlags(flags);
    one.sortByHeader(1);
    EXPECT_FALSE(flags->at(1)) << "a single row flips nothing";
}

TEST(GridCore, CopyLeavesOutWhatIsHidden) {
    Sheet sheet(3, s("a|b|c/d|e|f/g|h|i"));
    EXPECT_EQ(sheet.selectedText(), QString());
    sheet.setCurrentCell(2, 3);
    EXPECT_EQ(sheet.selectedText(), s("f"));
    sheet.HideCols(2, 2);
    sheet.HideRows(2, 2);
    sheet.selectRange({1, 1, 3, 3});
    EXPECT_EQ(sheet.selectedText(), s("a\tc\ng\ti\n"));
    sheet.HideRows(2, 2, false);
    sheet.selectRows(3, 3);
    sheet.addSelection(CellRange::rows(1, 1));
    EXPECT_EQ(sheet.selectedText(), s("a\tc\ng\ti\n"));
    EXPECT_EQ(sheet.selectedRows(), (std::vector<int>{1, 3}));
}

TEST(GridCore, PasteGoesWhereTheUserCouldType) {
    struct Case {
        CellRange target;
        const char* text;
        const char* expected;
    };
    // Column 2 is a list of "x" and "y", cell (2, 3) is disabled, row 3 is read-only.
    const Case cases[] = {
        {CellRange::cell(1, 1), "1\tx\t3\n4\tq\t6\n", "1|x|3/4||/||"},
        {{1, 1, 2, 3}, "y", "y|y|y/y|y|/||"},
        {{1, 1, 2, 1}, "1\n", "1||/1||/||"},
        {{1, 1, 3, 2}, "7\ty", "7|y|/7|y|/||"},
        {{1, 1, 2, 2}, "1\tx\t3", "1|x|3/||/||"},
        {CellRange::cell(3, 3), "1\t2\n3\t4", "||/||/||"},
        {CellRange::cell(1, 3), "1\t2\n3\n4\n5", "||1/||/||"},
    };
    for (const Case& row : cases) {
        Sheet sheet(3, s("||/||/||"));
        sheet.setColStyle(2, {.kind = CellKind::DropDown, .choices = s("x\ny")});
        sheet.SetStyleRange(CellRange::cell(2, 3), {.enabled = false});
        sheet.SetStyleRange(CellRange::rows(3, 3), {.readOnly = true});
        sheet.setCurrentCell(row.target.top, row.target.left);
        if (row.target.top != row.target.bottom || row.target.left != row.target.right)
            sheet.selectRange(row.target);
        sheet.pasteText(s(row.text));
        EXPECT_EQ(sheet.cells(), s(row.expected)) << row.text;
    }
    Sheet many(2, s("|/|/|"));
    many.selectRange(CellRange::cell(1, 1));
    many.addSelection({2, 2, 3, 2});
    many.pasteText(s("p"));
    EXPECT_EQ(many.cells(), s("p|/|p/|p"));
    Sheet sheet(3, s("||/||"));
    sheet.HideCols(2, 2);
    sheet.setCurrentCell(1, 1);
    sheet.pasteText(s("1\t2"));
    EXPECT_EQ(sheet.cells(), s("1||2/||"));
}

TEST(GridCore, FillAsksOncePerColumn) {
    Sheet sheet(3, s("a|x|b/||/||c"));
    sheet.setColStyle(2, {.kind = CellKind::DropDown, .choices = s("y")});
    sheet.fill(1, {1, 1, 3, 3});
    EXPECT_EQ(sheet.fills, (QStringList{s("1,1:1-3"), s("1,2:1-3"), s("1,3:1-3")}));
    EXPECT_EQ(sheet.cells(), s("a|x|b/a||b/a||b"));
}

TEST(GridCore, LockMakesOneRedrawOfMany) {
    Sheet sheet(2, s("|/|"));
    sheet.redraws = 0;
    {
        const RedrawLock outer(sheet);
        const RedrawLock inner(sheet);
        sheet.setText(1, 1, s("a"));
        sheet.SetStyleRange({1, 1, 2, 2}, {.bold = true});
    }
    EXPECT_EQ(sheet.redraws, 1);
    sheet.setText(1, 1, s("b"), Redraw::Later);
    EXPECT_EQ(sheet.redraws, 1);
}

TEST(GridCore, ValidationNeverNests) {
    Sheet sheet(1, s("a/b"));
    EXPECT_TRUE(sheet.commitText(2, 1, s("good")));
    EXPECT_FALSE(sheet.nested);
    EXPECT_FALSE(sheet.commitText(2, 1, s("bad")));
    EXPECT_EQ(sheet.cells(), s("a/good"));
}

TEST(GridCore, SizesHaveALowerLimit) {
    Sheet sheet(2, s("|"));
    sheet.SetColWidth(1, 99, 3);
    sheet.setRowHeight(0);
    EXPECT_EQ(sheet.colWidth(2), 15);
    EXPECT_EQ(sheet.rowHeight(), 15);
}

} // namespace
} // namespace partwright::grid
