#pragma once

// The key columns of a rule: which codes stand at which part of a part number.
//
// Where a rule has an expression, each column takes the characters at its positions. Where the
// columns are the expression ("="), they take one code each, from left to right, until nothing is
// left: a column with codes takes one of them, an optional one perhaps none, a coded number takes
// one of its forms, and a column that is not looked at takes as many letters and digits as it has
// positions (the last column also fewer). Codes of a column may differ in length; where there is a
// choice, the first columns take as much as they can.

#include "autofill/group_library_layout.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace partwright {

/// One text for each row of a rule, from row 1.
using GroupLibraryColumn = std::vector<std::wstring>;

namespace group_library {

/// In place of an expression: as the key columns say.
inline constexpr std::wstring_view byColumns = L"=";

/// A key column made ready.
class KeyCodes {
public:
    explicit KeyCodes(const GroupLibraryColumn& column);

    [[nodiscard]] KeyMethod method() const { return method_; }
    /// Part-number positions, from 1.
    [[nodiscard]] const std::vector<std::int32_t>& positions() const { return positions_; }
    /// The codes that it takes; empty for one that takes others, or may take none.
    [[nodiscard]] std::vector<std::wstring_view> codes(const GroupLibraryColumn& column) const;
    /// The row of a code; none for the empty code and an unknown one.
    [[nodiscard]] std::optional<std::size_t> rowOf(const GroupLibraryColumn& column,
                                                   std::wstring_view code) const;
    /// The row of the last code, where the unit stands behind.
    [[nodiscard]] std::size_t lastRow() const { return lastRow_; }
    /// The ways in which a coded number is written, as "9.9": digits, and a letter for the point.
    [[nodiscard]] const std::vector<std::wstring>& forms() const { return forms_; }

    /// How many characters of a text the column can take at its beginning, the most first.
    void lengthsAt(const GroupLibraryColumn& column, std::wstring_view text, bool last,
                   std::vector<std::size_t>& lengths) const;

private:
    [[nodiscard]] bool fits(std::wstring_view form, std::wstring_view text) const;

    KeyMethod method_;
    std::vector<std::int32_t> positions_;
    std::size_t lastRow_;
    /// Rows with a code, ascending by code.
    std::vector<std::uint32_t> byCode_;
    /// How long codes or forms are, the longest first.
    std::vector<std::size_t> lengths_;
    std::vector<std::wstring> forms_;
    std::wstring letters_;
};

/// The codes of a part number, one for each key column; none when the columns do not make it up.
[[nodiscard]] std::optional<std::vector<std::wstring>>
divide(const std::vector<GroupLibraryColumn>& columns, const std::vector<KeyCodes>& keys,
       std::wstring_view partNumber);

/// The characters at the positions of each key column.
[[nodiscard]] std::vector<std::wstring> cut(const std::vector<KeyCodes>& keys,
                                            std::wstring_view partNumber);

/// A number in the notation of part numbers: "103", "4K7", "1002".
class CodedNumber {
public:
    explicit CodedNumber(const GroupLibraryColumn& key);

    struct Reading {
        /// The number as it is written out; empty when the code is none.
        std::wstring text;
        std::wstring prefix;
        /// With its prefix.
        double value = 0;
        /// The number has its own prefix, which may be none; else it takes that of the column.
        bool ownPrefix = false;
    };
    [[nodiscard]] Reading read(std::wstring code, wchar_t mark) const;
    /// The value lies between the least and the greatest one of the series.
    [[nodiscard]] bool admits(const Reading& reading) const;

private:
    [[nodiscard]] Reading fromDigits(std::wstring_view code, wchar_t mark) const;
    [[nodiscard]] Reading withLetter(std::wstring code, std::size_t at, std::size_t letter,
                                     wchar_t mark) const;

    std::int32_t function_;
    int decimals_;
    std::vector<std::wstring_view> letters_;
    std::vector<std::wstring_view> scales_;
    std::optional<double> least_;
    std::optional<double> greatest_;
};

} // namespace group_library
} // namespace partwright
