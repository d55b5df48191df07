// The Change Component dialog as a person uses it: keys, the mouse, boxes.

#include "gui/change_dialog_fixture.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QClipboard>
#include <QLineEdit>
#include <QListWidget>

namespace partwright {
namespace {

using test::AsrDriver;
using test::goodThyristor;
using test::L;
using test::narrow;
using test::SdtaDriver;
using test::typeCol;
using test::whenModal;

TEST(ChangeDialog, OneEditIsRefusedAndThenTaken) {
    SdtaDriver d;
    d.open(3, {goodThyristor(), goodThyristor()});
    d.openDialog();
    EXPECT_EQ(d.dialog->windowTitle().toStdString(),
              "Component Table\t\tGroup: Diode SCR \tQuantity: 2");
    d.go(1, L(1));
    EXPECT_EQ(d.shownLine(), "Rated power dissipation at the reference temperature Ts, W");
    d.keys("20000");
    for (const auto leave : {Qt::Key_Return, Qt::Key_Tab, Qt::Key_Down}) {
        d.prompt.expect(L"Value Type or Range Error.");
        d.key(leave);
        ASSERT_TRUE(d.grid().isEditing());
        EXPECT_EQ(d.grid().controlText(1, L(1)).toStdString(), "20000");
        EXPECT_EQ(d.grid().currentCell(), (grid::CellPos{1, L(1)}));
        EXPECT_EQ(d.text(1, L(1)), "10");
        EXPECT_EQ(d.shownLine(),
                  "Value 20000 out of range:  Power in W must be above 0 and at most 10000.");
    }
    // A button of the dialog asks the editor first.
    d.prompt.expect(L"Value Type or Range Error.");
    d.press("ok");
    EXPECT_TRUE(d.dialog->isVisible());
    d.key(Qt::Key_Escape);
    EXPECT_FALSE(d.grid().isEditing());
    EXPECT_EQ(d.text(1, L(1)), "10");
    EXPECT_EQ(d.shownLine().find("out of range"), std::string::npos);
    d.keys("10.0");
    d.key(Qt::Key_Return);
    EXPECT_EQ(d.text(1, L(1)), "10.0");
    EXPECT_EQ(d.grid().currentCell(), (grid::CellPos{2, L(1)}));

    d.shortcut(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(d.text(1, L(1)), "10");
    d.shortcut(Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(d.text(1, L(1)), "10.0");
    d.press("ok");
    EXPECT_EQ(d.dialog->result(), QDialog::Accepted);
    EXPECT_EQ(d.session->takeRecords().at(L"P1").LPar[0], L"10.0");
}

TEST(ChangeDialog, TypeTakesEffectFromTheListAndComesBack) {
    SdtaDriver d;
    d.open(11, {{1, {L"50", L"85"}}});
    d.openDialog();
    const std::string first = d.text(1, typeCol);
    const std::string value = d.text(1, L(1));
    ASSERT_NE(first, "Custom");
    d.go(1, typeCol);
    d.choose("Custom");
    EXPECT_EQ(d.text(1, typeCol), "Custom");
    EXPECT_EQ(d.text(1, L(1)), "");
    EXPECT_EQ(d.text(1, L(5)), "CKR"); // Process
    EXPECT_EQ(d.text(1, L(3)), "N/A");
    EXPECT_FALSE(d.grid().cellStyle(1, L(3)).enabled);
    d.shortcut(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(d.text(1, typeCol), first);
    EXPECT_EQ(d.text(1, L(1)), value);
    // Another process clears the row like a change of type.
    d.choose("Custom");
    d.go(1, L(1));
    d.keys("16");
    d.key(Qt::Key_Return);
    d.go(1, L(5));
    EXPECT_GT(d.grid().cellStyle(1, L(5)).choices.count(u'\n'), 2);
    d.choose("CC");
    EXPECT_EQ(d.text(1, L(5)), "CC");
    EXPECT_EQ(d.text(1, L(1)), "");
}

TEST(ChangeDialog, SortedRowsAreStillTheirOwn) {
    SdtaDriver d;
    auto parts = std::vector{goodThyristor(), goodThyristor(), goodThyristor()};
    parts[0].values[0] = L"30";
    parts[1].values[0] = L"9";
    parts[2].values[0] = L"20";
    d.projectParts.clear();
    d.open(3, parts);
    d.openDialog();
    d.grid().sortByHeader(L(1));
    EXPECT_EQ(d.text(1, 1), "P2");
    EXPECT_EQ(d.text(3, 1), "P1");
    d.go(1, L(1));
    d.keys("11");
    d.key(Qt::Key_Return);
    EXPECT_EQ(narrow(d.session->table().text(1, typeColumn + 1)), "11");
    // Delete the middle row on the screen, then take that back.
    d.grid().selectRows(2, 2);
    d.prompt.expectQuestion(message::selectedForDeletion(1) + std::wstring(message::deleteQuestion),
                            PromptAnswer::Yes);
    d.key(Qt::Key_Delete);
    ASSERT_EQ(d.grid().rowCount(), 2);
    EXPECT_EQ(d.text(2, 1), "P1");
    d.go(2, L(1));
    d.keys("31");
    d.key(Qt::Key_Return);
    EXPECT_EQ(narrow(d.session->table().text(0, typeColumn + 1)), "31");
    d.shortcut(Qt::Key_Z, Qt::ControlModifier);
    d.shortcut(Qt::Key_Z, Qt::ControlModifier);
    ASSERT_EQ(d.grid().rowCount(), 3);
    std::map<std::string, std::string> power;
    for (int row = 1; row <= 3; ++row)
        power[d.text(row, 1)] = d.text(row, L(1));
    EXPECT_EQ(power,
              (std::map<std::string, std::string>{{"P1", "30"}, {"P2", "11"}, {"P3", "20"}}));
}

TEST(ChangeDialog, FillsAndPastesColumns) {
    SdtaDriver d;
    d.open(3, std::vector(4, goodThyristor()));
    d.openDialog();
    d.go(1, L(1));
    d.keys("7");
    d.key(Qt::Key_Return);
    d.go(1, L(1));
    d.dragFill(3);
    EXPECT_EQ(d.text(3, L(1)), "7");
    EXPECT_EQ(d.text(4, L(1)), "10");
    d.shortcut(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(d.text(3, L(1)), "10"); // one step, whatever the number of rows
    EXPECT_EQ(d.text(1, L(1)), "7");

    QApplication::clipboard()->setText(QStringLiteral("5\t30\tA\n6\tN/A\tX\n"));
    d.go(2, L(1));
    d.key(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(d.text(2, L(1)) + d.text(2, L(2)) + d.text(2, L(3)), "530A");
    EXPECT_EQ(d.text(3, L(1)) + d.text(3, L(2)) + d.text(3, L(3)), "625C");
}

TEST(ChangeDialog, LinksOpenAndAreClearedWithoutTouchingTheRow) {
    SdtaDriver d;
    d.app.libraries.datasheetLinks[L"P1"] = L"scr\\p1.pdf";
    d.app.paths.datasheetFolder.clear();
    d.open(3, {goodThyristor(), goodThyristor()});
    d.openDialog();
    const int link = static_cast<int>(d.session->setup().datasheetColumn);
    d.go(1, link);
    EXPECT_EQ(d.shownLine(), "Link to corresponding Datasheet file.");
    d.prompt.expect(L"Path to Datasheet Directory is not defined.", PromptIcon::Warning);
    d.key(Qt::Key_Return, Qt::ControlModifier); // as a double click
    d.key(Qt::Key_Delete);
    EXPECT_EQ(d.text(1, link), "");
    EXPECT_EQ(d.grid().rowCount(), 2);
    d.press("ok");
    EXPECT_EQ(d.app.libraries.datasheetLinks.at(L"P1"), L"");
}

TEST(ChangeDialog, FindBarAndMessageSearchAlike) {
    SdtaDriver d;
    auto parts = std::vector(5, goodThyristor());
    for (std::size_t i = 0; i < parts.size(); ++i)
        parts[i].values[0] = std::to_wstring(i % 2 == 0 ? 10 : 150 + i);
    d.open(3, parts);
    d.openDialog();
    d.go(1, L(1));
    SearchRequest request(L"6_2_0_15");
    QCoreApplication::sendEvent(d.dialog.get(), &request);
    EXPECT_EQ(d.grid().currentCell(), (grid::CellPos{2, L(1)}));
    EXPECT_TRUE(d.grid().isRowSelected(2));

    d.shortcut(Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);
    auto& field = d.find<QLineEdit>("findText");
    ASSERT_TRUE(field.isVisible());
    QTest::keyClicks(&field, QStringLiteral("15"));
    QTest::keyClick(&field, Qt::Key_Return);
    EXPECT_TRUE(d.dialog->isVisible()); // Enter is not OK here
    EXPECT_EQ(d.grid().currentCell(), (grid::CellPos{4, L(1)}));
    auto& answer = d.find<QLabel>("findAnswer");
    EXPECT_TRUE(answer.text().isEmpty());
    d.shortcut(Qt::Key_F3, {});
    EXPECT_EQ(d.grid().currentCell(), (grid::CellPos{2, L(1)}));
    EXPECT_EQ(answer.text().toStdString(), "Went on from the first row.");
    d.shortcut(Qt::Key_F3, Qt::ShiftModifier);
    EXPECT_EQ(d.grid().currentCell(), (grid::CellPos{4, L(1)}));
    // Without regard to case in any column, unless asked for otherwise.
    field.setText(QStringLiteral("p5"));
    d.shortcut(Qt::Key_F3, {});
    EXPECT_EQ(d.grid().currentCell(), (grid::CellPos{5, 1}));
    d.find<QCheckBox>("findCase").setChecked(true);
    d.shortcut(Qt::Key_F3, {});
    EXPECT_EQ(answer.text().toStdString(), "No row has this text.");
    SearchRequest none(L"6_0_0_nothing");
    d.prompt.expect(L"Next  row containing the desired parameter with the required search "
                    L"conditions was not found",
                    PromptIcon::Information);
    QCoreApplication::sendEvent(d.dialog.get(), &none);
    QTest::keyClick(&field, Qt::Key_Escape);
    EXPECT_FALSE(field.isVisible());
    EXPECT_TRUE(d.dialog->isVisible());

    d.grid().clearCurrentCell();
    d.prompt.expect(L"There is no selection.");
    d.key(Qt::Key_F, Qt::ControlModifier);
}

TEST(ChangeDialog, AddsCopiesAndMovesParts) {
    SdtaDriver d;
    d.open(3, {goodThyristor(), goodThyristor()});
    d.openDialog();
    for (const char* button : {"copy", "changeGroup", "calculator"}) {
        d.prompt.expect(L"You should select a row in the Component Table.");
        d.press(button);
    }
    const auto enter = [&](const char* part) {
        whenModal(*d.dialog, [part](QDialog& box) {
            auto* const field = box.findChild<QLineEdit*>();
            ASSERT_NE(field, nullptr);
            field->setText(QLatin1String(part));
            box.accept();
            if (box.isVisible())
                box.reject();
        });
    };
    d.prompt.expect(L"You cannot duplicate Part Number.");
    enter("p2");
    d.press("add");
    EXPECT_EQ(d.grid().rowCount(), 2);
    enter(" new-1 ");
    d.press("add");
    ASSERT_EQ(d.grid().rowCount(), 3);
    EXPECT_EQ(d.text(3, 1), "NEW-1");
    EXPECT_EQ(d.text(3, 4), "-");
    EXPECT_EQ(d.grid().currentCell()->row, 3);
    d.go(1, L(1));
    enter("copy-1");
    d.press("copy");
    ASSERT_EQ(d.grid().rowCount(), 4);
    EXPECT_EQ(d.text(4, L(6)), "400");
    d.go(2, L(1));
    whenModal(*d.dialog, [](QDialog& box) {
        auto* const groups = box.findChild<QListWidget*>(QStringLiteral("groups"));
        ASSERT_NE(groups, nullptr);
        groups->setCurrentRow(1);
        box.accept();
    });
    d.press("changeGroup");
    ASSERT_EQ(d.grid().rowCount(), 3);
    EXPECT_EQ(d.text(2, 1), "NEW-1");
    d.prompt.expectQuestion(message::notAllFilledIn, PromptAnswer::Yes);
    d.press("ok");
    const auto records = d.session->takeRecords();
    EXPECT_EQ(records.size(), 4u);
    EXPECT_NE(records.at(L"P2").group, 3);
    EXPECT_EQ(records.at(L"COPY-1").LPar[5], L"400");
}

TEST(ChangeDialog, CalculatesTheCurrentRow) {
    SdtaDriver d;
    d.open(3, {goodThyristor()});
    d.openDialog();
    d.go(1, L(1));
    whenModal(*d.dialog, [](QDialog& box) {
        EXPECT_EQ(box.windowTitle().toStdString(),
                  "Power Dissipation Calculator (Part Number: P1)");
        box.accept();
    });
    d.press("calculator");
    EXPECT_EQ(d.text(1, L(1)), "9.99"); // (125 - 25) / 10 * 0.999
    d.shortcut(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(d.text(1, L(1)), "10");

    AsrDriver analyses;
    analyses.open(3, {{1, {}}});
    analyses.openDialog();
    EXPECT_FALSE(analyses.find<QPushButton>("calculator").isEnabled());
}

TEST(ChangeDialog, EscapeTakesOneStepBackAndAsksBeforeItDrops) {
    SdtaDriver d;
    d.open(3, {goodThyristor(), goodThyristor()});
    d.openDialog();
    d.enter(1, L(1), "5");
    d.shortcut(Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);
    d.grid().setFocus();
    d.go(1, L(1));
    d.grid().selectRange({1, L(1), 2, L(2)});
    d.key(Qt::Key_C, Qt::ControlModifier);
    d.key(Qt::Key_F2);
    const auto state = [&] {
        return std::string(d.grid().isEditing() ? "editor " : "") +
               (d.grid().copiedCells().empty() ? "" : "border ") +
               (d.grid().selection().empty() ? "" : "selection ") +
               (d.find<QLineEdit>("findText").isVisible() ? "bar" : "");
    };
    for (const char* expected :
         {"editor border selection bar", "border selection bar", "selection bar", "bar", ""}) {
        EXPECT_EQ(state(), expected);
        if (*expected != 0)
            d.key(Qt::Key_Escape);
    }
    for (QWidget* const focus :
         {static_cast<QWidget*>(&d.grid()), static_cast<QWidget*>(&d.find<QPushButton>("add"))}) {
        d.prompt.expectQuestion(L"Drop the changes to 1 component?", PromptAnswer::No);
        QTest::keyClick(focus, Qt::Key_Escape);
        EXPECT_TRUE(d.dialog->isVisible());
    }
    d.prompt.expectQuestion(L"Drop the changes to 1 component?", PromptAnswer::Yes);
    d.key(Qt::Key_Escape);
    EXPECT_FALSE(d.dialog->isVisible());
    EXPECT_EQ(d.dialog->result(), QDialog::Rejected);

    SdtaDriver untouched;
    untouched.open(3, {goodThyristor()});
    untouched.openDialog();
    untouched.go(1, L(1));
    untouched.key(Qt::Key_Escape);
    EXPECT_FALSE(untouched.dialog->isVisible());
}

TEST(ChangeDialog, CancelDropsAllAndLaterCommandsStandDisabled) {
    SdtaDriver d;
    d.open(3, {goodThyristor()});
    d.openDialog();
    d.go(1, L(1));
    d.keys("11");
    d.press("cancel");
    EXPECT_EQ(d.dialog->result(), QDialog::Rejected);
    EXPECT_EQ(d.session->takeRecords().at(L"P1").LPar[0], L"10");
    for (const char* name : {"login", "partNumberSearch", "webSearch", "aiHelper",
                             "datasheetSearch", "datasheetRefresh"})
        EXPECT_FALSE(d.find<QPushButton>(name).isEnabled()) << name;
}

} // namespace
} // namespace partwright
