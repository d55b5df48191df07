#include "library/rule_table.h"
#include "support/places.h"
#include "support/temp_folder.h"
#include "validation/cell_check.h"
#include "validation/validation_tables.h"

#include <gtest/gtest.h>

namespace partwright {
namespace {

std::string narrow(std::wstring_view text) {
    return {text.begin(), text.end()};
}

const ValidationRules rules = {
    {0, {0, 0, L"-F", L"", L"", L"zero"}},
    {7, {7, 5, L"-F", L"1", L"9", L"one to nine"}},
    {8, {8, 5, L"-F", L"abc", L"9", L"broken bound"}},
    {9, {9, 65536 + 2, L"-F", L"3", L"", L"number of 16 bits"}},
    {10, {10, 12, L"-F", L"3", L"", L"no such comparison"}},
    {11, {11, 5, L"DF", L"0.5", L"1.5", L"halves"}},
};

CellQuestion cell(std::wstring_view value, std::int32_t reference) {
    CellQuestion question;
    question.type = L"SCR";
    question.value = value;
    question.reference = reference;
    return question;
}

TEST(CellCheck, RuleByReference) {
    struct Case {
        std::wstring value;
        std::int32_t reference;
        bool passed;
        std::wstring line, box;
    };
    const std::vector<Case> cases = {
        {L"abc", -1000, true, L"", L""},
        {L"abc", -1, true, L"", L""},
        {L"0", 0, true, L"", L""},
        {L"5", 7, true, L"", L""},
        {L"-", 7, true, L"", L""},
        {L"10", 7, false, L"Value 10 out of range:  one to nine", L""},
        {L"5", 8, false, L"", L""},
        {L"5", 9, true, L"", L""},
        {L"5", 10, false, L"Value 5 out of range:  no such comparison", L" Found CheckID = 12"},
        {L"5", 99, false, L"", L"Failed Validation ID."},
        {L"-", 11, false, L"Value - out of range:  halves", L""},
        {L"A", 10001, true, L"", L""},
        {L"a", 10001, false, L" /a/ Must be from list", L""},
        {L"A", 10000, false, L"", L"Failed Validation ID."}, // still the number of a rule
    };
    ChoiceList list;
    list.add(L"A", L"Ambient");
    for (const Case& c : cases) {
        CellQuestion question = cell(c.value, c.reference);
        question.choices = &list;
        const auto finding = CheckCellByRule(question, rules, L'.');
        ASSERT_EQ(!finding, c.passed) << narrow(c.value) << " " << c.reference;
        if (!finding)
            continue;
        EXPECT_EQ(finding->line, c.line);
        EXPECT_EQ(narrow(finding->tableFault), narrow(c.box));
        EXPECT_TRUE(finding->texts.empty());
    }
    EXPECT_TRUE(CheckCellByRule(cell(L"5", 8), rules, L'.'));
    EXPECT_FALSE(CheckCellByRule(cell(L"0,7", 11), rules, L',')); // "0.5" is read in any land
    CellQuestion noRow = cell(L"5", 7);
    noRow.reference.reset();
    EXPECT_EQ(CheckCellByRule(noRow, rules, L'.')->line, L"");
    CellQuestion type = cell(L"B", -1000);
    type.isType = true;
    type.choices = &list;
    EXPECT_EQ(CheckCellByRule(type, rules, L'.')->line, L" /B/ Must be from list");
}

TEST(CellCheck, QuietIsLenientAndCommitIsNot) {
    struct Case {
        std::wstring value;
        bool quiet, commit;
    };
    for (const Case& c : std::vector<Case>{{L"5", true, true},
                                           {L"50", false, false},
                                           {L"1-5", true, false},
                                           {L"1e-3", true, false},
                                           {L"-5", false, false},
                                           {L"-", true, true},
                                           {L"N/A", true, false},
                                           {L"", false, true}}) {
        const CellQuestion question = cell(c.value, 7);
        const auto quiet = CheckCellQuiet(question, rules, L'.');
        const auto commit = CheckCellOnCommit(question, rules, L'.');
        EXPECT_EQ(!quiet, c.quiet) << narrow(c.value);
        EXPECT_TRUE(!quiet || quiet->texts.empty());
        ASSERT_EQ(!commit, c.commit) << narrow(c.value);
        if (commit) {
            EXPECT_EQ(commit->texts, std::vector<std::wstring>{L"Value Type or Range Error."});
        }
    }
    EXPECT_FALSE(CheckCellQuiet(cell(L"", 7), rules, L'.')->line); // an empty cell is no fault

    CellQuestion question = cell(L"50", 7);
    question.type = L"";
    EXPECT_TRUE(CheckCellOnCommit(question, rules, L'.').value().texts.empty());
    question = cell(L"50", 7);
    question.isPinList = true;
    EXPECT_FALSE(CheckCellQuiet(question, rules, L'.'));
    EXPECT_FALSE(CheckCellOnCommit(question, rules, L'.'));
    question = cell(L"50", 7);
    question.isChoice = true;
    EXPECT_TRUE(CheckCellQuiet(question, rules, L'.'));
    EXPECT_FALSE(CheckCellOnCommit(question, rules, L'.'));
}

TEST(ValidationTables, ReadByNameAndReplaceByKey) {
    const test::TempFolder folder;
    const std::wstring path = folder.put(L"rules.csv", "Message,ValidationID,X,CheckType,CheckID,"
                                                       "Param1,Param2\n"
                                                       "\"a, b\",3,,-F,5,1,2\n"
                                                       "later,3,,-I,4,1,2\n"
                                                       "short,4,,-F\n");
    ValidationRules read = {{99, {}}};
    EXPECT_EQ(LoadValidationRules(path, read).status, FileStatus::Ok);
    ASSERT_EQ(read.size(), 1U);
    EXPECT_EQ(read.at(3).checkType, L"-I");
    EXPECT_EQ(read.at(3).message, L"later");
    EXPECT_EQ(LoadValidationRules(folder / L"absent.csv", read).message, L"");
    EXPECT_EQ(read.size(), 1U);
    const LoadResult locked = LoadValidationRules(pathText(folder.path()), read);
    EXPECT_EQ(narrow(locked.message), "Failed to Open File\n" + folder.path().string() + ".");

    ThermalRules thermal;
    LoadThermalValidationRules(folder.put(L"thermal.csv",
                                          "BCodeID,TypeID,Name,ValidationID,MessageID\n"
                                          "3,2,1.2,103,127\n3,1,8.9,101,125\n0,1,8.9,101,125\n"),
                               thermal);
    ASSERT_EQ(thermal.size(), 1U);
    EXPECT_EQ(thermal.at(3).begin()->second.validationId, 101);
}

TEST(ValidationTables, ShippedTablesAnswerEveryReference) {
    const std::wstring folder = std::wstring(pathText(places::tables)) + L"/";
    ValidationRules shipped;
    ThermalRules thermal;
    LoadValidationRules(folder + L"SDTALibraryValidationRules.csv", shipped);
    LoadThermalValidationRules(folder + L"SDTALibThermalParamValidation.csv", thermal);
    EXPECT_GT(shipped.size(), 60U);
    for (const auto& [group, byType] : thermal)
        for (const auto& [type, rule] : byType) {
            EXPECT_FALSE(thermalMessage(rule.messageId).empty());
            EXPECT_NE(CheckThermalRule({}, rule.validationId, rule.name, L'.'),
                      CheckResult::UnknownCheck);
        }
    std::vector<std::wstring> names;
    for (int n = 1; n <= 24; ++n)
        names.push_back(L"LPAR" + std::to_wstring(n) + L".Valid");
    const std::vector<std::wstring_view> columns(names.begin(), names.end());
    for (const std::wstring_view file : {L"Property_SDTA_Library.csv", L"Property_ASR_Library.csv"})
        for (const RuleRow& row :
             readRuleTable(folder + std::wstring(file), {.columns = columns}).rows)
            for (const std::wstring& name : names) {
                const std::int32_t reference = row.number(name).value_or(-1);
                const std::wstring text = row.text(name);
                if (text == L"NU" || reference < 0 || reference > lastRuleReference)
                    continue;
                EXPECT_TRUE(shipped.contains(reference)) << row.line << " " << narrow(text);
                const auto found = CheckCellByRule(cell(L"5", reference), shipped, L'.');
                EXPECT_TRUE(!found || found->tableFault.empty());
            }
}

} // namespace
} // namespace partwright
