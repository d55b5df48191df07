// Editing cells: lines, refusals, types, fills, pastes, and the way back.

#include "session_fixture.h"

#include <gtest/gtest.h>

namespace partwright {
namespace {

using test::AsrDialog;
using test::narrow;
using test::SdtaDialog;

constexpr std::size_t L(std::size_t parameter) {
    return typeColumn + parameter;
}

TEST(TableSession, DescriptionLines) {
    SdtaDialog d;
    auto& s = d.open(3, {test::goodThyristor(), {1, {L"abc", L"", L"", L"400"}}});
    const auto lineAt = [&](std::size_t row, std::size_t column) {
        d.shown(s.selectCell({row, column}));
        return d.line();
    };
    EXPECT_EQ(narrow(s.title()), "Component Table\t\tGroup: Diode SCR \tQuantity: 2");
    EXPECT_EQ(lineAt(0, partNumberColumn), "");
    EXPECT_EQ(lineAt(0, typeColumn),
              "Component Type. See option List.  <Type Changing results in clearing all data>");
    EXPECT_EQ(lineAt(0, L(2)),
              "Reference temperature Ts up to which the full rated power Pw-RT holds, degrees "
              "Celsius");
    EXPECT_EQ(lineAt(0, s.setup().datasheetColumn), "Link to corresponding Datasheet file.");
    EXPECT_EQ(lineAt(0, s.setup().manufacturerColumn), "Product manufacturer");
    EXPECT_EQ(lineAt(0, s.setup().notesColumn), "Notes");
    // What came from a file is only warned of.
    EXPECT_EQ(lineAt(1, L(1)),
              "Value abc out of range:  Power in W must be above 0 and at most 10000.");
    EXPECT_EQ(lineAt(1, L(4)), "Value 400 out of range:  Maximum junction temperature in degrees "
                               "Celsius must be from 60 to 300.");

    AsrDialog a;
    auto& analyses = a.open(9, {{1, {}}});
    const std::size_t library = analyses.setup().notesColumn + 1;
    a.shown(analyses.selectCell({0, library}));
    EXPECT_EQ(a.line(), "Check to use Pin Library data");
    a.shown(analyses.selectCell({0, library + 1}));
    EXPECT_EQ(a.line(), "Check to calculate output supply current");

    SdtaDialog capacitor;
    auto& c = capacitor.open(11, {{1, {L"50"}}});
    capacitor.shown(c.selectCell({0, L(3)}));
    EXPECT_EQ(capacitor.line(), "  (Not applicable for selected type)");
    EXPECT_FALSE(c.isEnabled({0, L(3)}));
    EXPECT_TRUE(c.isEnabled({0, L(5)})); // Process
}

TEST(TableSession, FullFollowsTheCells) {
    SdtaDialog d;
    auto good = test::goodThyristor();
    auto open = good;
    open.values[9] = L"";
    auto& s = d.open(3, {good, open, good});
    // Until the first refresh the stored flags are shown.
    EXPECT_EQ(narrow(s.table().text(0, fullColumn)), "-");
    EXPECT_EQ(s.selectCell({1, partNumberColumn}).changedRows, (std::vector<std::size_t>{0, 2}));
    EXPECT_EQ(narrow(s.table().text(1, fullColumn)), "-");
    EXPECT_TRUE(d.type({1, L(10)}, L"50"));
    EXPECT_EQ(s.RefreshAllRowFlags().changedRows, std::vector<std::size_t>{1});
    EXPECT_TRUE(d.type({1, L(10)}, L""));
    EXPECT_EQ(s.RefreshAllRowFlags().changedRows, std::vector<std::size_t>{1});
    // A doubtful value takes the flag away, the next refresh looks at the emptiness alone.
    s.paste({{{0, L(1)}, L"abc"}});
    TableOutcome outcome;
    s.RecheckRowFlag({0, L(1)}, outcome);
    EXPECT_EQ(narrow(s.table().text(0, fullColumn)), "-");
    s.RefreshAllRowFlags();
    EXPECT_EQ(narrow(s.table().text(0, fullColumn)), "+");
}

TEST(TableSession, RefusalsKeepTheStoredText) {
    SdtaDialog d;
    auto& s = d.open(3, {test::goodThyristor()});
    struct Case {
        std::size_t column;
        std::wstring text;
        std::wstring box;
        std::string line;
    };
    const std::vector<Case> cases = {
        {L(1), L"20000", L"Value Type or Range Error.",
         "Value 20000 out of range:  Power in W must be above 0 and at most 10000."},
        {L(1), L"1-5", L"Value Type or Range Error.",
         "Value 1-5 out of range:  Power in W must be above 0 and at most 10000."},
        {L(1), L"N/A", L"'N/A' is illegal in this cell.", ""},
        {L(3), L"B", L"", " /B/ Must be from list"},
        {L(7), L"nh.smt", L"", " /nh.smt/ Must be from list"},
        {typeColumn, L"TRIAC", L"", " /TRIAC/ Must be from list"},
    };
    const std::string before = d.row(0);
    for (const Case& c : cases) {
        d.shown(s.selectCell({0, partNumberColumn}));
        if (!c.box.empty())
            d.prompt.expect(c.box);
        EXPECT_FALSE(d.type({0, c.column}, c.text));
        EXPECT_EQ(d.line(), c.line);
        d.shown(s.cancelEdit());
        EXPECT_EQ(d.row(0).substr(1), before.substr(1));
    }
    d.prompt.expect(L"Field 'Catalog Number' can't be a zero-length sting.", PromptIcon::Warning);
    d.prompt.expect(L"Field 'Description' can't be a zero-length sting.", PromptIcon::Warning);
    EXPECT_FALSE(d.type({0, catalogNumberColumn}, L""));
    EXPECT_FALSE(d.type({0, descriptionColumn}, L""));
    EXPECT_TRUE(d.type({0, L(3)}, L"")); // a list cell cannot be emptied
    EXPECT_EQ(narrow(s.table().text(0, L(3))), "C");
    EXPECT_TRUE(d.type({0, L(1)}, L"-"));
    EXPECT_TRUE(d.type({0, partNumberColumn}, L"X"));
    EXPECT_EQ(narrow(s.table().text(0, partNumberColumn)), "P1");

    // Faults of the tables are told, and the same fault not twice at a time.
    d.rules.rules.erase(10);
    d.prompt.expect(L"Failed Validation ID.");
    d.prompt.expect(L"Value Type or Range Error.");
    EXPECT_FALSE(d.type({0, L(1)}, L"5"));
    d.rules.rules[10] = {10, 44, L"-F", L"", L"", L"m"};
    EXPECT_TRUE(d.type({0, L(1)}, L"-")); // passes whatever the comparison
    d.prompt.expect(L" Found CheckID = 44");
    d.shown(s.paste({{{0, L(1)}, L"7"}}));
    d.prompt.expect(L" Found CheckID = 44");
    d.prompt.expect(L"Value Type or Range Error.");
    EXPECT_FALSE(d.type({0, L(1)}, L"5"));
}

/// A box that lets its dialog do something while it is open.
class NestingPrompt final : public Prompt {
public:
    std::function<void()> whileOpen;
    int shown = 0;
    PromptAnswer show(std::wstring_view, std::wstring_view, PromptIcon, PromptButtons) override {
        ++shown;
        if (whileOpen)
            whileOpen();
        return PromptAnswer::Ok;
    }
};

TEST(TableSession, TableFaultBoxesDoNotNest) {
    SdtaDialog d;
    NestingPrompt prompt;
    d.rules.rules.clear();
    PartSelection none;
    ComponentTableSession<SdtaComponent> s(
        d.app, 3, AnalysisLevel::Full, d.records(3, {test::goodThyristor()}), d.rules,
        {&none, &none, &none, [](std::wstring_view) { return false; }});
    OutcomeBoxes boxes(prompt);
    prompt.whileOpen = [&] { boxes.show(s.selectCell({0, L(2)})); };
    boxes.show(s.selectCell({0, L(1)}));
    EXPECT_EQ(prompt.shown, 1);
    prompt.whileOpen = nullptr;
    boxes.show(s.selectCell({0, L(1)}));
    EXPECT_EQ(prompt.shown, 2);
}

TEST(TableSession, TextsAreCutToWhatAFileGivesBack) {
    SdtaDialog d;
    auto& s = d.open(3, {test::goodThyristor()});
    const std::size_t notes = s.setup().notesColumn;
    struct Case {
        std::size_t column;
        std::wstring text, kept;
        std::string line;
    };
    const std::wstring longText(300, L'x');
    const std::wstring cut(255, L'x');
    for (const Case& c : std::vector<Case>{
             {catalogNumberColumn, L"abcdefghijklmnopqrstu", L"ABCDEFGHIJKLMNOPQRST",
              "Catalog Number can't exceed 20 characters"},
             {catalogNumberColumn, L"abc", L"ABC", ""},
             {descriptionColumn, longText, cut, "Description can't exceed 255 characters"},
             {descriptionColumn, L"<5 mm", L"<5 mm", ""},
             {notes, longText, cut, "Notes can't exceed 255 characters"},
             {notes, L" <<end", L"end", "Notes can't begin with \"<\""},
             {notes, L"C:\\dir", L"C:-dir", "Notes can't hold \"\\\", which is kept as \"-\""},
             {s.setup().datasheetColumn, L"scr\\1.pdf", L"scr\\1.pdf", ""},
             {notes, L"two\nlines", L"two lines", ""}}) {
        d.shown(s.selectCell({0, partNumberColumn}));
        EXPECT_EQ(narrow(d.shown(s.modify({0, c.column}, c.text)).editorText.value_or(c.text)),
                  narrow(c.kept));
        EXPECT_EQ(d.line(), c.line);
        EXPECT_TRUE(d.shown(s.commit({0, c.column}, c.text, 1)).accepted);
        EXPECT_EQ(narrow(s.table().text(0, c.column)), narrow(c.kept));
    }
}

/// "-1" and "-2" alone are how a library says that there is no value, or that none applies.
TEST(TableSession, AReservedTextThatIsANumberGetsADecimal) {
    AsrDialog d;
    for (const wchar_t mark : {L'.', L','}) {
        d.app.decimalPoint = mark;
        auto& s = d.open(9, {{1, {}}, {1, {}}, {1, {}}});
        const auto& columns = s.setup().columns;
        const auto supply = static_cast<std::size_t>(
            std::find_if(columns.begin(), columns.end(),
                         [](const TableColumn& column) { return column.header == L"Vspl-"; }) -
            columns.begin());
        const std::string one = mark == L'.' ? "-1.0" : "-1,0";
        const auto texts = [&] {
            return narrow(s.table().text(0, supply) + L" " + s.table().text(1, supply));
        };
        EXPECT_TRUE(d.type({0, supply}, L"-1"));
        d.shown(s.paste({{{1, supply}, L" -1 "}}));
        EXPECT_EQ(texts(), one + " " + one);
        d.fill({0, supply}, {0, 1, 2}, L"-2");
        EXPECT_EQ(narrow(s.table().text(2, supply)).substr(0, 2), "-2");
        EXPECT_TRUE(d.type({0, supply}, L"-"));
        EXPECT_TRUE(d.type({1, supply}, L"-15"));
        EXPECT_EQ(texts(), "- -15");
        s.paste({{{0, s.setup().notesColumn}, L"-1"}}); // no rule, no number
        EXPECT_EQ(narrow(s.table().text(0, s.setup().notesColumn)), "-1");
    }
}

TEST(TableSession, MarksFollowTheCellsThatBreakTheirRule) {
    SdtaDialog d;
    auto bad = test::goodThyristor();
    bad.values[0] = L"abc";
    bad.values[5] = L"-5";
    auto& s = d.open(3, {test::goodThyristor(), bad, test::goodThyristor(), bad});
    EXPECT_EQ(s.marks().count(), 0U); // nobody looked yet
    EXPECT_TRUE(s.marks().isMarked({1, L(1)}));
    EXPECT_EQ(s.marks().count(), 2U);
    EXPECT_FALSE(s.marks().judgeMore(10));
    EXPECT_EQ(s.marks().count(), 4U);
    EXPECT_EQ(narrow(s.marks().textOf({1, L(1)})),
              "Value abc out of range:  Power in W must be above 0 and at most 10000.");
    EXPECT_EQ(narrow(s.marks().textOf({0, L(1)})), "");

    const std::vector<std::size_t> order = {3, 2, 1, 0}; // on the screen
    std::optional<CellAt> at;
    std::string way;
    const auto step = [&](bool isBackward) {
        at = d.shown(s.nextMark(at, order, isBackward)).current;
        way += at ? std::to_string(at->row) + "," + std::to_string(at->column - typeColumn) + " "
                  : "none ";
    };
    for (const bool isBackward : {false, false, false, false, false, true, true})
        step(isBackward);
    EXPECT_EQ(way, "3,1 3,6 1,1 1,6 3,1 1,6 1,1 ");
    const auto counted = [&] {
        s.marks().judgeMore(10);
        return s.marks().count();
    };
    EXPECT_TRUE(d.type({1, L(1)}, L"5"));
    EXPECT_EQ(counted(), 3U);
    d.shown(s.undo());
    EXPECT_EQ(counted(), 4U);
    d.shown(s.changeGroup(3, {L"", 7, L"Transistor Bipolar", 4}));
    EXPECT_EQ(counted(), 2U);
    d.shown(s.undo());
    EXPECT_EQ(counted(), 4U);
    d.shown(s.paste({{{0, L(5)}, L"x"}, {{0, L(6)}, L"400"}, {{0, L(8)}, L"y"}}));
    EXPECT_EQ(counted(), 6U);
    EXPECT_EQ(d.line().substr(0, 61),
              "2 of 3 pasted values break their rule; first: P1, Ion-RT: Val");
    // A type without these parameters takes their marks away.
    d.fill({0, typeColumn}, {0, 1, 2, 3}, L"Default");
    for (std::size_t row = 0; row < 4; ++row)
        s.paste(
            {{{row, L(1)}, L"1"}, {{row, L(6)}, L"1"}, {{row, L(5)}, L"1"}, {{row, L(8)}, L"1"}});
    EXPECT_EQ(counted(), 0U);
    EXPECT_FALSE(s.nextMark(at, order, false).current);
}

TEST(TableSession, APasteAsTypedWorksUnitLettersIn) {
    AsrDialog d;
    auto& s = d.open(21, {{1, {}}, {1, {}}});
    d.shown(s.paste({{{0, L(1)}, L"4.7k"}, {{1, L(1)}, L"abc"}}, PasteAs::Typed));
    EXPECT_EQ(narrow(s.table().text(0, L(1))), "4700");
    EXPECT_EQ(narrow(s.table().text(1, L(1))), "abc");
    EXPECT_EQ(d.line().substr(0, 36), "1 of 2 pasted values breaks its rule");
    d.shown(s.paste({{{0, L(1)}, L"4.7k"}}));
    EXPECT_EQ(narrow(s.table().text(0, L(1))), "4.7k");
}

TEST(TableSession, TypeChangeClearsOnceAndComesBack) {
    SdtaDialog d;
    auto& s = d.open(7, {{1, {L"1", L"25", L"A", L"150"}}});
    const std::string before = d.row(0);
    const std::string cleared = d.row(0).substr(0, 2);
    d.shown(s.modify({0, typeColumn}, L"BIP_Switching"));
    EXPECT_EQ(narrow(s.table().text(0, L(1))), "");
    EXPECT_EQ(narrow(s.table().type(0)), "TransBIP"); // the editor is still open
    d.shown(s.cancelEdit());
    EXPECT_EQ(d.row(0), before);
    EXPECT_FALSE(s.canUndo());

    // Back to the old type while the list is open: the old values.
    d.shown(s.modify({0, typeColumn}, L"BIP_Switching"));
    d.shown(s.modify({0, typeColumn}, L"TransBIP"));
    EXPECT_EQ(d.row(0), before);
    EXPECT_EQ(narrow(*s.modify({0, typeColumn}, L"").editorText), "TransBIP");

    // A value that appears between selection and commit shows that the change does not run twice.
    d.shown(s.modify({0, typeColumn}, L"BIP_Switching"));
    const std::string once = d.row(0);
    EXPECT_TRUE(d.shown(s.commit({0, typeColumn}, L"BIP_Switching", 1)).accepted);
    EXPECT_EQ(narrow(s.table().type(0)), "BIP_Switching");
    EXPECT_NE(once, before);
    d.shown(s.undo());
    EXPECT_EQ(d.row(0), before);
    d.shown(s.redo());
    EXPECT_EQ(narrow(s.table().type(0)), "BIP_Switching");
}

TEST(TableSession, ProcessFollowsTheTypeOfACapacitor) {
    SdtaDialog d;
    auto& s = d.open(11, {{9, {L"50", L"85", L"", L"", L"N/A"}}, {38, {}}});
    EXPECT_TRUE(d.type({0, typeColumn}, L"Custom"));
    EXPECT_EQ(d.row(0), "- Custom   N/A N/A CKR");
    EXPECT_TRUE(s.choices({0, L(5)})->holds(L"CL"));
    EXPECT_FALSE(s.choices({0, L(5)})->holds(L"Custom"));
    EXPECT_TRUE(d.type({0, L(1)}, L"50"));
    // Another process clears the row as a type would; what it lacks is its own.
    EXPECT_TRUE(d.type({0, L(5)}, L"CE"));
    EXPECT_EQ(d.row(0), "- Custom     CE");
    EXPECT_TRUE(d.type({0, typeColumn}, L"CA"));
    EXPECT_EQ(d.row(0), "- CA   N/A N/A N/A");
    EXPECT_EQ(narrow(s.choices({0, L(5)})->text()), "N/A\tNot Applicable\n");
    EXPECT_EQ(narrow(s.choices({1, typeColumn})->text()).substr(0, 24),
              "CA\t     Paper By-Pass\nCB");
    // An empty process takes a value without clearing.
    s.paste({{{1, L(1)}, L"63"}});
    EXPECT_TRUE(d.type({1, L(5)}, L"CL"));
    EXPECT_EQ(narrow(s.table().text(1, L(1))), "63");
}

TEST(TableSession, PowerOfChipResistors) {
    SdtaDialog d;
    auto& s = d.open(10, {{27, {L"0.25"}}, {28, {L"1"}}, {3, {L"2"}}});
    EXPECT_EQ(narrow(s.table().type(0)), "RM.Fix.Pw<0.5");
    for (const wchar_t* power : {L"0.5", L"0.6"}) {
        d.prompt.expect(L"For the selected type power should be < 0.5");
        d.shown(s.modify({0, L(1)}, power));
        const TableOutcome outcome = d.shown(s.commit({0, L(1)}, power, 1));
        EXPECT_FALSE(outcome.accepted);
        EXPECT_EQ(outcome.selectedRows, std::vector<std::size_t>{0});
    }
    EXPECT_TRUE(d.type({0, L(1)}, L"0.499"));
    d.prompt.expect(L"For the selected type power should be >= 0.5");
    EXPECT_FALSE(d.type({1, L(1)}, L"0.49"));
    EXPECT_TRUE(d.type({1, L(1)}, L"0.5"));
    EXPECT_TRUE(d.type({2, L(1)}, L"0.1"));

    // What came in another way is stopped at OK.
    s.paste({{{0, L(1)}, L"0.5"}});
    d.prompt.expectQuestion(
        L"\nNot all columns are filled in for some components. Do you want to continue?",
        PromptAnswer::Yes);
    d.prompt.expect(L"For the selected type power should be < 0.5");
    EXPECT_FALSE(d.ok());
    EXPECT_TRUE(d.type({0, typeColumn}, L"RM.Fix.Pw>=0.5")); // the power is cleared with the type
}

TEST(TableSession, FillByDrag) {
    SdtaDialog d;
    auto& s = d.open(11, {{1, {L"50", L"85"}}, {38, {L"63", L"85", L"1", L"2", L"CL"}}, {5, {}}});
    s.RefreshAllRowFlags();
    const auto fill = [&](std::size_t column, std::wstring_view text) {
        return d.fill({0, column}, {2, 0, 1}, text).changedRows;
    };
    using Rows = std::vector<std::size_t>;
    EXPECT_EQ(fill(L(2), L"105"), (Rows{0, 1, 2}));
    EXPECT_EQ(fill(L(3), L"7"), (Rows{1, 2})); // disabled in row 0
    EXPECT_EQ(fill(L(2), L""), Rows{});
    EXPECT_EQ(fill(partNumberColumn, L"X"), Rows{});
    EXPECT_EQ(fill(descriptionColumn, L"X"), Rows{});
    EXPECT_EQ(fill(s.setup().datasheetColumn, L"X"), Rows{});
    EXPECT_EQ(fill(s.setup().manufacturerColumn, L"Maker"), (Rows{0, 1, 2}));
    EXPECT_EQ(fill(L(5), L"CE"), Rows{1}); // only the custom row has it in its list
    d.prompt.expect(L"Value Type or Range Error.");
    EXPECT_EQ(fill(L(2), L"hot"), Rows{});
    EXPECT_EQ(fill(typeColumn, L"CA"), (Rows{1, 2}));
    EXPECT_EQ(d.row(1), "- CA   N/A N/A N/A");
    EXPECT_EQ(narrow(s.table().text(0, L(2))), "105"); // a row of that type is left alone
    d.shown(s.undo());
    EXPECT_EQ(d.row(1), "+ Custom 63 105 7 2 CE");
    EXPECT_EQ(d.row(2).substr(0, 4), "- CE");
    d.shown(s.undo());
    EXPECT_EQ(narrow(s.table().text(1, L(5))), "CL");
}

TEST(TableSession, PastesTypeBeforeItsValues) {
    SdtaDialog d;
    auto& s = d.open(11, {{1, {L"50", L"85"}}, {38, {L"63", L"85", L"1", L"2", L"CL"}}});
    s.RefreshAllRowFlags();
    const TableOutcome outcome = d.shown(s.paste({{{1, L(1)}, L"16"},
                                                  {{1, L(2)}, L"hot"},
                                                  {{1, L(3)}, L"3"},
                                                  {{1, typeColumn}, L"CA"},
                                                  {{1, partNumberColumn}, L"X"},
                                                  {{1, catalogNumberColumn}, L"new"},
                                                  {{1, descriptionColumn}, L""},
                                                  {{0, L(1)}, L"N/A"},
                                                  {{0, typeColumn}, L"nothing"},
                                                  {{0, L(5)}, L"CKR"},
                                                  {{5, L(1)}, L"out"},
                                                  {{0, 99}, L"out"}}));
    EXPECT_EQ(outcome.changedRows, std::vector<std::size_t>{1});
    EXPECT_EQ(d.row(0).substr(2), "CA 50 85 N/A N/A N/A");
    EXPECT_EQ(d.row(1), "+ CA 16 hot N/A N/A N/A");
    EXPECT_EQ(narrow(s.table().text(1, catalogNumberColumn)), "NEW");
    EXPECT_EQ(narrow(s.table().text(1, descriptionColumn)), "part");
    EXPECT_EQ(d.line(),
              "1 of 2 pasted values breaks its rule; first: P2, TMax: Value hot out of "
              "range:  Maximum operating temperature in degrees Celsius must be from 0 to "
              "300.");
    d.shown(s.undo());
    EXPECT_EQ(d.row(1).substr(2), "Custom 63 85 1 2 CL");
    EXPECT_EQ(narrow(s.table().text(1, catalogNumberColumn)), "C2");
    EXPECT_FALSE(s.canUndo());
}

TEST(TableSession, AnalysesOptionsAndLevels) {
    AsrDialog d;
    auto& s = d.open(25, {{1, {L"1", L"2", L"3", L"8", L"5", L"1", L"5", L"2", L"0", L"1"}}},
                     AnalysisLevel::SchematicReview);
    // What the auto-fill engine wrote as a place shows as a word.
    EXPECT_EQ(narrow(s.table().text(0, L(8))), "Negative");
    EXPECT_EQ(narrow(s.table().text(0, L(10))), "Rectangular");
    EXPECT_TRUE(d.type({0, typeColumn}, L"Resonator"));
    EXPECT_EQ(narrow(s.table().text(0, L(8))), "N/A");
    EXPECT_FALSE(s.isEnabled({0, L(10)}));
    EXPECT_EQ(narrow(s.choices({0, L(8)})->text()), "N/A\t     Not Applicable\n");
    EXPECT_TRUE(d.type({0, typeColumn}, L"Crystal.Oscillator"));
    EXPECT_EQ(narrow(s.table().text(0, L(8))), "Positive");
    EXPECT_EQ(narrow(s.choices({0, L(10)})->text()),
              "Rectangular\t     Rectangular\nSinus\t     Sinus\n");
    // Full speaks of the visible columns.
    std::size_t hidden = 0;
    for (std::size_t n = 1; n <= 12; ++n)
        if (s.setup().columns[L(n)].hidden)
            ++hidden;
        else if (s.table().text(0, L(n)).empty())
            s.paste({{{0, L(n)}, L"1"}});
    EXPECT_GT(hidden, 0U);
    EXPECT_EQ(narrow(s.table().text(0, fullColumn)), "+");
    ASSERT_TRUE(d.ok());
    const AsrComponent record = s.takeRecords().at(L"P1");
    EXPECT_EQ(record.completedForAsr, 1);
    EXPECT_EQ(record.completed, 0);
    EXPECT_EQ(narrow(record.LPar[7]), "Positive");

    // A check box is on or off, whatever is pasted.
    auto& comparators = d.open(9, {{1, {}}});
    const std::size_t box = comparators.setup().notesColumn + 1;
    comparators.paste({{{0, box}, L"yes"}});
    EXPECT_EQ(narrow(comparators.table().text(0, box)), "");
    comparators.paste({{{0, box}, L"1"}});
    EXPECT_EQ(narrow(comparators.table().text(0, box)), "1");
}

} // namespace
} // namespace partwright
