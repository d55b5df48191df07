// The Analyses dialog through its verbs: the case files of the coded checks for the groups that
// have columns, and what the session adds to them.

#include "session_fixture.h"
#include "support/analyses_cases.h"

#include <gtest/gtest.h>

#include <type_traits>

namespace partwright {
namespace {

using test::AsrDialog;
using test::narrow;

constexpr std::size_t L(std::size_t parameter) {
    return typeColumn + parameter;
}

constexpr std::wstring_view notAllFilled =
    L"\nNot all columns are filled in for some components. Do you want to continue?";
constexpr PromptAnswer yes = PromptAnswer::Yes;

std::vector<std::wstring> textsOf(const TableOutcome& outcome) {
    std::vector<std::wstring> texts;
    for (const Box& box : outcome.boxes)
        texts.push_back(box.text);
    return texts;
}

class DialogCases final : public test::AnalysesCases {
    /// The dialog's table has the columns of the vocabulary.
    static bool isLive(const Table& table) {
        return !ColumnsOfAsrGroup(table.group).empty() && table.headers.empty();
    }

    static std::wstring stored(const std::wstring& text) {
        return text == L"-" ? L"-1" : text == L"N/A" ? L"-2" : text;
    }

    /// Hidden columns are those of a level; cells that a full row leaves open do not apply.
    void open(AsrDialog& d, const Table& table, const std::vector<Row>& rows) {
        LevelColumns shown;
        shown.fill(1);
        for (const std::size_t position : table.hidden)
            shown[position] = 0;
        d.app.decimalPoint = table.mark;
        d.app.asr.columnsForAsr[table.group] = shown;
        std::vector<AsrDialog::Part> parts;
        for (const Row& row : rows) {
            AsrDialog::Part part;
            const auto type = std::find(table.types.begin(), table.types.end(), row.type);
            part.type = type == table.types.end()
                            ? 0
                            : static_cast<std::int32_t>(type - table.types.begin()) + 1;
            part.values.assign(ColumnsOfAsrGroup(table.group).size(),
                               row.isFull && fillsRows_ ? L"-2" : L"");
            for (const auto& [position, text] : row.cells)
                part.values.at(position - 1) = stored(text);
            parts.push_back(std::move(part));
        }
        d.open(table.group, parts, AnalysisLevel::SchematicReview);
    }

    void commit(const Table& table, const Commit& commit) override {
        if (!isLive(table) || commit.position > ColumnsOfAsrGroup(table.group).size())
            return;
        AsrDialog d;
        open(d, table, {commit.row});
        const CellAt at{0, L(commit.position)};
        const std::wstring before = d.session->table().text(0, at.column);
        d.session->modify(at, commit.text);
        const TableOutcome outcome = d.session->commit(at, commit.text, 1);
        const std::wstring& after = d.session->table().text(0, at.column);
        const bool isOpen = commit.answer == L"open";
        if (outcome.accepted)
            expect(isOpen ? L"open" : L"fine", commit.answer);
        else if (isOpen) // refused by the rule of the cell or its list
            EXPECT_TRUE(outcome.line.has_value());
        else
            expect(textsOf(outcome) == test::Words{L"'N/A' is illegal in this cell."}
                       ? L"n/a"
                       : test::joinBoxes(textsOf(outcome)),
                   commit.answer);
        EXPECT_EQ(after, outcome.accepted ? commit.textBehind : before);
        // The editor shows what the rest of the commit worked on.
        EXPECT_EQ(outcome.editorText.value_or(commit.text), commit.textBehind);
        EXPECT_EQ(d.session->canUndo(), after != before);
    }

