#pragma once

// The case files of the coded checks of the Analyses library, read for whoever runs them: the
// checks themselves, and the dialog's session. Fields are separated by " | "; \n is a line feed, \s
// a blank, "" the empty text.
//
//   group 5 | mark , | headers A B | types X Y     starts a table; without headers and types those
//                                                  of the vocabulary
//   hidden 2 3                                     hides positions of this table
//   commit TYPE 7=text | 2 | text | answer | text behind it
//   row TYPE 1=text 2=text                         a full row; "~" before TYPE: not full, "^":
//                                                  hidden
//   ok answer                                      judges the rows since the last answer at OK
//   strict 6 | 2-x | answer                        a list of pins that must be numbers
//
// Answers: "fine", "open", "n/a", or the boxes, joined by " && ". At OK "2:" names the rows at
// fault, "2@1:" the cell to go to. "Method M" stands for the name of the method at work.

#include "core/vocabulary.h"
#include "support/places.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace partwright::test {

using Words = std::vector<std::wstring>;

inline std::wstring joinBoxes(const std::vector<std::wstring>& boxes) {
    std::wstring text;
    for (const std::wstring& box : boxes)
        text += (text.empty() ? L"" : L" && ") + box;
    return text;
}

/// "2,3@1: text" of the rows at fault, counted from 0.
inline std::wstring stopText(const std::vector<std::size_t>& rows, std::size_t position,
                             const std::vector<std::wstring>& boxes) {
    std::wstring text;
    for (const std::size_t row : rows)
        text += (text.empty() ? L"" : L",") + std::to_wstring(row + 1);
    if (position != 0)
        text += L"@" + std::to_wstring(position);
    return text + L": " + joinBoxes(boxes);
}

class AnalysesCases {
public:
    struct Table {
        std::int32_t group = 0;
        /// Of a group without columns of its own.
        Words headers;
        Words types;
        wchar_t mark = L'.';
        std::set<std::size_t> hidden;
    };
    struct Row {
        std::wstring type;
        bool isFull = true;
        bool isHidden = false;
        std::map<std::size_t, std::wstring> cells;
    };
    struct Commit {
        Row row;
        std::size_t position = 0;
        std::wstring text;
        std::wstring answer;
        std::wstring textBehind;
    };

    virtual ~AnalysesCases() = default;

    void run(const std::string& file) {
        std::ifstream stream(std::string(places::testData) + "/validation/" + file);
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

protected:
    virtual void commit(const Table& table, const Commit& commit) = 0;
    virtual void ok(const Table& table, const std::vector<Row>& rows,
                    const std::wstring& answer) = 0;
    virtual void strict(const Table&, std::size_t, const std::wstring&, const std::wstring&) {}

    void expect(const std::wstring& got, const std::wstring& expected) {
        ++answers_;
        EXPECT_EQ(got, expected);
    }

private:
    static std::wstring widen(std::string text) {
        std::wstring wide(text.begin(), text.end()); // the files are plain ASCII
        if (wide == L"\"\"")
            return {};
        for (const auto& [from, to] : {std::pair{L"\\n", L"\n"}, std::pair{L"\\s", L" "}})
            for (auto at = wide.find(from); at != std::wstring::npos; at = wide.find(from))
                wide.replace(at, 2, to);
        return wide;
    }

    static std::vector<std::string> fields(const std::string& line) {
        std::vector<std::string> result;
        std::size_t start = 0;
        for (auto at = line.find(" | "); at != std::string::npos; at = line.find(" | ", start)) {
            result.push_back(line.substr(start, at - start));
            start = at + 3;
        }
        result.push_back(line.substr(start));
        return result;
    }

    static Words words(const std::string& text) {
        std::istringstream stream(text);
        Words result;
        for (std::string word; stream >> word;)
            result.push_back(widen(word));
        return result;
    }

    bool step(const std::string& verb, const std::vector<std::string>& f) {
        if (verb == "group") {
            start(f);
        } else if (verb == "hidden") {
            for (const std::wstring& position : words(f[0]))
                table_.hidden.insert(std::stoul(position));
        } else if (verb == "commit" && f.size() >= 4) {
            commit(table_, {makeRow(f[0]), std::stoul(f[1]), widen(f[2]), widen(f[3]),
                            widen(f.size() > 4 ? f[4] : f[2])});
        } else if (verb == "row") {
            rows_.push_back(makeRow(f[0]));
        } else if (verb == "ok") {
            ok(table_, rows_, widen(f[0]));
            rows_.clear();
        } else if (verb == "strict" && f.size() == 3) {
            strict(table_, std::stoul(f[0]), widen(f[1]), widen(f[2]));
        } else {
            return false;
        }
        return true;
    }

    void start(const std::vector<std::string>& f) {
        EXPECT_TRUE(rows_.empty()) << "rows without an answer";
        table_ = {};
        table_.group = std::stoi(f[0]);
        for (const TypeName& type : TypeTableOfAsrGroup(table_.group).subspan(1))
            table_.types.emplace_back(type.name);
        for (std::size_t i = 1; i < f.size(); ++i) {
            Words list = words(f[i]);
            const std::wstring kind = list.front();
            list.erase(list.begin());
            if (kind == L"mark")
                table_.mark = list[0][0];
            else if (kind == L"types")
                table_.types = list;
            else
                table_.headers = list;
        }
    }

    static Row makeRow(const std::string& text) {
        Words list = words(text);
        Row row;
        row.isFull = list[0][0] != L'~';
        row.isHidden = list[0][0] == L'^';
        row.type = list[0].substr(row.isFull && !row.isHidden ? 0 : 1);
        for (std::size_t i = 1; i < list.size(); ++i) {
            const auto equal = list[i].find(L'=');
            row.cells[std::stoul(list[i].substr(0, equal))] = list[i].substr(equal + 1);
        }
        return row;
    }

    Table table_;
    std::vector<Row> rows_;
    int answers_ = 0;
};

} // namespace partwright::test
