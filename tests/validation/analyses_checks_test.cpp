// The coded checks by the case files; those of live groups run through the dialog's session too.

#include "support/analyses_cases.h"
#include "validation/analyses_checks.h"
#include "validation/analyses_options.h"
#include "validation/check_texts.h"
#include "validation/db_checks.h"
#include "validation/list_cells.h"

#include <gtest/gtest.h>

#include <list>

namespace partwright {
namespace {

using test::Words;

class Cases final : public test::AnalysesCases {
    static AnalysesTable tableOf(const Table& table) {
        AnalysesTable result = makeAnalysesTable(table.group, table.mark);
        result.headers.insert(result.headers.end(), table.headers.begin(), table.headers.end());
        result.hidden.assign(maximumAnalysesColumns + 1, false);
        for (const std::size_t position : table.hidden)
            result.hidden[position] = true;
        result.methodText = L"M";
        return result;
    }

    AnalysesRow rowOf(const Table& table, const Row& source, std::size_t number) {
        AnalysesRow row;
        row.index = number - 1;
        row.number = number;
        row.isFull = source.isFull;
        row.isHidden = source.isHidden;
        const auto type = std::find(table.types.begin(), table.types.end(), source.type);
        row.typePosition = type == table.types.end()
                               ? 0
                               : static_cast<std::size_t>(type - table.types.begin()) + 1;
        Words& cells = cells_.emplace_back(maximumAnalysesColumns + 1);
        cells[0] = source.type;
        for (const auto& [position, text] : source.cells)
            cells.at(position) = text;
        row.cells = cells;
        return row;
    }

    void commit(const Table& table, const Commit& commit) override {
        const CommitAnswer answer =
            AnalysesChecks(tableOf(table))
                .atCommit(rowOf(table, commit.row, 1), commit.position, commit.text);
        switch (answer.decision) {
        case CommitDecision::Open:
            expect(L"open", commit.answer);
            break;
        case CommitDecision::NotApplicable:
            expect(L"n/a", commit.answer);
            break;
        case CommitDecision::Accepted:
            EXPECT_TRUE(answer.finding.texts.empty());
            expect(L"fine", commit.answer);
            break;
        case CommitDecision::Refused:
            expect(test::joinBoxes(answer.finding.texts), commit.answer);
        }
        EXPECT_EQ(answer.text.value_or(commit.text), commit.textBehind);
    }

    void ok(const Table& table, const std::vector<Row>& sources,
            const std::wstring& answer) override {
        std::vector<AnalysesRow> rows;
        for (const Row& source : sources)
            rows.push_back(rowOf(table, source, rows.size() + 1));
        const AnalysesChecks checks(tableOf(table));
        const auto result = checks.atOk(rows);
        expect(result ? test::stopText(result->rows, result->position, result->texts) : L"fine",
               answer);
        // Row by row the steps find the same first words, when one row alone is at fault.
        if (rows.size() != 1)
            return;
        const auto steps = checks.everyStep(rows[0]);
        ASSERT_EQ(steps.empty(), !result.has_value());
        if (result) {
            EXPECT_EQ(steps[0].texts, result->texts);
        }
    }

    void strict(const Table& table, std::size_t position, const std::wstring& text,
                const std::wstring& answer) override {
        const auto found =
            CheckListCell(table.group, L"", position, text, L'.', PinNames::Numbers).finding;
        expect(found ? found->texts.front() : L"", answer);
    }

    std::list<Words> cells_;
};

TEST(AnalysesChecks, Circuits) {
    Cases().run("circuits.cases");
}
TEST(AnalysesChecks, Semiconductors) {
    Cases().run("semiconductors.cases");
}
TEST(AnalysesChecks, Passives) {
    Cases().run("passives.cases");
}
TEST(AnalysesChecks, Transformers) {
    Cases().run("transformers.cases");
}
TEST(AnalysesChecks, OscillatorsFiltersSplitters) {
    Cases().run("frequency.cases");
}
TEST(AnalysesChecks, Units) {
    Cases().run("units.cases");
}

// A table of a splitter's lists, should a pass ever compare them with the others'.
TEST(AnalysesChecks, DecibelsOfSplittersAgainstPins) {
    const auto pins = listItems(L"1-2", true);
    EXPECT_EQ(dbFault(38, L"Splitter", pins, listItems(L"20-19", false), L'.'),
              L"The value dB = 19 in the selected row is wrong,\nbecause it does not correspond to "
              L"condition :\n\"db >= 10 * lg( 2 )\", where 2 is output pins quantity.");
    EXPECT_EQ(dbFault(38, L"Splitter", pins, listItems(L"20-20", false), L'.'), L"");
    // A single value that gives more than the whole is below 0 dB, which is refused before.
    EXPECT_EQ(check_text::dbSum(1), L"dB value in the selected row is wrong :\ncondition "
                                    L"'SUM{10^(-dBi / 10)} <= 1' is not fulfilled.");
}

TEST(AnalysesChecks, OptionsShowTheWordOfAPlace) {
    EXPECT_EQ(shownOption(26, 7, L"3"), L"BandPass");
    EXPECT_EQ(shownOption(26, 7, L"5"), L"5");
    EXPECT_EQ(shownOption(26, 7, L""), L"");
    EXPECT_EQ(shownOption(25, 8, L"2"), L"Negative");
    EXPECT_EQ(shownOption(16, 7, L"2"), L"Positive");
    EXPECT_EQ(shownOption(16, 1, L"2"), L"2");
    EXPECT_EQ(optionPlace(26, 7, L"BandStop"), 4U);
}

TEST(AnalysesChecks, PinColumnsOfGroupsWithListsAreNotForSingleValueRules) {
    EXPECT_TRUE(AnalysesChecks(makeAnalysesTable(9, L'.')).isPinList(24)); // PinGnd-Dig
    EXPECT_FALSE(AnalysesChecks(makeAnalysesTable(9, L'.')).isPinList(8));
    EXPECT_FALSE(AnalysesChecks(makeAnalysesTable(22, L'.')).isPinList(1));
}

} // namespace
} // namespace partwright