    void ok(const Table& table, const std::vector<Row>& rows, const std::wstring& answer) override {
        if (!isLive(table) ||
            std::any_of(rows.begin(), rows.end(), [](const Row& row) { return row.isHidden; }))
            return;
        AsrDialog d;
        open(d, table, rows);
        d.session->RefreshAllRowFlags();
        const TableOutcome outcome =
            d.session->ok({}, d.app.libraries.datasheetLinks, Consent::Given);
        std::wstring expected = answer;
        if (const auto at = expected.find(L"Method M\n"); at != std::wstring::npos)
            expected.replace(at, 8, L"Method Schematic Review (ASR)");
        expect(outcome.accepted
                   ? L"fine"
                   : test::stopText(outcome.selectedRows,
                                    outcome.current ? outcome.current->column - typeColumn : 0,
                                    textsOf(outcome)),
               expected);
    }

public:
    /// Some rules look at full rows only, some at cells that are empty.
    explicit DialogCases(bool fillsRows) : fillsRows_(fillsRows) {}

private:
    bool fillsRows_;
};

TEST(AnalysesDialog, Circuits) {
    DialogCases(false).run("circuits.cases");
}
TEST(AnalysesDialog, Semiconductors) {
    DialogCases(false).run("semiconductors.cases");
}
TEST(AnalysesDialog, Passives) {
    DialogCases(false).run("passives.cases");
}
TEST(AnalysesDialog, Transformers) {
    DialogCases(false).run("transformers.cases");
}
TEST(AnalysesDialog, OscillatorsFiltersSplitters) {
    DialogCases(true).run("frequency.cases");
}
TEST(AnalysesDialog, Units) {
    DialogCases(false).run("units.cases");
}

TEST(AnalysesDialog, AValueIsStoredInTheUnitOfItsColumn) {
    AsrDialog d;
    auto& s = d.open(23, {{1, {}}, {1, {}}, {2, {}}});
    EXPECT_TRUE(d.type({0, L(5)}, L"10u"));
    EXPECT_EQ(narrow(s.table().text(0, L(5))), "10");
    // What follows works on the new text, and the editor stays open with it.
    const std::wstring before = s.table().text(0, L(1));
    const TableOutcome refused = s.commit({0, L(1)}, L"900G", 1);
    EXPECT_FALSE(refused.accepted);
    EXPECT_EQ(refused.editorText, L"900000000000");
    EXPECT_EQ(textsOf(refused), std::vector<std::wstring>{L"Value Type or Range Error."});
    EXPECT_EQ(s.table().text(0, L(1)), before);
    // Free texts have no unit, the names of makers least of all.
    EXPECT_TRUE(d.type({0, s.setup().manufacturerColumn}, L"3M"));
    EXPECT_EQ(narrow(s.table().text(0, s.setup().manufacturerColumn)), "3M");
    // A fill spreads the normalised text, and one step takes it back.
    EXPECT_EQ(d.fill({0, L(5)}, {1, 2}, L"22u").changedRows, (std::vector<std::size_t>{1, 2}));
    EXPECT_EQ(narrow(s.table().text(2, L(5))), "22");
    s.undo();
    EXPECT_EQ(narrow(s.table().text(2, L(5))), "");
}

TEST(AnalysesDialog, OptionsOfEachType) {
    struct Case {
        std::int32_t group;
        std::size_t parameter;
        std::wstring type, other, value;
        std::string list;
    };
    const std::string gate = "Negative\t     V-gs(off) negative quantity\n"
                             "Positive\t     V-gs(off) positive quantity\n";
    for (const Case& c : std::initializer_list<Case>{
             {16, 7, L"MOSFET.N", L"JFET.N", L"Positive", gate},
             {17, 7, L"MOSFET.P", L"JFET.P", L"Negative", gate},
             {25, 8, L"Crystal.Oscillator", L"Crystal", L"Positive",
              "Positive\t     Positive Offset\nNegative\t     Negative Offset\n"},
             {25, 10, L"Crystal.Oscillator", L"Resonator", L"Rectangular",
              "Rectangular\t     Rectangular\nSinus\t     Sinus\n"},
             {26, 7, L"RF.Filter", L"Filter", L"LowPass",
              "LowPass\t     Low Pass Filter\nHighPass\t     High Pass Filter\n"
              "BandPass\t     Band Pass Filter\nBandStop\t     Band Stop Filter\n"}}) {
        SCOPED_TRACE(narrow(c.type) + narrow(c.other));
        AsrDialog d;
        auto& s = d.open(c.group, {{0, {}}});
        const CellAt at{0, L(c.parameter)};
        EXPECT_TRUE(d.type({0, typeColumn}, c.type));
        EXPECT_EQ(s.table().text(0, at.column), c.value);
        EXPECT_EQ(narrow(s.choices(at)->text()), c.list);
        EXPECT_FALSE(d.type(at, L"N/A")); // not in this type's list
        EXPECT_TRUE(d.type({0, typeColumn}, c.other));
        EXPECT_EQ(narrow(s.table().text(0, at.column)), "N/A");
        EXPECT_EQ(narrow(s.choices(at)->text()), "N/A\t     Not Applicable\n");
        EXPECT_FALSE(s.isEnabled(at));
    }
}

TEST(AnalysesDialog, FillAndLookStandOnTheSameChecks) {
    AsrDialog d;
    auto& s = d.open(21, {{1, {L"100", L"1--2", L"3"}}, {1, {}}});
    // A list of pins is judged at commit alone; looking at it says nothing.
    s.selectCell({0, L(2)});
    EXPECT_EQ(d.line().find("out of range"), std::string::npos);
    d.prompt.expect(L"Wrong dash separators order!");
    EXPECT_FALSE(d.fill({0, L(2)}, {1}, L"1--2").accepted);
    d.prompt.expect(L"'N/A' is illegal in this cell.");
    EXPECT_FALSE(d.fill({0, L(2)}, {1}, L"N/A").accepted);
    EXPECT_FALSE(s.canUndo());
    EXPECT_TRUE(d.fill({0, L(2)}, {1}, L"A1-A2").accepted);
    EXPECT_EQ(narrow(s.table().text(1, L(2))), "A1-A2");
    // Pins of a group without lists have rules like any value.
    EXPECT_TRUE(s.commit({0, L(1)}, L"4.7k", 1).accepted);
    EXPECT_EQ(narrow(s.table().text(0, L(1))), "4700");
}

TEST(AnalysesDialog, ACopyAsksForMatchingListsAlone) {
    AsrDialog d;
    auto& s =
        d.open(21, {{1, {L"1", L"1-2", L"3-4"}}, {1, {L"1", L"5", L"6-7"}}}, AnalysisLevel::Rapid);
    for (std::size_t n = 2; n <= 3; ++n)
        if (s.setup().columns[L(n)].hidden)
            GTEST_FAIL() << "the level hides what the test is about";
    const std::size_t screen[] = {1, 0};
    const TableOutcome refused = s.checkBeforeCopy(screen);
    EXPECT_FALSE(refused.accepted);
    EXPECT_EQ(refused.selectedRows, std::vector<std::size_t>{1});
    EXPECT_EQ(textsOf(refused),
              std::vector<std::wstring>{
                  L"Method Auto Stress Calculation (Rapid )\nThe quantity of Pin numbers in the "
                  L"columns  'PinR-1'  and  'PinR-2'\n in the selected row must be equal!"});
    EXPECT_TRUE(d.type({1, L(3)}, L"6"));
    EXPECT_TRUE(s.checkBeforeCopy(screen).accepted);

    // Other faults stop OK, not a copy.
    AsrDialog relay;
    auto& r = relay.open(32, {{1, {L"100", L"1", L"1", L"1", L"2", L"3"}}});
    EXPECT_TRUE(r.checkBeforeCopy({}).accepted);
    EXPECT_FALSE(r.ok({}, relay.app.libraries.datasheetLinks).accepted);
}

TEST(AnalysesDialog, MessagesCountRowsAsTheScreenDoes) {
    AsrDialog d;
    const auto filter = [](std::wstring frequency) {
        return AsrDialog::Part{
            3, {L"1", L"2", L"3", L"-2", L"50", L"1", L"LowPass", std::move(frequency)}};
    };
    auto& s = d.open(26, {filter(L"5"), filter(L"5-9"), filter(L"5")});
    s.RefreshAllRowFlags();
    const std::size_t screen[] = {2, 0, 1};
    const TableOutcome stop = s.ok(screen, d.app.libraries.datasheetLinks);
    EXPECT_EQ(stop.selectedRows, std::vector<std::size_t>{1});
    EXPECT_EQ(textsOf(stop), std::vector<std::wstring>{L"Number of frequency values should be "
                                                       L"equals to 1.\n(Row = 3, Column = 14)"});
    EXPECT_EQ(textsOf(s.commit({0, L(8)}, L"7-8", 2)),
              std::vector<std::wstring>{L"Number of frequency values should be equals to "
                                        L"1.\n(Row = 2, Column = 14)"});
    EXPECT_TRUE(d.type({1, L(8)}, L"9"));
    EXPECT_TRUE(s.ok(screen, d.app.libraries.datasheetLinks).accepted);
}

TEST(AnalysesDialog, OkStoresWhatTheLevelShows) {
    AsrDialog d;
    LevelColumns shown{};
    shown[1] = shown[2] = shown[3] = 1;
    d.app.asr.columnsForAsr[23] = d.app.asr.columnsForRapid[23] = shown;
    struct Case {
        AnalysisLevel level;
        std::wstring ground;
        int completed, forRapid, forAsr;
    };
    // V-RT, I-Lkg and PinC-1 are shown; the other three are hidden and one of them is empty.
    for (const Case& c :
         std::initializer_list<Case>{{AnalysisLevel::SchematicReview, L"1", 1, 1, 1},
                                     {AnalysisLevel::SchematicReview, L"", 0, 1, 0},
                                     {AnalysisLevel::Rapid, L"1", 1, 1, 1},
                                     {AnalysisLevel::Rapid, L"", 0, 0, 1},
                                     {AnalysisLevel::Full, L"1", 0, 1, 1}}) {
        auto records = d.records(23, {{2, {L"50", L"-1", c.ground, L"2-3", L"", L"-2"}}});
        AsrComponent& record = records.begin()->second;
        record.completed = record.completedForRapid = record.completedForAsr = 1;
        auto& s = d.openRecords(23, records, c.level);
        s.RefreshAllRowFlags();
        if (narrow(s.table().text(0, fullColumn)) == "-")
            d.prompt.expectQuestion(notAllFilled, yes);
        if (c.level == AnalysisLevel::Full) {
            d.prompt.expect(L"Method Tessara (Full)\nThe quantity of Pin numbers in the columns  "
                            L"'PinC-1'  and  'PinC-2'\n in the selected row must be equal!");
            EXPECT_FALSE(d.ok()); // the hidden list is left out of the pass, the shown one is not
            EXPECT_TRUE(d.type({0, L(4)}, L"2"));
            d.prompt.expectQuestion(notAllFilled, yes);
        }
        ASSERT_TRUE(d.ok());
        const AsrComponent stored = s.takeRecords().at(L"P1");
        EXPECT_EQ(stored.completed, c.completed);
        EXPECT_EQ(stored.completedForRapid, c.forRapid);
        EXPECT_EQ(stored.completedForAsr, c.forAsr);
        EXPECT_EQ(narrow(stored.LPar[1]), "-1");
        EXPECT_EQ(narrow(stored.LPar[3]), c.level == AnalysisLevel::Full ? "2" : "2-3");
        EXPECT_EQ(narrow(stored.LPar[5]), "-2");
    }
}

/// A dialog over columns that no group of the vocabulary has.
class HandMadeSession final : public TableSession {
public:
    HandMadeSession(TableSetup setup, const ValidationTables& rules)
        : TableSession(std::move(setup), rules, {}) {
        TableRow row;
        row.cells.resize(this->setup().columns.size());
        row.cells[typeColumn] = this->setup().types.at(1);
        table_.load(std::move(row));
    }
    FamilyGroups familyGroups() const override { return {}; }
    TableOutcome ok(RowOrder order, DatasheetLinks&, Consent consent) override {
        return checkAllRowsForOk(order, consent);
    }

private:
    bool isOpened(std::wstring_view) const override { return false; }
    std::size_t changedComponents() const override { return 0; }
};

TEST(AnalysesDialog, AStopAtACellGoesThere) {
    AsrDialog d;
    TableSetup setup = makeTableSetup<AsrComponent>(d.app, 5, AnalysisLevel::Full);
    TableColumn input;
    input.parameter = 1;
    setup.columns.insert(setup.columns.begin() + L(1), input);
    setup.lastParameter = L(1);
    setup.types = {L"Default", L"Amplifier"};
    setup.properties.resize(3);
    HandMadeSession s(std::move(setup), d.rules);
    s.paste({{{0, L(1)}, L"1-2"}});
    DatasheetLinks links;
    const TableOutcome stop = s.ok({}, links, Consent::Given);
    EXPECT_FALSE(stop.accepted);
    EXPECT_EQ(stop.current, (CellAt{0, L(1)}));
    EXPECT_EQ(stop.selectedRows, std::vector<std::size_t>{0});
    EXPECT_EQ(textsOf(stop),
              std::vector<std::wstring>{L"Only one input pin is allowed for type Amplifier."});
}

TEST(AnalysesDialog, CheckBoxes) {
    AsrDialog d;
    TableSetup setup = makeTableSetup<AsrComponent>(d.app, 9, AnalysisLevel::Full);
    const std::size_t calc = setup.columns.size() - 1;
    EXPECT_TRUE(setup.columns[calc].hidden);
    EXPECT_FALSE(setup.columns[calc - 1].hidden);
    setup.columns[calc].hidden = false;
    HandMadeSession s(std::move(setup), d.rules);
    const auto typed = [&](std::wstring_view type) {
        s.modify({0, typeColumn}, type);
        EXPECT_TRUE(s.commit({0, typeColumn}, type, 1).accepted);
        return narrow(s.table().text(0, calc));
    };
    EXPECT_EQ(typed(L"IC.General.OneSpl"), "");
    EXPECT_EQ(typed(L"IC.PinLibrary"), "1");
    EXPECT_TRUE(s.commit({0, calc}, L"0", 1).accepted);
    EXPECT_TRUE(s.commit({0, calc - 1}, L"1", 1).accepted);

    auto& stored = d.open(9, {{1, {}}});
    EXPECT_TRUE(d.type({0, typeColumn}, L"IC.General.OneSpl"));
    EXPECT_TRUE(d.type({0, typeColumn}, L"IC.PinLibrary"));
    EXPECT_EQ(narrow(stored.table().text(0, calc)), "") << "nobody sees that box";
}

} // namespace
} // namespace partwright
