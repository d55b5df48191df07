#include "core/regular_expression.h"
#include "core/regular_expression_set.h"
#include "support/random_expressions.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace partwright {
namespace {

std::string shown(std::wstring_view text) {
    std::string result;
    for (const wchar_t c : text) {
        if (c >= 32 && c < 127)
            result += static_cast<char>(c);
        else
            result.append("<").append(std::to_string(static_cast<unsigned>(c))).append(">");
    }
    return result;
}

// Ten texts an expression; the single form and the set form against the standard library.
TEST(RegularExpression, AnswersAsTheStandardLibrary) {
    test::RandomExpressions random(20'240'501);
    constexpr std::size_t expressionsInSet = 20;
    int matched = 0;
    for (int round = 0; round < 1000; ++round) {
        std::vector<std::wstring> expressions;
        std::vector<test::StandardExpression> standard;
        std::vector<RegularExpression> single;
        for (std::size_t i = 0; i < expressionsInSet; ++i) {
            expressions.push_back(i % 5 == 4 ? random.noise() : random.expression());
            standard.emplace_back(expressions.back());
            single.emplace_back(expressions.back());
        }
        const RegularExpressionSet set(expressions);
        for (int t = 0; t < 20; ++t) {
            const std::wstring text = random.text();
            const auto found = set.matches(text);
            ASSERT_TRUE(std::is_sorted(found.begin(), found.end()));
            for (std::size_t i = 0; i < expressionsInSet; ++i) {
                const bool expected = standard[i].fullMatch(text);
                matched += expected ? 1 : 0;
                const auto what = shown(expressions[i]) + "   on   " + shown(text);
                ASSERT_EQ(set.valid(i), standard[i].valid()) << what;
                ASSERT_EQ(single[i].fullMatch(text), expected) << what;
                ASSERT_EQ(std::count(found.begin(), found.end(), i), expected ? 1 : 0) << what;
            }
        }
    }
    EXPECT_GT(matched, 20'000) << "the random texts hardly match anything: nothing was compared";
}

TEST(RegularExpression, BoundsWhatIsCompiled) {
    const auto repeated = [](std::wstring_view piece, int times) {
        std::wstring result;
        for (int i = 0; i < times; ++i)
            result += piece;
        return result;
    };
    const std::pair<std::wstring, bool> cases[] = {
        {std::wstring(4096, L'a'), true},
        {std::wstring(4097, L'a'), false},
        {repeated(L"(", 200) + repeated(L")", 200), true},
        {repeated(L"(", 201) + repeated(L")", 201), false},
        {L"[" + repeated(L"(", 300) + L"]", true},
        {repeated(L"\\(", 300), true},
        {L"a" + repeated(L"*", 4095), true},
        {L"a" + repeated(L"+?+", 1365), true},
        {L"(a)\\1" + repeated(L"??+", 1363), true},
        {L"a" + repeated(L"{1}+", 1000), false}, // the library doubles its states each time
        {L"((a{100}){100}){100}", false},        // more states than the library allows
        {L"a{99999999999999999999}", false},
        {L"a{1,99999999999999999999}", false},
        {L"(a)\\99999999999999999999", false},
        {L"x,99999999999999999999", true},
        {L"(", false},
        {L"(?", false},
        {L"a{2,1}", false},
        {L"", true},
    };
    for (const auto& [text, valid] : cases)
        EXPECT_EQ(ValidateRegularExpression(text), valid) << shown(text).substr(0, 60);
    for (const std::wstring_view row : {L"*", L"+", L"?+", L"+?+", L"??", L"??+"})
        EXPECT_TRUE(RegularExpression(L"a" + repeated(row, 500)).fullMatch(L"a")) << shown(row);
    EXPECT_TRUE(RegularExpression(L"(a)\\1" + repeated(L"+?+", 1000)).fullMatch(L"aaa"));
    EXPECT_TRUE(
        RegularExpression(repeated(L"(", 200) + L"a" + repeated(L")", 200)).fullMatch(L"a"));
}

std::wstring nestedLookAheads(int depth) {
    return depth == 0 ? L"a" : L"(?=(a|.)*" + nestedLookAheads(depth - 1) + L"b).*";
}

// None of these may overflow the stack or run away, alone or in a set; where the answer costs too
// much it is "no match".
TEST(RegularExpression, SurvivesHostileTexts) {
    const std::vector<std::wstring> expressions = {
        L"(a*)*b",           L"(a|a)*c",       L"(.*)*",     L"(a|aa)+$",
        L"((a?){300}){300}", L"(.*)(.*)(.*)x", L".*a.{900}", L"((?=.*b).)*a*",
        L"(a*)\\1b",         L"(a)*?\\1a*",    L"(?!.*b)a*", L"((a{99}){99}){10}",
        L"(?:(?:a*)*)*",     L"(.*)\\1",       L"(|a)*b",    nestedLookAheads(26)};
    std::vector<std::wstring> texts = {std::wstring(300'000, L'a'), std::wstring(100'000, L'a')};
    texts.push_back(texts.front() + L'b');
    texts.push_back(texts.front() + wchar_t{0xDC00}); // no character: not for the set search
    const RegularExpressionSet set(expressions);
    const std::vector<std::pair<std::size_t, std::size_t>> known = {
        {2, 0}, {3, 0}, {6, 1}, {10, 0}, {12, 0}, {0, 2}, {14, 2}, {2, 3}};
    for (std::size_t t = 0; t < texts.size(); ++t) {
        const auto found = set.matches(texts[t]);
        EXPECT_EQ(std::count(found.begin(), found.end(), std::size_t{1}), 0);
        for (const auto& [index, text] : known) {
            if (text != t)
                continue;
            EXPECT_EQ(std::count(found.begin(), found.end(), index), 1)
                << shown(expressions[index]) << " on text " << t;
        }
    }
    EXPECT_TRUE(RegularExpression(L"(a*)*b").fullMatch(texts[2]));
    EXPECT_FALSE(RegularExpression(L"(a*)*b").fullMatch(texts[0]));
}

// What texts cost beyond the ordinary comes off what the expression has for all of them together.
TEST(RegularExpression, UsesUpItsReserveAndGoesOnWithTheOrdinary) {
    const RegularExpression costly(L"(a|aa)+\\1c|a*");
    const std::wstring text(24, L'a');
    EXPECT_TRUE(costly.fullMatch(text));
    int times = 1;
    while (times < 1000 && costly.fullMatch(text))
        ++times;
    EXPECT_LT(times, 1000);
    EXPECT_TRUE(costly.fullMatch(L"aaaa"));
}

// A text that needs a new state of the set at nearly every character: once they take too much
// memory they are dropped while a text is read.
TEST(RegularExpression, SetForgetsStatesAndGoesOn) {
    const RegularExpressionSet set({L".*a.{400}", L"[ab]*", L".*b.{400}"});
    std::mt19937 random(5);
    std::wstring text;
    for (const std::size_t length : {6'000U, 12'000U}) {
        while (text.size() < length)
            text += random() % 2 == 0 ? L'a' : L'b';
        const std::size_t other = text[length - 401] == L'a' ? 0 : 2;
        const std::vector<std::size_t> expected{std::min<std::size_t>(other, 1),
                                                std::max<std::size_t>(other, 1)};
        EXPECT_EQ(set.matches(text), expected) << length;
        EXPECT_EQ(set.matches(L"ab"), std::vector<std::size_t>{1});
    }
}

} // namespace
} // namespace partwright
