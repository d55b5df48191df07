// Text, numbers, decimal marks and the bytes of files.

#include "core/decimal_mark.h"
#include "core/encoding.h"
#include "core/number.h"
#include "core/text.h"
#include "core/text_file.h"
#include "support/dice.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace partwright::test {

TEST(Text, CapitalLetters) {
    EXPECT_EQ(upperCase(L"abc \u00E9\u00FF\u0151\u017E\u03B1\u0436"),
              L"ABC \u00C9\u0178\u0150\u017D\u0391\u0416");
    EXPECT_EQ(upperCase(L"4.7\u00B5F \u03BCF \u00DF \u00F7"), L"4.7\u00B5F \u03BCF \u00DF \u00F7");
    EXPECT_TRUE(equalsNoCase(L"Yes", L"yES"));
    EXPECT_FALSE(equalsNoCase(L"Yes", L"Ye"));
}

TEST(Text, Pieces) {
    EXPECT_EQ(trim(L" \t a b\r\n"), L"a b");
    EXPECT_EQ(trim(L" \t"), L"");
    EXPECT_EQ(trimOnce(L"\"\"a\"", L'"'), L"\"a");
    EXPECT_EQ(trimOnce(L"\"", L'"'), L"");
    EXPECT_EQ(split(L",a,", L',').size(), 3U);
    EXPECT_EQ(replaceAll(L"aXbXX", L"X", L"yy"), L"ayybyyyy");
    EXPECT_EQ(removeAll(L"a\r\nb", L"\r\n"), L"ab");
}

