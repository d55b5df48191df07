#include "autofill/compiled_tables.h"
#include "tablecheck/compiled_rules_check.h"

#include <gmock/gmock.h>

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace partwright {
namespace {

struct Row {
    int family;
    int group;
    int type;
    std::array<std::wstring_view, 15> rules;
};

/// The findings for the compiled tables with one row exchanged.
std::vector<TableFinding> findingsWith(const Row& changed) {
    FillTables tables = compiledFillTables();
    std::vector<Row> rows;
    for (const auto& [key, row] : tables.rules.rows()) {
        Row copy{key.family, key.group, key.type, {}};
        std::copy(row.texts.begin(), row.texts.end(), copy.rules.begin());
        rows.push_back(copy);
    }
    rows.push_back(changed);
    const ParamRuleTable original = tables.rules; // the copies above borrow its texts
    tables.rules = ParamRuleTable(rows, tables.units);
    std::vector<TableFinding> all;
    checkCompiledRules(tables, all);
    return all;
}

TEST(CompiledRulesCheck, FindsWhatTheEngineDropsInSilence) {
    const struct {
        Row row;
        const wchar_t* column;
        const wchar_t* text;
    } cases[] = {
        {{14, 10, 1, {L"FUNC1{[#Watt]}"}}, L"LPar1", L"14/10/1: no key \"Watt\""},
        {{14, 10, 1, {L"", L"FUNC1{[W,mW][1]}"}}, L"LPar2", L"is dropped"},
        {{14, 10, 1, {L"FUNC3{[FUNC1{[W,mW][1]},DEFAULT],[FUNC_PW{[25][125]}]}"}},
         L"LPar1",
         L"is dropped"},
        {{14, 10, 1, {L"FUNC1{[W][one]}"}}, L"LPar1", L"no number"},
        {{14, 10, 1, {L"FUNC4{[]}"}}, L"LPar1", L"is dropped"},
        {{14, 10, 1, {L"FUNC9{[W][1]}"}}, L"LPar1", L"no function \"FUNC9\""},
        {{14, 10, 1, {L"FUNC3{[W]}"}}, L"LPar1", L"lacks a list"},
        {{14, 10, 1, {L"FUNC2{[LPar4,LPar6]}"}}, L"LPar1", L"\"LPar6\" is no column"},
        {{14, 10, 1, {L"", L"", L"", L"", L"", L"FUNC1{[#V]}"}}, L"LPar6", L"no such column"},
        {{14, 4, 1, {L"", L"", L"FUNC4{[3]}"}}, L"LPar3", L"\"3\" lies outside"},
        {{14, 1, 1, {L"FUNC3{[DIP,SO][19,20]}"}}, L"LPar1", L"\"20\" lies outside"},
        {{20, 32, 1, {L"FUNC_IF{[FUNC1{[#Res]}][>][FUNC4{[1]},FUNC4{[-1]}]}"}},
         L"LPar1",
         L"compares two terms"},
        {{14, 16, 2, {}}, L"Type", L"14/16/2: the group has no such type"},
    };
    for (const auto& one : cases) {
        const auto findings = findingsWith(one.row);
        ASSERT_EQ(findings.size(), 1U) << testing::PrintToString(one.text);
        EXPECT_EQ(findings[0].file, L"ParamRuleTable");
        EXPECT_EQ(findings[0].column, one.column);
        EXPECT_THAT(std::wstring(findings[0].finding.summary()), testing::HasSubstr(one.text));
    }
}

TEST(CompiledRulesCheck, RulesOfOuterFunctionsAndUnusedGroupsAreFine) {
    for (const Row& row :
         {Row{14, 10, 1, {L"FUNC3{[FUNC1{[#Pw]},DEFAULT],[FUNC1{[#Pw]},FUNC4{[1]}]}"}},
          Row{20, 2, 99, {L"<Voltage>"}}, Row{14, 4, 1, {L"", L"", L"FUNC4{[-2]}"}}})
        EXPECT_TRUE(findingsWith(row).empty()) << row.group;
}

TEST(CompiledRulesCheck, AllPairsAndUnitsAreAskedFor) {
    FillTables tables;
    const struct {
        std::wstring_view key, name, value;
    } units[] = {{L"V", L"V", L"1"}, {L"V", L"kV", L"x"}};
    tables.units = UnitTable(units);
    std::vector<TableFinding> all;
    checkCompiledRules(tables, all);
    EXPECT_EQ(all.front().file, L"UnitTable");
    EXPECT_EQ(all.front().column, L"V");
    EXPECT_THAT(all.front().finding.summary(), testing::HasSubstr(L"\"kV\""));
    EXPECT_TRUE(std::any_of(all.begin(), all.end(), [](const TableFinding& finding) {
        return finding.finding.summary() == L"14/10/35: no row for the type";
    }));
}

} // namespace
} // namespace partwright
