#include "autofill/synonyms.h"
#include "core/application.h"
#include "core/encoding.h"
#include "support/places.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace partwright {
namespace {

SynonymTable tableOf(std::string_view rows, PartPrefixes prefixes = {}) {
    const std::string file = "Find,Replace,Note\n" + std::string(rows) + "\n";
    return SynonymTable(parseRuleTable(file, CodePage::Utf8, synonymForm()), std::move(prefixes));
}

// The result without the blank that a rewritten text begins with.
std::string rewritten(const SynonymTable& table, std::string_view text) {
    const std::string result = encodeUtf8(table.rewrite(decodeLossy(text)));
    EXPECT_EQ(result.substr(0, 1), " ");
    return result.substr(1);
}

TEST(Synonyms, AnEntryRewritesWhatItFinds) {
    struct Case {
        const char* rows;
        const char* text;
        const char* result;
    };
    const Case cases[] = {
        // Numbers
        {"<n>K,<1>kohm", "RES 4.7k", "RES 4.7kohm"},
        {"<n>K,<1>kohm", "4,7K 0,25K .5K", "4.7kohm 0.25kohm 0.5kohm"},
        {"<n>K,<1>kohm", "1,000K 1,250,000.5K", "1000kohm 1250000.5kohm"},
        {"<n>K,<1>kohm", "12,3456789K", "12, 3456789kohm"}, // no decimal comma: two values
        {"<n>K,<1>kohm", "1234567890123456K", "1234567890123456K"},
        {"<n> K,<1>kohm", "4  K", "4kohm"},
        {"<n><b>K,<1>kohm", "4K 4 K", "4K 4kohm"},
        {"<i>K<d>,<1>.<2>k", "4K7 4K77 1.4K7", "4.7k 4K77 1.4K7"},
        {"R<d><d>,0.<1><2>", "R47 R470", "0.47 R470"},
        {"<i>/<i> W,<1>/<2>W", "1/10 W", "1/10W"},
        // Where a match begins and ends
        {"<n>K,<1>k", "-4K +4K A4K 4K7 4KB x-4K #4K", "-4K +4K A4K 4K7 4KB x-4K #4K"},
        {"<n>,[<1>]", "1-2 3.4.5 6~7 8", "1-2 3.4.5 6~7 [8]"},
        {"RES,R", "PRES RES- RES1", "PRES R - RES1"},
        {"_,", "A_B", "A B"},
        {"_,\n<n>K,<1>k", "-_4K", "- 4k"}, // right behind a match everything begins
        {"UF/,U", "10UF/16V", "10UF/16V"},
        {"<n>UF,<1>u", "10uF/16V", "10u /16V"},
        // Choices, exact signs, rests
        {"<n> {OHMS|OHM|},<1>R", "4 OHMS 5 ohm 6", "4R 5R 6R"},
        {"<n>{O|OHM},<1>R", "4OHM", "4OHM"}, // a choice is final
        {"<n>\\m,<1>milli\n<n>\\M,<1>mega", "1m 1M", "1milli 1mega"},
        {"AB*,<0> PART\nX*,<u>", "ab12-x,ab x1y(2)", "ab12-x PART ,ab X1Y (2)"},
        // Signs in several codes
        {"<n>µF,<1>uF\n<n>Ω,<1>ohm",
         "1\xCE\xBC"
         "F 2\xE2\x84\xA6 3\xC2\xA0\xC2\xB5"
         "F",
         "1uF 2ohm 3 \xC2\xB5"
         "F"},
        // Guards
        {"[CAP|MLCC]<n>P,<1>pF", "CAP 4P", "CAP 4pF"},
        {"[CAP|MLCC]<n>P,<1>pF", "CAPS 4P", "CAPS 4P"},
        {"[!CAP][10V|1/4W]<n>P,<1>pF", "1/4W 4P", "1/4W 4pF"},
        {"[!CAP]<n>P,<1>pF", "cap 4P", "cap 4P"},
        {"[$UPPER]<n>M,<1>meg\n[$LOWER]<n>M,<1>mil\n<n>M,<1>mix", "A 1M", "A 1meg"},
        {"[$UPPER]<n>M,<1>meg\n[$LOWER]<n>M,<1>mil\n<n>M,<1>mix", "a 1m", "a 1mil"},
        {"[$UPPER]<n>M,<1>meg\n[$LOWER]<n>M,<1>mil\n<n>M,<1>mix", "a 1M", "a 1mix"},
        // Order, and no second reading
        {"AB,1\nA,2\nB,A", "AB A B", "1 2 A"},
        {"# no entry\n\"A,B\",\"C,D\"", "a,b", "C,D"},
    };
    for (const Case& it : cases)
        EXPECT_EQ(rewritten(tableOf(it.rows), it.text), it.result) << it.rows;
}

TEST(Synonyms, FaultyEntriesAreNamedAndMatchNothing) {
    const SynonymTable table =
        tableOf("{A|},x\n[A x\n{A,x\nA\\,x\n<n>K,<2>\n*,x\n<b>A,x\nGOOD,x\n,x");
    EXPECT_EQ(table.faultyLines(), (std::vector<std::size_t>{2, 3, 4, 5, 6, 7, 8}));
    EXPECT_EQ(table.size(), 1U);
    EXPECT_EQ(rewritten(table, "A 4K good"), "A 4K x");
}

TEST(Synonyms, TheLongestPrefixOfAPartNumberTellsItsKind) {
    const SynonymTable synonyms = tableOf(
        "<n>M,<1>Mohm",
        PartPrefixes(parseRuleTable("Note,Prefix,Says\n,qx,GENERAL\n,QX1,ONE\n,QX?2,ANY TWO\n"
                                    ",QX12,TWELVE\n,qx,AGAIN\n,,LOST\n,QY1,\n,10M?,FPGA\n",
                                    CodePage::Utf8, partPrefixForm())));
    const std::pair<const char*, const char*> cases[] = {
        {"qx7-ab, 1%", "qx7-ab GENERAL , 1%"},
        {"QX1A", "QX1A ONE"},
        {"QX92;QX12B", "QX92 ANY TWO ; QX12B TWELVE"},
        {"QX", "QX"},                       // no digit: a word
        {"AQX12", "AQX12"},                 // inside of a word
        {"QY1", "QY1"},                     // says nothing
        {"10M 10M08", "10Mohm 10M08 FPGA"}, // a synonym goes before
    };
    for (const auto& [text, result] : cases)
        EXPECT_EQ(rewritten(synonyms, text), result) << text;
}

TEST(Synonyms, TheShippedTableHasNoFaultyEntry) {
    CPartwrightPlugInApp app;
    app.paths.programFolder = decodeLossy(std::string(places::tables) + "/");
    SynonymTable table;
    ASSERT_EQ(LoadSynonyms(app.paths, table).status, FileStatus::Ok);
    EXPECT_GT(table.size(), 0U);
    EXPECT_EQ(table.faultyLines(), std::vector<std::size_t>());
}

TEST(Synonyms, WithoutEntriesTheTextStays) {
    EXPECT_EQ(SynonymTable().rewrite(L"10\u2126 a\tb"), L"10\u2126 a\tb");
    EXPECT_EQ(tableOf("A,B").rewrite(L"-"), L"-");
    EXPECT_EQ(tableOf("A,B").rewrite(L""), L"");
}

// Texts on which a careless matcher takes quadratic time.
TEST(Synonyms, LongTextsTakeLinearTime) {
    const SynonymTable table = tableOf("A*,<0> X\n<n> K,<1>k\n<n>{A| B|},<1>\nA A A A B,x");
    const auto repeated = [](std::wstring_view piece) {
        std::wstring text;
        while (text.size() < 1'000'000)
            text += piece;
        return text;
    };
    for (const std::wstring_view piece : {L"A-", L"1,000,", L"1.", L" ", L"A ", L"0", L"1 "}) {
        const std::wstring text = repeated(piece);
        EXPECT_GE(table.rewrite(text).size(), text.size() / 2);
    }
}

} // namespace
} // namespace partwright
