#pragma once

// Many regular expressions, prepared together and asked together: which of them match the whole of
// a text? One pass over the text answers for all that are plain regular (RE2's set search over
// UTF-8); the others, and texts that are no valid Unicode, go through the matcher of
// regular_expression.h one by one, whose answers are the same.
//
//   const RegularExpressionSet set({L".*RES.*", L"(", L".*CHIP.*"});
//   set.matches(L"CHIP RES 4K7")  ->  {0, 2};   set.valid(1)  ->  false

#include "core/regular_expression.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace partwright {

class RegularExpressionSet {
public:
    RegularExpressionSet();
    explicit RegularExpressionSet(const std::vector<std::wstring>& expressions);

    [[nodiscard]] std::size_t size() const;
    /// An invalid expression keeps its index and matches nothing.
    [[nodiscard]] bool valid(std::size_t index) const;

    /// Ascending indices of all that match.
    [[nodiscard]] std::vector<std::size_t> matches(std::wstring_view text) const;
    /// The same into a vector that keeps its memory from text to text.
    void matches(std::wstring_view text, std::vector<std::size_t>& indices) const;

private:
    struct Prepared;
    std::shared_ptr<const Prepared> prepared_;
};

} // namespace partwright
