#pragma once

// Case files of this folder: one case a line, its cells between " | ", the name of the case first.
// Lines that begin with "#" are remarks. A cell in double quotes keeps its blanks.

#include "core/text.h"
#include "core/text_file.h"
#include "support/places.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace partwright::test {

struct ValueCase {
    std::size_t line = 0;
    std::vector<std::wstring> cells;

    [[nodiscard]] std::wstring cell(std::size_t index) const {
        return index < cells.size() ? cells[index] : std::wstring();
    }
};

inline std::vector<ValueCase> readCases(const std::string& name) {
    const TextFile file =
        readTextFile(pathText(std::string(places::testData) + "/autofill/" + name));
    EXPECT_EQ(file.status, FileStatus::Ok) << name;
    std::vector<ValueCase> cases;
    LineReader lines(file.bytes);
    std::string_view line;
    for (std::size_t number = 1; lines.next(line); ++number) {
        const std::wstring text = decode(line, CodePage::Utf8);
        if (trim(text).empty() || text.starts_with(L'#'))
            continue;
        ValueCase row{number, {}};
        const std::wstring divided = replaceAll(text, L" |", L"\t");
        for (const std::wstring_view cell : split(divided, L'\t'))
            row.cells.emplace_back(trimOnce(trim(cell), L'"'));
        cases.push_back(std::move(row));
    }
    EXPECT_FALSE(cases.empty()) << name;
    return cases;
}

/// "name line 12: R 4R7 1%", to say which case failed.
inline std::string where(const std::string& file, const ValueCase& row) {
    return file + ":" + std::to_string(row.line) + " " + encodeUtf8(row.cell(0));
}

} // namespace partwright::test
