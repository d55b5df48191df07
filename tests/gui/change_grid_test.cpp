// The table of the Change Component dialog by mouse, clipboard and undo, and what the dialog around
// it does for the keyboard.

#include "gui/change_dialog_fixture.h"
#include "support/widget_sweep.h"

#include <gtest/gtest.h>

#include <QClipboard>
#include <QLineEdit>
#include <QListWidget>

namespace partwright {
namespace {

using test::goodThyristor;
using test::L;
using test::narrow;
using test::SdtaDriver;
using test::typeCol;
using test::whenModal;

QString s(const char* text) {
    return QString::fromLatin1(text);
}

/// Clicks into the middle of a cell, or of a header.
void click(SdtaDriver& d, int row, int col) {
    QTest::mouseClick(d.grid().viewport(), Qt::LeftButton, {},
                      d.grid().cellRect(row, col).center());
}

void paste(SdtaDriver& d, int row, int col, const char* text) {
    QApplication::clipboard()->setText(s(text));
    d.go(row, col);
    d.key(Qt::Key_V, Qt::ControlModifier);
}

/// Parts from top to bottom with one of their values.
std::string column(SdtaDriver& d, int col) {
    QStringList cells;
    for (int row = 1; row <= d.grid().rowCount(); ++row)
        cells << d.grid().text(row, 1) + QLatin1Char('=') + d.grid().text(row, col);
    return cells.join(QLatin1Char(' ')).toStdString();
}

TEST(ChangeGrid, AClickElsewhereIsRefusedWithTheText) {
    SdtaDriver d;
    d.open(3, std::vector(3, goodThyristor()));
    d.openDialog();
    d.go(2, L(1));
    d.keys("20000");
    struct Place {
        int row, col;
    };
    for (const Place place : {Place{3, L(1)}, {0, L(2)}, {0, L(1)}, {1, 0}}) {
        d.prompt.expect(L"Value Type or Range Error.");
        click(d, place.row, place.col);
        EXPECT_EQ(d.grid().editedCell(), (grid::CellPos{2, L(1)}));
        EXPECT_EQ(d.grid().controlText(2, L(1)), s("20000"));
        EXPECT_EQ(d.grid().currentCell(), (grid::CellPos{2, L(1)}));
        EXPECT_EQ(d.grid().sortedCol(), 0);
        EXPECT_TRUE(d.grid().selection().empty());
    }
    d.key(Qt::Key_Escape);
    EXPECT_EQ(column(d, L(1)), "P1=10 P2=10 P3=10");
    EXPECT_FALSE(d.session->canUndo());
    // On the edge of an open cell there is nothing to choose from.
    d.go(2, L(1));
    d.key(Qt::Key_F2);
    QTest::mouseClick(d.grid().viewport(), Qt::LeftButton, {},
                      d.grid().cellRect(2, L(1)).bottomRight());
    EXPECT_EQ(d.visible<grid::ChoicePopup>(), nullptr);
    EXPECT_TRUE(d.grid().isEditing());
}

TEST(ChangeGrid, ChoosesATypeByMouseAndByTyping) {
    SdtaDriver d;
    d.open(19, {{6, {L"-2", L"100"}}, {0, {}}});
    d.openDialog();
    ASSERT_EQ(d.text(1, typeCol), "IC.Socket");
    ASSERT_EQ(d.text(1, L(1)), "N/A");
    const QRect cell = d.grid().cellRect(1, typeCol);
    QTest::mouseClick(d.grid().viewport(), Qt::LeftButton, {},
                      QPoint(cell.right() - cell.height() / 2, cell.center().y()));
    auto* popup = d.visible<grid::ChoicePopup>();
    ASSERT_NE(popup, nullptr);
    QTreeWidget* entries = popup->entries();
    const auto found = entries->findItems(s("Coaxial"), Qt::MatchExactly);
    ASSERT_EQ(found.size(), 1);
    EXPECT_FALSE(found[0]->text(1).isEmpty());
    entries->scrollToItem(found[0]);
    QTest::mouseClick(entries->viewport(), Qt::LeftButton, {},
                      entries->visualItemRect(found[0]).center());
    EXPECT_EQ(d.text(1, typeCol), "Coaxial");
    EXPECT_EQ(d.text(1, L(2)), ""); // the old type's value is gone
    EXPECT_FALSE(d.grid().isEditing());
    d.shortcut(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(d.text(1, L(2)), "100");

    d.go(2, typeCol);
    d.key('C');
    popup = d.visible<grid::ChoicePopup>();
    ASSERT_NE(popup, nullptr);
    QTest::keyClick(popup->entries(), 'o');
    QTest::keyClick(popup->entries(), Qt::Key_Return);
    EXPECT_EQ(d.text(2, typeCol), "Coaxial");
    EXPECT_EQ(d.text(2, L(1)), "N/A");
    // Dropping the list leaves the cell as it was.
    d.go(2, typeCol);
    d.key(Qt::Key_Down, Qt::AltModifier);
    QTest::keyClick(d.visible<grid::ChoicePopup>()->entries(), Qt::Key_Escape);
    EXPECT_FALSE(d.grid().isEditing());
    EXPECT_EQ(d.text(2, typeCol), "Coaxial");
    EXPECT_TRUE(d.dialog->isVisible());
}

TEST(ChangeGrid, PastesTypesWithTheirValuesIntoSortedRows) {
    SdtaDriver d;
    d.open(19, {{6, {L"-2", L"1"}}, {6, {L"-2", L"3"}}, {6, {L"-2", L"2"}}});
    d.openDialog();
    click(d, 0, L(2));
    ASSERT_EQ(column(d, L(2)), "P1=1 P3=2 P2=3");
    // The first value's cell does not apply before the type is there, nor under the last type.
    paste(d, 1, typeCol, "Circular\t20\t150\nPower\t22\tN/A\t5\nCoaxial\t24\t160\n");
    EXPECT_EQ(column(d, typeCol), "P1=Circular P3=Power P2=Coaxial");
    EXPECT_EQ(column(d, L(1)), "P1=20 P3=22 P2=N/A");
    EXPECT_EQ(column(d, L(2)), "P1=150 P3= P2=160");
    EXPECT_EQ(column(d, L(3)), "P1= P3=5 P2=");
    // What is no type, or has no right to be in a cell, is passed over.
    paste(d, 1, 1, "OTHER\t\ttext\t+\tCrystal\t1\n");
    EXPECT_EQ(d.text(1, 1) + d.text(1, 2) + d.text(1, 3) + d.text(1, typeCol), "P1C1textCircular");
    d.shortcut(Qt::Key_Z, Qt::ControlModifier);
    d.shortcut(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(column(d, L(2)), "P1=1 P3=2 P2=3");
    EXPECT_EQ(column(d, typeCol), "P1=IC.Socket P3=IC.Socket P2=IC.Socket");
    EXPECT_FALSE(d.session->canUndo());
    // Delete with a key held down is none, and leaves nothing behind for a later paste.
    d.go(1, L(2));
    d.key(Qt::Key_Delete, Qt::ShiftModifier);
    paste(d, 2, L(3), "8");
    EXPECT_EQ(column(d, L(2)), "P1=1 P3=2 P2=3");
    d.prompt.expect(L"Select row(s) for deleting by click on row header.");
    d.key(Qt::Key_Delete, Qt::KeypadModifier);
    d.shortcut(Qt::Key_Z, Qt::ControlModifier);
    // One text over two selections is one step too.
    d.grid().selectRange(grid::CellRange::cell(1, L(3)));
    d.grid().addSelection({2, L(3), 3, L(4)});
    QApplication::clipboard()->setText(s("9"));
    d.key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(column(d, L(3)), "P1=9 P3=9 P2=9");
    d.shortcut(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_FALSE(d.session->canUndo());
}

TEST(ChangeGrid, CellsThatBreakTheirRuleAreCountedAndWalked) {
    SdtaDriver d;
    auto parts = std::vector(40, goodThyristor());
    parts[30].values[0] = L"abc"; // as a file may have it
    d.open(3, parts);
    d.openDialog();
    auto& count = d.find<QLabel>("markCount");
    const auto counted = [&] {
        QApplication::processEvents();
        return count.text().toStdString();
    };
    EXPECT_EQ(counted(), "1 cell breaks its rule");
    paste(d, 1, L(4), "x\t5\t400\ny\t6\t\n");
    EXPECT_EQ(d.shownLine(), "2 of 5 pasted values break their rule; first: P1, Tjmax: Value x out "
                             "of range:  Maximum junction temperature in degrees Celsius must be "
                             "from 60 to 300.");
    EXPECT_EQ(counted(), "3 cells break their rule");
    EXPECT_EQ(d.grid().markText(2, L(4)).left(7), s("Value y"));
    EXPECT_TRUE(d.grid().markText(2, L(5)).isEmpty());
    std::string way;
    for (const auto with : {Qt::NoModifier, Qt::NoModifier, Qt::NoModifier, Qt::ShiftModifier}) {
        d.shortcut(Qt::Key_F8, with);
        way += std::to_string(d.grid().currentCell()->row) + " ";
    }
    EXPECT_EQ(way, "2 25 1 25 ");
    EXPECT_TRUE(d.grid().viewport()->rect().contains(d.grid().cellRect(25, L(1))));
    EXPECT_EQ(d.shownLine().substr(0, 9), "Value abc");
    d.keys("5");
    d.key(Qt::Key_Return);
    d.shortcut(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(counted(), "3 cells break their rule");
    d.shortcut(Qt::Key_Y, Qt::ControlModifier);
    paste(d, 1, L(4), "125\n125\n");
    EXPECT_EQ(counted(), "");
    d.shortcut(Qt::Key_F8, {});
    EXPECT_EQ(d.shownLine(), "No cell breaks its rule.");
    EXPECT_EQ(d.grid().tip(1, L(4)).section(u'\n', 1),
              s("Maximum junction temperature in degrees Celsius must be from 60 to 300. \"-\" is "
                "allowed."));
    EXPECT_EQ(d.grid().tip(0, L(4)), d.grid().tip(1, L(4)));
}

TEST(ChangeGrid, APasteAsTypedReadsUnitLetters) {
    test::AsrDriver d;
    d.open(21, {{1, {}}});
    d.openDialog();
    QApplication::clipboard()->setText(s("4.7k"));
    d.go(1, L(1));
    d.key(Qt::Key_V, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(d.text(1, L(1)), "4700");
    d.key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(d.text(1, L(1)), "4.7k");
}

TEST(ChangeGrid, FullIsTheStoredFlagUntilACellIsSelected) {
    SdtaDriver d;
    d.open(3, std::vector(2, goodThyristor()));
    d.openDialog();
    EXPECT_EQ(column(d, 4), "P1=- P2=-");
    d.go(2, L(2));
    EXPECT_EQ(column(d, 4), "P1=+ P2=+");
}

TEST(ChangeGrid, DragsSeveralColumnsInOneStep) {
    SdtaDriver d;
    d.open(19, {{2, {L"20", L"100", L"5"}}, {3, {}}, {3, {}}});
    d.openDialog();
    d.go(1, typeCol);
    d.grid().selectRange({1, typeCol, 1, L(2)});
    QWidget* const sheet = d.grid().viewport();
    const QPoint from = d.grid().fillHandleRect().center();
    const QPoint to = d.grid().cellRect(3, L(2)).center();
    QTest::mousePress(sheet, Qt::LeftButton, {}, from);
    QTest::mouseMove(sheet, (from + to) / 2);
    QTest::mouseMove(sheet, to);
    QTest::mouseRelease(sheet, Qt::LeftButton, {}, to);
    EXPECT_EQ(column(d, typeCol), "P1=Circular P2=Circular P3=Circular");
    EXPECT_EQ(column(d, L(1)), "P1=20 P2=20 P3=20");
    EXPECT_EQ(column(d, L(2)), "P1=100 P2=100 P3=100");
    EXPECT_EQ(column(d, L(3)), "P1=5 P2= P3=");
    EXPECT_TRUE(d.grid().selection().empty());
    d.shortcut(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(column(d, typeCol), "P1=Circular P2=Coaxial P3=Coaxial");
    EXPECT_EQ(column(d, L(1)), "P1=20 P2=N/A P3=N/A");
    EXPECT_FALSE(d.session->canUndo());
}

TEST(ChangeGrid, UndoAndRedoWalkThroughEveryVerbOfSortedRows) {
    SdtaDriver d;
    d.projectParts.clear();
    auto parts = std::vector(4, goodThyristor());
    for (std::size_t i = 0; i < parts.size(); ++i)
        parts[i].values[0] = std::to_wstring((i * 7 + 3) % 10);
    d.open(3, parts);
    d.openDialog();
    click(d, 0, L(1));
    const auto picture = [&] {
        std::map<std::string, std::string> rows;
        for (int row = 1; row <= d.grid().rowCount(); ++row)
            for (int col = 2; col <= d.grid().colCount(); ++col)
                rows[d.text(row, 1)] += d.text(row, col) + "|";
        return rows;
    };
    const auto number = [&](const char* part) {
        whenModal(*d.dialog, [part](QDialog& box) {
            box.findChild<QLineEdit*>()->setText(s(part));
            box.accept();
        });
    };
    const int link = static_cast<int>(d.session->setup().datasheetColumn);
    const std::vector<std::function<void()>> verbs = {
        [&] { d.enter(2, L(2), "40"); },
        [&] {
            d.go(3, L(1));
            d.dragFill(4);
        },
        [&] { paste(d, 1, L(4), "130\n131"); },
        [&] {
            d.grid().selectRows(2, 3);
            d.prompt.expectQuestion(message::selectedForDeletion(2) +
                                        std::wstring(message::deleteQuestion),
                                    PromptAnswer::Yes);
            d.key(Qt::Key_Delete);
        },
        [&] {
            number("added");
            d.press("add");
        },
        [&] {
            d.go(1, L(1));
            number("copied");
            d.press("copy");
        },
        [&] {
            d.go(1, L(1));
            whenModal(*d.dialog, [](QDialog& box) {
                box.findChild<QListWidget*>(s("groups"))->setCurrentRow(1);
                box.accept();
            });
            d.press("changeGroup");
        },
        [&] {
            d.go(1, L(1));
            whenModal(*d.dialog, [](QDialog& box) { box.accept(); });
            d.press("calculator");
        },
        [&] { d.enter(1, link, "a.pdf"); },
        [&] {
            d.go(1, link);
            d.key(Qt::Key_Delete);
        },
    };
    std::vector<std::map<std::string, std::string>> pictures = {picture()};
    for (std::size_t i = 0; i < verbs.size(); ++i) {
        verbs[i]();
        pictures.push_back(picture());
        EXPECT_NE(pictures[i], pictures[i + 1]) << "verb " << i;
    }
    for (std::size_t i = verbs.size(); i-- > 0;) {
        d.shortcut(Qt::Key_Z, Qt::ControlModifier);
        EXPECT_EQ(picture(), pictures[i]) << "undo of verb " << i;
    }
    EXPECT_FALSE(d.session->canUndo());
    for (std::size_t i = 1; i <= verbs.size(); ++i) {
        d.shortcut(Qt::Key_Y, Qt::ControlModifier);
        EXPECT_EQ(picture(), pictures[i]) << "redo of verb " << i - 1;
    }
    EXPECT_FALSE(d.session->canRedo());
    // The new numbers stay known after all is dropped.
    d.press("cancel");
    EXPECT_TRUE(d.shownParts.contains(L"ADDED") && d.libraryParts.contains(L"COPIED"));
}

TEST(ChangeGrid, UndoShowsWhatItBrought) {
    SdtaDriver d;
    d.open(3, std::vector(60, goodThyristor()));
    d.openDialog();
    d.enter(50, L(1), "11");
    d.go(1, L(2));
    const std::string line = d.shownLine();
    ASSERT_FALSE(line.empty());
    d.shortcut(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(d.grid().currentCell(), (grid::CellPos{50, L(2)}));
    EXPECT_TRUE(d.grid().viewport()->rect().contains(d.grid().cellRect(50, L(2))));
    EXPECT_EQ(d.shownLine(), line);
    d.shortcut(Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(d.text(50, L(1)), "11");
    EXPECT_EQ(d.shownLine(), line);
}

TEST(ChangeGrid, TheLineOfAStopStaysUntilTheNextCell) {
    for (const int from : {1, 2}) { // the stop is in the current row, or in another
        SdtaDriver d;
        auto parts = std::vector(2, goodThyristor());
        parts[1].values[7] = L"5"; // Oja below Ojc
        d.open(3, parts);
        d.openDialog();
        d.go(from, L(2));
        d.press("ok");
        EXPECT_TRUE(d.dialog->isVisible());
        EXPECT_EQ(d.shownLine().find("Thermal resistance Oja must be"), 0u) << d.shownLine();
        EXPECT_EQ(d.grid().selectedRows(), std::vector<int>{2});
        d.key(Qt::Key_Right);
        EXPECT_EQ(d.shownLine().find("Thermal"), std::string::npos) << from;
    }
}

TEST(ChangeGrid, TheLineForgetsAnErrorThatIsMended) {
    SdtaDriver d;
    auto part = goodThyristor();
    part.values[2] = L"X";
    d.open(3, {part, part});
    d.openDialog();
    d.go(1, L(3));
    ASSERT_EQ(d.shownLine(), " /X/ Must be from list");
    d.choose("C");
    EXPECT_EQ(d.shownLine().find("list"), std::string::npos) << d.shownLine();
    d.shortcut(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(d.shownLine(), " /X/ Must be from list");
    d.shortcut(Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(d.shownLine().find("list"), std::string::npos) << d.shownLine();

    const std::string hint = "Rated power dissipation at the reference temperature Ts, W";
    d.go(1, L(1));
    d.keys("abc");
    d.prompt.expect(L"Value Type or Range Error.");
    d.key(Qt::Key_Return, Qt::ControlModifier);
    d.keys("5");
    d.key(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(d.shownLine(), hint);
    paste(d, 1, L(1), "abc");
    EXPECT_NE(d.shownLine(), hint);
    paste(d, 1, L(1), "7");
    EXPECT_EQ(d.shownLine(), hint);
    // What is typed over a cell can be taken back in the editor.
    d.keys("9");
    d.key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(d.grid().controlText(1, L(1)), s("7"));
}

TEST(ChangeGrid, AFaultOfTheTablesIsToldOnceForManyCells) {
    SdtaDriver d;
    d.rules.rules.clear();
    d.open(3, std::vector(3, goodThyristor()));
    d.openDialog();
    d.go(1, 2);
    d.grid().selectRange({1, L(1), 3, L(2)});
    QApplication::clipboard()->setText(s("12"));
    d.prompt.expect(L"Failed Validation ID.");
    d.key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(column(d, L(2)), "P1=12 P2=12 P3=12");
    d.prompt.expect(L"Failed Validation ID.");
    d.go(1, L(1));
    d.keys("13");
    d.prompt.expect(L"Failed Validation ID.");
    d.prompt.expect(L"Value Type or Range Error.");
    d.key(Qt::Key_Return);
    EXPECT_TRUE(d.grid().isEditing());
}

TEST(ChangeGrid, AnEmptyGroupAndOneWithoutParametersCanBeWorked) {
    SdtaDriver d;
    d.open(18, {});
    d.openDialog();
    d.grid().setFocus();
    d.prompt.expect(L"The Components Table is empty.");
    d.key(Qt::Key_F, Qt::ControlModifier);
    d.prompt.expect(L"Select row(s) for deleting by click on row header.");
    d.key(Qt::Key_Delete);
    d.prompt.expect(L"You should select a row in the Component Table.");
    d.press("copy");
    for (const auto key : {Qt::Key_Down, Qt::Key_F2, Qt::Key_End, Qt::Key_Return, Qt::Key_Space})
        d.key(key);
    click(d, 0, 2);
    whenModal(*d.dialog, [](QDialog& box) {
        box.findChild<QLineEdit*>()->setText(s("two\nlines"));
        box.accept();
    });
    d.press("add");
    ASSERT_EQ(column(d, typeCol).find("TWO LINES="), 0u) << column(d, typeCol);
    if (d.text(1, typeCol).empty()) {
        EXPECT_EQ(d.text(1, 4), "-");
        d.prompt.expectQuestion(message::notAllFilledIn, PromptAnswer::Yes);
    } else {
        EXPECT_EQ(d.text(1, 4), "+"); // the type is all there is
    }
    d.press("ok");
    EXPECT_EQ(d.session->takeRecords().at(L"TWO LINES").group, 18);
}

TEST(ChangeGrid, WithoutATypeARowTakesNoValues) {
    SdtaDriver d;
    d.app.sdta.defaultTypes.clear();
    d.open(3, {});
    d.openDialog();
    whenModal(*d.dialog, [](QDialog& box) {
        box.findChild<QLineEdit*>()->setText(s("new"));
        box.accept();
    });
    d.press("add");
    ASSERT_EQ(d.text(1, typeCol), "");
    d.go(1, L(1));
    EXPECT_EQ(d.shownLine(), "You must choose Type first time");
    d.keys("5");
    d.key(Qt::Key_Return); // refused without a box
    EXPECT_EQ(d.grid().controlText(1, L(1)), s("5"));
    EXPECT_TRUE(d.grid().isEditing());
    d.key(Qt::Key_Escape);
    d.go(1, L(3));
    d.choose("A");
    EXPECT_TRUE(d.grid().isEditing());
    EXPECT_EQ(d.grid().controlText(1, L(3)), s("A"));
    d.key(Qt::Key_Tab);
    EXPECT_TRUE(d.grid().isEditing());
    d.key(Qt::Key_Escape);
    EXPECT_EQ(d.text(1, L(3)), "");
    EXPECT_TRUE(d.dialog->isVisible());
    // The first type is taken at once.
    d.go(1, typeCol);
    d.choose("SCR");
    EXPECT_EQ(d.text(1, typeCol), "SCR");
    EXPECT_FALSE(d.grid().isEditing());
    d.enter(1, L(1), "5");
    EXPECT_EQ(d.text(1, L(1)), "5");
    for (int steps = 0; steps < 2; ++steps)
        d.shortcut(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(d.text(1, typeCol) + d.text(1, L(1)), "");
}

TEST(ChangeGrid, TheKeyboardReachesEveryControl) {
    SdtaDriver d;
    d.open(3, {goodThyristor()});
    d.openDialog();
    EXPECT_EQ(test::namelessControls(*d.dialog), QStringList());
    QSet<QChar> mnemonics;
    for (const QAbstractButton* button : d.dialog->findChildren<QAbstractButton*>())
        if (const auto at = button->text().indexOf(u'&'); at >= 0) {
            const QChar letter = button->text().at(at + 1).toLower();
            EXPECT_FALSE(mnemonics.contains(letter)) << button->text().toStdString();
            mnemonics.insert(letter);
        }
    QTest::keyClick(&d.grid(), Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(test::tabWay().join(s(" ")),
              s("add copy changeGroup calculator ok cancel componentGrid"));
    d.shortcut(Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(test::tabWay().join(s(" ")),
              s("findText findColumn findMode findCase findBackward findNext findClose add copy "
                "changeGroup calculator ok cancel componentGrid"));
    // Enter presses the button that has the focus, not OK.
    auto& add = d.find<QPushButton>("add");
    add.setFocus();
    bool asked = false;
    whenModal(*d.dialog, [&asked](QDialog& box) {
        asked = true;
        box.reject();
    });
    QTest::keyClick(&add, Qt::Key_Return);
    EXPECT_TRUE(asked);
    EXPECT_TRUE(d.dialog->isVisible());
}

} // namespace
} // namespace partwright
