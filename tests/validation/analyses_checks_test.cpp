// The case files of the coded checks. Fields are separated by " | "; \n is a line feed, \s a blank.
//
//   group 5 | mark , | headers A B | types X Y     starts a table; without headers and types those
//                                                  of the vocabulary
//   hidden 2 3                                     hides positions of this table
//   commit TYPE 7=text | 2 | text | answer | text behind it
//   row TYPE 1=text 2=text                         a full row; "~" before TYPE: not full, "^":
//   hidden ok answer                                      judges the rows since the last answer at
//   OK strict 6 | 2-x | answer                        a list of pins that must be numbers
//
// Answers: "fine", "open", "n/a", or the boxes, joined by " && ". At OK "2:" names the rows at
// fault, "2@1:" the cell to go to.

#include "core/vocabulary.h"
#include "validation/analyses_checks.h"
#include "validation/analyses_options.h"
#include "validation/check_texts.h"
#include "validation/db_checks.h"
#include "validation/list_cells.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <list>
#include <sstream>
#include <string>
#include <vector>

namespace partwright {
namespace {

using Words = std::vector<std::wstring>;

std::wstring widen(std::string text) {
    std::wstring wide(text.begin(), text.end()); // the files are plain ASCII
    for (const auto& [from, to] : {std::pair{L"\\n", L"\n"}, std::pair{L"\\s", L" "}})
        for (auto at = wide.find(from); at != std::wstring::npos; at = wide.find(from))
            wide.replace(at, 2, to);
    return wide;
}

std::vector<std::string> fields(const std::string& line) {
    std::vector<std::string> result;
    std::size_t start = 0;
    for (auto at = line.find(" | "); at != std::string::npos; at = line.find(" | ", start)) {
        result.push_back(line.substr(start, at - start));
        start = at + 3;
    }
    result.push_back(line.substr(start));
    return result;
}

Words words(const std::string& text) {
    std::istringstream stream(text);
    Words result;
    for (std::string word; stream >> word;)
        result.push_back(widen(word));
    return result;
}

std::wstring join(const std::vector<std::wstring>& boxes) {
    std::wstring text;
    for (const std::wstring& box : boxes)
        text += (text.empty() ? L"" : L" && ") + box;
    return text;
}

class Cases {
public:
    void run(const std::string& file) {
        std::ifstream stream(std::string(PARTWRIGHT_TEST_DATA "/validation/") + file);
        ASSERT_TRUE(stream.is_open()) << file;
        std::size_t number = 0;
        for (std::string line; std::getline(stream, line);) {
            SCOPED_TRACE(file + ":" + std::to_string(++number) + ": " + line);
            if (line.empty() || line[0] == '#')
                continue;
            const auto space = line.find(' ');
            ASSERT_TRUE(step(line.substr(0, space), fields(line.substr(space + 1))));
        }
        EXPECT_TRUE(rows_.empty()) << "rows without an answer";
        EXPECT_GT(answers_, 0);
    }

private:
    bool step(const std::string& verb, const std::vector<std::string>& f) {
        if (verb == "group")
            start(f);
        else if (verb == "hidden")
            for (const std::wstring& position : words(f[0]))
                table_.hidden[std::stoul(position)] = true;
        else if (verb == "commit" && f.size() >= 4)
            commit(f);
        else if (verb == "row")
            addRow(f[0]);
        else if (verb == "ok")
            ok(widen(f[0]));
        else if (verb == "strict" && f.size() == 3)
            expect(CheckListCell(table_.group, L"", std::stoul(f[0]), widen(f[1]), L'.',
                                 PinNames::Numbers)
                       .message,
                   widen(f[2]));
        else
            return false;
        return true;
    }

    void start(const std::vector<std::string>& f) {
        EXPECT_TRUE(rows_.empty()) << "rows without an answer";
        headers_.clear();
        types_.clear();
        table_ = makeAnalysesTable(std::stoi(f[0]), L'.');
        for (const TypeName& type : TypeTableOfAsrGroup(table_.group).subspan(1))
            types_.emplace_back(type.name);
        for (std::size_t i = 1; i < f.size(); ++i) {
            Words list = words(f[i]);
            const std::wstring kind = list.front();
            list.erase(list.begin());
            if (kind == L"mark")
                table_.decimalMark = list[0][0];
            else if (kind == L"types")
                types_ = list;
            else
                for (const std::wstring& header : list)
                    table_.headers.push_back(headers_.emplace_back(header));
        }
        table_.hidden.assign(maximumAnalysesColumns + 1, false);
        table_.methodText = L"M";
    }

    AnalysesRow makeRow(const std::string& text) {
        Words list = words(text);
        AnalysesRow row;
        row.number = rows_.size() + 1;
        row.isFull = list[0][0] != L'~';
        row.isHidden = list[0][0] == L'^';
        if (!row.isFull || row.isHidden)
            list[0].erase(0, 1);
        const auto type = std::find(types_.begin(), types_.end(), list[0]);
        row.typePosition =
            type == types_.end() ? 0 : static_cast<std::size_t>(type - types_.begin()) + 1;
        Words& cells = cells_.emplace_back(maximumAnalysesColumns + 1);
        cells[0] = list[0];
        for (std::size_t i = 1; i < list.size(); ++i) {
            const auto equal = list[i].find(L'=');
            cells.at(std::stoul(list[i].substr(0, equal))) = list[i].substr(equal + 1);
        }
        row.cells = cells;
        return row;
    }

