#include "dialog_driver.h"
#include "dialogs/power_calculator_dialog.h"
#include "support/scripted_prompt.h"
#include "support/widget_sweep.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <memory>

namespace partwright::test {

namespace {

using Row = std::vector<PowerCalculator::Cell>;

const Row goodRow = {{7, L"Pw-RT", L"10"},   {8, L"Ts", L"25"},   {9, L"at", L"C"},
                     {10, L"Tjmax", L"125"}, {14, L"Oja", L"60"}, {15, L"Ojc", L"10"}};

struct Calculator {
    explicit Calculator(std::int32_t group = 4, Row cells = goodRow, wchar_t mark = L'.')
        : row(std::move(cells)), calculator(group, mark),
          dialog(calculator, L"2N6399", [this] { return row; }) {
        open(dialog);
    }

    QLineEdit& field(const char* name) { return find<QLineEdit>(dialog, name); }
    std::string text(const char* name) { return field(name).text().toStdString(); }
    bool isChecked(const char* name) { return find<QRadioButton>(dialog, name).isChecked(); }
    void choose(const char* radio) { find<QRadioButton>(dialog, radio).click(); }
    std::string status() { return find<QLabel>(dialog, "status").text().toStdString(); }
    bool hasMark() { return find<QLabel>(dialog, "statusPicture").isVisible(); }

    Row row;
    PowerCalculator calculator;
    CPowerDissipCalc dialog;
};

} // namespace

TEST(PowerCalculatorDialog, TakesDigitsAndOneMark) {
    Calculator c;
    EXPECT_EQ(c.dialog.windowTitle(), s("Power Dissipation Calculator (Part Number: 2N6399)"));
    QLineEdit& pw = c.field("pw");
    pw.setFocus();
    pw.selectAll();
    type("1x2.3.-4e");
    EXPECT_EQ(c.text("pw"), "12.34");
    EXPECT_EQ(pw.cursorPosition(), 5);
    pw.setCursorPosition(2);
    type("w");
    EXPECT_EQ(c.text("pw"), "12.34");
    EXPECT_EQ(pw.cursorPosition(), 2) << "the cursor stays where the letter was refused";
    pw.setCursorPosition(1);
    pw.insert(s("9 9")); // as a paste does
    EXPECT_EQ(c.text("pw"), "1992.34");
    EXPECT_EQ(pw.cursorPosition(), 3);

    Calculator comma(4, {{7, L"Pw", L"0,5"}}, L',');
    EXPECT_EQ(comma.text("pw"), "0,5");
    comma.field("pw").setFocus();
    comma.field("pw").clear();
    type("1.2,5,");
    EXPECT_EQ(comma.text("pw"), "1,25") << "a point is the mark, a second mark is none";
}

TEST(PowerCalculatorDialog, TabGoesByRadiosFieldsAndButtons) {
    Calculator c;
    EXPECT_EQ(namelessControls(c.dialog), QStringList());
    find(c.dialog, "calculatePw").setFocus();
    EXPECT_EQ(tabWay().join(s(" ")),
              s("calculatePw ambient tj ts pw oja ojc ok cancel refresh calculate"));
}

TEST(PowerCalculatorDialog, WorksOutEachQuantity) {
    struct Case {
        const char* quantity;
        const char* place;
        const char* field;
        const char* expected;
        const char* status;
    };
    const Case cases[] = {
        {"calculatePw", "case", "pw", "9.99", ""},
        {"calculatePw", "ambient", "pw", "1.665", ""},
        {"calculateTj", "case", "tj", "125.1", ""},
        {"calculateTj", "ambient", "tj", "625.6", "Value of Tj should be between 60 and 200."},
        {"calculateTs", "case", "ts", "25", ""},
        {"calculateTs", "ambient", "ts", "-474.4", "Value of Ts should be between 0 and 125."},
        {"calculateOj", "case", "ojc", "10", ""},
        {"calculateOj", "ambient", "oja", "10", "Value of Oja should be more than Ojc"},
    };
    Calculator c;
    for (const Case& one : cases) {
        SCOPED_TRACE(std::string(one.quantity) + " " + one.place);
        press(c.dialog, "refresh");
        EXPECT_TRUE(c.isChecked("calculatePw"));
        EXPECT_TRUE(c.isChecked("case"));
        EXPECT_EQ(c.text("oja"), "60");
        EXPECT_EQ(c.status(), "");
        EXPECT_FALSE(c.hasMark());
        c.choose(one.quantity);
        c.choose(one.place);
        press(c.dialog, "calculate");
        EXPECT_EQ(c.text(one.field), one.expected);
        EXPECT_EQ(c.status(), one.status);
        EXPECT_EQ(c.hasMark(), *one.status != 0);
    }
}

TEST(PowerCalculatorDialog, OkClosesOnlyOnAResult) {
    Calculator c;
    c.row[3].text = L"225";
    press(c.dialog, "refresh");
    press(c.dialog, "ok");
    EXPECT_TRUE(c.dialog.isVisible());
    EXPECT_EQ(c.status(), "Value of Tj should be between 60 and 200.");
    c.field("tj").setText(s("150"));
    c.choose("ambient");
    c.field("tj").setFocus();
    key(Qt::Key_Return);
    EXPECT_EQ(c.dialog.result(), QDialog::Accepted);
    std::string written;
    for (const CellText& cell : c.calculator.results())
        written += std::to_string(cell.at.column) + "=" + ScriptedPrompt::narrow(cell.text) + " ";
    EXPECT_EQ(written, "7=2.081 8=25 9=A 10=150 14=60 15=10 ");
}

// What is shown is not what could be typed.
TEST(PowerCalculatorDialog, ShowsAnInfiniteResultWhole) {
    Calculator c;
    c.field("pw").setText(s("0"));
    c.choose("calculateOj");
    c.choose("ambient");
    press(c.dialog, "calculate");
    EXPECT_EQ(c.text("oja"), "inf");
    press(c.dialog, "cancel");
    EXPECT_EQ(c.dialog.result(), QDialog::Rejected);
}

TEST(PowerCalculatorDialog, SomeGroupsKnowTheAmbientAlone) {
    for (const std::int32_t group : {1, 2, 3, 4, 8, 9}) {
        SCOPED_TRACE(group);
        Calculator c(group, {{7, L"Tjmax", L"300"}, {8, L"Oja", L"60"}, {9, L"Ojc", L"10"}});
        EXPECT_TRUE(c.isChecked("ambient")) << "no column tells";
        const bool all = group != 1 && group != 2 && group != 9;
        for (const char* name : {"case", "calculateTs", "ts"})
            EXPECT_EQ(find(c.dialog, name).isEnabled(), all) << name;
        press(c.dialog, "calculate");
        EXPECT_EQ(c.status(), group < 3 ? "" : "Value of Tj should be between 60 and 200.");
    }
}

} // namespace partwright::test
