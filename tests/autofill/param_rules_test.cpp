#include "autofill/compiled_tables.h"
#include "autofill/literal_rules.h"
#include "autofill/param_rules.h"
#include "autofill/value_cases.h"

#include <random>

namespace partwright {
namespace {

const FillTables& tables() {
    static const FillTables compiled = compiledFillTables();
    return compiled;
}

std::vector<std::int32_t> numbersOf(std::wstring_view text) {
    std::vector<std::int32_t> numbers;
    for (const std::wstring_view piece : split(text, L'/'))
        numbers.push_back(toInteger(piece));
    return numbers;
}

std::string filled(std::span<const std::wstring> cells) {
    std::wstring text;
    for (std::size_t i = 0; i < cells.size(); ++i)
        if (!cells[i].empty())
            text += (text.empty() ? L"" : L";") + std::to_wstring(i + 1) + L"=" + cells[i];
    return encodeUtf8(text);
}

void checkRule(const test::ValueCase& row) {
    const std::vector<std::int32_t> place = numbersOf(row.cell(6));
    ASSERT_EQ(place.size(), 4U);
    const ScannedText text(row.cell(2));
    std::int32_t type = place[3];
    std::wstring note;
    const PackageTable packages;
    const PiqTable piq;
    const PreparedRule rule(row.cell(3), tables().units);
    const std::wstring value =
        rule.evaluate({text, L'.', place[0], place[1], place[2], type, note, packages, piq});
    EXPECT_EQ(encodeUtf8(value), encodeUtf8(row.cell(4)));
    EXPECT_EQ(encodeUtf8(note), encodeUtf8(row.cell(5)));
    EXPECT_EQ(type, toInteger(row.cell(7)));
}

void checkFill(const test::ValueCase& row) {
    const std::vector<std::int32_t> place = numbersOf(row.cell(3));
    ASSERT_EQ(place.size(), 3U);
    const CPartwrightPlugInApp app;
    std::vector<std::wstring> cells(24, L"to be emptied");
    std::int32_t type = place[2];
    std::wstring note = L"to be emptied";
    ParamFiller(tables(), app)
        .FillParamsFromDescription(place[1], type, cells, ScannedText(row.cell(2)), place[0], note);
    EXPECT_EQ(filled(cells), encodeUtf8(row.cell(4)));
    EXPECT_EQ(encodeUtf8(note), encodeUtf8(row.cell(5)));
    EXPECT_EQ(type, toInteger(row.cell(6)));
}

TEST(ParamRules, CaseFile) {
    for (const test::ValueCase& row : test::readCases("expressions.cases")) {
        SCOPED_TRACE(test::where("expressions.cases", row));
        row.cell(1) == L"fill" ? checkFill(row) : checkRule(row);
    }
}

TEST(ParamRules, RefinesTheTypeOfFixedResistorsByPower) {
    const CPartwrightPlugInApp app;
    const ParamFiller filler(tables(), app);
    const auto refined = [&](std::int32_t group, std::int32_t type, std::wstring_view text) {
        filler.RefineTypeByRule(14, group, type, ScannedText(text));
        return type;
    };
    EXPECT_EQ(refined(10, 27, L"RES METAL 0.6 W"), 28);
    EXPECT_EQ(refined(10, 28, L"RES METAL 250 mW"), 27);
    EXPECT_EQ(refined(10, 28, L"RES METAL"), 28);
    EXPECT_EQ(refined(10, 1, L"RES METAL 2 W"), 1);
    EXPECT_EQ(tables().refine.texts().at({14, 10, 5}), L"5");
    EXPECT_TRUE(tables().refine.texts().at({14, 10, 28}).starts_with(L"FUNC_IF"));
}

TEST(ParamRules, ReadsPackagesFromATableThatACallerHas) {
    const PackageTable packages = {{L"QFP", {{32, 64, 60, 12}, {65, 128, 45.5, 9}}},
                                   {L"TQFP", {{32, 48, 70, 20}}},
                                   {L"SO8", {{8, 8, 120, 40}}},
                                   {L"XY", {{1, 999, 1, 1}}}};
    const PiqTable piq = {{{14, 1, 1}, {10, 40, 30, 20}}};
    const auto value = [&](std::wstring_view rule, std::wstring_view text) {
        std::int32_t type = 1;
        std::wstring note;
        const ScannedText scanned(text);
        return encodeUtf8(PreparedRule(rule, tables().units)
                              .evaluate({scanned, L'.', 14, 1, 4, type, note, packages, piq}));
    };
    const struct {
        const wchar_t *rule, *text;
        const char* expected;
    } rows[] = {
        {L"FUNC_PIN{[CASE]}", L"CPU QFP-100", "100"},
        {L"FUNC_PIN{[CASE]}", L"CPU TQFP - 44", "44"},
        {L"FUNC_PIN{[CASE]}", L"CPU QFP, 80 pin", "80"},
        {L"FUNC_PIN{[CASE]}", L"AMP SO8", "8"},
        {L"FUNC_PIN{[CASE]}", L"CPU QFP100", "100"},
        {L"FUNC_PIN{[CASE]}", L"CPU 64QFP", "64"},
        {L"FUNC_PIN{[CASE]}", L"CPU QFP-99999999999", ""},
        {L"FUNC_PIN{[CASE]}", L"CPU XY-12", ""},
        {L"FUNC_TETHA{[Rja]}", L"CPU QFP-100", "45.5"},
        {L"FUNC_TETHA{[Rjc]}", L"CPU QFP-100", "9"},
        {L"FUNC_TETHA{[Rja]}", L"CPU QFP-200", ""},
        {L"FUNC_TETHA{[Rja]}", L"AMP SO8", "120"},
        {L"FUNC_PW{[25][125]}", L"AMP SO8", "0.833"},
        {L"FUNC_PW{[25][125]}", L"AMP SO8 85 C", "0.500"},
        {L"FUNC_PW{[25][125]}", L"AMP SO8 25 C", "0"},
        {L"FUNC_PiQ{[#V,1][5,10]}", L"AMP 3V", "20"},
        {L"FUNC_PiQ{[#V,1][5,10]}", L"AMP 7V", "30"},
        {L"FUNC_PiQ{[#V,1][5,10]}", L"AMP 12V", "40"},
        {L"FUNC_PiQ{[#V,1][5,10]}", L"AMP", "10"},
        {L"FUNC_PiQ{[#V,2][5,10]}", L"AMP 3V", ""},
    };
    for (const auto& row : rows)
        EXPECT_EQ(value(row.rule, row.text), row.expected)
            << encodeUtf8(row.rule) << " on " << encodeUtf8(row.text);
}

/// Descriptions as people write them, in no order.
std::wstring randomDescription(std::mt19937& random) {
    static const std::wstring words[] = {
        L"RES",     L"CAP",      L"0603",   L"1%",        L"10k",       L"4R7",   L"0.25W",
        L"1/4W",    L"50V",      L"16 V",   L"X7R",       L"100nF",     L"125 C", L"-40 C",
        L"ZERO",    L"0 OHM",    L"DIODE",  L"DO-35",     L"NPN",       L"2 A",   L"500 mA",
        L"20 VCB",  L"TO-92",    L"24 AWG", L"(3) Anode", L"(A1) Gate", L"SO8",   L"14 pin",
        L"5 RCOIL", L"0.01 OHM", L"800mW",  L"20 MHz"};
    static const std::wstring gaps[] = {L" ", L" ", L", ", L",", L"/", L"  "};
    std::wstring text;
    for (auto count = random() % 9; count > 0; --count)
        text += words[random() % std::size(words)] + gaps[random() % std::size(gaps)];
    return text;
}

TEST(ParamRules, PreparedRowsFillAsThePlainDriver) {
    std::mt19937 random(77);
    for (const auto& [key, row] : tables().rules.rows()) {
        const std::vector<std::wstring> rules(row.texts.begin(), row.texts.end());
        for (int round = 0; round < 40; ++round) {
            const std::wstring text = randomDescription(random);
            const wchar_t mark = random() % 2 == 0 ? L'.' : L',';
            literal::Texts plain(24);
            literal::Evaluation evaluation{text, mark,     key.family, key.group,
                                           0,    key.type, L"",        &tables().units};
            literal::fill(rules, plain, evaluation);

            std::vector<std::wstring> cells(24);
            std::wstring note;
            const std::int32_t type =
                ApplyParamRules(tables().rules, {key, ScannedText(text), mark, note}, cells);
            ASSERT_EQ(filled(cells), filled(plain))
                << key.family << "/" << key.group << "/" << key.type << " " << encodeUtf8(text);
            ASSERT_EQ(note, evaluation.note) << encodeUtf8(text);
            ASSERT_EQ(type, evaluation.type) << encodeUtf8(text);
        }
    }
}

TEST(ParamRules, ReadsBadNumbersWithoutHarm) {
    const UnitTable units;
    const PreparedRule rule(L"FUNC2{[LPar0,LPar99,LPar99999999999,L,LPar1]}", units);
    const std::vector<std::wstring> cells = {L"4", L""};
    EXPECT_EQ(rule.evaluateSecondPass(cells, L'.'), L"");
    const PreparedRule good(L"FUNC2{[LPar2]},FUNC2{[LPar1]}", units);
    EXPECT_EQ(good.evaluateSecondPass(cells, L'.'), L"2");
    const std::vector<std::wstring> negative = {L"-1", L"text"};
    EXPECT_EQ(good.evaluateSecondPass(negative, L'.'), L"");
}

} // namespace
} // namespace partwright
