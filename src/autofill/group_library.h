#pragma once

// The group library: from a bare part number to a full description. "GLibData.glb" holds, per
// series of a manufacturer, which part numbers belong to the series and a table of what each part
// of such a number means. docs/group_library.md tells the layout with an example.
//
//   GroupLibrary library(parseGroupLibrary(bytes, codePage), L'.');
//   library.DescribePartNumber(L"CRCW060310K0FKEA").description
//       ->  "RES THICK FILM CHIP (SMD), 10.0 KOHM, 1 %, ..."
//
// A rule knows its part numbers by its key columns ("=" for an expression), or by an expression.
// Either way finding the rule of a part number does not depend on the number of rules: the codes of
// all first key columns are one tree, and all expressions are prepared together.

#include "autofill/character_trie.h"
#include "autofill/group_library_codes.h"
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

    /// Of each key column.
    std::vector<group_library::KeyCodes> keys;
    /// What is wrong with the positions; empty when they count 1, 2, 3 and on.
    std::wstring indexFault;

    /// The part numbers are those that the key columns make up.
    [[nodiscard]] bool byColumns() const { return regExp == group_library::byColumns; }
};

/// Ascending by id; every expression is valid.
using GroupLibraryTable = std::vector<GroupLibraryRule>;

/// Reads the sections of the file. Rows that cannot serve are left out.
[[nodiscard]] GroupLibraryTable parseGroupLibrary(std::string_view bytes, CodePage codePage);

/// The text that a part number has by a rule whose expression, if it has one, matches it; empty
/// when the number does not keep to the rule's table.
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

    /// Rules of the table that may know a part number: their expression matches it, or it begins
    /// like one of theirs.
    [[nodiscard]] std::vector<std::size_t> candidates(std::wstring_view partNumber) const;

private:
    void prepare();

    GroupLibraryTable table_;
    wchar_t mark_ = L'.';
    /// Rules that know their part numbers by an expression, and these expressions.
    std::vector<std::size_t> byExpression_;
    RegularExpressionSet expressions_;
    /// Rules that know them by their columns: by the codes of the first column, or without any.
    CharacterTrie firstCodes_;
    std::vector<std::vector<std::size_t>> byFirstCode_;
    std::vector<std::size_t> withoutFirstCode_;
    std::set<std::int32_t> reported_;
};

/// An absent file is an empty library.
LoadResult LoadGroupLibrary(std::wstring_view path, wchar_t mark, GroupLibrary& library);

} // namespace partwright
