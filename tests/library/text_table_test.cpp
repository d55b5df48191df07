// The scanners of both dialects, case by case.

#include "library/field_scanner.h"
#include "library/text_table.h"

#include <gtest/gtest.h>

namespace partwright::test {

namespace {

using Cells = std::vector<std::wstring>;

/// All fields of a line; "!" for one that was refused while text was left.
Cells fieldsOf(std::wstring_view line, wchar_t separator = L',') {
    Cells fields;
    std::wstring buffer;
    while (!line.empty()) {
        const auto field = NextField(line, separator, buffer);
        if (field)
            fields.emplace_back(*field);
        else if (!line.empty())
            fields.emplace_back(L"!");
    }
    return fields;
}

} // namespace

TEST(FieldScanner, Cases) {
    const struct {
        const wchar_t* line;
        Cells fields;
    } cases[] = {
        {L">, SDTA-M ,,x", {L">", L"SDTA-M", L"", L"x"}},
        {L"a,b,", {L"a", L"b"}},
        {L"\"\"\"abc\"\"\",d", {L"\"abc\"", L"d"}},
        {L"\"\"\"a,\"\"b\"\"\",d", {L"\"a,\"b\"", L"d"}},
        {L"\"\"\"abc\"\"\" x ,d", {L"\"abc\" x", L"d"}},
        {L"\"\"\"\"\"\",d", {L"\"\"", L"d"}},
        {L"\"\",d", {L"", L"d"}},
        {L"\"  a b  \",d", {L"a b", L"d"}},
        {L"\"a\"\"b\"", {L"a\"b"}},
        {L"\"a\"b,c", {L"ab", L"c"}},
        {L"\"open, still", {L"open, still"}},
        {L"\"a\"b\"c,d", {L"!", L"d"}},
        {L"5\" pipe,d", {L"!", L"d"}},
        {L"\"\t", {}},
        {L"\t \r", {}},
        {L"a\rb,\tc", {L"a\rb", L"c"}},
    };
    for (const auto& row : cases)
        EXPECT_EQ(fieldsOf(row.line), row.fields) << row.line;
    EXPECT_EQ(fieldsOf(L"a\tb", L'\t'), (Cells{L"a", L"b"}));
    EXPECT_EQ(fieldsOf(std::wstring_view(L"a\0b,\0,c", 7)),
              (Cells{std::wstring(L"a\0b", 3), L"", L"c"}));
}

TEST(RuleTableRow, CursorWalk) {
    const auto header = SplitHeader(L" A ,B,,\"C, c\",D", L",");
    EXPECT_EQ(header, (HeaderColumns{{L"A", 0}, {L"B", 1}, {L"C, c", 3}, {L"D", 4}}));
    constexpr std::wstring_view names[] = {L"A", L"B", L"C, c", L"missing"};
    const auto row = [&](std::wstring_view line) { return SplitRow(line, L",", names, header); };
    EXPECT_EQ(row(L"it's,\" x, y \",z,'v',w"),
              (RowValues{{L"A", L"its"}, {L"B", L"x, y"}, {L"C, c", L"v"}}));
    EXPECT_EQ(row(L"a,"), (RowValues{{L"A", L"a"}})) << "an empty cell at the end is none";
    EXPECT_EQ(row(L"a,,"), (RowValues{{L"A", L"a"}, {L"B", L""}}));
    EXPECT_EQ(row(L"\"a\"\"b\",c"), (RowValues{{L"A", L"a"}, {L"B", L"b\""}}));
    EXPECT_EQ(row(L"\"a"), (RowValues{{L"A", L"a"}}));
    EXPECT_EQ(row(L"\""), (RowValues{{L"A", L""}}));
    EXPECT_EQ(row(L""), (RowValues{{L"A", L""}}));
}

TEST(RuleTableRow, DoubledQuotes) {
    EXPECT_EQ(SplitQuoted(L"a,\"b,\"\"c\"\"\",", L','), (Cells{L"a", L"b,\"c\"", L""}));
    EXPECT_EQ(SplitQuoted(L"", L','), (Cells{L""}));
    EXPECT_EQ(SplitQuoted(L"\"open,x", L','), (Cells{L"open,x"}));
}

TEST(LibraryRow, HeaderNames) {
    std::array<std::wstring, maximumCells> cells;
    SplitStarRow<wchar_t>(L"*,PMET,,GROUP,Color,*", L',', cells);
    EXPECT_EQ(cells[0], L"PMET");
    EXPECT_EQ(cells[1], L"GROUP") << "runs of separators are one";
    EXPECT_EQ(cells[2], L"Color");
    EXPECT_EQ(cells[3], L"");
    SplitStarRow<wchar_t>(L"\"*\",\"PMET\", FAMILY ,\"*\"", L',', cells);
    EXPECT_EQ(cells[0], L"PMET");
    EXPECT_EQ(cells[1], L"FAMILY");
    std::wstring wide = L"*";
    for (int i = 0; i < 400; ++i)
        wide += L",c" + std::to_wstring(i);
    SplitStarRow<wchar_t>(wide, L',', cells);
    EXPECT_EQ(cells[34], L"c34");
}

TEST(LibraryRow, CellsForWriting) {
    const struct {
        const wchar_t* value;
        const wchar_t* cell;
    } cases[] = {{L"", L""},
                 {L"a\r\nb", L"ab"},
                 {L"a,b\"c", L"\"a,b\"\"c\""},
                 {L"a\"b", L"a\"b"},
                 {L"x - (y) (z)", L"x - {y} {z}"},
                 {L"(y)", L"(y)"},
                 {L"5%", L"5%%"},
                 {L"a;b", L"a;b"}};
    for (const auto& row : cases)
        EXPECT_EQ(ToCsvCell(row.value, L',', true), row.cell) << row.value;
    EXPECT_EQ(ToCsvCell(L"a;b%", L';', false), L"\"a;b%\"");
}

TEST(LibraryRow, Separator) {
    const struct {
        const char* bytes;
        std::optional<char> separator;
    } cases[] = {
        {"sep=;\n", ';'},
        {"a\nb\nsep=|x\nsep=;\n", ';'}, // "|" is no separator
        {"a sep=2mm\nsep=;\n", ';'},
        {"1234;sep=", ';'},          // position 4 of the line, wherever the mark stands
        {"1234,sep=\rsep=;\r", ';'}, // a line that begins so goes before
        {"", std::nullopt},
        {"x\nsep=", std::nullopt},
        {"sep=\r\n;", std::nullopt},
        {"sep=\xC2\xB5", std::nullopt},
    };
    for (const auto& row : cases)
        EXPECT_EQ(namedSeparator(row.bytes), row.separator) << row.bytes;
}

TEST(IndexList, Cases) {
    using List = std::vector<std::int32_t>;
    EXPECT_EQ(ParseIndexList(L"1"), (List{1}));
    EXPECT_EQ(ParseIndexList(L" 1 - 3 , 7;9:10"), (List{1, 2, 3, 7, 9, 10}));
    EXPECT_EQ(ParseIndexList(L"5-3,4"), (List{4}));
    EXPECT_EQ(ParseIndexList(L",,x,2,-5,6-"), (List{2}));
    EXPECT_EQ(ParseIndexList(L"1-2000000000").size(), 4096U);
    EXPECT_EQ(ParseIndexList(L"2147483646-99999999999"), (List{2147483646, 2147483647}));
    std::wstring hostile;
    for (int i = 0; i < 1000; ++i)
        hostile += L"1-5000,";
    EXPECT_EQ(ParseIndexList(hostile).size(), 65536U);
    Cells tokens;
    SplitTokens(L"a, b,,c", tokens);
    EXPECT_EQ(tokens, (Cells{L"a", L"b", L"", L"c"}));
    SplitTokens(L"", tokens);
    EXPECT_TRUE(tokens.empty());
}

} // namespace partwright::test
