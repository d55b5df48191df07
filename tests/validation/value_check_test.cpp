#include "validation/value_check.h"

#include <gtest/gtest.h>

namespace partwright {
namespace {

constexpr auto passed = CheckResult::Passed;
constexpr auto failed = CheckResult::Failed;
constexpr auto unknown = CheckResult::UnknownCheck;

TEST(ValueCheck, KindsOfTextAndComparisons) {
    struct Case {
        std::wstring value, type;
        int check;
        double p1, p2;
        CheckResult expected;
    };
    const std::vector<Case> cases = {
        {L"-", L"-F", 5, 0, 1, passed},    {L"-", L"DF", 5, 0, 1, failed},
        {L"abc", L"S", 99, 0, 0, passed}, // text is never compared
        {L"5", L"F", 5, 0, 10, failed},   // the kind stands in the second character
        {L"5", L"", 5, 0, 10, failed},     {L"5", L"-F", 5, 5, 5, passed},
        {L" 5 ", L"-F", 5, 5, 5, passed},  {L"", L"-F", 5, -1, 1, failed},
        {L"5 V", L"-F", 5, 0, 10, failed}, {L"1e3", L"-F", 0, 1000, 0, passed},
        {L"0x10", L"-F", 2, 0, 0, failed}, {L"  +7", L"-I", 0, 7, 0, passed},
        {L"7.0", L"-I", 0, 7, 0, failed},  {L"7 ", L"-I", 0, 7, 0, failed},
        {L"", L"-I", 0, 0, 0, passed}, // nothing counts as the integer 0
        {L"5", L"-F", 1, 5, 0, failed},    {L"5", L"-F", 2, 5, 0, passed},
        {L"5", L"-F", 3, 5, 0, failed},    {L"5", L"-F", 4, 5, 0, passed},
        {L"5", L"-F", 6, 5, 9, failed},    {L"5", L"-F", 7, 5, 9, passed},
        {L"9", L"-F", 7, 5, 9, failed},    {L"9", L"-F", 8, 5, 9, passed},
        {L"9", L"-F", 9, 5, 9, unknown},   {L"9", L"-F", -1, 5, 9, unknown},
    };
    for (const Case& c : cases)
        EXPECT_EQ(CheckValue(c.value, c.type, c.check, c.p1, c.p2, L'.'), c.expected)
            << "value of check " << c.check << " with "
            << std::string(c.type.begin(), c.type.end());
    EXPECT_EQ(CheckValue(L"0,5", L"-F", 0, 0.5, 0, L','), passed);
    EXPECT_EQ(CheckValue(L"0,5", L"-F", 0, 0.5, 0, L'.'), failed);
}

TEST(ThermalCheck, Combinations) {
    struct Case {
        int rule;
        std::wstring operands;
        std::vector<std::wstring> row;
        CheckResult expected;
    };
    // Row of 103: Type, Pw, Ts, at, Tjmax, Oja, Ojc.
    const std::wstring full = L"1.2.3.4.5.6";
    const std::vector<Case> cases = {
        {101, L"1.2", {L"t", L"60", L"20"}, passed},
        {101, L"1.2", {L"t", L"20", L"60"}, failed},
        {101, L"1.2", {L"t", L"-1", L"60"}, passed},
        {101, L"1.2", {L"t", L"20", L"-"}, passed},
        {101, L"1.9", {L"t", L"20", L"60"}, passed}, // a position outside the row is not filled
        {102, L"1.2", {L"t", L"10", L"15"}, passed},
        {102, L"1.2", {L"t", L"10", L"15.1"}, failed},
        {103, full, {L"t", L"13", L"25", L"C", L"150", L"", L"10"}, failed},
        {103, full, {L"t", L"13", L"25", L"C", L"154", L"", L"10"}, passed},
        {103, full, {L"t", L"13", L"25", L"C", L"160", L"", L"10"}, passed},
        {103, full, {L"t", L"13", L"25", L"C", L"161", L"", L"10"}, failed},
        {103, full, {L"t", L"1", L"25", L"A", L"150", L"125", L"10"}, passed},
        {103, full, {L"t", L"13", L"25", L"", L"150", L"", L"10"}, passed},
        {103, full, {L"t", L"13", L"25", L"X", L"155", L"", L"10"}, failed},
        {104, L"1.2.3", {L"t", L"1", L"125", L"150"}, passed},
        {104, L"1.2.3", {L"t", L"1", L"0", L"25"}, failed},
        {104, L"1.2.3", {L"t", L"1", L"119", L"150"}, failed},
        {105, L"1.2.3", {L"t", L"1", L"119", L"150"}, unknown},
    };
    for (const Case& c : cases)
        EXPECT_EQ(CheckThermalRule(c.row, c.rule, c.operands, L'.'), c.expected)
            << "rule " << c.rule << " row " << &c - cases.data();
}

} // namespace
} // namespace partwright
