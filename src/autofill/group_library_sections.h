#pragma once

// The group library as sections of rows. The engine and the table check read the file through here,
// so that the check judges what the engine sees: where a section begins and ends, which lines are
// remarks, and which column of two of one name counts (the first).

#include "core/encoding.h"
#include "library/rule_table.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace partwright::group_library {

struct Section {
    std::wstring_view name;
    /// It stands in the file and has two lines at least; without it the sections behind it are not
    /// read.
    bool present = false;
    HeaderColumns header = {};
    struct Line {
        /// In the file, from 1.
        std::size_t number = 0;
        std::wstring text;
    };
    std::vector<Line> lines = {};
};

struct Sections {
    Section families{.name = L"Family Section"};
    Section makers{.name = L"Manufacturer Section"};
    Section rules{.name = L"Rules List Section"};
    Section tables{.name = L"Description Rules Section"};
};

[[nodiscard]] Sections readSections(std::string_view bytes, CodePage codePage);

/// The rows of a section by the columns that are wanted.
class SectionRows {
public:
    SectionRows(const Section& section, std::span<const std::wstring_view> columns);

    [[nodiscard]] std::size_t size() const { return section_.lines.size(); }
    [[nodiscard]] RuleRow operator[](std::size_t index) const;

private:
    const Section& section_;
    std::shared_ptr<const RuleColumns> columns_;
    RowSplitter splitter_;
};

/// A cell that starts with a number.
[[nodiscard]] std::optional<std::int32_t> idOf(const RuleRow& row, std::wstring_view column);

} // namespace partwright::group_library
