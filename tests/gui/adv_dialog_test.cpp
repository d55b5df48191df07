#include "dialog_driver.h"
#include "dialogs/adv_dialog.h"
#include "editing/session_fixture.h"
#include "support/widget_sweep.h"

#include <gtest/gtest.h>

#include <QLineEdit>
#include <QListWidget>

namespace partwright::test {

namespace {

FamilyGroups stressGroups() {
    return familyGroups(shippedApp().of<SdtaComponent>());
}

QStringList lines(const QListWidget& list) {
    QStringList texts;
    for (int row = 0; row < list.count(); ++row)
        texts.append(list.item(row)->text());
    return texts;
}

} // namespace

TEST(AdvDialog, AddAsksUntilThePartNumberIsNew) {
    ScriptedPrompt prompt;
    GroupChoiceSession session(GroupChoiceMode::Add, stressGroups(), 4,
                               [](std::wstring_view part) { return part == L"OLD-1"; });
    CAdvDlg dialog(session, prompt, QString());
    open(dialog);
    EXPECT_EQ(dialog.windowTitle(), s("Add new component"));
    auto& number = find<QLineEdit>(dialog, "partNumber");
    EXPECT_EQ(QApplication::focusWidget(), &number);
    EXPECT_EQ(number.text(), QString());
    EXPECT_EQ(namelessControls(dialog), QStringList());
    EXPECT_EQ(tabWay().join(s(" ")), s("partNumber families groups ok cancel"));

    prompt.expect(L"You should enter a new Part Number.");
    key(Qt::Key_Return);
    EXPECT_TRUE(dialog.isVisible());
    type("  old-1");
    prompt.expect(L"You cannot duplicate Part Number.");
    press(dialog, "ok");
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_EQ(number.selectedText(), s("  old-1")) << "ready to be typed over";
    number.setText(s(" old-2 "));
    key(Qt::Key_Return);
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_EQ(narrow(session.result().partNumber), "OLD-2");
    EXPECT_EQ(session.result().group, 4);
}

TEST(AdvDialog, AnotherFamilyBringsItsGroups) {
    ScriptedPrompt prompt;
    GroupChoiceSession session(GroupChoiceMode::ChangeGroup, stressGroups(), 10, nullptr);
    CAdvDlg dialog(session, prompt, s("RES-1"));
    open(dialog);
    EXPECT_EQ(dialog.windowTitle(), s("Change component's group"));
    EXPECT_TRUE(find<QLineEdit>(dialog, "partNumber").isReadOnly());
    EXPECT_EQ(find<QLineEdit>(dialog, "partNumber").text(), s("RES-1"));
    auto& families = find<QListWidget>(dialog, "families");
    auto& groups = find<QListWidget>(dialog, "groups");
    EXPECT_EQ(families.currentItem()->text(), s("Resistor"));
    EXPECT_EQ(lines(groups), QStringList(s("Resistor")));

    families.setFocus();
    type("Dio");
    EXPECT_EQ(families.currentItem()->text(), s("Diode"));
    EXPECT_EQ(groups.currentRow(), 0);
    QStringList names;
    const auto diodes = stressGroups().at(L"Diode");
    for (const FamilyGroup& group : diodes)
        names.append(QString::fromStdWString(group.name));
    ASSERT_GT(names.size(), 1);
    EXPECT_EQ(lines(groups), names);
    QTest::mouseClick(families.viewport(), Qt::LeftButton, Qt::ControlModifier,
                      families.visualItemRect(families.currentItem()).center());
    EXPECT_EQ(families.selectedItems().size(), 1) << "a family is always chosen";
    const QPoint second = groups.visualItemRect(groups.item(1)).center();
    QTest::mouseClick(groups.viewport(), Qt::LeftButton, Qt::NoModifier, second);
    QTest::mouseDClick(groups.viewport(), Qt::LeftButton, Qt::NoModifier, second);
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_EQ(session.result().group, diodes[1].code);
    EXPECT_EQ(session.result().family, FamilyNumber(L"Diode"));
}

TEST(AdvDialog, WithoutGroupsThereIsNothingToAccept) {
    ScriptedPrompt prompt;
    GroupChoiceSession session(GroupChoiceMode::Add, {}, 1, [](auto) { return false; });
    CAdvDlg dialog(session, prompt, QString());
    open(dialog);
    EXPECT_FALSE(find<QPushButton>(dialog, "ok").isEnabled());
    key(Qt::Key_Escape);
    EXPECT_FALSE(dialog.isVisible());
}

TEST(AdvDialog, ACopyGoesWhereItsOriginalIs) {
    ScriptedPrompt prompt;
    GroupChoiceSession session(GroupChoiceMode::Copy, stressGroups(), 10,
                               [](auto) { return false; });
    CAdvDlg dialog(session, prompt, s("A"));
    open(dialog);
    EXPECT_EQ(dialog.windowTitle(), s("Copy component"));
    EXPECT_EQ(find<QListWidget>(dialog, "families").currentItem()->text(), s("Resistor"));
    for (const char* list : {"families", "groups"})
        EXPECT_FALSE(find<QListWidget>(dialog, list).isEnabled());
    EXPECT_EQ(find<QLineEdit>(dialog, "partNumber").selectedText(), s("A"));
    auto& line = find<QLabel>(dialog, "partNumberLine");
    type("b\\c");
    EXPECT_EQ(find<QLineEdit>(dialog, "partNumber").text(), s("b-c"));
    type("d\\");
    EXPECT_TRUE(line.isVisible());
    EXPECT_EQ(line.text(), s("Part Number can't hold \"\\\", which is kept as \"-\""));
    key(Qt::Key_Return);
    EXPECT_EQ(narrow(session.result().partNumber), "B-CD-");
}

} // namespace partwright::test
