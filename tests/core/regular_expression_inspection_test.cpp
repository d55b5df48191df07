#include "core/regular_expression.h"
#include "core/regular_expression_inspection.h"
#include "support/dice.h"

#include <gmock/gmock.h>

#include <set>
#include <string>
#include <vector>

namespace partwright {
namespace {

using Codes = std::set<std::wstring>;

TEST(AdmittedCodes, FollowTheExpressionToThePositions) {
    const struct {
        const wchar_t* expression;
        std::vector<std::int32_t> positions;
        Codes codes;
    } cases[] = {
        {L"RC0[46]0[23]FR", {4, 5}, {L"40", L"60"}},
        {L"RC0[46]0[23]FR", {4, 6}, {L"42", L"43", L"62", L"63"}},
        // alternatives of one length and of several
        {L"A(BC|DE)F", {2, 3}, {L"BC", L"DE"}},
        {L"A(BC|DE)F", {2}, {L"B", L"D"}},
        {L"A(B|CD)E", {2, 3}, {L"BE", L"CD"}},
        {L"AB|C", {1}, {L"A", L"C"}},
        {L"AB|C", {2}, {L"", L"B"}},
        // what may be missing moves what follows
        {L"AX?B", {2}, {L"X", L"B"}},
        {L"A(XY)?B", {2, 3}, {L"XY", L"B"}},
        {L"A(XY)?", {2, 3}, {L"", L"XY"}},
        {L"A(XY)?", {3}, {L"", L"Y"}},
        // counted and endless repeats
        {L"[12]{2}Z", {1, 2}, {L"11", L"12", L"21", L"22"}},
        {L"A{1,3}Z", {2, 3}, {L"Z", L"AZ", L"AA"}},
        {L"A{2,}Z", {3, 4}, {L"Z", L"AZ", L"AA"}},
        {L"AB*", {2, 3}, {L"", L"B", L"BB"}},
        {L"AB+?C", {3}, {L"B", L"C"}},
        {L"A{0}B", {1}, {L"B"}},
        // behind the end, and positions that name nothing
        {L"AB", {3}, {L""}},
        {L"AB", {2, 3}, {L"B"}},
        {L"AB", {0, -1, 2}, {L"B"}},
        {L"AB", {}, {L""}},
        // a class without a character lets nothing through
        {L"A[]B", {3}, {}},
        {L"\\d", {1}, {L"0", L"1", L"2", L"3", L"4", L"5", L"6", L"7", L"8", L"9"}},
    };
    for (const auto& one : cases) {
        const AdmittedCodes admitted = admittedCodes(one.expression, one.positions, 2000);
        EXPECT_TRUE(admitted.known) << testing::PrintToString(one.expression);
        EXPECT_EQ(admitted.codes, one.codes) << testing::PrintToString(one.expression);
    }
}

TEST(AdmittedCodes, AreNotKnownForTooManyOrForLooksAround) {
    for (const wchar_t* expression :
         {L"A.", L"A[0-9]{4}", L"A(?=B)B", L"(A)\\1", L"^AB", L"A\\bB", L"A(B"})
        EXPECT_FALSE(admittedCodes(expression, {2, 3, 4, 5}, 999).known)
            << testing::PrintToString(expression);
    EXPECT_EQ(admittedCodes(L"A[0-9]{3}", {2, 3, 4, 5}, 1000).codes.size(), 1000U);
    EXPECT_TRUE(admittedCodes(L"A.B", {3}, 10).known) << "any character may stand elsewhere";
}

std::wstring cut(const std::wstring& text, const std::vector<std::int32_t>& positions) {
    std::wstring code;
    for (const std::int32_t position : positions)
        if (static_cast<std::size_t>(position) <= text.size())
            code += text[static_cast<std::size_t>(position) - 1];
    return code;
}

/// A random expression over "AB" that the inspection can follow.
std::wstring randomExpression(test::Dice& dice, int depth) {
    switch (depth == 0 ? dice.roll(2) : dice.roll(7)) {
    case 0:
        return L"A";
    case 1:
        return L"[AB]";
    case 2:
        return L"(" + randomExpression(dice, depth - 1) + L")?";
    case 3:
        return L"(" + randomExpression(dice, depth - 1) + L"|" + randomExpression(dice, depth - 1) +
               L")";
    case 4:
        return L"(" + randomExpression(dice, depth - 1) + L"){1,2}";
    case 5:
        return L"(" + randomExpression(dice, depth - 1) + L")*";
    default:
        return randomExpression(dice, depth - 1) + randomExpression(dice, depth - 1);
    }
}

// The proof that a decoder's lists are whole rests on this: no matching text has another code, and
// each code has a matching text.
TEST(AdmittedCodes, AreThoseOfAllMatchingTexts) {
    constexpr std::size_t longest = 9;
    std::vector<std::wstring> texts = {L""};
    for (std::size_t i = 0; texts[i].size() < longest; ++i)
        for (const wchar_t c : {L'A', L'B'})
            texts.push_back(texts[i] + c);
    test::Dice dice(7);
    for (int round = 0; round < 300; ++round) {
        const std::wstring expression = randomExpression(dice, 3);
        const RegularExpression matcher(expression);
        std::vector<std::int32_t> positions;
        for (std::int32_t position = 1; position <= 3; ++position)
            if (dice.roll(3) != 0)
                positions.push_back(position);
        Codes expected;
        for (const std::wstring& text : texts)
            if (matcher.fullMatch(text))
                expected.insert(cut(text, positions));
        const AdmittedCodes admitted = admittedCodes(expression, positions, 100);
        ASSERT_TRUE(admitted.known);
        // Texts that go on behind the longest tried have codes that shorter ones have as well.
        EXPECT_EQ(admitted.codes, expected) << testing::PrintToString(expression);
    }
}

TEST(ExpressionTraits, TellWhatATableMayNotHold) {
    const struct {
        const wchar_t* expression;
        bool valid, refersBack, nestsEndless, hasLetterEscape, nestsLookAheads = false;
    } cases[] = {
        {L"(A|B)+C{2,3}[0-9]*", true, false, false, false},
        {L"(A", false, false, false, false},
        {L"", true, false, false, false},
        {L"(A)\\1", true, true, false, false},
        {L"(A+)+", true, false, true, false},
        {L"((AB*)|C){2,}", true, false, true, false},
        {L"(A{1,9})+", true, false, false, false},
        {L"(A?)*B+", true, false, false, false},
        {L"A\\d", true, false, false, true},
        {L"\\bA", true, false, false, true},
        {L"\\\\dA", true, false, false, false},
        {L"A\\.B\\-", true, false, false, false},
        {L"A+*", true, false, true, false},
        {L"A++{1}", true, false, false, false},
        {L"(?=A)B(?!C)", true, false, false, false},
        {L"(?=A(B(?!C)))D", true, false, false, false, true},
    };
    for (const auto& one : cases) {
        const ExpressionTraits traits = traitsOf(one.expression);
        EXPECT_EQ(traits.valid, one.valid) << testing::PrintToString(one.expression);
        EXPECT_EQ(traits.hasBackReference, one.refersBack)
            << testing::PrintToString(one.expression);
        EXPECT_EQ(traits.nestsEndlessRepeats, one.nestsEndless)
            << testing::PrintToString(one.expression);
        EXPECT_EQ(traits.nestsLookAheads, one.nestsLookAheads)
            << testing::PrintToString(one.expression);
        EXPECT_EQ(traits.hasLetterEscape, one.hasLetterEscape)
            << testing::PrintToString(one.expression);
    }
}

} // namespace
} // namespace partwright
