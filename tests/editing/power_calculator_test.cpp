#include "editing/power_calculator.h"
#include "session_fixture.h"

#include <gtest/gtest.h>

namespace partwright {
namespace {

using test::narrow;
using Field = CalculatorField;

PowerCalculator calculator(std::int32_t group, const std::vector<std::wstring>& fields,
                           wchar_t mark = L'.') {
    PowerCalculator made(group, mark);
    for (std::size_t i = 0; i < fields.size(); ++i)
        made.setField(static_cast<Field>(i), fields[i]);
    return made;
}

TEST(PowerCalculator, ResultsAndRefusals) {
    struct Case {
        std::int32_t group;
        std::vector<std::wstring> fields; // Tj, Ts, Pw, Oja, Ojc
        ReferencePlace place;
        Quantity chosen;
        Field result;
        std::string shown, status;
    };
    constexpr auto ambient = ReferencePlace::Ambient;
    constexpr auto onCase = ReferencePlace::Case;
    const std::vector<Case> cases = {
        // (150 - 25) / 50 * 0.999, cut to 3 decimals
        {3,
         {L"150", L"25", L"", L"50", L"10"},
         ambient,
         Quantity::Power,
         Field::Power,
         "2.497",
         ""},
        {3,
         {L"150", L"25", L"", L"50", L"10"},
         onCase,
         Quantity::Power,
         Field::Power,
         "12.487",
         ""},
        // (2 * 50 + 25) / 0.999 = 125.125
        {3,
         {L"100", L"25", L"2", L"50", L"10"},
         ambient,
         Quantity::Junction,
         Field::Junction,
         "125.1",
         ""},
        {3,
         {L"150", L"25", L"2", L"50", L"10"},
         ambient,
         Quantity::Reference,
         Field::Reference,
         "50",
         ""},
        {3,
         {L"150", L"25", L"2", L"", L"10"},
         ambient,
         Quantity::Resistance,
         Field::Ambient,
         "62.4",
         ""},
        {1,
         {L"150", L"25", L"2", L"", L"10"},
         ambient,
         Quantity::Resistance,
         Field::Ambient,
         "62.4",
         ""},
        {3,
         {L"60", L"25", L"2", L"50", L"10"},
         ambient,
         Quantity::Power,
         Field::Power,
         "2",
         "Value of Tj should be between 60 and 200."},
        {3,
         {L"90", L"95.5", L"2", L"50", L"10"},
         ambient,
         Quantity::Power,
         Field::Power,
         "2",
         "Value of Tj should be between 95.5 and 200."},
        {3,
         {L"200.1", L"25", L"2", L"50", L"10"},
         ambient,
         Quantity::Power,
         Field::Power,
         "2",
         "Value of Tj should be between 60 and 200."},
        {2,
         {L"351", L"25", L"2", L"50", L"10"},
         ambient,
         Quantity::Power,
         Field::Power,
         "2",
         "Value of Tj should be between 60 and 350."},
        {3,
         {L"150", L"0", L"2", L"50", L"10"},
         ambient,
         Quantity::Power,
         Field::Power,
         "2",
         "Value of Ts should be between 0 and 150."},
        {3,
         {L"150", L"25", L"2", L"10", L"10"},
         ambient,
         Quantity::Power,
         Field::Power,
         "2",
         "Value of Oja should be more than Ojc"},
        {3,
         {L"150", L"25", L"2", L"10", L"0"},
         ambient,
         Quantity::Power,
         Field::Power,
         "2",
         "Value of Ojc should be between 0 and Oja"},
        // After the calculation the result is judged.
        {3,
         {L"150", L"25", L"9", L"50", L"10"},
         ambient,
         Quantity::Junction,
         Field::Junction,
         "475.5",
         "Value of Tj should be between 60 and 200."},
        {3,
         {L"150", L"25", L"9", L"50", L"10"},
         ambient,
         Quantity::Reference,
         Field::Reference,
         "-299.6",
         "Value of Ts should be between 0 and 150."},
        {3,
         {L"150", L"25", L"20", L"", L"10"},
         ambient,
         Quantity::Resistance,
         Field::Ambient,
         "6.2",
         "Value of Oja should be more than Ojc"},
        {3,
         {L"150", L"25", L"0", L"50", L"10"},
         onCase,
         Quantity::Resistance,
         Field::Case,
         "inf",
         "Value of Oja should be more than Ojc"},
    };
    for (const Case& c : cases) {
        PowerCalculator made = calculator(c.group, c.fields);
        made.setPlace(c.place);
        EXPECT_EQ(made.calculate(c.chosen), c.status.empty());
        EXPECT_EQ(narrow(made.status()), c.status) << "case " << &c - cases.data();
        EXPECT_EQ(narrow(made.field(c.result)), c.shown) << "case " << &c - cases.data();
    }
}

TEST(PowerCalculator, FieldsTakeDigitsAndOneMark) {
    PowerCalculator made(3, L'.');
    EXPECT_EQ(narrow(made.setField(Field::Power, L"a1.2.3-e4")), "1.234");
    PowerCalculator comma(3, L',');
    EXPECT_EQ(narrow(comma.setField(Field::Power, L"1,5.2,")), "1,52");
    EXPECT_TRUE(PowerCalculator(9, L'.').isAmbientOnly());
    EXPECT_FALSE(made.isAmbientOnly());
    const auto isServed = [](auto&& dialog, std::int32_t group) {
        return PowerCalculator::serves(dialog.open(group, {}).setup());
    };
    EXPECT_TRUE(isServed(test::SdtaDialog(), 1) && isServed(test::SdtaDialog(), 9));
    EXPECT_FALSE(isServed(test::SdtaDialog(), 10) || isServed(test::AsrDialog(), 9));
    EXPECT_EQ(narrow(message::calculatorTitle(L"1N1")),
              "Power Dissipation Calculator (Part Number: 1N1)");
}

TEST(PowerCalculator, FromARowAndBack) {
    test::SdtaDialog d;
    auto part = test::goodThyristor();
    part.values[9] = L"-2";
    auto& s = d.open(3, {part});
    PowerCalculator made(3, L'.');
    std::vector<PowerCalculator::Cell> cells;
    for (std::size_t c = typeColumn + 1; c <= s.setup().lastParameter; ++c)
        cells.push_back(
            {c, s.setup().columns[c].header, s.table().text(0, c), s.isEnabled({0, c})});
    made.load(cells);
    EXPECT_EQ(made.place(), ReferencePlace::Case);
    EXPECT_EQ(narrow(made.field(Field::Junction)), "125");
    EXPECT_EQ(narrow(made.field(Field::Ambient)), "60");
    ASSERT_TRUE(made.calculate(Quantity::Power));
    EXPECT_EQ(d.shown(s.storeResults(0, made.results())).changedRows, std::vector<std::size_t>{0});
    EXPECT_EQ(d.row(0), "+ SCR 9.99 25 C 125 5 400 NH.TH 60 10 N/A");
    made.setPlace(ReferencePlace::Ambient);
    ASSERT_TRUE(made.calculate(Quantity::Power));
    d.shown(s.storeResults(0, made.results()));
    EXPECT_EQ(d.row(0).substr(0, 16), "+ SCR 1.665 25 A");
    d.shown(s.undo());
    EXPECT_EQ(d.row(0).substr(0, 15), "+ SCR 9.99 25 C");

    // Loading again starts from the row alone.
    auto emptied = cells;
    emptied[3].text = {};
    made.load(emptied);
    EXPECT_EQ(narrow(made.field(Field::Junction)), "0");

    // What is no finite number leaves its cell alone, and so does a cell that does not apply.
    PowerCalculator endless(3, L'.');
    cells[7].isEnabled = false;
    endless.load(cells);
    endless.setField(Field::Power, L"0");
    endless.setPlace(ReferencePlace::Case);
    EXPECT_FALSE(endless.calculate(Quantity::Resistance));
    for (const CellText& result : endless.results())
        EXPECT_TRUE(result.at.column != typeColumn + 8 && result.at.column != typeColumn + 9);
}

} // namespace
} // namespace partwright
