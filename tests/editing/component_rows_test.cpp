// Rows and records: deleting, adding, copying, other groups, search, OK, and what comes back.

#include "session_fixture.h"
#include "support/dice.h"

#include <gtest/gtest.h>

#include <numeric>

namespace partwright {
namespace {

using test::AsrDialog;
using test::Dice;
using test::goodThyristor;
using test::narrow;
using test::SdtaDialog;
using Rows = std::vector<std::size_t>;

constexpr auto yes = PromptAnswer::Yes;
constexpr auto no = PromptAnswer::No;
const std::wstring notAllFilled =
    L"\nNot all columns are filled in for some components. Do you want to continue?";

TEST(ComponentRows, DeletionAsksAndSparesTheProject) {
    SdtaDialog d;
    d.projectParts = {{L"P1", L"R1"}, {L"P2", L"R2"}};
    auto& s = d.open(3, std::vector<SdtaDialog::Part>(5, goodThyristor()));
    const auto remove = [&](Rows rows) {
        return d.asked([&](Consent consent) { return s.deleteRows(rows, consent); }).removedRows;
    };
    d.prompt.expect(L"Select row(s) for deleting by click on row header.");
    EXPECT_EQ(remove({}), Rows{});
    d.prompt.expect(L"You have selected 1 row for deletion.\nThis Part Number is present in the "
                    L"project and cannot be deleted.");
    EXPECT_EQ(remove({0}), Rows{});
    d.prompt.expect(L"You have selected 2 rows for deletion.\nAll selected Part Numbers are "
                    L"present in the project and cannot be deleted.");
    EXPECT_EQ(remove({1, 0}), Rows{});
    d.prompt.expectQuestion(L"You have selected 2 rows for deletion.\n1 of them is present in the "
                            L"project and cannot be deleted.\nThe remaining 1 will be deleted "
                            L"now.\nChoose Yes to delete or No to exit.",
                            no);
    EXPECT_EQ(remove({1, 2}), Rows{});
    d.prompt.expectQuestion(L"You have selected 4 rows for deletion.\n2 of them are present in the "
                            L"project and cannot be deleted.\nThe remaining 2 will be deleted "
                            L"now.\nChoose Yes to delete or No to exit.",
                            yes);
    EXPECT_EQ(remove({4, 1, 0, 2}), (Rows{2, 4}));
    EXPECT_FALSE(s.hasPart(L"P3")); // its number is free again
    EXPECT_EQ(d.shown(s.undo()).insertedRows, (Rows{2, 4}));
    EXPECT_EQ(narrow(s.table().text(4, partNumberColumn)), "P5");
    EXPECT_EQ(d.shown(s.redo()).removedRows, (Rows{2, 4}));
    d.prompt.expectQuestion(L"You have selected 1 row for deletion.\nChoose Yes to delete or No to "
                            L"exit.",
                            yes);
    EXPECT_EQ(remove({2}), Rows{2});
    ASSERT_TRUE(d.ok());
    const SdtaLibrary left = s.takeRecords();
    EXPECT_EQ(left.size(), 2U);
    EXPECT_TRUE(left.contains(L"P2"));
}

TEST(ComponentRows, AddCopyAndChangeGroup) {
    SdtaDialog d;
    d.elsewhere = {{L"TAKEN", L""}};
    d.app.libraries.datasheetLinks = {{L"P1", L"one.pdf"}, {L"OTHER", L"other.pdf"}};
    auto& s = d.open(3, {goodThyristor(), goodThyristor()});
    EXPECT_TRUE(s.hasPart(L"P2"));
    EXPECT_TRUE(s.hasPart(L"TAKEN"));
    EXPECT_FALSE(s.hasPart(L"NEW"));

    TableOutcome outcome = d.shown(s.add({L"NEW", 3, L"Diode SCR", 3}));
    EXPECT_EQ(outcome.insertedRows, Rows{2});
    EXPECT_EQ(outcome.current, (CellAt{2, partNumberColumn}));
    EXPECT_EQ(d.row(2), "- SCR       NH.SMT   ");
    EXPECT_TRUE(d.shown(s.add({L"FAR", 7, L"Transistor Bipolar", 4})).insertedRows.empty());
    EXPECT_TRUE(s.hasPart(L"FAR"));
    EXPECT_TRUE(d.shownParts.contains(L"NEW") && d.libraryParts.contains(L"FAR"));

    EXPECT_EQ(d.shown(s.copy(0, {L"TWIN", 3, L"Diode SCR", 3})).insertedRows, Rows{3});
    EXPECT_TRUE(d.type({3, typeColumn + 1}, L"9.9"));
    EXPECT_EQ(narrow(s.table().text(3, s.setup().datasheetColumn)), "one.pdf");

    EXPECT_TRUE(d.type({1, descriptionColumn}, L"moved"));
    EXPECT_TRUE(d.shown(s.changeGroup(1, {L"", 3, L"Diode SCR", 3})).removedRows.empty());
    EXPECT_EQ(d.shown(s.changeGroup(1, {L"", 7, L"Transistor Bipolar", 4})).removedRows, Rows{1});
    EXPECT_EQ(d.shown(s.undo()).insertedRows, Rows{1});
    EXPECT_EQ(d.shown(s.redo()).removedRows, Rows{1});
    d.shown(s.clearLink(0));
    d.shown(s.storeLink(1, L"new.pdf"));

    d.prompt.expectQuestion(notAllFilled, yes);
    ASSERT_TRUE(d.ok());
    const SdtaLibrary records = s.takeRecords();
    ASSERT_EQ(records.size(), 5U);
    EXPECT_EQ(records.at(L"NEW").group, 3);
    EXPECT_EQ(records.at(L"NEW").type, 1);
    EXPECT_EQ(narrow(records.at(L"NEW").LPar[6]), "NH.SMT");
    EXPECT_EQ(records.at(L"FAR").group, 7);
    EXPECT_EQ(records.at(L"FAR").family, 4);
    EXPECT_EQ(records.at(L"FAR").LPar, SdtaComponent().LPar);
    EXPECT_EQ(narrow(records.at(L"TWIN").LPar[0]), "9.9");
    EXPECT_EQ(records.at(L"TWIN").completed, 1);
    const SdtaComponent& moved = records.at(L"P2");
    EXPECT_EQ(moved.group, 7);
    EXPECT_EQ(moved.type, 1);
    EXPECT_EQ(moved.completed, 0);
    EXPECT_EQ(narrow(moved.Description), "moved");
    EXPECT_EQ(moved.LPar, SdtaComponent().LPar);
    EXPECT_EQ(
        d.app.libraries.datasheetLinks,
        (DatasheetLinks{
            {L"P1", L""}, {L"NEW", L"new.pdf"}, {L"TWIN", L"one.pdf"}, {L"OTHER", L"other.pdf"}}));

    SdtaDialog capacitors;
    auto& c = capacitors.open(11, {{1, {L"50"}}});
    capacitors.shown(c.add({L"FAR", 3, L"Diode SCR", 3}));
    capacitors.shown(c.copy(0, {L"TWIN", 11, L"Capacitor", 6}));
    for (int moves = 0; moves < 2; ++moves)
        capacitors.shown(c.changeGroup(0, {L"", 3, L"Diode SCR", 3}));
    ASSERT_TRUE(capacitors.ok());
    const SdtaLibrary moves = c.takeRecords();
    EXPECT_EQ(narrow(moves.at(L"P1").LPar[0]), "-2");
    EXPECT_EQ(narrow(moves.at(L"TWIN").LPar[0]), "-2");
    EXPECT_EQ(narrow(moves.at(L"FAR").LPar[0]), ""); // it was never a capacitor
}

TEST(ComponentRows, AGroupWithoutTypesTakesANewPart) {
    SdtaDialog d;
    auto& s = d.open(25, {});
    d.shown(s.add({L"NEW", 25, L"", 18}));
    EXPECT_EQ(narrow(s.table().type(0)), "Default");
    d.shown(s.selectCell({0, typeColumn}));
    EXPECT_EQ(d.line().find("from list"), std::string::npos) << d.line();
    EXPECT_FALSE(s.marks().isMarked({0, typeColumn}));
    EXPECT_TRUE(d.type({0, s.setup().lastParameter}, L"-"));
}

TEST(ComponentRows, DroppingAsksWhenComponentsDiffer) {
    SdtaDialog d;
    d.projectParts.clear();
    auto& s = d.open(3, std::vector<SdtaDialog::Part>(5, goodThyristor()));
    d.shown(s.selectCell({0, typeColumn + 1})); // Full is worked out anew
    EXPECT_TRUE(s.drop().accepted);
    EXPECT_TRUE(d.type({1, typeColumn + 1}, L"9"));
    EXPECT_EQ(s.drop().question, L"Drop the changes to 1 component?");
    EXPECT_TRUE(d.type({1, typeColumn + 1}, L"10")); // as it was
    EXPECT_TRUE(s.drop().accepted);
    d.shown(s.add({L"NEW", 3, L"Diode SCR", 3}));
    d.shown(s.changeGroup(2, {L"", 7, L"Transistor Bipolar", 4}));
    d.shown(s.deleteRows({0}, Consent::Given));
    EXPECT_TRUE(d.type({0, typeColumn + 1}, L"8"));
    EXPECT_EQ(s.drop().question, L"Drop the changes to 4 components?");
    while (s.canUndo())
        d.shown(s.undo());
    EXPECT_TRUE(s.drop().accepted);
}

TEST(ComponentRows, UndoKeepsCellsNotRows) {
    constexpr std::size_t rows = 10'000;
    SdtaDialog d;
    auto& s = d.open(3, std::vector<SdtaDialog::Part>(rows, goodThyristor()));
    std::vector<std::size_t> all(rows);
    std::iota(all.begin(), all.end(), std::size_t{0});
    for (int step = 0; step < 200; ++step)
        d.fill({0, typeColumn + 1}, all, std::to_wstring(1001 + step));
    EXPECT_LT(s.table().keptBytes(), std::size_t{200} << 20);
    int steps = 0;
    for (; s.canUndo(); ++steps)
        d.shown(s.undo());
    EXPECT_EQ(steps, 200);
    EXPECT_EQ(narrow(s.table().text(rows - 1, typeColumn + 1)), "10");
    // Texts as long as cells can be leave room for fewer steps, never for none.
    for (int step = 0; step < 30; ++step)
        d.fill({0, s.setup().notesColumn}, all, std::wstring(250, L'a' + (step & 1)));
    EXPECT_LT(s.table().keptBytes(), std::size_t{200} << 20);
    EXPECT_TRUE(s.canUndo());
}

TEST(ComponentRows, OkAsksOnceAndStopsAtTheFirstFault) {
    SdtaDialog d;
    auto tooCool = goodThyristor();
    tooCool.values[3] = L"140"; // 10 W on 10 degrees per watt end far below it
    auto upsideDown = goodThyristor();
    upsideDown.values[7] = L"5"; // less to the air than to the case
    auto open = goodThyristor();
    open.values[9].clear();
    auto& s = d.open(3, {open, tooCool, upsideDown, open});
    d.prompt.expectQuestion(notAllFilled, no);
    EXPECT_FALSE(d.ok());

    d.prompt.expectQuestion(notAllFilled, yes);
    TableOutcome outcome = d.closed();
    EXPECT_FALSE(outcome.accepted);
    EXPECT_EQ(outcome.selectedRows, Rows{1});
    const std::string line =
        "Combination Error: Do not comply the rule: { (Tjmax-5) <= (Ts + PwRT * Ojc) <= (Tjmax) }";
    EXPECT_EQ(d.line(), line);
    d.shown(s.selectCell({1, partNumberColumn}));
    EXPECT_EQ(d.line(), line); // the selection of the row leaves it once
    d.shown(s.selectCell({1, partNumberColumn}));
    EXPECT_EQ(d.line(), "");

    // The order is that on the screen.
    const Rows order = {3, 2, 1, 0};
    d.prompt.expectQuestion(notAllFilled, yes);
    outcome = d.closed(order);
    EXPECT_EQ(outcome.selectedRows, Rows{2});
    EXPECT_EQ(d.line(), "Thermal resistance Oja must be greater than or equal to Junction to Case "
                        "Ojc.");
    d.rules.thermal[3] = {{1, {3, 1, 199, 0, L"1"}}};
    d.prompt.expectQuestion(notAllFilled, yes);
    d.prompt.expect(L" Found in LedSet CheckID = 199");
    EXPECT_FALSE(d.ok());

    d.rules.thermal.clear();
    d.prompt.expectQuestion(notAllFilled, yes);
    ASSERT_TRUE(d.ok());
    const SdtaLibrary records = s.takeRecords();
    EXPECT_EQ(records.at(L"P1").completed, 0);
    EXPECT_EQ(records.at(L"P2").completed, 1);
}

TEST(ComponentRows, SearchAndSelectRow) {
    SdtaDialog d;
    auto& s = d.open(3, std::vector<SdtaDialog::Part>(4, goodThyristor()));
    d.type({1, catalogNumberColumn}, L"AX7");
    d.type({3, catalogNumberColumn}, L"XA7");
    const auto find = [&](std::wstring_view request, std::optional<std::size_t> from,
                          RowOrder order = {}) -> int {
        const auto current = from ? std::optional(CellAt{*from, 1}) : std::nullopt;
        const auto found = d.shown(s.search(request, current, order)).current;
        return found ? static_cast<int>(found->row) : -1;
    };
    EXPECT_EQ(find(L"1_1_0_A7", std::nullopt), 3);
    EXPECT_EQ(find(L"1_1_0_X", 0), 1);
    EXPECT_EQ(find(L"1_1_0_X", 1), 3); // the current row is not looked at
    EXPECT_EQ(find(L"1_2_0_X", 0), 3);
    EXPECT_EQ(find(L"1_0_0_AX7", 0), 1);
    EXPECT_EQ(find(L"1_1_1_X", 3), 1);
    EXPECT_EQ(find(L"1_1_1_X", 3, Rows{1, 3, 0, 2}), 1);
    EXPECT_EQ(find(L"2_0_0_part", 1), 2);
    const std::wstring none = L" row containing the desired parameter with the required search "
                              L"conditions was not found";
    d.prompt.expect(L"Next " + none, PromptIcon::Information);
    EXPECT_EQ(find(L"1_0_0_X", 0), -1);
    d.prompt.expect(L"Previous " + none, PromptIcon::Information);
    EXPECT_EQ(find(L"1_1_1_X", 0), -1);
    d.prompt.expect(L"Next " + none, PromptIcon::Information);
    EXPECT_EQ(find(L"4000000000_1_0_X", 0), -1);
    EXPECT_FALSE(s.search(L"nonsense", std::nullopt, {}).accepted);

    EXPECT_EQ(d.shown(s.selectWholeRow(CellAt{2, 3})).selectedRows, Rows{2});
    d.prompt.expect(L"There is no selection.");
    d.shown(s.selectWholeRow(std::nullopt));
    d.prompt.expect(L"You should select a row in the Component Table.");
    EXPECT_FALSE(d.shown(s.requireRow(std::nullopt)).accepted);
    SdtaDialog empty;
    auto& e = empty.open(3, {});
    empty.prompt.expect(L"The Components Table is empty.");
    empty.shown(e.selectWholeRow(std::nullopt));
    SdtaLibrary nameless;
    nameless[L" "].group = 3;
    auto& n = empty.openRecords(3, nameless);
    empty.prompt.expect(L"Part Number cell is empty.");
    empty.shown(n.selectWholeRow(CellAt{0, 1}));
}

/// Values as a file or an earlier OK leaves them.
template <class Record>
void expectUnchangedByOk(AnalysisLevel level) {
    constexpr std::wstring_view values[] = {L"",      L"-1",      L"-2",  L"5",      L"1e-3",
                                            L"1-2-3", L"C",       L"A",   L"NH.SMT", L"17",
                                            L"0",     L"abc def", L"2.5", L"99999"};
    Dice dice(20);
    for (std::int32_t group = -1; group <= Kind<Record>::lastGroup + 1; ++group) {
        test::Dialog<Record> d;
        typename Kind<Record>::Library library;
        const std::size_t known =
            std::max<std::size_t>(d.app.template of<Record>().typesOf(group).size(), 1);
        for (int i = 0; i < 300; ++i) {
            Record record;
            record.PartNum = L"P" + std::to_wstring(i);
            record.CatNum = L"CAT";
            record.Description = L"any \"text\", <5";
            record.Manufacturer = L"maker";
            record.Notes = L"note";
            record.group = group;
            record.type = static_cast<std::int32_t>(dice.roll(known));
            for (std::wstring& value : record.LPar)
                value = dice.pick(values);
            library.emplace(record.PartNum, record);
        }
        // Rows that OK stops at are left out.
        d.rules.thermal.clear();
        auto& all = d.openRecords(group, library, level);
        const auto checks = makeTableChecks(all.setup(), d.rules);
        for (std::size_t row = 0; row < all.table().rowCount(); ++row)
            if (!checks->everyStep(all.table(), row).empty())
                library.erase(all.table().row(row).part());
        EXPECT_GE(library.size(), 5U) << "group " << group;
        // One OK fills in what the table shows for empty cells; from then on nothing moves.
        for (int round = 0; round < 2; ++round) {
            auto& s = d.openRecords(group, library, level);
            d.shown(s.RefreshAllRowFlags());
            bool isFull = true;
            for (std::size_t row = 0; row < s.table().rowCount(); ++row)
                isFull = isFull && s.table().isComplete(row);
            if (!isFull)
                d.prompt.expectQuestion(notAllFilled, yes);
            ASSERT_TRUE(d.ok());
            const auto stored = s.takeRecords();
            EXPECT_TRUE(round == 0 || stored == library) << "group " << group;
            for (const auto& [key, record] : stored) {
                const Record& old = library.at(key);
                EXPECT_EQ(record.type, old.type);
                EXPECT_EQ(record.group, old.group);
                for (std::size_t n = 0; n < record.LPar.size(); ++n)
                    EXPECT_TRUE(record.LPar[n] == old.LPar[n] || old.LPar[n].empty());
            }
            library = stored;
        }
    }
}

TEST(ComponentRows, OkWithoutChangesStoresTheSameRecords) {
    expectUnchangedByOk<SdtaComponent>(AnalysisLevel::Full);
    expectUnchangedByOk<AsrComponent>(AnalysisLevel::SchematicReview);
    expectUnchangedByOk<AsrComponent>(AnalysisLevel::Rapid);
    expectUnchangedByOk<AsrComponent>(AnalysisLevel::Full);
}

TEST(ComponentRows, SpecialTextsOnTheWayInAndOut) {
    SdtaDialog d;
    auto& s = d.open(3, {{1, {L"-1", L"-2", L"-2", L"N/A", L"", L"1", L"", L"1", L"1", L"1"}},
                         {1, {}},
                         {99, {L"", L"", L"-1"}}});
    EXPECT_EQ(d.row(0).substr(2), "SCR - N/A N/A N/A  1 NH.SMT 1 1 1");
    EXPECT_EQ(narrow(s.table().type(2)), "Default");
    EXPECT_EQ(narrow(s.table().text(2, typeColumn + 3)), "-1");
    d.prompt.expectQuestion(notAllFilled, yes);
    ASSERT_TRUE(d.ok());
    const SdtaLibrary stored = s.takeRecords();
    EXPECT_EQ(narrow(stored.at(L"P1").LPar[0]), "-1");
    EXPECT_EQ(narrow(stored.at(L"P1").LPar[3]), "-2");
    EXPECT_EQ(narrow(stored.at(L"P2").LPar[6]), "NH.SMT");
}

TEST(ComponentRows, TablesWithoutRowsAndWildRecordsLoseNothing) {
    SdtaDialog d;
    d.app.sdta.properties.clear();
    d.rules = {};
    SdtaLibrary records = d.records(11, {{1, {L"50"}}, {-5, {}}, {2'000'000'000, {}}});
    records[L""] = records.at(L"P1"); // a key that is not the part number
    records.at(L"P2").LPar[0] = std::wstring(100'000, L'9');
    auto& s = d.openRecords(11, records);
    for (std::size_t row = 0; row < 4; ++row)
        for (std::size_t column = 1; column < s.setup().columns.size(); ++column)
            d.shown(s.selectCell({row, column}));
    d.prompt.expect(L"Value Type or Range Error.");
    EXPECT_FALSE(d.type({1, typeColumn + 1}, L"60"));
    EXPECT_TRUE(d.type({1, typeColumn}, L"Custom"));
    EXPECT_EQ(d.row(1), "- Custom   N/A N/A CKR");
    d.prompt.expectQuestion(notAllFilled, yes);
    ASSERT_TRUE(d.ok());
    const SdtaLibrary stored = s.takeRecords();
    EXPECT_EQ(stored.size(), 4U);
    EXPECT_EQ(stored.at(L"P2").LPar[0].size(), 100'000U);
    EXPECT_EQ(stored.at(L"P3").type, 0);
}

/// Any row of verbs, undone whole, leaves the table as it was; redone whole, as it had become.
TEST(ComponentRows, UndoAndRedoWalkBothWays) {
    Dice dice(7);
    constexpr std::wstring_view texts[] = {L"10", L"20", L"-", L"", L"C", L"A", L"CE", L"CKR"};
    for (int round = 0; round < 40; ++round) {
        SdtaDialog d;
        d.projectParts.clear();
        d.rules.rules.clear(); // values of every kind are taken
        auto& s = d.open(11, {{1, {L"1"}}, {9, {L"2"}}, {38, {}}, {2, {L"4"}}, {38, {}}});
        const auto picture = [&] {
            s.RefreshAllRowFlags();
            std::string all;
            for (std::size_t row = 0; row < s.table().rowCount(); ++row)
                all += narrow(s.table().row(row).part()) + " " + d.row(row) + "\n";
            for (const DepartedPart& part : s.table().departed())
                all += "left " + narrow(part.row.part()) + "\n";
            return all;
        };
        std::vector<std::string> pictures = {picture()};
        for (int step = 0; step < 12; ++step) {
            const std::size_t rows = s.table().rowCount();
            const std::size_t row = dice.roll(rows);
            const std::size_t column = typeColumn + dice.roll(6);
            const std::wstring name = L"N" + std::to_wstring(step);
            switch (dice.roll(7)) {
            case 0:
                s.paste({{{row, column}, std::wstring(dice.pick(texts))},
                         {{dice.roll(rows), typeColumn}, L"CE"}});
                break;
            case 1:
                d.fill({row, typeColumn}, {0, row}, L"Custom");
                break;
            case 2:
                s.modify({row, typeColumn}, L"CA");
                if (dice.roll(2) == 0)
                    s.commit({row, typeColumn}, L"CA", row + 1);
                else
                    s.cancelEdit();
                break;
            case 3:
                s.add({name, dice.roll(2) == 0 ? 11 : 3, L"", 7});
                break;
            case 4:
                s.copy(row, {name, 11, L"", 7});
                break;
            case 5:
                if (rows > 2)
                    s.changeGroup(row, {L"", 3, L"", 3});
                break;
            default:
                if (rows > 2)
                    s.deleteRows({row}, Consent::Given);
            }
            if (const std::string now = picture(); now != pictures.back())
                pictures.push_back(now);
        }
        const std::vector<std::string> forth = pictures;
        while (s.canUndo()) {
            s.undo();
            if (const std::string now = picture(); pictures.back() != now) {
                pictures.pop_back();
                ASSERT_FALSE(pictures.empty());
                ASSERT_EQ(now, pictures.back());
            }
        }
        EXPECT_EQ(pictures.size(), 1U);
        while (s.canRedo())
            s.redo();
        EXPECT_EQ(picture(), forth.back());
    }
}

} // namespace
} // namespace partwright