    void addRow(const std::string& text) { rows_.push_back(makeRow(text)); }

    void commit(const std::vector<std::string>& f) {
        const CommitAnswer answer = AnalysesChecks(table_).atCommit(
            makeRow(f[0]), std::stoul(f[1]), widen(f[2] == "\"\"" ? "" : f[2]));
        const std::wstring expected = widen(f[3]);
        switch (answer.decision) {
        case CommitDecision::Open:
            expect(L"open", expected);
            break;
        case CommitDecision::NotApplicable:
            expect(L"n/a", expected);
            break;
        case CommitDecision::Accepted:
            EXPECT_TRUE(answer.boxes.empty());
            expect(L"fine", expected);
            break;
        case CommitDecision::Refused:
            expect(join(answer.boxes), expected);
        }
        EXPECT_EQ(answer.text, widen(f.size() > 4 ? f[4] : f[2] == "\"\"" ? "" : f[2]));
    }

    void ok(const std::wstring& expected) {
        const AnalysesChecks checks(table_);
        const PassResult result = checks.atOk(rows_);
        std::wstring got = L"fine";
        if (result) {
            got.clear();
            for (const std::size_t row : result->rows)
                got += (got.empty() ? L"" : L",") + std::to_wstring(row + 1);
            if (result->goesToCell)
                got += L"@" + std::to_wstring(result->position);
            got += L": " + join(result->boxes);
        }
        expect(got, expected);
        // Row by row the steps find the same first words, when one row alone is at fault.
        if (rows_.size() == 1) {
            const auto steps = checks.everyStep(rows_[0]);
            ASSERT_EQ(steps.empty(), !result.has_value());
            if (result) {
                EXPECT_EQ(steps[0].finding.boxes, result->boxes);
            }
        }
        rows_.clear();
    }

    void expect(const std::wstring& got, const std::wstring& expected) {
        ++answers_;
        EXPECT_EQ(got, expected);
    }

    AnalysesTable table_;
    std::list<std::wstring> headers_;
    Words types_;
    std::list<Words> cells_;
    std::vector<AnalysesRow> rows_;
    int answers_ = 0;
};

TEST(AnalysesChecks, Circuits) {
    Cases().run("circuits.cases");
}
TEST(AnalysesChecks, Semiconductors) {
    Cases().run("semiconductors.cases");
}
TEST(AnalysesChecks, Passives) {
    Cases().run("passives.cases");
}
TEST(AnalysesChecks, Transformers) {
    Cases().run("transformers.cases");
}
TEST(AnalysesChecks, OscillatorsFiltersSplitters) {
    Cases().run("frequency.cases");
}
TEST(AnalysesChecks, Units) {
    Cases().run("units.cases");
}

// A table of a splitter's lists, should a pass ever compare them with the others'.
TEST(AnalysesChecks, DecibelsOfSplittersAgainstPins) {
    const auto pins = listItems(L"1-2", true);
    EXPECT_EQ(dbFault(38, L"Splitter", pins, listItems(L"20-19", false), L'.'),
              L"The value dB = 19 in the selected row is wrong,\nbecause it does not correspond to "
              L"condition :\n\"db >= 10 * lg( 2 )\", where 2 is output pins quantity.");
    EXPECT_EQ(dbFault(38, L"Splitter", pins, listItems(L"20-20", false), L'.'), L"");
    // A single value that gives more than the whole is below 0 dB, which is refused before.
    EXPECT_EQ(check_text::dbSum(1), L"dB value in the selected row is wrong :\ncondition "
                                    L"'SUM{10^(-dBi / 10)} <= 1' is not fulfilled.");
}

TEST(AnalysesChecks, OptionsShowTheWordOfAPlace) {
    EXPECT_EQ(shownOption(26, 7, L"3"), L"BandPass");
    EXPECT_EQ(shownOption(26, 7, L"5"), L"5");
    EXPECT_EQ(shownOption(26, 7, L""), L"");
    EXPECT_EQ(shownOption(25, 8, L"2"), L"Negative");
    EXPECT_EQ(shownOption(16, 7, L"2"), L"Positive");
    EXPECT_EQ(shownOption(16, 1, L"2"), L"2");
    EXPECT_EQ(optionPlace(26, 7, L"BandStop"), 4U);
}

TEST(AnalysesChecks, PinColumnsOfGroupsWithListsAreNotForSingleValueRules) {
    EXPECT_TRUE(AnalysesChecks(makeAnalysesTable(9, L'.')).isPinList(24)); // PinGnd-Dig
    EXPECT_FALSE(AnalysesChecks(makeAnalysesTable(9, L'.')).isPinList(8));
    EXPECT_FALSE(AnalysesChecks(makeAnalysesTable(22, L'.')).isPinList(1));
}

} // namespace
} // namespace partwright
