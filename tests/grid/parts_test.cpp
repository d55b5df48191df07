// The parts of the grid that are pure functions.

#include "grid/cell_style.h"
#include "grid/choice_list.h"
#include "grid/grid_print.h"
#include "grid/row_sort.h"
#include "grid/tab_text.h"
#include "support/qt_print.h"

#include <gtest/gtest.h>

#include <QStringList>

namespace partwright::grid {
namespace {

QString sorted(const QString& joined, SortRule rule) {
    const QStringList list = joined.split(u'|');
    QStringList result;
    for (const quint32 position : sortedOrder({list.begin(), list.end()}, rule))
        result.append(list[position]);
    return result.join(u'|');
}

TEST(RowSort, Orders) {
    struct Case {
        const char* texts;
        SortMode mode;
        const char* expected;
    };
    const Case cases[] = {
        {"R10|r9|R1", SortMode::Text, "R1|r9|R10"},
        {"a007|a7b|a07|a8", SortMode::Text, "a007|a07|a7b|a8"},
        {"10|9|100|-3|1e1|0.5", SortMode::Number, "-3|0.5|9|10|1e1|100"},
        {"x|2||10|-|1", SortMode::Number, "1|2|10|-|x|"},
        {"||b|a", SortMode::Text, "a|b||"},
        // Texts without a digit do not make a column of numbers a column of texts; others do.
        {"-|100|20|N/A", SortMode::Automatic, "20|100|-|N/A"},
        {"1N10|9|1N9", SortMode::Automatic, "1N9|1N10|9"},
        {"1e999|5|-1e999|1e-999", SortMode::Number, "-1e999|1e-999|5|1e999"},
        {"+2|1|+-3|inf|nan|0x9", SortMode::Number, "1|+2|+-3|0x9|inf|nan"},
        {"12345678901234567890123|9|12345678901234567890124", SortMode::Text,
         "9|12345678901234567890123|12345678901234567890124"},
    };
    for (const Case& row : cases) {
        const SortRule rule{row.mode, SortOrder::Ascending, u'.'};
        EXPECT_EQ(sorted(QString::fromLatin1(row.texts), rule), QString::fromLatin1(row.expected))
            << row.texts;
    }
    EXPECT_EQ(sorted(QStringLiteral("1,5|1,25"), {SortMode::Number, SortOrder::Ascending, u','}),
              QStringLiteral("1,25|1,5"));
}

TEST(RowSort, DescendingReversesAndEqualKeysStay) {
    const SortRule down{SortMode::Automatic, SortOrder::Descending, u'.'};
    EXPECT_EQ(sorted(QStringLiteral("2|10||1"), down), QStringLiteral("|10|2|1"));
    EXPECT_EQ(sorted(QStringLiteral("a|B|A|b"), {SortMode::Text, SortOrder::Ascending, u'.'}),
              QStringLiteral("a|A|B|b"));
    EXPECT_EQ(sorted(QStringLiteral("a|B|A|b"), {SortMode::Text, SortOrder::Descending, u'.'}),
              QStringLiteral("B|b|a|A"));
}

TEST(TabText, RoundTripAndForeignForms) {
    const TextTable tricky = {
        {QStringLiteral("a"), QStringLiteral("b\tc"), QString()},
        {QStringLiteral("\"q\""), QStringLiteral("two\nlines"), QStringLiteral("1/4\"")}};
    EXPECT_EQ(fromTabText(toTabText(tricky)), tricky);
    const TextTable plain = {{QStringLiteral("1"), QStringLiteral("2")},
                             {QStringLiteral("3"), QString()}};
    EXPECT_EQ(fromTabText(QStringLiteral("1\t2\r\n3\t\r\n")), plain);
    EXPECT_EQ(fromTabText(QStringLiteral("1\t2\n3\t")), plain);
    // A quotation mark that is not closed in front of a tab or line end is part of the text.
    EXPECT_EQ(fromTabText(QStringLiteral("\"x\" y\tz")),
              (TextTable{{QStringLiteral("\"x\" y"), QStringLiteral("z")}}));
    EXPECT_TRUE(fromTabText(QString()).empty());
}

TEST(ChoiceList, SplitsAndFinds) {
    const QString list = QStringLiteral("Zener\t     Voltage reference\nSchottky\nN/A\tNot used\n");
    const auto choices = splitChoices(list);
    ASSERT_EQ(choices.size(), 3U);
    EXPECT_EQ(choices[0].name, QStringLiteral("Zener"));
    EXPECT_EQ(choices[0].remark, QStringLiteral("Voltage reference"));
    EXPECT_EQ(choices[1].remark, QString());
    EXPECT_EQ(findInChoiceList(list, u"N/A", ChoiceMatch::Exact), 2);
    EXPECT_EQ(findInChoiceList(list, u"zener", ChoiceMatch::Exact), -1);
    EXPECT_EQ(findInChoiceList(list, u"sch", ChoiceMatch::Start), 1);
    EXPECT_EQ(findInChoiceList(list, u"Voltage", ChoiceMatch::Start), -1);
    EXPECT_EQ(findInChoiceList(QString(), u"", ChoiceMatch::Exact), -1);
}

TEST(StyleTable, KeepsEachStyleOnce) {
    StyleTable table;
    CellStyle red;
    red.textColor = Qt::red;
    CellStyle locked = red;
    StyleChange{.readOnly = true}.apply(locked);
    const StyleId first = table.find(red);
    EXPECT_NE(table.find(locked), first);
    EXPECT_EQ(table.find(red), first);
    EXPECT_EQ(table.find(CellStyle()), 0U);
    EXPECT_EQ(table.at(table.find(locked)), locked);
    EXPECT_EQ(table.size(), 3U);
}

TEST(PagePlan, BandsAndPages) {
    // 100 fits beside 100; 300 is wider than the page and stands alone.
    const PagePlan plan = planPages({100, 100, 300, 50}, 0, 95, 10, QSizeF(200, 105));
    const std::vector<std::vector<std::size_t>> bands = {{0, 1}, {2}, {3}};
    EXPECT_EQ(plan.bands, bands);
    EXPECT_EQ(plan.rowsPerPage, 10);
    EXPECT_EQ(plan.pages(), 30);
    EXPECT_EQ(planPages({}, 0, 0, 10, QSizeF(200, 5)).pages(), 1);
    // The first columns come again on each page, unless they take half of it.
    const std::vector<std::vector<std::size_t>> named = {{0, 1, 2}, {0, 1, 3}, {0, 1, 4}};
    EXPECT_EQ(planPages({20, 60, 100, 100, 50}, 2, 9, 10, QSizeF(200, 105)).bands, named);
    EXPECT_EQ(planPages({20, 90, 80, 100}, 2, 9, 10, QSizeF(200, 105)).bands.back(),
              std::vector<std::size_t>{3});
}

} // namespace
} // namespace partwright::grid
