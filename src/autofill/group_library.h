#pragma once

// The group library: from a bare part number to a full description. "GLibData.glb" holds, per
// series of a manufacturer, a regular expression that knows the series' part numbers and a table of
// what each position of such a number means. docs/group_library.md tells the layout with an
// example.
//
//   GroupLibrary library(parseGroupLibrary(bytes, codePage), L'.');
//   library.DescribePartNumber(L"CRCW060310K0FKEA").description
//       ->  "RES THICK FILM CHIP (SMD), 10.0 KOHM, 1 %, ..."
//
// All expressions are prepared together, so finding the rule of a part number does not depend on
// the number of rules.

#include "core/encoding.h"
#include "core/regular_expression_set.h"
#include "library/load_result.h"

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace partwright {

/// One text for each row of a rule, from row 1.
using GroupLibraryColumn = std::vector<std::wstring>;

struct GroupLibraryRule {
    std::int32_t id = 0;
    std::vector<GroupLibraryColumn> keyColumns;
    /// In the order of their places in the description.
    std::vector<GroupLibraryColumn> valueColumns;
    std::wstring regExp;
    std::wstring manufacturer;
    std::wstring familyName;
    std::wstring example;
    std::wstring description;

    /// The part-number positions of each key column, from 1.
    std::vector<std::vector<std::int32_t>> positions;
    /// What is wrong with the positions; empty when they count 1, 2, 3 and on.
    std::wstring indexFault;
};

/// Ascending by id; every expression is valid.
using GroupLibraryTable = std::vector<GroupLibraryRule>;

/// Reads the sections of the file. Rows that cannot serve are left out.
[[nodiscard]] GroupLibraryTable parseGroupLibrary(std::string_view bytes, CodePage codePage);

/// The text that a part number has by a rule whose expression matches it; empty when the number
/// does not keep to the rule's table.
[[nodiscard]] std::wstring describeBy(const GroupLibraryRule& rule, std::wstring_view partNumber,
                                      wchar_t mark);

struct PartDescription {
    std::wstring description;
    std::wstring manufacturer;
    /// 0 without a description.
    std::int32_t rule = 0;
    /// Faults of the library that came up for the first time.
    std::vector<std::wstring> messages;
};

class GroupLibrary {
public:
    GroupLibrary() = default;
    GroupLibrary(GroupLibraryTable table, wchar_t mark);

    [[nodiscard]] bool empty() const { return table_.empty(); }
    [[nodiscard]] const GroupLibraryTable& table() const { return table_; }

    /// By the first rule, in the order of the ids, that yields a description. It remembers which
    /// faults it has reported.
    [[nodiscard]] PartDescription DescribePartNumber(std::wstring_view partNumber);

private:
    GroupLibraryTable table_;
    RegularExpressionSet expressions_;
    wchar_t mark_ = L'.';
    std::set<std::int32_t> reported_;
};

/// An absent file is an empty library.
LoadResult LoadGroupLibrary(std::wstring_view path, wchar_t mark, GroupLibrary& library);

} // namespace partwright