TEST(Text, Integers) {
    EXPECT_EQ(toInteger(L" +12x"), 12);
    EXPECT_EQ(toInteger(L"x"), 0);
    EXPECT_EQ(toInteger(L"99999999999999999999"), std::numeric_limits<std::int32_t>::max());
    EXPECT_EQ(toInteger(L"-99999999999"), std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(readInteger(L" - 1").consumed, 0U);
    EXPECT_TRUE(readInteger(L"4294967297").clamped);
}

TEST(Number, Reading) {
    const struct {
        const wchar_t* text;
        double value;
        std::size_t consumed;
    } cases[] = {
        {L"4.7k", 4.7, 3},
        {L"-.5", -.5, 3},
        {L"5.", 5, 2},
        {L"1e3x", 1000, 3},
        {L"1e", 1, 1},
        {L" 7", 7, 2},
        {L".", 0, 0},
        {L"inf", 0, 0},
        {L"0x10", 0, 1},
        {L"1.2.3", 1.2, 3},
        {L"1,5", 1, 1},
        {L"+-1", 0, 0},
        {L"1e999", std::numeric_limits<double>::max(), 5},
        {L"-1e-999", 0, 7},
    };
    for (const auto& row : cases) {
        EXPECT_EQ(readNumber(row.text, L'.').value, row.value) << row.text;
        EXPECT_EQ(readNumber(row.text, L'.').consumed, row.consumed) << row.text;
    }
    EXPECT_EQ(wholeNumber(L"1,5", L','), 1.5);
    EXPECT_FALSE(wholeNumber(L"1.5 ", L'.'));
    EXPECT_FALSE(wholeNumber(L"", L'.'));
}

TEST(Number, WritingIsWhatCGives) {
    Dice dice(3);
    for (int i = 0; i < 2000; ++i) {
        const double mantissa = static_cast<double>(dice.roll(1'000'000'000)) / 7;
        const double value = mantissa * std::pow(10, static_cast<int>(dice.roll(40)) - 20);
        char expected[400];
        std::snprintf(expected, sizeof expected, "%g", value);
        EXPECT_EQ(encodeUtf8(formatGeneral(value, L'.')), expected);
        std::snprintf(expected, sizeof expected, "%.13g", value);
        EXPECT_EQ(encodeUtf8(formatGeneral(value, L'.', 13)), expected);
        std::snprintf(expected, sizeof expected, "%.20f", value);
        EXPECT_EQ(encodeUtf8(formatFixed(value, L'.', 20)), expected);
    }
    EXPECT_EQ(formatGeneral(1234567, L','), L"1,23457e+06");
}

TEST(DecimalMark, ThreeWays) {
    const struct {
        const wchar_t* text;
        wchar_t mark;
        const wchar_t *cell, *free;
    } cases[] = {
        {L"1,5", L'.', L"1.5", L"1.5"},
        {L"1.5", L'.', L"1.5", L"1.5"},
        {L"1.5", L',', L"1,5", L"1,5"},
        {L"1,5", L',', L"1,5", L"1,5"},
        {L"a,b", L'.', L"a,b", L"a.b"},
        {L"a.b", L',', L"a.b", L"a,b"},
        {L"1,000,5", L'.', L"1.000.5", L"1.000.5"},
        {L"", L'.', L"", L""},
    };
    for (const auto& row : cases) {
        EXPECT_EQ(repairLibraryCell(row.text, row.mark), row.cell) << row.text;
        EXPECT_EQ(unifyMarks(row.text, row.mark), row.free) << row.text;
    }
    EXPECT_EQ(readCheckedNumber(L"0.5", L','), 0.5);
    EXPECT_EQ(readCheckedNumber(L"0,5", L','), 0.5);
    EXPECT_FALSE(readCheckedNumber(L"0,5", L'.'));
    EXPECT_FALSE(readCheckedNumber(L"5 V", L'.'));
}

TEST(Encoding, EveryByteComesBack) {
    std::string all;
    for (int byte = 0; byte < 256; ++byte)
        all.push_back(static_cast<char>(byte));
    EXPECT_EQ(detectCodePage(all), CodePage::Windows1252);
    std::string back;
    EXPECT_TRUE(encodeInto(back, decode(all, CodePage::Windows1252), CodePage::Windows1252));
    EXPECT_EQ(back, all);
    const std::string utf8 = "a\xC2\xB5\xE2\x84\xA6\xF0\x9F\x98\x80z";
    EXPECT_TRUE(isValidUtf8(utf8));
    EXPECT_EQ(encodeUtf8(decode(utf8, CodePage::Utf8)), utf8);
    for (const char* bad :
         {"\xC0\x80", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\xE2\x84", "\x80", "\xFF"})
        EXPECT_FALSE(isValidUtf8(bad));
    EXPECT_EQ(decodeLossy("12345678\xFFz"), L"12345678\uFFFDz");
    back.clear();
    EXPECT_FALSE(encodeInto(back, L"ab\u2126", CodePage::Windows1252));
    EXPECT_EQ(back, "ab");
}

TEST(TextFile, Reading) {
    const TempFolder folder;
    EXPECT_EQ(readTextFile(folder / L"none").status, FileStatus::Absent);
    EXPECT_EQ(readTextFile(pathText(folder.path())).status, FileStatus::OpenFailed);
    EXPECT_EQ(readTextFile(L"/dev/zero").status, FileStatus::OpenFailed)
        << "a device may never end";
    const TextFile file = readTextFile(folder.put(L"\u00E9.csv", "\xEF\xBB\xBF"
                                                                 "a\r\nb"));
    EXPECT_EQ(file.bytes, "a\r\nb");
    EXPECT_EQ(file.form, (TextForm{CodePage::Utf8, LineEnd::CrLf}));
    EXPECT_EQ(textForm("\xE9\n"), (TextForm{CodePage::Windows1252, LineEnd::Lf}));
    EXPECT_EQ(textForm("\xE9\rb\r").lineEnd, LineEnd::Cr);
    LineReader reader(std::string_view("a\r\n\nb\rc\r\nd\0e\n\r", 14));
    std::vector<std::string> lines;
    for (std::string_view line; reader.next(line);)
        lines.emplace_back(line);
    EXPECT_EQ(lines, (std::vector<std::string>{"a", "", "b\rc", std::string("d\0e", 3), "\r"}));
}

TEST(TextFile, WritingInPlace) {
    const TempFolder folder;
    const std::wstring path = folder.put(L"a.csv", "something longer than the new text");
    std::filesystem::create_hard_link(nativePath(path), nativePath(folder / L"link"));
    EXPECT_EQ(writeTextFile(path, "new").status, WriteStatus::Ok);
    EXPECT_EQ(folder.bytesOf(L"link"), "new") << "the same file, filled again";
    EXPECT_EQ(writeTextFile(folder / L"fresh.csv", "").status, WriteStatus::Ok);
    EXPECT_TRUE(fileExists(folder / L"fresh.csv"));
    EXPECT_EQ(writeTextFile(pathText(folder.path()), "x").status, WriteStatus::OpenFailed);
    EXPECT_EQ(writeTextFile(folder / L"no/folder", "x").status, WriteStatus::OpenFailed);
    const WriteResult full = writeTextFile(L"/dev/full", "x");
    EXPECT_EQ(full.status, WriteStatus::WriteFailed);
    EXPECT_EQ(full.reason, L"There is no space left on the disk");
}

} // namespace partwright::test
