// The report on a library against the dialogs: whatever a user would be told about a record.

#include "editing/library_check.h"
#include "session_fixture.h"
#include "support/dice.h"

#include <gtest/gtest.h>

#include <set>
#include <type_traits>

namespace partwright {
namespace {

using test::Dialog;
using test::Dice;
using test::narrow;

/// "column: words" of each cell that turns the line red, and the words that stop OK.
struct Told {
    std::multiset<std::string> cells;
    std::string stop;
    bool isFull = false;
};

template <class Record>
Told openAndLook(const typename Kind<Record>::Library& library, std::int32_t group,
                 AnalysisLevel level) {
    Dialog<Record> d;
    auto& s = d.openRecords(group, library, level);
    Told told;
    s.RefreshAllRowFlags();
    told.isFull = narrow(s.table().text(0, fullColumn)) == "+";
    for (std::size_t column = typeColumn; column <= s.setup().lastParameter; ++column) {
        if (s.setup().columns[column].hidden)
            continue;
        s.selectCell({0, typeColumn - 1});
        TableOutcome outcome;
        s.RecheckRowFlag({0, column}, outcome);
        const std::string header = narrow(s.setup().columns[column].header) + ": ";
        if (outcome.line && !outcome.line->empty())
            told.cells.insert(header + narrow(*outcome.line));
        for (const Box& box : outcome.boxes)
            told.cells.insert(header + narrow(box.text));
    }
    s.RefreshAllRowFlags();
    const TableOutcome outcome = s.ok({}, d.app.libraries.datasheetLinks, Consent::Given);
    if (!outcome.accepted)
        told.stop = narrow(outcome.boxes.empty() ? *outcome.line : outcome.boxes[0].text);
    return told;
}

template <class Record>
void expectSameWords(AnalysisLevel level) {
    constexpr std::wstring_view values[] = {L"",   L"-1",  L"-2", L"5",     L"1",   L"1-2",
                                            L"3",  L"1--", L"C",  L"1-2-3", L"0.4", L"NH.SMT",
                                            L"17", L"abc", L"-3", L"150",   L"2",   L"10-20"};
    Dice dice(7);
    int stops = 0;
    int cells = 0;
    const CPartwrightPlugInApp& app = test::shippedApp();
    for (std::int32_t group = 1; group <= Kind<Record>::lastGroup; ++group) {
        if (app.of<Record>().GroupAndTypeNames(group, 0).first.find(notApplicableGroup) !=
                std::wstring::npos ||
            Kind<Record>::columns(group).empty())
            continue;
        const std::size_t types = std::max<std::size_t>(app.of<Record>().typesOf(group).size(), 1);
        for (int i = 0; i < 24; ++i) {
            Record record;
            record.PartNum = L"P1";
            record.group = group;
            record.type = static_cast<std::int32_t>(dice.roll(types));
            // Half of the rows are full.
            for (std::wstring& value : record.LPar)
                value = values[dice.roll(std::size(values) - 1) + (i % 2 == 0 ? 1 : 0)];
            const typename Kind<Record>::Library library{{L"P1", record}};
            const Told told = openAndLook<Record>(library, group, level);
            std::multiset<std::string> found;
            std::string stop;
            bool isFull = true;
            for (const LibraryFinding& f :
                 checkLibrary<Record>(app, library, test::shippedRules(), level)) {
                EXPECT_EQ(narrow(f.part), "P1");
                if (f.finding.rule == L"single value")
                    found.insert(narrow(f.parameter) + ": " + narrow(f.finding.summary()));
                else if (f.finding.rule == L"completeness")
                    isFull = false;
                else if (stop.empty())
                    stop = narrow(f.finding.summary());
            }
            SCOPED_TRACE("group " + std::to_string(group) + " record " + std::to_string(i));
            EXPECT_EQ(found, told.cells);
            EXPECT_EQ(stop, told.stop);
            EXPECT_EQ(isFull, told.isFull);
            stops += told.stop.empty() ? 0 : 1;
            cells += static_cast<int>(told.cells.size());
        }
    }
    EXPECT_GT(stops, 20);
    EXPECT_GT(cells, 100);
}

TEST(LibraryCheck, SaysWhatTheDialogsSay) {
    expectSameWords<SdtaComponent>(AnalysisLevel::Full);
    expectSameWords<AsrComponent>(AnalysisLevel::SchematicReview);
    expectSameWords<AsrComponent>(AnalysisLevel::Rapid);
    expectSameWords<AsrComponent>(AnalysisLevel::Full);
}

TEST(LibraryCheck, FaultsOfTheRuleTablesAreFindings) {
    Dialog<SdtaComponent> d;
    const auto library = d.records(3, {test::goodThyristor()});
    const auto texts = [&] {
        std::vector<std::string> all;
        for (const LibraryFinding& f :
             checkLibrary<SdtaComponent>(d.app, library, d.rules, AnalysisLevel::Full))
            all.push_back(narrow(f.parameter) + "|" + narrow(f.value) + "|" +
                          narrow(f.finding.rule) + "|" + narrow(f.finding.summary()));
        return all;
    };
    EXPECT_EQ(texts(), std::vector<std::string>{});
    ValidationRule& rule = d.rules.rules.at(10); // Pw-RT
    rule.param1 = L"abc";
    EXPECT_EQ(texts(),
              std::vector<std::string>{"Pw-RT|10|single value|Value Type or Range Error."});
    rule.param1 = L"0";
    rule.checkId = 12;
    EXPECT_EQ(texts(), std::vector<std::string>{"Pw-RT|10|single value| Found CheckID = 12"});
    d.rules.rules.erase(10);
    EXPECT_EQ(texts(), std::vector<std::string>{"Pw-RT|10|single value|Failed Validation ID."});
}

TEST(LibraryCheck, RecordsWithoutATable) {
    Dialog<AsrComponent> d;
    auto library = d.records(0, {{0, {}}, {0, {}}, {0, {}}});
    library.at(L"P2").group = -4;
    library.at(L"P3").group = 99;
    const auto findings = checkLibrary<AsrComponent>(d.app, library, d.rules, AnalysisLevel::Full);
    ASSERT_EQ(findings.size(), library.size());
    for (const LibraryFinding& found : findings)
        EXPECT_EQ(narrow(found.finding.summary()), "The component has no group.");
}

} // namespace
} // namespace partwright
