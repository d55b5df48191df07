#pragma once

// Many regular expressions, prepared together and asked together: which of them match the whole of
// a text? RE2 answers for all that it has words for in one pass over the text; the others, and very
// large ones, are asked one by one as in regular_expression.h.
//
//   const RegularExpressionSet set({L".*RES.*", L"(", L".*CHIP.*"});
//   set.matches(L"CHIP RES 4K7")  ->  {0, 2};   set.valid(1)  ->  false

#include "core/regular_expression.h"

#include <cstddef>
#include <memory>
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

    /// Ascending indices of all that match; they stand there until the next text is asked about.
    [[nodiscard]] const std::vector<std::size_t>& matches(std::wstring_view text) const;

private:
    struct Prepared;
    std::shared_ptr<Prepared> prepared_;
};

} // namespace partwright
