#pragma once

// What an expression is made of and what it lets through, for checking tables.
//
// Which codes can stand at given places of the texts that an expression matches? A decoder cuts
// codes out of part numbers by position and looks them up in lists; this answers whether its
// expression lets through a code that no list holds.
//
//   admittedCodes(L"RC0[46]0[23]FR", {4, 5}, 100)  ->  codes "04", "06"

#include <cstddef>
#include <cstdint>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace partwright {

struct ExpressionTraits {
    bool valid = false;
    bool hasBackReference = false;
    /// A repeat without end inside another one, which makes matching slow for most engines.
    bool nestsEndlessRepeats = false;
    /// A look-ahead inside another one, which takes many times the work.
    bool nestsLookAheads = false;
    /// A class or boundary by letter, such as \d, which changes its meaning in capitals.
    bool hasLetterEscape = false;
};

[[nodiscard]] ExpressionTraits traitsOf(std::wstring_view expression);

struct AdmittedCodes {
    /// False: the expression looks ahead or back, or lets through more codes than the limit.
    bool known = false;
    /// A text that ends before the last position gives a shorter code, or the empty one.
    std::set<std::wstring> codes;
};

/// `positions` count from 1 and ascend; those below 1 are passed over.
[[nodiscard]] AdmittedCodes admittedCodes(std::wstring_view expression,
                                          const std::vector<std::int32_t>& positions,
                                          std::size_t limit);

} // namespace partwright
