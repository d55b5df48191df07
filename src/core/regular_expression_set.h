#pragma once

// Many regular expressions, prepared together and asked together: which of them match the whole of
// a text? One pass over the text answers for all that are plain regular (an automaton over all of
// them, built as texts need it); those with look-ahead, back-references or word boundaries go
// through the matcher of regular_expression.h one by one.
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
    /// How texts are read: as they stand, or as if they were written in capitals.
    enum class Reading { AsItStands, InCapitals };
    explicit RegularExpressionSet(const std::vector<std::wstring>& expressions,
                                  Reading reading = Reading::AsItStands);

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
