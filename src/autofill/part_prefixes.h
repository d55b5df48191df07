#pragma once

// What the beginning of a part number tells of the kind of part:
//
//   Prefix,Says,Note
//   STM32,MICROCONTROLLER,            "STM32F103C8T6"  ->  "STM32F103C8T6 MICROCONTROLLER"
//   LM6???0,SWITCHING V.REGULATOR,    "?" stands for one digit
//
// The longest prefix that a word begins with counts; of two of one length the one whose digit is
// written out. So the order of the rows means nothing, and a special prefix needs no place before
// a general one. A word must hold a digit, so that no plain word is taken for a part number.

#include "autofill/character_trie.h"
#include "core/project_paths.h"
#include "library/load_result.h"
#include "library/rule_table.h"

#include <string>
#include <string_view>
#include <vector>

namespace partwright {

class PartPrefixes {
public:
    PartPrefixes() = default;
    explicit PartPrefixes(const RuleTable& table);

    struct Match {
        /// Where the part number ends in the text.
        std::size_t end = 0;
        /// Empty when no prefix fits.
        std::wstring_view says;
    };
    /// The part number that begins at a place of a folded text (foldSign).
    [[nodiscard]] Match at(std::wstring_view folded, std::size_t begin) const;

    [[nodiscard]] std::size_t size() const { return says_.size(); }

private:
    CharacterTrie trie_;
    std::vector<std::wstring> says_;
};

/// The digit of a prefix that may be any.
inline constexpr wchar_t anyDigit = L'?';

/// The columns that are read.
[[nodiscard]] RuleTableForm partPrefixForm();

[[nodiscard]] std::wstring partPrefixPath(const ProjectPaths& paths);

} // namespace partwright
