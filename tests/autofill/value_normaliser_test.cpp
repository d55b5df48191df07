#include "autofill/compiled_tables.h"
#include "autofill/literal_normaliser.h"
#include "autofill/value_cases.h"
#include "autofill/value_normaliser.h"

#include <random>

namespace partwright {
namespace {

using literal::Texts;

const UnitTable& units() {
    static const FillTables tables = compiledFillTables();
    return tables.units;
}

UnitList listOf(const std::wstring& argument) {
    if (argument.starts_with(L'#')) {
        const UnitList* list = units().find(argument.substr(1));
        EXPECT_NE(list, nullptr) << encodeUtf8(argument);
        return list ? *list : UnitList();
    }
    UnitList list;
    for (const std::wstring_view pair : split(argument, L' ')) {
        const std::vector<std::wstring_view> sides = split(pair, L'=');
        if (sides.size() < 2)
            continue;
        list.names.emplace_back(sides[0]);
        list.values.emplace_back(sides[1]);
    }
    return list;
}

Texts textsOf(std::wstring_view text, wchar_t separator) {
    Texts texts;
    for (const std::wstring_view piece : split(text, separator))
        if (!piece.empty())
            texts.emplace_back(piece);
    return texts;
}

std::wstring answer(const test::ValueCase& row) {
    const std::wstring operation = row.cell(1);
    const std::wstring text = row.cell(2);
    const std::wstring argument = row.cell(3);
    if (operation == L"units" || operation == L";units") {
        const UnitList list = listOf(argument);
        return ExtractValueByUnits(text, list.names, list.values,
                                   operation == L"units" ? L'.' : L',');
    }
    if (operation == L"keyword") {
        const UnitList list = listOf(argument);
        return LookupByKeyword(text, list.names, list.values);
    }
    if (operation == L"letter")
        return ExtractCodeLetterValue(text, argument.front());
    if (operation == L"polarity") {
        const Texts words = textsOf(argument, L' ');
        return CheckPolarity(text, words.at(0), words.at(1)) ? L"true" : L"false";
    }
    EXPECT_EQ(operation, L"condition");
    const std::vector<std::wstring_view> words = split(argument, L';');
    const bool holds = CheckValueCondition(text, words.at(0), textsOf(words.at(1), L','),
                                           textsOf(words.at(2), L','), words.at(3),
                                           toInteger(words.at(4)), toInteger(words.at(5)));
    return holds ? L"true" : L"false";
}

TEST(ValueNormaliser, CaseFile) {
    for (const test::ValueCase& row : test::readCases("normaliser.cases"))
        EXPECT_EQ(encodeUtf8(answer(row)), encodeUtf8(row.cell(4)))
            << test::where("normaliser.cases", row);
}

/// Texts made of the pieces that decide something, so that most of them are near a boundary.
std::wstring randomText(std::mt19937& random) {
    static const std::wstring pieces[] = {
        L" ",    L" ",      L",",      L".", L"/",   L"-",   L"5",  L"0",   L" 12",
        L" 5V ", L"0.5mV,", L" 1/4 W", L"V", L"mV",  L"VV",  L"R",  L"4R7", L"W",
        L"x",    L"\\",     L"uF",     L"K", L"OHM", L"1/2", L"V/", L"/A",  L"C"};
    std::wstring text;
    for (auto count = random() % 14; count > 0; --count)
        text += pieces[random() % std::size(pieces)];
    return text;
}

TEST(ValueNormaliser, PreparedSearchesAnswerAsThePlainOnes) {
    std::mt19937 random(20240611);
    const Texts some = {L"V",  L"mV", L"VV", L"W",   L"K", L"OHM",
                        L"V/", L"/A", L"5",  L"1/2", L"",  L"x"};
    std::size_t found = 0;
    for (int round = 0; round < 60'000; ++round) {
        const std::wstring text = randomText(random);
        Texts names;
        Texts values;
        for (auto i = random() % 4; i < 4; ++i) {
            names.push_back(some[random() % some.size()]);
            values.push_back(i % 2 == 0 ? L"1" : L"0.001");
        }
        if (random() % 4 == 0)
            names.back() = L"DEFAULT";
        const std::wstring plain = literal::extractValueByUnits(text, names, values, L'.');
        found += plain.empty() ? 0 : 1;
        ASSERT_EQ(ExtractValueByUnits(text, names, values, L'.'), plain) << encodeUtf8(text);
        ASSERT_EQ(LookupByKeyword(text, names, values),
                  literal::lookUpByKeyword(text, names, values))
            << encodeUtf8(text);
        const wchar_t letter = L"RVx/"[random() % 4];
        ASSERT_EQ(ExtractCodeLetterValue(text, letter),
                  literal::extractCodeLetterValue(text, letter))
            << encodeUtf8(text);
    }
    EXPECT_GT(found, 5000U);
}

TEST(ValueNormaliser, HugeTextsAreReadToTheEnd) {
    // A scan that starts over at every hit would take hours for these.
    std::wstring text;
    for (int i = 0; i < 250'000; ++i)
        text += L"Vx-4";
    EXPECT_EQ(ExtractValueByUnits(text + L" 7V", Texts{L"V"}, Texts{L"1"}, L'.'), L"7");
    EXPECT_EQ(ExtractCodeLetterValue(text + L" 4V7", L'V'), L"4.7");
    const std::wstring nines(1'000'000, L'9');
    EXPECT_EQ(ExtractValueByUnits(nines + L"V", Texts{L"V"}, Texts{L"1000"}, L'.'),
              L"1.79769e+308");
    const std::wstring keyword(300, L'k');
    EXPECT_EQ(LookupByKeyword(std::wstring(255, L'k'), Texts{keyword}, Texts{L"1"}), L"1");
}

TEST(UnitTable, DefaultMovesToTheEndOfItsList) {
    struct Row {
        std::wstring_view key, name, value;
    };
    const Row rows[] = {{L"B", L"x", L"1"}, {L"B", L"DEFAULT", L"9"}, {L"B", L"y", L"2"},
                        {L"A", L"z", L"3"}, {L"", L"", L""},          {L"C", L"no", L"4"}};
    const UnitTable table(rows);
    ASSERT_NE(table.find(L"B"), nullptr);
    EXPECT_EQ(table.find(L"B")->names, (Texts{L"x", L"y", L"DEFAULT"}));
    EXPECT_EQ(table.find(L"B")->values, (Texts{L"1", L"2", L"9"}));
    EXPECT_EQ(table.lists().begin()->first, L"A");
    EXPECT_EQ(table.find(L"C"), nullptr);
}

} // namespace
} // namespace partwright
